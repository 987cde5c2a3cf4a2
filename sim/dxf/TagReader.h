// The tokenizer of ASCII DXF: splits the text into groups and converts the numbers, with one
// group of look-ahead. The text stays the caller's and must outlive the tags.
#pragma once
#include <string_view>

#include "sim/dxf/Tag.h"

namespace sim::dxf {

class TagReader {
public:
    /// A leading UTF-8 byte order mark is passed over.
    explicit TagReader(std::string_view text);

    /// The next group without taking it (comments, 999, are passed over); null at the end of the
    /// text. Throws DxfError for a group that is cut short, a code that is not a number or not a DXF
    /// code, or a number that isn't one.
    const Tag* peek();
    /// Takes the next group; throws DxfError at the end of the text.
    Tag take();
    /// The line the reader stands at (for messages about a missing group).
    int line() const { return m_line; }

private:
    bool read(Tag& tag);
    bool readGroup(Tag& tag);

    std::string_view m_text;
    size_t m_pos = 0;
    int m_line = 1;
    Tag m_next;
    bool m_hasNext = false;
    /// Within a DIMSTYLE record group 5 is the legacy arrow name (its handle is 105).
    bool m_inDimStyle = false;
};

/// Parses a number of the value type of the code; throws DxfError on the tag's line when the text
/// isn't one. Exposed for the header and for tests.
void convertValue(Tag& tag);

/// A handle's hexadecimal text; false when it isn't one.
bool parseHex(std::string_view text, std::uint64_t& out);

} // namespace sim::dxf
