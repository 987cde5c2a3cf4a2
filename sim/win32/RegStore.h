// The registry's content as plain data: keys named by their whole path (root included) with typed
// values. Key and value names compare without regard to case and keep the spelling they were made with.
#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace sim::win32 {

/// A value as the registry keeps it: its type (REG_SZ, REG_BINARY, ...) and its bytes. Strings are
/// UTF-16LE with their terminating zero, as on Windows.
struct RegValue {
    std::uint32_t type = 0;
    std::vector<std::uint8_t> data;
    bool operator==(const RegValue&) const = default;
};

/// A REG_SZ (or REG_EXPAND_SZ) value of a text: UTF-16LE with the terminating zero.
RegValue regString(std::wstring_view text, std::uint32_t type = 1);
/// A REG_DWORD value, little-endian.
RegValue regDword(std::uint32_t value);
/// Text to UTF-16LE bytes (no terminator added) and back (an odd last byte is dropped).
std::vector<std::uint8_t> toUtf16le(std::wstring_view text);
std::wstring fromUtf16le(const std::uint8_t* data, size_t size);

/// The form of a name for lookups: upper case, as the registry compares.
std::wstring foldName(std::wstring_view name);
/// A key path with empty parts dropped ("A\\\\B\\" -> "A\\B").
std::wstring normalizeKeyPath(std::wstring_view path);

struct RegNamedValue {
    std::wstring name; ///< as spelled; empty for the key's default value
    RegValue value;
    bool operator==(const RegNamedValue&) const = default;
};

struct RegKey {
    std::wstring path; ///< as spelled, root included
    std::map<std::wstring, RegNamedValue> values; ///< by folded name
    bool operator==(const RegKey&) const = default;
};

/// Orders folded paths so that a key's subkeys follow it directly.
struct KeyPathLess {
    bool operator()(const std::wstring& a, const std::wstring& b) const;
};

class RegStore {
public:
    /// The key of a path in any case (normalized first), or null.
    const RegKey* find(std::wstring_view path) const;
    RegKey* find(std::wstring_view path);
    /// The key, made with the keys above it (the root excepted) where they are missing.
    RegKey& create(std::wstring_view path);
    /// Removes the key and every key below it.
    void removeKey(std::wstring_view path);

    const RegNamedValue* value(std::wstring_view keyPath, std::wstring_view name) const;
    /// Stores a value, making the key where it is missing. A name already there keeps its spelling.
    void setValue(std::wstring_view keyPath, std::wstring_view name, RegValue value);
    /// False when there was no such value.
    bool removeValue(std::wstring_view keyPath, std::wstring_view name);

    /// Every key by folded path, a key before its subkeys.
    const std::map<std::wstring, RegKey, KeyPathLess>& keys() const { return m_keys; }
    bool operator==(const RegStore&) const = default;

private:
    std::map<std::wstring, RegKey, KeyPathLess> m_keys;
};

} // namespace sim::win32
