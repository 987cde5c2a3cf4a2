// The symbol tables of a drawing (blocks, layers, text styles, line types, views, UCSs, viewports,
// registered applications, dimension styles), their records and iterators. Names are looked up
// without regard to case; a record keeps the spelling it was given.
#pragma once
#include <map>
#include <string>
#include <variant>
#include <vector>
#include "dbmain.h"
#include "gepnt2d.h"
#include "gevec2d.h"

class AcDbSymbolTable;
class AcDbBlockTableRecordIterator;

// The character set and the pitch and family of a TrueType font, as text styles keep them.
enum Charset {
    kUndefinedCharset = -1,
    kAnsiCharset = 0,
    kDefaultCharset = 1,
    kSymbolCharset = 2,
    kMacCharset = 77,
    kShiftJISCharset = 128,
    kHangeulCharset = 129,
    kJohabCharset = 130,
    kGB2312Charset = 134,
    kChineseBig5Charset = 136,
    kGreekCharset = 161,
    kTurkishCharset = 162,
    kVietnameseCharset = 163,
    kHebrewCharset = 177,
    kArabicCharset = 178,
    kBalticCharset = 186,
    kRussianCharset = 204,
    kThaiCharset = 222,
    kEastEuropeCharset = 238,
    kOEMCharset = 255,
};
namespace Autodesk::AutoCAD::PAL::FontUtils {
enum class FontPitch { kDefault = 0, kFixed = 1, kVariable = 2 };
enum class FontFamily { kDoNotCare = 0, kRoman = 16, kSwiss = 32, kModern = 48, kScript = 64, kDecorative = 80 };
} // namespace Autodesk::AutoCAD::PAL::FontUtils

/// A named record of a symbol table.
class AcDbSymbolTableRecord : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbSymbolTableRecord);
    AcDbSymbolTableRecord() = default;
    typedef AcDbSymbolTable TableType;

    /// A copy the caller frees with acutDelString (delete[]).
    Acad::ErrorStatus getName(ACHAR*& pName) const;
    Acad::ErrorStatus getName(AcString& sName) const;
    /// The record's own buffer, valid while the record is open.
    Acad::ErrorStatus getName(const ACHAR*& pName) const;
    /// eInvalidSymbolTableName for an empty name or one with characters names cannot hold;
    /// eDuplicateRecordName (95) when another record of the table has the name (compared without
    /// regard to case; checked for a record that is in a database).
    Acad::ErrorStatus setName(const ACHAR* pName);
    /// A record that comes from an external reference (its name holds "|").
    bool isDependent() const;
    bool isResolved() const { return true; }
    bool isRenamable() const;

private:
    friend class AcDbImpDatabase;
    std::wstring m_name;
};

/// Walks the records of a table in the order they were added. The caller deletes it.
class AcDbSymbolTableIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableIterator);
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& pRecord, AcDb::OpenMode openMode = AcDb::kForRead,
                                bool openErasedRec = false) const;
    /// eKeyNotFound when the table has no such record.
    Acad::ErrorStatus seek(AcDbObjectId id);

protected:
    friend class AcDbSymbolTable;
    AcDbSymbolTableIterator(AcDbObjectId tableId, bool atBeginning, bool skipDeleted);
    void skipErased(bool forward);
    AcDbObjectId m_table;
    int m_pos = 0;
};

/// A table of named records.
class AcDbSymbolTable : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbSymbolTable);
    AcDbSymbolTable() = default;
    typedef AcDbSymbolTableRecord RecordType;

    /// eKeyNotFound when no record has the name; an erased record counts only with getErasedRecord.
    Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbObjectId& recordId, bool getErasedRecord = false) const;
    Acad::ErrorStatus getIdAt(const ACHAR* entryName, AcDbObjectId& recordId, bool getErasedRecord = false) const
    {
        return getAt(entryName, recordId, getErasedRecord);
    }
    Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbSymbolTableRecord*& pRec, AcDb::OpenMode openMode,
                            bool openErasedRec = false) const;
    /// A record of this name that is not erased.
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& pIterator, bool atBeginning = true, bool skipDeleted = true) const;
    /// Adds a new record (of the table's kind) to the database and the table, which must be open for
    /// write. eDuplicateRecordName (95) when the name is taken; the record stays the caller's then.
    /// The record is left open for write.
    Acad::ErrorStatus add(AcDbSymbolTableRecord* pRecord);
    Acad::ErrorStatus add(AcDbObjectId& recordId, AcDbSymbolTableRecord* pRecord);

private:
    friend class AcDbImpDatabase;
    friend class AcDbSymbolTableIterator;
    std::vector<AcDbObjectId> m_records;
};

// Each table, its record and iterator: the typed forms of getAt, add, newIterator and getRecord.
#define ACDB_DECLARE_SYMBOL_TABLE(TABLE, RECORD, ITERATOR)                                               \
    class RECORD;                                                                                       \
    class TABLE;                                                                                        \
    class ITERATOR : public AcDbSymbolTableIterator {                                                   \
    public:                                                                                             \
        ACRX_DECLARE_MEMBERS(ITERATOR);                                                                 \
        Acad::ErrorStatus getRecord(RECORD*& pRecord, AcDb::OpenMode openMode = AcDb::kForRead,         \
                                    bool openErasedRec = false) const;                                  \
                                                                                                        \
    protected:                                                                                          \
        friend class TABLE;                                                                             \
        ITERATOR(AcDbObjectId tableId, bool atBeginning, bool skipDeleted)                              \
            : AcDbSymbolTableIterator(tableId, atBeginning, skipDeleted) {}                             \
    };                                                                                                  \
    class TABLE : public AcDbSymbolTable {                                                              \
    public:                                                                                             \
        ACDB_DECLARE_MEMBERS(TABLE);                                                                    \
        TABLE() = default;                                                                              \
        typedef RECORD RecordType;                                                                      \
        using AcDbSymbolTable::getAt;                                                                   \
        Acad::ErrorStatus getAt(const ACHAR* entryName, RECORD*& pRec, AcDb::OpenMode openMode,         \
                                bool openErasedRec = false) const;                                      \
        Acad::ErrorStatus newIterator(ITERATOR*& pIterator, bool atBeginning = true,                    \
                                      bool skipDeleted = true) const;                                   \
        Acad::ErrorStatus add(RECORD* pRecord);                                                         \
        Acad::ErrorStatus add(AcDbObjectId& recordId, RECORD* pRecord);                                 \
    };

ACDB_DECLARE_SYMBOL_TABLE(AcDbBlockTable, AcDbBlockTableRecord, AcDbBlockTableIterator)
ACDB_DECLARE_SYMBOL_TABLE(AcDbLayerTable, AcDbLayerTableRecord, AcDbLayerTableIterator)
ACDB_DECLARE_SYMBOL_TABLE(AcDbTextStyleTable, AcDbTextStyleTableRecord, AcDbTextStyleTableIterator)
ACDB_DECLARE_SYMBOL_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord, AcDbLinetypeTableIterator)
ACDB_DECLARE_SYMBOL_TABLE(AcDbViewTable, AcDbViewTableRecord, AcDbViewTableIterator)
ACDB_DECLARE_SYMBOL_TABLE(AcDbUCSTable, AcDbUCSTableRecord, AcDbUCSTableIterator)
ACDB_DECLARE_SYMBOL_TABLE(AcDbViewportTable, AcDbViewportTableRecord, AcDbViewportTableIterator)
ACDB_DECLARE_SYMBOL_TABLE(AcDbRegAppTable, AcDbRegAppTableRecord, AcDbRegAppTableIterator)
ACDB_DECLARE_SYMBOL_TABLE(AcDbDimStyleTable, AcDbDimStyleTableRecord, AcDbDimStyleTableIterator)

/// The block table's names of model space and of the first paper space.
#define ACDB_MODEL_SPACE L"*Model_Space"
#define ACDB_PAPER_SPACE L"*Paper_Space"

/// The begin and end markers of a block definition (the BLOCK and ENDBLK of a drawing file).
class AcDbBlockBegin : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbBlockBegin);
    AcDbBlockBegin() = default;
};
class AcDbBlockEnd : public AcDbEntity {
public:
    ACDB_DECLARE_MEMBERS(AcDbBlockEnd);
    AcDbBlockEnd() = default;
};

/// A block definition, or model space, or a paper space layout: an ordered list of entities.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbBlockTableRecord);
    AcDbBlockTableRecord() = default;
    typedef AcDbBlockTable TableType;

    /// Adds a new entity to the database and the end of this record, which must be open for write
    /// and in a database. The entity is left open for write; an entity without a layer takes the
    /// database's current layer and line type. eAlreadyInDb for an entity that is in a database,
    /// eWrongDatabase for one whose layer or line type belongs to another database.
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* pEntity);
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& pOutputId, AcDbEntity* pEntity);
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& pIterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    Acad::ErrorStatus comments(ACHAR*& pString) const;
    Acad::ErrorStatus comments(const ACHAR*& pString) const;
    Acad::ErrorStatus setComments(const ACHAR* pString);
    /// The file of an external reference; empty for a block of this drawing.
    Acad::ErrorStatus pathName(ACHAR*& pPath) const;
    Acad::ErrorStatus pathName(const ACHAR*& pPath) const;
    Acad::ErrorStatus setPathName(const ACHAR* pathStr);
    /// The base point, in block coordinates.
    AcGePoint3d origin() const { return m_origin; }
    Acad::ErrorStatus setOrigin(const AcGePoint3d& pt);

    bool hasAttributeDefinitions() const;
    /// A name of the form "*U..." (or any name that begins with "*" other than the spaces).
    bool isAnonymous() const;
    /// Model space or a paper space layout.
    bool isLayout() const;
    AcDbObjectId getLayoutId() const { return m_layoutId; }
    Acad::ErrorStatus setLayoutId(AcDbObjectId id);
    bool isFromExternalReference() const { return !m_path.empty(); }
    bool isFromOverlayReference() const { return m_overlay; }
    Acad::ErrorStatus setIsFromOverlayReference(bool bIsOverlay);
    /// The block references of this definition in the database (erased ones excepted).
    Acad::ErrorStatus getBlockReferenceIds(AcDbObjectIdArray& ids, bool bDirectOnly = true, bool bForceValidity = false) const;
    Acad::ErrorStatus openBlockBegin(AcDbBlockBegin*& pBlockBegin, AcDb::OpenMode openMode = AcDb::kForRead);
    Acad::ErrorStatus openBlockEnd(AcDbBlockEnd*& pBlockEnd, AcDb::OpenMode openMode = AcDb::kForRead);

private:
    friend class AcDbImpDatabase;
    friend class AcDbBlockTableRecordIterator;
    std::vector<AcDbObjectId> m_entities;
    AcGePoint3d m_origin;
    std::wstring m_comments;
    std::wstring m_path;
    bool m_overlay = false;
    AcDbObjectId m_layoutId;
    AcDbObjectId m_blockBegin;
    AcDbObjectId m_blockEnd;
};

/// Walks the entities of a block table record in order. The caller deletes it.
class AcDbBlockTableRecordIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecordIterator);
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getEntityId(AcDbObjectId& entityId) const;
    Acad::ErrorStatus getEntity(AcDbEntity*& pEntity, AcDb::OpenMode openMode = AcDb::kForRead, bool openErasedEntity = false) const;
    AcDbBlockTableRecord* blockTableRecord() const;
    Acad::ErrorStatus seek(AcDbObjectId id);

private:
    friend class AcDbBlockTableRecord;
    AcDbBlockTableRecordIterator(AcDbObjectId recordId, bool atBeginning, bool skipDeleted);
    void skipErased(bool forward);
    AcDbObjectId m_record;
    int m_pos = 0;
};

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcDbLayerTableRecord() = default;
    typedef AcDbLayerTable TableType;

    bool isFrozen() const { return m_frozen; }
    Acad::ErrorStatus setIsFrozen(bool frozen);
    bool isOff() const { return m_off; }
    void setIsOff(bool off);
    bool isLocked() const { return m_locked; }
    void setIsLocked(bool locked);
    AcCmColor color() const { return m_color; }
    void setColor(const AcCmColor& color);
    AcCmEntityColor entityColor() const { return m_color.entityColor(); }
    AcDbObjectId linetypeObjectId() const { return m_linetype; }
    Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId id);
    AcDb::LineWeight lineWeight() const { return m_lineWeight; }
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);
    bool isPlottable() const { return m_plottable; }
    Acad::ErrorStatus setIsPlottable(bool plot);
    /// A copy the caller frees with acutDelString (delete[]).
    ACHAR* description() const;
    Acad::ErrorStatus setDescription(const ACHAR* description);
    bool isHidden() const { return m_hidden; }
    Acad::ErrorStatus setIsHidden(bool on);

private:
    friend class AcDbImpDatabase;
    bool m_frozen = false;
    bool m_off = false;
    bool m_locked = false;
    bool m_plottable = true;
    bool m_hidden = false;
    AcCmColor m_color = AcCmColor(AcCmEntityColor::kByACI);
    AcDbObjectId m_linetype;
    AcDb::LineWeight m_lineWeight = AcDb::kLnWtByLwDefault;
    std::wstring m_description;
};

/// A line type: its pattern of dashes, gaps, shapes and texts.
class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
    AcDbLinetypeTableRecord() = default;
    typedef AcDbLinetypeTable TableType;

    /// The description shown beside the pattern.
    Acad::ErrorStatus comments(ACHAR*& pString) const;
    Acad::ErrorStatus comments(const ACHAR*& pString) const;
    Acad::ErrorStatus setComments(const ACHAR* pString);
    Acad::ErrorStatus asciiDescription(ACHAR*& pString) const { return comments(pString); }
    Acad::ErrorStatus setAsciiDescription(const ACHAR* pString) { return setComments(pString); }
    double patternLength() const { return m_patternLength; }
    Acad::ErrorStatus setPatternLength(double patternLength);
    bool isScaledToFit() const { return m_scaledToFit; }
    void setIsScaledToFit(bool scaledToFit);

    int numDashes() const { return static_cast<int>(m_dashes.size()); }
    /// Resizes the dash list; new dashes are zero gaps.
    Acad::ErrorStatus setNumDashes(int count);
    /// Positive a dash, negative a gap, 0 a dot. An index out of range gives 0 (and the setters
    /// eInvalidIndex).
    double dashLengthAt(int index) const;
    Acad::ErrorStatus setDashLengthAt(int index, double value);
    /// The text style (of a shape file) of a shape or text dash.
    AcDbObjectId shapeStyleAt(int index) const;
    Acad::ErrorStatus setShapeStyleAt(int index, AcDbObjectId id);
    /// The shape's number in its file; 0 for none.
    int shapeNumberAt(int index) const;
    Acad::ErrorStatus setShapeNumberAt(int index, int shapeNumber);
    AcGeVector2d shapeOffsetAt(int index) const;
    Acad::ErrorStatus setShapeOffsetAt(int index, const AcGeVector2d& offset);
    double shapeScaleAt(int index) const;
    Acad::ErrorStatus setShapeScaleAt(int index, double scale);
    /// Radians.
    double shapeRotationAt(int index) const;
    Acad::ErrorStatus setShapeRotationAt(int index, double rotation);
    bool shapeIsUcsOrientedAt(int index) const;
    Acad::ErrorStatus setShapeIsUcsOrientedAt(int index, bool isUcsOriented);
    bool shapeIsUprightAt(int index) const;
    Acad::ErrorStatus setShapeIsUprightAt(int index, bool isUpright);
    /// The text of a text dash; empty for none.
    Acad::ErrorStatus textAt(int index, ACHAR*& text) const;
    Acad::ErrorStatus textAt(int index, const ACHAR*& text) const;
    Acad::ErrorStatus setTextAt(int index, const ACHAR* text);

private:
    friend class AcDbImpDatabase;
    struct Dash {
        double length = 0.0;
        AcDbObjectId shapeStyle;
        int shapeNumber = 0;
        AcGeVector2d offset;
        double scale = 1.0;
        double rotation = 0.0;
        bool ucsOriented = false;
        bool upright = false;
        std::wstring text;
    };
    std::wstring m_comments;
    double m_patternLength = 0.0;
    bool m_scaledToFit = false;
    std::vector<Dash> m_dashes;
};

/// A text style: a font (a shape file or a TrueType face) and the default height, width and slant.
class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    AcDbTextStyleTableRecord() = default;
    typedef AcDbTextStyleTable TableType;

    /// A record that only loads a shape file (for the shapes of line types).
    bool isShapeFile() const { return m_shapeFile; }
    void setIsShapeFile(bool shapeFile);
    bool isVertical() const { return m_vertical; }
    void setIsVertical(bool vertical);
    /// The fixed height; 0 lets each text choose.
    double textSize() const { return m_textSize; }
    Acad::ErrorStatus setTextSize(double size);
    double xScale() const { return m_xScale; }
    Acad::ErrorStatus setXScale(double xScale);
    /// Radians.
    double obliquingAngle() const { return m_obliquingAngle; }
    Acad::ErrorStatus setObliquingAngle(double obliquingAngle);
    /// 2 backwards, 4 upside down.
    Adesk::UInt8 flagBits() const { return m_flagBits; }
    void setFlagBits(Adesk::UInt8 flagBits);
    double priorSize() const { return m_priorSize; }
    Acad::ErrorStatus setPriorSize(double priorSize);
    Acad::ErrorStatus fileName(ACHAR*& fileName) const;
    Acad::ErrorStatus fileName(const ACHAR*& fileName) const;
    Acad::ErrorStatus setFileName(const ACHAR* fileName);
    Acad::ErrorStatus bigFontFileName(ACHAR*& fileName) const;
    Acad::ErrorStatus bigFontFileName(const ACHAR*& fileName) const;
    Acad::ErrorStatus setBigFontFileName(const ACHAR* fileName);
    /// The TrueType face; the caller frees the name with acutDelString (delete[]).
    Acad::ErrorStatus font(ACHAR*& pTypeface, bool& bold, bool& italic, Charset& charset,
                           Autodesk::AutoCAD::PAL::FontUtils::FontPitch& pitch,
                           Autodesk::AutoCAD::PAL::FontUtils::FontFamily& family) const;
    /// A face the system does not have is an error unless bAllowMissingFont.
    Acad::ErrorStatus setFont(const ACHAR* pTypeface, bool bold, bool italic, Charset charset,
                              Autodesk::AutoCAD::PAL::FontUtils::FontPitch pitch,
                              Autodesk::AutoCAD::PAL::FontUtils::FontFamily family, bool bAllowMissingFont = false);

private:
    friend class AcDbImpDatabase;
    bool m_shapeFile = false;
    bool m_vertical = false;
    double m_textSize = 0.0;
    double m_xScale = 1.0;
    double m_obliquingAngle = 0.0;
    Adesk::UInt8 m_flagBits = 0;
    double m_priorSize = 2.5;
    std::wstring m_fileName;
    std::wstring m_bigFontFileName;
    std::wstring m_typeface;
    bool m_bold = false;
    bool m_italic = false;
    Charset m_charset = kAnsiCharset;
    Autodesk::AutoCAD::PAL::FontUtils::FontPitch m_pitch = Autodesk::AutoCAD::PAL::FontUtils::FontPitch::kDefault;
    Autodesk::AutoCAD::PAL::FontUtils::FontFamily m_family = Autodesk::AutoCAD::PAL::FontUtils::FontFamily::kDoNotCare;
};

/// A dimension style: the DIM variables, each kept under its DXF group code. A variable that was
/// never set answers the host's default.
class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbDimStyleTableRecord);
    AcDbDimStyleTableRecord() = default;
    typedef AcDbDimStyleTable TableType;

    /// One value: a real, an integer (also flags and characters), a text, an object or a colour.
    typedef std::variant<double, int, std::wstring, AcDbObjectId, AcCmColor> Value;

    AcCmColor dimclrd() const;
    AcCmColor dimclre() const;
    AcCmColor dimclrt() const;
    Acad::ErrorStatus setDimclrd(const AcCmColor& val);
    Acad::ErrorStatus setDimclre(const AcCmColor& val);
    Acad::ErrorStatus setDimclrt(const AcCmColor& val);
    bool dimfxlenOn() const;
    Acad::ErrorStatus setDimfxlenOn(bool val);
    double dimfxlen() const;
    Acad::ErrorStatus setDimfxlen(double val);
    double dimasz() const;
    Acad::ErrorStatus setDimasz(double val);
    double dimscale() const;
    Acad::ErrorStatus setDimscale(double val);
    double dimdle() const;
    Acad::ErrorStatus setDimdle(double val);
    double dimexo() const;
    Acad::ErrorStatus setDimexo(double val);
    double dimexe() const;
    Acad::ErrorStatus setDimexe(double val);
    double dimgap() const;
    Acad::ErrorStatus setDimgap(double val);
    ACHAR dimdsep() const;
    Acad::ErrorStatus setDimdsep(ACHAR val);
    int dimlunit() const;
    Acad::ErrorStatus setDimlunit(int val);
    bool dimsah() const;
    Acad::ErrorStatus setDimsah(bool val);
    bool dimsoxd() const;
    Acad::ErrorStatus setDimsoxd(bool val);
    bool dimtofl() const;
    Acad::ErrorStatus setDimtofl(bool val);
    bool dimtih() const;
    Acad::ErrorStatus setDimtih(bool val);
    bool dimtoh() const;
    Acad::ErrorStatus setDimtoh(bool val);
    bool dimtix() const;
    Acad::ErrorStatus setDimtix(bool val);
    double dimtxt() const;
    Acad::ErrorStatus setDimtxt(double val);
    AcDbObjectId dimtxsty() const;
    Acad::ErrorStatus setDimtxsty(AcDbObjectId val);
    /// The arrow block; null for the closed filled default.
    AcDbObjectId dimblk() const;
    /// The arrow block's name ("" for the closed filled default).
    const ACHAR* dimblkName() const;
    /// By name: the drawing's block, or a predefined arrow ("_OBLIQUE", "_DOT", ...) whose block is
    /// made as the host makes it; eKeyNotFound for another name without a block.
    Acad::ErrorStatus setDimblk(const ACHAR* val);
    Acad::ErrorStatus setDimblk(AcDbObjectId val);
    double dimlfac() const;
    Acad::ErrorStatus setDimlfac(double val);
    const ACHAR* dimpost() const;
    Acad::ErrorStatus setDimpost(const ACHAR* val);
    double dimrnd() const;
    Acad::ErrorStatus setDimrnd(double val);
    int dimdec() const;
    Acad::ErrorStatus setDimdec(int val);
    bool dimsd1() const;
    Acad::ErrorStatus setDimsd1(bool val);
    bool dimsd2() const;
    Acad::ErrorStatus setDimsd2(bool val);
    bool dimse1() const;
    Acad::ErrorStatus setDimse1(bool val);
    bool dimse2() const;
    Acad::ErrorStatus setDimse2(bool val);
    int dimatfit() const;
    Acad::ErrorStatus setDimatfit(int val);
    int dimtad() const;
    Acad::ErrorStatus setDimtad(int val);
    double dimtvp() const;
    Acad::ErrorStatus setDimtvp(double val);
    int dimtmove() const;
    Acad::ErrorStatus setDimtmove(int val);
    bool dimupt() const;
    Acad::ErrorStatus setDimupt(bool val);
    int dimjust() const;
    Acad::ErrorStatus setDimjust(int val);
    int dimzin() const;
    Acad::ErrorStatus setDimzin(int val);

private:
    friend class AcDbImpDatabase;
    Acad::ErrorStatus setValue(int dxfCode, Value value);
    const Value* value(int dxfCode) const;
    std::map<int, Value> m_values;
};

/// A named user coordinate system.
class AcDbUCSTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbUCSTableRecord);
    AcDbUCSTableRecord() = default;
    typedef AcDbUCSTable TableType;

    AcGePoint3d origin() const { return m_origin; }
    void setOrigin(const AcGePoint3d& newOrigin);
    AcGeVector3d xAxis() const { return m_xAxis; }
    void setXAxis(const AcGeVector3d& xAxis);
    AcGeVector3d yAxis() const { return m_yAxis; }
    void setYAxis(const AcGeVector3d& yAxis);

private:
    AcGePoint3d m_origin;
    AcGeVector3d m_xAxis = AcGeVector3d::kXAxis;
    AcGeVector3d m_yAxis = AcGeVector3d::kYAxis;
};

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbRegAppTableRecord);
    AcDbRegAppTableRecord() = default;
    typedef AcDbRegAppTable TableType;
};

/// What views and viewports share: the view's centre and size in display coordinates and where it
/// looks from.
class AcDbAbstractViewTableRecord : public AcDbSymbolTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbAbstractViewTableRecord);
    AcDbAbstractViewTableRecord() = default;

    AcGePoint2d centerPoint() const { return m_center; }
    void setCenterPoint(const AcGePoint2d& pt);
    double height() const { return m_height; }
    void setHeight(double height);
    double width() const { return m_width; }
    void setWidth(double width);
    AcGePoint3d target() const { return m_target; }
    void setTarget(const AcGePoint3d& target);
    AcGeVector3d viewDirection() const { return m_viewDirection; }
    void setViewDirection(const AcGeVector3d& viewDirection);
    /// Radians.
    double viewTwist() const { return m_viewTwist; }
    void setViewTwist(double angle);
    double lensLength() const { return m_lensLength; }
    void setLensLength(double length);

private:
    AcGePoint2d m_center;
    double m_height = 1.0;
    double m_width = 1.0;
    AcGePoint3d m_target;
    AcGeVector3d m_viewDirection = AcGeVector3d::kZAxis;
    double m_viewTwist = 0.0;
    double m_lensLength = 50.0;
};

class AcDbViewTableRecord : public AcDbAbstractViewTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbViewTableRecord);
    AcDbViewTableRecord() = default;
    typedef AcDbViewTable TableType;
    bool isPaperspaceView() const { return m_paperspace; }
    void setIsPaperspaceView(bool pspace);

private:
    bool m_paperspace = false;
};

/// A tiled viewport of model space ("*Active" is the current one).
class AcDbViewportTableRecord : public AcDbAbstractViewTableRecord {
public:
    ACDB_DECLARE_MEMBERS(AcDbViewportTableRecord);
    AcDbViewportTableRecord() = default;
    typedef AcDbViewportTable TableType;

    /// The viewport's place on the screen, 0 to 1 in both directions.
    AcGePoint2d lowerLeftCorner() const { return m_lowerLeft; }
    void setLowerLeftCorner(const AcGePoint2d& pt);
    AcGePoint2d upperRightCorner() const { return m_upperRight; }
    void setUpperRightCorner(const AcGePoint2d& pt);

private:
    AcGePoint2d m_lowerLeft{0.0, 0.0};
    AcGePoint2d m_upperRight{1.0, 1.0};
};
