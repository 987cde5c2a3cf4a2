// The annotation scales of a database: the scale list as a collection of contexts, its iterator and
// the context manager that gives it.
#include "dbAnnotationScale.h"
#include "dbObjectContextManager.h"
#include "dbdict.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/FileAccess.h"
#include "sim/db/ImpDatabase.h"
#include "sim/db/Names.h"
#include "sim/db/Scale.h"
#include "sim/db/UnknownObject.h"

namespace sim::db {

SIM_DB_DEFINE_MEMBERS(Scale, AcDbObject, L"SCALE")

AcDbObjectId scaleListId(const AcDbDatabase* db)
{
    auto* nod = AcDbDictionary::cast(objectOf(db->namedObjectsDictionaryId()));
    AcDbObjectId id;
    if (!nod || nod->getAt(L"ACAD_SCALELIST", id) != Acad::eOk)
        return AcDbObjectId::kNull;
    return id;
}

std::vector<AcDbObjectId> scaleIds(const AcDbDatabase* db)
{
    std::vector<AcDbObjectId> ids;
    auto* list = AcDbDictionary::cast(objectOf(scaleListId(db)));
    if (!list)
        return ids;
    for (const auto& [key, id] : dictionaryEntries(list)) {
        AcDbObject* obj = objectOf(id);
        if (Scale::cast(obj) && !obj->isErased())
            ids.push_back(id);
    }
    return ids;
}

AcDbObjectId findScale(const AcDbDatabase* db, std::wstring_view name)
{
    for (AcDbObjectId id : scaleIds(db))
        if (sameName(static_cast<Scale*>(objectOf(id))->name, name))
            return id;
    return AcDbObjectId::kNull;
}

AcDbObjectId findScale(const AcDbDatabase* db, Adesk::LongPtr identifier)
{
    for (AcDbObjectId id : scaleIds(db))
        if (scaleIdentifier(id) == identifier)
            return id;
    return AcDbObjectId::kNull;
}

Adesk::UInt64 contextDataScale(const UnknownObject& data)
{
    for (const auto& t : data.tags)
        if (t.code == 340) {
            try {
                return std::stoull(t.value, nullptr, 16);
            } catch (...) {
                return 0;
            }
        }
    return 0;
}

bool scaleInUse(const AcDbDatabase* db, AcDbObjectId scale)
{
    bool used = false;
    Adesk::UInt64 h = scale.handle().value();
    forEachObject(const_cast<AcDbDatabase*>(db), [&](AcDbObject* obj) {
        auto* data = UnknownObject::cast(obj);
        if (!used && data && !obj->isErased() && data->recordName.find(L"CONTEXTDATA") != std::wstring::npos &&
            contextDataScale(*data) == h) {
            // Data left behind by an erased entity does not hold the scale: its owners are the
            // scales' dictionary, the context data manager, the extension dictionary, the entity.
            used = true;
            AcDbObject* owner = obj;
            for (int up = 0; up < 4 && used; ++up) {
                owner = objectOf(owner->ownerId());
                used = owner && !owner->isErased();
            }
        }
    });
    return used;
}

/// The handed-out copy of a stored scale.
AcDbAnnotationScale* copyOfScale(AcDbObjectId id)
{
    auto* s = Scale::cast(objectOf(id));
    if (!s)
        return nullptr;
    auto* out = new AcDbAnnotationScale;
    out->setName(s->name.c_str());
    out->setPaperUnits(s->paperUnits);
    out->setDrawingUnits(s->drawingUnits);
    AcDbImpDatabase::setScaleIdentity(*out, scaleIdentifier(id), id.database());
    return out;
}

} // namespace sim::db

using namespace sim::db;

ACRX_DEFINE_MEMBERS(AcDbObjectContextCollection, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcDbObjectContextCollectionIterator, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcDbObjectContextManager, AcRxObject, nullptr)

AcDbObjectContext* AcDbObjectContextCollection::currentContext(const AcDbObject*) const { return m_db->cannoscale(); }

Acad::ErrorStatus AcDbObjectContextCollection::setCurrentContext(const AcDbObjectContext* pContext)
{
    auto* scale = AcDbAnnotationScale::cast(pContext);
    if (!scale)
        return Acad::eInvalidInput;
    return m_db->setCannoscale(const_cast<AcDbAnnotationScale*>(scale));
}

Acad::ErrorStatus AcDbObjectContextCollection::addContext(const AcDbObjectContext* pContext)
{
    auto* scale = AcDbAnnotationScale::cast(pContext);
    AcString name;
    if (!scale || scale->getName(name) != Acad::eOk || name.isEmpty())
        return Acad::eInvalidInput;
    if (!findScale(m_db, name.constPtr()).isNull())
        return Acad::eDuplicateKey;
    AcDbDictionary* list = nullptr;
    AcDbObject* obj = nullptr;
    if (scaleListId(m_db).isNull()) {
        // A drawing without a scale list gets one.
        AcDbDictionary* nod = nullptr;
        if (Acad::ErrorStatus es = m_db->getNamedObjectsDictionary(nod, AcDb::kForWrite); es != Acad::eOk)
            return es;
        auto* made = new AcDbDictionary;
        AcDbObjectId madeId;
        Acad::ErrorStatus es = nod->setAt(L"ACAD_SCALELIST", made, madeId);
        if (es == Acad::eOk)
            made->close();
        else
            delete made;
        nod->close();
        if (es != Acad::eOk)
            return es;
    }
    if (Acad::ErrorStatus es = acdbOpenObject(obj, scaleListId(m_db), AcDb::kForWrite); es != Acad::eOk)
        return es;
    list = AcDbDictionary::cast(obj);
    if (!list) {
        obj->close();
        return Acad::eWrongObjectType;
    }
    // Keys as the host gives them: A0, A1, ... the first free one.
    std::wstring key;
    for (int n = 0;; ++n) {
        key = L"A" + std::to_wstring(n);
        if (!list->has(key.c_str()))
            break;
    }
    auto* stored = new Scale;
    stored->name = name.constPtr();
    scale->getPaperUnits(stored->paperUnits);
    scale->getDrawingUnits(stored->drawingUnits);
    AcDbObjectId id;
    Acad::ErrorStatus es = list->setAt(key.c_str(), stored, id);
    if (es == Acad::eOk)
        stored->close();
    else
        delete stored;
    list->close();
    return es;
}

Acad::ErrorStatus AcDbObjectContextCollection::removeContext(const AcString& contextName)
{
    AcDbObjectId id = findScale(m_db, contextName.constPtr());
    if (id.isNull())
        return Acad::eKeyNotFound;
    auto* stored = static_cast<Scale*>(objectOf(id));
    if (sameName(stored->name, AcDbImpDatabase::of(m_db)->header.cannoscale))
        return Acad::eInvalidContext;
    if (scaleInUse(m_db, id))
        return Acad::eNotApplicable;
    AcDbObject* obj = nullptr;
    if (Acad::ErrorStatus es = acdbOpenObject(obj, id, AcDb::kForWrite); es != Acad::eOk)
        return es;
    Acad::ErrorStatus es = obj->erase();
    obj->close();
    return es;
}

Acad::ErrorStatus AcDbObjectContextCollection::lockContext(const AcDbObjectContext*) { return Acad::eOk; }
Acad::ErrorStatus AcDbObjectContextCollection::unlockContext() { return Acad::eOk; }

AcDbObjectContext* AcDbObjectContextCollection::getContext(const AcString& contextName) const
{
    return copyOfScale(findScale(m_db, contextName.constPtr()));
}

bool AcDbObjectContextCollection::hasContext(const AcString& contextName) const
{
    return !findScale(m_db, contextName.constPtr()).isNull();
}

AcDbObjectContextCollectionIterator* AcDbObjectContextCollection::newIterator() const
{
    return new AcDbObjectContextCollectionIterator(this);
}

AcDbObjectContextCollectionIterator::AcDbObjectContextCollectionIterator(const AcDbObjectContextCollection* pCollection)
    : m_collection(pCollection)
{
    start();
}

Acad::ErrorStatus AcDbObjectContextCollectionIterator::start()
{
    m_names.clear();
    m_pos = 0;
    if (!m_collection)
        return Acad::eNullObjectPointer;
    AcDbDatabase* db = m_collection->database();
    for (AcDbObjectId id : scaleIds(db))
        m_names.push_back(AcString(static_cast<Scale*>(objectOf(id))->name.c_str()));
    return Acad::eOk;
}

bool AcDbObjectContextCollectionIterator::next()
{
    if (m_pos < m_names.size())
        ++m_pos;
    return !done();
}

bool AcDbObjectContextCollectionIterator::done() const { return m_pos >= m_names.size(); }

Acad::ErrorStatus AcDbObjectContextCollectionIterator::getContext(AcDbObjectContext*& pObjectContext) const
{
    pObjectContext = nullptr;
    if (done())
        return Acad::eInvalidIndex;
    pObjectContext = m_collection->getContext(m_names[m_pos]);
    return pObjectContext ? Acad::eOk : Acad::eKeyNotFound;
}

AcDbObjectContextManager::AcDbObjectContextManager(AcDbDatabase* pDb)
    : m_scales(std::make_unique<AcDbObjectContextCollection>(pDb, AcString(acdbAnnotationScaleCollectionName)))
{
}

AcDbObjectContextManager::~AcDbObjectContextManager() = default;

AcDbObjectContextCollection* AcDbObjectContextManager::contextCollection(const AcString& collectionName) const
{
    return collectionName.compareNoCase(acdbAnnotationScaleCollectionName) == 0 ? m_scales.get() : nullptr;
}
