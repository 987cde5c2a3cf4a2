// Case folding of names, independent of the C library's locale (whose "C" locale folds ASCII only).
#include "sim/db/Names.h"

namespace sim::db {

wchar_t upperCase(wchar_t c)
{
    if (c >= L'a' && c <= L'z')
        return static_cast<wchar_t>(c - 32);
    if (c < 0xE0)
        return c;
    if (c <= 0xFE)
        return c == 0xF7 ? c : static_cast<wchar_t>(c - 32);
    if (c == 0xFF)
        return 0x178;
    if (c >= 0x100 && c <= 0x17F) {
        // Latin Extended-A: pairs of capital and small, the capital first except in two runs.
        if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E))
            return (c % 2 == 0) ? static_cast<wchar_t>(c - 1) : c;
        if (c == 0x138 || c == 0x149)
            return c;
        if (c == 0x17F)
            return L'S';
        return (c % 2 == 1) ? static_cast<wchar_t>(c - 1) : c;
    }
    if (c >= 0x3B1 && c <= 0x3C9)
        return c == 0x3C2 ? static_cast<wchar_t>(0x3A3) : static_cast<wchar_t>(c - 32);
    if (c >= 0x430 && c <= 0x44F)
        return static_cast<wchar_t>(c - 32);
    if (c >= 0x450 && c <= 0x45F)
        return static_cast<wchar_t>(c - 80);
    return c;
}

int compareNoCase(std::wstring_view a, std::wstring_view b)
{
    size_t n = a.size() < b.size() ? a.size() : b.size();
    for (size_t i = 0; i < n; ++i) {
        wchar_t x = upperCase(a[i]), y = upperCase(b[i]);
        if (x != y)
            return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

} // namespace sim::db
