// Putting a new entity into the current space, as every drawing command of the host does.
#include "dbobjptr.h"
#include "sim/editor/Ucs.h"
#include "sim/editor/commands/Commands.h"

namespace sim::editor::commands {

AcDbObjectId appendToSpace(AcDbEntity* entity)
{
    AcDbDatabase* db = workingDb();
    if (!entity)
        return AcDbObjectId::kNull;
    AcDbObjectPointer<AcDbBlockTableRecord> space;
    if (!db || space.open(db->currentSpaceId(), AcDb::kForWrite) != Acad::eOk) {
        delete entity;
        return AcDbObjectId::kNull;
    }
    entity->setDatabaseDefaults(db);
    AcDbObjectId id;
    if (space->appendAcDbEntity(id, entity) != Acad::eOk) {
        delete entity;
        return AcDbObjectId::kNull;
    }
    entity->close();
    return id;
}

} // namespace sim::editor::commands
