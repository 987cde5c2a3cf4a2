// AcDbLeader: its vertices in one plane, arrowhead and path type, dimension style and annotation,
// and the curve it makes along its vertices.
#include <algorithm>
#include <cmath>

#include "dbldr.h"
#include "dbmtext.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/FileAccess.h"

SIM_DB_DEFINE_MEMBERS(AcDbLeader, AcDbCurve, L"LEADER")

Adesk::Boolean AcDbLeader::appendVertex(const AcGePoint3d& pt)
{
    if (!sim::db::beginChange(this))
        return false;
    m_vertices.push_back(pt);
    return true;
}

void AcDbLeader::removeLastVertex()
{
    if (!sim::db::beginChange(this) || m_vertices.size() <= 2)
        return;
    m_vertices.pop_back();
}

AcGePoint3d AcDbLeader::firstVertex() const { return m_vertices.empty() ? AcGePoint3d::kOrigin : m_vertices.front(); }
AcGePoint3d AcDbLeader::lastVertex() const { return m_vertices.empty() ? AcGePoint3d::kOrigin : m_vertices.back(); }

AcGePoint3d AcDbLeader::vertexAt(int vertNo) const
{
    if (vertNo < 0 || vertNo >= numVertices())
        return AcGePoint3d::kOrigin;
    return m_vertices[static_cast<size_t>(vertNo)];
}

Adesk::Boolean AcDbLeader::setVertexAt(int vertNo, const AcGePoint3d& pt)
{
    if (!sim::db::beginChange(this) || vertNo < 0 || vertNo >= numVertices())
        return false;
    m_vertices[static_cast<size_t>(vertNo)] = pt;
    return true;
}

void AcDbLeader::enableArrowHead()
{
    if (sim::db::beginChange(this))
        m_arrowHead = true;
}
void AcDbLeader::disableArrowHead()
{
    if (sim::db::beginChange(this))
        m_arrowHead = false;
}
void AcDbLeader::setToSplineLeader()
{
    if (sim::db::beginChange(this))
        m_splined = true;
}
void AcDbLeader::setToStraightLeader()
{
    if (sim::db::beginChange(this))
        m_splined = false;
}

void AcDbLeader::setDimensionStyle(const AcDbHardPointerId& styleId)
{
    if (sim::db::beginChange(this))
        m_dimStyle = styleId;
}

Acad::ErrorStatus AcDbLeader::attachAnnotation(const AcDbObjectId& annoId)
{
    SIM_DB_ASSERT_WRITE();
    m_annotation = annoId;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::detachAnnotation()
{
    SIM_DB_ASSERT_WRITE();
    m_annotation = AcDbObjectId::kNull;
    return Acad::eOk;
}

AcDbLeader::AnnoType AcDbLeader::annoType() const
{
    AcDbObject* anno = sim::db::objectOf(m_annotation);
    if (!anno || anno->isErased() || !AcDbEntity::cast(anno))
        return kNoAnno;
    if (AcDbMText::cast(anno))
        return kMText;
    if (AcDbBlockReference::cast(anno))
        return kBlockRef;
    return kFcf; // a tolerance frame, which the platform keeps as read
}

Acad::ErrorStatus AcDbLeader::setNormal(const AcGeVector3d& normal)
{
    SIM_DB_ASSERT_WRITE();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = normal.normal();
    return Acad::eOk;
}

// --- the curve ---------------------------------------------------------------------------------

Acad::ErrorStatus AcDbLeader::getStartParam(double& param) const
{
    if (m_vertices.empty())
        return Acad::eNotApplicable;
    param = 0.0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::getEndParam(double& param) const
{
    if (m_vertices.empty())
        return Acad::eNotApplicable;
    param = static_cast<double>(m_vertices.size() - 1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::getStartPoint(AcGePoint3d& point) const
{
    if (m_vertices.empty())
        return Acad::eNotApplicable;
    point = m_vertices.front();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::getEndPoint(AcGePoint3d& point) const
{
    if (m_vertices.empty())
        return Acad::eNotApplicable;
    point = m_vertices.back();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::getPointAtParam(double param, AcGePoint3d& point) const
{
    double end = 0.0;
    if (getEndParam(end) != Acad::eOk)
        return Acad::eNotApplicable;
    const double tol = 1e-9;
    if (param < -tol || param > end + tol)
        return Acad::eInvalidInput;
    param = std::clamp(param, 0.0, end);
    size_t i = std::min(static_cast<size_t>(param), m_vertices.size() - 1);
    if (i + 1 >= m_vertices.size()) {
        point = m_vertices.back();
        return Acad::eOk;
    }
    point = m_vertices[i] + (m_vertices[i + 1] - m_vertices[i]) * (param - static_cast<double>(i));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::getDistAtParam(double param, double& dist) const
{
    AcGePoint3d at;
    if (Acad::ErrorStatus es = getPointAtParam(param, at); es != Acad::eOk)
        return es;
    dist = 0.0;
    size_t whole = static_cast<size_t>(std::clamp(param, 0.0, static_cast<double>(m_vertices.size() - 1)));
    for (size_t i = 0; i < whole; ++i)
        dist += m_vertices[i].distanceTo(m_vertices[i + 1]);
    dist += m_vertices[whole].distanceTo(at);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    AcGeVector3d n = m_normal;
    n.transformBy(xform);
    if (n.isZeroLength())
        return Acad::eInvalidInput;
    for (AcGePoint3d& v : m_vertices)
        v.transformBy(xform);
    m_normal = n.normal();
    return Acad::eOk;
}
