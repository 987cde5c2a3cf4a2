// The checks of typed input shared by the validated edits: whole-text patterns (std::wregex, letters
// of any alphabet count as word characters) and the filters of single typed characters.
#pragma once
#include "adesk.h"

/// A check of a whole text; null and empty texts give false.
using FceKontroly = bool (*)(const ACHAR* text);
/// A filter of one typed character.
using FceFiltru = ACHAR (*)(ACHAR znak);

/// Letters, digits and underscore: "(\w+)".
bool JePismenoCislice(const ACHAR* text);
/// A layer prefix: 2 or 3 characters and JePismenoCislice.
bool JePredpona(const ACHAR* text);
bool JeEmail(const ACHAR* text);
/// A Windows file name: not empty, not beginning with a blank or a point, none of \/:?"<>|*.
bool JeNazevSouboru(const ACHAR* text);
/// What may stand while a decimal number is typed ("-", "1.", ".5").
bool JeCastDesetinneho(const ACHAR* text);
/// A finished decimal number: "-.5" and "+1.25" are, "1." is not.
bool JeDesetinne(const ACHAR* text);
bool JeCastCeleho(const ACHAR* text);
bool JeCele(const ACHAR* text);

/// A lower-case letter becomes upper case (CTogFunkce::NaVelkyZnak).
ACHAR NaVelkePismeno(ACHAR znak);
/// "," becomes ".".
ACHAR CarkaNaTecku(ACHAR znak);
