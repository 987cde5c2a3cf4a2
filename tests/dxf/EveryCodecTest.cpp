// Every codec, field by field: a record of each kind, as a new drawing has it or read from its bare
// frame (the codec writes its defaults), has each group it writes given another value in turn;
// written, read and written again, the record must come back as it was given, and no group may be
// both kept (as a group the reader left) and written by the codec.
#include "DxfFixture.h"

#include <map>
#include <set>

#include "sim/db/ImpObject.h"
#include "sim/dxf/Codec.h"
#include "sim/dxf/GroupCodes.h"
#include "sim/dxf/Preserved.h"

using namespace dxftest;

namespace {

std::string textOf(const sim::db::RawTags& tags)
{
    sim::dxf::TextTagWriter w;
    w.raw(tags);
    return w.contents();
}

std::string describe(const sim::db::RawTags& tags)
{
    std::string s;
    for (const auto& t : tags)
        s += std::to_string(t.code) + "=" + t.value + " ";
    return s;
}

/// A record of a codec's kind in a drawing's text: one the new drawing has, else a bare frame put
/// at its place; the text with the record as given.
class Sample {
public:
    Sample(const std::string& drawing, const sim::dxf::Codec& c, AcDbDatabase& db) : m_text(drawing)
    {
        m_name = std::string(c.recordName());
        const int handleCode = m_name == "DIMSTYLE" ? 105 : 5;
        std::string head = "  0\n" + m_name + "\n" + (handleCode == 5 ? "  5" : "105") + "\n";
        // (The drawing's first dictionary is the root of its objects: a bare one is swept instead.)
        if (size_t at = m_text.find(head); at != std::string::npos && m_name != "DICTIONARY") {
            size_t end = m_text.find('\n', at + head.size());
            m_handle = m_text.substr(at + head.size(), end - at - head.size());
            m_original = record(m_text, AcDbHandle(std::stoull(m_handle, nullptr, 16)));
            m_at = at;
            return;
        }
        m_handle = "FFF0";
        AcRxClass* cls = c.objectClass();
        std::string after = "  2\nOBJECTS\n", before = "  0\nENDSEC\n", owner = hex(db.namedObjectsDictionaryId().handle());
        if (cls->isDerivedFrom(AcDbEntity::desc())) {
            AcDbObjectId ms;
            AcDbBlockTablePointer(&db)->getAt(ACDB_MODEL_SPACE, ms);
            after = "  2\nENTITIES\n";
            owner = hex(ms.handle());
        } else if (cls->isDerivedFrom(AcDbSymbolTableRecord::desc())) {
            // The table of the kind: 0 TABLE, 2 its name, 5 its handle; its records follow up to ENDTAB.
            after = "  0\nTABLE\n  2\n" + m_name + "\n  5\n";
            size_t at = m_text.find(after);
            owner = m_text.substr(at + after.size(), m_text.find('\n', at + after.size()) - at - after.size());
            before = "  0\nENDTAB\n";
        }
        m_at = m_text.find(before, m_text.find(after));
        m_original = {{0, m_name}, {handleCode, m_handle}, {330, owner}};
        m_inserted = true;
    }

    const std::string& name() const { return m_name; }
    AcDbHandle handle() const { return AcDbHandle(std::stoull(m_handle, nullptr, 16)); }
    const sim::db::RawTags& original() const { return m_original; }

    /// The drawing's text with the record's groups as given.
    std::string with(const sim::db::RawTags& groups) const
    {
        sim::db::RawTags all = groups;
        // A polyline's vertices end with a SEQEND, none or not.
        if (m_name == "POLYLINE")
            all.insert(all.end(), {{0, "SEQEND"}, {5, "FFF1"}, {330, m_handle}});
        std::string text = m_text;
        return text.replace(m_at, m_inserted ? 0 : textOf(m_original).size(), textOf(all));
    }

private:
    std::string m_text, m_name, m_handle;
    sim::db::RawTags m_original;
    size_t m_at = 0;
    bool m_inserted = false;
};

class EveryCodec : public DxfTest {
protected:
    /// The sample's record after its text is read and written again; what was both kept and written.
    sim::db::RawTags rewritten(const Sample& s, const sim::db::RawTags& given, std::string& kept)
    {
        auto db = read(s.with(given));
        sim::db::RawTags out = record(write(*db), s.handle());
        kept = keptAndWritten(*db, s.handle());
        return out;
    }

    /// Groups of a subclass run kept for the object that its codec writes of its own in that
    /// subclass (what it writes with nothing kept).
    static std::string keptAndWritten(AcDbDatabase& db, AcDbHandle h)
    {
        AcDbObject* obj = sim::db::objectOf(AcDbObjectId(&db, h));
        if (!obj)
            return std::string();
        auto& preserved = sim::db::impOf(obj)->preservedTags;
        const sim::db::RawTags kept(preserved.begin(), preserved.end());
        preserved.clear();
        sim::db::RawTags own = record(write(db), h);
        for (const auto& t : kept)
            preserved.ensure().push_back(t);
        std::set<std::pair<std::string, int>> writtenCodes;
        std::string subclass;
        for (const auto& t : own) {
            if (t.code == 100)
                subclass = t.value;
            else
                writtenCodes.insert({subclass, t.code});
        }
        std::string both;
        std::string run;
        bool inRun = false;
        for (const auto& t : kept) {
            if (t.code < 0) {
                inRun = t.code == sim::dxf::kSubclassRest;
                run = t.value;
                continue;
            }
            if (inRun && writtenCodes.count({run, t.code}))
                both += " " + std::to_string(t.code) + " in " + (run.empty() ? "(head)" : run);
        }
        return both;
    }
};

/// The record name of each handle of a drawing's text.
std::map<std::string, std::string> recordTypes(const std::string& text)
{
    std::map<std::string, std::string> types;
    sim::dxf::TagReader r(text);
    std::string type;
    bool first = false;
    while (r.peek()) {
        sim::dxf::Tag t = r.take();
        if (t.code == 0) {
            type = std::string(t.value);
            first = true;
        } else if (first && (t.code == 5 || t.code == 105)) {
            types[std::string(t.value)] = type;
            first = false;
        }
    }
    return types;
}

/// Another handle of an object of the same kind; empty when the drawing has none.
std::string otherHandle(const std::map<std::string, std::string>& types, const std::string& handle)
{
    auto it = types.find(handle);
    if (it == types.end())
        return std::string();
    for (const auto& [h, type] : types)
        if (type == it->second && h != handle)
            return h;
    return std::string();
}

/// Another value of the group's type than the one written.
std::string otherValue(int code, const std::string& value)
{
    using sim::dxf::ValueType;
    switch (sim::dxf::valueType(code)) {
    case ValueType::Real:
        return sim::dxf::formatReal(std::stod(value) + 0.5);
    case ValueType::Integer: {
        long long v = std::stoll(value);
        return std::to_string(v == 0 ? 1 : v > 0 ? v - 1 : v + 1);
    }
    case ValueType::Handle:
        return value == "0" ? "1" : "0";
    case ValueType::Binary:
        return value + "AB";
    default:
        return value + "x";
    }
}

/// Groups of a record that the codec derives from the object rather than keeps: counts, a constant,
/// the kind of a dimension (its class), what a leader carries at its end, fixed values.
bool isDerived(const std::string& record, int code)
{
    static const std::set<std::pair<std::string, int>> derived = {
        {"LWPOLYLINE", 90}, {"LEADER", 76}, {"LEADER", 73}, {"LTYPE", 73}, {"LTYPE", 72}, {"DIMENSION", 70},
        // A 2D polyline's "vertices follow" flag and the X and Y of its point (always 0; Z is its elevation).
        {"POLYLINE", 66}, {"POLYLINE", 10}, {"POLYLINE", 20},
        // A block's layout, which the layout names too.
        {"BLOCK_RECORD", 340},
    };
    return derived.count({record, code}) != 0;
}

/// The change that gives a group another value, where the value must stay within what the group
/// allows: other groups may have to change with it (a direction stays a unit vector).
sim::db::RawTags change(const std::string& record, const sim::db::RawTags& defaults, size_t i,
                        const std::map<std::string, std::string>& types)
{
    sim::db::RawTags given = defaults;
    auto set = [&](int code, const char* value) {
        for (auto& t : given)
            if (t.code == code) {
                t.value = value;
                return;
            }
    };
    const int code = given[i].code;
    if (record == "MTEXT" && (code == 11 || code == 21 || code == 31)) {
        set(11, "0.6");
        set(21, "0.8");
    } else if (record == "MTEXT" && code == 71) {
        given[i].value = "5"; // attachments run from 1 to 9
    } else if (code == 370) {
        given[i].value = "25"; // a weight; a layer's is never ByLayer or ByBlock
    } else if (sim::dxf::valueType(code) == sim::dxf::ValueType::Handle) {
        // A pointer goes to another object of the same kind: a null one or one of another kind is
        // no value the field may take.
        given[i].value = otherHandle(types, given[i].value);
        if (given[i].value.empty())
            return {};
    } else {
        given[i].value = otherValue(code, given[i].value);
    }
    return given;
}

/// Groups that frame the record rather than hold its fields.
bool isFrame(int code) { return code == 0 || code == 5 || code == 105 || code == 330 || code == 100 || code == 102; }

} // namespace

TEST_F(EveryCodec, EachWrittenFieldReadsBackAndNothingIsBothKeptAndWritten)
{
    AcDbDatabase db;
    {
        // The dimension style writes only the variables set: set some of each kind.
        AcDbDimStyleTableRecordPointer style(L"Standard", &db, AcDb::kForWrite);
        ASSERT_EQ(style.openStatus(), Acad::eOk);
        AcCmColor red;
        red.setColorIndex(1);
        style->setDimclrt(red);
        style->setDimasz(2.5);
        style->setDimdec(2);
        style->setDimpost(L"<> mm");
        style->setDimtxsty(db.textstyle());
        ASSERT_EQ(style->setDimblk(L"_OBLIQUE"), Acad::eOk);
    }
    const std::string drawing = write(db);
    const std::map<std::string, std::string> types = recordTypes(drawing);
    std::vector<const sim::dxf::Codec*> codecs;
    for (auto family : {sim::dxf::entityCodecs(), sim::dxf::tableCodecs(), sim::dxf::objectCodecs(),
                        sim::dxf::annotationCodecs(), sim::dxf::leaderCodecs()})
        codecs.insert(codecs.end(), family.begin(), family.end());
    ASSERT_GT(codecs.size(), 20u);

    int fields = 0;
    for (const sim::dxf::Codec* c : codecs) {
        // The tables themselves and a block's frame come with every drawing; the vertices and
        // attributes belong to their polyline and reference.
        std::string_view kind = c->recordName();
        if (kind == "TABLE" || kind == "BLOCK" || kind == "ENDBLK" || kind == "VERTEX" || kind == "SEQEND" ||
            kind == "ATTRIB")
            continue;
        Sample sample(drawing, *c, db);
        const std::string& name = sample.name();
        SCOPED_TRACE(name);
        std::string kept;
        sim::db::RawTags defaults = rewritten(sample, sample.original(), kept);
        if (defaults.size() <= 3) {
            ADD_FAILURE() << "the record was not written back";
            continue;
        }
        EXPECT_EQ(kept, "") << "kept and written";
        EXPECT_TRUE(rewritten(sample, defaults, kept) == defaults) << "defaults: " << describe(defaults);

        for (size_t i = 1; i < defaults.size(); ++i) {
            if (isFrame(defaults[i].code) || isDerived(name, defaults[i].code))
                continue;
            sim::db::RawTags given = change(name, defaults, i, types);
            if (given.empty())
                continue;
            sim::db::RawTags back = rewritten(sample, given, kept);
            ++fields;
            EXPECT_TRUE(back == given) << "group " << given[i].code << " (#" << i << ") set to \"" << given[i].value
                                       << "\"\n given: " << describe(given) << "\n back:  " << describe(back);
            EXPECT_EQ(kept, "") << "group " << given[i].code << " (#" << i << ")";
        }
    }
    EXPECT_GT(fields, 200);
}
