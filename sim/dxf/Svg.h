// A quick look at a drawing: model space as an SVG picture. Lines, polylines with their arcs, arcs,
// circles, texts and multi-line texts, block references with their attributes, and the lines of
// dimensions, leaders and multileaders in their colours; no line types, fonts or fills.
#pragma once
#include <string>

#include "dbmain.h"

namespace sim::dxf {

/// The SVG text of the drawing's model space, white background, Y upwards as in the drawing.
std::string drawSvg(AcDbDatabase& db);

} // namespace sim::dxf
