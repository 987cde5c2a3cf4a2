// Transactions: a nest of units of work on a database. Objects got through a transaction are closed
// by its end; an abort puts back every object changed, added or erased since it started.
#pragma once
#include "dbmain.h"

/// One transaction. The manager owns it.
class AcTransaction : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcTransaction);
    /// Opens an object for the life of the transaction; the caller does not close it. The same
    /// statuses as acdbOpenObject, but several opens of one object within transactions agree.
    virtual Acad::ErrorStatus getObject(AcDbObject*& obj, AcDbObjectId objectId, AcDb::OpenMode mode,
                                        bool openErasedObject = false) = 0;
    virtual Acad::ErrorStatus markObjectPageable(AcDbObject* /*pObject*/) { return Acad::eOk; }
};

class AcTransactionManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcTransactionManager);
    /// Starts a transaction inside the current one, if any.
    virtual AcTransaction* startTransaction() = 0;
    /// Ends the innermost transaction: its changes stand (inside the one around it, which takes them
    /// over). eNoActiveTransactions when there is none.
    virtual Acad::ErrorStatus endTransaction() = 0;
    /// Undoes the innermost transaction's changes and closes what it opened.
    virtual Acad::ErrorStatus abortTransaction() = 0;
    virtual int numActiveTransactions() = 0;
    virtual AcTransaction* topTransaction() = 0;
    /// Hands a newly added object (open for write) to the innermost transaction, which closes it.
    virtual Acad::ErrorStatus addNewlyCreatedDBRObject(AcDbObject* obj, bool add = true) = 0;
    /// getObject of the innermost transaction; eNoActiveTransactions when there is none.
    virtual Acad::ErrorStatus getObject(AcDbObject*& obj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false) = 0;
    virtual Acad::ErrorStatus queueForGraphicsFlush() { return Acad::eOk; }
    virtual Acad::ErrorStatus flushGraphics() { return Acad::eOk; }
    virtual bool enableGraphicsFlush(bool /*doEnable*/) { return true; }
};

/// The transaction manager of one database.
class AcDbTransactionManager : public AcTransactionManager {
public:
    ACRX_DECLARE_MEMBERS(AcDbTransactionManager);
};

/// The working database's transaction manager.
AcDbTransactionManager* acdbTransactionManagerPtr();
#define acdbTransactionManager acdbTransactionManagerPtr()
