// The arithmetic of a sheet frame.
#include "RamecekGeometrie.h"

#include <cmath>

namespace RamecekGeometrie {

namespace {

constexpr wchar_t kCislice[] = L"0123456789ABCDEFGHIJKLMNOPQRSTUV";

void PridejPole(std::wstring& kod, int hodnota)
{
    const unsigned v = static_cast<unsigned>(hodnota);
    for (int posun = 15; posun >= 0; posun -= 5)
        kod += kCislice[(v >> posun) & 31u];
}

std::optional<int> CtiPole(const std::wstring& kod, std::size_t od)
{
    int v = 0;
    for (std::size_t i = od; i < od + 4; ++i) {
        const wchar_t c = kod[i];
        int cislice;
        if (c >= L'0' && c <= L'9')
            cislice = c - L'0';
        else if (c >= L'A' && c <= L'V')
            cislice = c - L'A' + 10;
        else if (c >= L'a' && c <= L'v')
            cislice = c - L'a' + 10;
        else
            return std::nullopt;
        v = v * 32 + cislice;
    }
    return v;
}

} // namespace

double Modul(int sirka) { return sirka < 841 ? 210.0 : 210.25; }

int PocetA4(int sirka, int vyska)
{
    const double sloupce = std::ceil(sirka / Modul(sirka));
    return static_cast<int>(sloupce * std::ceil(vyska / kModulVysky));
}

std::wstring Popis(int sirka, int vyska)
{
    return std::to_wstring(sirka) + L" x " + std::to_wstring(vyska) + L" - " + std::to_wstring(PocetA4(sirka, vyska)) +
           L" A4";
}

std::wstring Kod(const Parametry& p)
{
    std::wstring kod;
    for (int hodnota : {p.sirka, p.vyska, p.presah, p.roztec})
        PridejPole(kod, hodnota);
    kod += p.popis ? L'1' : L'0';
    kod += p.dvojity ? L'1' : L'0';
    return kod;
}

std::optional<Parametry> CtiKod(const std::wstring& kod)
{
    if (kod.size() != 18)
        return std::nullopt;
    auto w = CtiPole(kod, 0), h = CtiPole(kod, 4), m = CtiPole(kod, 8), s = CtiPole(kod, 12);
    if (!w || !h || !m || !s)
        return std::nullopt;
    return Parametry{*w, *h, *m, *s, kod[16] == L'1', kod[17] == L'1'};
}

std::vector<Bod> VnejsiRamecek(Bod roh, int sirka, int vyska, double modul, int presah)
{
    const double x0 = roh.x, y0 = roh.y, W = sirka, H = vyska, M = presah;
    std::vector<Bod> v{{x0, y0}};
    for (double x = x0 - modul; x > x0 - W; x -= modul)
        v.insert(v.end(), {{x, y0}, {x, y0 + M}, {x, y0}});
    v.push_back({x0 - W, y0});
    for (double y = y0 + kModulVysky; y < y0 + H; y += kModulVysky)
        v.insert(v.end(), {{x0 - W, y}, {x0 - W + M, y}, {x0 - W, y}});
    v.push_back({x0 - W, y0 + H});
    // From the left-most whole module seen from the right corner.
    const int sloupce = static_cast<int>(W / modul);
    for (double x = x0 - sloupce * modul; x < x0; x += modul)
        v.insert(v.end(), {{x, y0 + H}, {x, y0 + H - M}, {x, y0 + H}});
    v.push_back({x0, y0 + H});
    for (double y = y0 + (vyska / 297) * kModulVysky; y > y0; y -= kModulVysky)
        v.insert(v.end(), {{x0, y}, {x0 - M, y}, {x0, y}});
    return v;
}

std::vector<Bod> VnitrniRamecek(Bod roh, int sirka, int vyska, int roztec)
{
    const double x0 = roh.x, y0 = roh.y, S = roztec;
    return {{x0 - S, y0 + S}, {x0 - S, y0 + vyska - S}, {x0 - sirka + S, y0 + vyska - S}, {x0 - sirka + S, y0 + S}};
}

} // namespace RamecekGeometrie
