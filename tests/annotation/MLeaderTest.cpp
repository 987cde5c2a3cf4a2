// Multileader styles and multileaders: the values the system sets, leaders built line by line, and
// both surviving a DXF save and load.
#include "AnnotationFixture.h"

#include "dbdict.h"
#include "dbmtext.h"
#include "dbtrans.h"
#include "mleader.h"
#include "mleaderstyle.h"

namespace {
AcDbObjectId textStyle(AcDbDatabase& db, const wchar_t* name)
{
    AcDbTextStyleTableRecordPointer rec(name, &db);
    return rec.openStatus() == Acad::eOk ? rec->objectId() : AcDbObjectId::kNull;
}
} // namespace

TEST_F(AnnotationTest, MLeaderStyleValuesSurviveASaveAndLoad)
{
    auto* style = new AcDbMLeaderStyle;
    ASSERT_EQ(style->setName(L"TG_SIPKA"), Acad::eOk);
    AcDbObjectId standard = textStyle(*db, L"Standard");
    int sum = style->setTextStyleId(standard) + style->setTextHeight(2.0) +
              style->setLeaderLineType(AcMLeaderStyle::kStraightLeader) +
              style->setTextAttachmentType(AcDbMLeaderStyle::kAttachmentMiddle, AcDbMLeaderStyle::kLeftLeader) +
              style->setTextAttachmentType(AcDbMLeaderStyle::kAttachmentBottomOfTop, AcDbMLeaderStyle::kRightLeader) +
              style->setArrowSize(1.5) + style->setContentType(AcDbMLeaderStyle::kMTextContent) + style->setDoglegLength(1.0) +
              style->setLandingGap(1.0) + style->setTextAlignAlwaysLeft(false) + style->setAlignSpace(4.0) +
              style->setLeaderLineTypeId(db->continuousLinetype()) + style->setEnableLanding(true) +
              style->setEnableDogleg(false) + style->setArrowSymbolId(db->currentSpaceId());
    ASSERT_EQ(sum, 0);
    EXPECT_EQ(style->setTextAttachmentType(AcDbMLeaderStyle::kAttachmentMiddle, AcDbMLeaderStyle::kTopLeader), Acad::eInvalidInput);
    annotativePE(style)->setAnnotative(style, true);
    AcDbObjectId id;
    {
        AcDbDictionary* dict = nullptr;
        AcDbObject* obj = nullptr;
        ASSERT_EQ(acdbOpenObject(obj, db->mLeaderStyleDictionaryId(), AcDb::kForWrite), Acad::eOk);
        dict = AcDbDictionary::cast(obj);
        ASSERT_EQ(dict->setAt(L"TG_SIPKA", style, id), Acad::eOk);
        style->close();
        dict->close();
    }

    roundTrip();
    auto* s = same<AcDbMLeaderStyle>(id);
    ASSERT_NE(s, nullptr);
    EXPECT_STREQ(s->getName(), L"TG_SIPKA");
    EXPECT_EQ(s->textStyleId().handle(), standard.handle());
    EXPECT_EQ(s->textHeight(), 2.0);
    EXPECT_EQ(s->leaderLineType(), AcMLeaderStyle::kStraightLeader);
    EXPECT_EQ(s->textAttachmentType(AcDbMLeaderStyle::kLeftLeader), AcDbMLeaderStyle::kAttachmentMiddle);
    EXPECT_EQ(s->textAttachmentType(AcDbMLeaderStyle::kRightLeader), AcDbMLeaderStyle::kAttachmentBottomOfTop);
    EXPECT_EQ(s->arrowSize(), 1.5);
    EXPECT_EQ(s->contentType(), AcDbMLeaderStyle::kMTextContent);
    EXPECT_EQ(s->doglegLength(), 1.0);
    EXPECT_EQ(s->landingGap(), 1.0);
    EXPECT_FALSE(s->textAlignAlwaysLeft());
    EXPECT_EQ(s->alignSpace(), 4.0);
    EXPECT_EQ(s->leaderLineTypeId().handle(), db->continuousLinetype().handle());
    EXPECT_TRUE(s->enableLanding());
    EXPECT_FALSE(s->enableDogleg());
    EXPECT_EQ(s->arrowSymbolId().handle(), db->currentSpaceId().handle());
    EXPECT_TRUE(annotativePE(s)->annotative(s));
    // The template's Standard style is one too.
    AcDbObjectId standardStyle;
    AcDbDictionary* dict = AcDbDictionary::cast(sim::db::objectOf(back->mLeaderStyleDictionaryId()));
    ASSERT_EQ(dict->getAt(L"standard", standardStyle), Acad::eOk);
    EXPECT_NE(AcDbMLeaderStyle::cast(sim::db::objectOf(standardStyle)), nullptr);
}

TEST_F(AnnotationTest, AMultileaderIsBuiltLineByLine)
{
    auto* leader = new AcDbMLeader;
    auto* text = new AcDbMText;
    text->setContents(L"PP-R 32×4,4");
    text->setLocation(AcGePoint3d(58, 20, 0));
    text->setTextHeight(2.0);
    text->setAttachment(AcDbMText::kMiddleLeft);
    leader->setContentType(AcMLeaderStyle::kMTextContent);
    leader->setTextAlignmentType(AcMLeaderStyle::kLeftAlignment);
    leader->setTextAttachmentType(AcMLeaderStyle::kAttachmentMiddleOfTop, AcMLeaderStyle::kLeftLeader);
    leader->setTextLocation(AcGePoint3d(58, 20, 0));
    const AcGePoint3d arrows[] = {AcGePoint3d(0, 0, 0), AcGePoint3d(10, -5, 0)};
    for (const AcGePoint3d& arrow : arrows) {
        int li = -1, lli = -1;
        ASSERT_EQ(leader->addLeader(li), Acad::eOk);
        ASSERT_EQ(leader->addLeaderLine(li, lli), Acad::eOk);
        ASSERT_EQ(leader->addFirstVertex(lli, arrow), Acad::eOk);
        ASSERT_EQ(leader->addLastVertex(lli, AcGePoint3d(50, 20, 0)), Acad::eOk);
        ASSERT_EQ(leader->setDoglegDirection(li, AcGeVector3d(1, 0, 0)), Acad::eOk);
    }
    ASSERT_EQ(leader->setMText(text), Acad::eOk);
    delete text;
    AcDbObjectId id = append(leader);

    roundTrip();
    auto* m = same<AcDbMLeader>(id);
    ASSERT_NE(m, nullptr);
    EXPECT_EQ(m->contentType(), AcMLeaderStyle::kMTextContent);
    std::unique_ptr<AcDbMText> content(m->mtext());
    ASSERT_NE(content, nullptr);
    ACHAR* contents = content->contents();
    EXPECT_STREQ(contents, L"PP-R 32×4,4");
    delete[] contents;
    EXPECT_EQ(content->textHeight(), 2.0);
    EXPECT_EQ(content->location(), AcGePoint3d(58, 20, 0));
    AcArray<int> leaders;
    ASSERT_EQ(m->getLeaderIndexes(leaders), Acad::eOk);
    ASSERT_EQ(leaders.length(), 2);
    for (int i = 0; i < 2; ++i) {
        AcArray<int> lines;
        ASSERT_EQ(m->getLeaderLineIndexes(leaders[i], lines), Acad::eOk);
        ASSERT_EQ(lines.length(), 1);
        int n = 0;
        ASSERT_EQ(m->numVertices(lines[0], n), Acad::eOk);
        EXPECT_EQ(n, 2);
        AcGePoint3d first, last;
        m->getVertex(lines[0], 0, first);
        m->getLastVertex(lines[0], last);
        EXPECT_EQ(first, arrows[i]);
        EXPECT_EQ(last, AcGePoint3d(50, 20, 0));
    }
    AcArray<int> none;
    EXPECT_EQ(m->getLeaderLineIndexes(99, none), Acad::eInvalidIndex);
    // Saving gave it what it named as null: the current multileader style and its text style.
    EXPECT_EQ(m->MLeaderStyle().handle(), db->cmleaderstyle().handle());
    EXPECT_FALSE(m->textStyleId().isNull());
}

TEST_F(AnnotationTest, AMultileaderWithoutTextHasNoMText)
{
    AcDbMLeader leader;
    EXPECT_EQ(leader.mtext(), nullptr);
    int line = -1;
    EXPECT_EQ(leader.addLeaderLine(5, line), Acad::eInvalidIndex);
    AcDbMText text;
    text.setContents(L"");
    leader.setMText(&text);
    std::unique_ptr<AcDbMText> m(leader.mtext());
    ASSERT_NE(m, nullptr);
    ACHAR* c = m->contents();
    EXPECT_STREQ(c, L"");
    delete[] c;
}

TEST_F(AnnotationTest, AnAbortBringsBackTheValuesOfAStyle)
{
    AcDbDictionary* dict = AcDbDictionary::cast(sim::db::objectOf(db->mLeaderStyleDictionaryId()));
    AcDbObjectId id;
    ASSERT_EQ(dict->getAt(L"Standard", id), Acad::eOk);
    db->transactionManager()->startTransaction();
    {
        AcDbObjectPointer<AcDbMLeaderStyle> style(id, AcDb::kForWrite);
        ASSERT_EQ(style->setTextHeight(7.0), Acad::eOk);
        EXPECT_EQ(style->textHeight(), 7.0);
    }
    db->transactionManager()->abortTransaction();
    AcDbObjectPointer<AcDbMLeaderStyle> style(id, AcDb::kForRead);
    EXPECT_EQ(style->textHeight(), 2.5);
    EXPECT_EQ(style->setTextHeight(3.0), Acad::eNotOpenForWrite);
}

TEST_F(AnnotationTest, MovingAMultileaderMovesItsTextAndVertices)
{
    AcDbMLeader leader;
    int line = -1;
    leader.setTextLocation(AcGePoint3d(10, 10, 0));
    ASSERT_EQ(leader.addLeaderLine(AcGePoint3d(0, 0, 0), line), Acad::eOk);
    AcGeMatrix3d move;
    move.setToTranslation(AcGeVector3d(5, -1, 0));
    ASSERT_EQ(leader.transformBy(move), Acad::eOk);
    AcGePoint3d p;
    leader.getTextLocation(p);
    EXPECT_EQ(p, AcGePoint3d(15, 9, 0));
    leader.getFirstVertex(line, p);
    EXPECT_EQ(p, AcGePoint3d(5, -1, 0));
    leader.getLastVertex(line, p);
    EXPECT_EQ(p, AcGePoint3d(15, 9, 0));
}
