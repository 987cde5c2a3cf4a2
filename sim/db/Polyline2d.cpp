// AcDb2dPolyline and AcDb2dVertex: the old-style polyline whose vertices are objects of their own.
#include <algorithm>

#include "dbents.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/Geometry.h"
#include "sim/db/ImpDatabase.h"

namespace geom = sim::db::geom;

SIM_DB_DEFINE_MEMBERS(AcDb2dVertex, AcDbVertex, L"VERTEX")
SIM_DB_DEFINE_MEMBERS(AcDb2dPolyline, AcDbCurve, L"POLYLINE")

// --- vertex -----------------------------------------------------------------------------------

Acad::ErrorStatus AcDb2dVertex::setPosition(const AcGePoint3d& pt)
{
    SIM_DB_ASSERT_WRITE();
    m_position = pt;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb2dVertex::setStartWidth(double newVal)
{
    SIM_DB_ASSERT_WRITE();
    m_startWidth = newVal;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb2dVertex::setEndWidth(double newVal)
{
    SIM_DB_ASSERT_WRITE();
    m_endWidth = newVal;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb2dVertex::setBulge(double newVal)
{
    SIM_DB_ASSERT_WRITE();
    m_bulge = newVal;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb2dVertex::transformBy(const AcGeMatrix3d&)
{
    // A vertex moves with its polyline, whose plane it shares.
    return Acad::eNotApplicable;
}

// --- polyline ---------------------------------------------------------------------------------

Acad::ErrorStatus AcDb2dPolyline::setPolyType(AcDb::Poly2dType type)
{
    SIM_DB_ASSERT_WRITE();
    m_type = type;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb2dPolyline::makeClosed()
{
    SIM_DB_ASSERT_WRITE();
    m_closed = true;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb2dPolyline::makeOpen()
{
    SIM_DB_ASSERT_WRITE();
    m_closed = false;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb2dPolyline::setElevation(double elev)
{
    SIM_DB_ASSERT_WRITE();
    m_elevation = elev;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb2dPolyline::setNormal(const AcGeVector3d& val)
{
    SIM_DB_ASSERT_WRITE();
    if (val.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = val.normal();
    return Acad::eOk;
}
Acad::ErrorStatus AcDb2dPolyline::setDefaultStartWidth(double w)
{
    SIM_DB_ASSERT_WRITE();
    m_defaultStartWidth = w;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb2dPolyline::setDefaultEndWidth(double w)
{
    SIM_DB_ASSERT_WRITE();
    m_defaultEndWidth = w;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDb2dVertex* pNewVertex)
{
    AcDbObjectId id;
    return appendVertex(id, pNewVertex);
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDbObjectId& objId, AcDb2dVertex* pNewVertex)
{
    objId = AcDbObjectId::kNull;
    if (!pNewVertex)
        return Acad::eNullObjectPointer;
    AcDbImpDatabase* db = AcDbImpDatabase::of(database());
    if (!db)
        return Acad::eNoDatabase;
    SIM_DB_ASSERT_WRITE();
    return db->appendPolylineVertex(this, pNewVertex, m_vertices, m_seqEnd, objId);
}

Acad::ErrorStatus AcDb2dPolyline::openVertex(AcDb2dVertex*& pVertex, AcDbObjectId vertId, AcDb::OpenMode mode, bool openErasedOne) const
{
    pVertex = nullptr;
    if (std::find(m_vertices.begin(), m_vertices.end(), vertId) == m_vertices.end())
        return Acad::eKeyNotFound;
    return acdbOpenObject(pVertex, vertId, mode, openErasedOne);
}

Acad::ErrorStatus AcDb2dPolyline::openSequenceEnd(AcDbSequenceEnd*& pSeqEnd, AcDb::OpenMode mode)
{
    return acdbOpenObject(pSeqEnd, m_seqEnd, mode);
}

AcDbObjectIterator* AcDb2dPolyline::vertexIterator() const
{
    auto* it = new AcDbObjectIterator(m_vertices);
    it->start();
    return it;
}

AcGePoint3d AcDb2dPolyline::vertexPosition(const AcDb2dVertex& vert) const
{
    AcGePoint3d p = vert.position();
    return geom::ocsToWcs(m_normal, AcGePoint3d(p.x, p.y, m_elevation));
}

namespace {
const AcDb2dVertex* vertexAt(const std::vector<AcDbObjectId>& ids, bool last)
{
    const AcDb2dVertex* found = nullptr;
    for (AcDbObjectId id : ids) {
        auto* v = AcDb2dVertex::cast(AcDbImpDatabase::lookup(id));
        if (!v || v->isErased())
            continue;
        found = v;
        if (!last)
            break;
    }
    return found;
}
int liveVertices(const std::vector<AcDbObjectId>& ids)
{
    int n = 0;
    for (AcDbObjectId id : ids)
        if (AcDb2dVertex::cast(AcDbImpDatabase::lookup(id)) && !id.isErased())
            ++n;
    return n;
}
} // namespace

Acad::ErrorStatus AcDb2dPolyline::getStartParam(double& param) const
{
    param = 0.0;
    return liveVertices(m_vertices) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDb2dPolyline::getEndParam(double& param) const
{
    int n = liveVertices(m_vertices);
    if (!n)
        return Acad::eInvalidInput;
    param = n < 2 ? 0.0 : static_cast<double>(m_closed ? n : n - 1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::getStartPoint(AcGePoint3d& point) const
{
    const AcDb2dVertex* v = vertexAt(m_vertices, false);
    if (!v)
        return Acad::eInvalidInput;
    point = vertexPosition(*v);
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::getEndPoint(AcGePoint3d& point) const
{
    const AcDb2dVertex* v = vertexAt(m_vertices, !m_closed);
    if (!v)
        return Acad::eInvalidInput;
    point = vertexPosition(*v);
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    AcGeVector3d n = xform.apply(m_normal);
    if (n.isZeroLength())
        return Acad::eNotApplicable;
    n = n.normal();
    double elevation = m_elevation;
    bool first = true;
    for (AcDbObjectId id : m_vertices) {
        auto* v = AcDb2dVertex::cast(AcDbImpDatabase::lookup(id));
        if (!v)
            continue;
        AcGePoint3d w = xform.apply(vertexPosition(*v));
        AcGePoint3d local = geom::wcsToOcs(n, w);
        if (AcDbImpDatabase* db = AcDbImpDatabase::of(database()))
            db->touch(v);
        v->m_position.set(local.x, local.y, 0.0);
        if (first)
            elevation = local.z;
        first = false;
    }
    m_normal = n;
    m_elevation = elevation;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::reverseCurve()
{
    SIM_DB_ASSERT_WRITE();
    // The vertex objects keep their place in the list; their values run the other way round.
    std::vector<AcDb2dVertex*> verts;
    for (AcDbObjectId id : m_vertices)
        if (auto* v = AcDb2dVertex::cast(AcDbImpDatabase::lookup(id)))
            verts.push_back(v);
    size_t n = verts.size();
    if (n < 2)
        return Acad::eOk;
    struct Values {
        AcGePoint3d position;
        double bulge, startWidth, endWidth;
    };
    std::vector<Values> old;
    for (const AcDb2dVertex* v : verts)
        old.push_back({v->m_position, v->m_bulge, v->m_startWidth, v->m_endWidth});
    AcDbImpDatabase* db = AcDbImpDatabase::of(database());
    for (size_t i = 0; i < n; ++i) {
        // The segment that now starts at i is the old one that ended there, run backwards.
        size_t vi = m_closed ? (n - i) % n : n - 1 - i;
        AcDb2dVertex* v = verts[i];
        if (db)
            db->touch(v);
        v->m_position = old[vi].position;
        if (m_closed || i + 1 < n) {
            size_t seg = m_closed ? (2 * n - i - 1) % n : n - 2 - i;
            v->m_bulge = -old[seg].bulge;
            v->m_startWidth = old[seg].endWidth;
            v->m_endWidth = old[seg].startWidth;
        } else {
            v->m_bulge = v->m_startWidth = v->m_endWidth = 0.0;
        }
    }
    return Acad::eOk;
}
