// AcGeLine2d and AcGeLineSeg2d: the infinite line and the bounded segment of the plane, with the
// queries the commands make of them (nearest point, on-line test, intersection, parallel, collinear).
#pragma once
#include <cmath>
#include "gepnt2d.h"
#include "gevec2d.h"

/// What an infinite line and a segment share: a point and a direction.
class AcGeLinearEnt2d {
public:
    virtual ~AcGeLinearEnt2d() = default;

    AcGePoint2d pointOnLine() const { return m_point; }
    /// The unit direction (a zero vector for a degenerate entity).
    AcGeVector2d direction() const { return m_dir.normal(); }

    /// The point where the infinite lines through both entities cross. False when they are parallel
    /// (their unit directions' cross product within tol.equalVector()); intPnt is then unchanged.
    /// A segment also needs the point to lie on it.
    bool intersectWith(const AcGeLinearEnt2d& line, AcGePoint2d& intPnt,
                       const AcGeTol& tol = AcGeContext::gTol) const
    {
        AcGeVector2d d1 = direction(), d2 = line.direction();
        double cross = d1.x * d2.y - d1.y * d2.x;
        if (d1.isZeroLength() || d2.isZeroLength() || std::fabs(cross) <= tol.equalVector())
            return false;
        AcGeVector2d w = line.m_point - m_point;
        double t = (w.x * d2.y - w.y * d2.x) / cross;
        AcGePoint2d p = m_point + d1 * t;
        if (!containsOnLine(p, tol) || !line.containsOnLine(p, tol))
            return false;
        intPnt = p;
        return true;
    }
    bool isParallelTo(const AcGeLinearEnt2d& line, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return direction().isParallelTo(line.direction(), tol);
    }
    bool isPerpendicularTo(const AcGeLinearEnt2d& line, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return direction().isPerpendicularTo(line.direction(), tol);
    }
    /// Parallel, and the other's point lies on this entity's infinite line (within tol.equalPoint()).
    bool isColinearTo(const AcGeLinearEnt2d& line, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return isParallelTo(line, tol) && lineDistance(line.m_point) <= tol.equalPoint();
    }

    /// The nearest point of the entity (for a segment, of the segment itself).
    AcGePoint2d closestPointTo(const AcGePoint2d& pnt, const AcGeTol& = AcGeContext::gTol) const
    {
        return m_point + m_dir * clampParam(param(pnt));
    }
    double distanceTo(const AcGePoint2d& pnt, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return pnt.distanceTo(closestPointTo(pnt, tol));
    }
    bool isOn(const AcGePoint2d& pnt, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(pnt, tol) <= tol.equalPoint();
    }

protected:
    AcGeLinearEnt2d() = default;
    AcGeLinearEnt2d(const AcGePoint2d& p, const AcGeVector2d& v) : m_point(p), m_dir(v) {}

    /// The parameter of the foot of the perpendicular from pnt: 0 at the point, 1 at point + m_dir.
    double param(const AcGePoint2d& pnt) const
    {
        double l2 = m_dir.lengthSqrd();
        return l2 == 0.0 ? 0.0 : (pnt - m_point).dotProduct(m_dir) / l2;
    }
    double lineDistance(const AcGePoint2d& pnt) const { return pnt.distanceTo(m_point + m_dir * param(pnt)); }
    /// Infinite lines take every parameter; a segment only [0, 1].
    virtual double clampParam(double t) const { return t; }
    bool containsOnLine(const AcGePoint2d& p, const AcGeTol& tol) const
    {
        return closestPointTo(p, tol).distanceTo(p) <= tol.equalPoint();
    }

    AcGePoint2d m_point;
    AcGeVector2d m_dir; ///< for a segment, from its start to its end
};

/// The infinite line.
class AcGeLine2d : public AcGeLinearEnt2d {
public:
    AcGeLine2d() : AcGeLinearEnt2d(AcGePoint2d::kOrigin, AcGeVector2d::kXAxis) {}
    AcGeLine2d(const AcGePoint2d& pnt, const AcGeVector2d& vec) : AcGeLinearEnt2d(pnt, vec) {}
    AcGeLine2d(const AcGePoint2d& pnt1, const AcGePoint2d& pnt2) : AcGeLinearEnt2d(pnt1, pnt2 - pnt1) {}
    static const AcGeLine2d kXAxis, kYAxis;

    AcGeLine2d& set(const AcGePoint2d& pnt, const AcGeVector2d& vec)
    {
        m_point = pnt;
        m_dir = vec;
        return *this;
    }
    AcGeLine2d& set(const AcGePoint2d& pnt1, const AcGePoint2d& pnt2) { return set(pnt1, pnt2 - pnt1); }
};
inline const AcGeLine2d AcGeLine2d::kXAxis{AcGePoint2d::kOrigin, AcGeVector2d::kXAxis};
inline const AcGeLine2d AcGeLine2d::kYAxis{AcGePoint2d::kOrigin, AcGeVector2d::kYAxis};

/// The segment between two points.
class AcGeLineSeg2d : public AcGeLinearEnt2d {
public:
    AcGeLineSeg2d() : AcGeLinearEnt2d(AcGePoint2d::kOrigin, AcGeVector2d::kXAxis) {}
    AcGeLineSeg2d(const AcGePoint2d& pnt1, const AcGePoint2d& pnt2) : AcGeLinearEnt2d(pnt1, pnt2 - pnt1) {}

    AcGeLineSeg2d& set(const AcGePoint2d& pnt1, const AcGePoint2d& pnt2)
    {
        m_point = pnt1;
        m_dir = pnt2 - pnt1;
        return *this;
    }
    AcGePoint2d startPoint() const { return m_point; }
    AcGePoint2d endPoint() const { return m_point + m_dir; }
    AcGePoint2d midPoint() const { return m_point + m_dir * 0.5; }
    double length() const { return m_dir.length(); }
    /// The infinite line through the segment.
    void getLine(AcGeLine2d& line) const { line.set(m_point, m_dir); }

protected:
    double clampParam(double t) const override { return t < 0.0 ? 0.0 : t > 1.0 ? 1.0 : t; }
};
