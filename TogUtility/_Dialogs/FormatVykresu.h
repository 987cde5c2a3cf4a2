// The arithmetic of the sheet format calculator: the step tables of the spin buttons, the standard
// formats, the plotter rolls with their waste and the office printer rule. Sizes in whole millimetres.
#pragma once
#include <array>
#include <string>

namespace FormatVykresu {

/// Heights the height spin steps through; the place search looks at the first five only.
inline constexpr std::array<int, 7> kVysky = {297, 420, 594, 841, 891, 914, 1188};
/// Widths the width spin steps through.
inline constexpr std::array<int, 14> kSirky = {210, 420, 594, 841, 914, 1051, 1188, 1261, 1471, 1682, 1892, 2102, 2312, 2523};
/// Widths of the plotter rolls.
inline constexpr std::array<int, 4> kRole = {420, 594, 841, 914};
/// The widest roll: one side of a printable sheet must fit on it.
inline constexpr int kMaxRole = 914;

struct Format {
    const wchar_t* popis;
    int sirka, vyska;
};
/// The standard formats in the order of their radio buttons.
inline constexpr std::array<Format, 8> kFormaty = {{
    {L"A4 - 210 x 297", 210, 297},
    {L"A3 - 420 x 297", 420, 297},
    {L"A2 - 594 x 420", 594, 420},
    {L"A1 - 841 x 594", 841, 594},
    {L"A0 - 1188 x 841", 1188, 841},
    {L".... 594 x 297", 594, 297},
    {L".... 841 x 297", 841, 297},
    {L".... 841 x 420", 841, 420},
}};

/// Place of a value in a step table: the first entry not smaller than it, and whether it is equal.
struct Misto {
    int index;
    bool presne;
};
/// In the height table; a height above 891 lands on 914 (index 5).
Misto MistoVysky(int vyska);
/// In the width table; a width above the last entry gives 14 (past the table), never exact.
Misto MistoSirky(int sirka);

/// The table entry a spin click at the new position p lands on. A value between two entries sits on
/// the larger one, so the first step up from it must not skip that entry.
int KrokVysky(int p, Misto misto);
int KrokSirky(int p, Misto misto);

/// Index of the standard format of exactly these sizes, -1 for none.
int IndexFormatu(int sirka, int vyska);

/// The 914 rule: when both sides exceed the widest roll, the height falls to 914. True when it fell.
bool OmezVysku(int sirka, int& vyska);

/// "A4: %.1f" of a count of A4 sheets.
std::wstring TextA4(double pocet);

/// What the calculator says about printing a sheet: a roll (or "NELZE") for each direction with its
/// waste in cm2, or the office printer. Empty strings stand for empty fields.
struct TextyTisku {
    std::wstring vyska, odpadVysky, sirka, odpadSirky;
};
TextyTisku Tisk(int sirka, int vyska);

} // namespace FormatVykresu
