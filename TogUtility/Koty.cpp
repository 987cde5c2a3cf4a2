// Pipe dimensioning command (ko).
#include "StdAfx.h"
#include "Koty.h"
#include "OkrajPrikazu.h"
#include "_Hlavni/ZatimNeni.h"

void PrikazKo() { ProvedPrikaz([] { PrikazZatimNeni(L"ko"); }); }
