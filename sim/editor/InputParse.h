// Reading typed answers of the command line: numbers, points in their several forms, handles.
// Pure functions: what a point means in the drawing is settled by the caller.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "dbhandle.h"
#include "gepnt3d.h"

namespace sim::editor {

/// The answer without blanks at either end.
std::wstring_view trimmed(std::wstring_view s);

/// A decimal number: optional sign, digits with an optional point, optional exponent ("1.5", "-.5",
/// "2e3"). Nothing for any other text, also for text after the number.
std::optional<double> parseReal(std::wstring_view s);
/// A whole number in the range of int.
std::optional<int> parseInt(std::wstring_view s);

/// A point as typed: "x,y" or "x,y,z"; "dist<angle" (polar, degrees); a leading "@" makes it relative
/// to the last point ("@" alone is the last point itself); a leading "*" gives world coordinates.
struct PointText {
    AcGePoint3d xyz;      ///< for polar input: x is the distance, y the angle in radians
    bool polar = false;
    bool relative = false;
    bool world = false;
    bool hasZ = false;
};
std::optional<PointText> parsePoint(std::wstring_view s);

/// A handle as typed to pick an entity: "#" and hexadecimal digits ("#1F").
std::optional<AcDbHandle> parseHandle(std::wstring_view s);

} // namespace sim::editor
