// The definitions behind ACDB_DECLARE_MEMBERS: run-time class, clone (a copy in no database) and
// copyFrom (the state of another object of exactly the same class).
#pragma once
#include "rxobject.h"

#define SIM_DB_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, DXF_NAME)                                  \
    ACRX_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, DXF_NAME)                                        \
    AcRxObject* CLASS_NAME::clone() const { return new CLASS_NAME(*this); }                        \
    Acad::ErrorStatus CLASS_NAME::copyFrom(const AcRxObject* pSrc)                                 \
    {                                                                                              \
        if (!pSrc || pSrc->isA() != CLASS_NAME::desc())                                            \
            return Acad::eWrongObjectType;                                                         \
        if (pSrc != this)                                                                          \
            *this = *static_cast<const CLASS_NAME*>(pSrc);                                         \
        return Acad::eOk;                                                                          \
    }

/// For setters of database objects: changes need the object open for write (or in no database).
#define SIM_DB_ASSERT_WRITE()                                                                      \
    do {                                                                                           \
        if (!isWriteEnabled())                                                                     \
            return Acad::eNotOpenForWrite;                                                         \
        assertWriteEnabled();                                                                      \
    } while (0)

#include "dbmain.h"
namespace sim::db {
/// For setters that ignore a change when the object is not writable: true (after keeping the state
/// for undo) when the change may go ahead.
inline bool beginChange(AcDbObject* obj)
{
    if (!obj->isWriteEnabled())
        return false;
    obj->assertWriteEnabled();
    return true;
}
} // namespace sim::db
