// acedXrefReload: external references read again from their files.
#include "acedxref.h"
#include "dbapserv.h"
#include "sim/db/Xrefs.h"

Acad::ErrorStatus acedXrefReload(const AcDbObjectIdArray& XrefBTRids, bool, AcDbDatabase* pHostDb)
{
    AcDbDatabase* host = pHostDb ? pHostDb : acdbHostApplicationServices()->workingDatabase();
    if (!host)
        return Acad::eNoDatabase;
    Acad::ErrorStatus first = Acad::eOk;
    for (int i = 0; i < XrefBTRids.length(); ++i)
        if (Acad::ErrorStatus es = sim::db::resolveXref(host, XrefBTRids[i]); es != Acad::eOk && first == Acad::eOk)
            first = es;
    return first;
}
