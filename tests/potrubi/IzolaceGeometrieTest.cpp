// The insulation band: pattern numbers, segments from bulges, mapping on arcs of both senses, the circle
// through three points, trimming at the cuts and chains with corners.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "CTogException.h"
#include "_Utility/IzolaceGeometrie.h"

using namespace IzolaceGeometrie;

namespace {

// Points along the polyline, its arcs sampled by their bulges.
std::vector<AcGePoint2d> Vzorky(const PolylineIzolace& pl, int naUsek = 8)
{
    std::vector<AcGePoint2d> body;
    for (size_t i = 0; i + 1 < pl.size(); ++i) {
        const AcGePoint2d a = pl[i].bod, b = pl[i + 1].bod;
        const double w = 4.0 * std::atan(pl[i].bulge);
        for (int k = 0; k < naUsek; ++k) {
            const double t = static_cast<double>(k) / naUsek;
            if (std::fabs(w) < 1e-12) {
                body.push_back(a + (b - a) * t);
                continue;
            }
            const double c = a.distanceTo(b);
            const AcGeVector2d u = (b - a) / c;
            const AcGePoint2d s = a + (b - a) * 0.5 + AcGeVector2d(-u.y, u.x) * (c / (2.0 * std::tan(w / 2.0)));
            const double a0 = std::atan2(a.y - s.y, a.x - s.x);
            const double r = s.distanceTo(a);
            body.push_back(s + AcGeVector2d(std::cos(a0 + w * t), std::sin(a0 + w * t)) * r);
        }
    }
    body.push_back(pl.back().bod);
    return body;
}

double Cross(const AcGeVector2d& a, const AcGeVector2d& b) { return a.x * b.y - a.y * b.x; }

std::string Zprava(const CTogException& e)
{
    std::string text = e.what();
    return text.substr(0, text.find('\n'));
}

} // namespace

TEST(VzorIzolace, NumbersOfThePatternForThickness100)
{
    const auto vzor = VzorIzolace(300.0, 100.0);
    ASSERT_TRUE(vzor);
    const IzolacePrimitiv& smycka = (*vzor)[0];
    const IzolacePrimitiv& tah = (*vzor)[1];
    ASSERT_TRUE(smycka.JeOblouk);
    ASSERT_FALSE(tah.JeOblouk);
    EXPECT_NEAR(smycka.Polomer, 23.2463, 1e-3);
    EXPECT_NEAR(tah.Zacatek.distanceTo(tah.Konec), 40.02, 1e-2);
    // Neighbouring loops 30 apart, on alternate edges, each touching its edge of the band.
    const IzolacePrimitiv& dalsi = (*vzor)[2];
    EXPECT_NEAR(dalsi.Stred.x - smycka.Stred.x, 30.0, 1e-9);
    EXPECT_NEAR(std::fabs(smycka.Stred.y) + smycka.Polomer, 50.0, 1e-9);
    EXPECT_LT(smycka.Stred.y * dalsi.Stred.y, 0.0);
    // The stroke leaves a loop and enters the next one without a kink.
    const AcGePoint2d konecSmycky = BodPrimitivu(smycka, 1.0);
    EXPECT_TRUE(konecSmycky.isEqualTo(tah.Zacatek, AcGeTol()));
    EXPECT_NEAR(BodPrimitivu(dalsi, 0.0).distanceTo(tah.Konec), 0.0, 1e-9);
    const AcGePoint2d pred = BodPrimitivu(smycka, 0.99999);
    const AcGeVector2d tecna = (konecSmycky - pred).normal(), smer = (tah.Konec - tah.Zacatek).normal();
    EXPECT_NEAR(Cross(tecna, smer), 0.0, 1e-4);
    // Every element runs in the band.
    for (const auto& p : *vzor)
        for (double t = 0; t <= 1.0; t += 0.05)
            EXPECT_LE(std::fabs(BodPrimitivu(p, t).y), 50.0 + 1e-9);
}

TEST(VzorIzolace, WholeNumberOfSpacingsPutsLoopCentresOnTheEnds)
{
    const auto vzor = VzorIzolace(300.0, 100.0); // 10 x 30
    ASSERT_TRUE(vzor);
    bool naZacatku = false, naKonci = false;
    for (const auto& p : *vzor)
        if (p.JeOblouk) {
            naZacatku |= std::fabs(p.Stred.x) < 1e-9;
            naKonci |= std::fabs(p.Stred.x - 300.0) < 1e-9;
        }
    EXPECT_TRUE(naZacatku && naKonci);
    // 310 leaves 10 over: half of it on each side.
    const auto posunuty = VzorIzolace(310.0, 100.0);
    bool posun = false;
    for (const auto& p : *posunuty)
        posun |= p.JeOblouk && std::fabs(p.Stred.x - 5.0) < 1e-9;
    EXPECT_TRUE(posun);
    EXPECT_FALSE(VzorIzolace(0.0, 100.0));
    EXPECT_FALSE(VzorIzolace(100.0, 0.0));
}

TEST(SegmentZBulge, SenseCentreAndSweep)
{
    // Positive bulge: counter-clockwise, a half circle below the chord from left to right.
    auto s = SegmentZBulge({0, 0}, {10, 0}, 1.0);
    ASSERT_TRUE(s);
    EXPECT_NEAR(s->Stred.x, 5.0, 1e-12);
    EXPECT_NEAR(s->Stred.y, 0.0, 1e-12);
    EXPECT_NEAR(s->Uhel, M_PI, 1e-12);
    EXPECT_NEAR(s->Delka, 5.0 * M_PI, 1e-9);
    auto pulka = Mapuj(*s, s->Delka / 2, 0.0);
    EXPECT_NEAR(pulka->y, -5.0, 1e-9);
    // A quarter circle clockwise.
    s = SegmentZBulge({0, 0}, {10, 10}, -std::tan(M_PI / 8));
    ASSERT_TRUE(s);
    EXPECT_NEAR(s->Uhel, -M_PI / 2, 1e-12);
    EXPECT_NEAR(s->Stred.x, 10.0, 1e-9);
    EXPECT_NEAR(s->Stred.y, 0.0, 1e-9);
    EXPECT_FALSE(SegmentZBulge({0, 0}, {10, 0}, 1e-9));
    EXPECT_FALSE(SegmentZBulge({0, 0}, {0, 0}, 1.0));
    EXPECT_FALSE(SegmentUsecky({1, 1}, {1, 1 + 1e-9}));
}

TEST(Mapuj, AcrossIsAlwaysTheLeftOfTravel)
{
    const auto ccw = SegmentOblouku({0, 0}, 100.0, 0.0, 1.5 * M_PI);
    const auto cw = SegmentZBulge({100, 0}, {0, 100}, -std::tan(1.5 * M_PI / 4)); // the same circle, clockwise
    const auto usecka = SegmentUsecky({0, 0}, {0, 50});
    for (const auto* seg : {&*ccw, &*cw, &*usecka}) {
        for (double s : {0.0, seg->Delka * 0.3, seg->Delka * 0.9}) {
            const AcGePoint2d osa = *Mapuj(*seg, s, 0.0);
            const AcGePoint2d dal = *Mapuj(*seg, s + 1e-4, 0.0);
            const AcGePoint2d vlevo = *Mapuj(*seg, s, 10.0);
            EXPECT_NEAR(osa.distanceTo(vlevo), 10.0, 1e-9);
            EXPECT_GT(Cross(dal - osa, vlevo - osa), 0.0) << "s " << s;
            EXPECT_NEAR(osa.distanceTo(*Mapuj(*seg, s, 0.0)), 0.0, 1e-12);
        }
    }
    // Along the clockwise arc the axis keeps to the circle, its length measured from the start.
    const AcGePoint2d ctvrt = *Mapuj(*cw, 100.0 * M_PI / 2, 0.0);
    EXPECT_NEAR(ctvrt.x, 0.0, 1e-9);
    EXPECT_NEAR(ctvrt.y, -100.0, 1e-9);
}

TEST(KruzniceTremiBody, BothSensesLongArcsAndLines)
{
    auto p = KruzniceTremiBody({1, 0}, {0, 1}, {-1, 0});
    ASSERT_TRUE(p.JeOblouk);
    EXPECT_NEAR(p.Polomer, 1.0, 1e-12);
    EXPECT_NEAR(p.Uhel, M_PI, 1e-12);
    // Through the bottom: clockwise.
    p = KruzniceTremiBody({1, 0}, {0, -1}, {-1, 0});
    EXPECT_NEAR(p.Uhel, -M_PI, 1e-12);
    // Three quarters round, counter-clockwise and clockwise.
    const double r = std::sqrt(0.5);
    p = KruzniceTremiBody({1, 0}, {-r, r}, {0, -1});
    EXPECT_NEAR(p.Uhel, 1.5 * M_PI, 1e-12);
    p = KruzniceTremiBody({0, -1}, {-r, r}, {1, 0});
    EXPECT_NEAR(p.Uhel, -1.5 * M_PI, 1e-12);
    EXPECT_NEAR(BodPrimitivu(p, 0.5).distanceTo({-r, r}), 0.0, 1e-12);
    // On one line: straight.
    EXPECT_FALSE(KruzniceTremiBody({0, 0}, {1, 1}, {2, 2}).JeOblouk);
}

TEST(PolylineSegmentu, StraightAxisTrimmedExactlyAtBothEnds)
{
    const auto osa = *SegmentUsecky({0, 0}, {300, 0});
    const auto pasy = VytvorIzolaci({osa}, 100.0);
    ASSERT_EQ(pasy.size(), 1u);
    const PolylineIzolace& pl = pasy[0];
    double minX = 1e9, maxX = -1e9, minY = 1e9, maxY = -1e9;
    for (const AcGePoint2d& b : Vzorky(pl)) {
        minX = std::min(minX, b.x);
        maxX = std::max(maxX, b.x);
        minY = std::min(minY, b.y);
        maxY = std::max(maxY, b.y);
    }
    EXPECT_NEAR(minX, 0.0, 1e-6);
    EXPECT_NEAR(maxX, 300.0, 1e-6);
    EXPECT_NEAR(maxY, 50.0, 0.2);
    EXPECT_NEAR(minY, -50.0, 0.2);
    EXPECT_NEAR(pl.front().bod.x, 0.0, 1e-6);
    EXPECT_NEAR(pl.back().bod.x, 300.0, 1e-6);
}

TEST(PolylineSegmentu, ArcsOfAnySweepAndSenseKeepTheWholeBand)
{
    struct Pripad {
        double zacatek, uhel;
    };
    for (Pripad p : {Pripad{0.3, M_PI / 2}, Pripad{0.3, 1.5 * M_PI}, Pripad{-1.0, 1.9 * M_PI}}) {
        for (bool protiSmeru : {false, true}) {
            IzolaceSegment seg = *SegmentOblouku({1000, 500}, 400.0, p.zacatek, p.uhel);
            if (protiSmeru)
                seg = *SegmentZBulge(seg.Konec, seg.Zacatek, -std::tan(p.uhel / 4));
            const auto pasy = VytvorIzolaci({seg}, 60.0);
            ASSERT_EQ(pasy.size(), 1u);
            // The band covers the sweep from end to end, within its width of the circle.
            double pokryto = 0.0;
            for (const AcGePoint2d& b : Vzorky(pasy[0])) {
                const double r = b.distanceTo({1000, 500});
                EXPECT_GE(r, 370.0 - 1e-6);
                EXPECT_LE(r, 430.0 + 1e-6);
                const double a = std::atan2(b.y - 500, b.x - 1000) - p.zacatek;
                pokryto = std::max(pokryto, std::fmod(a + 4 * M_PI, 2 * M_PI));
            }
            EXPECT_GT(pokryto, p.uhel - 0.02) << "sweep " << p.uhel << (protiSmeru ? " clockwise" : "");
            EXPECT_LT(pokryto, p.uhel + 1e-6);
        }
    }
}

TEST(VytvorIzolaci, SharpCornerMeetsOnTheMitre)
{
    const std::vector<IzolaceSegment> osa{*SegmentUsecky({0, 0}, {200, 0}), *SegmentUsecky({200, 0}, {200, 200})};
    const auto pasy = VytvorIzolaci(osa, 50.0);
    ASSERT_EQ(pasy.size(), 2u);
    // The mitre through (200, 0) runs at 135 degrees; the first band stays below-left of it, the
    // second above-right, and each ends or begins on it.
    const Rez mitre{{200, 0}, AcGeVector2d(-1, 1).normal()};
    for (const AcGePoint2d& b : Vzorky(pasy[0]))
        EXPECT_GE(Strana(b, mitre), -1e-6);
    for (const AcGePoint2d& b : Vzorky(pasy[1]))
        EXPECT_LE(Strana(b, mitre), 1e-6);
    EXPECT_NEAR(Strana(pasy[0].back().bod, mitre), 0.0, 1e-6);
    EXPECT_NEAR(Strana(pasy[1].front().bod, mitre), 0.0, 1e-6);
}

TEST(VytvorIzolaci, CollinearPiecesAreCutSquareAtTheirJoint)
{
    const std::vector<IzolaceSegment> osa{*SegmentUsecky({0, 0}, {100, 0}), *SegmentUsecky({100, 0}, {250, 0})};
    const auto pasy = VytvorIzolaci(osa, 40.0);
    ASSERT_EQ(pasy.size(), 2u);
    double maxPrvni = -1e9, minDruhy = 1e9;
    for (const AcGePoint2d& b : Vzorky(pasy[0]))
        maxPrvni = std::max(maxPrvni, b.x);
    for (const AcGePoint2d& b : Vzorky(pasy[1]))
        minDruhy = std::min(minDruhy, b.x);
    EXPECT_NEAR(maxPrvni, 100.0, 1e-6);
    EXPECT_NEAR(minDruhy, 100.0, 1e-6);
}

TEST(VytvorIzolaci, Failures)
{
    try {
        VytvorIzolaci({}, 10.0);
        FAIL();
    } catch (const CTogException& e) {
        EXPECT_EQ(Zprava(e), "Neplatna geometrie nebo tloustka izolace.");
    }
    try {
        VytvorIzolaci({*SegmentUsecky({0, 0}, {1, 0})}, 0.0);
        FAIL();
    } catch (const CTogException& e) {
        EXPECT_EQ(Zprava(e), "Neplatna geometrie nebo tloustka izolace.");
    }
    // A turn straight back leaves no cut direction... it is the normal of the new tangent, so it works.
    EXPECT_NO_THROW(VytvorIzolaci({*SegmentUsecky({0, 0}, {100, 0}), *SegmentUsecky({100, 0}, {300, 0})}, 10.0));
}
