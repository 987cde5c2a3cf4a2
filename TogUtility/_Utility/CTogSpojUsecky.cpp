// Joining of collinear lines (sp).
#include "StdAfx.h"
#include "CTogSpojUsecky.h"
#include "OkrajPrikazu.h"
#include "_Hlavni/ZatimNeni.h"

void PrikazSp() { ProvedPrikaz([] { PrikazZatimNeni(L"sp"); }); }
