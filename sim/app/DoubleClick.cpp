// A double click in the drawing window, offered to the window-message filters.
#include "sim/app/DoubleClick.h"

#include <cmath>
#include <string>

#include "sim/app/WinMsgFilters.h"
#include "sim/core/Session.h"
#include "sim/editor/InputParse.h"
#include "sim/editor/SysVars.h"
#include "sim/editor/Ucs.h"
#include "sim/win32/WindowTable.h"

namespace sim::app {

namespace {

constexpr std::wstring_view kSlovo = L"@DBLCLICK";

} // namespace

bool isDoubleClickLine(std::wstring_view line)
{
    line = sim::editor::trimmed(line);
    if (line.size() < kSlovo.size())
        return false;
    for (std::size_t i = 0; i < kSlovo.size(); ++i)
        if (std::towupper(static_cast<wint_t>(line[i])) != static_cast<wint_t>(kSlovo[i]))
            return false;
    return line.size() == kSlovo.size() || line[kSlovo.size()] == L' ' || line[kSlovo.size()] == L'\t';
}

POINT pixelOf(const AcGePoint3d& wcs)
{
    auto screen = sim::editor::getVar(L"SCREENSIZE");
    const AcGePoint3d size = screen ? std::get<AcGePoint3d>(*screen) : AcGePoint3d(1600, 900, 0);
    const double px = sim::editor::pixelSize();
    const AcGePoint3d c = sim::editor::viewCenter();
    POINT p;
    p.x = static_cast<LONG>(std::lround(size.x / 2.0 + (wcs.x - c.x) / px));
    p.y = static_cast<LONG>(std::lround(size.y / 2.0 - (wcs.y - c.y) / px));
    return p;
}

bool doubleClick(std::wstring_view line)
{
    Session& session = Session::current();
    const std::wstring_view text = sim::editor::trimmed(sim::editor::trimmed(line).substr(kSlovo.size()));
    auto point = sim::editor::parsePoint(text);
    if (!point || point->polar || point->relative) {
        session.print(L"\n; @dblclick takes a point x,y\n");
        return false;
    }
    HWND window = sim::win32::documentWindow();
    if (!window) {
        session.print(L"\n; @dblclick: no drawing window is open\n");
        return false;
    }
    const AcGePoint3d wcs = point->world ? point->xyz : sim::editor::toWcs(point->xyz);
    const POINT pixel = pixelOf(wcs);
    MSG msg{};
    msg.hwnd = window;
    msg.message = WM_LBUTTONDBLCLK;
    msg.wParam = 0x0001; // MK_LBUTTON
    msg.lParam = MAKELPARAM(static_cast<WORD>(pixel.x), static_cast<WORD>(pixel.y));
    msg.pt = pixel;
    // A message that no filter takes goes to the host's own editing, which the platform doesn't have.
    filterWinMsg(msg);
    return true;
}

} // namespace sim::app
