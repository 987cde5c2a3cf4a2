// Line types of a drawing brought to the standard: old names renamed or merged, standard ones
// refreshed from their .lin file, always keeping the record's object id so that nothing that uses a
// line type needs to change.
#include "StdAfx.h"
#include "PrevodStandardu.h"
#include <string>
#include "CTogException.h"
#include "CTogFunkce.h"
#include "CTogSet.h"

namespace {

// One dash of a line type as it goes from the loaded record to the kept one.
struct PrvekCary {
    double delka = 0.0;
    AcString text;
    int druh = 0; // 0 a plain dash, 1 a text, 2 a shape
    int cisloTvaru = 0;
    bool vUcs = false;
    AcGeVector2d posun;
    double rotace = 0.0;
    double meritko = 1.0;
    AcDbObjectId styl;
};

struct DefiniceCary {
    AcString popis;
    double delkaVzoru = 0.0;
    std::vector<PrvekCary> prvky;
};

DefiniceCary CtiDefinici(const AcDbLinetypeTableRecord& zaznam)
{
    DefiniceCary d;
    const ACHAR* popis = nullptr;
    if (zaznam.comments(popis) == Acad::eOk && popis)
        d.popis = popis;
    d.delkaVzoru = zaznam.patternLength();
    for (int i = 0; i < zaznam.numDashes(); ++i) {
        PrvekCary p;
        p.delka = zaznam.dashLengthAt(i);
        p.cisloTvaru = zaznam.shapeNumberAt(i);
        if (p.cisloTvaru != 0)
            p.druh = 2;
        const ACHAR* text = nullptr;
        if (zaznam.textAt(i, text) == Acad::eOk && text && *text) {
            p.text = text;
            p.druh = 1;
        }
        if (p.druh != 0) {
            p.vUcs = zaznam.shapeIsUcsOrientedAt(i);
            p.posun = zaznam.shapeOffsetAt(i);
            p.rotace = zaznam.shapeRotationAt(i);
            p.meritko = zaznam.shapeScaleAt(i);
        }
        p.styl = zaznam.shapeStyleAt(i);
        d.prvky.push_back(p);
    }
    return d;
}

// Gives the definition to the record; the sum of the statuses, 0 when all went well.
int ZapisDefinici(AcDbLinetypeTableRecord& zaznam, const DefiniceCary& d)
{
    const int pocet = static_cast<int>(d.prvky.size());
    int soucet = zaznam.setComments(d.popis);
    soucet += zaznam.setNumDashes(pocet);
    soucet += zaznam.setPatternLength(d.delkaVzoru);
    for (int i = 0; i < pocet; ++i) {
        const PrvekCary& p = d.prvky[static_cast<size_t>(i)];
        soucet += zaznam.setDashLengthAt(i, p.delka);
        soucet += zaznam.setShapeNumberAt(i, p.cisloTvaru);
        if (p.druh != 0) {
            soucet += zaznam.setShapeIsUcsOrientedAt(i, p.vUcs);
            soucet += zaznam.setShapeOffsetAt(i, p.posun);
            soucet += zaznam.setShapeRotationAt(i, p.rotace);
            soucet += zaznam.setShapeScaleAt(i, p.meritko);
            if (!p.styl.isNull())
                soucet += zaznam.setShapeStyleAt(i, p.styl);
        }
        if (p.druh == 1)
            soucet += zaznam.setTextAt(i, p.text);
    }
    return soucet;
}

} // namespace

void PrevedTypyCar(const PrevodniTabulka& tabulka, CTogCmd::ParyId& sloucit, AcDbDatabase* db)
{
    AktualizaceCar aktualizace;
    {
        AcDbLinetypeTablePointer typy(db, AcDb::kForRead);
        if (typy.openStatus() != Acad::eOk)
            throw CTogException("Nelze otevřít table for reading", __LINE__, __FILE__, typy.openStatus());
        AcDbLinetypeTableIterator* pIterator = nullptr;
        if (typy->newIterator(pIterator) != Acad::eOk || pIterator == nullptr)
            throw CTogException("Nelze otevřít table for reading", __LINE__, __FILE__);
        std::unique_ptr<AcDbLinetypeTableIterator> iterator(pIterator);
        for (; !iterator->done(); iterator->step()) {
            AcDbObjectId id;
            if (iterator->getRecordId(id) != Acad::eOk)
                continue;
            AcDbLinetypeTableRecordPointer zaznam(id, AcDb::kForRead);
            if (zaznam.openStatus() != Acad::eOk || zaznam->isDependent())
                continue;
            AcString nazev;
            zaznam->getName(nazev);
            zaznam.close();

            auto novy = tabulka.typyCar.find(CTogFunkce::OrizniOddelovace(nazev));
            if (novy != tabulka.typyCar.end()) {
                const AcString& cil = novy->second;
                AcDbObjectId idCile;
                if (typy->getAt(cil, idCile, true) == Acad::eOk && idCile != id) {
                    sloucit.emplace_back(id, idCile);
                    aktualizace.emplace(cil, idCile);
                } else if (auto jiz = aktualizace.find(cil); jiz != aktualizace.end() && jiz->second != id) {
                    // An earlier old line type takes the name; this one goes into it.
                    sloucit.emplace_back(id, jiz->second);
                } else {
                    aktualizace.emplace(cil, id);
                }
                continue;
            }
            AcString klic = nazev;
            CTogFunkce::BezDiakritiky(klic.getBuffer());
            klic.releaseBuffer();
            if (auto standardni = tabulka.linNazvy.find(klic); standardni != tabulka.linNazvy.end())
                aktualizace.emplace(standardni->second, id);
        }
    }
    AktualizujTypyCar(aktualizace, db);
}

int AktualizujTypyCar(const AktualizaceCar& aktualizace, AcDbDatabase* db)
{
    // Making room: a record that bears a name gets a temporary one, so that the file's definition can
    // be loaded under the name.
    {
        AcDbLinetypeTablePointer typy(db, AcDb::kForRead);
        if (typy.openStatus() != Acad::eOk)
            throw CTogException("Nelze otevřít LineType table for writting", __LINE__, __FILE__, typy.openStatus());
        for (const auto& [nazev, id] : aktualizace) {
            (void)id;
            AcDbObjectId idNazvu;
            if (typy->getAt(nazev, idNazvu) != Acad::eOk)
                continue;
            AcDbLinetypeTableRecordPointer zaznam(idNazvu, AcDb::kForWrite);
            if (zaznam.openStatus() != Acad::eOk)
                continue;
            AcString docasny;
            for (int cislo = 0;; ++cislo) {
                docasny = nazev + L"_TGW_" + std::to_wstring(cislo).c_str();
                if (!typy->has(docasny))
                    break;
            }
            zaznam->setName(docasny);
        }
    }

    // Loading, with the table closed: a load fails while it is open.
    for (const auto& polozka : aktualizace)
        NactiTypCary(polozka.first, db);

    // Moving the loaded definition into the kept record, and the loaded record away.
    int aktualizovano = 0;
    AcDbLinetypeTablePointer typy(db, AcDb::kForRead);
    if (typy.openStatus() != Acad::eOk)
        throw CTogException("Nelze otevřít LineType table for writting", __LINE__, __FILE__, typy.openStatus());
    for (const auto& [nazev, id] : aktualizace) {
        DefiniceCary definice;
        {
            AcDbObjectId idVzoru;
            if (typy->getAt(nazev, idVzoru) != Acad::eOk)
                throw CTogException("Ltype načtený jako vzor nejde otevřít", __LINE__, __FILE__);
            AcDbLinetypeTableRecordPointer vzor(idVzoru, AcDb::kForWrite);
            if (vzor.openStatus() != Acad::eOk)
                throw CTogException("Ltype načtený jako vzor nejde otevřít", __LINE__, __FILE__, vzor.openStatus());
            definice = CtiDefinici(*vzor);
            if (Acad::ErrorStatus es = vzor->erase(); es != Acad::eOk)
                throw CTogException("Ltype načtený jako vzor nejde vymazat", __LINE__, __FILE__, es);
        }
        AcDbObjectPointer<AcDbObject> objekt(id, AcDb::kForWrite);
        if (objekt.openStatus() != Acad::eOk || objekt->isA() != AcDbLinetypeTableRecord::desc())
            continue;
        auto* zaznam = AcDbLinetypeTableRecord::cast(objekt.object());
        if (zaznam->setName(nazev) + ZapisDefinici(*zaznam, definice) == 0)
            ++aktualizovano;
        else
            acutPrintf(L"\nNelze aktualizovat typ čáry %ls", nazev.kwszPtr());
    }
    acutPrintf(L"\nBylo přejmenováno a zaktualizováno %i typů čar (Linetype)", aktualizovano);
    return aktualizovano;
}
