// Commands that change entities: whole-drawing conversions (z0, kub, ssa, lt1, SMAZTEXTY),
// text and property commands (ca, ra, rak, mat, tv, mtcf, ed) and the leader composition (cmm).
#include "StdAfx.h"
#include "Modifikace.h"
#include "OkrajPrikazu.h"
#include "_Hlavni/ZatimNeni.h"
#include "CTogBaseNastav.h"
#include "PrevodyVykresu.h"
#include "TextovePrikazy.h"

namespace {

AcDbDatabase* PracovniDatabaze() { return acdbHostApplicationServices()->workingDatabase(); }

// Model space, layouts and block definitions.
constexpr int kCelyVykres = CTogCmd::kModelSpace | CTogCmd::kLayouty | CTogCmd::kDefiniceBloku;

} // namespace

void PrikazCa() { ProvedPrikaz(KopirujVzhled); }

void PrikazRa() { ProvedPrikaz([] { NatocPodle(false); }); }

void PrikazRak() { ProvedPrikaz([] { NatocPodle(true); }); }

void PrikazMat() { ProvedPrikaz(AtributyNaTexty); }

void PrikazZ0()
{
    ProvedPrikaz([] {
        TogUPrevodZNaNulu prevod(PracovniDatabaze());
        prevod.ProjdiDwg(kCelyVykres, true, 1);
    });
}

void PrikazKub()
{
    ProvedPrikaz([] {
        TogUPrevodnikHacku prevod(PracovniDatabaze());
        prevod.ProjdiDwg(kCelyVykres, true, 1);
    });
}

void PrikazTv() { ProvedPrikaz(TextNaVelka); }

void PrikazSsa()
{
    ProvedPrikaz([] {
        ads_real modifikator = 1.0;
        if (acedGetReal(L"\nZadej modifikátor pro úpravu měřítka typu čar:", &modifikator) != RTNORM)
            return;
        TogUZmenMeritkoLT zmena(PracovniDatabaze(), modifikator, g_pNastaveni->Glob_prepinace);
        zmena.ProjdiDwg(kCelyVykres, true, 1);
    });
}

void PrikazLt1()
{
    ProvedPrikaz([] {
        acutPrintf(L"\nNastavuji LTScale na 1, MSLTScale na 1");
        AcDbDatabase* db = PracovniDatabaze();
        db->setLtscale(1.0);
        db->setMsltscale(true);
        TogUZmenLTScaleNaJedna zmena(db, g_pNastaveni->Glob_prepinace);
        zmena.ProjdiDwg(kCelyVykres, true, 1);
    });
}

void PrikazMtcf() { ProvedPrikaz(OdstranFormatovani); }

void PrikazEd() { ProvedPrikaz(EditujText); }

void PrikazSmazTexty()
{
    ProvedPrikaz([] {
        ACHAR hledany[256] = {};
        if (acedGetString(1, L"\nZadej text - všechny entity obsahující zadaný text budou smazány (pouze viditelné texty): ",
                          hledany, 256) != RTNORM)
            return;
        SmazTextObsahujici mazani(PracovniDatabaze(), hledany);
        mazani.ProjdiDwg(CTogCmd::kModelSpace, true, 1);
    });
}
