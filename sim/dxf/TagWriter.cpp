// Writing groups as DXF text.
#include "sim/dxf/TagWriter.h"

#include <charconv>
#include <stdexcept>

#include "sim/core/Session.h"
#include "sim/dxf/GroupCodes.h"
#include "sim/dxf/TextCodec.h"

namespace sim::dxf {

namespace {

/// The shortest text that reads back as the same double, with a decimal point as readers expect.
std::string_view realText(char (&buf)[40], double value)
{
    if (value == 0.0)
        return "0.0"; // also turns -0.0 into 0.0
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf - 2, value);
    std::string_view s(buf, static_cast<size_t>(end - buf));
    if (s.find_first_of(".eEn") == std::string_view::npos) {
        *end++ = '.';
        *end++ = '0';
        s = std::string_view(buf, static_cast<size_t>(end - buf));
    }
    return s;
}

const char* typeName(ValueType t)
{
    switch (t) {
    case ValueType::String: return "text";
    case ValueType::Real: return "a real number";
    case ValueType::Integer: return "an integer";
    case ValueType::Handle: return "a handle";
    case ValueType::Binary: return "binary data";
    case ValueType::Invalid: break;
    }
    return "nothing (no such group code)";
}

// A value of another type than its group code carries makes a file that no reader reads back: a
// fault of the writer, stopped before it reaches the file.
void expectType(int code, ValueType written)
{
    ValueType carried = valueType(code);
    if (carried != written)
        throw std::logic_error("DXF writer: group " + std::to_string(code) + " carries " + typeName(carried) +
                               ", not " + typeName(written));
}

} // namespace

std::string formatReal(double value)
{
    char buf[40];
    return std::string(realText(buf, value));
}

void TagWriter::text(int code, std::wstring_view value)
{
    expectType(code, ValueType::String);
    write(code, encodeCarets(sim::toUtf8(value)));
}

void TagWriter::real(int code, double value)
{
    expectType(code, ValueType::Real);
    char buf[40];
    write(code, realText(buf, value));
}

void TagWriter::integer(int code, std::int64_t value)
{
    expectType(code, ValueType::Integer);
    char buf[24];
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value);
    write(code, std::string_view(buf, static_cast<size_t>(end - buf)));
}

void TagWriter::handle(int code, AcDbHandle value)
{
    expectType(code, ValueType::Handle);
    char buf[24];
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value.value(), 16);
    for (char* p = buf; p != end; ++p)
        if (*p >= 'a' && *p <= 'f')
            *p = static_cast<char>(*p - 'a' + 'A');
    write(code, std::string_view(buf, static_cast<size_t>(end - buf)));
}

void TagWriter::point(int code, const AcGePoint3d& p)
{
    real(code, p.x);
    real(code + 10, p.y);
    real(code + 20, p.z);
}

void TagWriter::point(int code, const AcGeVector3d& v)
{
    real(code, v.x);
    real(code + 10, v.y);
    real(code + 20, v.z);
}

void TagWriter::point2d(int code, double x, double y)
{
    real(code, x);
    real(code + 10, y);
}

void TextTagWriter::write(int code, std::string_view value)
{
    char buf[16];
    char* p = buf + sizeof buf;
    *--p = '\n';
    unsigned c = code < 0 ? 0u : static_cast<unsigned>(code);
    int digits = 0;
    do {
        *--p = static_cast<char>('0' + c % 10);
        c /= 10;
        ++digits;
    } while (c);
    for (; digits < 3; ++digits)
        *--p = ' ';
    m_buffer.append(p, static_cast<size_t>(buf + sizeof buf - p));
    m_buffer.append(value);
    m_buffer.push_back('\n');
    if (m_file && m_buffer.size() >= kFlushAt)
        flush();
}

bool TextTagWriter::flush()
{
    if (!m_file || m_buffer.empty())
        return !m_failed;
    if (std::fwrite(m_buffer.data(), 1, m_buffer.size(), m_file) != m_buffer.size())
        m_failed = true;
    m_buffer.clear();
    return !m_failed;
}

} // namespace sim::dxf
