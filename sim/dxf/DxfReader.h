// Reading a DXF file into a database: sections, tables, blocks, entities and objects, each object
// under its own handle, with what the database does not model kept for writing back.
#pragma once
#include <functional>
#include <string_view>

#include "dbmain.h"

namespace sim::dxf {

/// Reads ASCII DXF text (AutoCAD 2000 to 2018; files before 2007 in their code page) into an empty
/// database built without its default drawing. Throws DxfError with the line of the fault; the
/// database is then empty again, as it was. As the reading goes on, consumed(n) says that the
/// first n bytes of the text are read (a mapped file may let their memory go; they must stay
/// readable).
void readDxf(AcDbDatabase& db, std::string_view text, const std::function<void(size_t)>& consumed = {});

} // namespace sim::dxf
