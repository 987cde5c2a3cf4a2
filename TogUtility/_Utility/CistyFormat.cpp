// Clean format, one pass over the contents.
#include "CistyFormat.h"

std::wstring CistyFormat(std::wstring_view obsah)
{
    std::wstring vysledek;
    vysledek.reserve(obsah.size());
    for (size_t i = 0; i < obsah.size(); ++i) {
        wchar_t c = obsah[i];
        if (c == L'{' || c == L'}')
            continue;
        if (c != L'\\' || i + 1 == obsah.size()) {
            vysledek += c;
            continue;
        }
        wchar_t kod = obsah[i + 1];
        if (kod == L'C' || kod == L'c' || kod == L'F' || kod == L'f' || kod == L'H' || kod == L'h' || kod == L'Q' ||
            kod == L'q') {
            size_t strednik = obsah.find(L';', i + 2);
            if (strednik == std::wstring_view::npos)
                break;
            i = strednik;
            continue;
        }
        vysledek += c;
        vysledek += kod;
        ++i;
    }
    return vysledek;
}
