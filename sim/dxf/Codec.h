// The object layer: one codec per kind of object the database models, reading an object from the
// fields of its record and writing it back. Kinds without a codec are kept as tag storage.
#pragma once
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dbmain.h"
#include "dbsymtb.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/dxf/Fields.h"
#include "sim/dxf/ObjectWriter.h"

namespace sim::dxf {

/// What the readers of objects need of the database being read: ids of handles, symbol table
/// records by name (a name no record has yet is settled when the whole file is read), and what
/// the record said beyond the object (the paper space flag).
class ReadContext {
public:
    explicit ReadContext(AcDbDatabase* db) : db(db) {}

    AcDbObjectId id(AcDbHandle h) const { return h.isNull() ? AcDbObjectId::kNull : AcDbObjectId(db, h); }

    /// A record of the table now; noted to be settled later when the table has no such name yet.
    /// False when the record's name is spelled otherwise (in another case).
    enum class Ref { Layer, Linetype, TextStyle, MTextStyle, Block, LayerLinetype, Arrow, Arrow1, Arrow2 };
    /// The arrow kinds: a dimension style's blocks under 342, 343 and 344.
    static bool isArrow(Ref ref) { return ref == Ref::Arrow || ref == Ref::Arrow1 || ref == Ref::Arrow2; }
    bool refer(AcDbObject* obj, Ref ref, std::string_view name);
    /// A record the reader has added to a table.
    void addName(sim::db::TableKind table, std::string_view name, AcDbObjectId id);
    AcDbObjectId find(sim::db::TableKind table, std::string_view name, bool* exact = nullptr) const;

    struct Pending {
        AcDbObject* obj;
        Ref ref;
        std::string name;
    };
    std::vector<Pending> pending;

    AcDbDatabase* db;
    /// The entity just read said it is in paper space (67 1).
    bool paperSpace = false;

    /// The symbol table a reference of this kind names.
    static sim::db::TableKind tableOf(Ref ref);

private:
    struct NameHash {
        using is_transparent = void;
        size_t operator()(std::string_view s) const { return std::hash<std::string_view>()(s); }
    };
    std::unordered_map<std::string, AcDbObjectId, NameHash, std::equal_to<>> m_names[sim::db::kTableCount];
};

/// Sets the reference of an object to a record (as ReadContext::refer does).
void setReference(AcDbObject* obj, ReadContext::Ref ref, AcDbObjectId id);

/// Refers to a record by the name of a group; a name spelled in another case than its record's is
/// kept for the writer.
void referByName(Fields& f, ReadContext& cx, AcDbObject* obj, ReadContext::Ref ref, int code, std::string_view name);
/// The name to write for a record under a group: as the file spelled it while that still names the
/// record, else the record's own.
std::string_view spelledName(const ObjectWriter& w, int code, const std::string& recordName);

/// What the writers of objects need: names of records (UTF-8) and whether an owner is a paper
/// space layout.
class WriteContext {
public:
    explicit WriteContext(AcDbDatabase* db) : db(db) {}
    /// The name of a symbol table record; empty for a null or dangling id.
    const std::string& name(AcDbObjectId id);
    bool inPaperSpace(const AcDbEntity& ent);
    /// The line type ByLayer (what an entity without a 6 group has).
    bool isByLayer(AcDbObjectId linetype);
    AcDbDatabase* db;

private:
    std::unordered_map<Adesk::UInt64, std::string> m_names;
    std::unordered_map<Adesk::UInt64, bool> m_paper;
    AcDbObjectId m_byLayer;
    bool m_byLayerKnown = false;
};

class Codec {
public:
    virtual ~Codec() = default;
    /// The record name the codec reads and writes ("LINE").
    virtual std::string_view recordName() const = 0;
    /// The class of the objects it writes (exactly that class).
    virtual AcRxClass* objectClass() const = 0;
    /// A new object from the record's fields (not yet in the database); null when the record is
    /// one the codec leaves to tag storage (a 3D polyline for the 2D polyline's codec).
    virtual AcDbObject* read(Fields& f, ReadContext& cx) const = 0;
    /// The object's whole record.
    virtual void write(const AcDbObject& obj, ObjectWriter& w, WriteContext& cx) const = 0;
};

/// The codec of a record name; null for kinds kept as tag storage.
const Codec* codecForRecord(std::string_view recordName);
/// The codec of an object's class; null for none.
const Codec* codecForObject(const AcDbObject& obj);

/// The codecs of each family, for the registry.
std::vector<const Codec*> entityCodecs();
std::vector<const Codec*> tableCodecs();
std::vector<const Codec*> objectCodecs();
/// Scales, layouts, multileaders and their styles, dimensions.
std::vector<const Codec*> annotationCodecs();
/// Classic leaders.
std::vector<const Codec*> leaderCodecs();

} // namespace sim::dxf
