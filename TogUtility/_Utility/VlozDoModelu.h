// Appending a new entity to the model space of the working database.
#pragma once
#include "acadstrc.h"
#include "dbid.h"

class AcDbEntity;

/// Appends the entity (new, in no database) to "*Model_Space" of the working database. On success the
/// database owns it and `id` names it; on failure the caller still owns it. The entity stays open for
/// write: the caller closes it.
Acad::ErrorStatus VlozDoModelu(AcDbEntity* entita, AcDbObjectId& id);
