// The current UCS of the working database and the coordinate systems of acedTrans.
#pragma once
#include "gemat3d.h"

class AcDbDatabase;

namespace sim::editor {

/// The working database, or null.
AcDbDatabase* workingDb();

/// The transform from the current UCS to WCS (the model space UCS, or the paper space one when
/// paper space is current); the identity without a working database.
AcGeMatrix3d ucsToWcs();
AcGeMatrix3d wcsToUcs();
inline AcGePoint3d toWcs(const AcGePoint3d& ucs) { return ucsToWcs() * ucs; }
inline AcGePoint3d toUcs(const AcGePoint3d& wcs) { return wcsToUcs() * wcs; }
/// Makes the coordinate system of m the current unnamed UCS; the one before goes on the "previous"
/// stack. False when the axes are degenerate.
bool setCurrentUcs(const AcGeMatrix3d& m);

/// The entity coordinate system of an extrusion direction (the arbitrary axis rule of the drawing
/// format) as the transform from ECS to WCS.
AcGeMatrix3d ecsToWcs(const AcGeVector3d& normal);

} // namespace sim::editor
