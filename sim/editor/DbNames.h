// Names of symbol table records and back: what system variables and host commands need of the
// working database's tables.
#pragma once
#include <string>

#include "dbobjptr.h"

namespace sim::editor {

/// The record's name, or empty when the id opens no symbol table record.
std::wstring recordName(AcDbObjectId id);

/// The ADS name of an object (cleared for a null id).
void adsNameOf(AcDbObjectId id, ads_name out);

/// The id of the record of that name (case ignored) in the table of Rec, or null.
template <class Rec>
AcDbObjectId recordId(AcDbDatabase* db, const std::wstring& name)
{
    if (!db || name.empty())
        return AcDbObjectId::kNull;
    AcDbSymbolTableRecordPointer<Rec> rec(name.c_str(), db);
    return rec.openStatus() == Acad::eOk ? rec->objectId() : AcDbObjectId::kNull;
}

} // namespace sim::editor
