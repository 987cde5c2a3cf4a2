// The symbol tables as the TABLES section lists them, and the value kinds of the DIM variables.
#pragma once
#include <string_view>
#include <vector>

#include "sim/db/DatabaseAccess.h"
#include "sim/dxf/Codec.h"

namespace sim::dxf {

struct TableInfo {
    std::string_view name;       ///< "LAYER"
    sim::db::TableKind kind;
    const Codec* tableCodec;     ///< reads and writes the 0 TABLE record
};

/// The tables in the order of the TABLES section.
std::vector<TableInfo> tableOrder();
/// Null for a name that is no table of the format.
const TableInfo* tableByName(std::string_view name);

/// How a dimension style keeps the value of a DIM variable's group code.
enum class DimValue { Text, Real, Integer, Color, Object };
DimValue dimValueKind(int code);

} // namespace sim::dxf
