// The platform's access to a database beyond the host's API: every object, objects under given
// handles linked to their owners, what the drawing file keeps aside, and the file format in use.
#include "sim/db/DatabaseAccess.h"

#include <algorithm>

#include "dbdict.h"
#include "dbents.h"
#include "sim/db/ImpDatabase.h"
#include "sim/db/UnknownObject.h"

namespace sim::db {

namespace {

struct Registry {
    FileFormat* format = nullptr;
    std::vector<std::wstring> supportPaths;
};

Registry& registry()
{
    static Registry r;
    return r;
}

/// The kind of a symbol table object, or kTableCount for another object.
TableKind kindOf(const AcDbObject* obj)
{
    const std::pair<AcRxClass*, TableKind> kinds[] = {
        {AcDbBlockTable::desc(), kBlockTable},       {AcDbLayerTable::desc(), kLayerTable},
        {AcDbTextStyleTable::desc(), kTextStyleTable}, {AcDbLinetypeTable::desc(), kLinetypeTable},
        {AcDbViewTable::desc(), kViewTable},         {AcDbUCSTable::desc(), kUCSTable},
        {AcDbViewportTable::desc(), kViewportTable}, {AcDbRegAppTable::desc(), kRegAppTable},
        {AcDbDimStyleTable::desc(), kDimStyleTable},
    };
    for (auto [cls, kind] : kinds)
        if (obj->isA() == cls)
            return kind;
    return kTableCount;
}

} // namespace

DatabaseExtras& extras(AcDbDatabase* db) { return AcDbImpDatabase::of(db)->extras; }

std::wstring cannoscaleName(const AcDbDatabase* db)
{
    AcDbImpDatabase* imp = AcDbImpDatabase::of(db);
    return imp ? imp->header.cannoscale : std::wstring();
}

void setCannoscaleName(AcDbDatabase* db, const std::wstring& name)
{
    if (AcDbImpDatabase* imp = AcDbImpDatabase::of(db); imp && !name.empty())
        imp->header.cannoscale = name;
}

void forEachObject(AcDbDatabase* db, const std::function<void(AcDbObject*)>& fn)
{
    AcDbImpDatabase* imp = AcDbImpDatabase::of(db);
    if (!imp)
        return;
    imp->objects.forEach([&](Adesk::UInt64, AcDbObject* obj) { fn(obj); });
}

AcDbObject* objectAt(AcDbDatabase* db, AcDbHandle handle)
{
    AcDbImpDatabase* imp = AcDbImpDatabase::of(db);
    return imp ? imp->find(handle) : nullptr;
}

void reserveHandles(AcDbDatabase* db, size_t count)
{
    if (AcDbImpDatabase* imp = AcDbImpDatabase::of(db))
        imp->objects.reserve(count);
}

Acad::ErrorStatus addObject(AcDbDatabase* db, AcDbObject* obj, AcDbHandle handle, AcDbObjectId ownerId, AcDbObjectId& id)
{
    AcDbImpDatabase* imp = AcDbImpDatabase::of(db);
    if (!imp)
        return Acad::eNoDatabase;
    Acad::ErrorStatus es = imp->addObject(obj, ownerId, id, handle, false);
    if (es != Acad::eOk)
        return es;
    TableKind kind = kindOf(obj);
    if (kind != kTableCount && imp->tables[kind].isNull())
        imp->tables[kind] = id;
    else if (kind == kTableCount && AcDbDictionary::cast(obj) && ownerId.isNull() && imp->namedObjects.isNull())
        imp->namedObjects = id;
    return Acad::eOk;
}

Acad::ErrorStatus link(AcDbObject* owner, AcDbObjectId child, const std::wstring& name)
{
    if (!owner || child.isNull())
        return Acad::eNullObjectPointer;
    AcDbObject* c = AcDbImpDatabase::lookup(child);
    if (auto* table = AcDbSymbolTable::cast(owner)) {
        AcDbImpDatabase::records(table).push_back(child);
    } else if (auto* btr = AcDbBlockTableRecord::cast(owner)) {
        if (c && AcDbBlockBegin::cast(c))
            AcDbImpDatabase::blockBegin(btr) = child;
        else if (c && AcDbBlockEnd::cast(c))
            AcDbImpDatabase::blockEnd(btr) = child;
        else
            AcDbImpDatabase::entities(btr).push_back(child);
    } else if (auto* ref = AcDbBlockReference::cast(owner)) {
        if (c && AcDbSequenceEnd::cast(c))
            AcDbImpDatabase::seqEnd(ref) = child;
        else
            AcDbImpDatabase::attributes(ref).push_back(child);
    } else if (auto* verts = AcDbImpDatabase::polylineVertices(owner)) {
        if (c && AcDbSequenceEnd::cast(c))
            *AcDbImpDatabase::polylineSeqEnd(owner) = child;
        else
            verts->push_back(child);
    } else if (auto* dict = AcDbDictionary::cast(owner)) {
        AcDbImpDatabase::entries(dict).emplace_back(name, child);
    } else {
        return Acad::eWrongObjectType;
    }
    return Acad::eOk;
}

AcDbObjectId tableId(AcDbDatabase* db, TableKind kind)
{
    AcDbImpDatabase* imp = AcDbImpDatabase::of(db);
    return imp && kind < kTableCount ? imp->tables[kind] : AcDbObjectId::kNull;
}

void setTableId(AcDbDatabase* db, TableKind kind, AcDbObjectId id)
{
    if (AcDbImpDatabase* imp = AcDbImpDatabase::of(db); imp && kind < kTableCount)
        imp->tables[kind] = id;
}

void setNamedObjectsDictionaryId(AcDbDatabase* db, AcDbObjectId id)
{
    if (AcDbImpDatabase* imp = AcDbImpDatabase::of(db))
        imp->namedObjects = id;
}

std::map<int, AcDbDimStyleTableRecord::Value>& dimStyleValues(AcDbDimStyleTableRecord* rec)
{
    return AcDbImpDatabase::dimValues(rec);
}

std::wstring dxfName(const AcDbObject* obj)
{
    if (!obj)
        return std::wstring();
    if (auto* u = UnknownObject::cast(obj))
        return u->recordName;
    if (auto* u = UnknownEntity::cast(obj))
        return u->recordName;
    for (AcRxClass* c = obj->isA(); c; c = c->myParent())
        if (c->dxfName())
            return c->dxfName();
    return std::wstring();
}

void setFileFormat(FileFormat* format) { registry().format = format; }
FileFormat* fileFormat() { return registry().format; }

void setFileName(AcDbDatabase* db, const std::wstring& path)
{
    if (AcDbImpDatabase* imp = AcDbImpDatabase::of(db))
        imp->fileName = normalizePath(path);
}

void setSupportPaths(std::vector<std::wstring> folders)
{
    for (auto& f : folders)
        f = normalizePath(f);
    registry().supportPaths = std::move(folders);
}
const std::vector<std::wstring>& supportPaths() { return registry().supportPaths; }

std::wstring normalizePath(std::wstring path)
{
    std::replace(path.begin(), path.end(), L'\\', L'/');
    return path;
}

} // namespace sim::db
