// Angles: the file keeps most of them in degrees, the database in radians.
#pragma once
#include <cmath>

namespace sim::dxf {

inline double radians(double degrees) { return degrees * (M_PI / 180.0); }

/// Degrees, with the last bits of the conversion's rounding taken off, so that 30 read and written
/// back is 30 again, not 29.999999999999996.
inline double degrees(double radians)
{
    double d = radians * (180.0 / M_PI);
    double snapped = std::round(d * 1e9) / 1e9;
    return std::fabs(d - snapped) <= 1e-12 * std::fmax(1.0, std::fabs(d)) ? snapped : d;
}

} // namespace sim::dxf
