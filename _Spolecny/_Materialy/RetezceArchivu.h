// The string forms of catalogue records besides MFC's counted strings: strings ended by a 0 unit and
// strings of a fixed number of units (old versions only), both in UTF-16 units.
#pragma once
#include <afx.h>
#include "adesk.h"

/// Writes at most n units of the text and a 0 unit.
void ZapisUkoncenyRetezec(CArchive& ar, const ACHAR* text, int n);
/// Reads units up to and including the 0 unit, at most n + 1, into a buffer of n + 1 units; throws
/// "Načítaný řetězec není ukončen nulou" when none of them is 0.
void NactiUkoncenyRetezec(CArchive& ar, ACHAR* cil, int n);
/// Reads exactly n + 1 units into a buffer of n + 1 units, ending it with 0 in its last unit.
void NactiPevnyRetezec(CArchive& ar, ACHAR* cil, int n);
/// Reads the units of a fixed string and forgets them.
void PreskocPevnyRetezec(CArchive& ar, int n);

/// The version message of records newer than this program.
[[noreturn]] void ChybaVyssiVerze(int radek, const char* soubor);
