// Window-message filters: registered once, offered each message in order, the first that uses it up
// keeps it from the rest.
#include <gtest/gtest.h>

#include "sim/app/WinMsgFilters.h"

namespace {

int g_seen = 0;
bool watches(MSG*)
{
    ++g_seen;
    return false;
}
bool takesDoubleClicks(MSG* msg) { return msg->message == WM_LBUTTONDBLCLK; }

TEST(WinMsgFilters, FirstFilterThatUsesTheMessageUpEndsTheRound)
{
    g_seen = 0;
    ASSERT_TRUE(acedRegisterFilterWinMsg(takesDoubleClicks));
    ASSERT_TRUE(acedRegisterFilterWinMsg(watches));
    EXPECT_FALSE(acedRegisterFilterWinMsg(watches));
    EXPECT_EQ(sim::app::winMsgFilterCount(), 2u);

    MSG msg{};
    msg.message = WM_LBUTTONDBLCLK;
    EXPECT_TRUE(sim::app::filterWinMsg(msg));
    EXPECT_EQ(g_seen, 0);
    msg.message = WM_LBUTTONDBLCLK + 1;
    EXPECT_FALSE(sim::app::filterWinMsg(msg));
    EXPECT_EQ(g_seen, 1);

    EXPECT_TRUE(acedRemoveFilterWinMsg(takesDoubleClicks));
    EXPECT_FALSE(acedRemoveFilterWinMsg(takesDoubleClicks));
    msg.message = WM_LBUTTONDBLCLK;
    EXPECT_FALSE(sim::app::filterWinMsg(msg));
    EXPECT_TRUE(acedRemoveFilterWinMsg(watches));
    EXPECT_EQ(sim::app::winMsgFilterCount(), 0u);
}

} // namespace
