// The points of a pipe dimension, its horizontal rotation in a turned UCS and the typed answers.
#include <gtest/gtest.h>

#include <cmath>

#include "CTogException.h"
#include "KotyGeometrie.h"

using namespace KotyGeometrie;

namespace {

void OcekavejBod(const AcGePoint2d& skutecny, double x, double y)
{
    EXPECT_NEAR(skutecny.x, x, 1e-9);
    EXPECT_NEAR(skutecny.y, y, 1e-9);
}

} // namespace

TEST(KotyGeometrie, OneLineStubGoesToTheSideOfThePick)
{
    // The axis from left to right; a pick above puts the stub above, one below puts it below.
    auto nad = JednaCara({0, 0}, {1000, 0}, {400, 3}, {420, 300}, 7.0, 1.5, 20.0);
    ASSERT_TRUE(nad);
    OcekavejBod(nad->p1, 400, 0);
    OcekavejBod(nad->p2, 400, 1.5);
    OcekavejBod(nad->text, 400, 8.5);
    auto pod = JednaCara({0, 0}, {1000, 0}, {400, 0}, {100, -300}, 7.0, 1.5, 20.0);
    ASSERT_TRUE(pod);
    OcekavejBod(pod->p2, 400, -1.5);
    // The line drawn the other way round keeps the side of the pick.
    auto obracene = JednaCara({1000, 0}, {0, 0}, {400, 0}, {100, -300}, 7.0, 1.5, 20.0);
    ASSERT_TRUE(obracene);
    OcekavejBod(obracene->p2, 400, -1.5);
    // A slanted axis: the stub stands square to it.
    auto sikmo = JednaCara({0, 0}, {100, 100}, {50, 50}, {0, 100}, 0.0, std::sqrt(2.0), 0.02);
    ASSERT_TRUE(sikmo);
    OcekavejBod(sikmo->p2, 49, 51);
}

TEST(KotyGeometrie, SidePointWithinToleranceOfTheAxisGivesNoSide)
{
    // 20 mm in a millimetre drawing: 19 mm off the axis (also beyond its ends) is on it, 21 mm is not.
    EXPECT_FALSE(JednaCara({0, 0}, {1000, 0}, {500, 0}, {700, 19}, 7, 1.5, 20.0));
    EXPECT_FALSE(JednaCara({0, 0}, {1000, 0}, {500, 0}, {3000, -19}, 7, 1.5, 20.0));
    EXPECT_TRUE(JednaCara({0, 0}, {1000, 0}, {500, 0}, {700, 21}, 7, 1.5, 20.0));
    // In metres the tolerance is 0.02: 0.05 m off the axis gives a side.
    EXPECT_TRUE(JednaCara({0, 0}, {10, 0}, {5, 0}, {5, 0.05}, 0.007, 0.0015, 0.02));
}

TEST(KotyGeometrie, TwoLinesSpanThePipeAndPutTheTextBeyondTheSecond)
{
    auto body = DveCary({0, 0}, {1000, 0}, {500, 2}, {1000, 100}, {0, 100}, {510, 98}, 7.0, 20.0);
    ASSERT_TRUE(body);
    OcekavejBod(body->p1, 500, 0);
    OcekavejBod(body->p2, 510, 100);
    const AcGeVector2d u = (body->p2 - body->p1).normal();
    OcekavejBod(body->text, 510 + 7 * u.x, 100 + 7 * u.y);
    // Picked from the upper wall down: the text stands below the lower wall.
    auto dolu = DveCary({0, 100}, {1000, 100}, {500, 100}, {0, 0}, {1000, 0}, {500, 0}, 7.0, 20.0);
    ASSERT_TRUE(dolu);
    OcekavejBod(dolu->text, 500, -7);
    // The same line twice spans nothing.
    EXPECT_FALSE(DveCary({0, 0}, {1000, 0}, {500, 0}, {0, 0}, {1000, 0}, {505, 0}, 7.0, 20.0));
}

TEST(KotyGeometrie, LineShorterThanTheToleranceHasNoLength)
{
    EXPECT_THROW(NejblizsiNaPrimce({0, 0}, {15, 0}, {5, 5}, 20.0), CTogException);
    EXPECT_THROW(JednaCara({0, 0}, {0, 0.01}, {0, 0}, {5, 5}, 0.007, 0.0015, 0.02), CTogException);
    OcekavejBod(NejblizsiNaPrimce({0, 0}, {25, 0}, {40, 5}, 20.0), 40, 0);
}

TEST(KotyGeometrie, HorizontalRotationTurnsBackTheUcs)
{
    const double u = 30.0 * M_PI / 180.0;
    const AcGeVector3d x(std::cos(u), std::sin(u), 0.0);
    EXPECT_NEAR(VodorovneOtoceni(x, AcGeVector3d::kZAxis, OsaXEntity(AcGeVector3d::kZAxis)), -u, 1e-12);
    EXPECT_NEAR(VodorovneOtoceni(AcGeVector3d::kXAxis, AcGeVector3d::kZAxis, OsaXEntity(AcGeVector3d::kZAxis)), 0.0,
                1e-12);
    // The arbitrary axis rule: a normal along -Z turns the entity's X axis round.
    const AcGeVector3d osa = OsaXEntity(-AcGeVector3d::kZAxis);
    EXPECT_NEAR(osa.x, -1.0, 1e-12);
    EXPECT_NEAR(osa.y, 0.0, 1e-12);
}

TEST(KotyGeometrie, OnlyDigitsMakeADiameterAndTwoLinesCountTwoPipes)
{
    EXPECT_TRUE(JenCislice(L"100"));
    EXPECT_FALSE(JenCislice(L" 100"));
    EXPECT_FALSE(JenCislice(L"DN100"));
    EXPECT_FALSE(JenCislice(L"10.5"));
    EXPECT_FALSE(JenCislice(L""));
    EXPECT_EQ(TextKoty(L"50x4.6", true), L"2x 50x4.6");
    EXPECT_EQ(TextKoty(L"50x4.6", false), L"50x4.6");
}
