// _PLINE: a lightweight polyline in the plane of the UCS, of straight and tangent arc segments, with
// widths; Undo, Length and Close as the host has them.
#include <cmath>
#include <cwchar>
#include <vector>

#include "acedads.h"
#include "dbpl.h"
#include "sim/editor/Ucs.h"
#include "sim/commands/Commands.h"

namespace sim::commands {

using namespace sim::editor;

namespace {

struct Vertex {
    AcGePoint3d at; ///< UCS
    double bulge = 0.0;
    double startWidth = 0.0, endWidth = 0.0;
};

// The width the next polyline starts with, as PLINEWID keeps it for the session.
double g_width = 0.0;

/// The bulge of the arc from a that leaves along the tangent and ends at b; the tangent is turned
/// to the arc's end direction.
double tangentBulge(const AcGePoint3d& a, const AcGePoint3d& b, AcGeVector2d& tangent)
{
    AcGeVector2d chord(b.x - a.x, b.y - a.y);
    double phi = std::atan2(tangent.x * chord.y - tangent.y * chord.x, tangent.dotProduct(chord));
    tangent.rotateBy(2.0 * phi);
    return std::tan(phi / 2.0);
}

/// Asks for a start and an end width (halves when half is set); false when cancelled.
bool askWidths(bool half, double& start, double& end)
{
    wchar_t prompt[96];
    double factor = half ? 0.5 : 1.0;
    double s = start * factor;
    std::swprintf(prompt, 96, L"\nSpecify starting %ls <%.4f>: ", half ? L"half-width" : L"width", s);
    acedInitGet(RSG_NONEG, nullptr);
    int rc = acedGetDist(nullptr, prompt, &s);
    if (rc == RTNONE)
        s = start * factor;
    else if (rc != RTNORM)
        return false;
    double e = s;
    std::swprintf(prompt, 96, L"\nSpecify ending %ls <%.4f>: ", half ? L"half-width" : L"width", e);
    acedInitGet(RSG_NONEG, nullptr);
    rc = acedGetDist(nullptr, prompt, &e);
    if (rc == RTNONE)
        e = s;
    else if (rc != RTNORM)
        return false;
    start = s / factor;
    end = e / factor;
    return true;
}

void build(const std::vector<Vertex>& v, bool closed)
{
    if (v.size() < 2)
        return;
    AcGeVector3d normal = ucsToWcs() * AcGeVector3d::kZAxis;
    AcGeMatrix3d toEcs = ecsToWcs(normal).inverse();
    auto* pl = new AcDbPolyline(static_cast<unsigned>(v.size()));
    pl->setNormal(normal.normal());
    pl->setElevation((toEcs * toWcs(v.front().at)).z);
    for (unsigned i = 0; i < v.size(); ++i) {
        AcGePoint3d e = toEcs * toWcs(v[i].at);
        pl->addVertexAt(i, AcGePoint2d(e.x, e.y), v[i].bulge, v[i].startWidth, v[i].endWidth);
    }
    pl->setClosed(closed);
    appendToSpace(pl);
}

} // namespace

void pline()
{
    ads_point start;
    if (acedGetPoint(nullptr, L"\nSpecify start point: ", start) != RTNORM)
        return;
    say(L"Current line-width is %.4f", g_width);
    std::vector<Vertex> v{{asPnt3d(start)}};
    std::vector<AcGeVector2d> directions{AcGeVector2d::kXAxis}; // the way the polyline heads at each vertex
    bool arcMode = false;
    double startWidth = g_width, endWidth = g_width;
    for (;;) {
        bool canClose = v.size() >= 2;
        const ACHAR* prompt;
        if (arcMode) {
            acedInitGet(0, canClose ? L"CLose Halfwidth Line Undo Width" : L"Halfwidth Line Undo Width");
            prompt = canClose ? L"\nSpecify endpoint of arc or [CLose/Halfwidth/Line/Undo/Width]: "
                              : L"\nSpecify endpoint of arc or [Halfwidth/Line/Undo/Width]: ";
        } else {
            acedInitGet(0, canClose ? L"Arc Close Halfwidth Length Undo Width" : L"Arc Halfwidth Length Undo Width");
            prompt = canClose ? L"\nSpecify next point or [Arc/Close/Halfwidth/Length/Undo/Width]: "
                              : L"\nSpecify next point or [Arc/Halfwidth/Length/Undo/Width]: ";
        }
        ads_point p;
        int rc = acedGetPoint(asDblArray(v.back().at), prompt, p);
        AcGePoint3d next = asPnt3d(p);
        bool close = false;
        if (rc == RTKWORD) {
            ACHAR kw[16];
            acedGetInput(kw, 16);
            std::wstring k = kw;
            if (k == L"Arc" || k == L"Line") {
                arcMode = k == L"Arc";
                continue;
            }
            if (k == L"Width" || k == L"Halfwidth") {
                if (!askWidths(k == L"Halfwidth", startWidth, endWidth))
                    break;
                g_width = endWidth;
                continue;
            }
            if (k == L"Undo") {
                if (v.size() > 1) {
                    v.pop_back();
                    directions.pop_back();
                    v.back().bulge = 0.0;
                } else {
                    say(L"All segments already undone.");
                }
                continue;
            }
            if (k == L"Length") {
                double len = 0;
                if (acedGetDist(asDblArray(v.back().at), L"\nSpecify length of line: ", &len) != RTNORM)
                    break;
                AcGeVector2d d = directions.back();
                next = v.back().at + AcGeVector3d(d.x, d.y, 0.0) * len;
            } else { // Close
                next = v.front().at;
                close = true;
            }
        } else if (rc != RTNORM) {
            break;
        }
        Vertex& last = v.back();
        AcGeVector2d dir = directions.back();
        if (arcMode) {
            last.bulge = tangentBulge(last.at, next, dir);
        } else {
            last.bulge = 0.0;
            AcGeVector2d chord(next.x - last.at.x, next.y - last.at.y);
            if (!chord.isZeroLength())
                dir = chord.normal();
        }
        last.startWidth = startWidth;
        last.endWidth = endWidth;
        startWidth = endWidth;
        if (close) {
            build(v, true);
            return;
        }
        v.push_back({next, 0.0, startWidth, endWidth});
        directions.push_back(dir);
    }
    build(v, false);
}

} // namespace sim::commands
