// Symbol table records written through the tag writer and read back: layers, line types with
// complex dashes, text styles with a TrueType face, dimension styles, views, UCSs, applications.
#include "DxfFixture.h"

#include <cmath>
#include <map>

using namespace dxftest;

class TableRoundTrip : public DxfTest {
protected:
    /// Adds a record to one of the tables of db; gives its id.
    template <class Table, class Record>
    static AcDbObjectId add(AcDbDatabase& db, Record* rec, const wchar_t* name)
    {
        rec->setName(name);
        AcDbSymbolTablePointer<Table> table(&db, AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, rec), Acad::eOk);
        rec->close();
        return id;
    }

    /// Writes, reads back and checks that a second write is the same text.
    std::unique_ptr<AcDbDatabase> roundTrip(AcDbDatabase& db)
    {
        std::string first = write(db);
        auto back = read(first);
        std::string second = write(*back);
        EXPECT_TRUE(first == second) << difference(first, second);
        return back;
    }
};

TEST_F(TableRoundTrip, LayersKeepStateColourLineTypeAndDescription)
{
    AcDbDatabase db;
    auto* walls = new AcDbLayerTableRecord;
    AcCmColor green;
    green.setColorIndex(3);
    walls->setColor(green);
    walls->setIsFrozen(true);
    walls->setIsLocked(true);
    walls->setIsOff(true);
    walls->setIsPlottable(false);
    walls->setLineWeight(AcDb::kLnWt050);
    walls->setDescription(L"TOGU_stěny");
    walls->setLinetypeObjectId(db.byBlockLinetype());
    AcDbObjectId wallsId = add<AcDbLayerTable>(db, walls, L"Stěny");
    auto* rgb = new AcDbLayerTableRecord;
    AcCmColor c;
    c.setRGB(1, 2, 3);
    rgb->setColor(c);
    AcDbObjectId rgbId = add<AcDbLayerTable>(db, rgb, L"RGB");

    auto back = roundTrip(db);
    auto* w = same<AcDbLayerTableRecord>(*back, wallsId);
    ASSERT_TRUE(w);
    EXPECT_EQ(sim::db::recordName(w), L"Stěny");
    EXPECT_TRUE(w->isFrozen());
    EXPECT_TRUE(w->isLocked());
    EXPECT_TRUE(w->isOff());
    EXPECT_FALSE(w->isPlottable());
    EXPECT_EQ(w->color().colorIndex(), 3);
    EXPECT_EQ(w->lineWeight(), AcDb::kLnWt050);
    EXPECT_EQ(w->linetypeObjectId(), back->byBlockLinetype());
    std::unique_ptr<ACHAR[]> description(w->description());
    EXPECT_STREQ(description.get(), L"TOGU_stěny");
    // The description's application is named in the file.
    AcDbRegAppTablePointer apps(back.get());
    EXPECT_TRUE(apps->has(L"AcAecLayerStandard"));
    auto* r = same<AcDbLayerTableRecord>(*back, rgbId);
    EXPECT_TRUE(r->color().isByColor());
    EXPECT_EQ(r->color().blue(), 3);
}

TEST_F(TableRoundTrip, ComplexLineTypeKeepsItsDashes)
{
    AcDbDatabase db;
    auto* shapes = new AcDbTextStyleTableRecord;
    shapes->setIsShapeFile(true);
    shapes->setFileName(L"TG_IS.shx");
    AcDbObjectId shapesId = add<AcDbTextStyleTable>(db, shapes, L"");
    auto* lt = new AcDbLinetypeTableRecord;
    lt->setComments(L"Plyn ---- G ----");
    lt->setPatternLength(12.0);
    lt->setNumDashes(4);
    lt->setDashLengthAt(0, 6.0);
    lt->setDashLengthAt(1, -2.0);
    lt->setTextAt(1, L"G");
    lt->setShapeStyleAt(1, db.textstyle());
    lt->setShapeScaleAt(1, 0.5);
    lt->setShapeRotationAt(1, 0.25);
    lt->setShapeOffsetAt(1, AcGeVector2d(-0.5, -0.25));
    lt->setShapeIsUcsOrientedAt(1, true);
    lt->setDashLengthAt(2, -2.0);
    lt->setShapeNumberAt(2, 130);
    lt->setShapeStyleAt(2, shapesId);
    lt->setShapeScaleAt(2, 1.0);
    lt->setDashLengthAt(3, 0.0);
    AcDbObjectId ltId = add<AcDbLinetypeTable>(db, lt, L"TG_PLYN");

    auto back = roundTrip(db);
    auto* l = same<AcDbLinetypeTableRecord>(*back, ltId);
    ASSERT_TRUE(l);
    ASSERT_EQ(l->numDashes(), 4);
    EXPECT_EQ(l->patternLength(), 12.0);
    const ACHAR* text = nullptr;
    l->textAt(1, text);
    EXPECT_STREQ(text, L"G");
    EXPECT_EQ(l->shapeStyleAt(1), back->textstyle());
    EXPECT_EQ(l->shapeScaleAt(1), 0.5);
    EXPECT_EQ(l->shapeRotationAt(1), 0.25);
    EXPECT_EQ(l->shapeOffsetAt(1).x, -0.5);
    EXPECT_EQ(l->shapeOffsetAt(1).y, -0.25);
    EXPECT_TRUE(l->shapeIsUcsOrientedAt(1));
    EXPECT_EQ(l->shapeNumberAt(2), 130);
    EXPECT_EQ(l->shapeStyleAt(2).handle(), shapesId.handle());
    EXPECT_EQ(l->dashLengthAt(3), 0.0);
    auto* s = same<AcDbTextStyleTableRecord>(*back, shapesId);
    EXPECT_TRUE(s->isShapeFile());
}

TEST_F(TableRoundTrip, StylesViewsUcsAndDimensionStyles)
{
    AcDbDatabase db;
    auto* arial = new AcDbTextStyleTableRecord;
    arial->setFont(L"Arial", true, false, kEastEuropeCharset, Autodesk::AutoCAD::PAL::FontUtils::FontPitch::kVariable,
                   Autodesk::AutoCAD::PAL::FontUtils::FontFamily::kSwiss, true);
    arial->setXScale(0.8);
    arial->setObliquingAngle(0.1);
    arial->setTextSize(3.5);
    arial->setFlagBits(2);
    AcDbObjectId arialId = add<AcDbTextStyleTable>(db, arial, L"TG_Arial");

    auto* ucs = new AcDbUCSTableRecord;
    ucs->setOrigin(AcGePoint3d(10, 20, 0));
    ucs->setXAxis(AcGeVector3d(0, 1, 0));
    ucs->setYAxis(AcGeVector3d(-1, 0, 0));
    AcDbObjectId ucsId = add<AcDbUCSTable>(db, ucs, L"Otočený");

    auto* view = new AcDbViewTableRecord;
    view->setCenterPoint(AcGePoint2d(5, 6));
    view->setHeight(100);
    view->setWidth(150);
    view->setIsPaperspaceView(true);
    AcDbObjectId viewId = add<AcDbViewTable>(db, view, L"Pohled");

    auto* dim = new AcDbDimStyleTableRecord;
    dim->setDimasz(2.5);
    dim->setDimdec(1);
    dim->setDimpost(L"<> mm");
    AcCmColor blue;
    blue.setColorIndex(5);
    dim->setDimclrt(blue);
    dim->setDimtxsty(arialId);
    dim->setDimtad(1);
    AcDbObjectId dimId = add<AcDbDimStyleTable>(db, dim, L"TG_VODA1");

    auto back = roundTrip(db);
    auto* a = same<AcDbTextStyleTableRecord>(*back, arialId);
    ASSERT_TRUE(a);
    ACHAR* face = nullptr;
    bool bold = false, italic = true;
    Charset charset = kAnsiCharset;
    Autodesk::AutoCAD::PAL::FontUtils::FontPitch pitch{};
    Autodesk::AutoCAD::PAL::FontUtils::FontFamily family{};
    a->font(face, bold, italic, charset, pitch, family);
    EXPECT_STREQ(face, L"Arial");
    delete[] face;
    EXPECT_TRUE(bold);
    EXPECT_FALSE(italic);
    EXPECT_EQ(charset, kEastEuropeCharset);
    EXPECT_EQ(family, Autodesk::AutoCAD::PAL::FontUtils::FontFamily::kSwiss);
    EXPECT_EQ(a->xScale(), 0.8);
    EXPECT_NEAR(a->obliquingAngle(), 0.1, 1e-12);
    EXPECT_EQ(a->textSize(), 3.5);
    EXPECT_EQ(a->flagBits(), 2);

    auto* u = same<AcDbUCSTableRecord>(*back, ucsId);
    EXPECT_TRUE(u->origin().isEqualTo(AcGePoint3d(10, 20, 0)));
    EXPECT_TRUE(u->yAxis().isEqualTo(AcGeVector3d(-1, 0, 0)));
    auto* v = same<AcDbViewTableRecord>(*back, viewId);
    EXPECT_TRUE(v->isPaperspaceView());
    EXPECT_EQ(v->width(), 150.0);

    auto* d = same<AcDbDimStyleTableRecord>(*back, dimId);
    ASSERT_TRUE(d);
    EXPECT_EQ(d->dimasz(), 2.5);
    EXPECT_EQ(d->dimdec(), 1);
    EXPECT_STREQ(d->dimpost(), L"<> mm");
    EXPECT_EQ(d->dimclrt().colorIndex(), 5);
    EXPECT_EQ(d->dimtxsty().handle(), arialId.handle());
    EXPECT_EQ(d->dimtad(), 1);
    // A dimension style's handle goes under 105.
    sim::db::RawTags rec = record(write(*back), dimId.handle());
    ASSERT_GE(rec.size(), 2u);
    EXPECT_EQ(rec[1].code, 105);
}

TEST_F(TableRoundTrip, ArrowsNamedByAnOldFileBecomeBlocksTheStylePointsAt)
{
    AcDbDatabase db;
    AcDbObjectId dimId = add<AcDbDimStyleTable>(db, new AcDbDimStyleTableRecord, L"TG_VODA1");
    std::string text = write(db);
    // An older writer names the arrows under 5, 6 and 7 (5 is no handle here: that is 105).
    size_t at = text.find("TG_VODA1\n");
    ASSERT_NE(at, std::string::npos);
    text.insert(at + 9, "  5\n_OBLIQUE\n  6\n_DOT\n  7\n\n");

    auto back = read(text);
    auto* d = same<AcDbDimStyleTableRecord>(*back, dimId);
    ASSERT_TRUE(d);
    EXPECT_STREQ(d->dimblkName(), L"_Oblique");
    AcDbBlockTableRecordPointer oblique(d->dimblk());
    ASSERT_EQ(oblique.openStatus(), Acad::eOk);
    AcDbBlockTableRecordIterator* it = nullptr;
    ASSERT_EQ(oblique->newIterator(it), Acad::eOk);
    EXPECT_FALSE(it->done()) << "the block draws the arrow";
    delete it;
    oblique.close();

    // Saved, the style points at the blocks and names nothing; the file reads back to itself.
    std::string saved = write(*back);
    std::map<int, std::string> groups;
    for (const auto& t : record(saved, dimId.handle()))
        groups[t.code] = t.value;
    EXPECT_EQ(groups.count(5), 0u);
    EXPECT_EQ(groups.count(6), 0u);
    EXPECT_EQ(groups[342], hex(d->dimblk().handle()));
    EXPECT_EQ(groups.count(343), 1u);
    EXPECT_EQ(groups.count(344), 0u) << "an empty name is the default arrow";
    roundTrip(*back);
}
