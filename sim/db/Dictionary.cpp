// AcDbDictionary and its iterator: entries by key, compared without regard to case; setAt replaces
// (and erases) an entry of the same key.
#include <algorithm>
#include <cwchar>

#include "dbdict.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/ImpDatabase.h"
#include "sim/db/Names.h"

SIM_DB_DEFINE_MEMBERS(AcDbDictionary, AcDbObject, L"DICTIONARY")
ACRX_DEFINE_MEMBERS(AcDbDictionaryIterator, AcRxObject, nullptr)

int AcDbDictionary::find(const ACHAR* key) const
{
    if (!key)
        return -1;
    for (size_t i = 0; i < m_entries.size(); ++i)
        if (sim::db::sameName(m_entries[i].first, key))
            return static_cast<int>(i);
    return -1;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* entryName, AcDbObject*& entryObj, AcDb::OpenMode mode) const
{
    entryObj = nullptr;
    AcDbObjectId id;
    Acad::ErrorStatus es = getAt(entryName, id);
    if (es != Acad::eOk)
        return es;
    return acdbOpenObject(entryObj, id, mode);
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* entryName, AcDbObjectId& entryId) const
{
    int i = find(entryName);
    if (i < 0 || m_entries[static_cast<size_t>(i)].second.isErased()) {
        entryId = AcDbObjectId::kNull;
        return entryName ? Acad::eKeyNotFound : Acad::eInvalidKey;
    }
    entryId = m_entries[static_cast<size_t>(i)].second;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId objId, ACHAR*& entryName) const
{
    entryName = nullptr;
    for (const auto& [key, id] : m_entries)
        if (id == objId) {
            entryName = new ACHAR[key.size() + 1];
            std::wmemcpy(entryName, key.c_str(), key.size() + 1);
            return Acad::eOk;
        }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId objId, AcString& entryName) const
{
    for (const auto& [key, id] : m_entries)
        if (id == objId) {
            entryName = key.c_str();
            return Acad::eOk;
        }
    return Acad::eKeyNotFound;
}

bool AcDbDictionary::has(const ACHAR* entryName) const
{
    AcDbObjectId id;
    return getAt(entryName, id) == Acad::eOk;
}

bool AcDbDictionary::has(AcDbObjectId objId) const
{
    return std::any_of(m_entries.begin(), m_entries.end(), [&](const auto& e) { return e.second == objId && !objId.isErased(); });
}

Adesk::UInt32 AcDbDictionary::numEntries() const
{
    return static_cast<Adesk::UInt32>(
        std::count_if(m_entries.begin(), m_entries.end(), [](const auto& e) { return !e.second.isErased(); }));
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* key)
{
    AcDbObjectId id;
    return remove(key, id);
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* key, AcDbObjectId& returnId)
{
    returnId = AcDbObjectId::kNull;
    SIM_DB_ASSERT_WRITE();
    int i = find(key);
    if (i < 0)
        return Acad::eKeyNotFound;
    returnId = m_entries[static_cast<size_t>(i)].second;
    m_entries.erase(m_entries.begin() + i);
    if (AcDbObject* obj = AcDbImpDatabase::lookup(returnId)) {
        if (AcDbImpDatabase* db = AcDbImpDatabase::of(database()))
            db->touch(obj);
        AcDbImpDatabase::imp(obj)->owner = AcDbObjectId::kNull;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId objId)
{
    SIM_DB_ASSERT_WRITE();
    for (const auto& e : m_entries)
        if (e.second == objId) {
            std::wstring key = e.first;
            return remove(key.c_str());
        }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbDictionary::setName(const ACHAR* oldName, const ACHAR* newName)
{
    SIM_DB_ASSERT_WRITE();
    if (!newName || !*newName)
        return Acad::eInvalidKey;
    int i = find(oldName);
    if (i < 0)
        return Acad::eKeyNotFound;
    int j = find(newName);
    if (j >= 0 && j != i)
        return Acad::eDuplicateKey;
    m_entries[static_cast<size_t>(i)].first = newName;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* srchKey, AcDbObject* newValue, AcDbObjectId& retObjId)
{
    retObjId = AcDbObjectId::kNull;
    if (!srchKey || !*srchKey)
        return Acad::eInvalidKey;
    if (!newValue)
        return Acad::eNullObjectPointer;
    AcDbImpDatabase* db = AcDbImpDatabase::of(database());
    if (!db)
        return Acad::eNoDatabase;
    SIM_DB_ASSERT_WRITE();
    if (newValue->database() && newValue->database() != database())
        return Acad::eWrongDatabase;
    if (newValue->database()) {
        // An object of the database changes its owner.
        db->touch(newValue);
        AcDbImpDatabase::imp(newValue)->owner = objectId();
        retObjId = newValue->objectId();
    } else {
        Acad::ErrorStatus es = db->addObject(newValue, objectId(), retObjId);
        if (es != Acad::eOk)
            return es;
    }
    int i = find(srchKey);
    if (i < 0) {
        m_entries.emplace_back(srchKey, retObjId);
        return Acad::eOk;
    }
    AcDbObjectId old = m_entries[static_cast<size_t>(i)].second;
    m_entries[static_cast<size_t>(i)].second = retObjId;
    if (old != retObjId)
        if (AcDbObject* oldObj = AcDbImpDatabase::lookup(old); oldObj && !oldObj->isErased())
            db->setErased(oldObj, true);
    return Acad::eOk;
}

void AcDbDictionary::setTreatElementsAsHard(bool doIt)
{
    if (sim::db::beginChange(this))
        m_hard = doIt;
}

void AcDbDictionary::setMergeStyle(AcDb::DuplicateRecordCloning style)
{
    if (sim::db::beginChange(this))
        m_mergeStyle = style;
}

AcDbDictionaryIterator* AcDbDictionary::newIterator(AcRx::DictIterType type) const
{
    std::vector<std::pair<std::wstring, AcDbObjectId>> live;
    for (const auto& e : m_entries)
        if (!e.second.isErased())
            live.push_back(e);
    if (type == AcRx::kDictSorted)
        std::stable_sort(live.begin(), live.end(), [](const auto& a, const auto& b) {
            return sim::db::compareNoCase(a.first, b.first) < 0;
        });
    return new AcDbDictionaryIterator(std::move(live));
}

// --- iterator ---------------------------------------------------------------------------------

const ACHAR* AcDbDictionaryIterator::name() const { return done() ? nullptr : m_entries[m_pos].first.c_str(); }
AcDbObjectId AcDbDictionaryIterator::objectId() const { return done() ? AcDbObjectId::kNull : m_entries[m_pos].second; }
Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject*& pObject, AcDb::OpenMode openMode)
{
    pObject = nullptr;
    if (done())
        return Acad::eInvalidIndex;
    return acdbOpenObject(pObject, m_entries[m_pos].second, openMode);
}
bool AcDbDictionaryIterator::next()
{
    if (!done())
        ++m_pos;
    return !done();
}
bool AcDbDictionaryIterator::done() const { return m_pos >= m_entries.size(); }
bool AcDbDictionaryIterator::setPosition(AcDbObjectId objId)
{
    for (size_t i = 0; i < m_entries.size(); ++i)
        if (m_entries[i].second == objId) {
            m_pos = i;
            return true;
        }
    return false;
}
