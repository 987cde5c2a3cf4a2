// AcGeMatrix3d: an affine transform of 3D space, 4x4, acting on column vectors.
#pragma once
#include <cmath>
#include "gepnt3d.h"
#include "gevec3d.h"

class AcGeMatrix3d {
public:
    double entry[4][4];

    AcGeMatrix3d() { setToIdentity(); }
    static const AcGeMatrix3d kIdentity;

    AcGeMatrix3d& setToIdentity()
    {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j)
                entry[i][j] = i == j ? 1.0 : 0.0;
        return *this;
    }
    double operator()(unsigned row, unsigned col) const { return entry[row][col]; }
    double& operator()(unsigned row, unsigned col) { return entry[row][col]; }

    AcGeMatrix3d operator*(const AcGeMatrix3d& m) const
    {
        AcGeMatrix3d r;
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) {
                double s = 0;
                for (int k = 0; k < 4; ++k)
                    s += entry[i][k] * m.entry[k][j];
                r.entry[i][j] = s;
            }
        return r;
    }
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left) { return *this = left * *this; }
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right) { return *this = *this * right; }

    /// The transform that takes the world axes to the given coordinate system.
    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis,
                                 const AcGeVector3d& zAxis)
    {
        setToIdentity();
        for (int i = 0; i < 3; ++i) {
            entry[i][0] = xAxis[static_cast<unsigned>(i)];
            entry[i][1] = yAxis[static_cast<unsigned>(i)];
            entry[i][2] = zAxis[static_cast<unsigned>(i)];
            entry[i][3] = origin[static_cast<unsigned>(i)];
        }
        return *this;
    }
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& x, AcGeVector3d& y, AcGeVector3d& z) const
    {
        origin.set(entry[0][3], entry[1][3], entry[2][3]);
        x = AcGeVector3d(entry[0][0], entry[1][0], entry[2][0]);
        y = AcGeVector3d(entry[0][1], entry[1][1], entry[2][1]);
        z = AcGeVector3d(entry[0][2], entry[1][2], entry[2][2]);
    }
    AcGeMatrix3d& setToTranslation(const AcGeVector3d& v)
    {
        setToIdentity();
        entry[0][3] = v.x;
        entry[1][3] = v.y;
        entry[2][3] = v.z;
        return *this;
    }
    AcGeMatrix3d& setToScaling(double s, const AcGePoint3d& center = AcGePoint3d::kOrigin)
    {
        setToIdentity();
        for (int i = 0; i < 3; ++i) {
            entry[i][i] = s;
            entry[i][3] = center[static_cast<unsigned>(i)] * (1 - s);
        }
        return *this;
    }
    /// Rotation by angle (radians) about an axis through center.
    AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center = AcGePoint3d::kOrigin)
    {
        AcGeVector3d u = axis.normal();
        double c = std::cos(angle), s = std::sin(angle), t = 1 - c;
        setToIdentity();
        entry[0][0] = t * u.x * u.x + c;
        entry[0][1] = t * u.x * u.y - s * u.z;
        entry[0][2] = t * u.x * u.z + s * u.y;
        entry[1][0] = t * u.x * u.y + s * u.z;
        entry[1][1] = t * u.y * u.y + c;
        entry[1][2] = t * u.y * u.z - s * u.x;
        entry[2][0] = t * u.x * u.z - s * u.y;
        entry[2][1] = t * u.y * u.z + s * u.x;
        entry[2][2] = t * u.z * u.z + c;
        for (int i = 0; i < 3; ++i)
            entry[i][3] = center[static_cast<unsigned>(i)] - (entry[i][0] * center.x + entry[i][1] * center.y + entry[i][2] * center.z);
        return *this;
    }
    /// The transform that takes points of one coordinate system to the same places expressed in another.
    AcGeMatrix3d& setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX, const AcGeVector3d& fromY,
                                     const AcGeVector3d& fromZ, const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                     const AcGeVector3d& toY, const AcGeVector3d& toZ)
    {
        AcGeMatrix3d from, to;
        from.setCoordSystem(fromOrigin, fromX, fromY, fromZ);
        to.setCoordSystem(toOrigin, toX, toY, toZ);
        return *this = to * from.inverse();
    }
    static AcGeMatrix3d translation(const AcGeVector3d& v) { return AcGeMatrix3d().setToTranslation(v); }
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center = AcGePoint3d::kOrigin)
    {
        return AcGeMatrix3d().setToRotation(angle, axis, center);
    }
    static AcGeMatrix3d scaling(double s, const AcGePoint3d& center = AcGePoint3d::kOrigin)
    {
        return AcGeMatrix3d().setToScaling(s, center);
    }
    static AcGeMatrix3d alignCoordSys(const AcGePoint3d& fo, const AcGeVector3d& fx, const AcGeVector3d& fy,
                                      const AcGeVector3d& fz, const AcGePoint3d& to, const AcGeVector3d& tx,
                                      const AcGeVector3d& ty, const AcGeVector3d& tz)
    {
        return AcGeMatrix3d().setToAlignCoordSys(fo, fx, fy, fz, to, tx, ty, tz);
    }

    /// The inverse of an affine transform; a singular one gives the identity.
    AcGeMatrix3d inverse() const
    {
        const double(&m)[4][4] = entry;
        double det = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) - m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                     m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
        AcGeMatrix3d r;
        if (std::fabs(det) < 1e-300)
            return r;
        r.entry[0][0] = (m[1][1] * m[2][2] - m[1][2] * m[2][1]) / det;
        r.entry[0][1] = (m[0][2] * m[2][1] - m[0][1] * m[2][2]) / det;
        r.entry[0][2] = (m[0][1] * m[1][2] - m[0][2] * m[1][1]) / det;
        r.entry[1][0] = (m[1][2] * m[2][0] - m[1][0] * m[2][2]) / det;
        r.entry[1][1] = (m[0][0] * m[2][2] - m[0][2] * m[2][0]) / det;
        r.entry[1][2] = (m[0][2] * m[1][0] - m[0][0] * m[1][2]) / det;
        r.entry[2][0] = (m[1][0] * m[2][1] - m[1][1] * m[2][0]) / det;
        r.entry[2][1] = (m[0][1] * m[2][0] - m[0][0] * m[2][1]) / det;
        r.entry[2][2] = (m[0][0] * m[1][1] - m[0][1] * m[1][0]) / det;
        for (int i = 0; i < 3; ++i)
            r.entry[i][3] = -(r.entry[i][0] * m[0][3] + r.entry[i][1] * m[1][3] + r.entry[i][2] * m[2][3]);
        return r;
    }
    AcGeMatrix3d& invert() { return *this = inverse(); }

    AcGePoint3d apply(const AcGePoint3d& p) const
    {
        return {entry[0][0] * p.x + entry[0][1] * p.y + entry[0][2] * p.z + entry[0][3],
                entry[1][0] * p.x + entry[1][1] * p.y + entry[1][2] * p.z + entry[1][3],
                entry[2][0] * p.x + entry[2][1] * p.y + entry[2][2] * p.z + entry[2][3]};
    }
    AcGeVector3d apply(const AcGeVector3d& v) const
    {
        return {entry[0][0] * v.x + entry[0][1] * v.y + entry[0][2] * v.z,
                entry[1][0] * v.x + entry[1][1] * v.y + entry[1][2] * v.z,
                entry[2][0] * v.x + entry[2][1] * v.y + entry[2][2] * v.z};
    }
    bool isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol = AcGeContext::gTol) const
    {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j)
                if (std::fabs(entry[i][j] - m.entry[i][j]) > tol.equalVector())
                    return false;
        return true;
    }
};
inline const AcGeMatrix3d AcGeMatrix3d::kIdentity{};

inline AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& m) { return *this = m.apply(*this); }
inline AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& m) { return *this = m.apply(*this); }
inline AcGePoint3d operator*(const AcGeMatrix3d& m, const AcGePoint3d& p) { return m.apply(p); }
inline AcGeVector3d operator*(const AcGeMatrix3d& m, const AcGeVector3d& v) { return m.apply(v); }
