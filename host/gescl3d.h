// AcGeScale3d: the scale factors of a block reference.
#pragma once

class AcGeScale3d {
public:
    double sx = 1.0, sy = 1.0, sz = 1.0;
    AcGeScale3d() = default;
    explicit AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
    AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}
    static const AcGeScale3d kIdentity;
    double operator[](unsigned i) const { return i == 0 ? sx : i == 1 ? sy : sz; }
    double& operator[](unsigned i) { return i == 0 ? sx : i == 1 ? sy : sz; }
    bool operator==(const AcGeScale3d& o) const { return sx == o.sx && sy == o.sy && sz == o.sz; }
};
inline const AcGeScale3d AcGeScale3d::kIdentity{1.0, 1.0, 1.0};
