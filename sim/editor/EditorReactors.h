// The editor object the system adds its editor reactors to, and the notices the platform sends them.
#pragma once

namespace sim::editor {

/// Tells every editor reactor that the view changed (after a zoom).
void notifyViewChanged();
/// How many reactors the editor holds (tests).
int editorReactorCount();

} // namespace sim::editor
