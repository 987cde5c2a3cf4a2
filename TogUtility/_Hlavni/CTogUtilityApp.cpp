// The application: load and unload, the documents' AutoLISP functions, and the exported entry point.
#include "StdAfx.h"
#include "CTogUtilityApp.h"
#include "CTogAc.h"
#include "OkrajPrikazu.h"
#include "TabulkaLisp.h"
#include "TabulkaPrikazu.h"
#include "ZatimNeni.h"

namespace {

constexpr const ACHAR* kVerze = L"2026";
constexpr int kSestaveni = 4;

} // namespace

AcRx::AppRetCode CTogUtilityApp::On_kInitAppMsg(void* pkt)
{
    AcRx::AppRetCode status = AcRxArxApp::On_kInitAppMsg(pkt);
    ProvedPrikaz([this] {
        ZalozNastaveni();
        PridejPrikaz(ZasobnikPrikazu(), kSkupinaNastaveni, {L"tuset", L"tuset", ACRX_CMD_USEPICKSET, PrikazTuset});
        RegistrujPrikazy();
        acutPrintf(L"\nÚspěšně načteny Togovy Utility verze: %ls (pro AutoCAD 2017 až 2023) - sestavení %i\n"
                   L"načten soubor: ",
                   kVerze, kSestaveni);
        NabidniNastaveniPriPrvnimSpusteni();
    });
    return status;
}

AcRx::AppRetCode CTogUtilityApp::On_kUnloadAppMsg(void* pkt)
{
    AcRxArxApp::On_kUnloadAppMsg(pkt);
    ProvedPrikaz([] {
        OdregistrujPrikazy();
        ZasobnikPrikazu()->removeGroup(kSkupinaNastaveni);
        UnregisterClassW(L"TreeList", GetModuleHandleW(nullptr));
    });
    ZrusNastaveni();
    return AcRx::kRetOK;
}

AcRx::AppRetCode CTogUtilityApp::On_kLoadDwgMsg(void* pkt)
{
    AcRxArxApp::On_kLoadDwgMsg(pkt);
    for (size_t i = 0; i < TabulkaLisp.size(); ++i) {
        acedDefun(TabulkaLisp[i].nazev, static_cast<int>(i));
        if (TabulkaLisp[i].registrovat)
            acedRegFunc(TabulkaLisp[i].funkce, static_cast<int>(i));
    }

    // Blocks inserted from the design centre and tool palettes are scaled from and to the drawing's
    // own units.
    int jednotky = acdbHostApplicationServices()->workingDatabase()->insunits();
    int zdroj = CTogAc::NactiPromennou(L"INSUNITSDEFSOURCE");
    int cil = CTogAc::NactiPromennou(L"INSUNITSDEFTARGET");
    if (zdroj != jednotky || cil != jednotky) {
        resbuf hodnota{};
        hodnota.restype = RTLONG;
        hodnota.resval.rlong = jednotky;
        acedSetVar(L"INSUNITSDEFSOURCE", &hodnota);
        acedSetVar(L"INSUNITSDEFTARGET", &hodnota);
    }
    return AcRx::kRetOK;
}

AcRx::AppRetCode CTogUtilityApp::On_kUnloadDwgMsg(void* pkt)
{
    AcRxArxApp::On_kUnloadDwgMsg(pkt);
    for (size_t i = 0; i < TabulkaLisp.size(); ++i)
        acedUndef(TabulkaLisp[i].nazev, static_cast<int>(i));
    return AcRx::kRetOK;
}

AcRx::AppRetCode CTogUtilityApp::On_kInvkSubrMsg(void* pkt)
{
    AcRxArxApp::On_kInvkSubrMsg(pkt);
    int kod = acedGetFunCode();
    if (kod >= 0 && static_cast<size_t>(kod) < TabulkaLisp.size())
        TabulkaLisp[static_cast<size_t>(kod)].funkce();
    return AcRx::kRetOK;
}

void CTogUtilityApp::PrikazTuset() { ProvedPrikaz([] { PrikazZatimNeni(L"tuset"); }); }

// The settings object (g_pNastaveni) comes with the registry and drawing stores; until then these
// three places hold no work.

// Creates the one settings object; it reads the prefix, NASTAVENO and Glob_prepinace.
void CTogUtilityApp::ZalozNastaveni() {}

// On the first run (NASTAVENO 0) asks whether to open the settings dialog.
void CTogUtilityApp::NabidniNastaveniPriPrvnimSpusteni() {}

// Destroys the settings object, which stores its values in the registry.
void CTogUtilityApp::ZrusNastaveni() {}

IMPLEMENT_ARX_ENTRYPOINT(CTogUtilityApp)
