// The codecs of annotation: scales of the scale list (SCALE), layouts (LAYOUT), multileader styles
// (MLEADERSTYLE), multileaders (MULTILEADER) and linear dimensions (DIMENSION). Multileaders and
// their styles keep their own subclass's groups as the file has them (see sim/db/KeptGroups.h).
#include <cmath>
#include <memory>

#include "dbdim.h"
#include "dblayout.h"
#include "mleader.h"
#include "mleaderstyle.h"
#include "sim/core/Session.h"
#include "sim/db/FileAccess.h"
#include "sim/db/ImpObject.h"
#include "sim/db/Scale.h"
#include "sim/dxf/Codec.h"
#include "sim/dxf/EntityFields.h"
#include "sim/dxf/Preserved.h"

namespace sim::dxf {

namespace {

class ScaleCodec : public Codec {
public:
    std::string_view recordName() const override { return "SCALE"; }
    AcRxClass* objectClass() const override { return sim::db::Scale::desc(); }

    AcDbObject* read(Fields& f, ReadContext&) const override
    {
        auto s = std::make_unique<sim::db::Scale>();
        f.sub("AcDbScale");
        if (const Tag* flags = f.take(70); flags && flags->integer != 0)
            f.keepValue(70, flags->value);
        s->name = f.text(300);
        s->paperUnits = f.real(140, 1.0);
        s->drawingUnits = f.real(141, 1.0);
        s->unitScale = f.flag(290);
        return s.release();
    }

    void write(const AcDbObject& obj, ObjectWriter& w, WriteContext&) const override
    {
        const auto& s = static_cast<const sim::db::Scale&>(obj);
        w.begin("SCALE", s);
        w.subclass("AcDbScale");
        std::optional<std::string_view> flags = w.keptValue(70);
        w.out.write(70, flags ? *flags : "0");
        w.out.text(300, s.name);
        w.out.real(140, s.paperUnits);
        w.out.real(141, s.drawingUnits);
        w.out.integer(290, s.unitScale ? 1 : 0);
        w.end();
    }
};

class LayoutCodec : public Codec {
public:
    std::string_view recordName() const override { return "LAYOUT"; }
    AcRxClass* objectClass() const override { return AcDbLayout::desc(); }

    AcDbObject* read(Fields& f, ReadContext& cx) const override
    {
        auto layout = std::make_unique<AcDbLayout>();
        // The plot settings are kept whole; the layout's own fields after its name, tab and block
        // stay as the file had them.
        f.sub("AcDbLayout");
        layout->setLayoutName(f.text(1).c_str());
        layout->setTabOrder(f.int32(71));
        layout->setBlockTableRecordId(cx.id(f.handle(330)));
        return layout.release();
    }

    void write(const AcDbObject& obj, ObjectWriter& w, WriteContext&) const override
    {
        const auto& layout = static_cast<const AcDbLayout&>(obj);
        w.begin("LAYOUT", layout);
        w.subclass("AcDbLayout");
        const ACHAR* name = nullptr;
        layout.getLayoutName(name);
        w.out.text(1, name ? name : L"");
        w.out.integer(71, layout.getTabOrder());
        w.out.handle(330, layout.getBlockTableRecordId().handle());
        w.end();
    }
};

/// A kind whose one subclass is kept as groups: the object reads as new and takes the groups.
template <class T>
void dropDefaultGroups(T& obj)
{
    sim::db::impOf(&obj)->preservedTags.clear();
}

class MLeaderStyleCodec : public Codec {
public:
    std::string_view recordName() const override { return "MLEADERSTYLE"; }
    AcRxClass* objectClass() const override { return AcDbMLeaderStyle::desc(); }

    AcDbObject* read(Fields& f, ReadContext&) const override
    {
        auto style = std::make_unique<AcDbMLeaderStyle>();
        dropDefaultGroups(*style);
        f.sub("AcDbMLeaderStyle");
        return style.release();
    }

    void write(const AcDbObject& obj, ObjectWriter& w, WriteContext&) const override
    {
        w.begin("MLEADERSTYLE", obj);
        w.subclass("AcDbMLeaderStyle");
        w.end();
    }
};

class MLeaderCodec : public Codec {
public:
    std::string_view recordName() const override { return "MULTILEADER"; }
    AcRxClass* objectClass() const override { return AcDbMLeader::desc(); }

    AcDbObject* read(Fields& f, ReadContext& cx) const override
    {
        auto leader = std::make_unique<AcDbMLeader>();
        dropDefaultGroups(*leader);
        readEntity(*leader, f, cx);
        f.sub("AcDbMLeader");
        return leader.release();
    }

    void write(const AcDbObject& obj, ObjectWriter& w, WriteContext& cx) const override
    {
        const auto& leader = static_cast<const AcDbMLeader&>(obj);
        w.begin("MULTILEADER", leader);
        writeEntity(leader, w, cx);
        w.subclass("AcDbMLeader");
        w.end();
    }
};

/// The middle of the dimension line, where the host puts the text by default.
AcGePoint3d defaultTextPosition(const AcDbAlignedDimension& d)
{
    AcGePoint3d a = d.xLine1Point(), b = d.xLine2Point();
    AcGeVector3d dir = b - a;
    if (auto* rotated = AcDbRotatedDimension::cast(&d))
        dir = AcGeVector3d(std::cos(rotated->rotation()), std::sin(rotated->rotation()), 0.0);
    if (dir.isZeroLength())
        return d.dimLinePoint();
    dir = dir.normal();
    AcGePoint3d mid = a + (b - a) * 0.5;
    // The projection of the middle onto the dimension line through dimLinePoint.
    return d.dimLinePoint() + dir * (mid - d.dimLinePoint()).dotProduct(dir);
}

/// Aligned (type 1) and rotated (type 0) dimensions; other kinds stay tag storage.
class DimensionCodec : public Codec {
public:
    explicit DimensionCodec(AcRxClass* cls) : m_class(cls) {}
    std::string_view recordName() const override { return "DIMENSION"; }
    AcRxClass* objectClass() const override { return m_class; }

    AcDbObject* read(Fields& f, ReadContext& cx) const override
    {
        f.sub("AcDbDimension");
        const Tag* flagsTag = f.find(70);
        int flags = flagsTag ? static_cast<int>(flagsTag->integer) : 0;
        int type = flags & 7;
        bool rotatedMarker = !f.record().hasSubclassMarkers();
        for (const Segment& s : f.record().segments)
            if (f.record().segmentName(s) == "AcDbRotatedDimension")
                rotatedMarker = true;
        if (type == 1 && rotatedMarker)
            type = 0;
        if (type > 1)
            return nullptr;
        std::unique_ptr<AcDbAlignedDimension> dim;
        if (type == 0)
            dim = std::make_unique<AcDbRotatedDimension>();
        else
            dim = std::make_unique<AcDbAlignedDimension>();
        readEntity(*dim, f, cx);

        f.sub("AcDbDimension");
        f.take(70);
        f.keepBits(70, flags & ~(7 | 128));
        dim->setDimLinePoint(f.point(10));
        AcGePoint3d text = f.point(11);
        dim->setTextPosition(text);
        if (!(flags & 128)) {
            dim->useDefaultTextPosition();
            // A text at the origin is the file's too, not one still to be placed (see the writer).
            if (text == AcGePoint3d::kOrigin)
                f.keepValue(11, "");
        }
        // The measurement: the writer measures again, unless the file left it out.
        if (!f.take(42))
            f.keepValue(42, "");
        dim->setDimensionText(f.text(1).c_str());
        dim->setTextRotation(f.real(53) * M_PI / 180.0);
        dim->setHorizontalRotation(f.real(51) * M_PI / 180.0);
        dim->setNormal(readNormal(f));
        if (const Tag* block = f.find(2)) {
            AcDbObjectId id = cx.find(sim::db::kBlockTable, block->value);
            if (!id.isNull() && sim::toUtf8(sim::db::recordName(AcDbBlockTableRecord::cast(sim::db::objectOf(id)))) == block->value) {
                sim::db::setDimensionBlock(dim.get(), id);
                f.take(2);
            }
        }
        if (const Tag* style = f.find(3)) {
            AcDbObjectId id = cx.find(sim::db::kDimStyleTable, style->value);
            if (!id.isNull()) {
                dim->setDimensionStyle(id);
                f.take(3);
            }
        }

        f.sub("AcDbAlignedDimension");
        dim->setXLine1Point(f.point(13));
        dim->setXLine2Point(f.point(14));
        if (auto* rotated = AcDbRotatedDimension::cast(dim.get()))
            rotated->setRotation(f.real(50) * M_PI / 180.0);
        dim->setOblique(f.real(52) * M_PI / 180.0);
        if (type == 0)
            f.sub("AcDbRotatedDimension");
        return dim.release();
    }

    void write(const AcDbObject& obj, ObjectWriter& w, WriteContext& cx) const override
    {
        const auto& dim = static_cast<const AcDbAlignedDimension&>(obj);
        auto* rotated = AcDbRotatedDimension::cast(&dim);
        w.begin("DIMENSION", dim);
        writeEntity(dim, w, cx);
        w.subclass("AcDbDimension");
        if (const std::string& block = cx.name(dim.dimBlockId()); !block.empty())
            w.out.write(2, block);
        w.out.point(10, dim.dimLinePoint());
        // A dimension made here has no text position until one is set; one read keeps the file's.
        bool unplaced = dim.isUsingDefaultTextPosition() && dim.textPosition() == AcGePoint3d::kOrigin &&
                        !w.keptValue(11);
        w.out.point(11, unplaced ? defaultTextPosition(dim) : dim.textPosition());
        int flags = (rotated ? 0 : 1) | (dim.isUsingDefaultTextPosition() ? 0 : 128) | static_cast<int>(w.keptBits(70));
        w.out.integer(70, flags);
        double measured = 0.0;
        const_cast<AcDbAlignedDimension&>(dim).measurement(measured);
        if (std::optional<std::string_view> kept = w.keptValue(42); !kept || !kept->empty())
            w.out.real(42, measured);
        ACHAR* text = dim.dimensionText();
        if (text && *text)
            w.out.text(1, text);
        delete[] text;
        if (dim.textRotation() != 0.0)
            w.out.real(53, dim.textRotation() * 180.0 / M_PI);
        if (dim.horizontalRotation() != 0.0)
            w.out.real(51, dim.horizontalRotation() * 180.0 / M_PI);
        writeNormal(w, dim.normal());
        if (const std::string& style = cx.name(dim.dimensionStyle()); !style.empty())
            w.out.write(3, style);
        w.subclass("AcDbAlignedDimension");
        w.out.point(13, dim.xLine1Point());
        w.out.point(14, dim.xLine2Point());
        if (rotated)
            w.out.real(50, rotated->rotation() * 180.0 / M_PI);
        if (dim.oblique() != 0.0)
            w.out.real(52, dim.oblique() * 180.0 / M_PI);
        if (rotated)
            w.subclass("AcDbRotatedDimension");
        w.end();
    }

private:
    AcRxClass* m_class;
};

} // namespace

std::vector<const Codec*> annotationCodecs()
{
    static const ScaleCodec scale;
    static const LayoutCodec layout;
    static const MLeaderStyleCodec mleaderStyle;
    static const MLeaderCodec mleader;
    static const DimensionCodec aligned(AcDbAlignedDimension::desc());
    static const DimensionCodec rotated(AcDbRotatedDimension::desc());
    return {&scale, &layout, &mleaderStyle, &mleader, &aligned, &rotated};
}

} // namespace sim::dxf
