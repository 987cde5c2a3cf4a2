// AcDbLeader: the classic leader, a line (or spline) of vertices in world coordinates with an
// optional arrowhead, drawn in the values of a dimension style and tied to an annotation.
#pragma once
#include <vector>
#include "dbents.h"

class AcDbLeader : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbLeader);
    AcDbLeader() = default;
    ~AcDbLeader() override = default;

    /// What the leader points from: multi-line text, a tolerance frame, a block reference or nothing.
    enum AnnoType { kMText = 0, kFcf = 1, kBlockRef = 2, kNoAnno = 3 };

    /// Unit length. The vertices are kept as given, in world coordinates: the platform does not
    /// project them onto the leader's plane.
    virtual AcGeVector3d normal() const { return m_normal; }

    virtual int numVertices() const { return static_cast<int>(m_vertices.size()); }
    /// Adds a vertex at the end; false (nothing added) when the leader is not open for write.
    virtual Adesk::Boolean appendVertex(const AcGePoint3d& pt);
    /// Removes the last vertex; a leader keeps at least two vertices once it has them.
    virtual void removeLastVertex();
    /// The origin when the leader has no vertices.
    virtual AcGePoint3d firstVertex() const;
    virtual AcGePoint3d lastVertex() const;
    /// The origin for a number out of range.
    virtual AcGePoint3d vertexAt(int vertNo) const;
    /// False (nothing changed) for a number out of range or a leader not open for write.
    virtual Adesk::Boolean setVertexAt(int vertNo, const AcGePoint3d& pt);

    virtual Adesk::Boolean hasArrowHead() const { return m_arrowHead; }
    virtual void enableArrowHead();
    virtual void disableArrowHead();
    virtual void setToSplineLeader();
    virtual void setToStraightLeader();
    virtual Adesk::Boolean isSplined() const { return m_splined; }

    virtual AcDbHardPointerId dimensionStyle() const { return m_dimStyle; }
    virtual void setDimensionStyle(const AcDbHardPointerId& styleId);

    /// Ties the leader to an annotation entity (its type follows from the entity's class); a null
    /// id detaches it.
    virtual Acad::ErrorStatus attachAnnotation(const AcDbObjectId& annoId);
    virtual Acad::ErrorStatus detachAnnotation();
    virtual AcDbObjectId annotationObjId() const { return m_annotation; }
    /// From the class of the annotation entity: kNoAnno without one (or when its id names nothing).
    AnnoType annoType() const;

    // The curve: the parameter runs from 0 at the first vertex to numVertices() - 1 at the last,
    // straight between vertices (a splined leader is measured along its vertex line too).
    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    Acad::ErrorStatus getDistAtParam(double param, double& dist) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    /// Sets the plane's normal (unit length kept); eInvalidInput for a zero vector. Not in the
    /// host's interface, which takes a plane: the platform's reader sets the normal of the file.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

private:
    std::vector<AcGePoint3d> m_vertices;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    bool m_arrowHead = true;
    bool m_splined = false;
    AcDbObjectId m_dimStyle;
    AcDbObjectId m_annotation;
};
