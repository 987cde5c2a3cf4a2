// Reading and writing .reg files as Windows' registry editor does.
#include "sim/win32/RegFile.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <iterator>

#include "sim/core/Session.h"

namespace sim::win32 {

namespace {

constexpr std::wstring_view kHeader = L"Windows Registry Editor Version 5.00";
constexpr std::uint32_t kRegSz = 1, kRegBinary = 3, kRegDword = 4;

std::wstring trim(std::wstring_view s)
{
    size_t b = 0, e = s.size();
    while (b < e && std::iswspace(static_cast<wint_t>(s[b])))
        ++b;
    while (e > b && std::iswspace(static_cast<wint_t>(s[e - 1])))
        --e;
    return std::wstring(s.substr(b, e - b));
}

std::wstring decode(std::string_view bytes, std::wstring_view fileName)
{
    if (bytes.size() >= 2 && static_cast<unsigned char>(bytes[0]) == 0xFF && static_cast<unsigned char>(bytes[1]) == 0xFE)
        return fromUtf16le(reinterpret_cast<const std::uint8_t*>(bytes.data()) + 2, bytes.size() - 2);
    if (bytes.size() >= 2 && static_cast<unsigned char>(bytes[0]) == 0xFE && static_cast<unsigned char>(bytes[1]) == 0xFF)
        throw RegFileError(std::wstring(fileName), 0, L"kódování UTF-16BE není podporováno");
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF")
        bytes.remove_prefix(3);
    return fromUtf8(bytes);
}

// A quoted text with the escapes \\ and \" from pos (at the opening quote); pos ends past the closing one.
bool readQuoted(const std::wstring& s, size_t& pos, std::wstring& out, std::wstring& error)
{
    out.clear();
    for (size_t i = pos + 1; i < s.size(); ++i) {
        wchar_t c = s[i];
        if (c == L'"') {
            pos = i + 1;
            return true;
        }
        if (c == L'\\') {
            if (i + 1 < s.size() && (s[i + 1] == L'\\' || s[i + 1] == L'"')) {
                out += s[++i];
                continue;
            }
            error = L"zpětné lomítko v textu musí být zdvojené (\\\\)";
            return false;
        }
        out += c;
    }
    error = L"chybí koncová uvozovka";
    return false;
}

bool parseHexNumber(std::wstring_view s, std::uint32_t& out)
{
    if (s.empty() || s.size() > 8)
        return false;
    std::uint32_t v = 0;
    for (wchar_t c : s) {
        int d;
        if (c >= L'0' && c <= L'9')
            d = c - L'0';
        else if (c >= L'a' && c <= L'f')
            d = c - L'a' + 10;
        else if (c >= L'A' && c <= L'F')
            d = c - L'A' + 10;
        else
            return false;
        v = v * 16 + static_cast<std::uint32_t>(d);
    }
    out = v;
    return true;
}

bool parseHexList(std::wstring_view s, std::vector<std::uint8_t>& out)
{
    out.clear();
    std::wstring t = trim(s);
    if (t.empty())
        return true;
    size_t start = 0;
    for (;;) {
        size_t comma = t.find(L',', start);
        std::wstring item = trim(std::wstring_view(t).substr(start, comma == std::wstring::npos ? std::wstring::npos : comma - start));
        std::uint32_t v;
        if (item.size() > 2 || !parseHexNumber(item, v))
            return false;
        out.push_back(static_cast<std::uint8_t>(v));
        if (comma == std::wstring::npos)
            return true;
        start = comma + 1;
    }
}

std::wstring quote(std::wstring_view s)
{
    std::wstring out = L"\"";
    for (wchar_t c : s) {
        if (c == L'\\' || c == L'"')
            out += L'\\';
        out += c;
    }
    out += L'"';
    return out;
}

// A REG_SZ that the quoted form keeps exactly: one terminating zero and no other, no line breaks.
bool quotable(const RegValue& v, std::wstring& text)
{
    if (v.type != kRegSz || v.data.size() < 2 || v.data.size() % 2 != 0)
        return false;
    if (v.data[v.data.size() - 1] != 0 || v.data[v.data.size() - 2] != 0)
        return false;
    text = fromUtf16le(v.data.data(), v.data.size() - 2);
    return text.find_first_of(std::wstring_view(L"\0\r\n", 3)) == std::wstring::npos &&
           toUtf16le(text).size() + 2 == v.data.size();
}

std::wstring hexLine(std::wstring prefix, const std::vector<std::uint8_t>& data)
{
    static const wchar_t* digits = L"0123456789abcdef";
    std::wstring out = prefix;
    size_t column = prefix.size();
    for (size_t i = 0; i < data.size(); ++i) {
        out += digits[data[i] >> 4];
        out += digits[data[i] & 15];
        column += 2;
        if (i + 1 < data.size()) {
            out += L',';
            ++column;
            // Wrapped at about 80 columns as the registry editor does.
            if (column > 76) {
                out += L"\\\n  ";
                column = 2;
            }
        }
    }
    return out;
}

} // namespace

namespace {
std::wstring composeMessage(const std::wstring& file, int line, const std::wstring& reason)
{
    std::wstring m = file;
    if (line > 0)
        m += L", řádek " + std::to_wstring(line);
    return m + L": " + reason;
}
} // namespace

RegFileError::RegFileError(std::wstring file, int line, std::wstring reason)
    : std::runtime_error(toUtf8(composeMessage(file, line, reason))), m_file(std::move(file)), m_line(line),
      m_reason(std::move(reason))
{
}

std::wstring RegFileError::message() const { return composeMessage(m_file, m_line, m_reason); }

bool isRegistryRoot(std::wstring_view name)
{
    std::wstring n = foldName(name);
    return n == L"HKEY_LOCAL_MACHINE" || n == L"HKEY_CURRENT_USER" || n == L"HKEY_CLASSES_ROOT" ||
           n == L"HKEY_USERS" || n == L"HKEY_CURRENT_CONFIG";
}

RegStore parseRegFile(std::string_view bytes, std::wstring_view fileName)
{
    const std::wstring file(fileName);
    std::wstring text = decode(bytes, fileName);
    std::vector<std::wstring> lines;
    for (size_t start = 0; start <= text.size();) {
        size_t end = text.find(L'\n', start);
        if (end == std::wstring::npos)
            end = text.size();
        std::wstring line = text.substr(start, end - start);
        if (!line.empty() && line.back() == L'\r')
            line.pop_back();
        lines.push_back(std::move(line));
        start = end + 1;
    }

    RegStore store;
    bool headerSeen = false;
    std::wstring currentKey; // empty: no key open (none yet, or after a removal)
    for (size_t i = 0; i < lines.size(); ++i) {
        const int number = static_cast<int>(i + 1);
        auto fail = [&](const std::wstring& reason) { throw RegFileError(file, number, reason); };
        std::wstring line = trim(lines[i]);
        if (line.empty() || line.front() == L';')
            continue;
        if (!headerSeen) {
            if (line != kHeader)
                fail(L"soubor nezačíná hlavičkou \"Windows Registry Editor Version 5.00\"");
            headerSeen = true;
            continue;
        }
        if (line.front() == L'[') {
            if (line.back() != L']')
                fail(L"název klíče nekončí znakem ]");
            std::wstring path = line.substr(1, line.size() - 2);
            bool remove = !path.empty() && path.front() == L'-';
            if (remove)
                path.erase(0, 1);
            path = normalizeKeyPath(path);
            if (!isRegistryRoot(path.substr(0, path.find(L'\\'))))
                fail(L"klíč nezačíná kořenem registru (HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER, ...)");
            if (remove) {
                store.removeKey(path);
                currentKey.clear();
            } else {
                store.create(path);
                currentKey = path;
            }
            continue;
        }
        if (line.front() != L'"' && line.front() != L'@')
            fail(L"řádek není ani klíč, ani hodnota");
        if (currentKey.empty())
            fail(L"hodnota stojí mimo klíč");
        std::wstring name, error;
        size_t pos = 1;
        if (line.front() == L'"') {
            pos = 0;
            if (!readQuoted(line, pos, name, error))
                fail(L"název hodnoty: " + error);
        }
        while (pos < line.size() && std::iswspace(static_cast<wint_t>(line[pos])))
            ++pos;
        if (pos >= line.size() || line[pos] != L'=')
            fail(L"za názvem hodnoty chybí =");
        std::wstring data = trim(std::wstring_view(line).substr(pos + 1));
        if (data == L"-") {
            store.removeValue(currentKey, name);
            continue;
        }
        if (!data.empty() && data.front() == L'"') {
            std::wstring value;
            size_t p = 0;
            if (!readQuoted(data, p, value, error))
                fail(error);
            if (!trim(std::wstring_view(data).substr(p)).empty())
                fail(L"za textem hodnoty následují další znaky");
            store.setValue(currentKey, name, regString(value));
            continue;
        }
        std::wstring lower = foldName(data.substr(0, std::min<size_t>(data.size(), 8)));
        if (lower.rfind(L"DWORD:", 0) == 0) {
            std::uint32_t v;
            if (!parseHexNumber(trim(std::wstring_view(data).substr(6)), v))
                fail(L"hodnota dword musí mít 1 až 8 šestnáctkových číslic");
            store.setValue(currentKey, name, regDword(v));
            continue;
        }
        if (lower.rfind(L"HEX", 0) != 0)
            fail(L"neznámý zápis hodnoty (čekám \"text\", dword: nebo hex:)");
        std::uint32_t type = kRegBinary;
        size_t colon = data.find(L':');
        if (colon == std::wstring::npos)
            fail(L"za hex chybí dvojtečka");
        std::wstring kind = data.substr(3, colon - 3);
        if (!kind.empty()) {
            if (kind.size() < 3 || kind.front() != L'(' || kind.back() != L')' ||
                !parseHexNumber(kind.substr(1, kind.size() - 2), type))
                fail(L"typ hodnoty hex(...) není šestnáctkové číslo");
        }
        // A long list continues on the next lines after a backslash.
        std::wstring list = trim(std::wstring_view(data).substr(colon + 1));
        while (!list.empty() && list.back() == L'\\') {
            list.pop_back();
            if (++i >= lines.size())
                fail(L"pokračování seznamu bajtů chybí");
            list += trim(lines[i]);
        }
        std::vector<std::uint8_t> bytesOut;
        if (!parseHexList(list, bytesOut))
            fail(L"seznam bajtů musí být šestnáctková čísla 00 až ff oddělená čárkami");
        store.setValue(currentKey, name, RegValue{type, std::move(bytesOut)});
    }
    return store;
}

std::string formatRegFile(const RegStore& store)
{
    std::wstring out = std::wstring(kHeader) + L"\n";
    const auto& keys = store.keys();
    for (auto it = keys.begin(); it != keys.end(); ++it) {
        const RegKey& key = it->second;
        auto next = std::next(it);
        bool hasSubkey = next != keys.end() && next->first.size() > it->first.size() &&
                         next->first.compare(0, it->first.size(), it->first) == 0 && next->first[it->first.size()] == L'\\';
        if (key.values.empty() && hasSubkey)
            continue;
        out += L"\n[" + key.path + L"]\n";
        for (const auto& [folded, named] : key.values) {
            std::wstring prefix = named.name.empty() ? std::wstring(L"@=") : quote(named.name) + L"=";
            const RegValue& v = named.value;
            std::wstring text;
            if (quotable(v, text)) {
                out += prefix + quote(text) + L"\n";
            } else if (v.type == kRegDword && v.data.size() == 4) {
                wchar_t buf[16];
                std::swprintf(buf, 16, L"dword:%08x",
                    static_cast<unsigned>(v.data[0] | (v.data[1] << 8) | (v.data[2] << 16) |
                                          (static_cast<std::uint32_t>(v.data[3]) << 24)));
                out += prefix + buf + L"\n";
            } else if (v.type == kRegBinary) {
                out += hexLine(prefix + L"hex:", v.data) + L"\n";
            } else {
                wchar_t buf[24];
                std::swprintf(buf, 24, L"hex(%x):", static_cast<unsigned>(v.type));
                out += hexLine(prefix + buf, v.data) + L"\n";
            }
        }
    }
    return toUtf8(out);
}

} // namespace sim::win32
