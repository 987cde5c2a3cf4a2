// _SETVAR, and a variable's name typed as a command: show a system variable and give it a new value.
#include <string>

#include "acedads.h"
#include "sim/editor/InputParse.h"
#include "sim/editor/Keywords.h"
#include "sim/editor/SysVars.h"
#include "sim/commands/Commands.h"

namespace sim::commands {

using namespace sim::editor;

namespace {
std::wstring g_lastName = L"OSMODE";
} // namespace

void setvarNamed(const std::wstring& typed)
{
    auto info = findVar(typed);
    if (!info) {
        say(L"Unknown variable name.  Type SETVAR ? for a list of variables.");
        return;
    }
    g_lastName = info->name;
    auto value = getVar(info->name);
    std::wstring shown = value ? formatVar(*value) : L"";
    if (info->type == VarType::String)
        shown = L"\"" + shown + L"\"";
    if (info->readOnly) {
        say(L"%ls = %ls (read only)", info->name.c_str(), shown.c_str());
        return;
    }
    std::wstring prompt = L"\nEnter new value for " + info->name + L" <" + (value ? formatVar(*value) : L"") + L">: ";
    ACHAR buf[512];
    if (acedGetString(1, prompt.c_str(), buf, 512) != RTNORM)
        return;
    std::wstring_view text = info->type == VarType::String ? std::wstring_view(buf) : trimmed(buf);
    if (text.empty())
        return;
    // A string variable takes "." for empty, as at the host.
    if (info->type == VarType::String && trimmed(text) == L".")
        text = L"";
    auto parsed = parseVar(info->type, text);
    if (!parsed || !setVar(info->name, *parsed))
        say(L"*Invalid value*  %ls keeps %ls.", info->name.c_str(), shown.c_str());
}

void setvar()
{
    ACHAR buf[64];
    std::wstring prompt = L"\nEnter variable name or [?] <" + g_lastName + L">: ";
    if (acedGetString(0, prompt.c_str(), buf, 64) != RTNORM)
        return;
    std::wstring name(trimmed(buf));
    if (name.empty())
        name = g_lastName;
    if (name == L"?") {
        for (const auto& n : varNames()) {
            auto v = getVar(n);
            say(L"%-20ls%ls", n.c_str(), v ? formatVar(*v).c_str() : L"");
        }
        return;
    }
    setvarNamed(upperCase(name));
}

} // namespace sim::commands
