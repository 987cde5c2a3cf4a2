// External references in the host's editor: reloading them from their drawing files.
#pragma once
#include "acadstrc.h"
#include "dbmain.h"

/// Reads the drawings of the external references (block table records) again, found as findFile
/// finds their paths beside the host drawing. A dependent layer ("block|layer") the host lacks is
/// added; one it has keeps its values, as the host keeps them while VISRETAIN is on. The first failed
/// status (eFileNotFound, a read's status) when a reference can't be read; the others are reloaded
/// all the same. A null host is the working database.
Acad::ErrorStatus acedXrefReload(const AcDbObjectIdArray& XrefBTRids, bool bQuiet = false, AcDbDatabase* pHostDb = nullptr);
