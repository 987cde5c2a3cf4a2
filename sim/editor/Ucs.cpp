// The current UCS, kept in the working database's header (model or paper space), and entity
// coordinate systems.
#include "sim/editor/Ucs.h"

#include <cmath>

#include "dbapserv.h"
#include "sim/editor/SysVars.h"

namespace sim::editor {

AcDbDatabase* workingDb() { return acdbHostApplicationServices()->workingDatabase(); }

namespace {
// Paper space is current when TILEMODE is off and the paper (CVPORT 1) is active.
bool paperUcs(const AcDbDatabase& db)
{
    if (db.tilemode())
        return false;
    auto cvport = getVar(L"CVPORT");
    return cvport && std::get<int>(*cvport) == 1;
}
} // namespace

AcGeMatrix3d ucsToWcs()
{
    AcGeMatrix3d m;
    AcDbDatabase* db = workingDb();
    if (!db)
        return m;
    bool paper = paperUcs(*db);
    AcGePoint3d o = paper ? db->pucsorg() : db->ucsorg();
    AcGeVector3d x = (paper ? db->pucsxdir() : db->ucsxdir()).normal();
    AcGeVector3d y = (paper ? db->pucsydir() : db->ucsydir()).normal();
    AcGeVector3d z = x.crossProduct(y);
    if (z.isZeroLength())
        return m;
    m.setCoordSystem(o, x, y, z.normal());
    return m;
}

AcGeMatrix3d wcsToUcs() { return ucsToWcs().inverse(); }

bool setCurrentUcs(const AcGeMatrix3d& m)
{
    AcDbDatabase* db = workingDb();
    if (!db)
        return false;
    AcGePoint3d o;
    AcGeVector3d x, y, z;
    m.getCoordSystem(o, x, y, z);
    if (x.isZeroLength() || y.isZeroLength() || x.isParallelTo(y))
        return false;
    // Keep the axes square: Y is made perpendicular to X in their plane.
    x.normalize();
    AcGeVector3d zz = x.crossProduct(y).normal();
    y = zz.crossProduct(x).normal();
    editorState().previousUcs.push_back(ucsToWcs());
    Acad::ErrorStatus es = paperUcs(*db) ? db->setPucs(o, x, y) : db->setUcs(o, x, y);
    if (es == Acad::eOk)
        paperUcs(*db) ? db->setPucsname(AcDbObjectId::kNull) : db->setUcsname(AcDbObjectId::kNull);
    return es == Acad::eOk;
}

AcGeMatrix3d ecsToWcs(const AcGeVector3d& normal)
{
    AcGeVector3d n = normal.normal();
    AcGeMatrix3d m;
    if (n.isZeroLength())
        return m;
    // The arbitrary axis rule: near the world Z axis, X comes from world Y, else from world Z.
    const double limit = 1.0 / 64.0;
    AcGeVector3d ax = (std::fabs(n.x) < limit && std::fabs(n.y) < limit) ? AcGeVector3d::kYAxis.crossProduct(n)
                                                                           : AcGeVector3d::kZAxis.crossProduct(n);
    ax.normalize();
    AcGeVector3d ay = n.crossProduct(ax).normal();
    m.setCoordSystem(AcGePoint3d::kOrigin, ax, ay, n);
    return m;
}

} // namespace sim::editor
