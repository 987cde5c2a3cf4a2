// Classic leaders: editing the vertices and flags, the curve along the vertices, and the LEADER
// record read and written back with what the database does not model left in its place.
#include "../dxf/DxfFixture.h"

#include "dbldr.h"
#include "dbmtext.h"
#include "sim/dxf/Svg.h"

using namespace dxftest;

namespace {

AcDbLeader* threePointLeader()
{
    auto* l = new AcDbLeader;
    l->appendVertex(AcGePoint3d(0, 0, 0));
    l->appendVertex(AcGePoint3d(10, 0, 0));
    l->appendVertex(AcGePoint3d(10, 5, 0));
    return l;
}

AcDbObjectId standardDimStyle(AcDbDatabase& db)
{
    AcDbObjectId id;
    AcDbDimStyleTablePointer(&db)->getAt(L"Standard", id);
    return id;
}

/// A new drawing's text with records put at the end of its ENTITIES section.
std::string withEntities(const std::string& records)
{
    AcDbDatabase db;
    std::string text = write(db);
    size_t at = text.find("  2\nENTITIES\n");
    size_t end = text.find("  0\nENDSEC\n", at);
    return text.insert(end, records);
}

std::string modelSpaceHandle()
{
    AcDbDatabase db;
    AcDbObjectId id;
    AcDbBlockTablePointer(&db)->getAt(ACDB_MODEL_SPACE, id);
    return hex(id.handle());
}

} // namespace

TEST(LeaderVertices, EditingKeepsTwoVerticesAndRefusesNumbersOutOfRange)
{
    std::unique_ptr<AcDbLeader> l(threePointLeader());
    ASSERT_EQ(l->numVertices(), 3);
    EXPECT_EQ(l->firstVertex(), AcGePoint3d(0, 0, 0));
    EXPECT_EQ(l->lastVertex(), AcGePoint3d(10, 5, 0));
    EXPECT_EQ(l->vertexAt(1), AcGePoint3d(10, 0, 0));
    EXPECT_EQ(l->vertexAt(3), AcGePoint3d::kOrigin);
    EXPECT_EQ(l->vertexAt(-1), AcGePoint3d::kOrigin);

    EXPECT_TRUE(l->setVertexAt(2, AcGePoint3d(12, 6, 0)));
    EXPECT_EQ(l->lastVertex(), AcGePoint3d(12, 6, 0));
    EXPECT_FALSE(l->setVertexAt(3, AcGePoint3d(1, 1, 0)));
    EXPECT_FALSE(l->setVertexAt(-1, AcGePoint3d(1, 1, 0)));
    EXPECT_EQ(l->numVertices(), 3);

    l->removeLastVertex();
    EXPECT_EQ(l->numVertices(), 2);
    EXPECT_EQ(l->lastVertex(), AcGePoint3d(10, 0, 0));
    l->removeLastVertex(); // a leader keeps its two vertices
    EXPECT_EQ(l->numVertices(), 2);

    AcDbLeader empty;
    EXPECT_EQ(empty.firstVertex(), AcGePoint3d::kOrigin);
    AcGePoint3d p;
    EXPECT_NE(empty.getStartPoint(p), Acad::eOk);
}

TEST(LeaderVertices, ALeaderOpenForReadIsNotChanged)
{
    AcDbDatabase db;
    AcDbObjectId id = append(db, threePointLeader());
    {
        AcDbObjectPointer<AcDbLeader> l(id, AcDb::kForRead);
        ASSERT_EQ(l.openStatus(), Acad::eOk);
        EXPECT_FALSE(l->appendVertex(AcGePoint3d(20, 5, 0)));
        EXPECT_FALSE(l->setVertexAt(0, AcGePoint3d(1, 1, 0)));
        l->removeLastVertex();
        l->disableArrowHead();
        l->setToSplineLeader();
        EXPECT_EQ(l->numVertices(), 3);
        EXPECT_EQ(l->firstVertex(), AcGePoint3d(0, 0, 0));
        EXPECT_TRUE(l->hasArrowHead());
        EXPECT_FALSE(l->isSplined());
        EXPECT_EQ(l->attachAnnotation(AcDbObjectId::kNull), Acad::eNotOpenForWrite);
    }
    AcDbObjectPointer<AcDbLeader> l(id, AcDb::kForWrite);
    EXPECT_TRUE(l->appendVertex(AcGePoint3d(20, 5, 0)));
    EXPECT_EQ(l->numVertices(), 4);
}

TEST(LeaderFlags, ArrowheadPathAndAnnotation)
{
    AcDbDatabase db;
    AcDbLeader l;
    EXPECT_TRUE(l.hasArrowHead()); // as the host makes them
    l.disableArrowHead();
    EXPECT_FALSE(l.hasArrowHead());
    l.enableArrowHead();
    EXPECT_TRUE(l.hasArrowHead());
    EXPECT_FALSE(l.isSplined());
    l.setToSplineLeader();
    EXPECT_TRUE(l.isSplined());
    l.setToStraightLeader();
    EXPECT_FALSE(l.isSplined());

    EXPECT_EQ(l.annoType(), AcDbLeader::kNoAnno);
    auto* text = new AcDbMText;
    text->setContents(L"DN 150");
    AcDbObjectId textId = append(db, text);
    EXPECT_EQ(l.attachAnnotation(textId), Acad::eOk);
    EXPECT_EQ(l.annotationObjId(), textId);
    EXPECT_EQ(l.annoType(), AcDbLeader::kMText);
    EXPECT_EQ(l.detachAnnotation(), Acad::eOk);
    EXPECT_TRUE(l.annotationObjId().isNull());
    EXPECT_EQ(l.annoType(), AcDbLeader::kNoAnno);
}

TEST(LeaderCurve, ParametersRunAlongTheVerticesAndTransformsMoveThem)
{
    std::unique_ptr<AcDbLeader> l(threePointLeader());
    double s = -1, e = -1;
    ASSERT_EQ(l->getStartParam(s), Acad::eOk);
    ASSERT_EQ(l->getEndParam(e), Acad::eOk);
    EXPECT_EQ(s, 0.0);
    EXPECT_EQ(e, 2.0);
    AcGePoint3d p;
    ASSERT_EQ(l->getPointAtParam(1.5, p), Acad::eOk);
    EXPECT_TRUE(p.isEqualTo(AcGePoint3d(10, 2.5, 0)));
    EXPECT_EQ(l->getPointAtParam(2.5, p), Acad::eInvalidInput);
    double d = 0;
    ASSERT_EQ(l->getDistAtParam(1.5, d), Acad::eOk);
    EXPECT_DOUBLE_EQ(d, 12.5);
    ASSERT_EQ(l->getEndPoint(p), Acad::eOk);
    EXPECT_EQ(p, AcGePoint3d(10, 5, 0));

    AcGeMatrix3d m = AcGeMatrix3d::translation(AcGeVector3d(1, 2, 3)) *
                     AcGeMatrix3d::rotation(M_PI, AcGeVector3d::kXAxis, AcGePoint3d::kOrigin);
    ASSERT_EQ(l->transformBy(m), Acad::eOk);
    EXPECT_TRUE(l->vertexAt(2).isEqualTo(AcGePoint3d(11, -3, 3)));
    EXPECT_TRUE(l->normal().isEqualTo(AcGeVector3d(0, 0, -1)));
}

class LeaderFile : public DxfTest {};

TEST_F(LeaderFile, ALeaderMadeHereReadsBackTheSame)
{
    AcDbDatabase db;
    auto* text = new AcDbMText;
    text->setContents(L"Přípojka DN 150");
    AcDbObjectId textId = append(db, text);
    AcDbLeader* l = threePointLeader();
    l->setDimensionStyle(standardDimStyle(db));
    l->disableArrowHead();
    l->setToSplineLeader();
    l->attachAnnotation(textId);
    l->setLayer(L"0");
    AcDbObjectId id = append(db, l);

    std::string first = write(db);
    auto back = read(first);
    auto* r = same<AcDbLeader>(*back, id);
    ASSERT_NE(r, nullptr);
    ASSERT_EQ(r->numVertices(), 3);
    EXPECT_EQ(r->vertexAt(2), AcGePoint3d(10, 5, 0));
    EXPECT_FALSE(r->hasArrowHead());
    EXPECT_TRUE(r->isSplined());
    EXPECT_EQ(r->dimensionStyle(), standardDimStyle(*back));
    EXPECT_EQ(r->annotationObjId().handle(), textId.handle());
    EXPECT_EQ(r->annoType(), AcDbLeader::kMText);
    EXPECT_EQ(write(*back), first) << difference(write(*back), first);
}

TEST_F(LeaderFile, WhatTheLeaderDoesNotModelStaysInItsPlace)
{
    const std::string ms = modelSpaceHandle();
    const std::string leader = "  0\nLEADER\n  5\nAB1\n330\n" + ms +
                               "\n100\nAcDbEntity\n  8\n0\n100\nAcDbLeader\n  3\nStandard\n 71\n1\n 72\n0\n 73\n3\n 74\n1\n 75\n0\n"
                               " 40\n2.5\n 41\n12.0\n 76\n3\n 10\n1.0\n 20\n2.0\n 30\n0.0\n 10\n5.0\n 20\n2.0\n 30\n0.0\n"
                               " 10\n5.0\n 20\n7.0\n 30\n0.0\n 77\n3\n211\n1.0\n221\n0.0\n231\n0.0\n212\n0.0\n222\n0.0\n"
                               "232\n0.0\n213\n0.5\n223\n0.0\n233\n0.0\n1001\nACAD\n1000\nDSTYLE\n1002\n{\n1070\n41\n1040\n3.5\n"
                               "1002\n}\n";
    std::string text = withEntities(leader);
    auto db = read(text);
    auto* l = AcDbLeader::cast(sim::db::objectOf(AcDbObjectId(db.get(), AcDbHandle(0xAB1))));
    ASSERT_NE(l, nullptr);
    EXPECT_EQ(l->numVertices(), 3);
    EXPECT_EQ(l->vertexAt(1), AcGePoint3d(5, 2, 0));

    auto groupsOf = [](const std::string& t) { return record(t, AcDbHandle(0xAB1)); };
    auto joined = [](const sim::db::RawTags& tags) {
        std::string s;
        for (const auto& t : tags)
            s += std::to_string(t.code) + "|" + t.value + "\n";
        return s;
    };
    EXPECT_EQ(joined(groupsOf(write(*db))), joined(groupsOf(text)));

    // A vertex fewer: the colour that followed the last vertex still follows the vertices.
    AcDbObjectPointer<AcDbLeader>(AcDbObjectId(db.get(), AcDbHandle(0xAB1)), AcDb::kForWrite)->removeLastVertex();
    sim::db::RawTags after = groupsOf(write(*db));
    size_t count = 0, colourAt = 0, lastVertexAt = 0;
    for (size_t i = 0; i < after.size(); ++i) {
        if (after[i].code == 76) {
            EXPECT_EQ(after[i].value, "2");
        }
        if (after[i].code == 10)
            ++count, lastVertexAt = i;
        if (after[i].code == 77)
            colourAt = i;
    }
    EXPECT_EQ(count, 2u);
    EXPECT_GT(colourAt, lastVertexAt);
}

TEST_F(LeaderFile, ThePictureDrawsTheVertexLine)
{
    AcDbDatabase db;
    append(db, threePointLeader());
    std::string svg = sim::dxf::drawSvg(db);
    EXPECT_NE(svg.find("<polyline"), std::string::npos) << svg;
}
