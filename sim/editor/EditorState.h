// What the host's command line remembers between calls: the pending acedInitGet, the last keyword,
// the last point, the selection sets and the pickfirst set, and the system variables it holds itself.
#pragma once
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "acutads.h"
#include "gemat3d.h"
#include "sim/editor/Keywords.h"
#include "sim/editor/SelectionSet.h"

namespace sim::editor {

/// The flags and keywords of one acedInitGet.
struct InitGet {
    int flags = 0;
    KeywordList keywords;
};

/// A system variable's value: integer (RTSHORT), real, text, or point.
using VarValue = std::variant<int, double, std::wstring, AcGePoint3d>;

/// One editor per process, as the host has. Tests and the console start from resetEditor().
struct EditorState {
    std::optional<InitGet> pendingInitGet;
    std::optional<std::wstring> lastInput;     ///< what acedGetInput hands out
    AcGePoint3d lastPoint;                     ///< WCS
    std::map<Adesk::LongPtr, SelectionSet> sets;
    Adesk::LongPtr nextSet = 1;
    SelectionSet pickfirst;
    std::vector<AcDbObjectId> previousSelection; ///< what the last acedSSGet selected ("P")
    bool keepPickfirst = false;                ///< the pickfirst set outlives the command that made it
    std::map<std::wstring, VarValue> vars;     ///< variables the editor holds, by upper-case name
    std::vector<AcGeMatrix3d> previousUcs;     ///< for "_UCS _P", most recent last
};

EditorState& editorState();
/// A fresh editor: no sets, no pickfirst, no pending acedInitGet, variables at their defaults.
void resetEditor();
/// The end of a command: the pickfirst set is cleared (unless the command was _PICKFIRST) and a
/// pending acedInitGet is dropped. The console calls it after every command, the host's or the system's.
void endCommand();

/// Takes the pending acedInitGet: it applies to one prompt only.
InitGet takeInitGet();

/// The ads_name of a selection set of the table.
void setName(Adesk::LongPtr key, ads_name out);
/// The set an ads_name names, or null.
SelectionSet* findSet(const ads_name name);
/// A new, empty set in the table; its name goes to out.
SelectionSet& newSet(ads_name out);

} // namespace sim::editor
