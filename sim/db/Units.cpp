// acdbGetUnitsConversion: lengths from one drawing unit to another.
#include "dbmain.h"

namespace {
/// The length of one unit in metres; 0 for an undefined or unknown unit.
double metres(AcDb::UnitsValue u)
{
    switch (u) {
    case AcDb::kUnitsInches: return 0.0254;
    case AcDb::kUnitsFeet: return 0.3048;
    case AcDb::kUnitsMiles: return 1609.344;
    case AcDb::kUnitsMillimeters: return 0.001;
    case AcDb::kUnitsCentimeters: return 0.01;
    case AcDb::kUnitsMeters: return 1.0;
    case AcDb::kUnitsKilometers: return 1000.0;
    case AcDb::kUnitsMicroinches: return 2.54e-8;
    case AcDb::kUnitsMils: return 2.54e-5;
    case AcDb::kUnitsYards: return 0.9144;
    case AcDb::kUnitsAngstroms: return 1e-10;
    case AcDb::kUnitsNanometers: return 1e-9;
    case AcDb::kUnitsMicrons: return 1e-6;
    case AcDb::kUnitsDecimeters: return 0.1;
    case AcDb::kUnitsDekameters: return 10.0;
    case AcDb::kUnitsHectometers: return 100.0;
    case AcDb::kUnitsGigameters: return 1e9;
    case AcDb::kUnitsAstronomical: return 1.495978707e11;
    case AcDb::kUnitsLightYears: return 9.4607304725808e15;
    case AcDb::kUnitsParsecs: return 3.0856775814913673e16;
    case AcDb::kUnitsUSSurveyFeet: return 1200.0 / 3937.0;
    case AcDb::kUnitsUSSurveyInch: return 100.0 / 3937.0;
    case AcDb::kUnitsUSSurveyYard: return 3600.0 / 3937.0;
    case AcDb::kUnitsUSSurveyMile: return 6336000.0 / 3937.0;
    default: return 0.0;
    }
}
} // namespace

Acad::ErrorStatus acdbGetUnitsConversion(AcDb::UnitsValue from, AcDb::UnitsValue to, double& conversionFactor)
{
    double a = metres(from), b = metres(to);
    if (a == 0.0 || b == 0.0)
        return Acad::eInvalidInput;
    conversionFactor = from == to ? 1.0 : a / b;
    return Acad::eOk;
}
