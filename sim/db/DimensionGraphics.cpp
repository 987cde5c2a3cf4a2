// The graphics of a linear dimension as the host lays them out.
#include "sim/db/DimensionGraphics.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

namespace sim::db {

namespace {

// The length of a text of that height: the host's fonts give about six tenths of the height a letter.
double textLength(const std::wstring& text, double height, double widthFactor)
{
    return static_cast<double>(text.size()) * height * 0.6 * widthFactor;
}

} // namespace

DimensionGraphics linearDimensionGraphics(const DimensionPoints& p, const DimensionLook& look, const std::wstring& text)
{
    DimensionGraphics g;
    const double s = look.scale > 0.0 ? look.scale : 1.0;
    AcGeVector3d u = p.along;
    u.z = 0.0;
    u = u.isZeroLength() ? AcGeVector3d::kXAxis : u.normal();
    // The feet of the extension lines on the dimension line; b lies ahead of a along u.
    AcGePoint3d a = p.dimLine + u * (p.x1 - p.dimLine).dotProduct(u);
    AcGePoint3d b = p.dimLine + u * (p.x2 - p.dimLine).dotProduct(u);
    AcGePoint3d x1 = p.x1, x2 = p.x2;
    bool se1 = look.se1, se2 = look.se2, sd1 = look.sd1, sd2 = look.sd2;
    if ((b - a).dotProduct(u) < 0.0) {
        std::swap(a, b);
        std::swap(x1, x2);
        std::swap(se1, se2);
        std::swap(sd1, sd2);
    }
    const double length = (b - a).dotProduct(u);

    auto extension = [&](const AcGePoint3d& from, const AcGePoint3d& foot) {
        AcGeVector3d d = foot - from;
        if (d.length() <= 1e-12)
            return;
        d = d.normal();
        g.lines.emplace_back(from + d * (look.exo * s), foot + d * (look.exe * s));
    };
    if (!se1)
        extension(x1, a);
    if (!se2)
        extension(x2, b);

    // The text reads from the left or from below in the UCS whose X axis the horizontal rotation gives.
    double angle = std::atan2(u.y, u.x);
    double relative = std::remainder(angle + p.horizontalRotation, 2.0 * M_PI);
    if (relative > M_PI / 2.0 + 1e-9 || relative <= -M_PI / 2.0 + 1e-9)
        angle += M_PI;
    angle = std::remainder(angle, 2.0 * M_PI);
    const AcGeVector3d reading(std::cos(angle), std::sin(angle), 0.0);
    const AcGeVector3d up(-reading.y, reading.x, 0.0);
    g.textAngle = angle;
    g.textHeight = look.txt * s;
    g.textAbove = look.tad != 0;

    const AcGePoint3d given = p.textAt ? *p.textAt : a + (b - a) * 0.5;
    const double at = (given - a).dotProduct(u);
    const AcGePoint3d onLine = a + u * at;
    g.textPoint = g.textAbove ? onLine + up * (look.gap * s) : onLine;
    const double half = textLength(text, g.textHeight, look.widthFactor) / 2.0 + (g.textAbove ? 0.0 : look.gap * s);

    const double run = look.tick ? look.dle * s : 0.0;
    const bool inside = at >= 0.0 && at <= length;
    double from = 0.0, to = length;
    if (!sd1)
        from = -run;
    if (!sd2)
        to = length + run;
    if (inside) {
        // Text above the line leaves it whole; text on the line cuts it, and each half may be suppressed.
        if (g.textAbove) {
            if (!(sd1 && sd2))
                g.lines.emplace_back(a + u * (sd1 ? at : from), a + u * (sd2 ? at : to));
        } else {
            if (!sd1 && at - half > from)
                g.lines.emplace_back(a + u * from, a + u * (at - half));
            if (!sd2 && at + half < to)
                g.lines.emplace_back(a + u * (at + half), a + u * to);
        }
    } else {
        // Text beyond an end: the dimension line runs on under it (or up to it, when it stands on the line).
        if (at > length) {
            to = std::max(to, g.textAbove ? at + half : at - half);
            if (sd1 && sd2)
                from = length;
        } else {
            from = std::min(from, g.textAbove ? at - half : at + half);
            if (sd1 && sd2)
                to = 0.0;
        }
        if (to > from)
            g.lines.emplace_back(a + u * from, a + u * to);
    }

    g.arrowSize = look.asz * s;
    if (!sd1)
        g.arrows.push_back({a, std::atan2(-u.y, -u.x)});
    if (!sd2)
        g.arrows.push_back({b, std::atan2(u.y, u.x)});
    return g;
}

std::wstring formatMeasurement(double value, double lfac, double rnd, int dec, wchar_t dsep, int zin,
                               const std::wstring& post)
{
    double v = value * (lfac != 0.0 ? lfac : 1.0);
    if (rnd > 0.0)
        v = std::round(v / rnd) * rnd;
    dec = std::clamp(dec, 0, 8);
    wchar_t buffer[64];
    std::swprintf(buffer, 64, L"%.*f", dec, v);
    std::wstring s = buffer;
    if (s == L"-0" || s.rfind(L"-0.", 0) == 0) {
        // A negative zero after rounding shows as zero.
        bool zero = std::all_of(s.begin() + 1, s.end(), [](wchar_t c) { return c == L'0' || c == L'.'; });
        if (zero)
            s.erase(0, 1);
    }
    if ((zin & 8) && s.find(L'.') != std::wstring::npos) {
        while (s.back() == L'0')
            s.pop_back();
        if (s.back() == L'.')
            s.pop_back();
    }
    if ((zin & 4) && s.rfind(L"0.", 0) == 0 && s.size() > 2)
        s.erase(0, 1);
    if (dsep && dsep != L'.')
        std::replace(s.begin(), s.end(), L'.', dsep);
    if (post.empty())
        return s;
    const size_t slot = post.find(L"<>");
    return slot == std::wstring::npos ? s + post : post.substr(0, slot) + s + post.substr(slot + 2);
}

std::wstring shownDimensionText(const std::wstring& own, const std::wstring& measurement)
{
    if (own.empty())
        return measurement;
    const size_t slot = own.find(L"<>");
    return slot == std::wstring::npos ? own : own.substr(0, slot) + measurement + own.substr(slot + 2);
}

} // namespace sim::db
