// The run-time classes of objects kept as raw groups.
#include "sim/db/UnknownObject.h"
#include "sim/db/DefineMembers.h"

namespace sim::db {
SIM_DB_DEFINE_MEMBERS(UnknownObject, AcDbObject, nullptr)
SIM_DB_DEFINE_MEMBERS(UnknownEntity, AcDbEntity, nullptr)
} // namespace sim::db
