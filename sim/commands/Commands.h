// The platform's own host commands, one function each, and what they share: putting new entities
// into the current space and the messages of a command.
#pragma once
#include <string>

#include "dbmain.h"

namespace sim::commands {

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
void saveAs();
void qsave();
/// _INSERT: a block by name or from a file.
void insert();
void arc();
void mtext();
/// _LAYOUT: its Set option (the active layout) and its list (?).
void layout();

/// Shows a message of the host's command on a line of its own (printf format, wide).
void say(const wchar_t* format, ...);

/// Appends a new entity to the current space of the working database with the current layer, colour
/// and line type, and closes it. The entity is deleted when it cannot be appended; null then.
AcDbObjectId appendToSpace(AcDbEntity* entity);

} // namespace sim::commands
