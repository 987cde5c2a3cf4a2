// Drawing files on disk: reading and writing DXF files (a .dwg name stands for the .dxf of the same
// name), written to a temporary file and renamed into place, the old one kept as .bak; and the
// file format the database's readDwgFile and saveAs reach.
#pragma once
#include <string>
#include <vector>

#include "dbmain.h"

namespace sim::dxf {

/// The file the platform uses for a drawing's name: the .dxf of a .dwg, the name itself otherwise.
std::wstring dxfPath(const std::wstring& path);
/// The file a read of the path opens: the path itself when it is a file (a .dwg name may hold DXF
/// text, as the installation's block file does), else dxfPath.
std::wstring readablePath(const std::wstring& path);

/// Reads a drawing file into an empty database. Empty on success; else the whole message ("cannot
/// open x.dxf: no such file", with the line for a damaged file), and the database is empty again.
/// With repairs given, a damaged file is recovered (see readDxf) and each repair told there.
std::string readDrawingFile(AcDbDatabase& db, const std::wstring& path, std::vector<std::string>* repairs = nullptr);
/// Writes the database to the file through a temporary file; an old file of the name becomes the
/// .bak when keepBackup. Empty on success; else the whole message ("cannot save x.dxf: ..."), and
/// the file is as it was.
std::string writeDrawingFile(AcDbDatabase& db, const std::wstring& path, bool keepBackup = true);

/// The whole file into text; false when it cannot be read.
bool readFileText(const std::string& path, std::string& text);

/// Makes the database's readDwgFile and saveAs use these files. Idempotent.
void installFileFormat();
/// The reason the last read or write through the database's calls failed ("" after a success).
const std::string& lastFileError();

} // namespace sim::dxf
