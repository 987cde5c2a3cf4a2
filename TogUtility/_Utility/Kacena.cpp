// Level mark commands (kac, kace): the command state with its settings per drawing and per UCS, the
// placing of marks with the leader drag and undo, and the recomputation of existing marks.
#include "StdAfx.h"
#include "Kacena.h"

#include <memory>
#include <vector>

#include "CTogAc.h"
#include "CTogEntity.h"
#include "CTogException.h"
#include "CTogFunkce.h"
#include "CTogFunkceDWG.h"
#include "CTogSet.h"
#include "CTogXRecord.h"
#include "OkrajPrikazu.h"
#include "_Dialogs/CTgDlgNastaveniKaceny.h"
#include "_Utility/TextKaceny.h"
#include "dbdynblk.h"

namespace {

constexpr const ACHAR* kSkupina = L"DlgKacena";
constexpr const ACHAR* kHladina = L"kóty_výškové";
constexpr double kMinOdkaz = 4.5;
constexpr double kKratkyOdkaz = 5.0;

AcDbDatabase* Databaze() { return acdbHostApplicationServices()->workingDatabase(); }

/// The base X of the leader drag: the drag function is a plain function of the host.
double g_zakladTazeni = 0.0;

int TahniOdkaz(ads_point kurzor, ads_matrix matice)
{
    if (kurzor[X] == g_zakladTazeni)
        return RTNONE;
    ads_point posun = {kurzor[X] - g_zakladTazeni, 0.0, 0.0};
    resbuf ucs, svet;
    ucs.restype = svet.restype = RTSHORT;
    ucs.resval.rint = 1;
    svet.resval.rint = 0;
    ads_point wcs;
    acedTrans(posun, &ucs, &svet, 1, wcs);
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            matice[i][j] = i == j ? 1.0 : 0.0;
    matice[0][3] = wcs[X];
    matice[1][3] = wcs[Y];
    matice[2][3] = wcs[Z];
    return RTNORM;
}

/// The key of the current UCS: its name, "WCS" for the world system, "" for an unnamed one.
AcString KlicUcs(AcDbDatabase* db)
{
    const bool papir = !db->tilemode() && CTogAc::NactiPromennou(L"CVPORT") == 1;
    AcDbUCSTableRecordPointer zaznam(papir ? db->pucsname() : db->ucsname(), AcDb::kForRead);
    if (zaznam.openStatus() == Acad::eOk) {
        AcString nazev;
        zaznam->getName(nazev);
        return nazev;
    }
    const AcGePoint3d pocatek = papir ? db->pucsorg() : db->ucsorg();
    const AcGeVector3d x = papir ? db->pucsxdir() : db->ucsxdir();
    const AcGeVector3d y = papir ? db->pucsydir() : db->ucsydir();
    const bool svet = pocatek.isEqualTo(AcGePoint3d::kOrigin) && x.isEqualTo(AcGeVector3d::kXAxis) &&
                      y.isEqualTo(AcGeVector3d::kYAxis);
    return svet ? AcString(L"WCS") : AcString();
}

/// One run of kac or kace: the settings read when it starts and stored when it ends, on every path.
class CTogKacena {
public:
    CTogKacena();
    ~CTogKacena();
    CTogKacena(const CTogKacena&) = delete;
    CTogKacena& operator=(const CTogKacena&) = delete;

    void Kac();
    void Kace();

private:
    NastaveniVysky Vyska() const;
    void Nastaveni();
    void Zpet();
    void VlozKacenu(const ads_point bod);
    void Uloz();

    bool m_absolutni = false;
    StavVyzvy m_stav;
    bool m_odkazVlevo = false;
    std::vector<AcDbObjectId> m_vlozene;
    int m_znamenko = 0;
    int m_ptatSe = 0;
    int m_viceradkovy = 0;
    AcString m_popisPod;
    AcString m_klicUcs;
    double m_prepocet = 1.0;
    double m_referencniVyska = 0.0;
    double m_delkaOdkazu = 0.0;
    double m_nulaAbsolutni = 0.0;
    int m_desetinnaMista = 2;
    AcGePoint2d m_zakladniBod;
};

CTogKacena::CTogKacena()
{
    AcDbDatabase* db = Databaze();
    const AcDb::UnitsValue jednotky = db->insunits();
    Adesk::Int32 cele = 0;
    m_znamenko = CTogXRecord::NactiZX(L"ZNAMENKO", cele, kSkupina) ? cele : (jednotky == AcDb::kUnitsMillimeters ? 1 : 0);
    m_desetinnaMista = CTogXRecord::NactiZX(L"DESMIST", cele, kSkupina) ? cele : (jednotky == AcDb::kUnitsMeters ? 2 : 3);
    if (m_desetinnaMista < 0 || m_desetinnaMista > 9)
        m_desetinnaMista = 3;
    if (!CTogXRecord::NactiZX(L"PREPOCET", m_prepocet, kSkupina))
        m_prepocet = CTogFunkceDWG::MetruNaJednotku(db);
    CTogXRecord::NactiZX(L"POPISPOD", m_popisPod, kSkupina);
    // The two flags are stored under each other's names.
    m_ptatSe = CTogXRecord::NactiZX(L"POPPODMULTILINE", cele, kSkupina) ? cele : 0;
    m_viceradkovy = CTogXRecord::NactiZX(L"POPPODPTATSE", cele, kSkupina) ? cele : 0;
    CTogXRecord::NactiZX(L"NULA_ABSOLUTNI", m_nulaAbsolutni, kSkupina);
    CTogXRecord::NactiZX(L"PRIDAT_ABSOLUTNI", m_absolutni, kSkupina);
    m_klicUcs = KlicUcs(db);
    AcGePoint3d bod;
    if (CTogXRecord::NactiZX(m_klicUcs + L"ZBOD", bod, kSkupina))
        m_zakladniBod.set(bod.x, bod.y);
    double vyska = 0.0;
    if (CTogXRecord::NactiZX(m_klicUcs + L"VYSKA", vyska, kSkupina))
        m_referencniVyska = vyska * m_prepocet;
}

CTogKacena::~CTogKacena() { Uloz(); }

void CTogKacena::Uloz()
{
    // Writes don't throw: a failure shows its box and the next value is stored all the same.
    const double vyska = m_prepocet != 0.0 ? m_referencniVyska / m_prepocet : m_referencniVyska;
    CTogXRecord::UlozDoX(L"ZNAMENKO", Adesk::Int32(m_znamenko), kSkupina);
    CTogXRecord::UlozDoX(L"DESMIST", Adesk::Int32(m_desetinnaMista), kSkupina);
    CTogXRecord::UlozDoX(L"PREPOCET", m_prepocet, kSkupina);
    CTogXRecord::UlozDoX(L"POPISPOD", m_popisPod.kwszPtr(), kSkupina);
    CTogXRecord::UlozDoX(L"POPPODMULTILINE", Adesk::Int32(m_ptatSe), kSkupina);
    CTogXRecord::UlozDoX(L"POPPODPTATSE", Adesk::Int32(m_viceradkovy), kSkupina);
    CTogXRecord::UlozDoX(L"NULA_ABSOLUTNI", m_nulaAbsolutni, kSkupina);
    CTogXRecord::UlozDoX(L"PRIDAT_ABSOLUTNI", m_absolutni, kSkupina);
    CTogXRecord::UlozDoX(m_klicUcs + L"ZBOD", AcGePoint3d(m_zakladniBod.x, m_zakladniBod.y, 0.0), kSkupina);
    CTogXRecord::UlozDoX(m_klicUcs + L"VYSKA", vyska, kSkupina);
}

NastaveniVysky CTogKacena::Vyska() const
{
    NastaveniVysky n;
    n.desetinnaMista = m_desetinnaMista;
    n.znamenko = m_znamenko != 0;
    n.prepocet = m_prepocet;
    n.referencniVyska = m_referencniVyska;
    n.zakladY = m_zakladniBod.y;
    n.nulaAbsolutni = m_nulaAbsolutni;
    return n;
}

void CTogKacena::Nastaveni()
{
    CTgDlgNastaveniKaceny dialog;
    dialog.m_znamenko = m_znamenko != 0;
    dialog.m_desetinnaMista = m_desetinnaMista;
    dialog.m_prepocet = m_prepocet;
    dialog.m_vyska = m_referencniVyska;
    dialog.m_zbodX = m_zakladniBod.x;
    dialog.m_zbodY = m_zakladniBod.y;
    dialog.m_popisPod = m_popisPod;
    dialog.m_ptatSe = m_ptatSe != 0;
    dialog.m_viceradkovy = m_viceradkovy != 0;
    dialog.m_pridatAbsolutni = m_absolutni;
    dialog.m_nulaAbsolutni = m_nulaAbsolutni;
    dialog.m_ucs = m_klicUcs;
    if (dialog.DoModal() != IDOK)
        return;
    m_znamenko = dialog.m_znamenko ? 1 : 0;
    m_desetinnaMista = dialog.m_desetinnaMista;
    m_prepocet = dialog.m_prepocet;
    m_referencniVyska = dialog.m_vyska;
    m_zakladniBod.set(dialog.m_zbodX, dialog.m_zbodY);
    m_popisPod = dialog.m_popisPod;
    m_ptatSe = dialog.m_ptatSe ? 1 : 0;
    m_viceradkovy = dialog.m_viceradkovy ? 1 : 0;
    m_absolutni = dialog.m_pridatAbsolutni;
    m_nulaAbsolutni = dialog.m_nulaAbsolutni;
}

void CTogKacena::Zpet()
{
    if (m_vlozene.empty())
        return;
    AcDbEntityPointer posledni(m_vlozene.back(), AcDb::kForWrite);
    if (posledni.openStatus() != Acad::eOk)
        throw CTogException("Nelze otevřít entitu pro zápis", __LINE__, __FILE__, posledni.openStatus());
    if (posledni->erase() != Acad::eOk) {
        acutPrintf(L"Nelze vymazat entitu");
        return;
    }
    m_vlozene.pop_back();
    m_stav.zpet = !m_vlozene.empty();
}

void CTogKacena::VlozKacenu(const ads_point bod)
{
    AcDbObjectId blok;
    CTogEntity::NajdiNeboNactiKacenu(blok);
    if (blok.isNull() || !AcDbDynBlockReference::isDynamicBlock(blok))
        throw CTogException("Blok kačeny (tg_kacena.dwg) nebyl nalezen v adresáři ...Utility\\_BLOKY\nnebo není dynamický blok - "
                            "porušená instalace utilit",
                            __LINE__, __FILE__);
    resbuf ucs, wcs;
    ucs.restype = wcs.restype = RTSHORT;
    ucs.resval.rint = 1;
    wcs.resval.rint = 0;
    ads_point vstup = {bod[X], bod[Y], 0.0}, svet;
    acedTrans(vstup, &ucs, &wcs, 0, svet);

    auto popis = std::make_unique<PopisBloku>();
    popis->blok = blok;
    AcString hladina = kHladina;
    popis->hladina = ZiskejHladinu(hladina, false);
    popis->pozice.set(svet[X], svet[Y], svet[Z]);
    ads_point osaX = {1.0, 0.0, 0.0}, osaXWcs, pocatek = {0.0, 0.0, 0.0};
    acedTrans(osaX, &ucs, &wcs, 1, osaXWcs);
    osaXWcs[Z] = 0.0;
    popis->rotace = acutAngle(pocatek, osaXWcs);

    const NastaveniVysky vyska = Vyska();
    AcString pod = m_popisPod;
    if (m_absolutni) {
        pod = TextAbsolutni(vyska, bod[Y]).c_str();
    } else if (m_ptatSe) {
        ACHAR odpoved[41] = {};
        AcString vyzva = L"\nZadej popis pod čarou <";
        vyzva += m_popisPod;
        vyzva += L">:";
        if (acedGetString(0, vyzva, odpoved, sizeof(odpoved) / sizeof(odpoved[0])) == RTNORM && odpoved[0] != 0)
            pod = odpoved;
    }
    popis->atributy[L"VYSKA"].text = TextVysky(vyska, bod[Y]).c_str();
    popis->atributy[L"POPIS"].text = pod;
    popis->atributy[L"POPIS"].viceradkovy = m_viceradkovy != 0;

    AcDbBlockTableRecordPointer modelovy(ACDB_MODEL_SPACE, Databaze(), AcDb::kForWrite);
    if (modelovy.openStatus() != Acad::eOk)
        throw CTogException("Nelze otevřít modelový prostor pro zápis", __LINE__, __FILE__, modelovy.openStatus());
    AcDbObjectId id;
    AcDbBlockReference* surova = nullptr;
    CTogEntity::VlozBlok(id, surova, *popis, modelovy, true, true);
    AcDbObjectPointer<AcDbBlockReference> reference;
    reference.acquire(surova);
    modelovy.close();

    auto nastav = [&](bool odkaz) {
        popis->dynVlastnosti[L"ODKAZ"] = CTogDynProp::Text(odkaz ? L"S odkazem" : L"Bez odkazu");
        popis->dynVlastnosti[L"DL_ODKAZU"] = CTogDynProp::Realne(odkaz ? m_delkaOdkazu : 0.0);
        popis->dynVlastnosti[L"ZRC_VERT"] = CTogDynProp::Kratke(m_stav.vertikalni == 2);
        popis->dynVlastnosti[L"ZRC_TEXTU"] = CTogDynProp::Kratke(m_stav.vertikalni == 2);
        popis->dynVlastnosti[L"ZRC_HORIZ_ODKAZU"] = CTogDynProp::Kratke(odkaz && m_odkazVlevo);
        popis->dynVlastnosti[L"ZRC_HORIZ"] =
            CTogDynProp::Kratke(m_odkazVlevo && odkaz ? m_stav.horizontalni == 1 : m_stav.horizontalni == 2);
        CTogEntity::NastavDynVlastnosti(reference, *popis);
    };

    if (m_stav.odkaz) {
        // The preview shows the bare mark.
        nastav(false);
        reference.close();
        g_zakladTazeni = bod[X];
        ads_name mnozina, jmeno;
        acdbGetAdsName(jmeno, id);
        acedSSAdd(jmeno, nullptr, mnozina);
        acedInitGet(64, nullptr);
        ads_point cil;
        const int vysledek = acedDragGen(mnozina, L"Zadej umístění kačeny: ", 0, TahniOdkaz, cil);
        acedSSFree(mnozina);
        if (vysledek == RTNORM) {
            ads_point a = {bod[X], bod[Y], 0.0}, b = {cil[X], cil[Y], 0.0};
            m_delkaOdkazu = acutDistance(a, b);
            if (m_delkaOdkazu < kMinOdkaz)
                m_delkaOdkazu = kKratkyOdkaz;
            m_odkazVlevo = bod[X] > cil[X];
        } else if (vysledek == RTNONE) {
            m_delkaOdkazu = kKratkyOdkaz;
            m_odkazVlevo = false;
        }
        if (reference.open(id, AcDb::kForWrite) != Acad::eOk)
            throw CTogException("Nelze otevřít entitu pro zápis", __LINE__, __FILE__, reference.openStatus());
        if (vysledek != RTNORM && vysledek != RTNONE) {
            reference->erase();
            return;
        }
    }
    nastav(m_stav.odkaz);
    m_vlozene.push_back(id);
    m_stav.zpet = true;
}

void CTogKacena::Kac()
{
    while (true) {
        m_odkazVlevo = false;
        std::wstring vyzva, klicova;
        SestavVyzvu(m_stav, vyzva, klicova);
        acedInitGet(64, klicova.c_str());
        ads_point bod;
        const int vysledek = acedGetPoint(nullptr, vyzva.c_str(), bod);
        switch (vysledek) {
        case RTNONE: Nastaveni(); break;
        case RTNORM: VlozKacenu(bod); break;
        case RTKWORD: {
            ACHAR slovo[64] = {};
            if (acedGetInput(slovo, sizeof(slovo) / sizeof(slovo[0])) != RTNORM)
                throw CTogException("AcedGetInput - chybné vyhodnocení funkce", __LINE__, __FILE__);
            if (slovo[0] == 0)
                throw CTogException("Nulová délka řetězce", __LINE__, __FILE__);
            switch (CTogFunkce::NaVelkyZnak(slovo[0])) {
            case L'B': m_stav.odkaz = false; break;
            case L'O': m_stav.odkaz = true; break;
            case L'H': m_stav.vertikalni = 1; break;
            case L'S': m_stav.vertikalni = 2; break;
            case L'P': m_stav.horizontalni = 1; break;
            case L'L': m_stav.horizontalni = 2; break;
            case L'N': Nastaveni(); break;
            case L'Z': Zpet(); break;
            default: break;
            }
            break;
        }
        case RTERROR: throw CTogException("AcedGetPoint skončilo chybou", __LINE__, __FILE__);
        case RTREJ: throw CTogException("AcedGetPoint - AutoCAD rejected the request as invalid", __LINE__, __FILE__);
        case RTCAN: return;
        default: break;
        }
    }
}

void CTogKacena::Kace()
{
    std::vector<AcDbObjectId> kaceny;
    ads_name mnozina = {0, 0};
    bool mamMnozinu = false;
    const ACHAR* vyzvy[] = {L"\nVyber kačeny k editaci, <Nastavení> (přidej objekty): ",
                            L"\nVyber kačeny k editaci, <Nastavení> (odeber objekty): "};
    std::unique_ptr<resbuf, int (*)(resbuf*)> filtr(acutBuildList(RTDXF0, L"INSERT", 0), acutRelRb);
    while (kaceny.empty()) {
        if (mamMnozinu)
            acedSSFree(mnozina);
        mamMnozinu = false;
        acedInitGet(0, L"N");
        const int vysledek = acedSSGet(L":$", vyzvy, nullptr, filtr.get(), mnozina);
        if (vysledek == RTNONE || vysledek == RTKWORD || vysledek == RTERROR) {
            Nastaveni();
            continue;
        }
        if (vysledek != RTNORM)
            return;
        mamMnozinu = true;
        Adesk::Int32 pocet = 0;
        acedSSLength(mnozina, &pocet);
        for (Adesk::Int32 i = 0; i < pocet; ++i) {
            ads_name jmeno;
            AcDbObjectId id;
            if (acedSSName(mnozina, i, jmeno) != RTNORM || acdbGetObjectId(id, jmeno) != Acad::eOk)
                continue;
            AcDbDynBlockReference dynamicky(id);
            if (!dynamicky.isDynamicBlock())
                continue;
            AcDbBlockTableRecordPointer definice(dynamicky.dynamicBlockTableRecord(), AcDb::kForRead);
            AcString nazev;
            if (definice.openStatus() == Acad::eOk && definice->getName(nazev) == Acad::eOk &&
                nazev.compareNoCase(CTogEntity::kKacena) == 0)
                kaceny.push_back(id);
        }
        if (kaceny.empty())
            acutPrintf(L"\nJe nutné vybrat kačenu (blok tg_kacena), vyberte znovu, nebo ESC konec: ");
    }
    if (mamMnozinu)
        acedSSFree(mnozina);

    const NastaveniVysky vyska = Vyska();
    for (AcDbObjectId id : kaceny) {
        AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
        if (reference.openStatus() != Acad::eOk)
            continue;
        const AcGePoint2d bod = CTogFunkceDWG::WcsNaUcs(AcGePoint2d(reference->position().x, reference->position().y));
        AcDbAttribute* surovy = nullptr;
        if (CTogEntity::NajdiAtribut(reference, surovy, L"VYSKA")) {
            AcDbObjectPointer<AcDbAttribute> atribut;
            atribut.acquire(surovy);
            atribut->setTextString(TextVysky(vyska, bod.y).c_str());
        }
        if (m_absolutni && CTogEntity::NajdiAtribut(reference, surovy, L"POPIS")) {
            AcDbObjectPointer<AcDbAttribute> atribut;
            atribut.acquire(surovy);
            atribut->setTextString(TextAbsolutni(vyska, bod.y).c_str());
        }
    }
}

} // namespace

void PrikazKac()
{
    ProvedPrikaz([] {
        if (!CTogFunkceDWG::JeUcs2d())
            throw CTogException("\nNastavené Ucs je ve 3d prostoru (není 2d), nelze spustit funkci kačena", __LINE__, __FILE__);
        CTogKacena stav;
        stav.Kac();
    });
}

void PrikazKace()
{
    ProvedPrikaz([] {
        CTogKacena stav;
        stav.Kace();
    });
}
