// Fields that several entity codecs share: the common entity fields (layer, line type, colour,
// line weight, ...), single-line text, multi-line text, attribute flags, a block's begin marker.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "dbents.h"
#include "dbmtext.h"
#include "dbsymtb.h"
#include "sim/dxf/Codec.h"

namespace sim::dxf {

/// The AcDbEntity subclass: layer, line type, colour, line weight, line type scale, visibility,
/// and the paper space flag into cx.paperSpace.
void readEntity(AcDbEntity& e, Fields& f, ReadContext& cx);
void writeEntity(const AcDbEntity& e, ObjectWriter& w, WriteContext& cx);

/// The first AcDbText subclass of a text, attribute or attribute definition (f at that subclass).
void readTextFields(AcDbText& e, Fields& f, ReadContext& cx);
/// Writes the subclass marker and the fields.
void writeTextFields(const AcDbText& e, ObjectWriter& w, WriteContext& cx);

/// The fields of a multi-line text in the segment f stands at (its subclass or an embedded object).
/// An embedded text is no entity of the database: its style is settled at once or left null.
void readMTextFields(AcDbMText& e, Fields& f, ReadContext& cx, bool embedded = false);
void writeMTextFields(const AcDbMText& e, ObjectWriter& w, WriteContext& cx);

struct AttributeFields {
    std::wstring tag;
    int flags = 0;
    int fieldLength = 0;
    int vertical = 0;
    bool locked = false;
};
/// The AcDbAttribute or AcDbAttributeDefinition subclass (f at it): the version 280 before the
/// tag, the lock 280 after it.
AttributeFields readAttributeFields(Fields& f);
/// With a prompt for a definition, null for an attribute.
void writeAttributeFields(const AttributeFields& a, ObjectWriter& w, const wchar_t* prompt);

/// The AcDbBlockBegin subclass: the name, flags, base point, path and description of its block.
void writeBlockBeginFields(const AcDbBlockBegin& e, ObjectWriter& w, WriteContext& cx);
/// The flags of a block's BLOCK record.
int blockFlags(const AcDbBlockTableRecord& btr);

/// The extrusion direction (210) as the file writes it; the database keeps it of unit length, so a
/// longer one is kept as written for the writer.
AcGeVector3d readNormal(Fields& f);
void writeNormal(ObjectWriter& w, const AcGeVector3d& n);
/// A point the file keeps in the object coordinate system of the normal n (n as the database keeps
/// it) and the database in world coordinates. With another normal than the Z axis the point is kept
/// as written, so that an unchanged entity writes the same text again.
AcGePoint3d readOcsPoint(Fields& f, int code, const AcGeVector3d& n);
void writeOcsPoint(ObjectWriter& w, int code, const AcGeVector3d& n, const AcGePoint3d& wcs);

/// Whether a block reference has attributes that are not erased (66 1 and what follows).
bool hasLiveAttributes(const AcDbBlockReference& ref);

/// Colour to the 62 and 420 groups of an entity (nothing for by layer); a true colour writes the
/// index kept beside it, when there is one.
void writeColor(TagWriter& w, const AcCmColor& c, std::optional<std::string_view> keptIndex = std::nullopt);
/// From a 62 index (256 by layer, 0 by block) and a 420 true colour when it has one.
AcCmColor readColor(int index, const Tag* trueColor);

} // namespace sim::dxf
