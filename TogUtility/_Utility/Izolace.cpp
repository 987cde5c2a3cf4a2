// Thermal insulation command (TEPIZOL).
#include "StdAfx.h"
#include "Izolace.h"
#include "OkrajPrikazu.h"
#include "_Hlavni/ZatimNeni.h"

void PrikazTepIzol() { ProvedPrikaz([] { PrikazZatimNeni(L"TEPIZOL"); }); }
