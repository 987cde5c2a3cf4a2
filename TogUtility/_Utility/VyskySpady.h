// Levels and slopes of sewers: the depth of a manhole (vvs), the slope between two manholes or the
// height of one end (vvvv), and the cleaning of typed heights (CISTIVYSKY).
#pragma once

/// vvs: prints the depth of a picked manhole block (attributes POKLOP, DNO, OZNS).
void HloubkaSachty();
/// vvvv: prints the slope between the bottoms of two manholes, or computes one end from a slope.
void SpadMeziSachtami();
/// CISTIVYSKY: cleans the numbers of the selected texts and MTexts.
void CistiVysky();
