// The drawing helpers: units of the drawing, the flat UCS, UCS/WCS conversions, the point on a
// segment, the view and mark sizes, and the marks shown as transients.
#include <cmath>

#include "CTogException.h"
#include "CTogFunkceDWG.h"
#include "TogDraw.h"
#include "acgitransient.h"
#include "arxHeaders.h"
#include "system/SystemNaPlatforme.h"
#include "sim/editor/Transients.h"

namespace {

AcDbDatabase* Pracovni() { return acdbHostApplicationServices()->workingDatabase(); }

std::string Zprava(const CTogException& e)
{
    std::string text = e.what();
    return text.substr(0, text.find('\n'));
}

} // namespace

using Pomucky = SystemNaPlatforme;

TEST(BodNaUsecce, InsideNearTheEndsAndBeyond)
{
    AcGePoint2d nejblizsi;
    const AcGePoint2d a(0, 0), b(10, 0);
    EXPECT_TRUE(CTogFunkceDWG::BodNaUsecce(a, b, {4, 3}, nejblizsi, 0.01));
    EXPECT_TRUE(nejblizsi.isEqualTo({4, 0}));
    // Just past an end, within the tolerance.
    EXPECT_TRUE(CTogFunkceDWG::BodNaUsecce(a, b, {10.005, 0}, nejblizsi, 0.01));
    EXPECT_FALSE(CTogFunkceDWG::BodNaUsecce(a, b, {10.5, 0}, nejblizsi, 0.01));
    EXPECT_FALSE(CTogFunkceDWG::BodNaUsecce(a, b, {-0.5, 1}, nejblizsi, 0.01));
    EXPECT_TRUE(nejblizsi.isEqualTo({-0.5, 0}));
    // An oblique segment.
    EXPECT_TRUE(CTogFunkceDWG::BodNaUsecce({1, 1}, {5, 5}, {3, 3}, nejblizsi, 1e-9));
    try {
        CTogFunkceDWG::BodNaUsecce(a, a, {1, 1}, nejblizsi, 0.01);
        FAIL() << "a segment of no length";
    } catch (const CTogException& e) {
        EXPECT_EQ(Zprava(e), "Úsečka má nulovou délku");
    }
}

TEST_F(Pomucky, UnitsOfTheDrawing)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    EXPECT_DOUBLE_EQ(CTogFunkceDWG::Jednotek20mm(db), 20.0);
    EXPECT_DOUBLE_EQ(CTogFunkceDWG::MetruNaJednotku(db), 0.001);
    db->setInsunits(AcDb::kUnitsMeters);
    EXPECT_DOUBLE_EQ(CTogFunkceDWG::Jednotek20mm(db), 0.02);
    EXPECT_DOUBLE_EQ(CTogFunkceDWG::MetruNaJednotku(db), 1.0);
    db->setInsunits(AcDb::kUnitsUndefined);
    try {
        CTogFunkceDWG::Jednotek20mm(db);
        FAIL() << "no units";
    } catch (const CTogException& e) {
        EXPECT_EQ(Zprava(e), "Nelze získat přepočet jednotek");
    }
}

TEST_F(Pomucky, UcsTurnedAboutZIsFlatMovedInZIsNot)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    EXPECT_TRUE(CTogFunkceDWG::JeUcs2d());
    const double c = std::cos(0.5), s = std::sin(0.5);
    db->setUcs({100, 50, 0}, {c, s, 0}, {-s, c, 0});
    EXPECT_TRUE(CTogFunkceDWG::JeUcs2d());
    // The conversions go through the turned UCS and back.
    AcGePoint2d w = CTogFunkceDWG::UcsNaWcs(AcGePoint2d(10, 0));
    EXPECT_NEAR(w.x, 100 + 10 * c, 1e-9);
    EXPECT_NEAR(w.y, 50 + 10 * s, 1e-9);
    AcGePoint2d u = CTogFunkceDWG::WcsNaUcs(w);
    EXPECT_NEAR(u.x, 10, 1e-9);
    EXPECT_NEAR(u.y, 0, 1e-9);
    AcGeVector2d v = CTogFunkceDWG::UcsNaWcs(AcGeVector2d(1, 0));
    EXPECT_NEAR(v.x, c, 1e-9) << "a vector is not moved by the origin";
    EXPECT_NEAR(CTogFunkceDWG::WcsNaUcs(v).x, 1.0, 1e-9);

    db->setUcs({0, 0, 1e-9}, {1, 0, 0}, {0, 1, 0});
    EXPECT_FALSE(CTogFunkceDWG::JeUcs2d());
    db->setUcs({0, 0, 0}, {1, 0, 0}, {0, 0.8, 0.6});
    EXPECT_FALSE(CTogFunkceDWG::JeUcs2d());
}

TEST_F(Pomucky, PaperUcsCountsOnALayout)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    db->setPucs({0, 0, 5}, {1, 0, 0}, {0, 1, 0});
    EXPECT_TRUE(CTogFunkceDWG::JeUcs2d()) << "model tab: the model UCS";
    resbuf nula{};
    nula.restype = RTSHORT;
    nula.resval.rint = 0;
    ASSERT_EQ(acedSetVar(L"TILEMODE", &nula), RTNORM);
    EXPECT_FALSE(CTogFunkceDWG::JeUcs2d());
    EXPECT_DOUBLE_EQ(CTogFunkceDWG::MeritkoAnotace(), 1.0) << "a layout tab has no annotation scale";
}

TEST_F(Pomucky, AnnotationScaleOnTheModelTab)
{
    Spust();
    resbuf meritko{};
    meritko.restype = RTSTR;
    meritko.resval.rstring = const_cast<ACHAR*>(L"1:50");
    if (acedSetVar(L"CANNOSCALE", &meritko) != RTNORM)
        GTEST_SKIP() << "the platform's scale list is not there yet";
    EXPECT_DOUBLE_EQ(CTogFunkceDWG::MeritkoAnotace(), 50.0);
}

TEST_F(Pomucky, MarkSizeIsTheViewWidthOver150)
{
    Spust();
    double vyska = TogDraw::VelikostPohledu();
    EXPECT_GT(vyska, 0.0);
    resbuf obrazovka{};
    ASSERT_EQ(acedGetVar(L"SCREENSIZE", &obrazovka), RTNORM);
    double sirka = vyska * obrazovka.resval.rpoint[X] / obrazovka.resval.rpoint[Y];
    EXPECT_DOUBLE_EQ(TogDraw::VelikostZnacky(), sirka / 150.0);
}

TEST_F(Pomucky, MarksAreShownUntilDeleted)
{
    Spust();
    sim::editor::clearTransients();
    TogDraw::PridejZnacku(new AcDbLine({0, 0, 0}, {1, 1, 0}));
    TogDraw::PridejZnacku(new AcDbCircle({0, 0, 0}, AcGeVector3d::kZAxis, 2.0));
    ASSERT_EQ(sim::editor::transients().size(), 2u);
    EXPECT_EQ(sim::editor::transients()[0].viewports, std::vector<int>{2});
    EXPECT_EQ(sim::editor::describeTransients(), L"LINE in viewports 2\nCIRCLE in viewports 2\n");
    EXPECT_EQ(TogDraw::g_zapamatovanaVelikost, 0.0);
    TogDraw::SmazZnacky(true, true);
    EXPECT_TRUE(sim::editor::transients().empty());
    EXPECT_TRUE(TogDraw::Znacky().empty());
}
