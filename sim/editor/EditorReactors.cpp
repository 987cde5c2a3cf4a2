// The platform's editor object: a list of reactors, told of the view's changes.
#include "sim/editor/EditorReactors.h"

#include <algorithm>
#include <vector>

#include "aced.h"

namespace {

class Editor : public AcEditor {
public:
    void addReactor(AcRxEventReactor* newObj) override
    {
        if (newObj && std::find(reactors.begin(), reactors.end(), newObj) == reactors.end())
            reactors.push_back(newObj);
    }
    void removeReactor(AcRxEventReactor* delObj) override
    {
        reactors.erase(std::remove(reactors.begin(), reactors.end(), delObj), reactors.end());
    }
    std::vector<AcRxEventReactor*> reactors;
};

Editor& theEditor()
{
    static Editor e;
    return e;
}

} // namespace

AcEditor* acedEditorObject() { return &theEditor(); }

namespace sim::editor {

void notifyViewChanged()
{
    // A reactor may remove itself while it hears the notice.
    const std::vector<AcRxEventReactor*> reactors = theEditor().reactors;
    for (AcRxEventReactor* r : reactors)
        if (auto* er = dynamic_cast<AcEditorReactor*>(r);
            er && std::find(theEditor().reactors.begin(), theEditor().reactors.end(), r) != theEditor().reactors.end())
            er->viewChanged();
}

int editorReactorCount() { return static_cast<int>(theEditor().reactors.size()); }

} // namespace sim::editor
