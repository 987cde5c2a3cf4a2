// Level mark commands (kac, kace).
#include "StdAfx.h"
#include "Kacena.h"
#include "OkrajPrikazu.h"
#include "_Hlavni/ZatimNeni.h"

void PrikazKac() { ProvedPrikaz([] { PrikazZatimNeni(L"kac"); }); }

void PrikazKace() { ProvedPrikaz([] { PrikazZatimNeni(L"kace"); }); }
