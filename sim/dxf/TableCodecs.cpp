// The codecs of the symbol tables and their records: viewports, line types (with complex dashes),
// layers, text styles, views, UCSs, applications, dimension styles and block records.
#include <algorithm>
#include <memory>

#include "sim/core/Session.h"
#include "sim/db/FileAccess.h"
#include "sim/dxf/Angles.h"
#include "sim/dxf/Codec.h"
#include "sim/dxf/EntityFields.h"
#include "sim/dxf/TableCodecs.h"
#include "sim/dxf/XData.h"

namespace sim::dxf {

namespace {

using Ref = ReadContext::Ref;
using sim::db::TableKind;

AcGePoint2d point2d(Fields& f, int code)
{
    AcGePoint3d p = f.point(code);
    return AcGePoint2d(p.x, p.y);
}

/// Takes the extended data of one application out of the record (the kind keeps it in fields of
/// its own); empty when the record has none.
std::vector<Tag> takeXData(Record& rec, std::string_view app)
{
    std::vector<Tag> out;
    auto& x = rec.xdata;
    for (size_t i = 0; i < x.size(); ++i) {
        if (x[i].code != 1001 || x[i].value != app)
            continue;
        size_t j = i + 1;
        while (j < x.size() && x[j].code != 1001)
            ++j;
        out.assign(x.begin() + static_cast<std::ptrdiff_t>(i) + 1, x.begin() + static_cast<std::ptrdiff_t>(j));
        x.erase(x.begin() + static_cast<std::ptrdiff_t>(i), x.begin() + static_cast<std::ptrdiff_t>(j));
        break;
    }
    return out;
}

/// The frame of every record codec: the two subclass markers, the name and the flags; the bits of
/// the flags a kind does not model are kept for its writer.
template <class T>
class RecordCodec : public Codec {
public:
    AcRxClass* objectClass() const override { return T::desc(); }

    AcDbObject* read(Fields& f, ReadContext& cx) const override
    {
        auto rec = std::make_unique<T>();
        f.sub("AcDbSymbolTableRecord");
        f.sub(subclassName());
        sim::db::setRecordName(rec.get(), f.text(2));
        int flags = f.int32(70);
        f.keepBits(70, flags & ~readFields(*rec, f, flags, cx));
        return rec.release();
    }

    void write(const AcDbObject& obj, ObjectWriter& w, WriteContext& cx) const override
    {
        const T& rec = static_cast<const T&>(obj);
        w.begin(recordName(), rec, handleCode());
        w.subclass("AcDbSymbolTableRecord");
        w.subclass(subclassName());
        w.out.text(2, sim::db::recordName(&rec));
        w.out.integer(70, flags(rec) | static_cast<int>(w.keptBits(70)));
        XDataList extra;
        writeFields(rec, w, cx, extra);
        w.end(&extra);
    }

protected:
    virtual std::string_view subclassName() const = 0;
    virtual int handleCode() const { return 5; }
    /// Reads the kind's fields (f at its subclass); gives the bits of the flags it models.
    virtual int readFields(T& rec, Fields& f, int flags, ReadContext& cx) const = 0;
    virtual int flags(const T&) const { return 0; }
    /// Writes the kind's fields; extended data it keeps in fields of its own goes to extra.
    virtual void writeFields(const T& rec, ObjectWriter& w, WriteContext& cx, XDataList& extra) const = 0;
};

class ViewportCodec : public RecordCodec<AcDbViewportTableRecord> {
public:
    std::string_view recordName() const override { return "VPORT"; }

protected:
    std::string_view subclassName() const override { return "AcDbViewportTableRecord"; }
    int readFields(AcDbViewportTableRecord& r, Fields& f, int, ReadContext&) const override
    {
        r.setLowerLeftCorner(point2d(f, 10));
        r.setUpperRightCorner(point2d(f, 11));
        r.setCenterPoint(point2d(f, 12));
        r.setViewDirection(f.vector(16, AcGeVector3d::kZAxis));
        r.setTarget(f.point(17));
        double height = f.real(40, 1.0);
        r.setHeight(height);
        r.setWidth(height * f.real(41, 1.0));
        r.setLensLength(f.real(42, 50.0));
        r.setViewTwist(radians(f.real(51)));
        return 0;
    }
    void writeFields(const AcDbViewportTableRecord& r, ObjectWriter& w, WriteContext&, XDataList&) const override
    {
        w.out.point2d(10, r.lowerLeftCorner().x, r.lowerLeftCorner().y);
        w.out.point2d(11, r.upperRightCorner().x, r.upperRightCorner().y);
        w.out.point2d(12, r.centerPoint().x, r.centerPoint().y);
        w.out.point(16, r.viewDirection());
        w.out.point(17, r.target());
        w.out.real(40, r.height());
        w.out.real(41, r.height() != 0.0 ? r.width() / r.height() : 1.0);
        w.out.real(42, r.lensLength());
        w.out.real(51, degrees(r.viewTwist()));
    }
};

class ViewCodec : public RecordCodec<AcDbViewTableRecord> {
public:
    std::string_view recordName() const override { return "VIEW"; }

protected:
    std::string_view subclassName() const override { return "AcDbViewTableRecord"; }
    int readFields(AcDbViewTableRecord& r, Fields& f, int flags, ReadContext&) const override
    {
        r.setIsPaperspaceView(flags & 1);
        r.setHeight(f.real(40, 1.0));
        r.setCenterPoint(point2d(f, 10));
        r.setWidth(f.real(41, 1.0));
        r.setViewDirection(f.vector(11, AcGeVector3d::kZAxis));
        r.setTarget(f.point(12));
        r.setLensLength(f.real(42, 50.0));
        r.setViewTwist(radians(f.real(50)));
        return 1;
    }
    int flags(const AcDbViewTableRecord& r) const override { return r.isPaperspaceView() ? 1 : 0; }
    void writeFields(const AcDbViewTableRecord& r, ObjectWriter& w, WriteContext&, XDataList&) const override
    {
        w.out.real(40, r.height());
        w.out.point2d(10, r.centerPoint().x, r.centerPoint().y);
        w.out.real(41, r.width());
        w.out.point(11, r.viewDirection());
        w.out.point(12, r.target());
        w.out.real(42, r.lensLength());
        w.out.real(50, degrees(r.viewTwist()));
    }
};

class UcsCodec : public RecordCodec<AcDbUCSTableRecord> {
public:
    std::string_view recordName() const override { return "UCS"; }

protected:
    std::string_view subclassName() const override { return "AcDbUCSTableRecord"; }
    int readFields(AcDbUCSTableRecord& r, Fields& f, int, ReadContext&) const override
    {
        r.setOrigin(f.point(10));
        r.setXAxis(f.vector(11, AcGeVector3d::kXAxis));
        r.setYAxis(f.vector(12, AcGeVector3d::kYAxis));
        return 0;
    }
    void writeFields(const AcDbUCSTableRecord& r, ObjectWriter& w, WriteContext&, XDataList&) const override
    {
        w.out.point(10, r.origin());
        w.out.point(11, r.xAxis());
        w.out.point(12, r.yAxis());
    }
};

class RegAppCodec : public RecordCodec<AcDbRegAppTableRecord> {
public:
    std::string_view recordName() const override { return "APPID"; }

protected:
    std::string_view subclassName() const override { return "AcDbRegAppTableRecord"; }
    int readFields(AcDbRegAppTableRecord&, Fields&, int, ReadContext&) const override { return 0; }
    void writeFields(const AcDbRegAppTableRecord&, ObjectWriter&, WriteContext&, XDataList&) const override {}
};

/// Dash flags (74): rotation absolute, a text, a shape, upright.
enum DashFlags { kAbsolute = 1, kText = 2, kShape = 4, kUpright = 8 };

class LinetypeCodec : public RecordCodec<AcDbLinetypeTableRecord> {
public:
    std::string_view recordName() const override { return "LTYPE"; }

protected:
    std::string_view subclassName() const override { return "AcDbLinetypeTableRecord"; }
    int readFields(AcDbLinetypeTableRecord& r, Fields& f, int, ReadContext& cx) const override
    {
        r.setComments(f.text(3).c_str());
        f.take(72); // alignment: always 'A'
        f.take(73); // the count follows from the dashes
        r.setPatternLength(f.real(40));
        // Dashes: each 49 begins one; the groups of a complex dash follow it.
        int n = -1;
        for (int i = f.begin(); i < f.end(); ++i) {
            if (f.isTaken(i))
                continue;
            const Tag& t = f.at(i);
            if (t.code == 49) {
                if (r.setNumDashes(n + 2) != Acad::eOk)
                    break;
                r.setDashLengthAt(++n, t.real);
            } else if (n < 0) {
                continue;
            } else if (t.code == 74) {
                r.setShapeIsUcsOrientedAt(n, t.integer & kAbsolute);
                r.setShapeIsUprightAt(n, t.integer & kUpright);
            } else if (t.code == 75) {
                r.setShapeNumberAt(n, static_cast<int>(t.integer));
            } else if (t.code == 340) {
                r.setShapeStyleAt(n, cx.id(t.handle()));
            } else if (t.code == 46) {
                r.setShapeScaleAt(n, t.real);
            } else if (t.code == 50) {
                r.setShapeRotationAt(n, t.real);
            } else if (t.code == 44) {
                r.setShapeOffsetAt(n, AcGeVector2d(t.real, r.shapeOffsetAt(n).y));
            } else if (t.code == 45) {
                r.setShapeOffsetAt(n, AcGeVector2d(r.shapeOffsetAt(n).x, t.real));
            } else if (t.code == 9) {
                r.setTextAt(n, decodeText(t.value).c_str());
            } else {
                continue;
            }
            f.takeAt(i);
        }
        return 0;
    }
    void writeFields(const AcDbLinetypeTableRecord& r, ObjectWriter& w, WriteContext&, XDataList&) const override
    {
        const ACHAR* comments = nullptr;
        r.comments(comments);
        w.out.text(3, comments ? comments : L"");
        w.out.integer(72, 65);
        w.out.integer(73, r.numDashes());
        w.out.real(40, r.patternLength());
        for (int i = 0; i < r.numDashes(); ++i) {
            w.out.real(49, r.dashLengthAt(i));
            const ACHAR* text = nullptr;
            r.textAt(i, text);
            bool hasText = text && *text;
            bool hasShape = r.shapeNumberAt(i) != 0;
            int flags = (r.shapeIsUcsOrientedAt(i) ? kAbsolute : 0) | (hasText ? kText : 0) | (hasShape ? kShape : 0) |
                        (r.shapeIsUprightAt(i) ? kUpright : 0);
            w.out.integer(74, flags);
            if (!hasText && !hasShape)
                continue;
            w.out.integer(75, hasText ? 0 : r.shapeNumberAt(i));
            w.out.handle(340, r.shapeStyleAt(i).handle());
            w.out.real(46, r.shapeScaleAt(i));
            w.out.real(50, r.shapeRotationAt(i));
            w.out.real(44, r.shapeOffsetAt(i).x);
            w.out.real(45, r.shapeOffsetAt(i).y);
            if (hasText)
                w.out.text(9, text);
        }
    }
};

/// The application under which drawing files keep a layer's description.
constexpr std::string_view kLayerDescriptionApp = "AcAecLayerStandard";

class LayerCodec : public RecordCodec<AcDbLayerTableRecord> {
public:
    std::string_view recordName() const override { return "LAYER"; }

protected:
    std::string_view subclassName() const override { return "AcDbLayerTableRecord"; }
    int readFields(AcDbLayerTableRecord& r, Fields& f, int flags, ReadContext& cx) const override
    {
        r.setIsFrozen(flags & 1);
        r.setIsLocked(flags & 4);
        const Tag* index = f.take(62);
        const Tag* trueColor = f.take(420);
        if (trueColor && index) // the index beside a true colour
            f.keepValue(62, std::to_string(index->integer < 0 ? -index->integer : index->integer));
        int i = index ? static_cast<int>(index->integer) : 7;
        r.setIsOff(i < 0);
        if (i < 0)
            i = -i;
        r.setColor(readColor(i >= 1 && i <= 255 ? i : 7, trueColor));
        const Tag* linetype = f.take(6);
        referByName(f, cx, &r, Ref::LayerLinetype, 6, linetype ? linetype->value : std::string_view("Continuous"));
        r.setIsPlottable(f.integer(290, 1) != 0);
        if (const Tag* lw = f.take(370))
            if (auto w = enumValue(lw->integer, AcDb::kLnWtByLwDefault, AcDb::kLnWt211))
                r.setLineWeight(*w);
        // The description: the second string of the application's data.
        std::vector<Tag> d = takeXData(f.record(), kLayerDescriptionApp);
        if (d.size() >= 2 && d[1].code == 1000)
            r.setDescription(decodeText(d[1].value).c_str());
        else if (!d.empty())
            restoreXData(f.record(), kLayerDescriptionApp, d);
        return 1 | 4;
    }
    /// A layer of an external reference is dependent (16) and resolved (32).
    int flags(const AcDbLayerTableRecord& r) const override
    {
        return (r.isFrozen() ? 1 : 0) | (r.isLocked() ? 4 : 0) | (r.isDependent() ? 48 : 0);
    }
    void writeFields(const AcDbLayerTableRecord& r, ObjectWriter& w, WriteContext& cx, XDataList& extra) const override
    {
        AcCmColor c = r.color();
        int index = c.colorIndex();
        if (std::optional<std::string_view> kept = w.keptValue(62); kept && c.isByColor())
            index = std::atoi(std::string(*kept).c_str());
        if (index < 1 || index > 255)
            index = 7;
        w.out.integer(62, r.isOff() ? -index : index);
        if (c.isByColor())
            w.out.integer(420, (static_cast<int>(c.red()) << 16) | (static_cast<int>(c.green()) << 8) | c.blue());
        const std::string& linetype = cx.name(r.linetypeObjectId());
        w.out.write(6, linetype.empty() ? std::string_view("Continuous") : spelledName(w, 6, linetype));
        if (!r.isPlottable())
            w.out.integer(290, 0);
        w.out.integer(370, r.lineWeight());
        ACHAR* description = r.description();
        if (description && *description)
            extra.emplace_back(std::wstring(kLayerDescriptionApp.begin(), kLayerDescriptionApp.end()),
                               sim::db::Chain(acutBuildList(1000, L"", 1000, description, 0)));
        delete[] description;
    }

    /// Data of the application that is not a description goes back as it came.
    static void restoreXData(Record& rec, std::string_view app, const std::vector<Tag>& values)
    {
        Tag head;
        head.code = 1001;
        head.value = app;
        rec.xdata.push_back(head);
        rec.xdata.insert(rec.xdata.end(), values.begin(), values.end());
    }
};

class TextStyleCodec : public RecordCodec<AcDbTextStyleTableRecord> {
public:
    std::string_view recordName() const override { return "STYLE"; }

protected:
    std::string_view subclassName() const override { return "AcDbTextStyleTableRecord"; }
    int readFields(AcDbTextStyleTableRecord& r, Fields& f, int flags, ReadContext&) const override
    {
        r.setIsShapeFile(flags & 1);
        r.setIsVertical(flags & 4);
        r.setTextSize(f.real(40));
        r.setXScale(f.real(41, 1.0));
        r.setObliquingAngle(radians(f.real(50)));
        r.setFlagBits(static_cast<Adesk::UInt8>(f.int32(71)));
        r.setPriorSize(f.real(42, 2.5));
        r.setFileName(f.text(3).c_str());
        r.setBigFontFileName(f.text(4).c_str());
        // A TrueType face: the application ACAD keeps its name and its flags.
        std::vector<Tag> font = takeXData(f.record(), "ACAD");
        if (font.size() == 2 && font[0].code == 1000 && font[1].code == 1071) {
            auto bits = static_cast<std::uint32_t>(font[1].integer);
            using namespace Autodesk::AutoCAD::PAL::FontUtils;
            r.setFont(decodeText(font[0].value).c_str(), bits & 0x2000000, bits & 0x1000000,
                      static_cast<Charset>((bits >> 8) & 0xFF), static_cast<FontPitch>(bits & 0x3),
                      static_cast<FontFamily>(bits & 0xF0), true);
        } else if (!font.empty()) {
            Tag head;
            head.code = 1001;
            head.value = "ACAD";
            f.record().xdata.push_back(head);
            f.record().xdata.insert(f.record().xdata.end(), font.begin(), font.end());
        }
        return 1 | 4;
    }
    int flags(const AcDbTextStyleTableRecord& r) const override { return (r.isShapeFile() ? 1 : 0) | (r.isVertical() ? 4 : 0); }
    void writeFields(const AcDbTextStyleTableRecord& r, ObjectWriter& w, WriteContext&, XDataList& extra) const override
    {
        w.out.real(40, r.textSize());
        w.out.real(41, r.xScale());
        w.out.real(50, degrees(r.obliquingAngle()));
        w.out.integer(71, r.flagBits());
        w.out.real(42, r.priorSize());
        const ACHAR* file = nullptr;
        r.fileName(file);
        w.out.text(3, file ? file : L"");
        const ACHAR* big = nullptr;
        r.bigFontFileName(big);
        w.out.text(4, big ? big : L"");
        ACHAR* face = nullptr;
        bool bold = false, italic = false;
        Charset charset = kAnsiCharset;
        Autodesk::AutoCAD::PAL::FontUtils::FontPitch pitch{};
        Autodesk::AutoCAD::PAL::FontUtils::FontFamily family{};
        r.font(face, bold, italic, charset, pitch, family);
        if (face && *face) {
            int bits = (bold ? 0x2000000 : 0) | (italic ? 0x1000000 : 0) | ((static_cast<int>(charset) & 0xFF) << 8) |
                       static_cast<int>(pitch) | static_cast<int>(family);
            extra.emplace_back(L"ACAD", sim::db::Chain(acutBuildList(1000, face, 1071, bits, 0)));
        }
        delete[] face;
    }
};

class DimStyleCodec : public RecordCodec<AcDbDimStyleTableRecord> {
public:
    std::string_view recordName() const override { return "DIMSTYLE"; }

protected:
    std::string_view subclassName() const override { return "AcDbDimStyleTableRecord"; }
    int handleCode() const override { return 105; }
    int readFields(AcDbDimStyleTableRecord& r, Fields& f, int, ReadContext& cx) const override
    {
        auto& values = sim::db::dimStyleValues(&r);
        // Old files name the arrows (5, 6, 7) where newer ones point at their blocks (342, 343, 344).
        constexpr int kNames[] = {5, 6, 7};
        for (int n = 0; n < 3; ++n) {
            std::string name(f.str(kNames[n]));
            if (!name.empty() && !f.has(342 + n))
                cx.refer(&r, static_cast<Ref>(static_cast<int>(Ref::Arrow) + n), name);
        }
        for (int i = f.begin(); i < f.end(); ++i) {
            if (f.isTaken(i))
                continue;
            const Tag& t = f.at(i);
            switch (dimValueKind(t.code)) {
            case DimValue::Text:
                values[t.code] = decodeText(t.value);
                break;
            case DimValue::Real:
                values[t.code] = t.real;
                break;
            case DimValue::Object:
                values[t.code] = cx.id(t.handle());
                break;
            case DimValue::Color:
                values[t.code] = readColor(static_cast<int>(t.integer), nullptr);
                break;
            case DimValue::Integer:
                values[t.code] = static_cast<int>(t.integer);
                break;
            }
            f.takeAt(i);
        }
        return 0;
    }
    void writeFields(const AcDbDimStyleTableRecord& r, ObjectWriter& w, WriteContext&, XDataList&) const override
    {
        auto& values = sim::db::dimStyleValues(const_cast<AcDbDimStyleTableRecord*>(&r));
        for (const auto& [code, value] : values) {
            if (const auto* s = std::get_if<std::wstring>(&value))
                w.out.text(code, *s);
            else if (const auto* d = std::get_if<double>(&value))
                w.out.real(code, *d);
            else if (const auto* id = std::get_if<AcDbObjectId>(&value))
                w.out.handle(code, id->handle());
            else if (const auto* c = std::get_if<AcCmColor>(&value))
                w.out.integer(code, c->isByBlock() ? 0 : c->isByLayer() ? 256 : c->colorIndex());
            else if (const auto* n = std::get_if<int>(&value))
                w.out.integer(code, *n);
        }
    }
};

class BlockRecordCodec : public RecordCodec<AcDbBlockTableRecord> {
public:
    std::string_view recordName() const override { return "BLOCK_RECORD"; }

protected:
    std::string_view subclassName() const override { return "AcDbBlockTableRecord"; }
    int readFields(AcDbBlockTableRecord& r, Fields& f, int, ReadContext& cx) const override
    {
        r.setLayoutId(cx.id(f.handle(340)));
        return 0;
    }
    void writeFields(const AcDbBlockTableRecord& r, ObjectWriter& w, WriteContext&, XDataList&) const override
    {
        w.out.handle(340, r.getLayoutId().handle());
    }
};

/// The table objects: 0 TABLE with the table's name before its handle, the count of records.
class TableCodec : public Codec {
public:
    TableCodec(std::string_view name, AcRxClass* cls, AcDbObject* (*make)()) : m_name(name), m_class(cls), m_make(make) {}
    std::string_view recordName() const override { return "TABLE"; }
    AcRxClass* objectClass() const override { return m_class; }
    std::string_view tableName() const { return m_name; }

    AcDbObject* read(Fields& f, ReadContext&) const override
    {
        f.head().take(2);
        f.sub("AcDbSymbolTable").take(70);
        if (m_name == "DIMSTYLE") {
            f.sub("AcDbDimStyleTable").take(71);
            while (f.take(340)) {
            }
        }
        return m_make();
    }

    void write(const AcDbObject& obj, ObjectWriter& w, WriteContext&) const override
    {
        const auto& table = static_cast<const AcDbSymbolTable&>(obj);
        std::vector<AcDbObjectId> live;
        for (AcDbObjectId id : sim::db::recordIds(&table))
            if (AcDbObject* rec = sim::db::objectOf(id); rec && !rec->isErased())
                live.push_back(id);
        w.begin("TABLE", table, 5, m_name);
        w.subclass("AcDbSymbolTable");
        w.out.integer(70, static_cast<std::int64_t>(live.size()));
        if (m_name == "DIMSTYLE") {
            w.subclass("AcDbDimStyleTable");
            w.out.integer(71, static_cast<std::int64_t>(live.size()));
            for (AcDbObjectId id : live)
                w.out.handle(340, id.handle());
        }
        w.end();
    }

private:
    std::string_view m_name;
    AcRxClass* m_class;
    AcDbObject* (*m_make)();
};

template <class T>
AcDbObject* makeTable()
{
    return new T;
}

const std::vector<TableCodec>& tables()
{
    // In the order of the TABLES section.
    static const std::vector<TableCodec> t = {
        {"VPORT", AcDbViewportTable::desc(), &makeTable<AcDbViewportTable>},
        {"LTYPE", AcDbLinetypeTable::desc(), &makeTable<AcDbLinetypeTable>},
        {"LAYER", AcDbLayerTable::desc(), &makeTable<AcDbLayerTable>},
        {"STYLE", AcDbTextStyleTable::desc(), &makeTable<AcDbTextStyleTable>},
        {"VIEW", AcDbViewTable::desc(), &makeTable<AcDbViewTable>},
        {"UCS", AcDbUCSTable::desc(), &makeTable<AcDbUCSTable>},
        {"APPID", AcDbRegAppTable::desc(), &makeTable<AcDbRegAppTable>},
        {"DIMSTYLE", AcDbDimStyleTable::desc(), &makeTable<AcDbDimStyleTable>},
        {"BLOCK_RECORD", AcDbBlockTable::desc(), &makeTable<AcDbBlockTable>},
    };
    return t;
}

} // namespace

DimValue dimValueKind(int code)
{
    if (code >= 1 && code <= 9)
        return DimValue::Text;
    if ((code >= 40 && code <= 59) || (code >= 140 && code <= 149))
        return DimValue::Real;
    if (code >= 176 && code <= 178)
        return DimValue::Color;
    if (code >= 340 && code <= 349)
        return DimValue::Object;
    return DimValue::Integer;
}

std::vector<TableInfo> tableOrder()
{
    const TableKind kinds[] = {sim::db::kViewportTable, sim::db::kLinetypeTable, sim::db::kLayerTable,
                               sim::db::kTextStyleTable, sim::db::kViewTable,     sim::db::kUCSTable,
                               sim::db::kRegAppTable,    sim::db::kDimStyleTable, sim::db::kBlockTable};
    std::vector<TableInfo> out;
    for (size_t i = 0; i < tables().size(); ++i)
        out.push_back({tables()[i].tableName(), kinds[i], &tables()[i]});
    return out;
}

const TableInfo* tableByName(std::string_view name)
{
    static const std::vector<TableInfo> all = tableOrder();
    for (const TableInfo& t : all)
        if (t.name == name)
            return &t;
    return nullptr;
}

std::vector<const Codec*> tableCodecs()
{
    static const ViewportCodec vport;
    static const LinetypeCodec ltype;
    static const LayerCodec layer;
    static const TextStyleCodec style;
    static const ViewCodec view;
    static const UcsCodec ucs;
    static const RegAppCodec appid;
    static const DimStyleCodec dimstyle;
    static const BlockRecordCodec blockRecord;
    std::vector<const Codec*> out{&vport, &ltype, &layer, &style, &view, &ucs, &appid, &dimstyle, &blockRecord};
    for (const TableCodec& t : tables())
        out.push_back(&t);
    return out;
}

} // namespace sim::dxf
