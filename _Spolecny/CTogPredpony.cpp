// The layer prefix: the global and the drawing prefix, the whole name of a standard layer, and the
// renaming and merging of layers when the drawing changes over to another prefix.
//
// Two choices of the dialog, settled here:
// - "Přenastavit názvy hladin" (prejmenovatHladiny) drives the renaming of the drawing's own prefix to
//   the chosen one, and "Sjednotit i další hladiny" (sloucitDalsi) the renaming of the foreign
//   prefixes. Each box thus does what its label says; merge-others alone would leave the first box
//   without any effect.
// - Cancel of the dialog that a layer request opened changes nothing in the drawing and the name is
//   formed with the drawing's prefix, as the tooltip of the Cancel button promises the user ("Použije
//   předponu z výkresu a nic nemění, nepřejmenovává a neslučuje"). The question then comes again at
//   the next layer request, until the user decides or ticks "Příště se neptat".
#include "CTogPredpony.h"

#include <memory>

#include "CTgDlgPredpony.h"
#include "CTogCmd.h"
#include "CTogException.h"
#include "CTogRegistry.h"
#include "CTogSet.h"
#include "CTogXRecord.h"
#include "acdocman.h"
#include "acutads.h"
#include "dbapserv.h"
#include "dbobjptr.h"
#include "dbsymtb.h"

namespace {

AcDbDatabase* Vykres()
{
    if (AcApDocument* doc = curDoc())
        return doc->database();
    return acdbHostApplicationServices()->workingDatabase();
}

/// The fingerprint of the active drawing; empty without one.
AcString OtiskVykresu()
{
    AcDbDatabase* db = Vykres();
    ACHAR* guid = nullptr;
    if (!db || db->getFingerprintGuid(guid) != Acad::eOk || !guid)
        return AcString();
    AcString otisk(guid);
    acutDelString(guid);
    return otisk;
}

bool ZacinaNa(const AcString& text, const AcString& zacatek)
{
    return text.length() >= zacatek.length() && std::wstring_view(text.kwszPtr(), zacatek.length()) == zacatek.kwszPtr();
}

AcString NahradVse(const AcString& text, const AcString& co, const AcString& cim)
{
    std::wstring s(text.kwszPtr());
    const std::wstring a(co.kwszPtr()), b(cim.kwszPtr());
    for (size_t i = s.find(a); i != std::wstring::npos; i = s.find(a, i + b.size()))
        s.replace(i, a.size(), b);
    return AcString(s.c_str());
}

} // namespace

CTogPredpony::CTogPredpony() : globalni(kVychozi)
{
    AcString hodnota;
    const AcString skupina = AcString(CTogRegistry::kKlicProduktu) + CTogRegistry::kSkupinaNastaveni;
    // An empty stored prefix would make names like "_kóty": it counts as none.
    if (CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, CTogRegistry::kKlicSpolecny, kNazevHodnoty, hodnota) &&
        !hodnota.isEmpty())
        globalni = hodnota;
    else if (CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, skupina, kNazevHodnoty, hodnota) && !hodnota.isEmpty())
        globalni = hodnota;
    else
        globalni = kVychozi;
    otisk = OtiskVykresu();
}

AcString CTogPredpony::PredponaVykresu()
{
    AcString ulozena;
    if (CTogXRecord::NactiZX(kNazevHodnoty, ulozena, kSkupinaVykresu)) {
        vykresu = ulozena;
    } else {
        vykresu = globalni;
        CTogXRecord::UlozDoX(kNazevHodnoty, globalni.kwszPtr(), kSkupinaVykresu);
    }
    otisk = OtiskVykresu();
    return vykresu;
}

AcString CTogPredpony::NazevSPredponou(const ACHAR* nazev)
{
    if (PredponaVykresu().isEmpty())
        vykresu = globalni;
    const bool stejne = PredponaVykresu() == globalni;
    bool zruseno = false;
    if (!stejne) {
        if (neptatSe)
            ProvedPredponu();
        else
            zruseno = !DialogPredpony(*this, nullptr);
    }
    // Cancel keeps the drawing's prefix (see the note at the top).
    const AcString& predpona = stejne || (pouzitGlobalni && !zruseno) ? globalni : vykresu;
    return predpona + L"_" + (nazev ? nazev : L"");
}

void CTogPredpony::ProvedPredponu()
{
    const AcString cil = pouzitGlobalni ? globalni : vykresu;
    if (prejmenovatHladiny && !(vykresu == cil))
        VymenPredponu(vykresu, cil);
    if (sloucitDalsi)
        for (const AcString& cizi1 : std::set<AcString>(cizi))
            if (!(cizi1 == cil))
                VymenPredponu(cizi1, cil);
    if (nastavitVeVykresu)
        vykresu = cil;
}

int CTogPredpony::VymenPredponu(const AcString& stara, const AcString& nova)
{
    // An empty prefix begins every name: nothing to replace.
    if (stara.isEmpty())
        return 0;
    AcDbLayerTablePointer tabulka(Vykres());
    Acad::ErrorStatus es = tabulka.openStatus();
    if (es != Acad::eOk)
        throw CTogException("Nelze otevřít LayerStyle table for reading", __LINE__, __FILE__, es);

    CTogCmd::ParyId sloucit;
    int prevedeno = 0;
    AcDbLayerTableIterator* pIter = nullptr;
    if (tabulka->newIterator(pIter) != Acad::eOk || !pIter)
        throw CTogException("Nelze otevřít LayerStyle table for reading", __LINE__, __FILE__);
    std::unique_ptr<AcDbLayerTableIterator> iter(pIter);
    for (; !iter->done(); iter->step()) {
        AcDbObjectId id;
        if (iter->getRecordId(id) != Acad::eOk)
            continue;
        AcDbLayerTableRecordPointer zaznam(id, AcDb::kForWrite);
        if (zaznam.openStatus() != Acad::eOk)
            continue;
        if (zaznam->isDependent())
            continue;
        AcString jmeno;
        if (zaznam->getName(jmeno) != Acad::eOk || !ZacinaNa(jmeno, stara))
            continue;
        const AcString noveJmeno = NahradVse(jmeno, stara, nova);
        es = zaznam->setName(noveJmeno);
        if (es == Acad::eOk) {
            ++prevedeno;
        } else if (es == Acad::eDuplicateRecordName) {
            AcDbObjectId cil;
            if (tabulka->getAt(noveJmeno, cil) == Acad::eOk && cil != id)
                sloucit.emplace_back(id, cil);
        }
    }
    iter.reset();
    tabulka.close(); // the table is closed before the walk
    acutPrintf(L"\nBylo převedeno %i hladin, bude sloučeno %i hladin", prevedeno, static_cast<int>(sloucit.size()));
    SloucitHladiny(sloucit);
    return prevedeno;
}

void CTogPredpony::SloucitHladiny(const std::vector<std::pair<AcDbObjectId, AcDbObjectId>>& pary)
{
    if (pary.empty())
        return;
    AcDbDatabase* db = Vykres();
    {
        CTogCmd::ZmenHladinu zmena(db, pary);
        const int zmeneno = zmena.ProjdiDwg(CTogCmd::kModelSpace | CTogCmd::kLayouty | CTogCmd::kDefiniceBloku, false, 1);
        acutPrintf(L"\nPřevedeno %i entit", zmeneno);
    }
    AcDbLayerTablePointer tabulka(db, AcDb::kForWrite);
    if (tabulka.openStatus() != Acad::eOk)
        throw CTogException("Nelze otevřít Layer table for writing", __LINE__, __FILE__, tabulka.openStatus());
    for (const auto& [stara, cil] : pary) {
        (void)cil;
        AcDbLayerTableRecordPointer hladina(stara, AcDb::kForWrite);
        if (hladina.openStatus() != Acad::eOk)
            continue;
        if (hladina->erase() != Acad::eOk) {
            AcString jmeno;
            hladina->getName(jmeno);
            acutPrintf(L"\nHladinu '%ls' se nepodařilo vymazat", jmeno.kwszPtr());
        }
    }
}

void CTogPredpony::NajdiCiziPredpony(const AcString& predponaVykresu, const AcString& globalni1)
{
    cizi.clear();
    std::set<AcString> katalog;
    if (SeznamStdHladin(kSkupinaVse, katalog) == 0)
        return;
    AcDbLayerTablePointer tabulka(Vykres());
    Acad::ErrorStatus es = tabulka.openStatus();
    if (es != Acad::eOk)
        throw CTogException("Nelze otevřít LayerStyle table for reading", __LINE__, __FILE__, es);
    AcDbLayerTableIterator* pIter = nullptr;
    if (tabulka->newIterator(pIter) != Acad::eOk || !pIter)
        return;
    std::unique_ptr<AcDbLayerTableIterator> iter(pIter);
    for (; !iter->done(); iter->step()) {
        AcDbObjectId id;
        if (iter->getRecordId(id) != Acad::eOk)
            continue;
        AcDbLayerTableRecordPointer zaznam(id);
        if (zaznam.openStatus() != Acad::eOk)
            continue;
        AcString jmeno;
        if (zaznam->isDependent() || zaznam->getName(jmeno) != Acad::eOk)
            continue;
        const int podtrzitko = jmeno.find(L'_');
        if (podtrzitko <= 0)
            continue;
        const AcString kandidat = jmeno.mid(0, podtrzitko);
        const AcString zbytek = jmeno.mid(podtrzitko + 1);
        // The rest must be a catalogue name exactly as stored, in case and accents.
        if (katalog.count(zbytek) && !(kandidat == predponaVykresu) && !(kandidat == globalni1))
            cizi.insert(kandidat);
    }
}

bool DialogPredpony(CTogPredpony& predpony, const ACHAR* navrh, AcString* vysledek)
{
    const bool nastaveni = navrh != nullptr;
    if (nastaveni)
        predpony.neptatSe = false;
    if (!nastaveni && predpony.neptatSe) {
        predpony.ProvedPredponu();
        return false;
    }

    CTgDlgPredpony dialog(predpony, navrh, CWnd::FromHandle(::GetActiveWindow()));
    if (dialog.DoModal() != IDOK)
        return false; // Cancel changes nothing (see the note at the top)

    predpony.neptatSe = dialog.m_neptatSe;
    predpony.pouzitGlobalni = dialog.m_pouzitGlobalni;
    predpony.nastavitVeVykresu = dialog.m_nastavitVeVykresu;
    predpony.prejmenovatHladiny = dialog.m_prejmenovatHladiny;
    predpony.sloucitDalsi = dialog.m_sloucitDalsi;
    predpony.cizi = dialog.m_cizi;
    const AcString predchozi = predpony.vykresu;
    predpony.vykresu = dialog.m_vykresu;
    predpony.globalni = dialog.m_globalni;
    predpony.ProvedPredponu();
    const AcString otisk = OtiskVykresu();
    if (!(predpony.vykresu == predchozi && predpony.otisk == otisk)) {
        predpony.otisk = otisk;
        CTogXRecord::UlozDoX(CTogPredpony::kNazevHodnoty, predpony.vykresu.kwszPtr(), CTogPredpony::kSkupinaVykresu);
    }
    predpony.globalni = dialog.m_globalni;
    if (vysledek)
        *vysledek = predpony.globalni;
    return true;
}
