// The insulation band: segments of the axis, the loop pattern, its mapping and trimming.
#include "StdAfx.h"
#include "IzolaceGeometrie.h"
#include <algorithm>
#include <cmath>
#include "CTogException.h"

using namespace IzolaceGeometrie;

namespace {

constexpr double kDvePi = 2.0 * M_PI;
constexpr double kStranaTol = 1e-6;

AcGeVector2d Leva(const AcGeVector2d& v) { return {-v.y, v.x}; }

double Cross(const AcGeVector2d& a, const AcGeVector2d& b) { return a.x * b.y - a.y * b.x; }

// An angle brought to [0, 2 pi).
double Normuj(double a)
{
    a = std::fmod(a, kDvePi);
    return a < 0.0 ? a + kDvePi : a;
}

// Whether the piece's point lies on the inner side of the cut; S is the side of the segment's middle.
bool UvnitrRezu(const AcGePoint2d& q, const Rez& rez, double s)
{
    const double v = Strana(q, rez);
    return s >= 0.0 ? v >= -kStranaTol : v <= kStranaTol;
}

// How far along the axis from its own end a cut may trim the band: half the thickness across, and as
// much again as the cut leans against the axis, with a loop spacing to spare.
double DosahRezu(const Rez& rez, const AcGeVector2d& tecna, double TL)
{
    const double sinus = std::fabs(Cross(rez.smer, tecna));
    const double kosinus = std::fabs(rez.smer.dotProduct(tecna));
    if (sinus < kNula)
        return HUGE_VAL;
    return TL / 2.0 * (1.0 + kosinus / sinus) + 0.3 * TL;
}

// The parameters where a world primitive crosses the cut line, added to the split list.
void PridejDeleni(std::vector<double>& deleni, double t)
{
    if (!(t > kNula && t < 0.99999999))
        return;
    for (double d : deleni)
        if (std::fabs(d - t) < kNula)
            return;
    deleni.push_back(t);
}

void DeleniRezem(const IzolacePrimitiv& p, const Rez& rez, std::vector<double>& deleni)
{
    const AcGePoint2d& c = rez.bod;
    const AcGeVector2d& d = rez.smer;
    if (!p.JeOblouk) {
        const double den = (p.Konec.x - p.Zacatek.x) * d.y - (p.Konec.y - p.Zacatek.y) * d.x;
        if (std::fabs(den) >= kNula)
            PridejDeleni(deleni, ((c.x - p.Zacatek.x) * d.y - (c.y - p.Zacatek.y) * d.x) / den);
        return;
    }
    const double h = (p.Stred - c).dotProduct(d);
    const AcGePoint2d f = c + d * h;
    const double q2 = (f - p.Stred).lengthSqrd();
    const double r2 = p.Polomer * p.Polomer;
    if (q2 > r2 + 1e-6)
        return;
    const double pul = std::sqrt(std::max(0.0, r2 - q2));
    for (int k = -1; k <= 1; k += 2) {
        if (k == 1 && pul < kNula)
            break;
        const AcGePoint2d x = f + d * (k * pul);
        const double theta = std::atan2(x.y - p.Stred.y, x.x - p.Stred.x);
        for (int n = -4; n <= 4; ++n)
            PridejDeleni(deleni, (n * kDvePi + theta - p.UhelZacatku) / p.Uhel);
    }
}

} // namespace

namespace IzolaceGeometrie {

double Strana(const AcGePoint2d& q, const Rez& rez)
{
    return (q.y - rez.bod.y) * rez.smer.x - (q.x - rez.bod.x) * rez.smer.y;
}

AcGePoint2d BodPrimitivu(const IzolacePrimitiv& p, double t)
{
    if (!p.JeOblouk)
        return p.Zacatek + (p.Konec - p.Zacatek) * t;
    const double a = p.UhelZacatku + t * p.Uhel;
    return p.Stred + AcGeVector2d(std::cos(a), std::sin(a)) * p.Polomer;
}

std::optional<AcGeVector2d> Tecna(const IzolaceSegment& s, bool naKonci)
{
    AcGeVector2d t;
    if (!s.JeOblouk) {
        t = s.Konec - s.Zacatek;
    } else {
        const double g = s.Uhel >= 0.0 ? 1.0 : -1.0;
        const double a = s.UhelZacatku + (naKonci ? s.Uhel : 0.0);
        t = AcGeVector2d(-std::sin(a) * g, std::cos(a) * g);
    }
    const double delka = t.length();
    if (delka < kNula)
        return std::nullopt;
    return t / delka;
}

IzolacePrimitiv KruzniceTremiBody(const AcGePoint2d& a, const AcGePoint2d& m, const AcGePoint2d& b)
{
    IzolacePrimitiv p;
    p.Zacatek = a;
    p.Konec = b;
    const double d = 2.0 * ((b.y - a.y) * m.x + (m.y - b.y) * a.x + (a.y - m.y) * b.x);
    if (std::fabs(d) < kNula)
        return p;
    const double a2 = a.x * a.x + a.y * a.y, m2 = m.x * m.x + m.y * m.y, b2 = b.x * b.x + b.y * b.y;
    const AcGePoint2d stred(((b.y - a.y) * m2 + (m.y - b.y) * a2 + (a.y - m.y) * b2) / d,
                            ((a.x - b.x) * m2 + (b.x - m.x) * a2 + (m.x - a.x) * b2) / d);
    const double r = stred.distanceTo(a);
    if (r < kNula)
        return p;
    const double a0 = std::atan2(a.y - stred.y, a.x - stred.x);
    const double am = std::atan2(m.y - stred.y, m.x - stred.x);
    const double ab = std::atan2(b.y - stred.y, b.x - stred.x);
    double w = Normuj(ab - a0);
    const double v = Normuj(am - a0);
    if (w + kNula < v)
        w = -(kDvePi - w);
    p.JeOblouk = true;
    p.Stred = stred;
    p.Polomer = r;
    p.UhelZacatku = a0;
    p.Uhel = w;
    return p;
}

} // namespace IzolaceGeometrie

std::optional<IzolaceSegment> SegmentUsecky(const AcGePoint2d& a, const AcGePoint2d& b)
{
    const double delka = a.distanceTo(b);
    if (delka < kNula)
        return std::nullopt;
    IzolaceSegment s;
    s.Zacatek = a;
    s.Konec = b;
    s.Delka = delka;
    return s;
}

std::optional<IzolaceSegment> SegmentZBulge(const AcGePoint2d& a, const AcGePoint2d& b, double bulge)
{
    const double c = a.distanceTo(b);
    if (c < kNula || std::fabs(bulge) < kNula)
        return std::nullopt;
    const double w = 4.0 * std::atan(bulge);
    if (std::fabs(w) < kNula || std::fabs(std::tan(w / 2.0)) < kNula)
        return std::nullopt;
    const AcGeVector2d u = (b - a) / c;
    const AcGePoint2d stred = a + (b - a) * 0.5 + Leva(u) * (c / (2.0 * std::tan(w / 2.0)));
    const double r = stred.distanceTo(a);
    if (r < kNula)
        return std::nullopt;
    IzolaceSegment s;
    s.JeOblouk = true;
    s.Zacatek = a;
    s.Konec = b;
    s.Stred = stred;
    s.Polomer = r;
    s.UhelZacatku = std::atan2(a.y - stred.y, a.x - stred.x);
    s.Uhel = w;
    s.Delka = std::fabs(w) * r;
    return s;
}

std::optional<IzolaceSegment> SegmentOblouku(const AcGePoint2d& stred, double polomer, double zacatek, double uhel)
{
    if (polomer < kNula || uhel < kNula)
        return std::nullopt;
    IzolaceSegment s;
    s.JeOblouk = true;
    s.Stred = stred;
    s.Polomer = polomer;
    s.UhelZacatku = zacatek;
    s.Uhel = uhel;
    s.Delka = uhel * polomer;
    s.Zacatek = stred + AcGeVector2d(std::cos(zacatek), std::sin(zacatek)) * polomer;
    s.Konec = stred + AcGeVector2d(std::cos(zacatek + uhel), std::sin(zacatek + uhel)) * polomer;
    return s;
}

std::optional<std::vector<IzolacePrimitiv>> VzorIzolace(double L, double TL)
{
    if (L < kNula || TL < kNula)
        return std::nullopt;
    const double X = 0.3 * TL;
    if (X < kNula)
        return std::nullopt;
    const double sf = std::sin(kFi), cf = std::cos(kFi);
    const double R = (cf * X + sf * TL) / (2.0 * (1.0 + sf));
    const double Lp = cf * TL / (1.0 + sf) - X;
    if (!(R > kNula) || !(Lp > kNula)) {
        acutPrintf(L"\nNelze vytvorit izolaci. TL=%.2f  X=%.2f  R=%.2f  L=%.2f", TL, X, R, Lp);
        return std::nullopt;
    }
    const double ye = TL / 2.0 - R - R * sf;
    const double x0 = (L - std::floor(L / X) * X) / 2.0;
    const long long prvni = static_cast<long long>(std::floor((0.0 - x0) / X)) - 4;
    const long long posledni = static_cast<long long>(std::ceil((L - x0) / X)) + 4;

    std::vector<IzolacePrimitiv> vzor;
    for (long long i = prvni; i <= posledni; ++i) {
        const double g = i % 2 == 0 ? 1.0 : -1.0;
        const double xc = static_cast<double>(i) * X + x0;
        IzolacePrimitiv smycka;
        smycka.JeOblouk = true;
        smycka.Stred = AcGePoint2d(xc, g * (TL / 2.0 - R));
        smycka.Polomer = R;
        smycka.Zacatek = AcGePoint2d(xc - R * cf, g * ye);
        smycka.Konec = AcGePoint2d(xc + R * cf, g * ye);
        smycka.UhelZacatku = g > 0 ? 3.490658503988659 : 2.792526803190927;
        smycka.Uhel = g > 0 ? -3.839724354387525 : 3.839724354387525;
        vzor.push_back(smycka);
        if (i == posledni)
            break;
        IzolacePrimitiv tah;
        tah.Zacatek = AcGePoint2d(xc + R * cf, g * ye);
        tah.Konec = AcGePoint2d(xc + X - R * cf, -g * ye);
        vzor.push_back(tah);
    }
    return vzor;
}

std::optional<AcGePoint2d> Mapuj(const IzolaceSegment& segment, double s, double t)
{
    if (!segment.JeOblouk) {
        const AcGeVector2d v = segment.Konec - segment.Zacatek;
        const double delka = v.length();
        if (delka < kNula)
            return std::nullopt;
        const AcGeVector2d u = v / delka;
        return segment.Zacatek + u * s + Leva(u) * t;
    }
    if (segment.Polomer < kNula)
        return std::nullopt;
    const double g = segment.Uhel >= 0.0 ? 1.0 : -1.0;
    const double a = g * s / segment.Polomer + segment.UhelZacatku;
    const AcGeVector2d T = AcGeVector2d(-std::sin(a) * g, std::cos(a) * g).normal();
    return segment.Stred + AcGeVector2d(std::cos(a), std::sin(a)) * segment.Polomer + Leva(T) * t;
}

std::optional<IzolacePrimitiv> MapujPrimitiv(const IzolaceSegment& segment, const IzolacePrimitiv& p)
{
    const auto a = Mapuj(segment, p.Zacatek.x, p.Zacatek.y);
    const auto b = Mapuj(segment, p.Konec.x, p.Konec.y);
    if (!a || !b)
        return std::nullopt;
    if (!p.JeOblouk) {
        IzolacePrimitiv v;
        v.Zacatek = *a;
        v.Konec = *b;
        return v;
    }
    const AcGePoint2d stredLokalne = BodPrimitivu(p, 0.5);
    const auto m = Mapuj(segment, stredLokalne.x, stredLokalne.y);
    if (!m)
        return std::nullopt;
    return KruzniceTremiBody(*a, *m, *b);
}

std::optional<PolylineIzolace> PolylineSegmentu(const IzolaceSegment& segment, double TL, const Rez& rezA,
                                                const Rez& rezB)
{
    const double L = segment.Delka;
    const auto vzor = VzorIzolace(L, TL);
    if (!vzor)
        return std::nullopt;
    std::vector<IzolacePrimitiv> svet;
    svet.reserve(vzor->size());
    for (const IzolacePrimitiv& p : *vzor) {
        auto m = MapujPrimitiv(segment, p);
        if (!m)
            return std::nullopt;
        svet.push_back(*m);
    }
    const auto m = Mapuj(segment, L / 2.0, 0.0);
    const auto tA = Tecna(segment, false), tB = Tecna(segment, true);
    if (!m || !tA || !tB)
        return std::nullopt;
    const double sa = Strana(*m, rezA), sb = Strana(*m, rezB);
    // Each cut trims its own end of the segment only (measured along the axis).
    const double poA = std::max(L / 2.0, DosahRezu(rezA, *tA, TL));
    const double odB = std::min(L / 2.0, L - DosahRezu(rezB, *tB, TL));

    PolylineIzolace pl;
    AcGePoint2d posledni;
    for (size_t k = 0; k < svet.size(); ++k) {
        const IzolacePrimitiv& p = svet[k];
        std::vector<double> deleni{0.0, 1.0};
        DeleniRezem(p, rezA, deleni);
        DeleniRezem(p, rezB, deleni);
        std::sort(deleni.begin(), deleni.end());
        for (size_t j = 0; j + 1 < deleni.size(); ++j) {
            const double t0 = deleni[j], t1 = deleni[j + 1];
            if (t1 - t0 < kNula)
                continue;
            const double tm = (t0 + t1) / 2.0;
            const AcGePoint2d q = BodPrimitivu(p, tm);
            const double s = BodPrimitivu((*vzor)[k], tm).x;
            if ((s < poA && !UvnitrRezu(q, rezA, sa)) || (s > odB && !UvnitrRezu(q, rezB, sb)))
                continue;
            const AcGePoint2d p0 = BodPrimitivu(p, t0), p1 = BodPrimitivu(p, t1);
            if (pl.empty()) {
                pl.push_back({p0, 0.0});
                posledni = p0;
            }
            if (std::fabs(posledni.x - p0.x) >= kStranaTol || std::fabs(posledni.y - p0.y) >= kStranaTol) {
                const bool naA = std::fabs(Strana(posledni, rezA)) < kStranaTol && std::fabs(Strana(p0, rezA)) < kStranaTol;
                const bool naB = std::fabs(Strana(posledni, rezB)) < kStranaTol && std::fabs(Strana(p0, rezB)) < kStranaTol;
                if (!naA && !naB) {
                    acutPrintf(L"\nChyba pri skladani izolace na segmentu.");
                    return std::nullopt;
                }
                pl.back().bulge = 0.0;
                pl.push_back({p0, 0.0});
            }
            pl.back().bulge = p.JeOblouk ? std::tan((t1 - t0) * p.Uhel / 4.0) : 0.0;
            pl.push_back({p1, 0.0});
            posledni = p1;
        }
    }
    if (pl.size() < 2)
        return std::nullopt;
    return pl;
}

std::vector<PolylineIzolace> VytvorIzolaci(const std::vector<IzolaceSegment>& segmenty, double TL)
{
    if (segmenty.empty() || TL < kNula)
        throw CTogException("Neplatna geometrie nebo tloustka izolace.", __LINE__, __FILE__);
    // Cut k lies before segment k: the first at the start, the last after the last segment.
    std::vector<Rez> rezy(segmenty.size() + 1);
    for (size_t k = 0; k + 1 < segmenty.size(); ++k) {
        const auto t1 = Tecna(segmenty[k], true), t2 = Tecna(segmenty[k + 1], false);
        if (!t1 || !t2)
            throw CTogException("Nelze urcit rez ve vrcholu polyline.", __LINE__, __FILE__);
        AcGeVector2d smer = *t2 - *t1;
        if (smer.length() < kNula)
            smer = Leva(*t2);
        if (smer.length() < kNula)
            throw CTogException("Nelze urcit rez ve vrcholu polyline.", __LINE__, __FILE__);
        const AcGePoint2d bod = segmenty[k].Konec + (segmenty[k + 1].Zacatek - segmenty[k].Konec) * 0.5;
        rezy[k + 1] = Rez{bod, smer.normal()};
    }
    const auto tz = Tecna(segmenty.front(), false);
    if (!tz)
        throw CTogException("Nelze urcit pocatecni rez izolace.", __LINE__, __FILE__);
    rezy.front() = Rez{segmenty.front().Zacatek, Leva(*tz)};
    const auto tk = Tecna(segmenty.back(), true);
    if (!tk)
        throw CTogException("Nelze urcit koncovy rez izolace.", __LINE__, __FILE__);
    rezy.back() = Rez{segmenty.back().Konec, Leva(*tk)};

    std::vector<PolylineIzolace> vysledek;
    for (size_t k = 0; k < segmenty.size(); ++k) {
        auto pl = PolylineSegmentu(segmenty[k], TL, rezy[k], rezy[k + 1]);
        if (!pl)
            throw CTogException("Nepodarilo se vytvorit geometrii izolace.", __LINE__, __FILE__);
        vysledek.push_back(std::move(*pl));
    }
    return vysledek;
}

bool OsaMeziHranami(const AcGePoint3d& s1, const AcGePoint3d& e1, const AcGePoint3d& s2, const AcGePoint3d& e2,
                    AcGePoint3d& od, AcGePoint3d& doBodu, double& tloustka)
{
    AcGeVector3d a = e1 - s1, b = e2 - s2;
    if (a.length() < kNula || b.length() < kNula)
        return false;
    a = a / a.length();
    b = b / b.length();
    if (std::fabs(a.dotProduct(b)) < 0.999999) {
        acutPrintf(L"\nHrany nejsou rovnobezne.");
        return false;
    }
    AcGeVector3d n(-a.y, a.x, 0.0);
    if (n.length() < kNula)
        return false;
    n = n / n.length();
    const double d = (s2 - s1).dotProduct(n);
    if (std::fabs(d) < kNula) {
        acutPrintf(L"\nHrany maji nulovou vzdalenost.");
        return false;
    }
    const double t = (e1 - s1).dotProduct(a);
    const double u0 = (s2 - s1).dotProduct(a), u1 = (e2 - s1).dotProduct(a);
    const double lo = std::max(std::min(0.0, t), std::min(u0, u1));
    const double hi = std::min(std::max(0.0, t), std::max(u0, u1));
    if (!(lo + kNula < hi)) {
        acutPrintf(L"\nVybrane hrany nemaji spolecny delkovy rozsah.");
        return false;
    }
    od = s1 + a * lo + n * (d / 2.0);
    doBodu = s1 + a * hi + n * (d / 2.0);
    tloustka = std::fabs(d);
    return true;
}
