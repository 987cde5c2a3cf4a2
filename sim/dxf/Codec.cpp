// The registry of codecs and the contexts of reading and writing.
#include "sim/dxf/Codec.h"

#include <map>

#include "dbents.h"
#include "dbmtext.h"
#include "sim/core/Session.h"
#include "sim/db/FileAccess.h"
#include "sim/db/Names.h"

namespace sim::dxf {

namespace {

/// Names of records compare without regard to case, as the database compares them.
std::string folded(std::string_view utf8)
{
    std::wstring w = sim::fromUtf8(utf8);
    for (wchar_t& c : w)
        c = sim::db::upperCase(c);
    std::string key(1, '\x01'); // kept apart from the names as written
    key += sim::toUtf8(w);
    return key;
}

struct Registry {
    std::unordered_map<std::string_view, const Codec*> byRecord;
    std::map<AcRxClass*, const Codec*> byClass;
    Registry()
    {
        for (const auto& family : {entityCodecs(), tableCodecs(), objectCodecs(), annotationCodecs(), leaderCodecs()})
            for (const Codec* c : family) {
                byRecord.emplace(c->recordName(), c);
                byClass.emplace(c->objectClass(), c);
            }
    }
};

const Registry& registry()
{
    static const Registry r;
    return r;
}

} // namespace

const Codec* codecForRecord(std::string_view recordName)
{
    const auto& m = registry().byRecord;
    auto it = m.find(recordName);
    return it == m.end() ? nullptr : it->second;
}

const Codec* codecForObject(const AcDbObject& obj)
{
    const auto& m = registry().byClass;
    auto it = m.find(obj.isA());
    return it == m.end() ? nullptr : it->second;
}

// --- reading -----------------------------------------------------------------------------------

sim::db::TableKind ReadContext::tableOf(Ref ref)
{
    switch (ref) {
    case Ref::Layer:
        return sim::db::kLayerTable;
    case Ref::Linetype:
    case Ref::LayerLinetype:
        return sim::db::kLinetypeTable;
    case Ref::TextStyle:
    case Ref::MTextStyle:
        return sim::db::kTextStyleTable;
    case Ref::Block:
    case Ref::Arrow:
    case Ref::Arrow1:
    case Ref::Arrow2:
        return sim::db::kBlockTable;
    }
    return sim::db::kLayerTable;
}

void ReadContext::addName(sim::db::TableKind table, std::string_view name, AcDbObjectId id)
{
    auto& m = m_names[table];
    m.emplace(std::string(name), id);
    m.emplace(folded(name), id);
}

AcDbObjectId ReadContext::find(sim::db::TableKind table, std::string_view name, bool* exact) const
{
    const auto& m = m_names[table];
    if (exact)
        *exact = true;
    if (auto it = m.find(name); it != m.end())
        return it->second;
    if (exact)
        *exact = false;
    if (auto it = m.find(folded(name)); it != m.end())
        return it->second;
    return AcDbObjectId::kNull;
}

bool ReadContext::refer(AcDbObject* obj, Ref ref, std::string_view name)
{
    bool exact = true;
    AcDbObjectId id = find(tableOf(ref), name, &exact);
    if (id.isNull()) {
        pending.push_back({obj, ref, std::string(name)});
        return true;
    }
    setReference(obj, ref, id);
    return exact;
}

void setReference(AcDbObject* obj, ReadContext::Ref ref, AcDbObjectId id)
{
    using Ref = ReadContext::Ref;
    switch (ref) {
    case Ref::Layer:
        sim::db::setLayerId(static_cast<AcDbEntity*>(obj), id);
        break;
    case Ref::Linetype:
        sim::db::setLinetypeId(static_cast<AcDbEntity*>(obj), id);
        break;
    case Ref::TextStyle:
        sim::db::setTextStyleId(static_cast<AcDbText*>(obj), id);
        break;
    case Ref::MTextStyle:
        sim::db::setTextStyleId(static_cast<AcDbMText*>(obj), id);
        break;
    case Ref::Block:
        sim::db::setBlockId(static_cast<AcDbBlockReference*>(obj), id);
        break;
    case Ref::LayerLinetype:
        sim::db::setLinetypeId(static_cast<AcDbLayerTableRecord*>(obj), id);
        break;
    case Ref::Arrow:
    case Ref::Arrow1:
    case Ref::Arrow2:
        if (!id.isNull())
            sim::db::dimStyleValues(static_cast<AcDbDimStyleTableRecord*>(obj))[342 + static_cast<int>(ref) -
                                                                             static_cast<int>(Ref::Arrow)] = id;
        break;
    }
}

void referByName(Fields& f, ReadContext& cx, AcDbObject* obj, ReadContext::Ref ref, int code, std::string_view name)
{
    if (!cx.refer(obj, ref, name))
        f.keepValue(code, name);
}

// --- writing -----------------------------------------------------------------------------------

std::string_view spelledName(const ObjectWriter& w, int code, const std::string& recordName)
{
    std::optional<std::string_view> kept = w.keptValue(code);
    if (kept && folded(*kept) == folded(recordName))
        return *kept;
    return recordName;
}

const std::string& WriteContext::name(AcDbObjectId id)
{
    auto [it, added] = m_names.try_emplace(id.handle().value());
    if (added) {
        auto* rec = AcDbSymbolTableRecord::cast(sim::db::objectOf(id));
        if (rec)
            it->second = sim::toUtf8(sim::db::recordName(rec));
    }
    return it->second;
}

bool WriteContext::isByLayer(AcDbObjectId linetype)
{
    if (!m_byLayerKnown) {
        m_byLayer = db->byLayerLinetype();
        m_byLayerKnown = true;
    }
    return linetype == m_byLayer;
}

bool WriteContext::inPaperSpace(const AcDbEntity& ent)
{
    AcDbObjectId owner = ent.ownerId();
    auto [it, added] = m_paper.try_emplace(owner.handle().value(), false);
    if (added) {
        auto* btr = AcDbBlockTableRecord::cast(sim::db::objectOf(owner));
        if (btr) {
            const std::wstring& n = sim::db::recordName(btr);
            it->second = n.size() >= 12 && AcString(n.substr(0, 12).c_str()).compareNoCase(L"*Paper_Space") == 0;
        }
    }
    return it->second;
}

} // namespace sim::dxf
