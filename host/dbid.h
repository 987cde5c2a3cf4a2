// AcDbObjectId: the id of an object in an open database. Ids are stable for the life of the database:
// an id is the object's database together with its handle.
#pragma once
#include <functional>
#include "acadstrc.h"
#include "dbhandle.h"

class AcDbDatabase;
class AcDbObject;
class AcRxClass;

class AcDbObjectId {
public:
    AcDbObjectId() = default;
    AcDbObjectId(AcDbDatabase* db, AcDbHandle handle) : m_db(db), m_handle(handle) {}
    static const AcDbObjectId kNull;

    bool isNull() const { return m_handle.isNull() || m_db == nullptr; }
    void setNull()
    {
        m_db = nullptr;
        m_handle.setNull();
    }
    /// True when the id names an object of its database (erased or not).
    bool isValid() const;
    bool isErased() const;
    bool isResident() const { return isValid(); }
    AcDbHandle handle() const { return m_handle; }
    AcDbDatabase* database() const { return m_db; }
    AcDbDatabase* originalDatabase() const { return m_db; }
    /// The class of the object, or null for an id that names nothing.
    AcRxClass* objectClass() const;
    Adesk::IntDbId asOldId() const { return static_cast<Adesk::IntDbId>(m_handle.value()); }

    bool operator==(const AcDbObjectId& o) const { return m_db == o.m_db && m_handle == o.m_handle; }
    bool operator!=(const AcDbObjectId& o) const { return !(*this == o); }
    bool operator<(const AcDbObjectId& o) const
    {
        return m_db != o.m_db ? std::less<const AcDbDatabase*>()(m_db, o.m_db) : m_handle < o.m_handle;
    }

private:
    AcDbDatabase* m_db = nullptr;
    AcDbHandle m_handle;
};
inline const AcDbObjectId AcDbObjectId::kNull{};

typedef AcDbObjectId AcDbHardOwnershipId;
typedef AcDbObjectId AcDbSoftOwnershipId;
typedef AcDbObjectId AcDbHardPointerId;
typedef AcDbObjectId AcDbSoftPointerId;
