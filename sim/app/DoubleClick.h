// A double click in the drawing window, from the script line "@dblclick x,y": the point becomes the
// pixel under it in the current view, and WM_LBUTTONDBLCLK with that pixel goes to the applications'
// window-message filters, as the host offers its drawing window's messages.
#pragma once
#include <optional>
#include <string_view>

#include "gepnt3d.h"
#include "windows.h"

namespace sim::app {

/// True for a line that is a double click ("@dblclick" and a point), whatever its point.
bool isDoubleClickLine(std::wstring_view line);

/// Carries out the line: a point in the current UCS (as typed at a point prompt) is double-clicked.
/// False, having printed why, for a point that doesn't read or when no drawing window is open.
bool doubleClick(std::wstring_view line);

/// The pixel of the drawing window that shows the WCS point in the current view (x right, y down);
/// the inverse of acedCoordFromPixelToWorld, rounded to the nearest pixel.
POINT pixelOf(const AcGePoint3d& wcs);

} // namespace sim::app
