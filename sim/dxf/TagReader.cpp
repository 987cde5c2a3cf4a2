// The tokenizer of ASCII DXF.
#include "sim/dxf/TagReader.h"

#include <charconv>

#include "sim/dxf/DxfError.h"
#include "sim/dxf/GroupCodes.h"

namespace sim::dxf {

namespace {

std::string_view trim(std::string_view s)
{
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
        s.remove_suffix(1);
    return s;
}

std::string quoted(std::string_view s)
{
    if (s.size() > 40)
        s = s.substr(0, 40);
    std::string q(1, '"');
    q.append(s);
    q += '"';
    return q;
}

} // namespace

bool parseHex(std::string_view text, std::uint64_t& out)
{
    text = trim(text);
    if (text.empty() || text.size() > 16)
        return false;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), out, 16);
    return ec == std::errc() && end == text.data() + text.size();
}

void convertValue(Tag& tag)
{
    switch (valueType(tag.code)) {
    case ValueType::Real: {
        std::string_view s = trim(tag.value);
        if (!s.empty() && s.front() == '+')
            s.remove_prefix(1);
        auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), tag.real);
        if (s.empty() || ec != std::errc() || end != s.data() + s.size())
            throw DxfError(tag.line + 1, quoted(tag.value) + " is not a number (group code " + std::to_string(tag.code) + ")");
        break;
    }
    case ValueType::Integer: {
        std::string_view s = trim(tag.value);
        if (!s.empty() && s.front() == '+')
            s.remove_prefix(1);
        auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), tag.integer);
        if (s.empty() || ec != std::errc() || end != s.data() + s.size())
            throw DxfError(tag.line + 1,
                           quoted(tag.value) + " is not a whole number (group code " + std::to_string(tag.code) + ")");
        break;
    }
    case ValueType::Handle: {
        std::uint64_t h = 0;
        if (!parseHex(tag.value, h))
            throw DxfError(tag.line + 1, quoted(tag.value) + " is not a handle (group code " + std::to_string(tag.code) + ")");
        tag.integer = static_cast<std::int64_t>(h);
        break;
    }
    default:
        break;
    }
}

TagReader::TagReader(std::string_view text) : m_text(text)
{
    if (m_text.substr(0, 3) == "\xEF\xBB\xBF")
        m_pos = 3;
}

bool TagReader::read(Tag& tag)
{
    // Comments (999) may stand anywhere and say nothing about the drawing.
    while (readGroup(tag))
        if (tag.code != 999)
            return true;
    return false;
}

bool TagReader::readGroup(Tag& tag)
{
    const char* data = m_text.data();
    const size_t size = m_text.size();
    // Blank lines at the very end of the file are no group.
    size_t probe = m_pos;
    while (probe < size && (data[probe] == '\n' || data[probe] == '\r' || data[probe] == ' '))
        ++probe;
    if (probe >= size)
        return false;

    // The group code line: an integer, maybe padded with spaces.
    size_t eol = m_text.find('\n', m_pos);
    if (eol == std::string_view::npos)
        throw DxfError(m_line, "the file ends after a group code without its value");
    std::string_view codeText = trim(m_text.substr(m_pos, eol - m_pos));
    int code = 0;
    auto [end, ec] = std::from_chars(codeText.data(), codeText.data() + codeText.size(), code);
    if (codeText.empty() || ec != std::errc() || end != codeText.data() + codeText.size())
        throw DxfError(m_line, quoted(codeText) + " is not a group code");
    if (valueType(code) == ValueType::Invalid)
        throw DxfError(m_line, std::to_string(code) + " is not a valid group code");

    // The value line, up to its line end (LF or CR LF); the last line may have none.
    size_t start = eol + 1;
    if (start >= size)
        throw DxfError(m_line + 1, "the file ends after a group code without its value");
    size_t valueEnd = m_text.find('\n', start);
    size_t next = valueEnd == std::string_view::npos ? size : valueEnd + 1;
    if (valueEnd == std::string_view::npos)
        valueEnd = size;
    if (valueEnd > start && data[valueEnd - 1] == '\r')
        --valueEnd;

    tag.code = code;
    tag.line = m_line;
    tag.value = m_text.substr(start, valueEnd - start);
    tag.real = 0.0;
    tag.integer = 0;
    if (code == 0)
        m_inDimStyle = tag.value == "DIMSTYLE";
    if (code != 5 || !m_inDimStyle)
        convertValue(tag);
    m_pos = next;
    m_line += 2;
    return true;
}

const Tag* TagReader::peek()
{
    if (!m_hasNext)
        m_hasNext = read(m_next);
    return m_hasNext ? &m_next : nullptr;
}

Tag TagReader::take()
{
    if (!peek())
        throw DxfError(m_line, "the file ends too early");
    m_hasNext = false;
    return m_next;
}

} // namespace sim::dxf
