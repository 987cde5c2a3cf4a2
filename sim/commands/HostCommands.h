// The host's own commands that scripts use to build drawings (_LINE, _PLINE, _CIRCLE, _TEXT,
// _-LAYER, _UCS, _SETVAR, _ERASE, _ARC, _MTEXT, _INSERT, _SAVEAS, _LAYOUT, ...) as one table the command line looks names up in.
#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace sim::commands {

/// A host command: it prompts through the editor calls and returns when it is done or cancelled.
using HostCommandFn = std::function<void()>;

class HostCommands {
public:
    /// The command a typed name calls: case ignored, with or without a leading "_", "." or "+"
    /// ("LINE", "_line", "_.LINE", "-layer"). A system variable's name gives the command that sets it,
    /// as at the host's command line. Empty when the name is neither.
    static HostCommandFn find(std::wstring_view typed);
    /// Adds a command under its name (upper case, no leading "_"), or replaces the one of that name.
    /// For commands of modules above this one.
    static void add(const std::wstring& name, HostCommandFn fn);
    /// The names of all commands, in alphabetical order.
    static std::vector<std::wstring> names();
};

} // namespace sim::commands
