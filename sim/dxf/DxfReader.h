// Reading a DXF file into a database: sections, tables, blocks, entities and objects, each object
// under its own handle, with what the database does not model kept for writing back.
#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "dbmain.h"

namespace sim::dxf {

/// Reads ASCII DXF text (AutoCAD 2000 to 2018; files before 2007 in their code page) into an empty
/// database built without its default drawing. Throws DxfError with the line of the fault; the
/// database is then empty again, as it was. As the reading goes on, consumed(n) says that the
/// first n bytes of the text are read (a mapped file may let their memory go; they must stay
/// readable).
/// With repairs given, a damaged drawing is read as the host's RECOVER reads it: a TABLES section
/// after the blocks is read first, a block without a name or without its record (a layout's
/// included) gets them; each repair is told in repairs. Without, such a file is refused.
void readDxf(AcDbDatabase& db, std::string_view text, const std::function<void(size_t)>& consumed = {},
             std::vector<std::string>* repairs = nullptr);

} // namespace sim::dxf
