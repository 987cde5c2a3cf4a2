// ShapeCompiler: compiles the text of an AutoCAD shape definition file (.shp) into a compiled shape
// file (.shx) in the "AutoCAD-86 shapes 1.0" format. Shape files only: a font header (*0, *UNIFONT)
// is refused. Header-only, so that the shpc tool and the tests share it without a library.
#pragma once
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace shx {

/// A shape is defined in at most this many bytes, its end code included.
constexpr int kMaxDefBytes = 2000;
/// Shape numbers of a shape file; 0 is the header of a font.
constexpr int kMinShapeNumber = 1;
constexpr int kMaxShapeNumber = 255;
/// The compiler of the host reads no longer lines.
constexpr std::size_t kMaxLineLength = 128;

inline constexpr std::string_view kSignature{"AutoCAD-86 shapes 1.0\r\n\x1a", 24};
inline constexpr std::string_view kEndMark{"EOF"};

struct Shape {
    int number = 0;
    std::string name;
    std::vector<std::uint8_t> bytes; // definition bytes, ending with the end code 0
};

/// A fault of the source, with the line it stands on (1-based; 0 when no line applies).
class ShapeError : public std::runtime_error {
public:
    ShapeError(int line, const std::string& message) : std::runtime_error(message), m_line(line) {}
    int line() const { return m_line; }

private:
    int m_line;
};

namespace detail {

struct Value {
    long value;
    int line;
};

inline std::string_view trim(std::string_view s)
{
    auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
    while (!s.empty() && blank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && blank(s.back()))
        s.remove_suffix(1);
    return s;
}

/// A number of the .shp syntax: decimal, or hexadecimal when it begins with 0 (014 is 0x14); an
/// optional minus sign in front of either.
inline bool parseNumber(std::string_view token, long& out)
{
    bool negative = !token.empty() && token.front() == '-';
    if (negative)
        token.remove_prefix(1);
    if (token.empty() || token.size() > 6)
        return false;
    int base = token.front() == '0' ? 16 : 10;
    long value = 0;
    for (char c : token) {
        int digit = std::isdigit(static_cast<unsigned char>(c)) ? c - '0'
            : (base == 16 && std::isxdigit(static_cast<unsigned char>(c)))
            ? std::toupper(static_cast<unsigned char>(c)) - 'A' + 10
            : -1;
        if (digit < 0)
            return false;
        value = value * base + digit;
    }
    out = negative ? -value : value;
    return true;
}

/// Turns the values of one shape into bytes, walking its codes so that each argument gets its own
/// range and encoding, and the end code is known from a 0 that is an argument.
class Encoder {
public:
    Encoder(const std::vector<Value>& values, int headerLine, std::vector<int>& subshapes)
        : m_values(values), m_headerLine(headerLine), m_subshapes(subshapes)
    {
    }

    std::vector<std::uint8_t> run()
    {
        while (true) {
            if (m_next == m_values.size())
                throw ShapeError(lastLine(), "the shape has no end code 0");
            long code = unsignedByte("code");
            if (code == 0)
                break;
            switch (code) {
            case 1: case 2: case 5: case 6: case 14: break;
            case 3: case 4: unsignedByte("scale factor", 1); break;
            case 7: m_subshapes.push_back(static_cast<int>(unsignedByte("subshape number", 1))); break;
            case 8: signedByte(-128); signedByte(-128); break;
            case 9: pairsUntilZero(false); break;
            case 10: unsignedByte("radius", 1); octant(); break;
            case 11:
                for (int i = 0; i < 4; ++i)
                    unsignedByte("fractional arc value");
                octant();
                break;
            case 12: signedByte(-127); signedByte(-127); signedByte(-127); break;
            case 13: pairsUntilZero(true); break;
            default:
                if (code < 16)
                    throw ShapeError(m_values[m_next - 1].line, "unknown code " + std::to_string(code));
                break; // a vector: length in the high half, direction in the low half
            }
        }
        if (m_next != m_values.size())
            throw ShapeError(m_values[m_next].line, "bytes after the end code of the shape");
        return m_bytes;
    }

private:
    const Value& take(const char* what)
    {
        if (m_next == m_values.size())
            throw ShapeError(lastLine(), std::string("the shape ends where a ") + what + " is due");
        return m_values[m_next++];
    }

    long unsignedByte(const char* what, long min = 0)
    {
        const Value& v = take(what);
        if (v.value < min || v.value > 255)
            throw ShapeError(v.line, std::string(what) + " " + std::to_string(v.value) + " is out of range "
                + std::to_string(min) + " to 255");
        m_bytes.push_back(static_cast<std::uint8_t>(v.value));
        return v.value;
    }

    /// Displacements and bulges: two's complement.
    long signedByte(long min)
    {
        const Value& v = take("displacement");
        if (v.value < min || v.value > 127)
            throw ShapeError(v.line, "displacement " + std::to_string(v.value) + " is out of range "
                + std::to_string(min) + " to 127");
        m_bytes.push_back(static_cast<std::uint8_t>(v.value & 0xFF));
        return v.value;
    }

    /// The octant byte 0SC: start and count octants, each 0 to 7; the sign (clockwise) is the high bit.
    void octant()
    {
        const Value& v = take("octant");
        long magnitude = v.value < 0 ? -v.value : v.value;
        if (magnitude > 0x77 || (magnitude & 0x0F) > 7)
            throw ShapeError(v.line, "octant value " + std::to_string(v.value) + " is not of the form (-)0SC");
        m_bytes.push_back(static_cast<std::uint8_t>(magnitude | (v.value < 0 ? 0x80 : 0)));
    }

    /// Codes 9 and 13: (dx, dy) pairs, with a bulge after each for 13, up to the pair (0, 0).
    void pairsUntilZero(bool withBulge)
    {
        while (true) {
            long dx = signedByte(-128);
            long dy = signedByte(-128);
            if (dx == 0 && dy == 0)
                return;
            if (withBulge)
                signedByte(-127);
        }
    }

    int lastLine() const { return m_values.empty() ? m_headerLine : m_values.back().line; }

    const std::vector<Value>& m_values;
    int m_headerLine;
    std::vector<int>& m_subshapes;
    std::size_t m_next = 0;
    std::vector<std::uint8_t> m_bytes;
};

struct Pending {
    Shape shape;
    int headerLine = 0;
    long defBytes = 0;
    std::vector<Value> values;
};

inline void finish(Pending& p, std::vector<Shape>& shapes, std::map<int, int>& subshapeLines)
{
    std::vector<int> subshapes;
    p.shape.bytes = Encoder(p.values, p.headerLine, subshapes).run();
    if (static_cast<long>(p.shape.bytes.size()) != p.defBytes)
        throw ShapeError(p.headerLine, "shape " + p.shape.name + " declares " + std::to_string(p.defBytes)
            + " bytes and has " + std::to_string(p.shape.bytes.size()));
    for (int s : subshapes)
        subshapeLines.emplace(s, p.headerLine);
    shapes.push_back(std::move(p.shape));
}

inline void parseHeader(std::string_view line, int lineNo, Pending& p)
{
    std::string_view rest = line.substr(1);
    auto comma1 = rest.find(',');
    auto comma2 = comma1 == std::string_view::npos ? comma1 : rest.find(',', comma1 + 1);
    if (comma2 == std::string_view::npos)
        throw ShapeError(lineNo, "a shape header reads *number,defbytes,NAME");
    std::string_view number = trim(rest.substr(0, comma1));
    std::string_view defBytes = trim(rest.substr(comma1 + 1, comma2 - comma1 - 1));
    std::string_view name = trim(rest.substr(comma2 + 1));

    long n = 0;
    if (number == "UNIFONT")
        throw ShapeError(lineNo, "a Unicode font is not a shape file");
    if (!parseNumber(number, n))
        throw ShapeError(lineNo, "shape number " + std::string(number) + " is not a number");
    if (n == 0)
        throw ShapeError(lineNo, "shape number 0 is the header of a font; a shape file numbers its shapes 1 to 255");
    if (n < kMinShapeNumber || n > kMaxShapeNumber)
        throw ShapeError(lineNo, "shape number " + std::to_string(n) + " is out of range 1 to 255");
    if (!parseNumber(defBytes, p.defBytes) || p.defBytes < 1)
        throw ShapeError(lineNo, "defbytes must be a positive number");
    if (p.defBytes > kMaxDefBytes)
        throw ShapeError(lineNo, "a shape definition is at most 2000 bytes, not " + std::to_string(p.defBytes));
    if (name.empty())
        throw ShapeError(lineNo, "the shape has no name");
    for (char c : name) {
        if (!(std::isupper(static_cast<unsigned char>(c)) || std::isdigit(static_cast<unsigned char>(c)) || c == '_' || c == '-'))
            throw ShapeError(lineNo, "shape name " + std::string(name)
                + ": capitals, digits, '_' and '-' only (the host ignores other names)");
    }
    p.shape.number = static_cast<int>(n);
    p.shape.name = std::string(name);
    p.headerLine = lineNo;
}

inline void parseDefinitionLine(std::string_view line, int lineNo, std::vector<Value>& values)
{
    std::size_t start = 0;
    while (start <= line.size()) {
        auto comma = line.find(',', start);
        std::string_view token = line.substr(start, comma == std::string_view::npos ? std::string_view::npos : comma - start);
        token = trim(token);
        // Parentheses only group values for the reader.
        while (!token.empty() && token.front() == '(')
            token = trim(token.substr(1));
        while (!token.empty() && token.back() == ')')
            token = trim(token.substr(0, token.size() - 1));
        if (!token.empty()) {
            long v = 0;
            if (!parseNumber(token, v))
                throw ShapeError(lineNo, "not a number: " + std::string(token));
            values.push_back({v, lineNo});
        }
        if (comma == std::string_view::npos)
            break;
        start = comma + 1;
    }
}

} // namespace detail

/// The shapes of a .shp text, in the order they are defined, each with its compiled bytes.
/// Throws ShapeError naming the line of the first fault.
inline std::vector<Shape> parseShp(std::string_view text)
{
    std::vector<Shape> shapes;
    std::map<int, int> numberLines;   // shape number -> line of its header
    std::map<int, int> subshapeLines; // subshape used -> line of the shape that uses it
    detail::Pending pending;
    bool open = false;
    int lineNo = 0;
    std::size_t start = 0;
    while (start < text.size()) {
        auto end = text.find('\n', start);
        std::string_view raw = text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
        start = end == std::string_view::npos ? text.size() : end + 1;
        ++lineNo;
        if (!raw.empty() && raw.back() == '\r')
            raw.remove_suffix(1);
        if (raw.size() > kMaxLineLength)
            throw ShapeError(lineNo, "a line is at most 128 characters long");
        std::string_view line = detail::trim(raw.substr(0, raw.find(';')));
        if (line.empty())
            continue;
        if (line.front() == '*') {
            if (open)
                detail::finish(pending, shapes, subshapeLines);
            pending = detail::Pending{};
            detail::parseHeader(line, lineNo, pending);
            auto [it, added] = numberLines.emplace(pending.shape.number, lineNo);
            if (!added)
                throw ShapeError(lineNo, "shape number " + std::to_string(pending.shape.number)
                    + " is defined already on line " + std::to_string(it->second));
            open = true;
        } else {
            if (!open)
                throw ShapeError(lineNo, "definition bytes before the first shape header");
            detail::parseDefinitionLine(line, lineNo, pending.values);
        }
    }
    if (open)
        detail::finish(pending, shapes, subshapeLines);
    for (auto [number, line] : subshapeLines) {
        if (!numberLines.count(number))
            throw ShapeError(line, "subshape " + std::to_string(number) + " is not defined in the file");
    }
    return shapes;
}

/// The bytes of a .shx file: the signature, the lowest and highest shape number and the count, the
/// index of (number, bytes of name and definition), the definitions in that order, then "EOF".
/// Numbers are little-endian 16-bit words. Shapes are written in ascending order of their numbers.
inline std::vector<std::uint8_t> writeShx(std::vector<Shape> shapes)
{
    if (shapes.empty())
        throw ShapeError(0, "the file defines no shape");
    std::sort(shapes.begin(), shapes.end(), [](const Shape& a, const Shape& b) { return a.number < b.number; });
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        const Shape& s = shapes[i];
        if (s.number < kMinShapeNumber || s.number > kMaxShapeNumber)
            throw ShapeError(0, "shape number " + std::to_string(s.number) + " is out of range 1 to 255");
        if (i > 0 && shapes[i - 1].number == s.number)
            throw ShapeError(0, "shape number " + std::to_string(s.number) + " is defined twice");
        if (s.bytes.empty() || s.bytes.size() > static_cast<std::size_t>(kMaxDefBytes) || s.bytes.back() != 0)
            throw ShapeError(0, "shape " + s.name + " has no valid definition");
        if (s.name.empty() || s.name.find('\0') != std::string::npos)
            throw ShapeError(0, "shape " + std::to_string(s.number) + " has no valid name");
    }

    std::vector<std::uint8_t> out(kSignature.begin(), kSignature.end());
    auto word = [&out](std::size_t v) {
        out.push_back(static_cast<std::uint8_t>(v & 0xFF));
        out.push_back(static_cast<std::uint8_t>((v >> 8) & 0xFF));
    };
    word(static_cast<std::size_t>(shapes.front().number));
    word(static_cast<std::size_t>(shapes.back().number));
    word(shapes.size());
    for (const Shape& s : shapes) {
        word(static_cast<std::size_t>(s.number));
        word(s.name.size() + 1 + s.bytes.size());
    }
    for (const Shape& s : shapes) {
        out.insert(out.end(), s.name.begin(), s.name.end());
        out.push_back(0);
        out.insert(out.end(), s.bytes.begin(), s.bytes.end());
    }
    out.insert(out.end(), kEndMark.begin(), kEndMark.end());
    return out;
}

/// parseShp, then writeShx.
inline std::vector<std::uint8_t> compileShp(std::string_view text) { return writeShx(parseShp(text)); }

} // namespace shx
