// AcDbText: single-line text with its position, alignment point, height, rotation and modes.
#include <bit>
#include <cmath>
#include <cstdint>
#include <cwchar>

#include "dbents.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/Geometry.h"

namespace geom = sim::db::geom;

namespace {

// Exactly the default, bit for bit, so that a negative zero is kept as it was set.
bool sameBits(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }
bool sameBits(const AcGePoint3d& a, const AcGePoint3d& b) { return sameBits(a.x, b.x) && sameBits(a.y, b.y) && sameBits(a.z, b.z); }
bool sameBits(const AcGeVector3d& a, const AcGeVector3d& b) { return sameBits(a.x, b.x) && sameBits(a.y, b.y) && sameBits(a.z, b.z); }

} // namespace

SIM_DB_DEFINE_MEMBERS(AcDbText, AcDbEntity, L"TEXT")

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style, double height, double rotation)
    : m_position(position), m_rotation(rotation), m_height(height), m_text(text ? text : L""), m_style(style)
{
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& pt)
{
    SIM_DB_ASSERT_WRITE();
    m_position = pt;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& pt)
{
    SIM_DB_ASSERT_WRITE();
    if (m_placement.made() || !sameBits(pt, AcGePoint3d::kOrigin))
        m_placement.ensure().alignment = pt;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& val)
{
    SIM_DB_ASSERT_WRITE();
    if (val.isZeroLength())
        return Acad::eInvalidInput;
    AcGeVector3d n = val.normal();
    if (m_placement.made() || !sameBits(n, AcGeVector3d::kZAxis))
        m_placement.ensure().normal = n;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setThickness(double val)
{
    SIM_DB_ASSERT_WRITE();
    if (m_placement.made() || !sameBits(val, 0.0))
        m_placement.ensure().thickness = val;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setOblique(double val)
{
    SIM_DB_ASSERT_WRITE();
    // The host refuses slants of 85 degrees and more either way.
    if (std::fabs(std::remainder(val, geom::kTwoPi)) >= 85.0 * M_PI / 180.0)
        return Acad::eInvalidInput;
    if (m_placement.made() || !sameBits(val, 0.0))
        m_placement.ensure().oblique = val;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setRotation(double val)
{
    SIM_DB_ASSERT_WRITE();
    m_rotation = val;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setHeight(double val)
{
    SIM_DB_ASSERT_WRITE();
    if (!(val > 0.0))
        return Acad::eInvalidInput;
    m_height = val;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setWidthFactor(double val)
{
    SIM_DB_ASSERT_WRITE();
    if (!(val > 0.0))
        return Acad::eInvalidInput;
    m_widthFactor = val;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::mirrorInX(bool val)
{
    SIM_DB_ASSERT_WRITE();
    m_mirrorX = val;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::mirrorInY(bool val)
{
    SIM_DB_ASSERT_WRITE();
    m_mirrorY = val;
    return Acad::eOk;
}

ACHAR* AcDbText::textString() const
{
    auto* out = new ACHAR[m_text.size() + 1];
    std::wmemcpy(out, m_text.c_str(), m_text.size() + 1);
    return out;
}
Acad::ErrorStatus AcDbText::textString(AcString& sText) const
{
    sText = m_text.c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text)
{
    SIM_DB_ASSERT_WRITE();
    m_text = text ? text : L"";
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId id)
{
    SIM_DB_ASSERT_WRITE();
    m_style = id;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode)
{
    SIM_DB_ASSERT_WRITE();
    if (mode < AcDb::kTextLeft || mode > AcDb::kTextFit)
        return Acad::eInvalidInput;
    m_horz = mode;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode)
{
    SIM_DB_ASSERT_WRITE();
    if (mode < AcDb::kTextBase || mode > AcDb::kTextTop)
        return Acad::eInvalidInput;
    m_vert = mode;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase*)
{
    SIM_DB_ASSERT_WRITE();
    // Without font metrics the extents are unknown: an aligned text sits at its alignment point.
    if (!isDefaultAlignment() && m_horz != AcDb::kTextAlign && m_horz != AcDb::kTextFit)
        m_position = m_placement.get().alignment;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    AcGeVector3d x, y;
    const AcGeVector3d normal = m_placement.get().normal;
    geom::ocsAxes(normal, x, y);
    AcGeVector3d dir = x * std::cos(m_rotation) + y * std::sin(m_rotation);
    AcGeVector3d up = normal.crossProduct(dir);
    AcGeVector3d newDir = xform.apply(dir), newUp = xform.apply(up);
    AcGeVector3d n = xform.apply(normal);
    if (newDir.isZeroLength() || newUp.isZeroLength() || n.isZeroLength())
        return Acad::eNotApplicable;
    n = n.normal();
    m_position = xform.apply(m_position);
    Placement& placement = m_placement.ensure();
    placement.alignment = xform.apply(placement.alignment);
    m_height *= newUp.length();
    m_widthFactor *= newDir.length() / newUp.length();
    if (n.crossProduct(newDir).dotProduct(newUp) < 0)
        m_mirrorX = !m_mirrorX;
    placement.normal = n;
    geom::ocsAxes(n, x, y);
    m_rotation = geom::normalizeAngle(std::atan2(newDir.dotProduct(y), newDir.dotProduct(x)));
    return Acad::eOk;
}
