// Writing a database as DXF (AutoCAD 2018, UTF-8) through a tag writer.
#pragma once
#include <string>
#include <vector>

#include "dbmain.h"
#include "sim/dxf/TagWriter.h"

namespace sim::dxf {

/// What a write could not put into the file: objects of classes that have no codec.
struct WriteReport {
    std::vector<std::wstring> skippedClasses;
};

/// Writes the whole file. Before writing it makes the database complete where the file must be:
/// the applications its extended data names, the begin and end markers of blocks and the ends of
/// attribute and vertex lists, each added to the database under a new handle.
WriteReport writeDxf(AcDbDatabase& db, TagWriter& w);

} // namespace sim::dxf
