// The geometry of a pipe dimension: where its points stand for a pipe of one line (its axis) or two
// lines (its walls), the rotation that keeps its text horizontal in the UCS, and the typed answers.
#pragma once
#include <optional>
#include "AcString.h"
#include "gepnt2d.h"
#include "gevec3d.h"

namespace KotyGeometrie {

/// The three points of the aligned dimension: extension line points p1, p2 and the point of the text
/// and the dimension line.
struct BodyKoty {
    AcGePoint2d p1, p2, text;
};

/// The point of the infinite line s-e nearest to `bod`. Ends equal within `tol` throw "Úsečka má
/// nulovou délku".
AcGePoint2d NejblizsiNaPrimce(const AcGePoint2d& s, const AcGePoint2d& e, const AcGePoint2d& bod, double tol);

/// A pipe of one line s-e, picked at `bod`, labelled on the side of `strana`: a stub of length `b` from
/// the axis towards that side, the text `a` beyond it. None when `strana` lies on the axis within `tol`.
std::optional<BodyKoty> JednaCara(const AcGePoint2d& s, const AcGePoint2d& e, const AcGePoint2d& bod,
                                  const AcGePoint2d& strana, double a, double b, double tol);

/// A pipe of two lines: from the first line (picked at `bod1`) across to the second (at `bod2`), the text
/// `a` beyond the second. None when both points come out equal within `tol` (the same line twice).
std::optional<BodyKoty> DveCary(const AcGePoint2d& s1, const AcGePoint2d& e1, const AcGePoint2d& bod1,
                                const AcGePoint2d& s2, const AcGePoint2d& e2, const AcGePoint2d& bod2, double a,
                                double tol);

/// The X axis of the coordinate system of an entity with that normal (the arbitrary axis rule).
AcGeVector3d OsaXEntity(const AcGeVector3d& normala);

/// The angle from the UCS X axis to the entity's X axis, turning about the UCS Z axis (radians).
double VodorovneOtoceni(const AcGeVector3d& ucsX, const AcGeVector3d& ucsZ, const AcGeVector3d& osaXEntity);

/// True for a text of decimal digits only (nothing else, not even a blank): an approximate diameter.
bool JenCislice(const ACHAR* text);

/// The dimension's text: a two-line pipe counts its two pipes.
AcString TextKoty(const AcString& text, bool dveCary);

} // namespace KotyGeometrie
