// The readable-angle rule.
#include "CitelnyUhel.h"

#include <numbers>

double CitelnyUhel(double a, double osaX)
{
    constexpr double kDvePi = 2.0 * std::numbers::pi;
    constexpr double kOdStupnu100 = 1.7453292519943295;
    constexpr double kDoStupnu280 = 4.886921905584122;
    double r = a - osaX;
    if (r < 0.0)
        r += kDvePi;
    if (r > kDvePi)
        r -= kDvePi;
    return r > kOdStupnu100 && r < kDoStupnu280 ? a + std::numbers::pi : a;
}
