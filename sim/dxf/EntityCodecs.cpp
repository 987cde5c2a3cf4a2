// The codecs of the entities the database models: line, circle, arc, ellipse, spline, lightweight
// polyline, 2D and 3D polylines with their vertices and end, text, multi-line text, attribute definition, attribute,
// block reference, and the begin and end markers of a block definition.
#include <memory>
#include <optional>
#include <string>

#include "dbelipse.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbspline.h"
#include "sim/db/FileAccess.h"
#include "sim/dxf/Angles.h"
#include "sim/dxf/Codec.h"
#include "sim/dxf/EntityFields.h"

namespace sim::dxf {

namespace {

using Ref = ReadContext::Ref;



/// The frame every entity codec shares: a new object, its AcDbEntity fields, then its own.
template <class T>
class EntityCodec : public Codec {
public:
    AcRxClass* objectClass() const override { return T::desc(); }

    AcDbObject* read(Fields& f, ReadContext& cx) const override
    {
        if (!accepts(f))
            return nullptr;
        auto obj = std::make_unique<T>();
        prepare(*obj, f);
        readEntity(*obj, f, cx);
        readFields(*obj, f, cx);
        return obj.release();
    }

    void write(const AcDbObject& obj, ObjectWriter& w, WriteContext& cx) const override
    {
        const T& e = static_cast<const T&>(obj);
        w.begin(recordName(), e);
        writeEntity(e, w, cx);
        writeFields(e, w, cx);
        w.end();
    }

protected:
    /// False leaves the record to tag storage.
    virtual bool accepts(Fields&) const { return true; }
    /// Runs before the entity's common fields.
    virtual void prepare(T&, Fields&) const {}
    virtual void readFields(T& e, Fields& f, ReadContext& cx) const = 0;
    virtual void writeFields(const T& e, ObjectWriter& w, WriteContext& cx) const = 0;
};

class LineCodec : public EntityCodec<AcDbLine> {
public:
    std::string_view recordName() const override { return "LINE"; }

protected:
    void readFields(AcDbLine& e, Fields& f, ReadContext&) const override
    {
        f.sub("AcDbLine");
        e.setThickness(f.real(39));
        e.setStartPoint(f.point(10));
        e.setEndPoint(f.point(11));
        e.setNormal(readNormal(f));
    }
    void writeFields(const AcDbLine& e, ObjectWriter& w, WriteContext&) const override
    {
        w.subclass("AcDbLine");
        if (e.thickness() != 0.0)
            w.out.real(39, e.thickness());
        w.out.point(10, e.startPoint());
        w.out.point(11, e.endPoint());
        writeNormal(w, e.normal());
    }
};

// A radius the database refuses (zero or negative) is the file's all the same: kept, and written
// while the entity has no radius of its own.
template <class E>
void readRadius(E& e, Fields& f)
{
    const Tag* t = f.find(40);
    std::string text = t ? std::string(t->value) : std::string();
    if (e.setRadius(f.real(40)) != Acad::eOk && t)
        f.keepValue(40, text);
}

template <class E>
void writeRadius(const E& e, ObjectWriter& w)
{
    std::optional<std::string_view> kept = w.keptValue(40);
    w.out.real(40, kept && e.radius() == 0.0 ? std::stod(std::string(*kept)) : e.radius());
}

class CircleCodec : public EntityCodec<AcDbCircle> {
public:
    std::string_view recordName() const override { return "CIRCLE"; }

protected:
    void readFields(AcDbCircle& e, Fields& f, ReadContext&) const override
    {
        f.sub("AcDbCircle");
        e.setNormal(readNormal(f));
        e.setThickness(f.real(39));
        e.setCenter(readOcsPoint(f, 10, e.normal()));
        readRadius(e, f);
    }
    void writeFields(const AcDbCircle& e, ObjectWriter& w, WriteContext&) const override
    {
        w.subclass("AcDbCircle");
        if (e.thickness() != 0.0)
            w.out.real(39, e.thickness());
        writeOcsPoint(w, 10, e.normal(), e.center());
        writeRadius(e, w);
        writeNormal(w, e.normal());
    }
};

class ArcCodec : public EntityCodec<AcDbArc> {
public:
    std::string_view recordName() const override { return "ARC"; }

protected:
    void readFields(AcDbArc& e, Fields& f, ReadContext&) const override
    {
        f.sub("AcDbCircle");
        e.setNormal(readNormal(f));
        e.setThickness(f.real(39));
        e.setCenter(readOcsPoint(f, 10, e.normal()));
        readRadius(e, f);
        f.sub("AcDbArc");
        e.setStartAngle(radians(f.real(50)));
        e.setEndAngle(radians(f.real(51)));
    }
    void writeFields(const AcDbArc& e, ObjectWriter& w, WriteContext&) const override
    {
        w.subclass("AcDbCircle");
        if (e.thickness() != 0.0)
            w.out.real(39, e.thickness());
        writeOcsPoint(w, 10, e.normal(), e.center());
        writeRadius(e, w);
        writeNormal(w, e.normal());
        w.subclass("AcDbArc");
        w.out.real(50, degrees(e.startAngle()));
        w.out.real(51, degrees(e.endAngle()));
    }
};

class EllipseCodec : public EntityCodec<AcDbEllipse> {
public:
    std::string_view recordName() const override { return "ELLIPSE"; }

protected:
    bool accepts(Fields& f) const override
    {
        f.sub("AcDbEllipse");
        const Tag* ratio = f.find(40);
        const Tag* x = f.find(11);
        const Tag* y = f.find(21);
        const Tag* z = f.find(31);
        bool axis = (x && x->real != 0.0) || (y && y->real != 0.0) || (z && z->real != 0.0);
        return axis && (!ratio || (ratio->real > 0.0 && ratio->real <= 1.0));
    }
    void readFields(AcDbEllipse& e, Fields& f, ReadContext&) const override
    {
        f.sub("AcDbEllipse");
        AcGePoint3d center = f.point(10);
        AcGeVector3d major = f.vector(11, AcGeVector3d::kXAxis);
        AcGeVector3d normal = readNormal(f);
        double ratio = f.real(40, 1.0);
        double start = f.real(41, 0.0);
        double end = f.real(42, 6.283185307179586);
        e.set(center, normal.isZeroLength() ? AcGeVector3d::kZAxis : normal.normal(), major, ratio, start, end);
    }
    void writeFields(const AcDbEllipse& e, ObjectWriter& w, WriteContext&) const override
    {
        w.subclass("AcDbEllipse");
        w.out.point(10, e.center());
        w.out.point(11, e.majorAxis());
        writeNormal(w, e.normal());
        w.out.real(40, e.radiusRatio());
        w.out.real(41, e.startAngle());
        w.out.real(42, e.endAngle());
    }
};

/// Flags of SPLINE: closed, periodic, rational; the others (planar, linear) are kept as they came.
constexpr int kSplineModel = 1 | 2 | 4;

class SplineCodec : public EntityCodec<AcDbSpline> {
public:
    std::string_view recordName() const override { return "SPLINE"; }

protected:
    bool accepts(Fields& f) const override
    {
        // A definition whose counts don't agree stays as the file has it.
        f.sub("AcDbSpline");
        int degree = static_cast<int>(f.find(71) ? f.find(71)->integer : 3);
        int knots = 0, weights = 0, control = 0;
        for (int i = f.begin(); i < f.end(); ++i) {
            int code = f.at(i).code;
            knots += code == 40;
            weights += code == 41;
            control += code == 10;
        }
        return degree >= 1 && control > 0 && knots == control + degree + 1 && (weights == 0 || weights == control);
    }
    void readFields(AcDbSpline& e, Fields& f, ReadContext&) const override
    {
        f.sub("AcDbSpline");
        e.setNormal(readNormal(f));
        int flags = f.int32(70);
        f.keepBits(70, flags & ~kSplineModel);
        int degree = f.int32(71, 3);
        f.take(72);
        f.take(73);
        f.take(74);
        AcGeVector3d startTangent = f.vector(12, AcGeVector3d());
        AcGeVector3d endTangent = f.vector(13, AcGeVector3d());
        AcGePoint3dArray control, fit;
        AcGeDoubleArray knots, weights;
        for (int i = f.begin(); i < f.end(); ++i) {
            if (f.isTaken(i))
                continue;
            const Tag& t = f.at(i);
            switch (t.code) {
            case 40: knots.append(t.real); break;
            case 41: weights.append(t.real); break;
            case 10: control.append(AcGePoint3d(t.real, 0, 0)); break;
            case 20: if (control.length()) control[control.length() - 1].y = t.real; break;
            case 30: if (control.length()) control[control.length() - 1].z = t.real; break;
            case 11: fit.append(AcGePoint3d(t.real, 0, 0)); break;
            case 21: if (fit.length()) fit[fit.length() - 1].y = t.real; break;
            case 31: if (fit.length()) fit[fit.length() - 1].z = t.real; break;
            default: continue;
            }
            f.takeAt(i);
        }
        // The tolerances (42, 43, 44) stay as the file wrote them.
        if (fit.length() || !startTangent.isZeroLength() || !endTangent.isZeroLength())
            e.setFitData(fit, degree, 0.0, startTangent, endTangent);
        e.setNurbsData(degree, weights.length() > 0, flags & 1, flags & 2, control, knots, weights);
    }
    void writeFields(const AcDbSpline& e, ObjectWriter& w, WriteContext&) const override
    {
        int degree = 0;
        bool rational = false, closed = false, periodic = false, tangents = false;
        AcGePoint3dArray control, fit;
        AcGeDoubleArray knots, weights;
        double ctrlTol = 0, knotTol = 0, fitTol = 0;
        e.getNurbsData(degree, rational, closed, periodic, control, knots, weights, ctrlTol, knotTol);
        AcGeVector3d startTangent, endTangent;
        int fitDegree = degree;
        e.getFitData(fit, fitDegree, fitTol, tangents, startTangent, endTangent);
        w.subclass("AcDbSpline");
        writeNormal(w, e.normal());
        w.out.integer(70, (closed ? 1 : 0) | (periodic ? 2 : 0) | (rational ? 4 : 0) | static_cast<int>(w.keptBits(70)));
        w.out.integer(71, degree);
        w.out.integer(72, knots.length());
        w.out.integer(73, control.length());
        w.out.integer(74, fit.length());
        if (!startTangent.isZeroLength())
            w.out.point(12, startTangent);
        if (!endTangent.isZeroLength())
            w.out.point(13, endTangent);
        for (int i = 0; i < knots.length(); ++i)
            w.out.real(40, knots[i]);
        for (int i = 0; rational && i < weights.length(); ++i)
            w.out.real(41, weights[i]);
        for (int i = 0; i < control.length(); ++i)
            w.out.point(10, control[i]);
        for (int i = 0; i < fit.length(); ++i)
            w.out.point(11, fit[i]);
    }
};

class LwPolylineCodec : public EntityCodec<AcDbPolyline> {
public:
    std::string_view recordName() const override { return "LWPOLYLINE"; }

protected:
    void readFields(AcDbPolyline& e, Fields& f, ReadContext&) const override
    {
        f.sub("AcDbPolyline");
        // The count follows from the vertices; it only sizes their list.
        if (const Tag* count = f.take(90); count && count->integer > 0 && count->integer <= f.end() - f.begin())
            sim::db::reserveVertices(&e, static_cast<unsigned>(count->integer));
        int flags = f.int32(70);
        const Tag* constant = f.take(43);
        e.setElevation(f.real(38));
        e.setThickness(f.real(39));
        e.setNormal(readNormal(f));
        if (constant)
            e.setConstantWidth(constant->real);

        // Vertices: each 10 begins one; its 20, widths, bulge and identifier follow.
        struct V {
            AcGePoint2d pt;
            double bulge = 0.0, start = -1.0, end = -1.0;
            Adesk::Int32 id = 0;
        };
        V v;
        bool open = false, identified = false;
        unsigned n = 0;
        auto flush = [&] {
            if (open)
                e.addVertexAt(n++, v.pt, v.bulge, v.start, v.end, v.id);
            v = V();
        };
        for (int i = f.begin(); i < f.end(); ++i) {
            if (f.isTaken(i))
                continue;
            const Tag& t = f.at(i);
            switch (t.code) {
            case 10:
                flush();
                open = true;
                v.pt.x = t.real;
                break;
            case 20:
                v.pt.y = t.real;
                break;
            case 40:
                v.start = t.real;
                break;
            case 41:
                v.end = t.real;
                break;
            case 42:
                v.bulge = t.real;
                break;
            case 91:
                v.id = static_cast<Adesk::Int32>(t.integer);
                identified = true;
                break;
            default:
                continue;
            }
            f.takeAt(i);
        }
        flush();
        if (identified) // even when all are 0, the file wrote them
            f.keepValue(91, "1");
        e.setClosed(flags & 1);
        e.setPlinegen(flags & 128);
    }
    void writeFields(const AcDbPolyline& e, ObjectWriter& w, WriteContext&) const override
    {
        w.subclass("AcDbPolyline");
        w.out.integer(90, e.numVerts());
        w.out.integer(70, (e.isClosed() ? 1 : 0) | (e.hasPlinegen() ? 128 : 0));
        double constant = 0.0;
        bool isConstant = e.getConstantWidth(constant) == Acad::eOk;
        if (isConstant && constant != 0.0)
            w.out.real(43, constant);
        if (e.elevation() != 0.0)
            w.out.real(38, e.elevation());
        if (e.thickness() != 0.0)
            w.out.real(39, e.thickness());
        bool identified = w.keptValue(91).has_value();
        for (unsigned i = 0; i < e.numVerts() && !identified; ++i) {
            Adesk::Int32 id = 0;
            e.getVertexIdentifierAt(i, id);
            identified = id != 0;
        }
        for (unsigned i = 0; i < e.numVerts(); ++i) {
            AcGePoint2d p;
            e.getPointAt(i, p);
            w.out.point2d(10, p.x, p.y);
            if (identified) {
                Adesk::Int32 id = 0;
                e.getVertexIdentifierAt(i, id);
                w.out.integer(91, id);
            }
            if (!isConstant) {
                double s = 0.0, en = 0.0;
                e.getWidthsAt(i, s, en);
                w.out.real(40, s);
                w.out.real(41, en);
            }
            double b = 0.0;
            e.getBulgeAt(i, b);
            if (b != 0.0)
                w.out.real(42, b);
        }
        writeNormal(w, e.normal());
    }
};

/// Flags of POLYLINE that make it something else than a 2D polyline: 3D polyline, mesh, face mesh.
constexpr int kPolyline3d = 8;
constexpr int kNot2d = kPolyline3d | 16 | 64;
/// The flag of a VERTEX of a 3D polyline.
constexpr int kVertex3d = 32;

/// The flags of a POLYLINE or VERTEX record without subclass markers.
int headFlags(Fields& f)
{
    const Tag* flags = f.head().find(70);
    return flags ? static_cast<int>(flags->integer) : 0;
}

class Polyline3dCodec : public EntityCodec<AcDb3dPolyline> {
public:
    std::string_view recordName() const override { return "POLYLINE"; }

protected:
    bool accepts(Fields& f) const override
    {
        if (f.record().hasSubclassMarkers())
            return f.sub("AcDb3dPolyline").end() > 0;
        return (headFlags(f) & kNot2d) == kPolyline3d;
    }
    void readFields(AcDb3dPolyline& e, Fields& f, ReadContext&) const override
    {
        f.sub("AcDb3dPolyline");
        f.take(66);
        f.point(10); // always the origin: the vertices carry their own heights
        int flags = f.int32(70);
        int curve = f.int32(75);
        if (flags & 1)
            e.makeClosed();
        if (flags & 4)
            e.setPolyType(curve == 6 ? AcDb::k3dCubicSplinePoly : AcDb::k3dQuadSplinePoly);
        f.keepBits(70, flags & ~(1 | 4 | kPolyline3d));
    }
    void writeFields(const AcDb3dPolyline& e, ObjectWriter& w, WriteContext&) const override
    {
        w.subclass("AcDb3dPolyline");
        w.out.integer(66, 1);
        w.out.point(10, AcGePoint3d::kOrigin);
        int curve = e.polyType() == AcDb::k3dCubicSplinePoly ? 6 : e.polyType() == AcDb::k3dQuadSplinePoly ? 5 : 0;
        w.out.integer(70, (e.isClosed() ? 1 : 0) | (curve ? 4 : 0) | kPolyline3d | static_cast<int>(w.keptBits(70)));
        if (curve)
            w.out.integer(75, curve);
    }
};

class Vertex3dCodec : public EntityCodec<AcDb3dPolylineVertex> {
public:
    std::string_view recordName() const override { return "VERTEX"; }

protected:
    void readFields(AcDb3dPolylineVertex& e, Fields& f, ReadContext&) const override
    {
        f.sub("AcDbVertex");
        f.sub("AcDb3dPolylineVertex");
        e.setPosition(f.point(10));
        f.keepBits(70, f.int32(70) & ~kVertex3d);
    }
    void writeFields(const AcDb3dPolylineVertex& e, ObjectWriter& w, WriteContext&) const override
    {
        w.subclass("AcDbVertex");
        w.subclass("AcDb3dPolylineVertex");
        w.out.point(10, e.position());
        w.out.integer(70, kVertex3d | static_cast<int>(w.keptBits(70)));
    }
};

/// POLYLINE and VERTEX records are read by one codec each: the 2D ones hand 3D polylines and their
/// vertices on by the flags.
const Polyline3dCodec polyline3d;
const Vertex3dCodec vertex3d;

class Polyline2dCodec : public EntityCodec<AcDb2dPolyline> {
public:
    std::string_view recordName() const override { return "POLYLINE"; }

    AcDbObject* read(Fields& f, ReadContext& cx) const override
    {
        bool is3d = f.record().hasSubclassMarkers() ? f.sub("AcDb3dPolyline").end() > 0
                                                    : (headFlags(f) & kNot2d) == kPolyline3d;
        return is3d ? polyline3d.read(f, cx) : EntityCodec::read(f, cx);
    }

protected:
    bool accepts(Fields& f) const override
    {
        // A 3D polyline or a mesh has its own subclass; without subclass markers its flags tell.
        if (f.record().hasSubclassMarkers())
            return f.sub("AcDb2dPolyline").end() > 0;
        const Tag* flags = f.head().find(70);
        return !(flags && (flags->integer & kNot2d));
    }
    void readFields(AcDb2dPolyline& e, Fields& f, ReadContext&) const override
    {
        f.sub("AcDb2dPolyline");
        f.take(66);
        AcGePoint3d p = f.point(10);
        e.setElevation(p.z);
        int flags = f.int32(70);
        e.setDefaultStartWidth(f.real(40));
        e.setDefaultEndWidth(f.real(41));
        int curve = f.int32(75);
        e.setNormal(readNormal(f));
        if (flags & 1)
            e.makeClosed();
        if (flags & 2)
            e.setPolyType(AcDb::k2dFitCurvePoly);
        else if (flags & 4)
            e.setPolyType(curve == 6 ? AcDb::k2dCubicSplinePoly : AcDb::k2dQuadSplinePoly);
    }
    void writeFields(const AcDb2dPolyline& e, ObjectWriter& w, WriteContext&) const override
    {
        w.subclass("AcDb2dPolyline");
        w.out.integer(66, 1);
        w.out.point(10, AcGePoint3d(0.0, 0.0, e.elevation()));
        int flags = e.isClosed() ? 1 : 0;
        int curve = 0;
        switch (e.polyType()) {
        case AcDb::k2dFitCurvePoly:
            flags |= 2;
            break;
        case AcDb::k2dQuadSplinePoly:
            flags |= 4;
            curve = 5;
            break;
        case AcDb::k2dCubicSplinePoly:
            flags |= 4;
            curve = 6;
            break;
        default:
            break;
        }
        w.out.integer(70, flags);
        if (e.defaultStartWidth() != 0.0)
            w.out.real(40, e.defaultStartWidth());
        if (e.defaultEndWidth() != 0.0)
            w.out.real(41, e.defaultEndWidth());
        if (curve)
            w.out.integer(75, curve);
        writeNormal(w, e.normal());
    }
};

class Vertex2dCodec : public EntityCodec<AcDb2dVertex> {
public:
    std::string_view recordName() const override { return "VERTEX"; }

    AcDbObject* read(Fields& f, ReadContext& cx) const override
    {
        bool is3d = f.record().hasSubclassMarkers() ? f.sub("AcDb3dPolylineVertex").end() > 0
                                                    : (headFlags(f) & kVertex3d) != 0;
        return is3d ? vertex3d.read(f, cx) : EntityCodec::read(f, cx);
    }

protected:
    void readFields(AcDb2dVertex& e, Fields& f, ReadContext&) const override
    {
        f.sub("AcDbVertex");
        f.sub("AcDb2dVertex");
        e.setPosition(f.point(10));
        e.setStartWidth(f.real(40));
        e.setEndWidth(f.real(41));
        e.setBulge(f.real(42));
        // The vertex flags (70), tangent (50) and identifier (91) stay as they came.
    }
    void writeFields(const AcDb2dVertex& e, ObjectWriter& w, WriteContext&) const override
    {
        w.subclass("AcDbVertex");
        w.subclass("AcDb2dVertex");
        w.out.point(10, e.position());
        if (e.startWidth() != 0.0)
            w.out.real(40, e.startWidth());
        if (e.endWidth() != 0.0)
            w.out.real(41, e.endWidth());
        if (e.bulge() != 0.0)
            w.out.real(42, e.bulge());
    }
};

class SequenceEndCodec : public EntityCodec<AcDbSequenceEnd> {
public:
    std::string_view recordName() const override { return "SEQEND"; }

protected:
    void readFields(AcDbSequenceEnd&, Fields&, ReadContext&) const override {}
    void writeFields(const AcDbSequenceEnd&, ObjectWriter&, WriteContext&) const override {}
};

class BlockBeginCodec : public EntityCodec<AcDbBlockBegin> {
public:
    std::string_view recordName() const override { return "BLOCK"; }

protected:
    // The block's own fields belong to its record: the reader of the BLOCKS section takes them.
    void readFields(AcDbBlockBegin&, Fields&, ReadContext&) const override {}
    void writeFields(const AcDbBlockBegin& e, ObjectWriter& w, WriteContext& cx) const override
    {
        writeBlockBeginFields(e, w, cx);
    }
};

class BlockEndCodec : public EntityCodec<AcDbBlockEnd> {
public:
    std::string_view recordName() const override { return "ENDBLK"; }

protected:
    void readFields(AcDbBlockEnd&, Fields& f, ReadContext&) const override { f.sub("AcDbBlockEnd"); }
    void writeFields(const AcDbBlockEnd&, ObjectWriter& w, WriteContext&) const override { w.subclass("AcDbBlockEnd"); }
};

class TextCodec : public EntityCodec<AcDbText> {
public:
    std::string_view recordName() const override { return "TEXT"; }

protected:
    void readFields(AcDbText& e, Fields& f, ReadContext& cx) const override
    {
        readTextFields(e, f.sub("AcDbText"), cx);
        if (auto mode = enumValue(f.sub("AcDbText", 1).integer(73), AcDb::kTextBase, AcDb::kTextTop))
            e.setVerticalMode(*mode);
    }
    void writeFields(const AcDbText& e, ObjectWriter& w, WriteContext& cx) const override
    {
        writeTextFields(e, w, cx);
        w.subclass("AcDbText");
        if (e.verticalMode() != AcDb::kTextBase)
            w.out.integer(73, e.verticalMode());
    }
};

class MTextCodec : public EntityCodec<AcDbMText> {
public:
    std::string_view recordName() const override { return "MTEXT"; }

protected:
    void readFields(AcDbMText& e, Fields& f, ReadContext& cx) const override { readMTextFields(e, f.sub("AcDbMText"), cx); }
    void writeFields(const AcDbMText& e, ObjectWriter& w, WriteContext& cx) const override
    {
        w.subclass("AcDbMText");
        writeMTextFields(e, w, cx);
    }
};

class AttributeDefinitionCodec : public EntityCodec<AcDbAttributeDefinition> {
public:
    std::string_view recordName() const override { return "ATTDEF"; }

protected:
    void readFields(AcDbAttributeDefinition& e, Fields& f, ReadContext& cx) const override
    {
        readTextFields(e, f.sub("AcDbText"), cx);
        f.sub("AcDbAttributeDefinition");
        AttributeFields a = readAttributeFields(f);
        e.setPrompt(f.text(3).c_str());
        e.setTag(a.tag.c_str());
        e.setInvisible(a.flags & 1);
        e.setConstant(a.flags & 2);
        e.setVerifiable(a.flags & 4);
        e.setPreset(a.flags & 8);
        e.setFieldLength(static_cast<Adesk::UInt16>(a.fieldLength));
        if (auto mode = enumValue(a.vertical, AcDb::kTextBase, AcDb::kTextTop))
            e.setVerticalMode(*mode);
        e.setLockPositionInBlock(a.locked);
        if (f.embedded()) {
            AcDbMText m;
            readMTextFields(m, f, cx, true);
            e.setMTextAttributeDefinition(&m);
        }
    }
    void writeFields(const AcDbAttributeDefinition& e, ObjectWriter& w, WriteContext& cx) const override
    {
        writeTextFields(e, w, cx);
        w.subclass("AcDbAttributeDefinition");
        AttributeFields a;
        a.tag = e.tagConst();
        a.flags = (e.isInvisible() ? 1 : 0) | (e.isConstant() ? 2 : 0) | (e.isVerifiable() ? 4 : 0) | (e.isPreset() ? 8 : 0);
        a.fieldLength = e.fieldLength();
        a.vertical = e.verticalMode();
        a.locked = e.lockPositionInBlock();
        writeAttributeFields(a, w, e.promptConst());
        if (e.isMTextAttributeDefinition()) {
            std::unique_ptr<AcDbMText> m(e.getMTextAttributeDefinition());
            w.embedded();
            writeMTextFields(*m, w, cx);
        }
    }
};

class AttributeCodec : public EntityCodec<AcDbAttribute> {
public:
    std::string_view recordName() const override { return "ATTRIB"; }

protected:
    void prepare(AcDbAttribute& e, Fields& f) const override
    {
        // Only a definition hands the constant, verify and preset flags to an attribute.
        const Tag* flags = f.sub("AcDbAttribute").find(70);
        if (flags && (flags->integer & 14)) {
            AcDbAttributeDefinition def;
            def.setConstant(flags->integer & 2);
            def.setVerifiable(flags->integer & 4);
            def.setPreset(flags->integer & 8);
            e.setAttributeFromBlock(&def, AcGeMatrix3d::kIdentity);
        }
    }
    void readFields(AcDbAttribute& e, Fields& f, ReadContext& cx) const override
    {
        readTextFields(e, f.sub("AcDbText"), cx);
        f.sub("AcDbAttribute");
        AttributeFields a = readAttributeFields(f);
        e.setTag(a.tag.c_str());
        e.setInvisible(a.flags & 1);
        e.setFieldLength(static_cast<Adesk::UInt16>(a.fieldLength));
        if (auto mode = enumValue(a.vertical, AcDb::kTextBase, AcDb::kTextTop))
            e.setVerticalMode(*mode);
        e.setLockPositionInBlock(a.locked);
        if (f.embedded()) {
            AcDbMText m;
            readMTextFields(m, f, cx, true);
            std::wstring single = e.textStringConst();
            e.setMTextAttribute(&m);
            e.setTextString(single.c_str()); // the single-line text stays as the file has it
        }
    }
    void writeFields(const AcDbAttribute& e, ObjectWriter& w, WriteContext& cx) const override
    {
        writeTextFields(e, w, cx);
        w.subclass("AcDbAttribute");
        AttributeFields a;
        a.tag = e.tagConst();
        a.flags = (e.isInvisible() ? 1 : 0) | (e.isConstant() ? 2 : 0) | (e.isVerifiable() ? 4 : 0) | (e.isPreset() ? 8 : 0);
        a.fieldLength = e.fieldLength();
        a.vertical = e.verticalMode();
        a.locked = e.lockPositionInBlock();
        writeAttributeFields(a, w, nullptr);
        if (e.isMTextAttribute()) {
            std::unique_ptr<AcDbMText> m(e.getMTextAttribute());
            w.embedded();
            writeMTextFields(*m, w, cx);
        }
    }
};

class BlockReferenceCodec : public EntityCodec<AcDbBlockReference> {
public:
    std::string_view recordName() const override { return "INSERT"; }

protected:
    bool accepts(Fields& f) const override
    {
        // A multiple insertion (rows and columns) is kept as tag storage.
        return f.sub("AcDbMInsertBlock").begin() == f.end() || !f.record().hasSubclassMarkers();
    }
    void readFields(AcDbBlockReference& e, Fields& f, ReadContext& cx) const override
    {
        f.sub("AcDbBlockReference");
        f.take(66); // the attributes that follow say it
        referByName(f, cx, &e, Ref::Block, 2, f.str(2));
        e.setNormal(readNormal(f));
        e.setPosition(readOcsPoint(f, 10, e.normal()));
        e.setScaleFactors(AcGeScale3d(f.real(41, 1.0), f.real(42, 1.0), f.real(43, 1.0)));
        e.setRotation(radians(f.real(50)));
    }
    void writeFields(const AcDbBlockReference& e, ObjectWriter& w, WriteContext& cx) const override
    {
        w.subclass("AcDbBlockReference");
        if (hasLiveAttributes(e))
            w.out.integer(66, 1);
        w.out.write(2, spelledName(w, 2, cx.name(e.blockTableRecord())));
        writeOcsPoint(w, 10, e.normal(), e.position());
        AcGeScale3d s = e.scaleFactors();
        if (s.sx != 1.0)
            w.out.real(41, s.sx);
        if (s.sy != 1.0)
            w.out.real(42, s.sy);
        if (s.sz != 1.0)
            w.out.real(43, s.sz);
        if (e.rotation() != 0.0)
            w.out.real(50, degrees(e.rotation()));
        writeNormal(w, e.normal());
    }
};

} // namespace

bool hasLiveAttributes(const AcDbBlockReference& ref)
{
    for (AcDbObjectId id : sim::db::attributeIds(&ref))
        if (AcDbObject* a = sim::db::objectOf(id); a && !a->isErased())
            return true;
    return false;
}

std::vector<const Codec*> entityCodecs()
{
    static const LineCodec line;
    static const CircleCodec circle;
    static const ArcCodec arc;
    static const EllipseCodec ellipse;
    static const SplineCodec spline;
    static const LwPolylineCodec lwpolyline;
    static const Polyline2dCodec polyline;
    static const Vertex2dCodec vertex;
    static const SequenceEndCodec seqend;
    static const BlockBeginCodec block;
    static const BlockEndCodec endblk;
    static const TextCodec text;
    static const MTextCodec mtext;
    static const AttributeDefinitionCodec attdef;
    static const AttributeCodec attrib;
    static const BlockReferenceCodec insert;
    // The 2D polyline and vertex come before the 3D ones: they read the records of that name.
    return {&line, &circle, &arc, &ellipse, &spline, &lwpolyline, &polyline, &vertex, &polyline3d, &vertex3d, &seqend,
            &block, &endblk, &text, &mtext, &attdef, &attrib, &insert};
}

} // namespace sim::dxf
