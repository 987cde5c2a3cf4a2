// The console's drawings: a new one, a DXF drawing opened from a file, the drawing saved as DXF or
// drawn as an SVG picture. Each gives an empty string on success, else the reason it failed.
#pragma once
#include <string>
#include <vector>

namespace togu::cli {

/// Opens a new drawing (millimetres) as the current document.
std::string newDrawing();
/// Opens the drawing of a DXF file as the current document.
/// With repairs given, a damaged drawing is recovered and each repair told there.
std::string openDrawing(const std::string& path, std::vector<std::string>* repairs = nullptr);
/// Saves the current document's drawing.
std::string saveDrawing(const std::string& path);
/// Draws the current document's drawing as an SVG picture.
std::string writeSvg(const std::string& path);
/// Closes every open document at the end of the run.
void closeDrawings();

} // namespace togu::cli
