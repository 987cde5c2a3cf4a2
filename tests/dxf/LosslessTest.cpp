// What the database does not model goes back where it was: unknown groups and subclasses of known
// entities, application groups, reactors, extension dictionaries, extended data, entities and
// objects of unknown kinds (with the records that follow them), header variables, classes.
#include "DxfFixture.h"

#include "dbents.h"
#include "dbxrecrd.h"
#include "sim/db/UnknownObject.h"

using namespace dxftest;

namespace {

/// DXF text from groups written one a line pair: "code|value" entries.
std::string groups(std::initializer_list<std::pair<int, const char*>> gs)
{
    std::string s;
    for (const auto& [code, value] : gs) {
        std::string c = std::to_string(code);
        s += std::string(c.size() < 3 ? 3 - c.size() : 0, ' ') + c + "\n" + value + "\n";
    }
    return s;
}

sim::db::RawTags tagsOf(const std::string& text)
{
    sim::dxf::TagReader r(text);
    sim::db::RawTags out;
    while (r.peek()) {
        sim::dxf::Tag t = r.take();
        out.push_back({t.code, std::string(t.value)});
    }
    return out;
}

/// A new drawing's text with records put at the end of a section.
std::string withRecords(const std::string& section, const std::string& records)
{
    AcDbDatabase db;
    std::string text = write(db);
    size_t at = text.find("  2\n" + section + "\n");
    size_t end = text.find("  0\nENDSEC\n", at);
    return text.insert(end, records);
}

std::string modelSpaceHandle(AcDbDatabase& db)
{
    AcDbObjectId id;
    AcDbBlockTablePointer(&db)->getAt(ACDB_MODEL_SPACE, id);
    return hex(id.handle());
}

} // namespace

class Lossless : public DxfTest {};

TEST_F(Lossless, KnownEntityKeepsWhatItDoesNotModelInItsPlace)
{
    AcDbDatabase probe;
    std::string ms = modelSpaceHandle(probe);
    // In the order the writer writes: what is kept comes after the modelled groups of its subclass.
    std::string line = groups({{0, "LINE"}, {5, "AAA"}, {102, "{MYAPP"}, {1, "app data"}, {102, "}"},
                               {102, "{ACAD_REACTORS"}, {330, "C"}, {102, "}"}, {102, "{ACAD_XDICTIONARY"},
                               {360, "AAB"}, {102, "}"}, {330, ms.c_str()}, {100, "AcDbEntity"}, {8, "0"},
                               {440, "33554457"}, {100, "AcDbLine"}, {10, "1.0"}, {20, "2.0"}, {30, "0.0"},
                               {11, "3.0"}, {21, "4.0"}, {31, "0.0"}, {290, "1"}, {100, "AcDbFutureLine"},
                               {1, "more"}, {1001, "ACAD"}, {1000, "x"}, {1070, "3"}});
    std::string xdict = groups({{0, "DICTIONARY"}, {5, "AAB"}, {330, "AAA"}, {100, "AcDbDictionary"}, {280, "1"},
                                {281, "1"}});
    std::string text = withRecords("OBJECTS", xdict);
    text = text.insert(text.find("  0\nENDSEC\n", text.find("  2\nENTITIES\n")), line);

    auto db = read(text);
    auto* l = AcDbLine::cast(sim::db::objectAt(db.get(), AcDbHandle(0xAAA)));
    ASSERT_TRUE(l);
    EXPECT_TRUE(l->endPoint().isEqualTo(AcGePoint3d(3, 4, 0)));
    EXPECT_EQ(l->extensionDictionary().handle(), AcDbHandle(0xAAB));
    EXPECT_TRUE(l->hasPersistentReactor(AcDbObjectId(db.get(), AcDbHandle(0xC))));
    resbuf* x = l->xData(L"ACAD");
    ASSERT_TRUE(x && x->rbnext);
    EXPECT_STREQ(x->rbnext->resval.rstring, L"x");
    acutRelRb(x);

    std::string out = write(*db);
    EXPECT_EQ(record(out, AcDbHandle(0xAAA)), tagsOf(line));
    EXPECT_EQ(record(out, AcDbHandle(0xAAB)), tagsOf(xdict));
}

TEST_F(Lossless, UnknownKindsAndFollowersGoBackUnchanged)
{
    AcDbDatabase probe;
    std::string ms = modelSpaceHandle(probe);
    std::string wipeout = groups({{0, "WIPEOUT"}, {5, "B01"}, {330, ms.c_str()}, {100, "AcDbEntity"}, {8, "0"},
                                  {62, "3"}, {100, "AcDbRasterImage"}, {90, "0"}, {10, "1.0"}, {20, "2.0"},
                                  {30, "0.0"}, {340, "0"}, {100, "AcDbWipeout"}, {1001, "ACAD"}, {1000, "w"}});
    // A polygon mesh: its vertices and end follow it and carry handles of their own.
    std::string poly = groups({{0, "POLYLINE"}, {5, "B02"}, {330, ms.c_str()}, {100, "AcDbEntity"}, {8, "0"},
                               {100, "AcDbPolygonMesh"}, {66, "1"}, {10, "0.0"}, {20, "0.0"}, {30, "0.0"}, {70, "16"},
                               {71, "1"}, {72, "1"},
                               {0, "VERTEX"}, {5, "FFF0"}, {330, "B02"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbVertex"},
                               {100, "AcDbPolygonMeshVertex"}, {10, "1.0"}, {20, "2.0"}, {30, "3.0"}, {70, "64"},
                               {0, "SEQEND"}, {5, "FFF1"}, {330, "B02"}, {100, "AcDbEntity"}, {8, "0"}});
    std::string object = groups({{0, "MYOBJECT"}, {5, "B03"}, {102, "{ACAD_REACTORS"}, {330, "C"}, {102, "}"},
                                 {330, "C"}, {100, "AcDbMyObject"}, {1, "data"}, {40, "2.5"}, {1001, "ACAD"},
                                 {1000, "o"}});
    std::string text = withRecords("OBJECTS", object);
    text = text.insert(text.find("  0\nENDSEC\n", text.find("  2\nENTITIES\n")), wipeout + poly);

    auto db = read(text);
    auto* w = sim::db::UnknownEntity::cast(sim::db::objectAt(db.get(), AcDbHandle(0xB01)));
    ASSERT_TRUE(w);
    EXPECT_EQ(w->colorIndex(), 3); // its common fields are the database's
    EXPECT_TRUE(sim::db::UnknownEntity::cast(sim::db::objectAt(db.get(), AcDbHandle(0xB02))));
    EXPECT_TRUE(sim::db::UnknownObject::cast(sim::db::objectAt(db.get(), AcDbHandle(0xB03))));
    // New objects take handles above those of the kept vertices.
    EXPECT_GT(db->handseed().value(), 0xFFF1u);

    std::string out = write(*db);
    EXPECT_EQ(record(out, AcDbHandle(0xB01)), tagsOf(wipeout));
    EXPECT_EQ(record(out, AcDbHandle(0xB03)), tagsOf(object));
    EXPECT_NE(out.find(poly), std::string::npos);
}

TEST_F(Lossless, ExtendedDataAndXrecordsKeepTheirTypes)
{
    AcDbDatabase db;
    AcDbObjectId lineId = append(db, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)));
    ads_point p = {1.5, -2.0, 3.25};
    char bytes[] = {0x01, 0x7F, static_cast<char>(0xFF)};
    resbuf* xd = acutBuildList(AcDb::kDxfRegAppName, L"TOGU", AcDb::kDxfXdAsciiString, L"čeština",
                               AcDb::kDxfXdControlString, L"{", AcDb::kDxfXdReal, 0.1, AcDb::kDxfXdInteger16, 7,
                               AcDb::kDxfXdControlString, L"}", AcDb::kDxfXdInteger32, 123456, AcDb::kDxfXdXCoord, p,
                               AcDb::kDxfXdHandle, L"1F", AcDb::kDxfXdBinaryChunk, 3, bytes, 0);
    {
        AcDbObjectPointer<AcDbLine> l(lineId, AcDb::kForWrite);
        ASSERT_EQ(l->setXData(xd), Acad::eOk);
    }
    acutRelRb(xd);
    AcDbObjectId recId;
    {
        AcDbDictionaryPointer nod(db.namedObjectsDictionaryId(), AcDb::kForWrite);
        auto* rec = new AcDbXrecord;
        // Handles in a chain are entity names: the line's.
        ads_name line;
        acdbGetAdsName(line, lineId);
        resbuf* data = acutBuildList(1, L"PP-R", 40, 20.5, 70, 3, 90, 100000, 10, p, 290, 1, 160, 0LL, 330, line, 0);
        rec->setFromRbChain(*data);
        acutRelRb(data);
        ASSERT_EQ(nod->setAt(L"TOGUTILS", rec, recId), Acad::eOk);
        rec->close();
    }
    std::string first = write(db);
    auto back = read(first);
    EXPECT_EQ(write(*back), first);

    auto* l = same<AcDbLine>(*back, lineId);
    resbuf* x = l->xData(L"TOGU");
    ASSERT_TRUE(x);
    std::vector<int> types;
    for (resbuf* r = x; r; r = r->rbnext)
        types.push_back(r->restype);
    EXPECT_EQ(types, (std::vector<int>{1001, 1000, 1002, 1040, 1070, 1002, 1071, 1010, 1005, 1004}));
    EXPECT_STREQ(x->rbnext->resval.rstring, L"čeština");
    resbuf* last = x;
    while (last->rbnext)
        last = last->rbnext;
    ASSERT_EQ(last->resval.rbinary.clen, 3);
    EXPECT_EQ(last->resval.rbinary.buf[2], static_cast<char>(0xFF));
    acutRelRb(x);

    auto* r = same<AcDbXrecord>(*back, recId);
    ASSERT_TRUE(r);
    resbuf* chain = nullptr;
    r->rbChain(chain);
    std::vector<int> codes;
    resbuf* handle = nullptr;
    for (resbuf* c = chain; c; c = c->rbnext) {
        codes.push_back(c->restype);
        if (c->restype == 330)
            handle = c;
    }
    EXPECT_EQ(codes, (std::vector<int>{1, 40, 70, 90, 10, 290, 160, 330}));
    ASSERT_TRUE(handle);
    AcDbObjectId named;
    EXPECT_EQ(acdbGetObjectId(named, handle->resval.rlname), Acad::eOk);
    EXPECT_EQ(named.handle(), lineId.handle());
    acutRelRb(chain);
}

TEST_F(Lossless, HeaderKeepsItsVariablesAndSetsTheModelledOnes)
{
    AcDbDatabase db;
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(L"Potrubí");
    AcDbObjectId layerId;
    AcDbLayerTablePointer(&db, AcDb::kForWrite)->add(layerId, layer);
    layer->close();
    db.setClayer(layerId);
    db.setLtscale(10.0);
    db.setInsunits(AcDb::kUnitsMeters);
    auto& header = sim::db::extras(&db).header;
    header.insert(header.begin(), {{9, "$USERI1"}, {70, "42"}, {9, "$MENU"}, {1, "."}});

    std::string first = write(db);
    EXPECT_NE(first.find("  9\n$USERI1\n 70\n42\n  9\n$MENU\n  1\n.\n"), std::string::npos);
    auto back = read(first);
    EXPECT_EQ(back->clayer().handle(), layerId.handle());
    EXPECT_EQ(back->ltscale(), 10.0);
    EXPECT_EQ(back->insunits(), AcDb::kUnitsMeters);
    EXPECT_EQ(write(*back), first);
}

TEST_F(Lossless, CommentsAnywhereAndRadiiTheDatabaseRefuses)
{
    AcDbDatabase probe;
    std::string ms = modelSpaceHandle(probe);
    std::string circle = groups({{0, "CIRCLE"}, {5, "C01"}, {330, ms.c_str()}, {100, "AcDbEntity"}, {8, "0"},
                                 {100, "AcDbCircle"}, {10, "1.0"}, {20, "2.0"}, {30, "0.0"}, {40, "-5.0"}});
    std::string arc = groups({{0, "ARC"}, {5, "C02"}, {330, ms.c_str()}, {100, "AcDbEntity"}, {8, "0"},
                              {100, "AcDbCircle"}, {10, "0.0"}, {20, "0.0"}, {30, "0.0"}, {40, "0.0"},
                              {100, "AcDbArc"}, {50, "0.0"}, {51, "90.0"}});
    std::string text = withRecords("ENTITIES", circle + groups({{999, "between records"}}) + arc);
    // As LibreCAD's library begins a file, and a comment inside a record.
    text = groups({{999, "dxfrw 0.5.10"}}) + text;
    text.insert(text.find(" 40\n-5.0\n"), groups({{999, "inside"}}));

    auto db = read(text);
    auto* c = AcDbCircle::cast(sim::db::objectAt(db.get(), AcDbHandle(0xC01)));
    ASSERT_TRUE(c);
    EXPECT_TRUE(c->center().isEqualTo(AcGePoint3d(1, 2, 0)));
    std::string out = write(*db);
    EXPECT_EQ(out.find("999"), std::string::npos) << "comments are not kept";
    EXPECT_EQ(record(out, AcDbHandle(0xC01)), tagsOf(circle));
    EXPECT_EQ(record(out, AcDbHandle(0xC02)), tagsOf(arc));
    // A radius of the entity's own replaces the kept one.
    AcDbObjectPointer<AcDbCircle> own(AcDbObjectId(db.get(), AcDbHandle(0xC01)), AcDb::kForWrite);
    ASSERT_EQ(own->setRadius(3.0), Acad::eOk);
    own.close();
    sim::db::RawTags again = record(write(*db), AcDbHandle(0xC01));
    ASSERT_FALSE(again.empty());
    EXPECT_EQ(again.back(), (sim::db::RawTag{40, "3.0"}));
}
