// Thermal insulation command (TEPIZOL).
#pragma once
#include <vector>
#include "IzolaceGeometrie.h"

class AcDbEntity;

/// `TEPIZOL`: lays the wave symbol of insulation along an axis, beside an edge or between two edges.
void PrikazTepIzol();

/// The axis of a LINE, ARC (in the XY plane) or open POLYLINE as segments; prints the reason and gives
/// false for anything else.
bool SegmentyZEntity(const AcDbEntity* entita, std::vector<IzolaceSegment>& segmenty);
