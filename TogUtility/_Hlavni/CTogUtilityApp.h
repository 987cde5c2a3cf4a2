// CTogUtilityApp: the application object that the host's messages reach through acrxEntryPoint.
#pragma once
#include "acrxEntryPoint.h"

class CTogUtilityApp : public AcRxArxApp {
public:
    /// Start of the application: registers the commands, prints the banner. A failure after the base
    /// start is shown in the exception box; the application stays loaded with what was registered.
    AcRx::AppRetCode On_kInitAppMsg(void* pkt) override;
    /// Removes the commands, the filter and the TreeList window class. Always kRetOK.
    AcRx::AppRetCode On_kUnloadAppMsg(void* pkt) override;
    /// A document opened: defines the AutoLISP functions and brings INSUNITSDEFSOURCE and
    /// INSUNITSDEFTARGET to the drawing's units.
    AcRx::AppRetCode On_kLoadDwgMsg(void* pkt) override;
    /// A document closes: removes the AutoLISP functions.
    AcRx::AppRetCode On_kUnloadDwgMsg(void* pkt) override;
    /// An AutoLISP function of the application was called: runs the entry of its function number.
    AcRx::AppRetCode On_kInvkSubrMsg(void* pkt) override;

    /// The command `tuset`: the settings dialog.
    static void PrikazTuset();

private:
    void ZalozNastaveni();
    void NabidniNastaveniPriPrvnimSpusteni();
    void ZrusNastaveni();
};
