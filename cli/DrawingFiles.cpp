// The console's drawing files. DXF reading and writing and the SVG picture come with the DXF
// module; until then the options are refused here, and only here.
#include "cli/DrawingFiles.h"

namespace togu::cli {

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

} // namespace togu::cli
