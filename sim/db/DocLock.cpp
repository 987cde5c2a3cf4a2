// AcAxDocLock on the platform's document manager.
#include "axlock.h"

void AcAxDocLock::lock(AcApDocument* doc)
{
    if (!doc)
        return;
    m_status = acDocManager->lockDocument(doc, AcAp::kWrite);
    if (m_status == Acad::eOk)
        m_doc = doc;
}

AcAxDocLock::AcAxDocLock() { lock(acDocManager->curDocument()); }

AcAxDocLock::AcAxDocLock(const AcDbObjectId& objectId, DocLockType)
{
    lock(objectId.database() ? acDocManager->document(objectId.database()) : nullptr);
}

AcAxDocLock::AcAxDocLock(AcDbDatabase* pDatabase, DocLockType)
{
    lock(pDatabase ? acDocManager->document(pDatabase) : nullptr);
}

AcAxDocLock::~AcAxDocLock()
{
    if (m_doc)
        acDocManager->unlockDocument(m_doc);
}
