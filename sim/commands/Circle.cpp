// _CIRCLE: by centre and radius or diameter, by two points of a diameter, or by three points; in the
// plane of the UCS.
#include <cmath>
#include <cwchar>

#include "acedads.h"
#include "dbents.h"
#include "sim/editor/Ucs.h"
#include "sim/commands/Commands.h"

namespace sim::commands {

using namespace sim::editor;

namespace {

// The radius offered as default, as CIRCLERAD keeps it for the session.
double g_radius = 0.0;

bool askPoint(const ACHAR* prompt, AcGePoint3d& out, const AcGePoint3d* base = nullptr)
{
    ads_point p;
    if (acedGetPoint(base ? asDblArray(*base) : nullptr, prompt, p) != RTNORM)
        return false;
    out = asPnt3d(p);
    return true;
}

/// The centre of the circle through three points of the UCS plane; false when they are in a line.
bool circumcentre(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c, AcGePoint3d& centre)
{
    double d = 2.0 * (a.x * (b.y - c.y) + b.x * (c.y - a.y) + c.x * (a.y - b.y));
    if (std::fabs(d) < 1e-12)
        return false;
    double a2 = a.x * a.x + a.y * a.y, b2 = b.x * b.x + b.y * b.y, c2 = c.x * c.x + c.y * c.y;
    centre.set((a2 * (b.y - c.y) + b2 * (c.y - a.y) + c2 * (a.y - b.y)) / d,
               (a2 * (c.x - b.x) + b2 * (a.x - c.x) + c2 * (b.x - a.x)) / d, a.z);
    return true;
}

void make(const AcGePoint3d& centreUcs, double radius)
{
    if (!(radius > 0.0)) {
        say(L"Value must be positive and nonzero.");
        return;
    }
    g_radius = radius;
    AcGeVector3d normal = (ucsToWcs() * AcGeVector3d::kZAxis).normal();
    appendToSpace(new AcDbCircle(toWcs(centreUcs), normal, radius));
}

} // namespace

void circle()
{
    acedInitGet(0, L"3P 2P");
    ads_point c;
    int rc = acedGetPoint(nullptr, L"\nSpecify center point for circle or [3P/2P]: ", c);
    if (rc == RTKWORD) {
        ACHAR kw[8];
        acedGetInput(kw, 8);
        AcGePoint3d a, b, p3, centre;
        if (std::wstring_view(kw) == L"2P") {
            if (askPoint(L"\nSpecify first end point of circle's diameter: ", a) &&
                askPoint(L"\nSpecify second end point of circle's diameter: ", b, &a))
                make(a + (b - a) * 0.5, a.distanceTo(b) / 2.0);
            return;
        }
        if (!askPoint(L"\nSpecify first point on circle: ", a) || !askPoint(L"\nSpecify second point on circle: ", b, &a) ||
            !askPoint(L"\nSpecify third point on circle: ", p3, &b))
            return;
        if (!circumcentre(a, b, p3, centre)) {
            say(L"Circle does not exist.");
            return;
        }
        make(centre, centre.distanceTo(a));
        return;
    }
    if (rc != RTNORM)
        return;
    AcGePoint3d centre = asPnt3d(c);
    wchar_t prompt[80];
    if (g_radius > 0)
        std::swprintf(prompt, 80, L"\nSpecify radius of circle or [Diameter] <%.4f>: ", g_radius);
    else
        std::swprintf(prompt, 80, L"\nSpecify radius of circle or [Diameter]: ");
    acedInitGet(RSG_NOZERO | RSG_NONEG | (g_radius > 0 ? 0 : RSG_NONULL), L"Diameter");
    double r = g_radius;
    rc = acedGetDist(c, prompt, &r);
    if (rc == RTKWORD) {
        double d = 2.0 * g_radius;
        if (g_radius > 0)
            std::swprintf(prompt, 80, L"\nSpecify diameter of circle <%.4f>: ", d);
        else
            std::swprintf(prompt, 80, L"\nSpecify diameter of circle: ");
        acedInitGet(RSG_NOZERO | RSG_NONEG | (g_radius > 0 ? 0 : RSG_NONULL), nullptr);
        rc = acedGetDist(c, prompt, &d);
        if (rc != RTNORM && rc != RTNONE)
            return;
        r = d / 2.0;
    } else if (rc == RTNONE) {
        r = g_radius;
    } else if (rc != RTNORM) {
        return;
    }
    make(centre, r);
}

} // namespace sim::commands
