// The side of a composed multileader's text: the first arrow point alone decides, and a text at the
// arrow's X counts as left of it.
#include <gtest/gtest.h>

#include "_Utility/StranaOdkazu.h"

TEST(StranaOdkazu, TextVpravoVisiZaLevouStranu)
{
    const StranaOdkazu s = UrciStranuOdkazu(AcGePoint3d(100, 50, 0), AcGePoint3d(20, 80, 0));
    EXPECT_EQ(s.zarovnani, AcMLeaderStyle::kLeftAlignment);
    EXPECT_EQ(s.pripojeni, AcDbMText::kMiddleLeft);
    EXPECT_EQ(s.smerOdkazu, AcMLeaderStyle::kLeftLeader);
    EXPECT_EQ(s.smer, AcGeVector3d(1, 0, 0));
}

TEST(StranaOdkazu, TextNaXSipkyNeboVlevoVisiZaPravou)
{
    for (double x : {20.0, -5.0}) {
        const StranaOdkazu s = UrciStranuOdkazu(AcGePoint3d(x, 50, 0), AcGePoint3d(20, 10, 0));
        EXPECT_EQ(s.zarovnani, AcMLeaderStyle::kRightAlignment) << x;
        EXPECT_EQ(s.pripojeni, AcDbMText::kMiddleRight);
        EXPECT_EQ(s.smerOdkazu, AcMLeaderStyle::kRightLeader);
        EXPECT_EQ(s.smer, AcGeVector3d(-1, 0, 0));
    }
}
