// The drawing's entities: curves (AcDbCurve, AcDbLine, AcDbCircle, AcDbArc, AcDb2dPolyline and its
// vertices), single-line text, block references with their attributes and attribute definitions.
#pragma once
#include <memory>
#include <string>
#include <vector>
#include "dbmain.h"
#include "gepnt2d.h"
#include "gescl3d.h"

class AcDbMText;
class AcDbSequenceEnd;

/// An entity with a start and an end, parameterised along its length.
class AcDbCurve : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbCurve);
    AcDbCurve() = default;

    virtual bool isClosed() const { return false; }
    virtual bool isPeriodic() const { return false; }
    virtual Acad::ErrorStatus getStartParam(double& param) const;
    virtual Acad::ErrorStatus getEndParam(double& param) const;
    virtual Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const;
    virtual Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const;
    virtual Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const;
    /// eInvalidInput when the point is not on the curve.
    virtual Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const;
    virtual Acad::ErrorStatus getDistAtParam(double param, double& dist) const;
    virtual Acad::ErrorStatus getDistAtPoint(const AcGePoint3d& point, double& dist) const;
    /// The derivative of the curve by its parameter: for a line (parameter = distance) the unit
    /// direction, for an arc or circle (parameter = angle) the tangent times the radius.
    virtual Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& firstDeriv) const;
    virtual Acad::ErrorStatus getFirstDeriv(const AcGePoint3d& point, AcGeVector3d& firstDeriv) const;
    virtual Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& givenPoint, AcGePoint3d& pointOnCurve,
                                                bool extend = false) const;
    /// Curves at a distance in the curve's plane; positive to the right of a line or polyline seen
    /// along its direction and outwards for arcs and circles. The caller owns the new entities
    /// (AcDbEntity*), which are in no database.
    virtual Acad::ErrorStatus getOffsetCurves(double offsetDist, AcDbVoidPtrArray& offsetCurves) const;
    /// Turns the curve to run the other way.
    virtual Acad::ErrorStatus reverseCurve();
};

class AcDbLine : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbLine);
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : m_start(start), m_end(end) {}

    AcGePoint3d startPoint() const { return m_start; }
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& pt);
    AcGePoint3d endPoint() const { return m_end; }
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& pt);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double val);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& val);

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

private:
    AcGePoint3d m_start, m_end;
    double m_thickness = 0.0;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
};

class AcDbCircle : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbCircle);
    AcDbCircle() = default;
    AcDbCircle(const AcGePoint3d& cntr, const AcGeVector3d& nrm, double radius) : m_center(cntr), m_normal(nrm), m_radius(radius) {}

    AcGePoint3d center() const { return m_center; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& pt);
    double radius() const { return m_radius; }
    /// eInvalidInput for a radius not above zero.
    Acad::ErrorStatus setRadius(double radius);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& val);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double val);
    double circumference() const;

    bool isClosed() const override { return true; }
    bool isPeriodic() const override { return true; }
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

private:
    AcGePoint3d m_center;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    double m_radius = 0.0;
    double m_thickness = 0.0;
};

/// A circular arc, counter-clockwise about its normal from the start angle to the end angle
/// (radians, from the X axis of the arc's plane).
class AcDbArc : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDbArc);
    AcDbArc() = default;
    AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle)
        : m_center(center), m_radius(radius), m_startAngle(startAngle), m_endAngle(endAngle) {}
    AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle, double endAngle)
        : m_center(center), m_normal(normal), m_radius(radius), m_startAngle(startAngle), m_endAngle(endAngle) {}

    AcGePoint3d center() const { return m_center; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& pt);
    double radius() const { return m_radius; }
    Acad::ErrorStatus setRadius(double radius);
    double startAngle() const { return m_startAngle; }
    Acad::ErrorStatus setStartAngle(double angle);
    double endAngle() const { return m_endAngle; }
    Acad::ErrorStatus setEndAngle(double angle);
    double totalAngle() const;
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& val);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double val);

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

private:
    AcGePoint3d m_center;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    double m_radius = 0.0;
    double m_startAngle = 0.0;
    double m_endAngle = 0.0;
    double m_thickness = 0.0;
};

/// The entity that ends the list of attributes of a block reference or the vertices of a polyline.
class AcDbSequenceEnd : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbSequenceEnd);
    AcDbSequenceEnd() = default;
};

class AcDbVertex : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbVertex);
    AcDbVertex() = default;
};

/// A vertex of an AcDb2dPolyline. Its position is in the polyline's plane (OCS), Z the elevation.
class AcDb2dVertex : public AcDbVertex {
public:
    ACDB_DECLARE_MEMBERS(AcDb2dVertex);
    AcDb2dVertex() = default;
    AcDb2dVertex(const AcGePoint3d& position, double bulge = 0, double startWidth = 0, double endWidth = 0)
        : m_position(position), m_bulge(bulge), m_startWidth(startWidth), m_endWidth(endWidth) {}

    AcDb::Vertex2dType vertexType() const { return m_vertexType; }
    AcGePoint3d position() const { return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& pt);
    double startWidth() const { return m_startWidth; }
    Acad::ErrorStatus setStartWidth(double newVal);
    double endWidth() const { return m_endWidth; }
    Acad::ErrorStatus setEndWidth(double newVal);
    double bulge() const { return m_bulge; }
    Acad::ErrorStatus setBulge(double newVal);
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

private:
    friend class AcDbImpDatabase;
    friend class AcDb2dPolyline;
    AcDb::Vertex2dType m_vertexType = AcDb::k2dVertex;
    AcGePoint3d m_position;
    double m_bulge = 0.0;
    double m_startWidth = 0.0;
    double m_endWidth = 0.0;
};

/// The old-style polyline: a header with its vertices as objects of their own, ended by a
/// sequence end. Vertices are appended once the polyline is in a database.
class AcDb2dPolyline : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDb2dPolyline);
    AcDb2dPolyline() = default;

    AcDb::Poly2dType polyType() const { return m_type; }
    Acad::ErrorStatus setPolyType(AcDb::Poly2dType type);
    Acad::ErrorStatus makeClosed();
    Acad::ErrorStatus makeOpen();
    bool isClosed() const override { return m_closed; }
    double elevation() const { return m_elevation; }
    Acad::ErrorStatus setElevation(double elev);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& val);
    double defaultStartWidth() const { return m_defaultStartWidth; }
    Acad::ErrorStatus setDefaultStartWidth(double w);
    double defaultEndWidth() const { return m_defaultEndWidth; }
    Acad::ErrorStatus setDefaultEndWidth(double w);

    /// Adds a vertex at the end; the polyline must be open for write and in a database (eNoDatabase).
    Acad::ErrorStatus appendVertex(AcDb2dVertex* pNewVertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& objId, AcDb2dVertex* pNewVertex);
    Acad::ErrorStatus openVertex(AcDb2dVertex*& pVertex, AcDbObjectId vertId, AcDb::OpenMode mode, bool openErasedOne = false) const;
    Acad::ErrorStatus openSequenceEnd(AcDbSequenceEnd*& pSeqEnd, AcDb::OpenMode mode);
    /// The vertices in order; the caller deletes the iterator.
    AcDbObjectIterator* vertexIterator() const;
    /// The position of a vertex in world coordinates.
    AcGePoint3d vertexPosition(const AcDb2dVertex& vert) const;

    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus reverseCurve() override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

private:
    friend class AcDbImpDatabase;
    AcDb::Poly2dType m_type = AcDb::k2dSimplePoly;
    bool m_closed = false;
    double m_elevation = 0.0;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    double m_defaultStartWidth = 0.0;
    double m_defaultEndWidth = 0.0;
    std::vector<AcDbObjectId> m_vertices;
    AcDbObjectId m_seqEnd;
};

/// A vertex of an AcDb3dPolyline, its position in world coordinates.
class AcDb3dPolylineVertex : public AcDbVertex {
public:
    ACDB_DECLARE_MEMBERS(AcDb3dPolylineVertex);
    AcDb3dPolylineVertex() = default;
    explicit AcDb3dPolylineVertex(const AcGePoint3d& position) : m_position(position) {}

    AcDb::Vertex3dType vertexType() const { return AcDb::k3dSimpleVertex; }
    AcGePoint3d position() const { return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& pt);
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

private:
    friend class AcDb3dPolyline;
    AcGePoint3d m_position;
};

/// The polyline whose vertices lie anywhere in space; straight segments, vertices as objects of
/// their own ended by a sequence end, appended once the polyline is in a database.
class AcDb3dPolyline : public AcDbCurve {
public:
    ACDB_DECLARE_MEMBERS(AcDb3dPolyline);
    AcDb3dPolyline() = default;

    AcDb::Poly3dType polyType() const { return m_type; }
    Acad::ErrorStatus setPolyType(AcDb::Poly3dType type);
    Acad::ErrorStatus makeClosed();
    Acad::ErrorStatus makeOpen();
    bool isClosed() const override { return m_closed; }

    Acad::ErrorStatus appendVertex(AcDb3dPolylineVertex* pNewVertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& objId, AcDb3dPolylineVertex* pNewVertex);
    Acad::ErrorStatus openVertex(AcDb3dPolylineVertex*& pVertex, AcDbObjectId vertId, AcDb::OpenMode mode,
                                 bool openErasedOne = false) const;
    Acad::ErrorStatus openSequenceEnd(AcDbSequenceEnd*& pSeqEnd, AcDb::OpenMode mode);
    /// The vertices in order; the caller deletes the iterator.
    AcDbObjectIterator* vertexIterator() const;

    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
    Acad::ErrorStatus reverseCurve() override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

private:
    friend class AcDbImpDatabase;
    AcDb::Poly3dType m_type = AcDb::k3dSimplePoly;
    bool m_closed = false;
    std::vector<AcDbObjectId> m_vertices;
    AcDbObjectId m_seqEnd;
};

/// Single-line text. The position is the left end of the base line; the alignment point holds for
/// any other alignment.
class AcDbText : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbText);
    AcDbText() = default;
    AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId::kNull, double height = 0,
             double rotation = 0);

    AcGePoint3d position() const { return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& pt);
    AcGePoint3d alignmentPoint() const { return m_placement.get().alignment; }
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& pt);
    /// Left and base line: the alignment point plays no part.
    bool isDefaultAlignment() const { return m_horz == AcDb::kTextLeft && m_vert == AcDb::kTextBase; }
    AcGeVector3d normal() const { return m_placement.get().normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& val);
    double thickness() const { return m_placement.get().thickness; }
    Acad::ErrorStatus setThickness(double val);
    /// Radians.
    double oblique() const { return m_placement.get().oblique; }
    Acad::ErrorStatus setOblique(double val);
    /// Radians.
    double rotation() const { return m_rotation; }
    Acad::ErrorStatus setRotation(double val);
    double height() const { return m_height; }
    Acad::ErrorStatus setHeight(double val);
    double widthFactor() const { return m_widthFactor; }
    Acad::ErrorStatus setWidthFactor(double val);
    bool isMirroredInX() const { return m_mirrorX; }
    Acad::ErrorStatus mirrorInX(bool val);
    bool isMirroredInY() const { return m_mirrorY; }
    Acad::ErrorStatus mirrorInY(bool val);

    /// A copy the caller frees with acutDelString (delete[]).
    ACHAR* textString() const;
    const ACHAR* textStringConst() const { return m_text.c_str(); }
    Acad::ErrorStatus textString(AcString& sText) const;
    Acad::ErrorStatus setTextString(const ACHAR* text);
    AcDbObjectId textStyle() const { return m_style; }
    Acad::ErrorStatus setTextStyle(AcDbObjectId id);
    AcDb::TextHorzMode horizontalMode() const { return m_horz; }
    Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
    AcDb::TextVertMode verticalMode() const { return m_vert; }
    Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);
    /// Brings the position and the alignment point into agreement for the alignment in force. The
    /// platform has no fonts: an aligned text takes its position from the alignment point.
    Acad::ErrorStatus adjustAlignment(const AcDbDatabase* pDb = nullptr);

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

private:
    friend class AcDbImpDatabase;
    /// What few texts set: storage only once one of them leaves its default, as a drawing holds
    /// texts and attributes by the hundred thousand.
    struct Placement {
        AcGePoint3d alignment;
        AcGeVector3d normal = AcGeVector3d::kZAxis;
        double thickness = 0.0;
        double oblique = 0.0;
    };
    class OnDemandPlacement {
    public:
        OnDemandPlacement() = default;
        OnDemandPlacement(const OnDemandPlacement& o) : m_p(o.m_p ? std::make_unique<Placement>(*o.m_p) : nullptr) {}
        OnDemandPlacement(OnDemandPlacement&&) noexcept = default;
        OnDemandPlacement& operator=(const OnDemandPlacement& o)
        {
            if (this != &o)
                m_p = o.m_p ? std::make_unique<Placement>(*o.m_p) : nullptr;
            return *this;
        }
        OnDemandPlacement& operator=(OnDemandPlacement&&) noexcept = default;
        const Placement& get() const
        {
            static const Placement none;
            return m_p ? *m_p : none;
        }
        bool made() const { return m_p != nullptr; }
        Placement& ensure()
        {
            if (!m_p)
                m_p = std::make_unique<Placement>();
            return *m_p;
        }

    private:
        std::unique_ptr<Placement> m_p;
    };
    AcGePoint3d m_position;
    OnDemandPlacement m_placement;
    double m_rotation = 0.0;
    double m_height = 0.0;
    double m_widthFactor = 1.0;
    bool m_mirrorX = false;
    bool m_mirrorY = false;
    std::wstring m_text;
    AcDbObjectId m_style;
    AcDb::TextHorzMode m_horz = AcDb::kTextLeft;
    AcDb::TextVertMode m_vert = AcDb::kTextBase;
};

/// The template of an attribute in a block definition: its tag, prompt and default text (the text
/// string).
class AcDbAttributeDefinition : public AcDbText {
public:
    ACDB_DECLARE_MEMBERS(AcDbAttributeDefinition);
    AcDbAttributeDefinition() = default;
    AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, const ACHAR* prompt,
                            AcDbObjectId style = AcDbObjectId::kNull);
    AcDbAttributeDefinition(const AcDbAttributeDefinition& other);
    AcDbAttributeDefinition& operator=(const AcDbAttributeDefinition& other);
    ~AcDbAttributeDefinition() override;

    /// Copies the caller frees with acutDelString (delete[]).
    ACHAR* prompt() const;
    const ACHAR* promptConst() const { return m_prompt.c_str(); }
    Acad::ErrorStatus setPrompt(const ACHAR* prompt);
    ACHAR* tag() const;
    const ACHAR* tagConst() const { return m_tag.c_str(); }
    /// eInvalidInput for an empty tag or one with spaces.
    Acad::ErrorStatus setTag(const ACHAR* tag);
    bool isInvisible() const { return m_flags & 1; }
    Acad::ErrorStatus setInvisible(bool val);
    bool isConstant() const { return m_flags & 2; }
    Acad::ErrorStatus setConstant(bool val);
    bool isVerifiable() const { return m_flags & 4; }
    Acad::ErrorStatus setVerifiable(bool val);
    bool isPreset() const { return m_flags & 8; }
    Acad::ErrorStatus setPreset(bool val);
    Adesk::UInt16 fieldLength() const { return m_fieldLength; }
    Acad::ErrorStatus setFieldLength(Adesk::UInt16 len);
    bool lockPositionInBlock() const { return m_lockPosition; }
    Acad::ErrorStatus setLockPositionInBlock(bool bValue);

    bool isMTextAttributeDefinition() const { return m_mtext != nullptr; }
    /// A copy of the multi-line text, or null; the caller deletes it.
    AcDbMText* getMTextAttributeDefinition() const;
    /// Takes a copy of the multi-line text.
    Acad::ErrorStatus setMTextAttributeDefinition(AcDbMText* pMText);
    Acad::ErrorStatus convertIntoMTextAttributeDefinition(bool val = true);

private:
    friend class AcDbImpDatabase;
    std::wstring m_tag;
    std::wstring m_prompt;
    int m_flags = 0;
    Adesk::UInt16 m_fieldLength = 0;
    bool m_lockPosition = false;
    AcDbMText* m_mtext = nullptr;
};

/// The value of one attribute of a block reference.
class AcDbAttribute : public AcDbText {
public:
    ACDB_DECLARE_MEMBERS(AcDbAttribute);
    AcDbAttribute() = default;
    AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, AcDbObjectId style = AcDbObjectId::kNull);
    AcDbAttribute(const AcDbAttribute& other);
    AcDbAttribute& operator=(const AcDbAttribute& other);
    ~AcDbAttribute() override;

    /// A copy the caller frees with acutDelString (delete[]).
    ACHAR* tag() const;
    const ACHAR* tagConst() const { return m_tag.c_str(); }
    Acad::ErrorStatus setTag(const ACHAR* tag);
    bool isInvisible() const { return m_flags & 1; }
    Acad::ErrorStatus setInvisible(bool val);
    bool isConstant() const { return m_flags & 2; }
    bool isVerifiable() const { return m_flags & 4; }
    bool isPreset() const { return m_flags & 8; }
    Adesk::UInt16 fieldLength() const { return m_fieldLength; }
    Acad::ErrorStatus setFieldLength(Adesk::UInt16 len);
    bool lockPositionInBlock() const { return m_lockPosition; }
    Acad::ErrorStatus setLockPositionInBlock(bool bValue);

    bool isMTextAttribute() const { return m_mtext != nullptr; }
    /// A copy of the multi-line text, or null; the caller deletes it.
    AcDbMText* getMTextAttribute() const;
    /// Takes a copy of the multi-line text and makes the attribute multi-line.
    Acad::ErrorStatus setMTextAttribute(AcDbMText* pMText);
    /// Makes the attribute multi-line (its text becomes the contents) or single-line again.
    Acad::ErrorStatus convertIntoMTextAttribute(bool val = true);
    /// Brings the single-line text into agreement with the multi-line one.
    Acad::ErrorStatus updateMTextAttribute();

    /// Takes the geometry of the block's definition of the same tag, carried by the reference's
    /// transform: the tag, flags, text, style, height, modes and points of the definition.
    Acad::ErrorStatus setAttributeFromBlock(const AcGeMatrix3d& blkXform);
    Acad::ErrorStatus setAttributeFromBlock(const AcDbAttributeDefinition* pAttdef, const AcGeMatrix3d& blkXform);

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

private:
    friend class AcDbImpDatabase;
    std::wstring m_tag;
    int m_flags = 0;
    Adesk::UInt16 m_fieldLength = 0;
    bool m_lockPosition = false;
    AcDbMText* m_mtext = nullptr;
};

/// An insertion of a block definition, with its own attributes (owned objects, ended by a sequence
/// end).
class AcDbBlockReference : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbBlockReference);
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRec) : m_position(position), m_block(blockTableRec) {}

    AcDbObjectId blockTableRecord() const { return m_block; }
    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId newVal);
    AcGePoint3d position() const { return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& newVal);
    AcGeScale3d scaleFactors() const { return m_scale; }
    /// eInvalidInput for a zero factor.
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    /// Radians, about the normal.
    double rotation() const { return m_rotation; }
    Acad::ErrorStatus setRotation(double newVal);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& newVal);
    /// Block coordinates to world: the block's base point to the position, scaled, rotated and set
    /// in the plane of the normal.
    AcGeMatrix3d blockTransform() const;
    Acad::ErrorStatus setBlockTransform(const AcGeMatrix3d& mat);

    /// Adds an attribute; the reference must be open for write and in a database (eNoDatabase).
    Acad::ErrorStatus appendAttribute(AcDbAttribute* pAttr);
    Acad::ErrorStatus appendAttribute(AcDbObjectId& attId, AcDbAttribute* pAttr);
    Acad::ErrorStatus openAttribute(AcDbAttribute*& pAttr, AcDbObjectId attId, AcDb::OpenMode mode, bool openErasedOne = false);
    Acad::ErrorStatus openSequenceEnd(AcDbSequenceEnd*& pSeqEnd, AcDb::OpenMode mode);
    /// The attributes in order; the caller deletes the iterator.
    AcDbObjectIterator* attributeIterator() const;

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

private:
    friend class AcDbImpDatabase;
    AcGePoint3d m_position;
    AcDbObjectId m_block;
    AcGeScale3d m_scale;
    double m_rotation = 0.0;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    std::vector<AcDbObjectId> m_attributes;
    AcDbObjectId m_seqEnd;
};
