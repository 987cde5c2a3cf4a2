// Standard layers in the working database: found by their catalogue name and the layer prefix, created
// from the catalogue when missing, unlocked after asking, and the user's own layers.
#include "StdAfx.h"
#include <commctrl.h>
#include "CTogBaseNastav.h"
#include "CTogException.h"
#include "CTogSet.h"
#include "CTogXRecord.h"
#include "PrevodStandardu.h"

namespace {

constexpr const ACHAR* kTitulek = L"Togovy Utility pro AutoCad";
constexpr const ACHAR* kNeptatSeNaStare = L"NeptatSeNaStareHladiny";
constexpr const ACHAR* kSkupinaHladiny = L"Hladiny";

AcDbDatabase* PracovniDatabaze() { return acdbHostApplicationServices()->workingDatabase(); }

// A locked layer is unlocked once the user agrees (or agreed "Ano všem" earlier in this run).
void OdemkniHladinu(AcDbObjectId id)
{
    AcDbLayerTableRecordPointer hladina(id);
    if (hladina.openStatus() != Acad::eOk)
        throw CTogEasyExcept(L"Hladinu nelze otevřít ani pro čtení");
    if (!hladina->isLocked())
        return;
    if (g_pNastaveni->JeZodpovezeno(kOtazkaOdemknoutHladinu)) {
        AcString jmeno;
        hladina->getName(jmeno);
        AcString otazka = AcString(L"Hladina ") + jmeno + L" je zamčená, ODEMKNOUT?";
        int odpoved = ZeptejSe(otazka, L"Do zamčených hladin nelze vykreslovat entity řezu a řez samotný",
                               kTlacitkoAno | kTlacitkoNe | kTlacitkoAnoVsem, false, TD_WARNING_ICON, nullptr);
        // Anything but a yes (a "Ne", a dialog left unanswered) leaves the layer locked.
        if ((odpoved & kTlacitkoAno) == 0)
            throw CTogEasyExcept(L"Hladina je zamčená");
        if (odpoved & kOdpovedVsem)
            g_pNastaveni->ZapamatujOdpoved(kOtazkaOdemknoutHladinu, 1);
    }
    if (hladina->upgradeOpen() != Acad::eOk)
        throw CTogEasyExcept(L"Hladinu nelze otevřít pro zápis (je stále zamčená)");
    hladina->setIsLocked(false);
}

// The drawing has a layer of the record's old name: offers the conversion, unless the drawing said
// not to ask again. Gives true with the result in `id` when nothing more is to be created.
bool NabidniPrevod(const StdHladina& hladina, const ACHAR* celyNazev, AcDbObjectId& id)
{
    if (hladina.staryNazev.isEmpty() || IdHladiny(hladina.staryNazev).isNull())
        return false;
    Adesk::Int32 neptat = 0;
    if (CTogXRecord::NactiZX(kNeptatSeNaStare, neptat, kSkupinaHladiny))
        return false;
    int odpoved = MessageBoxW(adsw_acadMainWnd(),
                              L"Nalezena hladina se starým názvem, převést?\n\nBudou převedeny všechny hladiny se "
                              L"starými názvy.\n(identické hladiny budou sloučeny)\n\nCancel - již se neptat",
                              kTitulek, MB_YESNOCANCEL | MB_ICONQUESTION);
    if (odpoved == IDCANCEL) {
        const Adesk::Int32 ano = 1;
        CTogXRecord::UlozDoX(kNeptatSeNaStare, ano, kSkupinaHladiny);
    } else if (odpoved == IDYES) {
        // The conversion brings the layer about, or nothing is created.
        CTogCmd::ParyId sloucene;
        PrevedHladiny(sloucene);
        id = IdHladiny(celyNazev);
        return true;
    }
    return false;
}

} // namespace

AcString BezPredpony(const AcString& nazev)
{
    for (int i = 0; i < 4 && i < static_cast<int>(nazev.length()); ++i)
        if (nazev.getAt(i) == L'_')
            return nazev.mid(i + 1);
    return nazev;
}

AcDbObjectId ZiskejHladinu(AcString& nazev, bool sPredponou)
{
    // The catalogue's spelling replaces the caller's (case, missing accents) before the search.
    AcString kopie = sPredponou ? BezPredpony(nazev) : nazev;
    if (const StdHladina* radek = NajdiStdHladinu(kopie)) {
        AcString predpona = nazev.mid(0, static_cast<int>(nazev.length() - kopie.length()));
        nazev = predpona + radek->nazev;
    }
    AcString celyNazev = sPredponou ? nazev : g_pNastaveni->Predpony().NazevSPredponou(nazev);

    AcDbObjectId id = IdHladiny(celyNazev);
    if (id.isNull()) {
        const StdHladina* radek = NajdiStdHladinu(sPredponou ? BezPredpony(nazev) : nazev);
        if (radek)
            id = ZalozHladinu(*radek, celyNazev);
    } else {
        OdemkniHladinu(id);
    }
    nazev = celyNazev;
    return id;
}

AcDbObjectId ZalozHladinu(const StdHladina& hladina, const ACHAR* celyNazev)
{
    AcDbObjectId id;
    if (NabidniPrevod(hladina, celyNazev, id))
        return id;

    // The record stays ours until the table takes it.
    AcDbLayerTableRecordPointer zaznam;
    zaznam.create();
    Acad::ErrorStatus es = zaznam->setName(celyNazev);
    int soucet = NastavHladinu(hladina, zaznam);
    if (es != Acad::eOk || soucet != 0)
        throw CTogException("Přiřazení hodnot do LayerRecord neproběhlo v pořádku", __LINE__, __FILE__,
                            es != Acad::eOk ? es : soucet);

    AcDbLayerTablePointer tabulka(PracovniDatabaze(), AcDb::kForWrite);
    es = tabulka.openStatus();
    if (es != Acad::eOk)
        throw CTogException("Nelze otevřít LayerTable pro zápis", __LINE__, __FILE__, es);
    es = tabulka->add(id, zaznam);
    tabulka.close();
    if (es != Acad::eOk)
        throw CTogException("Nelze přidat LayerTableRecord do databáze", __LINE__, __FILE__, es);
    NastavPopisHladiny(hladina, zaznam);
    return id;
}

AcDbObjectId ZalozUzivHladinu(AcString& nazev, int barva, const ACHAR* typCary, AcDb::LineWeight tloustka,
                              bool tisknout)
{
    AcString celyNazev = g_pNastaveni->Predpony().NazevSPredponou(nazev);
    AcDbObjectId id = IdHladiny(celyNazev);
    if (id.isNull()) {
        StdHladina hladina;
        hladina.nazev = nazev;
        hladina.barva.setColorIndex(static_cast<Adesk::UInt16>(barva));
        hladina.tloustka = tloustka;
        hladina.typCary = (typCary && *typCary) ? typCary : kSouvislaCara;
        hladina.tisknout = tisknout;
        hladina.skupina = kSkupinaUzivatelska;
        id = ZalozHladinu(hladina, celyNazev);
    }
    nazev = celyNazev;
    return id;
}

int NastavHladinu(const StdHladina& hladina, AcDbLayerTableRecord* zaznam)
{
    AcDbDatabase* db = zaznam->databaseToUse();
    zaznam->setColor(hladina.barva);
    AcDbObjectId typCary;
    if (hladina.typCary == kSouvislaCara) {
        typCary = db->continuousLinetype();
    } else {
        typCary = IdTypuCary(hladina.typCary);
        if (typCary.isNull()) {
            NactiTypCary(hladina.typCary, db);
            typCary = IdTypuCary(hladina.typCary);
            if (typCary.isNull())
                throw CTogException("Nelze načíst standardní typy čar", __LINE__, __FILE__);
        }
    }
    int soucet = zaznam->setLinetypeObjectId(typCary);
    soucet += zaznam->setLineWeight(hladina.tloustka);
    soucet += zaznam->setIsPlottable(hladina.tisknout);
    return soucet;
}

int NastavPopisHladiny(const StdHladina& hladina, AcDbLayerTableRecord* zaznam)
{
    AcString popis = L"TOGU_";
    popis += static_cast<ACHAR>(L'0' + hladina.skupina);
    popis += L"_";
    popis += hladina.nazev;
    return zaznam->setDescription(popis);
}
