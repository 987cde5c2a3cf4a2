// TogDraw: the size of the view and of marks on the screen, and the temporary marks (transient
// graphics) that commands show while they ask for picks.
#pragma once
#include <vector>
#include "aced.h"
#include "gepnt3d.h"

class AcDbEntity;

namespace TogDraw {

/// The height of the current view in drawing units (VIEWSIZE). Failure throws "Nelze získat rozměry
/// aktuálního layoutu (zoom)".
double VelikostPohledu();
/// The size of a mark: the width of the view over 150, in drawing units. Failure throws the same.
double VelikostZnacky();

/// Shows the entity (new, in no database) as a mark in the current viewport; the marks own it from
/// now on. The first mark also sets up the watch of the view.
void PridejZnacku(AcDbEntity* entita);
/// Takes every mark off the screen and deletes it. `odebratReaktor`: stops the watch of the view too;
/// `vycistitSeznamy`: forgets the marks that a zoom would draw again.
void SmazZnacky(bool odebratReaktor = false, bool vycistitSeznamy = false);

/// The marks shown now (for their owner's checks; the list owns them).
const std::vector<AcDbEntity*>& Znacky();

/// Marks whose size follows the zoom, kept so that a change of the view can draw them again at the
/// new size: their places in WCS, by kind. Only that redraw fills them.
struct SeznamyObnovy {
    std::vector<AcGePoint3d> krizky, solidy, usecky, polylinie, trojuhelniky, kruznice;
};
SeznamyObnovy& Obnova();

/// The view size remembered at the last redraw of the marks (0 after the first mark).
extern double g_zapamatovanaVelikost;

/// Whether a view of size `aktualni` differs from the remembered one by more than a tenth of it, so
/// that the marks are to be drawn again (always, while nothing is remembered).
bool ZmenaPohledu(double zapamatovana, double aktualni);

/// Draws the marks of the rebuild lists again at the size of the view, without adding to the lists.
void ObnovZnacky();

} // namespace TogDraw

/// The application's editor reactor: watches the view for the marks of TogDraw. Made with the first
/// mark, removed by SmazZnacky(true).
class MyEditorReactor : public AcEditorReactor {
public:
    /// A change of the view by more than a tenth takes the marks off and draws the rebuild lists again.
    void viewChanged() override;
};

namespace TogDraw {

} // namespace TogDraw
