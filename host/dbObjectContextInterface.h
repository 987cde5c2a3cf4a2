// AcDbObjectContextInterface: the protocol extension through which an object carries contexts
// (annotation scales), got by queryX of its class.
#pragma once
#include "dbObjContext.h"

class AcDbObject;

class AcDbObjectContextInterface : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectContextInterface);
    ~AcDbObjectContextInterface() override = default;

    /// True for the collection of annotation scales on the classes that carry scales.
    virtual bool supportsCollection(const AcDbObject* pObject, const AcString& collectionName) const;
    virtual bool hasContext(const AcDbObject* pObject, const AcDbObjectContext& context) const;
    /// Needs the object open for write and in a database; eInvalidContext for a context the
    /// database's collection lacks. Adding a context the object has is no error.
    virtual Acad::ErrorStatus addContext(AcDbObject* pObject, const AcDbObjectContext& context) const;
    /// eKeyNotFound when the object does not carry it.
    virtual Acad::ErrorStatus removeContext(AcDbObject* pObject, const AcDbObjectContext& context) const;
};
