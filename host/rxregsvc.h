// The host's run-time registry: application messages and return codes, the system registry
// dictionary, the dynamic linker that loads applications, and the exported entry point.
#pragma once
#include "adesk.h"
#include "rxobject.h"

namespace AcRx {

/// Messages the host sends to an application's entry point.
enum AppMsgCode {
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9,
    kDependencyMsg = 10,
    kNoDependencyMsg = 11,
    kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13,
    kInitDialogMsg = 14,
    kEndDialogMsg = 15,
    kSuspendMsg = 16,
    kInitTabGroupMsg = 17,
    kEndTabGroupMsg = 18
};

/// What an application answers to a message.
enum AppRetCode {
    kRetOK = 0,
    kRetError = 3
};

} // namespace AcRx

/// A dictionary of named run-time objects. The system registry is one.
class AcRxDictionary : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDictionary);
    /// The object stored under the key (case-sensitive), or null. The dictionary keeps it.
    virtual AcRxObject* at(const ACHAR* key) const = 0;
    virtual bool has(const ACHAR* key) const = 0;
    virtual Adesk::UInt32 numEntries() const = 0;
};

/// The host's system registry: the command stack under ACRX_COMMAND_DOCK, the dynamic linker under
/// ACRX_DYNAMIC_LINKER. The host owns it.
AcRxDictionary* acrxSysRegistry();

#define ACRX_DYNAMIC_LINKER L"DynamicLinker"
#define ACRX_COMMAND_DOCK L"ACAD_REGISTERED_COMMANDS"

/// Loads and unloads applications and keeps their lock and MDI state. appId is the packet the
/// host passed with kInitAppMsg.
class AcRxDynamicLinker : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);
    /// Lets the host unload the application later; false for an unknown appId.
    virtual bool unlockApplication(void* appId) const = 0;
    virtual bool lockApplication(void* appId) const = 0;
    /// True when the application of that name is loaded and locked.
    virtual bool isApplicationLocked(const ACHAR* name) const = 0;
    /// Declares the application able to work with several documents open.
    virtual bool registerAppMDIAware(void* appId) const = 0;
    virtual bool registerAppNotMDIAware(void* appId) const = 0;
};

#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))

/// The one function an application exports; the host calls it with each message. pkt is the
/// application id for kInitAppMsg and kUnloadAppMsg (what the dynamic linker's calls take).
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt);
