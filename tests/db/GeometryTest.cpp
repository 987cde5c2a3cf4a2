// Curves and colours: parameters, nearest points and offsets of lines, arcs and polylines with bulges;
// mirrored arcs; index colours and unit conversion.
#include <cmath>

#include "DbFixture.h"

namespace {
const AcGeTol kTol = [] {
    AcGeTol t;
    t.setEqualPoint(1e-9);
    return t;
}();

/// An open polyline (0,0) -> (10,0) -> half circle up to (10,10) -> (0,10).
AcDbPolyline* hook()
{
    auto* pl = new AcDbPolyline;
    pl->addVertexAt(0, AcGePoint2d(0, 0));
    pl->addVertexAt(1, AcGePoint2d(10, 0), 1.0);
    pl->addVertexAt(2, AcGePoint2d(10, 10));
    pl->addVertexAt(3, AcGePoint2d(0, 10));
    return pl;
}
} // namespace

TEST(Curves, PolylineParametersFollowSegmentsAndArcs)
{
    std::unique_ptr<AcDbPolyline> pl(hook());
    double end = 0;
    pl->getEndParam(end);
    EXPECT_EQ(end, 3.0);
    AcGePoint3d p;
    ASSERT_EQ(pl->getPointAtParam(1.5, p), Acad::eOk);
    EXPECT_TRUE(p.isEqualTo(AcGePoint3d(15, 5, 0), kTol)); // top of the bulge
    double dist = 0;
    pl->getDistAtParam(2.0, dist);
    EXPECT_NEAR(dist, 10 + 5 * M_PI, 1e-9);
    double param = 0;
    ASSERT_EQ(pl->getParamAtPoint(AcGePoint3d(5, 10, 0), param), Acad::eOk);
    EXPECT_NEAR(param, 2.5, 1e-12);
    EXPECT_EQ(pl->getParamAtPoint(AcGePoint3d(5, 5, 0), param), Acad::eInvalidInput);
    AcGePoint3d q;
    pl->getClosestPointTo(AcGePoint3d(20, 5, 0), q);
    EXPECT_TRUE(q.isEqualTo(AcGePoint3d(15, 5, 0), kTol));
    AcGeVector3d d;
    pl->getFirstDeriv(1.5, d);
    EXPECT_TRUE(d.normal().isEqualTo(AcGeVector3d(0, 1, 0), kTol));
    EXPECT_NEAR(d.length(), 5 * M_PI, 1e-9);
}

TEST(Curves, OffsetsGoRightOfTheDirectionForPositiveDistances)
{
    AcDbLine line(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
    AcDbVoidPtrArray out;
    ASSERT_EQ(line.getOffsetCurves(2, out), Acad::eOk);
    std::unique_ptr<AcDbLine> moved(static_cast<AcDbLine*>(static_cast<AcDbEntity*>(out[0])));
    EXPECT_TRUE(moved->startPoint().isEqualTo(AcGePoint3d(0, -2, 0)));

    // The hook offset outwards of its bulge (right of travel): corners mitred, the arc larger.
    std::unique_ptr<AcDbPolyline> pl(hook());
    AcDbVoidPtrArray out2;
    ASSERT_EQ(pl->getOffsetCurves(1, out2), Acad::eOk);
    std::unique_ptr<AcDbPolyline> off(static_cast<AcDbPolyline*>(static_cast<AcDbEntity*>(out2[0])));
    ASSERT_EQ(off->numVerts(), 4u);
    AcGePoint2d v;
    off->getPointAt(1u, v);
    EXPECT_TRUE(v.isEqualTo(AcGePoint2d(10, -1), kTol));
    off->getPointAt(2u, v);
    EXPECT_TRUE(v.isEqualTo(AcGePoint2d(10, 11), kTol));
    AcGePoint3d top;
    off->getPointAtParam(1.5, top);
    EXPECT_TRUE(top.isEqualTo(AcGePoint3d(16, 5, 0), kTol));

    // A counter-clockwise square grows.
    AcDbPolyline square;
    square.addVertexAt(0, AcGePoint2d(0, 0));
    square.addVertexAt(1, AcGePoint2d(10, 0));
    square.addVertexAt(2, AcGePoint2d(10, 10));
    square.addVertexAt(3, AcGePoint2d(0, 10));
    square.setClosed(true);
    AcDbVoidPtrArray out3;
    ASSERT_EQ(square.getOffsetCurves(1, out3), Acad::eOk);
    std::unique_ptr<AcDbPolyline> big(static_cast<AcDbPolyline*>(static_cast<AcDbEntity*>(out3[0])));
    ASSERT_EQ(big->numVerts(), 4u);
    EXPECT_TRUE(big->isClosed());
    big->getPointAt(0u, v);
    EXPECT_TRUE(v.isEqualTo(AcGePoint2d(-1, -1), kTol));
    big->getPointAt(2u, v);
    EXPECT_TRUE(v.isEqualTo(AcGePoint2d(11, 11), kTol));

    // An arc cannot shrink through its centre.
    AcDbArc arc(AcGePoint3d(0, 0, 0), 1.0, 0, M_PI);
    AcDbVoidPtrArray none;
    EXPECT_EQ(arc.getOffsetCurves(-1.5, none), Acad::eInvalidInput);
    EXPECT_EQ(none.length(), 0);
}

TEST(Curves, ReversedAndMirroredArcsKeepTheirPoints)
{
    AcDbArc arc(AcGePoint3d(1, 1, 0), 2.0, 0, M_PI / 2);
    AcGePoint3d s, e;
    arc.reverseCurve();
    arc.getStartPoint(s);
    arc.getEndPoint(e);
    EXPECT_TRUE(s.isEqualTo(AcGePoint3d(1, 3, 0), kTol));
    EXPECT_TRUE(e.isEqualTo(AcGePoint3d(3, 1, 0), kTol));

    AcDbArc arc2(AcGePoint3d(0, 0, 0), 1.0, 0, M_PI / 2);
    AcGeMatrix3d mirror;
    mirror(0, 0) = -1; // about the Y axis
    ASSERT_EQ(arc2.transformBy(mirror), Acad::eOk);
    EXPECT_TRUE(arc2.normal().isEqualTo(AcGeVector3d::kZAxis));
    arc2.getStartPoint(s);
    arc2.getEndPoint(e);
    EXPECT_TRUE(s.isEqualTo(AcGePoint3d(0, 1, 0), kTol));
    EXPECT_TRUE(e.isEqualTo(AcGePoint3d(-1, 0, 0), kTol));
    double param = 0;
    EXPECT_EQ(arc2.getParamAtPoint(AcGePoint3d(0, -1, 0), param), Acad::eInvalidInput);
}

TEST(Colours, IndexMethodsAndPalette)
{
    AcCmColor c;
    EXPECT_TRUE(c.isByLayer());
    EXPECT_EQ(c.colorIndex(), 256);
    c.setColorIndex(0);
    EXPECT_TRUE(c.isByBlock());
    EXPECT_EQ(c.colorMethod(), 0xC1);
    c.setColorIndex(1);
    EXPECT_TRUE(c.isByACI());
    EXPECT_EQ(c.red(), 255);
    EXPECT_EQ(c.green(), 0);
    c.setColorIndex(30);
    EXPECT_EQ(c.green(), 127);
    c.setRGB(250, 5, 5);
    EXPECT_TRUE(c.isByColor());
    EXPECT_EQ(c.colorIndex(), 1);
    EXPECT_EQ(c.setColorIndex(300), Acad::eInvalidInput);
    EXPECT_EQ(c.colorIndex(), 1);
}

TEST(Units, ConversionFactors)
{
    double f = 0;
    ASSERT_EQ(acdbGetUnitsConversion(AcDb::kUnitsMillimeters, AcDb::kUnitsMeters, f), Acad::eOk);
    EXPECT_DOUBLE_EQ(f, 0.001);
    ASSERT_EQ(acdbGetUnitsConversion(AcDb::kUnitsMeters, AcDb::kUnitsCentimeters, f), Acad::eOk);
    EXPECT_DOUBLE_EQ(f, 100.0);
    EXPECT_EQ(acdbGetUnitsConversion(AcDb::kUnitsUndefined, AcDb::kUnitsMeters, f), Acad::eInvalidInput);
}
