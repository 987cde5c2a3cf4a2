// Multi-pipe drawing command (mut).
#include "StdAfx.h"
#include "CTogMultiTrubky.h"
#include <algorithm>
#include "CTogException.h"
#include "CTogFunkceDWG.h"
#include "CTogSet.h"
#include "CTogXRecord.h"
#include "MultiTrubkyGeometrie.h"
#include "OkrajPrikazu.h"
#include "_Dialogs/CTgDlgMultiTrubky.h"
#include "acadwnd.h"
#include "dbobjptr.h"

using namespace MultiTrubkyGeometrie;

namespace {

AcDbDatabase* PracovniDatabaze() { return acdbHostApplicationServices()->workingDatabase(); }

const ACHAR* const kVychoziHladiny[] = {L"ZT-voda_SV", L"ZT-voda_TUV", L"ZT-voda_CIRK"};

void Varuj(const ACHAR* text) { MessageBoxW(adsw_acadMainWnd(), text, L"Togovy Utility pro AutoCad", MB_OK | MB_ICONWARNING); }

AcGePoint3d Bod3d(const AcGePoint2d& p) { return AcGePoint3d(p.x, p.y, 0.0); }

} // namespace

CTogMultiTrubky::CTogMultiTrubky()
{
    AcDbDatabase* db = PracovniDatabaze();
    m_metruNaJednotku = CTogFunkceDWG::MetruNaJednotku(db);
    if (!CTogXRecord::NactiZX(L"ROZTEC", Roztec, kSkupina))
        Roztec = 100.0 / m_metruNaJednotku / 1000.0;
    Adesk::Int32 typ = 2;
    if (CTogXRecord::NactiZX(L"TYPVEDENI", typ, kSkupina))
        TypVedeni = typ;
    resbuf* seznam = nullptr;
    if (CTogXRecord::NactiChain(CTogXRecord::Klic(L"SEZNAMHLADIN", kSkupina), seznam)) {
        for (resbuf* rb = seznam; rb; rb = rb->rbnext)
            if (rb->restype == AcDb::kDxfText && rb->resval.rstring)
                Hladiny.emplace_back(rb->resval.rstring);
        acutRelRb(seznam);
    }
    if (Hladiny.size() < 2)
        Hladiny.assign(std::begin(kVychoziHladiny), std::end(kVychoziHladiny));
    NajdiHladiny();
    // 20 mm serves the points only: the directions of the corner checks are compared as unit vectors
    // (MultiTrubkyGeometrie), since 20 as a vector tolerance would call any two directions equal.
    const double tolerance = CTogFunkceDWG::Jednotek20mm(db);
    Tolerance.setEqualPoint(tolerance);
    Tolerance.setEqualVector(tolerance);
}

CTogMultiTrubky::~CTogMultiTrubky()
{
    CTogXRecord::UlozDoX(L"ROZTEC", Roztec, kSkupina);
    CTogXRecord::UlozDoX(L"TYPVEDENI", static_cast<Adesk::Int32>(TypVedeni), kSkupina);
    resbuf* seznam = nullptr;
    resbuf* posledni = nullptr;
    for (const AcString& nazev : Hladiny) {
        resbuf* rb = acutNewRb(AcDb::kDxfText);
        acutNewString(nazev.kwszPtr(), rb->resval.rstring);
        (posledni ? posledni->rbnext : seznam) = rb;
        posledni = rb;
    }
    if (seznam && !CTogXRecord::UlozChain(CTogXRecord::Klic(L"SEZNAMHLADIN", kSkupina), seznam))
        acutRelRb(seznam);
}

void CTogMultiTrubky::NajdiHladiny()
{
    HladinyId.clear();
    for (const AcString& nazev : Hladiny) {
        // A layer of the drawing by its whole name, else the standard layer of that name.
        AcDbObjectId id = IdHladiny(nazev);
        if (id.isNull()) {
            AcString kopie = nazev;
            id = ZiskejHladinu(kopie, false);
        }
        if (id.isNull())
            throw CTogException("Nelze založit standardní hladiny", __LINE__, __FILE__);
        HladinyId.push_back(id);
    }
}

void CTogMultiTrubky::Prohod()
{
    std::reverse(Hladiny.begin(), Hladiny.end());
    std::reverse(HladinyId.begin(), HladinyId.end());
}

void CTogMultiTrubky::Nastaveni()
{
    // The dialog lists the pipes as they lie when drawn from left to right: the top one first.
    std::vector<AcString> seznam(Hladiny.rbegin(), Hladiny.rend());
    CString roztec;
    roztec.Format(L"%i", static_cast<int>(m_metruNaJednotku * Roztec * 1000.0));
    CTgDlgMultiTrubky dialog(&seznam, roztec, TypVedeni);
    dialog.DoModal();
    Hladiny.assign(seznam.rbegin(), seznam.rend());
    NajdiHladiny();
    TypVedeni = dialog.m_typVedeni;
    Roztec = _wtof(dialog.m_roztec) / m_metruNaJednotku / 1000.0;
}

bool CTogMultiTrubky::ZadejPocatek()
{
    for (;;) {
        acedInitGet(64, L"T N");
        ads_point bod;
        const int rc = acedGetPoint(nullptr, L"Zadej počátek nebo [Napojit T-kus/Nastavení], <Nastavení>: ", bod);
        if (rc == RTNORM) {
            Pocatek = AcGePoint2d(bod[X], bod[Y]);
            return true;
        }
        if (rc == RTNONE) {
            Nastaveni();
            continue;
        }
        if (rc == RTKWORD) {
            ACHAR slovo[50] = L"";
            if (acedGetInput(slovo, 49) != RTNORM) {
                acutPrintf(L"\nTogovy Utility Error - chybné vyhodnocení funkce AcedGetInput");
                return false;
            }
            if (slovo[0] == L'N')
                Nastaveni();
            // "T": a tee connection has no more to it than the prompt again.
            continue;
        }
        acutPrintf(L"\nNic nebylo vybráno...");
        return false;
    }
}

void CTogMultiTrubky::KresliUseky()
{
    AcGePoint2d b = Pocatek;
    bool prohozeno = false;
    for (;;) {
        acedInitGet(64, L"Z P");
        ads_point zaklad = {b.x, b.y, 0.0}, bod;
        const int rc = acedGetPoint(zaklad, L"\nZadej další bod nebo [Zpět/Prohoď], <Konec>: ", bod);
        if (rc == RTNORM) {
            auto usek = std::make_unique<Usek>();
            usek->vlastnik = this;
            usek->predchozi = Useky.empty() ? nullptr : Useky.back().get();
            usek->Prohozeno = prohozeno;
            usek->Roztec = Roztec;
            usek->S = b;
            usek->E = AcGePoint2d(bod[X], bod[Y]);
            if (PostavUsek(*usek)) {
                b = usek->E;
                Useky.push_back(std::move(usek));
                prohozeno = false;
            }
            continue;
        }
        if (rc != RTKWORD)
            return;
        ACHAR slovo[50] = L"";
        if (acedGetInput(slovo, 49) != RTNORM) {
            acutPrintf(L"\nTogovy Utility Error - chybné vyhodnocení funkce AcedGetInput");
            return;
        }
        if (slovo[0] == L'P') {
            Prohod();
            prohozeno = !prohozeno;
        } else if (slovo[0] == L'Z') {
            Zpet(b);
            prohozeno = false;
        }
    }
}

bool CTogMultiTrubky::PostavUsek(Usek& usek)
{
    const int pocet = static_cast<int>(HladinyId.size());
    const auto vedeni = PosunVedeni(usek.S, usek.E, TypVedeni, pocet, usek.Roztec);
    if (!vedeni) {
        Varuj(L"Vytvářený úsek je příliš krátký\nzměňte délku úseku nebo úhel napojení");
        return false;
    }
    Usek* pred = usek.predchozi;
    const bool kolinearni = pred && NaJednePrimce(pred->S, pred->E, usek.S, usek.E, Tolerance.equalPoint());
    const bool rovnobezne = pred && (usek.E - usek.S).isParallelTo(pred->E - pred->S);
    const bool obracene = usek.Prohozeno && pred && !kolinearni;
    // The line of the previous section that pipe i continues: the same pipe, or its mirror after a swap.
    auto predchoziCara = [&](int i) -> UsekCary* {
        if (!pred)
            return nullptr;
        const int j = obracene ? static_cast<int>(pred->cary.size()) - 1 - i : i;
        return j >= 0 && j < static_cast<int>(pred->cary.size()) ? pred->cary[static_cast<size_t>(j)].get() : nullptr;
    };
    auto roh = [&](int i, AcGePoint2d& a, AcGePoint2d& b) {
        CaraTrubky(*vedeni, i, usek.Roztec, a, b);
        const UsekCary* pj = predchoziCara(i);
        if (!pj)
            return;
        const auto p = Roh(a, b, pj->zacatek, pj->konec, rovnobezne);
        if (!p)
            throw CTogException("Nepodařilo se najít průsečík, z neznámého důvodu", __LINE__, __FILE__);
        a = *p;
    };

    if (pred && !kolinearni) {
        for (int i = 0; i < pocet; ++i) {
            AcGePoint2d a, b;
            roh(i, a, b);
            const UsekCary* pj = predchoziCara(i);
            if (!pj)
                continue;
            const Napojeni n = ZkontrolujNapojeni(a, b, usek.E - usek.S, pj->zacatek, pred->E - pred->S);
            if (n == Napojeni::kNovyKratky) {
                Varuj(L"Vytvářený úsek je příliš krátký\nzměňte délku úseku nebo úhel napojení");
                return false;
            }
            if (n == Napojeni::kPredchoziKratky) {
                Varuj(L"Předchozí úsek je příliš krátký\nzměňte délku úseku nebo úhel napojení");
                return false;
            }
        }
    }

    AcDbBlockTableRecordPointer model(ACDB_MODEL_SPACE, PracovniDatabaze(), AcDb::kForWrite);
    if (model.openStatus() != Acad::eOk)
        throw CTogException("Nelze vytvořit úsečku", __LINE__, __FILE__, model.openStatus());
    for (int i = 0; i < pocet; ++i) {
        AcGePoint2d a, b;
        roh(i, a, b);
        AcDbObjectPointer<AcDbLine> cara;
        cara.create();
        cara->setStartPoint(Bod3d(a));
        cara->setEndPoint(Bod3d(b));
        cara->setLayer(HladinyId[static_cast<size_t>(i)]);
        AcDbObjectId id;
        const Acad::ErrorStatus es = model->appendAcDbEntity(id, cara);
        if (es != Acad::eOk)
            throw CTogException("Nelze vytvořit úsečku", __LINE__, __FILE__, es);
        cara.close();
        auto zaznam = std::make_unique<UsekCary>();
        zaznam->zacatek = a;
        zaznam->konec = b;
        zaznam->hladina = HladinyId[static_cast<size_t>(i)];
        zaznam->vlastnik = &usek;
        zaznam->idCary = id;
        usek.cary.push_back(std::move(zaznam));
        if (UsekCary* pj = predchoziCara(i)) {
            AcDbObjectPointer<AcDbLine> predchozi(pj->idCary, AcDb::kForWrite);
            if (predchozi.openStatus() != Acad::eOk)
                throw CTogException("Nelze otevřít AcDbLine pro zápis", __LINE__, __FILE__, predchozi.openStatus());
            predchozi->setEndPoint(Bod3d(a));
            pj->konec = a;
        }
    }
    return true;
}

void CTogMultiTrubky::Zpet(AcGePoint2d& b)
{
    if (Useky.empty()) {
        acutPrintf(L"\nJiž není co vracet");
        return;
    }
    Usek& posledni = *Useky.back();
    if (posledni.Prohozeno)
        Prohod();
    b = posledni.S;
    bool smazano = true;
    for (const auto& cara : posledni.cary) {
        AcDbObjectPointer<AcDbLine> l(cara->idCary, AcDb::kForWrite);
        if (l.openStatus() != Acad::eOk || l->erase() != Acad::eOk)
            smazano = false;
    }
    if (!smazano)
        acutPrintf(L"\nEntitu nelze smazat - restaurujte výkres");
    Useky.pop_back();
    if (Useky.empty())
        return;
    // The section before gets its free ends back.
    Usek& usek = *Useky.back();
    const auto vedeni = PosunVedeni(usek.S, usek.E, TypVedeni, static_cast<int>(usek.cary.size()), usek.Roztec);
    if (!vedeni)
        return;
    for (size_t i = 0; i < usek.cary.size(); ++i) {
        AcGePoint2d a, konec;
        CaraTrubky(*vedeni, static_cast<int>(i), usek.Roztec, a, konec);
        AcDbObjectPointer<AcDbLine> l(usek.cary[i]->idCary, AcDb::kForWrite);
        if (l.openStatus() == Acad::eOk && l->setEndPoint(Bod3d(konec)) == Acad::eOk)
            usek.cary[i]->konec = konec;
    }
}

void PrikazMut()
{
    ProvedPrikaz([] {
        CTogMultiTrubky trubky;
        if (trubky.ZadejPocatek())
            trubky.KresliUseky();
    });
}
