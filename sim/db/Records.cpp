// The records of the layer, line type, text style, UCS, view and viewport tables.
#include <cwchar>

#include "dbsymtb.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/ImpDatabase.h"

namespace {
Acad::ErrorStatus copyOut(const std::wstring& s, ACHAR*& out)
{
    out = new ACHAR[s.size() + 1];
    std::wmemcpy(out, s.c_str(), s.size() + 1);
    return Acad::eOk;
}
} // namespace

// --- layer ------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen)
{
    SIM_DB_ASSERT_WRITE();
    m_frozen = frozen;
    return Acad::eOk;
}
void AcDbLayerTableRecord::setIsOff(bool off)
{
    if (sim::db::beginChange(this))
        m_off = off;
}
void AcDbLayerTableRecord::setIsLocked(bool locked)
{
    if (sim::db::beginChange(this))
        m_locked = locked;
}
void AcDbLayerTableRecord::setColor(const AcCmColor& color)
{
    // A layer has a colour of its own: neither by layer nor by block.
    if (sim::db::beginChange(this) && !color.isByLayer() && !color.isByBlock())
        m_color = color;
}
Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id)
{
    SIM_DB_ASSERT_WRITE();
    if (id.isNull())
        return Acad::eNullObjectId;
    if (AcDbObject* obj = AcDbImpDatabase::lookup(id); !AcDbLinetypeTableRecord::cast(obj))
        return obj ? Acad::eWrongObjectType : Acad::eUnknownHandle;
    m_linetype = id;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight)
{
    SIM_DB_ASSERT_WRITE();
    // Layers take a real weight or the default, not an inherited one.
    if (weight == AcDb::kLnWtByLayer || weight == AcDb::kLnWtByBlock)
        return Acad::eInvalidInput;
    m_lineWeight = weight;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool plot)
{
    SIM_DB_ASSERT_WRITE();
    m_plottable = plot;
    return Acad::eOk;
}
ACHAR* AcDbLayerTableRecord::description() const
{
    ACHAR* out = nullptr;
    copyOut(m_description, out);
    return out;
}
Acad::ErrorStatus AcDbLayerTableRecord::setDescription(const ACHAR* description)
{
    SIM_DB_ASSERT_WRITE();
    m_description = description ? description : L"";
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsHidden(bool on)
{
    SIM_DB_ASSERT_WRITE();
    m_hidden = on;
    return Acad::eOk;
}

// --- line type --------------------------------------------------------------------------------

Acad::ErrorStatus AcDbLinetypeTableRecord::comments(ACHAR*& pString) const { return copyOut(m_comments, pString); }
Acad::ErrorStatus AcDbLinetypeTableRecord::comments(const ACHAR*& pString) const
{
    pString = m_comments.c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const ACHAR* pString)
{
    SIM_DB_ASSERT_WRITE();
    m_comments = pString ? pString : L"";
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setPatternLength(double patternLength)
{
    SIM_DB_ASSERT_WRITE();
    if (patternLength < 0.0)
        return Acad::eInvalidInput;
    m_patternLength = patternLength;
    return Acad::eOk;
}
void AcDbLinetypeTableRecord::setIsScaledToFit(bool scaledToFit)
{
    if (sim::db::beginChange(this))
        m_scaledToFit = scaledToFit;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setNumDashes(int count)
{
    SIM_DB_ASSERT_WRITE();
    if (count < 0 || count > 12)
        return Acad::eInvalidInput;
    m_dashes.resize(static_cast<size_t>(count));
    return Acad::eOk;
}

#define SIM_DB_DASH_ACCESS(GETTER, SETTER, TYPE, FIELD, NONE)                                      \
    TYPE AcDbLinetypeTableRecord::GETTER(int index) const                                          \
    {                                                                                              \
        return index >= 0 && index < numDashes() ? m_dashes[static_cast<size_t>(index)].FIELD : NONE; \
    }                                                                                              \
    Acad::ErrorStatus AcDbLinetypeTableRecord::SETTER(int index, TYPE value)                       \
    {                                                                                              \
        SIM_DB_ASSERT_WRITE();                                                                     \
        if (index < 0 || index >= numDashes())                                                     \
            return Acad::eInvalidIndex;                                                            \
        m_dashes[static_cast<size_t>(index)].FIELD = value;                                        \
        return Acad::eOk;                                                                          \
    }

SIM_DB_DASH_ACCESS(dashLengthAt, setDashLengthAt, double, length, 0.0)
SIM_DB_DASH_ACCESS(shapeStyleAt, setShapeStyleAt, AcDbObjectId, shapeStyle, AcDbObjectId::kNull)
SIM_DB_DASH_ACCESS(shapeNumberAt, setShapeNumberAt, int, shapeNumber, 0)
SIM_DB_DASH_ACCESS(shapeScaleAt, setShapeScaleAt, double, scale, 0.0)
SIM_DB_DASH_ACCESS(shapeRotationAt, setShapeRotationAt, double, rotation, 0.0)
SIM_DB_DASH_ACCESS(shapeIsUcsOrientedAt, setShapeIsUcsOrientedAt, bool, ucsOriented, false)
SIM_DB_DASH_ACCESS(shapeIsUprightAt, setShapeIsUprightAt, bool, upright, false)

AcGeVector2d AcDbLinetypeTableRecord::shapeOffsetAt(int index) const
{
    return index >= 0 && index < numDashes() ? m_dashes[static_cast<size_t>(index)].offset : AcGeVector2d();
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeOffsetAt(int index, const AcGeVector2d& offset)
{
    SIM_DB_ASSERT_WRITE();
    if (index < 0 || index >= numDashes())
        return Acad::eInvalidIndex;
    m_dashes[static_cast<size_t>(index)].offset = offset;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::textAt(int index, ACHAR*& text) const
{
    text = nullptr;
    if (index < 0 || index >= numDashes())
        return Acad::eInvalidIndex;
    return copyOut(m_dashes[static_cast<size_t>(index)].text, text);
}
Acad::ErrorStatus AcDbLinetypeTableRecord::textAt(int index, const ACHAR*& text) const
{
    text = nullptr;
    if (index < 0 || index >= numDashes())
        return Acad::eInvalidIndex;
    text = m_dashes[static_cast<size_t>(index)].text.c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setTextAt(int index, const ACHAR* text)
{
    SIM_DB_ASSERT_WRITE();
    if (index < 0 || index >= numDashes())
        return Acad::eInvalidIndex;
    m_dashes[static_cast<size_t>(index)].text = text ? text : L"";
    return Acad::eOk;
}

// --- text style -------------------------------------------------------------------------------

void AcDbTextStyleTableRecord::setIsShapeFile(bool shapeFile)
{
    if (sim::db::beginChange(this))
        m_shapeFile = shapeFile;
}
void AcDbTextStyleTableRecord::setIsVertical(bool vertical)
{
    if (sim::db::beginChange(this))
        m_vertical = vertical;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size)
{
    SIM_DB_ASSERT_WRITE();
    if (size < 0.0)
        return Acad::eInvalidInput;
    m_textSize = size;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double xScale)
{
    SIM_DB_ASSERT_WRITE();
    if (!(xScale > 0.0))
        return Acad::eInvalidInput;
    m_xScale = xScale;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double obliquingAngle)
{
    SIM_DB_ASSERT_WRITE();
    m_obliquingAngle = obliquingAngle;
    return Acad::eOk;
}
void AcDbTextStyleTableRecord::setFlagBits(Adesk::UInt8 flagBits)
{
    if (sim::db::beginChange(this))
        m_flagBits = flagBits;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setPriorSize(double priorSize)
{
    SIM_DB_ASSERT_WRITE();
    if (priorSize < 0.0)
        return Acad::eInvalidInput;
    m_priorSize = priorSize;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(ACHAR*& fileName) const { return copyOut(m_fileName, fileName); }
Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(const ACHAR*& fileName) const
{
    fileName = m_fileName.c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* fileName)
{
    SIM_DB_ASSERT_WRITE();
    m_fileName = fileName ? fileName : L"";
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(ACHAR*& fileName) const { return copyOut(m_bigFontFileName, fileName); }
Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(const ACHAR*& fileName) const
{
    fileName = m_bigFontFileName.c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const ACHAR* fileName)
{
    SIM_DB_ASSERT_WRITE();
    m_bigFontFileName = fileName ? fileName : L"";
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::font(ACHAR*& pTypeface, bool& bold, bool& italic, Charset& charset,
                                                 Autodesk::AutoCAD::PAL::FontUtils::FontPitch& pitch,
                                                 Autodesk::AutoCAD::PAL::FontUtils::FontFamily& family) const
{
    copyOut(m_typeface, pTypeface);
    bold = m_bold;
    italic = m_italic;
    charset = m_charset;
    pitch = m_pitch;
    family = m_family;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setFont(const ACHAR* pTypeface, bool bold, bool italic, Charset charset,
                                                    Autodesk::AutoCAD::PAL::FontUtils::FontPitch pitch,
                                                    Autodesk::AutoCAD::PAL::FontUtils::FontFamily family, bool bAllowMissingFont)
{
    SIM_DB_ASSERT_WRITE();
    // The platform has no fonts of its own: every face counts as missing.
    if (pTypeface && *pTypeface && !bAllowMissingFont)
        return Acad::eInvalidInput;
    m_typeface = pTypeface ? pTypeface : L"";
    m_bold = bold;
    m_italic = italic;
    m_charset = charset;
    m_pitch = pitch;
    m_family = family;
    return Acad::eOk;
}

// --- UCS, views, viewports --------------------------------------------------------------------

void AcDbUCSTableRecord::setOrigin(const AcGePoint3d& newOrigin)
{
    if (sim::db::beginChange(this))
        m_origin = newOrigin;
}
void AcDbUCSTableRecord::setXAxis(const AcGeVector3d& xAxis)
{
    if (sim::db::beginChange(this))
        m_xAxis = xAxis;
}
void AcDbUCSTableRecord::setYAxis(const AcGeVector3d& yAxis)
{
    if (sim::db::beginChange(this))
        m_yAxis = yAxis;
}

#define SIM_DB_VOID_SETTER(CLASS, SETTER, TYPE, FIELD)                                             \
    void CLASS::SETTER(TYPE value)                                                                 \
    {                                                                                              \
        if (sim::db::beginChange(this))                                                                      \
            FIELD = value;                                                                         \
    }

SIM_DB_VOID_SETTER(AcDbAbstractViewTableRecord, setCenterPoint, const AcGePoint2d&, m_center)
SIM_DB_VOID_SETTER(AcDbAbstractViewTableRecord, setHeight, double, m_height)
SIM_DB_VOID_SETTER(AcDbAbstractViewTableRecord, setWidth, double, m_width)
SIM_DB_VOID_SETTER(AcDbAbstractViewTableRecord, setTarget, const AcGePoint3d&, m_target)
SIM_DB_VOID_SETTER(AcDbAbstractViewTableRecord, setViewDirection, const AcGeVector3d&, m_viewDirection)
SIM_DB_VOID_SETTER(AcDbAbstractViewTableRecord, setViewTwist, double, m_viewTwist)
SIM_DB_VOID_SETTER(AcDbAbstractViewTableRecord, setLensLength, double, m_lensLength)
SIM_DB_VOID_SETTER(AcDbViewTableRecord, setIsPaperspaceView, bool, m_paperspace)
SIM_DB_VOID_SETTER(AcDbViewportTableRecord, setLowerLeftCorner, const AcGePoint2d&, m_lowerLeft)
SIM_DB_VOID_SETTER(AcDbViewportTableRecord, setUpperRightCorner, const AcGePoint2d&, m_upperRight)
