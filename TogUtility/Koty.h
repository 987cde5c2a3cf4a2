// Pipe dimensioning command (ko).
#pragma once
#include "AcString.h"
#include "acedads.h"

/// The pick of a pipe's line, or of a point beside it: the prompt names the current material, Enter
/// or the keyword "Materiál" opens the material picker and asks again. RTNORM with a line (its name in
/// `cara`); RTNONE with a point beside every line, when no line is required; RTCAN for Escape.
int VyberBod(const ads_point zaklad, const ACHAR* vyzva, bool caraNutna, ads_point bod, ads_name cara);

/// The text of the dimension: a number gives the label of the current material's nearest profile,
/// any other text stands as typed; "Materiál" opens the picker, "Ručně" or Enter asks for the text
/// alone. False after Escape.
bool ZadejText(AcString& text);

/// `ko`: writes the size of a pipe as an aligned dimension.
void PrikazKo();
