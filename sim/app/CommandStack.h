// The host's command stack: command groups, the newest on top, with global and local names looked up
// without regard to case.
#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "accmd.h"

namespace sim::app {

/// Compares two command or function names the way the host does: ASCII letters without regard to case.
bool sameName(std::wstring_view a, std::wstring_view b);

class Command : public AcEdCommand {
public:
    Command(std::wstring global, std::wstring local, Adesk::Int32 flags, AcRxFunctionPtr fn, void* app,
            AcEdUIContext* ui, int fcode, HINSTANCE resource)
        : m_global(std::move(global)), m_local(std::move(local)), m_flags(flags), m_fn(fn), m_app(app),
          m_ui(ui), m_fcode(fcode), m_resource(resource)
    {
    }
    AcRxFunctionPtr functionAddr() const override { return m_fn; }
    void functionAddr(AcRxFunctionPtr fhdl) override { m_fn = fhdl; }
    void* commandApp() const override { return m_app; }
    AcEdUIContext* UIContext() const override { return m_ui; }
    int functionCode() const override { return m_fcode; }
    void functionCode(int fcode) override { m_fcode = fcode; }
    const ACHAR* globalName() const override { return m_global.c_str(); }
    const ACHAR* localName() const override { return m_local.c_str(); }
    Adesk::Int32 commandFlags() const override { return m_flags; }
    HINSTANCE resourceHandle() const override { return m_resource; }

private:
    std::wstring m_global;
    std::wstring m_local;
    Adesk::Int32 m_flags;
    AcRxFunctionPtr m_fn;
    void* m_app;
    AcEdUIContext* m_ui;
    int m_fcode;
    HINSTANCE m_resource;
};

class CommandStack : public AcEdCommandStack {
public:
    /// The command is tagged with the application whose message is being handled (see Loader).
    Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName, const ACHAR* cmdLocalName,
                                 Adesk::Int32 commandFlags, AcRxFunctionPtr functionAddr,
                                 AcEdUIContext* UIContext = nullptr, int fcode = -1,
                                 HINSTANCE hResourceHandle = nullptr, AcEdCommand** cmdPtrRet = nullptr) override;
    AcEdCommandIterator* iterator() override;
    AcEdCommand* lookupGlobalCmd(const ACHAR* cmdName) override;
    AcEdCommand* lookupLocalCmd(const ACHAR* cmdName) override;
    AcEdCommand* lookupCmd(const ACHAR* cmdName, bool globalFlag) override;
    Acad::ErrorStatus popGroupToTop(const ACHAR* cmdGroupName) override;
    Acad::ErrorStatus removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName) override;
    Acad::ErrorStatus removeGroup(const ACHAR* groupName) override;

    /// Finds a command as the command line does: a name that begins with "_" or "." (or both, in
    /// either order) is a global name, any other a local name. Null when there is none.
    AcEdCommand* lookupTyped(std::wstring_view typed);
    /// Group names from the top of the stack down.
    std::vector<std::wstring> groupNames() const;

    struct Group {
        std::wstring name;
        std::vector<std::unique_ptr<Command>> commands;
    };

private:
    Group* findGroup(std::wstring_view name);

    std::vector<Group> m_groups; ///< the last one is the top
};

/// The stack the host's system registry holds (what acedRegCmds gives).
CommandStack& commandStack();

} // namespace sim::app
