// Picking entities of the current space: by a point within the pick box (also the innermost entity
// inside block references), by a window, all of them, and the facts a selection filter tests.
#pragma once
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "dbmain.h"
#include "sim/editor/SelectionFilter.h"

namespace sim::editor {

/// What a pick found.
struct Hit {
    AcDbObjectId entity;                  ///< the entity of the space
    AcDbObjectId innermost;               ///< the deepest entity under the pick (entity itself when not in a block)
    std::vector<AcDbObjectId> containers; ///< the block references around innermost, innermost first
    AcGeMatrix3d innerToWorld;            ///< from the coordinates of innermost's block to WCS
    int gsMarker = 0;                     ///< polyline segment index + 1
};

/// Half the side of the pick box in drawing units: PICKBOX pixels of the view.
double aperture();

/// The entity under a pick at p (WCS), seen from above: the nearest one within the pick box, and of
/// equally near ones the last drawn. Entities on layers that are off or frozen are not seen, nor
/// entities of the space that accept (when given) refuses.
std::optional<Hit> pickAt(AcDbDatabase& db, const AcGePoint3d& p,
                          const std::function<bool(const AcDbEntity&)>& accept = {});

/// The entities of the current space that lie wholly inside the rectangle of two corners (WCS,
/// seen from above), or with crossing also those that cross its edges.
std::vector<AcDbObjectId> inWindow(AcDbDatabase& db, const AcGePoint3d& c1, const AcGePoint3d& c2, bool crossing);

/// The corners (lower left, upper right; WCS, seen from above) of what the current space draws;
/// nothing for an empty space.
std::optional<std::pair<AcGePoint3d, AcGePoint3d>> spaceExtents(AcDbDatabase& db);

/// Every entity of the current space but those on frozen layers.
std::vector<AcDbObjectId> allInSpace(AcDbDatabase& db);

/// An entity of the current space, not erased: what a pick by handle may take.
bool inCurrentSpace(AcDbDatabase& db, AcDbObjectId id);

/// The type, layer and other facts of an entity that a filter tests.
EntityFacts factsOf(const AcDbEntity& e);

} // namespace sim::editor
