// The host commands of the editor module, one function each, and what they share: putting new
// entities into the current space and the axes of the current UCS.
#pragma once
#include <string>

#include "dbmain.h"

namespace sim::editor::commands {

void line();
void pline();
void circle();
void text();
void layer();
void ucs();
void setvar();
/// Sets one variable, as typing its name at the command line does.
void setvarNamed(const std::wstring& name);
void pickfirst();
void erase();
void zoom();

/// Shows a message of the host's command on a line of its own (printf format, wide).
void say(const wchar_t* format, ...);

/// Appends a new entity to the current space of the working database with the current layer, colour
/// and line type, and closes it. The entity is deleted when it cannot be appended; null then.
AcDbObjectId appendToSpace(AcDbEntity* entity);

} // namespace sim::editor::commands
