// One group of a DXF file as the reader gives it: the code, the value as written and, for numeric
// codes, the value already converted.
#pragma once
#include <cstdint>
#include <string_view>

#include "dbhandle.h"

namespace sim::dxf {

struct Tag {
    int code = 0;
    /// The 1-based line of the group code in the file.
    int line = 0;
    /// The value line without its line end; it points into the reader's text.
    std::string_view value;
    /// Real codes: the number.
    double real = 0.0;
    /// Integer codes: the number; handle codes: the handle's value.
    std::int64_t integer = 0;

    AcDbHandle handle() const { return AcDbHandle(static_cast<Adesk::UInt64>(integer)); }
    bool is(int c, std::string_view v) const { return code == c && value == v; }
};

} // namespace sim::dxf
