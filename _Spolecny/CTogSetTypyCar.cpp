// Line types of the standard, loaded from the two .lin files of the installation, and the shape file
// and text style that their symbols and texts need.
#include "StdAfx.h"
#include <memory>
#include "CTogException.h"
#include "CTogRegistry.h"
#include "CTogSet.h"

namespace {

constexpr const ACHAR* kSouborShx = L"TG_IS.shx";

// The file name without its folder: the record made here keeps the whole path, as the host takes it.
AcString JmenoSouboru(const ACHAR* cesta)
{
    if (cesta == nullptr)
        return AcString();
    const ACHAR* jmeno = cesta;
    for (const ACHAR* p = cesta; *p; ++p)
        if (*p == L'\\' || *p == L'/')
            jmeno = p + 1;
    return AcString(jmeno);
}

// The folder LIN of the common data, ending in a backslash.
AcString AdresarLin()
{
    AcString adresar =
        CTogRegistry::CestaKAdresari(CTogRegistry::kKlicVyrobce, L"LIN", TypCesty::CommonData, true, false);
    if (adresar.isEmpty() || adresar.getAt(static_cast<int>(adresar.length()) - 1) != L'\\')
        adresar += L"\\";
    return adresar;
}

} // namespace

void NactiTypCary(const ACHAR* nazev, AcDbDatabase* db)
{
    const bool symboly = nazev != nullptr && nazev[0] == L'_';
    AcString adresar = AdresarLin();
    AcString soubor = adresar + (symboly ? L"TG_IS.lin" : L"TG_zakladni_cary.lin");

    Acad::ErrorStatus es = acdbLoadLineTypeFile(nazev, soubor, db);
    if (es == Acad::eOk || es == Acad::eDuplicateRecordName)
        return;
    // The line type may lack what it draws with: the shape file, or the text style of its texts.
    if (symboly) {
        ZajistiStylShx(adresar, db);
    } else if (ZiskejTextStyl(L"TG_TXT_MALY").isNull()) {
        throw CTogException("Nelze vytvořit TG_TXT_MALY pro čáry s textem", __LINE__, __FILE__);
    }
    es = acdbLoadLineTypeFile(nazev, soubor, db);
    if (es != Acad::eOk)
        throw CTogException("Nelze načíst standardní typy čar ze souboru, možná jen není nastavena správná "
                            "vyhlednávací cesta nebo je otevřene LineTypeTable",
                            __LINE__, __FILE__, es);
}

AcDbObjectId ZajistiStylShx(const ACHAR* adresar, AcDbDatabase* db)
{
    AcDbTextStyleTablePointer tabulka(db);
    if (tabulka.openStatus() != Acad::eOk)
        return AcDbObjectId::kNull;

    AcDbTextStyleTableIterator* pIterator = nullptr;
    if (tabulka->newIterator(pIterator) != Acad::eOk || pIterator == nullptr)
        throw CTogException("Nelze získat AcDbTextStyleTableIterator", __LINE__, __FILE__);
    std::unique_ptr<AcDbTextStyleTableIterator> iterator(pIterator);
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        Acad::ErrorStatus es = iterator->getRecordId(id);
        AcDbTextStyleTableRecordPointer zaznam(id);
        if (es == Acad::eOk)
            es = zaznam.openStatus();
        if (es != Acad::eOk)
            throw CTogException("Nelze otevřít AcDbTextStyleTableRecord pro čtení", __LINE__, __FILE__, es);
        const ACHAR* soubor = nullptr;
        if (zaznam->fileName(soubor) == Acad::eOk && JmenoSouboru(soubor).compareNoCase(kSouborShx) == 0)
            return id;
    }
    iterator.reset();

    Acad::ErrorStatus es = tabulka->upgradeOpen();
    if (es != Acad::eOk)
        throw CTogException("Nelze přeotevřít AcDbTextStyleTableRecord pro zápis", __LINE__, __FILE__, es);
    AcDbTextStyleTableRecordPointer zaznam;
    zaznam.create();
    zaznam->setFileName(AcString(adresar) + kSouborShx);
    zaznam->setIsShapeFile(true);
    es = tabulka->add(zaznam);
    tabulka.close();
    if (es != Acad::eOk)
        throw CTogException("Nelze přidat záznam do LineType Table", __LINE__, __FILE__, es);
    // The walk found nothing, and that is what the caller hears.
    return AcDbObjectId::kNull;
}
