// The application classes of the host's SDK: AcRxDbxApp and AcRxArxApp turn the messages of
// acrxEntryPoint into virtual handlers and do the standard start (module handle, unlock, MDI).
#pragma once
#include <windows.h>
#include "rxregsvc.h"

/// The module handle of the application, set before the host sends kInitAppMsg (DllMain does it in
/// a Windows build; the platform's loader here).
extern HINSTANCE _hdllInstance;

class AcRxDbxApp {
public:
    AcRxDbxApp() = default;
    virtual ~AcRxDbxApp() = default;

    /// Takes the module handle and, as the flags say, unlocks the application and registers it as
    /// MDI aware. Derived handlers call it first.
    virtual AcRx::AppRetCode On_kInitAppMsg(void* pkt)
    {
        m_hdllInstance = _hdllInstance;
        if (m_bUnlocked)
            acrxDynamicLinker->unlockApplication(pkt);
        if (m_bMDIAware)
            acrxDynamicLinker->registerAppMDIAware(pkt);
        return AcRx::kRetOK;
    }
    virtual AcRx::AppRetCode On_kUnloadAppMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kLoadDwgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kUnloadDwgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kInvkSubrMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kCfgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kEndMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kQuitMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kSaveMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kDependencyMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kNoDependencyMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kOleUnloadAppMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kPreQuitMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kInitDialogMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kEndDialogMsg(void*) { return AcRx::kRetOK; }

    /// Sends a message to its handler. Messages above kEndDialogMsg have none and give kRetOK.
    virtual AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt)
    {
        switch (msg) {
        case AcRx::kInitAppMsg: return On_kInitAppMsg(pkt);
        case AcRx::kUnloadAppMsg: return On_kUnloadAppMsg(pkt);
        case AcRx::kLoadDwgMsg: return On_kLoadDwgMsg(pkt);
        case AcRx::kUnloadDwgMsg: return On_kUnloadDwgMsg(pkt);
        case AcRx::kInvkSubrMsg: return On_kInvkSubrMsg(pkt);
        case AcRx::kCfgMsg: return On_kCfgMsg(pkt);
        case AcRx::kEndMsg: return On_kEndMsg(pkt);
        case AcRx::kQuitMsg: return On_kQuitMsg(pkt);
        case AcRx::kSaveMsg: return On_kSaveMsg(pkt);
        case AcRx::kDependencyMsg: return On_kDependencyMsg(pkt);
        case AcRx::kNoDependencyMsg: return On_kNoDependencyMsg(pkt);
        case AcRx::kOleUnloadAppMsg: return On_kOleUnloadAppMsg(pkt);
        case AcRx::kPreQuitMsg: return On_kPreQuitMsg(pkt);
        case AcRx::kInitDialogMsg: return On_kInitDialogMsg(pkt);
        case AcRx::kEndDialogMsg: return On_kEndDialogMsg(pkt);
        default: return AcRx::kRetOK;
        }
    }

    virtual void RegisterServerComponents() {}
    HINSTANCE GetModuleInstance() const { return m_hdllInstance; }

protected:
    HINSTANCE m_hdllInstance = nullptr;
    bool m_bUnlocked = true;  ///< the host may unload the application
    bool m_bMDIAware = true;  ///< the application works with several documents open
};

/// An application of the editor (not only of the database): the same start, for the host program.
class AcRxArxApp : public AcRxDbxApp {
public:
    AcRxArxApp() = default;
};

/// Defines the one application object and the exported entry point that hands it every message.
#define IMPLEMENT_ARX_ENTRYPOINT(classname)                                                     \
    classname theArxApp;                                                                        \
    extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt)                 \
    {                                                                                           \
        return theArxApp.acrxEntryPoint(msg, pkt);                                              \
    }
