// An AutoLISP call typed at the command line: the line "(name arg ...)" with literal arguments is
// parsed into result buffers, sent to the application that defined the function, and its answer is
// printed the way the AutoLISP command line prints values.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "acutads.h"
#include "sim/db/Chain.h"

namespace sim::app {

struct LispDefinition;

using sim::db::Chain;

struct LispCall {
    std::wstring name; ///< empty for the empty list "()"
    Chain args;        ///< empty when there are none
};

/// What an application answered: a value (one buffer) or a list (the chain of its items, nested
/// lists in RTLB/RTLE). No answer at all is std::nullopt where these are returned.
struct LispAnswer {
    bool isList = false;
    Chain values;
};

/// Parses one line. Strings "..." (with \" \\ \n \t escapes) give RTSTR; integers RTSHORT when they
/// fit in 16 bits, else RTLONG, reals beyond 32 bits RTREAL; other numbers RTREAL; '(x y) RTPOINT and
/// '(x y z) RT3DPOINT; nil and T give RTNIL and RTT. On failure, nothing, and error holds the
/// AutoLISP message without its "; error: " lead.
std::optional<LispCall> parseLispCall(std::wstring_view line, std::wstring& error);

/// A real as AutoLISP prints it: six significant digits, always with a decimal point (2.5, 1.0,
/// 1.0e+10).
std::wstring formatLispReal(double value);
/// A string as AutoLISP prints it: quoted, with \ " and control characters escaped.
std::wstring formatLispString(std::wstring_view text);
/// An answer as the command line prints it; nothing answered prints nil.
std::wstring formatLispAnswer(const std::optional<LispAnswer>& answer);

/// Calls a defined function with the arguments (they stay the caller's) and gives its answer, as
/// the host does: the application's acedRegFunc function when it has one for the number, else
/// kInvkSubrMsg to its entry point.
std::optional<LispAnswer> invokeLisp(const LispDefinition& def, const resbuf* args);

/// Runs a command-line line that begins with "(" in the current document and prints the answer or
/// the AutoLISP error to the session's transcript.
void runLispLine(std::wstring_view line);

} // namespace sim::app
