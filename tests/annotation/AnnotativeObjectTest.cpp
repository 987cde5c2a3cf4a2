// Annotative objects: which classes have the protocol, the flag, the scales an entity carries, and
// both surviving a DXF save and load.
#include "AnnotationFixture.h"

#include "dbdim.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbsymtb.h"
#include "mleaderstyle.h"

TEST_F(AnnotationTest, AnnotationClassesHaveTheProtocolOthersNot)
{
    AcDbText text;
    AcDbMText mtext;
    AcDbAlignedDimension dim;
    AcDbBlockReference ref;
    AcDbTextStyleTableRecord textStyle;
    AcDbDimStyleTableRecord dimStyle;
    AcDbMLeaderStyle mleaderStyle;
    for (const AcDbObject* o : std::initializer_list<const AcDbObject*>{&text, &mtext, &dim, &ref, &textStyle, &dimStyle, &mleaderStyle})
        EXPECT_NE(annotativePE(o), nullptr) << o->isA()->name();
    for (const AcDbObject* o : std::initializer_list<const AcDbObject*>{&text, &mtext, &dim, &ref})
        EXPECT_NE(contexts(o), nullptr) << o->isA()->name();
    AcDbLine line;
    AcDbLayerTableRecord layer;
    EXPECT_EQ(annotativePE(&line), nullptr);
    EXPECT_EQ(annotativePE(&layer), nullptr);
    EXPECT_EQ(contexts(&textStyle), nullptr);
    EXPECT_TRUE(contexts(&text)->supportsCollection(&text, AcString(ACDB_ANNOTATIONSCALES_COLLECTION)));
}

TEST_F(AnnotationTest, TheFlagNeedsWriteAccessAndScalesAreAddedOnce)
{
    AcDbObjectId id = append(new AcDbMText);
    auto fifty = scale(L"1:50");
    {
        AcDbObjectPointer<AcDbMText> read(id, AcDb::kForRead);
        EXPECT_FALSE(annotativePE(read.object())->annotative(read.object()));
        EXPECT_EQ(annotativePE(read.object())->setAnnotative(read.object(), true), Acad::eNotOpenForWrite);
        EXPECT_EQ(contexts(read.object())->addContext(read.object(), *fifty), Acad::eNotOpenForWrite);
    }
    AcDbObjectPointer<AcDbMText> m(id, AcDb::kForWrite);
    AcDbMText* e = m.object();
    ASSERT_EQ(annotativePE(e)->setAnnotative(e, true), Acad::eOk);
    EXPECT_TRUE(annotativePE(e)->annotative(e));
    EXPECT_FALSE(contexts(e)->hasContext(e, *fifty));
    ASSERT_EQ(contexts(e)->addContext(e, *fifty), Acad::eOk);
    EXPECT_EQ(contexts(e)->addContext(e, *fifty), Acad::eOk);
    EXPECT_TRUE(contexts(e)->hasContext(e, *fifty));
    // A scale the drawing does not have cannot be carried.
    AcDbAnnotationScale stranger;
    stranger.setName(AcString(L"1:33"));
    EXPECT_EQ(contexts(e)->addContext(e, stranger), Acad::eInvalidContext);
    EXPECT_FALSE(contexts(e)->hasContext(e, stranger));
    // A scale made by name finds the drawing's scale of that name.
    AcDbAnnotationScale byName;
    byName.setName(AcString(L"1:50"));
    EXPECT_TRUE(contexts(e)->hasContext(e, byName));
    EXPECT_EQ(contexts(e)->removeContext(e, byName), Acad::eOk);
    EXPECT_FALSE(contexts(e)->hasContext(e, *fifty));
    EXPECT_EQ(contexts(e)->removeContext(e, byName), Acad::eKeyNotFound);
    ASSERT_EQ(annotativePE(e)->setAnnotative(e, false), Acad::eOk);
    EXPECT_FALSE(annotativePE(e)->annotative(e));
}

TEST_F(AnnotationTest, FlagAndScalesSurviveASaveAndLoad)
{
    AcDbObjectId textId = append(new AcDbText(AcGePoint3d(1, 2, 0), L"DN 100"));
    AcDbObjectId plainId = append(new AcDbText(AcGePoint3d(5, 2, 0), L"bez měřítka"));
    auto fifty = scale(L"1:50");
    auto hundred = scale(L"1:100");
    {
        AcDbObjectPointer<AcDbText> t(textId, AcDb::kForWrite);
        annotativePE(t.object())->setAnnotative(t.object(), true);
        contexts(t.object())->addContext(t.object(), *fifty);
        contexts(t.object())->addContext(t.object(), *hundred);
    }
    AcDbTextStyleTableRecordPointer style(L"Standard", db.get(), AcDb::kForWrite);
    ASSERT_EQ(style.openStatus(), Acad::eOk);
    annotativePE(style.object())->setAnnotative(style.object(), true);
    AcDbObjectId styleId = style->objectId();
    style.close();
    db->setCannoscale(hundred.get());

    roundTrip();
    std::unique_ptr<AcDbAnnotationScale> current(back->cannoscale());
    ASSERT_NE(current, nullptr);
    AcString name;
    current->getName(name);
    EXPECT_STREQ(name.constPtr(), L"1:100");
    AcDbText* text = same<AcDbText>(textId);
    ASSERT_NE(text, nullptr);
    EXPECT_TRUE(annotativePE(text)->annotative(text));
    auto fiftyBack = scale(L"1:50", back.get());
    auto twentyBack = scale(L"1:20", back.get());
    EXPECT_TRUE(contexts(text)->hasContext(text, *fiftyBack));
    EXPECT_TRUE(contexts(text)->hasContext(text, *scale(L"1:100", back.get())));
    EXPECT_FALSE(contexts(text)->hasContext(text, *twentyBack));
    AcDbText* plain = same<AcDbText>(plainId);
    EXPECT_FALSE(annotativePE(plain)->annotative(plain));
    auto* styleBack = same<AcDbTextStyleTableRecord>(styleId);
    EXPECT_TRUE(annotativePE(styleBack)->annotative(styleBack));
    // The scales the text carries are still in use after the load.
    EXPECT_EQ(scales(*back)->removeContext(AcString(L"1:50")), Acad::eNotApplicable);
    EXPECT_EQ(scales(*back)->removeContext(AcString(L"1:20")), Acad::eOk);
}
