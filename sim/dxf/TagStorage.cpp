// Tag storage of objects and entities the database does not model.
#include "sim/dxf/TagStorage.h"

#include <memory>

#include "sim/core/Session.h"
#include "sim/db/UnknownObject.h"
#include "sim/dxf/EntityFields.h"
#include "sim/dxf/Preserved.h"

namespace sim::dxf {

AcDbObject* readTagStorage(Fields& f, ReadContext& cx, bool entity)
{
    Record& rec = f.record();
    std::wstring name = sim::fromUtf8(rec.type);
    if (!entity) {
        auto obj = std::make_unique<sim::db::UnknownObject>();
        obj->recordName = std::move(name);
        rec.segmentRead.assign(rec.segments.size(), 1);
        appendSegments(rec, 0, obj->tags);
        rec.taken.assign(rec.body.size(), 1);
        return obj.release();
    }
    auto ent = std::make_unique<sim::db::UnknownEntity>();
    ent->recordName = std::move(name);
    readEntity(*ent, f, cx);
    // What follows the common fields stays as it came, its subclass markers included.
    size_t after = 1;
    if (rec.hasSubclassMarkers()) {
        while (after < rec.segments.size() && !rec.segmentRead[after])
            ++after;
        ++after;
    }
    for (size_t s = after; s < rec.segments.size(); ++s)
        rec.segmentRead[s] = 1;
    if (rec.hasSubclassMarkers()) {
        appendSegments(rec, after, ent->tags);
        for (size_t s = after; s < rec.segments.size(); ++s)
            for (int i = rec.segments[s].begin; i < rec.segments[s].end; ++i)
                rec.taken[static_cast<size_t>(i)] = 1;
    } else {
        // Without markers the untaken groups are the entity's own fields, written after the common ones.
        for (int i = rec.segments[0].begin; i < rec.segments[0].end; ++i)
            if (!rec.taken[static_cast<size_t>(i)]) {
                ent->tags.push_back(raw(rec.body[static_cast<size_t>(i)]));
                rec.taken[static_cast<size_t>(i)] = 1;
            }
    }
    return ent.release();
}

bool isTagStorage(const AcDbObject& obj)
{
    return sim::db::UnknownObject::cast(&obj) != nullptr || sim::db::UnknownEntity::cast(&obj) != nullptr;
}

void writeTagStorage(const AcDbObject& obj, ObjectWriter& w, WriteContext& cx)
{
    if (auto* ent = sim::db::UnknownEntity::cast(&obj)) {
        w.begin(sim::toUtf8(ent->recordName), *ent);
        writeEntity(*ent, w, cx);
        w.closeSubclass();
        w.out.raw(ent->tags);
        w.end();
        return;
    }
    auto* unknown = sim::db::UnknownObject::cast(&obj);
    w.begin(sim::toUtf8(unknown->recordName), *unknown);
    w.out.raw(unknown->tags);
    w.end();
}

} // namespace sim::dxf
