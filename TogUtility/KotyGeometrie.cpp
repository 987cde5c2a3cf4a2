// The geometry of a pipe dimension.
#include "KotyGeometrie.h"
#include <cmath>
#include <cwctype>
#include "CTogException.h"
#include "geline2d.h"

namespace KotyGeometrie {

namespace {

AcGeTol Tolerance(double tol)
{
    AcGeTol t;
    t.setEqualPoint(tol);
    t.setEqualVector(tol);
    return t;
}

BodyKoty Doplnit(const AcGePoint2d& p1, const AcGePoint2d& p2, double a)
{
    const AcGeVector2d u = (p2 - p1).normal();
    return {p1, p2, p2 + u * a};
}

} // namespace

AcGePoint2d NejblizsiNaPrimce(const AcGePoint2d& s, const AcGePoint2d& e, const AcGePoint2d& bod, double tol)
{
    const AcGeTol t = Tolerance(tol);
    if (s.isEqualTo(e, t))
        throw CTogException("Úsečka má nulovou délku", __LINE__, __FILE__);
    return AcGeLine2d(s, e).closestPointTo(bod, t);
}

std::optional<BodyKoty> JednaCara(const AcGePoint2d& s, const AcGePoint2d& e, const AcGePoint2d& bod,
                                  const AcGePoint2d& strana, double a, double b, double tol)
{
    const AcGePoint2d p1 = NejblizsiNaPrimce(s, e, bod, tol);
    if (AcGeLine2d(s, e).isOn(strana, Tolerance(tol)))
        return std::nullopt;
    const AcGeVector2d d = e - s;
    const AcGeVector2d w = strana - s;
    AcGeVector2d n(0.0, 0.0);
    // A line shorter than the square root of the tolerance has no side to speak of.
    if (!(tol > d.lengthSqrd())) {
        const double c = w.y * d.x - w.x * d.y;
        n = (c >= 0.0 ? AcGeVector2d(-d.y, d.x) : AcGeVector2d(d.y, -d.x)).normal();
    }
    if (n.isZeroLength())
        return std::nullopt;
    return Doplnit(p1, p1 + n * b, a);
}

std::optional<BodyKoty> DveCary(const AcGePoint2d& s1, const AcGePoint2d& e1, const AcGePoint2d& bod1,
                                const AcGePoint2d& s2, const AcGePoint2d& e2, const AcGePoint2d& bod2, double a,
                                double tol)
{
    const AcGePoint2d p1 = NejblizsiNaPrimce(s1, e1, bod1, tol);
    const AcGePoint2d p2 = NejblizsiNaPrimce(s2, e2, bod2, tol);
    if (p1.isEqualTo(p2, Tolerance(tol)))
        return std::nullopt;
    return Doplnit(p1, p2, a);
}

AcGeVector3d OsaXEntity(const AcGeVector3d& normala)
{
    const AcGeVector3d n = normala.normal();
    const double mez = 1.0 / 64.0;
    const AcGeVector3d osa = (std::fabs(n.x) < mez && std::fabs(n.y) < mez) ? AcGeVector3d::kYAxis.crossProduct(n)
                                                                          : AcGeVector3d::kZAxis.crossProduct(n);
    return osa.normal();
}

double VodorovneOtoceni(const AcGeVector3d& ucsX, const AcGeVector3d& ucsZ, const AcGeVector3d& osaXEntity)
{
    return std::atan2(ucsX.crossProduct(osaXEntity).dotProduct(ucsZ.normal()), ucsX.dotProduct(osaXEntity));
}

bool JenCislice(const ACHAR* text)
{
    if (text == nullptr || *text == L'\0')
        return false;
    for (const ACHAR* c = text; *c; ++c)
        if (*c < L'0' || *c > L'9')
            return false;
    return true;
}

AcString TextKoty(const AcString& text, bool dveCary)
{
    if (!dveCary)
        return text;
    AcString s(L"2x ");
    s += text;
    return s;
}

} // namespace KotyGeometrie
