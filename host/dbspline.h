// AcDbSpline: a NURBS curve by its control points, knots and weights, with the fit points it was
// made from when it has them.
#pragma once
#include "dbents.h"

class AcDbSpline : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbSpline);
    AcDbSpline() = default;

    int degree() const { return m_degree; }
    bool isRational() const { return !m_weights.isEmpty(); }
    bool isClosed() const override { return m_closed; }
    bool isPeriodic() const override { return m_periodic; }
    int numControlPoints() const { return m_controlPoints.length(); }
    Acad::ErrorStatus getControlPointAt(int index, AcGePoint3d& point) const;
    /// 1.0 for a spline that isn't rational; -1.0 for an index out of range.
    double weightAt(int index) const;
    int numFitPoints() const { return m_fitPoints.length(); }
    Acad::ErrorStatus getFitPointAt(int index, AcGePoint3d& point) const;

    /// The curve's definition. weights empty for a spline that isn't rational; eInvalidInput when
    /// the counts don't agree (knots = control points + degree + 1).
    Acad::ErrorStatus getNurbsData(int& degree, bool& rational, bool& closed, bool& periodic,
                                   AcGePoint3dArray& controlPoints, AcGeDoubleArray& knots,
                                   AcGeDoubleArray& weights, double& controlPtTol, double& knotTol) const;
    Acad::ErrorStatus setNurbsData(int degree, bool rational, bool closed, bool periodic,
                                   const AcGePoint3dArray& controlPoints, const AcGeDoubleArray& knots,
                                   const AcGeDoubleArray& weights, double controlPtTol = 0.0, double knotTol = 0.0);
    /// The fit points and the tangents at the ends (zero vectors when not given).
    Acad::ErrorStatus getFitData(AcGePoint3dArray& fitPoints, int& degree, double& fitTolerance,
                                 bool& tangentsExist, AcGeVector3d& startTangent, AcGeVector3d& endTangent) const;
    Acad::ErrorStatus setFitData(const AcGePoint3dArray& fitPoints, int degree, double fitTolerance,
                                 const AcGeVector3d& startTangent, const AcGeVector3d& endTangent);
    /// The normal of a planar spline (the DXF's extrusion); Z when not given.
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    /// Parameters run over the knots from the degree-th to the last but degree-th.
    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    /// Control points, weights and fit points in the other order, the knots mirrored, the end
    /// tangents swapped and turned round.
    Acad::ErrorStatus reverseCurve() override;

private:
    int m_degree = 3;
    bool m_closed = false;
    bool m_periodic = false;
    AcGePoint3dArray m_controlPoints;
    AcGeDoubleArray m_knots;
    AcGeDoubleArray m_weights;
    double m_controlPtTol = 0.0;
    double m_knotTol = 0.0;
    AcGePoint3dArray m_fitPoints;
    double m_fitTol = 0.0;
    AcGeVector3d m_startTangent, m_endTangent;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
};
