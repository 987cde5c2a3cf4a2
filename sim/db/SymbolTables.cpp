// Symbol tables and their records: lookup by name without regard to case, unique names, iterators,
// and the typed forms of each table.
#include <algorithm>
#include <cwchar>
#include <cwctype>

#include "dbents.h"
#include "dbsymtb.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/ImpDatabase.h"
#include "sim/db/Names.h"

namespace {

bool sameName(const std::wstring& a, const ACHAR* b) { return sim::db::sameName(a, b ? b : L""); }

/// Characters a symbol name cannot hold; "*" only as the first character (anonymous blocks, *Active).
bool validSymbolName(const ACHAR* name)
{
    if (!name || !*name)
        return false;
    for (const ACHAR* p = name; *p; ++p) {
        if (*p < 32 || std::wcschr(L"<>/\\\":;?,=`", *p))
            return false;
        if (*p == L'*' && p != name)
            return false;
    }
    return true;
}

/// The record class a table holds.
AcRxClass* recordClassOf(const AcDbSymbolTable* table)
{
    const std::pair<AcRxClass*, AcRxClass*> pairs[] = {
        {AcDbBlockTable::desc(), AcDbBlockTableRecord::desc()},
        {AcDbLayerTable::desc(), AcDbLayerTableRecord::desc()},
        {AcDbTextStyleTable::desc(), AcDbTextStyleTableRecord::desc()},
        {AcDbLinetypeTable::desc(), AcDbLinetypeTableRecord::desc()},
        {AcDbViewTable::desc(), AcDbViewTableRecord::desc()},
        {AcDbUCSTable::desc(), AcDbUCSTableRecord::desc()},
        {AcDbViewportTable::desc(), AcDbViewportTableRecord::desc()},
        {AcDbRegAppTable::desc(), AcDbRegAppTableRecord::desc()},
        {AcDbDimStyleTable::desc(), AcDbDimStyleTableRecord::desc()},
    };
    for (auto [t, r] : pairs)
        if (table->isA() == t)
            return r;
    return AcDbSymbolTableRecord::desc();
}

/// Another record of the table, not erased, that bears the name.
bool nameTaken(const std::vector<AcDbObjectId>& records, const ACHAR* name, AcDbObjectId except)
{
    for (AcDbObjectId id : records) {
        if (id == except)
            continue;
        auto* rec = AcDbSymbolTableRecord::cast(AcDbImpDatabase::lookup(id));
        if (rec && !rec->isErased() && sameName(AcDbImpDatabase::name(rec), name))
            return true;
    }
    return false;
}

ACHAR* copyString(const std::wstring& s)
{
    auto* out = new ACHAR[s.size() + 1];
    std::wmemcpy(out, s.c_str(), s.size() + 1);
    return out;
}

} // namespace

SIM_DB_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject, nullptr)
SIM_DB_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject, L"TABLE")
ACRX_DEFINE_MEMBERS(AcDbSymbolTableIterator, AcRxObject, nullptr)

// --- records ----------------------------------------------------------------------------------

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& pName) const
{
    pName = copyString(m_name);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(AcString& sName) const
{
    sName = m_name.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& pName) const
{
    pName = m_name.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* pName)
{
    SIM_DB_ASSERT_WRITE();
    if (!pName)
        return Acad::eNullObjectPointer;
    if (!validSymbolName(pName))
        return Acad::eInvalidSymbolTableName;
    if (database()) {
        if (!isRenamable() && !sameName(m_name, pName))
            return Acad::eIllegalReplacement;
        auto* table = AcDbSymbolTable::cast(AcDbImpDatabase::lookup(ownerId()));
        if (table && nameTaken(AcDbImpDatabase::records(table), pName, objectId()))
            return Acad::eDuplicateRecordName;
    }
    m_name = pName;
    return Acad::eOk;
}

bool AcDbSymbolTableRecord::isDependent() const { return m_name.find(L'|') != std::wstring::npos; }

bool AcDbSymbolTableRecord::isRenamable() const
{
    if (AcDbLayerTableRecord::cast(this))
        return !sameName(m_name, L"0");
    if (AcDbLinetypeTableRecord::cast(this))
        return !sameName(m_name, L"ByLayer") && !sameName(m_name, L"ByBlock") && !sameName(m_name, L"Continuous");
    if (AcDbBlockTableRecord::cast(this))
        return m_name.empty() || m_name[0] != L'*';
    if (AcDbRegAppTableRecord::cast(this))
        return !sameName(m_name, L"ACAD");
    return !isDependent();
}

// --- tables -----------------------------------------------------------------------------------

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* entryName, AcDbObjectId& recordId, bool getErasedRecord) const
{
    recordId = AcDbObjectId::kNull;
    if (!entryName)
        return Acad::eInvalidInput;
    AcDbObjectId erasedMatch;
    for (AcDbObjectId id : m_records) {
        auto* rec = AcDbSymbolTableRecord::cast(AcDbImpDatabase::lookup(id));
        if (!rec || !sameName(AcDbImpDatabase::name(rec), entryName))
            continue;
        if (!rec->isErased()) {
            recordId = id;
            return Acad::eOk;
        }
        if (erasedMatch.isNull())
            erasedMatch = id;
    }
    if (getErasedRecord && !erasedMatch.isNull()) {
        recordId = erasedMatch;
        return Acad::eOk;
    }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* entryName, AcDbSymbolTableRecord*& pRec, AcDb::OpenMode openMode,
                                         bool openErasedRec) const
{
    pRec = nullptr;
    AcDbObjectId id;
    Acad::ErrorStatus es = getAt(entryName, id, openErasedRec);
    if (es != Acad::eOk)
        return es;
    return acdbOpenObject(pRec, id, openMode, openErasedRec);
}

bool AcDbSymbolTable::has(const ACHAR* name) const
{
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const
{
    return !id.isNull() && std::find(m_records.begin(), m_records.end(), id) != m_records.end() && !id.isErased();
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& pIterator, bool atBeginning, bool skipDeleted) const
{
    pIterator = nullptr;
    if (!database())
        return Acad::eNoDatabase;
    pIterator = new AcDbSymbolTableIterator(objectId(), atBeginning, skipDeleted);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* pRecord)
{
    AcDbObjectId id;
    return add(id, pRecord);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& recordId, AcDbSymbolTableRecord* pRecord)
{
    recordId = AcDbObjectId::kNull;
    SIM_DB_ASSERT_WRITE();
    if (!pRecord)
        return Acad::eNullObjectPointer;
    AcDbImpDatabase* db = AcDbImpDatabase::of(database());
    if (!db)
        return Acad::eNoDatabase;
    if (pRecord->database())
        return Acad::eAlreadyInDb;
    if (!pRecord->isKindOf(recordClassOf(this)))
        return Acad::eWrongObjectType;
    std::wstring& name = AcDbImpDatabase::name(pRecord);
    auto* style = AcDbTextStyleTableRecord::cast(pRecord);
    if (name.empty()) {
        // Only a record that loads a shape file goes without a name.
        if (!style || !style->isShapeFile())
            return Acad::eInvalidSymbolTableName;
    } else if (AcDbBlockTableRecord::cast(pRecord) && name.size() == 2 && name[0] == L'*' && std::iswalpha(name[1])) {
        // "*U" and its sisters ask for the next free anonymous name.
        std::wstring base = name;
        base[1] = static_cast<wchar_t>(std::towupper(base[1]));
        for (int n = 1;; ++n) {
            std::wstring candidate = base + std::to_wstring(n);
            if (!nameTaken(m_records, candidate.c_str(), AcDbObjectId::kNull)) {
                name = candidate;
                break;
            }
        }
    } else if (nameTaken(m_records, name.c_str(), AcDbObjectId::kNull)) {
        return Acad::eDuplicateRecordName;
    }
    Acad::ErrorStatus es = db->addObject(pRecord, objectId(), recordId);
    if (es != Acad::eOk)
        return es;
    m_records.push_back(recordId);
    if (auto* btr = AcDbBlockTableRecord::cast(pRecord)) {
        AcDbObjectId begin, end;
        db->addObject(new AcDbBlockBegin, recordId, begin, AcDbHandle(), false);
        db->addObject(new AcDbBlockEnd, recordId, end, AcDbHandle(), false);
        AcDbImpDatabase::blockBegin(btr) = begin;
        AcDbImpDatabase::blockEnd(btr) = end;
    }
    return Acad::eOk;
}

// --- iterator ---------------------------------------------------------------------------------

AcDbSymbolTableIterator::AcDbSymbolTableIterator(AcDbObjectId tableId, bool atBeginning, bool skipDeleted) : m_table(tableId)
{
    start(atBeginning, skipDeleted);
}

namespace {
const std::vector<AcDbObjectId>* recordsOf(AcDbObjectId tableId)
{
    auto* table = AcDbSymbolTable::cast(AcDbImpDatabase::lookup(tableId));
    return table ? &AcDbImpDatabase::records(table) : nullptr;
}
} // namespace

void AcDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted)
{
    const auto* recs = recordsOf(m_table);
    m_pos = atBeginning || !recs ? 0 : static_cast<int>(recs->size()) - 1;
    if (skipDeleted)
        skipErased(atBeginning);
}

bool AcDbSymbolTableIterator::done() const
{
    const auto* recs = recordsOf(m_table);
    return !recs || m_pos < 0 || m_pos >= static_cast<int>(recs->size());
}

void AcDbSymbolTableIterator::step(bool forward, bool skipDeleted)
{
    m_pos += forward ? 1 : -1;
    if (skipDeleted)
        skipErased(forward);
}

void AcDbSymbolTableIterator::skipErased(bool forward)
{
    const auto* recs = recordsOf(m_table);
    while (!done() && (*recs)[static_cast<size_t>(m_pos)].isErased())
        m_pos += forward ? 1 : -1;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const
{
    if (done()) {
        id = AcDbObjectId::kNull;
        return Acad::eInvalidIndex;
    }
    id = (*recordsOf(m_table))[static_cast<size_t>(m_pos)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& pRecord, AcDb::OpenMode openMode,
                                                     bool openErasedRec) const
{
    pRecord = nullptr;
    AcDbObjectId id;
    Acad::ErrorStatus es = getRecordId(id);
    if (es != Acad::eOk)
        return es;
    return acdbOpenObject(pRecord, id, openMode, openErasedRec);
}

Acad::ErrorStatus AcDbSymbolTableIterator::seek(AcDbObjectId id)
{
    const auto* recs = recordsOf(m_table);
    if (!recs)
        return Acad::eNoDatabase;
    auto it = std::find(recs->begin(), recs->end(), id);
    if (it == recs->end())
        return Acad::eKeyNotFound;
    m_pos = static_cast<int>(it - recs->begin());
    return Acad::eOk;
}

// --- the typed tables -------------------------------------------------------------------------

#define SIM_DB_DEFINE_SYMBOL_TABLE(TABLE, RECORD, ITERATOR, RECORD_PARENT, RECORD_DXF)                         \
    SIM_DB_DEFINE_MEMBERS(TABLE, AcDbSymbolTable, L"TABLE")                                                    \
    SIM_DB_DEFINE_MEMBERS(RECORD, RECORD_PARENT, RECORD_DXF)                                                   \
    ACRX_DEFINE_MEMBERS(ITERATOR, AcDbSymbolTableIterator, nullptr)                                            \
    Acad::ErrorStatus ITERATOR::getRecord(RECORD*& pRecord, AcDb::OpenMode openMode, bool openErasedRec) const \
    {                                                                                                          \
        AcDbSymbolTableRecord* rec = nullptr;                                                                  \
        Acad::ErrorStatus es = AcDbSymbolTableIterator::getRecord(rec, openMode, openErasedRec);               \
        pRecord = RECORD::cast(rec);                                                                           \
        if (rec && !pRecord) {                                                                                 \
            rec->close();                                                                                      \
            return Acad::eWrongObjectType;                                                                     \
        }                                                                                                      \
        return es;                                                                                             \
    }                                                                                                          \
    Acad::ErrorStatus TABLE::getAt(const ACHAR* entryName, RECORD*& pRec, AcDb::OpenMode openMode,             \
                                   bool openErasedRec) const                                                   \
    {                                                                                                          \
        AcDbSymbolTableRecord* rec = nullptr;                                                                  \
        Acad::ErrorStatus es = AcDbSymbolTable::getAt(entryName, rec, openMode, openErasedRec);                \
        pRec = RECORD::cast(rec);                                                                              \
        if (rec && !pRec) {                                                                                    \
            rec->close();                                                                                      \
            return Acad::eWrongObjectType;                                                                     \
        }                                                                                                      \
        return es;                                                                                             \
    }                                                                                                          \
    Acad::ErrorStatus TABLE::newIterator(ITERATOR*& pIterator, bool atBeginning, bool skipDeleted) const       \
    {                                                                                                          \
        pIterator = nullptr;                                                                                   \
        if (!database())                                                                                       \
            return Acad::eNoDatabase;                                                                          \
        pIterator = new ITERATOR(objectId(), atBeginning, skipDeleted);                                        \
        return Acad::eOk;                                                                                      \
    }                                                                                                          \
    Acad::ErrorStatus TABLE::add(RECORD* pRecord) { return AcDbSymbolTable::add(pRecord); }                    \
    Acad::ErrorStatus TABLE::add(AcDbObjectId& recordId, RECORD* pRecord) { return AcDbSymbolTable::add(recordId, pRecord); }

SIM_DB_DEFINE_SYMBOL_TABLE(AcDbBlockTable, AcDbBlockTableRecord, AcDbBlockTableIterator, AcDbSymbolTableRecord, L"BLOCK_RECORD")
SIM_DB_DEFINE_SYMBOL_TABLE(AcDbLayerTable, AcDbLayerTableRecord, AcDbLayerTableIterator, AcDbSymbolTableRecord, L"LAYER")
SIM_DB_DEFINE_SYMBOL_TABLE(AcDbTextStyleTable, AcDbTextStyleTableRecord, AcDbTextStyleTableIterator, AcDbSymbolTableRecord, L"STYLE")
SIM_DB_DEFINE_SYMBOL_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord, AcDbLinetypeTableIterator, AcDbSymbolTableRecord, L"LTYPE")
SIM_DB_DEFINE_SYMBOL_TABLE(AcDbViewTable, AcDbViewTableRecord, AcDbViewTableIterator, AcDbAbstractViewTableRecord, L"VIEW")
SIM_DB_DEFINE_SYMBOL_TABLE(AcDbUCSTable, AcDbUCSTableRecord, AcDbUCSTableIterator, AcDbSymbolTableRecord, L"UCS")
SIM_DB_DEFINE_SYMBOL_TABLE(AcDbViewportTable, AcDbViewportTableRecord, AcDbViewportTableIterator, AcDbAbstractViewTableRecord, L"VPORT")
SIM_DB_DEFINE_SYMBOL_TABLE(AcDbRegAppTable, AcDbRegAppTableRecord, AcDbRegAppTableIterator, AcDbSymbolTableRecord, L"APPID")
SIM_DB_DEFINE_SYMBOL_TABLE(AcDbDimStyleTable, AcDbDimStyleTableRecord, AcDbDimStyleTableIterator, AcDbSymbolTableRecord, L"DIMSTYLE")

SIM_DB_DEFINE_MEMBERS(AcDbAbstractViewTableRecord, AcDbSymbolTableRecord, nullptr)
