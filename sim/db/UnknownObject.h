// Objects and entities of classes the database does not model, kept as the drawing file's record
// name and raw groups so that they are written back unchanged.
#pragma once
#include <string>
#include "dbmain.h"
#include "sim/db/RawTag.h"

namespace sim::db {

class UnknownObject : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(UnknownObject);
    UnknownObject() = default;
    UnknownObject(std::wstring recordName, RawTags tags) : recordName(std::move(recordName)), tags(std::move(tags)) {}
    /// The DXF record name ("LAYOUT", "MLEADERSTYLE", ...).
    std::wstring recordName;
    /// The record's groups after its handle, as read.
    RawTags tags;
};

class UnknownEntity : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(UnknownEntity);
    UnknownEntity() = default;
    UnknownEntity(std::wstring recordName, RawTags tags) : recordName(std::move(recordName)), tags(std::move(tags)) {}
    std::wstring recordName;
    RawTags tags;
};

} // namespace sim::db
