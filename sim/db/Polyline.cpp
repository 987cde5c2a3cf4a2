// AcDbPolyline: vertices with bulges and widths in the plane of its normal at its elevation; its
// parameters (one per segment), nearest points, offsets and transforms.
#include <algorithm>
#include <cmath>
#include <optional>

#include "dbpl.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/Geometry.h"

namespace geom = sim::db::geom;

SIM_DB_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve, L"LWPOLYLINE")

namespace {

/// One segment in the polyline's plane: a straight piece or a circular arc.
struct Segment {
    AcGePoint2d a, b;
    double bulge = 0.0;
    // For arcs:
    AcGePoint2d center;
    double radius = 0.0;
    double startAngle = 0.0;
    double sweep = 0.0; ///< signed, positive counter-clockwise

    bool isArc() const { return bulge != 0.0 && a.distanceTo(b) > 0.0; }
    double length() const { return isArc() ? radius * std::fabs(sweep) : a.distanceTo(b); }
    AcGePoint2d pointAt(double f) const
    {
        if (!isArc())
            return a + (b - a) * f;
        double ang = startAngle + sweep * f;
        return {center.x + radius * std::cos(ang), center.y + radius * std::sin(ang)};
    }
    /// The derivative by the parameter (which runs 0 to 1 over the segment).
    AcGeVector2d derivAt(double f) const
    {
        if (!isArc())
            return b - a;
        double ang = startAngle + sweep * f;
        return AcGeVector2d(-std::sin(ang), std::cos(ang)) * (radius * sweep);
    }
    AcGeVector2d unitTangentAt(double f) const { return derivAt(f).normal(); }
    /// The nearest point's fraction along the segment.
    double closestFraction(const AcGePoint2d& p) const
    {
        if (!isArc()) {
            AcGeVector2d d = b - a;
            double l2 = d.lengthSqrd();
            return l2 == 0 ? 0.0 : std::clamp((p - a).dotProduct(d) / l2, 0.0, 1.0);
        }
        double ang = std::atan2(p.y - center.y, p.x - center.x);
        double rel = geom::normalizeAngle((ang - startAngle) * (sweep > 0 ? 1 : -1));
        double total = std::fabs(sweep);
        if (rel <= total)
            return rel / total;
        // Outside the arc: the nearer end.
        return pointAt(0).distanceTo(p) <= pointAt(1).distanceTo(p) ? 0.0 : 1.0;
    }
};

Segment makeSegment(const AcGePoint2d& a, const AcGePoint2d& b, double bulge)
{
    Segment s;
    s.a = a;
    s.b = b;
    s.bulge = bulge;
    if (s.isArc()) {
        double c = a.distanceTo(b);
        double theta = 4.0 * std::atan(bulge);
        AcGePoint2d mid{(a.x + b.x) / 2, (a.y + b.y) / 2};
        AcGeVector2d left = (b - a).normal().perpVector();
        s.center = mid + left * ((c / 2) * (1 - bulge * bulge) / (2 * bulge));
        s.radius = s.center.distanceTo(a);
        s.startAngle = std::atan2(a.y - s.center.y, a.x - s.center.x);
        s.sweep = theta;
    }
    return s;
}

AcGeVector3d toWorld(const AcGeVector3d& normal, const AcGeVector2d& v)
{
    AcGeVector3d x, y;
    geom::ocsAxes(normal, x, y);
    return x * v.x + y * v.y;
}

} // namespace

AcDbPolyline::AcDbPolyline(unsigned int num_verts) { m_verts.reserve(num_verts); }

// The segments of a vertex list.
static std::vector<Segment> segmentsOf(const std::vector<AcGePoint2d>& pts, const std::vector<double>& bulges, bool closed)
{
    std::vector<Segment> segs;
    size_t n = pts.size();
    if (n < 2)
        return segs;
    size_t count = closed ? n : n - 1;
    for (size_t i = 0; i < count; ++i)
        segs.push_back(makeSegment(pts[i], pts[(i + 1) % n], bulges[i]));
    return segs;
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& pt, double bulge, double startWidth,
                                            double endWidth, Adesk::Int32 vertexIdentifier)
{
    SIM_DB_ASSERT_WRITE();
    if (index > m_verts.size())
        return Acad::eInvalidIndex;
    Vertex v;
    v.pt = pt;
    v.bulge = bulge;
    v.startWidth = startWidth < 0 ? m_constantWidth : startWidth;
    v.endWidth = endWidth < 0 ? m_constantWidth : endWidth;
    v.id = vertexIdentifier;
    m_verts.insert(m_verts.begin() + index, v);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index)
{
    SIM_DB_ASSERT_WRITE();
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    m_verts.erase(m_verts.begin() + index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& pt) const
{
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    pt = m_verts[index].pt;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& pt) const
{
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    pt = geom::ocsToWcs(m_normal, AcGePoint3d(m_verts[index].pt.x, m_verts[index].pt.y, m_elevation));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& pt)
{
    SIM_DB_ASSERT_WRITE();
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    m_verts[index].pt = pt;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const
{
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    bulge = m_verts[index].bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge)
{
    SIM_DB_ASSERT_WRITE();
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    m_verts[index].bulge = bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const
{
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    startWidth = m_verts[index].startWidth;
    endWidth = m_verts[index].endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth)
{
    SIM_DB_ASSERT_WRITE();
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    if (startWidth < 0 || endWidth < 0)
        return Acad::eInvalidInput;
    m_verts[index].startWidth = startWidth;
    m_verts[index].endWidth = endWidth;
    return Acad::eOk;
}

AcDbPolyline::SegType AcDbPolyline::segType(unsigned int index) const
{
    size_t n = m_verts.size();
    if (n == 0 || index >= n)
        return kEmpty;
    if (n == 1)
        return kPoint;
    if (index == n - 1 && !m_closed)
        return kPoint;
    const Vertex& a = m_verts[index];
    const Vertex& b = m_verts[(index + 1) % n];
    if (a.pt.isEqualTo(b.pt))
        return kCoincident;
    return a.bulge != 0.0 ? kArc : kLine;
}

void AcDbPolyline::setClosed(bool closed)
{
    if (sim::db::beginChange(this))
        m_closed = closed;
}

bool AcDbPolyline::hasBulges() const
{
    return std::any_of(m_verts.begin(), m_verts.end(), [](const Vertex& v) { return v.bulge != 0.0; });
}

bool AcDbPolyline::hasWidth() const
{
    return std::any_of(m_verts.begin(), m_verts.end(), [](const Vertex& v) { return v.startWidth != 0.0 || v.endWidth != 0.0; });
}

Acad::ErrorStatus AcDbPolyline::getConstantWidth(double& width) const
{
    width = m_constantWidth;
    for (const Vertex& v : m_verts)
        if (v.startWidth != m_constantWidth || v.endWidth != m_constantWidth)
            return Acad::eInvalidInput;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setConstantWidth(double width)
{
    SIM_DB_ASSERT_WRITE();
    if (width < 0)
        return Acad::eInvalidInput;
    m_constantWidth = width;
    for (Vertex& v : m_verts)
        v.startWidth = v.endWidth = width;
    return Acad::eOk;
}

void AcDbPolyline::setElevation(double elev)
{
    if (sim::db::beginChange(this))
        m_elevation = elev;
}

void AcDbPolyline::setNormal(const AcGeVector3d& norm)
{
    if (sim::db::beginChange(this) && !norm.isZeroLength())
        m_normal = norm.normal();
}

Acad::ErrorStatus AcDbPolyline::setThickness(double thickness)
{
    SIM_DB_ASSERT_WRITE();
    m_thickness = thickness;
    return Acad::eOk;
}

void AcDbPolyline::setPlinegen(bool plinegen)
{
    if (sim::db::beginChange(this))
        m_plinegen = plinegen;
}

Acad::ErrorStatus AcDbPolyline::getVertexIdentifierAt(unsigned int index, Adesk::Int32& id) const
{
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    id = m_verts[index].id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setVertexIdentifierAt(unsigned int index, Adesk::Int32 suggestedValue)
{
    SIM_DB_ASSERT_WRITE();
    if (index >= m_verts.size())
        return Acad::eInvalidIndex;
    m_verts[index].id = suggestedValue;
    return Acad::eOk;
}

void AcDbPolyline::reset(bool reuse, unsigned int numVerts)
{
    if (!sim::db::beginChange(this))
        return;
    if (reuse && numVerts < m_verts.size())
        m_verts.resize(numVerts);
    else if (!reuse)
        m_verts.clear();
}

// --- the curve --------------------------------------------------------------------------------

#define SIM_DB_SEGMENTS()                                                                          \
    std::vector<AcGePoint2d> pts_;                                                                 \
    std::vector<double> bulges_;                                                                   \
    for (const Vertex& v : m_verts) {                                                              \
        pts_.push_back(v.pt);                                                                      \
        bulges_.push_back(v.bulge);                                                                \
    }                                                                                              \
    std::vector<Segment> segs = segmentsOf(pts_, bulges_, m_closed)

Acad::ErrorStatus AcDbPolyline::getStartParam(double& param) const
{
    param = 0.0;
    return m_verts.empty() ? Acad::eInvalidInput : Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getEndParam(double& param) const
{
    if (m_verts.empty())
        return Acad::eInvalidInput;
    size_t n = m_verts.size();
    param = n < 2 ? 0.0 : static_cast<double>(m_closed ? n : n - 1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getStartPoint(AcGePoint3d& point) const
{
    return m_verts.empty() ? Acad::eInvalidInput : getPointAt(0u, point);
}

Acad::ErrorStatus AcDbPolyline::getEndPoint(AcGePoint3d& point) const
{
    if (m_verts.empty())
        return Acad::eInvalidInput;
    return getPointAt(m_closed ? 0u : static_cast<unsigned>(m_verts.size() - 1), point);
}

Acad::ErrorStatus AcDbPolyline::getPointAtParam(double param, AcGePoint3d& point) const
{
    SIM_DB_SEGMENTS();
    if (segs.empty())
        return param == 0.0 && !m_verts.empty() ? getPointAt(0u, point) : Acad::eInvalidInput;
    double end = static_cast<double>(segs.size());
    if (param < -1e-12 || param > end + 1e-12)
        return Acad::eInvalidInput;
    size_t i = std::min(static_cast<size_t>(std::max(param, 0.0)), segs.size() - 1);
    double f = std::clamp(param - static_cast<double>(i), 0.0, 1.0);
    AcGePoint2d p = segs[i].pointAt(f);
    point = geom::ocsToWcs(m_normal, AcGePoint3d(p.x, p.y, m_elevation));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    SIM_DB_SEGMENTS();
    AcGePoint3d local = geom::wcsToOcs(m_normal, point);
    AcGePoint2d p{local.x, local.y};
    double tol = geom::onCurveTol(geom::sizeOf(point));
    if (std::fabs(local.z - m_elevation) > tol)
        return Acad::eInvalidInput;
    if (segs.empty()) {
        if (!m_verts.empty() && m_verts[0].pt.distanceTo(p) <= tol) {
            param = 0.0;
            return Acad::eOk;
        }
        return Acad::eInvalidInput;
    }
    for (size_t i = 0; i < segs.size(); ++i) {
        double f = segs[i].closestFraction(p);
        if (segs[i].pointAt(f).distanceTo(p) <= tol) {
            param = static_cast<double>(i) + f;
            return Acad::eOk;
        }
    }
    return Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbPolyline::getDistAtParam(double param, double& dist) const
{
    SIM_DB_SEGMENTS();
    double end = static_cast<double>(segs.size());
    if (param < -1e-12 || param > end + 1e-12)
        return Acad::eInvalidInput;
    dist = 0.0;
    for (size_t i = 0; i < segs.size() && static_cast<double>(i) < param; ++i)
        dist += segs[i].length() * std::min(1.0, param - static_cast<double>(i));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getFirstDeriv(double param, AcGeVector3d& firstDeriv) const
{
    SIM_DB_SEGMENTS();
    if (segs.empty())
        return Acad::eInvalidInput;
    double end = static_cast<double>(segs.size());
    if (param < -1e-12 || param > end + 1e-12)
        return Acad::eInvalidInput;
    size_t i = std::min(static_cast<size_t>(std::max(param, 0.0)), segs.size() - 1);
    double f = std::clamp(param - static_cast<double>(i), 0.0, 1.0);
    firstDeriv = toWorld(m_normal, segs[i].derivAt(f));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getClosestPointTo(const AcGePoint3d& givenPoint, AcGePoint3d& pointOnCurve, bool) const
{
    SIM_DB_SEGMENTS();
    if (m_verts.empty())
        return Acad::eInvalidInput;
    AcGePoint3d local = geom::wcsToOcs(m_normal, givenPoint);
    AcGePoint2d p{local.x, local.y};
    AcGePoint2d best = m_verts[0].pt;
    double bestDist = best.distanceTo(p);
    for (const Segment& s : segs) {
        AcGePoint2d q = s.pointAt(s.closestFraction(p));
        if (double d = q.distanceTo(p); d < bestDist) {
            bestDist = d;
            best = q;
        }
    }
    pointOnCurve = geom::ocsToWcs(m_normal, AcGePoint3d(best.x, best.y, m_elevation));
    return Acad::eOk;
}

namespace {

/// Where two straight lines through p1 along d1 and p2 along d2 meet; nothing when parallel.
std::optional<AcGePoint2d> intersect(const AcGePoint2d& p1, const AcGeVector2d& d1, const AcGePoint2d& p2, const AcGeVector2d& d2)
{
    double den = d1.x * d2.y - d1.y * d2.x;
    if (std::fabs(den) <= 1e-12 * d1.length() * d2.length())
        return std::nullopt;
    AcGeVector2d w = p2 - p1;
    double t = (w.x * d2.y - w.y * d2.x) / den;
    return p1 + d1 * t;
}

} // namespace

Acad::ErrorStatus AcDbPolyline::getOffsetCurves(double offsetDist, AcDbVoidPtrArray& offsetCurves) const
{
    SIM_DB_SEGMENTS();
    std::vector<Segment> off;
    for (const Segment& s : segs) {
        if (s.a.isEqualTo(s.b))
            continue;
        AcGeVector2d ta = s.unitTangentAt(0), tb = s.unitTangentAt(1);
        // The right-hand side of the direction of travel.
        AcGePoint2d a = s.a + AcGeVector2d(ta.y, -ta.x) * offsetDist;
        AcGePoint2d b = s.b + AcGeVector2d(tb.y, -tb.x) * offsetDist;
        if (s.isArc() && !(s.radius + (s.sweep > 0 ? offsetDist : -offsetDist) > 0.0))
            return Acad::eInvalidInput;
        off.push_back(makeSegment(a, b, s.bulge));
    }
    if (off.empty())
        return Acad::eInvalidInput;

    // How consecutive offset segments meet: at one point, or at two joined by a straight piece.
    struct Joint {
        AcGePoint2d end, start;
        bool single;
    };
    auto joint = [&](const Segment& s, const Segment& t) {
        double tol = geom::onCurveTol(std::max(std::fabs(s.b.x), std::fabs(s.b.y)));
        if (s.b.distanceTo(t.a) <= tol)
            return Joint{s.b, s.b, true};
        if (!s.isArc() && !t.isArc())
            if (auto p = intersect(s.a, s.b - s.a, t.a, t.b - t.a))
                return Joint{*p, *p, true};
        return Joint{s.b, t.a, false};
    };

    std::vector<Vertex> verts;
    auto push = [&](const AcGePoint2d& p) {
        Vertex v;
        v.pt = p;
        verts.push_back(v);
    };
    size_t m = off.size();
    bool closed = m_closed && m > 1;
    Joint wrap{};
    if (closed) {
        wrap = joint(off[m - 1], off[0]);
        push(wrap.start);
    } else {
        push(off[0].a);
    }
    for (size_t k = 0; k < m; ++k) {
        verts.back().bulge = off[k].bulge;
        if (k + 1 < m) {
            Joint j = joint(off[k], off[k + 1]);
            if (j.single) {
                push(j.end);
            } else {
                push(j.end);
                push(j.start);
            }
        } else if (closed) {
            if (!wrap.single)
                push(wrap.end);
        } else {
            push(off[k].b);
        }
    }
    auto* pl = static_cast<AcDbPolyline*>(clone());
    pl->m_verts = std::move(verts);
    pl->m_closed = closed;
    offsetCurves.append(static_cast<AcDbEntity*>(pl));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::reverseCurve()
{
    SIM_DB_ASSERT_WRITE();
    size_t n = m_verts.size();
    if (n < 2)
        return Acad::eOk;
    std::vector<Vertex> r(n);
    for (size_t i = 0; i < n; ++i) {
        // The segment that now starts at i is the old one that ended there, run backwards.
        size_t vi = m_closed ? (n - i) % n : n - 1 - i;
        size_t seg = m_closed ? (2 * n - i - 1) % n : n - 2 - i;
        r[i].pt = m_verts[vi].pt;
        r[i].id = m_verts[vi].id;
        if (m_closed || i + 1 < n) {
            r[i].bulge = -m_verts[seg].bulge;
            r[i].startWidth = m_verts[seg].endWidth;
            r[i].endWidth = m_verts[seg].startWidth;
        }
    }
    m_verts = std::move(r);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    double s = geom::planeScale(xform, m_normal);
    if (s == 0.0 && hasBulges())
        return Acad::eNotApplicable;
    AcGeVector3d orient = geom::transformNormal(xform, m_normal);
    AcGeVector3d n = xform.apply(m_normal);
    n = n.isZeroLength() ? orient : n.normal();
    bool mirrored = orient.dotProduct(n) < 0;
    std::vector<Vertex> verts = m_verts;
    double elevation = m_elevation;
    for (size_t i = 0; i < verts.size(); ++i) {
        AcGePoint3d w = xform.apply(geom::ocsToWcs(m_normal, AcGePoint3d(verts[i].pt.x, verts[i].pt.y, m_elevation)));
        AcGePoint3d local = geom::wcsToOcs(n, w);
        verts[i].pt.set(local.x, local.y);
        if (i == 0)
            elevation = local.z;
        if (mirrored)
            verts[i].bulge = -verts[i].bulge;
        if (s != 0.0) {
            verts[i].startWidth *= s;
            verts[i].endWidth *= s;
        }
    }
    m_verts = std::move(verts);
    m_normal = n;
    m_elevation = elevation;
    if (s != 0.0)
        m_constantWidth *= s;
    return Acad::eOk;
}
