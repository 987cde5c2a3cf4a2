// The Microsoft C runtime's extensions the system calls: locale objects, checked string copies,
// case conversion and comparison, number conversion. Declared as the runtime declares them
// (corecrt_wstring.h, corecrt_wstdlib.h, locale.h); behaviour follows its documentation.
#pragma once
#include <cerrno>
#include <clocale>
#include <cstdarg>
#include <cstddef>
#include <cwchar>
#include <cwctype>

#ifdef _WIN32
// On Windows the runtime itself declares and implements all of this.
#include <locale.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>
#else
typedef int errno_t;
#ifndef _TRUNCATE
#define _TRUNCATE ((size_t)-1)
#endif
#ifndef STRUNCATE
#define STRUNCATE 80
#endif

#ifndef _countof
#define _countof(a) (sizeof(a) / sizeof((a)[0]))
#endif

// ---------------------------------------------------------------------------------------------
// Locales. A locale is named in the Windows form ("cs-CZ"), "C" or "" (the user's default). The
// platform maps "cs-CZ" (and "cs_CZ", "Czech...") to the C library's "cs_CZ.UTF-8" where it is
// installed, else to "C.UTF-8": both upper-case Czech text alike (á→Á, ř→Ř, ů→Ů; ß stays). Other
// names "ll-CC" map to "ll_CC.UTF-8", else "C.UTF-8". The categories are the C library's LC_*.

struct __crt_locale_pointers;
typedef __crt_locale_pointers* _locale_t;

/// A new locale object, or null for a name that can't be mapped. Free it with _free_locale.
_locale_t _create_locale(int category, const char* locale);
_locale_t _wcreate_locale(int category, const wchar_t* locale);
void _free_locale(_locale_t locale);
/// Sets the process's locale for a category, or with a null name asks for it. Gives the name in
/// force (as it was given: "cs-CZ" stays "cs-CZ"), or null when the name can't be set. The text
/// lives until the next call.
wchar_t* _wsetlocale(int category, const wchar_t* locale);

// Case conversion. A null locale means the process's current locale.
wint_t _towupper_l(wint_t c, _locale_t locale);
wint_t _towlower_l(wint_t c, _locale_t locale);
/// Upper-cases in place. EINVAL for a null string or one not ended within numberOfElements (the
/// string is then emptied).
errno_t _wcsupr_s_l(wchar_t* str, size_t numberOfElements, _locale_t locale);
errno_t _wcsupr_s(wchar_t* str, size_t numberOfElements);
wchar_t* _wcsupr_l(wchar_t* str, _locale_t locale);
wchar_t* _wcsupr(wchar_t* str);
errno_t _wcslwr_s_l(wchar_t* str, size_t numberOfElements, _locale_t locale);
errno_t _wcslwr_s(wchar_t* str, size_t numberOfElements);

// Comparison. _wcsicmp and _wcsnicmp fold case in the current locale.
int _wcsicmp(const wchar_t* string1, const wchar_t* string2);
int _wcsnicmp(const wchar_t* string1, const wchar_t* string2, size_t count);
/// Collation: a Czech locale sorts by the Czech alphabet (č after c, ch after h, ř after r, š after
/// s, ž after z; other accents count only between otherwise equal texts); other locales by upper-case
/// code point. The _wcsicoll_l form ignores case.
int _wcscoll_l(const wchar_t* string1, const wchar_t* string2, _locale_t locale);
int _wcsicoll_l(const wchar_t* string1, const wchar_t* string2, _locale_t locale);

// ---------------------------------------------------------------------------------------------
// Checked copies. Sizes count characters, the terminating zero included. On EINVAL or ERANGE the
// destination is emptied (where there is one); with count _TRUNCATE wcsncpy_s copies what fits and
// gives STRUNCATE.

errno_t wcscpy_s(wchar_t* dest, size_t destSize, const wchar_t* src);
errno_t wcsncpy_s(wchar_t* dest, size_t destSize, const wchar_t* src, size_t count);
errno_t wcscat_s(wchar_t* dest, size_t destSize, const wchar_t* src);
wchar_t* _wcsdup(const wchar_t* str);

/// printf formats of the C library (%ls for wide text). Gives the count written, or -1 with the
/// buffer emptied when it doesn't fit.
int swprintf_s(wchar_t* buffer, size_t sizeOfBuffer, const wchar_t* format, ...);
int vswprintf_s(wchar_t* buffer, size_t sizeOfBuffer, const wchar_t* format, va_list argptr);
/// As swprintf_s, at most count characters; count _TRUNCATE writes what fits and gives -1.
int _snwprintf_s(wchar_t* buffer, size_t sizeOfBuffer, size_t count, const wchar_t* format, ...);
int _vsnwprintf_s(wchar_t* buffer, size_t sizeOfBuffer, size_t count, const wchar_t* format, va_list argptr);

// Numbers. _wtoi clamps to the int range; text that holds no number gives 0.
int _wtoi(const wchar_t* str);
double _wtof(const wchar_t* str);
/// Radix 2 to 36; a negative value has its sign only in radix 10. ERANGE when the text doesn't fit.
errno_t _itow_s(int value, wchar_t* buffer, size_t sizeInCharacters, int radix);

// The runtime's template forms for arrays, which take the size from the array.
template <size_t N>
inline errno_t wcscpy_s(wchar_t (&dest)[N], const wchar_t* src)
{
    return wcscpy_s(dest, N, src);
}
template <size_t N>
inline errno_t wcsncpy_s(wchar_t (&dest)[N], const wchar_t* src, size_t count)
{
    return wcsncpy_s(dest, N, src, count);
}
template <size_t N>
inline errno_t wcscat_s(wchar_t (&dest)[N], const wchar_t* src)
{
    return wcscat_s(dest, N, src);
}
template <size_t N>
inline int swprintf_s(wchar_t (&buffer)[N], const wchar_t* format, ...)
{
    va_list ap;
    va_start(ap, format);
    int n = vswprintf_s(buffer, N, format, ap);
    va_end(ap);
    return n;
}
template <size_t N>
inline int _snwprintf_s(wchar_t (&buffer)[N], size_t count, const wchar_t* format, ...)
{
    va_list ap;
    va_start(ap, format);
    int n = _vsnwprintf_s(buffer, N, count, format, ap);
    va_end(ap);
    return n;
}
template <size_t N>
inline errno_t _itow_s(int value, wchar_t (&buffer)[N], int radix)
{
    return _itow_s(value, buffer, N, radix);
}
template <size_t N>
inline errno_t _wcsupr_s(wchar_t (&str)[N])
{
    return _wcsupr_s(str, N);
}
template <size_t N>
inline errno_t _wcsupr_s_l(wchar_t (&str)[N], _locale_t locale)
{
    return _wcsupr_s_l(str, N, locale);
}
#endif
