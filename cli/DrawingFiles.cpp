// The console's drawings: new ones from the built-in template, DXF files read and written by the
// DXF module, the SVG picture.
#include "cli/DrawingFiles.h"

#include <fstream>
#include <memory>

#include "acdocman.h"
#include "sim/core/Session.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/Documents.h"
#include "sim/dxf/DxfFile.h"
#include "sim/dxf/Svg.h"

namespace togu::cli {

namespace {

/// The DXF module serves the database's file calls, a new drawing's template among them (a
/// database built with its default drawing asks the format to complete it), unless a file format is
/// installed already.
void useDxf()
{
    if (!sim::db::fileFormat())
        sim::dxf::installFileFormat();
}

AcDbDatabase* currentDatabase()
{
    AcApDocument* doc = acDocManagerPtr()->curDocument();
    return doc ? doc->database() : nullptr;
}

} // namespace

std::string newDrawing()
{
    useDxf();
    auto db = std::make_unique<AcDbDatabase>(true);
    return sim::db::openDocument(std::move(db)) ? std::string() : std::string("cannot make a new drawing");
}

std::string openDrawing(const std::string& path, std::vector<std::string>* repairs)
{
    useDxf();
    auto db = std::make_unique<AcDbDatabase>(false, true);
    if (std::string e = sim::dxf::readDrawingFile(*db, sim::fromUtf8(path), repairs); !e.empty())
        return e;
    return sim::db::openDocument(std::move(db), sim::fromUtf8(path)) ? std::string() : "cannot open " + path;
}

std::string saveDrawing(const std::string& path)
{
    AcDbDatabase* db = currentDatabase();
    if (!db)
        return "cannot save " + path + ": no drawing is open";
    return sim::dxf::writeDrawingFile(*db, sim::fromUtf8(path), false);
}

std::string writeSvg(const std::string& path)
{
    AcDbDatabase* db = currentDatabase();
    if (!db)
        return "cannot write " + path + ": no drawing is open";
    std::ofstream out(path, std::ios::binary);
    out << sim::dxf::drawSvg(*db);
    out.close();
    return out ? std::string() : "cannot write " + path;
}

void closeDrawings() { sim::db::closeAllDocuments(); }

} // namespace togu::cli
