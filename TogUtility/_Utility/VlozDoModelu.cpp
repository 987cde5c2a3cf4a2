// Appending a new entity to model space.
#include "StdAfx.h"
#include "VlozDoModelu.h"
#include "dbobjptr.h"

Acad::ErrorStatus VlozDoModelu(AcDbEntity* entita, AcDbObjectId& id)
{
    AcDbBlockTableRecordPointer model(ACDB_MODEL_SPACE, acdbHostApplicationServices()->workingDatabase(),
                                      AcDb::kForWrite);
    if (model.openStatus() != Acad::eOk)
        return model.openStatus();
    return model->appendAcDbEntity(id, entita);
}
