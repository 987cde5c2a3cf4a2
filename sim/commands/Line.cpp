// _LINE: segments from point to point, each a line of its own; Undo takes the last one back and
// Close joins the first point.
#include <vector>

#include "acedads.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "sim/editor/Ucs.h"
#include "sim/commands/Commands.h"

namespace sim::commands {

using namespace sim::editor;

void line()
{
    ads_point first;
    if (acedGetPoint(nullptr, L"\nSpecify first point: ", first) != RTNORM)
        return;
    std::vector<AcGePoint3d> points{asPnt3d(first)};
    std::vector<AcDbObjectId> lines;
    for (;;) {
        bool canClose = lines.size() >= 2;
        acedInitGet(0, canClose ? L"Close Undo" : L"Undo");
        ads_point next;
        int rc = acedGetPoint(asDblArray(points.back()), canClose ? L"\nSpecify next point or [Close/Undo]: "
                                                                  : L"\nSpecify next point or [Undo]: ", next);
        if (rc == RTKWORD) {
            ACHAR kw[16];
            acedGetInput(kw, 16);
            if (std::wstring_view(kw) == L"Undo") {
                if (lines.empty()) {
                    say(L"All segments already undone.");
                    continue;
                }
                AcDbObjectPointer<AcDbEntity> last(lines.back(), AcDb::kForWrite);
                if (last.openStatus() == Acad::eOk)
                    last->erase();
                lines.pop_back();
                points.pop_back();
                continue;
            }
            // Close: the last segment ends where the first began.
            appendToSpace(new AcDbLine(toWcs(points.back()), toWcs(points.front())));
            return;
        }
        if (rc != RTNORM)
            return;
        AcDbObjectId id = appendToSpace(new AcDbLine(toWcs(points.back()), toWcs(asPnt3d(next))));
        if (id.isNull())
            return;
        lines.push_back(id);
        points.push_back(asPnt3d(next));
    }
}

} // namespace sim::commands
