// System variables: their types as the host hands them, where they live, and what setting them does.
#include "EditorFixture.h"

#include "dbpl.h"

namespace {
resbuf rbShort(short v)
{
    resbuf rb{};
    rb.restype = RTSHORT;
    rb.resval.rint = v;
    return rb;
}
} // namespace

TEST_F(EditorTest, VariablesComeInTheHostsTypes)
{
    resbuf rb{};
    ASSERT_EQ(acedGetVar(L"osmode", &rb), RTNORM);
    EXPECT_EQ(rb.restype, RTSHORT);
    ASSERT_EQ(acedGetVar(L"INSUNITS", &rb), RTNORM);
    EXPECT_EQ(rb.restype, RTSHORT);
    EXPECT_EQ(rb.resval.rint, static_cast<short>(db.insunits()));
    ASSERT_EQ(acedGetVar(L"VIEWSIZE", &rb), RTNORM);
    EXPECT_EQ(rb.restype, RTREAL);
    EXPECT_GT(rb.resval.rreal, 0.0);
    ASSERT_EQ(acedGetVar(L"SCREENSIZE", &rb), RTNORM);
    EXPECT_EQ(rb.restype, RTPOINT);
    ASSERT_EQ(acedGetVar(L"VIEWCTR", &rb), RTNORM);
    EXPECT_EQ(rb.restype, RT3DPOINT);
    ASSERT_EQ(acedGetVar(L"CLAYER", &rb), RTNORM);
    ASSERT_EQ(rb.restype, RTSTR);
    EXPECT_STREQ(rb.resval.rstring, L"0");
    acutDelString(rb.resval.rstring);
    EXPECT_EQ(acedGetVar(L"NOSUCHVAR", &rb), RTERROR);
}

TEST_F(EditorTest, SettingChecksKindRangeAndReadOnly)
{
    resbuf rb{};
    rb.restype = RTLONG;
    rb.resval.rlong = 6;
    ASSERT_EQ(acedSetVar(L"INSUNITSDEFSOURCE", &rb), RTNORM) << "integers may come as RTLONG";
    resbuf got{};
    acedGetVar(L"INSUNITSDEFSOURCE", &got);
    EXPECT_EQ(got.restype, RTSHORT);
    EXPECT_EQ(got.resval.rint, 6);

    resbuf bad = rbShort(51);
    EXPECT_EQ(acedSetVar(L"PICKBOX", &bad), RTERROR);
    resbuf text{};
    text.restype = RTSTR;
    text.resval.rstring = const_cast<ACHAR*>(L"5");
    EXPECT_EQ(acedSetVar(L"OSMODE", &text), RTERROR) << "a string for an integer";
    resbuf origin{};
    origin.restype = RT3DPOINT;
    EXPECT_EQ(acedSetVar(L"UCSORG", &origin), RTERROR) << "read only";
    text.resval.rstring = const_cast<ACHAR*>(L"no such layer");
    EXPECT_EQ(acedSetVar(L"CLAYER", &text), RTERROR);

    resbuf units = rbShort(6);
    ASSERT_EQ(acedSetVar(L"INSUNITS", &units), RTNORM);
    EXPECT_EQ(db.insunits(), AcDb::kUnitsMeters) << "INSUNITS is the drawing's";
}

TEST_F(EditorTest, SettingDimblkToDotMakesTheBlock)
{
    AcDbBlockTablePointer before(&db);
    ASSERT_FALSE(before->has(L"_DOT"));
    before.close();
    resbuf rb{};
    rb.restype = RTSTR;
    rb.resval.rstring = const_cast<ACHAR*>(L"_DOT");
    ASSERT_EQ(acedSetVar(L"DIMBLK", &rb), RTNORM);
    AcDbBlockTableRecordPointer dot(L"_DOT", &db);
    ASSERT_EQ(dot.openStatus(), Acad::eOk);
    AcDbBlockTableRecordIterator* it = nullptr;
    ASSERT_EQ(dot->newIterator(it), Acad::eOk);
    ASSERT_FALSE(it->done());
    AcDbObjectId donutId;
    it->getEntityId(donutId);
    delete it;
    AcDbObjectPointer<AcDbPolyline> donut(donutId);
    ASSERT_EQ(donut.openStatus(), Acad::eOk);
    double width = 0;
    EXPECT_TRUE(donut->isClosed());
    EXPECT_EQ(donut->getConstantWidth(width), Acad::eOk);
    EXPECT_DOUBLE_EQ(width, 0.5);

    resbuf got{};
    ASSERT_EQ(acedGetVar(L"DIMBLK", &got), RTNORM);
    EXPECT_STREQ(got.resval.rstring, L"_DOT");
    acutDelString(got.resval.rstring);
    rb.resval.rstring = const_cast<ACHAR*>(L"NoSuchBlock");
    EXPECT_EQ(acedSetVar(L"DIMBLK", &rb), RTERROR);
}
