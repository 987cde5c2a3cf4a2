// AcDbSpline: the NURBS data, points by de Boor's algorithm, and the reversal.
#include <algorithm>
#include <vector>

#include "dbspline.h"
#include "sim/db/DefineMembers.h"

SIM_DB_DEFINE_MEMBERS(AcDbSpline, AcDbCurve, L"SPLINE")

Acad::ErrorStatus AcDbSpline::getControlPointAt(int index, AcGePoint3d& point) const
{
    if (index < 0 || index >= numControlPoints())
        return Acad::eInvalidIndex;
    point = m_controlPoints[index];
    return Acad::eOk;
}

double AcDbSpline::weightAt(int index) const
{
    if (index < 0 || index >= numControlPoints())
        return -1.0;
    return isRational() && index < m_weights.length() ? m_weights[index] : 1.0;
}

Acad::ErrorStatus AcDbSpline::getFitPointAt(int index, AcGePoint3d& point) const
{
    if (index < 0 || index >= numFitPoints())
        return Acad::eInvalidIndex;
    point = m_fitPoints[index];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getNurbsData(int& degree, bool& rational, bool& closed, bool& periodic,
                                           AcGePoint3dArray& controlPoints, AcGeDoubleArray& knots,
                                           AcGeDoubleArray& weights, double& controlPtTol, double& knotTol) const
{
    degree = m_degree;
    rational = isRational();
    closed = m_closed;
    periodic = m_periodic;
    controlPoints = m_controlPoints;
    knots = m_knots;
    weights = m_weights;
    controlPtTol = m_controlPtTol;
    knotTol = m_knotTol;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setNurbsData(int degree, bool rational, bool closed, bool periodic,
                                           const AcGePoint3dArray& controlPoints, const AcGeDoubleArray& knots,
                                           const AcGeDoubleArray& weights, double controlPtTol, double knotTol)
{
    SIM_DB_ASSERT_WRITE();
    if (degree < 1 || (controlPoints.length() > 0 && knots.length() != controlPoints.length() + degree + 1) ||
        (rational && weights.length() != controlPoints.length()))
        return Acad::eInvalidInput;
    m_degree = degree;
    m_closed = closed;
    m_periodic = periodic;
    m_controlPoints = controlPoints;
    m_knots = knots;
    m_weights = rational ? weights : AcGeDoubleArray();
    m_controlPtTol = controlPtTol;
    m_knotTol = knotTol;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getFitData(AcGePoint3dArray& fitPoints, int& degree, double& fitTolerance,
                                         bool& tangentsExist, AcGeVector3d& startTangent, AcGeVector3d& endTangent) const
{
    if (m_fitPoints.length() == 0)
        return Acad::eNotApplicable;
    fitPoints = m_fitPoints;
    degree = m_degree;
    fitTolerance = m_fitTol;
    tangentsExist = !m_startTangent.isZeroLength() || !m_endTangent.isZeroLength();
    startTangent = m_startTangent;
    endTangent = m_endTangent;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setFitData(const AcGePoint3dArray& fitPoints, int degree, double fitTolerance,
                                         const AcGeVector3d& startTangent, const AcGeVector3d& endTangent)
{
    SIM_DB_ASSERT_WRITE();
    m_fitPoints = fitPoints;
    m_degree = degree;
    m_fitTol = fitTolerance;
    m_startTangent = startTangent;
    m_endTangent = endTangent;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setNormal(const AcGeVector3d& normal)
{
    SIM_DB_ASSERT_WRITE();
    m_normal = normal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getStartParam(double& param) const
{
    if (m_knots.length() < 2 * m_degree + 2)
        return Acad::eNotApplicable;
    param = m_knots[m_degree];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getEndParam(double& param) const
{
    if (m_knots.length() < 2 * m_degree + 2)
        return Acad::eNotApplicable;
    param = m_knots[m_knots.length() - 1 - m_degree];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getPointAtParam(double param, AcGePoint3d& point) const
{
    double t0 = 0, t1 = 0;
    if (getStartParam(t0) != Acad::eOk || getEndParam(t1) != Acad::eOk)
        return Acad::eNotApplicable;
    if (param < t0 - 1e-9 || param > t1 + 1e-9)
        return Acad::eInvalidInput;
    param = std::clamp(param, t0, t1);
    const int p = m_degree, n = numControlPoints();
    // The knot span [k, k + 1) that holds the parameter, the last one for the end.
    int k = p;
    while (k < n - 1 && m_knots[k + 1] <= param)
        ++k;
    // de Boor in homogeneous coordinates.
    std::vector<double> x(static_cast<size_t>(p) + 1), y(x), z(x), w(x);
    for (int j = 0; j <= p; ++j) {
        int i = k - p + j;
        double wi = weightAt(i);
        x[j] = m_controlPoints[i].x * wi;
        y[j] = m_controlPoints[i].y * wi;
        z[j] = m_controlPoints[i].z * wi;
        w[j] = wi;
    }
    for (int r = 1; r <= p; ++r)
        for (int j = p; j >= r; --j) {
            int i = k - p + j;
            double d = m_knots[i + p - r + 1] - m_knots[i];
            double a = d == 0.0 ? 0.0 : (param - m_knots[i]) / d;
            x[j] = (1 - a) * x[j - 1] + a * x[j];
            y[j] = (1 - a) * y[j - 1] + a * y[j];
            z[j] = (1 - a) * z[j - 1] + a * z[j];
            w[j] = (1 - a) * w[j - 1] + a * w[j];
        }
    if (w[p] == 0.0)
        return Acad::eInvalidInput;
    point.set(x[p] / w[p], y[p] / w[p], z[p] / w[p]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getStartPoint(AcGePoint3d& point) const
{
    double t = 0;
    Acad::ErrorStatus es = getStartParam(t);
    return es == Acad::eOk ? getPointAtParam(t, point) : es;
}

Acad::ErrorStatus AcDbSpline::getEndPoint(AcGePoint3d& point) const
{
    double t = 0;
    Acad::ErrorStatus es = getEndParam(t);
    return es == Acad::eOk ? getPointAtParam(t, point) : es;
}

Acad::ErrorStatus AcDbSpline::reverseCurve()
{
    SIM_DB_ASSERT_WRITE();
    auto obrat = [](auto& pole) {
        for (int i = 0, j = pole.length() - 1; i < j; ++i, --j)
            std::swap(pole[i], pole[j]);
    };
    obrat(m_controlPoints);
    obrat(m_weights);
    obrat(m_fitPoints);
    if (int n = m_knots.length(); n > 0) {
        // The knots mirrored within their own range keep the parameters where they were.
        const double soucet = m_knots[0] + m_knots[n - 1];
        obrat(m_knots);
        for (int i = 0; i < n; ++i)
            m_knots[i] = soucet - m_knots[i];
    }
    std::swap(m_startTangent, m_endTangent);
    m_startTangent = -m_startTangent;
    m_endTangent = -m_endTangent;
    return Acad::eOk;
}
