// What the host's commands share: putting a new entity into the current space, and their messages.
#include <cstdarg>
#include <cwchar>

#include "dbobjptr.h"
#include "sim/editor/Prompting.h"
#include "sim/editor/Ucs.h"
#include "sim/commands/Commands.h"

namespace sim::commands {

using namespace sim::editor;

void say(const wchar_t* format, ...)
{
    wchar_t buf[1024];
    va_list ap;
    va_start(ap, format);
    int n = std::vswprintf(buf, 1024, format, ap);
    va_end(ap);
    if (n >= 0)
        showMessage(buf);
}

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

} // namespace sim::commands
