// Dynamic block properties as this platform keeps them in drawings, in a form of its own.
//
// The block's definition (its block table record) carries extended data of the application
// TOGU_DYNBLOCK: for each property its name (1000), its kind (1070: 1 a real, 3 a short, 5 a
// text), its default value (1040, 1070 or 1000 by kind) and, between 1002 "{" and 1002 "}", the
// values it allows (none listed: any). A reference carries extended data of the same application
// with each property it sets: name, kind and value, without a list. A property the reference does
// not name has the definition's default. Being extended data, it goes to the file and back
// unchanged, and the application is registered when the drawing is saved.
#pragma once
#include <string>
#include <vector>

#include "acutads.h"
#include "dbmain.h"

namespace sim::dxf {

inline constexpr const wchar_t* kDynamicBlockApp = L"TOGU_DYNBLOCK";

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

} // namespace sim::dxf
