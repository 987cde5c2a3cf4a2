// Picks by point and window over the entities of the current space, walking into block references.
#include "sim/editor/Picking.h"

#include <algorithm>
#include <cmath>

#include "dbobjptr.h"
#include "dbents.h"
#include "sim/db/UnknownObject.h"
#include "sim/editor/DbNames.h"
#include "sim/editor/EntityOutline.h"
#include "sim/editor/Keywords.h"
#include "sim/editor/SysVars.h"

namespace sim::editor {

namespace {

// Block references inside block references deeper than this are taken for a cycle.
constexpr int kMaxDepth = 32;

/// Whether an entity is drawn: its own visibility and its layer's (layer "0" inside a block takes the
/// reference's, which was checked already).
bool drawn(const AcDbEntity& e, bool nested, bool frozenOnly = false)
{
    if (e.visibility() == AcDb::kInvisible)
        return false;
    AcDbObjectPointer<AcDbLayerTableRecord> layer(e.layerId());
    if (layer.openStatus() != Acad::eOk)
        return true;
    if (nested) {
        const ACHAR* name = nullptr;
        if (layer->getName(name) == Acad::eOk && name && std::wstring_view(name) == L"0")
            return true;
    }
    return !layer->isFrozen() && (frozenOnly || !layer->isOff());
}

bool isAttributeDefinition(const AcDbEntity& e) { return AcDbAttributeDefinition::cast(&e) != nullptr; }

/// Calls visit(entity, id, xform, containers outermost first) for every drawn entity inside e, or e
/// itself when it is no block reference; in drawing order.
template <class Visit>
void walk(const AcDbEntity& e, AcDbObjectId id, const AcGeMatrix3d& xform, std::vector<AcDbObjectId>& path, int depth, Visit& visit)
{
    auto* ref = AcDbBlockReference::cast(&e);
    if (!ref) {
        visit(e, id, xform, path);
        return;
    }
    if (depth >= kMaxDepth)
        return;
    path.push_back(id);
    AcGeMatrix3d inner = xform * ref->blockTransform();
    AcDbObjectPointer<AcDbBlockTableRecord> block(ref->blockTableRecord());
    if (block.openStatus() == Acad::eOk) {
        AcDbBlockTableRecordIterator* it = nullptr;
        if (block->newIterator(it) == Acad::eOk) {
            for (; !it->done(); it->step()) {
                AcDbObjectId childId;
                it->getEntityId(childId);
                AcDbObjectPointer<AcDbEntity> child(childId);
                if (child.openStatus() != Acad::eOk || isAttributeDefinition(*child) || !drawn(*child, true))
                    continue;
                walk(*child, childId, inner, path, depth + 1, visit);
            }
            delete it;
        }
    }
    path.pop_back();
    // The reference's own attributes lie in the coordinates the reference itself lies in; they are
    // not inside its block, so the reference is no container of theirs.
    AcDbObjectIterator* atts = ref->attributeIterator();
    if (atts) {
        for (atts->start(); !atts->done(); atts->step()) {
            AcDbObjectPointer<AcDbAttribute> att(atts->objectId());
            if (att.openStatus() == Acad::eOk && !att->isInvisible() && drawn(*att, true))
                visit(*att, att->objectId(), xform, path);
        }
        delete atts;
    }
}

/// The ids of the current space's entities, in drawing order.
std::vector<AcDbObjectId> spaceEntities(AcDbDatabase& db)
{
    std::vector<AcDbObjectId> ids;
    AcDbObjectPointer<AcDbBlockTableRecord> space(db.currentSpaceId());
    if (space.openStatus() != Acad::eOk)
        return ids;
    AcDbBlockTableRecordIterator* it = nullptr;
    if (space->newIterator(it) != Acad::eOk)
        return ids;
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        if (it->getEntityId(id) == Acad::eOk)
            ids.push_back(id);
    }
    delete it;
    return ids;
}

/// Everything an entity draws, in world coordinates.
std::vector<OutlinePath> outlineOf(const AcDbEntity& e, AcDbObjectId id, double tol)
{
    std::vector<OutlinePath> out;
    std::vector<AcDbObjectId> path;
    auto visit = [&](const AcDbEntity& part, AcDbObjectId, const AcGeMatrix3d& xform, const std::vector<AcDbObjectId>&) {
        addOutline(part, xform, tol, out);
    };
    walk(e, id, AcGeMatrix3d::kIdentity, path, 0, visit);
    return out;
}

bool segmentsCross(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c, const AcGePoint3d& d)
{
    auto side = [](const AcGePoint3d& p, const AcGePoint3d& q, const AcGePoint3d& r) {
        return (q.x - p.x) * (r.y - p.y) - (q.y - p.y) * (r.x - p.x);
    };
    double d1 = side(c, d, a), d2 = side(c, d, b), d3 = side(a, b, c), d4 = side(a, b, d);
    return ((d1 > 0) != (d2 > 0)) && ((d3 > 0) != (d4 > 0));
}

} // namespace

double aperture()
{
    auto box = getVar(L"PICKBOX");
    int pixels = box ? std::get<int>(*box) : 3;
    return std::max(pixels, 1) * pixelSize();
}

std::optional<Hit> pickAt(AcDbDatabase& db, const AcGePoint3d& p, const std::function<bool(const AcDbEntity&)>& accept)
{
    const double box = aperture();
    const double tol = box / 8;
    std::optional<Hit> best;
    double bestDist = INFINITY;
    for (AcDbObjectId id : spaceEntities(db)) {
        AcDbObjectPointer<AcDbEntity> e(id);
        if (e.openStatus() != Acad::eOk || !drawn(*e, false) || (accept && !accept(*e)))
            continue;
        std::vector<AcDbObjectId> path;
        auto visit = [&](const AcDbEntity& part, AcDbObjectId partId, const AcGeMatrix3d& xform, const std::vector<AcDbObjectId>& containers) {
            std::vector<OutlinePath> outline;
            addOutline(part, xform, tol, outline);
            for (const auto& piece : outline) {
                double d = planDistance(piece, p);
                // Equally near (to rounding) goes to what is drawn later: it lies on top.
                if (d > box || d > bestDist + 1e-9 * std::max(1.0, box))
                    continue;
                bestDist = std::min(d, bestDist);
                Hit h;
                h.entity = id;
                h.innermost = partId;
                h.containers.assign(containers.rbegin(), containers.rend());
                h.innerToWorld = xform;
                h.gsMarker = piece.marker;
                best = std::move(h);
            }
        };
        walk(*e, id, AcGeMatrix3d::kIdentity, path, 0, visit);
    }
    return best;
}

std::vector<AcDbObjectId> inWindow(AcDbDatabase& db, const AcGePoint3d& c1, const AcGePoint3d& c2, bool crossing)
{
    const double x0 = std::min(c1.x, c2.x), x1 = std::max(c1.x, c2.x);
    const double y0 = std::min(c1.y, c2.y), y1 = std::max(c1.y, c2.y);
    auto inside = [&](const AcGePoint3d& q) { return q.x >= x0 && q.x <= x1 && q.y >= y0 && q.y <= y1; };
    const AcGePoint3d corners[4] = {{x0, y0, 0}, {x1, y0, 0}, {x1, y1, 0}, {x0, y1, 0}};
    std::vector<AcDbObjectId> ids;
    for (AcDbObjectId id : spaceEntities(db)) {
        AcDbObjectPointer<AcDbEntity> e(id);
        if (e.openStatus() != Acad::eOk || !drawn(*e, false))
            continue;
        auto outline = outlineOf(*e, id, aperture() / 8);
        if (outline.empty())
            continue;
        bool all = true, any = false;
        for (const auto& piece : outline) {
            const auto& pts = piece.points;
            for (const auto& q : pts) {
                bool in = inside(q);
                all = all && in;
                any = any || in;
            }
            if (!crossing || any)
                continue;
            size_t edges = piece.closed ? pts.size() : pts.size() - 1;
            for (size_t i = 0; i < edges && !any; ++i)
                for (int k = 0; k < 4 && !any; ++k)
                    any = segmentsCross(pts[i], pts[(i + 1) % pts.size()], corners[k], corners[(k + 1) % 4]);
            // A window wholly inside a filled box or a closed outline still crosses it.
            if (!any && piece.closed)
                any = planDistance(OutlinePath{pts, true, true, 0}, corners[0]) == 0.0;
        }
        if (crossing ? any : all)
            ids.push_back(id);
    }
    return ids;
}

std::optional<std::pair<AcGePoint3d, AcGePoint3d>> spaceExtents(AcDbDatabase& db)
{
    std::optional<std::pair<AcGePoint3d, AcGePoint3d>> box;
    for (AcDbObjectId id : spaceEntities(db)) {
        AcDbObjectPointer<AcDbEntity> e(id);
        if (e.openStatus() != Acad::eOk || !drawn(*e, false))
            continue;
        for (const auto& piece : outlineOf(*e, id, aperture() / 8))
            for (const auto& q : piece.points) {
                if (!box)
                    box.emplace(q, q);
                box->first.set(std::min(box->first.x, q.x), std::min(box->first.y, q.y), 0.0);
                box->second.set(std::max(box->second.x, q.x), std::max(box->second.y, q.y), 0.0);
            }
    }
    return box;
}

std::vector<AcDbObjectId> allInSpace(AcDbDatabase& db)
{
    std::vector<AcDbObjectId> ids;
    for (AcDbObjectId id : spaceEntities(db)) {
        AcDbObjectPointer<AcDbEntity> e(id);
        if (e.openStatus() == Acad::eOk && drawn(*e, false, true))
            ids.push_back(id);
    }
    return ids;
}

bool inCurrentSpace(AcDbDatabase& db, AcDbObjectId id)
{
    if (id.isNull() || id.database() != &db || id.isErased())
        return false;
    AcDbObjectPointer<AcDbEntity> e(id);
    return e.openStatus() == Acad::eOk && e->ownerId() == db.currentSpaceId();
}

EntityFacts factsOf(const AcDbEntity& e)
{
    EntityFacts f;
    const ACHAR* dxf = e.isA()->dxfName();
    f.type = dxf ? dxf : L"";
    // Kinds the database keeps only as read from the file still have their record name.
    if (auto* unknown = sim::db::UnknownEntity::cast(&e))
        f.type = unknown->recordName;
    f.layer = recordName(e.layerId());
    f.linetype = recordName(e.linetypeId());
    f.color = e.colorIndex();
    if (auto* ref = AcDbBlockReference::cast(&e))
        f.blockName = recordName(ref->blockTableRecord());
    AcDbObjectPointer<AcDbBlockTableRecord> owner(e.ownerId());
    if (owner.openStatus() == Acad::eOk) {
        const ACHAR* name = nullptr;
        owner->getName(name);
        f.paperSpace = name && upperCase(std::wstring_view(name).substr(0, 12)) == L"*PAPER_SPACE";
    }
    return f;
}

} // namespace sim::editor
