// The geometry of a bundle of parallel pipes: where each pipe runs for a section between two picked
// points, where two sections meet at a corner, and whether a corner leaves both sections their length.
#pragma once
#include <optional>
#include "gepnt2d.h"
#include "gevec2d.h"

namespace MultiTrubkyGeometrie {

/// Which pipe runs through the picked points: the top one, the middle or the bottom one (seen when
/// drawing from left to right).
enum TypVedeni { kHorni = 0, kStred = 1, kSpodni = 2 };

/// A section of the bundle: the first pipe's line from `s` to `e`, the others beside it along `n`.
struct Vedeni {
    AcGePoint2d s, e;
    AcGeVector2d n; ///< the unit left normal of the direction of travel
};

/// The first pipe's line for a section from S to E: the guide moved so that the pipe of `typ` runs
/// through the points. None when S and E are the same point.
std::optional<Vedeni> PosunVedeni(const AcGePoint2d& S, const AcGePoint2d& E, int typ, int pocetTrubek, double roztec);

/// The line of pipe i (from 0) of the section.
void CaraTrubky(const Vedeni& v, int i, double roztec, AcGePoint2d& zacatek, AcGePoint2d& konec);

/// Where a pipe's line (a-b) of a new section meets the same pipe's line (pa-pb) of the previous
/// section: the crossing of both infinite lines. With parallel sections the line's own start. None
/// when parallel lines were not expected and the lines don't cross.
std::optional<AcGePoint2d> Roh(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& pa,
                               const AcGePoint2d& pb, bool rovnobezne);

/// Whether the sections S1-E1 and S2-E2 lie on one line: each end of each within `tolerance` of the
/// other's infinite line.
bool NaJednePrimce(const AcGePoint2d& s1, const AcGePoint2d& e1, const AcGePoint2d& s2, const AcGePoint2d& e2,
                   double tolerance);

/// Whether two directions point the same way (a zero vector points nowhere).
bool Souhlasne(const AcGeVector2d& a, const AcGeVector2d& b);

/// What a corner leaves of the two sections: both keep a length in their own direction, or the new one
/// (from the corner to its end) or the previous one (from its start to the corner) turned round.
enum class Napojeni { kDobre, kNovyKratky, kPredchoziKratky };
Napojeni ZkontrolujNapojeni(const AcGePoint2d& roh, const AcGePoint2d& konecNove, const AcGeVector2d& smerNoveho,
                            const AcGePoint2d& zacatekPredchozi, const AcGeVector2d& smerPredchoziho);

} // namespace MultiTrubkyGeometrie
