// The drawing symbol of thermal insulation as plain 2D geometry: the axis as straight and arc
// segments, the wave pattern of loops and strokes in the band's own coordinates, its mapping onto the
// axis and its trimming at the cuts between segments. No host objects: the command makes polylines of
// the vertex lists.
#pragma once
#include <optional>
#include <vector>
#include "gepnt2d.h"
#include "gepnt3d.h"
#include "gevec2d.h"

/// One piece of the axis. Angles in radians; `Uhel` is the signed sweep, positive counter-clockwise.
struct IzolaceSegment {
    bool JeOblouk = false;
    AcGePoint2d Zacatek, Konec, Stred;
    double Polomer = 0.0;
    double UhelZacatku = 0.0;
    double Uhel = 0.0;
    double Delka = 0.0;
};

/// One element of the pattern, in the band's coordinates or mapped to the world.
struct IzolacePrimitiv {
    bool JeOblouk = false;
    AcGePoint2d Zacatek, Konec, Stred;
    double Polomer = 0.0;
    double UhelZacatku = 0.0;
    double Uhel = 0.0;
};

/// A cut line: a point and a unit direction.
struct Rez {
    AcGePoint2d bod;
    AcGeVector2d smer;
};

/// A vertex of the result: the bulge belongs to the segment that starts here.
struct VrcholIzolace {
    AcGePoint2d bod;
    double bulge = 0.0;
};
using PolylineIzolace = std::vector<VrcholIzolace>;

namespace IzolaceGeometrie {

/// The pattern's fixed angle (20 degrees) and the zero of its comparisons.
constexpr double kFi = 0.3490658503988659;
constexpr double kNula = 1e-8;

/// The side of Q against the cut: positive on the left of its direction.
double Strana(const AcGePoint2d& q, const Rez& rez);

/// The point of a primitive at parameter t (0 start, 1 end).
AcGePoint2d BodPrimitivu(const IzolacePrimitiv& p, double t);

/// The unit tangent at the start or the end of a segment; none for a degenerate segment.
std::optional<AcGeVector2d> Tecna(const IzolaceSegment& s, bool naKonci);

/// The arc from A through M to B as a primitive; a straight one from A to B when the points are
/// (nearly) on one line or the circle is too small.
IzolacePrimitiv KruzniceTremiBody(const AcGePoint2d& a, const AcGePoint2d& m, const AcGePoint2d& b);

} // namespace IzolaceGeometrie

/// A straight segment; none when the points are closer than 1e-8.
std::optional<IzolaceSegment> SegmentUsecky(const AcGePoint2d& a, const AcGePoint2d& b);
/// The arc of a polyline segment from A to B with the bulge (tan of a quarter of the sweep).
std::optional<IzolaceSegment> SegmentZBulge(const AcGePoint2d& a, const AcGePoint2d& b, double bulge);
/// An arc given by centre, radius, start angle and a positive (counter-clockwise) sweep.
std::optional<IzolaceSegment> SegmentOblouku(const AcGePoint2d& stred, double polomer, double zacatek, double uhel);

/// The pattern along an axis of length L for the thickness TL, in the band's coordinates (x along
/// the axis, y across, the band between -TL/2 and TL/2). It runs past both ends; the cuts trim it.
/// Prints the reason and gives none when the numbers leave no room for it.
std::optional<std::vector<IzolacePrimitiv>> VzorIzolace(double L, double TL);

/// The world point at `s` along the segment and `t` across it, to the left of the direction of travel.
std::optional<AcGePoint2d> Mapuj(const IzolaceSegment& segment, double s, double t);

/// A primitive of the pattern carried onto the segment.
std::optional<IzolacePrimitiv> MapujPrimitiv(const IzolaceSegment& segment, const IzolacePrimitiv& p);

/// The band of one segment between its two cuts as the vertices of one open polyline. Each cut trims
/// the part of the pattern on its own end of the segment, so that a cut line that crosses the far side
/// of a long arc leaves it alone. Prints the reason and gives none on failure.
std::optional<PolylineIzolace> PolylineSegmentu(const IzolaceSegment& segment, double TL, const Rez& rezA,
                                                const Rez& rezB);

/// The band along a chain of segments: one polyline per segment, neighbours meeting on the cut through
/// their shared vertex. Throws CTogException on failure.
std::vector<PolylineIzolace> VytvorIzolaci(const std::vector<IzolaceSegment>& segmenty, double TL);

/// The axis halfway between two parallel edges (lines S1-E1 and S2-E2), over the stretch where both
/// run side by side, and their distance as the thickness. Prints the reason and gives false when the
/// edges aren't parallel, lie on one line or don't overlap.
bool OsaMeziHranami(const AcGePoint3d& s1, const AcGePoint3d& e1, const AcGePoint3d& s2, const AcGePoint3d& e2,
                    AcGePoint3d& od, AcGePoint3d& doBodu, double& tloustka);
