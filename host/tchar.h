// Generic-text mappings of the C runtime for a Unicode build: _T, _TCHAR and the _tcs... names of the
// wide functions the system calls.
#pragma once
#include <cstdlib>
#include <cwchar>
#include <cwctype>
#include "wincrt.h"

#ifndef _UNICODE
#define _UNICODE
#endif
typedef wchar_t _TCHAR;
typedef wchar_t _TSCHAR;
typedef wchar_t _TUCHAR;
typedef wint_t _TINT;
#define __T(x) L##x
#define _T(x) __T(x)
#define _TEXT(x) __T(x)

#define _tcslen wcslen
#define _tcsnlen wcsnlen
#define _tcscpy wcscpy
#define _tcsncpy wcsncpy
#define _tcscat wcscat
#define _tcscpy_s wcscpy_s
#define _tcsncpy_s wcsncpy_s
#define _tcscat_s wcscat_s
#define _tcscmp wcscmp
#define _tcsncmp wcsncmp
#define _tcsicmp _wcsicmp
#define _tcsnicmp _wcsnicmp
#define _tcscoll_l _wcscoll_l
#define _tcsicoll_l _wcsicoll_l
#define _tcschr wcschr
#define _tcsrchr wcsrchr
#define _tcsstr wcsstr
#define _tcsspn wcsspn
#define _tcscspn wcscspn
#define _tcspbrk wcspbrk
#define _tcsdup _wcsdup
#define _tcsupr _wcsupr
#define _tcsupr_s _wcsupr_s
#define _tcsupr_l _wcsupr_l
#define _tcsupr_s_l _wcsupr_s_l
#define _tcslwr_s _wcslwr_s
#define _stprintf_s swprintf_s
#define _sntprintf_s _snwprintf_s
#define _vstprintf_s vswprintf_s
#define _ttoi _wtoi
#define _tstoi _wtoi
#define _tstof _wtof
#define _ttof _wtof
#define _tcstod wcstod
#define _tcstol wcstol
#define _tcstoul wcstoul
#define _itot_s _itow_s
#define _tsetlocale _wsetlocale
#define _totupper towupper
#define _totlower towlower
#define _totupper_l _towupper_l
#define _totlower_l _towlower_l
#define _istdigit iswdigit
#define _istalpha iswalpha
#define _istalnum iswalnum
#define _istspace iswspace
#define _istupper iswupper
#define _istlower iswlower
#define _istprint iswprint
#define _istpunct iswpunct
