// The dynamic linker: loads applications through their entry point as the host does and keeps their
// lock and MDI state; documents opened or closed while applications are loaded are announced to them.
#pragma once
#include <list>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>
#include "rxregsvc.h"

namespace sim::app {

using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);

/// A loaded application. Its address is the application id that kInitAppMsg carries.
struct Application {
    std::wstring name;
    EntryPoint entry = nullptr;
    bool locked = true; ///< applications start locked; unlockApplication lets the host unload them
    bool mdiAware = false;
    HINSTANCE module = nullptr;
};

class DynamicLinker : public AcRxDynamicLinker {
public:
    bool unlockApplication(void* appId) const override;
    bool lockApplication(void* appId) const override;
    bool isApplicationLocked(const ACHAR* name) const override;
    bool registerAppMDIAware(void* appId) const override;
    bool registerAppNotMDIAware(void* appId) const override;

    /// Loads an application: kInitAppMsg, then kLoadDwgMsg for each open document, each made current
    /// in turn. Null, with the reason in error, when the name is taken or the application answers
    /// kInitAppMsg with an error (it is then dropped without further messages).
    Application* load(std::wstring name, EntryPoint entry, std::wstring* error = nullptr);
    /// Unloads: kUnloadDwgMsg for each open document, then kUnloadAppMsg. A locked application
    /// stays (false), unless force is set, as when the host quits.
    bool unload(Application& app, bool force = false);
    /// Unloads every application, the last loaded first, locked or not.
    void unloadAll();

    Application* find(std::wstring_view name) const;
    Application* find(void* appId) const;
    const std::list<std::unique_ptr<Application>>& applications() const { return m_apps; }

    /// Sends one message to an application, which is the current application meanwhile (what
    /// commands and AutoLISP functions it registers are tagged with).
    AcRx::AppRetCode send(Application& app, AcRx::AppMsgCode msg, void* pkt = nullptr) const;
    /// A document was opened or is about to close: loaded applications get kLoadDwgMsg or
    /// kUnloadDwgMsg while it is current.
    void documentOpened(void* doc) const;
    void documentClosing(void* doc) const;

private:
    std::list<std::unique_ptr<Application>> m_apps;
};

/// The linker the host's system registry holds.
DynamicLinker& dynamicLinker();

/// The application whose message is being handled, or null outside any.
Application* currentApplication();
/// currentApplication as the id the host's calls take.
void* currentApplicationId();

} // namespace sim::app
