// The table of host commands.
#include "sim/commands/HostCommands.h"

#include <algorithm>
#include <map>

#include "sim/commands/Commands.h"
#include "sim/editor/Keywords.h"
#include "sim/editor/SysVars.h"

namespace sim::commands {

using sim::editor::findVar;
using sim::editor::upperCase;

namespace {

std::map<std::wstring, HostCommandFn>& table()
{
    namespace c = sim::commands;
    static std::map<std::wstring, HostCommandFn> t = {
        {L"LINE", c::line},
        {L"PLINE", c::pline},
        {L"CIRCLE", c::circle},
        {L"TEXT", c::text},
        {L"-LAYER", c::layer},
        {L"UCS", c::ucs},
        {L"SETVAR", c::setvar},
        {L"PICKFIRST", c::pickfirst},
        {L"ERASE", c::erase},
        {L"ZOOM", c::zoom},
        {L"SAVEAS", c::saveAs},
        {L"QSAVE", c::qsave},
        {L"SAVE", c::saveAs},
        {L"INSERT", c::insert},
        {L"-INSERT", c::insert},
        {L"ARC", c::arc},
        {L"MTEXT", c::mtext},
        {L"-MTEXT", c::mtext},
        {L"LAYOUT", c::layout},
        {L"-LAYOUT", c::layout},
    };
    return t;
}

std::wstring bareName(std::wstring_view typed)
{
    std::wstring_view s = typed;
    while (!s.empty() && (s.front() == L' ' || s.front() == L'\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == L' ' || s.back() == L'\t'))
        s.remove_suffix(1);
    while (!s.empty() && (s.front() == L'_' || s.front() == L'.' || s.front() == L'+'))
        s.remove_prefix(1);
    return upperCase(s);
}

} // namespace

HostCommandFn HostCommands::find(std::wstring_view typed)
{
    std::wstring name = bareName(typed);
    if (name.empty())
        return {};
    auto& t = table();
    if (auto it = t.find(name); it != t.end())
        return it->second;
    // "LAYER" names the dialog at the host; scripts reach the command-line form the same way.
    if (name == L"LAYER" || name == L"LA")
        return t[L"-LAYER"];
    if (findVar(name))
        return [name] { setvarNamed(name); };
    return {};
}

void HostCommands::add(const std::wstring& name, HostCommandFn fn) { table()[bareName(name)] = std::move(fn); }

std::vector<std::wstring> HostCommands::names()
{
    std::vector<std::wstring> n;
    for (const auto& [k, v] : table())
        n.push_back(k);
    return n;
}

} // namespace sim::commands
