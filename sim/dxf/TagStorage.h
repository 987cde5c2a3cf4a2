// Tag storage: objects and entities of kinds without a codec are kept as their record's groups
// (sim::db::UnknownObject and UnknownEntity) and written back unchanged. An entity's common fields
// (layer, line type, colour, ...) are read all the same, so that the drawing's tools reach them.
#pragma once
#include "sim/dxf/Codec.h"

namespace sim::dxf {

/// A new tag-storage object from a record; an entity when the record is one of the ENTITIES or
/// BLOCKS section.
AcDbObject* readTagStorage(Fields& f, ReadContext& cx, bool entity);
/// Whether the object is tag storage.
bool isTagStorage(const AcDbObject& obj);
void writeTagStorage(const AcDbObject& obj, ObjectWriter& w, WriteContext& cx);

} // namespace sim::dxf
