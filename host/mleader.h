// AcDbMLeader: a multileader, leaders with their lines of vertices and one content (multi-line text
// here). The platform keeps its record as the file has it and reads and changes the values in place.
#pragma once
#include "dbmain.h"
#include "mleaderstyle.h"

class AcDbMText;

class AcDbMLeader : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbMLeader);
    /// A new multileader with no leaders and no content, in the values of the Standard style.
    AcDbMLeader();
    ~AcDbMLeader() override = default;

    AcDbObjectId MLeaderStyle() const;
    Acad::ErrorStatus setMLeaderStyle(AcDbObjectId newVal);

    AcMLeaderStyle::ContentType contentType() const;
    Acad::ErrorStatus setContentType(AcMLeaderStyle::ContentType newVal);
    /// A copy of the text content, or null when the leader has none; the caller deletes it.
    AcDbMText* mtext() const;
    /// Takes a copy of the text's contents, location, height, style, width and attachment.
    Acad::ErrorStatus setMText(const AcDbMText* pMText);
    AcDbObjectId textStyleId() const;
    Acad::ErrorStatus setTextStyleId(AcDbObjectId newVal);
    double textHeight() const;
    Acad::ErrorStatus setTextHeight(double newVal);
    Acad::ErrorStatus getTextLocation(AcGePoint3d& location) const;
    Acad::ErrorStatus setTextLocation(const AcGePoint3d& location);
    AcMLeaderStyle::TextAlignmentType textAlignmentType() const;
    Acad::ErrorStatus setTextAlignmentType(AcMLeaderStyle::TextAlignmentType textAlignmentType);
    AcMLeaderStyle::TextAttachmentType textAttachmentType(AcMLeaderStyle::LeaderDirectionType leaderDirection = AcMLeaderStyle::kLeftLeader) const;
    Acad::ErrorStatus setTextAttachmentType(AcMLeaderStyle::TextAttachmentType textAttachmentType,
                                            AcMLeaderStyle::LeaderDirectionType leaderDirection = AcMLeaderStyle::kLeftLeader);
    AcMLeaderStyle::BlockConnectionType blockConnectionType() const;
    Acad::ErrorStatus setBlockConnectionType(AcMLeaderStyle::BlockConnectionType blockConnectionType);
    double doglegLength() const;
    Acad::ErrorStatus setDoglegLength(double doglegLength);
    double arrowSize() const;
    Acad::ErrorStatus setArrowSize(double arrowSize);

    /// Adds a leader (a cluster of leader lines with one dogleg) and gives its index.
    Acad::ErrorStatus addLeader(int& leaderIndex);
    Acad::ErrorStatus removeLeader(int leaderIndex);
    /// Adds an empty leader line to the leader; eInvalidIndex for an unknown leader.
    Acad::ErrorStatus addLeaderLine(int leaderIndex, int& leaderLineIndex);
    /// Adds a leader line from the point to the content, under a new leader when there is none.
    Acad::ErrorStatus addLeaderLine(const AcGePoint3d& point, int& leaderLineIndex);
    Acad::ErrorStatus removeLeaderLine(int leaderLineIndex);
    /// The first vertex is the arrow's end, the last the one at the content.
    Acad::ErrorStatus addFirstVertex(int leaderLineIndex, const AcGePoint3d& point);
    Acad::ErrorStatus addLastVertex(int leaderLineIndex, const AcGePoint3d& point);
    Acad::ErrorStatus getFirstVertex(int leaderLineIndex, AcGePoint3d& point) const;
    Acad::ErrorStatus getLastVertex(int leaderLineIndex, AcGePoint3d& point) const;
    Acad::ErrorStatus numVertices(int leaderLineIndex, int& num) const;
    Acad::ErrorStatus getVertex(int leaderLineIndex, int index, AcGePoint3d& point) const;
    Acad::ErrorStatus setVertex(int leaderLineIndex, int index, const AcGePoint3d& point);
    Acad::ErrorStatus getLeaderIndexes(AcArray<int>& leaderIndexes) const;
    /// eInvalidIndex for an unknown leader.
    Acad::ErrorStatus getLeaderLineIndexes(int leaderIndex, AcArray<int>& leaderLineIndexes) const;
    Acad::ErrorStatus getLeaderIndex(int leaderLineIndex, int& leaderIndex) const;
    Acad::ErrorStatus setDoglegDirection(int leaderIndex, const AcGeVector3d& vector);
    Acad::ErrorStatus getDoglegDirection(int leaderIndex, AcGeVector3d& vec) const;

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
};
