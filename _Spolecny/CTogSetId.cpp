// Lookups of standard objects in the working database by their whole name: layers, line types, text,
// dimension and multileader styles.
#include "StdAfx.h"
#include "CTogSet.h"
#include "CTogException.h"

namespace {

AcDbDatabase* PracovniDatabaze() { return acdbHostApplicationServices()->workingDatabase(); }

// The id of a record of a symbol table; the name is compared as the host compares it, case ignored.
template <class Tabulka>
AcDbObjectId IdVTabulce(const ACHAR* nazev)
{
    AcDbSymbolTablePointer<Tabulka> tabulka(PracovniDatabaze());
    if (tabulka.openStatus() != Acad::eOk)
        throw CTogException("Nelze otevřít table for reading", __LINE__, __FILE__);
    AcDbObjectId id;
    if (nazev == nullptr || *nazev == L'\0' || tabulka->getAt(nazev, id) != Acad::eOk)
        id = AcDbObjectId::kNull;
    return id;
}

} // namespace

AcDbObjectId IdHladiny(const ACHAR* nazev) { return IdVTabulce<AcDbLayerTable>(nazev); }

AcDbObjectId IdTypuCary(const ACHAR* nazev) { return IdVTabulce<AcDbLinetypeTable>(nazev); }

AcDbObjectId IdTextStylu(const ACHAR* nazev) { return IdVTabulce<AcDbTextStyleTable>(nazev); }

AcDbObjectId IdKotaStylu(const ACHAR* nazev) { return IdVTabulce<AcDbDimStyleTable>(nazev); }

AcDbObjectId IdMLeaderStylu(const ACHAR* nazev)
{
    AcDbDatabase* db = PracovniDatabaze();
    AcDbObjectId idSlovniku;
    Acad::ErrorStatus es;
    {
        AcDbDictionaryPointer nod(db ? db->namedObjectsDictionaryId() : AcDbObjectId::kNull);
        if (nod.openStatus() != Acad::eOk)
            throw CTogException("Nelze otevřít AcDbDictionary pro čtení", __LINE__, __FILE__);
        es = nod->getAt(L"ACAD_MLEADERSTYLE", idSlovniku);
    }
    // A drawing without the dictionary of multileader styles has none of them.
    if (es == Acad::eKeyNotFound)
        return AcDbObjectId::kNull;
    AcDbDictionaryPointer styly(idSlovniku);
    if (es == Acad::eOk)
        es = styly.openStatus();
    if (es != Acad::eOk)
        throw CTogException("Nelze otevřít AcDbDictionary pro čtení", __LINE__, __FILE__, es);
    AcDbObjectId idStylu;
    if (nazev == nullptr || *nazev == L'\0' || styly->getAt(nazev, idStylu) != Acad::eOk)
        idStylu = AcDbObjectId::kNull;
    return idStylu;
}
