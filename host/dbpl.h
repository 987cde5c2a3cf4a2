// AcDbPolyline: the lightweight polyline, 2D vertices with bulges and widths in a plane at an
// elevation.
#pragma once
#include <vector>
#include "dbents.h"
#include "gepnt2d.h"

class AcDbPolyline : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbPolyline);
    AcDbPolyline() = default;
    explicit AcDbPolyline(unsigned int num_verts);

    enum SegType { kLine, kArc, kCoincident, kPoint, kEmpty };

    /// Inserts a vertex before index (index numVerts() appends). A width of -1 takes the constant
    /// width. eInvalidIndex beyond the end.
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& pt, double bulge = 0., double startWidth = -1.,
                                  double endWidth = -1., Adesk::Int32 vertexIdentifier = 0);
    Acad::ErrorStatus removeVertexAt(unsigned int index);
    unsigned int numVerts() const { return static_cast<unsigned int>(m_verts.size()); }
    /// The point in the polyline's own plane.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& pt) const;
    /// The point in world coordinates.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& pt) const;
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& pt);
    /// The bulge of the segment that starts at the vertex: tan(included angle / 4), positive
    /// counter-clockwise.
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
    Acad::ErrorStatus setWidthsAt(unsigned int index, double startWidth, double endWidth);
    SegType segType(unsigned int index) const;
    /// The identifier a vertex carries (DXF group 91); 0 when it has none.
    Acad::ErrorStatus getVertexIdentifierAt(unsigned int index, Adesk::Int32& id) const;
    Acad::ErrorStatus setVertexIdentifierAt(unsigned int index, Adesk::Int32 suggestedValue);

    bool isClosed() const override { return m_closed; }
    void setClosed(bool closed);
    bool hasBulges() const;
    bool hasWidth() const;
    bool isOnlyLines() const { return !hasBulges(); }
    /// eInvalidInput when the vertices differ in width.
    Acad::ErrorStatus getConstantWidth(double& width) const;
    Acad::ErrorStatus setConstantWidth(double width);
    double elevation() const { return m_elevation; }
    void setElevation(double elev);
    AcGeVector3d normal() const { return m_normal; }
    void setNormal(const AcGeVector3d& norm);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    bool hasPlinegen() const { return m_plinegen; }
    void setPlinegen(bool plinegen);
    void reset(bool reuse, unsigned int numVerts);

    /// Parameters run from 0 at the first vertex by 1 per segment.
    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const override;
    Acad::ErrorStatus getDistAtParam(double param, double& dist) const override;
    Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& firstDeriv) const override;
    Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& givenPoint, AcGePoint3d& pointOnCurve, bool extend = false) const override;
    Acad::ErrorStatus getOffsetCurves(double offsetDist, AcDbVoidPtrArray& offsetCurves) const override;
    Acad::ErrorStatus reverseCurve() override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    /// Edges: the segment of the marker (index + 1), as a new AcDbLine or AcDbArc.
    Acad::ErrorStatus getSubentPathsAtGsMarker(AcDb::SubentType type, Adesk::GsMarker gsMark,
                                               const AcGePoint3d& pickPoint, const AcGeMatrix3d& viewXform,
                                               int& numPaths, AcDbFullSubentPath*& subentPaths, int numInserts = 0,
                                               AcDbObjectId* entAndInsertStack = nullptr) const override;
    AcDbEntity* subentPtr(const AcDbFullSubentPath& id) const override;

private:
    friend class AcDbImpDatabase;
    struct Vertex {
        AcGePoint2d pt;
        double bulge = 0.0;
        double startWidth = 0.0;
        double endWidth = 0.0;
        Adesk::Int32 id = 0;
    };
    std::vector<Vertex> m_verts;
    bool m_closed = false;
    bool m_plinegen = false;
    double m_constantWidth = 0.0;
    double m_elevation = 0.0;
    double m_thickness = 0.0;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
};
