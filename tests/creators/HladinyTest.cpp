// Standard layers found or created from the catalogue, the prefix rules of their names, the locked
// layer question and the question about layers of the old standard.
#include "CTogBaseNastav.h"
#include "CTogException.h"
#include "CTogSet.h"
#include "CTogXRecord.h"
#include "StandardniObjekty.h"

using Hladiny = StandardniObjekty;

TEST_F(Hladiny, CatalogueLayerIsCreatedWithItsRowUnderThePrefix)
{
    Start();
    AcString nazev = L"KOTY";
    AcDbObjectId id = ZiskejHladinu(nazev, false);
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(std::wstring(nazev.kwszPtr()), L"TU_kóty");
    Hladina h = CtiHladinu(id);
    EXPECT_EQ(h.nazev, L"TU_kóty");
    EXPECT_EQ(h.barva, 4);
    EXPECT_EQ(h.tloustka, AcDb::kLnWtByLwDefault);
    EXPECT_EQ(h.popis, L"TOGU_2_kóty");
    EXPECT_EQ(h.typCary, L"Continuous");
    EXPECT_TRUE(h.tisknout);

    // The row not plotted.
    AcString netisk = L"netisk";
    EXPECT_FALSE(CtiHladinu(ZiskejHladinu(netisk, false)).tisknout);
}

TEST_F(Hladiny, ExistingLayerIsReturnedUnchanged)
{
    Start();
    AcDbObjectId puvodni = PridejHladinu(L"TU_kóty", 1);
    AcString nazev = L"kóty";
    EXPECT_EQ(ZiskejHladinu(nazev, false), puvodni);
    Hladina h = CtiHladinu(puvodni);
    EXPECT_EQ(h.barva, 1);
    EXPECT_EQ(h.popis, L"");
}

TEST_F(Hladiny, PrefixOfTheArgumentWinsAndLineTypeIsLoaded)
{
    Start();
    AcString nazev = L"AB_zt-voda_sv";
    AcDbObjectId id = ZiskejHladinu(nazev, true);
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(std::wstring(nazev.kwszPtr()), L"AB_ZT-voda_SV");
    Hladina h = CtiHladinu(id);
    EXPECT_EQ(h.nazev, L"AB_ZT-voda_SV");
    EXPECT_EQ(h.barva, 150);
    EXPECT_EQ(h.tloustka, 53);
    EXPECT_EQ(h.typCary, L"SV");
    EXPECT_EQ(h.popis, L"TOGU_1_ZT-voda_SV");
    EXPECT_TRUE(IdHladiny(L"TU_ZT-voda_SV").isNull());
}

TEST_F(Hladiny, NamesOutsideTheCatalogueAreNeverCreated)
{
    Start();
    // A "_" past the position 3 is no prefix separator: the whole name is looked up and not found.
    AcString dlouha = L"ABCDE_kóty";
    EXPECT_TRUE(ZiskejHladinu(dlouha, true).isNull());
    EXPECT_TRUE(IdHladiny(L"ABCDE_kóty").isNull());
    EXPECT_TRUE(IdHladiny(L"TU_kóty").isNull());

    AcString moje = L"moje";
    EXPECT_TRUE(ZiskejHladinu(moje, false).isNull());
    EXPECT_TRUE(IdHladiny(L"TU_moje").isNull());
    // ... but one that the drawing has under the prefix is found.
    AcDbObjectId id = PridejHladinu(L"TU_moje", 3);
    moje = L"moje";
    EXPECT_EQ(ZiskejHladinu(moje, false), id);
    EXPECT_EQ(std::wstring(moje.kwszPtr()), L"TU_moje");
}

TEST_F(Hladiny, UserLayerTakesTheCallersValues)
{
    Start();
    AcString nazev = L"moje";
    AcDbObjectId id = ZalozUzivHladinu(nazev, 3, L"TUV", AcDb::kLnWt035, false);
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(std::wstring(nazev.kwszPtr()), L"TU_moje");
    Hladina h = CtiHladinu(id);
    EXPECT_EQ(h.barva, 3);
    EXPECT_EQ(h.typCary, L"TUV");
    EXPECT_EQ(h.tloustka, 35);
    EXPECT_FALSE(h.tisknout);
    EXPECT_EQ(h.popis, L"TOGU_4_moje");
    // Asked again, the layer is returned as it stands.
    nazev = L"moje";
    EXPECT_EQ(ZalozUzivHladinu(nazev, 5, kSouvislaCara, AcDb::kLnWtByLwDefault, true), id);
    EXPECT_EQ(CtiHladinu(id).barva, 3);
}

TEST_F(Hladiny, LockedLayerYesAsksAgainNoStops)
{
    Start("Ano\nNe\n");
    AcDbObjectId id = PridejHladinu(L"TU_kóty", 4, true);
    AcString nazev = L"kóty";
    EXPECT_EQ(ZiskejHladinu(nazev, false), id);
    EXPECT_FALSE(CtiHladinu(id).zamcena);
    EXPECT_NE(Zaznam().find(L"Hladina TU_kóty je zamčená, ODEMKNOUT?"), std::wstring::npos);

    // Locked again: "Ano" held for that one time only.
    AcDbObjectId druha = PridejHladinu(L"TU_osy", 3, true);
    nazev = L"osy";
    try {
        ZiskejHladinu(nazev, false);
        FAIL() << "the answer Ne leaves the layer locked and ends the request";
    } catch (const CTogEasyExcept& e) {
        EXPECT_EQ(std::wstring(e.what()), L"Hladina je zamčená");
    }
    EXPECT_TRUE(CtiHladinu(druha).zamcena);
}

TEST_F(Hladiny, LockedLayerYesToAllStopsTheQuestion)
{
    Start("Ano všem\n");
    AcDbObjectId prvni = PridejHladinu(L"TU_kóty", 4, true);
    AcDbObjectId druha = PridejHladinu(L"TU_osy", 3, true);
    AcString nazev = L"kóty";
    EXPECT_EQ(ZiskejHladinu(nazev, false), prvni);
    EXPECT_FALSE(g_pNastaveni->JeZodpovezeno(kOtazkaOdemknoutHladinu));
    // No line is left to answer a question: the second layer is unlocked without one.
    nazev = L"osy";
    EXPECT_EQ(ZiskejHladinu(nazev, false), druha);
    EXPECT_FALSE(CtiHladinu(druha).zamcena);
    EXPECT_EQ(Zaznam().find(L"Hladina TU_osy je zamčená"), std::wstring::npos);
}

TEST_F(Hladiny, OldLayerQuestionNoCreatesBesideAndAsksAgain)
{
    Start("no\nno\n");
    AcDbObjectId stara = PridejHladinu(L"zti-KOTY");
    PridejHladinu(L"zti-OSY");
    AcString nazev = L"kóty";
    AcDbObjectId nova = ZiskejHladinu(nazev, false);
    ASSERT_FALSE(nova.isNull());
    EXPECT_NE(nova, stara);
    nazev = L"osy";
    EXPECT_FALSE(ZiskejHladinu(nazev, false).isNull());
    size_t pocet = 0;
    for (size_t p = Zaznam().find(L"Nalezena hladina se starým názvem"); p != std::wstring::npos;
         p = Zaznam().find(L"Nalezena hladina se starým názvem", p + 1))
        ++pocet;
    EXPECT_EQ(pocet, 2u);
}

TEST_F(Hladiny, OldLayerQuestionCancelIsStoredInTheDrawing)
{
    Start("cancel\n");
    PridejHladinu(L"zti-KOTY");
    PridejHladinu(L"zti-OSY");
    AcString nazev = L"kóty";
    EXPECT_FALSE(ZiskejHladinu(nazev, false).isNull());
    Adesk::Int32 neptat = 0;
    ASSERT_TRUE(CTogXRecord::NactiZX(L"NeptatSeNaStareHladiny", neptat, L"Hladiny"));
    EXPECT_EQ(neptat, 1);
    nazev = L"osy";
    EXPECT_FALSE(ZiskejHladinu(nazev, false).isNull());
    EXPECT_EQ(Zaznam().find(L"Nalezena hladina se starým názvem"),
              Zaznam().rfind(L"Nalezena hladina se starým názvem"));
}

TEST_F(Hladiny, OldLayerQuestionYesConvertsTheOldLayerIntoTheRequestedOne)
{
    Start("yes\n");
    AcDbObjectId stara = PridejHladinu(L"zti-KOTY");
    AcString nazev = L"kóty";
    EXPECT_EQ(ZiskejHladinu(nazev, false), stara);
    EXPECT_EQ(IdHladiny(L"TU_kóty"), stara);
    EXPECT_TRUE(IdHladiny(L"zti-KOTY").isNull());
}
