// Dimensions: the style, the text and its place, the measurement, and the overrides kept in the
// ACAD DSTYLE extended data as the host keeps them.
#include <cmath>
#include <cwchar>

#include "dbdim.h"
#include "dbsymtb.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/FileAccess.h"

SIM_DB_DEFINE_MEMBERS(AcDbDimension, AcDbEntity, L"DIMENSION")
SIM_DB_DEFINE_MEMBERS(AcDbAlignedDimension, AcDbDimension, L"DIMENSION")
SIM_DB_DEFINE_MEMBERS(AcDbRotatedDimension, AcDbAlignedDimension, L"DIMENSION")

namespace {

const int kDimtxsty = 340;

/// The overrides of a dimension: the pairs of (1070 variable code, value) of its ACAD DSTYLE data.
/// The data of other applications and the rest of the ACAD data stay as they are.
struct Overrides {
    resbuf* chain = nullptr; ///< the ACAD data, 1001 first
    ~Overrides() { acutRelRb(chain); }

    /// The value after the 1070 of the code inside DSTYLE { }, or null.
    resbuf* find(int code) const
    {
        bool inside = false;
        for (resbuf* rb = chain; rb; rb = rb->rbnext) {
            if (rb->restype == AcDb::kDxfXdAsciiString && rb->resval.rstring && std::wcscmp(rb->resval.rstring, L"DSTYLE") == 0)
                inside = true;
            else if (inside && rb->restype == AcDb::kDxfXdInteger16 && rb->resval.rint == code)
                return rb->rbnext;
            else if (inside && rb->restype == AcDb::kDxfXdControlString && rb->resval.rstring && rb->resval.rstring[0] == L'}')
                return nullptr;
        }
        return nullptr;
    }
    /// The 1002 "{" that opens the DSTYLE section, or null.
    resbuf* dstyleOpen() const
    {
        for (resbuf* rb = chain; rb; rb = rb->rbnext)
            if (rb->restype == AcDb::kDxfXdAsciiString && rb->resval.rstring && std::wcscmp(rb->resval.rstring, L"DSTYLE") == 0)
                return rb->rbnext && rb->rbnext->restype == AcDb::kDxfXdControlString ? rb->rbnext : nullptr;
        return nullptr;
    }
};

} // namespace

Acad::ErrorStatus AcDbDimension::setDimensionStyle(AcDbObjectId styleId)
{
    SIM_DB_ASSERT_WRITE();
    m_style = styleId;
    return Acad::eOk;
}

ACHAR* AcDbDimension::dimensionText() const
{
    auto* out = new ACHAR[m_text.size() + 1];
    std::wmemcpy(out, m_text.c_str(), m_text.size() + 1);
    return out;
}

Acad::ErrorStatus AcDbDimension::setDimensionText(const ACHAR* text)
{
    SIM_DB_ASSERT_WRITE();
    m_text = text ? text : L"";
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setTextPosition(const AcGePoint3d& pos)
{
    SIM_DB_ASSERT_WRITE();
    m_textPosition = pos;
    m_userTextPosition = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::useDefaultTextPosition()
{
    SIM_DB_ASSERT_WRITE();
    m_userTextPosition = false;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setTextRotation(double angle)
{
    SIM_DB_ASSERT_WRITE();
    m_textRotation = angle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setHorizontalRotation(double newVal)
{
    SIM_DB_ASSERT_WRITE();
    m_horizontalRotation = newVal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setNormal(const AcGeVector3d& normal)
{
    SIM_DB_ASSERT_WRITE();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = normal.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::measurement(double& value)
{
    value = measureValue();
    return Acad::eOk;
}

AcDbObjectId AcDbDimension::dimtxsty() const
{
    Overrides o;
    o.chain = xData(L"ACAD");
    if (resbuf* v = o.find(kDimtxsty); v && v->restype == AcDb::kDxfXdHandle) {
        AcDbObjectId id;
        AcDbDatabase* db = databaseToUse();
        if (db && db->getAcDbObjectId(id, false, AcDbHandle(v->resval.rstring)) == Acad::eOk)
            return id;
    }
    auto* style = AcDbDimStyleTableRecord::cast(sim::db::objectOf(m_style));
    return style ? style->dimtxsty() : AcDbObjectId::kNull;
}

Acad::ErrorStatus AcDbDimension::setDimtxsty(AcDbObjectId val)
{
    SIM_DB_ASSERT_WRITE();
    wchar_t handle[32];
    std::swprintf(handle, 32, L"%llX", static_cast<unsigned long long>(val.handle().value()));
    Overrides o;
    o.chain = xData(L"ACAD");
    if (resbuf* v = o.find(kDimtxsty)) {
        delete[] v->resval.rstring;
        acutNewString(handle, v->resval.rstring);
        v->restype = AcDb::kDxfXdHandle;
        return setXData(o.chain);
    }
    resbuf* pair = acutBuildList(AcDb::kDxfXdInteger16, kDimtxsty, AcDb::kDxfXdHandle, handle, RTNONE);
    resbuf* open = o.dstyleOpen();
    if (open) {
        pair->rbnext->rbnext = open->rbnext;
        open->rbnext = pair;
    } else {
        resbuf* section = acutBuildList(AcDb::kDxfXdAsciiString, L"DSTYLE", AcDb::kDxfXdControlString, L"{", RTNONE);
        section->rbnext->rbnext = pair;
        pair->rbnext->rbnext = acutBuildList(AcDb::kDxfXdControlString, L"}", RTNONE);
        if (!o.chain) {
            o.chain = acutBuildList(AcDb::kDxfRegAppName, L"ACAD", RTNONE);
            o.chain->rbnext = section;
        } else {
            resbuf* last = o.chain;
            while (last->rbnext)
                last = last->rbnext;
            last->rbnext = section;
        }
    }
    return setXData(o.chain);
}

Acad::ErrorStatus AcDbDimension::setDimstyleData(AcDbObjectId newDataId)
{
    SIM_DB_ASSERT_WRITE();
    if (!AcDbDimStyleTableRecord::cast(sim::db::objectOf(newDataId)))
        return Acad::eWrongObjectType;
    m_style = newDataId;
    // Dropping the ACAD data drops the overrides.
    resbuf app;
    app.restype = AcDb::kDxfRegAppName;
    app.resval.rstring = const_cast<ACHAR*>(L"ACAD");
    app.rbnext = nullptr;
    return setXData(&app);
}

Acad::ErrorStatus AcDbDimension::setDimstyleData(AcDbDimStyleTableRecord* pNewData)
{
    if (!pNewData)
        return Acad::eNullObjectPointer;
    return setDimstyleData(pNewData->objectId());
}

AcDbAlignedDimension::AcDbAlignedDimension(const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point,
                                           const AcGePoint3d& dimLinePoint, const ACHAR* dimText, AcDbObjectId dimStyle)
    : m_xLine1(xLine1Point), m_xLine2(xLine2Point), m_dimLine(dimLinePoint)
{
    setDimensionText(dimText);
    setDimensionStyle(dimStyle);
}

Acad::ErrorStatus AcDbAlignedDimension::setXLine1Point(const AcGePoint3d& point)
{
    SIM_DB_ASSERT_WRITE();
    m_xLine1 = point;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAlignedDimension::setXLine2Point(const AcGePoint3d& point)
{
    SIM_DB_ASSERT_WRITE();
    m_xLine2 = point;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAlignedDimension::setDimLinePoint(const AcGePoint3d& point)
{
    SIM_DB_ASSERT_WRITE();
    m_dimLine = point;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAlignedDimension::setOblique(double angle)
{
    SIM_DB_ASSERT_WRITE();
    m_oblique = angle;
    return Acad::eOk;
}

double AcDbAlignedDimension::measureValue() const { return m_xLine1.distanceTo(m_xLine2); }

Acad::ErrorStatus AcDbAlignedDimension::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    m_xLine1.transformBy(xform);
    m_xLine2.transformBy(xform);
    m_dimLine.transformBy(xform);
    AcGePoint3d text = textPosition();
    text.transformBy(xform);
    bool user = !isUsingDefaultTextPosition();
    setTextPosition(text);
    if (!user)
        useDefaultTextPosition();
    return Acad::eOk;
}

AcDbRotatedDimension::AcDbRotatedDimension(double rotation, const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point,
                                           const AcGePoint3d& dimLinePoint, const ACHAR* dimText, AcDbObjectId dimStyle)
    : AcDbAlignedDimension(xLine1Point, xLine2Point, dimLinePoint, dimText, dimStyle), m_rotation(rotation)
{
}

Acad::ErrorStatus AcDbRotatedDimension::setRotation(double angle)
{
    SIM_DB_ASSERT_WRITE();
    m_rotation = angle;
    return Acad::eOk;
}

double AcDbRotatedDimension::measureValue() const
{
    AcGeVector3d dir(std::cos(m_rotation), std::sin(m_rotation), 0.0);
    return std::fabs((xLine2Point() - xLine1Point()).dotProduct(dir));
}

Acad::ErrorStatus AcDbRotatedDimension::transformBy(const AcGeMatrix3d& xform)
{
    AcGeVector3d dir(std::cos(m_rotation), std::sin(m_rotation), 0.0);
    Acad::ErrorStatus es = AcDbAlignedDimension::transformBy(xform);
    if (es == Acad::eOk) {
        dir.transformBy(xform);
        m_rotation = std::atan2(dir.y, dir.x);
    }
    return es;
}
