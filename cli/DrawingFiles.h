// The console's drawing files: opening a DXF drawing, saving the drawing as DXF and drawing it as
// an SVG picture. Each gives an empty string on success, else the reason it failed.
#pragma once
#include <string>

namespace togu::cli {

/// Opens the drawing as the current document in place of the new one.
std::string openDrawing(const std::string& path);
/// Saves the current document's drawing.
std::string saveDrawing(const std::string& path);
/// Makes a new drawing (millimetres) the current document.
std::string newDrawing();
/// Draws the current document's drawing as an SVG picture.
std::string writeSvg(const std::string& path);

} // namespace togu::cli
