// The annotation scales of a drawing: handed-out copies, additions, and the removals the host
// refuses (the current scale, a scale an entity carries).
#include "AnnotationFixture.h"

#include "dbents.h"
#include "dbtrans.h"

namespace {
std::wstring nameOf(const AcDbObjectContext* c)
{
    AcString n;
    c->getName(n);
    return n.constPtr();
}
} // namespace

TEST_F(AnnotationTest, ANewDrawingHasTheUsualScalesAndOneToOneIsCurrent)
{
    ASSERT_NE(scales(), nullptr);
    EXPECT_EQ(db->objectContextManager()->contextCollection(AcString(L"NO_SUCH_COLLECTION")), nullptr);
    std::unique_ptr<AcDbAnnotationScale> current(db->cannoscale());
    ASSERT_NE(current, nullptr);
    EXPECT_EQ(nameOf(current.get()), L"1:1");

    auto fifty = scale(L"1:50");
    ASSERT_NE(fifty, nullptr);
    double paper = 0, drawing = 0, factor = 0;
    fifty->getPaperUnits(paper);
    fifty->getDrawingUnits(drawing);
    fifty->getScale(factor);
    EXPECT_EQ(paper, 1.0);
    EXPECT_EQ(drawing, 50.0);
    EXPECT_DOUBLE_EQ(factor, 0.02);
    // Each call hands out a copy of its own; the same scale keeps its identity.
    auto again = scale(L"1:50");
    EXPECT_NE(again.get(), fifty.get());
    EXPECT_TRUE(again->matchScaleId(fifty->uniqueIdentifier()));

    int n = 0;
    std::unique_ptr<AcDbObjectContextCollectionIterator> it(scales()->newIterator());
    for (it->start(); !it->done(); it->next()) {
        AcDbObjectContext* c = nullptr;
        ASSERT_EQ(it->getContext(c), Acad::eOk);
        delete c;
        ++n;
    }
    EXPECT_EQ(n, 14);
}

TEST_F(AnnotationTest, AMissingNameGivesNoContextAndNamesIgnoreCase)
{
    EXPECT_EQ(scales()->getContext(AcString(L"1:33")), nullptr);
    EXPECT_FALSE(scales()->hasContext(AcString(L"1:33")));
    EXPECT_EQ(scales()->removeContext(AcString(L"1:33")), Acad::eKeyNotFound);
    db->setInsunits(AcDb::kUnitsMeters);
    AcDbAnnotationScale added;
    added.setName(AcString(L"1:100m"));
    added.setDrawingUnits(0.1);
    ASSERT_EQ(scales()->addContext(&added), Acad::eOk);
    EXPECT_TRUE(scales()->hasContext(AcString(L"1:100M")));
    AcDbAnnotationScale twin;
    twin.setName(AcString(L"1:100M"));
    EXPECT_EQ(scales()->addContext(&twin), Acad::eDuplicateKey);
    EXPECT_EQ(twin.setDrawingUnits(0.0), Acad::eInvalidInput);
}

TEST_F(AnnotationTest, TheCurrentScaleAndScalesInUseStay)
{
    // The current scale.
    auto hundred = scale(L"1:100");
    ASSERT_EQ(db->setCannoscale(hundred.get()), Acad::eOk);
    EXPECT_EQ(scales()->removeContext(AcString(L"1:100")), Acad::eInvalidContext);
    EXPECT_TRUE(scales()->hasContext(AcString(L"1:100")));
    AcDbAnnotationScale stranger;
    stranger.setName(AcString(L"7:3"));
    EXPECT_EQ(db->setCannoscale(&stranger), Acad::eKeyNotFound);
    std::unique_ptr<AcDbAnnotationScale> current(db->cannoscale());
    EXPECT_EQ(nameOf(current.get()), L"1:100");

    // A scale a text carries, until the text is erased.
    auto* text = new AcDbText(AcGePoint3d(0, 0, 0), L"popis");
    AcDbObjectId textId = append(text);
    auto twenty = scale(L"1:20");
    {
        AcDbObjectPointer<AcDbText> open(textId, AcDb::kForWrite);
        ASSERT_EQ(annotativePE(open.object())->setAnnotative(open.object(), true), Acad::eOk);
        ASSERT_EQ(contexts(open.object())->addContext(open.object(), *twenty), Acad::eOk);
    }
    EXPECT_EQ(scales()->removeContext(AcString(L"1:20")), Acad::eNotApplicable);
    EXPECT_TRUE(scales()->hasContext(AcString(L"1:20")));
    // An unused scale goes.
    EXPECT_EQ(scales()->removeContext(AcString(L"1:25")), Acad::eOk);
    EXPECT_FALSE(scales()->hasContext(AcString(L"1:25")));
    {
        AcDbObjectPointer<AcDbText> open(textId, AcDb::kForWrite);
        open->erase();
    }
    EXPECT_EQ(scales()->removeContext(AcString(L"1:20")), Acad::eOk);
}

TEST_F(AnnotationTest, RemovalsWhileIteratingWalkEveryScaleOnce)
{
    auto ten = scale(L"1:10");
    db->setCannoscale(ten.get());
    std::unique_ptr<AcDbObjectContextCollectionIterator> it(scales()->newIterator());
    int seen = 0;
    for (it->start(); !it->done(); it->next(), ++seen) {
        AcDbObjectContext* c = nullptr;
        if (it->getContext(c) == Acad::eOk)
            scales()->removeContext(AcString(nameOf(c).c_str()));
        delete c;
    }
    EXPECT_EQ(seen, 14);
    std::unique_ptr<AcDbObjectContextCollectionIterator> rest(scales()->newIterator());
    int left = 0;
    for (rest->start(); !rest->done(); rest->next())
        ++left;
    EXPECT_EQ(left, 1); // the current one
}

TEST_F(AnnotationTest, AnAbortBringsARemovedScaleBack)
{
    db->transactionManager()->startTransaction();
    EXPECT_EQ(scales()->removeContext(AcString(L"1:5")), Acad::eOk);
    EXPECT_FALSE(scales()->hasContext(AcString(L"1:5")));
    db->transactionManager()->abortTransaction();
    EXPECT_TRUE(scales()->hasContext(AcString(L"1:5")));
}
