// The application: load and unload, the documents' AutoLISP functions, and the exported entry point.
#include "StdAfx.h"
#include "CTogUtilityApp.h"
#include "CTogAc.h"
#include "CTogBaseNastav.h"
#include "OkrajPrikazu.h"
#include "TabulkaLisp.h"
#include "TabulkaPrikazu.h"
#include "TogDraw.h"

namespace {

constexpr const ACHAR* kVerze = L"2026";
constexpr int kSestaveni = 4;
constexpr const ACHAR* kNazevAplikace = L"Togovy Utility pro AutoCad";

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
        TogDraw::SmazZnacky(true, true);
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

void CTogUtilityApp::PrikazTuset()
{
    ProvedPrikaz([] { g_pNastaveni->SpustDialogNastaveni(); });
}

// Creates the one settings object; it reads the prefix, NASTAVENO and Glob_prepinace. A second one
// throws, and the first stays in place.
void CTogUtilityApp::ZalozNastaveni() { g_pNastaveni = new CTogBaseNastav; }

// On the first run (NASTAVENO 0) asks whether to open the settings dialog.
void CTogUtilityApp::NabidniNastaveniPriPrvnimSpusteni()
{
    if (g_pNastaveni->NASTAVENO != 0)
        return;
    int odpoved = MessageBoxW(adsw_acadMainWnd(),
                              L"První spuštění - není nastavena např. předpona pro hladiny\n"
                              L"Spustit dialog nastavení Utilit?",
                              kNazevAplikace, MB_YESNO | MB_ICONQUESTION);
    if (odpoved == IDYES)
        g_pNastaveni->SpustDialogNastaveni();
}

// Destroys the settings object, which stores its values in the registry.
void CTogUtilityApp::ZrusNastaveni()
{
    delete g_pNastaveni;
    g_pNastaveni = nullptr;
}

IMPLEMENT_ARX_ENTRYPOINT(CTogUtilityApp)
