// The arithmetic of the sheet format calculator.
#include "FormatVykresu.h"

#include <cwchar>

namespace FormatVykresu {

namespace {

template <std::size_t N> Misto Hledej(const std::array<int, N>& tabulka, std::size_t prohledat, int hodnota)
{
    for (std::size_t i = 0; i < prohledat; ++i)
        if (tabulka[i] >= hodnota)
            return {static_cast<int>(i), tabulka[i] == hodnota};
    const bool vTabulce = prohledat < N;
    return {static_cast<int>(prohledat), vTabulce && tabulka[prohledat] == hodnota};
}

template <std::size_t N> int Krok(const std::array<int, N>& tabulka, int p, Misto misto)
{
    if (!misto.presne && misto.index < p)
        --p;
    if (p < 0)
        p = 0;
    if (p >= static_cast<int>(N))
        p = static_cast<int>(N) - 1;
    return tabulka[static_cast<std::size_t>(p)];
}

// The narrowest roll that takes the size, 0 when none does.
int Role(int rozmer)
{
    for (int r : kRole)
        if (r >= rozmer)
            return r;
    return 0;
}

std::wstring Formatuj(const wchar_t* format, int hodnota)
{
    wchar_t buf[64];
    std::swprintf(buf, 64, format, hodnota);
    return buf;
}

} // namespace

Misto MistoVysky(int vyska) { return Hledej(kVysky, 5, vyska); }
Misto MistoSirky(int sirka) { return Hledej(kSirky, kSirky.size(), sirka); }

int KrokVysky(int p, Misto misto) { return Krok(kVysky, p, misto); }
int KrokSirky(int p, Misto misto) { return Krok(kSirky, p, misto); }

int IndexFormatu(int sirka, int vyska)
{
    for (std::size_t i = 0; i < kFormaty.size(); ++i)
        if (kFormaty[i].sirka == sirka && kFormaty[i].vyska == vyska)
            return static_cast<int>(i);
    return -1;
}

bool OmezVysku(int sirka, int& vyska)
{
    if (sirka <= kMaxRole || vyska <= kMaxRole)
        return false;
    vyska = kMaxRole;
    return true;
}

std::wstring TextA4(double pocet)
{
    wchar_t buf[64];
    std::swprintf(buf, 64, L"A4: %.1f", pocet);
    return buf;
}

TextyTisku Tisk(int sirka, int vyska)
{
    TextyTisku t;
    if ((vyska <= 297 && sirka <= 420) || (vyska <= 420 && sirka <= 297)) {
        t.sirka = L"NA TISKÁRNU";
        return t;
    }
    // Waste: the unused strip of the roll along the other side, mm2 / 100 = cm2.
    if (int r = Role(vyska)) {
        t.vyska = Formatuj(L"Na výšku: ROLE %i cm", r);
        t.odpadVysky = Formatuj(L"nevyužito: %i cm2", (r - vyska) * sirka / 100);
    } else {
        t.vyska = L"Na výšku: NELZE";
    }
    if (int r = Role(sirka)) {
        t.sirka = Formatuj(L"Na šířku: ROLE %i cm", r);
        t.odpadSirky = Formatuj(L"nevyužito: %i cm2", (r - sirka) * vyska / 100);
    } else {
        t.sirka = L"Na šířku: NELZE";
    }
    return t;
}

} // namespace FormatVykresu
