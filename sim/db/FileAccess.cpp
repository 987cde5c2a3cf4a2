// The drawing-file module's access past the host's checks.
#include "sim/db/FileAccess.h"

#include "sim/db/ImpDatabase.h"

namespace sim::db {

AcDbObject* objectOf(AcDbObjectId id) { return AcDbImpDatabase::lookup(id); }

void setRecordName(AcDbSymbolTableRecord* rec, const std::wstring& name) { AcDbImpDatabase::name(rec) = name; }
const std::wstring& recordName(const AcDbSymbolTableRecord* rec)
{
    return AcDbImpDatabase::name(const_cast<AcDbSymbolTableRecord*>(rec));
}

void setLayerId(AcDbEntity* ent, AcDbObjectId id) { AcDbImpDatabase::layerId(ent) = id; }
void setLinetypeId(AcDbEntity* ent, AcDbObjectId id) { AcDbImpDatabase::linetypeId(ent) = id; }
void setTextStyleId(AcDbText* text, AcDbObjectId id) { AcDbImpDatabase::textStyleId(text) = id; }
void setTextStyleId(AcDbMText* text, AcDbObjectId id) { AcDbImpDatabase::textStyleId(text) = id; }
void setBlockId(AcDbBlockReference* ref, AcDbObjectId id) { AcDbImpDatabase::blockId(ref) = id; }
void setDimensionBlock(AcDbDimension* dim, AcDbObjectId id) { AcDbImpDatabase::dimensionBlock(dim) = id; }
void setLinetypeId(AcDbLayerTableRecord* layer, AcDbObjectId id) { AcDbImpDatabase::linetypeId(layer) = id; }
std::wstring& textString(AcDbText* text) { return AcDbImpDatabase::textString(text); }
void reserveVertices(AcDbPolyline* pline, unsigned count) { AcDbImpDatabase::reserveVertices(pline, count); }

const std::vector<AcDbObjectId>& recordIds(const AcDbSymbolTable* table)
{
    return AcDbImpDatabase::records(const_cast<AcDbSymbolTable*>(table));
}
const std::vector<AcDbObjectId>& entityIds(const AcDbBlockTableRecord* btr)
{
    return AcDbImpDatabase::entities(const_cast<AcDbBlockTableRecord*>(btr));
}
AcDbObjectId blockBeginId(const AcDbBlockTableRecord* btr)
{
    return AcDbImpDatabase::blockBegin(const_cast<AcDbBlockTableRecord*>(btr));
}
AcDbObjectId blockEndId(const AcDbBlockTableRecord* btr)
{
    return AcDbImpDatabase::blockEnd(const_cast<AcDbBlockTableRecord*>(btr));
}
const std::vector<AcDbObjectId>& attributeIds(const AcDbBlockReference* ref)
{
    return AcDbImpDatabase::attributes(const_cast<AcDbBlockReference*>(ref));
}
AcDbObjectId seqEndId(const AcDbBlockReference* ref) { return AcDbImpDatabase::seqEnd(const_cast<AcDbBlockReference*>(ref)); }
const std::vector<AcDbObjectId>& vertexIds(const AcDb2dPolyline* pline)
{
    return AcDbImpDatabase::vertices(const_cast<AcDb2dPolyline*>(pline));
}
AcDbObjectId seqEndId(const AcDb2dPolyline* pline) { return AcDbImpDatabase::seqEnd(const_cast<AcDb2dPolyline*>(pline)); }
const std::vector<AcDbObjectId>* polylineVertexIds(const AcDbObject* obj)
{
    return AcDbImpDatabase::polylineVertices(const_cast<AcDbObject*>(obj));
}
AcDbObjectId polylineSeqEndId(const AcDbObject* obj)
{
    const AcDbObjectId* end = AcDbImpDatabase::polylineSeqEnd(const_cast<AcDbObject*>(obj));
    return end ? *end : AcDbObjectId::kNull;
}
const std::vector<std::pair<std::wstring, AcDbObjectId>>& dictionaryEntries(const AcDbDictionary* dict)
{
    return AcDbImpDatabase::entries(const_cast<AcDbDictionary*>(dict));
}

void clearDatabase(AcDbDatabase* db)
{
    AcDbImpDatabase* imp = AcDbImpDatabase::of(db);
    if (!imp)
        return;
    imp->writeOpen.clear();
    imp->objects.clear();
    for (AcDbObjectId& t : imp->tables)
        t = AcDbObjectId::kNull;
    imp->namedObjects = AcDbObjectId::kNull;
    imp->seed = 1;
    std::wstring fingerprint = imp->header.fingerprint;
    imp->header = Header();
    imp->header.fingerprint = fingerprint;
    imp->extras = DatabaseExtras();
}

} // namespace sim::db
