// AcDbDatabase::saveAs with a backup choice and a drawing version: the platform writes the one
// version its files have (AC1032) and refuses the others before touching any file.
#include "dbmain.h"
#include "sim/db/DatabaseAccess.h"

Acad::ErrorStatus AcDbDatabase::saveAs(const ACHAR* fileName, const bool bBakAndRename, const AcDb::AcDbDwgVersion dwgVer,
                                       const SecurityParams*)
{
    if (dwgVer != AcDb::kDHL_1032)
        return Acad::eInvalidDwgVersion;
    if (!fileName || !*fileName)
        return Acad::eInvalidInput;
    sim::db::FileFormat* format = sim::db::fileFormat();
    if (!format)
        return Acad::eNotImplementedYet;
    std::wstring path = sim::db::normalizePath(fileName);
    Acad::ErrorStatus es = format->writeFile(*this, path, bBakAndRename);
    if (es == Acad::eOk)
        sim::db::setFileName(this, path);
    return es;
}
