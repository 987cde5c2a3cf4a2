// Annotative objects: the annotative flag (the AcadAnnotative extended data, a multileader style's
// own flag) and the annotation scales an entity carries, kept as the host keeps them: context data
// objects in its extension dictionary under AcDbContextDataManager / ACDB_ANNOTATIONSCALES, each
// pointing to its SCALE.
#include <cstdio>
#include <memory>

#include "dbAnnotativeObjectPE.h"
#include "dbAnnotationScale.h"
#include "dbObjectContextInterface.h"
#include "dbdict.h"
#include "dbdim.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbsymtb.h"
#include "mleader.h"
#include "mleaderstyle.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/FileAccess.h"
#include "sim/db/Scale.h"
#include "sim/db/UnknownObject.h"

ACRX_DEFINE_MEMBERS(AcDbAnnotativeObjectPE, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcDbObjectContextInterface, AcRxObject, nullptr)

namespace {

const wchar_t* const kApp = L"AcadAnnotative";
const wchar_t* const kManager = L"AcDbContextDataManager";
const wchar_t* const kScales = L"ACDB_ANNOTATIONSCALES";

/// The record name of the context data of an entity's class; null for a class that carries no
/// scales.
const wchar_t* contextDataRecord(const AcRxObject* obj)
{
    if (AcDbRotatedDimension::cast(obj))
        return L"ACDB_RDIMOBJECTCONTEXTDATA_CLASS";
    if (AcDbAlignedDimension::cast(obj))
        return L"ACDB_ALDIMOBJECTCONTEXTDATA_CLASS";
    if (AcDbMLeader::cast(obj))
        return L"ACDB_MLEADEROBJECTCONTEXTDATA_CLASS";
    if (AcDbMText::cast(obj))
        return L"ACDB_MTEXTOBJECTCONTEXTDATA_CLASS";
    if (AcDbText::cast(obj))
        return L"ACDB_TEXTOBJECTCONTEXTDATA_CLASS";
    if (AcDbBlockReference::cast(obj))
        return L"ACDB_BLKREFOBJECTCONTEXTDATA_CLASS";
    return nullptr;
}

bool canBeAnnotative(const AcRxObject* obj)
{
    return contextDataRecord(obj) || AcDbTextStyleTableRecord::cast(obj) || AcDbDimStyleTableRecord::cast(obj) ||
           AcDbMLeaderStyle::cast(obj) || AcDbBlockTableRecord::cast(obj);
}

AcDbObjectId entryOf(AcDbObjectId dictId, const wchar_t* key)
{
    auto* dict = AcDbDictionary::cast(sim::db::objectOf(dictId));
    AcDbObjectId id;
    if (!dict || dict->getAt(key, id) != Acad::eOk)
        return AcDbObjectId::kNull;
    return id;
}

/// The dictionary of an object's scales; null when it has none.
AcDbObjectId scalesDictionary(const AcDbObject* obj)
{
    return entryOf(entryOf(obj->extensionDictionary(), kManager), kScales);
}

/// The key under which an object keeps its data of the scale; empty when it does not carry it.
std::wstring keyOfScale(const AcDbObject* obj, AcDbObjectId scale)
{
    auto* dict = AcDbDictionary::cast(sim::db::objectOf(scalesDictionary(obj)));
    if (!dict || scale.isNull())
        return std::wstring();
    for (const auto& [key, id] : sim::db::dictionaryEntries(dict)) {
        auto* data = sim::db::UnknownObject::cast(sim::db::objectOf(id));
        if (data && !data->isErased() && sim::db::contextDataScale(*data) == scale.handle().value())
            return key;
    }
    return std::wstring();
}

/// The stored scale a context stands for: by its identity, else by its name.
AcDbObjectId storedScale(const AcDbDatabase* db, const AcDbObjectContext& context)
{
    if (!db)
        return AcDbObjectId::kNull;
    AcDbObjectId id = sim::db::findScale(db, context.uniqueIdentifier());
    AcString name;
    if (id.isNull() && context.getName(name) == Acad::eOk)
        id = sim::db::findScale(db, name.constPtr());
    return id;
}

/// The entry of the key in an open dictionary, made as a new dictionary when it lacks it.
Acad::ErrorStatus subDictionary(AcDbObjectId parentId, const wchar_t* key, AcDbObjectId& out)
{
    out = entryOf(parentId, key);
    if (!out.isNull())
        return Acad::eOk;
    AcDbObject* obj = nullptr;
    if (Acad::ErrorStatus es = acdbOpenObject(obj, parentId, AcDb::kForWrite); es != Acad::eOk)
        return es;
    auto* parent = AcDbDictionary::cast(obj);
    if (!parent) {
        obj->close();
        return Acad::eWrongObjectType;
    }
    auto* child = new AcDbDictionary;
    Acad::ErrorStatus es = parent->setAt(key, child, out);
    if (es == Acad::eOk)
        child->close();
    else
        delete child;
    parent->close();
    return es;
}

} // namespace

bool AcDbAnnotativeObjectPE::annotative(AcDbObject* pObject) const
{
    if (!pObject)
        return false;
    if (auto* style = AcDbMLeaderStyle::cast(pObject))
        return style->annotative();
    resbuf* data = pObject->xData(kApp);
    // 1001 app, 1000 AnnotativeData, 1002 {, 1070 version, 1070 flag, 1002 }
    int shorts = 0;
    bool on = false;
    for (resbuf* rb = data; rb; rb = rb->rbnext)
        if (rb->restype == AcDb::kDxfXdInteger16 && ++shorts == 2)
            on = rb->resval.rint == 1;
    acutRelRb(data);
    return on;
}

Acad::ErrorStatus AcDbAnnotativeObjectPE::setAnnotative(AcDbObject* pObject, const bool bAnnotative)
{
    if (!pObject)
        return Acad::eNullObjectPointer;
    if (!sim::db::beginChange(pObject))
        return Acad::eNotOpenForWrite;
    if (auto* style = AcDbMLeaderStyle::cast(pObject))
        return style->setAnnotative(bAnnotative);
    resbuf* chain = acutBuildList(AcDb::kDxfRegAppName, kApp, AcDb::kDxfXdAsciiString, L"AnnotativeData",
                                  AcDb::kDxfXdControlString, L"{", AcDb::kDxfXdInteger16, 1, AcDb::kDxfXdInteger16,
                                  bAnnotative ? 1 : 0, AcDb::kDxfXdControlString, L"}", RTNONE);
    Acad::ErrorStatus es = pObject->setXData(chain);
    acutRelRb(chain);
    return es;
}

bool AcDbObjectContextInterface::supportsCollection(const AcDbObject* pObject, const AcString& collectionName) const
{
    return pObject && contextDataRecord(pObject) && collectionName.compareNoCase(acdbAnnotationScaleCollectionName) == 0;
}

bool AcDbObjectContextInterface::hasContext(const AcDbObject* pObject, const AcDbObjectContext& context) const
{
    if (!pObject || !contextDataRecord(pObject))
        return false;
    return !keyOfScale(pObject, storedScale(pObject->database(), context)).empty();
}

Acad::ErrorStatus AcDbObjectContextInterface::addContext(AcDbObject* pObject, const AcDbObjectContext& context) const
{
    if (!pObject)
        return Acad::eNullObjectPointer;
    const wchar_t* record = contextDataRecord(pObject);
    if (!record)
        return Acad::eNotApplicable;
    if (!sim::db::beginChange(pObject))
        return Acad::eNotOpenForWrite;
    AcDbDatabase* db = pObject->database();
    if (!db)
        return Acad::eNoDatabase;
    AcDbObjectId scale = storedScale(db, context);
    if (scale.isNull())
        return Acad::eInvalidContext;
    if (!keyOfScale(pObject, scale).empty())
        return Acad::eOk;
    if (pObject->extensionDictionary().isNull())
        if (Acad::ErrorStatus es = pObject->createExtensionDictionary(); es != Acad::eOk)
            return es;
    AcDbObjectId manager, scales;
    if (Acad::ErrorStatus es = subDictionary(pObject->extensionDictionary(), kManager, manager); es != Acad::eOk)
        return es;
    if (Acad::ErrorStatus es = subDictionary(manager, kScales, scales); es != Acad::eOk)
        return es;
    AcDbObject* obj = nullptr;
    if (Acad::ErrorStatus es = acdbOpenObject(obj, scales, AcDb::kForWrite); es != Acad::eOk)
        return es;
    auto* dict = static_cast<AcDbDictionary*>(obj);
    bool first = true;
    for (const auto& [key, id] : sim::db::dictionaryEntries(dict))
        if (AcDbObject* o = sim::db::objectOf(id); o && !o->isErased())
            first = false;
    std::wstring key;
    for (int n = 1;; ++n) {
        key = L"*A" + std::to_wstring(n);
        if (!dict->has(key.c_str()))
            break;
    }
    char handle[32];
    std::snprintf(handle, sizeof handle, "%llX", static_cast<unsigned long long>(scale.handle().value()));
    sim::db::RawTags tags = {{100, "AcDbObjectContextData"},         {70, "3"}, {290, first ? "1" : "0"},
                             {100, "AcDbAnnotScaleObjectContextData"}, {340, handle}};
    auto* data = new sim::db::UnknownObject(record, std::move(tags));
    AcDbObjectId dataId;
    Acad::ErrorStatus es = dict->setAt(key.c_str(), data, dataId);
    if (es == Acad::eOk)
        data->close();
    else
        delete data;
    dict->close();
    // A reference shows at its first scale: its block drawn in paper units, enlarged to the drawing.
    auto* ref = AcDbBlockReference::cast(pObject);
    auto* shown = sim::db::Scale::cast(sim::db::objectOf(scale));
    if (es == Acad::eOk && first && ref && shown && shown->paperUnits > 0.0) {
        const double k = shown->drawingUnits / shown->paperUnits;
        const AcGeScale3d s = ref->scaleFactors();
        ref->setScaleFactors(AcGeScale3d(s.sx * k, s.sy * k, s.sz * k));
    }
    return es;
}

Acad::ErrorStatus AcDbObjectContextInterface::removeContext(AcDbObject* pObject, const AcDbObjectContext& context) const
{
    if (!pObject)
        return Acad::eNullObjectPointer;
    if (!sim::db::beginChange(pObject))
        return Acad::eNotOpenForWrite;
    std::wstring key = keyOfScale(pObject, storedScale(pObject->database(), context));
    if (key.empty())
        return Acad::eKeyNotFound;
    AcDbObject* obj = nullptr;
    if (Acad::ErrorStatus es = acdbOpenObject(obj, scalesDictionary(pObject), AcDb::kForWrite); es != Acad::eOk)
        return es;
    auto* dict = static_cast<AcDbDictionary*>(obj);
    AcDbObjectId dataId;
    Acad::ErrorStatus es = dict->remove(key.c_str(), dataId);
    dict->close();
    if (es != Acad::eOk)
        return es;
    AcDbObject* data = nullptr;
    if (acdbOpenObject(data, dataId, AcDb::kForWrite) == Acad::eOk) {
        data->erase();
        data->close();
    }
    return Acad::eOk;
}

namespace sim::db {
/// The protocol extensions of the database's classes (see AcRxObject::queryX).
AcRxObject* protocolExtension(const AcRxObject* obj, const AcRxClass* protocol)
{
    static AcDbAnnotativeObjectPE annotativePE;
    static AcDbObjectContextInterface contexts;
    if (protocol == AcDbAnnotativeObjectPE::desc())
        return canBeAnnotative(obj) ? &annotativePE : nullptr;
    if (protocol == AcDbObjectContextInterface::desc())
        return contextDataRecord(obj) ? &contexts : nullptr;
    return nullptr;
}
} // namespace sim::db
