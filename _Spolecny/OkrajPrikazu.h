// The edge of every command, dialog button and AutoLISP function of the system: the one place where
// a failure stops, the transactions that the body left open are aborted and the user is told.
#pragma once
#include <functional>

/// Runs the body of a command or a dialog button. A standard exception (CTogException among them)
/// aborts the transactions of the working database that the body started and left open, shows the
/// exception box and ends the body as if it had finished. A CTogEasyExcept does the same, but its
/// message goes to the command line.
void ProvedPrikaz(const std::function<void()>& telo);

/// Runs the body of an AutoLISP function with the same edge; after a failure the function answers nil.
/// Gives the body's result (RTNORM after a failure).
int ProvedLispFunkci(const std::function<int()>& telo);
