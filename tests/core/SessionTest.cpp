// The platform's conversation and the result-buffer utilities.
#include <gtest/gtest.h>

#include "AcString.h"
#include "acutads.h"
#include "sim/core/ResBuf.h"
#include "sim/core/Session.h"

using namespace sim;

TEST(Session, PromptsStartOnFreshLinesAndEchoAnswers)
{
    Session s(std::make_unique<ScriptInput>("0,0\r\n\nžluťoučký\n"));
    acutPrintf(L"\nPříkaz: %ls", L"_LINE");
    EXPECT_EQ(s.ask(L"\nFirst point: "), L"0,0");
    EXPECT_EQ(s.ask(L"\nNext: "), L"");
    EXPECT_EQ(s.ask(L"Text: "), L"žluťoučký");
    EXPECT_EQ(s.lineNumber(), 3);
    EXPECT_EQ(s.transcript(), L"\nPříkaz: _LINE\nFirst point: 0,0\nNext: \nText: žluťoučký\n");
}

TEST(Session, RunningOutOfInputLeavesThePromptWaiting)
{
    Session s(std::make_unique<ScriptInput>("a"));
    EXPECT_TRUE(s.ask(L"One: "));
    EXPECT_FALSE(s.ask(L"\nTwo: "));
    ASSERT_TRUE(s.waitingPrompt());
    EXPECT_EQ(*s.waitingPrompt(), L"Two: ");
    EXPECT_EQ(s.lineNumber(), 1);
}

TEST(Session, SessionsNestAndRestore)
{
    EXPECT_EQ(Session::currentOrNull(), nullptr);
    {
        Session outer(nullptr);
        {
            Session inner(nullptr);
            EXPECT_EQ(&Session::current(), &inner);
        }
        EXPECT_EQ(&Session::current(), &outer);
    }
    EXPECT_THROW(Session::current(), std::logic_error);
}

TEST(ResBuf, BuildListCopiesValuesAndGroupZero)
{
    ads_point p = {1, 2, 3};
    resbuf* rb = acutBuildList(-4, L"<or", RTDXF0, L"LINE", 10, p, 70, 5, 90, 70000, 40, 2.5, RTPOINT, p, 0);
    ASSERT_NE(rb, nullptr);
    EXPECT_EQ(rb->restype, -4);
    EXPECT_STREQ(rb->resval.rstring, L"<or");
    resbuf* b = rb->rbnext;
    EXPECT_EQ(b->restype, 0);
    EXPECT_STREQ(b->resval.rstring, L"LINE");
    b = b->rbnext;
    EXPECT_DOUBLE_EQ(b->resval.rpoint[2], 3.0);
    b = b->rbnext;
    EXPECT_EQ(b->resval.rint, 5);
    b = b->rbnext;
    EXPECT_EQ(b->resval.rlong, 70000);
    b = b->rbnext;
    EXPECT_DOUBLE_EQ(b->resval.rreal, 2.5);
    b = b->rbnext;
    EXPECT_DOUBLE_EQ(b->resval.rpoint[2], 0.0) << "a 2D point has no Z";
    EXPECT_EQ(b->rbnext, nullptr);

    resbuf* copy = copyChain(rb);
    acutRelRb(rb);
    EXPECT_STREQ(copy->resval.rstring, L"<or");
    acutRelRb(copy);
}

TEST(Utf8, RoundTripsCzechAndAstralText)
{
    std::wstring w = L"Příliš žluťoučký kůň \U0001F600";
    EXPECT_EQ(fromUtf8(toUtf8(w)), w);
    EXPECT_EQ(toUtf8(L"ů"), "\xC5\xAF");
    // One character of four bytes, whether wchar_t holds it whole or as a surrogate pair.
    EXPECT_EQ(toUtf8(L"\U0001F600"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(fromUtf8("\xF0\x9F\x98\x80"), std::wstring(L"\U0001F600"));
}

TEST(AcStringTest, CompareNoCaseFoldsCzechLetters)
{
    EXPECT_EQ(AcString(L"kóty").compareNoCase(L"KÓTY"), 0);
    EXPECT_EQ(AcString(L"čerp").compareNoCase(L"ČERP"), 0);
    EXPECT_NE(AcString(L"kóty").compareNoCase(L"KOTY"), 0);
}
