// AcDbAnnotativeObjectPE: the protocol extension that makes an object annotative, got by queryX of
// its class (annotative entities and the text, dimension and multileader styles).
#pragma once
#include "rxobject.h"

class AcDbObject;

class AcDbAnnotativeObjectPE : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbAnnotativeObjectPE);
    ~AcDbAnnotativeObjectPE() override = default;

    virtual bool annotative(AcDbObject* pObject) const;
    /// Needs the object open for write (eNotOpenForWrite). It adds no scale: an annotative entity
    /// carries the scales added through AcDbObjectContextInterface.
    virtual Acad::ErrorStatus setAnnotative(AcDbObject* pObject, const bool bAnnotative);
    virtual Acad::ErrorStatus resetScaleDependentProperties(AcDbObject*) { return Acad::eOk; }
};
