// Commands that change entities: whole-drawing conversions (z0, kub, ssa, lt1, SMAZTEXTY),
// text and property commands (ca, ra, rak, mat, tv, mtcf, ed) and the leader composition (cmm).
#include "StdAfx.h"
#include "Modifikace.h"
#include "OkrajPrikazu.h"
#include "_Hlavni/ZatimNeni.h"

void PrikazCa() { ProvedPrikaz([] { PrikazZatimNeni(L"ca"); }); }

void PrikazRa() { ProvedPrikaz([] { PrikazZatimNeni(L"ra"); }); }

void PrikazRak() { ProvedPrikaz([] { PrikazZatimNeni(L"rak"); }); }

void PrikazMat() { ProvedPrikaz([] { PrikazZatimNeni(L"mat"); }); }

void PrikazZ0() { ProvedPrikaz([] { PrikazZatimNeni(L"z0"); }); }

void PrikazKub() { ProvedPrikaz([] { PrikazZatimNeni(L"kub"); }); }

void PrikazTv() { ProvedPrikaz([] { PrikazZatimNeni(L"tv"); }); }

void PrikazSsa() { ProvedPrikaz([] { PrikazZatimNeni(L"ssa"); }); }

void PrikazLt1() { ProvedPrikaz([] { PrikazZatimNeni(L"lt1"); }); }

void PrikazMtcf() { ProvedPrikaz([] { PrikazZatimNeni(L"mtcf"); }); }

void PrikazEd() { ProvedPrikaz([] { PrikazZatimNeni(L"ed"); }); }

void PrikazSmazTexty() { ProvedPrikaz([] { PrikazZatimNeni(L"SMAZTEXTY"); }); }

void PrikazCmm() { ProvedPrikaz([] { PrikazZatimNeni(L"cmm"); }); }
