// The transient graphics the system shows over the drawing: the platform's transient manager keeps
// them in a list that tests and the console can read and print.
#pragma once
#include <string>
#include <vector>

#include "acgitransient.h"

namespace sim::editor {

struct Transient {
    AcGiDrawable* drawable = nullptr; ///< not owned
    AcGiTransientDrawingMode mode = kAcGiMain;
    int subMode = 0;
    std::vector<int> viewports;
};

/// What is shown now, in the order it was added.
const std::vector<Transient>& transients();
/// Forgets every transient (a new session); the drawables are not touched.
void clearTransients();
/// One line per transient: "<kind> in viewports 2" with the kind's DXF name ("LINE", "CIRCLE", ...).
std::wstring describeTransients();

} // namespace sim::editor
