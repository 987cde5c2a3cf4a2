// What reading a damaged drawing in recovery repairs before the reading proper.
#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace sim::dxf {

/// DXF text whose TABLES section comes after its BLOCKS, ENTITIES or OBJECTS section, with the
/// TABLES section moved before the first of them (the blocks and entities name the tables'
/// records). Nothing when the tables are in their place, or the sections cannot be told apart.
std::optional<std::string> tablesInTheirPlace(std::string_view text);

} // namespace sim::dxf
