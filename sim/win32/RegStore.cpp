// The registry's keys and values in memory.
#include "sim/win32/RegStore.h"

#include <algorithm>

#include "sim/win32/Locale.h"

namespace sim::win32 {

std::vector<std::uint8_t> toUtf16le(std::wstring_view text)
{
    std::vector<std::uint8_t> out;
    out.reserve(text.size() * 2);
    for (wchar_t c : text) {
        auto cp = static_cast<char32_t>(c);
        auto put = [&out](char32_t u) {
            out.push_back(static_cast<std::uint8_t>(u & 0xFF));
            out.push_back(static_cast<std::uint8_t>((u >> 8) & 0xFF));
        };
        if (cp >= 0x10000 && cp <= 0x10FFFF) {
            cp -= 0x10000;
            put(0xD800 + (cp >> 10));
            put(0xDC00 + (cp & 0x3FF));
        } else {
            put(cp > 0xFFFF ? 0xFFFD : cp);
        }
    }
    return out;
}

std::wstring fromUtf16le(const std::uint8_t* data, size_t size)
{
    std::wstring out;
    out.reserve(size / 2);
    for (size_t i = 0; i + 1 < size; i += 2) {
        char32_t u = static_cast<char32_t>(data[i] | (data[i + 1] << 8));
        // A 16-bit wchar_t keeps the pair as it is.
        if (sizeof(wchar_t) == 4 && u >= 0xD800 && u < 0xDC00 && i + 3 < size) {
            char32_t low = static_cast<char32_t>(data[i + 2] | (data[i + 3] << 8));
            if (low >= 0xDC00 && low < 0xE000) {
                u = 0x10000 + ((u - 0xD800) << 10) + (low - 0xDC00);
                i += 2;
            }
        }
        out.push_back(static_cast<wchar_t>(u));
    }
    return out;
}

RegValue regString(std::wstring_view text, std::uint32_t type)
{
    RegValue v{type, toUtf16le(text)};
    v.data.push_back(0);
    v.data.push_back(0);
    return v;
}

RegValue regDword(std::uint32_t value)
{
    return RegValue{4,
        {static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8),
            static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 24)}};
}

std::wstring foldName(std::wstring_view name) { return upperInvariant(name); }

std::wstring normalizeKeyPath(std::wstring_view path)
{
    std::wstring out;
    size_t start = 0;
    while (start <= path.size()) {
        size_t end = path.find(L'\\', start);
        if (end == std::wstring_view::npos)
            end = path.size();
        if (end > start) {
            if (!out.empty())
                out += L'\\';
            out.append(path.substr(start, end - start));
        }
        start = end + 1;
    }
    return out;
}

bool KeyPathLess::operator()(const std::wstring& a, const std::wstring& b) const
{
    // The separator sorts before every other character, so "A\B" comes before "A B".
    auto rank = [](wchar_t c) { return c == L'\\' ? 0u : static_cast<unsigned>(c) + 1u; };
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
        [&](wchar_t x, wchar_t y) { return rank(x) < rank(y); });
}

const RegKey* RegStore::find(std::wstring_view path) const
{
    auto it = m_keys.find(foldName(normalizeKeyPath(path)));
    return it == m_keys.end() ? nullptr : &it->second;
}

RegKey* RegStore::find(std::wstring_view path)
{
    auto it = m_keys.find(foldName(normalizeKeyPath(path)));
    return it == m_keys.end() ? nullptr : &it->second;
}

RegKey& RegStore::create(std::wstring_view path)
{
    std::wstring norm = normalizeKeyPath(path);
    // The keys above, from the first below the root down.
    for (size_t sep = norm.find(L'\\'); sep != std::wstring::npos; sep = norm.find(L'\\', sep + 1)) {
        size_t next = norm.find(L'\\', sep + 1);
        if (next == std::wstring::npos)
            break;
        std::wstring upper = norm.substr(0, next);
        m_keys.try_emplace(foldName(upper), RegKey{upper, {}});
    }
    return m_keys.try_emplace(foldName(norm), RegKey{norm, {}}).first->second;
}

void RegStore::removeKey(std::wstring_view path)
{
    std::wstring folded = foldName(normalizeKeyPath(path));
    std::wstring below = folded + L'\\';
    for (auto it = m_keys.begin(); it != m_keys.end();) {
        if (it->first == folded || it->first.compare(0, below.size(), below) == 0)
            it = m_keys.erase(it);
        else
            ++it;
    }
}

const RegNamedValue* RegStore::value(std::wstring_view keyPath, std::wstring_view name) const
{
    const RegKey* key = find(keyPath);
    if (!key)
        return nullptr;
    auto it = key->values.find(foldName(name));
    return it == key->values.end() ? nullptr : &it->second;
}

void RegStore::setValue(std::wstring_view keyPath, std::wstring_view name, RegValue value)
{
    RegKey& key = create(keyPath);
    auto [it, added] = key.values.try_emplace(foldName(name), RegNamedValue{std::wstring(name), {}});
    it->second.value = std::move(value);
}

bool RegStore::removeValue(std::wstring_view keyPath, std::wstring_view name)
{
    RegKey* key = find(keyPath);
    return key && key->values.erase(foldName(name)) > 0;
}

} // namespace sim::win32
