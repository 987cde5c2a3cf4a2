// Outlines of entities for picks and windows.
#include "sim/editor/EntityOutline.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cwchar>

#include "dbdim.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "mleader.h"
#include "sim/db/UnknownObject.h"
#include "sim/editor/Ucs.h"

namespace sim::editor {

namespace {

// An average character width in text heights: fonts differ, and there are no fonts here.
constexpr double kCharWidth = 0.8;
// The distance between lines of multi-line text, in text heights.
constexpr double kLineSpacing = 5.0 / 3.0;

/// Chords for an arc of this radius and sweep that stay within tol of it.
int chordCount(double radius, double sweep, double tol)
{
    if (radius <= 0 || tol <= 0)
        return 8;
    double step = tol >= radius ? M_PI / 2 : 2.0 * std::acos(1.0 - tol / radius);
    return std::clamp(static_cast<int>(std::ceil(std::fabs(sweep) / step)), 2, 4096);
}

/// The largest factor by which xform stretches lengths.
double stretch(const AcGeMatrix3d& m)
{
    double s = 0;
    for (const AcGeVector3d& v : {AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis})
        s = std::max(s, (m * v).length());
    return s > 0 ? s : 1.0;
}

void addArc(const AcGeMatrix3d& toWorld, const AcGePoint3d& center, double radius, double start, double sweep, double tol,
            OutlinePath& path)
{
    int n = chordCount(radius * stretch(toWorld), sweep, tol);
    for (int i = 0; i <= n; ++i) {
        double a = start + sweep * i / n;
        path.points.push_back(toWorld * AcGePoint3d(center.x + radius * std::cos(a), center.y + radius * std::sin(a), center.z));
    }
}

/// A text box of the given size whose corner (at the insertion) is offset by (dx, dy) heights.
OutlinePath textBox(const AcGeMatrix3d& planeToWorld, const AcGePoint3d& origin, double rotation, double width, double height,
                    double dx, double dy)
{
    OutlinePath box;
    box.closed = box.filled = true;
    double c = std::cos(rotation), s = std::sin(rotation);
    for (auto [u, v] : {std::pair{0.0, 0.0}, {1.0, 0.0}, {1.0, 1.0}, {0.0, 1.0}}) {
        double x = dx + u * width, y = dy + v * height;
        box.points.push_back(planeToWorld * AcGePoint3d(origin.x + x * c - y * s, origin.y + x * s + y * c, origin.z));
    }
    return box;
}

void addText(const AcDbText& t, const AcGeMatrix3d& xform, std::vector<OutlinePath>& out)
{
    AcGeMatrix3d ecs = ecsToWcs(t.normal());
    AcGeMatrix3d toEcs = ecs.inverse();
    double h = t.height() > 0 ? t.height() : 1.0;
    double w = std::max<double>(1.0, static_cast<double>(std::wcslen(t.textStringConst()))) * h * kCharWidth * t.widthFactor();
    AcGePoint3d at = toEcs * (t.isDefaultAlignment() ? t.position() : t.alignmentPoint());
    double dx = 0, dy = 0;
    switch (t.horizontalMode()) {
    case AcDb::kTextCenter: case AcDb::kTextMid: dx = -w / 2; break;
    case AcDb::kTextRight: dx = -w; break;
    case AcDb::kTextAlign: case AcDb::kTextFit:
        // Aligned text runs from the position to the alignment point.
        at = toEcs * t.position();
        w = std::max((toEcs * t.alignmentPoint() - at).length(), h * kCharWidth);
        break;
    default: break;
    }
    switch (t.verticalMode()) {
    case AcDb::kTextVertMid: dy = -h / 2; break;
    case AcDb::kTextTop: dy = -h; break;
    default: break;
    }
    if (t.horizontalMode() == AcDb::kTextMid && t.verticalMode() == AcDb::kTextBase)
        dy = -h / 2;
    out.push_back(textBox(xform * ecs, at, t.rotation(), w, h, dx, dy));
}

void addMText(const AcDbMText& m, const AcGeMatrix3d& xform, std::vector<OutlinePath>& out)
{
    double h = m.textHeight() > 0 ? m.textHeight() : 1.0;
    ACHAR* raw = m.text();
    std::wstring plain = raw ? raw : L"";
    acutDelString(raw);
    size_t lines = 1, longest = 0, run = 0;
    for (wchar_t c : plain) {
        if (c == L'\n' || c == L'\r') {
            ++lines;
            run = 0;
        } else {
            longest = std::max(longest, ++run);
        }
    }
    double w = m.width() > 0 ? m.width() : std::max<size_t>(longest, 1) * h * kCharWidth;
    double total = h + (lines - 1) * h * kLineSpacing * m.lineSpacingFactor();
    int a = static_cast<int>(m.attachment());
    int col = (a - 1) % 3, row = (a - 1) / 3; // 0 top, 1 middle, 2 bottom
    if (a > 9)
        col = row = 0;
    double dx = -w * col / 2.0;
    double dy = row == 0 ? -total : row == 1 ? -total / 2 : 0.0;
    AcGeMatrix3d ecs = ecsToWcs(m.normal());
    AcGeMatrix3d toEcs = ecs.inverse();
    AcGeVector3d dir = toEcs * m.direction();
    out.push_back(textBox(xform * ecs, toEcs * m.location(), std::atan2(dir.y, dir.x), w, total, dx, dy));
}

void addPolyline(const AcDbPolyline& pl, const AcGeMatrix3d& xform, double tol, std::vector<OutlinePath>& out)
{
    unsigned n = pl.numVerts();
    if (n == 0)
        return;
    AcGeMatrix3d toWorld = xform * ecsToWcs(pl.normal());
    double z = pl.elevation();
    unsigned segments = pl.isClosed() ? n : n - 1;
    if (segments == 0) {
        AcGePoint2d p;
        pl.getPointAt(0, p);
        OutlinePath dot;
        dot.points.push_back(toWorld * AcGePoint3d(p.x, p.y, z));
        dot.marker = 1;
        out.push_back(dot);
        return;
    }
    for (unsigned i = 0; i < segments; ++i) {
        AcGePoint2d a, b;
        double bulge = 0;
        pl.getPointAt(i, a);
        pl.getPointAt((i + 1) % n, b);
        pl.getBulgeAt(i, bulge);
        OutlinePath seg;
        seg.marker = static_cast<int>(i) + 1;
        double chord = (b - a).length();
        if (std::fabs(bulge) < 1e-12 || chord == 0) {
            seg.points = {toWorld * AcGePoint3d(a.x, a.y, z), toWorld * AcGePoint3d(b.x, b.y, z)};
        } else {
            double sweep = 4.0 * std::atan(bulge);
            double r = chord / (2.0 * std::sin(std::fabs(sweep) / 2.0));
            // The centre lies left of the chord for a positive bulge (right for a negative one), and
            // beyond the chord once the sweep passes a half turn (the cosine turns negative).
            AcGeVector2d along = (b - a) / chord;
            double d = r * std::cos(std::fabs(sweep) / 2.0);
            AcGePoint2d mid = a + (b - a) * 0.5;
            AcGePoint2d c = mid + along.perpVector() * (bulge > 0 ? d : -d);
            double start = std::atan2(a.y - c.y, a.x - c.x);
            addArc(toWorld, AcGePoint3d(c.x, c.y, z), r, start, sweep, tol, seg);
        }
        out.push_back(std::move(seg));
    }
}

void add2dPolyline(const AcDb2dPolyline& pl, const AcGeMatrix3d& xform, std::vector<OutlinePath>& out)
{
    OutlinePath path;
    path.closed = pl.isClosed();
    AcDbObjectIterator* it = pl.vertexIterator();
    for (it->start(); !it->done(); it->step()) {
        AcDb2dVertex* v = nullptr;
        if (pl.openVertex(v, it->objectId(), AcDb::kForRead) == Acad::eOk) {
            path.points.push_back(xform * pl.vertexPosition(*v));
            v->close();
        }
    }
    delete it;
    path.marker = 1;
    if (!path.points.empty())
        out.push_back(std::move(path));
}

void addCurve(const AcDbCurve& c, const AcGeMatrix3d& xform, std::vector<OutlinePath>& out)
{
    double s = 0, e = 0;
    if (c.getStartParam(s) != Acad::eOk || c.getEndParam(e) != Acad::eOk)
        return;
    OutlinePath path;
    const int n = 256;
    for (int i = 0; i <= n; ++i) {
        AcGePoint3d p;
        if (c.getPointAtParam(s + (e - s) * i / n, p) == Acad::eOk)
            path.points.push_back(xform * p);
    }
    if (!path.points.empty())
        out.push_back(std::move(path));
}

/// An entity the database keeps only as read from the file (a multileader, a dimension, a hatch):
/// the box round the points among its groups stands for it.
void addRawBox(const sim::db::UnknownEntity& u, const AcGeMatrix3d& xform, std::vector<OutlinePath>& out)
{
    const auto& tags = u.tags;
    double x0 = INFINITY, y0 = INFINITY, x1 = -INFINITY, y1 = -INFINITY;
    for (size_t i = 0; i + 1 < tags.size(); ++i) {
        if (tags[i].code < 10 || tags[i].code > 18 || tags[i + 1].code != tags[i].code + 10)
            continue;
        char* end = nullptr;
        double x = std::strtod(tags[i].value.c_str(), &end);
        double y = std::strtod(tags[i + 1].value.c_str(), &end);
        if (!std::isfinite(x) || !std::isfinite(y))
            continue;
        x0 = std::min(x0, x), y0 = std::min(y0, y), x1 = std::max(x1, x), y1 = std::max(y1, y);
    }
    if (x0 > x1)
        return;
    OutlinePath box;
    box.closed = box.filled = true;
    for (auto [x, y] : {std::pair{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}})
        box.points.push_back(xform * AcGePoint3d(x, y, 0.0));
    out.push_back(std::move(box));
}

} // namespace

// The leader lines as drawn, then the text.
void addMLeader(const AcDbMLeader& ml, const AcGeMatrix3d& xform, std::vector<OutlinePath>& out)
{
    AcArray<int> leaders;
    ml.getLeaderIndexes(leaders);
    for (int i = 0; i < leaders.length(); ++i) {
        AcArray<int> lines;
        ml.getLeaderLineIndexes(leaders[i], lines);
        for (int j = 0; j < lines.length(); ++j) {
            OutlinePath path;
            int count = 0;
            ml.numVertices(lines[j], count);
            for (int k = 0; k < count; ++k) {
                AcGePoint3d v;
                if (ml.getVertex(lines[j], k, v) == Acad::eOk)
                    path.points.push_back(xform * v);
            }
            if (path.points.size() > 1)
                out.push_back(std::move(path));
        }
    }
    if (AcDbMText* text = ml.mtext()) {
        addMText(*text, xform, out);
        delete text;
    }
}

// Extension lines and the dimension line, through the point on the dimension line.
void addLinearDimension(const AcDbAlignedDimension& d, const AcGeMatrix3d& xform, std::vector<OutlinePath>& out)
{
    AcGePoint3d a = d.xLine1Point(), b = d.xLine2Point();
    AcGeVector3d along = b - a;
    if (auto* r = AcDbRotatedDimension::cast(&d))
        along = AcGeVector3d(std::cos(r->rotation()), std::sin(r->rotation()), 0.0);
    if (along.isZeroLength())
        return;
    along.normalize();
    // Feet of the two extension points on the dimension line.
    AcGeVector3d toA = a - d.dimLinePoint(), toB = b - d.dimLinePoint();
    AcGePoint3d footA = d.dimLinePoint() + along * toA.dotProduct(along);
    AcGePoint3d footB = d.dimLinePoint() + along * toB.dotProduct(along);
    OutlinePath path;
    path.points = {xform * a, xform * footA, xform * footB, xform * b};
    out.push_back(std::move(path));
}

AcGeMatrix3d entityCoordSystem(const AcDbEntity& e)
{
    if (auto* c = AcDbCircle::cast(&e))
        return ecsToWcs(c->normal());
    if (auto* a = AcDbArc::cast(&e))
        return ecsToWcs(a->normal());
    if (auto* t = AcDbText::cast(&e))
        return ecsToWcs(t->normal());
    if (auto* m = AcDbMText::cast(&e))
        return ecsToWcs(m->normal());
    if (auto* b = AcDbBlockReference::cast(&e))
        return ecsToWcs(b->normal());
    if (auto* p = AcDbPolyline::cast(&e))
        return ecsToWcs(p->normal());
    if (auto* p = AcDb2dPolyline::cast(&e))
        return ecsToWcs(p->normal());
    return AcGeMatrix3d::kIdentity;
}

void addOutline(const AcDbEntity& e, const AcGeMatrix3d& xform, double tol, std::vector<OutlinePath>& out)
{
    if (auto* l = AcDbLine::cast(&e)) {
        OutlinePath p;
        p.points = {xform * l->startPoint(), xform * l->endPoint()};
        out.push_back(std::move(p));
    } else if (auto* c = AcDbCircle::cast(&e)) {
        OutlinePath p;
        p.closed = true;
        AcGeMatrix3d ecs = ecsToWcs(c->normal());
        addArc(xform * ecs, ecs.inverse() * c->center(), c->radius(), 0.0, 2 * M_PI, tol, p);
        out.push_back(std::move(p));
    } else if (auto* a = AcDbArc::cast(&e)) {
        OutlinePath p;
        AcGeMatrix3d ecs = ecsToWcs(a->normal());
        double sweep = a->endAngle() - a->startAngle();
        while (sweep <= 0)
            sweep += 2 * M_PI;
        addArc(xform * ecs, ecs.inverse() * a->center(), a->radius(), a->startAngle(), sweep, tol, p);
        out.push_back(std::move(p));
    } else if (auto* t = AcDbText::cast(&e)) {
        addText(*t, xform, out);
    } else if (auto* m = AcDbMText::cast(&e)) {
        addMText(*m, xform, out);
    } else if (auto* pl = AcDbPolyline::cast(&e)) {
        addPolyline(*pl, xform, tol, out);
    } else if (auto* p2 = AcDb2dPolyline::cast(&e)) {
        add2dPolyline(*p2, xform, out);
    } else if (auto* cv = AcDbCurve::cast(&e)) {
        addCurve(*cv, xform, out);
    } else if (auto* ml = AcDbMLeader::cast(&e)) {
        addMLeader(*ml, xform, out);
    } else if (auto* dim = AcDbAlignedDimension::cast(&e)) {
        addLinearDimension(*dim, xform, out);
    } else if (auto* u = sim::db::UnknownEntity::cast(&e)) {
        addRawBox(*u, xform, out);
    }
}

double planDistance(const OutlinePath& path, const AcGePoint3d& p)
{
    const auto& pts = path.points;
    if (pts.empty())
        return INFINITY;
    if (path.filled && pts.size() >= 3) {
        // Inside test by the crossing rule, in the XY plane.
        bool inside = false;
        for (size_t i = 0, j = pts.size() - 1; i < pts.size(); j = i++) {
            if (((pts[i].y > p.y) != (pts[j].y > p.y)) &&
                p.x < (pts[j].x - pts[i].x) * (p.y - pts[i].y) / (pts[j].y - pts[i].y) + pts[i].x)
                inside = !inside;
        }
        if (inside)
            return 0.0;
    }
    double best = std::hypot(p.x - pts[0].x, p.y - pts[0].y);
    size_t n = pts.size();
    size_t edges = path.closed ? n : n - 1;
    for (size_t i = 0; i < edges; ++i) {
        const AcGePoint3d& a = pts[i];
        const AcGePoint3d& b = pts[(i + 1) % n];
        double dx = b.x - a.x, dy = b.y - a.y;
        double l2 = dx * dx + dy * dy;
        double t = l2 > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / l2, 0.0, 1.0) : 0.0;
        best = std::min(best, std::hypot(p.x - (a.x + t * dx), p.y - (a.y + t * dy)));
    }
    return best;
}

} // namespace sim::editor
