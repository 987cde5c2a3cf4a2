// AcDbDatabase::insert: another database's model space becomes a block definition of this one, with
// the layers, line types, text styles and blocks its entities use.
#include <map>

#include "dbents.h"
#include "dbmtext.h"
#include "dbsymtb.h"
#include "sim/db/ImpDatabase.h"

namespace {

using sim::db::TableKind;

class Inserter {
public:
    Inserter(AcDbImpDatabase& src, AcDbImpDatabase& dst) : m_src(src), m_dst(dst) {}

    /// The record of this database that stands for a record of the source: one of the same name,
    /// else a copy.
    AcDbObjectId record(AcDbObjectId srcId, TableKind kind)
    {
        if (srcId.isNull())
            return srcId;
        if (auto it = m_map.find(srcId); it != m_map.end())
            return it->second;
        auto* rec = AcDbSymbolTableRecord::cast(m_src.find(srcId.handle()));
        if (!rec)
            return AcDbObjectId::kNull;
        AcDbSymbolTable* table = dstTable(kind);
        AcDbObjectId existing;
        if (table && table->getAt(AcDbImpDatabase::name(rec).c_str(), existing) == Acad::eOk)
            return m_map[srcId] = existing;
        auto* copy = static_cast<AcDbSymbolTableRecord*>(rec->clone());
        if (auto* layer = AcDbLayerTableRecord::cast(copy))
            AcDbImpDatabase::linetypeId(layer) = record(layer->linetypeObjectId(), sim::db::kLinetypeTable);
        if (auto* lt = AcDbLinetypeTableRecord::cast(copy))
            for (int i = 0; i < lt->numDashes(); ++i)
                if (!lt->shapeStyleAt(i).isNull())
                    lt->setShapeStyleAt(i, record(lt->shapeStyleAt(i), sim::db::kTextStyleTable));
        return m_map[srcId] = addRecord(table, copy);
    }

    /// The block of this database for a block of the source, its entities copied when it is new.
    AcDbObjectId block(AcDbObjectId srcId)
    {
        if (auto it = m_map.find(srcId); it != m_map.end())
            return it->second;
        auto* src = AcDbBlockTableRecord::cast(m_src.find(srcId.handle()));
        if (!src)
            return AcDbObjectId::kNull;
        AcDbSymbolTable* table = dstTable(sim::db::kBlockTable);
        std::wstring name = AcDbImpDatabase::name(src);
        AcDbObjectId existing;
        if (!src->isAnonymous() && table->getAt(name.c_str(), existing) == Acad::eOk)
            return m_map[srcId] = existing;
        auto* copy = newBlock(src->isAnonymous() ? std::wstring(L"*U") : name, *src);
        AcDbObjectId id = copy->objectId();
        m_map[srcId] = id;
        copyEntities(*src, *copy);
        return id;
    }

    AcDbBlockTableRecord* newBlock(const std::wstring& name, const AcDbBlockTableRecord& like)
    {
        auto* btr = new AcDbBlockTableRecord;
        AcDbImpDatabase::name(btr) = name;
        btr->setOrigin(like.origin());
        const ACHAR* comments = nullptr;
        like.comments(comments);
        btr->setComments(comments);
        AcDbSymbolTable* table = dstTable(sim::db::kBlockTable);
        // The table's add gives "*U" its next free name and makes the block's markers.
        m_dst.touch(table);
        AcDbImpObject* ti = AcDbImpDatabase::imp(table);
        bool wasWriter = ti->writer;
        ti->writer = true;
        AcDbObjectId id;
        Acad::ErrorStatus es = table->add(id, btr);
        ti->writer = wasWriter;
        if (es != Acad::eOk) {
            delete btr;
            return nullptr;
        }
        btr->close();
        return btr;
    }

    void copyEntities(AcDbBlockTableRecord& src, AcDbBlockTableRecord& dst)
    {
        m_dst.touch(&dst);
        for (AcDbObjectId id : AcDbImpDatabase::entities(&src)) {
            auto* ent = AcDbEntity::cast(m_src.find(id.handle()));
            if (!ent || ent->isErased())
                continue;
            AcDbEntity* copy = copyEntity(*ent, dst.objectId());
            if (!copy)
                continue;
            AcDbImpDatabase::entities(&dst).push_back(copy->objectId());
            copyOwned(*ent, *copy);
        }
    }

private:
    AcDbSymbolTable* dstTable(TableKind kind) { return AcDbSymbolTable::cast(m_dst.find(m_dst.tables[kind].handle())); }

    AcDbObjectId addRecord(AcDbSymbolTable* table, AcDbSymbolTableRecord* rec)
    {
        if (!table) {
            delete rec;
            return AcDbObjectId::kNull;
        }
        AcDbObjectId id;
        if (m_dst.addObject(rec, table->objectId(), id, AcDbHandle(), false) != Acad::eOk) {
            delete rec;
            return AcDbObjectId::kNull;
        }
        m_dst.touch(table);
        AcDbImpDatabase::records(table).push_back(id);
        return id;
    }

    /// A copy of a source entity in this database under owner, its references mapped.
    AcDbEntity* copyEntity(const AcDbEntity& ent, AcDbObjectId owner)
    {
        auto* copy = static_cast<AcDbEntity*>(ent.clone());
        AcDbImpDatabase::layerId(copy) = record(ent.layerId(), sim::db::kLayerTable);
        AcDbImpDatabase::linetypeId(copy) = record(ent.linetypeId(), sim::db::kLinetypeTable);
        if (auto* t = AcDbText::cast(copy))
            AcDbImpDatabase::textStyleId(t) = record(t->textStyle(), sim::db::kTextStyleTable);
        if (auto* m = AcDbMText::cast(copy))
            AcDbImpDatabase::textStyleId(m) = record(m->textStyle(), sim::db::kTextStyleTable);
        if (auto* ref = AcDbBlockReference::cast(copy)) {
            AcDbImpDatabase::blockId(ref) = block(ref->blockTableRecord());
            AcDbImpDatabase::attributes(ref).clear();
            AcDbImpDatabase::seqEnd(ref) = AcDbObjectId::kNull;
        }
        if (auto* pl = AcDb2dPolyline::cast(copy)) {
            AcDbImpDatabase::vertices(pl).clear();
            AcDbImpDatabase::seqEnd(pl) = AcDbObjectId::kNull;
        }
        AcDbObjectId id;
        if (m_dst.addObject(copy, owner, id, AcDbHandle(), false) != Acad::eOk) {
            delete copy;
            return nullptr;
        }
        return copy;
    }

    /// The attributes or vertices of a source entity, copied under its copy.
    void copyOwned(const AcDbEntity& ent, AcDbEntity& copy)
    {
        std::vector<AcDbObjectId> children;
        AcDbObjectId seqEnd;
        if (auto* ref = AcDbBlockReference::cast(&ent)) {
            children = AcDbImpDatabase::attributes(const_cast<AcDbBlockReference*>(ref));
            seqEnd = AcDbImpDatabase::seqEnd(const_cast<AcDbBlockReference*>(ref));
        } else if (auto* pl = AcDb2dPolyline::cast(&ent)) {
            children = AcDbImpDatabase::vertices(const_cast<AcDb2dPolyline*>(pl));
            seqEnd = AcDbImpDatabase::seqEnd(const_cast<AcDb2dPolyline*>(pl));
        } else {
            return;
        }
        for (AcDbObjectId id : children) {
            auto* child = AcDbEntity::cast(m_src.find(id.handle()));
            if (!child || child->isErased())
                continue;
            if (AcDbEntity* c = copyEntity(*child, copy.objectId()))
                sim::db::link(&copy, c->objectId());
        }
        if (auto* end = AcDbEntity::cast(m_src.find(seqEnd.handle())))
            if (AcDbEntity* c = copyEntity(*end, copy.objectId()))
                sim::db::link(&copy, c->objectId());
    }

    AcDbImpDatabase& m_src;
    AcDbImpDatabase& m_dst;
    std::map<AcDbObjectId, AcDbObjectId> m_map;
};

} // namespace

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& blockId, const ACHAR* pBlockName, AcDbDatabase* pDb, bool)
{
    blockId = AcDbObjectId::kNull;
    AcDbImpDatabase* src = AcDbImpDatabase::of(pDb);
    if (!pBlockName || !*pBlockName || !src || pDb == this)
        return Acad::eInvalidInput;
    auto* blocks = AcDbBlockTable::cast(mpImpDb->find(mpImpDb->tables[sim::db::kBlockTable].handle()));
    auto* srcBlocks = AcDbBlockTable::cast(src->find(src->tables[sim::db::kBlockTable].handle()));
    if (!blocks || !srcBlocks)
        return Acad::eNoDatabase;
    if (blocks->has(pBlockName))
        return Acad::eDuplicateRecordName;
    AcDbObjectId modelId;
    if (srcBlocks->getAt(ACDB_MODEL_SPACE, modelId) != Acad::eOk)
        return Acad::eNoDatabase;
    auto* model = AcDbBlockTableRecord::cast(src->find(modelId.handle()));
    Inserter inserter(*src, *mpImpDb);
    AcDbBlockTableRecord* btr = inserter.newBlock(pBlockName, AcDbBlockTableRecord());
    if (!btr)
        return Acad::eInvalidBlockName;
    inserter.copyEntities(*model, *btr);
    blockId = btr->objectId();
    return Acad::eOk;
}
