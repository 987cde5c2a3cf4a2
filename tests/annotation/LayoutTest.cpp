// Layouts: the layout manager's active layout per database, TILEMODE with it, and layouts
// surviving a DXF save and load.
#include "AnnotationFixture.h"

#include "acaplmgr.h"
#include "dbapserv.h"
#include "dblayout.h"
#include "dblaymgr.h"

namespace {
std::wstring btrName(AcDbObjectId id)
{
    auto* btr = AcDbBlockTableRecord::cast(sim::db::objectOf(id));
    const ACHAR* n = nullptr;
    if (btr)
        btr->getName(n);
    return n ? n : L"";
}
} // namespace

TEST_F(AnnotationTest, TheActiveLayoutFollowsSetCurrentLayoutAndTilemode)
{
    AcDbLayoutManager* lm = acdbHostApplicationServices()->layoutManager();
    ASSERT_NE(lm, nullptr);
    EXPECT_NE(AcApLayoutManager::cast(lm), nullptr);
    EXPECT_EQ(lm->countLayouts(db.get()), 2);
    EXPECT_TRUE(db->tilemode());
    EXPECT_EQ(btrName(lm->getActiveLayoutBTRId(db.get())), ACDB_MODEL_SPACE);
    AcString name;
    ASSERT_EQ(lm->getActiveLayoutName(name, true, db.get()), Acad::eOk);
    EXPECT_STREQ(name.constPtr(), L"Model");
    ASSERT_EQ(lm->getActiveLayoutName(name, false, db.get()), Acad::eOk);
    EXPECT_STREQ(name.constPtr(), L"Layout1");

    // Names ignore case; the paper layout turns TILEMODE off.
    ASSERT_EQ(lm->setCurrentLayout(L"LAYOUT1", db.get()), Acad::eOk);
    EXPECT_FALSE(db->tilemode());
    EXPECT_EQ(btrName(lm->getActiveLayoutBTRId(db.get())), ACDB_PAPER_SPACE);
    EXPECT_EQ(btrName(db->currentSpaceId()), ACDB_PAPER_SPACE);
    EXPECT_EQ(lm->setCurrentLayout(L"Layout9", db.get()), Acad::eKeyNotFound);
    EXPECT_FALSE(db->tilemode());

    ASSERT_EQ(db->setTilemode(true), Acad::eOk);
    EXPECT_EQ(btrName(lm->getActiveLayoutBTRId(db.get())), ACDB_MODEL_SPACE);
    ASSERT_EQ(lm->setCurrentLayout(L"model", db.get()), Acad::eOk);
    EXPECT_TRUE(db->tilemode());

    // Each database keeps its own.
    AcDbDatabase other(true);
    EXPECT_EQ(lm->setCurrentLayout(L"Layout1", &other), Acad::eOk);
    EXPECT_TRUE(db->tilemode());
    EXPECT_FALSE(other.tilemode());
}

TEST_F(AnnotationTest, LayoutsSurviveASaveAndLoad)
{
    AcDbLayoutManager* lm = acdbLayoutManager();
    AcDbObjectId layout1 = lm->findLayoutNamed(L"Layout1", db.get());
    ASSERT_FALSE(layout1.isNull());
    lm->setCurrentLayout(L"Layout1", db.get());
    roundTrip();
    auto* l = same<AcDbLayout>(layout1);
    ASSERT_NE(l, nullptr);
    const ACHAR* name = nullptr;
    l->getLayoutName(name);
    EXPECT_STREQ(name, L"Layout1");
    EXPECT_EQ(l->getTabOrder(), 1);
    EXPECT_EQ(btrName(l->getBlockTableRecordId()), ACDB_PAPER_SPACE);
    auto* btr = AcDbBlockTableRecord::cast(sim::db::objectOf(l->getBlockTableRecordId()));
    EXPECT_TRUE(btr->isLayout());
    EXPECT_EQ(btr->getLayoutId().handle(), layout1.handle());
    EXPECT_FALSE(back->tilemode());
    EXPECT_EQ(btrName(lm->getActiveLayoutBTRId(back.get())), ACDB_PAPER_SPACE);
    // The plot settings come back as they were written.
    EXPECT_NE(first.find("AcDbPlotSettings"), std::string::npos);
}
