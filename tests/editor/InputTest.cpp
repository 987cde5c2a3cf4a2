// Typed numbers, points and handles, and the wildcard match and filters of selections.
#include <gtest/gtest.h>

#include "acutads.h"
#include "sim/editor/InputParse.h"
#include "sim/editor/SelectionFilter.h"

using namespace sim::editor;

namespace {
EntityFacts facts(const wchar_t* type, const wchar_t* layer = L"0")
{
    EntityFacts e;
    e.type = type;
    e.layer = layer;
    return e;
}
} // namespace

TEST(InputParse, NumbersAreDecimalWithNothingAfterThem)
{
    EXPECT_DOUBLE_EQ(*parseReal(L" -.5 "), -0.5);
    EXPECT_DOUBLE_EQ(*parseReal(L"2e3"), 2000.0);
    EXPECT_DOUBLE_EQ(*parseReal(L"7."), 7.0);
    for (const wchar_t* bad : {L"", L".", L"1,5", L"12abc", L"inf", L"nan", L"0x10", L"1e", L"- 1", L"1e999"})
        EXPECT_FALSE(parseReal(bad)) << bad;
    EXPECT_EQ(*parseInt(L"-32768"), -32768);
    EXPECT_FALSE(parseInt(L"1.0"));
    EXPECT_FALSE(parseInt(L"99999999999"));
}

TEST(InputParse, PointForms)
{
    auto p = parsePoint(L"10,20");
    ASSERT_TRUE(p);
    EXPECT_FALSE(p->hasZ);
    EXPECT_EQ(p->xyz, AcGePoint3d(10, 20, 0));
    p = parsePoint(L" 1.5, -2 ,3 ");
    ASSERT_TRUE(p);
    EXPECT_TRUE(p->hasZ);
    EXPECT_EQ(p->xyz, AcGePoint3d(1.5, -2, 3));
    p = parsePoint(L"@5<90");
    ASSERT_TRUE(p);
    EXPECT_TRUE(p->relative && p->polar);
    EXPECT_DOUBLE_EQ(p->xyz.x, 5.0);
    EXPECT_DOUBLE_EQ(p->xyz.y, M_PI / 2);
    p = parsePoint(L"@");
    ASSERT_TRUE(p);
    EXPECT_TRUE(p->relative);
    EXPECT_EQ(p->xyz, AcGePoint3d::kOrigin);
    p = parsePoint(L"*1,2");
    ASSERT_TRUE(p && p->world);
    for (const wchar_t* bad : {L"10", L"1,2,3,4", L"a,b", L"1,,2", L"@1", L"5<", L"#1F"})
        EXPECT_FALSE(parsePoint(bad)) << bad;
}

TEST(InputParse, Handles)
{
    EXPECT_EQ(parseHandle(L"#1F")->value(), 0x1Fu);
    EXPECT_EQ(parseHandle(L" #a0 ")->value(), 0xA0u);
    for (const wchar_t* bad : {L"#", L"1F", L"#G1", L"#0", L"#12345678901234567"})
        EXPECT_FALSE(parseHandle(bad)) << bad;
}

TEST(SelectionFilter, WildcardsAsTheHostMatchesNames)
{
    EXPECT_TRUE(wildcardMatch(L"MTEXT", L"*text"));
    EXPECT_TRUE(wildcardMatch(L"TEXT", L"LINE,TEXT"));
    EXPECT_FALSE(wildcardMatch(L"TEXTS", L"LINE,TEXT"));
    EXPECT_TRUE(wildcardMatch(L"ZT_kóty", L"zt_KÓTY"));
    EXPECT_TRUE(wildcardMatch(L"A1", L"@#"));
    EXPECT_FALSE(wildcardMatch(L"0", L"~0"));
    EXPECT_TRUE(wildcardMatch(L"ZT", L"~0"));
    EXPECT_TRUE(wildcardMatch(L"B", L"[A-C]"));
    EXPECT_FALSE(wildcardMatch(L"B", L"[~A-C]"));
    EXPECT_TRUE(wildcardMatch(L"A,B", L"A`,B"));
    EXPECT_TRUE(wildcardMatch(L"abcbc", L"a*bc"));
}

TEST(SelectionFilter, TypesInAnOrGroupAndALayer)
{
    resbuf* chain = acutBuildList(-4, L"<OR", RTDXF0, L"TEXT", RTDXF0, L"MTEXT", -4, L"or>", 8, L"popisy*", 0);
    auto f = SelectionFilter::parse(chain);
    acutRelRb(chain);
    ASSERT_TRUE(f);
    EXPECT_TRUE(f->accepts(facts(L"MTEXT", L"popisy_020")));
    EXPECT_TRUE(f->accepts(facts(L"TEXT", L"POPISY")));
    EXPECT_FALSE(f->accepts(facts(L"LINE", L"popisy")));
    EXPECT_FALSE(f->accepts(facts(L"TEXT", L"0")));

    chain = acutBuildList(-4, L"<not", RTDXF0, L"INSERT", -4, L"not>", 0);
    f = SelectionFilter::parse(chain);
    acutRelRb(chain);
    ASSERT_TRUE(f);
    EXPECT_TRUE(f->accepts(facts(L"LINE")));
    EXPECT_FALSE(f->accepts(facts(L"INSERT")));

    EXPECT_TRUE(SelectionFilter::parse(nullptr)->accepts(facts(L"ANYTHING")));
}

TEST(SelectionFilter, MalformedChainsAreRefused)
{
    resbuf* open = acutBuildList(-4, L"<or", RTDXF0, L"LINE", 0);
    resbuf* stray = acutBuildList(RTDXF0, L"LINE", -4, L"or>", 0);
    resbuf* emptyOr = acutBuildList(-4, L"<or", -4, L"or>", 0);
    resbuf* unknown = acutBuildList(RTDXF0, L"LINE", 40, 2.5, 0);
    for (resbuf* c : {open, stray, emptyOr, unknown}) {
        EXPECT_FALSE(SelectionFilter::parse(c));
        acutRelRb(c);
    }
}
