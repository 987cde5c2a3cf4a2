// Whole drawings: the template of a new drawing, a minimal file of another program that lacks the
// structure a drawing needs, and a drawing of AutoCAD 2000 in its code page.
#include "DxfFixture.h"

#include "dbdict.h"
#include "dbents.h"
#include "sim/core/Session.h"
#include "sim/db/UnknownObject.h"
#include "sim/dxf/Template.h"

using namespace dxftest;

namespace {

int countObjects(AcDbDatabase& db)
{
    int n = 0;
    sim::db::forEachObject(&db, [&](AcDbObject*) { ++n; });
    return n;
}

AcDbObjectId entry(AcDbObjectId dict, const wchar_t* key)
{
    AcDbObjectId id;
    if (auto* d = AcDbDictionary::cast(sim::db::objectOf(dict)))
        d->getAt(key, id);
    return id;
}

std::wstring recordNameOf(AcDbObjectId id)
{
    AcDbObject* obj = sim::db::objectOf(id);
    return obj ? sim::db::dxfName(obj) : std::wstring();
}

} // namespace

class DrawingFile : public DxfTest {};

TEST_F(DrawingFile, TheTemplateHasWhatOtherProgramsExpect)
{
    AcDbDatabase db;
    EXPECT_EQ(db.insunits(), AcDb::kUnitsMillimeters);
    EXPECT_FALSE(db.layerZero().isNull());
    EXPECT_FALSE(db.byBlockLinetype().isNull());
    EXPECT_FALSE(db.continuousLinetype().isNull());
    AcDbObjectId nod = db.namedObjectsDictionaryId();
    for (const wchar_t* key : {L"ACAD_GROUP", L"ACAD_LAYOUT", L"ACAD_MLEADERSTYLE", L"ACAD_TABLESTYLE", L"ACAD_SCALELIST",
                               L"ACAD_PLOTSETTINGS", L"ACAD_PLOTSTYLENAME"})
        EXPECT_FALSE(entry(nod, key).isNull()) << sim::toUtf8(key);
    EXPECT_EQ(recordNameOf(entry(db.layoutDictionaryId(), L"Model")), L"LAYOUT");
    EXPECT_EQ(recordNameOf(entry(db.layoutDictionaryId(), L"Layout1")), L"LAYOUT");
    EXPECT_EQ(recordNameOf(entry(db.mLeaderStyleDictionaryId(), L"Standard")), L"MLEADERSTYLE");
    EXPECT_EQ(db.cmleaderstyle(), entry(db.mLeaderStyleDictionaryId(), L"Standard"));
    EXPECT_EQ(recordNameOf(entry(entry(nod, L"ACAD_SCALELIST"), L"A0")), L"SCALE");
    AcDbBlockTableRecordPointer model(ACDB_MODEL_SPACE, &db);
    EXPECT_EQ(model->getLayoutId(), entry(db.layoutDictionaryId(), L"Model"));

    // Completing it again adds nothing; the file reads back into the same drawing.
    int before = countObjects(db);
    sim::dxf::completeNewDrawing(db);
    EXPECT_EQ(countObjects(db), before);
    std::string text = write(db);
    EXPECT_NE(text.find("  9\n$INSUNITS\n 70\n4\n"), std::string::npos);
    EXPECT_NE(text.find("  0\nCLASS\n  1\nLAYOUT\n"), std::string::npos);
    auto back = read(text);
    EXPECT_EQ(countObjects(*back), before);
    EXPECT_EQ(write(*back), text);
}

TEST_F(DrawingFile, AMinimalFileGetsTheStructureItLacks)
{
    // Entities only, without handles, on a layer and a line type nobody defined.
    std::string text = "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\nNOVA\n  6\nDASHED\n 10\n1\n 20\n2\n 30\n0\n 11\n3\n 21\n4\n 31\n0\n"
                       "  0\nCIRCLE\n 67\n1\n  8\n0\n 10\n0\n 20\n0\n 30\n0\n 40\n5\n  0\nENDSEC\n  0\nEOF\n";
    auto db = read(text);
    AcDbBlockTableRecordPointer model(ACDB_MODEL_SPACE, db.get());
    ASSERT_EQ(model.openStatus(), Acad::eOk);
    const auto& ents = sim::db::entityIds(model.object());
    ASSERT_EQ(ents.size(), 1u);
    auto* line = AcDbLine::cast(sim::db::objectOf(ents[0]));
    ASSERT_TRUE(line);
    EXPECT_EQ(line->ownerId(), model->objectId());
    std::unique_ptr<ACHAR[]> layer(line->layer());
    EXPECT_STREQ(layer.get(), L"NOVA");
    std::unique_ptr<ACHAR[]> linetype(line->linetype());
    EXPECT_STREQ(linetype.get(), L"DASHED");
    AcDbBlockTableRecordPointer paper(ACDB_PAPER_SPACE, db.get());
    EXPECT_EQ(sim::db::entityIds(paper.object()).size(), 1u);
    // Handles given on reading are unique and below the seed.
    EXPECT_NE(line->objectId().handle(), sim::db::entityIds(paper.object())[0].handle());
    EXPECT_GT(db->handseed().value(), line->objectId().handle().value());
    std::string out = write(*db);
    EXPECT_EQ(write(*read(out)), out);
}

TEST_F(DrawingFile, AutoCad2000InItsCodePage)
{
    // "Kůň" and "čára" in Windows-1250; a character beyond the code page as \U+2211.
    std::string text = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  9\n$DWGCODEPAGE\n  3\nANSI_1250\n"
                       "  0\nENDSEC\n  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n  5\n2\n330\n0\n100\nAcDbSymbolTable\n 70\n1\n"
                       "  0\nLAYER\n  5\n10\n330\n2\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n  2\n\xE8\xE1ra\n"
                       " 70\n0\n 62\n1\n  6\nContinuous\n  0\nENDTAB\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n"
                       "  0\nTEXT\n  5\n20\n100\nAcDbEntity\n  8\n\xE8\xE1ra\n100\nAcDbText\n 10\n0\n 20\n0\n 30\n0\n 40\n2.5\n"
                       "  1\nK\xF9\xF2 \\U+2211\n100\nAcDbText\n  0\nENDSEC\n  0\nEOF\n";
    auto db = read(text);
    auto* t = AcDbText::cast(sim::db::objectAt(db.get(), AcDbHandle(0x20)));
    ASSERT_TRUE(t);
    EXPECT_STREQ(t->textStringConst(), L"Kůň ∑");
    std::unique_ptr<ACHAR[]> layer(t->layer());
    EXPECT_STREQ(layer.get(), L"čára");
    // Written as AutoCAD 2018 in UTF-8.
    std::string out = write(*db);
    EXPECT_NE(out.find("AC1032"), std::string::npos);
    EXPECT_NE(out.find("Kůň ∑"), std::string::npos);
}
