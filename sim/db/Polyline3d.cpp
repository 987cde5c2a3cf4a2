// AcDb3dPolyline and AcDb3dPolylineVertex: the polyline in space whose vertices are objects of their own.
#include <algorithm>

#include "dbents.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/ImpDatabase.h"

SIM_DB_DEFINE_MEMBERS(AcDb3dPolylineVertex, AcDbVertex, L"VERTEX")
SIM_DB_DEFINE_MEMBERS(AcDb3dPolyline, AcDbCurve, L"POLYLINE")

Acad::ErrorStatus AcDb3dPolylineVertex::setPosition(const AcGePoint3d& pt)
{
    SIM_DB_ASSERT_WRITE();
    m_position = pt;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb3dPolylineVertex::transformBy(const AcGeMatrix3d&)
{
    // A vertex moves with its polyline.
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDb3dPolyline::setPolyType(AcDb::Poly3dType type)
{
    SIM_DB_ASSERT_WRITE();
    m_type = type;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb3dPolyline::makeClosed()
{
    SIM_DB_ASSERT_WRITE();
    m_closed = true;
    return Acad::eOk;
}
Acad::ErrorStatus AcDb3dPolyline::makeOpen()
{
    SIM_DB_ASSERT_WRITE();
    m_closed = false;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDb3dPolylineVertex* pNewVertex)
{
    AcDbObjectId id;
    return appendVertex(id, pNewVertex);
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDbObjectId& objId, AcDb3dPolylineVertex* pNewVertex)
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

Acad::ErrorStatus AcDb3dPolyline::openVertex(AcDb3dPolylineVertex*& pVertex, AcDbObjectId vertId, AcDb::OpenMode mode,
                                             bool openErasedOne) const
{
    pVertex = nullptr;
    if (std::find(m_vertices.begin(), m_vertices.end(), vertId) == m_vertices.end())
        return Acad::eKeyNotFound;
    return acdbOpenObject(pVertex, vertId, mode, openErasedOne);
}

Acad::ErrorStatus AcDb3dPolyline::openSequenceEnd(AcDbSequenceEnd*& pSeqEnd, AcDb::OpenMode mode)
{
    return acdbOpenObject(pSeqEnd, m_seqEnd, mode);
}

AcDbObjectIterator* AcDb3dPolyline::vertexIterator() const
{
    auto* it = new AcDbObjectIterator(m_vertices);
    it->start();
    return it;
}

namespace {
/// The live vertices in order.
std::vector<AcDb3dPolylineVertex*> liveVertices(const std::vector<AcDbObjectId>& ids)
{
    std::vector<AcDb3dPolylineVertex*> out;
    for (AcDbObjectId id : ids)
        if (auto* v = AcDb3dPolylineVertex::cast(AcDbImpDatabase::lookup(id)); v && !v->isErased())
            out.push_back(v);
    return out;
}
} // namespace

Acad::ErrorStatus AcDb3dPolyline::getStartParam(double& param) const
{
    param = 0.0;
    return liveVertices(m_vertices).empty() ? Acad::eInvalidInput : Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::getEndParam(double& param) const
{
    size_t n = liveVertices(m_vertices).size();
    if (!n)
        return Acad::eInvalidInput;
    param = n < 2 ? 0.0 : static_cast<double>(m_closed ? n : n - 1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::getStartPoint(AcGePoint3d& point) const
{
    auto vs = liveVertices(m_vertices);
    if (vs.empty())
        return Acad::eInvalidInput;
    point = vs.front()->position();
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::getEndPoint(AcGePoint3d& point) const
{
    auto vs = liveVertices(m_vertices);
    if (vs.empty())
        return Acad::eInvalidInput;
    point = (m_closed ? vs.front() : vs.back())->position();
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    AcDbImpDatabase* db = AcDbImpDatabase::of(database());
    for (AcDb3dPolylineVertex* v : liveVertices(m_vertices)) {
        if (db)
            db->touch(v);
        v->m_position = xform.apply(v->m_position);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::reverseCurve()
{
    SIM_DB_ASSERT_WRITE();
    // The vertex objects keep their place in the list; their positions run the other way round. A
    // closed polyline keeps its first vertex, as its start point does not move.
    auto vs = liveVertices(m_vertices);
    size_t n = vs.size();
    if (n < 2)
        return Acad::eOk;
    std::vector<AcGePoint3d> old;
    for (const AcDb3dPolylineVertex* v : vs)
        old.push_back(v->m_position);
    AcDbImpDatabase* db = AcDbImpDatabase::of(database());
    for (size_t i = 0; i < n; ++i) {
        if (db)
            db->touch(vs[i]);
        vs[i]->m_position = old[m_closed ? (n - i) % n : n - 1 - i];
    }
    return Acad::eOk;
}
