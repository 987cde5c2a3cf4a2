// AcDbDictionary: objects of a drawing by name (the named objects dictionary, extension
// dictionaries and the dictionaries they hold), and its iterator. Keys compare without regard to case.
#pragma once
#include <string>
#include <utility>
#include <vector>
#include "dbmain.h"

namespace AcRx {
/// The order of a dictionary iterator: as added, or by key.
enum DictIterType { kDictCollated = 0, kDictSorted = 1 };
} // namespace AcRx

class AcDbDictionaryIterator;

class AcDbDictionary : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbDictionary);
    AcDbDictionary() = default;

    /// Opens the entry; eKeyNotFound when there is none.
    Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbObject*& entryObj, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbObjectId& entryId) const;
    /// The key of an entry; the caller frees it with acutDelString (delete[]). eKeyNotFound.
    Acad::ErrorStatus nameAt(AcDbObjectId objId, ACHAR*& entryName) const;
    Acad::ErrorStatus nameAt(AcDbObjectId objId, AcString& entryName) const;
    bool has(const ACHAR* entryName) const;
    bool has(AcDbObjectId objId) const;
    Adesk::UInt32 numEntries() const;

    /// Takes the entry out of the dictionary; the object stays in the database without an owner.
    Acad::ErrorStatus remove(const ACHAR* key);
    Acad::ErrorStatus remove(const ACHAR* key, AcDbObjectId& returnId);
    Acad::ErrorStatus remove(AcDbObjectId objId);
    /// eDuplicateKey when the new name is taken by another entry.
    Acad::ErrorStatus setName(const ACHAR* oldName, const ACHAR* newName);
    /// Stores an object under a key. A new object is added to the database (and left open for write);
    /// an entry of the same key is erased and replaced. The dictionary must be open for write and in
    /// a database.
    Acad::ErrorStatus setAt(const ACHAR* srchKey, AcDbObject* newValue, AcDbObjectId& retObjId);

    bool isTreatElementsAsHard() const { return m_hard; }
    void setTreatElementsAsHard(bool doIt);
    AcDb::DuplicateRecordCloning mergeStyle() const { return m_mergeStyle; }
    void setMergeStyle(AcDb::DuplicateRecordCloning style);

    /// The caller deletes the iterator.
    AcDbDictionaryIterator* newIterator(AcRx::DictIterType type = AcRx::kDictCollated) const;

private:
    friend class AcDbImpDatabase;
    int find(const ACHAR* key) const;
    std::vector<std::pair<std::wstring, AcDbObjectId>> m_entries;
    bool m_hard = false;
    AcDb::DuplicateRecordCloning m_mergeStyle = AcDb::kDrcIgnore;
};

/// Walks a dictionary's entries as they stood when it was made. The caller deletes it.
class AcDbDictionaryIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionaryIterator);
    const ACHAR* name() const;
    AcDbObjectId objectId() const;
    Acad::ErrorStatus getObject(AcDbObject*& pObject, AcDb::OpenMode openMode = AcDb::kForRead);
    bool next();
    bool done() const;
    bool setPosition(AcDbObjectId objId);

private:
    friend class AcDbDictionary;
    explicit AcDbDictionaryIterator(std::vector<std::pair<std::wstring, AcDbObjectId>> entries) : m_entries(std::move(entries)) {}
    std::vector<std::pair<std::wstring, AcDbObjectId>> m_entries;
    size_t m_pos = 0;
};
