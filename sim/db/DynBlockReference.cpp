// AcDbDynBlockReference and its properties, and the anonymous block that shows a reference's values:
// the definition's entities copied with their actions applied (see DynamicBlock.h).
#include <cmath>
#include <cwchar>
#include <map>
#include <memory>

#include "dbdynblk.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbpl.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/DynamicBlock.h"
#include "sim/db/FileAccess.h"

namespace sim::db {

namespace {

using Chain = std::unique_ptr<resbuf, int (*)(resbuf*)>;

AcDbEvalVariant variantOf(const DynamicValue& v)
{
    switch (v.kind) {
    case DynamicValue::kReal:
        return AcDbEvalVariant(v.real);
    case DynamicValue::kShort:
        return AcDbEvalVariant(v.integer);
    default:
        return AcDbEvalVariant(v.text.c_str());
    }
}

/// The value of a variant in the kind of the property; false for a variant of another kind.
bool valueOf(const AcDbEvalVariant& v, short kind, DynamicValue& out)
{
    out = DynamicValue();
    out.kind = kind;
    AcString text;
    switch (kind) {
    case DynamicValue::kReal:
        return v.getValue(out.real) == Acad::eOk;
    case DynamicValue::kShort:
        return v.getValue(out.integer) == Acad::eOk;
    case DynamicValue::kText:
        if (v.getValue(text) != Acad::eOk)
            return false;
        out.text = text.kwszPtr();
        return true;
    default:
        return false;
    }
}

double numberOf(const DynamicValue& v)
{
    return v.kind == DynamicValue::kReal ? v.real : v.kind == DynamicValue::kShort ? v.integer : 0.0;
}

const DynamicProperty* named(const std::vector<DynamicProperty>& props, const std::wstring& name)
{
    for (const DynamicProperty& p : props)
        if (p.name == name)
            return &p;
    return nullptr;
}

/// The mirror in the line through (x, y) at the angle.
AcGeMatrix3d mirrorMatrix(double x, double y, double angle)
{
    double c = std::cos(2.0 * angle), s = std::sin(2.0 * angle);
    AcGeMatrix3d m;
    m(0, 0) = c;
    m(0, 1) = s;
    m(1, 0) = s;
    m(1, 1) = -c;
    return AcGeMatrix3d::translation(AcGeVector3d(x, y, 0.0)) * m * AcGeMatrix3d::translation(AcGeVector3d(-x, -y, 0.0));
}

/// A text flipped as the host flips it: its anchor mirrored, still readable; its justification
/// swaps sides (left and right for a mirror line nearer the vertical, bottom and top otherwise).
void flipText(AcDbText& t, const AcGeMatrix3d& mirror, double angle)
{
    bool defaultAlignment = t.isDefaultAlignment();
    AcGePoint3d anchor = mirror * (defaultAlignment ? t.position() : t.alignmentPoint());
    AcDb::TextHorzMode h = t.horizontalMode();
    AcDb::TextVertMode v = t.verticalMode();
    if (std::fabs(std::sin(angle)) > std::fabs(std::cos(angle))) {
        if (h == AcDb::kTextLeft)
            h = AcDb::kTextRight;
        else if (h == AcDb::kTextRight)
            h = AcDb::kTextLeft;
    } else if (v == AcDb::kTextTop) {
        v = AcDb::kTextBottom;
    } else if (v == AcDb::kTextBase || v == AcDb::kTextBottom) {
        v = AcDb::kTextTop;
    }
    t.setHorizontalMode(h);
    t.setVerticalMode(v);
    t.setPosition(anchor);
    if (!t.isDefaultAlignment())
        t.setAlignmentPoint(anchor);
    if (auto* def = AcDbAttributeDefinition::cast(&t); def && def->isMTextAttributeDefinition()) {
        std::unique_ptr<AcDbMText> m(def->getMTextAttributeDefinition());
        m->setLocation(anchor);
        def->setMTextAttributeDefinition(m.get());
    }
}

bool inFrame(const AcGePoint3d& p, const DynamicAction& a)
{
    return p.x >= a.minX && p.x <= a.maxX && p.y >= a.minY && p.y <= a.maxY;
}

/// Moves the points of the entity that lie in the frame.
void stretch(AcDbEntity& e, const DynamicAction& a, const AcGeVector3d& by)
{
    if (auto* line = AcDbLine::cast(&e)) {
        if (inFrame(line->startPoint(), a))
            line->setStartPoint(line->startPoint() + by);
        if (inFrame(line->endPoint(), a))
            line->setEndPoint(line->endPoint() + by);
    } else if (auto* pl = AcDbPolyline::cast(&e)) {
        for (unsigned i = 0; i < pl->numVerts(); ++i) {
            AcGePoint3d p;
            pl->getPointAt(i, p);
            if (inFrame(p, a))
                pl->setPointAt(i, AcGePoint2d(p.x + by.x, p.y + by.y));
        }
    } else if (auto* t = AcDbText::cast(&e)) {
        if (inFrame(t->isDefaultAlignment() ? t->position() : t->alignmentPoint(), a))
            t->transformBy(AcGeMatrix3d::translation(by));
    } else if (auto* c = AcDbCircle::cast(&e)) {
        if (inFrame(c->center(), a))
            c->setCenter(c->center() + by);
    }
}

/// Applies the actions to a copy of a definition's entity; false when the entity doesn't show.
bool apply(AcDbEntity& e, const std::vector<DynamicAction>& actions, const std::vector<DynamicProperty>& values,
           const std::vector<DynamicProperty>& defaults)
{
    for (const DynamicAction& a : actions) {
        const DynamicProperty* value = named(values, a.property);
        const DynamicProperty* def = named(defaults, a.property);
        if (!value || !def)
            continue;
        switch (a.kind) {
        case DynamicAction::kVisible:
            if (value->value.kind == DynamicValue::kText && value->value.text != a.value)
                return false;
            break;
        case DynamicAction::kFlip:
            if (numberOf(value->value) != 0.0) {
                AcGeMatrix3d m = mirrorMatrix(a.x, a.y, a.angle);
                if (auto* t = AcDbText::cast(&e))
                    flipText(*t, m, a.angle);
                else
                    e.transformBy(m);
            }
            break;
        case DynamicAction::kStretch: {
            double d = numberOf(value->value) - numberOf(def->value);
            AcGeVector3d by(a.x * d, a.y * d, 0.0);
            if (!by.isZeroLength())
                stretch(e, a, by);
            break;
        }
        }
    }
    return true;
}

/// The X scale of a reference, as a length: distances of its block are this many drawing units.
double referenceScale(const AcDbBlockReference& ref)
{
    const double sx = std::fabs(ref.scaleFactors().sx);
    return sx > 0.0 ? sx : 1.0;
}

AcDbObjectId idOfHandle(AcDbDatabase* db, const wchar_t* hex)
{
    AcDbObjectId id;
    if (!db || !hex || db->getAcDbObjectId(id, false, AcDbHandle(hex)) != Acad::eOk)
        return AcDbObjectId::kNull;
    return id;
}

/// The anonymous block of the values: copies of the definition's entities with their actions.
AcDbObjectId buildRepresentation(AcDbDatabase* db, AcDbObjectId definitionId, const std::vector<DynamicProperty>& values)
{
    AcDbBlockTableRecordPointer def(definitionId, AcDb::kForRead);
    if (def.openStatus() != Acad::eOk)
        return AcDbObjectId::kNull;
    std::vector<DynamicProperty> defaults = dynamicProperties(*def.object());
    AcDbBlockTablePointer table(db, AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk)
        return AcDbObjectId::kNull;
    AcDbObjectPointer<AcDbBlockTableRecord> rep;
    rep.create();
    rep->setName(L"*U");
    rep->setOrigin(def->origin());
    AcDbObjectId repId;
    if (table->add(repId, rep.object()) != Acad::eOk)
        return AcDbObjectId::kNull;
    table.close();
    wchar_t handle[32];
    std::swprintf(handle, 32, L"%llX", static_cast<unsigned long long>(definitionId.handle().value()));
    Chain tag(acutBuildList(AcDb::kDxfRegAppName, kBlockRepApp, AcDb::kDxfXdInteger16, 1, AcDb::kDxfXdHandle, handle, 0),
              acutRelRb);
    rep->setXData(tag.get());
    // An annotative definition shows through an annotative block.
    Chain annotative(def->xData(L"AcadAnnotative"), acutRelRb);
    if (annotative)
        rep->setXData(annotative.get());
    for (AcDbObjectId id : entityIds(def.object())) {
        AcDbEntityPointer src(id, AcDb::kForRead);
        if (src.openStatus() != Acad::eOk)
            continue;
        std::unique_ptr<AcDbEntity> copy(static_cast<AcDbEntity*>(src->clone()));
        // The copy keeps the source's extended data but not its actions: they are spent.
        Chain none(acutBuildList(AcDb::kDxfRegAppName, kDynamicActionApp, 0), acutRelRb);
        copy->setXData(none.get());
        if (!apply(*copy, dynamicActions(*src.object()), values, defaults))
            continue;
        if (rep->appendAcDbEntity(copy.get()) == Acad::eOk)
            copy.release()->close();
    }
    return repId;
}

/// Moves each attribute where its definition went in the new block, keeping its text, multi-line
/// form and properties.
void placeAttributes(AcDbBlockReference& ref, AcDbObjectId repId)
{
    std::map<std::wstring, AcDbAttributeDefinition*> defs;
    std::vector<std::unique_ptr<AcDbAttributeDefinition>> held;
    AcDbBlockTableRecordPointer rep(repId, AcDb::kForRead);
    if (rep.openStatus() != Acad::eOk)
        return;
    for (AcDbObjectId id : entityIds(rep.object()))
        if (auto* d = AcDbAttributeDefinition::cast(objectOf(id)); d && !d->isErased())
            defs[d->tagConst()] = d;
    AcGeMatrix3d xform = ref.blockTransform();
    for (AcDbObjectId id : attributeIds(&ref)) {
        AcDbObjectPointer<AcDbAttribute> attr(id, AcDb::kForWrite);
        if (attr.openStatus() != Acad::eOk)
            continue;
        auto def = defs.find(attr->tagConst());
        if (def == defs.end())
            continue;
        std::wstring text = attr->textStringConst();
        std::unique_ptr<AcDbMText> mtext(attr->getMTextAttribute());
        AcString contents;
        if (mtext)
            mtext->contents(contents);
        AcCmColor color = attr->color();
        AcDbObjectId layer = attr->layerId(), linetype = attr->linetypeId();
        AcDb::LineWeight weight = attr->lineWeight();
        attr->setAttributeFromBlock(def->second, xform);
        attr->setTextString(text.c_str());
        attr->setColor(color);
        attr->setLayer(layer);
        attr->setLinetype(linetype);
        attr->setLineWeight(weight);
        if (mtext) {
            attr->convertIntoMTextAttribute(true);
            std::unique_ptr<AcDbMText> placed(attr->getMTextAttribute());
            placed->setContents(contents.kwszPtr());
            attr->setMTextAttribute(placed.get());
        }
    }
}

} // namespace

AcDbObjectId dynamicDefinitionOf(AcDbObjectId btrId)
{
    auto* btr = AcDbBlockTableRecord::cast(objectOf(btrId));
    if (!btr)
        return AcDbObjectId::kNull;
    if (!dynamicProperties(*btr).empty())
        return btrId;
    Chain tag(btr->xData(kBlockRepApp), acutRelRb);
    for (const resbuf* rb = tag ? tag->rbnext : nullptr; rb; rb = rb->rbnext)
        if (rb->restype == AcDb::kDxfXdHandle) {
            AcDbObjectId def = idOfHandle(btr->database(), rb->resval.rstring);
            auto* d = AcDbBlockTableRecord::cast(objectOf(def));
            return d && !d->isErased() && !dynamicProperties(*d).empty() ? def : AcDbObjectId::kNull;
        }
    return AcDbObjectId::kNull;
}

std::vector<DynamicProperty> currentProperties(const AcDbBlockReference& ref, AcDbObjectId definition)
{
    auto* def = AcDbBlockTableRecord::cast(objectOf(definition));
    if (!def)
        return {};
    std::vector<DynamicProperty> props = dynamicProperties(*def);
    // Distances read in the drawing's units: the definition's, in block units, scaled as the
    // reference is.
    for (DynamicProperty& p : props)
        if (p.value.kind == DynamicValue::kReal)
            p.value.real *= referenceScale(ref);
    for (const DynamicProperty& own : dynamicProperties(ref))
        for (DynamicProperty& p : props)
            if (p.name == own.name && p.value.kind == own.value.kind)
                p.value = own.value;
    return props;
}

Acad::ErrorStatus showCurrentValues(AcDbBlockReference& ref)
{
    AcDbObjectId old = ref.blockTableRecord();
    AcDbObjectId def = dynamicDefinitionOf(old);
    if (def.isNull())
        return Acad::eNotApplicable;
    std::vector<DynamicProperty> values = currentProperties(ref, def);
    for (DynamicProperty& p : values)
        if (p.value.kind == DynamicValue::kReal)
            p.value.real /= referenceScale(ref);
    AcDbObjectId rep = buildRepresentation(ref.database(), def, values);
    if (rep.isNull())
        return Acad::eInvalidContext;
    Acad::ErrorStatus es = ref.setBlockTableRecord(rep);
    if (es != Acad::eOk)
        return es;
    placeAttributes(ref, rep);
    if (old != def) {
        AcDbBlockTableRecordPointer former(old, AcDb::kForWrite);
        AcDbObjectIdArray users;
        if (former.openStatus() == Acad::eOk && former->getBlockReferenceIds(users) == Acad::eOk && users.isEmpty())
            former->erase();
    }
    return Acad::eOk;
}

} // namespace sim::db

using namespace sim::db;

// --- AcDbDynBlockReference ----------------------------------------------------------------------

AcDbDynBlockReference::AcDbDynBlockReference(AcDbObjectId blockRefId) : m_ref(blockRefId) {}

AcDbDynBlockReference::AcDbDynBlockReference(AcDbBlockReference* pRef)
    : m_ref(pRef ? pRef->objectId() : AcDbObjectId::kNull), m_open(pRef)
{
}

bool AcDbDynBlockReference::isDynamicBlock(AcDbObjectId blockTableRecordId)
{
    return !dynamicDefinitionOf(blockTableRecordId).isNull();
}

namespace {

const AcDbBlockReference* referenceOf(AcDbObjectId id, AcDbBlockReference* open)
{
    if (open)
        return open;
    auto* ref = AcDbBlockReference::cast(objectOf(id));
    return ref && !ref->isErased() ? ref : nullptr;
}

} // namespace

bool AcDbDynBlockReference::isDynamicBlock() const { return !dynamicBlockTableRecord().isNull(); }

AcDbObjectId AcDbDynBlockReference::dynamicBlockTableRecord() const
{
    const AcDbBlockReference* ref = referenceOf(m_ref, m_open);
    return ref ? dynamicDefinitionOf(ref->blockTableRecord()) : AcDbObjectId::kNull;
}

AcDbObjectId AcDbDynBlockReference::anonymousBlockTableRecord() const
{
    const AcDbBlockReference* ref = referenceOf(m_ref, m_open);
    if (!ref)
        return AcDbObjectId::kNull;
    AcDbObjectId def = dynamicDefinitionOf(ref->blockTableRecord());
    return def.isNull() || def == ref->blockTableRecord() ? AcDbObjectId::kNull : ref->blockTableRecord();
}

void AcDbDynBlockReference::getBlockProperties(AcDbDynBlockReferencePropertyArray& properties) const
{
    properties.removeAll();
    const AcDbBlockReference* ref = referenceOf(m_ref, m_open);
    AcDbObjectId def = ref ? dynamicDefinitionOf(ref->blockTableRecord()) : AcDbObjectId::kNull;
    if (def.isNull())
        return;
    for (const DynamicProperty& p : currentProperties(*ref, def)) {
        AcDbDynBlockReferenceProperty prop;
        prop.m_ref = m_ref;
        prop.m_open = m_open;
        prop.m_name = p.name;
        prop.m_value = variantOf(p.value);
        for (const DynamicValue& v : p.allowed)
            prop.m_allowed.append(variantOf(v));
        properties.append(prop);
    }
}

Acad::ErrorStatus AcDbDynBlockReference::resetBlock()
{
    AcDbObjectPointer<AcDbBlockReference> opened;
    AcDbBlockReference* ref = m_open;
    if (!ref) {
        if (opened.open(m_ref, AcDb::kForWrite) != Acad::eOk)
            return opened.openStatus();
        ref = opened.object();
    }
    if (!sim::db::beginChange(ref))
        return Acad::eNotOpenForWrite;
    Chain none(acutBuildList(AcDb::kDxfRegAppName, kDynamicBlockApp, 0), acutRelRb);
    ref->setXData(none.get());
    return showCurrentValues(*ref);
}

Acad::ErrorStatus AcDbDynBlockReferenceProperty::setValue(const AcDbEvalVariant& value)
{
    AcDbObjectPointer<AcDbBlockReference> opened;
    AcDbBlockReference* ref = m_open;
    if (!ref) {
        if (opened.open(m_ref, AcDb::kForWrite) != Acad::eOk)
            return opened.openStatus();
        ref = opened.object();
    }
    if (!sim::db::beginChange(ref))
        return Acad::eNotOpenForWrite;
    AcDbObjectId def = dynamicDefinitionOf(ref->blockTableRecord());
    std::vector<DynamicProperty> props = currentProperties(*ref, def);
    DynamicProperty* target = nullptr;
    for (DynamicProperty& p : props)
        if (p.name == m_name)
            target = &p;
    DynamicValue v;
    if (!target || !valueOf(value, target->value.kind, v))
        return Acad::eInvalidInput;
    if (!target->allowed.empty()) {
        bool allowed = false;
        for (const DynamicValue& a : target->allowed)
            allowed = allowed || a == v;
        if (!allowed)
            return Acad::eInvalidInput;
    }
    target->value = v;
    for (DynamicProperty& p : props)
        p.allowed.clear();
    Chain data(dynamicPropertiesXData(props, false), acutRelRb);
    Acad::ErrorStatus es = ref->setXData(data.get());
    if (es != Acad::eOk)
        return es;
    m_value = value;
    return showCurrentValues(*ref);
}
