// acedTrans, the current UCS calls, the pixel mapping of the view, and the display calls that have
// nothing to draw here.
#include "acedads.h"
#include "dbobjptr.h"
#include "sim/editor/EntityOutline.h"
#include "sim/editor/SysVars.h"
#include "sim/editor/Ucs.h"

using namespace sim::editor;

namespace {

/// The transform from a coordinate system named as acedTrans names it to WCS.
std::optional<AcGeMatrix3d> systemToWcs(const resbuf* rb)
{
    if (!rb)
        return std::nullopt;
    switch (rb->restype) {
    case RTSHORT:
    case RTLONG: {
        int code = rb->restype == RTSHORT ? rb->resval.rint : static_cast<int>(rb->resval.rlong);
        if (code == RTUCS)
            return ucsToWcs();
        // The display looks straight down on the WCS here, and paper space has no twist.
        if (code == RTWCS || code == RTDCS || code == 3)
            return AcGeMatrix3d::kIdentity;
        return std::nullopt;
    }
    case RT3DPOINT:
    case RTPOINT: {
        AcGeVector3d n(rb->resval.rpoint[0], rb->resval.rpoint[1], rb->restype == RTPOINT ? 0.0 : rb->resval.rpoint[2]);
        if (n.isZeroLength())
            return std::nullopt;
        return ecsToWcs(n);
    }
    case RTENAME: {
        AcDbObjectId id;
        if (acdbGetObjectId(id, rb->resval.rlname) != Acad::eOk)
            return std::nullopt;
        AcDbObjectPointer<AcDbEntity> e(id);
        if (e.openStatus() != Acad::eOk)
            return std::nullopt;
        return entityCoordSystem(*e);
    }
    default:
        return std::nullopt;
    }
}

} // namespace

int acedTrans(const ads_point pt, const struct resbuf* from, const struct resbuf* to, int disp, ads_point result)
{
    if (!pt || !result)
        return RTERROR;
    auto f = systemToWcs(from);
    auto t = systemToWcs(to);
    if (!f || !t)
        return RTERROR;
    AcGeMatrix3d m = t->inverse() * *f;
    if (disp) {
        AcGeVector3d v = m * AcGeVector3d(pt[0], pt[1], pt[2]);
        result[0] = v.x, result[1] = v.y, result[2] = v.z;
    } else {
        AcGePoint3d p = m * asPnt3d(pt);
        result[0] = p.x, result[1] = p.y, result[2] = p.z;
    }
    return RTNORM;
}

Acad::ErrorStatus acedGetCurrentUCS(AcGeMatrix3d& mat)
{
    if (!workingDb())
        return Acad::eNoDatabase;
    mat = ucsToWcs();
    return Acad::eOk;
}

Acad::ErrorStatus acedSetCurrentUCS(const AcGeMatrix3d& mat)
{
    if (!workingDb())
        return Acad::eNoDatabase;
    return setCurrentUcs(mat) ? Acad::eOk : Acad::eInvalidInput;
}

bool acedCoordFromPixelToWorld(const POINT& ptIn, ads_point ptOut) { return acedCoordFromPixelToWorld(0, ptIn, ptOut); }

bool acedCoordFromPixelToWorld(int /*windnum*/, POINT ptIn, ads_point ptOut)
{
    if (!ptOut)
        return false;
    double x = ptIn.x, y = ptIn.y;
    auto screen = getVar(L"SCREENSIZE");
    AcGePoint3d size = screen ? std::get<AcGePoint3d>(*screen) : AcGePoint3d(1600, 900, 0);
    double px = pixelSize();
    AcGePoint3d c = viewCenter();
    ptOut[0] = c.x + (x - size.x / 2.0) * px;
    ptOut[1] = c.y + (size.y / 2.0 - y) * px;
    ptOut[2] = 0.0;
    return true;
}

void acedUpdateDisplay() {}

int acedRedraw(const ads_name /*ent*/, int /*mode*/) { return RTNORM; }
