// AcDbObjectContext and AcDbAnnotationScale: an annotation scale as handed out, a value the caller
// owns.
#include "dbAnnotationScale.h"
#include "sim/db/DefineMembers.h"

const ACHAR* acdbAnnotationScaleCollectionName = L"ACDB_ANNOTATIONSCALES";

ACRX_DEFINE_MEMBERS(AcDbObjectContext, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcDbAnnotationScale, AcDbObjectContext, nullptr)

Acad::ErrorStatus AcDbAnnotationScale::copyFrom(const AcRxObject* pOther)
{
    const AcDbAnnotationScale* o = AcDbAnnotationScale::cast(pOther);
    if (!o)
        return Acad::eWrongObjectType;
    if (o != this)
        *this = *o;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::getName(AcString& name) const
{
    name = m_name;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::setName(const AcString& name)
{
    if (name.isEmpty())
        return Acad::eInvalidInput;
    m_name = name;
    return Acad::eOk;
}

const AcString AcDbAnnotationScale::collectionName() const { return AcString(acdbAnnotationScaleCollectionName); }

Acad::ErrorStatus AcDbAnnotationScale::getPaperUnits(double& dPaperUnits) const
{
    dPaperUnits = m_paper;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::getDrawingUnits(double& dDrawingUnits) const
{
    dDrawingUnits = m_drawing;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::setPaperUnits(double dPaperUnits)
{
    if (!(dPaperUnits > 0.0))
        return Acad::eInvalidInput;
    m_paper = dPaperUnits;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::setDrawingUnits(double dDrawingUnits)
{
    if (!(dDrawingUnits > 0.0))
        return Acad::eInvalidInput;
    m_drawing = dDrawingUnits;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::getIsTemporaryScale(bool& bTemporary) const
{
    bTemporary = false;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAnnotationScale::getScale(double& dScale) const
{
    dScale = m_paper / m_drawing;
    return Acad::eOk;
}
