// AcDbBlockTableRecord: the entity list of model space, layouts and block definitions, and its
// iterator; the block begin and end markers.
#include <algorithm>
#include <cwchar>

#include "dbents.h"
#include "dbsymtb.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/ImpDatabase.h"
#include "sim/db/Names.h"

SIM_DB_DEFINE_MEMBERS(AcDbBlockBegin, AcDbEntity, L"BLOCK")
SIM_DB_DEFINE_MEMBERS(AcDbBlockEnd, AcDbEntity, L"ENDBLK")
ACRX_DEFINE_MEMBERS(AcDbBlockTableRecordIterator, AcRxObject, nullptr)

namespace {

bool startsWithNoCase(const std::wstring& s, const wchar_t* prefix)
{
    size_t n = std::wcslen(prefix);
    return s.size() >= n && sim::db::sameName(s.substr(0, n), prefix);
}

Acad::ErrorStatus copyOut(const std::wstring& s, ACHAR*& out)
{
    out = new ACHAR[s.size() + 1];
    std::wmemcpy(out, s.c_str(), s.size() + 1);
    return Acad::eOk;
}

} // namespace

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* pEntity)
{
    AcDbObjectId id;
    return appendAcDbEntity(id, pEntity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& pOutputId, AcDbEntity* pEntity)
{
    pOutputId = AcDbObjectId::kNull;
    if (!pEntity)
        return Acad::eNullEntityPointer;
    AcDbImpDatabase* db = AcDbImpDatabase::of(database());
    if (!db)
        return Acad::eNoDatabase;
    // No undo copy of the record for an append: an abort takes the transaction's new entities out
    // of their records' lists itself.
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (pEntity->database())
        return Acad::eAlreadyInDb;
    for (AcDbObjectId ref : {pEntity->layerId(), pEntity->linetypeId()})
        if (!ref.isNull() && ref.database() != database())
            return Acad::eWrongDatabase;
    if (pEntity->layerId().isNull())
        AcDbImpDatabase::layerId(pEntity) = database()->clayer();
    if (pEntity->linetypeId().isNull())
        AcDbImpDatabase::linetypeId(pEntity) = database()->celtype();
    Acad::ErrorStatus es = db->addObject(pEntity, objectId(), pOutputId);
    if (es != Acad::eOk)
        return es;
    m_entities.push_back(pOutputId);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& pIterator, bool atBeginning,
                                                    bool skipDeleted) const
{
    pIterator = nullptr;
    if (!database())
        return Acad::eNoDatabase;
    pIterator = new AcDbBlockTableRecordIterator(objectId(), atBeginning, skipDeleted);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::comments(ACHAR*& pString) const { return copyOut(m_comments, pString); }
Acad::ErrorStatus AcDbBlockTableRecord::comments(const ACHAR*& pString) const
{
    pString = m_comments.c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::setComments(const ACHAR* pString)
{
    SIM_DB_ASSERT_WRITE();
    m_comments = pString ? pString : L"";
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::pathName(ACHAR*& pPath) const { return copyOut(m_path, pPath); }
Acad::ErrorStatus AcDbBlockTableRecord::pathName(const ACHAR*& pPath) const
{
    pPath = m_path.c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::setPathName(const ACHAR* pathStr)
{
    SIM_DB_ASSERT_WRITE();
    m_path = pathStr ? pathStr : L"";
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& pt)
{
    SIM_DB_ASSERT_WRITE();
    m_origin = pt;
    return Acad::eOk;
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const
{
    for (AcDbObjectId id : m_entities) {
        AcDbObject* obj = AcDbImpDatabase::lookup(id);
        if (obj && !obj->isErased() && AcDbAttributeDefinition::cast(obj))
            return true;
    }
    return false;
}

bool AcDbBlockTableRecord::isLayout() const
{
    std::wstring name;
    {
        const ACHAR* n = nullptr;
        getName(n);
        name = n;
    }
    return !m_layoutId.isNull() || startsWithNoCase(name, ACDB_MODEL_SPACE) || startsWithNoCase(name, ACDB_PAPER_SPACE);
}

bool AcDbBlockTableRecord::isAnonymous() const
{
    const ACHAR* n = nullptr;
    getName(n);
    return n && n[0] == L'*' && !isLayout();
}

Acad::ErrorStatus AcDbBlockTableRecord::setLayoutId(AcDbObjectId id)
{
    SIM_DB_ASSERT_WRITE();
    m_layoutId = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::setIsFromOverlayReference(bool bIsOverlay)
{
    SIM_DB_ASSERT_WRITE();
    m_overlay = bIsOverlay;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::getBlockReferenceIds(AcDbObjectIdArray& ids, bool, bool) const
{
    AcDbImpDatabase* db = AcDbImpDatabase::of(database());
    if (!db)
        return Acad::eNoDatabase;
    AcDbObjectId self = objectId();
    db->objects.forEach([&](Adesk::UInt64, AcDbObject* obj) {
        auto* ref = AcDbBlockReference::cast(obj);
        if (ref && !ref->isErased() && ref->blockTableRecord() == self)
            ids.append(ref->objectId());
    });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::openBlockBegin(AcDbBlockBegin*& pBlockBegin, AcDb::OpenMode openMode)
{
    return acdbOpenObject(pBlockBegin, m_blockBegin, openMode);
}

Acad::ErrorStatus AcDbBlockTableRecord::openBlockEnd(AcDbBlockEnd*& pBlockEnd, AcDb::OpenMode openMode)
{
    return acdbOpenObject(pBlockEnd, m_blockEnd, openMode);
}

// --- iterator ---------------------------------------------------------------------------------

namespace {
const std::vector<AcDbObjectId>* entitiesOf(AcDbObjectId recordId)
{
    auto* btr = AcDbBlockTableRecord::cast(AcDbImpDatabase::lookup(recordId));
    return btr ? &AcDbImpDatabase::entities(btr) : nullptr;
}
} // namespace

AcDbBlockTableRecordIterator::AcDbBlockTableRecordIterator(AcDbObjectId recordId, bool atBeginning, bool skipDeleted)
    : m_record(recordId)
{
    start(atBeginning, skipDeleted);
}

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted)
{
    const auto* ents = entitiesOf(m_record);
    m_pos = atBeginning || !ents ? 0 : static_cast<int>(ents->size()) - 1;
    if (skipDeleted)
        skipErased(atBeginning);
}

bool AcDbBlockTableRecordIterator::done() const
{
    const auto* ents = entitiesOf(m_record);
    return !ents || m_pos < 0 || m_pos >= static_cast<int>(ents->size());
}

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted)
{
    m_pos += forward ? 1 : -1;
    if (skipDeleted)
        skipErased(forward);
}

void AcDbBlockTableRecordIterator::skipErased(bool forward)
{
    const auto* ents = entitiesOf(m_record);
    while (!done() && (*ents)[static_cast<size_t>(m_pos)].isErased())
        m_pos += forward ? 1 : -1;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& entityId) const
{
    if (done()) {
        entityId = AcDbObjectId::kNull;
        return Acad::eInvalidIndex;
    }
    entityId = (*entitiesOf(m_record))[static_cast<size_t>(m_pos)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& pEntity, AcDb::OpenMode openMode, bool openErasedEntity) const
{
    pEntity = nullptr;
    AcDbObjectId id;
    Acad::ErrorStatus es = getEntityId(id);
    if (es != Acad::eOk)
        return es;
    return acdbOpenAcDbEntity(pEntity, id, openMode, openErasedEntity);
}

AcDbBlockTableRecord* AcDbBlockTableRecordIterator::blockTableRecord() const
{
    return AcDbBlockTableRecord::cast(AcDbImpDatabase::lookup(m_record));
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::seek(AcDbObjectId id)
{
    const auto* ents = entitiesOf(m_record);
    if (!ents)
        return Acad::eNoDatabase;
    auto it = std::find(ents->begin(), ents->end(), id);
    if (it == ents->end())
        return Acad::eKeyNotFound;
    m_pos = static_cast<int>(it - ents->begin());
    return Acad::eOk;
}
