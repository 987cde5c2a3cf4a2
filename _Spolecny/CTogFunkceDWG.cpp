// Units, scale and UCS of the drawing, and the point-on-segment test.
#include "StdAfx.h"
#include "CTogFunkceDWG.h"
#include <cmath>
#include "CTogAc.h"
#include "CTogException.h"

namespace {

AcDbDatabase* PracovniDatabaze() { return acdbHostApplicationServices()->workingDatabase(); }

// acedTrans between the UCS (1) and the WCS (0) of a point or a displacement in the XY plane.
bool Preved(double x, double y, short z, short do_, bool posun, double& vyslX, double& vyslY)
{
    resbuf odkud{};
    odkud.restype = RTSHORT;
    odkud.resval.rint = z;
    resbuf kam{};
    kam.restype = RTSHORT;
    kam.resval.rint = do_;
    ads_point bod = {x, y, 0.0};
    ads_point vysledek = {0.0, 0.0, 0.0};
    if (acedTrans(bod, &odkud, &kam, posun ? 1 : 0, vysledek) != RTNORM)
        return false;
    vyslX = vysledek[X];
    vyslY = vysledek[Y];
    return true;
}

double Prevod(AcDbDatabase* db, AcDb::UnitsValue z)
{
    double faktor = 0.0;
    if (db == nullptr || acdbGetUnitsConversion(z, db->insunits(), faktor) != Acad::eOk || faktor == 0.0)
        throw CTogException("Nelze získat přepočet jednotek", __LINE__, __FILE__);
    return faktor;
}

} // namespace

double CTogFunkceDWG::MeritkoAnotace()
{
    AcDbDatabase* db = PracovniDatabaze();
    if (db == nullptr)
        throw CTogException("Nelze získat měřítko z výkresu", __LINE__, __FILE__);
    if (!db->tilemode())
        return 1.0;
    AcDbAnnotationScale* meritko = db->cannoscale();
    double pomer = 0.0;
    Acad::ErrorStatus es = meritko != nullptr ? meritko->getScale(pomer) : Acad::eNullObjectPointer;
    delete meritko;
    if (es != Acad::eOk || pomer <= 0.0)
        throw CTogException("Nelze získat měřítko z výkresu", __LINE__, __FILE__);
    return 1.0 / pomer;
}

double CTogFunkceDWG::Jednotek20mm(AcDbDatabase* db) { return Prevod(db, AcDb::kUnitsMillimeters) * 20.0; }

double CTogFunkceDWG::MetruNaJednotku(AcDbDatabase* db) { return 1.0 / Prevod(db, AcDb::kUnitsMeters); }

bool CTogFunkceDWG::JeUcs2d()
{
    AcDbDatabase* db = PracovniDatabaze();
    bool papir = !db->tilemode() && CTogAc::NactiPromennou(L"CVPORT") == 1;
    AcGePoint3d pocatek = papir ? db->pucsorg() : db->ucsorg();
    AcGeVector3d osaX = papir ? db->pucsxdir() : db->ucsxdir();
    AcGeVector3d osaY = papir ? db->pucsydir() : db->ucsydir();
    return pocatek.z == 0.0 && osaX.z == 0.0 && osaY.z == 0.0;
}

AcGePoint2d CTogFunkceDWG::UcsNaWcs(const AcGePoint2d& bod)
{
    AcGePoint2d v;
    if (!Preved(bod.x, bod.y, 1, 0, false, v.x, v.y))
        throw CTogException("Nelze převést UCS->WCS (point)", __LINE__, __FILE__);
    return v;
}

AcGePoint2d CTogFunkceDWG::WcsNaUcs(const AcGePoint2d& bod)
{
    AcGePoint2d v;
    if (!Preved(bod.x, bod.y, 0, 1, false, v.x, v.y))
        throw CTogException("Nelze převést WCS->UCS (point)", __LINE__, __FILE__);
    return v;
}

AcGeVector2d CTogFunkceDWG::UcsNaWcs(const AcGeVector2d& vektor)
{
    AcGeVector2d v;
    if (!Preved(vektor.x, vektor.y, 1, 0, true, v.x, v.y))
        throw CTogException("Nelze převést UCS->WCS (vector)", __LINE__, __FILE__);
    return v;
}

AcGeVector2d CTogFunkceDWG::WcsNaUcs(const AcGeVector2d& vektor)
{
    AcGeVector2d v;
    if (!Preved(vektor.x, vektor.y, 0, 1, true, v.x, v.y))
        throw CTogException("Nelze převést WCS->UCS (vector)", __LINE__, __FILE__);
    return v;
}

bool CTogFunkceDWG::BodNaUsecce(const AcGePoint2d& zacatek, const AcGePoint2d& konec, const AcGePoint2d& bod,
                                AcGePoint2d& nejblizsi, double tolerance)
{
    const AcGeVector2d d = konec - zacatek;
    if (d.isZeroLength())
        throw CTogException("Úsečka má nulovou délku", __LINE__, __FILE__);
    // The foot of the perpendicular from the point to the infinite line.
    nejblizsi = zacatek + d * ((bod - zacatek).dotProduct(d) / d.lengthSqrd());
    if (nejblizsi.distanceTo(zacatek) <= tolerance || nejblizsi.distanceTo(konec) <= tolerance)
        return true;
    const AcGeVector2d v = nejblizsi - zacatek;
    const double delka = d.length();
    if (tolerance >= delka)
        return false;
    if (std::fabs(v.x * d.y - v.y * d.x) > delka * tolerance)
        return false;
    const double skalar = v.dotProduct(d);
    return skalar >= 0.0 && skalar <= d.lengthSqrd();
}
