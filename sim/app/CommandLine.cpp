// The host's command line.
#include "sim/app/CommandLine.h"

#include <exception>
#include <string>

#include "sim/app/CommandStack.h"
#include "sim/app/DoubleClick.h"
#include "sim/app/LispCall.h"
#include "sim/commands/HostCommands.h"
#include "sim/core/Session.h"
#include "sim/editor/EditorState.h"

namespace sim::app {

namespace {

std::wstring_view trim(std::wstring_view s)
{
    while (!s.empty() && std::wstring_view(L" \t\r\n").find(s.front()) != std::wstring_view::npos)
        s.remove_prefix(1);
    while (!s.empty() && std::wstring_view(L" \t\r\n").find(s.back()) != std::wstring_view::npos)
        s.remove_suffix(1);
    return s;
}

std::wstring upper(std::wstring_view s)
{
    std::wstring out(s);
    for (auto& c : out)
        if (c >= L'a' && c <= L'z')
            c = static_cast<wchar_t>(c - L'a' + L'A');
    return out;
}

/// Runs a function the host hands control to. What escapes it would bring the real host down; here
/// it ends the command with a message and fails the run, so a script does not go on blindly.
template <class F>
bool guarded(std::wstring_view what, F&& f)
{
    Session& session = Session::current();
    try {
        f();
        return true;
    } catch (const std::exception& e) {
        session.print(L"\n; error: " + std::wstring(what) + L": " + fromUtf8(e.what()) + L"\n");
        session.fail(std::wstring(what) + L" ended with an exception: " + fromUtf8(e.what()));
    } catch (...) {
        session.print(L"\n; error: " + std::wstring(what) + L" ended with an unknown exception\n");
        session.fail(std::wstring(what) + L" ended with an unknown exception");
    }
    return false;
}

} // namespace

bool runCommandLine(std::wstring_view line)
{
    Session& session = Session::current();
    std::wstring_view text = trim(line);
    if (text.empty() || text == L"^C")
        return true;
    if (text.front() == L'(') {
        std::wstring call(text);
        return guarded(L"the AutoLISP call", [&] { runLispLine(call); });
    }
    if (isDoubleClickLine(text)) {
        bool ok = false;
        guarded(L"the double click", [&] { ok = doubleClick(text); });
        sim::editor::endCommand();
        if (!ok && !session.interactive() && !session.failure())
            session.fail(L"a double click that could not be carried out");
        return ok;
    }
    if (AcEdCommand* cmd = commandStack().lookupTyped(text)) {
        // The command may remove itself from the stack while it runs: keep what is needed first.
        AcRxFunctionPtr fn = cmd->functionAddr();
        std::wstring name = L"the command " + upper(cmd->globalName());
        bool ok = guarded(name, fn);
        sim::editor::endCommand(); // the pickfirst set and a pending acedInitGet end with the command
        return ok;
    }
    if (auto host = sim::commands::HostCommands::find(text)) {
        std::wstring name = L"the command " + upper(text);
        bool ok = guarded(name, host);
        sim::editor::endCommand();
        return ok;
    }
    std::wstring name = upper(text);
    session.print(L"Unknown command \"" + name + L"\".  Press F1 for help.\n");
    // At the keyboard a typing error is only a message, as at the host; a script stops on it.
    if (session.interactive())
        return true;
    session.fail(L"Unknown command \"" + name + L"\"");
    return false;
}

bool commandLoop()
{
    Session& session = Session::current();
    std::wstring last; // at the keyboard, an empty line repeats the last command, as at the host
    for (;;) {
        auto line = session.ask(L"Command: ");
        if (!line)
            return !session.failure(); // the input ended at the command prompt: the normal end
        if (session.interactive()) {
            std::wstring_view typed = trim(*line);
            if (typed.empty())
                *line = last;
            else if (commandStack().lookupTyped(typed) || sim::commands::HostCommands::find(typed))
                last = typed;
        }
        runCommandLine(*line);
        if (failIfPromptWaiting() || session.failure())
            return false;
    }
}

bool failIfPromptWaiting()
{
    Session& session = Session::current();
    if (!session.waitingPrompt() || session.interactive())
        return false;
    session.fail(L"the script ended while a prompt was waiting for an answer: \"" +
                 std::wstring(trim(*session.waitingPrompt())) + L"\"");
    return true;
}

} // namespace sim::app
