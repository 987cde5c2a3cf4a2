// The editor's memory between calls.
#include "sim/editor/EditorState.h"

namespace sim::editor {

namespace {
// The first half of every set name: sets are told from entity names and from each other by it.
constexpr Adesk::LongPtr kSetTag = -0x55E7;
} // namespace

EditorState& editorState()
{
    static EditorState state;
    return state;
}

void resetEditor() { editorState() = EditorState{}; }

void endCommand()
{
    auto& s = editorState();
    s.pendingInitGet.reset();
    if (s.keepPickfirst)
        s.keepPickfirst = false;
    else
        s.pickfirst = SelectionSet{};
}

InitGet takeInitGet()
{
    auto& s = editorState();
    InitGet g = s.pendingInitGet.value_or(InitGet{});
    s.pendingInitGet.reset();
    return g;
}

void setName(Adesk::LongPtr key, ads_name out)
{
    out[0] = kSetTag;
    out[1] = key;
}

SelectionSet* findSet(const ads_name name)
{
    if (!name || name[0] != kSetTag)
        return nullptr;
    auto& sets = editorState().sets;
    auto it = sets.find(name[1]);
    return it == sets.end() ? nullptr : &it->second;
}

SelectionSet& newSet(ads_name out)
{
    auto& s = editorState();
    Adesk::LongPtr key = s.nextSet++;
    setName(key, out);
    return s.sets[key];
}

} // namespace sim::editor
