// Model space as an SVG picture: every entity becomes polylines (arcs in short chords) and texts in
// world coordinates; block references draw their blocks through their transforms.
#include "sim/dxf/Svg.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <vector>

#include "dbdim.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "dbldr.h"
#include "mleader.h"
#include "sim/core/Session.h"
#include "sim/db/FileAccess.h"
#include "sim/db/Geometry.h"
#include "sim/db/UnknownObject.h"

namespace sim::dxf {

namespace {

using sim::db::geom::ocsAxes;
using sim::db::geom::ocsToWcs;

typedef Adesk::UInt32 Rgb;
constexpr Rgb kBlack = 0x000000;
/// Chords of an arc: one per this many radians at most.
constexpr double kStep = M_PI / 36.0;
constexpr int kMaxDepth = 16;

struct Shape {
    std::vector<AcGePoint3d> points;
    bool closed = false;
    Rgb rgb = kBlack;
};

struct Label {
    AcGePoint3d at;
    double height = 1.0;
    double angle = 0.0; ///< radians
    std::string text;
    const char* anchor = "start";
    Rgb rgb = kBlack;
};

/// Points of an arc about centre in the plane of the normal, from a to b counter-clockwise.
void arcPoints(std::vector<AcGePoint3d>& out, const AcGePoint3d& centre, const AcGeVector3d& normal, double radius,
               double a, double b)
{
    AcGeVector3d x, y;
    ocsAxes(normal, x, y);
    while (b < a)
        b += 2.0 * M_PI;
    int n = std::max(1, static_cast<int>(std::ceil((b - a) / kStep)));
    for (int i = 0; i <= n; ++i) {
        double t = a + (b - a) * i / n;
        out.push_back(centre + x * (radius * std::cos(t)) + y * (radius * std::sin(t)));
    }
}

/// The points of a segment from p to q (in the plane's own coordinates) with a bulge, without p.
void bulgePoints(std::vector<AcGePoint3d>& out, const AcGePoint3d& p, const AcGePoint3d& q, double bulge)
{
    if (bulge == 0.0) {
        out.push_back(q);
        return;
    }
    double dx = q.x - p.x, dy = q.y - p.y;
    double chord = std::hypot(dx, dy);
    if (chord == 0.0)
        return;
    double theta = 4.0 * std::atan(bulge);
    double h = chord / 2.0 / std::tan(theta / 2.0);
    AcGePoint3d c(p.x + dx / 2.0 - dy / chord * h, p.y + dy / 2.0 + dx / chord * h, p.z);
    double r = std::hypot(p.x - c.x, p.y - c.y);
    double a = std::atan2(p.y - c.y, p.x - c.x);
    int n = std::max(1, static_cast<int>(std::ceil(std::fabs(theta) / kStep)));
    for (int i = 1; i <= n; ++i) {
        double t = a + theta * i / n;
        out.push_back(AcGePoint3d(c.x + r * std::cos(t), c.y + r * std::sin(t), p.z));
    }
}

class Painter {
public:
    explicit Painter(AcDbDatabase& db) : m_db(db) {}

    void space(AcDbObjectId btr) { block(btr, AcGeMatrix3d::kIdentity, kBlack, 0); }

    std::string svg() const;

private:
    void block(AcDbObjectId btrId, const AcGeMatrix3d& xf, Rgb byBlock, int depth)
    {
        auto* btr = AcDbBlockTableRecord::cast(sim::db::objectOf(btrId));
        if (!btr || depth > kMaxDepth)
            return;
        for (AcDbObjectId id : sim::db::entityIds(btr))
            if (auto* e = AcDbEntity::cast(sim::db::objectOf(id)))
                entity(*e, xf, byBlock, depth);
    }

    bool visible(const AcDbEntity& e) const
    {
        if (e.isErased() || e.visibility() == AcDb::kInvisible)
            return false;
        auto* layer = AcDbLayerTableRecord::cast(sim::db::objectOf(e.layerId()));
        return !layer || (!layer->isOff() && !layer->isFrozen());
    }

    Rgb colorOf(const AcDbEntity& e, Rgb byBlock) const
    {
        AcCmColor c = e.color();
        if (c.isByBlock())
            return byBlock;
        if (c.isByLayer()) {
            auto* layer = AcDbLayerTableRecord::cast(sim::db::objectOf(e.layerId()));
            if (!layer)
                return kBlack;
            c = layer->color();
        }
        Rgb rgb = (static_cast<Rgb>(c.red()) << 16) | (static_cast<Rgb>(c.green()) << 8) | c.blue();
        return rgb == 0xFFFFFF ? kBlack : rgb; // white draws black on the white page
    }

    void add(std::vector<AcGePoint3d> pts, bool closed, Rgb rgb, const AcGeMatrix3d& xf)
    {
        if (pts.size() < 2)
            return;
        for (AcGePoint3d& p : pts)
            p = xf * p;
        m_shapes.push_back({std::move(pts), closed, rgb});
    }

    void text(const AcGePoint3d& at, double height, double angle, const std::wstring& s, const char* anchor, Rgb rgb,
              const AcGeMatrix3d& xf)
    {
        if (s.empty())
            return;
        AcGeVector3d dir = xf * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
        double scale = dir.length();
        m_labels.push_back({xf * at, height * (scale > 0 ? scale : 1.0), std::atan2(dir.y, dir.x), sim::toUtf8(s), anchor, rgb});
    }

    void entity(const AcDbEntity& e, const AcGeMatrix3d& xf, Rgb byBlock, int depth)
    {
        if (!visible(e))
            return;
        Rgb rgb = colorOf(e, byBlock);
        if (auto* line = AcDbLine::cast(&e)) {
            add({line->startPoint(), line->endPoint()}, false, rgb, xf);
        } else if (auto* arc = AcDbArc::cast(&e)) {
            std::vector<AcGePoint3d> pts;
            arcPoints(pts, arc->center(), arc->normal(), arc->radius(), arc->startAngle(), arc->endAngle());
            add(std::move(pts), false, rgb, xf);
        } else if (auto* circle = AcDbCircle::cast(&e)) {
            std::vector<AcGePoint3d> pts;
            arcPoints(pts, circle->center(), circle->normal(), circle->radius(), 0.0, 2.0 * M_PI);
            add(std::move(pts), true, rgb, xf);
        } else if (auto* pl = AcDbPolyline::cast(&e)) {
            lwpolyline(*pl, rgb, xf);
        } else if (auto* pl2 = AcDb2dPolyline::cast(&e)) {
            polyline2d(*pl2, rgb, xf);
        } else if (auto* curve = AcDbCurve::cast(&e)) {
            curvePoints(*curve, rgb, xf);
        } else if (auto* ref = AcDbBlockReference::cast(&e)) {
            block(ref->blockTableRecord(), xf * ref->blockTransform(), rgb, depth + 1);
            for (AcDbObjectId id : sim::db::attributeIds(ref))
                if (auto* a = AcDbAttribute::cast(sim::db::objectOf(id)); a && !a->isInvisible())
                    entity(*a, xf, rgb, depth);
        } else if (auto* t = AcDbText::cast(&e)) {
            // A definition shows in its block only as its attributes do; a constant one gives no
            // attribute, and a visible constant one shows its text in every reference.
            if (auto* ad = AcDbAttributeDefinition::cast(t); ad && (depth == 0 || !ad->isConstant() || ad->isInvisible()))
                return;
            singleLine(*t, rgb, xf);
        } else if (auto* m = AcDbMText::cast(&e)) {
            multiLine(*m, rgb, xf);
        } else if (auto* d = AcDbAlignedDimension::cast(&e)) {
            dimension(*d, rgb, xf, depth);
        } else if (auto* ml = AcDbMLeader::cast(&e)) {
            multileader(*ml, rgb, xf);
        } else if (auto* ld = AcDbLeader::cast(&e)) {
            leader(*ld, rgb, xf);
        } else if (auto* u = sim::db::UnknownEntity::cast(&e)) {
            unknown(*u, rgb, xf, depth);
        }
    }

    /// Any other curve (an ellipse, a spline) by points along its parameter.
    void curvePoints(const AcDbCurve& c, Rgb rgb, const AcGeMatrix3d& xf)
    {
        double s = 0, e = 0;
        if (c.getStartParam(s) != Acad::eOk || c.getEndParam(e) != Acad::eOk)
            return;
        std::vector<AcGePoint3d> pts;
        for (int i = 0; i <= 128; ++i) {
            AcGePoint3d p;
            if (c.getPointAtParam(s + (e - s) * i / 128, p) == Acad::eOk)
                pts.push_back(p);
        }
        add(std::move(pts), false, rgb, xf);
    }

    /// A dimension draws its block; one without draws its lines and its text.
    void dimension(const AcDbAlignedDimension& d, Rgb rgb, const AcGeMatrix3d& xf, int depth)
    {
        if (!d.dimBlockId().isNull()) {
            block(d.dimBlockId(), xf, rgb, depth + 1);
            return;
        }
        AcGeVector3d dir = d.xLine2Point() - d.xLine1Point();
        if (auto* r = AcDbRotatedDimension::cast(&d))
            dir = AcGeVector3d(std::cos(r->rotation()), std::sin(r->rotation()), 0.0);
        if (dir.isZeroLength())
            return;
        dir = dir.normal();
        auto foot = [&](const AcGePoint3d& p) { return d.dimLinePoint() + dir * (p - d.dimLinePoint()).dotProduct(dir); };
        AcGePoint3d a = foot(d.xLine1Point()), b = foot(d.xLine2Point());
        add({d.xLine1Point(), a}, false, rgb, xf);
        add({d.xLine2Point(), b}, false, rgb, xf);
        add({a, b}, false, rgb, xf);
        double measured = 0.0;
        const_cast<AcDbAlignedDimension&>(d).measurement(measured);
        ACHAR* given = d.dimensionText();
        std::wstring label = given && *given ? given : std::to_wstring(static_cast<long long>(std::lround(measured)));
        delete[] given;
        AcGePoint3d at = d.textPosition() == AcGePoint3d::kOrigin ? a + (b - a) * 0.5 : d.textPosition();
        text(at, 2.5, std::atan2(dir.y, dir.x), label, "middle", rgb, xf);
    }

    /// A leader draws the line through its vertices (a splined one too).
    void leader(const AcDbLeader& l, Rgb rgb, const AcGeMatrix3d& xf)
    {
        std::vector<AcGePoint3d> pts;
        for (int i = 0; i < l.numVertices(); ++i)
            pts.push_back(l.vertexAt(i));
        add(std::move(pts), false, rgb, xf);
    }

    /// A multileader draws its leader lines and its text.
    void multileader(const AcDbMLeader& m, Rgb rgb, const AcGeMatrix3d& xf)
    {
        AcArray<int> leaders;
        m.getLeaderIndexes(leaders);
        for (int leader : leaders) {
            AcArray<int> lines;
            m.getLeaderLineIndexes(leader, lines);
            for (int line : lines) {
                int n = 0;
                m.numVertices(line, n);
                std::vector<AcGePoint3d> pts;
                for (int i = 0; i < n; ++i) {
                    AcGePoint3d p;
                    if (m.getVertex(line, i, p) == Acad::eOk)
                        pts.push_back(p);
                }
                add(std::move(pts), false, rgb, xf);
            }
            // The dogleg from the lines' common end towards the content.
            AcGeVector3d dogleg;
            AcGePoint3d end;
            if (!lines.isEmpty() && m.getDoglegDirection(leader, dogleg) == Acad::eOk && !dogleg.isZeroLength() &&
                m.getLastVertex(lines[0], end) == Acad::eOk && m.doglegLength() > 0.0)
                add({end, end + dogleg.normal() * m.doglegLength()}, false, rgb, xf);
        }
        if (std::unique_ptr<AcDbMText> content(m.mtext()); content)
            multiLine(*content, rgb, xf);
    }

    void lwpolyline(const AcDbPolyline& pl, Rgb rgb, const AcGeMatrix3d& xf)
    {
        unsigned n = pl.numVerts();
        std::vector<AcGePoint3d> plane;
        auto at = [&](unsigned i) {
            AcGePoint2d p;
            pl.getPointAt(i, p);
            return AcGePoint3d(p.x, p.y, pl.elevation());
        };
        if (n == 0)
            return;
        plane.push_back(at(0));
        unsigned segments = pl.isClosed() ? n : n - 1;
        for (unsigned i = 0; i < segments; ++i) {
            double b = 0.0;
            pl.getBulgeAt(i, b);
            bulgePoints(plane, at(i), at((i + 1) % n), b);
        }
        for (AcGePoint3d& p : plane)
            p = ocsToWcs(pl.normal(), p);
        add(std::move(plane), false, rgb, xf);
    }

    void polyline2d(const AcDb2dPolyline& pl, Rgb rgb, const AcGeMatrix3d& xf)
    {
        std::vector<const AcDb2dVertex*> vs;
        for (AcDbObjectId id : sim::db::vertexIds(&pl))
            if (auto* v = AcDb2dVertex::cast(sim::db::objectOf(id)); v && !v->isErased())
                vs.push_back(v);
        if (vs.empty())
            return;
        std::vector<AcGePoint3d> plane{vs[0]->position()};
        size_t segments = pl.isClosed() ? vs.size() : vs.size() - 1;
        for (size_t i = 0; i < segments; ++i)
            bulgePoints(plane, vs[i]->position(), vs[(i + 1) % vs.size()]->position(), vs[i]->bulge());
        for (AcGePoint3d& p : plane)
            p = ocsToWcs(pl.normal(), AcGePoint3d(p.x, p.y, pl.elevation()));
        add(std::move(plane), false, rgb, xf);
    }

    void singleLine(const AcDbText& t, Rgb rgb, const AcGeMatrix3d& xf)
    {
        const char* anchor = "start";
        switch (t.horizontalMode()) {
        case AcDb::kTextCenter:
        case AcDb::kTextMid:
        case AcDb::kTextAlign:
        case AcDb::kTextFit:
            anchor = "middle";
            break;
        case AcDb::kTextRight:
            anchor = "end";
            break;
        default:
            break;
        }
        AcGePoint3d at = t.isDefaultAlignment() ? t.position() : t.alignmentPoint();
        if (t.horizontalMode() == AcDb::kTextAlign || t.horizontalMode() == AcDb::kTextFit)
            at = t.position() + (t.alignmentPoint() - t.position()) * 0.5;
        text(at, t.height(), t.rotation(), t.textStringConst(), anchor, rgb, xf);
    }

    void multiLine(const AcDbMText& m, Rgb rgb, const AcGeMatrix3d& xf)
    {
        std::unique_ptr<ACHAR[]> plain(m.text());
        std::wstring all = plain ? plain.get() : L"";
        int column = (m.attachment() - 1) % 3;
        const char* anchor = column == 0 ? "start" : column == 1 ? "middle" : "end";
        double h = m.textHeight() > 0 ? m.textHeight() : 2.5;
        double angle = m.rotation();
        AcGeVector3d down(std::sin(angle), -std::cos(angle), 0.0);
        // The first base line: under a top attachment, a line lower for each further line of a middle
        // or bottom one.
        const int row = (m.attachment() - 1) / 3;
        const int lines = 1 + static_cast<int>(std::count(all.begin(), all.end(), L'\n'));
        const double block = h + (lines - 1) * h * 5.0 / 3.0;
        AcGePoint3d at = m.location() + down * (row == 0 || m.attachment() > 9 ? h : row == 1 ? h - block / 2.0 : h - block);
        size_t start = 0;
        for (int line = 0; start <= all.size(); ++line) {
            size_t end = all.find(L'\n', start);
            if (end == std::wstring::npos)
                end = all.size();
            std::wstring piece = all.substr(start, end - start);
            if (!piece.empty() && piece.back() == L'\r')
                piece.pop_back();
            text(at + down * (line * h * 5.0 / 3.0), h, angle, piece, anchor, rgb, xf);
            start = end + 1;
        }
    }

    /// Dimensions draw their block, multileaders their leader lines.
    void unknown(const sim::db::UnknownEntity& u, Rgb rgb, const AcGeMatrix3d& xf, int depth)
    {
        const sim::db::RawTags& tags = u.tags;
        auto number = [](const std::string& s) { return std::strtod(s.c_str(), nullptr); };
        if (u.recordName == L"DIMENSION") {
            for (const auto& t : tags)
                if (t.code == 2) {
                    AcDbObjectId id;
                    auto* table = AcDbBlockTable::cast(sim::db::objectOf(m_db.blockTableId()));
                    if (table && table->getAt(sim::fromUtf8(t.value).c_str(), id) == Acad::eOk)
                        block(id, xf, rgb, depth + 1);
                    return;
                }
            return;
        }
        if (u.recordName != L"MULTILEADER")
            return;
        std::vector<AcGePoint3d> pts;
        bool inLine = false;
        for (size_t i = 0; i < tags.size(); ++i) {
            const auto& t = tags[i];
            if (t.code == 304 && t.value == "LEADER_LINE{")
                inLine = true;
            else if (t.code == 305 && inLine) {
                add(std::move(pts), false, rgb, xf);
                pts.clear();
                inLine = false;
            } else if (inLine && t.code == 10 && i + 1 < tags.size() && tags[i + 1].code == 20) {
                double z = i + 2 < tags.size() && tags[i + 2].code == 30 ? number(tags[i + 2].value) : 0.0;
                pts.push_back(AcGePoint3d(number(t.value), number(tags[i + 1].value), z));
            }
        }
    }

    AcDbDatabase& m_db;
    std::vector<Shape> m_shapes;
    std::vector<Label> m_labels;
};

/// Appends the pieces.
template <class... Parts>
void put(std::string& out, const Parts&... parts)
{
    (out.append(parts), ...);
}

std::string num(double v)
{
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.10g", v + 0.0); // no "-0"
    return buf;
}

std::string color(Rgb rgb)
{
    char buf[8];
    std::snprintf(buf, sizeof buf, "#%06X", static_cast<unsigned>(rgb & 0xFFFFFF));
    return buf;
}

std::string escape(const std::string& s)
{
    std::string out;
    for (char c : s) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

std::string Painter::svg() const
{
    double minX = std::numeric_limits<double>::max(), minY = minX, maxX = -minX, maxY = -minX;
    auto grow = [&](const AcGePoint3d& p) {
        minX = std::min(minX, p.x);
        maxX = std::max(maxX, p.x);
        minY = std::min(minY, p.y);
        maxY = std::max(maxY, p.y);
    };
    for (const Shape& s : m_shapes)
        for (const AcGePoint3d& p : s.points)
            grow(p);
    for (const Label& l : m_labels)
        grow(l.at);
    if (minX > maxX) {
        minX = minY = 0.0;
        maxX = maxY = 100.0;
    }
    double w = std::max(maxX - minX, 1e-6), h = std::max(maxY - minY, 1e-6);
    double margin = 0.02 * std::max(w, h);
    minX -= margin;
    maxY += margin;
    w += 2 * margin;
    h += 2 * margin;
    double pixels = 1000.0 / std::max(w, h);

    // Y goes down in the picture: every y is written negated.
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    put(out, "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"", num(minX), " ", num(-maxY), " ", num(w), " ", num(h),
        "\" width=\"", num(w * pixels), "\" height=\"", num(h * pixels), "\">\n");
    put(out, "<rect x=\"", num(minX), "\" y=\"", num(-maxY), "\" width=\"", num(w), "\" height=\"", num(h),
        "\" fill=\"#FFFFFF\"/>\n");
    out += "<g fill=\"none\" stroke-width=\"1\" stroke-linejoin=\"round\">\n";
    for (const Shape& s : m_shapes) {
        out += s.closed ? "<polygon points=\"" : "<polyline points=\"";
        for (size_t i = 0; i < s.points.size(); ++i)
            put(out, i ? " " : "", num(s.points[i].x), ",", num(-s.points[i].y));
        put(out, "\" stroke=\"", color(s.rgb), "\" vector-effect=\"non-scaling-stroke\"/>\n");
    }
    out += "</g>\n<g font-family=\"sans-serif\">\n";
    for (const Label& l : m_labels) {
        put(out, "<text x=\"", num(l.at.x), "\" y=\"", num(-l.at.y), "\" font-size=\"", num(l.height), "\" fill=\"",
            color(l.rgb), "\" text-anchor=\"", l.anchor, "\"");
        if (l.angle != 0.0)
            put(out, " transform=\"rotate(", num(-l.angle * 180.0 / M_PI), " ", num(l.at.x), " ", num(-l.at.y), ")\"");
        put(out, ">", escape(l.text), "</text>\n");
    }
    out += "</g>\n</svg>\n";
    return out;
}

} // namespace

std::string drawSvg(AcDbDatabase& db)
{
    Painter painter(db);
    AcDbObjectId model;
    if (auto* table = AcDbBlockTable::cast(sim::db::objectOf(db.blockTableId())))
        table->getAt(ACDB_MODEL_SPACE, model);
    painter.space(model);
    return painter.svg();
}

} // namespace sim::dxf
