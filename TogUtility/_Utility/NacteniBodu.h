// The import of surveyed points (nactiGPS, nactiJTSK): a point file chosen in a file dialog, a circle
// and a label for each point in model space.
#pragma once
#include <vector>
#include "BodGPS.h"

/// Asks for the file and reads its points; false after a cancel, a file that doesn't open (silently)
/// or an error of reading (shown in a message box).
bool NactiBody(std::vector<BodGPS>& body, FormaBodu forma);

/// The command: reads the points and draws them.
void VlozBody(FormaBodu forma);
