// The host's command stack.
#include "sim/app/CommandStack.h"

#include <algorithm>

#include "sim/app/Loader.h"

namespace sim::app {

namespace {

wchar_t foldAscii(wchar_t c) { return (c >= L'a' && c <= L'z') ? static_cast<wchar_t>(c - L'a' + L'A') : c; }

bool isEmpty(const ACHAR* s) { return s == nullptr || *s == 0; }

class Iterator : public AcEdCommandIterator {
public:
    struct Entry {
        const AcEdCommand* command;
        std::wstring group;
    };
    explicit Iterator(std::vector<Entry> entries) : m_entries(std::move(entries)) {}
    bool done() const override { return m_next >= m_entries.size(); }
    bool next() override
    {
        if (done())
            return false;
        ++m_next;
        return !done();
    }
    const AcEdCommand* command() const override { return done() ? nullptr : m_entries[m_next].command; }
    const ACHAR* commandGroup() const override { return done() ? nullptr : m_entries[m_next].group.c_str(); }

private:
    std::vector<Entry> m_entries;
    size_t m_next = 0;
};

} // namespace

bool sameName(std::wstring_view a, std::wstring_view b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](wchar_t x, wchar_t y) { return foldAscii(x) == foldAscii(y); });
}

CommandStack::Group* CommandStack::findGroup(std::wstring_view name)
{
    for (auto& g : m_groups)
        if (sameName(g.name, name))
            return &g;
    return nullptr;
}

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                           const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                           AcRxFunctionPtr functionAddr, AcEdUIContext* UIContext, int fcode,
                                           HINSTANCE hResourceHandle, AcEdCommand** cmdPtrRet)
{
    if (cmdPtrRet)
        *cmdPtrRet = nullptr;
    if (isEmpty(cmdGroupName) || isEmpty(cmdGlobalName) || functionAddr == nullptr)
        return Acad::eInvalidInput;
    if (isEmpty(cmdLocalName))
        cmdLocalName = cmdGlobalName;
    Group* group = findGroup(cmdGroupName);
    if (group) {
        for (auto& c : group->commands)
            if (sameName(c->globalName(), cmdGlobalName) || sameName(c->localName(), cmdLocalName))
                return Acad::eDuplicateKey;
    } else {
        m_groups.push_back(Group{cmdGroupName, {}});
        group = &m_groups.back();
    }
    group->commands.push_back(std::make_unique<Command>(cmdGlobalName, cmdLocalName, commandFlags, functionAddr,
                                                        currentApplicationId(), UIContext, fcode,
                                                        hResourceHandle));
    if (cmdPtrRet)
        *cmdPtrRet = group->commands.back().get();
    return Acad::eOk;
}

AcEdCommandIterator* CommandStack::iterator()
{
    std::vector<Iterator::Entry> entries;
    for (auto g = m_groups.rbegin(); g != m_groups.rend(); ++g)
        for (auto& c : g->commands)
            entries.push_back({c.get(), g->name});
    return new Iterator(std::move(entries));
}

AcEdCommand* CommandStack::lookupCmd(const ACHAR* cmdName, bool globalFlag)
{
    if (isEmpty(cmdName))
        return nullptr;
    for (auto g = m_groups.rbegin(); g != m_groups.rend(); ++g)
        for (auto& c : g->commands)
            if (sameName(globalFlag ? c->globalName() : c->localName(), cmdName))
                return c.get();
    return nullptr;
}

AcEdCommand* CommandStack::lookupGlobalCmd(const ACHAR* cmdName) { return lookupCmd(cmdName, true); }

AcEdCommand* CommandStack::lookupLocalCmd(const ACHAR* cmdName) { return lookupCmd(cmdName, false); }

AcEdCommand* CommandStack::lookupTyped(std::wstring_view typed)
{
    bool global = false;
    for (int i = 0; i < 2 && !typed.empty() && (typed.front() == L'_' || typed.front() == L'.'); ++i) {
        global = global || typed.front() == L'_';
        typed.remove_prefix(1);
    }
    std::wstring name(typed);
    return lookupCmd(name.c_str(), global);
}

Acad::ErrorStatus CommandStack::popGroupToTop(const ACHAR* cmdGroupName)
{
    Group* group = isEmpty(cmdGroupName) ? nullptr : findGroup(cmdGroupName);
    if (!group)
        return Acad::eKeyNotFound;
    auto it = m_groups.begin() + (group - m_groups.data());
    std::rotate(it, it + 1, m_groups.end());
    return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName)
{
    Group* group = isEmpty(cmdGroupName) ? nullptr : findGroup(cmdGroupName);
    if (!group || isEmpty(cmdGlobalName))
        return Acad::eKeyNotFound;
    auto& cmds = group->commands;
    auto it = std::find_if(cmds.begin(), cmds.end(),
                           [&](const auto& c) { return sameName(c->globalName(), cmdGlobalName); });
    if (it == cmds.end())
        return Acad::eKeyNotFound;
    cmds.erase(it);
    return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeGroup(const ACHAR* groupName)
{
    Group* group = isEmpty(groupName) ? nullptr : findGroup(groupName);
    if (!group)
        return Acad::eKeyNotFound;
    m_groups.erase(m_groups.begin() + (group - m_groups.data()));
    return Acad::eOk;
}

std::vector<std::wstring> CommandStack::groupNames() const
{
    std::vector<std::wstring> names;
    for (auto g = m_groups.rbegin(); g != m_groups.rend(); ++g)
        names.push_back(g->name);
    return names;
}

} // namespace sim::app
