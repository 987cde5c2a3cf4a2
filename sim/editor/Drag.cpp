// acedDragGen: the script's answer is where the drag ends; the set moves by the transform that the
// caller's function makes for that point.
#include "acedads.h"
#include "dbobjptr.h"
#include "sim/editor/Prompting.h"

using namespace sim::editor;

int acedDragGen(const ads_name ss, const ACHAR* pmt, int /*cursor*/, int (*scnf)(ads_point pt, ads_matrix mt), ads_point p)
{
    SelectionSet* set = findSet(ss);
    if (!set || !scnf || !p)
        return RTERROR;
    InitGet rules = takeInitGet();
    AcGePoint3d end;
    int rc = promptLoop(pmt ? pmt : L"", rules, L"Invalid point.", [&](std::wstring_view t) {
        auto pt = parsePoint(t);
        if (!pt)
            return Take::NotValue;
        end = resolvePoint(*pt, nullptr, rules.flags);
        return Take::Accepted;
    });
    if (rc != RTNORM)
        return rc;
    rememberPoint(end);
    asPnt3d(p) = end;
    ads_point cursor = {end.x, end.y, end.z};
    ads_matrix m;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            m[i][j] = i == j ? 1.0 : 0.0;
    if (scnf(cursor, m) != RTNORM)
        return RTNORM;
    AcGeMatrix3d xform;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            xform(static_cast<unsigned>(i), static_cast<unsigned>(j)) = m[i][j];
    for (const auto& s : set->items()) {
        AcDbObjectPointer<AcDbEntity> e(s.entity, AcDb::kForWrite);
        if (e.openStatus() == Acad::eOk)
            e->transformBy(xform);
    }
    return RTNORM;
}
