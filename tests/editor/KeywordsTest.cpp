// Keyword lists of acedInitGet and the host's matching of typed answers against them.
#include <gtest/gtest.h>

#include "sim/editor/Keywords.h"

using sim::editor::KeywordList;

namespace {
std::wstring match(const KeywordList& k, const wchar_t* answer) { return k.match(answer).value_or(L"<none>"); }
} // namespace

TEST(Keywords, CapitalsAreTheLeastThatMustBeTyped)
{
    auto k = KeywordList::parse(L"LType LWeight LOck ON OFF stAte");
    EXPECT_EQ(match(k, L"lt"), L"LType");
    EXPECT_EQ(match(k, L"LTYP"), L"LType");
    EXPECT_EQ(match(k, L"l"), L"<none>") << "shorter than any abbreviation";
    EXPECT_EQ(match(k, L"lw"), L"LWeight");
    EXPECT_EQ(match(k, L"lock"), L"LOck");
    EXPECT_EQ(match(k, L"o"), L"<none>") << "ON and OFF need their whole capitals";
    EXPECT_EQ(match(k, L"of"), L"<none>");
    EXPECT_EQ(match(k, L"off"), L"OFF");
    EXPECT_EQ(match(k, L"a"), L"stAte") << "a capital inside the word is its abbreviation";
    EXPECT_EQ(match(k, L"state"), L"stAte");
    EXPECT_EQ(match(k, L"ltypes"), L"<none>") << "more than the keyword";
}

TEST(Keywords, OnlyTheFirstRunOfCapitalsCountsAndDigitsAreCapitals)
{
    auto modes = KeywordList::parse(L"DveHrany Hrana");
    EXPECT_EQ(match(modes, L"d"), L"DveHrany");
    EXPECT_EQ(match(modes, L"dveh"), L"DveHrany");
    EXPECT_EQ(match(modes, L"h"), L"Hrana");
    auto circle = KeywordList::parse(L"3P 2P Ttr");
    EXPECT_EQ(match(circle, L"p"), L"<none>");
    EXPECT_EQ(match(circle, L"2p"), L"2P");
    EXPECT_EQ(match(circle, L"t"), L"Ttr");
}

TEST(Keywords, KeywordsWithoutCapitalsMustBeTypedInFull)
{
    auto k = KeywordList::parse(L"konec");
    EXPECT_EQ(match(k, L"kon"), L"<none>");
    EXPECT_EQ(match(k, L"KONEC"), L"konec");
}

TEST(Keywords, CzechLettersMatchWithoutRegardToCase)
{
    auto k = KeywordList::parse(L"Materiál Ručně Žlutá");
    EXPECT_EQ(match(k, L"MATERIÁL"), L"Materiál");
    EXPECT_EQ(match(k, L"materiál"), L"Materiál");
    EXPECT_EQ(match(k, L"RUČ"), L"Ručně");
    EXPECT_EQ(match(k, L"ž"), L"Žlutá");
    EXPECT_EQ(match(k, L"materiaL"), L"<none>") << "a and á are different letters";
}

TEST(Keywords, GlobalNamesFollowTheUnderscoreInTheSameOrder)
{
    auto k = KeywordList::parse(L"Nastavení Zpět _ Settings Undo");
    EXPECT_EQ(match(k, L"n"), L"Settings") << "a local answer gives the global name";
    EXPECT_EQ(match(k, L"zpět"), L"Undo");
    EXPECT_EQ(match(k, L"_u"), L"Undo") << "an underscore answer matches the global names";
    EXPECT_EQ(match(k, L"_z"), L"<none>") << "local names are not global";
    EXPECT_EQ(match(k, L"s"), L"<none>") << "global names are not local";

    auto local = KeywordList::parse(L"Materiál");
    EXPECT_EQ(match(local, L"_m"), L"Materiál") << "without globals each keyword is its own global name";

    auto odd = KeywordList::parse(L"Materiál _ Ručně");
    EXPECT_EQ(match(odd, L"m"), L"Ručně");
    EXPECT_EQ(match(odd, L"_r"), L"Ručně");
}

TEST(Keywords, ExplicitAbbreviationAfterAComma)
{
    auto k = KeywordList::parse(L"LTYPE,LT");
    EXPECT_EQ(match(k, L"lt"), L"LTYPE");
    EXPECT_EQ(match(k, L"lty"), L"LTYPE");
    EXPECT_EQ(match(k, L"l"), L"<none>");
}

TEST(Keywords, EmptyListsAndAnswers)
{
    EXPECT_TRUE(KeywordList::parse(L"   ").empty());
    auto k = KeywordList::parse(L"  N   S  ");
    EXPECT_EQ(match(k, L"s"), L"S");
    EXPECT_EQ(match(k, L""), L"<none>");
    EXPECT_EQ(match(k, L"_"), L"<none>");
}
