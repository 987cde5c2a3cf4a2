// External references: a block table record whose path names another drawing. The platform reads
// that drawing and gives the host its layers as dependent layers "block|layer"; the entities stay in
// the referenced file.
#pragma once
#include "dbmain.h"

namespace sim::db {

/// Resolves one external reference of the host: reads its drawing and adds the dependent layers
/// the host lacks. eFileNotFound when the file is nowhere, the read's status when it can't be read,
/// eInvalidInput for a record that is no external reference.
Acad::ErrorStatus resolveXref(AcDbDatabase* host, AcDbObjectId blockId);
/// Resolves every external reference of the database; references that fail stay unresolved.
void resolveXrefs(AcDbDatabase* host);

} // namespace sim::db
