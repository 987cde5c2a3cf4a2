// The transactions of one database: a stack of units of work, each with the state of every object it
// changed as it was before, the objects it added, and the objects it holds open.
#pragma once
#include <map>
#include <memory>
#include <set>
#include <vector>
#include "dbtrans.h"
#include "sim/db/ImpDatabase.h"

namespace sim::db {

/// An object as it was before a transaction's first change to it.
struct Snapshot {
    std::unique_ptr<AcDbObject> copy;
    AcDbObjectId owner;
    bool erased = false;
    AcDbObjectId extDict;
    std::vector<AcDbObjectId> reactors;
};

class Transaction : public AcTransaction {
public:
    explicit Transaction(TransactionManager& manager) : m_manager(manager) {}
    Acad::ErrorStatus getObject(AcDbObject*& obj, AcDbObjectId objectId, AcDb::OpenMode mode, bool openErasedObject = false) override;

    std::map<AcDbObject*, Snapshot> snapshots;
    std::set<AcDbObject*> added;
    /// Objects got through this transaction: 1 for read, 2 for write.
    std::map<AcDbObject*, int> held;
    /// The header values at the start.
    Header header;

private:
    TransactionManager& m_manager;
};

class TransactionManager : public AcDbTransactionManager {
public:
    explicit TransactionManager(AcDbImpDatabase& db) : m_db(db) {}
    ~TransactionManager() override;

    AcTransaction* startTransaction() override;
    Acad::ErrorStatus endTransaction() override;
    Acad::ErrorStatus abortTransaction() override;
    int numActiveTransactions() override { return static_cast<int>(m_stack.size()); }
    AcTransaction* topTransaction() override { return m_stack.empty() ? nullptr : m_stack.back().get(); }
    Acad::ErrorStatus addNewlyCreatedDBRObject(AcDbObject* obj, bool add = true) override;
    Acad::ErrorStatus getObject(AcDbObject*& obj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false) override;

    /// Opens an object on behalf of one of the transactions.
    Acad::ErrorStatus getObjectFor(Transaction& t, AcDbObject*& obj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased);
    /// Keeps the object's state in the innermost transaction before its first change there.
    void touch(AcDbObject* obj);
    /// Records a new object in the innermost transaction, so that an abort takes it out.
    void noteAdded(AcDbObject* obj);
    /// Upgrades a transaction's read hold to write (upgradeOpen of an object got for read).
    void upgradeHold(AcDbObject* obj);
    void downgradeHold(AcDbObject* obj);
    bool active() const { return !m_stack.empty(); }
    /// Drops an object from every record (it is being taken out of the database).
    void forget(AcDbObject* obj);

private:
    int strongestHold(AcDbObject* obj) const;
    AcDbImpDatabase& m_db;
    std::vector<std::unique_ptr<Transaction>> m_stack;
};

} // namespace sim::db
