// The database's private record: objects by handle, adding and opening objects, the bookkeeping of
// open states for transactions, and the default drawing.
#include "sim/db/ImpDatabase.h"

#include <algorithm>
#include <random>
#include <set>

#include "dbents.h"
#include "dbxrecrd.h"
#include "sim/db/Scale.h"
#include "sim/db/Transactions.h"

namespace {

std::set<const AcDbDatabase*>& liveDatabases()
{
    static std::set<const AcDbDatabase*> s;
    return s;
}

std::wstring newGuid()
{
    std::random_device rd;
    std::mt19937_64 gen((static_cast<std::uint64_t>(rd()) << 32) ^ rd());
    std::uniform_int_distribution<unsigned> hex(0, 15);
    std::wstring s = L"{";
    const wchar_t* digits = L"0123456789ABCDEF";
    for (int i = 0; i < 32; ++i) {
        if (i == 8 || i == 12 || i == 16 || i == 20)
            s += L'-';
        s += digits[hex(gen)];
    }
    return s + L"}";
}

} // namespace

AcDbImpDatabase::AcDbImpDatabase(AcDbDatabase* s)
    : self(s), transactions(std::make_unique<sim::db::TransactionManager>(*this)),
      contexts(std::make_unique<AcDbObjectContextManager>(s))
{
    liveDatabases().insert(s);
    header.fingerprint = newGuid();
}

AcDbImpDatabase::~AcDbImpDatabase()
{
    liveDatabases().erase(self);
    transactions.reset();
    objects.clear();
    graveyard.clear();
}

AcDbImpDatabase* AcDbImpDatabase::of(const AcDbDatabase* db)
{
    if (!db || !liveDatabases().count(db))
        return nullptr;
    return db->mpImpDb;
}

AcDbObject* AcDbImpDatabase::lookup(AcDbObjectId id)
{
    AcDbImpDatabase* db = of(id.database());
    return db ? db->find(id.handle()) : nullptr;
}

AcDbObject* AcDbImpDatabase::find(AcDbHandle h) const
{
    return objects.find(h.value());
}

Acad::ErrorStatus AcDbImpDatabase::addObject(AcDbObject* obj, AcDbObjectId owner, AcDbObjectId& id, AcDbHandle wanted,
                                             bool leaveOpen)
{
    if (!obj)
        return Acad::eNullObjectPointer;
    AcDbImpObject* oi = imp(obj);
    if (oi->db || oi->detached)
        return Acad::eAlreadyInDb;
    Adesk::UInt64 h = wanted.value();
    if (h != 0) {
        if (objects.contains(h))
            return Acad::eHandleExists;
    } else {
        h = seed;
        while (objects.contains(h))
            ++h;
    }
    seed = std::max(seed, h + 1);
    oi->db = self;
    oi->handle = AcDbHandle(h);
    oi->owner = owner;
    objects.insert(h, obj);
    if (leaveOpen) {
        oi->writer = true;
        oi->isNew = true;
        writeOpen.insert(obj);
    }
    transactions->noteAdded(obj);
    id = AcDbObjectId(self, AcDbHandle(h));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbImpDatabase::checkLockedLayer(const AcDbObject* obj) const
{
    const AcDbEntity* ent = AcDbEntity::cast(obj);
    if (!ent)
        return Acad::eOk;
    auto* layer = AcDbLayerTableRecord::cast(lookup(ent->layerId()));
    return layer && layer->isLocked() ? Acad::eOnLockedLayer : Acad::eOk;
}

Acad::ErrorStatus AcDbImpDatabase::open(AcDbObject*& out, AcDbObjectId id, AcDb::OpenMode mode, bool openErased)
{
    out = nullptr;
    if (id.isNull())
        return Acad::eNullObjectId;
    AcDbObject* obj = find(id.handle());
    if (!obj)
        return Acad::eUnknownHandle;
    AcDbImpObject* oi = imp(obj);
    if (oi->erased && !openErased)
        return Acad::eWasErased;
    if (oi->writer)
        return Acad::eWasOpenForWrite;
    if (mode == AcDb::kForWrite) {
        if (oi->readers > 0)
            return Acad::eWasOpenForRead;
        if (Acad::ErrorStatus es = checkLockedLayer(obj); es != Acad::eOk)
            return es;
        oi->writer = true;
        writeOpen.insert(obj);
    } else {
        if (oi->readers >= 256)
            return Acad::eAtMaxReaders;
        ++oi->readers;
    }
    out = obj;
    return Acad::eOk;
}

void AcDbImpDatabase::touch(AcDbObject* obj)
{
    if (obj && transactions->active())
        transactions->touch(obj);
}

void AcDbImpDatabase::noteOpenState(AcDbObject* obj)
{
    AcDbImpObject* oi = imp(obj);
    if (oi->db && (oi->writer || oi->txnMode == 2))
        writeOpen.insert(obj);
    else
        writeOpen.erase(obj);
}

void AcDbImpDatabase::setErased(AcDbObject* obj, bool erased)
{
    touch(obj);
    imp(obj)->erased = erased;
    std::vector<AcDbObjectId> owned;
    if (auto* ref = AcDbBlockReference::cast(obj)) {
        owned = attributes(ref);
        owned.push_back(seqEnd(ref));
    } else if (auto* verts = polylineVertices(obj)) {
        owned = *verts;
        owned.push_back(*polylineSeqEnd(obj));
    }
    for (AcDbObjectId id : owned)
        if (AcDbObject* child = find(id.handle()); child && !id.isNull()) {
            touch(child);
            imp(child)->erased = erased;
        }
}

void AcDbImpDatabase::addUsualScales(AcDbObjectId list)
{
    // The usual scales of drawings in millimetres, under the keys the host gives them.
    const struct {
        const wchar_t* name;
        double paper, drawing;
    } usual[] = {{L"1:1", 1, 1},     {L"1:2", 1, 2},     {L"1:5", 1, 5},       {L"1:10", 1, 10},
                 {L"1:20", 1, 20},   {L"1:25", 1, 25},   {L"1:50", 1, 50},     {L"1:100", 1, 100},
                 {L"1:200", 1, 200}, {L"1:500", 1, 500}, {L"1:1000", 1, 1000}, {L"2:1", 2, 1},
                 {L"5:1", 5, 1},     {L"10:1", 10, 1}};
    auto* dict = AcDbDictionary::cast(find(list.handle()));
    if (!dict)
        return;
    int n = 0;
    for (const auto& u : usual) {
        auto* scale = new sim::db::Scale;
        scale->name = u.name;
        scale->paperUnits = u.paper;
        scale->drawingUnits = u.drawing;
        scale->unitScale = u.paper == u.drawing;
        imp(scale)->reactors.push_back(list);
        AcDbObjectId id;
        addObject(scale, list, id, AcDbHandle(), false);
        entries(dict).emplace_back(L"A" + std::to_wstring(n++), id);
    }
}

void AcDbImpDatabase::buildDefaultDrawing()
{
    using namespace sim::db;
    // The handles of a new drawing of the host: tables first, then the named objects dictionary.
    struct TableSlot {
        TableKind kind;
        AcDbSymbolTable* table;
        Adesk::UInt64 handle;
    };
    const TableSlot slots[] = {
        {kBlockTable, new AcDbBlockTable, 0x1},      {kLayerTable, new AcDbLayerTable, 0x2},
        {kTextStyleTable, new AcDbTextStyleTable, 0x3}, {kLinetypeTable, new AcDbLinetypeTable, 0x5},
        {kViewTable, new AcDbViewTable, 0x6},         {kUCSTable, new AcDbUCSTable, 0x7},
        {kViewportTable, new AcDbViewportTable, 0x8}, {kRegAppTable, new AcDbRegAppTable, 0x9},
        {kDimStyleTable, new AcDbDimStyleTable, 0xA},
    };
    for (const TableSlot& s : slots)
        addObject(s.table, AcDbObjectId::kNull, tables[s.kind], AcDbHandle(s.handle), false);
    auto* nod = new AcDbDictionary;
    addObject(nod, AcDbObjectId::kNull, namedObjects, AcDbHandle(0xC), false);
    seed = 0x10;

    auto addRecord = [&](TableKind kind, AcDbSymbolTableRecord* rec, const wchar_t* recName) {
        AcDbObjectId id;
        name(rec) = recName;
        addObject(rec, tables[kind], id, AcDbHandle(), false);
        records(static_cast<AcDbSymbolTable*>(find(tables[kind].handle()))).push_back(id);
        return id;
    };

    auto* byBlock = new AcDbLinetypeTableRecord;
    auto* byLayer = new AcDbLinetypeTableRecord;
    auto* continuous = new AcDbLinetypeTableRecord;
    continuous->setComments(L"Solid line");
    addRecord(kLinetypeTable, byBlock, L"ByBlock");
    AcDbObjectId byLayerId = addRecord(kLinetypeTable, byLayer, L"ByLayer");
    AcDbObjectId continuousId = addRecord(kLinetypeTable, continuous, L"Continuous");

    auto* layer0 = new AcDbLayerTableRecord;
    AcCmColor white;
    white.setColorIndex(7);
    layer0->setColor(white);
    linetypeId(layer0) = continuousId;
    header.clayer = addRecord(kLayerTable, layer0, L"0");

    auto* standard = new AcDbTextStyleTableRecord;
    standard->setFileName(L"txt");
    header.textstyle = addRecord(kTextStyleTable, standard, L"Standard");

    auto* dimStandard = new AcDbDimStyleTableRecord;
    dimStandard->setDimtxsty(header.textstyle);
    header.dimstyle = addRecord(kDimStyleTable, dimStandard, L"Standard");

    addRecord(kRegAppTable, new AcDbRegAppTableRecord, L"ACAD");
    addRecord(kViewportTable, new AcDbViewportTableRecord, L"*Active");

    for (const wchar_t* space : {ACDB_MODEL_SPACE, ACDB_PAPER_SPACE}) {
        auto* btr = new AcDbBlockTableRecord;
        addRecord(kBlockTable, btr, space);
        AcDbObjectId begin, end;
        addObject(new AcDbBlockBegin, btr->objectId(), begin, AcDbHandle(), false);
        addObject(new AcDbBlockEnd, btr->objectId(), end, AcDbHandle(), false);
        blockBegin(btr) = begin;
        blockEnd(btr) = end;
    }

    for (const wchar_t* key : {L"ACAD_GROUP", L"ACAD_LAYOUT", L"ACAD_MLEADERSTYLE", L"ACAD_SCALELIST", L"ACAD_TABLESTYLE"}) {
        AcDbObjectId id;
        addObject(new AcDbDictionary, namedObjects, id, AcDbHandle(), false);
        entries(nod).emplace_back(key, id);
        if (std::wstring(key) == L"ACAD_SCALELIST")
            addUsualScales(id);
    }

    header.celtype = byLayerId;
    header.insunits = AcDb::kUnitsMillimeters;
    if (FileFormat* format = fileFormat())
        format->completeDefaultDrawing(*self);
}

Acad::ErrorStatus AcDbImpDatabase::appendPolylineVertex(AcDbEntity* polyline, AcDbEntity* vertex,
                                                        std::vector<AcDbObjectId>& vertices, AcDbObjectId& seqEnd,
                                                        AcDbObjectId& id)
{
    if (vertex->database())
        return Acad::eAlreadyInDb;
    layerId(vertex) = polyline->layerId();
    linetypeId(vertex) = polyline->linetypeId();
    Acad::ErrorStatus es = addObject(vertex, polyline->objectId(), id);
    if (es != Acad::eOk)
        return es;
    vertices.push_back(id);
    if (seqEnd.isNull()) {
        auto* end = new AcDbSequenceEnd;
        layerId(end) = polyline->layerId();
        addObject(end, polyline->objectId(), seqEnd, AcDbHandle(), false);
    }
    return Acad::eOk;
}
