// AcGePoint3d.
#pragma once
#include "gepnt2d.h"
#include "gevec3d.h"

class AcGeMatrix3d;

class AcGePoint3d {
public:
    double x = 0.0, y = 0.0, z = 0.0;
    AcGePoint3d() = default;
    AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    static const AcGePoint3d kOrigin;

    AcGePoint3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    AcGePoint3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    AcGeVector3d operator-(const AcGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
    AcGePoint3d& operator+=(const AcGeVector3d& v) { x += v.x; y += v.y; z += v.z; return *this; }
    AcGePoint3d& operator-=(const AcGeVector3d& v) { x -= v.x; y -= v.y; z -= v.z; return *this; }
    double operator[](unsigned i) const { return i == 0 ? x : i == 1 ? y : z; }
    double& operator[](unsigned i) { return i == 0 ? x : i == 1 ? y : z; }
    AcGeVector3d asVector() const { return {x, y, z}; }
    AcGePoint2d convert2d() const { return {x, y}; }
    double distanceTo(const AcGePoint3d& p) const { return (*this - p).length(); }
    bool isEqualTo(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }
    AcGePoint3d& set(double xx, double yy, double zz) { x = xx; y = yy; z = zz; return *this; }
    AcGePoint3d& transformBy(const AcGeMatrix3d& leftSide);
    bool operator==(const AcGePoint3d& p) const { return isEqualTo(p); }
    bool operator!=(const AcGePoint3d& p) const { return !isEqualTo(p); }
};
inline const AcGePoint3d AcGePoint3d::kOrigin{0.0, 0.0, 0.0};

/// Treats an ads_point as an AcGePoint3d, as the host's asPnt3d does.
inline const AcGePoint3d& asPnt3d(const double* pnt) { return *reinterpret_cast<const AcGePoint3d*>(pnt); }
inline AcGePoint3d& asPnt3d(double* pnt) { return *reinterpret_cast<AcGePoint3d*>(pnt); }
inline double* asDblArray(AcGePoint3d& pnt) { return reinterpret_cast<double*>(&pnt); }
inline const double* asDblArray(const AcGePoint3d& pnt) { return reinterpret_cast<const double*>(&pnt); }
