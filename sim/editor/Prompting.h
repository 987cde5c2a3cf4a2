// What every prompt of the command line shares: taking one answer (Escape and the end of the input
// cancel), the host's messages, the acedInitGet rules, and typed points made into UCS points.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "gepnt3d.h"
#include "sim/editor/EditorState.h"
#include "sim/editor/InputParse.h"

namespace sim::editor {

/// Shows a message of the host on a line of its own.
void showMessage(std::wstring_view text);

/// Asks once and gives the answer as typed. Nothing for Escape ("^C") or when the input has run out:
/// both cancel the prompt. Nothing also when no session runs.
std::optional<std::wstring> askLine(std::wstring_view prompt);

/// What a prompt made of an answer that was not Enter, Escape or a keyword.
enum class Take {
    Accepted, ///< a value: the prompt answers RTNORM
    Refused,  ///< a value the rules refuse; the message is shown and the prompt comes again
    NotValue, ///< not a value: a keyword is tried next
    Failed,   ///< understood, but it finds nothing (a pick that misses): the prompt answers RTERROR
};

/// The loop of one prompt under the rules of its acedInitGet: Enter answers RTNONE (or, under
/// RSG_NONULL, shows invalidMessage and asks again); a keyword answers RTKWORD, as does any text
/// under RSG_OTHER; anything else shows invalidMessage and asks again. take gets the answer without
/// blanks at its ends.
template <class TakeFn>
int promptLoop(std::wstring_view prompt, const InitGet& rules, std::wstring_view invalidMessage, TakeFn take)
{
    editorState().lastInput.reset();
    for (;;) {
        auto line = askLine(prompt);
        if (!line)
            return RTCAN;
        std::wstring_view t = trimmed(*line);
        if (t.empty()) {
            if (rules.flags & RSG_NONULL) {
                showMessage(invalidMessage);
                continue;
            }
            return RTNONE;
        }
        if (t.front() != L'_') {
            Take r = take(t);
            if (r == Take::Accepted)
                return RTNORM;
            if (r == Take::Refused)
                continue;
            if (r == Take::Failed)
                return RTERROR;
        }
        if (auto kw = rules.keywords.match(t)) {
            editorState().lastInput = *kw;
            return RTKWORD;
        }
        if (rules.flags & RSG_OTHER) {
            editorState().lastInput = std::wstring(t);
            return RTKWORD;
        }
        showMessage(invalidMessage);
    }
}

/// A typed point as a point of the current UCS. Relative forms start from base (UCS) when given,
/// else from the last point. Without a typed Z the point lies at elevation 0; under RSG_2D always.
AcGePoint3d resolvePoint(const PointText& p, const AcGePoint3d* base, int flags);
/// Keeps a point the user gave (UCS) as the last point (LASTPOINT, "@").
void rememberPoint(const AcGePoint3d& ucs);

/// Checks a number against RSG_NOZERO and RSG_NONEG; shows the host's message when it fails.
bool numberAllowed(double v, int flags);

} // namespace sim::editor
