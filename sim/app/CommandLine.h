// The host's command line: the "Command: " prompt and what a line typed there runs (a command of the
// command stack, a host command, an AutoLISP call).
#pragma once
#include <string_view>

namespace sim::app {

/// Runs one line typed at "Command: ": a line beginning with "(" is an AutoLISP call; otherwise the
/// first word names a command of the stack (see CommandStack::lookupTyped), else a host command;
/// "@dblclick x,y" double-clicks the point in the drawing window (DoubleClick.h).
/// An empty line and "^C" do nothing. An unknown name prints the host's message and, in a script,
/// fails the session. False when the line failed the session.
bool runCommandLine(std::wstring_view line);

/// Prompts "Command: " and runs each line until the input runs out or the session fails. A prompt
/// that the input left waiting inside a command fails the session. True when the run ended without
/// failure; Session::failure() says why it did not.
bool commandLoop();

/// Fails the session when a script ran out while a prompt (other than "Command: ") was waiting;
/// true when it did. Keyboard input that ends inside a command is the user leaving, no failure. The console calls it after the start, whose questions can use up a script.
bool failIfPromptWaiting();

} // namespace sim::app
