// AcGeVector3d.
#pragma once
#include <cmath>
#include "gegbl.h"
#include "gevec2d.h"

class AcGeMatrix3d;

class AcGeVector3d {
public:
    double x = 0.0, y = 0.0, z = 0.0;
    AcGeVector3d() = default;
    AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    static const AcGeVector3d kIdentity, kXAxis, kYAxis, kZAxis;

    AcGeVector3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    AcGeVector3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    AcGeVector3d operator-() const { return {-x, -y, -z}; }
    AcGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
    AcGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
    AcGeVector3d& operator+=(const AcGeVector3d& v) { x += v.x; y += v.y; z += v.z; return *this; }
    AcGeVector3d& operator-=(const AcGeVector3d& v) { x -= v.x; y -= v.y; z -= v.z; return *this; }
    AcGeVector3d& operator*=(double s) { x *= s; y *= s; z *= s; return *this; }
    double operator[](unsigned i) const { return i == 0 ? x : i == 1 ? y : z; }
    double& operator[](unsigned i) { return i == 0 ? x : i == 1 ? y : z; }

    double length() const { return std::sqrt(x * x + y * y + z * z); }
    double lengthSqrd() const { return x * x + y * y + z * z; }
    double dotProduct(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    AcGeVector3d crossProduct(const AcGeVector3d& v) const
    {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const
    {
        double l = length();
        return l <= tol.equalVector() ? *this : AcGeVector3d(x / l, y / l, z / l);
    }
    AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol) { return *this = normal(tol); }
    double angleTo(const AcGeVector3d& v) const { return std::atan2(crossProduct(v).length(), dotProduct(v)); }
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const { return length() <= tol.equalVector(); }
    bool isParallelTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return normal(tol).crossProduct(v.normal(tol)).length() <= tol.equalVector();
    }
    bool isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return (normal(tol) - v.normal(tol)).length() <= tol.equalVector();
    }
    bool isEqualTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return (*this - v).length() <= tol.equalVector();
    }
    AcGeVector2d convert2d() const { return {x, y}; }
    AcGeVector3d& transformBy(const AcGeMatrix3d& leftSide);
    bool operator==(const AcGeVector3d& v) const { return isEqualTo(v); }
    bool operator!=(const AcGeVector3d& v) const { return !isEqualTo(v); }
};
inline AcGeVector3d operator*(double s, const AcGeVector3d& v) { return v * s; }
inline const AcGeVector3d AcGeVector3d::kIdentity{1.0, 0.0, 0.0};
inline const AcGeVector3d AcGeVector3d::kXAxis{1.0, 0.0, 0.0};
inline const AcGeVector3d AcGeVector3d::kYAxis{0.0, 1.0, 0.0};
inline const AcGeVector3d AcGeVector3d::kZAxis{0.0, 0.0, 1.0};
