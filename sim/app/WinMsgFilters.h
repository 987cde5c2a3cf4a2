// The filters of the host's window messages that applications register (acedRegisterFilterWinMsg):
// each message of the drawing window is offered to them before the host handles it.
#pragma once
#include <cstddef>

#include "acedlisp.h"

namespace sim::app {

/// Offers a message to the filters in the order they were registered; true when one used it up
/// (the host then does not handle it).
bool filterWinMsg(MSG& msg);
std::size_t winMsgFilterCount();

} // namespace sim::app
