// AcGeVector2d.
#pragma once
#include <cmath>
#include "gegbl.h"

class AcGeVector2d {
public:
    double x = 0.0, y = 0.0;
    AcGeVector2d() = default;
    AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}
    static const AcGeVector2d kIdentity, kXAxis, kYAxis;

    AcGeVector2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    AcGeVector2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    AcGeVector2d operator-() const { return {-x, -y}; }
    AcGeVector2d operator*(double s) const { return {x * s, y * s}; }
    AcGeVector2d operator/(double s) const { return {x / s, y / s}; }
    AcGeVector2d& operator+=(const AcGeVector2d& v) { x += v.x; y += v.y; return *this; }
    AcGeVector2d& operator-=(const AcGeVector2d& v) { x -= v.x; y -= v.y; return *this; }
    AcGeVector2d& operator*=(double s) { x *= s; y *= s; return *this; }
    double operator[](unsigned i) const { return i == 0 ? x : y; }
    double& operator[](unsigned i) { return i == 0 ? x : y; }

    double length() const { return std::hypot(x, y); }
    double lengthSqrd() const { return x * x + y * y; }
    double dotProduct(const AcGeVector2d& v) const { return x * v.x + y * v.y; }
    /// Angle from the X axis, 0 to 2 pi.
    double angle() const
    {
        double a = std::atan2(y, x);
        return a < 0 ? a + 2 * M_PI : a;
    }
    double angleTo(const AcGeVector2d& v) const
    {
        return std::fabs(std::atan2(x * v.y - y * v.x, dotProduct(v)));
    }
    AcGeVector2d perpVector() const { return {-y, x}; }
    AcGeVector2d normal(const AcGeTol& tol = AcGeContext::gTol) const
    {
        double l = length();
        return l <= tol.equalVector() ? *this : AcGeVector2d(x / l, y / l);
    }
    AcGeVector2d& normalize(const AcGeTol& tol = AcGeContext::gTol) { return *this = normal(tol); }
    bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const { return length() <= tol.equalVector(); }
    bool isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const { return std::fabs(length() - 1.0) <= tol.equalVector(); }
    bool isParallelTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const
    {
        AcGeVector2d a = normal(tol), b = v.normal(tol);
        return std::fabs(a.x * b.y - a.y * b.x) <= tol.equalVector();
    }
    bool isCodirectionalTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const
    {
        AcGeVector2d a = normal(tol), b = v.normal(tol);
        return (a - b).length() <= tol.equalVector();
    }
    bool isPerpendicularTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const
    {
        AcGeVector2d a = normal(tol), b = v.normal(tol);
        return std::fabs(a.dotProduct(b)) <= tol.equalVector();
    }
    bool isEqualTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return (*this - v).length() <= tol.equalVector();
    }
    AcGeVector2d& rotateBy(double angle)
    {
        double c = std::cos(angle), s = std::sin(angle);
        return *this = AcGeVector2d(x * c - y * s, x * s + y * c);
    }
    bool operator==(const AcGeVector2d& v) const { return isEqualTo(v); }
    bool operator!=(const AcGeVector2d& v) const { return !isEqualTo(v); }
};
inline AcGeVector2d operator*(double s, const AcGeVector2d& v) { return v * s; }
inline const AcGeVector2d AcGeVector2d::kIdentity{1.0, 0.0};
inline const AcGeVector2d AcGeVector2d::kXAxis{1.0, 0.0};
inline const AcGeVector2d AcGeVector2d::kYAxis{0.0, 1.0};
