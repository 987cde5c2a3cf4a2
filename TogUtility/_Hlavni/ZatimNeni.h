// What a command or an AutoLISP function of this build does before its implementation lands.
#pragma once
#include "adesk.h"

/// Prints that the command isn't available in this build yet.
void PrikazZatimNeni(const ACHAR* prikaz);

/// Prints that the AutoLISP function isn't available in this build yet and answers nil.
/// Gives RTNORM, the result of an AutoLISP function.
int LispFunkceZatimNeni(const ACHAR* funkce);
