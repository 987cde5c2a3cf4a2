// CTogFunkceDWG: units and scale of a drawing, the flatness of the UCS, UCS/WCS conversions and the
// test that a point lies on a line segment.
#pragma once
#include "gepnt2d.h"
#include "gevec2d.h"

class AcDbDatabase;

class CTogFunkceDWG {
public:
    /// On the model tab the denominator of the working database's current annotation scale (1:50
    /// gives 50); on a layout tab 1.0. Failure throws "Nelze získat měřítko z výkresu".
    static double MeritkoAnotace();
    /// 20 mm in the drawing's units (INSUNITS): 20 in millimetres, 0.02 in metres. Failure (units
    /// undefined) throws "Nelze získat přepočet jednotek".
    static double Jednotek20mm(AcDbDatabase* db);
    /// How many metres one drawing unit is (0.001 in millimetres). Failure throws the same message.
    static double MetruNaJednotku(AcDbDatabase* db);

    /// True when the current UCS (of paper space on a layout with the paper active) lies in the
    /// drawing plane: the Z of its origin and of both axes exactly 0.
    static bool JeUcs2d();

    /// A point of the current UCS (Z 0) in WCS, X and Y. Failure throws "Nelze převést UCS->WCS (point)".
    static AcGePoint2d UcsNaWcs(const AcGePoint2d& bod);
    /// Failure throws "Nelze převést WCS->UCS (point)".
    static AcGePoint2d WcsNaUcs(const AcGePoint2d& bod);
    /// A displacement: failure throws "Nelze převést UCS->WCS (vector)".
    static AcGeVector2d UcsNaWcs(const AcGeVector2d& vektor);
    /// Failure throws "Nelze převést WCS->UCS (vector)".
    static AcGeVector2d WcsNaUcs(const AcGeVector2d& vektor);

    /// Whether `bod` lies on the segment from `zacatek` to `konec`, within `tolerance` (drawing units).
    /// `nejblizsi` takes the nearest point of the infinite line. Equal ends throw "Úsečka má nulovou
    /// délku".
    static bool BodNaUsecce(const AcGePoint2d& zacatek, const AcGePoint2d& konec, const AcGePoint2d& bod,
                            AcGePoint2d& nejblizsi, double tolerance);
};
