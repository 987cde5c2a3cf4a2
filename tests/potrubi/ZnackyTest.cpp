// The editor reactor of the marks: the tenth of the view that a zoom must exceed, the first change
// after the first mark, the redraw of the rebuild lists, and the reactor gone with the marks.
#include "TogDraw.h"
#include "acgitransient.h"
#include "arxHeaders.h"
#include "sim/editor/EditorReactors.h"
#include "sim/editor/Transients.h"
#include "system/SystemNaPlatforme.h"

using Znacky = SystemNaPlatforme;

TEST(ZmenaPohledu, MoreThanATenthOfTheRememberedSize)
{
    EXPECT_FALSE(TogDraw::ZmenaPohledu(100.0, 105.0));
    EXPECT_FALSE(TogDraw::ZmenaPohledu(100.0, 90.0));
    EXPECT_TRUE(TogDraw::ZmenaPohledu(100.0, 120.0));
    EXPECT_TRUE(TogDraw::ZmenaPohledu(100.0, 80.0));
    // Nothing remembered: any view is a change.
    EXPECT_TRUE(TogDraw::ZmenaPohledu(0.0, 297.0));
}

TEST_F(Znacky, ViewChangeTakesMarksOffAndRedrawsTheRebuildLists)
{
    Spust();
    sim::editor::clearTransients();
    const int reaktoru = sim::editor::editorReactorCount();
    TogDraw::PridejZnacku(new AcDbLine({0, 0, 0}, {1, 1, 0}));
    EXPECT_EQ(sim::editor::editorReactorCount(), reaktoru + 1);
    TogDraw::Obnova().krizky.push_back({10, 10, 0});

    // The first change of the view after the first mark: the mark goes, the cross is drawn.
    sim::editor::notifyViewChanged();
    EXPECT_EQ(sim::editor::describeTransients(), L"LINE in viewports 2\nLINE in viewports 2\n");
    ASSERT_EQ(TogDraw::Znacky().size(), 2u);
    const AcDbEntity* krizek = TogDraw::Znacky()[0];
    EXPECT_GT(TogDraw::g_zapamatovanaVelikost, 0.0);
    EXPECT_EQ(TogDraw::Obnova().krizky.size(), 1u);

    // The same size again: nothing happens.
    sim::editor::notifyViewChanged();
    EXPECT_EQ(TogDraw::Znacky()[0], krizek);
    // The transcript shows the marks appear and go.
    EXPECT_NE(Zaznam().find(L"[náhled] LINE"), std::wstring::npos);
    EXPECT_NE(Zaznam().find(L"[náhled pryč] LINE"), std::wstring::npos);

    TogDraw::SmazZnacky(true, true);
    EXPECT_EQ(sim::editor::editorReactorCount(), reaktoru);
    EXPECT_TRUE(sim::editor::transients().empty());
    EXPECT_TRUE(TogDraw::Obnova().krizky.empty());
}
