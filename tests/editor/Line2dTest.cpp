// The plane's infinite line and segment: nearest points, on-line tests, intersections and the
// parallel and collinear tests under a tolerance.
#include <gtest/gtest.h>

#include "geline2d.h"

TEST(Line2d, NearestPointAndOnTestOfLineAndSegment)
{
    AcGeLine2d line(AcGePoint2d(0, 0), AcGePoint2d(10, 0));
    EXPECT_EQ(line.closestPointTo(AcGePoint2d(25, 3)), AcGePoint2d(25, 0)) << "the infinite line runs on";
    EXPECT_TRUE(line.isOn(AcGePoint2d(-40, 0)));
    EXPECT_FALSE(line.isOn(AcGePoint2d(5, 0.001)));
    AcGeTol loose;
    loose.setEqualPoint(0.01);
    EXPECT_TRUE(line.isOn(AcGePoint2d(5, 0.001), loose));

    AcGeLineSeg2d seg(AcGePoint2d(0, 0), AcGePoint2d(10, 0));
    EXPECT_EQ(seg.closestPointTo(AcGePoint2d(25, 3)), AcGePoint2d(10, 0)) << "the segment stops at its end";
    EXPECT_FALSE(seg.isOn(AcGePoint2d(-40, 0)));
    EXPECT_DOUBLE_EQ(seg.length(), 10.0);
    EXPECT_EQ(seg.midPoint(), AcGePoint2d(5, 0));
    EXPECT_EQ(AcGeLine2d(AcGePoint2d(1, 1), AcGeVector2d(0, 7)).direction(), AcGeVector2d(0, 1));
}

TEST(Line2d, IntersectionsOfLinesAndSegments)
{
    AcGeLine2d a(AcGePoint2d(0, 0), AcGePoint2d(1, 1));
    AcGeLine2d b(AcGePoint2d(0, 10), AcGeVector2d(1, -1));
    AcGePoint2d p(-1, -1);
    ASSERT_TRUE(a.intersectWith(b, p));
    EXPECT_TRUE(p.isEqualTo(AcGePoint2d(5, 5)));

    AcGePoint2d untouched(7, 7);
    AcGeLine2d parallel(AcGePoint2d(0, 1), AcGePoint2d(1, 2));
    EXPECT_FALSE(a.intersectWith(parallel, untouched));
    EXPECT_EQ(untouched, AcGePoint2d(7, 7)) << "no intersection leaves the point as it was";

    AcGeLineSeg2d shortSeg(AcGePoint2d(0, 10), AcGePoint2d(1, 9));
    EXPECT_FALSE(a.intersectWith(shortSeg, untouched)) << "the crossing lies beyond the segment";
    EXPECT_TRUE(a.intersectWith(AcGeLineSeg2d(AcGePoint2d(0, 10), AcGePoint2d(6, 4)), untouched));
}

TEST(Line2d, ParallelAndCollinearUnderATolerance)
{
    AcGeLine2d a(AcGePoint2d(0, 0), AcGePoint2d(100, 0));
    AcGeLine2d shifted(AcGePoint2d(0, 10), AcGePoint2d(100, 10));
    AcGeLine2d reversed(AcGePoint2d(300, 0), AcGePoint2d(200, 0));
    EXPECT_TRUE(a.isParallelTo(shifted));
    EXPECT_FALSE(a.isColinearTo(shifted));
    EXPECT_TRUE(a.isColinearTo(reversed)) << "direction does not matter";
    AcGeTol mm20;
    mm20.setEqualPoint(20);
    mm20.setEqualVector(20);
    EXPECT_TRUE(a.isColinearTo(shifted, mm20)) << "within 20 units of each other";
    EXPECT_FALSE(a.isColinearTo(AcGeLine2d(AcGePoint2d(0, 30), AcGePoint2d(1, 30)), mm20));
    EXPECT_TRUE(a.isPerpendicularTo(AcGeLine2d(AcGePoint2d(5, 5), AcGeVector2d(0, -3))));
}
