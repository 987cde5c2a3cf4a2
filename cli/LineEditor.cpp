// The keyboard at a terminal, by libedit.
#include "cli/LineEditor.h"

#include <histedit.h>

#include <clocale>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "cli/Completion.h"
#include "sim/app/CommandStack.h"
#include "sim/commands/HostCommands.h"

namespace togu::cli {

struct LineEditor::State {
    EditLine* el = nullptr;
    History* history = nullptr;
    std::string prompt;
    bool atCommand = false;
};

namespace {

LineEditor::State& state(EditLine* el)
{
    void* data = nullptr;
    el_get(el, EL_CLIENTDATA, &data);
    return *static_cast<LineEditor::State*>(data);
}

char* prompt(EditLine* el) { return state(el).prompt.data(); }

/// The names a command can be typed by: the command stack's and the host's own.
std::vector<std::string> commandNames()
{
    std::vector<std::string> names;
    std::unique_ptr<AcEdCommandIterator> it(sim::app::commandStack().iterator());
    for (; it && !it->done(); it->next()) {
        names.push_back(sim::toUtf8(it->command()->globalName()));
        names.push_back(sim::toUtf8(it->command()->localName()));
    }
    for (const auto& name : sim::commands::HostCommands::names())
        names.push_back(sim::toUtf8(name));
    return names;
}

unsigned char complete(EditLine* el, int)
{
    const LineInfo* li = el_line(el);
    std::string typed(li->buffer, li->cursor);
    if (!state(el).atCommand || typed.find(' ') != std::string::npos)
        return CC_ERROR;
    Completion c = completeCommand(typed, commandNames());
    if (!c.insert.empty())
        el_insertstr(el, c.insert.c_str());
    if (c.candidates.empty())
        return c.insert.empty() ? CC_ERROR : CC_REFRESH;
    FILE* out = nullptr;
    el_get(el, EL_GETFP, 1, &out);
    std::fputc('\n', out);
    for (const auto& name : c.candidates)
        std::fprintf(out, "%s  ", name.c_str());
    std::fputc('\n', out);
    return CC_REDISPLAY;
}

unsigned char space(EditLine* el, int)
{
    const LineInfo* li = el_line(el);
    if (state(el).atCommand && li->lastchar == li->buffer) {
        el_push(el, "\n"); // Enter's own binding ends the line
        return CC_NORM;
    }
    el_insertstr(el, " ");
    return CC_REFRESH;
}

} // namespace

LineEditor::LineEditor() : m_state(std::make_unique<State>())
{
    // libedit reads and shows UTF-8 (the Czech prompts) only in a UTF-8 character locale.
    const char* ctype = std::setlocale(LC_CTYPE, "");
    if (!ctype || std::strstr(ctype, "UTF-8") == nullptr)
        std::setlocale(LC_CTYPE, "C.UTF-8");
    State& s = *m_state;
    s.el = el_init("togu", stdin, stdout, stderr);
    s.history = history_init();
    HistEvent ev;
    history(s.history, &ev, H_SETSIZE, 1000);
    history(s.history, &ev, H_SETUNIQUE, 1);
    el_set(s.el, EL_CLIENTDATA, &s);
    el_set(s.el, EL_EDITOR, "emacs");
    el_set(s.el, EL_HIST, history, s.history);
    el_set(s.el, EL_PROMPT, prompt);
    el_set(s.el, EL_ADDFN, "togu-complete", "Complete a command name", complete);
    el_set(s.el, EL_BIND, "^I", "togu-complete", nullptr);
    el_set(s.el, EL_ADDFN, "togu-space", "Enter on an empty command line", space);
    el_set(s.el, EL_BIND, " ", "togu-space", nullptr);
}

LineEditor::~LineEditor()
{
    el_end(m_state->el);
    history_end(m_state->history);
}

void LineEditor::setPrompt(std::wstring_view lineSoFar)
{
    m_state->prompt = sim::toUtf8(lineSoFar);
    m_state->atCommand = lineSoFar == L"Command: ";
}

std::optional<sim::InputLine> LineEditor::read()
{
    std::fflush(stdout);
    int count = 0;
    const char* text = el_gets(m_state->el, &count);
    if (!text || count <= 0)
        return std::nullopt;
    std::string line(text, static_cast<size_t>(count));
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
        line.pop_back();
    // The history holds the command lines, as the host's Up arrow recalls them.
    if (m_state->atCommand && !line.empty()) {
        HistEvent ev;
        history(m_state->history, &ev, H_ENTER, line.c_str());
    }
    return sim::InputLine{sim::fromUtf8(line), 0};
}

} // namespace togu::cli
