// The console's drawings. Reading and writing DXF and the SVG picture come with the DXF module;
// until then those options are refused here, and only here.
#include "cli/DrawingFiles.h"

#include "sim/db/Documents.h"

namespace togu::cli {

std::string newDrawing()
{
    return sim::db::openDocument() ? std::string() : std::string("cannot make a new drawing");
}

std::string openDrawing(const std::string& path)
{
    return "cannot open " + path + ": reading DXF drawings is not available yet";
}

std::string saveDrawing(const std::string& path)
{
    return "cannot save " + path + ": writing DXF drawings is not available yet";
}

std::string writeSvg(const std::string& path)
{
    return "cannot write " + path + ": SVG pictures are not available yet";
}

void closeDrawings() { sim::db::closeAllDocuments(); }

} // namespace togu::cli
