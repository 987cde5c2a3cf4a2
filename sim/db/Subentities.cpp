// Parts of entities under a graphics marker: the edges of a lightweight polyline, handed out as new
// lines and arcs.
#include <cmath>

#include "dbpl.h"
#include "dbsubeid.h"
#include "sim/db/Geometry.h"

Acad::ErrorStatus AcDbEntity::getSubentPathsAtGsMarker(AcDb::SubentType, Adesk::GsMarker, const AcGePoint3d&,
                                                       const AcGeMatrix3d&, int& numPaths,
                                                       AcDbFullSubentPath*& subentPaths, int, AcDbObjectId*) const
{
    numPaths = 0;
    subentPaths = nullptr;
    return Acad::eNotApplicable;
}

AcDbEntity* AcDbEntity::subentPtr(const AcDbFullSubentPath&) const { return nullptr; }

Acad::ErrorStatus AcDbPolyline::getSubentPathsAtGsMarker(AcDb::SubentType type, Adesk::GsMarker gsMark,
                                                         const AcGePoint3d&, const AcGeMatrix3d&, int& numPaths,
                                                         AcDbFullSubentPath*& subentPaths, int numInserts,
                                                         AcDbObjectId* entAndInsertStack) const
{
    numPaths = 0;
    subentPaths = nullptr;
    unsigned int segments = m_closed ? numVerts() : (numVerts() > 0 ? numVerts() - 1 : 0);
    if (type != AcDb::kEdgeSubentType || gsMark < 1 || static_cast<unsigned int>(gsMark) > segments)
        return Acad::eInvalidInput;
    // The path runs from the outermost reference to the polyline itself.
    AcDbObjectIdArray ids;
    for (int i = 0; entAndInsertStack && i < numInserts; ++i)
        ids.append(entAndInsertStack[numInserts - 1 - i]);
    if (ids.length() == 0 || ids[ids.length() - 1] != objectId())
        ids.append(objectId());
    subentPaths = new AcDbFullSubentPath[1]{AcDbFullSubentPath(ids, AcDbSubentId(AcDb::kEdgeSubentType, gsMark))};
    numPaths = 1;
    return Acad::eOk;
}

AcDbEntity* AcDbPolyline::subentPtr(const AcDbFullSubentPath& id) const
{
    const AcDbSubentId& sub = id.subentId();
    unsigned int n = numVerts();
    unsigned int segments = m_closed ? n : (n > 0 ? n - 1 : 0);
    if (sub.type() != AcDb::kEdgeSubentType || sub.index() < 1 || static_cast<unsigned int>(sub.index()) > segments)
        return nullptr;
    unsigned int i = static_cast<unsigned int>(sub.index()) - 1;
    const Vertex& a = m_verts[i];
    const Vertex& b = m_verts[(i + 1) % n];
    AcDbEntity* part = nullptr;
    if (std::abs(a.bulge) < 1e-12) {
        auto w = [&](const AcGePoint2d& p) { return sim::db::geom::ocsToWcs(m_normal, AcGePoint3d(p.x, p.y, m_elevation)); };
        part = new AcDbLine(w(a.pt), w(b.pt));
    } else {
        // The centre lies off the chord's midpoint, to the left for a counter-clockwise bulge below 1.
        double dx = b.pt.x - a.pt.x, dy = b.pt.y - a.pt.y;
        double k = (1.0 - a.bulge * a.bulge) / (4.0 * a.bulge);
        AcGePoint2d c((a.pt.x + b.pt.x) / 2 - dy * k, (a.pt.y + b.pt.y) / 2 + dx * k);
        double radius = std::hypot(a.pt.x - c.x, a.pt.y - c.y);
        double from = std::atan2(a.pt.y - c.y, a.pt.x - c.x), to = std::atan2(b.pt.y - c.y, b.pt.x - c.x);
        if (a.bulge < 0)
            std::swap(from, to);
        AcGePoint3d centre = sim::db::geom::ocsToWcs(m_normal, AcGePoint3d(c.x, c.y, m_elevation));
        part = new AcDbArc(centre, m_normal, radius, from, to);
    }
    part->setLayer(layerId(), false);
    part->setColor(color(), false);
    part->setLinetype(linetypeId(), false);
    part->setLinetypeScale(linetypeScale(), false);
    part->setLineWeight(lineWeight(), false);
    return part;
}
