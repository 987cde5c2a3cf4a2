// System variables: the table of names, types and where each value lives (the working database's
// header, its tables, or the editor itself), and the view the pick box and pixels are measured in.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/editor/EditorState.h"

namespace sim::editor {

enum class VarType { Short, Real, String, Point2d, Point3d };

struct VarInfo {
    std::wstring name; ///< upper case
    VarType type;
    bool readOnly;
};

/// The variable of that name (case ignored).
std::optional<VarInfo> findVar(std::wstring_view name);
/// Every variable's name, in alphabetical order.
std::vector<std::wstring> varNames();
/// The value now, in the kind of its type (Short: int, Real: double, String: wstring, points:
/// AcGePoint3d). Nothing for an unknown name, or one of the database without a working database.
std::optional<VarValue> getVar(std::wstring_view name);
/// False, the value unchanged, for an unknown or read-only name, a value of another kind (an int is
/// taken for a real) or out of range.
bool setVar(std::wstring_view name, const VarValue& value);
/// The value as _SETVAR shows it and takes it typed: "4", "2.5000", "Standard", "10.0000,5.0000".
std::wstring formatVar(const VarValue& value);
std::optional<VarValue> parseVar(VarType type, std::wstring_view text);

/// The height of the view in drawing units (VIEWSIZE): the "*Active" viewport's, else 297 mm.
double viewSize();
/// The centre of the view, WCS.
AcGePoint3d viewCenter();
/// The drawing units one pixel of the screen (SCREENSIZE) covers.
double pixelSize();

} // namespace sim::editor
