// The current material of a drawing: found by its stored name without a question, the predefined one
// when the catalogue has nothing for buildings, the question for a name the catalogue lacks, and the
// pick stored in the drawing.
#include <gmock/gmock.h>

#include "CTogXRecord.h"
#include "KatalogNaDisku.h"

using ::testing::HasSubstr;
using ::testing::Not;

using AktualniMaterial = KatalogNaDisku;

TEST_F(AktualniMaterial, VychoziJmenoVKataloguSeNepta)
{
    Spust("", {{L"PE 100", 2}, {L"PPR3, PN 16", 1}});
    CTogMaterial* m = g_pNastaveni->AktualniMaterial();
    ASSERT_NE(m, nullptr);
    EXPECT_EQ(m->Nazev, L"PPR3, PN 16");
    EXPECT_THAT(Text(), Not(HasSubstr("V databázi materiálů")));
    EXPECT_EQ(g_pNastaveni->AktualniMaterial(), m) << "the same drawing keeps its material";
}

TEST_F(AktualniMaterial, BezMaterialuProZTIVznikneVychozi)
{
    Spust("ok\n", {{L"PE 100", 2}});
    CTogMaterial* m = g_pNastaveni->AktualniMaterial();
    ASSERT_NE(m, nullptr);
    EXPECT_THAT(Text(), HasSubstr("V databázi materiálů nejsou žádné materiály pro ZTI\nbude přidán předdefinovaný "
                                  "materiál PPR3, PN 16\npro nastavení spusťte dialog materiálů v nastavení Utilit"));
    EXPECT_EQ(m->Nazev, L"PPR3, PN 16");
    EXPECT_EQ(m->Skupina, 1);
    EXPECT_EQ(m->PnIndex, 3);
    EXPECT_EQ(m->SdrIndex, 2);
    ASSERT_EQ(m->Profily.size(), 11u);
    EXPECT_EQ(m->Profily.begin()->first, 1);
    EXPECT_EQ(m->Profily.rbegin()->first, 11);
    // The catalogue is saved with it, and the drawing took the built-in parameters.
    CTogSezMaterialu znovu;
    ASSERT_TRUE(znovu.Nacti(false));
    EXPECT_NE(znovu.NajdiMaterial(L"PPR3, PN 16"), nullptr);
    double drsnost = 0;
    EXPECT_TRUE(CTogXRecord::NactiZX(L"CurMatDrsnost", drsnost, L"Koty"));
    EXPECT_DOUBLE_EQ(drsnost, 0.01);
}

TEST_F(AktualniMaterial, NeznameJmenoSeZeptaJednouZaVykres)
{
    Spust("no\n", {{L"PE 100", 3}});
    CTogXRecord::UlozDoX(L"CurMat", L"Neznámý", L"Koty");
    CTogMaterial* m = g_pNastaveni->AktualniMaterial();
    ASSERT_NE(m, nullptr);
    EXPECT_THAT(Text(), HasSubstr("nebyl nalezen defaultní materiál \nNeznámý.....vybrat jiný?"));
    EXPECT_EQ(m->Nazev, L"Neznámý") << "No makes it with the standard parameters";
    const std::string pred = Text();
    EXPECT_EQ(g_pNastaveni->AktualniMaterial(), m);
    EXPECT_EQ(Text(), pred) << "asked once per drawing";
}

TEST_F(AktualniMaterial, VyberUloziMaterialDoVykresu)
{
    Spust("select 11063 0\nok\n", {{L"Ocel", 1}, {L"PPR3, PN 16", 1}});
    ASSERT_NE(g_pNastaveni->AktualniMaterial(), nullptr);
    CTogMaterial* m = g_pNastaveni->VyberMaterial();
    ASSERT_NE(m, nullptr);
    EXPECT_EQ(m->Nazev, L"Ocel");
    AcString nazev;
    ASSERT_TRUE(CTogXRecord::NactiZX(L"CurMat", nazev, L"Koty"));
    EXPECT_EQ(nazev, L"Ocel");
    Adesk::Int32 sdr = 0;
    ASSERT_TRUE(CTogXRecord::NactiZX(L"CurMatSDR", sdr, L"Koty"));
    EXPECT_EQ(sdr, 4);
}
