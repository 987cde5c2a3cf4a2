// Drawings for the walker's tests: entities appended to model space, paper space or a block
// definition of a database, and layers made on the way.
#pragma once
#include <gtest/gtest.h>

#include "arxHeaders.h"

namespace vykres {

/// Appends the entity to the record of that name (made as a block definition when missing);
/// gives its id.
inline AcDbObjectId Pridej(AcDbDatabase* db, const ACHAR* zaznam, AcDbEntity* entita)
{
    AcDbBlockTablePointer tabulka(db, AcDb::kForWrite);
    EXPECT_EQ(tabulka.openStatus(), Acad::eOk);
    AcDbObjectId idZaznamu;
    if (tabulka->getAt(zaznam, idZaznamu) != Acad::eOk) {
        auto* novy = new AcDbBlockTableRecord;
        novy->setName(zaznam);
        EXPECT_EQ(tabulka->add(idZaznamu, novy), Acad::eOk);
        novy->close();
    }
    AcDbBlockTableRecordPointer blok(idZaznamu, AcDb::kForWrite);
    AcDbObjectId id;
    EXPECT_EQ(blok->appendAcDbEntity(id, entita), Acad::eOk);
    entita->close();
    return id;
}

inline AcDbObjectId Usecka(AcDbDatabase* db, const ACHAR* zaznam, AcGePoint3d a, AcGePoint3d b)
{
    return Pridej(db, zaznam, new AcDbLine(a, b));
}

/// A layer with the flags given.
inline AcDbObjectId Hladina(AcDbDatabase* db, const ACHAR* nazev, bool vypnuta = false, bool zmrazena = false,
                            bool zamcena = false)
{
    AcDbLayerTablePointer tabulka(db, AcDb::kForWrite);
    auto* hladina = new AcDbLayerTableRecord;
    hladina->setName(nazev);
    hladina->setIsOff(vypnuta);
    hladina->setIsFrozen(zmrazena);
    hladina->setIsLocked(zamcena);
    AcDbObjectId id;
    EXPECT_EQ(tabulka->add(id, hladina), Acad::eOk);
    hladina->close();
    return id;
}

} // namespace vykres
