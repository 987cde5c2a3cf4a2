// Thermal insulation command (TEPIZOL).
#pragma once

/// `TEPIZOL`: lays the wave symbol of insulation along an axis or edges.
void PrikazTepIzol();
