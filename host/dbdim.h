// Dimensions: AcDbDimension with its style, text and overrides, the aligned dimension and the
// rotated (linear) dimension. The platform keeps the block a file has and draws one for a new dimension.
#pragma once
#include <string>
#include "dbmain.h"

class AcDbDimStyleTableRecord;

class AcDbDimension : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbDimension);
    ~AcDbDimension() override = default;

    AcDbObjectId dimensionStyle() const { return m_style; }
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId styleId);
    /// The text as given: "" for the measurement, "<>" stands for it inside a text. A copy the
    /// caller frees with acutDelString (delete[]).
    ACHAR* dimensionText() const;
    Acad::ErrorStatus setDimensionText(const ACHAR* text);
    /// The middle of the text.
    AcGePoint3d textPosition() const { return m_textPosition; }
    /// Places the text there (the dimension's text position is then the user's).
    Acad::ErrorStatus setTextPosition(const AcGePoint3d& pos);
    bool isUsingDefaultTextPosition() const { return !m_userTextPosition; }
    Acad::ErrorStatus useDefaultTextPosition();
    /// Radians.
    double textRotation() const { return m_textRotation; }
    Acad::ErrorStatus setTextRotation(double angle);
    /// Radians: the direction the host takes as horizontal for the text.
    double horizontalRotation() const { return m_horizontalRotation; }
    Acad::ErrorStatus setHorizontalRotation(double newVal);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    /// The measured value, in drawing units.
    Acad::ErrorStatus measurement(double& value);
    /// The text style: the dimension's override when it has one, else its style's.
    AcDbObjectId dimtxsty() const;
    /// Sets the override (kept as the host keeps overrides: the ACAD DSTYLE extended data).
    Acad::ErrorStatus setDimtxsty(AcDbObjectId val);
    /// Takes the style and drops the overrides.
    Acad::ErrorStatus setDimstyleData(AcDbObjectId newDataId);
    Acad::ErrorStatus setDimstyleData(AcDbDimStyleTableRecord* pNewData);
    /// The block of the dimension's graphics, null when it has none.
    AcDbObjectId dimBlockId() const { return m_block; }
    /// Draws the dimension's graphics anew into its block (a new anonymous "*D" block when it has
    /// none): extension lines, dimension line, arrows and text as its style lays them out. The host
    /// does it when a new dimension is closed; only linear dimensions in a database have graphics.
    Acad::ErrorStatus recomputeDimBlock(bool forceUpdate = true);

protected:
    AcDbDimension() = default;
    /// The measurement of the kind.
    virtual double measureValue() const { return 0.0; }

private:
    friend class AcDbImpDatabase;
    AcDbObjectId m_style;
    std::wstring m_text;
    AcGePoint3d m_textPosition;
    bool m_userTextPosition = false;
    double m_textRotation = 0.0;
    double m_horizontalRotation = 0.0;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    AcDbObjectId m_block;
};

/// A dimension of the distance between two extension line points, measured along their line.
class AcDbAlignedDimension : public AcDbDimension {
public:
    ACDB_DECLARE_MEMBERS(AcDbAlignedDimension);
    AcDbAlignedDimension() = default;
    AcDbAlignedDimension(const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point, const AcGePoint3d& dimLinePoint,
                         const ACHAR* dimText = nullptr, AcDbObjectId dimStyle = AcDbObjectId::kNull);

    AcGePoint3d xLine1Point() const { return m_xLine1; }
    Acad::ErrorStatus setXLine1Point(const AcGePoint3d& point);
    AcGePoint3d xLine2Point() const { return m_xLine2; }
    Acad::ErrorStatus setXLine2Point(const AcGePoint3d& point);
    /// A point on the dimension line.
    AcGePoint3d dimLinePoint() const { return m_dimLine; }
    Acad::ErrorStatus setDimLinePoint(const AcGePoint3d& point);
    /// Radians.
    double oblique() const { return m_oblique; }
    Acad::ErrorStatus setOblique(double angle);

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

protected:
    double measureValue() const override;

private:
    friend class AcDbImpDatabase;
    AcGePoint3d m_xLine1, m_xLine2, m_dimLine;
    double m_oblique = 0.0;
};

/// A linear dimension measured along a direction (the rotation, radians from the X axis).
class AcDbRotatedDimension : public AcDbAlignedDimension {
public:
    ACDB_DECLARE_MEMBERS(AcDbRotatedDimension);
    AcDbRotatedDimension() = default;
    AcDbRotatedDimension(double rotation, const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point,
                         const AcGePoint3d& dimLinePoint, const ACHAR* dimText = nullptr,
                         AcDbObjectId dimStyle = AcDbObjectId::kNull);
    double rotation() const { return m_rotation; }
    Acad::ErrorStatus setRotation(double angle);

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

protected:
    double measureValue() const override;

private:
    double m_rotation = 0.0;
};
