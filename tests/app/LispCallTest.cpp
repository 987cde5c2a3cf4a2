// AutoLISP calls typed at the command line: the parser of literal arguments and the printer of
// answers, on the cases that go wrong easily.
#include <gtest/gtest.h>

#include "adscodes.h"
#include "sim/app/LispCall.h"
#include "sim/core/Session.h"

namespace {

using sim::app::Chain;
using sim::app::LispAnswer;

sim::app::LispCall parse(std::wstring_view line)
{
    std::wstring error;
    auto call = sim::app::parseLispCall(line, error);
    EXPECT_TRUE(call) << "error: " << sim::toUtf8(error);
    return call ? std::move(*call) : sim::app::LispCall{};
}

std::wstring parseError(std::wstring_view line)
{
    std::wstring error;
    auto call = sim::app::parseLispCall(line, error);
    EXPECT_FALSE(call);
    return error;
}

std::vector<short> types(const resbuf* rb)
{
    std::vector<short> t;
    for (; rb; rb = rb->rbnext)
        t.push_back(rb->restype);
    return t;
}

TEST(LispParse, StringsKeepEscapedQuotesBackslashesAndParentheses)
{
    auto call = parse(LR"x((togu_ulozdox_string "k;(1)" "a\"b\\c\nd"))x");
    EXPECT_EQ(call.name, L"togu_ulozdox_string");
    ASSERT_EQ(types(call.args.get()), (std::vector<short>{RTSTR, RTSTR}));
    EXPECT_STREQ(call.args.get()->resval.rstring, L"k;(1)");
    EXPECT_STREQ(call.args.get()->rbnext->resval.rstring, L"a\"b\\c\nd");
    EXPECT_EQ(parseError(LR"x((f "abc))x"), L"malformed string on input");
}

TEST(LispParse, IntegersAreShortUpTo16BitsThenLongThenReal)
{
    auto call = parse(L"(f 32767 32768 -32768 -32769 2147483647 2147483648 +5)");
    ASSERT_EQ(types(call.args.get()), (std::vector<short>{RTSHORT, RTLONG, RTSHORT, RTLONG, RTLONG, RTREAL, RTSHORT}));
    const resbuf* rb = call.args.get();
    EXPECT_EQ(rb->resval.rint, 32767);
    EXPECT_EQ(rb->rbnext->resval.rlong, 32768);
    EXPECT_EQ(rb->rbnext->rbnext->resval.rint, -32768);
    EXPECT_DOUBLE_EQ(rb->rbnext->rbnext->rbnext->rbnext->rbnext->resval.rreal, 2147483648.0);
}

TEST(LispParse, RealsInTheirSeveralForms)
{
    auto call = parse(L"(f 2.5 -.5 1. 1e3 -2.5E-2)");
    ASSERT_EQ(types(call.args.get()), (std::vector<short>(5, RTREAL)));
    std::vector<double> v;
    for (const resbuf* rb = call.args.get(); rb; rb = rb->rbnext)
        v.push_back(rb->resval.rreal);
    EXPECT_EQ(v, (std::vector<double>{2.5, -0.5, 1.0, 1000.0, -0.025}));
    // Not numbers: a lone sign or point, a hexadecimal number, infinity.
    EXPECT_NE(parseError(L"(f -)"), L"");
    EXPECT_NE(parseError(L"(f .)"), L"");
    EXPECT_NE(parseError(L"(f 0x10)"), L"");
    EXPECT_NE(parseError(L"(f 1e999)"), L"");
}

TEST(LispParse, QuotedListsOfTwoOrThreeNumbersArePoints)
{
    auto call = parse(L"(f '(1 2) '( 1.5 -2 3 ) '() 'nil nil T)");
    ASSERT_EQ(types(call.args.get()), (std::vector<short>{RTPOINT, RT3DPOINT, RTNIL, RTNIL, RTNIL, RTT}));
    const resbuf* p = call.args.get();
    EXPECT_EQ(p->resval.rpoint[0], 1.0);
    EXPECT_EQ(p->resval.rpoint[1], 2.0);
    EXPECT_EQ(p->resval.rpoint[2], 0.0);
    EXPECT_EQ(p->rbnext->resval.rpoint[0], 1.5);
    EXPECT_EQ(p->rbnext->resval.rpoint[2], 3.0);
    EXPECT_NE(parseError(L"(f '(1))"), L"");
    EXPECT_NE(parseError(L"(f '(1 2 3 4))"), L"");
    EXPECT_NE(parseError(L"(f '(a b))"), L"");
    EXPECT_EQ(parseError(L"(f '(1 2)"), L"malformed list on input");
}

TEST(LispParse, MalformedLinesAreRefused)
{
    EXPECT_EQ(parseError(L"(togu_is_debug"), L"malformed list on input");
    EXPECT_EQ(parseError(L"togu_is_debug)"), L"malformed list on input");
    EXPECT_NE(parseError(L"(f (g))"), L"");    // no nested evaluation
    EXPECT_NE(parseError(L"(f x)"), L"");      // no variables
    EXPECT_NE(parseError(L"(f) (g)"), L"");    // one expression a line
    EXPECT_NE(parseError(L"(\"f\")"), L"");
    // A comment after the list and blanks around it are fine; "()" is nil.
    EXPECT_EQ(parse(L"  (TOGU_IS_DEBUG)  ; why").name, L"TOGU_IS_DEBUG");
    auto empty = parse(L"( )");
    EXPECT_EQ(empty.name, L"");
    EXPECT_TRUE(empty.args.empty());
}

TEST(LispPrint, RealsAlwaysShowADecimalPoint)
{
    using sim::app::formatLispReal;
    EXPECT_EQ(formatLispReal(2.5), L"2.5");
    EXPECT_EQ(formatLispReal(1.0), L"1.0");
    EXPECT_EQ(formatLispReal(0.0), L"0.0");
    EXPECT_EQ(formatLispReal(-3.0), L"-3.0");
    EXPECT_EQ(formatLispReal(100000.0), L"100000.0");
    EXPECT_EQ(formatLispReal(1.0 / 3.0), L"0.333333");
    EXPECT_EQ(formatLispReal(1e10), L"1.0e+10");
    EXPECT_EQ(formatLispReal(123456789.0), L"1.23457e+08");
}

TEST(LispPrint, StringsAreQuotedAndEscaped)
{
    EXPECT_EQ(sim::app::formatLispString(L"a\"b\\c\nd\te"), LR"x("a\"b\\c\nd\te")x");
    EXPECT_EQ(sim::app::formatLispString(L"kóty"), L"\"kóty\"");
    EXPECT_EQ(sim::app::formatLispString(std::wstring(1, L'\x01')), L"\"\\001\"");
}

TEST(LispPrint, AnswersAsTheCommandLineShowsThem)
{
    using sim::app::formatLispAnswer;
    EXPECT_EQ(formatLispAnswer(std::nullopt), L"nil");
    auto one = [](resbuf* rb) { return std::optional<LispAnswer>(LispAnswer{false, Chain(rb)}); };
    EXPECT_EQ(formatLispAnswer(one(acutBuildList(RTT, 0))), L"T");
    EXPECT_EQ(formatLispAnswer(one(acutBuildList(RTNIL, 0))), L"nil");
    EXPECT_EQ(formatLispAnswer(one(acutBuildList(RTVOID, 0))), L"");
    EXPECT_EQ(formatLispAnswer(one(acutBuildList(RTSHORT, -7, 0))), L"-7");
    EXPECT_EQ(formatLispAnswer(one(acutBuildList(RTLONG, 100000, 0))), L"100000");
    EXPECT_EQ(formatLispAnswer(one(acutBuildList(RTSTR, L"a\"b", 0))), L"\"a\\\"b\"");
    ads_point p = {1.0, 2.5, 0.0};
    EXPECT_EQ(formatLispAnswer(one(acutBuildList(RT3DPOINT, p, 0))), L"(1.0 2.5 0.0)");
    EXPECT_EQ(formatLispAnswer(one(acutBuildList(RTPOINT, p, 0))), L"(1.0 2.5)");

    // A list with a nested list and a dotted pair.
    resbuf* list = acutBuildList(RTSTR, L"x", RTLB, RTSHORT, 1, RTDOTE, RTREAL, 2.0, RTLE, RTT, 0);
    EXPECT_EQ(formatLispAnswer(LispAnswer{true, Chain(list)}), L"(\"x\" (1 . 2.0) T)");
}

} // namespace
