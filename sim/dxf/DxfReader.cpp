// Reading a DXF file into a database.
#include "sim/dxf/DxfReader.h"

#include <algorithm>

#include "dbents.h"
#include "dbobjptr.h"
#include "sim/core/Session.h"
#include "sim/db/ArrowBlocks.h"
#include "sim/db/FileAccess.h"
#include "sim/db/ImpObject.h"
#include "sim/dxf/DxfError.h"
#include "sim/dxf/HeapGrowth.h"
#include "sim/dxf/Header.h"
#include "sim/dxf/Preserved.h"
#include "sim/dxf/Record.h"
#include "sim/dxf/TableCodecs.h"
#include "sim/dxf/TagReader.h"
#include "sim/dxf/TagStorage.h"
#include "sim/dxf/Recovery.h"
#include "sim/dxf/Template.h"
#include "sim/dxf/TextCodec.h"
#include "sim/dxf/XData.h"

namespace sim::dxf {

namespace {

using sim::db::TableKind;

std::string str(std::string_view s) { return std::string(s); }

bool isEntityCodec(const Codec* c) { return c && c->objectClass()->isDerivedFrom(AcDbEntity::desc()); }

class Loader {
public:
    Loader(AcDbDatabase& db, std::string_view text, const std::function<void(size_t)>& consumed,
           std::vector<std::string>* repairs)
        : m_db(db), m_text(text), m_reader(text), m_cx(&db), m_consumed(consumed), m_heap(text.size()),
          m_repairs(repairs)
    {
    }

    void run()
    {
        for (;;) {
            const Tag* t = m_reader.peek();
            if (!t)
                throw DxfError(m_reader.line(), "the file ends without its EOF record");
            Tag tag = m_reader.take();
            if (tag.is(0, "EOF"))
                break;
            if (!tag.is(0, "SECTION"))
                throw DxfError(tag.line, "expected 0 SECTION, found " + std::to_string(tag.code) + " " + str(tag.value));
            Tag name = m_reader.take();
            if (name.code != 2)
                throw DxfError(name.line, "a section must be named by group 2");
            m_section = str(name.value);
            m_sectionLine = tag.line;
            if (m_section == "HEADER") {
                readHeader(m_reader, sim::db::extras(&m_db).header, m_header);
                // The seed is one above the file's handles; a record takes some 20 bytes at least.
                if (m_header.handseed && m_header.handseed->value() < m_text.size() / 16)
                    sim::db::reserveHandles(&m_db, static_cast<size_t>(m_header.handseed->value()));
            } else if (m_section == "CLASSES")
                rawSection(sim::db::extras(&m_db).classes);
            else if (m_section == "TABLES")
                tables();
            else if (m_section == "BLOCKS")
                blocks();
            else if (m_section == "ENTITIES")
                entities();
            else if (m_section == "OBJECTS")
                objects();
            else
                rawSection(sim::db::extras(&m_db).sections[m_section]);
            goesOn(); // the section's end, or the reason it has none
            m_reader.take();
        }
        finish();
    }

private:
    /// True while the section has records; throws when it ends without ENDSEC.
    bool goesOn()
    {
        const Tag* t = m_reader.peek();
        if (t && m_consumed) {
            // What lies well behind the record that comes is read.
            size_t at = static_cast<size_t>(t->value.data() - m_text.data());
            if (at > m_reported + kReportEvery) {
                m_reported = at - kReportEvery / 2;
                m_consumed(m_reported);
            }
        }
        if (!t || t->is(0, "SECTION") || t->is(0, "EOF"))
            throw DxfError(t ? t->line : m_reader.line(), "the " + m_section + " section that begins on line " +
                                                              std::to_string(m_sectionLine) + " is not closed by ENDSEC");
        return !t->is(0, "ENDSEC");
    }

    /// True until the record of the type that closes a run (ENDTAB, ENDBLK, SEQEND) comes.
    bool goesOnUntil(std::string_view end, std::string_view what, int line)
    {
        const Tag* t = m_reader.peek();
        if (!t || t->is(0, "ENDSEC") || t->is(0, "SECTION") || t->is(0, "EOF"))
            throw DxfError(t ? t->line : m_reader.line(), str(what) + " that begins on line " + std::to_string(line) +
                                                              " is not closed by " + str(end));
        return !t->is(0, end);
    }

    void rawSection(sim::db::RawTags& out)
    {
        while (goesOn()) {
            Tag t = m_reader.take();
            out.push_back({t.code, str(t.value)});
        }
    }

    /// Puts the object of the record just read into the database under the record's handle, with
    /// its reactors, extension dictionary, extended data and what its reader left.
    AcDbObjectId add(AcDbObject* obj, AcDbObjectId owner)
    {
        AcDbImpObject* imp = sim::db::impOf(obj);
        try {
            // Kept aside first: most objects keep nothing, and then get no storage for it.
            m_kept.clear();
            keepUntaken(m_rec, m_kept);
            if (!m_kept.empty()) {
                sim::db::RawTags& kept = imp->preservedTags.ensure();
                kept.insert(kept.end(), m_kept.begin(), m_kept.end());
            }
            for (AcDbHandle h : m_rec.reactors)
                imp->reactors.push_back(m_cx.id(h));
            imp->extDict = m_cx.id(m_rec.xdict);
            if (!m_rec.xdata.empty())
                imp->xdata = readXData(m_rec.xdata, &m_db);
        } catch (...) {
            delete obj;
            throw;
        }
        AcDbHandle handle = m_rec.handle;
        if (handle.isNull())
            handle = AcDbHandle(m_spare++); // a record without a handle gets one above the file's
        AcDbObjectId id;
        if (Acad::ErrorStatus es = sim::db::addObject(&m_db, obj, handle, owner, id); es != Acad::eOk) {
            delete obj;
            ACHAR hex[17];
            handle.getIntoAsciiBuffer(hex);
            if (es == Acad::eHandleExists)
                throw DxfError(m_rec.line, "the handle " + sim::toUtf8(hex) + " is used twice");
            throw DxfError(m_rec.line, "the " + str(m_rec.type) + " cannot be added to the drawing");
        }
        noteHandle(handle.value());
        m_heap.poll();
        return id;
    }

    void noteHandle(Adesk::UInt64 h)
    {
        m_maxHandle = std::max(m_maxHandle, h);
        m_spare = std::max(m_spare, h + 1);
    }

    // --- tables -------------------------------------------------------------------------------

    void tables()
    {
        while (goesOn()) {
            readRecord(m_reader, m_rec);
            if (m_rec.type != "TABLE")
                throw DxfError(m_rec.line, "expected a TABLE in the TABLES section, found " + str(m_rec.type));
            int line = m_rec.line;
            Fields f(m_rec);
            const Tag* nameTag = f.head().find(2);
            std::string name = nameTag ? str(nameTag->value) : std::string();
            const TableInfo* info = tableByName(name);
            if (!info)
                throw DxfError(line, "\"" + name + "\" is not a table of the format");
            if (!sim::db::tableId(&m_db, info->kind).isNull())
                throw DxfError(line, "the table " + name + " comes twice");
            AcDbObjectId tableId = add(info->tableCodec->read(f, m_cx), AcDbObjectId::kNull);
            sim::db::setTableId(&m_db, info->kind, tableId);
            AcDbObject* table = sim::db::objectOf(tableId);
            while (goesOnUntil("ENDTAB", "the table " + name, line)) {
                readRecord(m_reader, m_rec);
                if (m_rec.type != info->name)
                    throw DxfError(m_rec.line, "a " + str(m_rec.type) + " record in the " + name + " table");
                Fields rf(m_rec);
                AcDbObject* obj = codecForRecord(m_rec.type)->read(rf, m_cx);
                AcDbObjectId id = add(obj, tableId);
                sim::db::link(table, id);
                m_cx.addName(info->kind, sim::toUtf8(sim::db::recordName(AcDbSymbolTableRecord::cast(obj))), id);
            }
            m_reader.take();
        }
    }

    // --- blocks and entities --------------------------------------------------------------------

    void blocks()
    {
        while (goesOn()) {
            readRecord(m_reader, m_rec);
            if (m_rec.type != "BLOCK")
                throw DxfError(m_rec.line, "expected a BLOCK in the BLOCKS section, found " + str(m_rec.type));
            int line = m_rec.line;
            Fields f(m_rec);
            AcDbObject* begin = codecForRecord("BLOCK")->read(f, m_cx);
            f.sub("AcDbBlockBegin");
            std::string_view name = f.str(2);
            int flags = f.int32(70);
            AcGePoint3d base = f.point(10);
            f.take(3);
            std::wstring path = f.text(1);
            std::wstring description = f.text(4);
            f.keepBits(70, flags & ~15);

            AcDbObjectId btrId;
            if (m_rec.hasOwner && AcDbBlockTableRecord::cast(sim::db::objectOf(m_cx.id(m_rec.owner))))
                btrId = m_cx.id(m_rec.owner);
            else
                btrId = m_cx.find(sim::db::kBlockTable, name);
            std::string recovered;
            if (btrId.isNull() && m_repairs && !sim::db::tableId(&m_db, sim::db::kBlockTable).isNull()) {
                recovered = str(name);
                if (recovered.empty() || !m_cx.find(sim::db::kBlockTable, recovered).isNull()) {
                    do
                        recovered = "RECOVERED_" + std::to_string(++m_recoveredBlocks);
                    while (!m_cx.find(sim::db::kBlockTable, recovered).isNull());
                    m_repairs->push_back("line " + std::to_string(line) + ": a block without a name, named " +
                                         recovered);
                }
                // Under the handle its entities and its layout name it by, when the file gives one,
                // else above the file's handles.
                AcDbHandle handle = m_rec.hasOwner ? m_rec.owner : AcDbHandle();
                if (handle.isNull())
                    handle = AcDbHandle(std::max<Adesk::UInt64>(m_header.handseed ? m_header.handseed->value() : 0,
                                                                m_text.size()) + ++m_recoveredHandles);
                btrId = makeRecord(sim::db::kBlockTable, recovered, handle);
                m_repairs->push_back("line " + std::to_string(line) + ": the block \"" + recovered +
                                     "\" had no record in the BLOCK_RECORD table; made one");
            }
            if (btrId.isNull()) {
                delete begin;
                throw DxfError(line, "the block \"" + str(name) + "\" has no record in the BLOCK_RECORD table");
            }
            {
                AcDbObjectPointer<AcDbBlockTableRecord> btr(btrId, AcDb::kForWrite);
                if (btr.openStatus() == Acad::eOk) {
                    btr->setOrigin(base);
                    btr->setPathName(path.c_str());
                    btr->setComments(description.c_str());
                    btr->setIsFromOverlayReference(flags & 8);
                }
            }
            AcDbObject* btr = sim::db::objectOf(btrId);
            sim::db::link(btr, add(begin, btrId));
            while (goesOnUntil("ENDBLK", "the block \"" + str(name) + "\"", line)) {
                readRecord(m_reader, m_rec);
                entity(btrId);
            }
            readRecord(m_reader, m_rec);
            Fields ef(m_rec);
            sim::db::link(btr, add(codecForRecord("ENDBLK")->read(ef, m_cx), btrId));
        }
    }

    void entities()
    {
        while (goesOn()) {
            readRecord(m_reader, m_rec);
            entity(AcDbObjectId::kNull);
        }
    }

    /// The entity of the record just read, and the records that follow it (attributes, vertices),
    /// into its block record: owner, else the one its record names, else model or paper space.
    void entity(AcDbObjectId owner)
    {
        Fields f(m_rec);
        // An attribute, vertex or end outside its owner is kept as it is.
        bool stray = m_rec.type == "ATTRIB" || m_rec.type == "VERTEX" || m_rec.type == "SEQEND";
        const Codec* codec = stray ? nullptr : codecForRecord(m_rec.type);
        if (!isEntityCodec(codec) || m_rec.type == "BLOCK" || m_rec.type == "ENDBLK")
            codec = nullptr;
        AcDbObject* obj = codec ? codec->read(f, m_cx) : nullptr;
        bool kept = obj == nullptr;
        if (kept) {
            // A codec that left the record to tag storage may have taken groups: start afresh.
            std::fill(m_rec.taken.begin(), m_rec.taken.end(), 0);
            std::fill(m_rec.segmentRead.begin(), m_rec.segmentRead.end(), 0);
            Fields again(m_rec);
            obj = readTagStorage(again, m_cx, true);
        }
        bool paper = m_cx.paperSpace;
        if (owner.isNull() && m_rec.hasOwner && blockRecord(m_rec.owner))
            owner = m_cx.id(m_rec.owner);
        if (owner.isNull())
            owner = m_cx.find(sim::db::kBlockTable, paper ? "*Paper_Space" : "*Model_Space");
        std::string type = str(m_rec.type);
        AcDbObjectId id = add(obj, owner);
        if (owner.isNull())
            m_orphans[paper ? 1 : 0].push_back(id);
        else
            sim::db::link(blockRecord(owner.handle()), id);

        const char* follower = type == "INSERT" ? "ATTRIB" : type == "POLYLINE" ? "VERTEX" : nullptr;
        if (!follower)
            return;
        if (kept) {
            keepFollowers(obj, follower);
            return;
        }
        int line = m_rec.line;
        while (nextIs(m_reader, follower)) {
            readRecord(m_reader, m_rec);
            Fields ff(m_rec);
            sim::db::link(obj, add(codecForRecord(follower)->read(ff, m_cx), id));
        }
        if (nextIs(m_reader, "SEQEND")) {
            readRecord(m_reader, m_rec);
            Fields ff(m_rec);
            sim::db::link(obj, add(codecForRecord("SEQEND")->read(ff, m_cx), id));
        } else if (type == "POLYLINE") {
            throw DxfError(line, "the POLYLINE's vertices are not closed by SEQEND");
        }
    }

    /// The block record of a handle, or null; the last one is remembered, as entities come in runs
    /// of one owner.
    AcDbBlockTableRecord* blockRecord(AcDbHandle h)
    {
        if (h != m_lastOwner) {
            m_lastOwner = h;
            m_lastRecord = AcDbBlockTableRecord::cast(sim::db::objectOf(m_cx.id(h)));
        }
        return m_lastRecord;
    }

    /// The records that follow an entity kept as tag storage stay with it as they came.
    void keepFollowers(AcDbObject* obj, const char* follower)
    {
        if (!nextIs(m_reader, follower) && !nextIs(m_reader, "SEQEND"))
            return;
        sim::db::RawTags& kept = sim::db::impOf(obj)->preservedTags.ensure();
        kept.push_back({kFollowers, std::string()});
        bool end = false;
        while (!end && (nextIs(m_reader, follower) || nextIs(m_reader, "SEQEND"))) {
            end = nextIs(m_reader, "SEQEND");
            Tag first = m_reader.take();
            kept.push_back({first.code, str(first.value)});
            for (const Tag* t = m_reader.peek(); t && t->code != 0; t = m_reader.peek()) {
                Tag g = m_reader.take();
                if (g.code == 5)
                    noteHandle(g.handle().value());
                kept.push_back({g.code, str(g.value)});
            }
        }
    }

    // --- objects --------------------------------------------------------------------------------

    void objects()
    {
        while (goesOn()) {
            readRecord(m_reader, m_rec);
            Fields f(m_rec);
            const Codec* codec = codecForRecord(m_rec.type);
            if (codec && (isEntityCodec(codec) || codec->objectClass()->isDerivedFrom(AcDbSymbolTable::desc()) ||
                          codec->objectClass()->isDerivedFrom(AcDbSymbolTableRecord::desc())))
                codec = nullptr;
            AcDbObject* obj = codec ? codec->read(f, m_cx) : readTagStorage(f, m_cx, false);
            AcDbObjectId id = add(obj, m_rec.hasOwner ? m_cx.id(m_rec.owner) : AcDbObjectId::kNull);
            sim::db::impOf(obj)->preservedPlace = ++m_objectOrder;
            // The first object of the section is the named objects dictionary.
            if (m_objectOrder == 1 && AcDbDictionary::cast(obj))
                sim::db::setNamedObjectsDictionaryId(&m_db, id);
        }
    }

    // --- the end --------------------------------------------------------------------------------

    void finish()
    {
        // New objects take handles above every handle of the file and its $HANDSEED.
        Adesk::UInt64 seed = std::max(m_maxHandle + 1, m_spare);
        if (m_header.handseed)
            seed = std::max(seed, m_header.handseed->value());
        m_db.setHandseed(AcDbHandle(seed));

        // What the file lacks of a drawing's structure, then the records of names the file uses but
        // does not define: made, as the host does for a drawing that lacks them.
        ensureStructure(m_db);
        for (const ReadContext::Pending& p : m_cx.pending) {
            TableKind kind = ReadContext::tableOf(p.ref);
            AcDbObjectId id = m_cx.find(kind, p.name);
            auto* table = AcDbSymbolTable::cast(sim::db::objectOf(sim::db::tableId(&m_db, kind)));
            if (id.isNull() && table)
                table->getAt(sim::fromUtf8(p.name).c_str(), id);
            if (id.isNull() && ReadContext::isArrow(p.ref))
                id = sim::db::arrowBlock(&m_db, sim::fromUtf8(p.name));
            if (id.isNull())
                id = makeRecord(kind, p.name);
            setReference(p.obj, p.ref, id);
        }
        for (int space = 0; space < 2; ++space) {
            AcDbObjectId owner;
            auto* table = AcDbBlockTable::cast(sim::db::objectOf(m_db.blockTableId()));
            table->getAt(space ? ACDB_PAPER_SPACE : ACDB_MODEL_SPACE, owner);
            for (AcDbObjectId id : m_orphans[space]) {
                AcDbObjectPointer<AcDbObject> ent(id, AcDb::kForWrite);
                if (ent.openStatus() == Acad::eOk)
                    ent->setOwnerId(owner);
                sim::db::link(sim::db::objectOf(owner), id);
            }
        }
        applyHeader(m_db, m_header, m_cx);
    }

    /// A record of the name with the host's defaults, for a name the file uses but does not define.
    AcDbObjectId makeRecord(TableKind kind, const std::string& name, AcDbHandle handle = AcDbHandle())
    {
        AcDbSymbolTableRecord* rec = nullptr;
        switch (kind) {
        case sim::db::kLayerTable: {
            auto* layer = new AcDbLayerTableRecord;
            AcCmColor white;
            white.setColorIndex(7);
            layer->setColor(white);
            sim::db::setLinetypeId(layer, m_db.continuousLinetype());
            rec = layer;
            break;
        }
        case sim::db::kLinetypeTable:
            rec = new AcDbLinetypeTableRecord;
            break;
        case sim::db::kTextStyleTable: {
            auto* style = new AcDbTextStyleTableRecord;
            style->setFileName(L"txt");
            rec = style;
            break;
        }
        default:
            rec = new AcDbBlockTableRecord;
            break;
        }
        sim::db::setRecordName(rec, sim::fromUtf8(name));
        AcDbObjectId tableId = sim::db::tableId(&m_db, kind), id;
        if (sim::db::addObject(&m_db, rec, handle, tableId, id) != Acad::eOk) {
            delete rec;
            return AcDbObjectId::kNull;
        }
        if (!handle.isNull())
            noteHandle(handle.value());
        sim::db::link(sim::db::objectOf(tableId), id);
        // A record made in place of a file's missing one gets the file's BLOCK and ENDBLK.
        if (auto* btr = AcDbBlockTableRecord::cast(rec); btr && handle.isNull()) {
            AcDbObjectId begin, end;
            sim::db::addObject(&m_db, new AcDbBlockBegin, AcDbHandle(), id, begin);
            sim::db::addObject(&m_db, new AcDbBlockEnd, AcDbHandle(), id, end);
            sim::db::link(btr, begin);
            sim::db::link(btr, end);
        }
        m_cx.addName(kind, name, id);
        return id;
    }

    static constexpr size_t kReportEvery = 1 << 20;

    AcDbDatabase& m_db;
    std::string_view m_text;
    TagReader m_reader;
    ReadContext m_cx;
    std::function<void(size_t)> m_consumed;
    HeapGrowth m_heap;
    size_t m_reported = 0;
    Record m_rec;
    sim::db::RawTags m_kept;
    HeaderValues m_header;
    std::string m_section;
    int m_sectionLine = 0;
    Adesk::UInt64 m_maxHandle = 0;
    /// The next handle for a record without one.
    Adesk::UInt64 m_spare = 1;
    int m_objectOrder = 0;
    std::vector<AcDbObjectId> m_orphans[2];
    AcDbHandle m_lastOwner;
    AcDbBlockTableRecord* m_lastRecord = nullptr;
    std::vector<std::string>* m_repairs; ///< null: a strict read
    int m_recoveredBlocks = 0;
    Adesk::UInt64 m_recoveredHandles = 0;
};

} // namespace

void readDxf(AcDbDatabase& db, std::string_view text, const std::function<void(size_t)>& consumed,
             std::vector<std::string>* repairs)
{
    if (text.substr(0, 18) == "AutoCAD Binary DXF")
        throw DxfError(0, "binary DXF files are not supported; save the drawing as ASCII DXF");
    std::string version, codePage;
    sniffHeader(text, version, codePage);
    if (!version.empty() && version < "AC1015")
        throw DxfError(0, "drawings older than AutoCAD 2000 (" + version + ") are not supported");
    // Before AutoCAD 2007 a file is in its code page, with \U+XXXX for other characters.
    std::string decoded;
    bool old = !version.empty() && version < "AC1021";
    if ((old || version.empty()) && !isValidUtf8(text)) {
        decoded = decodeCodePage(text, codePage);
        text = decoded;
    }
    if (old && text.find("\\U+") != std::string_view::npos) {
        decoded = decodeUnicodeEscapes(text);
        text = decoded;
    }
    if (repairs) {
        if (auto reordered = tablesInTheirPlace(text)) {
            decoded = std::move(*reordered);
            text = decoded;
            repairs->push_back("the TABLES section came after the blocks or entities; read before them");
        }
    }
    try {
        // Decoded text is a copy: the caller's memory is not what is read.
        Loader(db, text, decoded.empty() ? consumed : std::function<void(size_t)>(), repairs).run();
    } catch (...) {
        sim::db::clearDatabase(&db);
        throw;
    }
}

} // namespace sim::dxf
