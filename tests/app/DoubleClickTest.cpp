// The double click of a script line: the filters get WM_LBUTTONDBLCLK with the pixel under the point,
// and the host's own conversion of that pixel lands back on the point within a pixel.
#include <gtest/gtest.h>

#include "editor/EditorFixture.h"
#include "sim/app/CommandLine.h"
#include "sim/app/DoubleClick.h"
#include "sim/app/WinMsgFilters.h"
#include "sim/win32/WindowTable.h"

namespace {

MSG g_zprava{};
int g_pocet = 0;
bool zaznamenej(MSG* msg)
{
    g_zprava = *msg;
    ++g_pocet;
    return true;
}

class DoubleClick : public EditorTest {
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        sim::win32::setDocumentWindowOpen(true);
        g_pocet = 0;
        ASSERT_TRUE(acedRegisterFilterWinMsg(zaznamenej));
    }
    void TearDown() override
    {
        acedRemoveFilterWinMsg(zaznamenej);
        EditorTest::TearDown();
    }
};

TEST_F(DoubleClick, FiltrDostanePixelBodu)
{
    setView(AcGePoint2d(1000, 500), 450.0); // half a drawing unit per pixel
    script("");
    for (AcGePoint2d bod : {AcGePoint2d(1000, 500), AcGePoint2d(1210.3, 333.7), AcGePoint2d(700, 720)}) {
        wchar_t radek[64];
        std::swprintf(radek, 64, L"@DblClick %.1f,%.1f", bod.x, bod.y);
        ASSERT_TRUE(sim::app::runCommandLine(radek));
        ASSERT_EQ(g_zprava.message, static_cast<UINT>(WM_LBUTTONDBLCLK));
        EXPECT_EQ(g_zprava.hwnd, sim::win32::documentWindow());
        const POINT pixel{GET_X_LPARAM(g_zprava.lParam), GET_Y_LPARAM(g_zprava.lParam)};
        ads_point zpet;
        ASSERT_TRUE(acedCoordFromPixelToWorld(pixel, zpet));
        EXPECT_NEAR(zpet[0], bod.x, 0.5);
        EXPECT_NEAR(zpet[1], bod.y, 0.5);
    }
    // Left of and above the centre: a smaller x and y of the pixel (y grows downwards).
    const POINT stred = sim::app::pixelOf(AcGePoint3d(1000, 500, 0));
    const POINT vlevoNahore = sim::app::pixelOf(AcGePoint3d(900, 600, 0));
    EXPECT_EQ(vlevoNahore.x, stred.x - 200);
    EXPECT_EQ(vlevoNahore.y, stred.y - 200);
}

TEST_F(DoubleClick, SpatnyBodNeboZadneOknoNicNeposle)
{
    script("");
    EXPECT_FALSE(sim::app::runCommandLine(L"@dblclick nic"));
    EXPECT_FALSE(sim::app::isDoubleClickLine(L"@dblclickx 1,2"));
    sim::win32::setDocumentWindowOpen(false);
    EXPECT_FALSE(sim::app::runCommandLine(L"@dblclick 1,2"));
    EXPECT_EQ(g_pocet, 0);
}

} // namespace
