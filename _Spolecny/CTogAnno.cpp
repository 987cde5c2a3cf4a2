// CTogAnno: annotative objects, the annotation scales they carry, and the drawing's standard list of
// annotation scales for millimetres and metres.
#include "StdAfx.h"
#include <map>
#include <memory>
#include "CTogAnno.h"
#include "CTogException.h"

namespace {

using SeznamMeritek = std::map<double, const ACHAR*>;

// Drawing units per paper millimetre and the scale's name.
const SeznamMeritek& MeritkaMetry()
{
    static const SeznamMeritek seznam{{0.1, L"1:100m"}, {0.15, L"1:150m"}, {0.2, L"1:200m"}, {0.25, L"1:250m"},
                                      {0.5, L"1:500m"}, {1.0, L"1:1000m"}, {2.0, L"1:2000m"}};
    return seznam;
}

const SeznamMeritek& MeritkaMilimetry()
{
    static const SeznamMeritek seznam{{5.0, L"1:5"},    {10.0, L"1:10"},   {20.0, L"1:20"},
                                      {25.0, L"1:25"},  {50.0, L"1:50"},   {75.0, L"1:75"},
                                      {100.0, L"1:100"}, {150.0, L"1:150"}, {200.0, L"1:200"}};
    return seznam;
}

// The database's collection of annotation scales; throws when the host doesn't give it.
AcDbObjectContextCollection* KolekceMeritek(AcDbDatabase* db)
{
    AcDbObjectContextManager* spravce = db->objectContextManager();
    if (spravce == nullptr)
        throw CTogException("Nelze získat ukazatel na objectContextManager", __LINE__, __FILE__);
    AcDbObjectContextCollection* kolekce = spravce->contextCollection(ACDB_ANNOTATIONSCALES_COLLECTION);
    if (kolekce == nullptr)
        throw CTogException("Nelze získat ukazatel na contextCollection(ACDB_ANNOTATIONSCALES_COLLECTION)", __LINE__,
                            __FILE__);
    return kolekce;
}

} // namespace

namespace CTogAnno {

bool NastavAnnotative(AcDbObject* objekt)
{
    if (objekt == nullptr)
        throw CTogException("Objekt je null", __LINE__, __FILE__);
    if (!objekt->isWriteEnabled())
        throw CTogException("Objekt není otevřen pro zápis!!", __LINE__, __FILE__);
    auto* pe = AcDbAnnotativeObjectPE::cast(objekt->queryX(AcDbAnnotativeObjectPE::desc()));
    if (pe == nullptr)
        throw CTogException("Nepodařilo se otevřít AcDbAnnotativeObjectPE", __LINE__, __FILE__);
    if (pe->annotative(objekt))
        return true;
    return pe->setAnnotative(objekt, true) == Acad::eOk;
}

bool PridejMeritko(AcDbEntity* entita, const AcDbAnnotationScale* meritko)
{
    if (entita == nullptr)
        throw CTogException("Entita je null", __LINE__, __FILE__);
    if (!entita->isWriteEnabled())
        throw CTogException("Entita není otevřena pro zápis!!", __LINE__, __FILE__);
    if (!NastavAnnotative(entita))
        throw CTogException("Objekt není možné nastavit jako annotative", __LINE__, __FILE__);
    auto* kontexty = AcDbObjectContextInterface::cast(entita->queryX(AcDbObjectContextInterface::desc()));
    if (kontexty == nullptr || meritko == nullptr)
        return false;
    const bool mela = kontexty->hasContext(entita, *meritko);
    if (kontexty->addContext(entita, *meritko) != Acad::eOk)
        return false;
    return !mela && kontexty->hasContext(entita, *meritko);
}

bool PridejAktualniMeritko(AcDbEntity* entita, AcDbDatabase* db)
{
    // The host hands out a copy of the current scale, which is ours to delete.
    std::unique_ptr<AcDbAnnotationScale> meritko(db != nullptr ? db->cannoscale() : nullptr);
    return PridejMeritko(entita, meritko.get());
}

void PridejMeritka(int jednotky)
{
    AcDbObjectContextCollection* kolekce = KolekceMeritek(acdbHostApplicationServices()->workingDatabase());
    const SeznamMeritek& seznam = jednotky == AcDb::kUnitsMeters ? MeritkaMetry() : MeritkaMilimetry();
    for (const auto& [jednotkyVykresu, nazev] : seznam) {
        std::unique_ptr<AcDbObjectContext> kontext(kolekce->getContext(nazev));
        if (kontext) {
            // The collection hands out a copy; what the host makes of a changed copy is its business.
            auto* meritko = AcDbAnnotationScale::cast(kontext.get());
            if (meritko == nullptr)
                throw CTogException("Nalezený ObjectContext není AnnotationScale", __LINE__, __FILE__);
            meritko->setPaperUnits(1.0);
            meritko->setDrawingUnits(jednotkyVykresu);
            continue;
        }
        AcDbAnnotationScale nove;
        nove.setName(nazev);
        nove.setPaperUnits(1.0);
        nove.setDrawingUnits(jednotkyVykresu);
        Acad::ErrorStatus es = kolekce->addContext(&nove);
        if (es != Acad::eOk)
            throw CTogException("Nelze založit nové měřítko", __LINE__, __FILE__, es);
    }
}

void SmazMeritka(AcDbDatabase* db)
{
    if (db == nullptr)
        throw CTogException("Předaný ukazatel na databazi (pDb) je null", __LINE__, __FILE__);
    AcDbObjectContextCollection* kolekce = KolekceMeritek(db);
    std::unique_ptr<AcDbObjectContextCollectionIterator> iterator(kolekce->newIterator());
    for (iterator->start(); !iterator->done(); iterator->next()) {
        AcDbObjectContext* kontext = nullptr;
        if (iterator->getContext(kontext) != Acad::eOk || kontext == nullptr)
            continue;
        std::unique_ptr<AcDbObjectContext> vlastni(kontext);
        AcString nazev;
        if (AcDbAnnotationScale::cast(kontext) != nullptr && kontext->getName(nazev) == Acad::eOk)
            // The host refuses the scales in use and the current one; those stay.
            kolekce->removeContext(nazev);
    }
}

} // namespace CTogAnno
