// AcDbAttributeDefinition and AcDbAttribute: tags, flags, the multi-line form, and an attribute made
// from its definition.
#include <cwchar>
#include <cwctype>

#include "dbents.h"
#include "dbmtext.h"
#include "sim/db/DefineMembers.h"

SIM_DB_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText, L"ATTDEF")
SIM_DB_DEFINE_MEMBERS(AcDbAttribute, AcDbText, L"ATTRIB")

namespace {

ACHAR* copyString(const std::wstring& s)
{
    auto* out = new ACHAR[s.size() + 1];
    std::wmemcpy(out, s.c_str(), s.size() + 1);
    return out;
}

AcDbMText* copyMText(const AcDbMText* m) { return m ? static_cast<AcDbMText*>(m->clone()) : nullptr; }

/// A tag is one word.
bool validTag(const ACHAR* tag)
{
    if (!tag || !*tag)
        return false;
    for (const ACHAR* p = tag; *p; ++p)
        if (std::iswspace(static_cast<wint_t>(*p)))
            return false;
    return true;
}

/// The multi-line form of a single-line text: same text, place, height, rotation and style.
AcDbMText* mtextFrom(const AcDbText& t)
{
    auto* m = new AcDbMText;
    m->setContents(t.textStringConst());
    m->setNormal(t.normal());
    m->setLocation(t.isDefaultAlignment() ? t.position() : t.alignmentPoint());
    if (t.height() > 0)
        m->setTextHeight(t.height());
    m->setRotation(t.rotation());
    m->setTextStyle(t.textStyle());
    int row = t.verticalMode() == AcDb::kTextTop ? 0 : t.verticalMode() == AcDb::kTextVertMid ? 1 : 2;
    int col = t.horizontalMode() == AcDb::kTextRight ? 2
              : (t.horizontalMode() == AcDb::kTextLeft) ? 0
                                                        : 1;
    m->setAttachment(static_cast<AcDbMText::AttachmentPoint>(1 + row * 3 + col));
    return m;
}

} // namespace

// --- definition -------------------------------------------------------------------------------

AcDbAttributeDefinition::AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                                                 const ACHAR* prompt, AcDbObjectId style)
    : AcDbText(position, text, style), m_tag(tag ? tag : L""), m_prompt(prompt ? prompt : L"")
{
}

AcDbAttributeDefinition::AcDbAttributeDefinition(const AcDbAttributeDefinition& other)
    : AcDbText(other), m_tag(other.m_tag), m_prompt(other.m_prompt), m_flags(other.m_flags), m_fieldLength(other.m_fieldLength),
      m_lockPosition(other.m_lockPosition), m_mtext(copyMText(other.m_mtext))
{
}

AcDbAttributeDefinition& AcDbAttributeDefinition::operator=(const AcDbAttributeDefinition& other)
{
    if (this != &other) {
        AcDbText::operator=(other);
        m_tag = other.m_tag;
        m_prompt = other.m_prompt;
        m_flags = other.m_flags;
        m_fieldLength = other.m_fieldLength;
        m_lockPosition = other.m_lockPosition;
        AcDbMText* m = copyMText(other.m_mtext);
        delete m_mtext;
        m_mtext = m;
    }
    return *this;
}

AcDbAttributeDefinition::~AcDbAttributeDefinition() { delete m_mtext; }

ACHAR* AcDbAttributeDefinition::prompt() const { return copyString(m_prompt); }
Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt)
{
    SIM_DB_ASSERT_WRITE();
    m_prompt = prompt ? prompt : L"";
    return Acad::eOk;
}
ACHAR* AcDbAttributeDefinition::tag() const { return copyString(m_tag); }
Acad::ErrorStatus AcDbAttributeDefinition::setTag(const ACHAR* tag)
{
    SIM_DB_ASSERT_WRITE();
    if (!validTag(tag))
        return Acad::eInvalidInput;
    m_tag = tag;
    return Acad::eOk;
}

#define SIM_DB_FLAG_SETTER(CLASS, SETTER, BIT)                                                     \
    Acad::ErrorStatus CLASS::SETTER(bool val)                                                      \
    {                                                                                              \
        SIM_DB_ASSERT_WRITE();                                                                     \
        m_flags = val ? (m_flags | BIT) : (m_flags & ~BIT);                                        \
        return Acad::eOk;                                                                          \
    }

SIM_DB_FLAG_SETTER(AcDbAttributeDefinition, setInvisible, 1)
SIM_DB_FLAG_SETTER(AcDbAttributeDefinition, setConstant, 2)
SIM_DB_FLAG_SETTER(AcDbAttributeDefinition, setVerifiable, 4)
SIM_DB_FLAG_SETTER(AcDbAttributeDefinition, setPreset, 8)
SIM_DB_FLAG_SETTER(AcDbAttribute, setInvisible, 1)

Acad::ErrorStatus AcDbAttributeDefinition::setFieldLength(Adesk::UInt16 len)
{
    SIM_DB_ASSERT_WRITE();
    m_fieldLength = len;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAttributeDefinition::setLockPositionInBlock(bool bValue)
{
    SIM_DB_ASSERT_WRITE();
    m_lockPosition = bValue;
    return Acad::eOk;
}
AcDbMText* AcDbAttributeDefinition::getMTextAttributeDefinition() const { return copyMText(m_mtext); }
Acad::ErrorStatus AcDbAttributeDefinition::setMTextAttributeDefinition(AcDbMText* pMText)
{
    SIM_DB_ASSERT_WRITE();
    if (!pMText)
        return Acad::eNullObjectPointer;
    AcDbMText* m = copyMText(pMText);
    delete m_mtext;
    m_mtext = m;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAttributeDefinition::convertIntoMTextAttributeDefinition(bool val)
{
    SIM_DB_ASSERT_WRITE();
    if (val == isMTextAttributeDefinition())
        return Acad::eOk;
    if (val) {
        m_mtext = mtextFrom(*this);
    } else {
        ACHAR* plain = m_mtext->text();
        setTextString(plain);
        delete[] plain;
        delete m_mtext;
        m_mtext = nullptr;
    }
    return Acad::eOk;
}

// --- attribute --------------------------------------------------------------------------------

AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, AcDbObjectId style)
    : AcDbText(position, text, style), m_tag(tag ? tag : L"")
{
}

AcDbAttribute::AcDbAttribute(const AcDbAttribute& other)
    : AcDbText(other), m_tag(other.m_tag), m_flags(other.m_flags), m_fieldLength(other.m_fieldLength),
      m_lockPosition(other.m_lockPosition), m_mtext(copyMText(other.m_mtext))
{
}

AcDbAttribute& AcDbAttribute::operator=(const AcDbAttribute& other)
{
    if (this != &other) {
        AcDbText::operator=(other);
        m_tag = other.m_tag;
        m_flags = other.m_flags;
        m_fieldLength = other.m_fieldLength;
        m_lockPosition = other.m_lockPosition;
        AcDbMText* m = copyMText(other.m_mtext);
        delete m_mtext;
        m_mtext = m;
    }
    return *this;
}

AcDbAttribute::~AcDbAttribute() { delete m_mtext; }

ACHAR* AcDbAttribute::tag() const { return copyString(m_tag); }
Acad::ErrorStatus AcDbAttribute::setTag(const ACHAR* tag)
{
    SIM_DB_ASSERT_WRITE();
    if (!validTag(tag))
        return Acad::eInvalidInput;
    m_tag = tag;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAttribute::setFieldLength(Adesk::UInt16 len)
{
    SIM_DB_ASSERT_WRITE();
    m_fieldLength = len;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbAttribute::setLockPositionInBlock(bool bValue)
{
    SIM_DB_ASSERT_WRITE();
    m_lockPosition = bValue;
    return Acad::eOk;
}

AcDbMText* AcDbAttribute::getMTextAttribute() const { return copyMText(m_mtext); }

Acad::ErrorStatus AcDbAttribute::setMTextAttribute(AcDbMText* pMText)
{
    SIM_DB_ASSERT_WRITE();
    if (!pMText)
        return Acad::eNullObjectPointer;
    AcDbMText* m = copyMText(pMText);
    delete m_mtext;
    m_mtext = m;
    return updateMTextAttribute();
}

Acad::ErrorStatus AcDbAttribute::convertIntoMTextAttribute(bool val)
{
    SIM_DB_ASSERT_WRITE();
    if (val == isMTextAttribute())
        return Acad::eOk;
    if (val) {
        m_mtext = mtextFrom(*this);
        return Acad::eOk;
    }
    Acad::ErrorStatus es = updateMTextAttribute();
    delete m_mtext;
    m_mtext = nullptr;
    return es;
}

Acad::ErrorStatus AcDbAttribute::updateMTextAttribute()
{
    SIM_DB_ASSERT_WRITE();
    if (!m_mtext)
        return Acad::eNotApplicable;
    ACHAR* plain = m_mtext->text();
    Acad::ErrorStatus es = setTextString(plain);
    delete[] plain;
    return es;
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcGeMatrix3d& blkXform)
{
    SIM_DB_ASSERT_WRITE();
    return transformBy(blkXform);
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcDbAttributeDefinition* pAttdef, const AcGeMatrix3d& blkXform)
{
    SIM_DB_ASSERT_WRITE();
    if (!pAttdef)
        return Acad::eNullObjectPointer;
    // The geometry and text of the definition, in block coordinates.
    setTextString(pAttdef->textStringConst());
    setTextStyle(pAttdef->textStyle());
    setHorizontalMode(pAttdef->horizontalMode());
    setVerticalMode(pAttdef->verticalMode());
    setPosition(pAttdef->position());
    setAlignmentPoint(pAttdef->alignmentPoint());
    setNormal(pAttdef->normal());
    setRotation(pAttdef->rotation());
    if (pAttdef->height() > 0)
        setHeight(pAttdef->height());
    setWidthFactor(pAttdef->widthFactor());
    setOblique(pAttdef->oblique());
    setThickness(pAttdef->thickness());
    mirrorInX(pAttdef->isMirroredInX());
    mirrorInY(pAttdef->isMirroredInY());
    m_tag = pAttdef->tagConst();
    m_flags = (pAttdef->isInvisible() ? 1 : 0) | (pAttdef->isConstant() ? 2 : 0) | (pAttdef->isVerifiable() ? 4 : 0) |
              (pAttdef->isPreset() ? 8 : 0);
    m_fieldLength = pAttdef->fieldLength();
    m_lockPosition = pAttdef->lockPositionInBlock();
    // The definition's properties, where they belong to the attribute's database.
    if (!database() || pAttdef->database() == database()) {
        setColor(pAttdef->color());
        if (!pAttdef->layerId().isNull())
            setLayer(pAttdef->layerId());
        if (!pAttdef->linetypeId().isNull())
            setLinetype(pAttdef->linetypeId());
        setLineWeight(pAttdef->lineWeight());
        setLinetypeScale(pAttdef->linetypeScale());
    }
    delete m_mtext;
    m_mtext = pAttdef->getMTextAttributeDefinition();
    if (m_mtext)
        m_mtext->transformBy(blkXform);
    return AcDbText::transformBy(blkXform);
}

Acad::ErrorStatus AcDbAttribute::transformBy(const AcGeMatrix3d& xform)
{
    SIM_DB_ASSERT_WRITE();
    if (m_mtext)
        m_mtext->transformBy(xform);
    return AcDbText::transformBy(xform);
}
