// The predefined arrows of dimensions: a dimension style names an arrow, the database holds the
// block that draws it. The host makes such a block the first time something names the arrow.
#pragma once
#include <string>
#include <string_view>

#include "dbid.h"

class AcDbDatabase;

namespace sim::db {

/// The host's block name of a predefined arrow ("_Oblique" for "_OBLIQUE", "Oblique" or "oblique");
/// empty for any other name.
std::wstring predefinedArrowName(std::wstring_view name);

/// The block of an arrow: the drawing's block of that name, else, for a predefined arrow, a block made
/// as the host makes it. Null for another name without a block, or when the block table can't be
/// opened for write.
AcDbObjectId arrowBlock(AcDbDatabase* db, std::wstring_view name);

} // namespace sim::db
