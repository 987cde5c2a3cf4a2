// Numbers, points and handles typed at the command line.
#include "sim/editor/InputParse.h"

#include <cmath>
#include <cwchar>
#include <limits>
#include <vector>

namespace sim::editor {

std::wstring_view trimmed(std::wstring_view s)
{
    while (!s.empty() && (s.front() == L' ' || s.front() == L'\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == L' ' || s.back() == L'\t'))
        s.remove_suffix(1);
    return s;
}

namespace {

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

std::vector<std::wstring_view> split(std::wstring_view s, wchar_t sep)
{
    std::vector<std::wstring_view> parts;
    size_t start = 0;
    for (;;) {
        size_t p = s.find(sep, start);
        parts.push_back(s.substr(start, p == std::wstring_view::npos ? std::wstring_view::npos : p - start));
        if (p == std::wstring_view::npos)
            return parts;
        start = p + 1;
    }
}

} // namespace

std::optional<double> parseReal(std::wstring_view s)
{
    s = trimmed(s);
    // Check the shape first: the C library would also take "inf", "0x1p3" and leading blanks.
    size_t i = 0;
    if (i < s.size() && (s[i] == L'+' || s[i] == L'-'))
        ++i;
    size_t digits = 0;
    while (i < s.size() && isDigit(s[i]))
        ++i, ++digits;
    if (i < s.size() && s[i] == L'.') {
        ++i;
        while (i < s.size() && isDigit(s[i]))
            ++i, ++digits;
    }
    if (digits == 0)
        return std::nullopt;
    if (i < s.size() && (s[i] == L'e' || s[i] == L'E')) {
        ++i;
        if (i < s.size() && (s[i] == L'+' || s[i] == L'-'))
            ++i;
        size_t expDigits = 0;
        while (i < s.size() && isDigit(s[i]))
            ++i, ++expDigits;
        if (expDigits == 0)
            return std::nullopt;
    }
    if (i != s.size())
        return std::nullopt;
    std::wstring text(s);
    double v = std::wcstod(text.c_str(), nullptr);
    if (!std::isfinite(v))
        return std::nullopt;
    return v;
}

std::optional<int> parseInt(std::wstring_view s)
{
    s = trimmed(s);
    size_t i = 0;
    bool negative = false;
    if (i < s.size() && (s[i] == L'+' || s[i] == L'-'))
        negative = s[i++] == L'-';
    if (i == s.size())
        return std::nullopt;
    long long v = 0;
    for (; i < s.size(); ++i) {
        if (!isDigit(s[i]))
            return std::nullopt;
        v = v * 10 + (s[i] - L'0');
        if (v > static_cast<long long>(std::numeric_limits<int>::max()) + 1)
            return std::nullopt;
    }
    if (negative)
        v = -v;
    if (v < std::numeric_limits<int>::min() || v > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(v);
}

std::optional<PointText> parsePoint(std::wstring_view s)
{
    s = trimmed(s);
    PointText p;
    if (!s.empty() && s.front() == L'@') {
        p.relative = true;
        s.remove_prefix(1);
        if (trimmed(s).empty())
            return p; // "@": the last point
    }
    if (!s.empty() && s.front() == L'*') {
        p.world = true;
        s.remove_prefix(1);
    }
    size_t lt = s.find(L'<');
    if (lt != std::wstring_view::npos) {
        auto dist = parseReal(s.substr(0, lt));
        auto deg = parseReal(s.substr(lt + 1));
        if (!dist || !deg)
            return std::nullopt;
        p.polar = true;
        p.xyz.set(*dist, *deg * M_PI / 180.0, 0.0);
        return p;
    }
    auto parts = split(s, L',');
    if (parts.size() < 2 || parts.size() > 3)
        return std::nullopt;
    for (size_t i = 0; i < parts.size(); ++i) {
        auto v = parseReal(parts[i]);
        if (!v)
            return std::nullopt;
        p.xyz[static_cast<unsigned>(i)] = *v;
    }
    p.hasZ = parts.size() == 3;
    return p;
}

std::optional<AcDbHandle> parseHandle(std::wstring_view s)
{
    s = trimmed(s);
    if (s.size() < 2 || s.size() > 17 || s.front() != L'#')
        return std::nullopt;
    Adesk::UInt64 v = 0;
    for (wchar_t c : s.substr(1)) {
        int d = c >= L'0' && c <= L'9' ? c - L'0' : c >= L'a' && c <= L'f' ? c - L'a' + 10 : c >= L'A' && c <= L'F' ? c - L'A' + 10 : -1;
        if (d < 0)
            return std::nullopt;
        v = v * 16 + static_cast<Adesk::UInt64>(d);
    }
    if (v == 0)
        return std::nullopt;
    return AcDbHandle(v);
}

} // namespace sim::editor
