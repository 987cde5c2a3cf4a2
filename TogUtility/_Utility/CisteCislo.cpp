// Clean number, in two steps.
#include "CisteCislo.h"

std::wstring OddelovaceNaTecky(std::wstring_view text)
{
    std::wstring vysledek(text);
    for (wchar_t& c : vysledek)
        if (c == L' ' || c == L',')
            c = L'.';
    return vysledek;
}

std::wstring JenPrvniTecka(std::wstring_view text)
{
    std::wstring vysledek;
    vysledek.reserve(text.size());
    bool tecka = false;
    for (wchar_t c : text) {
        if (c == L'.') {
            if (tecka)
                continue;
            tecka = true;
        }
        vysledek += c;
    }
    return vysledek;
}

std::wstring CisteCislo(std::wstring_view text) { return JenPrvniTecka(OddelovaceNaTecky(text)); }
