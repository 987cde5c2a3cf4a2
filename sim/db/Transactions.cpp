// Transactions: snapshots before the first change, hand-over of an inner transaction's record to the
// outer one, and the abort that puts every changed, added or erased object back.
#include "sim/db/Transactions.h"

#include <algorithm>

namespace sim::db {

namespace {

Snapshot takeSnapshot(AcDbObject* obj)
{
    AcDbImpObject* oi = AcDbImpDatabase::imp(obj);
    Snapshot s;
    s.copy.reset(static_cast<AcDbObject*>(obj->clone()));
    s.owner = oi->owner;
    s.erased = oi->erased;
    s.extDict = oi->extDict;
    s.reactors = oi->reactors;
    return s;
}

void restore(AcDbObject* obj, const Snapshot& s)
{
    obj->copyFrom(s.copy.get());
    AcDbImpObject* oi = AcDbImpDatabase::imp(obj);
    oi->owner = s.owner;
    oi->erased = s.erased;
    oi->extDict = s.extDict;
    oi->reactors = s.reactors;
}

} // namespace

Acad::ErrorStatus Transaction::getObject(AcDbObject*& obj, AcDbObjectId objectId, AcDb::OpenMode mode, bool openErasedObject)
{
    return m_manager.getObjectFor(*this, obj, objectId, mode, openErasedObject);
}

TransactionManager::~TransactionManager() = default;

AcTransaction* TransactionManager::startTransaction()
{
    auto t = std::make_unique<Transaction>(*this);
    t->header = m_db.header;
    Transaction* raw = t.get();
    m_stack.push_back(std::move(t));
    return raw;
}

Acad::ErrorStatus TransactionManager::endTransaction()
{
    if (m_stack.empty())
        return Acad::eNoActiveTransactions;
    std::unique_ptr<Transaction> t = std::move(m_stack.back());
    m_stack.pop_back();
    if (!m_stack.empty()) {
        Transaction& outer = *m_stack.back();
        for (auto& [obj, snap] : t->snapshots)
            if (!outer.added.count(obj) && !outer.snapshots.count(obj))
                outer.snapshots.emplace(obj, std::move(snap));
        outer.added.insert(t->added.begin(), t->added.end());
        for (auto [obj, mode] : t->held)
            outer.held[obj] = std::max(outer.held[obj], mode);
        return Acad::eOk;
    }
    for (auto [obj, mode] : t->held) {
        AcDbImpObject* oi = AcDbImpDatabase::imp(obj);
        oi->txnMode = 0;
        if (!oi->writer)
            oi->isNew = false;
        m_db.noteOpenState(obj);
    }
    return Acad::eOk;
}

Acad::ErrorStatus TransactionManager::abortTransaction()
{
    if (m_stack.empty())
        return Acad::eNoActiveTransactions;
    std::unique_ptr<Transaction> t = std::move(m_stack.back());
    m_stack.pop_back();

    // Objects added since the start leave the database; pointers to them stay harmless.
    for (AcDbObject* obj : t->added) {
        AcDbImpObject* oi = AcDbImpDatabase::imp(obj);
        if (m_db.objects.find(oi->handle.value()) != obj)
            continue;
        if (auto* record = AcDbBlockTableRecord::cast(m_db.find(oi->owner.handle()))) {
            std::vector<AcDbObjectId>& list = AcDbImpDatabase::entities(record);
            if (auto it = std::find(list.rbegin(), list.rend(), obj->objectId()); it != list.rend())
                list.erase(std::next(it).base());
        }
        m_db.graveyard.emplace_back(m_db.objects.release(oi->handle.value()));
        m_db.writeOpen.erase(obj);
        forget(obj);
        oi->intended = oi->db;
        oi->db = nullptr;
        oi->detached = true;
        oi->readers = 0;
        oi->writer = false;
        oi->txnMode = 0;
    }
    for (auto& [obj, snap] : t->snapshots)
        if (!t->added.count(obj))
            restore(obj, snap);
    for (auto [obj, mode] : t->held) {
        if (t->added.count(obj))
            continue;
        AcDbImpObject* oi = AcDbImpDatabase::imp(obj);
        oi->txnMode = strongestHold(obj);
        m_db.noteOpenState(obj);
    }
    m_db.header = t->header;
    return Acad::eOk;
}

int TransactionManager::strongestHold(AcDbObject* obj) const
{
    int mode = 0;
    for (const auto& t : m_stack)
        if (auto it = t->held.find(obj); it != t->held.end())
            mode = std::max(mode, it->second);
    return mode;
}

void TransactionManager::forget(AcDbObject* obj)
{
    for (auto& t : m_stack) {
        t->snapshots.erase(obj);
        t->added.erase(obj);
        t->held.erase(obj);
    }
}

Acad::ErrorStatus TransactionManager::addNewlyCreatedDBRObject(AcDbObject* obj, bool add)
{
    if (!obj)
        return Acad::eNullObjectPointer;
    if (m_stack.empty())
        return Acad::eNoActiveTransactions;
    AcDbImpObject* oi = AcDbImpDatabase::imp(obj);
    if (oi->db != m_db.self)
        return Acad::eNotInDatabase;
    Transaction& top = *m_stack.back();
    if (add) {
        if (!oi->isNew)
            return Acad::eNotNewlyCreated;
        oi->writer = false;
        top.held[obj] = 2;
        oi->txnMode = 2;
    } else {
        top.held.erase(obj);
        oi->txnMode = strongestHold(obj);
    }
    m_db.noteOpenState(obj);
    return Acad::eOk;
}

Acad::ErrorStatus TransactionManager::getObject(AcDbObject*& obj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased)
{
    obj = nullptr;
    if (m_stack.empty())
        return Acad::eNoActiveTransactions;
    return getObjectFor(*m_stack.back(), obj, id, mode, openErased);
}

Acad::ErrorStatus TransactionManager::getObjectFor(Transaction& t, AcDbObject*& obj, AcDbObjectId id, AcDb::OpenMode mode,
                                                   bool openErased)
{
    obj = nullptr;
    if (m_stack.empty() || &t != m_stack.back().get())
        return m_stack.empty() ? Acad::eNoActiveTransactions : Acad::eNotTopTransaction;
    if (id.isNull())
        return Acad::eNullObjectId;
    if (id.database() != m_db.self)
        return Acad::eWrongDatabase;
    AcDbObject* found = m_db.find(id.handle());
    if (!found)
        return Acad::eUnknownHandle;
    AcDbImpObject* oi = AcDbImpDatabase::imp(found);
    if (oi->erased && !openErased)
        return Acad::eWasErased;
    // A direct opener's hold is respected as acdbOpenObject respects it.
    if (oi->writer)
        return Acad::eWasOpenForWrite;
    if (mode == AcDb::kForWrite) {
        if (oi->readers > 0)
            return Acad::eWasOpenForRead;
        if (oi->txnMode < 2)
            if (Acad::ErrorStatus es = m_db.checkLockedLayer(found); es != Acad::eOk)
                return es;
        t.held[found] = 2;
        oi->txnMode = 2;
        m_db.noteOpenState(found);
    } else {
        int& h = t.held[found];
        h = std::max(h, 1);
        oi->txnMode = std::max<std::uint8_t>(oi->txnMode, 1);
    }
    obj = found;
    return Acad::eOk;
}

void TransactionManager::touch(AcDbObject* obj)
{
    if (m_stack.empty())
        return;
    Transaction& top = *m_stack.back();
    if (top.added.count(obj) || top.snapshots.count(obj))
        return;
    top.snapshots.emplace(obj, takeSnapshot(obj));
}

void TransactionManager::noteAdded(AcDbObject* obj)
{
    if (!m_stack.empty())
        m_stack.back()->added.insert(obj);
}

void TransactionManager::upgradeHold(AcDbObject* obj)
{
    if (!m_stack.empty())
        m_stack.back()->held[obj] = 2;
    AcDbImpDatabase::imp(obj)->txnMode = 2;
    m_db.noteOpenState(obj);
}

void TransactionManager::downgradeHold(AcDbObject* obj)
{
    for (auto& t : m_stack)
        if (auto it = t->held.find(obj); it != t->held.end() && it->second == 2)
            it->second = 1;
    AcDbImpDatabase::imp(obj)->txnMode = 1;
    m_db.noteOpenState(obj);
}

} // namespace sim::db

ACRX_DEFINE_MEMBERS(AcTransaction, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcTransactionManager, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcDbTransactionManager, AcTransactionManager, nullptr)
