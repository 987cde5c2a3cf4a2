// The settings dialog run from script lines: the prefix check that holds OK back, what OK stores and
// Cancel keeps, the units and the scales, the material buttons and the removal of the drawing's values.
#include <gmock/gmock.h>

#include "CTogXRecord.h"
#include "KatalogNaDisku.h"
#include "dbapserv.h"

using ::testing::HasSubstr;
using ::testing::Not;

using NastaveniDialog = KatalogNaDisku;

TEST_F(NastaveniDialog, JednoPismenoZakazeOkADruhePovoli)
{
    Spust("set 110 a\nok\nset 110 ab\ncheck 114 on\nclick 126\nselect 11063 1\nok\nok\n", {{L"Ocel", 1}, {L"PPR3, PN 16", 1}});
    g_pNastaveni->SpustDialogNastaveni();
    EXPECT_THAT(Text(), HasSubstr("Bublina u 110 (chyba): Neodpovídající formát předpony - Předpona musí mít minimálně 2 "
                                  "znaky, maximálně 3\nsestávající z písmen a čísel!!"));
    EXPECT_THAT(Text(), HasSubstr("  1 <OK> [zakázáno]\n"));
    EXPECT_THAT(Text(), HasSubstr("Tlačítko OK je zakázané."));
    EXPECT_THAT(Text(), HasSubstr("151 pole [PPR3, PN 16] (jen pro čtení)\n"));
    EXPECT_EQ(g_pNastaveni->NASTAVENO, 1);
    EXPECT_EQ(g_pNastaveni->Predpony().globalni, L"AB");
    EXPECT_TRUE(g_pNastaveni->Prepinac(kVicenasobnyVyber));
    AcString predpona, material;
    ASSERT_TRUE(CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, CTogRegistry::kKlicSpolecny, L"PREDPONA", predpona));
    EXPECT_EQ(predpona, L"AB");
    // The pick of 126 is the drawing's material, and with OK the user's default.
    ASSERT_TRUE(CTogXRecord::NactiZX(L"CurMat", material, L"Koty"));
    EXPECT_EQ(material, L"PPR3, PN 16");
    ASSERT_TRUE(CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, L"Software\\Togvarnik\\Togovy Utility\\Nastaveni", L"CurMat",
                                           material));
    EXPECT_EQ(material, L"PPR3, PN 16");
}

TEST_F(NastaveniDialog, ZrusitNechaPredponuAleUloziVlastniHodnoty)
{
    Spust("set 110 XY\ncheck 114 on\ncheck 132 off\ncheck 121 off\ncancel\n", {{L"PPR3, PN 16", 1}});
    g_pNastaveni->SpustDialogNastaveni();
    EXPECT_EQ(g_pNastaveni->Predpony().globalni, L"TU");
    EXPECT_FALSE(g_pNastaveni->Prepinac(kVicenasobnyVyber));
    // The dialog's own values are kept as last shown, Cancel or not.
    Adesk::Int32 mazat = -1, lt = -1, styly = -1;
    ASSERT_TRUE(CTogRegistry::NactiHodnotu(L"MAZAT_MERITKA", L"Nastaveni_dlg", mazat));
    ASSERT_TRUE(CTogRegistry::NactiHodnotu(L"PREVED_LT", L"Nastaveni_dlg", lt));
    ASSERT_TRUE(CTogRegistry::NactiHodnotu(L"PREVED_STYLY", L"Nastaveni_dlg", styly));
    EXPECT_EQ(mazat, 0);
    EXPECT_EQ(lt, 0);
    EXPECT_EQ(styly, 1);
}

TEST_F(NastaveniDialog, PalceNemajiMeritkaAOdstraneniVymazeVykres)
{
    Spust("click 144\ncancel\n", {{L"PPR3, PN 16", 1}});
    acdbHostApplicationServices()->workingDatabase()->setInsunits(AcDb::kUnitsInches);
    CTogXRecord::UlozDoX(L"PREDPONA", L"AB", L"TOGVARNIK");
    g_pNastaveni->SpustDialogNastaveni();
    EXPECT_THAT(Text(), HasSubstr("124 \"Jednotky: jiné\"\n"));
    EXPECT_THAT(Text(), HasSubstr("125 <Přidej měřítka> [zakázáno]"));
    AcString hodnota;
    EXPECT_FALSE(CTogXRecord::NactiZX(L"PREDPONA", hodnota, L"TOGVARNIK"));
    EXPECT_FALSE(CTogXRecord::NactiZX(L"CurMat", hodnota, L"Koty"));
    EXPECT_THAT(Text(), Not(HasSubstr("ukončen: OK")));
}

TEST_F(NastaveniDialog, MeritkaProMilimetry)
{
    Spust("check 132 off\nclick 125\nok\ncancel\n", {{L"PPR3, PN 16", 1}});
    acdbHostApplicationServices()->workingDatabase()->setInsunits(AcDb::kUnitsMillimeters);
    g_pNastaveni->SpustDialogNastaveni();
    EXPECT_THAT(Text(), HasSubstr("124 \"Jednotky: milimetry\"\n"));
    EXPECT_THAT(Text(), HasSubstr("Měřítka byla úspěšně přidána"));
}
