// Multi-pipe drawing command (mut).
#include "StdAfx.h"
#include "CTogMultiTrubky.h"
#include "OkrajPrikazu.h"
#include "_Hlavni/ZatimNeni.h"

void PrikazMut() { ProvedPrikaz([] { PrikazZatimNeni(L"mut"); }); }
