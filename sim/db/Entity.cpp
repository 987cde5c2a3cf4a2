// AcDbEntity: layer, colour, line type, line weight and visibility, the database defaults, and the
// transformed copy.
#include <cwchar>

#include "dbapserv.h"
#include "dbsymtb.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/ImpDatabase.h"

SIM_DB_DEFINE_MEMBERS(AcDbEntity, AcDbObject, nullptr)

namespace {

ACHAR* copyString(const std::wstring& s)
{
    auto* out = new ACHAR[s.size() + 1];
    std::wmemcpy(out, s.c_str(), s.size() + 1);
    return out;
}

/// The name of a symbol table record by id, or null.
ACHAR* recordName(AcDbObjectId id)
{
    auto* rec = AcDbSymbolTableRecord::cast(AcDbImpDatabase::lookup(id));
    if (!rec)
        return nullptr;
    const ACHAR* name = nullptr;
    rec->getName(name);
    return copyString(name);
}

/// A record of a table by name in a database: eKeyNotFound when there is none.
Acad::ErrorStatus findRecord(AcDbDatabase* db, sim::db::TableKind kind, const ACHAR* name, AcDbObjectId& id)
{
    if (!name)
        return Acad::eNullObjectPointer;
    auto* table = AcDbSymbolTable::cast(AcDbImpDatabase::lookup(sim::db::tableId(db, kind)));
    if (!table)
        return Acad::eNoDatabase;
    return table->getAt(name, id) == Acad::eOk ? Acad::eOk : Acad::eKeyNotFound;
}

} // namespace

AcDbObjectId AcDbEntity::blockId() const
{
    AcDbObjectId owner = ownerId();
    return AcDbBlockTableRecord::cast(AcDbImpDatabase::lookup(owner)) ? owner : AcDbObjectId::kNull;
}

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, Adesk::Boolean)
{
    SIM_DB_ASSERT_WRITE();
    m_color = color;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 color, Adesk::Boolean)
{
    SIM_DB_ASSERT_WRITE();
    if (color > 257)
        return Acad::eInvalidInput;
    AcCmColor c;
    if (Acad::ErrorStatus es = c.setColorIndex(color); es != Acad::eOk)
        return es;
    m_color = c;
    return Acad::eOk;
}

ACHAR* AcDbEntity::layer() const { return recordName(m_layerId); }

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* newVal, Adesk::Boolean doSubents, bool allowHiddenLayer)
{
    SIM_DB_ASSERT_WRITE();
    AcDbObjectId id;
    if (Acad::ErrorStatus es = findRecord(databaseToUse(), sim::db::kLayerTable, newVal, id); es != Acad::eOk)
        return es;
    return setLayer(id, doSubents, allowHiddenLayer);
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId newVal, Adesk::Boolean, bool)
{
    SIM_DB_ASSERT_WRITE();
    if (newVal.isNull())
        return Acad::eNullObjectId;
    AcDbObject* rec = AcDbImpDatabase::lookup(newVal);
    if (!AcDbLayerTableRecord::cast(rec))
        return rec ? Acad::eWrongObjectType : Acad::eUnknownHandle;
    if (database() && newVal.database() != database())
        return Acad::eWrongDatabase;
    if (rec->isErased())
        return Acad::eWasErased;
    m_layerId = newVal;
    return Acad::eOk;
}

ACHAR* AcDbEntity::linetype() const { return recordName(m_linetypeId); }

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* newVal, Adesk::Boolean doSubents)
{
    SIM_DB_ASSERT_WRITE();
    AcDbObjectId id;
    if (Acad::ErrorStatus es = findRecord(databaseToUse(), sim::db::kLinetypeTable, newVal, id); es != Acad::eOk)
        return es;
    return setLinetype(id, doSubents);
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId newVal, Adesk::Boolean)
{
    SIM_DB_ASSERT_WRITE();
    if (newVal.isNull())
        return Acad::eNullObjectId;
    AcDbObject* rec = AcDbImpDatabase::lookup(newVal);
    if (!AcDbLinetypeTableRecord::cast(rec))
        return rec ? Acad::eWrongObjectType : Acad::eUnknownHandle;
    if (database() && newVal.database() != database())
        return Acad::eWrongDatabase;
    if (rec->isErased())
        return Acad::eWasErased;
    m_linetypeId = newVal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double newval, Adesk::Boolean)
{
    SIM_DB_ASSERT_WRITE();
    if (!(newval > 0.0))
        return Acad::eInvalidInput;
    m_linetypeScale = newval;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility newVal, Adesk::Boolean)
{
    SIM_DB_ASSERT_WRITE();
    m_visibility = newVal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight newVal, Adesk::Boolean)
{
    SIM_DB_ASSERT_WRITE();
    m_lineWeight = newVal;
    return Acad::eOk;
}

void AcDbEntity::setDatabaseDefaults(bool doSubents) { setDatabaseDefaults(databaseToUse(), doSubents); }

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* pDb, bool)
{
    if (!pDb || !sim::db::beginChange(this))
        return;
    setIntendedDatabase(pDb);
    m_layerId = pDb->clayer();
    m_linetypeId = pDb->celtype();
    m_color = pDb->cecolor();
    m_linetypeScale = pDb->celtscale();
    m_lineWeight = pDb->celweight();
}

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d&) { return Acad::eNotApplicable; }

Acad::ErrorStatus AcDbEntity::getTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& pEnt) const
{
    pEnt = static_cast<AcDbEntity*>(clone());
    Acad::ErrorStatus es = pEnt->transformBy(xform);
    if (es != Acad::eOk) {
        delete pEnt;
        pEnt = nullptr;
    }
    return es;
}
