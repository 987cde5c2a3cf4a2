// The editor's reactors: AcEditorReactor and the editor object (acedEditor) they are added to. The
// subset the system uses: the notice that the view changed.
#pragma once
#include "rxobject.h"

class AcRxEventReactor : public AcRxObject {};

/// Notices of the editor; each does nothing unless overridden.
class AcEditorReactor : public AcRxEventReactor {
public:
    /// The view of the current viewport changed (zoom, pan).
    virtual void viewChanged() {}
};

/// The editor: the reactors it tells. It does not own them.
class AcEditor : public AcRxObject {
public:
    virtual void addReactor(AcRxEventReactor* newObj) = 0;
    virtual void removeReactor(AcRxEventReactor* delObj) = 0;
};

/// The host's editor object; never null.
AcEditor* acedEditorObject();
#define acedEditor (acedEditorObject())
