// The format calculator's arithmetic: table places and spin steps, the roll texts with their waste,
// the printer rule and the 914 rule.
#include <gtest/gtest.h>

#include "_Dialogs/FormatVykresu.h"

using namespace FormatVykresu;

TEST(FormatVykresu, HodnotaMeziKrokyStoupneNaVetsiANeprestoupiJi)
{
    // 500 sits on 594 (place 2): one step up gives 594, not 841; one step down 420.
    const Misto m = MistoVysky(500);
    EXPECT_EQ(m.index, 2);
    EXPECT_FALSE(m.presne);
    EXPECT_EQ(KrokVysky(3, m), 594);
    EXPECT_EQ(KrokVysky(1, m), 420);
    // An exact value steps to its neighbours.
    const Misto a1 = MistoVysky(594);
    EXPECT_TRUE(a1.presne);
    EXPECT_EQ(KrokVysky(3, a1), 841);
    EXPECT_EQ(KrokVysky(1, a1), 420);
    // Past 891 the height place is 914, whatever the value; past the widths there is no place.
    EXPECT_EQ(MistoVysky(914).index, 5);
    EXPECT_TRUE(MistoVysky(914).presne);
    EXPECT_EQ(MistoVysky(1188).index, 5);
    EXPECT_FALSE(MistoVysky(1188).presne);
    EXPECT_EQ(MistoSirky(3000).index, 14);
    EXPECT_FALSE(MistoSirky(3000).presne);
    EXPECT_EQ(KrokSirky(13, MistoSirky(3000)), 2523);
    EXPECT_EQ(MistoSirky(210).index, 0);
    EXPECT_EQ(KrokSirky(1, MistoSirky(211)), 420);
}

TEST(FormatVykresu, StandardniFormatyJenPresne)
{
    EXPECT_EQ(IndexFormatu(210, 297), 0);
    EXPECT_EQ(IndexFormatu(1188, 841), 4);
    EXPECT_EQ(IndexFormatu(841, 420), 7);
    EXPECT_EQ(IndexFormatu(297, 210), -1);
    EXPECT_EQ(IndexFormatu(842, 594), -1);
}

TEST(FormatVykresu, TiskarnaBereA4AA3VObouSmerech)
{
    for (auto [w, h] : {std::pair{210, 297}, {420, 297}, {297, 420}}) {
        const TextyTisku t = Tisk(w, h);
        EXPECT_EQ(t.sirka, L"NA TISKÁRNU") << w << "x" << h;
        EXPECT_EQ(t.vyska, L"");
        EXPECT_EQ(t.odpadVysky, L"");
        EXPECT_EQ(t.odpadSirky, L"");
    }
    // 420 x 420 doesn't go on the printer: the 420 roll fits both ways without waste.
    const TextyTisku t = Tisk(420, 420);
    EXPECT_EQ(t.vyska, L"Na výšku: ROLE 420 cm");
    EXPECT_EQ(t.odpadVysky, L"nevyužito: 0 cm2");
    EXPECT_EQ(t.sirka, L"Na šířku: ROLE 420 cm");
    EXPECT_EQ(t.odpadSirky, L"nevyužito: 0 cm2");
}

TEST(FormatVykresu, RoleAOdpad)
{
    TextyTisku t = Tisk(594, 420);
    EXPECT_EQ(t.vyska, L"Na výšku: ROLE 420 cm");
    EXPECT_EQ(t.sirka, L"Na šířku: ROLE 594 cm");
    EXPECT_EQ(t.odpadSirky, L"nevyužito: 0 cm2");
    // The waste is the unused strip of the roll times the other side, in whole cm2.
    t = Tisk(1000, 600);
    EXPECT_EQ(t.vyska, L"Na výšku: ROLE 841 cm");
    EXPECT_EQ(t.odpadVysky, L"nevyužito: 2410 cm2");
    EXPECT_EQ(t.sirka, L"Na šířku: NELZE");
    EXPECT_EQ(t.odpadSirky, L"");
    t = Tisk(700, 300);
    EXPECT_EQ(t.odpadVysky, L"nevyužito: 840 cm2");  // (420 - 300) * 700 / 100
    EXPECT_EQ(t.odpadSirky, L"nevyužito: 423 cm2");  // (841 - 700) * 300 / 100
    t = Tisk(215, 431);
    EXPECT_EQ(t.odpadVysky, L"nevyužito: 350 cm2");  // 163 * 215 / 100 = 350.45, cut
    t = Tisk(300, 1000);
    EXPECT_EQ(t.vyska, L"Na výšku: NELZE");
    EXPECT_EQ(t.odpadVysky, L"");
}

TEST(FormatVykresu, Pravidlo914)
{
    int h = 1000;
    EXPECT_TRUE(OmezVysku(1000, h));
    EXPECT_EQ(h, 914);
    EXPECT_EQ(Tisk(1000, h).odpadVysky, L"nevyužito: 0 cm2");
    h = 915;
    EXPECT_FALSE(OmezVysku(914, h));
    EXPECT_EQ(h, 915);
    h = 914;
    EXPECT_FALSE(OmezVysku(4200, h));
    EXPECT_EQ(TextA4(841 / 210.0), L"A4: 4.0");
    EXPECT_EQ(TextA4(500 / 297.0), L"A4: 1.7");
}
