// WGS-84 to S-JTSK with the constants of the published transformation.
#include "Wgs84NaJtsk.h"

#include <cmath>

BodJtsk Wgs84NaJtsk(double sirka, double delka, double vyska)
{
    using std::atan, std::cos, std::sin, std::sqrt, std::tan, std::pow, std::asin;
    constexpr double kRadian = 57.29577951308232;
    const double B = sirka / kRadian, L = delka / kRadian, h = vyska;

    // WGS-84 geodetic to geocentric.
    constexpr double aW = 6378137.0, e2W = 0.006694379990141;
    const double N = aW / sqrt(1.0 - e2W * sin(B) * sin(B));
    const double xW = (N + h) * cos(B) * cos(L);
    const double yW = (N + h) * cos(B) * sin(L);
    const double zW = (N * 0.993305620009859 + h) * sin(B);

    // Helmert to the Bessel ellipsoid.
    constexpr double m = 0.9999964376901;
    constexpr double r1 = 2.5506425433030275e-5, r2 = 2.4232944974685244e-5, r3 = 7.69261818760871e-6;
    const double xB = (xW + yW * r1 - zW * r3) * m - 570.8285;
    const double yB = (yW - xW * r1 + zW * r2) * m - 85.676889;
    const double zB = (zW + xW * r3 - yW * r2) * m - 462.84202;

    // Geocentric to geodetic on Bessel, in closed form.
    constexpr double aB = 6377397.15508, bB = 6356078.9629, e2B = 0.006674372230622;
    const double p = sqrt(yB * yB + xB * xB);
    const double t = atan(zB * aB / (p * bB));
    const double sinT = sin(t), cosT = cos(t);
    const double Bb = atan((zB + sinT * sinT * sinT * aB * aB * e2B / bB) / (p - cosT * cosT * cosT * 42565.1224755137));
    const double pulDelky = atan(yB / (p + xB));

    // Krovak.
    constexpr double q = 0.7853981633974483, e = 0.081696830453381, alfa = 1.000597498371542;
    constexpr double k = 1.0034191640000047, n = 0.97992470462083;
    const double s = e * sin(Bb);
    const double u = atan(k * pow(tan(Bb / 2.0 + q) * pow((1.0 - s) / (1.0 + s), 0.0408484152266905), alfa)) - q;
    const double v = 0.742208135432484 - (2.0 * pulDelky + 0.3083415011856649) * alfa;
    const double S = asin(cos(1.042168563797518) * cos(2.0 * u) * cos(v) + sin(2.0 * u) * sin(1.042168563797518));
    const double D = asin(sin(v) * cos(2.0 * u) / cos(S));
    const double eps = n * D;
    const double rho = 1298039.004638987 * pow(tan(1.4704398948052226) / tan(S / 2.0 + q), n);
    return {rho * cos(eps), rho * sin(eps)};
}
