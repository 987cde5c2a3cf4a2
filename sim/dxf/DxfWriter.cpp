// Writing a database as DXF.
#include "sim/dxf/DxfWriter.h"

#include <algorithm>
#include <limits>
#include <set>
#include <unordered_map>

#include "dbdict.h"
#include "dbents.h"
#include "sim/core/Session.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/FileAccess.h"
#include "sim/db/ImpObject.h"
#include "sim/dxf/Codec.h"
#include "sim/dxf/Header.h"
#include "sim/dxf/TableCodecs.h"
#include "sim/dxf/TagStorage.h"
#include "sim/dxf/Template.h"

namespace sim::dxf {

namespace {

/// Classes the file must declare in its CLASSES section for the records that use them: record
/// name, class, application, proxy flags, is an entity.
struct ClassInfo {
    const char* record;
    const char* cls;
    const char* app;
    int proxyFlags;
    bool entity;
};
const ClassInfo kClasses[] = {
    {"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault", "ObjectDBX Classes", 0, false},
    {"ACDBPLACEHOLDER", "AcDbPlaceHolder", "ObjectDBX Classes", 0, false},
    {"LAYOUT", "AcDbLayout", "ObjectDBX Classes", 0, false},
    {"DICTIONARYVAR", "AcDbDictionaryVar", "ObjectDBX Classes", 0, false},
    {"SCALE", "AcDbScale", "ObjectDBX Classes", 1153, false},
    {"TABLESTYLE", "AcDbTableStyle", "ObjectDBX Classes", 4095, false},
    {"MLEADERSTYLE", "AcDbMLeaderStyle", "ACDB_MLEADERSTYLE_CLASS", 4095, false},
    {"MULTILEADER", "AcDbMLeader", "ACDB_MLEADER_CLASS", 3071, true},
    {"ACDB_TEXTOBJECTCONTEXTDATA_CLASS", "AcDbTextObjectContextData", "ObjectDBX Classes", 1153, false},
    {"ACDB_MTEXTOBJECTCONTEXTDATA_CLASS", "AcDbMTextObjectContextData", "ObjectDBX Classes", 1153, false},
    {"ACDB_ALDIMOBJECTCONTEXTDATA_CLASS", "AcDbAlignedDimensionObjectContextData", "ObjectDBX Classes", 1153, false},
    {"ACDB_RDIMOBJECTCONTEXTDATA_CLASS", "AcDbRotatedDimensionObjectContextData", "ObjectDBX Classes", 1153, false},
    {"ACDB_MLEADEROBJECTCONTEXTDATA_CLASS", "AcDbMLeaderObjectContextData", "ObjectDBX Classes", 1153, false},
    {"ACDB_BLKREFOBJECTCONTEXTDATA_CLASS", "AcDbBlkrefObjectContextData", "ObjectDBX Classes", 1153, false},
};

bool isSpace(const std::wstring& name, const wchar_t* space)
{
    return AcString(name.c_str()).compareNoCase(space) == 0;
}

class Writer {
public:
    Writer(AcDbDatabase& db, TagWriter& w) : m_db(db), m_w(w), m_cx(&db), m_ow(w) {}

    WriteReport run()
    {
        prepare();
        section("HEADER");
        writeHeader(m_db, sim::db::extras(&m_db).header, m_w, m_cx);
        endSection();
        section("CLASSES");
        classes();
        endSection();
        section("TABLES");
        tables();
        endSection();
        section("BLOCKS");
        blocks();
        endSection();
        section("ENTITIES");
        entities();
        endSection();
        section("OBJECTS");
        objects();
        endSection();
        for (const auto& [name, tags] : sim::db::extras(&m_db).sections) {
            section(name);
            m_w.raw(tags);
            endSection();
        }
        m_w.write(0, "EOF");
        return m_report;
    }

private:
    void section(std::string_view name)
    {
        m_w.write(0, "SECTION");
        m_w.write(2, name);
    }
    void endSection() { m_w.write(0, "ENDSEC"); }

    static bool live(const AcDbObject* obj) { return obj && !obj->isErased(); }

    /// What the file needs and the database may lack, added under new handles before anything is
    /// written.
    void prepare()
    {
        registerUsedApplications(m_db);
        std::vector<AcDbBlockTableRecord*> blocks;
        std::vector<AcDbEntity*> sequences;
        sim::db::forEachObject(&m_db, [&](AcDbObject* obj) {
            if (!live(obj))
                return;
            if (auto* btr = AcDbBlockTableRecord::cast(obj)) {
                if (sim::db::blockBeginId(btr).isNull() || sim::db::blockEndId(btr).isNull())
                    blocks.push_back(btr);
            } else if (auto* ref = AcDbBlockReference::cast(obj)) {
                if (!sim::db::attributeIds(ref).empty() && sim::db::seqEndId(ref).isNull())
                    sequences.push_back(ref);
            } else if (sim::db::polylineVertexIds(obj)) {
                if (sim::db::polylineSeqEndId(obj).isNull())
                    sequences.push_back(AcDbEntity::cast(obj));
            } else {
                sim::db::completeMLeader(obj);
            }
        });
        auto addChild = [&](AcDbObject* owner, AcDbEntity* child) {
            AcDbObjectId id;
            if (auto* ent = AcDbEntity::cast(owner))
                sim::db::setLayerId(child, ent->layerId());
            else
                sim::db::setLayerId(child, m_db.layerZero());
            if (sim::db::addObject(&m_db, child, AcDbHandle(), owner->objectId(), id) != Acad::eOk) {
                delete child;
                return;
            }
            sim::db::link(owner, id);
        };
        for (AcDbBlockTableRecord* btr : blocks) {
            if (sim::db::blockBeginId(btr).isNull())
                addChild(btr, new AcDbBlockBegin);
            if (sim::db::blockEndId(btr).isNull())
                addChild(btr, new AcDbBlockEnd);
        }
        for (AcDbEntity* ent : sequences)
            addChild(ent, new AcDbSequenceEnd);
    }

    void write(const AcDbObject& obj)
    {
        if (const Codec* codec = codecForObject(obj))
            codec->write(obj, m_ow, m_cx);
        else if (isTagStorage(obj))
            writeTagStorage(obj, m_ow, m_cx);
        else
            m_report.skippedClasses.push_back(obj.isA()->name());
    }

    void write(AcDbObjectId id)
    {
        if (AcDbObject* obj = sim::db::objectOf(id); live(obj))
            write(*obj);
    }

    // --- classes ------------------------------------------------------------------------------

    void classes()
    {
        const sim::db::RawTags& kept = sim::db::extras(&m_db).classes;
        m_w.raw(kept);
        std::set<std::string> declared;
        for (size_t i = 0; i + 1 < kept.size(); ++i)
            if (kept[i].code == 0 && kept[i + 1].code == 1)
                declared.insert(kept[i + 1].value);
        // Counted by class, and named once per class: only tag storage and objects read under a
        // record name of their own are named one by one.
        struct Count {
            const AcDbObject* sample = nullptr;
            int count = 0;
        };
        std::unordered_map<const AcRxClass*, Count> byClass;
        std::unordered_map<std::string, int> used;
        sim::db::forEachObject(&m_db, [&](AcDbObject* obj) {
            if (!live(obj))
                return;
            if (isTagStorage(*obj) || hasKeptRecordName(*obj)) {
                ++used[recordNameOf(*obj)];
                return;
            }
            Count& c = byClass[obj->isA()];
            if (!c.sample)
                c.sample = obj;
            ++c.count;
        });
        for (const auto& [cls, c] : byClass)
            used[recordNameOf(*c.sample)] += c.count;
        for (const ClassInfo& c : kClasses) {
            auto it = used.find(c.record);
            if (it == used.end() || declared.count(c.record))
                continue;
            m_w.write(0, "CLASS");
            m_w.write(1, c.record);
            m_w.write(2, c.cls);
            m_w.write(3, c.app);
            m_w.integer(90, c.proxyFlags);
            m_w.integer(91, it->second);
            m_w.integer(280, 0);
            m_w.integer(281, c.entity ? 1 : 0);
        }
    }

    static bool hasKeptRecordName(const AcDbObject& obj)
    {
        for (const auto& t : sim::db::impOf(&obj)->preservedTags)
            if (t.code == -1)
                return true;
        return false;
    }

    /// The record name an object is written under.
    static std::string recordNameOf(const AcDbObject& obj)
    {
        for (const auto& t : sim::db::impOf(&obj)->preservedTags)
            if (t.code == -1)
                return t.value;
        return sim::toUtf8(sim::db::dxfName(&obj));
    }

    // --- tables -------------------------------------------------------------------------------

    void tables()
    {
        for (const TableInfo& t : tableOrder()) {
            AcDbObject* table = sim::db::objectOf(sim::db::tableId(&m_db, t.kind));
            if (!live(table))
                continue;
            write(*table);
            for (AcDbObjectId id : sim::db::recordIds(static_cast<AcDbSymbolTable*>(table)))
                write(id);
            m_w.write(0, "ENDTAB");
        }
    }

    // --- blocks and entities ------------------------------------------------------------------

    std::vector<AcDbBlockTableRecord*> blockRecords()
    {
        std::vector<AcDbBlockTableRecord*> out;
        auto* table = AcDbSymbolTable::cast(sim::db::objectOf(m_db.blockTableId()));
        if (!table)
            return out;
        for (AcDbObjectId id : sim::db::recordIds(table))
            if (auto* btr = AcDbBlockTableRecord::cast(sim::db::objectOf(id)); live(btr))
                out.push_back(btr);
        return out;
    }

    void blocks()
    {
        for (AcDbBlockTableRecord* btr : blockRecords()) {
            const std::wstring& name = sim::db::recordName(btr);
            bool space = isSpace(name, ACDB_MODEL_SPACE) || isSpace(name, ACDB_PAPER_SPACE);
            write(sim::db::blockBeginId(btr));
            if (!space)
                for (AcDbObjectId id : sim::db::entityIds(btr))
                    entity(id);
            write(sim::db::blockEndId(btr));
        }
    }

    void entities()
    {
        for (const wchar_t* space : {ACDB_MODEL_SPACE, ACDB_PAPER_SPACE})
            for (AcDbBlockTableRecord* btr : blockRecords())
                if (isSpace(sim::db::recordName(btr), space))
                    for (AcDbObjectId id : sim::db::entityIds(btr))
                        entity(id);
    }

    /// An entity and the records that follow it: attributes or vertices and their end.
    void entity(AcDbObjectId id)
    {
        AcDbObject* obj = sim::db::objectOf(id);
        if (!live(obj))
            return;
        write(*obj);
        if (auto* ref = AcDbBlockReference::cast(obj)) {
            bool any = false;
            for (AcDbObjectId a : sim::db::attributeIds(ref))
                if (AcDbObject* attr = sim::db::objectOf(a); live(attr)) {
                    write(*attr);
                    any = true;
                }
            if (any)
                write(sim::db::seqEndId(ref));
        } else if (auto* verts = sim::db::polylineVertexIds(obj)) {
            for (AcDbObjectId v : *verts)
                write(v);
            write(sim::db::polylineSeqEndId(obj));
        }
    }

    // --- objects ------------------------------------------------------------------------------

    /// An object whose owner, or an owner of that, is erased goes with it.
    bool ownersLive(const AcDbObject* obj)
    {
        for (int depth = 0; obj && depth < 32; ++depth) {
            if (obj->isErased())
                return false;
            AcDbObjectId owner = obj->ownerId();
            if (owner.isNull())
                return true;
            obj = sim::db::objectOf(owner);
        }
        return true;
    }

    void objects()
    {
        AcDbObjectId nodId = m_db.namedObjectsDictionaryId();
        write(nodId);
        // The other objects in the order they were read, new ones after them by handle.
        std::vector<std::pair<std::pair<long long, Adesk::UInt64>, AcDbObject*>> rest;
        sim::db::forEachObject(&m_db, [&](AcDbObject* obj) {
            if (!live(obj) || obj->objectId() == nodId || AcDbEntity::cast(obj) || AcDbSymbolTable::cast(obj) ||
                AcDbSymbolTableRecord::cast(obj))
                return;
            int place = sim::db::impOf(obj)->preservedPlace;
            long long order = place > 0 ? place : std::numeric_limits<long long>::max();
            rest.push_back({{order, obj->objectId().handle().value()}, obj});
        });
        std::sort(rest.begin(), rest.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
        for (const auto& [key, obj] : rest)
            if (ownersLive(obj))
                write(*obj);
    }

    AcDbDatabase& m_db;
    TagWriter& m_w;
    WriteContext m_cx;
    ObjectWriter m_ow;
    WriteReport m_report;
};

} // namespace

WriteReport writeDxf(AcDbDatabase& db, TagWriter& w) { return Writer(db, w).run(); }

} // namespace sim::dxf
