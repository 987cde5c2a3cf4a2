// The grouping of collinear lines and the extent of a group.
#include <gtest/gtest.h>

#include "_Utility/CTogSpojUsecky.h"

namespace {

UsekaSpoje Useka(AcGePoint2d a, AcGePoint2d b, double tol = 20.0)
{
    UsekaSpoje u;
    u.primka = AcGeLine2d(a, b);
    u.zacatek = a;
    u.konec = b;
    u.tolerance.setEqualPoint(tol);
    u.tolerance.setEqualVector(tol);
    return u;
}

} // namespace

TEST(SeskupKolinearni, GapsSideBySideAndCorners)
{
    const std::vector<UsekaSpoje> usecky{
        Useka({0, 0}, {1000, 0}),       // 0
        Useka({0, 0}, {0, 1000}),       // 1: a corner with 0, not on its line
        Useka({2000, 10}, {3000, 10}),  // 2: a metre on, 10 mm aside: joins 0
        Useka({500, 25}, {1500, 25}),   // 3: 25 mm aside: apart
        Useka({0, 2000}, {0, 3000}),    // 4: joins 1 across the gap
        Useka({4000, 0}, {3000, 0}),    // 5: the other way round: joins 0
    };
    const auto skupiny = SeskupKolinearni(usecky);
    ASSERT_EQ(skupiny.size(), 2u);
    EXPECT_EQ(skupiny.at(0), (std::vector<int>{0, 2, 5}));
    EXPECT_EQ(skupiny.at(1), (std::vector<int>{1, 4}));
    // Nothing on one line: no group.
    EXPECT_TRUE(SeskupKolinearni({Useka({0, 0}, {10, 0}), Useka({0, 100}, {10, 200})}).empty());
}

TEST(KrajniBody, TheWholeExtentOverlapsIncluded)
{
    const std::vector<UsekaSpoje> usecky{Useka({0, 0}, {1000, 0}), Useka({500, 0}, {1500, 0}), Useka({1510, 0}, {1200, 0})};
    const auto [a, b] = KrajniBody(usecky, {0, 1, 2});
    EXPECT_TRUE(a.isEqualTo({0, 0}));
    EXPECT_TRUE(b.isEqualTo({1500, 0}));
}
