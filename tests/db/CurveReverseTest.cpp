// Curves turned round: the same points, run from the other end; ellipses by their normal, splines by
// their mirrored knots (also rational ones).
#include <gtest/gtest.h>

#include <cmath>

#include "dbelipse.h"
#include "dbspline.h"

namespace {

void ExpectNear(const AcGePoint3d& a, const AcGePoint3d& b)
{
    EXPECT_NEAR(a.x, b.x, 1e-9);
    EXPECT_NEAR(a.y, b.y, 1e-9);
    EXPECT_NEAR(a.z, b.z, 1e-9);
}

} // namespace

TEST(CurveReverse, EllipseArcRunsBackThroughTheSamePoints)
{
    AcDbEllipse e(AcGePoint3d(5, 5, 0), AcGeVector3d::kZAxis, AcGeVector3d(4, 0, 0), 0.5, 0.3, 2.5);
    AcGePoint3d start, end, mid;
    e.getStartPoint(start);
    e.getEndPoint(end);
    e.getPointAtParam(1.4, mid);
    ASSERT_EQ(e.reverseCurve(), Acad::eOk);
    AcGePoint3d s2, e2, m2;
    e.getStartPoint(s2);
    e.getEndPoint(e2);
    ExpectNear(s2, end);
    ExpectNear(e2, start);
    double p0 = 0, p1 = 0;
    e.getStartParam(p0);
    e.getEndParam(p1);
    // The middle of the old run is the middle of the new one.
    e.getPointAtParam((p0 + p1) / 2, m2);
    ExpectNear(m2, mid);
    // A whole ellipse stays whole.
    AcDbEllipse cela(AcGePoint3d(), AcGeVector3d::kZAxis, AcGeVector3d(2, 0, 0), 1.0);
    cela.reverseCurve();
    EXPECT_TRUE(cela.isClosed());
}

TEST(CurveReverse, SplineKeepsItsPointsWithMirroredParameters)
{
    AcGePoint3dArray pts;
    for (AcGePoint3d p : {AcGePoint3d(0, 0, 0), AcGePoint3d(1, 3, 0), AcGePoint3d(4, 3, 1), AcGePoint3d(6, 0, 0),
                          AcGePoint3d(8, 1, 0)})
        pts.append(p);
    AcGeDoubleArray knots, weights;
    for (double k : {0.0, 0.0, 0.0, 0.0, 1.0, 3.0, 3.0, 3.0, 3.0})
        knots.append(k);
    for (double w : {1.0, 2.0, 0.5, 1.0, 1.0})
        weights.append(w);
    AcDbSpline s;
    ASSERT_EQ(s.setNurbsData(3, true, false, false, pts, knots, weights), Acad::eOk);
    AcGePoint3d before[4];
    const double params[4] = {0.0, 0.7, 2.2, 3.0};
    for (int i = 0; i < 4; ++i)
        s.getPointAtParam(params[i], before[i]);
    ExpectNear(before[0], pts[0]);
    ExpectNear(before[3], pts[4]);
    ASSERT_EQ(s.reverseCurve(), Acad::eOk);
    for (int i = 0; i < 4; ++i) {
        AcGePoint3d after;
        ASSERT_EQ(s.getPointAtParam(3.0 - params[i], after), Acad::eOk);
        ExpectNear(after, before[i]);
    }
    EXPECT_DOUBLE_EQ(s.weightAt(1), 1.0);
    EXPECT_DOUBLE_EQ(s.weightAt(3), 2.0);
    // Counts that don't agree are refused.
    knots.removeAt(0);
    EXPECT_EQ(s.setNurbsData(3, false, false, false, pts, knots, AcGeDoubleArray()), Acad::eInvalidInput);
}
