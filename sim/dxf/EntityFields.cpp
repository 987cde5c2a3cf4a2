// Fields that several entity codecs share.
#include "sim/dxf/EntityFields.h"

#include <cstdlib>
#include <functional>
#include <optional>
#include <string>

#include "sim/core/Session.h"
#include "sim/db/FileAccess.h"
#include "sim/db/Geometry.h"
#include "sim/dxf/Angles.h"

namespace sim::dxf {

namespace {

using Ref = ReadContext::Ref;

bool isZAxis(const AcGeVector3d& v) { return v.x == 0.0 && v.y == 0.0 && v.z == 1.0; }

/// Multi-line text goes to the file in pieces of 250 characters: 3 for all but the last, 1.
constexpr size_t kChunk = 250;

/// The three values of a point group as written, and back.
std::string joined(const Tag* x, const Tag* y, const Tag* z)
{
    std::string s(x->value);
    s += '\n';
    if (y)
        s += y->value;
    s += '\n';
    if (z)
        s += z->value;
    return s;
}

bool split(std::string_view s, std::string_view parts[3], double values[3])
{
    for (int i = 0; i < 3; ++i) {
        size_t end = i < 2 ? s.find('\n') : s.size();
        if (end == std::string_view::npos)
            return false;
        parts[i] = s.substr(0, end);
        values[i] = parts[i].empty() ? 0.0 : std::strtod(std::string(parts[i]).c_str(), nullptr);
        s.remove_prefix(i < 2 ? end + 1 : end);
    }
    return true;
}

bool sameBits(const AcGePoint3d& a, const AcGePoint3d& b) { return a.x == b.x && a.y == b.y && a.z == b.z; }

/// The point as written under a code (the kept text), while it still gives the point; else false.
bool writeKept(ObjectWriter& w, int code, const std::function<bool(const AcGePoint3d&)>& fits)
{
    std::optional<std::string_view> kept = w.keptValue(code);
    std::string_view parts[3];
    double v[3];
    if (!kept || !split(*kept, parts, v) || !fits(AcGePoint3d(v[0], v[1], v[2])))
        return false;
    for (int i = 0; i < 3; ++i)
        if (i < 2 || !parts[i].empty())
            w.out.write(code + 10 * i, parts[i]);
    return true;
}

} // namespace

AcGeVector3d readNormal(Fields& f)
{
    const Tag* x = f.take(210);
    if (!x)
        return AcGeVector3d::kZAxis;
    const Tag* y = f.take(220);
    const Tag* z = f.take(230);
    AcGeVector3d v(x->real, y ? y->real : 0.0, z ? z->real : 0.0);
    if (!v.isZeroLength() && !sameBits(AcGePoint3d::kOrigin + v, AcGePoint3d::kOrigin + v.normal()))
        f.keepValue(210, joined(x, y, z));
    return v;
}

void writeNormal(ObjectWriter& w, const AcGeVector3d& n)
{
    if (isZAxis(n))
        return;
    auto fits = [&](const AcGePoint3d& p) {
        AcGeVector3d v = p.asVector();
        return !v.isZeroLength() && sameBits(AcGePoint3d::kOrigin + v.normal(), AcGePoint3d::kOrigin + n);
    };
    if (!writeKept(w, 210, fits))
        w.out.point(210, n);
}

AcGePoint3d readOcsPoint(Fields& f, int code, const AcGeVector3d& n)
{
    if (isZAxis(n))
        return f.point(code);
    const Tag* x = f.take(code);
    if (!x)
        return sim::db::geom::ocsToWcs(n, AcGePoint3d::kOrigin);
    const Tag* y = f.take(code + 10);
    const Tag* z = f.take(code + 20);
    f.keepValue(code, joined(x, y, z));
    return sim::db::geom::ocsToWcs(n, AcGePoint3d(x->real, y ? y->real : 0.0, z ? z->real : 0.0));
}

void writeOcsPoint(ObjectWriter& w, int code, const AcGeVector3d& n, const AcGePoint3d& wcs)
{
    if (isZAxis(n)) {
        w.out.point(code, wcs);
        return;
    }
    auto fits = [&](const AcGePoint3d& ocs) { return sameBits(sim::db::geom::ocsToWcs(n, ocs), wcs); };
    if (!writeKept(w, code, fits))
        w.out.point(code, sim::db::geom::wcsToOcs(n, wcs));
}

AcCmColor readColor(int index, const Tag* trueColor)
{
    AcCmColor c;
    if (index == 0)
        c.setByBlock();
    else if (index >= 1 && index <= 255)
        c.setColorIndex(static_cast<Adesk::UInt16>(index));
    else if (index == 257)
        c.setNone();
    if (trueColor) {
        auto rgb = static_cast<Adesk::UInt32>(trueColor->integer);
        c.setRGB(static_cast<Adesk::UInt8>(rgb >> 16), static_cast<Adesk::UInt8>(rgb >> 8), static_cast<Adesk::UInt8>(rgb));
    }
    return c;
}

void writeColor(TagWriter& w, const AcCmColor& c, std::optional<std::string_view> keptIndex)
{
    switch (c.colorMethod()) {
    case AcCmEntityColor::kByLayer:
        return;
    case AcCmEntityColor::kByBlock:
        w.integer(62, 0);
        return;
    case AcCmEntityColor::kByColor:
        // The index beside a true colour: as the file had it (none, when it had none), else the nearest.
        if (keptIndex && !keptIndex->empty())
            w.write(62, *keptIndex);
        else if (!keptIndex)
            w.integer(62, c.colorIndex());
        w.integer(420, (static_cast<int>(c.red()) << 16) | (static_cast<int>(c.green()) << 8) | c.blue());
        return;
    case AcCmEntityColor::kNone:
        w.integer(62, 257);
        return;
    default:
        w.integer(62, c.colorIndex());
        return;
    }
}

void readEntity(AcDbEntity& e, Fields& f, ReadContext& cx)
{
    f.sub("AcDbEntity");
    // A block's markers keep their paper space flag as it came; other entities have it from their owner.
    bool marker = AcDbBlockBegin::cast(&e) || AcDbBlockEnd::cast(&e);
    const Tag* paper = marker ? f.find(67) : f.take(67);
    cx.paperSpace = paper && paper->integer != 0;
    const Tag* layer = f.take(8);
    referByName(f, cx, &e, Ref::Layer, 8, layer ? layer->value : std::string_view("0"));
    if (const Tag* linetype = f.take(6))
        referByName(f, cx, &e, Ref::Linetype, 6, linetype->value);
    else
        cx.refer(&e, Ref::Linetype, "ByLayer");
    const Tag* index = f.take(62);
    const Tag* trueColor = f.take(420);
    if (trueColor) // the index beside a true colour, or that there was none
        f.keepValue(62, index ? index->value : std::string_view());
    if (index || trueColor)
        e.setColor(readColor(index ? static_cast<int>(index->integer) : 256, trueColor));
    if (const Tag* t = f.take(370))
        if (auto lw = enumValue(t->integer, AcDb::kLnWtByLwDefault, AcDb::kLnWt211))
            e.setLineWeight(*lw);
    if (const Tag* t = f.take(48))
        e.setLinetypeScale(t->real);
    if (f.integer(60) == 1)
        e.setVisibility(AcDb::kInvisible);
}

void writeEntity(const AcDbEntity& e, ObjectWriter& w, WriteContext& cx)
{
    w.subclass("AcDbEntity");
    if (!AcDbBlockBegin::cast(&e) && !AcDbBlockEnd::cast(&e) && cx.inPaperSpace(e))
        w.out.integer(67, 1);
    const std::string& layer = cx.name(e.layerId());
    w.out.write(8, layer.empty() ? std::string_view("0") : spelledName(w, 8, layer));
    if (!cx.isByLayer(e.linetypeId()))
        if (const std::string& linetype = cx.name(e.linetypeId()); !linetype.empty())
            w.out.write(6, spelledName(w, 6, linetype));
    writeColor(w.out, e.color(), w.keptValue(62));
    if (e.lineWeight() != AcDb::kLnWtByLayer)
        w.out.integer(370, e.lineWeight());
    if (e.linetypeScale() != 1.0)
        w.out.real(48, e.linetypeScale());
    if (e.visibility() == AcDb::kInvisible)
        w.out.integer(60, 1);
}

void readTextFields(AcDbText& e, Fields& f, ReadContext& cx)
{
    // The file keeps a text's points in its object coordinate system, the database in world ones.
    e.setNormal(readNormal(f));
    AcGeVector3d n = e.normal();
    e.setThickness(f.real(39));
    e.setPosition(readOcsPoint(f, 10, n));
    if (const Tag* h = f.take(40))
        e.setHeight(h->real);
    sim::db::textString(&e) = f.text(1); // moved in: no copy of every text
    e.setRotation(radians(f.real(50)));
    e.setWidthFactor(f.real(41, 1.0));
    e.setOblique(radians(f.real(51)));
    const Tag* style = f.take(7);
    referByName(f, cx, &e, Ref::TextStyle, 7, style ? style->value : std::string_view("Standard"));
    int flags = f.int32(71);
    e.mirrorInX(flags & 2);
    e.mirrorInY(flags & 4);
    if (auto mode = enumValue(f.integer(72), AcDb::kTextLeft, AcDb::kTextFit))
        e.setHorizontalMode(*mode);
    if (f.has(11))
        e.setAlignmentPoint(readOcsPoint(f, 11, n));
}

void writeTextFields(const AcDbText& e, ObjectWriter& w, WriteContext& cx)
{
    w.subclass("AcDbText");
    AcGeVector3d n = e.normal();
    if (e.thickness() != 0.0)
        w.out.real(39, e.thickness());
    writeOcsPoint(w, 10, n, e.position());
    w.out.real(40, e.height());
    w.out.text(1, e.textStringConst());
    if (e.rotation() != 0.0)
        w.out.real(50, degrees(e.rotation()));
    if (e.widthFactor() != 1.0)
        w.out.real(41, e.widthFactor());
    if (e.oblique() != 0.0)
        w.out.real(51, degrees(e.oblique()));
    const std::string& style = cx.name(e.textStyle());
    w.out.write(7, style.empty() ? std::string_view("Standard") : spelledName(w, 7, style));
    int flags = (e.isMirroredInX() ? 2 : 0) | (e.isMirroredInY() ? 4 : 0);
    if (flags)
        w.out.integer(71, flags);
    if (e.horizontalMode() != AcDb::kTextLeft)
        w.out.integer(72, e.horizontalMode());
    AcGePoint3d align = e.alignmentPoint();
    if (!e.isDefaultAlignment() || align.x != 0.0 || align.y != 0.0 || align.z != 0.0)
        writeOcsPoint(w, 11, n, align);
    writeNormal(w, n);
}

void readMTextFields(AcDbMText& e, Fields& f, ReadContext& cx, bool embedded)
{
    e.setNormal(readNormal(f));
    e.setLocation(f.point(10));
    if (const Tag* h = f.take(40))
        e.setTextHeight(h->real);
    e.setWidth(f.real(41));
    if (const Tag* a = f.take(71))
        e.setAttachment(static_cast<AcDbMText::AttachmentPoint>(a->integer));
    if (const Tag* d = f.take(72))
        e.setFlowDirection(static_cast<AcDbMText::FlowDirection>(d->integer));
    if (const Tag* s = f.take(44))
        e.setLineSpacingFactor(s->real);

    // The contents: the 3 pieces in order, then the 1. A rotation (50, in degrees) counts only
    // without a direction and before the column data, where 50 means column heights.
    std::string contents;
    const Tag* last = nullptr;
    const Tag* rotation = nullptr;
    bool columns = false;
    for (int i = f.begin(); i < f.end(); ++i) {
        if (f.isTaken(i))
            continue;
        const Tag& t = f.at(i);
        if (t.code == 3) {
            contents.append(t.value);
            f.takeAt(i);
        } else if (t.code == 1 && !last) {
            last = &t;
            f.takeAt(i);
        } else if (t.code == 75) {
            columns = true;
        } else if (t.code == 50 && !columns && !rotation) {
            rotation = &t;
            f.takeAt(i);
        }
    }
    if (last)
        contents.append(last->value);
    e.setContents(decodeText(contents).c_str());
    if (f.has(11))
        e.setDirection(f.vector(11, AcGeVector3d::kXAxis));
    else if (rotation)
        e.setRotation(radians(rotation->real));

    const Tag* style = f.take(7);
    std::string_view styleName = style ? style->value : std::string_view("Standard");
    if (embedded)
        setReference(&e, Ref::MTextStyle, cx.find(sim::db::kTextStyleTable, styleName));
    else
        cx.refer(&e, Ref::MTextStyle, styleName);
}

void writeMTextFields(const AcDbMText& e, ObjectWriter& w, WriteContext& cx)
{
    w.out.point(10, e.location());
    w.out.real(40, e.textHeight());
    if (e.width() != 0.0)
        w.out.real(41, e.width());
    w.out.integer(71, e.attachment());
    w.out.integer(72, e.flowDirection());
    AcString text;
    e.contents(text);
    std::wstring_view all(text.kwszPtr() ? text.kwszPtr() : L"");
    while (all.size() > kChunk) {
        w.out.text(3, all.substr(0, kChunk));
        all.remove_prefix(kChunk);
    }
    w.out.text(1, all);
    // A text without a style reads back with Standard, as a file without one says.
    const std::string& style = cx.name(e.textStyle());
    w.out.write(7, style.empty() ? std::string_view("Standard") : std::string_view(style));
    writeNormal(w, e.normal());
    w.out.point(11, e.direction());
    if (e.lineSpacingFactor() != 1.0)
        w.out.real(44, e.lineSpacingFactor());
}

AttributeFields readAttributeFields(Fields& f)
{
    AttributeFields a;
    bool tag = false, version = false, lock = false, flags = false, length = false, vertical = false;
    for (int i = f.begin(); i < f.end(); ++i) {
        if (f.isTaken(i))
            continue;
        const Tag& t = f.at(i);
        switch (t.code) {
        case 280:
            if (!tag && !version) {
                // The writer writes the version of its own time; another one is kept.
                if (t.integer != 0)
                    f.keepValue(280, t.value);
                version = true;
            } else if (!lock) {
                a.locked = t.integer != 0;
                lock = true;
            } else
                continue;
            break;
        case 2:
            if (tag)
                continue;
            a.tag = decodeText(t.value);
            tag = true;
            break;
        case 70:
            if (flags)
                continue;
            a.flags = static_cast<int>(t.integer);
            flags = true;
            break;
        case 73:
            if (length)
                continue;
            a.fieldLength = static_cast<int>(t.integer);
            length = true;
            break;
        case 74:
            if (vertical)
                continue;
            a.vertical = static_cast<int>(t.integer);
            vertical = true;
            break;
        default:
            continue;
        }
        f.takeAt(i);
    }
    return a;
}

void writeAttributeFields(const AttributeFields& a, ObjectWriter& w, const wchar_t* prompt)
{
    std::optional<std::string_view> version = w.keptValue(280);
    w.out.integer(280, version ? std::stoll(std::string(*version)) : 0);
    if (prompt)
        w.out.text(3, prompt);
    w.out.text(2, a.tag);
    w.out.integer(70, a.flags);
    if (a.fieldLength)
        w.out.integer(73, a.fieldLength);
    if (a.vertical)
        w.out.integer(74, a.vertical);
    if (a.locked)
        w.out.integer(280, 1);
}

int blockFlags(const AcDbBlockTableRecord& btr)
{
    const ACHAR* path = nullptr;
    btr.pathName(path);
    bool xref = path && *path;
    return (btr.isAnonymous() ? 1 : 0) | (btr.hasAttributeDefinitions() ? 2 : 0) | (xref ? 4 : 0) |
           (btr.isFromOverlayReference() ? 8 : 0);
}

void writeBlockBeginFields(const AcDbBlockBegin& e, ObjectWriter& w, WriteContext& cx)
{
    w.subclass("AcDbBlockBegin");
    auto* btr = AcDbBlockTableRecord::cast(sim::db::objectOf(e.ownerId()));
    if (!btr)
        return;
    const std::string& name = cx.name(btr->objectId());
    w.out.write(2, name);
    w.out.integer(70, blockFlags(*btr) | static_cast<int>(w.keptBits(70)));
    w.out.point(10, btr->origin());
    w.out.write(3, name);
    const ACHAR* path = nullptr;
    btr->pathName(path);
    w.out.text(1, path ? path : L"");
    const ACHAR* comments = nullptr;
    btr->comments(comments);
    if (comments && *comments)
        w.out.text(4, comments);
}

} // namespace sim::dxf
