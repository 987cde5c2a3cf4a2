// Tab completion of command names.
#include <gtest/gtest.h>

#include "cli/Completion.h"

using togu::cli::completeCommand;

namespace {
const std::vector<std::string> kNames = {"LINE", "li", "_z0", "CIRCLE", "LAYER", "LAYOUT", "LINE"};
}

TEST(Completion, OneFittingNameIsCompletedWholeWithASpaceWhateverTheCase)
{
    auto c = completeCommand("cir", kNames);
    EXPECT_EQ(c.insert, "CLE ");
    EXPECT_TRUE(c.candidates.empty());
    // The global and built-in marks stay as typed and do not count as part of the name.
    EXPECT_EQ(completeCommand("_.CI", kNames).insert, "RCLE ");
}

TEST(Completion, SeveralFittingNamesGiveTheirCommonStartAndAreListedOnce)
{
    auto c = completeCommand("LA", kNames);
    EXPECT_EQ(c.insert, "Y");
    EXPECT_EQ(c.candidates, (std::vector<std::string>{"LAYER", "LAYOUT"}));
    c = completeCommand("l", kNames);
    EXPECT_EQ(c.insert, "");
    EXPECT_EQ(c.candidates, (std::vector<std::string>{"LAYER", "LAYOUT", "LINE", "li"}));
}

TEST(Completion, NothingFitsNothingIsAdded)
{
    auto c = completeCommand("xyz", kNames);
    EXPECT_EQ(c.insert, "");
    EXPECT_TRUE(c.candidates.empty());
}
