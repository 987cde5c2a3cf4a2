// Dynamic blocks as this platform keeps them in drawings, in a form of its own.
//
// The block's definition (its block table record) carries extended data of the application
// TOGU_DYNBLOCK: for each property its name (1000), its kind (1070: 1 a real, 3 a short, 5 a
// text), its default value (1040, 1070 or 1000 by kind) and, between 1002 "{" and 1002 "}", the
// values it allows (none listed: any). A reference carries extended data of the same application
// with each property it sets: name, kind and value, without a list. A property the reference does
// not name has the definition's default. Being extended data, it goes to the file and back
// unchanged, and the application is registered when the drawing is saved.
//
// What a property does to the geometry is told by each entity of the definition, in extended data
// of TOGU_DYNACTION: a list of actions applied in their order to a copy of the entity in block
// coordinates (see DynamicAction). A reference whose values were set shows an anonymous block
// ("*U...") built from these copies, as the host does; that block names its dynamic block as the
// host's files do (application AcDbBlockRepBTag: 1070 1, 1005 the definition's handle), so other
// programs draw the reference as it looks.
#pragma once
#include <string>
#include <vector>

#include "acutads.h"
#include "dbmain.h"

class AcDbBlockReference;

namespace sim::db {

inline constexpr const wchar_t* kDynamicBlockApp = L"TOGU_DYNBLOCK";
inline constexpr const wchar_t* kDynamicActionApp = L"TOGU_DYNACTION";
inline constexpr const wchar_t* kBlockRepApp = L"AcDbBlockRepBTag";

struct DynamicValue {
    enum Kind : short { kReal = 1, kShort = 3, kText = 5 };
    short kind = kReal;
    double real = 0.0;
    short integer = 0;
    std::wstring text;
    bool operator==(const DynamicValue&) const = default;
};

struct DynamicProperty {
    std::wstring name;
    DynamicValue value;
    /// The values a definition allows; empty for any (and always for a reference).
    std::vector<DynamicValue> allowed;
    bool operator==(const DynamicProperty&) const = default;
};

/// The properties an object's extended data of TOGU_DYNBLOCK holds (a definition's or a
/// reference's); empty when it has none. Data that does not have this form is passed over.
std::vector<DynamicProperty> dynamicProperties(const AcDbObject& obj);

/// The extended data of the properties, 1001 TOGU_DYNBLOCK first, for setXData; the caller frees
/// it with acutRelRb. A reference's (definition false) leaves the allowed values out.
resbuf* dynamicPropertiesXData(const std::vector<DynamicProperty>& properties, bool definition);

/// What one property does to one entity of the definition. In extended data each action is 1000
/// its kind ("visible", "flip", "stretch"), 1000 the property, then by kind: visible 1000 the text
/// value at which the entity shows; flip 1040 x, y and the angle of the mirror line, the entity
/// mirrored while the value is not 0; stretch 1040 dx, dy and min x, min y, max x, max y of a frame,
/// the points of the entity in the frame moved by (value - default) times (dx, dy).
struct DynamicAction {
    enum Kind { kVisible, kFlip, kStretch };
    Kind kind = kVisible;
    std::wstring property;
    std::wstring value;           ///< visible
    double x = 0.0, y = 0.0;      ///< flip: a point of the mirror line; stretch: the direction
    double angle = 0.0;           ///< flip
    double minX = 0.0, minY = 0.0, maxX = 0.0, maxY = 0.0; ///< stretch
    bool operator==(const DynamicAction&) const = default;
};

/// The actions of an entity of a definition; empty when it has none or they don't have this form.
std::vector<DynamicAction> dynamicActions(const AcDbObject& obj);
/// The extended data of the actions, 1001 TOGU_DYNACTION first; the caller frees it.
resbuf* dynamicActionsXData(const std::vector<DynamicAction>& actions);

/// The dynamic block a block table record stands for: itself when it is a dynamic definition, the
/// definition an anonymous representation names, else null.
AcDbObjectId dynamicDefinitionOf(AcDbObjectId btrId);
/// The current values of a reference: the definition's properties with the reference's values;
/// distances in drawing units (the definition's default times the reference's X scale).
std::vector<DynamicProperty> currentProperties(const AcDbBlockReference& ref, AcDbObjectId definition);
/// Makes the reference (open for write) show its values: a new anonymous block built from the
/// definition, the reference pointed to it, its attributes moved where their definitions went. An
/// anonymous block the reference showed before is erased when nothing else uses it.
Acad::ErrorStatus showCurrentValues(AcDbBlockReference& ref);

} // namespace sim::db
