// The current UCS and acedTrans between world, user and entity coordinate systems.
#include "EditorFixture.h"

#include <cmath>

namespace {
resbuf code(short c)
{
    resbuf rb{};
    rb.restype = RTSHORT;
    rb.resval.rint = c;
    return rb;
}
/// A UCS at (100, 50) turned a quarter turn: its X axis is the world's Y axis.
AcGeMatrix3d turnedUcs()
{
    AcGeMatrix3d m;
    m.setCoordSystem(AcGePoint3d(100, 50, 0), AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    return m;
}
} // namespace

TEST_F(EditorTest, TransBetweenWorldAndARotatedUcs)
{
    ASSERT_EQ(acedSetCurrentUCS(turnedUcs()), Acad::eOk);
    EXPECT_EQ(db.ucsorg(), AcGePoint3d(100, 50, 0));
    resbuf ucs = code(RTUCS), wcs = code(RTWCS), dcs = code(RTDCS);
    ads_point p = {10, 0, 0}, r;
    ASSERT_EQ(acedTrans(p, &ucs, &wcs, 0, r), RTNORM);
    EXPECT_TRUE(asPnt3d(r).isEqualTo(AcGePoint3d(100, 60, 0)));
    ASSERT_EQ(acedTrans(p, &ucs, &wcs, 1, r), RTNORM);
    EXPECT_TRUE(asPnt3d(r).isEqualTo(AcGePoint3d(0, 10, 0))) << "a displacement is only turned";
    ads_point w = {100, 60, 0};
    ASSERT_EQ(acedTrans(w, &wcs, &ucs, 0, r), RTNORM);
    EXPECT_TRUE(asPnt3d(r).isEqualTo(AcGePoint3d(10, 0, 0)));
    ASSERT_EQ(acedTrans(w, &dcs, &wcs, 0, r), RTNORM);
    EXPECT_TRUE(asPnt3d(r).isEqualTo(asPnt3d(w))) << "the view looks down on the world";
    resbuf bad = code(7);
    EXPECT_EQ(acedTrans(p, &bad, &wcs, 0, r), RTERROR);

    AcGeMatrix3d m;
    ASSERT_EQ(acedGetCurrentUCS(m), Acad::eOk);
    EXPECT_TRUE(m.isEqualTo(turnedUcs()));
    resbuf org{};
    acedGetVar(L"UCSXDIR", &org);
    EXPECT_TRUE(asPnt3d(org.resval.rpoint).isEqualTo(AcGePoint3d(0, 1, 0)));
}

TEST_F(EditorTest, TypedPointsAreInTheUcsAndStarGivesWorld)
{
    acedSetCurrentUCS(turnedUcs());
    script("10,0\n*10,0\n");
    ads_point p;
    ASSERT_EQ(acedGetPoint(nullptr, L"P: ", p), RTNORM);
    EXPECT_TRUE(asPnt3d(p).isEqualTo(AcGePoint3d(10, 0, 0)));
    ASSERT_EQ(acedGetPoint(nullptr, L"P: ", p), RTNORM);
    EXPECT_TRUE(asPnt3d(p).isEqualTo(AcGePoint3d(-50, 90, 0))) << "world (10,0) seen from the UCS";
}

TEST_F(EditorTest, TransToAnEntitysCoordinateSystem)
{
    // A circle seen from below (normal -Z): its own X axis runs along world -X.
    AcDbObjectId id = add(new AcDbCircle(AcGePoint3d(5, 0, 0), -AcGeVector3d::kZAxis, 1.0));
    resbuf ent{};
    ent.restype = RTENAME;
    acdbGetAdsName(ent.resval.rlname, id);
    resbuf wcs = code(RTWCS);
    ads_point p = {5, 0, 0}, r;
    ASSERT_EQ(acedTrans(p, &wcs, &ent, 0, r), RTNORM);
    EXPECT_TRUE(asPnt3d(r).isEqualTo(AcGePoint3d(-5, 0, 0)));
    resbuf normal{};
    normal.restype = RT3DPOINT;
    normal.resval.rpoint[2] = -1.0;
    ASSERT_EQ(acedTrans(p, &wcs, &normal, 0, r), RTNORM);
    EXPECT_TRUE(asPnt3d(r).isEqualTo(AcGePoint3d(-5, 0, 0)));
}
