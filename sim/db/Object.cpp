// AcDbObject: identity, open and close, erase, extended data, extension dictionary and reactors;
// acdbOpenObject and its sisters; the ids' questions and ADS entity names.
#include <algorithm>
#include <cstring>
#include <cwchar>
#include <cwctype>

#include "dbapserv.h"
#include "dbdict.h"
#include "dbdim.h"
#include "dbmain.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/ImpDatabase.h"
#include "sim/db/Names.h"
#include "sim/db/Transactions.h"

using sim::db::Chain;

// --- run-time classes -------------------------------------------------------------------------

AcRxClass* AcDbObject::desc()
{
    static AcRxClass c(L"AcDbObject", AcRxObject::desc());
    return &c;
}
AcRxClass* AcDbObject::isA() const { return AcDbObject::desc(); }
AcRxObject* AcDbObject::clone() const { return new AcDbObject(*this); }
Acad::ErrorStatus AcDbObject::copyFrom(const AcRxObject* pSrc)
{
    if (!pSrc || pSrc->isA() != AcDbObject::desc())
        return Acad::eWrongObjectType;
    if (pSrc != this)
        *this = *static_cast<const AcDbObject*>(pSrc);
    return Acad::eOk;
}

ACRX_DEFINE_MEMBERS(AcDbObjectIterator, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcDbDatabase, AcRxObject, nullptr)

namespace sim::db {
AcRxObject* protocolExtension(const AcRxObject* obj, const AcRxClass* protocol);
}
// The protocol extensions of annotative objects (Annotative.cpp).
AcRxObject* AcRxObject::queryX(const AcRxClass* protocolClass) const { return sim::db::protocolExtension(this, protocolClass); }

// --- construction -----------------------------------------------------------------------------

AcDbObject::AcDbObject() : mpImpObject(new AcDbImpObject) {}

AcDbObject::AcDbObject(const AcDbObject& other) : AcRxObject(other), mpImpObject(new AcDbImpObject)
{
    mpImpObject->copyDataFrom(*other.mpImpObject);
}

AcDbObject& AcDbObject::operator=(const AcDbObject& other)
{
    if (this != &other)
        mpImpObject->copyDataFrom(*other.mpImpObject);
    return *this;
}

AcDbObject::~AcDbObject() { delete mpImpObject; }

// --- identity ---------------------------------------------------------------------------------

AcDbObjectId AcDbObject::objectId() const
{
    if (mpImpObject->db)
        return AcDbObjectId(mpImpObject->db, mpImpObject->handle);
    // An object an abort took out keeps its id, so that smart pointers close it rather than delete it.
    return mpImpObject->detached ? AcDbObjectId(mpImpObject->intended, mpImpObject->handle) : AcDbObjectId::kNull;
}

AcDbObjectId AcDbObject::ownerId() const { return mpImpObject->owner; }

Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId objId)
{
    SIM_DB_ASSERT_WRITE();
    mpImpObject->owner = objId;
    return Acad::eOk;
}

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const { handle = mpImpObject->handle; }

AcDbDatabase* AcDbObject::database() const { return mpImpObject->db; }

AcDbDatabase* AcDbObject::databaseToUse() const
{
    if (mpImpObject->db)
        return mpImpObject->db;
    if (mpImpObject->intended && AcDbImpDatabase::of(mpImpObject->intended))
        return mpImpObject->intended;
    return acdbHostApplicationServices()->workingDatabase();
}

AcDbDatabase* AcDbObject::intendedDatabase() const
{
    return mpImpObject->db ? mpImpObject->db : mpImpObject->intended;
}

Acad::ErrorStatus AcDbObject::setIntendedDatabase(AcDbDatabase* pDb)
{
    if (mpImpObject->db || mpImpObject->detached)
        return Acad::eAlreadyInDb;
    mpImpObject->intended = pDb;
    return Acad::eOk;
}

// --- open state -------------------------------------------------------------------------------

Acad::ErrorStatus AcDbObject::close()
{
    AcDbImpObject* oi = mpImpObject;
    if (!oi->db)
        return Acad::eOk;
    if (oi->writer) {
        // The host draws a new dimension's graphics when it is closed.
        if (auto* dim = AcDbDimension::cast(this); dim && dim->dimBlockId().isNull())
            dim->recomputeDimBlock();
        oi->writer = false;
        oi->isNew = false;
        AcDbImpDatabase::of(oi->db)->noteOpenState(this);
    } else if (oi->readers > 0) {
        --oi->readers;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen()
{
    AcDbImpObject* oi = mpImpObject;
    if (!oi->db)
        return oi->detached ? Acad::eNotInDatabase : Acad::eWasOpenForWrite;
    if (oi->writer || oi->txnMode == 2)
        return Acad::eWasOpenForWrite;
    if (oi->readers > 1)
        return Acad::eHadMultipleReaders;
    AcDbImpDatabase* db = AcDbImpDatabase::of(oi->db);
    if (oi->readers == 0 && oi->txnMode == 0)
        return Acad::eNotOpenForRead;
    if (Acad::ErrorStatus es = db->checkLockedLayer(this); es != Acad::eOk)
        return es;
    if (oi->readers == 1) {
        db->touch(this);
        oi->readers = 0;
        oi->writer = true;
        db->noteOpenState(this);
    } else {
        db->transactions->upgradeHold(this);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen()
{
    AcDbImpObject* oi = mpImpObject;
    if (!oi->db)
        return Acad::eNotInDatabase;
    AcDbImpDatabase* db = AcDbImpDatabase::of(oi->db);
    if (oi->writer) {
        oi->writer = false;
        oi->isNew = false;
        oi->readers = 1;
        db->noteOpenState(this);
        return Acad::eOk;
    }
    if (oi->txnMode == 2) {
        db->transactions->downgradeHold(this);
        return Acad::eOk;
    }
    return Acad::eNotOpenForWrite;
}

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing)
{
    SIM_DB_ASSERT_WRITE();
    AcDbImpObject* oi = mpImpObject;
    if (!oi->db)
        return Acad::eNotInDatabase;
    if (oi->erased == erasing)
        return erasing ? Acad::eWasErased : Acad::eOk;
    AcDbImpDatabase::of(oi->db)->setErased(this, erasing);
    return Acad::eOk;
}

bool AcDbObject::isErased() const { return mpImpObject->erased; }
bool AcDbObject::isReadEnabled() const
{
    const AcDbImpObject* oi = mpImpObject;
    return !oi->db ? !oi->detached : (oi->readers > 0 || oi->writer || oi->txnMode > 0);
}
bool AcDbObject::isWriteEnabled() const
{
    const AcDbImpObject* oi = mpImpObject;
    return !oi->db ? !oi->detached : (oi->writer || oi->txnMode == 2);
}
bool AcDbObject::isNotifyEnabled() const { return false; }
bool AcDbObject::isNewObject() const { return mpImpObject->isNew; }
bool AcDbObject::isTransactionResident() const { return mpImpObject->txnMode > 0; }

// --- extended data ----------------------------------------------------------------------------

namespace {

bool sameName(const std::wstring& a, const ACHAR* b) { return sim::db::sameName(a, b); }

} // namespace

resbuf* AcDbObject::xData(const ACHAR* appName) const
{
    resbuf* head = nullptr;
    resbuf* tail = nullptr;
    auto append = [&](resbuf* rb) {
        if (!rb)
            return;
        if (tail)
            tail->rbnext = rb;
        else
            head = rb;
        for (tail = rb; tail->rbnext; tail = tail->rbnext) {
        }
    };
    for (const auto& [app, chain] : mpImpObject->xdata) {
        if (appName && !sameName(app, appName))
            continue;
        append(acutBuildList(AcDb::kDxfRegAppName, app.c_str(), 0));
        append(chain.copy());
    }
    return head;
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* xdata)
{
    SIM_DB_ASSERT_WRITE();
    // Check the whole chain before changing anything.
    if (xdata && xdata->restype != AcDb::kDxfRegAppName)
        return Acad::eInvalidResBuf;
    for (const resbuf* rb = xdata; rb; rb = rb->rbnext)
        if (rb->restype == AcDb::kDxfRegAppName && (!rb->resval.rstring || !*rb->resval.rstring))
            return Acad::eInvalidResBuf;
        else if (rb->restype != AcDb::kDxfRegAppName && (rb->restype < 1000 || rb->restype > 1071))
            return Acad::eInvalidResBuf;
    auto& store = mpImpObject->xdata.ensure();
    for (const resbuf* rb = xdata; rb;) {
        std::wstring app = rb->resval.rstring;
        const resbuf* first = rb->rbnext;
        const resbuf* last = nullptr;
        for (rb = first; rb && rb->restype != AcDb::kDxfRegAppName; rb = rb->rbnext)
            last = rb;
        resbuf* values = nullptr;
        if (last) {
            // Copy the run first..last alone.
            resbuf* stop = last->rbnext;
            const_cast<resbuf*>(last)->rbnext = nullptr;
            values = sim::copyChain(first);
            const_cast<resbuf*>(last)->rbnext = stop;
        }
        auto it = std::find_if(store.begin(), store.end(), [&](const auto& e) { return sameName(e.first, app.c_str()); });
        if (!values) {
            if (it != store.end())
                store.erase(it);
        } else if (it != store.end()) {
            it->second = Chain(values);
        } else {
            store.emplace_back(app, Chain(values));
        }
    }
    return Acad::eOk;
}

// --- extension dictionary and reactors --------------------------------------------------------

AcDbObjectId AcDbObject::extensionDictionary() const { return mpImpObject->extDict; }

Acad::ErrorStatus AcDbObject::createExtensionDictionary()
{
    SIM_DB_ASSERT_WRITE();
    AcDbImpObject* oi = mpImpObject;
    if (!oi->db)
        return Acad::eNoDatabase;
    if (!oi->extDict.isNull() && !oi->extDict.isErased() && oi->extDict.isValid())
        return Acad::eAlreadyInDb;
    auto* dict = new AcDbDictionary;
    dict->setTreatElementsAsHard(true);
    AcDbObjectId id;
    Acad::ErrorStatus es = AcDbImpDatabase::of(oi->db)->addObject(dict, objectId(), id);
    if (es != Acad::eOk) {
        delete dict;
        return es;
    }
    dict->close();
    oi->extDict = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary()
{
    SIM_DB_ASSERT_WRITE();
    AcDbImpObject* oi = mpImpObject;
    auto* dict = AcDbDictionary::cast(AcDbImpDatabase::lookup(oi->extDict));
    if (!dict)
        return Acad::eNullObjectId;
    if (dict->numEntries() > 0)
        return Acad::eNotApplicable;
    AcDbImpDatabase::of(oi->db)->setErased(dict, true);
    oi->extDict = AcDbObjectId::kNull;
    return Acad::eOk;
}

void AcDbObject::addPersistentReactor(AcDbObjectId objId)
{
    if (!isWriteEnabled())
        return;
    auto& r = mpImpObject->reactors.ensure();
    if (std::find(r.begin(), r.end(), objId) == r.end())
        r.push_back(objId);
}

Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId objId)
{
    SIM_DB_ASSERT_WRITE();
    auto& r = mpImpObject->reactors.ensure();
    auto it = std::find(r.begin(), r.end(), objId);
    if (it == r.end())
        return Acad::eKeyNotFound;
    r.erase(it);
    return Acad::eOk;
}

bool AcDbObject::hasPersistentReactor(AcDbObjectId objId) const
{
    const auto& r = mpImpObject->reactors;
    return std::find(r.begin(), r.end(), objId) != r.end();
}

// --- open by id -------------------------------------------------------------------------------

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased)
{
    pObj = nullptr;
    if (id.isNull())
        return Acad::eNullObjectId;
    AcDbImpDatabase* db = AcDbImpDatabase::of(id.database());
    if (!db)
        return Acad::eUnknownHandle;
    return db->open(pObj, id, mode, openErased);
}

Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcRxClass* pClass, AcDb::OpenMode mode, bool openErased)
{
    pObj = nullptr;
    if (pClass) {
        AcDbObject* target = AcDbImpDatabase::lookup(id);
        if (target && !target->isKindOf(pClass))
            return Acad::eNotThatKindOfClass;
    }
    return acdbOpenAcDbObject(pObj, id, mode, openErased);
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& pEnt, AcDbObjectId id, AcDb::OpenMode mode, bool openErased)
{
    pEnt = nullptr;
    AcDbObject* target = AcDbImpDatabase::lookup(id);
    if (target && !AcDbEntity::cast(target))
        return Acad::eNotAnEntity;
    AcDbObject* obj = nullptr;
    Acad::ErrorStatus es = acdbOpenAcDbObject(obj, id, mode, openErased);
    pEnt = static_cast<AcDbEntity*>(obj);
    return es;
}

// --- ids and ADS names ------------------------------------------------------------------------

bool AcDbObjectId::isValid() const { return AcDbImpDatabase::lookup(*this) != nullptr; }

bool AcDbObjectId::isErased() const
{
    AcDbObject* obj = AcDbImpDatabase::lookup(*this);
    return obj && obj->isErased();
}

AcRxClass* AcDbObjectId::objectClass() const
{
    AcDbObject* obj = AcDbImpDatabase::lookup(*this);
    return obj ? obj->isA() : nullptr;
}

Acad::ErrorStatus acdbGetAdsName(ads_name& objName, AcDbObjectId objId)
{
    if (objId.isNull()) {
        objName[0] = objName[1] = 0;
        return Acad::eNullObjectId;
    }
    objName[0] = static_cast<Adesk::LongPtr>(objId.handle().value());
    objName[1] = reinterpret_cast<Adesk::LongPtr>(objId.database());
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& objId, const ads_name objName)
{
    objId = AcDbObjectId::kNull;
    auto* db = reinterpret_cast<AcDbDatabase*>(objName[1]);
    if (objName[0] == 0 || !AcDbImpDatabase::of(db))
        return Acad::eInvalidAdsName;
    AcDbObjectId id(db, AcDbHandle(static_cast<Adesk::UInt64>(objName[0])));
    if (!id.isValid())
        return Acad::eUnknownHandle;
    objId = id;
    return Acad::eOk;
}

void acutDelString(ACHAR*& pString)
{
    delete[] pString;
    pString = nullptr;
}

// --- object iterator --------------------------------------------------------------------------

void AcDbObjectIterator::start(bool atEnd)
{
    m_pos = atEnd ? static_cast<int>(m_ids.size()) - 1 : 0;
    while (!done() && m_ids[static_cast<size_t>(m_pos)].isErased())
        m_pos += atEnd ? -1 : 1;
}

void AcDbObjectIterator::step(bool backwards, bool skipErased)
{
    do
        m_pos += backwards ? -1 : 1;
    while (skipErased && !done() && m_ids[static_cast<size_t>(m_pos)].isErased());
}

void AcDbObjectIterator::setPosition(AcDbObjectId pObj)
{
    auto it = std::find(m_ids.begin(), m_ids.end(), pObj);
    if (it != m_ids.end())
        m_pos = static_cast<int>(it - m_ids.begin());
}
