// WGS-84 geographic coordinates to S-JTSK (Krovak's conformal conic projection on the Bessel 1841
// ellipsoid), by the published transformation: geocentric coordinates, a seven-parameter Helmert
// transformation to Bessel, back to geodetic, and Krovak's projection.
#pragma once

struct BodJtsk {
    double x = 0.0; ///< S-JTSK X in metres, positive to the south
    double y = 0.0; ///< S-JTSK Y in metres, positive to the west
};

/// sirka, delka: WGS-84 latitude and longitude in degrees; vyska: ellipsoidal height in metres.
BodJtsk Wgs84NaJtsk(double sirka, double delka, double vyska);
