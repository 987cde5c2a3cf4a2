// AcDbDatabase::insert: another database's model space becomes a block definition of this one, with
// the layers, line types, text and dimension styles, blocks and registered applications its entities use, the
// extended data of the source's model space (a dynamic block's definition) and its base point.
#include <cstdlib>
#include <map>
#include <string>

#include "dbdim.h"
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
        if (auto* style = AcDbDimStyleTableRecord::cast(copy))
            for (auto& [code, value] : AcDbImpDatabase::dimValues(style))
                if (auto* id = std::get_if<AcDbObjectId>(&value))
                    *id = dimStyleReference(code, *id);
        if (auto* lt = AcDbLinetypeTableRecord::cast(copy))
            for (int i = 0; i < lt->numDashes(); ++i)
                if (!lt->shapeStyleAt(i).isNull())
                    lt->setShapeStyleAt(i, record(lt->shapeStyleAt(i), sim::db::kTextStyleTable));
        return m_map[srcId] = addRecord(table, copy);
    }

    /// What a dimension style's value points at: its text style (340), arrow blocks (341-344) or
    /// line types (345-347).
    AcDbObjectId dimStyleReference(int code, AcDbObjectId srcId)
    {
        if (code == 340)
            return record(srcId, sim::db::kTextStyleTable);
        if (code >= 341 && code <= 344)
            return block(srcId);
        if (code >= 345 && code <= 347)
            return record(srcId, sim::db::kLinetypeTable);
        return AcDbObjectId::kNull;
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
        // An anonymous block keeps its kind: a dimension's "*D" stays a "*D" under its next free number.
        std::wstring kind = name.size() >= 2 && name[0] == L'*' ? name.substr(0, 2) : std::wstring(L"*U");
        auto* copy = newBlock(src->isAnonymous() ? kind : name, *src);
        AcDbObjectId id = copy->objectId();
        m_map[srcId] = id;
        copyEntities(*src, *copy);
        return id;
    }

    /// A new block of the name with like's origin (or the one given), comments and extended data.
    AcDbBlockTableRecord* newBlock(const std::wstring& name, const AcDbBlockTableRecord& like, const AcGePoint3d* origin = nullptr)
    {
        auto* btr = new AcDbBlockTableRecord;
        AcDbImpDatabase::name(btr) = name;
        btr->setOrigin(origin ? *origin : like.origin());
        const ACHAR* comments = nullptr;
        like.comments(comments);
        btr->setComments(comments);
        AcDbImpDatabase::imp(btr)->xdata = AcDbImpDatabase::imp(&like)->xdata;
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
        registerApps(*btr);
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
    /// The applications of an object's extended data, registered here as the source has them.
    void registerApps(const AcDbObject& obj)
    {
        for (const auto& [app, chain] : AcDbImpDatabase::imp(&obj)->xdata) {
            if (m_apps.count(app))
                continue;
            m_apps.insert({app, true});
            AcDbSymbolTable* table = dstTable(sim::db::kRegAppTable);
            AcDbObjectId existing;
            if (!table || table->getAt(app.c_str(), existing) == Acad::eOk)
                continue;
            auto* srcTable = AcDbSymbolTable::cast(m_src.find(m_src.tables[sim::db::kRegAppTable].handle()));
            AcDbObjectId srcId;
            if (srcTable && srcTable->getAt(app.c_str(), srcId) == Acad::eOk) {
                record(srcId, sim::db::kRegAppTable);
                continue;
            }
            auto* rec = new AcDbRegAppTableRecord;
            AcDbImpDatabase::name(rec) = app;
            addRecord(table, rec);
        }
    }

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
        registerApps(*copy);
        AcDbImpDatabase::layerId(copy) = record(ent.layerId(), sim::db::kLayerTable);
        AcDbImpDatabase::linetypeId(copy) = record(ent.linetypeId(), sim::db::kLinetypeTable);
        if (auto* t = AcDbText::cast(copy))
            AcDbImpDatabase::textStyleId(t) = record(t->textStyle(), sim::db::kTextStyleTable);
        if (auto* m = AcDbMText::cast(copy))
            AcDbImpDatabase::textStyleId(m) = record(m->textStyle(), sim::db::kTextStyleTable);
        if (auto* dim = AcDbDimension::cast(copy)) {
            AcDbImpDatabase::dimensionStyle(dim) = record(dim->dimensionStyle(), sim::db::kDimStyleTable);
            AcDbImpDatabase::dimensionBlock(dim) = block(dim->dimBlockId());
        }
        if (auto* ref = AcDbBlockReference::cast(copy)) {
            AcDbImpDatabase::blockId(ref) = block(ref->blockTableRecord());
            AcDbImpDatabase::attributes(ref).clear();
            AcDbImpDatabase::seqEnd(ref) = AcDbObjectId::kNull;
        }
        if (auto* verts = AcDbImpDatabase::polylineVertices(copy)) {
            verts->clear();
            *AcDbImpDatabase::polylineSeqEnd(copy) = AcDbObjectId::kNull;
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
        } else if (auto* verts = AcDbImpDatabase::polylineVertices(const_cast<AcDbEntity*>(&ent))) {
            children = *verts;
            seqEnd = *AcDbImpDatabase::polylineSeqEnd(const_cast<AcDbEntity*>(&ent));
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
    std::map<std::wstring, bool> m_apps;
};

/// The source's base point for insertion ($INSBASE, kept with the header variables it does not
/// model); the origin when it has none.
AcGePoint3d insertionBase(const AcDbImpDatabase& db)
{
    const sim::db::RawTags& h = db.extras.header;
    AcGePoint3d p = AcGePoint3d::kOrigin;
    for (size_t i = 0; i < h.size(); ++i) {
        if (h[i].code != 9 || h[i].value != "$INSBASE")
            continue;
        for (size_t k = i + 1; k < h.size() && h[k].code != 9; ++k) {
            double v = std::strtod(h[k].value.c_str(), nullptr);
            if (h[k].code == 10)
                p.x = v;
            else if (h[k].code == 20)
                p.y = v;
            else if (h[k].code == 30)
                p.z = v;
        }
        break;
    }
    return p;
}

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
    if (!model)
        return Acad::eNoDatabase;
    Inserter inserter(*src, *mpImpDb);
    AcGePoint3d base = insertionBase(*src);
    AcDbBlockTableRecord* btr = inserter.newBlock(pBlockName, *model, &base);
    if (!btr)
        return Acad::eInvalidBlockName;
    inserter.copyEntities(*model, *btr);
    blockId = btr->objectId();
    return Acad::eOk;
}
