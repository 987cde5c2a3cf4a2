// AcGePoint2d.
#pragma once
#include "gevec2d.h"

class AcGePoint2d {
public:
    double x = 0.0, y = 0.0;
    AcGePoint2d() = default;
    AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}
    static const AcGePoint2d kOrigin;

    AcGePoint2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    AcGePoint2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    AcGeVector2d operator-(const AcGePoint2d& p) const { return {x - p.x, y - p.y}; }
    AcGePoint2d& operator+=(const AcGeVector2d& v) { x += v.x; y += v.y; return *this; }
    AcGePoint2d& operator-=(const AcGeVector2d& v) { x -= v.x; y -= v.y; return *this; }
    double operator[](unsigned i) const { return i == 0 ? x : y; }
    double& operator[](unsigned i) { return i == 0 ? x : y; }
    AcGeVector2d asVector() const { return {x, y}; }
    double distanceTo(const AcGePoint2d& p) const { return (*this - p).length(); }
    bool isEqualTo(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }
    AcGePoint2d& set(double xx, double yy) { x = xx; y = yy; return *this; }
    bool operator==(const AcGePoint2d& p) const { return isEqualTo(p); }
    bool operator!=(const AcGePoint2d& p) const { return !isEqualTo(p); }
};
inline const AcGePoint2d AcGePoint2d::kOrigin{0.0, 0.0};
