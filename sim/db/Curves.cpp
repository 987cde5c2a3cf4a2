// AcDbCurve and the simple curves: line, circle and arc, with their parameters, nearest points,
// offsets and transforms.
#include <cmath>

#include "dbents.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/Geometry.h"

namespace geom = sim::db::geom;

SIM_DB_DEFINE_MEMBERS(AcDbCurve, AcDbEntity, nullptr)
SIM_DB_DEFINE_MEMBERS(AcDbLine, AcDbCurve, L"LINE")
SIM_DB_DEFINE_MEMBERS(AcDbCircle, AcDbCurve, L"CIRCLE")
SIM_DB_DEFINE_MEMBERS(AcDbArc, AcDbCurve, L"ARC")
SIM_DB_DEFINE_MEMBERS(AcDbSequenceEnd, AcDbEntity, L"SEQEND")
SIM_DB_DEFINE_MEMBERS(AcDbVertex, AcDbEntity, nullptr)

// --- the curve's defaults ---------------------------------------------------------------------

Acad::ErrorStatus AcDbCurve::getStartParam(double&) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbCurve::getEndParam(double&) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbCurve::getStartPoint(AcGePoint3d&) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbCurve::getEndPoint(AcGePoint3d&) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbCurve::getPointAtParam(double, AcGePoint3d&) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbCurve::getParamAtPoint(const AcGePoint3d&, double&) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbCurve::getDistAtParam(double, double&) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbCurve::getDistAtPoint(const AcGePoint3d& point, double& dist) const
{
    double param = 0;
    Acad::ErrorStatus es = getParamAtPoint(point, param);
    return es == Acad::eOk ? getDistAtParam(param, dist) : es;
}
Acad::ErrorStatus AcDbCurve::getFirstDeriv(double, AcGeVector3d&) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbCurve::getFirstDeriv(const AcGePoint3d& point, AcGeVector3d& firstDeriv) const
{
    double param = 0;
    Acad::ErrorStatus es = getParamAtPoint(point, param);
    return es == Acad::eOk ? getFirstDeriv(param, firstDeriv) : es;
}
Acad::ErrorStatus AcDbCurve::getClosestPointTo(const AcGePoint3d&, AcGePoint3d&, bool) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbCurve::getOffsetCurves(double, AcDbVoidPtrArray&) const { return Acad::eNotApplicable; }
Acad::ErrorStatus AcDbCurve::reverseCurve() { return Acad::eNotApplicable; }

// --- line -------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& pt)
{
    SIM_DB_ASSERT_WRITE();
    m_start = pt;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& pt)
{
    SIM_DB_ASSERT_WRITE();
    m_end = pt;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::setThickness(double val)
{
    SIM_DB_ASSERT_WRITE();
    m_thickness = val;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::setNormal(const AcGeVector3d& val)
{
    SIM_DB_ASSERT_WRITE();
    if (val.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = val.normal();
    return Acad::eOk;
}

// A line's parameter is the distance from its start.
Acad::ErrorStatus AcDbLine::getStartParam(double& param) const
{
    param = 0.0;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::getEndParam(double& param) const
{
    param = m_start.distanceTo(m_end);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::getStartPoint(AcGePoint3d& point) const
{
    point = m_start;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::getEndPoint(AcGePoint3d& point) const
{
    point = m_end;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::getPointAtParam(double param, AcGePoint3d& point) const
{
    double len = m_start.distanceTo(m_end);
    double tol = geom::onCurveTol(len);
    if (param < -tol || param > len + tol)
        return Acad::eInvalidInput;
    point = len > 0 ? m_start + (m_end - m_start) * (param / len) : m_start;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    AcGePoint3d nearest;
    getClosestPointTo(point, nearest);
    if (nearest.distanceTo(point) > geom::onCurveTol(std::max(geom::sizeOf(point), geom::sizeOf(m_start))))
        return Acad::eInvalidInput;
    param = m_start.distanceTo(nearest);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::getDistAtParam(double param, double& dist) const
{
    double len = m_start.distanceTo(m_end);
    if (param < -geom::onCurveTol(len) || param > len + geom::onCurveTol(len))
        return Acad::eInvalidInput;
    dist = param;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::getFirstDeriv(double, AcGeVector3d& firstDeriv) const
{
    AcGeVector3d d = m_end - m_start;
    if (d.isZeroLength())
        return Acad::eInvalidInput;
    firstDeriv = d.normal();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::getClosestPointTo(const AcGePoint3d& givenPoint, AcGePoint3d& pointOnCurve, bool extend) const
{
    AcGeVector3d d = m_end - m_start;
    double l2 = d.lengthSqrd();
    if (l2 == 0) {
        pointOnCurve = m_start;
        return Acad::eOk;
    }
    double t = (givenPoint - m_start).dotProduct(d) / l2;
    if (!extend)
        t = std::clamp(t, 0.0, 1.0);
    pointOnCurve = m_start + d * t;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::getOffsetCurves(double offsetDist, AcDbVoidPtrArray& offsetCurves) const
{
    AcGeVector3d d = m_end - m_start;
    if (d.isZeroLength())
        return Acad::eInvalidInput;
    AcGeVector3d right = d.crossProduct(m_normal).normal() * offsetDist;
    auto* line = static_cast<AcDbLine*>(clone());
    line->m_start = m_start + right;
    line->m_end = m_end + right;
    offsetCurves.append(static_cast<AcDbEntity*>(line));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::reverseCurve()
{
    SIM_DB_ASSERT_WRITE();
    std::swap(m_start, m_end);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    m_start = xform.apply(m_start);
    m_end = xform.apply(m_end);
    AcGeVector3d n = xform.apply(m_normal);
    if (!n.isZeroLength())
        m_normal = n.normal();
    return Acad::eOk;
}

// --- circle -----------------------------------------------------------------------------------

namespace {

AcGePoint3d onCircle(const AcGePoint3d& c, const AcGeVector3d& n, double r, double angle)
{
    AcGeVector3d x, y;
    geom::ocsAxes(n, x, y);
    return c + x * (r * std::cos(angle)) + y * (r * std::sin(angle));
}

/// The angle of a point about a centre in the plane of a normal, and its distance from the centre in
/// that plane and off it.
double angleOf(const AcGePoint3d& c, const AcGeVector3d& n, const AcGePoint3d& p, double* radial = nullptr, double* off = nullptr)
{
    AcGeVector3d x, y;
    geom::ocsAxes(n, x, y);
    AcGeVector3d v = p - c;
    double u = v.dotProduct(x), w = v.dotProduct(y);
    if (radial)
        *radial = std::hypot(u, w);
    if (off)
        *off = std::fabs(v.dotProduct(n.normal()));
    return geom::normalizeAngle(std::atan2(w, u));
}

} // namespace

Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d& pt)
{
    SIM_DB_ASSERT_WRITE();
    m_center = pt;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::setRadius(double radius)
{
    SIM_DB_ASSERT_WRITE();
    if (!(radius > 0.0))
        return Acad::eInvalidInput;
    m_radius = radius;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::setNormal(const AcGeVector3d& val)
{
    SIM_DB_ASSERT_WRITE();
    if (val.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = val.normal();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::setThickness(double val)
{
    SIM_DB_ASSERT_WRITE();
    m_thickness = val;
    return Acad::eOk;
}
double AcDbCircle::circumference() const { return geom::kTwoPi * m_radius; }

// A circle's parameter is the angle from the X axis of its plane.
Acad::ErrorStatus AcDbCircle::getStartParam(double& param) const
{
    param = 0.0;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::getEndParam(double& param) const
{
    param = geom::kTwoPi;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::getStartPoint(AcGePoint3d& point) const
{
    point = onCircle(m_center, m_normal, m_radius, 0.0);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::getEndPoint(AcGePoint3d& point) const { return getStartPoint(point); }
Acad::ErrorStatus AcDbCircle::getPointAtParam(double param, AcGePoint3d& point) const
{
    point = onCircle(m_center, m_normal, m_radius, param);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    double radial = 0, off = 0;
    double a = angleOf(m_center, m_normal, point, &radial, &off);
    double tol = geom::onCurveTol(std::max(geom::sizeOf(m_center), m_radius));
    if (std::fabs(radial - m_radius) > tol || off > tol)
        return Acad::eInvalidInput;
    param = a;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::getDistAtParam(double param, double& dist) const
{
    dist = m_radius * param;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::getFirstDeriv(double param, AcGeVector3d& firstDeriv) const
{
    AcGeVector3d x, y;
    geom::ocsAxes(m_normal, x, y);
    firstDeriv = x * (-m_radius * std::sin(param)) + y * (m_radius * std::cos(param));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::getClosestPointTo(const AcGePoint3d& givenPoint, AcGePoint3d& pointOnCurve, bool) const
{
    pointOnCurve = onCircle(m_center, m_normal, m_radius, angleOf(m_center, m_normal, givenPoint));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::getOffsetCurves(double offsetDist, AcDbVoidPtrArray& offsetCurves) const
{
    if (!(m_radius + offsetDist > 0.0))
        return Acad::eInvalidInput;
    auto* c = static_cast<AcDbCircle*>(clone());
    c->m_radius = m_radius + offsetDist;
    offsetCurves.append(static_cast<AcDbEntity*>(c));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::reverseCurve()
{
    SIM_DB_ASSERT_WRITE();
    m_normal = -m_normal;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    double s = geom::planeScale(xform, m_normal);
    if (s == 0.0)
        return Acad::eNotApplicable;
    m_center = xform.apply(m_center);
    AcGeVector3d n = xform.apply(m_normal);
    if (!n.isZeroLength())
        m_normal = n.normal();
    m_radius *= s;
    return Acad::eOk;
}

// --- arc --------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d& pt)
{
    SIM_DB_ASSERT_WRITE();
    m_center = pt;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::setRadius(double radius)
{
    SIM_DB_ASSERT_WRITE();
    if (!(radius > 0.0))
        return Acad::eInvalidInput;
    m_radius = radius;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::setStartAngle(double angle)
{
    SIM_DB_ASSERT_WRITE();
    m_startAngle = angle;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::setEndAngle(double angle)
{
    SIM_DB_ASSERT_WRITE();
    m_endAngle = angle;
    return Acad::eOk;
}
double AcDbArc::totalAngle() const
{
    double t = geom::normalizeAngle(m_endAngle - m_startAngle);
    return t == 0.0 ? geom::kTwoPi : t;
}
Acad::ErrorStatus AcDbArc::setNormal(const AcGeVector3d& val)
{
    SIM_DB_ASSERT_WRITE();
    if (val.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = val.normal();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::setThickness(double val)
{
    SIM_DB_ASSERT_WRITE();
    m_thickness = val;
    return Acad::eOk;
}

// An arc's parameter is the angle; the end parameter lies above the start one.
Acad::ErrorStatus AcDbArc::getStartParam(double& param) const
{
    param = m_startAngle;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::getEndParam(double& param) const
{
    param = m_startAngle + totalAngle();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::getStartPoint(AcGePoint3d& point) const
{
    point = onCircle(m_center, m_normal, m_radius, m_startAngle);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::getEndPoint(AcGePoint3d& point) const
{
    point = onCircle(m_center, m_normal, m_radius, m_endAngle);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::getPointAtParam(double param, AcGePoint3d& point) const
{
    double tol = 1e-9;
    if (param < m_startAngle - tol || param > m_startAngle + totalAngle() + tol)
        return Acad::eInvalidInput;
    point = onCircle(m_center, m_normal, m_radius, param);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    double radial = 0, off = 0;
    double a = angleOf(m_center, m_normal, point, &radial, &off);
    double tol = geom::onCurveTol(std::max(geom::sizeOf(m_center), m_radius));
    if (std::fabs(radial - m_radius) > tol || off > tol)
        return Acad::eInvalidInput;
    double rel = geom::normalizeAngle(a - m_startAngle);
    double total = totalAngle();
    double angTol = tol / std::max(m_radius, 1e-300);
    if (rel > total + angTol) {
        // Just before the start counts as the start.
        if (geom::kTwoPi - rel <= angTol)
            rel = 0.0;
        else
            return Acad::eInvalidInput;
    }
    param = m_startAngle + std::min(rel, total);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::getDistAtParam(double param, double& dist) const
{
    dist = m_radius * (param - m_startAngle);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::getFirstDeriv(double param, AcGeVector3d& firstDeriv) const
{
    AcGeVector3d x, y;
    geom::ocsAxes(m_normal, x, y);
    firstDeriv = x * (-m_radius * std::sin(param)) + y * (m_radius * std::cos(param));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::getClosestPointTo(const AcGePoint3d& givenPoint, AcGePoint3d& pointOnCurve, bool extend) const
{
    double a = angleOf(m_center, m_normal, givenPoint);
    double rel = geom::normalizeAngle(a - m_startAngle);
    if (extend || rel <= totalAngle()) {
        pointOnCurve = onCircle(m_center, m_normal, m_radius, a);
        return Acad::eOk;
    }
    AcGePoint3d s, e;
    getStartPoint(s);
    getEndPoint(e);
    pointOnCurve = s.distanceTo(givenPoint) <= e.distanceTo(givenPoint) ? s : e;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::getOffsetCurves(double offsetDist, AcDbVoidPtrArray& offsetCurves) const
{
    if (!(m_radius + offsetDist > 0.0))
        return Acad::eInvalidInput;
    auto* a = static_cast<AcDbArc*>(clone());
    a->m_radius = m_radius + offsetDist;
    offsetCurves.append(static_cast<AcDbEntity*>(a));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::reverseCurve()
{
    SIM_DB_ASSERT_WRITE();
    AcGePoint3d s, e;
    getStartPoint(s);
    getEndPoint(e);
    m_normal = -m_normal;
    m_startAngle = angleOf(m_center, m_normal, e);
    m_endAngle = angleOf(m_center, m_normal, s);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    double s = geom::planeScale(xform, m_normal);
    if (s == 0.0)
        return Acad::eNotApplicable;
    AcGePoint3d start, end;
    getStartPoint(start);
    getEndPoint(end);
    start = xform.apply(start);
    end = xform.apply(end);
    AcGeVector3d orient = geom::transformNormal(xform, m_normal);
    AcGeVector3d n = xform.apply(m_normal);
    if (n.isZeroLength())
        n = orient;
    n = n.normal();
    // A mirror keeps the normal as carried and runs the arc the other way round.
    if (orient.dotProduct(n) < 0)
        std::swap(start, end);
    m_center = xform.apply(m_center);
    m_normal = n;
    m_radius *= s;
    m_startAngle = angleOf(m_center, m_normal, start);
    m_endAngle = angleOf(m_center, m_normal, end);
    return Acad::eOk;
}
