// The outline of an entity as the pick box sees it: its curves as point chains and its text as
// filled boxes, carried into world coordinates. Block references are not outlined here: the picker
// walks into them.
#pragma once
#include <vector>

#include "dbmain.h"

namespace sim::editor {

struct OutlinePath {
    std::vector<AcGePoint3d> points;
    bool closed = false;
    bool filled = false; ///< a point inside counts as on it (text boxes)
    int marker = 0;      ///< the gs marker of a pick on this path (polyline segment index + 1)
};

/// Adds the outline of e (not a block reference) to out, each point carried by xform. Arcs are cut
/// into chords no farther than tol from the arc (in the units after xform). An entity of a kind the
/// platform cannot draw adds nothing.
void addOutline(const AcDbEntity& e, const AcGeMatrix3d& xform, double tol, std::vector<OutlinePath>& out);

/// The transform of an entity's own coordinate system (for entities drawn in a plane given by their
/// normal) to the coordinates of its owner; the identity for the others.
AcGeMatrix3d entityCoordSystem(const AcDbEntity& e);

/// The distance in the XY plane from p to the path (0 inside a filled path).
double planDistance(const OutlinePath& path, const AcGePoint3d& p);

} // namespace sim::editor
