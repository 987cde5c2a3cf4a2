// The prompts of the command line: acedInitGet flags and keywords, point forms, Enter, Escape and
// input that runs out.
#include "EditorFixture.h"

#include <cmath>

TEST_F(EditorTest, InitGetFlagsRefuseAndAskAgain)
{
    script("\n0\n-2\nabc\n2.5\n\n");
    acedInitGet(RSG_NONULL | RSG_NOZERO | RSG_NONEG, nullptr);
    double v = 0;
    EXPECT_EQ(acedGetReal(L"\nThickness: ", &v), RTNORM);
    EXPECT_DOUBLE_EQ(v, 2.5);
    EXPECT_EQ(transcript(), L"Thickness: \n"
                            L"Requires numeric value.\n"
                            L"Thickness: 0\n"
                            L"Value must be positive and nonzero.\n"
                            L"Thickness: -2\n"
                            L"Value must be positive and nonzero.\n"
                            L"Thickness: abc\n"
                            L"Requires numeric value.\n"
                            L"Thickness: 2.5\n");
    // The acedInitGet was spent on the prompt before: Enter is allowed again.
    EXPECT_EQ(acedGetReal(L"\nAgain: ", &v), RTNONE);
}

TEST_F(EditorTest, IntegersCheckTheirRangeAndZero)
{
    script("1.5\n40000\n0\n7\n");
    acedInitGet(RSG_NOZERO, nullptr);
    int i = 0;
    EXPECT_EQ(acedGetInt(L"N: ", &i), RTNORM);
    EXPECT_EQ(i, 7);
    EXPECT_NE(transcript().find(L"Requires an integer value."), std::wstring::npos);
    EXPECT_NE(transcript().find(L"Requires an integer between -32768 and 32767."), std::wstring::npos);
    EXPECT_NE(transcript().find(L"Value must be nonzero."), std::wstring::npos);
}

TEST_F(EditorTest, PointFormsInTheCurrentUcs)
{
    script("10,20\n1,2,3\n@5,0\n@10<90\n7,8,9\n");
    ads_point base = {100, 100, 0}, p;
    ASSERT_EQ(acedGetPoint(nullptr, L"P: ", p), RTNORM);
    EXPECT_EQ(asPnt3d(p), AcGePoint3d(10, 20, 0));
    ASSERT_EQ(acedGetPoint(nullptr, L"P: ", p), RTNORM);
    EXPECT_EQ(asPnt3d(p), AcGePoint3d(1, 2, 3));
    ASSERT_EQ(acedGetPoint(base, L"P: ", p), RTNORM);
    EXPECT_EQ(asPnt3d(p), AcGePoint3d(105, 100, 0)) << "relative to the base point";
    ASSERT_EQ(acedGetPoint(nullptr, L"P: ", p), RTNORM);
    EXPECT_TRUE(asPnt3d(p).isEqualTo(AcGePoint3d(105, 110, 0))) << "relative to the last point";
    acedInitGet(RSG_2D, nullptr);
    ASSERT_EQ(acedGetPoint(nullptr, L"P: ", p), RTNORM);
    EXPECT_EQ(asPnt3d(p), AcGePoint3d(7, 8, 0)) << "2D points lie at elevation 0";
}

TEST_F(EditorTest, KeywordsAtAPointPromptAndTheirGlobalNames)
{
    script("m\nx\n_Undo\nzpět\nstuff\n");
    ads_point p;
    ACHAR kw[32];
    acedInitGet(RSG_2D, L"Materiál");
    EXPECT_EQ(acedGetPoint(nullptr, L"Bod [Materiál]: ", p), RTKWORD);
    ASSERT_EQ(acedGetInput(kw, 32), RTNORM);
    EXPECT_STREQ(kw, L"Materiál");

    acedInitGet(0, L"Zpět Konec _ Undo Exit");
    EXPECT_EQ(acedGetPoint(nullptr, L"Bod: ", p), RTKWORD) << "x is refused first, then _Undo is taken";
    ASSERT_EQ(acedGetInput(kw, 32), RTNORM);
    EXPECT_STREQ(kw, L"Undo");
    EXPECT_NE(transcript().find(L"Point or option keyword required."), std::wstring::npos);

    acedInitGet(0, L"Zpět Konec _ Undo Exit");
    EXPECT_EQ(acedGetPoint(nullptr, L"Bod: ", p), RTKWORD);
    acedGetInput(kw, 32);
    EXPECT_STREQ(kw, L"Undo") << "a local answer gives the global name";

    acedInitGet(RSG_OTHER, L"N");
    EXPECT_EQ(acedGetPoint(nullptr, L"Bod: ", p), RTKWORD) << "arbitrary input";
    acedGetInput(kw, 32);
    EXPECT_STREQ(kw, L"stuff");

    ACHAR tiny[3];
    EXPECT_EQ(acedGetInput(tiny, 3), RTINPUTTRUNCATED);
    EXPECT_STREQ(tiny, L"st");
}

TEST_F(EditorTest, EscapeAndInputThatRunsOutCancel)
{
    script("^C\n");
    ads_point p;
    EXPECT_EQ(acedGetPoint(nullptr, L"First: ", p), RTCAN);
    EXPECT_FALSE(session->waitingPrompt());
    EXPECT_EQ(acedGetPoint(nullptr, L"\nSecond: ", p), RTCAN);
    ASSERT_TRUE(session->waitingPrompt());
    EXPECT_EQ(*session->waitingPrompt(), L"Second: ");
    ACHAR buf[8];
    EXPECT_EQ(acedGetString(1, L"Text: ", buf, 8), RTCAN);
    ads_name e;
    EXPECT_EQ(acedEntSel(L"Pick: ", e, p), RTCAN);
}

TEST_F(EditorTest, StringsKeepTheirBlanksOnlyWhenAllowed)
{
    script(" 100 mm\nDN 100\nžluťoučký kůň\n\n");
    ACHAR buf[64];
    ASSERT_EQ(acedGetString(1, L"T: ", buf, 64), RTNORM);
    EXPECT_STREQ(buf, L" 100 mm");
    ASSERT_EQ(acedGetString(0, L"T: ", buf, 64), RTNORM);
    EXPECT_STREQ(buf, L"DN") << "without spaces allowed the blank ends the answer";
    acedInitGet(0, L"Materiál _ Ručně");
    ASSERT_EQ(acedGetString(1, L"T: ", buf, 6), RTINPUTTRUNCATED) << "keywords do not apply to text";
    EXPECT_STREQ(buf, L"žluťo");
    ASSERT_EQ(acedGetString(1, L"T: ", buf, 64), RTNORM) << "Enter is an empty text";
    EXPECT_STREQ(buf, L"");
}

TEST_F(EditorTest, KeywordPromptsTakeOnlyKeywords)
{
    script("x\nlo\n\n");
    ACHAR kw[16];
    acedInitGet(0, L"ON OFF LOck");
    ASSERT_EQ(acedGetKword(L"Option: ", kw, 16), RTNORM);
    EXPECT_STREQ(kw, L"LOck");
    EXPECT_NE(transcript().find(L"Invalid option keyword."), std::wstring::npos);
    acedInitGet(0, L"ON OFF");
    EXPECT_EQ(acedGetKword(L"Option: ", kw, 16), RTNONE);
}

TEST_F(EditorTest, DistancesAndAnglesByNumberOrByPoints)
{
    script("0,0\n3,4\n10,10\n90\n0,0\n0,-5\n");
    double d = 0, a = 0;
    ASSERT_EQ(acedGetDist(nullptr, L"Dist: ", &d), RTNORM);
    EXPECT_DOUBLE_EQ(d, 5.0) << "two points: the second is asked for";
    ads_point base = {10, 0, 0};
    ASSERT_EQ(acedGetDist(base, L"Dist: ", &d), RTNORM);
    EXPECT_DOUBLE_EQ(d, 10.0);
    ASSERT_EQ(acedGetAngle(nullptr, L"Angle: ", &a), RTNORM);
    EXPECT_DOUBLE_EQ(a, M_PI / 2);
    ASSERT_EQ(acedGetAngle(nullptr, L"Angle: ", &a), RTNORM);
    EXPECT_DOUBLE_EQ(a, 1.5 * M_PI) << "angles come between 0 and 2 pi";
}
