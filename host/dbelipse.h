// AcDbEllipse: an elliptical arc about its centre, counter-clockwise about its normal.
#pragma once
#include "dbents.h"

class AcDbEllipse : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbEllipse);
    AcDbEllipse() = default;
    /// majorAxis: from the centre to the end of the major axis; the angles are parameters of the
    /// ellipse (0 at the end of the major axis, pi/2 at the end of the minor one).
    AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& unitNormal, const AcGeVector3d& majorAxis,
                double radiusRatio, double startAngle = 0.0, double endAngle = 6.283185307179586);

    AcGePoint3d center() const { return m_center; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    AcGeVector3d normal() const { return m_normal; }
    AcGeVector3d majorAxis() const { return m_major; }
    /// The normal times the major axis, scaled by the ratio.
    AcGeVector3d minorAxis() const;
    double radiusRatio() const { return m_ratio; }
    /// eInvalidInput for a ratio not in (0, 1].
    Acad::ErrorStatus setRadiusRatio(double ratio);
    double startAngle() const { return m_start; }
    double endAngle() const { return m_end; }
    Acad::ErrorStatus set(const AcGePoint3d& center, const AcGeVector3d& unitNormal, const AcGeVector3d& majorAxis,
                          double radiusRatio, double startAngle = 0.0, double endAngle = 6.283185307179586);

    bool isClosed() const override;
    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    /// Flips the normal: the same points, run the other way.
    Acad::ErrorStatus reverseCurve() override;

private:
    AcGePoint3d m_center;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    AcGeVector3d m_major = AcGeVector3d::kXAxis;
    double m_ratio = 1.0;
    double m_start = 0.0;
    double m_end = 6.283185307179586;
};
