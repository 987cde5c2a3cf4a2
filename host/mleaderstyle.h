// AcDbMLeaderStyle: a multileader style, kept in the dictionary ACAD_MLEADERSTYLE of the named
// objects dictionary under its name.
#pragma once
#include "dbmain.h"

class AcDbMLeaderStyle : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbMLeaderStyle);
    /// A new style with the values of the host's Standard style (millimetres).
    AcDbMLeaderStyle();
    ~AcDbMLeaderStyle() override = default;

    enum ContentType { kNoneContent = 0, kBlockContent = 1, kMTextContent = 2, kToleranceContent = 3 };
    enum LeaderType { kInVisibleLeader = 0, kStraightLeader = 1, kSplineLeader = 2 };
    enum TextAttachmentType {
        kAttachmentTopOfTop = 0,
        kAttachmentMiddleOfTop = 1,
        kAttachmentBottomOfTop = 2,
        kAttachmentBottomOfTopLine = 3,
        kAttachmentMiddle = 4,
        kAttachmentMiddleOfBottom = 5,
        kAttachmentBottomOfBottom = 6,
        kAttachmentBottomLine = 7,
        kAttachmentAllLine = 8,
        kAttachmentCenter = 9,
        kAttachmentLinedCenter = 10,
    };
    enum LeaderDirectionType { kUnknownLeader = 0, kLeftLeader = 1, kRightLeader = 2, kTopLeader = 3, kBottomLeader = 4 };
    enum TextAlignmentType { kLeftAlignment = 0, kCenterAlignment = 1, kRightAlignment = 2 };
    enum BlockConnectionType { kConnectExtents = 0, kConnectBase = 1 };
    enum TextAttachmentDirection { kAttachmentHorizontal = 0, kAttachmentVertical = 1 };

    /// The name the style bears in the dictionary (its 3 group is the description). The caller
    /// frees the copy with acutDelString (delete[]).
    Acad::ErrorStatus getName(ACHAR*& pszName) const;
    const ACHAR* getName() const;
    /// eInvalidInput for an empty name. A style in the dictionary is renamed there too
    /// (eDuplicateKey when another style has the name).
    Acad::ErrorStatus setName(const ACHAR* pszName);
    const ACHAR* description() const;
    Acad::ErrorStatus setDescription(const ACHAR* pszDescription);

    AcDbObjectId textStyleId() const;
    Acad::ErrorStatus setTextStyleId(AcDbObjectId newVal);
    double textHeight() const;
    /// eInvalidInput for a value below zero.
    Acad::ErrorStatus setTextHeight(double newVal);
    LeaderType leaderLineType() const;
    Acad::ErrorStatus setLeaderLineType(LeaderType newVal);
    TextAttachmentType textAttachmentType(LeaderDirectionType leaderDirection = kLeftLeader) const;
    /// For the left (kLeftLeader) or right (kRightLeader) leader direction; eInvalidInput for others.
    Acad::ErrorStatus setTextAttachmentType(TextAttachmentType textAttachmentType, LeaderDirectionType leaderDirection = kLeftLeader);
    double arrowSize() const;
    Acad::ErrorStatus setArrowSize(double newVal);
    ContentType contentType() const;
    Acad::ErrorStatus setContentType(ContentType newVal);
    double doglegLength() const;
    Acad::ErrorStatus setDoglegLength(double newVal);
    double landingGap() const;
    Acad::ErrorStatus setLandingGap(double newVal);
    bool textAlignAlwaysLeft() const;
    Acad::ErrorStatus setTextAlignAlwaysLeft(bool bAlignAlwaysLeft);
    double alignSpace() const;
    Acad::ErrorStatus setAlignSpace(double newVal);
    AcDbObjectId leaderLineTypeId() const;
    Acad::ErrorStatus setLeaderLineTypeId(AcDbObjectId newVal);
    bool enableLanding() const;
    Acad::ErrorStatus setEnableLanding(bool enabled);
    bool enableDogleg() const;
    Acad::ErrorStatus setEnableDogleg(bool enabled);
    /// The arrow's block; null for the closed filled arrow.
    AcDbObjectId arrowSymbolId() const;
    Acad::ErrorStatus setArrowSymbolId(AcDbObjectId arrowSymbol);
    /// The arrow by block name; eKeyNotFound for a block the database lacks ("" for the default).
    Acad::ErrorStatus setArrowSymbolId(const ACHAR* name);
    bool annotative() const;
    Acad::ErrorStatus setAnnotative(bool isAnnotative);
    double scale() const;
    Acad::ErrorStatus setScale(double scale);

    /// Adds the style to the database's ACAD_MLEADERSTYLE under the name, or gives the id of the
    /// style that bears it.
    Acad::ErrorStatus postMLeaderStyleToDb(AcDbDatabase* pDb, const ACHAR* styleName, AcDbObjectId& mleaderStyleId);

private:
    /// The name while the style is in no dictionary.
    mutable std::wstring m_name;
};

/// The SDK's other spelling of the style's enumerations.
typedef AcDbMLeaderStyle AcMLeaderStyle;
