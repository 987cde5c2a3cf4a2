// The bundle's geometry: the guide shift, corners by intersection, collinear sections and the checks
// that refuse a corner that would turn a section round.
#include <gtest/gtest.h>

#include "_Utility/MultiTrubkyGeometrie.h"

using namespace MultiTrubkyGeometrie;

namespace {

AcGePoint2d Zacatek(const Vedeni& v, int i, double roztec)
{
    AcGePoint2d a, b;
    CaraTrubky(v, i, roztec, a, b);
    return a;
}

} // namespace

TEST(PosunVedeni, WhichPipeRunsOnThePickedPoints)
{
    // From left to right the bundle lies above the points: pipe 0 at the bottom.
    auto v = PosunVedeni({0, 0}, {1000, 0}, kSpodni, 3, 100.0);
    ASSERT_TRUE(v);
    EXPECT_TRUE(Zacatek(*v, 0, 100).isEqualTo({0, 0}));
    EXPECT_TRUE(Zacatek(*v, 1, 100).isEqualTo({0, 100}));
    EXPECT_TRUE(Zacatek(*v, 2, 100).isEqualTo({0, 200}));
    v = PosunVedeni({0, 0}, {1000, 0}, kHorni, 3, 100.0);
    EXPECT_TRUE(Zacatek(*v, 2, 100).isEqualTo({0, 0}));
    EXPECT_TRUE(Zacatek(*v, 0, 100).isEqualTo({0, -200}));
    v = PosunVedeni({0, 0}, {1000, 0}, kStred, 3, 100.0);
    EXPECT_TRUE(Zacatek(*v, 1, 100).isEqualTo({0, 0}));
    // Drawn from right to left the bundle lies below.
    v = PosunVedeni({1000, 0}, {0, 0}, kSpodni, 2, 50.0);
    EXPECT_TRUE(Zacatek(*v, 1, 50).isEqualTo({1000, -50}));
    EXPECT_FALSE(PosunVedeni({5, 5}, {5, 5}, kSpodni, 2, 50.0));
}

TEST(Roh, RightAngleCutsEachPipeAtItsOwnCorner)
{
    const auto prvni = *PosunVedeni({0, 0}, {1000, 0}, kSpodni, 3, 100.0);
    const auto druhy = *PosunVedeni({1000, 0}, {1000, 1000}, kSpodni, 3, 100.0);
    const AcGePoint2d ocekavane[] = {{1000, 0}, {900, 100}, {800, 200}};
    for (int i = 0; i < 3; ++i) {
        AcGePoint2d a, b, pa, pb;
        CaraTrubky(druhy, i, 100, a, b);
        CaraTrubky(prvni, i, 100, pa, pb);
        const auto roh = Roh(a, b, pa, pb, false);
        ASSERT_TRUE(roh);
        EXPECT_NEAR(roh->distanceTo(ocekavane[i]), 0.0, 1e-9) << "pipe " << i;
        EXPECT_EQ(ZkontrolujNapojeni(*roh, b, {0, 1}, pa, {1, 0}), Napojeni::kDobre);
    }
    // Parallel sections join at the line's own start; crossing lines that are parallel don't cross.
    EXPECT_TRUE(Roh({5, 5}, {9, 5}, {0, 0}, {4, 0}, true)->isEqualTo({5, 5}));
    EXPECT_FALSE(Roh({5, 5}, {9, 5}, {0, 0}, {4, 0}, false));
}

TEST(ZkontrolujNapojeni, ShortSectionsAreRefused)
{
    // A new section of 150 up from (1000, 0): the outer pipe 300 to the right has its corner at y -300
    // and still runs up; a pipe whose corner lies past the new end would run backwards.
    EXPECT_EQ(ZkontrolujNapojeni({1300, -300}, {1300, 150}, {0, 1}, {0, -300}, {1, 0}), Napojeni::kDobre);
    EXPECT_EQ(ZkontrolujNapojeni({1000, 400}, {1000, 150}, {0, 1}, {0, 0}, {1, 0}), Napojeni::kNovyKratky);
    // A corner behind the start of the previous line.
    EXPECT_EQ(ZkontrolujNapojeni({-50, 0}, {-50, 500}, {0, 1}, {0, 0}, {1, 0}), Napojeni::kPredchoziKratky);
    // A corner on the new end leaves the new line no length.
    EXPECT_EQ(ZkontrolujNapojeni({1000, 150}, {1000, 150}, {0, 1}, {0, 0}, {1, 0}), Napojeni::kNovyKratky);
}

TEST(NaJednePrimce, WithinTheToleranceOfEachOthersLine)
{
    EXPECT_TRUE(NaJednePrimce({0, 0}, {1000, 0}, {1000, 0}, {2000, 0}, 20));
    EXPECT_TRUE(NaJednePrimce({0, 0}, {1000, 0}, {1500, 10}, {2500, 10}, 20));
    EXPECT_FALSE(NaJednePrimce({0, 0}, {1000, 0}, {1500, 25}, {2500, 25}, 20));
    // Two sections meeting at a corner are not on one line, however short the tolerance makes them.
    EXPECT_FALSE(NaJednePrimce({0, 0}, {1000, 0}, {1000, 0}, {1000, 1000}, 20));
    // A slight kink beyond the tolerance over the length.
    EXPECT_FALSE(NaJednePrimce({0, 0}, {1000, 0}, {1000, 0}, {2000, 30}, 20));
    EXPECT_TRUE(Souhlasne({2, 0}, {7, 0}));
    EXPECT_FALSE(Souhlasne({2, 0}, {-7, 0}));
    EXPECT_FALSE(Souhlasne({0, 0}, {1, 0}));
}
