// The document manager of the platform: the open documents, the current one, their locks.
#include "sim/db/Documents.h"

#include <algorithm>
#include <vector>

#include "dbapserv.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/ImpDatabase.h"
#include "sim/db/Xrefs.h"

ACRX_DEFINE_MEMBERS(AcApDocument, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcApDocumentIterator, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcApDocManager, AcRxObject, nullptr)

class AcApDocImp {
public:
    std::unique_ptr<AcDbDatabase> db;
    std::wstring fileName;
    std::wstring title;
    /// The modes of the locks held, innermost last.
    std::vector<AcAp::DocLockMode> locks;
    std::unique_ptr<AcApDocument> doc;
};

namespace {

struct Manager {
    std::vector<std::unique_ptr<AcApDocImp>> docs;
    AcApDocImp* current = nullptr;
    bool activation = true;
    int newCount = 0;
};

Manager& manager()
{
    static Manager m;
    return m;
}

AcApDocImp* findImp(const AcApDocument* doc)
{
    for (auto& d : manager().docs)
        if (d->doc.get() == doc)
            return d.get();
    return nullptr;
}

void setNames(AcApDocImp& d, const std::wstring& fileName)
{
    d.fileName = sim::db::normalizePath(fileName);
    size_t slash = d.fileName.find_last_of(L'/');
    d.title = slash == std::wstring::npos ? d.fileName : d.fileName.substr(slash + 1);
}

class DocIterator : public AcApDocumentIterator {
public:
    DocIterator()
    {
        for (auto& d : manager().docs)
            m_docs.push_back(d->doc.get());
    }
    bool done() const override { return m_pos >= m_docs.size(); }
    void step() override { ++m_pos; }
    AcApDocument* document() override { return done() ? nullptr : m_docs[m_pos]; }

private:
    std::vector<AcApDocument*> m_docs;
    size_t m_pos = 0;
};

} // namespace

// --- AcApDocument -----------------------------------------------------------------------------

AcDbDatabase* AcApDocument::database() const { return mpImp->db.get(); }
const ACHAR* AcApDocument::fileName() const { return mpImp->fileName.c_str(); }
const ACHAR* AcApDocument::docTitle() const { return mpImp->title.c_str(); }
AcAp::DocLockMode AcApDocument::lockMode(bool) const { return mpImp->locks.empty() ? AcAp::kNotLocked : mpImp->locks.back(); }
AcAp::DocLockMode AcApDocument::myLockMode() const { return lockMode(); }
AcTransactionManager* AcApDocument::transactionManager() const { return mpImp->db->transactionManager(); }

// --- AcApDocManager ---------------------------------------------------------------------------

AcApDocument* AcApDocManager::curDocument() const
{
    return manager().current ? manager().current->doc.get() : nullptr;
}
AcApDocument* AcApDocManager::mdiActiveDocument() const { return curDocument(); }

AcApDocument* AcApDocManager::document(const AcDbDatabase* pDb) const
{
    for (auto& d : manager().docs)
        if (d->db.get() == pDb)
            return d->doc.get();
    return nullptr;
}

int AcApDocManager::documentCount() const { return static_cast<int>(manager().docs.size()); }

AcApDocumentIterator* AcApDocManager::newAcApDocumentIterator() { return new DocIterator; }

Acad::ErrorStatus AcApDocManager::setCurDocument(AcApDocument* pDoc, AcAp::DocLockMode mode, bool)
{
    AcApDocImp* d = findImp(pDoc);
    if (!d)
        return Acad::eInvalidInput;
    manager().current = d;
    acdbHostApplicationServices()->setWorkingDatabase(d->db.get());
    if (mode != AcAp::kNone)
        d->locks.push_back(mode);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* pDoc, AcAp::DocLockMode lockMode, const ACHAR*, const ACHAR*, bool)
{
    AcApDocImp* d = findImp(pDoc);
    if (!d)
        return Acad::eLockViolation;
    d->locks.push_back(lockMode);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* pDoc)
{
    AcApDocImp* d = findImp(pDoc);
    if (!d || d->locks.empty())
        return Acad::eNotApplicable;
    d->locks.pop_back();
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::enableDocumentActivation()
{
    manager().activation = true;
    return Acad::eOk;
}
Acad::ErrorStatus AcApDocManager::disableDocumentActivation()
{
    manager().activation = false;
    return Acad::eOk;
}
bool AcApDocManager::isDocumentActivationEnabled() { return manager().activation; }

AcApDocManager* acDocManagerPtr()
{
    static AcApDocManager m;
    return &m;
}

AcDbTransactionManager* acapTransactionManagerPtr()
{
    AcApDocument* doc = acDocManagerPtr()->curDocument();
    AcDbDatabase* db = doc ? doc->database() : acdbHostApplicationServices()->workingDatabase();
    return db ? db->transactionManager() : nullptr;
}

// --- the platform's side ----------------------------------------------------------------------

namespace sim::db {

AcApDocument* openDocument(std::unique_ptr<AcDbDatabase> db, const std::wstring& fileName)
{
    auto d = std::make_unique<AcApDocImp>();
    d->db = db ? std::move(db) : std::make_unique<AcDbDatabase>(true, false);
    std::wstring name = fileName;
    if (name.empty())
        name = L"Drawing" + std::to_wstring(++manager().newCount) + L".dwg";
    else {
        setFileName(d->db.get(), fileName);
        resolveXrefs(d->db.get());
    }
    setNames(*d, name);
    d->doc = std::make_unique<AcApDocument>(d.get());
    AcApDocument* doc = d->doc.get();
    manager().docs.push_back(std::move(d));
    acDocManagerPtr()->setCurDocument(doc);
    return doc;
}

void closeDocument(AcApDocument* doc)
{
    Manager& m = manager();
    auto it = std::find_if(m.docs.begin(), m.docs.end(), [&](auto& d) { return d->doc.get() == doc; });
    if (it == m.docs.end())
        return;
    AcDbHostApplicationServices* services = acdbHostApplicationServices();
    if (services->workingDatabase() == (*it)->db.get())
        services->setWorkingDatabase(nullptr);
    bool wasCurrent = m.current == it->get();
    m.docs.erase(it);
    if (wasCurrent) {
        m.current = nullptr;
        if (!m.docs.empty())
            acDocManagerPtr()->setCurDocument(m.docs.back()->doc.get());
    }
}

void closeAllDocuments()
{
    while (!manager().docs.empty())
        closeDocument(manager().docs.back()->doc.get());
    manager().newCount = 0;
}

void setDocumentFileName(AcApDocument* doc, const std::wstring& fileName)
{
    if (AcApDocImp* d = findImp(doc)) {
        setNames(*d, fileName);
        setFileName(d->db.get(), fileName);
    }
}

} // namespace sim::db
