// AcDbEllipse: points by parameter, and the reversal that flips the normal.
#include <cmath>

#include "dbelipse.h"
#include "sim/db/DefineMembers.h"

SIM_DB_DEFINE_MEMBERS(AcDbEllipse, AcDbCurve, L"ELLIPSE")

namespace {

constexpr double kDvePi = 6.283185307179586;

double VRozsahu(double a)
{
    a = std::fmod(a, kDvePi);
    return a < 0 ? a + kDvePi : a;
}

} // namespace

AcDbEllipse::AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& unitNormal, const AcGeVector3d& majorAxis,
                         double radiusRatio, double startAngle, double endAngle)
    : m_center(center), m_normal(unitNormal), m_major(majorAxis), m_ratio(radiusRatio), m_start(startAngle),
      m_end(endAngle)
{
}

Acad::ErrorStatus AcDbEllipse::setCenter(const AcGePoint3d& center)
{
    SIM_DB_ASSERT_WRITE();
    m_center = center;
    return Acad::eOk;
}

AcGeVector3d AcDbEllipse::minorAxis() const { return m_normal.crossProduct(m_major) * m_ratio; }

Acad::ErrorStatus AcDbEllipse::setRadiusRatio(double ratio)
{
    SIM_DB_ASSERT_WRITE();
    if (!(ratio > 0.0 && ratio <= 1.0))
        return Acad::eInvalidInput;
    m_ratio = ratio;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::set(const AcGePoint3d& center, const AcGeVector3d& unitNormal,
                                   const AcGeVector3d& majorAxis, double radiusRatio, double startAngle, double endAngle)
{
    SIM_DB_ASSERT_WRITE();
    if (!(radiusRatio > 0.0 && radiusRatio <= 1.0) || majorAxis.isZeroLength() || unitNormal.isZeroLength())
        return Acad::eInvalidInput;
    m_center = center;
    m_normal = unitNormal;
    m_major = majorAxis;
    m_ratio = radiusRatio;
    m_start = startAngle;
    m_end = endAngle;
    return Acad::eOk;
}

bool AcDbEllipse::isClosed() const { return std::abs(VRozsahu(m_end - m_start)) < 1e-12 && m_end != m_start; }

Acad::ErrorStatus AcDbEllipse::getStartParam(double& param) const
{
    param = m_start;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getEndParam(double& param) const
{
    // The end lies beyond the start, by at most a full turn.
    double sweep = VRozsahu(m_end - m_start);
    param = m_start + (sweep == 0.0 ? kDvePi : sweep);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getPointAtParam(double param, AcGePoint3d& point) const
{
    point = m_center + m_major * std::cos(param) + minorAxis() * std::sin(param);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getStartPoint(AcGePoint3d& point) const { return getPointAtParam(m_start, point); }

Acad::ErrorStatus AcDbEllipse::getEndPoint(AcGePoint3d& point) const { return getPointAtParam(m_end, point); }

Acad::ErrorStatus AcDbEllipse::reverseCurve()
{
    SIM_DB_ASSERT_WRITE();
    // With the normal turned round the minor axis points the other way: the point of parameter t
    // lies at -t now.
    m_normal = -m_normal;
    double start = m_start;
    m_start = VRozsahu(-m_end);
    m_end = VRozsahu(-start);
    if (m_end == m_start)
        m_end = m_start + kDvePi;
    return Acad::eOk;
}
