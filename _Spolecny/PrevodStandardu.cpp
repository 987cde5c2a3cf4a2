// The conversion of a drawing of the earlier standard as a whole: layers, line types, the three style
// kinds renamed to the catalogue or merged into the object that bears the new name, and the final
// merge that moves every use over and erases the old objects.
#include "StdAfx.h"
#include "PrevodStandardu.h"
#include <memory>
#include "CTogBaseNastav.h"
#include "CTogException.h"
#include "CTogFunkce.h"
#include "CTogSet.h"

namespace {

AcDbDatabase* PracovniDatabaze() { return acdbHostApplicationServices()->workingDatabase(); }

struct Pocty {
    int nalezeno = 0;
    int prejmenovano = 0;
};

// One style kind: an old style is renamed to the catalogue name with the catalogue's values when the
// name is free, else it goes to the merge list.
template <class Objekt, class Radek>
Pocty PrevedStyly(const MapaNazvu& mapa, CTogCmd::ParyId& sloucit, AcDbObjectId (*idStylu)(const ACHAR*),
                  const Radek* (*najdi)(const ACHAR*), int (*nastav)(const Radek&, Objekt*))
{
    Pocty pocty;
    for (const auto& [stary, novy] : mapa) {
        AcDbObjectId idStareho = idStylu(stary);
        if (idStareho.isNull())
            continue;
        ++pocty.nalezeno;
        if (AcDbObjectId idNoveho = idStylu(novy); !idNoveho.isNull()) {
            sloucit.emplace_back(idStareho, idNoveho);
            continue;
        }
        const Radek* radek = najdi(novy);
        if (radek == nullptr)
            throw CTogException("Nenalezen název v mapě", __LINE__, __FILE__);
        AcDbObjectPointer<Objekt> styl(idStareho, AcDb::kForWrite);
        if (styl.openStatus() != Acad::eOk)
            continue;
        Acad::ErrorStatus es = styl->setName(novy);
        if (nastav(*radek, styl.object()) == 0 && es == Acad::eOk)
            ++pocty.prejmenovano;
    }
    return pocty;
}

// Dimension styles that use an old text style get its survivor.
void PrevedTextoveStylyKot(AcDbDatabase* db, const CTogCmd::ParyId& textoveStyly)
{
    AcDbDimStyleTablePointer tabulka(db, AcDb::kForRead);
    AcDbDimStyleTableIterator* pIterator = nullptr;
    if (tabulka.openStatus() != Acad::eOk || tabulka->newIterator(pIterator) != Acad::eOk || pIterator == nullptr)
        throw CTogException("Nelze otevřít DimStyle table for reading", __LINE__, __FILE__, tabulka.openStatus());
    std::unique_ptr<AcDbDimStyleTableIterator> iterator(pIterator);
    int prevedeno = 0;
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        if (iterator->getRecordId(id) != Acad::eOk)
            continue;
        AcDbDimStyleTableRecordPointer styl(id, AcDb::kForWrite);
        if (styl.openStatus() != Acad::eOk || styl->isDependent())
            continue;
        if (AcDbObjectId nove = CTogCmd::NoveId(textoveStyly, styl->dimtxsty()); !nove.isNull() &&
                                                                          styl->setDimtxsty(nove) == Acad::eOk)
            ++prevedeno;
    }
    acutPrintf(L"\nBylo převedeno %i textových stylů v kótovacích stylech", prevedeno);
}

// Multileader styles that use an old text style get its survivor.
void PrevedTextoveStylyOdkazu(AcDbDatabase* db, const CTogCmd::ParyId& textoveStyly)
{
    AcDbDictionaryPointer slovnik(db->mLeaderStyleDictionaryId(), AcDb::kForRead);
    if (slovnik.openStatus() != Acad::eOk)
        throw CTogException("Nelze otevřít AcDbDictionary pro čtení", __LINE__, __FILE__, slovnik.openStatus());
    std::unique_ptr<AcDbDictionaryIterator> iterator(slovnik->newIterator());
    int prevedeno = 0;
    for (; iterator && !iterator->done(); iterator->next()) {
        AcDbObjectPointer<AcDbMLeaderStyle> styl(iterator->objectId(), AcDb::kForWrite);
        if (styl.openStatus() != Acad::eOk)
            continue;
        if (AcDbObjectId nove = CTogCmd::NoveId(textoveStyly, styl->textStyleId()); !nove.isNull() &&
                                                                           styl->setTextStyleId(nove) == Acad::eOk)
            ++prevedeno;
    }
    acutPrintf(L"\nBylo převedeno %i textových stylů v M-Leader stylech", prevedeno);
}

// Layers that use an old line type get its survivor.
void PrevedTypyCarHladin(AcDbDatabase* db, const CTogCmd::ParyId& typyCar)
{
    AcDbLayerTablePointer tabulka(db, AcDb::kForRead);
    AcDbLayerTableIterator* pIterator = nullptr;
    if (tabulka.openStatus() != Acad::eOk || tabulka->newIterator(pIterator) != Acad::eOk || pIterator == nullptr)
        throw CTogException("Nelze otevřít LayerStyle table for reading", __LINE__, __FILE__, tabulka.openStatus());
    std::unique_ptr<AcDbLayerTableIterator> iterator(pIterator);
    int prevedeno = 0, neprevedeno = 0;
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        if (iterator->getRecordId(id) != Acad::eOk)
            continue;
        AcDbLayerTableRecordPointer hladina(id, AcDb::kForWrite);
        if (hladina.openStatus() != Acad::eOk || hladina->isDependent())
            continue;
        AcDbObjectId nove = CTogCmd::NoveId(typyCar, hladina->linetypeObjectId());
        if (nove.isNull())
            continue;
        if (hladina->setLinetypeObjectId(nove) != Acad::eOk) {
            ++neprevedeno;
            continue;
        }
        ++prevedeno;
        AcString jmeno, typ;
        hladina->getName(jmeno);
        if (AcDbLinetypeTableRecordPointer zaznam(nove, AcDb::kForRead); zaznam.openStatus() == Acad::eOk)
            zaznam->getName(typ);
        acutPrintf(L"\nHladina:    %ls    LType:   %ls", jmeno.kwszPtr(), typ.kwszPtr());
    }
    acutPrintf(L"\nBylo převedeno %i typů čar v hladinách, nebylo možné převést %i typů čar v hladinách", prevedeno,
               neprevedeno);
}

// Hands the current object over to the survivor and erases the old objects; gives the failures.
template <class Nastav>
int SmazStare(const CTogCmd::ParyId& pary, AcDbObjectId aktualni, Nastav nastavAktualni)
{
    int selhalo = 0;
    for (const auto& [stary, novy] : pary) {
        if (stary == aktualni && !novy.isNull())
            nastavAktualni(novy);
        AcDbObjectPointer<AcDbObject> objekt(stary, AcDb::kForWrite);
        if (objekt.openStatus() != Acad::eOk || objekt->erase() != Acad::eOk)
            ++selhalo;
    }
    return selhalo;
}

} // namespace

void PrevedHladiny(CTogCmd::ParyId& sloucit)
{
    AcDbDatabase* db = PracovniDatabaze();
    // Layer 0 is current while the others are renamed or erased.
    const AcDbObjectId puvodni = db->clayer();
    db->setClayer(db->layerZero());

    std::map<AcString, const StdHladina*> stare;
    for (const auto& [klic, radek] : StdHladiny()) {
        (void)klic;
        if (radek.staryNazev.isEmpty())
            continue;
        AcString stary = radek.staryNazev;
        CTogFunkce::NaVelka(stary);
        stare.emplace(stary, &radek);
    }

    // The layers to convert are gathered first, so that the table is closed when the whole name is
    // formed: that may open the prefix dialog, which reads and renames layers itself.
    std::vector<std::pair<AcDbObjectId, const StdHladina*>> prevest;
    {
        AcDbLayerTablePointer tabulka(db, AcDb::kForRead);
        AcDbLayerTableIterator* pIterator = nullptr;
        if (tabulka.openStatus() != Acad::eOk || tabulka->newIterator(pIterator) != Acad::eOk || pIterator == nullptr)
            throw CTogException("Nelze otevřít Layer table for writting", __LINE__, __FILE__, tabulka.openStatus());
        std::unique_ptr<AcDbLayerTableIterator> iterator(pIterator);
        for (; !iterator->done(); iterator->step()) {
            AcDbObjectId id;
            if (iterator->getRecordId(id) != Acad::eOk)
                continue;
            AcString nazev;
            {
                AcDbLayerTableRecordPointer hladina(id, AcDb::kForRead);
                // Layers of external references aren't ours to rename.
                if (hladina.openStatus() != Acad::eOk || hladina->isDependent() ||
                    hladina->getName(nazev) != Acad::eOk)
                    continue;
            }
            if (auto stara = stare.find(KlicKatalogu(nazev)); stara != stare.end()) {
                prevest.emplace_back(id, stara->second);
                continue;
            }
            nazev = BezPredpony(nazev);
            // A catalogue name spelled right behind any prefix stays.
            if (const StdHladina* radek = NajdiStdHladinu(nazev); radek != nullptr && !(nazev == radek->nazev))
                prevest.emplace_back(id, radek);
        }
    }

    int prevedeno = 0;
    for (const auto& [id, radek] : prevest) {
        const AcString cil = g_pNastaveni->Predpony().NazevSPredponou(radek->nazev);
        AcDbLayerTableRecordPointer hladina(id, AcDb::kForWrite);
        if (hladina.openStatus() != Acad::eOk)
            continue;
        ++prevedeno;
        // The target may be this very layer in another spelling: then it is only renamed.
        if (AcDbObjectId idCile = IdHladiny(cil); !idCile.isNull() && idCile != id) {
            sloucit.emplace_back(id, idCile);
            continue;
        }
        hladina->setName(cil);
        NastavHladinu(*radek, hladina.object());
        NastavPopisHladiny(*radek, hladina.object());
    }
    g_pNastaveni->Predpony().SloucitHladiny(sloucit);
    acutPrintf(L"\nBylo převedeno %i hladin", prevedeno);
    // A current layer that was merged away is gone; 0 stays current then.
    db->setClayer(puvodni);
}

void PrevedStandardy(int maska)
{
    AcDbDatabase* db = PracovniDatabaze();
    CTogCmd::ParyId textoveStyly, mleaderStyly, kotaStyly, typyCar;
    if (maska & kPrevestHladiny) {
        CTogCmd::ParyId hladiny;
        PrevedHladiny(hladiny);
    }
    PrevodniTabulka tabulka;
    ZalozPrevodniTabulku(tabulka);
    if (maska & kPrevestTypyCar)
        PrevedTypyCar(tabulka, typyCar, db);
    if (maska & kPrevestStyly) {
        Pocty odkazy = PrevedStyly<AcDbMLeaderStyle, StdMLeaderStyl>(tabulka.mleaderStyly, mleaderStyly, IdMLeaderStylu,
                                                                      NajdiStdMLeaderStyl, NastavMLeaderStyl);
        Pocty koty = PrevedStyly<AcDbDimStyleTableRecord, StdKotaStyl>(tabulka.kotaStyly, kotaStyly, IdKotaStylu,
                                                                        NajdiStdKotaStyl, NastavKotaStyl);
        Pocty texty = PrevedStyly<AcDbTextStyleTableRecord, StdTextStyl>(tabulka.textoveStyly, textoveStyly,
                                                                          IdTextStylu, NajdiStdTextStyl, NastavTextStyl);
        acutPrintf(L"\nNalezeno: %i a přejmenováno %i starých textových stylů. %i bude sloučeno", texty.nalezeno,
                   texty.prejmenovano, static_cast<int>(textoveStyly.size()));
        acutPrintf(L"\nNalezeno: %i a přejmenováno %i starých stylů multiodkazu. %i bude sloučeno", odkazy.nalezeno,
                   odkazy.prejmenovano, static_cast<int>(mleaderStyly.size()));
        acutPrintf(L"\nNalezeno: %i a přejmenováno %i starých kótovacích stylů. %i bude sloučeno", koty.nalezeno,
                   koty.prejmenovano, static_cast<int>(kotaStyly.size()));
        acutPrintf(L"\n");
    }
    DokonciPrevod(textoveStyly, kotaStyly, mleaderStyly, typyCar);
}

void DokonciPrevod(const CTogCmd::ParyId& textoveStyly, const CTogCmd::ParyId& kotaStyly,
                   const CTogCmd::ParyId& mleaderStyly, const CTogCmd::ParyId& typyCar)
{
    AcDbDatabase* db = PracovniDatabaze();
    const AcDbObjectId textovy = db->textstyle(), odkazu = db->cmleaderstyle(), koty = db->dimstyle(),
                       typCary = db->celtype();

    if (!textoveStyly.empty()) {
        PrevedTextoveStylyKot(db, textoveStyly);
        PrevedTextoveStylyOdkazu(db, textoveStyly);
    }
    if (!typyCar.empty())
        PrevedTypyCarHladin(db, typyCar);

    {
        CTogCmd::ZmenTS_DS_MLS zmena(db);
        zmena.mleaderStyly = mleaderStyly;
        zmena.textStyly = textoveStyly;
        zmena.kotaStyly = kotaStyly;
        zmena.typyCar = typyCar;
        zmena.ProjdiDwg(CTogCmd::kModelSpace | CTogCmd::kLayouty | CTogCmd::kDefiniceBloku, true, 2);
    }

    int selhalo = SmazStare(textoveStyly, textovy, [db](AcDbObjectId id) { db->setTextstyle(id); });
    selhalo += SmazStare(kotaStyly, koty, [db](AcDbObjectId id) { db->setDimstyle(id); });
    selhalo += SmazStare(mleaderStyly, odkazu, [db](AcDbObjectId id) { db->setCmleaderstyle(id); });
    selhalo += SmazStare(typyCar, typCary, [db](AcDbObjectId id) { db->setCeltype(id); });
    if (selhalo > 0)
        acutPrintf(L"\nNepodařilo se smazat %i starých stylů", selhalo);
}
