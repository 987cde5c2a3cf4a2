// Sheet frame command (ram).
#include "StdAfx.h"
#include "Ramecek.h"
#include "OkrajPrikazu.h"
#include "_Hlavni/ZatimNeni.h"

void PrikazRam() { ProvedPrikaz([] { PrikazZatimNeni(L"ram"); }); }
