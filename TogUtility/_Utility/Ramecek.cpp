// Sheet frame command (ram): the frame's block, its parameter code and the edit of an existing frame.
#include "StdAfx.h"
#include "Ramecek.h"

#include "CTogAc.h"
#include "CTogCmd.h"
#include "CTogEntity.h"
#include "CTogException.h"
#include "CTogFunkce.h"
#include "CTogFunkceDWG.h"
#include "CTogSet.h"
#include "OkrajPrikazu.h"
#include "VyberJedne.h"
#include "_Dialogs/CTgDlgRamecek.h"
#include "acedads.h"
#include "acutads.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dblaymgr.h"
#include "dbobjptr.h"
#include "rxregsvc.h"

#include <memory>

namespace {

AcDbDatabase* Databaze() { return acdbHostApplicationServices()->workingDatabase(); }

bool JeRamecek(AcString nazev)
{
    CTogFunkce::NaVelka(nazev);
    return std::wcsstr(nazev.kwszPtr(), CTogRamecek::kNazevBloku) != nullptr;
}

// The name of the definition a reference shows; empty when something can't be opened.
AcString JmenoBloku(AcDbObjectId idBloku)
{
    AcString nazev;
    AcDbObjectPointer<AcDbBlockTableRecord> blok(idBloku, AcDb::kForRead);
    if (blok.openStatus() == Acad::eOk)
        blok->getName(nazev);
    return nazev;
}

// The polyline of the vertices, closed, in the definition (open for write).
void PridejPolyline(AcDbBlockTableRecord* definice, const std::vector<RamecekGeometrie::Bod>& vrcholy, double z)
{
    auto cara = std::make_unique<AcDb2dPolyline>();
    cara->setDatabaseDefaults(definice->database());
    cara->setLayer(L"0");
    int chyby = cara->setPolyType(AcDb::k2dSimplePoly) + cara->makeClosed() + cara->setElevation(0.0) +
                cara->setDefaultStartWidth(0.0) + cara->setDefaultEndWidth(0.0);
    AcDbObjectId id;
    if (chyby == Acad::eOk)
        chyby = definice->appendAcDbEntity(id, cara.get());
    if (chyby != Acad::eOk)
        throw CTogException("Nelze vytvořit rámeček", __LINE__, __FILE__, chyby);
    AcDbObjectPointer<AcDb2dPolyline> vDatabazi;
    AcDb2dPolyline* vlozena = cara.release();
    vDatabazi.acquire(vlozena);
    for (const RamecekGeometrie::Bod& b : vrcholy) {
        auto vrchol = std::make_unique<AcDb2dVertex>(AcGePoint3d(b.x, b.y, z));
        if (vDatabazi->appendVertex(vrchol.get()) != Acad::eOk)
            throw CTogException("Nelze přidat vrchol rámečku", __LINE__, __FILE__);
        vrchol.release()->close();
    }
}

void PridejAtribut(AcDbBlockTableRecord* definice, const ACHAR* tag, const ACHAR* vyzva, const ACHAR* text,
                   const AcGePoint3d& bod, bool neviditelny, AcDbObjectId styl)
{
    auto atribut = std::make_unique<AcDbAttributeDefinition>();
    atribut->setDatabaseDefaults(definice->database());
    int chyby = atribut->setLayer(L"0") + atribut->setTag(tag) + atribut->setPrompt(vyzva) + atribut->setTextString(text) +
                atribut->setTextStyle(styl) + atribut->setHeight(2.3) + atribut->setRotation(0.0) +
                atribut->setHorizontalMode(AcDb::kTextRight) + atribut->setVerticalMode(AcDb::kTextBase) +
                atribut->setPosition(bod) + atribut->setAlignmentPoint(bod) + atribut->setConstant(true) +
                atribut->setVerifiable(false) + atribut->setPreset(false) + atribut->setFieldLength(25) +
                atribut->setInvisible(neviditelny);
    AcDbObjectId id;
    if (chyby == Acad::eOk)
        chyby = definice->appendAcDbEntity(id, atribut.get());
    if (chyby != Acad::eOk)
        throw CTogException("Nelze vytvořit atribut rámečku", __LINE__, __FILE__, chyby);
    atribut.release()->close();
}

} // namespace

bool CTogRamecek::s_existuje = false;

CTogRamecek::CTogRamecek()
{
    if (s_existuje)
        throw CTogException("Druhou instanci třídy rámeček nelze založit...", __LINE__, __FILE__);
    s_existuje = true;
}

CTogRamecek::~CTogRamecek() { s_existuje = false; }

void CTogRamecek::NajdiReference()
{
    CTogCmd::CNajdiBlokRefs hledani(Databaze(), kNazevBloku, true);
    hledani.ProjdiDwg(CTogCmd::kAktivniLayout, false, 1);
    reference = hledani.nalezene;
}

bool CTogRamecek::VyberExistujici(AcDbObjectId& idBloku, AcDbObjectId& idReference)
{
    if (reference.size() == 1) {
        idReference = reference.front();
        AcDbObjectPointer<AcDbBlockReference> ref(idReference, AcDb::kForRead);
        if (ref.openStatus() != Acad::eOk)
            throw CTogException("Ramecek - nelze otevřít AcDbBlockRefenrece", __LINE__, __FILE__, ref.openStatus());
        idBloku = ref->blockTableRecord();
        return true;
    }
    const FiltrTypu filtr({L"INSERT"});
    SadaVyberu sada;
    for (;;) {
        acutPrintf(L"\nVyber rámeček: ");
        int vysledek = RTNONE;
        if (!VyberDoSady(sada, L":S", filtr.Retezec(), &vysledek)) {
            if (vysledek == RTCAN)
                return false;
            continue;
        }
        const AcDbObjectId id = sada.Id(0);
        AcDbObjectPointer<AcDbBlockReference> ref(id, AcDb::kForRead);
        if (ref.openStatus() == Acad::eOk && JeRamecek(JmenoBloku(ref->blockTableRecord()))) {
            idReference = id;
            idBloku = ref->blockTableRecord();
            return true;
        }
        acutPrintf(L"\nNebyl vybrán rámeček, vyber znova nebo <Enter> pro nový: ");
    }
}

int CTogRamecek::CtiKodParametru(AcDbObjectId idBloku)
{
    AcDbObjectPointer<AcDbBlockTableRecord> blok(idBloku, AcDb::kForRead);
    if (blok.openStatus() != Acad::eOk)
        throw CTogException("Ramecek - nelze otevřít AcDbBlockTable Record", __LINE__, __FILE__, blok.openStatus());
    AcDbBlockTableRecordIterator* iterator = nullptr;
    if (blok->newIterator(iterator) != Acad::eOk || !iterator)
        throw CTogException("Ramecek - nelze otevřít AcDbBlockTable Record", __LINE__, __FILE__);
    const std::unique_ptr<AcDbBlockTableRecordIterator> drzIterator(iterator);
    for (; !iterator->done(); iterator->step()) {
        AcDbEntity* entita = nullptr;
        const Acad::ErrorStatus es = iterator->getEntity(entita, AcDb::kForRead);
        if (es != Acad::eOk)
            throw CTogException("Ramecek - nelze otevřít entitu blockRecodru při procházeí iterátorem", __LINE__, __FILE__, es);
        AcDbObjectPointer<AcDbEntity> drzEntitu;
        drzEntitu.acquire(entita);
        if (drzEntitu->isA() != AcDbAttributeDefinition::desc())
            continue;
        const auto* definice = static_cast<const AcDbAttributeDefinition*>(drzEntitu.object());
        AcString tag = definice->tagConst();
        CTogFunkce::NaVelka(tag);
        if (tag != AcString(kTagParametru))
            continue;
        if (auto precteno = RamecekGeometrie::CtiKod(definice->textStringConst())) {
            p = *precteno;
            return 1;
        }
        break;
    }
    acutPrintf(L"\nNekonzistentní definice rámečku, nastavuji defaultní hodnoty");
    return 0;
}

int CTogRamecek::EditujExistujici(AcDbObjectId idReference, AcDbObjectId idBloku, CTgDlgRamecek& dlg)
{
    {
        AcDbObjectPointer<AcDbBlockReference> ref(idReference, AcDb::kForRead);
        if (ref.openStatus() != Acad::eOk)
            throw CTogException("Ramecek - nelze otevřít AcDbBlockRefenrece", __LINE__, __FILE__, ref.openStatus());
        vlozeni = ref->position();
        hladina = ref->layerId();
    }
    INT_PTR vysledek;
    if (CtiKodParametru(idBloku)) {
        dlg.m_sirka = p.sirka;
        dlg.m_vyska = p.vyska;
        dlg.m_dvojity = p.dvojity ? 1 : 0;
        dlg.m_popis = p.popis ? 1 : 0;
        dlg.m_presah = p.presah;
        dlg.m_roztec = p.roztec;
        dlg.m_netisk = 0;
        vysledek = dlg.SpustProEditaci();
    } else {
        vysledek = dlg.DoModal();
    }
    if (vysledek != IDOK)
        return 0;

    {
        AcDbObjectPointer<AcDbBlockReference> ref(idReference, AcDb::kForWrite);
        if (ref.openStatus() != Acad::eOk)
            throw CTogException("Ramecek - nelze otevřít AcDbBlockRefenrece", __LINE__, __FILE__, ref.openStatus());
        ref->erase();
    }
    AcDbObjectPointer<AcDbBlockTableRecord> blok(idBloku, AcDb::kForWrite);
    if (blok.openStatus() != Acad::eOk)
        throw CTogException("Ramecek - nelze otevřít AcDbBlockTable Record", __LINE__, __FILE__, blok.openStatus());
    // A definition that other references still show stays.
    AcDbObjectIdArray pouziti;
    blok->getBlockReferenceIds(pouziti);
    if (pouziti.isEmpty())
        blok->erase();
    return 1;
}

void CTogRamecek::PrevezmiZDialogu(const CTgDlgRamecek& dlg)
{
    p.sirka = dlg.m_sirka;
    p.vyska = dlg.m_vyska;
    p.dvojity = dlg.m_dvojity != 0;
    p.popis = dlg.m_popis != 0;
    p.presah = dlg.m_presah;
    p.roztec = dlg.m_roztec;
    modul = RamecekGeometrie::Modul(p.sirka);
}

void CTogRamecek::VytvorBlok(AcString& nazev)
{
    AcDbDatabase* db = Databaze();
    const AcDbObjectId styl = ZiskejTextStyl(L"TG_TXT_MALY");
    AcDbObjectId idBloku;
    {
        AcDbBlockTableRecord* zaznam = nullptr;
        NazevBloku jmeno{kNazevBloku, 0};
        CTogEntity::NovyBlok(idBloku, zaznam, jmeno);
        AcDbObjectPointer<AcDbBlockTableRecord> definice;
        definice.acquire(zaznam);
        nazev = jmeno.Nazev();

        const RamecekGeometrie::Bod r{roh.x, roh.y};
        PridejPolyline(definice, RamecekGeometrie::VnejsiRamecek(r, p.sirka, p.vyska, modul, p.presah), roh.z);
        if (p.dvojity)
            PridejPolyline(definice, RamecekGeometrie::VnitrniRamecek(r, p.sirka, p.vyska, p.roztec), roh.z);
        PridejAtribut(definice, kTagPopisu, L"Popis Rámečku:", RamecekGeometrie::Popis(p.sirka, p.vyska).c_str(),
                      AcGePoint3d(roh.x - 5.0, roh.y + 1.5, 0.0), !p.popis, styl);
        PridejAtribut(definice, kTagParametru, L"xx: ", RamecekGeometrie::Kod(p).c_str(),
                      AcGePoint3d(roh.x - 100.0, roh.y + 1.5, 0.0), true, styl);
    }

    // On a layout the frame is the paper size; in model space it grows with the annotation scale.
    const bool model = CTogAc::NactiPromennou(L"TILEMODE") != 0;
    const double meritko = model ? CTogFunkceDWG::MeritkoAnotace() : 1.0;
    PopisBloku popis;
    popis.blok = idBloku;
    popis.hladina = hladina;
    popis.pozice = vlozeni;
    popis.rotace = 0.0;
    popis.meritkoXZ = meritko;
    popis.meritkoY = meritko;

    AcDbBlockTableRecordPointer prostor;
    if (!model && CTogAc::NactiPromennou(L"CVPORT") == 1)
        prostor.open(acdbLayoutManager()->getActiveLayoutBTRId(db), AcDb::kForWrite);
    else
        prostor.open(ACDB_MODEL_SPACE, db, AcDb::kForWrite);
    if (prostor.openStatus() != Acad::eOk)
        throw CTogException("Nelze otevřít pBlockTableRecord Layoutu", __LINE__, __FILE__, prostor.openStatus());
    AcDbObjectId idReference;
    AcDbBlockReference* vlozena = nullptr;
    CTogEntity::VlozBlok(idReference, vlozena, popis, prostor, false, false);
    if (idReference.isNull())
        acutPrintf(L"\nBlok nebyl vytvořen");
}

void PrikazRam()
{
    ProvedPrikaz([] {
        if (!CTogFunkceDWG::JeUcs2d())
            throw CTogException("\nNastavené UCS je ve 3d prostoru (není 2d), nelze spustit funkci rámeček", __LINE__, __FILE__);
        CTogRamecek ramecek;
        ramecek.NajdiReference();
        const bool jsou = !ramecek.reference.empty();

        acedInitGet(64, L"N");
        ads_point bod = {0, 0, 0};
        const int vysledek = acedGetPoint(nullptr,
                                          jsou ? L"\nZadej pravý dolní roh nebo <Enter> vyber existující rámeček k editaci, [Nula]: "
                                               : L"\nZadej pravý dolní roh, [Nula, nula] <0,0>: ",
                                          bod);
        bool novy;
        switch (vysledek) {
        case RTNORM:
            // As the host gave it, in the current UCS; the command demands only a flat UCS.
            ramecek.vlozeni = AcGePoint3d(bod[0], bod[1], bod[2]);
            novy = true;
            break;
        case RTKWORD: novy = true; break;
        case RTNONE: novy = !jsou; break;
        case RTERROR: throw CTogException("AcedGetPoint skončilo chybou", __LINE__, __FILE__);
        case RTREJ: throw CTogException("AcedGetPoint - AutoCAD rejected the request as invalid", __LINE__, __FILE__);
        default: return;
        }

        CTgDlgRamecek dlg;
        if (novy) {
            if (dlg.DoModal() != IDOK)
                return;
            AcString vrstva = dlg.m_netisk ? L"netisk" : L"rámeček";
            ramecek.hladina = ZiskejHladinu(vrstva, false);
        } else {
            AcDbObjectId idBloku, idReference;
            if (!ramecek.VyberExistujici(idBloku, idReference))
                return;
            if (!ramecek.EditujExistujici(idReference, idBloku, dlg))
                return;
        }
        ramecek.PrevezmiZDialogu(dlg);
        AcString nazev;
        ramecek.VytvorBlok(nazev);
    });
}
