// Transient graphics: drawables shown in viewports over the drawing without being part of it
// (AcGiTransientManager, reached through acgiGetTransientManager).
#pragma once
#include "dbmain.h"
#include "rxobject.h"

/// In the host AcDbObject derives from AcGiDrawable; here every drawable is an AcRxObject, so an
/// entity is passed to the manager as it is in the host.
using AcGiDrawable = AcRxObject;

/// How a transient is drawn.
enum AcGiTransientDrawingMode {
    kAcGiMain = 0,
    kAcGiSprite,
    kAcGiDirectShortTerm,
    kAcGiHighlight,
    kAcGiDirectTopmost,
    kAcGiContrast,
    kAcGiDrawingModeCount,
};

/// The list of transients. The manager does not own a drawable: whoever adds it erases it before
/// deleting it.
class AcGiTransientManager {
public:
    virtual ~AcGiTransientManager() = default;
    /// Shows the drawable in the viewports given by their numbers (CVPORT). False when it is shown
    /// already or the pointer is null.
    virtual bool addTransient(AcGiDrawable* pDrawable, AcGiTransientDrawingMode mode, int subDrawingMode,
                              const AcArray<int>& viewportNumbers) = 0;
    /// Takes the drawable off the viewports given (all of them when the list is empty). False when
    /// it was not shown.
    virtual bool eraseTransient(AcGiDrawable* pDrawable, const AcArray<int>& viewportNumbers) = 0;
    /// Takes off every transient of the mode and sub-mode.
    virtual bool eraseTransients(AcGiTransientDrawingMode mode, int subDrawingMode,
                                 const AcArray<int>& viewportNumbers) = 0;
    /// Draws the drawable again after a change.
    virtual void updateTransient(AcGiDrawable* pDrawable, const AcArray<int>& viewportNumbers) = 0;
};

/// The host's transient manager; never null.
AcGiTransientManager* acgiGetTransientManager();
