// _PICKFIRST and _ERASE: a selection kept for the next command, and erasing what is selected.
#include "acedads.h"
#include "dbobjptr.h"
#include "sim/editor/EditorState.h"
#include "sim/commands/Commands.h"

namespace sim::commands {

using namespace sim::editor;

void pickfirst()
{
    ads_name ss;
    if (acedSSGet(nullptr, nullptr, nullptr, nullptr, ss) != RTNORM)
        return;
    acedSSSetFirst(ss, nullptr);
    acedSSFree(ss);
    // What was selected stays selected when this command ends, for the next one to take.
    editorState().keepPickfirst = true;
}

void erase()
{
    ads_name ss;
    if (acedSSGet(L"_I", nullptr, nullptr, nullptr, ss) == RTNORM) {
        acedSSSetFirst(nullptr, nullptr);
    } else if (acedSSGet(nullptr, nullptr, nullptr, nullptr, ss) != RTNORM) {
        return;
    }
    SelectionSet* set = findSet(ss);
    int locked = 0;
    for (const auto& s : set->items()) {
        AcDbObjectPointer<AcDbEntity> e(s.entity, AcDb::kForWrite);
        if (e.openStatus() == Acad::eOnLockedLayer)
            ++locked;
        else if (e.openStatus() == Acad::eOk)
            e->erase();
    }
    if (locked)
        say(locked == 1 ? L"%d was on a locked layer." : L"%d were on a locked layer.", locked);
    acedSSFree(ss);
}

} // namespace sim::commands
