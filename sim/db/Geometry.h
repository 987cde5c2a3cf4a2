// Plane geometry the entities share: the object coordinate system of a normal, angles, tolerances.
#pragma once
#include <algorithm>
#include <cmath>
#include "gemat3d.h"
#include "gepnt2d.h"
#include "gepnt3d.h"
#include "gevec3d.h"

namespace sim::db::geom {

constexpr double kTwoPi = 2.0 * M_PI;

/// The X and Y axes of the object coordinate system of a normal (the host's arbitrary axis rule).
inline void ocsAxes(const AcGeVector3d& normal, AcGeVector3d& x, AcGeVector3d& y)
{
    AcGeVector3d n = normal.normal();
    if (std::fabs(n.x) < 1.0 / 64 && std::fabs(n.y) < 1.0 / 64)
        x = AcGeVector3d::kYAxis.crossProduct(n).normal();
    else
        x = AcGeVector3d::kZAxis.crossProduct(n).normal();
    y = n.crossProduct(x).normal();
}

/// From the object coordinate system of a normal to world coordinates.
inline AcGePoint3d ocsToWcs(const AcGeVector3d& normal, const AcGePoint3d& p)
{
    AcGeVector3d x, y;
    ocsAxes(normal, x, y);
    AcGeVector3d n = normal.normal();
    return AcGePoint3d::kOrigin + x * p.x + y * p.y + n * p.z;
}

inline AcGePoint3d wcsToOcs(const AcGeVector3d& normal, const AcGePoint3d& p)
{
    AcGeVector3d x, y;
    ocsAxes(normal, x, y);
    AcGeVector3d v = p.asVector();
    return {v.dotProduct(x), v.dotProduct(y), v.dotProduct(normal.normal())};
}

/// An angle brought into [0, 2 pi).
inline double normalizeAngle(double a)
{
    a = std::fmod(a, kTwoPi);
    return a < 0 ? a + kTwoPi : a;
}

/// The tolerance for "on the curve" at coordinates of this size.
inline double onCurveTol(double size) { return 1e-9 * std::max(1.0, size); }

inline double sizeOf(const AcGePoint3d& p) { return std::max({std::fabs(p.x), std::fabs(p.y), std::fabs(p.z)}); }

/// The scale a transform gives lengths in the plane of a normal; 0 when it scales unevenly there.
inline double planeScale(const AcGeMatrix3d& m, const AcGeVector3d& normal)
{
    AcGeVector3d x, y;
    ocsAxes(normal, x, y);
    double sx = m.apply(x).length(), sy = m.apply(y).length();
    if (std::fabs(sx - sy) > 1e-9 * std::max(1.0, sx))
        return 0.0;
    return sx;
}

/// The transformed normal of a plane (the normal of the transformed plane).
inline AcGeVector3d transformNormal(const AcGeMatrix3d& m, const AcGeVector3d& normal)
{
    AcGeVector3d x, y;
    ocsAxes(normal, x, y);
    AcGeVector3d n = m.apply(x).crossProduct(m.apply(y));
    return n.isZeroLength() ? normal : n.normal();
}

} // namespace sim::db::geom
