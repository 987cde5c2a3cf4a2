// The SCALE object of a drawing's scale list (ACAD_SCALELIST): the stored form of an annotation
// scale. The host hands out AcDbAnnotationScale copies of it.
#pragma once
#include <string>
#include <string_view>
#include <vector>
#include "dbAnnotationScale.h"
#include "dbmain.h"

namespace sim::db {

class UnknownObject;

class Scale : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(Scale);
    Scale() = default;
    std::wstring name;
    double paperUnits = 1.0;
    double drawingUnits = 1.0;
    /// The 1:1 scale of the list, which the host never removes.
    bool unitScale = false;
};

/// The handle of a scale, as AcDbAnnotationScale::uniqueIdentifier gives it.
inline Adesk::LongPtr scaleIdentifier(AcDbObjectId id) { return static_cast<Adesk::LongPtr>(id.handle().value()); }

/// The scale list of a database and its scales in list order (erased ones left out).
AcDbObjectId scaleListId(const AcDbDatabase* db);
std::vector<AcDbObjectId> scaleIds(const AcDbDatabase* db);
/// The scale of the name (case ignored) or of the identifier; the null id when there is none.
AcDbObjectId findScale(const AcDbDatabase* db, std::wstring_view name);
AcDbObjectId findScale(const AcDbDatabase* db, Adesk::LongPtr identifier);
/// The scale a context data object (kept as raw groups) points to with its 340 group, as a handle
/// value; 0 for none.
Adesk::UInt64 contextDataScale(const UnknownObject& data);
/// Whether an object of the database (not erased) carries the scale.
bool scaleInUse(const AcDbDatabase* db, AcDbObjectId scale);
/// The handed-out copy of a stored scale (the caller deletes it); null for no scale.
AcDbAnnotationScale* copyOfScale(AcDbObjectId id);

} // namespace sim::db
