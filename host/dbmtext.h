// AcDbMText: multi-line text with inline formatting codes, placed at a location by one of nine
// attachment points.
#pragma once
#include <string>
#include "dbmain.h"

class AcDbMText : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbMText);
    AcDbMText() = default;

    enum AttachmentPoint {
        kTopLeft = 1,
        kTopCenter = 2,
        kTopRight = 3,
        kMiddleLeft = 4,
        kMiddleCenter = 5,
        kMiddleRight = 6,
        kBottomLeft = 7,
        kBottomCenter = 8,
        kBottomRight = 9,
        kBaseLeft = 10,
        kBaseCenter = 11,
        kBaseRight = 12,
        kBaseAlign = 13,
        kBottomAlign = 14,
        kMiddleAlign = 15,
        kTopAlign = 16,
        kBaseFit = 17,
        kBottomFit = 18,
        kMiddleFit = 19,
        kTopFit = 20,
        kBaseMid = 21,
        kBottomMid = 22,
        kMiddleMid = 23,
        kTopMid = 24,
    };
    enum FlowDirection {
        kLtoR = 1,
        kRtoL = 2,
        kTtoB = 3,
        kBtoT = 4,
        kByStyle = 5,
    };

    AcGePoint3d location() const { return m_location; }
    Acad::ErrorStatus setLocation(const AcGePoint3d& point);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    /// The direction of the text's X axis in world coordinates.
    AcGeVector3d direction() const { return m_direction; }
    Acad::ErrorStatus setDirection(const AcGeVector3d& direction);
    /// Radians, the direction's angle in the text's plane.
    double rotation() const;
    Acad::ErrorStatus setRotation(double angle);
    /// The width of the column; 0 for no wrapping.
    double width() const { return m_width; }
    Acad::ErrorStatus setWidth(double width);
    double textHeight() const { return m_textHeight; }
    Acad::ErrorStatus setTextHeight(double height);
    AttachmentPoint attachment() const { return m_attachment; }
    Acad::ErrorStatus setAttachment(AttachmentPoint attachment);
    FlowDirection flowDirection() const { return m_flow; }
    Acad::ErrorStatus setFlowDirection(FlowDirection flow);
    AcDbObjectId textStyle() const { return m_style; }
    Acad::ErrorStatus setTextStyle(AcDbObjectId textStyle);
    double lineSpacingFactor() const { return m_lineSpacing; }
    Acad::ErrorStatus setLineSpacingFactor(double factor);

    /// The text with its formatting codes; a copy the caller frees with acutDelString (delete[]).
    ACHAR* contents() const;
    Acad::ErrorStatus contents(AcString& sContents) const;
    /// Gives the length of the new contents.
    int setContents(const ACHAR* text);
    /// The text without formatting codes; a copy the caller frees with acutDelString (delete[]).
    ACHAR* text() const;

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

private:
    friend class AcDbImpDatabase;
    AcGePoint3d m_location;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    AcGeVector3d m_direction = AcGeVector3d::kXAxis;
    double m_width = 0.0;
    double m_textHeight = 0.0;
    AttachmentPoint m_attachment = kTopLeft;
    FlowDirection m_flow = kLtoR;
    AcDbObjectId m_style;
    double m_lineSpacing = 1.0;
    std::wstring m_contents;
};
