// The command table of the group TOGU_utility and its registration.
#include "StdAfx.h"
#include "TabulkaPrikazu.h"
#include "CTogException.h"
#include "CTogFunkce.h"
#include "CTogReactors.h"
#include "Koty.h"
#include "_Utility/CTogMultiTrubky.h"
#include "_Utility/CTogSpojUsecky.h"
#include "_Utility/Izolace.h"
#include "_Utility/Kacena.h"
#include "_Utility/Modifikace.h"
#include "_Utility/Ramecek.h"
#include "_Utility/SlozeniOdkazu.h"
#include "_Utility/Utility.h"

const std::array<PolozkaPrikazu, 30> TabulkaPrikazu = {{
    {L"ca", L"ca", ACRX_CMD_USEPICKSET, PrikazCa},
    {L"ra", L"ra", ACRX_CMD_USEPICKSET, PrikazRa},
    {L"rak", L"rak", ACRX_CMD_USEPICKSET, PrikazRak},
    {L"mat", L"mat", ACRX_CMD_USEPICKSET, PrikazMat},
    {L"z0", L"jur", ACRX_CMD_USEPICKSET, PrikazZ0},
    {L"kub", L"kub", ACRX_CMD_USEPICKSET, PrikazKub},
    {L"tv", L"tv", ACRX_CMD_USEPICKSET, PrikazTv},
    {L"ss", L"ss", ACRX_CMD_USEPICKSET, PrikazSs},
    {L"ssa", L"ssa", ACRX_CMD_USEPICKSET, PrikazSsa},
    {L"lt1", L"lt1", ACRX_CMD_USEPICKSET, PrikazLt1},
    {L"mtcf", L"mtcf", ACRX_CMD_USEPICKSET, PrikazMtcf},
    {L"sp", L"sp", ACRX_CMD_USEPICKSET, PrikazSp},
    {L"kac", L"kac", ACRX_CMD_USEPICKSET, PrikazKac},
    {L"kace", L"kace", ACRX_CMD_USEPICKSET, PrikazKace},
    {L"ed", L"ed", ACRX_CMD_USEPICKSET, PrikazEd},
    {L"cmm", L"cmm", ACRX_CMD_USEPICKSET, PrikazCmm},
    {L"vvs", L"vvs", ACRX_CMD_USEPICKSET, PrikazVvs},
    {L"vvvv", L"vvvv", ACRX_CMD_USEPICKSET, PrikazVvvv},
    {L"mut", L"mut", ACRX_CMD_USEPICKSET, PrikazMut},
    {L"ko", L"ko", ACRX_CMD_USEPICKSET, PrikazKo},
    {L"li", L"li", ACRX_CMD_USEPICKSET, PrikazLi},
    {L"pro", L"pro", ACRX_CMD_USEPICKSET, PrikazPro},
    {L"nactiGPS", L"nactiGPS", ACRX_CMD_USEPICKSET, PrikazNactiGPS},
    {L"nactiJTSK", L"nactiJTSK", ACRX_CMD_USEPICKSET, PrikazNactiJTSK},
    {L"ZobrazCTB", L"ZobrazCTB", ACRX_CMD_USEPICKSET, ZobrazCTB},
    {L"CISTIVYSKY", L"CISTIVYSKY", ACRX_CMD_USEPICKSET, PrikazCistiVysky},
    {L"SMAZTEXTY", L"SMAZTEXTY", ACRX_CMD_USEPICKSET, PrikazSmazTexty},
    {L"TEPIZOL", L"TEPIZOL", ACRX_CMD_USEPICKSET, PrikazTepIzol},
    {L"preved", L"preved", ACRX_CMD_USEPICKSET, PrikazPreved},
    {L"ram", L"ram", ACRX_CMD_MODAL, PrikazRam},
}};

AcEdCommandStack* ZasobnikPrikazu()
{
    AcRxObject* objekt = acrxSysRegistry()->at(ACRX_COMMAND_DOCK);
    if (objekt == nullptr || !objekt->isKindOf(AcEdCommandStack::desc()))
        throw CTogException("Nelze získat zásobník příkazů AutoCADu", __LINE__, __FILE__);
    return AcEdCommandStack::cast(objekt);
}

void PridejPrikaz(AcEdCommandStack* zasobnik, const ACHAR* skupina, const PolozkaPrikazu& prikaz)
{
    Acad::ErrorStatus es = zasobnik->addCommand(skupina, prikaz.globalniNazev, prikaz.mistniNazev, prikaz.priznaky,
                                                prikaz.funkce, nullptr, -1, nullptr);
    if (es != Acad::eOk)
        throw CTogException("Nelze zaregistrovat příkaz " + CTogFunkce::DoUtf8(prikaz.globalniNazev), __LINE__,
                            __FILE__, es);
}

void RegistrujPrikazy()
{
    AcEdCommandStack* zasobnik = ZasobnikPrikazu();
    for (const PolozkaPrikazu& prikaz : TabulkaPrikazu)
        PridejPrikaz(zasobnik, kSkupinaUtilit, prikaz);
    acedRegisterFilterWinMsg(CTogReactors::FiltrDvojkliku);
}

void OdregistrujPrikazy()
{
    acedRemoveFilterWinMsg(CTogReactors::FiltrDvojkliku);
    // A group that isn't there (a load that failed halfway) is as good as removed.
    ZasobnikPrikazu()->removeGroup(kSkupinaUtilit);
}
