// The host's own commands (_LINE, _CIRCLE, _SETVAR, ...) as the command line finds them: the
// editor module keeps their table.
#pragma once
#include <functional>
#include <string_view>

namespace sim::app {

/// The host command a typed name calls ("LINE", "_line", "_.LINE"), or an empty function.
std::function<void()> findHostCommand(std::wstring_view typed);

} // namespace sim::app
