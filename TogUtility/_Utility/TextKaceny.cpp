// Level texts and the prompt of the level mark command.
#include "TextKaceny.h"

#include <cmath>
#include <cwchar>

namespace {

std::wstring Formatuj(double hodnota, int desetinnaMista)
{
    // "%.2f" with the digit 2 replaced by the number of decimals.
    wchar_t format[] = L"%.2f";
    format[2] = static_cast<wchar_t>(L'0' + desetinnaMista);
    wchar_t text[64];
    std::swprintf(text, sizeof(text) / sizeof(text[0]), format, hodnota);
    return text;
}

} // namespace

std::wstring TextVysky(const NastaveniVysky& n, double y)
{
    const double v = (y - n.zakladY) * n.prepocet + n.referencniVyska;
    const double e = std::pow(10.0, -n.desetinnaMista) * 0.5;
    std::wstring text = Formatuj(v, n.desetinnaMista);
    if (n.znamenko && -e < v && v < e) {
        if (!text.empty() && text[0] == L'-')
            text.erase(0, 1);
        return L"%%p" + text;
    }
    if (n.znamenko && v > e)
        return L"+" + text;
    return text;
}

std::wstring TextAbsolutni(const NastaveniVysky& n, double y)
{
    return Formatuj((y - n.zakladY) * n.prepocet + n.nulaAbsolutni + n.referencniVyska, 2);
}

void SestavVyzvu(const StavVyzvy& stav, std::wstring& vyzva, std::wstring& klicovaSlova)
{
    std::wstring volby = L"\nZadej umístění kačeny [Nastavení, ";
    std::wstring stavText = L"'";
    klicovaSlova = L"N";
    if (stav.vertikalni == 1) {
        volby += L"Spodní, ";
        klicovaSlova += L" S";
        stavText += L"Horní, ";
    } else {
        volby += L"Horní, ";
        klicovaSlova += L" H";
        stavText += L"Spodní, ";
    }
    if (stav.horizontalni != 2) {
        volby += L"Levá, ";
        klicovaSlova += L" L";
        stavText += L"Pravá, ";
    } else {
        volby += L"Pravá, ";
        klicovaSlova += L" P";
        stavText += L"Levá, ";
    }
    if (!stav.odkaz) {
        volby += L"Odkaz] ";
        klicovaSlova += L" O";
        stavText += L"Bez odkazu'";
    } else {
        volby += L"Bez odkazu] ";
        klicovaSlova += L" B";
        stavText += L"Odkaz'";
    }
    if (stav.zpet) {
        volby += L"Zpět, ";
        klicovaSlova += L" Z";
    }
    vyzva = volby + stavText + L" <Nastavení>: ";
}
