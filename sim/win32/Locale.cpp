// The runtime's locale calls on top of the C library's locales: _create_locale, _wsetlocale and the
// case conversions that take a locale.
#include "sim/win32/Locale.h"

#include <cwctype>
#include <map>

#include "sim/core/Session.h"

namespace sim::win32 {

namespace {

bool installed(const char* name)
{
#ifdef _WIN32
    (void)name; // The names are the C library's of Linux; Windows has none of them.
    return false;
#else
    locale_t l = newlocale(LC_ALL_MASK, name, static_cast<locale_t>(nullptr));
    if (!l)
        return false;
    freelocale(l);
    return true;
#endif
}

std::string lowerAscii(std::string_view s)
{
    std::string r(s);
    for (char& c : r)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return r;
}

#ifndef _WIN32
int categoryMask(int category)
{
    switch (category) {
    case LC_ALL: return LC_ALL_MASK;
    case LC_CTYPE: return LC_CTYPE_MASK;
    case LC_NUMERIC: return LC_NUMERIC_MASK;
    case LC_TIME: return LC_TIME_MASK;
    case LC_COLLATE: return LC_COLLATE_MASK;
    case LC_MONETARY: return LC_MONETARY_MASK;
    case LC_MESSAGES: return LC_MESSAGES_MASK;
    default: return 0;
    }
}

// Case mapping for names and answers: glibc's C.UTF-8 maps all of Unicode, unlike plain "C".
locale_t invariantLocale()
{
    static const locale_t l = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr));
    return l;
}

// What _wsetlocale last set per category: the C library's name it became and the name as given, so
// that a query gives "cs-CZ" back as long as nobody changed the category behind our back.
struct SetName {
    std::string posix;
    std::wstring given;
};
std::map<int, SetName>& setNames()
{
    static std::map<int, SetName> names;
    return names;
}
#endif

} // namespace

const std::string& czechLocaleName()
{
    static const std::string name = installed("cs_CZ.UTF-8") ? "cs_CZ.UTF-8" : "C.UTF-8";
    return name;
}

bool isCzechLocaleName(std::string_view name)
{
    std::string n = lowerAscii(name);
    if (n.rfind("czech", 0) == 0)
        return true;
    return n.size() >= 2 && n.compare(0, 2, "cs") == 0 &&
           (n.size() == 2 || n[2] == '-' || n[2] == '_' || n[2] == '.');
}

std::optional<std::string> posixLocaleName(std::string_view windowsName)
{
    std::string name(windowsName);
    if (name.empty() || name == "C" || name == "POSIX")
        return name;
    if (isCzechLocaleName(name))
        return czechLocaleName();
    if (name.find_first_of(".=;") != std::string::npos)
        return name;
    // "ll-CC" or "ll_CC": a language and a country.
    size_t sep = name.find_first_of("-_");
    auto letters = [](std::string_view s) {
        if (s.empty() || s.size() > 3)
            return false;
        for (char c : s)
            if (!((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')))
                return false;
        return true;
    };
    std::string_view lang = std::string_view(name).substr(0, sep);
    if (!letters(lang))
        return std::nullopt;
    std::string posix = lowerAscii(lang);
    if (sep != std::string::npos) {
        std::string_view country = std::string_view(name).substr(sep + 1);
        if (!letters(country))
            return std::nullopt;
        posix += '_';
        for (char c : country)
            posix += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    }
    posix += ".UTF-8";
    return installed(posix.c_str()) ? posix : std::string("C.UTF-8");
}

wchar_t upperInvariant(wchar_t c)
{
#ifdef _WIN32
    // The runtime maps all of Unicode in a named locale, only ASCII in "C".
    static const _locale_t l = _create_locale(LC_CTYPE, "English_United States.1252");
    if (l)
        return static_cast<wchar_t>(_towupper_l(static_cast<wint_t>(c), l));
#else
    if (locale_t l = invariantLocale())
        return static_cast<wchar_t>(towupper_l(static_cast<wint_t>(c), l));
#endif
    return (c >= L'a' && c <= L'z') ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}

std::wstring upperInvariant(std::wstring_view s)
{
    std::wstring r(s);
    for (wchar_t& c : r)
        c = upperInvariant(c);
    return r;
}

} // namespace sim::win32

// On Windows the runtime has these.
#ifndef _WIN32
using sim::win32::posixLocaleName;

_locale_t _create_locale(int category, const char* locale)
{
    int mask = sim::win32::categoryMask(category);
    if (!locale || mask == 0)
        return nullptr;
    auto posix = posixLocaleName(locale);
    if (!posix)
        return nullptr;
    locale_t native = newlocale(mask, posix->c_str(), static_cast<locale_t>(nullptr));
    if (!native)
        return nullptr;
    return new __crt_locale_pointers{native, sim::win32::isCzechLocaleName(locale) ||
                                                 sim::win32::isCzechLocaleName(*posix)};
}

_locale_t _wcreate_locale(int category, const wchar_t* locale)
{
    if (!locale)
        return nullptr;
    return _create_locale(category, sim::toUtf8(locale).c_str());
}

void _free_locale(_locale_t locale)
{
    if (!locale)
        return;
    if (locale->native)
        freelocale(locale->native);
    delete locale;
}

wchar_t* _wsetlocale(int category, const wchar_t* locale)
{
    static std::wstring answer;
    auto& names = sim::win32::setNames();
    if (sim::win32::categoryMask(category) == 0)
        return nullptr;
    if (!locale) {
        const char* now = setlocale(category, nullptr);
        if (!now)
            return nullptr;
        auto it = names.find(category);
        answer = (it != names.end() && it->second.posix == now) ? it->second.given : sim::fromUtf8(now);
        return answer.data();
    }
    std::string given = sim::toUtf8(locale);
    auto posix = posixLocaleName(given);
    if (!posix)
        return nullptr;
    const char* now = setlocale(category, posix->c_str());
    if (!now)
        return nullptr;
    std::string nowName = now;
    // "" takes the environment's locale: answer with the name it turned out to be.
    std::wstring shown = given.empty() ? sim::fromUtf8(nowName) : std::wstring(locale);
    names[category] = {nowName, shown};
    if (category == LC_ALL) {
        for (int c : {LC_CTYPE, LC_NUMERIC, LC_TIME, LC_COLLATE, LC_MONETARY, LC_MESSAGES})
            if (const char* n = setlocale(c, nullptr))
                names[c] = {n, shown};
    }
    answer = shown;
    return answer.data();
}

wint_t _towupper_l(wint_t c, _locale_t locale)
{
    if (locale && locale->native)
        return towupper_l(c, locale->native);
    return towupper(c);
}

wint_t _towlower_l(wint_t c, _locale_t locale)
{
    if (locale && locale->native)
        return towlower_l(c, locale->native);
    return towlower(c);
}

namespace {

template <typename Convert>
errno_t convertInPlace(wchar_t* str, size_t numberOfElements, Convert convert)
{
    if (!str)
        return EINVAL;
    if (wcsnlen(str, numberOfElements) >= numberOfElements) {
        if (numberOfElements > 0)
            str[0] = L'\0';
        return EINVAL;
    }
    for (wchar_t* p = str; *p; ++p)
        *p = static_cast<wchar_t>(convert(static_cast<wint_t>(*p)));
    return 0;
}

} // namespace

errno_t _wcsupr_s_l(wchar_t* str, size_t numberOfElements, _locale_t locale)
{
    return convertInPlace(str, numberOfElements, [locale](wint_t c) { return _towupper_l(c, locale); });
}

errno_t _wcsupr_s(wchar_t* str, size_t numberOfElements)
{
    return _wcsupr_s_l(str, numberOfElements, nullptr);
}

wchar_t* _wcsupr_l(wchar_t* str, _locale_t locale)
{
    if (str)
        _wcsupr_s_l(str, wcslen(str) + 1, locale);
    return str;
}

wchar_t* _wcsupr(wchar_t* str) { return _wcsupr_l(str, nullptr); }

errno_t _wcslwr_s_l(wchar_t* str, size_t numberOfElements, _locale_t locale)
{
    return convertInPlace(str, numberOfElements, [locale](wint_t c) { return _towlower_l(c, locale); });
}

errno_t _wcslwr_s(wchar_t* str, size_t numberOfElements)
{
    return _wcslwr_s_l(str, numberOfElements, nullptr);
}
#endif
