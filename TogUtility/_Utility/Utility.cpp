// Small utility commands: xref layer remap (ss), levels and slopes (vvs, vvvv, CISTIVYSKY),
// entity information (li, pro), surveyed point import (nactiGPS, nactiJTSK), conversion of old names
// (preved) and ZobrazCTB.
#include "StdAfx.h"
#include "Utility.h"
#include "OkrajPrikazu.h"
#include "_Hlavni/ZatimNeni.h"
#include "VyskySpady.h"

namespace {

// The point import; forma 0 reads WGS-84 coordinates, 1 S-JTSK coordinates.
void NactiBody(int forma) { PrikazZatimNeni(forma == 0 ? L"nactiGPS" : L"nactiJTSK"); }

} // namespace

void PrikazSs() { ProvedPrikaz([] { PrikazZatimNeni(L"ss"); }); }

void PrikazVvs() { ProvedPrikaz(HloubkaSachty); }

void PrikazVvvv() { ProvedPrikaz(SpadMeziSachtami); }

void PrikazLi() { ProvedPrikaz([] { PrikazZatimNeni(L"li"); }); }

void PrikazPro() { ProvedPrikaz([] { PrikazZatimNeni(L"pro"); }); }

void PrikazNactiGPS() { ProvedPrikaz([] { NactiBody(0); }); }

void PrikazNactiJTSK() { ProvedPrikaz([] { NactiBody(1); }); }

void ZobrazCTB() {}

void PrikazCistiVysky() { ProvedPrikaz(CistiVysky); }

void PrikazPreved() { ProvedPrikaz([] { PrikazZatimNeni(L"preved"); }); }
