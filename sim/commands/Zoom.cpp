// _ZOOM: the view's centre and height, which the pick box, VIEWSIZE and VIEWCTR follow: by a window,
// by a centre and height, by a factor ("2x"), or to the extents of the drawing.
#include <algorithm>
#include <cmath>
#include <cwchar>

#include "acedads.h"
#include "dbobjptr.h"
#include "sim/editor/EditorReactors.h"
#include "sim/editor/InputParse.h"
#include "sim/editor/Picking.h"
#include "sim/editor/SysVars.h"
#include "sim/editor/Ucs.h"
#include "sim/commands/Commands.h"

namespace sim::commands {

using namespace sim::editor;

namespace {

void setView(const AcGePoint3d& centreWcs, double height)
{
    AcDbDatabase* db = workingDb();
    if (!db || !(height > 0))
        return;
    AcDbViewportTableRecordPointer active(L"*Active", db, AcDb::kForWrite);
    if (active.openStatus() != Acad::eOk)
        return;
    auto screen = getVar(L"SCREENSIZE");
    double aspect = screen ? std::get<AcGePoint3d>(*screen).x / std::get<AcGePoint3d>(*screen).y : 16.0 / 9.0;
    active->setCenterPoint(AcGePoint2d(centreWcs.x, centreWcs.y));
    active->setHeight(height);
    active->setWidth(height * aspect);
    active.close();
    notifyViewChanged();
}

/// The view that shows the rectangle of two corners (WCS) whole.
void showWindow(const AcGePoint3d& a, const AcGePoint3d& b)
{
    auto screen = getVar(L"SCREENSIZE");
    double aspect = screen ? std::get<AcGePoint3d>(*screen).x / std::get<AcGePoint3d>(*screen).y : 16.0 / 9.0;
    double h = std::max(std::fabs(b.y - a.y), std::fabs(b.x - a.x) / aspect);
    setView(AcGePoint3d((a.x + b.x) / 2, (a.y + b.y) / 2, 0), h > 0 ? h : viewSize());
}

} // namespace

void zoom()
{
    AcDbDatabase* db = workingDb();
    if (!db)
        return;
    acedInitGet(RSG_OTHER, L"All Center Extents Window");
    ads_point p;
    int rc = acedGetPoint(nullptr, L"\nSpecify corner of window, enter a scale factor (nX), or [All/Center/Extents/Window]: ", p);
    if (rc == RTNORM) {
        ads_point q;
        if (acedGetCorner(p, L"\nSpecify opposite corner: ", q) == RTNORM)
            showWindow(toWcs(asPnt3d(p)), toWcs(asPnt3d(q)));
        return;
    }
    if (rc != RTKWORD)
        return;
    ACHAR kw[32];
    acedGetInput(kw, 32);
    std::wstring option = kw;
    if (option == L"All" || option == L"Extents") {
        if (auto box = spaceExtents(*db)) {
            // A little margin, as the host leaves one.
            AcGeVector3d grow = (box->second - box->first) * 0.025;
            showWindow(box->first - grow, box->second + grow);
        }
    } else if (option == L"Window") {
        ads_point a, b;
        if (acedGetPoint(nullptr, L"\nSpecify first corner: ", a) == RTNORM &&
            acedGetCorner(a, L"\nSpecify opposite corner: ", b) == RTNORM)
            showWindow(toWcs(asPnt3d(a)), toWcs(asPnt3d(b)));
    } else if (option == L"Center") {
        ads_point c;
        if (acedGetPoint(nullptr, L"\nSpecify center point: ", c) != RTNORM)
            return;
        wchar_t prompt[80];
        std::swprintf(prompt, 80, L"\nEnter magnification or height <%.4f>: ", viewSize());
        double h = viewSize();
        acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
        rc = acedGetDist(nullptr, prompt, &h);
        if (rc == RTNORM || rc == RTNONE)
            setView(toWcs(asPnt3d(c)), h);
    } else {
        // "2x": a factor of the present view; the host hands it over as arbitrary input.
        std::wstring_view t = trimmed(option);
        if (!t.empty() && (t.back() == L'x' || t.back() == L'X'))
            t.remove_suffix(1);
        auto f = parseReal(t);
        if (f && *f > 0)
            setView(viewCenter(), viewSize() / *f);
        else
            say(L"Requires a point, a scale factor or an option keyword.");
    }
}

} // namespace sim::commands
