// A line weight as text.
#include "TextTloustky.h"

#include <cwchar>

AcString TextTloustky(AcDb::LineWeight tloustka)
{
    switch (static_cast<int>(tloustka)) {
    case -1: return L"DLEHLAD";
    case -2: return L"DLEBLOK";
    case -3: return L"Výchozí";
    default: break;
    }
    wchar_t text[32];
    std::swprintf(text, 32, L"%.1f", static_cast<int>(tloustka) / 100.0);
    return text;
}
