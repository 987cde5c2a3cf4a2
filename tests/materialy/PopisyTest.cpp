// Labels of profiles and the dimensions of new profiles: pure computations.
#include <gtest/gtest.h>

#include <cwchar>
#include <string>

#include "PopisProfilu.h"
#include "TabulkyMaterialu.h"

namespace {

struct Popisy {
    bool ok;
    std::wstring popisek, kratky;
};

Popisy Vytvor(const NastaveniPopisu& n, int dn, float vnitrni, float stena)
{
    ACHAR popisek[kDelkaPopisku];
    ACHAR kratky[kDelkaPopiskuKratky];
    bool ok = VytvorPopisy(n, dn, vnitrni, stena, popisek, kratky);
    return {ok, ok ? popisek : L"", ok ? kratky : L""};
}

} // namespace

TEST(Tabulky, LabelsFindTheirRows)
{
    EXPECT_EQ(IndexDN(L"DN 250"), 16);
    EXPECT_EQ(IndexDN(L"DN 70"), -1);
    EXPECT_EQ(IndexSDr(L"SDr 7.4"), 2);
    EXPECT_EQ(IndexPN(L"---"), 0);
    EXPECT_EQ(IndexPN(nullptr), -1);
}

TEST(Popisy, ModeDnNamesTheTableRowWhateverTheDimensions)
{
    NastaveniPopisu n{kPopisDN};
    Popisy p = Vytvor(n, 19, 400.0f, 5.0f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.popisek, L"DN 400");
    EXPECT_EQ(p.kratky, L"400");
    EXPECT_EQ(Vytvor(n, 11, 97.0f, 9.0f).popisek, L"DN 100");
}

TEST(Popisy, ModeDxtShowsOuterDiameterAndWall)
{
    NastaveniPopisu n{kPopisDxT};
    Popisy p = Vytvor(n, 11, 110.0f - 2 * (110.0f / 7.2f), 110.0f / 7.2f);
    ASSERT_TRUE(p.ok);
    EXPECT_EQ(p.popisek, L"110x15.3");
    EXPECT_EQ(p.kratky, L"d110");
}

TEST(Popisy, UserFormatTakesInnerOrOuterDiameter)
{
    NastaveniPopisu n{kPopisJiny, L"DN", L" mm", false};
    EXPECT_EQ(Vytvor(n, 11, 100.0f, 5.0f).popisek, L"DN110 mm");
    n.vnitrniPrumer = true;
    EXPECT_EQ(Vytvor(n, 11, 100.0f, 5.0f).popisek, L"DN100 mm");
    EXPECT_EQ(Vytvor(n, 11, 100.0f, 5.0f).kratky, L"d110");
}

TEST(Popisy, ALabelThatDoesNotFitFails)
{
    NastaveniPopisu n{kPopisJiny, L"ABCDEF", L"GHIJKL", false};
    EXPECT_TRUE(Vytvor(n, 0, 4.0f, 3.0f).ok);    // "ABCDEF10GHIJKL": 14
    EXPECT_FALSE(Vytvor(n, 11, 100.0f, 5.0f).ok); // 15 characters
    // The short label holds five characters: d + four digits is too long.
    EXPECT_FALSE(Vytvor(NastaveniPopisu{kPopisDxT}, 27, 10000.0f, 10.0f).ok);
}

TEST(RozmeryNovehoProfilu, DefaultWallChangesAtDn400)
{
    RozmeryProfilu r18 = RozmeryNovehoProfilu(kPopisDN, 0, 18);
    RozmeryProfilu r19 = RozmeryNovehoProfilu(kPopisDN, 0, 19);
    EXPECT_EQ(r18.stena, 3.0f);
    EXPECT_EQ(r18.vnitrni, 350.0f);
    EXPECT_EQ(r19.stena, 5.0f);
    EXPECT_EQ(VnejsiPrumer(r19.vnitrni, r19.stena), 410.0f);
}

TEST(RozmeryNovehoProfilu, SeriesWithAndWithoutSdr)
{
    RozmeryProfilu bezSdr = RozmeryNovehoProfilu(kPopisDxT, 0, 8);
    EXPECT_EQ(bezSdr.stena, 3.0f);
    EXPECT_EQ(bezSdr.vnitrni, 57.0f);
    RozmeryProfilu sdr11 = RozmeryNovehoProfilu(kPopisJiny, 4, 8);
    EXPECT_FLOAT_EQ(sdr11.stena, 63.0f / 11.0f);
    EXPECT_FLOAT_EQ(VnejsiPrumer(sdr11.vnitrni, sdr11.stena), 63.0f);
    // A material whose SDr class was never set takes the default wall.
    EXPECT_EQ(RozmeryNovehoProfilu(kPopisDxT, -1, 8).stena, 3.0f);
}
