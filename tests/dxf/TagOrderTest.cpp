// Groups a modelled entity does not model come back where the file had them, not merely in their
// subclass; vertex identifiers of lightweight polylines belong to their vertices.
#include "DxfFixture.h"

#include "dbents.h"
#include "dbpl.h"

using namespace dxftest;

namespace sim::db {
void PrintTo(const RawTag& t, std::ostream* os) { *os << t.code << ":" << t.value; }
} // namespace sim::db

namespace {

/// DXF text of "code", "value" pairs.
std::string groupText(const sim::db::RawTags& gs)
{
    std::string s;
    for (const auto& [code, value] : gs) {
        std::string c = std::to_string(code);
        s += std::string(c.size() < 3 ? 3 - c.size() : 0, ' ') + c + "\n" + value + "\n";
    }
    return s;
}

/// A new drawing's text with the records at the end of its ENTITIES section.
std::string withEntities(const sim::db::RawTags& records)
{
    AcDbDatabase db;
    std::string text = write(db);
    return text.insert(text.find("  0\nENDSEC\n", text.find("  2\nENTITIES\n")), groupText(records));
}

std::string modelSpace()
{
    AcDbDatabase db;
    AcDbObjectId id;
    AcDbBlockTablePointer(&db)->getAt(ACDB_MODEL_SPACE, id);
    return hex(id.handle());
}

} // namespace

class TagOrder : public DxfTest {};

TEST_F(TagOrder, UnknownGroupsInTheMiddleOfSubclassesStayThere)
{
    std::string ms = modelSpace();
    // Unknown groups right after the subclass marker, between modelled ones, and after a group the
    // writer leaves out when it has its default (39 0): that one's followers go back before the
    // groups that trail the subclass.
    sim::db::RawTags line = {{0, "LINE"}, {5, "A10"}, {330, ms}, {100, "AcDbEntity"}, {1071, "5"}, {8, "0"},
                             {348, "0"}, {62, "3"}, {100, "AcDbLine"}, {10, "1.0"}, {20, "2.0"}, {30, "0.0"},
                             {1, "between"}, {2, "points"}, {11, "3.0"}, {21, "4.0"}, {31, "0.0"}, {290, "1"}};
    sim::db::RawTags arc = {{0, "ARC"}, {5, "A11"}, {330, ms}, {100, "AcDbEntity"}, {8, "0"},
                            {100, "AcDbCircle"}, {10, "0.0"}, {20, "0.0"}, {30, "0.0"}, {40, "2.0"}, {1, "r"},
                            {100, "AcDbArc"}, {1, "before angles"}, {50, "0.0"}, {71, "7"}, {51, "90.0"}};
    sim::db::RawTags both = line;
    both.insert(both.end(), arc.begin(), arc.end());
    auto db = read(withEntities(both));
    auto* l = AcDbLine::cast(sim::db::objectAt(db.get(), AcDbHandle(0xA10)));
    ASSERT_TRUE(l);
    EXPECT_TRUE(l->endPoint().isEqualTo(AcGePoint3d(3, 4, 0)));

    std::string out = write(*db);
    EXPECT_EQ(record(out, AcDbHandle(0xA10)), line);
    EXPECT_EQ(record(out, AcDbHandle(0xA11)), arc);

    // Changed, the entity writes its new values with the kept groups still beside them.
    {
        AcDbObjectPointer<AcDbLine> w(AcDbObjectId(db.get(), AcDbHandle(0xA10)), AcDb::kForWrite);
        ASSERT_EQ(w.openStatus(), Acad::eOk);
        w->setStartPoint(AcGePoint3d(7, 8, 0));
    }
    sim::db::RawTags changed = line;
    changed[9].value = "7.0";
    changed[10].value = "8.0";
    EXPECT_EQ(record(write(*db), AcDbHandle(0xA10)), changed);
}

TEST_F(TagOrder, SubclassRepeatedUnderOneNameKeepsEachOnesGroups)
{
    std::string ms = modelSpace();
    // A text has two AcDbText subclasses; only the second holds a group the database lacks.
    sim::db::RawTags text = {{0, "TEXT"}, {5, "A20"}, {330, ms}, {100, "AcDbEntity"}, {8, "0"},
                             {100, "AcDbText"}, {10, "0.0"}, {20, "0.0"}, {30, "0.0"}, {40, "2.5"}, {1, "ab"},
                             {7, "Standard"}, {11, "0.0"}, {21, "0.0"}, {31, "0.0"}, {100, "AcDbText"}, {290, "1"},
                             {73, "2"}};
    auto db = read(withEntities(text));
    EXPECT_EQ(record(write(*db), AcDbHandle(0xA20)), text);
}

TEST_F(TagOrder, LightweightPolylineKeepsVertexIdentifiers)
{
    std::string ms = modelSpace();
    sim::db::RawTags pl = {{0, "LWPOLYLINE"}, {5, "A30"}, {330, ms}, {100, "AcDbEntity"}, {8, "0"},
                           {100, "AcDbPolyline"}, {90, "3"}, {70, "0"},
                           {10, "0.0"}, {20, "0.0"}, {91, "11"},
                           {10, "5.0"}, {20, "0.0"}, {91, "12"}, {42, "0.5"}, {290, "1"},
                           {10, "5.0"}, {20, "5.0"}, {91, "13"}};
    auto db = read(withEntities(pl));
    AcDbObjectId id(db.get(), AcDbHandle(0xA30));
    {
        AcDbObjectPointer<AcDbPolyline> p(id, AcDb::kForRead);
        ASSERT_EQ(p.openStatus(), Acad::eOk);
        Adesk::Int32 vid = 0;
        EXPECT_EQ(p->getVertexIdentifierAt(1, vid), Acad::eOk);
        EXPECT_EQ(vid, 12);
        EXPECT_EQ(p->getVertexIdentifierAt(3, vid), Acad::eInvalidIndex);
    }
    EXPECT_EQ(record(write(*db), AcDbHandle(0xA30)), pl);

    // A vertex added in front and the direction reversed: the identifiers stay with their vertices,
    // the new one has none.
    {
        AcDbObjectPointer<AcDbPolyline> p(id, AcDb::kForWrite);
        ASSERT_EQ(p->addVertexAt(0, AcGePoint2d(-1, 0)), Acad::eOk);
        ASSERT_EQ(p->reverseCurve(), Acad::eOk);
    }
    sim::db::RawTags out = record(write(*db), AcDbHandle(0xA30));
    std::vector<std::string> ids;
    for (const auto& t : out)
        if (t.code == 91)
            ids.push_back(t.value);
    EXPECT_EQ(ids, (std::vector<std::string>{"13", "12", "11", "0"}));
}

TEST_F(TagOrder, PolylineWithoutIdentifiersWritesNone)
{
    AcDbDatabase db;
    auto* p = new AcDbPolyline;
    p->addVertexAt(0, AcGePoint2d(0, 0));
    p->addVertexAt(1, AcGePoint2d(1, 0));
    AcDbObjectId id = append(db, p);
    for (const auto& t : record(write(db), id.handle()))
        EXPECT_NE(t.code, 91);
}
