// Small utility commands: xref layer remap (ss), levels and slopes (vvs, vvvv, CISTIVYSKY),
// entity information (li, pro), surveyed point import (nactiGPS, nactiJTSK), conversion of old names
// (preved) and ZobrazCTB.
#include "StdAfx.h"
#include "Utility.h"
#include "OkrajPrikazu.h"
#include "PrevodStandardu.h"
#include "SedaReference.h"
#include "_Hlavni/ZatimNeni.h"
#include "InfoEntity.h"
#include "NacteniBodu.h"
#include "VyskySpady.h"

void PrikazSs() { ProvedPrikaz(SedaReference); }

void PrikazVvs() { ProvedPrikaz(HloubkaSachty); }

void PrikazVvvv() { ProvedPrikaz(SpadMeziSachtami); }

void PrikazLi() { ProvedPrikaz(UkazInfoEntity); }

void PrikazPro() { ProvedPrikaz(ObratKrivky); }

void PrikazNactiGPS() { ProvedPrikaz([] { VlozBody(kFormaWgs84); }); }

void PrikazNactiJTSK() { ProvedPrikaz([] { VlozBody(kFormaJtsk); }); }

void ZobrazCTB() {}

void PrikazCistiVysky() { ProvedPrikaz(CistiVysky); }

void PrikazPreved()
{
    ProvedPrikaz([] { PrevedStandardy(kPrevestStyly | kPrevestHladiny | kPrevestTypyCar); });
}
