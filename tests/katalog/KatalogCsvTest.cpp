// The catalogue's text form: what the reader accepts beyond the writer's own output, and the line
// it names when it refuses.
#include <gtest/gtest.h>

#include <string>

#include "CTogSezMaterialu.h"
#include "tools/katalog/KatalogCsv.h"

using togu::katalog::ChybaCsv;
using togu::katalog::DoCsv;
using togu::katalog::ZCsv;

namespace {

const std::string kHlavicka = "Materiál;Podrobný popis;Výrobce;Drsnost [mm];Skupina;Použití;PN;SDr;Popis profilů;"
                              "Popis z vnitřního průměru;Prefix;Suffix;Tvar;DN;Vnitřní průměr [mm];Stěna [mm];"
                              "Šířka [mm];URS materiál;URS montáž\n";
const std::string kMaterial = "PE;\"Popis; s \"\"uvozovkami\"\"\nna dvou řádcích\";Pipelife;0,007;3;14;PN 16;SDr 11;Jiný;"
                              "ano;Ø;mm;Kruh;";

/// The line a refused text names, 0 when it was taken.
int ChybnyRadek(const std::string& text)
{
    CTogSezMaterialu seznam;
    try {
        ZCsv(text, seznam);
    } catch (const ChybaCsv& e) {
        return e.radek;
    }
    return 0;
}

} // namespace

TEST(KatalogCsv, QuotedFieldsCommentsAndDecimalCommasReadBack)
{
    std::string text = "# poznámka\n" + kHlavicka + "\n" + kMaterial + "DN 100;90;10;0;871263121;\n" + kMaterial +
                       "DN 80;70,4;9,8;0;;\r\n" + "Prázdný;;;0.01;1;1;---;---;DN;ne;;;Kruh;;;;;;\n";
    CTogSezMaterialu seznam;
    ZCsv(text, seznam);
    CTogMaterial* pe = seznam.NajdiMaterial(L"PE");
    ASSERT_NE(pe, nullptr);
    EXPECT_EQ(pe->PodrobnyPopis, L"Popis; s \"uvozovkami\"\nna dvou řádcích");
    EXPECT_FLOAT_EQ(pe->Drsnost, 0.007f);
    EXPECT_EQ(pe->Profily.size(), 2u);
    EXPECT_STREQ(pe->Profil(11)->Popisek, L"Ø90mm");
    EXPECT_STREQ(pe->Profil(11)->UrsMaterial, L"871263121");
    EXPECT_FLOAT_EQ(pe->Profil(10)->Vnitrni, 70.4f);
    ASSERT_NE(seznam.NajdiMaterial(L"Prázdný"), nullptr);
    EXPECT_TRUE(seznam.NajdiMaterial(L"Prázdný")->Profily.empty());

    // Written and read again, the text stays the same.
    std::string zapsano = DoCsv(seznam);
    CTogSezMaterialu znovu;
    ZCsv(zapsano, znovu);
    EXPECT_EQ(DoCsv(znovu), zapsano);
}

TEST(KatalogCsv, RefusedLinesAreNamed)
{
    const std::string profil = "DN 100;90;10;0;;\n";
    EXPECT_EQ(ChybnyRadek(""), 1);
    EXPECT_EQ(ChybnyRadek("Materiál;DN\n"), 1);
    // The multi-line quoted field counts its lines: the faulty record starts on line 4.
    EXPECT_EQ(ChybnyRadek(kHlavicka + kMaterial + profil + kMaterial + profil), 4);
    EXPECT_EQ(ChybnyRadek(kHlavicka + kMaterial + "DN 100;90;-1;0;;\n"), 2);
    EXPECT_EQ(ChybnyRadek(kHlavicka + kMaterial + "DN 100;0;10;0;;\n"), 2);
    EXPECT_EQ(ChybnyRadek(kHlavicka + kMaterial + "DN 100;90;10;0;1234567890;\n"), 2);
    EXPECT_EQ(ChybnyRadek(kHlavicka + kMaterial + "DN 100;abc;10;0;;\n"), 2);
    EXPECT_EQ(ChybnyRadek(kHlavicka + kMaterial + "DN 100;90;10\n"), 2);
    std::string jinyVyrobce = kMaterial;
    jinyVyrobce.replace(jinyVyrobce.find("Pipelife"), 8, "Wavin");
    EXPECT_EQ(ChybnyRadek(kHlavicka + kMaterial + profil + jinyVyrobce + "DN 80;70;10;0;;\n"), 4);
    EXPECT_EQ(ChybnyRadek(kHlavicka + "Dlouhý název materiálu přes dvacet;;;1;1;1;---;---;DN;ne;;;Kruh;;;;;;\n"), 2);
    EXPECT_EQ(ChybnyRadek(kHlavicka + "X;;;1;0;1;---;---;DN;ne;;;Kruh;;;;;;\n"), 2);
    EXPECT_EQ(ChybnyRadek(kHlavicka + "X;;;1;1;1;---;---;DN;ne;;;Koule;;;;;;\n"), 2);
    EXPECT_EQ(ChybnyRadek(kHlavicka + "X;\"bez konce;;1;1;1;---;---;DN;ne;;;Kruh;;;;;;\n"), 2);
    // A NUL would cut the name short, and a second line of "PE" then met a material of another name.
    std::string sNulou = kMaterial;
    sNulou.replace(0, 2, std::string("PE\0\0", 4));
    EXPECT_EQ(ChybnyRadek(kHlavicka + kMaterial + profil + sNulou + "DN 80;70;10;0;;\n"), 4);
    EXPECT_EQ(ChybnyRadek(kHlavicka + sNulou + profil), 2);
}
