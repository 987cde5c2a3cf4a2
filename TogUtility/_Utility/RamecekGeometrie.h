// The arithmetic of a sheet frame: the module of a folded sheet, the label, the parameter code kept
// in the frame's block and the vertices of the outer frame with its folding marks and of the inner
// frame. Sizes in millimetres; the corner is the frame's lower right corner.
#pragma once
#include <optional>
#include <string>
#include <vector>

namespace RamecekGeometrie {

/// Height of a folded sheet.
inline constexpr double kModulVysky = 297.0;

/// Width of one folded sheet: 210.0, or 210.25 from 841 up, so that A1 folds into four columns.
double Modul(int sirka);

/// Number of A4 sheets a frame counts: columns of the module by rows of 297.
int PocetA4(int sirka, int vyska);
/// "W x H - N A4".
std::wstring Popis(int sirka, int vyska);

struct Parametry {
    int sirka = 210;
    int vyska = 297;
    int presah = 6; ///< length of a folding mark
    int roztec = 6; ///< spacing of the inner frame
    bool popis = false;
    bool dvojity = false;
    bool operator==(const Parametry&) const = default;
};

/// The 18 characters of the code: four base-32 fields of four characters (W, H, mark, spacing; values
/// cut to 20 bits), then "1"/"0" for the label and for the double frame.
std::wstring Kod(const Parametry& p);
/// The parameters of a code; none when it is not 18 characters or a field isn't a base-32 number.
std::optional<Parametry> CtiKod(const std::wstring& kod);

struct Bod {
    double x, y;
    bool operator==(const Bod&) const = default;
};

/// The outer frame from the lower right corner clockwise; at each fold line a spike of length
/// `presah` goes inwards and back (three vertices). Marks on all edges are counted from the lower right
/// corner, so that those at the top stand over those at the bottom.
std::vector<Bod> VnejsiRamecek(Bod roh, int sirka, int vyska, double modul, int presah);
/// The inner frame: four vertices, `roztec` inside the outer one.
std::vector<Bod> VnitrniRamecek(Bod roh, int sirka, int vyska, int roztec);

} // namespace RamecekGeometrie
