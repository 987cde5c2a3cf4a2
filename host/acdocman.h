// Documents: each open drawing with its database, the document manager that knows the current one,
// and document locks.
#pragma once
#include "dbmain.h"
#include "dbtrans.h"

namespace AcAp {
enum DocLockMode {
    kNone = 0x00,
    kAutoWrite = 0x01,
    kNotLocked = 0x02,
    kWrite = 0x04,
    kProtectedAutoWrite = 0x14,
    kRead = 0x20,
    kXWrite = 0x40,
};
} // namespace AcAp

class AcApDocImp;

/// One open drawing. The document manager owns it.
class AcApDocument : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocument);
    AcDbDatabase* database() const;
    /// The full path of the drawing's file; for a new drawing its default name.
    const ACHAR* fileName() const;
    /// The name shown in the title: the file name without its folder.
    const ACHAR* docTitle() const;
    AcAp::DocLockMode lockMode(bool bIncludeMyLocks = false) const;
    AcAp::DocLockMode myLockMode() const;
    AcTransactionManager* transactionManager() const;

    explicit AcApDocument(AcApDocImp* imp) : mpImp(imp) {}
    AcApDocImp* imp() const { return mpImp; }

private:
    AcApDocImp* mpImp;
};

/// Walks the open documents. The caller deletes it.
class AcApDocumentIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocumentIterator);
    virtual bool done() const = 0;
    virtual void step() = 0;
    virtual AcApDocument* document() = 0;
};

class AcApDocManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManager);
    /// The document commands work in; null when no drawing is open.
    AcApDocument* curDocument() const;
    AcApDocument* mdiActiveDocument() const;
    AcApDocument* document(const AcDbDatabase* pDb) const;
    int documentCount() const;
    AcApDocumentIterator* newAcApDocumentIterator();
    Acad::ErrorStatus setCurDocument(AcApDocument* pDoc, AcAp::DocLockMode = AcAp::kNone, bool activate = false);

    /// Locks are counted; each lock is undone by one unlock. eLockViolation for a document that is
    /// not open.
    Acad::ErrorStatus lockDocument(AcApDocument* pDoc, AcAp::DocLockMode lockMode = AcAp::kWrite,
                                   const ACHAR* pGlobalCmdName = nullptr, const ACHAR* pLocalCmdName = nullptr,
                                   bool prompt = true);
    Acad::ErrorStatus unlockDocument(AcApDocument* pDoc);

    Acad::ErrorStatus enableDocumentActivation();
    Acad::ErrorStatus disableDocumentActivation();
    bool isDocumentActivationEnabled();
};

/// The host's document manager; never null.
AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()

/// The current document, or null.
inline AcApDocument* curDoc() { return acDocManager->curDocument(); }

/// The transaction manager of the current document's database (of the working database when no
/// document is open).
AcDbTransactionManager* acapTransactionManagerPtr();
#define actrTransactionManager acapTransactionManagerPtr()
