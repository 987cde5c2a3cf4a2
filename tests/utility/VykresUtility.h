// Drawings for the utilities' tests: a platform run with the system's pick helpers, entities in
// model space and in block definitions, block references with attributes.
#pragma once
#include "system/SystemNaPlatforme.h"
#include "walker/VykresProTest.h"

namespace vykres {

inline AcDbDatabase* Db() { return acdbHostApplicationServices()->workingDatabase(); }

inline AcDbObjectId Model(AcDbEntity* e) { return Pridej(Db(), ACDB_MODEL_SPACE, e); }

/// A block definition with the entities (handed over); gives its id.
inline AcDbObjectId Blok(const ACHAR* nazev, std::initializer_list<AcDbEntity*> entity)
{
    AcDbObjectId id;
    for (AcDbEntity* e : entity)
        Pridej(Db(), nazev, e);
    AcDbBlockTablePointer tabulka(Db(), AcDb::kForRead);
    tabulka->getAt(nazev, id);
    return id;
}

/// A reference of the block in model space, with attributes of the tags and texts given.
inline AcDbObjectId Reference(AcDbObjectId blok, AcGePoint3d kde, double natoceni = 0.0,
                              std::initializer_list<std::pair<const ACHAR*, const ACHAR*>> atributy = {})
{
    auto* ref = new AcDbBlockReference(kde, blok);
    ref->setRotation(natoceni);
    AcDbObjectId id = Model(ref);
    AcDbObjectPointer<AcDbBlockReference> otevrena(id, AcDb::kForWrite);
    for (auto [tag, text] : atributy) {
        auto* att = new AcDbAttribute(kde, text, tag);
        att->setHeight(1.0);
        otevrena->appendAttribute(att);
        att->close();
    }
    return id;
}

} // namespace vykres
