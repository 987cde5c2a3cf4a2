// PresunDoHladiny: moves the selected entities to a layer, with the colour, line type and weight reset
// to ByLayer as the global switches ask.
#pragma once
#include "dbid.h"

/// Takes the entities selected before the call, else asks for them (one pick, or many with the switch
/// of multiple selection), and moves them to the layer in one transaction of the current document.
/// Gives the number of entities selected; 0 when nothing was. A failure aborts the transaction and is
/// thrown on to the caller, which shows it.
int PresunDoHladiny(AcDbObjectId idHladiny);
