// The runtime's checked string copies, formatting, case-blind comparison and number conversion.
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <cwctype>
#include <string>

#include "wincrt.h"

// On Windows the runtime has these.
#ifndef _WIN32
errno_t wcscpy_s(wchar_t* dest, size_t destSize, const wchar_t* src)
{
    return wcsncpy_s(dest, destSize, src, src ? wcslen(src) : 0);
}

errno_t wcsncpy_s(wchar_t* dest, size_t destSize, const wchar_t* src, size_t count)
{
    if (!dest || destSize == 0)
        return EINVAL;
    if (!src) {
        dest[0] = L'\0';
        return EINVAL;
    }
    size_t len = wcsnlen(src, count == _TRUNCATE ? destSize : count);
    if (len >= destSize) {
        if (count != _TRUNCATE) {
            dest[0] = L'\0';
            return ERANGE;
        }
        wmemcpy(dest, src, destSize - 1);
        dest[destSize - 1] = L'\0';
        return STRUNCATE;
    }
    wmemcpy(dest, src, len);
    dest[len] = L'\0';
    return 0;
}

errno_t wcscat_s(wchar_t* dest, size_t destSize, const wchar_t* src)
{
    if (!dest || destSize == 0)
        return EINVAL;
    size_t have = wcsnlen(dest, destSize);
    if (!src || have == destSize) {
        dest[0] = L'\0';
        return EINVAL;
    }
    size_t add = wcslen(src);
    if (have + add >= destSize) {
        dest[0] = L'\0';
        return ERANGE;
    }
    wmemcpy(dest + have, src, add + 1);
    return 0;
}

wchar_t* _wcsdup(const wchar_t* str) { return str ? wcsdup(str) : nullptr; }

int vswprintf_s(wchar_t* buffer, size_t sizeOfBuffer, const wchar_t* format, va_list argptr)
{
    if (!buffer || sizeOfBuffer == 0)
        return -1;
    if (!format) {
        buffer[0] = L'\0';
        return -1;
    }
    int n = vswprintf(buffer, sizeOfBuffer, format, argptr);
    if (n < 0) {
        buffer[0] = L'\0';
        return -1;
    }
    return n;
}

int swprintf_s(wchar_t* buffer, size_t sizeOfBuffer, const wchar_t* format, ...)
{
    va_list ap;
    va_start(ap, format);
    int n = vswprintf_s(buffer, sizeOfBuffer, format, ap);
    va_end(ap);
    return n;
}

int _vsnwprintf_s(wchar_t* buffer, size_t sizeOfBuffer, size_t count, const wchar_t* format, va_list argptr)
{
    if (!buffer || sizeOfBuffer == 0)
        return -1;
    if (!format) {
        buffer[0] = L'\0';
        return -1;
    }
    size_t limit = (count == _TRUNCATE || count >= sizeOfBuffer) ? sizeOfBuffer : count + 1;
    va_list copy;
    va_copy(copy, argptr);
    // vswprintf gives -1 when the text doesn't fit, so measure into a scratch buffer first.
    std::wstring scratch(1024, L'\0');
    int full;
    for (;;) {
        va_list again;
        va_copy(again, copy);
        full = vswprintf(scratch.data(), scratch.size(), format, again);
        va_end(again);
        if (full >= 0 || scratch.size() > (1u << 24))
            break;
        scratch.resize(scratch.size() * 2);
    }
    va_end(copy);
    if (full < 0) {
        buffer[0] = L'\0';
        return -1;
    }
    size_t len = static_cast<size_t>(full);
    if (len < limit) {
        wmemcpy(buffer, scratch.data(), len + 1);
        return full;
    }
    if (count != _TRUNCATE && count >= sizeOfBuffer) {
        buffer[0] = L'\0';
        return -1;
    }
    size_t keep = limit - 1;
    wmemcpy(buffer, scratch.data(), keep);
    buffer[keep] = L'\0';
    return -1;
}

int _snwprintf_s(wchar_t* buffer, size_t sizeOfBuffer, size_t count, const wchar_t* format, ...)
{
    va_list ap;
    va_start(ap, format);
    int n = _vsnwprintf_s(buffer, sizeOfBuffer, count, format, ap);
    va_end(ap);
    return n;
}

int _wcsicmp(const wchar_t* string1, const wchar_t* string2)
{
    return _wcsnicmp(string1, string2, SIZE_MAX);
}

int _wcsnicmp(const wchar_t* string1, const wchar_t* string2, size_t count)
{
    if (!string1 || !string2)
        return INT_MAX; // _NLSCMPERROR
    for (size_t i = 0; i < count; ++i) {
        wint_t a = towlower(static_cast<wint_t>(string1[i]));
        wint_t b = towlower(static_cast<wint_t>(string2[i]));
        if (a != b)
            return a < b ? -1 : 1;
        if (a == 0)
            break;
    }
    return 0;
}

int _wtoi(const wchar_t* str)
{
    if (!str)
        return 0;
    long long v = wcstoll(str, nullptr, 10);
    if (v > INT_MAX)
        return INT_MAX;
    if (v < INT_MIN)
        return INT_MIN;
    return static_cast<int>(v);
}

double _wtof(const wchar_t* str) { return str ? wcstod(str, nullptr) : 0.0; }

errno_t _itow_s(int value, wchar_t* buffer, size_t sizeInCharacters, int radix)
{
    if (!buffer || sizeInCharacters == 0)
        return EINVAL;
    if (radix < 2 || radix > 36) {
        buffer[0] = L'\0';
        return EINVAL;
    }
    bool negative = radix == 10 && value < 0;
    unsigned long long v = negative ? 0ull - static_cast<long long>(value) : static_cast<unsigned int>(value);
    wchar_t digits[40];
    size_t n = 0;
    do {
        unsigned d = static_cast<unsigned>(v % static_cast<unsigned>(radix));
        digits[n++] = static_cast<wchar_t>(d < 10 ? L'0' + d : L'a' + d - 10);
        v /= static_cast<unsigned>(radix);
    } while (v);
    size_t need = n + (negative ? 1 : 0) + 1;
    if (need > sizeInCharacters) {
        buffer[0] = L'\0';
        return ERANGE;
    }
    size_t k = 0;
    if (negative)
        buffer[k++] = L'-';
    while (n)
        buffer[k++] = digits[--n];
    buffer[k] = L'\0';
    return 0;
}
#endif
