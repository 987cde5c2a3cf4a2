// The geometry of a bundle of parallel pipes.
#include "StdAfx.h"
#include "MultiTrubkyGeometrie.h"
#include <cmath>

namespace MultiTrubkyGeometrie {

namespace {

// Directions are compared as unit vectors; this is far below anything a pick can make.
constexpr double kSmer = 1e-9;

double VzdalenostOdPrimky(const AcGePoint2d& p, const AcGePoint2d& a, const AcGeVector2d& u)
{
    const AcGeVector2d w = p - a;
    return std::fabs(w.x * u.y - w.y * u.x);
}

} // namespace

std::optional<Vedeni> PosunVedeni(const AcGePoint2d& S, const AcGePoint2d& E, int typ, int pocetTrubek, double roztec)
{
    const AcGeVector2d smer = E - S;
    const double delka = smer.length();
    if (delka < kSmer)
        return std::nullopt;
    const AcGeVector2d d = smer / delka;
    Vedeni v{S, E, AcGeVector2d(-d.y, d.x)};
    const double k = pocetTrubek - 1;
    double posun = 0.0;
    if (typ == kHorni)
        posun = k * roztec;
    else if (typ == kStred)
        posun = k * roztec * 0.5;
    v.s = S - v.n * posun;
    v.e = E - v.n * posun;
    return v;
}

void CaraTrubky(const Vedeni& v, int i, double roztec, AcGePoint2d& zacatek, AcGePoint2d& konec)
{
    zacatek = v.s + v.n * (i * roztec);
    konec = v.e + v.n * (i * roztec);
}

std::optional<AcGePoint2d> Roh(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& pa,
                               const AcGePoint2d& pb, bool rovnobezne)
{
    if (rovnobezne)
        return a;
    const AcGeVector2d d1 = b - a, d2 = pb - pa;
    const double cross = d1.x * d2.y - d1.y * d2.x;
    if (d1.length() < kSmer || d2.length() < kSmer || std::fabs(cross) < kSmer * d1.length() * d2.length())
        return std::nullopt;
    const AcGeVector2d w = pa - a;
    const double t = (w.x * d2.y - w.y * d2.x) / cross;
    return a + d1 * t;
}

bool NaJednePrimce(const AcGePoint2d& s1, const AcGePoint2d& e1, const AcGePoint2d& s2, const AcGePoint2d& e2,
                   double tolerance)
{
    const AcGeVector2d d1 = e1 - s1, d2 = e2 - s2;
    if (d1.length() < kSmer || d2.length() < kSmer)
        return false;
    const AcGeVector2d u1 = d1 / d1.length(), u2 = d2 / d2.length();
    return VzdalenostOdPrimky(s2, s1, u1) <= tolerance && VzdalenostOdPrimky(e2, s1, u1) <= tolerance &&
           VzdalenostOdPrimky(s1, s2, u2) <= tolerance && VzdalenostOdPrimky(e1, s2, u2) <= tolerance;
}

bool Souhlasne(const AcGeVector2d& a, const AcGeVector2d& b)
{
    const double la = a.length(), lb = b.length();
    if (la < kSmer || lb < kSmer)
        return false;
    return (a / la - b / lb).length() <= 1e-6;
}

Napojeni ZkontrolujNapojeni(const AcGePoint2d& roh, const AcGePoint2d& konecNove, const AcGeVector2d& smerNoveho,
                            const AcGePoint2d& zacatekPredchozi, const AcGeVector2d& smerPredchoziho)
{
    if (!Souhlasne(konecNove - roh, smerNoveho))
        return Napojeni::kNovyKratky;
    if (!Souhlasne(roh - zacatekPredchozi, smerPredchoziho))
        return Napojeni::kPredchoziKratky;
    return Napojeni::kDobre;
}

} // namespace MultiTrubkyGeometrie
