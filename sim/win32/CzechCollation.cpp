// Collation for the runtime's _wcscoll_l and _wcsicoll_l: the Czech alphabet for a Czech locale,
// code points for any other. Our own table rather than the C library's, so that the order is the same
// on every machine whether or not a Czech locale is installed.
#include <cstdint>
#include <cwchar>
#include <cwctype>
#include <iterator>
#include <string>
#include <vector>

#include "sim/win32/Locale.h"

// On Windows the runtime has these.
#ifndef _WIN32

namespace {

// The Czech alphabet in order; "CH" stands for the digraph. Letters with other accents sort as their
// base letter and differ only at the second level.
const wchar_t* const kAlphabet[] = {L"A", L"B", L"C", L"Č", L"D", L"E", L"F", L"G", L"H", L"CH", L"I", L"J",
    L"K", L"L", L"M", L"N", L"O", L"P", L"Q", L"R", L"Ř", L"S", L"Š", L"T", L"U", L"V", L"W", L"X", L"Y",
    L"Z", L"Ž"};
const wchar_t kAccented[] = L"ÁÄĎÉĚËÍĹĽŇÓÔÖŔŤÚŮÜÝ";
const wchar_t kBase[] = L"AADEEEILLNOOORTUUUY";

int rankOf(std::wstring_view letter)
{
    for (size_t i = 0; i < std::size(kAlphabet); ++i)
        if (letter == kAlphabet[i])
            return static_cast<int>(i);
    return -1;
}

struct Weights {
    std::vector<int> primary;
    std::wstring secondary; // the upper-case letters as written
    std::vector<int> tertiary; // 0 lower case, 1 upper case
};

Weights czechWeights(const wchar_t* s)
{
    Weights w;
    for (size_t i = 0; s[i];) {
        wchar_t up = sim::win32::upperInvariant(s[i]);
        size_t len = 1;
        std::wstring letter(1, up);
        if (up == L'C' && s[i + 1] && sim::win32::upperInvariant(s[i + 1]) == L'H') {
            letter = L"CH";
            len = 2;
        }
        if (const wchar_t* p = std::wcschr(kAccented, up); p && *p)
            letter = std::wstring(1, kBase[p - kAccented]);
        int primary;
        if (int rank = rankOf(letter); rank >= 0)
            primary = 0x200 + rank;
        else if (up >= L'0' && up <= L'9')
            primary = 0x100 + (up - L'0');
        else if (std::iswalnum(static_cast<wint_t>(up)) || up > 0xFF)
            primary = 0x1000 + static_cast<int>(up);
        else
            primary = static_cast<int>(up);
        w.primary.push_back(primary);
        for (size_t k = 0; k < len; ++k) {
            w.secondary.push_back(sim::win32::upperInvariant(s[i + k]));
            w.tertiary.push_back(sim::win32::upperInvariant(s[i + k]) == s[i + k] ? 1 : 0);
        }
        i += len;
    }
    return w;
}

int sign(int v) { return (v > 0) - (v < 0); }

template <typename Seq>
int compareSeq(const Seq& a, const Seq& b)
{
    return a < b ? -1 : (b < a ? 1 : 0);
}

int czechCompare(const wchar_t* a, const wchar_t* b, bool ignoreCase)
{
    Weights wa = czechWeights(a), wb = czechWeights(b);
    if (int r = compareSeq(wa.primary, wb.primary))
        return r;
    if (int r = compareSeq(wa.secondary, wb.secondary))
        return r;
    if (ignoreCase)
        return 0;
    if (int r = compareSeq(wa.tertiary, wb.tertiary))
        return r;
    return sign(std::wcscmp(a, b));
}

} // namespace

int _wcscoll_l(const wchar_t* string1, const wchar_t* string2, _locale_t locale)
{
    if (!string1 || !string2)
        return INT32_MAX; // _NLSCMPERROR
    if (locale && locale->czech)
        return czechCompare(string1, string2, false);
    return sign(std::wcscmp(string1, string2));
}

int _wcsicoll_l(const wchar_t* string1, const wchar_t* string2, _locale_t locale)
{
    if (!string1 || !string2)
        return INT32_MAX;
    if (locale && locale->czech)
        return czechCompare(string1, string2, true);
    std::wstring a = sim::win32::upperInvariant(string1), b = sim::win32::upperInvariant(string2);
    return sign(a.compare(b));
}
#endif
