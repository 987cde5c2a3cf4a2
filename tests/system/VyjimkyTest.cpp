// The texts of the system's exceptions.
#include <gtest/gtest.h>

#include "CTogException.h"

TEST(CTogException, TextNamesMessageLineAndFile)
{
    EXPECT_STREQ(CTogException("x", 7, "f").what(), "x\nZdroj: Line 7,\nf");
    EXPECT_STREQ(CTogException("Nelze otevřít hladinu", 120, "CTogDwg.cpp").what(),
                 "Nelze otevřít hladinu\nZdroj: Line 120,\nCTogDwg.cpp");
}

TEST(CTogException, TextWithCodeKeepsItsSign)
{
    EXPECT_STREQ(CTogException("x", 7, "f", 5).what(), "x\nZdroj: 5, Line 7,\nf");
    EXPECT_STREQ(CTogException("x", 7, "f", -5001).what(), "x\nZdroj: -5001, Line 7,\nf");
    EXPECT_STREQ(CTogException("x", 7, "f", 0).what(), "x\nZdroj: 0, Line 7,\nf");
}

TEST(CTogException, CopyKeepsTheTextAndCatchesAsStandardException)
{
    try {
        try {
            throw CTogException("Nelze otevřít", 3, "a.cpp", 95);
        } catch (const CTogException& e) {
            throw CTogException(e);
        }
    } catch (const std::exception& e) {
        EXPECT_STREQ(e.what(), "Nelze otevřít\nZdroj: 95, Line 3,\na.cpp");
    }
}

TEST(CTogEasyExcept, IsNoStandardException)
{
    bool standardni = false;
    try {
        try {
            throw CTogEasyExcept(L"Hladina je zamčená");
        } catch (const std::exception&) {
            standardni = true;
        }
    } catch (const CTogEasyExcept& e) {
        EXPECT_STREQ(e.what(), L"Hladina je zamčená");
    }
    EXPECT_FALSE(standardni);
}
