// The host commands of the drawing-file module, as the command line of the host has them with file
// dialogs off: _SAVEAS, _QSAVE, _INSERT (a block by name or from a file), and the two that build
// entities this module adds to the editor's set, _ARC and _MTEXT; and _LAYOUT to switch layouts.
#pragma once

namespace sim::dxf {

/// Adds the commands to the editor's table of host commands. Idempotent.
void addHostCommands();

namespace commands {
void saveAs();
void qsave();
void insert();
void arc();
void mtext();
/// _LAYOUT: its Set option (the active layout) and its list (?).
void layout();
} // namespace commands

} // namespace sim::dxf
