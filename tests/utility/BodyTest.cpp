// Surveyed points: the lines of a point file, the parser of both forms, and the WGS-84 to S-JTSK
// conversion against a table of the transformation's values.
#include <gtest/gtest.h>

#include <stdexcept>

#include "_Utility/BodGPS.h"
#include "_Utility/Wgs84NaJtsk.h"

TEST(Wgs84NaJtsk, TabulkaBodu)
{
    // Latitude, longitude and X, Y of an independent transcription of the transformation (200 m).
    struct Radek {
        double sirka, delka, x, y;
    } tabulka[] = {
        {50.0755, 14.4378, 1044492.5633, 741817.7914}, // Praha
        {49.1951, 16.6068, 1160744.7105, 598248.7835}, // Brno
        {49.8209, 18.2625, 1103062.8856, 472181.9545}, // Ostrava
        {50.0796, 12.3739, 1021915.5650, 887800.1418}, // Cheb
        {50.7359, 15.7397, 983433.0226, 640659.8336},  // Sněžka
        {48.9745, 14.4743, 1166161.1424, 755834.4376}, // České Budějovice
    };
    for (const Radek& r : tabulka) {
        BodJtsk b = Wgs84NaJtsk(r.sirka, r.delka, 200.0);
        EXPECT_NEAR(b.x, r.x, 0.001) << r.sirka;
        EXPECT_NEAR(b.y, r.y, 0.001) << r.sirka;
    }
    // The height moves the point only a little: the ellipsoids lie nearly parallel.
    BodJtsk nizko = Wgs84NaJtsk(50.0755, 14.4378, 0.0);
    EXPECT_NEAR(nizko.x, 1044492.5633, 0.05);
    EXPECT_NE(nizko.x, 1044492.5633);
}

TEST(RadkyBodu, PrvniTriBajtyAPosledniRadekBezKonce)
{
    EXPECT_EQ(RadkyBodu("\xef\xbb\xbf" "1;2\n3;4\n"), (std::vector<std::wstring>{L"1;2", L"3;4"}));
    EXPECT_EQ(RadkyBodu("\xef\xbb\xbf" "1;2\n3;4"), (std::vector<std::wstring>{L"1;2"}));
    // Without a byte order mark the first field loses its start.
    EXPECT_EQ(RadkyBodu("1234;5\n"), (std::vector<std::wstring>{L"4;5"}));
    EXPECT_TRUE(RadkyBodu("").empty());
    EXPECT_TRUE(RadkyBodu("\xef\xbb\xbf").empty());
}

TEST(RozeberRadek, FormaWgs84)
{
    BodGPS b = RozeberRadek(L"0;12;50,0755;14.4378;245,5;navic", kFormaWgs84);
    EXPECT_EQ(b.nazev, L"Š12");
    EXPECT_DOUBLE_EQ(b.sirka, 50.0755);
    EXPECT_DOUBLE_EQ(b.vyska, 245.5);
    EXPECT_NEAR(b.x, 1044492.5633, 0.001);
    EXPECT_NEAR(b.y, 741817.7914, 0.001);
    EXPECT_EQ(RozeberRadek(L"2;7;50;14;1", kFormaWgs84).nazev, L"P7");
    // Three fields only: the longitude and the height stay zero and the conversion still runs.
    BodGPS kratky = RozeberRadek(L"1;3;50", kFormaWgs84);
    EXPECT_EQ(kratky.nazev, L"V3");
    EXPECT_DOUBLE_EQ(kratky.delka, 0.0);
    EXPECT_GT(kratky.x, 0.0);
}

TEST(RozeberRadek, FormaJtskAChybnaCisla)
{
    BodGPS b = RozeberRadek(L"17;1044492,56;741817.79;231,2;poznamka", kFormaJtsk);
    EXPECT_EQ(b.nazev, L"17");
    EXPECT_EQ(b.druh, 17);
    EXPECT_DOUBLE_EQ(b.x, 1044492.56);
    EXPECT_DOUBLE_EQ(b.y, 741817.79);
    EXPECT_DOUBLE_EQ(b.vyska, 231.2);
    try {
        RozeberRadek(L"1;padesat;2;3", kFormaJtsk);
        FAIL();
    } catch (const std::invalid_argument& e) {
        EXPECT_STREQ(e.what(), "invalid stod argument");
    }
    try {
        RozeberRadek(L"1;1e999;2;3", kFormaJtsk);
        FAIL();
    } catch (const std::out_of_range& e) {
        EXPECT_STREQ(e.what(), "stod argument out of range");
    }
}
