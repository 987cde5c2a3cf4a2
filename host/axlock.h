// AcAxDocLock: a document lock for the scope of an object, taken where code changes a drawing from
// outside a command (a window-message filter, a modeless dialog).
#pragma once
#include "acdocman.h"

class AcAxDocLock {
public:
    enum DocLockType { kNormal = 0, kCurDocSwitch = 1 };
    /// Locks the current document for write.
    AcAxDocLock();
    /// Locks the document of the object's database.
    explicit AcAxDocLock(const AcDbObjectId& objectId, DocLockType = kNormal);
    /// Locks the document of the database.
    explicit AcAxDocLock(AcDbDatabase* pDatabase, DocLockType = kNormal);
    /// Unlocks what the constructor locked.
    ~AcAxDocLock();
    AcAxDocLock(const AcAxDocLock&) = delete;
    AcAxDocLock& operator=(const AcAxDocLock&) = delete;

    /// eOk when the lock was taken; eNoDatabase when no document holds the database.
    Acad::ErrorStatus lockStatus() const { return m_status; }

private:
    void lock(AcApDocument* doc);
    AcApDocument* m_doc = nullptr;
    Acad::ErrorStatus m_status = Acad::eNoDatabase;
};
