// The codec of classic leaders (LEADER): style, arrowhead, path type, annotation type, vertices,
// annotation and normal. The hook line, text size, colour, directions and offsets stay as the file
// has them, in their places.
#include <memory>

#include "dbldr.h"
#include "sim/db/FileAccess.h"
#include "sim/dxf/Codec.h"
#include "sim/dxf/EntityFields.h"

namespace sim::dxf {

namespace {

class LeaderCodec : public Codec {
public:
    std::string_view recordName() const override { return "LEADER"; }
    AcRxClass* objectClass() const override { return AcDbLeader::desc(); }

    AcDbObject* read(Fields& f, ReadContext& cx) const override
    {
        auto leader = std::make_unique<AcDbLeader>();
        readEntity(*leader, f, cx);
        f.sub("AcDbLeader");
        // A style the drawing lacks stays as the name the file gives.
        if (const Tag* style = f.find(3)) {
            AcDbObjectId id = cx.find(sim::db::kDimStyleTable, style->value);
            if (!id.isNull()) {
                leader->setDimensionStyle(id);
                f.take(3);
            }
        }
        if (!f.flag(71, true))
            leader->disableArrowHead();
        if (f.int32(72) == 1)
            leader->setToSplineLeader();
        // The type follows from the annotation; kept for an annotation the writer cannot tell.
        if (const Tag* type = f.take(73))
            f.keepValue(73, type->value);
        f.take(76); // the count follows from the vertices
        leader->setNormal(readNormal(f));
        if (const Tag* anno = f.find(340)) {
            if (AcDbObjectId id = cx.id(f.handle(340)); !id.isNull())
                leader->attachAnnotation(id);
            else
                f.keepValue(340, anno->value);
        }

        // Each 10 begins a vertex; its 20 and 30 follow. The vertices are in world coordinates.
        bool open = false;
        AcGePoint3d v;
        auto flush = [&] {
            if (open)
                leader->appendVertex(v);
            v = AcGePoint3d::kOrigin;
        };
        for (int i = f.begin(); i < f.end(); ++i) {
            if (f.isTaken(i))
                continue;
            const Tag& t = f.at(i);
            if (t.code == 10) {
                flush();
                open = true;
                v.x = t.real;
            } else if (t.code == 20 && open) {
                v.y = t.real;
            } else if (t.code == 30 && open) {
                v.z = t.real;
            } else {
                continue;
            }
            f.takeAt(i);
        }
        flush();
        return leader.release();
    }

    void write(const AcDbObject& obj, ObjectWriter& w, WriteContext& cx) const override
    {
        const auto& leader = static_cast<const AcDbLeader&>(obj);
        w.begin("LEADER", leader);
        writeEntity(leader, w, cx);
        w.subclass("AcDbLeader");
        if (const std::string& style = cx.name(leader.dimensionStyle()); !style.empty())
            w.out.write(3, style);
        w.out.integer(71, leader.hasArrowHead() ? 1 : 0);
        w.out.integer(72, leader.isSplined() ? 1 : 0);
        int type = leader.annoType();
        std::optional<std::string_view> keptType = w.keptValue(73);
        if (keptType && type == AcDbLeader::kNoAnno && !leader.annotationObjId().isNull())
            w.out.write(73, *keptType);
        else
            w.out.integer(73, type);
        w.out.integer(76, leader.numVertices());
        for (int i = 0; i < leader.numVertices(); ++i)
            w.out.point(10, leader.vertexAt(i));
        if (!leader.annotationObjId().isNull())
            w.out.handle(340, leader.annotationObjId().handle());
        else if (std::optional<std::string_view> kept = w.keptValue(340))
            w.out.write(340, *kept);
        writeNormal(w, leader.normal());
        w.end();
    }

};

} // namespace

std::vector<const Codec*> leaderCodecs()
{
    static const LeaderCodec leader;
    return {&leader};
}

} // namespace sim::dxf
