// Smart pointers that open a database object by id and close it when they go: AcDbObjectPointer,
// AcDbSymbolTablePointer, AcDbSymbolTableRecordPointer and their usual typedefs.
#pragma once
#include "dbdict.h"
#include "dbmain.h"
#include "dbsymtb.h"

template <class T_OBJECT>
class AcDbObjectPointerBase {
public:
    AcDbObjectPointerBase() = default;
    virtual ~AcDbObjectPointerBase() { closeInternal(); }
    AcDbObjectPointerBase(const AcDbObjectPointerBase&) = delete;
    AcDbObjectPointerBase& operator=(const AcDbObjectPointerBase&) = delete;

    const T_OBJECT* object() const { return m_ptr; }
    T_OBJECT* object() { return m_ptr; }
    const T_OBJECT* operator->() const { return m_ptr; }
    T_OBJECT* operator->() { return m_ptr; }
    operator const T_OBJECT*() const { return m_ptr; }
    operator T_OBJECT*() { return m_ptr; }

    /// eOk while an object is held; the status of the failed open otherwise (eNullObjectPointer
    /// before any).
    Acad::ErrorStatus openStatus() const { return m_status; }
    Acad::ErrorStatus open(AcDbObjectId objId, AcDb::OpenMode openMode = AcDb::kForRead, bool openErased = false)
    {
        closeInternal();
        m_status = acdbOpenObject(m_ptr, objId, openMode, openErased);
        return m_status;
    }
    /// Takes over an object the caller opened or made; the pointer's object is closed first.
    Acad::ErrorStatus acquire(T_OBJECT*& pObjToAcquire)
    {
        if (!pObjToAcquire)
            return Acad::eNullObjectPointer;
        closeInternal();
        m_ptr = pObjToAcquire;
        m_status = Acad::eOk;
        pObjToAcquire = nullptr;
        return Acad::eOk;
    }
    /// Hands the object to the caller without closing it.
    Acad::ErrorStatus release(T_OBJECT*& pReleasedObj)
    {
        if (!m_ptr)
            return Acad::eNullObjectPointer;
        pReleasedObj = m_ptr;
        m_ptr = nullptr;
        m_status = Acad::eNullObjectPointer;
        return Acad::eOk;
    }
    /// Closes the object; one that is in no database is deleted.
    Acad::ErrorStatus close()
    {
        if (!m_ptr)
            return Acad::eNullObjectPointer;
        closeInternal();
        return Acad::eOk;
    }
    /// Holds a new object of the class, in no database.
    Acad::ErrorStatus create()
    {
        closeInternal();
        m_ptr = new T_OBJECT();
        m_status = Acad::eOk;
        return Acad::eOk;
    }

protected:
    AcDbObjectPointerBase(AcDbObjectId objId, AcDb::OpenMode mode, bool openErased)
    {
        m_status = acdbOpenObject(m_ptr, objId, mode, openErased);
    }
    void closeInternal()
    {
        if (m_ptr) {
            if (m_ptr->objectId().isNull())
                delete m_ptr;
            else
                m_ptr->close();
            m_ptr = nullptr;
        }
        m_status = Acad::eNullObjectPointer;
    }

    T_OBJECT* m_ptr = nullptr;
    Acad::ErrorStatus m_status = Acad::eNullObjectPointer;
};

template <class T_OBJECT>
class AcDbObjectPointer : public AcDbObjectPointerBase<T_OBJECT> {
public:
    AcDbObjectPointer() = default;
    AcDbObjectPointer(AcDbObjectId objId, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false)
        : AcDbObjectPointerBase<T_OBJECT>(objId, mode, openErased) {}
};

/// Opens the table of its class in a database, or a table by id.
template <class T_OBJECT>
class AcDbSymbolTablePointer : public AcDbObjectPointerBase<T_OBJECT> {
public:
    AcDbSymbolTablePointer() = default;
    AcDbSymbolTablePointer(AcDbDatabase* pDb, AcDb::OpenMode mode = AcDb::kForRead)
    {
        this->m_status = pDb ? pDb->getSymbolTable(this->m_ptr, mode) : Acad::eNullObjectPointer;
        if (this->m_status != Acad::eOk)
            this->m_ptr = nullptr;
    }
    AcDbSymbolTablePointer(AcDbObjectId objId, AcDb::OpenMode mode = AcDb::kForRead)
        : AcDbObjectPointerBase<T_OBJECT>(objId, mode, false) {}
    Acad::ErrorStatus open(AcDbDatabase* pDb, AcDb::OpenMode mode = AcDb::kForRead)
    {
        this->closeInternal();
        this->m_status = pDb ? pDb->getSymbolTable(this->m_ptr, mode) : Acad::eNullObjectPointer;
        if (this->m_status != Acad::eOk)
            this->m_ptr = nullptr;
        return this->m_status;
    }
};

/// Opens a record by id, or by name in its table of a database.
template <class T_OBJECT>
class AcDbSymbolTableRecordPointer : public AcDbObjectPointerBase<T_OBJECT> {
public:
    AcDbSymbolTableRecordPointer() = default;
    AcDbSymbolTableRecordPointer(AcDbObjectId objId, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false)
        : AcDbObjectPointerBase<T_OBJECT>(objId, mode, openErased) {}
    AcDbSymbolTableRecordPointer(const ACHAR* name, AcDbDatabase* pDb, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false)
    {
        open(name, pDb, mode, openErased);
    }
    Acad::ErrorStatus open(const ACHAR* name, AcDbDatabase* pDb, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false)
    {
        this->closeInternal();
        if (!name || !pDb)
            return this->m_status = Acad::eInvalidInput;
        typename T_OBJECT::TableType* pTable = nullptr;
        this->m_status = pDb->getSymbolTable(pTable, AcDb::kForRead);
        if (this->m_status != Acad::eOk)
            return this->m_status;
        this->m_status = pTable->getAt(name, this->m_ptr, mode, openErased);
        if (this->m_status != Acad::eOk)
            this->m_ptr = nullptr;
        pTable->close();
        return this->m_status;
    }
    using AcDbObjectPointerBase<T_OBJECT>::open;
};

typedef AcDbObjectPointer<AcDbDictionary> AcDbDictionaryPointer;
typedef AcDbObjectPointer<AcDbEntity> AcDbEntityPointer;

typedef AcDbSymbolTablePointer<AcDbBlockTable> AcDbBlockTablePointer;
typedef AcDbSymbolTablePointer<AcDbDimStyleTable> AcDbDimStyleTablePointer;
typedef AcDbSymbolTablePointer<AcDbLayerTable> AcDbLayerTablePointer;
typedef AcDbSymbolTablePointer<AcDbLinetypeTable> AcDbLinetypeTablePointer;
typedef AcDbSymbolTablePointer<AcDbRegAppTable> AcDbRegAppTablePointer;
typedef AcDbSymbolTablePointer<AcDbTextStyleTable> AcDbTextStyleTablePointer;
typedef AcDbSymbolTablePointer<AcDbUCSTable> AcDbUCSTablePointer;
typedef AcDbSymbolTablePointer<AcDbViewTable> AcDbViewTablePointer;
typedef AcDbSymbolTablePointer<AcDbViewportTable> AcDbViewportTablePointer;

typedef AcDbSymbolTableRecordPointer<AcDbBlockTableRecord> AcDbBlockTableRecordPointer;
typedef AcDbSymbolTableRecordPointer<AcDbDimStyleTableRecord> AcDbDimStyleTableRecordPointer;
typedef AcDbSymbolTableRecordPointer<AcDbLayerTableRecord> AcDbLayerTableRecordPointer;
typedef AcDbSymbolTableRecordPointer<AcDbLinetypeTableRecord> AcDbLinetypeTableRecordPointer;
typedef AcDbSymbolTableRecordPointer<AcDbRegAppTableRecord> AcDbRegAppTableRecordPointer;
typedef AcDbSymbolTableRecordPointer<AcDbTextStyleTableRecord> AcDbTextStyleTableRecordPointer;
typedef AcDbSymbolTableRecordPointer<AcDbUCSTableRecord> AcDbUCSTableRecordPointer;
typedef AcDbSymbolTableRecordPointer<AcDbViewTableRecord> AcDbViewTableRecordPointer;
typedef AcDbSymbolTableRecordPointer<AcDbViewportTableRecord> AcDbViewportTableRecordPointer;
