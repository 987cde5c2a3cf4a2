// The input checks and filters of the validated edits: where the patterns could go wrong.
#include <gtest/gtest.h>

#include "KontrolyVstupu.h"

TEST(KontrolyVstupu, PredponaMaDvaAzTriZnakyPismenCiCislic)
{
    EXPECT_TRUE(JePredpona(L"AB"));
    EXPECT_TRUE(JePredpona(L"A1C"));
    EXPECT_TRUE(JePredpona(L"ŽČ"));  // Czech letters are letters
    EXPECT_FALSE(JePredpona(L"A"));
    EXPECT_FALSE(JePredpona(L"ABCD"));
    EXPECT_FALSE(JePredpona(L"A-"));
    EXPECT_FALSE(JePredpona(L"A B"));
    EXPECT_FALSE(JePredpona(L""));
    EXPECT_FALSE(JePredpona(nullptr));
    EXPECT_TRUE(JePismenoCislice(L"a_1"));
    EXPECT_FALSE(JePismenoCislice(L"a.1"));
}

TEST(KontrolyVstupu, DesetinneCisloBehemPsaniANaKonci)
{
    // A number that ends in a point passes the key check and fails the final one.
    EXPECT_TRUE(JeCastDesetinneho(L"12."));
    EXPECT_FALSE(JeDesetinne(L"12."));
    // One that begins with a point passes both, with or without a sign.
    for (const wchar_t* t : {L".5", L"-.5", L"+.5"}) {
        EXPECT_TRUE(JeCastDesetinneho(t)) << t;
        EXPECT_TRUE(JeDesetinne(t)) << t;
    }
    // A lone sign may stand while typing only.
    EXPECT_TRUE(JeCastDesetinneho(L"-"));
    EXPECT_FALSE(JeDesetinne(L"-"));
    EXPECT_FALSE(JeCastDesetinneho(L"1.2.3"));
    EXPECT_FALSE(JeCastDesetinneho(L"1,5"));
    EXPECT_FALSE(JeDesetinne(L"1e5"));
    EXPECT_FALSE(JeCastDesetinneho(L""));  // the empty text is false everywhere
}

TEST(KontrolyVstupu, CeleCislo)
{
    EXPECT_TRUE(JeCastCeleho(L"+"));
    EXPECT_FALSE(JeCele(L"+"));
    EXPECT_TRUE(JeCele(L"-42"));
    EXPECT_FALSE(JeCele(L"4.2"));
    EXPECT_FALSE(JeCastCeleho(L"4a"));
}

TEST(KontrolyVstupu, NazevSouboruAEmail)
{
    EXPECT_FALSE(JeNazevSouboru(L".skryty"));
    EXPECT_FALSE(JeNazevSouboru(L" mezera"));
    EXPECT_FALSE(JeNazevSouboru(L"hvězda*"));
    EXPECT_FALSE(JeNazevSouboru(L"a\\b"));
    EXPECT_FALSE(JeNazevSouboru(L"a:b"));
    EXPECT_TRUE(JeNazevSouboru(L"potrubí 2026.tgp"));
    EXPECT_TRUE(JeEmail(L"jan.novak@firma.cz"));
    EXPECT_FALSE(JeEmail(L"jan.novak@firma"));
    EXPECT_FALSE(JeEmail(L"@firma.cz"));
}

TEST(KontrolyVstupu, Filtry)
{
    EXPECT_EQ(NaVelkePismeno(L'a'), L'A');
    EXPECT_EQ(NaVelkePismeno(L'č'), L'Č');
    EXPECT_EQ(NaVelkePismeno(L'1'), L'1');
    EXPECT_EQ(CarkaNaTecku(L','), L'.');
    EXPECT_EQ(CarkaNaTecku(L'5'), L'5');
}
