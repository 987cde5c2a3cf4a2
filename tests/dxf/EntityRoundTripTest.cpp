// Each modelled entity written through the tag writer and read back keeps its values, and a second
// write gives the same text as the first.
#include "DxfFixture.h"

#include <cmath>

#include "dbents.h"
#include "dbmtext.h"
#include "dbpl.h"

using namespace dxftest;

namespace {

constexpr double kTol = 1e-9;

/// The ids of entities made in one drawing; after the round trip the same handles name them.
struct Drawing {
    std::unique_ptr<AcDbDatabase> db = std::make_unique<AcDbDatabase>(true);
    std::unique_ptr<AcDbDatabase> back;
    std::string first;

    void roundTrip()
    {
        first = write(*db);
        back = read(first);
        std::string second = write(*back);
        EXPECT_TRUE(second == first) << difference(first, second);
    }
};

} // namespace

class EntityRoundTrip : public DxfTest {};

TEST_F(EntityRoundTrip, CurvesKeepGeometryAndCommonFields)
{
    Drawing d;
    auto* line = new AcDbLine(AcGePoint3d(1, 2, 3), AcGePoint3d(-4.5, 1e-7, 123456.789));
    line->setThickness(2.0);
    AcCmColor red;
    red.setColorIndex(1);
    line->setColor(red);
    line->setLineWeight(AcDb::kLnWt035);
    line->setLinetypeScale(0.25);
    line->setVisibility(AcDb::kInvisible);
    AcDbObjectId lineId = append(*d.db, line);

    auto* circle = new AcDbCircle(AcGePoint3d(10, 20, 5), AcGeVector3d(0, 0, -1), 7.5);
    AcCmColor rgb;
    rgb.setRGB(10, 200, 30);
    circle->setColor(rgb);
    AcDbObjectId circleId = append(*d.db, circle);

    // An arc in a tilted plane: the file keeps its centre in the plane's own coordinates.
    AcGeVector3d tilted = AcGeVector3d(0, 1, 1).normal();
    AcDbObjectId arcId = append(*d.db, new AcDbArc(AcGePoint3d(1, 2, 3), tilted, 4.0, M_PI / 6, 3 * M_PI / 2));

    auto* pl = new AcDbPolyline;
    pl->addVertexAt(0, AcGePoint2d(0, 0), 0.5, 0.1, 0.2);
    pl->addVertexAt(1, AcGePoint2d(10, 0), -1.0, 0.3, 0.4);
    pl->addVertexAt(2, AcGePoint2d(10, 10), 0.0, 0.0, 0.0);
    pl->setClosed(true);
    pl->setPlinegen(true);
    pl->setElevation(2.5);
    AcDbObjectId plId = append(*d.db, pl);

    auto* constant = new AcDbPolyline;
    constant->addVertexAt(0, AcGePoint2d(0, 0));
    constant->addVertexAt(1, AcGePoint2d(5, 5));
    constant->setConstantWidth(0.7);
    AcDbObjectId constId = append(*d.db, constant);

    d.roundTrip();
    AcDbDatabase& b = *d.back;

    auto* l = same<AcDbLine>(b, lineId);
    ASSERT_TRUE(l);
    EXPECT_TRUE(l->startPoint().isEqualTo(AcGePoint3d(1, 2, 3)));
    EXPECT_EQ(l->endPoint().z, 123456.789);
    EXPECT_EQ(l->thickness(), 2.0);
    EXPECT_EQ(l->colorIndex(), 1);
    EXPECT_EQ(l->lineWeight(), AcDb::kLnWt035);
    EXPECT_EQ(l->linetypeScale(), 0.25);
    EXPECT_EQ(l->visibility(), AcDb::kInvisible);
    EXPECT_EQ(l->layerId(), AcDbObjectId(&b, d.db->layerZero().handle()));
    EXPECT_EQ(l->linetypeId(), b.byLayerLinetype());
    EXPECT_EQ(l->ownerId(), b.currentSpaceId());

    auto* c = same<AcDbCircle>(b, circleId);
    ASSERT_TRUE(c);
    EXPECT_TRUE(c->center().isEqualTo(AcGePoint3d(10, 20, 5)));
    EXPECT_TRUE(c->normal().isEqualTo(AcGeVector3d(0, 0, -1)));
    EXPECT_TRUE(c->color().isByColor());
    EXPECT_EQ(c->color().green(), 200);

    auto* a = same<AcDbArc>(b, arcId);
    ASSERT_TRUE(a);
    EXPECT_TRUE(a->center().isEqualTo(AcGePoint3d(1, 2, 3)));
    EXPECT_NEAR(a->startAngle(), M_PI / 6, kTol);
    EXPECT_NEAR(a->endAngle(), 3 * M_PI / 2, kTol);

    auto* p = same<AcDbPolyline>(b, plId);
    ASSERT_TRUE(p);
    ASSERT_EQ(p->numVerts(), 3u);
    double bulge = 0, sw = 0, ew = 0;
    p->getBulgeAt(1, bulge);
    p->getWidthsAt(1, sw, ew);
    EXPECT_EQ(bulge, -1.0);
    EXPECT_EQ(sw, 0.3);
    EXPECT_EQ(ew, 0.4);
    EXPECT_TRUE(p->isClosed());
    EXPECT_TRUE(p->hasPlinegen());
    EXPECT_EQ(p->elevation(), 2.5);
    double w = 0;
    EXPECT_EQ(same<AcDbPolyline>(b, constId)->getConstantWidth(w), Acad::eOk);
    EXPECT_EQ(w, 0.7);
}

TEST_F(EntityRoundTrip, OldPolylineKeepsItsVerticesAndEnd)
{
    Drawing d;
    auto* pl = new AcDb2dPolyline;
    pl->makeClosed();
    pl->setPolyType(AcDb::k2dCubicSplinePoly);
    AcDbObjectId plId = append(*d.db, pl);
    {
        AcDbObjectPointer<AcDb2dPolyline> open(plId, AcDb::kForWrite);
        for (int i = 0; i < 3; ++i) {
            auto* v = new AcDb2dVertex(AcGePoint3d(i * 2.0, i * i, 0.0), i == 1 ? 0.25 : 0.0);
            ASSERT_EQ(open->appendVertex(v), Acad::eOk);
            v->close();
        }
    }
    d.roundTrip();
    auto* p = same<AcDb2dPolyline>(*d.back, plId);
    ASSERT_TRUE(p);
    EXPECT_TRUE(p->isClosed());
    EXPECT_EQ(p->polyType(), AcDb::k2dCubicSplinePoly);
    const auto& vs = sim::db::vertexIds(p);
    ASSERT_EQ(vs.size(), 3u);
    auto* v1 = AcDb2dVertex::cast(sim::db::objectOf(vs[1]));
    ASSERT_TRUE(v1);
    EXPECT_EQ(v1->bulge(), 0.25);
    EXPECT_TRUE(v1->position().isEqualTo(AcGePoint3d(2, 1, 0)));
    EXPECT_EQ(v1->ownerId(), p->objectId());
    EXPECT_FALSE(sim::db::seqEndId(p).isNull());
}

TEST_F(EntityRoundTrip, TextsKeepAlignmentAndLongContents)
{
    Drawing d;
    auto* t = new AcDbText(AcGePoint3d(1, 1, 0), L"Žluťoučký kůň ^ a\tb", d.db->textstyle(), 2.5, M_PI / 6);
    t->setHorizontalMode(AcDb::kTextCenter);
    t->setVerticalMode(AcDb::kTextVertMid);
    t->setAlignmentPoint(AcGePoint3d(5, 6, 0));
    t->setOblique(0.2);
    t->setWidthFactor(0.8);
    t->mirrorInX(true);
    AcDbObjectId textId = append(*d.db, t);

    auto* ocs = new AcDbText(AcGePoint3d(3, 4, -5), L"upside", d.db->textstyle(), 1.0);
    ocs->setNormal(AcGeVector3d(0, 0, -1));
    AcDbObjectId ocsId = append(*d.db, ocs);

    std::wstring contents;
    for (int i = 0; i < 60; ++i)
        contents += L"řádek " + std::to_wstring(i) + L" ";
    contents += L"\\Pkonec {\\fArial|b1;tučně}";
    auto* m = new AcDbMText;
    m->setLocation(AcGePoint3d(20, 30, 0));
    m->setContents(contents.c_str());
    m->setTextHeight(3.0);
    m->setWidth(80.0);
    m->setAttachment(AcDbMText::kMiddleCenter);
    m->setRotation(M_PI / 12);
    m->setLineSpacingFactor(1.5);
    AcDbObjectId mId = append(*d.db, m);

    d.roundTrip();
    auto* t2 = same<AcDbText>(*d.back, textId);
    ASSERT_TRUE(t2);
    EXPECT_STREQ(t2->textStringConst(), L"Žluťoučký kůň ^ a\tb");
    EXPECT_EQ(t2->horizontalMode(), AcDb::kTextCenter);
    EXPECT_EQ(t2->verticalMode(), AcDb::kTextVertMid);
    EXPECT_TRUE(t2->alignmentPoint().isEqualTo(AcGePoint3d(5, 6, 0)));
    EXPECT_NEAR(t2->rotation(), M_PI / 6, kTol);
    EXPECT_NEAR(t2->oblique(), 0.2, kTol);
    EXPECT_EQ(t2->widthFactor(), 0.8);
    EXPECT_TRUE(t2->isMirroredInX());
    EXPECT_EQ(t2->textStyle(), d.back->textstyle());
    EXPECT_TRUE(same<AcDbText>(*d.back, ocsId)->position().isEqualTo(AcGePoint3d(3, 4, -5)));

    auto* m2 = same<AcDbMText>(*d.back, mId);
    ASSERT_TRUE(m2);
    AcString back;
    m2->contents(back);
    EXPECT_EQ(std::wstring(back.kwszPtr()), contents);
    EXPECT_EQ(m2->attachment(), AcDbMText::kMiddleCenter);
    EXPECT_NEAR(m2->rotation(), M_PI / 12, kTol);
    EXPECT_EQ(m2->width(), 80.0);
    EXPECT_EQ(m2->lineSpacingFactor(), 1.5);
    // The contents go to the file in pieces of 250 characters.
    sim::db::RawTags rec = record(d.first, AcDbHandle(mId.handle()));
    int pieces = 0;
    for (const auto& g : rec)
        pieces += g.code == 3;
    EXPECT_GE(pieces, 2);
}

TEST_F(EntityRoundTrip, BlockWithAttributesAndItsReference)
{
    Drawing d;
    AcDbObjectId blockId;
    {
        AcDbBlockTablePointer table(d.db.get(), AcDb::kForWrite);
        auto* btr = new AcDbBlockTableRecord;
        btr->setName(L"KACENA");
        btr->setOrigin(AcGePoint3d(1, 1, 0));
        btr->setComments(L"výšková kóta");
        ASSERT_EQ(table->add(blockId, btr), Acad::eOk);
        auto* def = new AcDbAttributeDefinition(AcGePoint3d(0, 2, 0), L"+0,000", L"VYSKA", L"Výška:", d.db->textstyle());
        def->setHeight(1.0);
        def->setPreset(true);
        btr->appendAcDbEntity(def);
        def->close();
        auto* multi = new AcDbAttributeDefinition(AcGePoint3d(0, 4, 0), L"a", L"POZN", L"Pozn", d.db->textstyle());
        multi->setHeight(1.0);
        multi->convertIntoMTextAttributeDefinition(true);
        btr->appendAcDbEntity(multi);
        multi->close();
        btr->close();
    }
    auto* ref = new AcDbBlockReference(AcGePoint3d(50, 50, 0), blockId);
    ref->setScaleFactors(AcGeScale3d(2, 3, 2));
    ref->setRotation(M_PI / 4);
    AcDbObjectId refId = append(*d.db, ref);
    {
        AcDbObjectPointer<AcDbBlockReference> open(refId, AcDb::kForWrite);
        auto* a = new AcDbAttribute(AcGePoint3d(50, 52, 0), L"+1,250", L"VYSKA", d.db->textstyle());
        a->setLockPositionInBlock(true);
        a->setFieldLength(8);
        ASSERT_EQ(open->appendAttribute(a), Acad::eOk);
        a->close();
        auto* m = new AcDbAttribute(AcGePoint3d(50, 54, 0), L"dva\\Přádky", L"POZN", d.db->textstyle());
        m->convertIntoMTextAttribute(true);
        ASSERT_EQ(open->appendAttribute(m), Acad::eOk);
        m->close();
    }

    d.roundTrip();
    AcDbDatabase& b = *d.back;
    auto* btr = same<AcDbBlockTableRecord>(b, blockId);
    ASSERT_TRUE(btr);
    EXPECT_EQ(sim::db::recordName(btr), L"KACENA");
    EXPECT_TRUE(btr->origin().isEqualTo(AcGePoint3d(1, 1, 0)));
    const ACHAR* comments = nullptr;
    btr->comments(comments);
    EXPECT_STREQ(comments, L"výšková kóta");
    EXPECT_TRUE(btr->hasAttributeDefinitions());
    auto* def = AcDbAttributeDefinition::cast(sim::db::objectOf(sim::db::entityIds(btr).at(0)));
    ASSERT_TRUE(def);
    EXPECT_STREQ(def->tagConst(), L"VYSKA");
    EXPECT_STREQ(def->promptConst(), L"Výška:");
    EXPECT_TRUE(def->isPreset());
    EXPECT_TRUE(AcDbAttributeDefinition::cast(sim::db::objectOf(sim::db::entityIds(btr).at(1)))->isMTextAttributeDefinition());

    auto* r = same<AcDbBlockReference>(b, refId);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->blockTableRecord(), btr->objectId());
    EXPECT_EQ(r->scaleFactors(), AcGeScale3d(2, 3, 2));
    EXPECT_NEAR(r->rotation(), M_PI / 4, kTol);
    const auto& attrs = sim::db::attributeIds(r);
    ASSERT_EQ(attrs.size(), 2u);
    auto* a = AcDbAttribute::cast(sim::db::objectOf(attrs[0]));
    EXPECT_STREQ(a->textStringConst(), L"+1,250");
    EXPECT_TRUE(a->lockPositionInBlock());
    EXPECT_EQ(a->fieldLength(), 8);
    EXPECT_EQ(a->ownerId(), r->objectId());
    auto* m = AcDbAttribute::cast(sim::db::objectOf(attrs[1]));
    ASSERT_TRUE(m->isMTextAttribute());
    std::unique_ptr<AcDbMText> mt(m->getMTextAttribute());
    AcString s;
    mt->contents(s);
    EXPECT_EQ(std::wstring(s.kwszPtr()), L"dva\\Přádky");
}

TEST_F(EntityRoundTrip, ErasedEntitiesAndAttributesStayOut)
{
    Drawing d;
    AcDbObjectId gone = append(*d.db, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0)));
    AcDbObjectId kept = append(*d.db, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(2, 2, 0)));
    {
        AcDbObjectPointer<AcDbLine> l(gone, AcDb::kForWrite);
        ASSERT_EQ(l->erase(), Acad::eOk);
    }
    d.roundTrip();
    EXPECT_EQ(same<AcDbLine>(*d.back, gone), nullptr);
    EXPECT_NE(same<AcDbLine>(*d.back, kept), nullptr);
    EXPECT_TRUE(record(d.first, gone.handle()).empty());
}
