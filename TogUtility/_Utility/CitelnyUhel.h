// The readable-angle rule: a text turned to a direction never reads upside down. It turns over
// between 100 and 280 degrees measured from the UCS X axis, not at 90 and 270.
#pragma once

/// a: the direction in radians (WCS); osaX: the angle of the UCS X axis in the WCS XY plane. Gives a,
/// or a + pi when the direction lies strictly between 100 and 280 degrees from the UCS X axis.
double CitelnyUhel(double a, double osaX);
