// The structure every drawing file needs and the built-in template of a new drawing, written from
// the DXF reference's description of each object.
#include "sim/dxf/Template.h"

#include <set>
#include <string>

#include "dbdict.h"
#include "dblayout.h"
#include "dbobjptr.h"
#include "mleaderstyle.h"
#include "sim/core/Session.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/FileAccess.h"
#include "sim/db/ImpObject.h"
#include "sim/db/UnknownObject.h"
#include "sim/dxf/Preserved.h"
#include "sim/dxf/TagWriter.h"

namespace sim::dxf {

namespace {

using sim::db::RawTags;
using sim::db::TableKind;

AcDbObjectId add(AcDbDatabase& db, AcDbObject* obj, AcDbObjectId owner)
{
    AcDbObjectId id;
    if (sim::db::addObject(&db, obj, AcDbHandle(), owner, id) != Acad::eOk) {
        delete obj;
        return AcDbObjectId::kNull;
    }
    return id;
}

AcDbSymbolTable* table(AcDbDatabase& db, TableKind kind)
{
    return AcDbSymbolTable::cast(sim::db::objectOf(sim::db::tableId(&db, kind)));
}

AcDbObjectId findRecord(AcDbDatabase& db, TableKind kind, const wchar_t* name)
{
    AcDbSymbolTable* t = table(db, kind);
    AcDbObjectId id;
    if (!t || t->getAt(name, id) != Acad::eOk)
        return AcDbObjectId::kNull;
    return id;
}

/// The record of the name, added as made by make when the table lacks it.
template <class T, class Make>
AcDbObjectId ensureRecord(AcDbDatabase& db, TableKind kind, const wchar_t* name, Make make)
{
    if (AcDbObjectId id = findRecord(db, kind, name); !id.isNull())
        return id;
    T* rec = new T;
    sim::db::setRecordName(rec, name);
    make(*rec);
    AcDbObjectId tableId = sim::db::tableId(&db, kind);
    AcDbObjectId id = add(db, rec, tableId);
    if (!id.isNull())
        sim::db::link(sim::db::objectOf(tableId), id);
    return id;
}

AcDbDictionary* dictionary(AcDbObjectId id) { return AcDbDictionary::cast(sim::db::objectOf(id)); }

AcDbObjectId entry(AcDbDictionary* dict, const wchar_t* key)
{
    AcDbObjectId id;
    if (!dict || dict->getAt(key, id) != Acad::eOk)
        return AcDbObjectId::kNull;
    return id;
}

/// The entry of the key, added as made by make (owned by the dictionary) when it lacks it.
template <class Make>
AcDbObjectId ensureEntry(AcDbDatabase& db, AcDbObjectId dictId, const wchar_t* key, Make make)
{
    AcDbDictionary* dict = dictionary(dictId);
    if (!dict)
        return AcDbObjectId::kNull;
    if (AcDbObjectId id = entry(dict, key); !id.isNull())
        return id;
    AcDbObject* obj = make();
    AcDbObjectId id = add(db, obj, dictId);
    if (id.isNull())
        return id;
    sim::db::impOf(obj)->reactors.push_back(dictId);
    sim::db::link(dict, id, key);
    return id;
}

AcDbObjectId ensureDictionary(AcDbDatabase& db, AcDbObjectId owner, const wchar_t* key)
{
    return ensureEntry(db, owner, key, [] { return new AcDbDictionary; });
}

/// Groups written through the tag writer, kept as an object's raw groups.
class Tags : public TagWriter {
public:
    void write(int code, std::string_view value) override { tags.push_back({code, std::string(value)}); }
    RawTags tags;
};

sim::db::UnknownObject* unknown(const wchar_t* recordName, RawTags tags)
{
    return new sim::db::UnknownObject(recordName, std::move(tags));
}

/// A layout's groups beyond its name, tab order and block, from the DXF reference's LAYOUT: its
/// plot settings (a whole subclass) and the rest of the layout proper.
RawTags layoutTags(bool model, AcDbObjectId viewport)
{
    Tags t;
    t.write(kSubclassRest, "");
    t.write(kWholeSegment, "");
    t.write(100, "AcDbPlotSettings");
    t.write(1, "");
    t.write(2, "none_device");
    t.write(4, "");
    t.write(6, "");
    for (int code = 40; code <= 43; ++code)
        t.real(code, 0.0);
    t.real(44, model ? 0.0 : 420.0); // paper size in millimetres: A3 landscape
    t.real(45, model ? 0.0 : 297.0);
    for (int code : {46, 47, 48, 49, 140, 141})
        t.real(code, 0.0);
    t.real(142, 1.0);
    t.real(143, 1.0);
    // Standard scale, plot styles, line weights, viewports first; and the model flag.
    t.integer(70, 16 | 32 | 128 | 512 | (model ? 1024 : 0));
    t.integer(72, 1); // millimetres
    t.integer(73, 0);
    t.integer(74, model ? 0 : 5);
    t.write(7, "");
    t.integer(75, model ? 0 : 16);
    t.real(147, 1.0);
    t.integer(76, 0);
    t.integer(77, 2);
    t.integer(78, 300);
    t.real(148, 0.0);
    t.real(149, 0.0);
    t.write(kSubclassRest, "AcDbLayout");
    t.integer(70, 1);
    t.point2d(10, 0.0, 0.0);
    t.point2d(11, 420.0, 297.0);
    t.point(12, AcGePoint3d::kOrigin);
    t.point(14, AcGePoint3d::kOrigin);
    t.point(15, AcGePoint3d(420.0, 297.0, 0.0));
    t.real(146, 0.0);
    t.point(13, AcGePoint3d::kOrigin);
    t.point(16, AcGeVector3d::kXAxis);
    t.point(17, AcGeVector3d::kYAxis);
    t.integer(76, 0);
    if (!viewport.isNull())
        t.handle(331, viewport.handle());
    return t.tags;
}

/// The space's block record, made with its begin and end markers when the table lacks it.
AcDbObjectId ensureSpace(AcDbDatabase& db, const wchar_t* name)
{
    AcDbObjectId id = ensureRecord<AcDbBlockTableRecord>(db, sim::db::kBlockTable, name, [](AcDbBlockTableRecord&) {});
    auto* btr = AcDbBlockTableRecord::cast(sim::db::objectOf(id));
    if (!btr)
        return id;
    if (sim::db::blockBeginId(btr).isNull())
        if (AcDbObjectId b = add(db, new AcDbBlockBegin, id); !b.isNull())
            sim::db::link(btr, b);
    if (sim::db::blockEndId(btr).isNull())
        if (AcDbObjectId e = add(db, new AcDbBlockEnd, id); !e.isNull())
            sim::db::link(btr, e);
    return id;
}

void ensureLayout(AcDbDatabase& db, AcDbObjectId layouts, AcDbObjectId space, const wchar_t* name, bool model, int tab,
                  AcDbObjectId viewport)
{
    auto* btr = AcDbBlockTableRecord::cast(sim::db::objectOf(space));
    if (!btr || !btr->getLayoutId().isNull())
        return;
    AcDbObjectId id = ensureEntry(db, layouts, name, [&] {
        auto* layout = new AcDbLayout;
        layout->setLayoutName(name);
        layout->setTabOrder(tab);
        layout->setBlockTableRecordId(space);
        sim::db::impOf(layout)->preservedTags = layoutTags(model, viewport);
        return layout;
    });
    AcDbObjectPointer<AcDbBlockTableRecord> open(space, AcDb::kForWrite);
    if (open.openStatus() == Acad::eOk)
        open->setLayoutId(id);
}

/// Header variables of the template that the database does not model, as the file keeps them.
RawTags templateHeader()
{
    Tags t;
    auto var = [&](const char* name) { t.write(9, name); };
    var("$DWGCODEPAGE");
    t.write(3, "ANSI_1250");
    var("$INSBASE");
    t.point(10, AcGePoint3d::kOrigin);
    var("$EXTMIN");
    t.point(10, AcGePoint3d::kOrigin);
    var("$EXTMAX");
    t.point(10, AcGePoint3d(420.0, 297.0, 0.0));
    var("$LIMMIN");
    t.point2d(10, 0.0, 0.0);
    var("$LIMMAX");
    t.point2d(10, 420.0, 297.0);
    var("$ORTHOMODE");
    t.integer(70, 0);
    var("$FILLMODE");
    t.integer(70, 1);
    var("$MIRRTEXT");
    t.integer(70, 0);
    var("$ATTMODE");
    t.integer(70, 1);
    var("$LUNITS");
    t.integer(70, 2);
    var("$LUPREC");
    t.integer(70, 4);
    var("$AUNITS");
    t.integer(70, 0);
    var("$AUPREC");
    t.integer(70, 0);
    var("$ANGBASE");
    t.real(50, 0.0);
    var("$ANGDIR");
    t.integer(70, 0);
    var("$PDMODE");
    t.integer(70, 0);
    var("$PDSIZE");
    t.real(40, 0.0);
    var("$MEASUREMENT");
    t.integer(70, 1);
    var("$PSTYLEMODE");
    t.integer(290, 1);
    var("$LWDISPLAY");
    t.integer(290, 0);
    return t.tags;
}

} // namespace

void ensureStructure(AcDbDatabase& db)
{
    using namespace sim::db;
    const std::pair<TableKind, AcDbObject* (*)()> tables[] = {
        {kBlockTable, []() -> AcDbObject* { return new AcDbBlockTable; }},
        {kLayerTable, []() -> AcDbObject* { return new AcDbLayerTable; }},
        {kTextStyleTable, []() -> AcDbObject* { return new AcDbTextStyleTable; }},
        {kLinetypeTable, []() -> AcDbObject* { return new AcDbLinetypeTable; }},
        {kViewTable, []() -> AcDbObject* { return new AcDbViewTable; }},
        {kUCSTable, []() -> AcDbObject* { return new AcDbUCSTable; }},
        {kViewportTable, []() -> AcDbObject* { return new AcDbViewportTable; }},
        {kRegAppTable, []() -> AcDbObject* { return new AcDbRegAppTable; }},
        {kDimStyleTable, []() -> AcDbObject* { return new AcDbDimStyleTable; }},
    };
    for (const auto& [kind, make] : tables)
        if (tableId(&db, kind).isNull())
            setTableId(&db, kind, add(db, make(), AcDbObjectId::kNull));

    ensureRecord<AcDbLinetypeTableRecord>(db, kLinetypeTable, L"ByBlock", [](AcDbLinetypeTableRecord&) {});
    ensureRecord<AcDbLinetypeTableRecord>(db, kLinetypeTable, L"ByLayer", [](AcDbLinetypeTableRecord&) {});
    AcDbObjectId continuous = ensureRecord<AcDbLinetypeTableRecord>(
        db, kLinetypeTable, L"Continuous", [](AcDbLinetypeTableRecord& r) { r.setComments(L"Solid line"); });
    ensureRecord<AcDbLayerTableRecord>(db, kLayerTable, L"0", [&](AcDbLayerTableRecord& r) {
        AcCmColor white;
        white.setColorIndex(7);
        r.setColor(white);
        sim::db::setLinetypeId(&r, continuous);
    });
    AcDbObjectId standard = ensureRecord<AcDbTextStyleTableRecord>(db, kTextStyleTable, L"Standard",
                                                                   [](AcDbTextStyleTableRecord& r) { r.setFileName(L"txt"); });
    ensureRecord<AcDbDimStyleTableRecord>(db, kDimStyleTable, L"Standard",
                                          [&](AcDbDimStyleTableRecord& r) { r.setDimtxsty(standard); });
    ensureRecord<AcDbRegAppTableRecord>(db, kRegAppTable, L"ACAD", [](AcDbRegAppTableRecord&) {});
    AcDbObjectId active = ensureRecord<AcDbViewportTableRecord>(db, kViewportTable, L"*Active", [](AcDbViewportTableRecord&) {});
    AcDbObjectId model = ensureSpace(db, ACDB_MODEL_SPACE);
    AcDbObjectId paper = ensureSpace(db, ACDB_PAPER_SPACE);

    if (db.namedObjectsDictionaryId().isNull())
        setNamedObjectsDictionaryId(&db, add(db, new AcDbDictionary, AcDbObjectId::kNull));
    AcDbObjectId nod = db.namedObjectsDictionaryId();
    ensureDictionary(db, nod, L"ACAD_GROUP");
    AcDbObjectId layouts = ensureDictionary(db, nod, L"ACAD_LAYOUT");
    ensureLayout(db, layouts, model, L"Model", true, 0, active);
    ensureLayout(db, layouts, paper, L"Layout1", false, 1, AcDbObjectId::kNull);
}

void completeNewDrawing(AcDbDatabase& db)
{
    using namespace sim::db;
    ensureStructure(db);
    db.setInsunits(AcDb::kUnitsMillimeters);
    if (extras(&db).header.empty())
        extras(&db).header = templateHeader();
    ensureRecord<AcDbRegAppTableRecord>(db, kRegAppTable, L"AcAecLayerStandard", [](AcDbRegAppTableRecord&) {});

    // A view of an A3 sheet.
    AcDbObjectPointer<AcDbViewportTableRecord> active(findRecord(db, kViewportTable, L"*Active"), AcDb::kForWrite);
    if (active.openStatus() == Acad::eOk && active->height() == 1.0 && active->width() == 1.0) {
        active->setCenterPoint(AcGePoint2d(210.0, 148.5));
        active->setHeight(297.0);
        active->setWidth(420.0);
    }

    AcDbObjectId nod = db.namedObjectsDictionaryId();
    ensureDictionary(db, nod, L"ACAD_COLOR");
    ensureDictionary(db, nod, L"ACAD_MLINESTYLE");
    ensureDictionary(db, nod, L"ACAD_PLOTSETTINGS");
    ensureDictionary(db, nod, L"ACAD_TABLESTYLE");

    AcDbObjectId styles = ensureDictionary(db, nod, L"ACAD_MLEADERSTYLE");
    AcDbObjectId standardText = findRecord(db, kTextStyleTable, L"Standard");
    AcDbObjectId mleader = ensureEntry(db, styles, L"Standard", [&] {
        auto* style = new AcDbMLeaderStyle;
        style->setLeaderLineTypeId(db.byBlockLinetype());
        style->setTextStyleId(standardText);
        return style;
    });
    if (db.cmleaderstyle().isNull() && !mleader.isNull())
        db.setCmleaderstyle(mleader);

    // Plot style names: a dictionary with the default entry Normal.
    if (entry(dictionary(nod), L"ACAD_PLOTSTYLENAME").isNull()) {
        AcDbObjectId names = ensureDictionary(db, nod, L"ACAD_PLOTSTYLENAME");
        AcDbObjectId normal = ensureEntry(db, names, L"Normal", [] { return unknown(L"ACDBPLACEHOLDER", {}); });
        RawTags& kept = impOf(objectOf(names))->preservedTags.ensure();
        kept.push_back({kRecordName, "ACDBDICTIONARYWDFLT"});
        kept.push_back({kWholeSegment, ""});
        kept.push_back({100, "AcDbDictionaryWithDefault"});
        Tags h;
        h.handle(340, normal.handle());
        kept.push_back(h.tags.front());
    }

    ensureDictionary(db, nod, L"ACAD_SCALELIST"); // the database fills a new drawing's list
}

void registerUsedApplications(AcDbDatabase& db)
{
    std::set<std::wstring> used;
    sim::db::forEachObject(&db, [&](AcDbObject* obj) {
        if (obj->isErased())
            return;
        for (const auto& [app, chain] : sim::db::impOf(obj)->xdata)
            used.insert(app);
        // The writer keeps a layer's description as data of this application.
        if (auto* layer = AcDbLayerTableRecord::cast(obj)) {
            ACHAR* description = layer->description();
            if (description && *description)
                used.insert(L"AcAecLayerStandard");
            delete[] description;
        }
    });
    for (const std::wstring& app : used)
        if (findRecord(db, sim::db::kRegAppTable, app.c_str()).isNull() && !sim::db::tableId(&db, sim::db::kRegAppTable).isNull())
            ensureRecord<AcDbRegAppTableRecord>(db, sim::db::kRegAppTable, app.c_str(), [](AcDbRegAppTableRecord&) {});
}

} // namespace sim::dxf
