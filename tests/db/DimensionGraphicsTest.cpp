// The graphics of linear dimensions: extension lines with their offsets, the dimension line run on past
// ticks and under a text beyond its end, suppressed halves, arrows pointing out, text that reads from
// the left or from below, the annotation scale; and the measurement as the style writes it.
#include <gtest/gtest.h>

#include <cmath>

#include "sim/db/DimensionGraphics.h"

using namespace sim::db;

namespace {

void expectPoint(const AcGePoint3d& p, double x, double y)
{
    EXPECT_NEAR(p.x, x, 1e-9);
    EXPECT_NEAR(p.y, y, 1e-9);
}

DimensionPoints between(const AcGePoint3d& x1, const AcGePoint3d& x2, const AcGePoint3d& dimLine)
{
    DimensionPoints p;
    p.x1 = x1;
    p.x2 = x2;
    p.dimLine = dimLine;
    p.along = x2 - x1;
    return p;
}

} // namespace

TEST(DimensionGraphics, ExtensionLinesKeepTheirOffsetsAndArrowsPointOut)
{
    DimensionLook look; // exo 0.625, exe 1.25, arrows, text on the line
    auto g = linearDimensionGraphics(between({0, 0, 0}, {100, 0, 0}, {50, 20, 0}), look, L"100");
    ASSERT_EQ(g.lines.size(), 4u);
    expectPoint(g.lines[0].first, 0, 0.625);
    expectPoint(g.lines[0].second, 0, 21.25);
    expectPoint(g.lines[1].first, 100, 0.625);
    // The text in the middle cuts the dimension line in two.
    expectPoint(g.lines[2].first, 0, 20);
    EXPECT_LT(g.lines[2].second.x, 50);
    EXPECT_GT(g.lines[3].first.x, 50);
    expectPoint(g.lines[3].second, 100, 20);
    ASSERT_EQ(g.arrows.size(), 2u);
    expectPoint(g.arrows[0].tip, 0, 20);
    EXPECT_NEAR(std::fabs(g.arrows[0].angle), M_PI, 1e-12);
    EXPECT_NEAR(g.arrows[1].angle, 0.0, 1e-12);
    expectPoint(g.textPoint, 50, 20);
    EXPECT_NEAR(g.textAngle, 0.0, 1e-12);
}

TEST(DimensionGraphics, PipeAcrossTwoWallsWithTicksAndTextBeyond)
{
    // A pipe's walls at y 0 and 100, the text point 7 beyond the second: ticks at both walls, no
    // extension lines, the line runs on past the first tick and under the whole text.
    DimensionLook look;
    look.asz = 2.5, look.dle = 1.25, look.gap = 0.63, look.txt = 2.0, look.tad = 1, look.tick = true;
    look.se1 = look.se2 = true;
    look.scale = 20.0;
    DimensionPoints p = between({500, 0, 0}, {500, 100, 0}, {500, 240, 0});
    const AcGePoint3d text(500, 240, 0);
    p.textAt = &text;
    auto g = linearDimensionGraphics(p, look, L"2x 50x6.9");
    ASSERT_EQ(g.lines.size(), 1u);
    expectPoint(g.lines[0].first, 500, -25);
    const double half = 9 * 40 * 0.6 / 2;
    expectPoint(g.lines[0].second, 500, 240 + half);
    ASSERT_EQ(g.arrows.size(), 2u);
    EXPECT_NEAR(g.arrowSize, 50.0, 1e-12);
    expectPoint(g.arrows[1].tip, 500, 100);
    // The text reads upwards, standing left of the line (above it as read).
    EXPECT_NEAR(g.textAngle, M_PI / 2, 1e-12);
    expectPoint(g.textPoint, 500 - 0.63 * 20, 240);
    EXPECT_NEAR(g.textHeight, 40.0, 1e-12);
    EXPECT_TRUE(g.textAbove);
}

TEST(DimensionGraphics, SuppressedSecondHalfLeavesOneTickAndTheLineToTheText)
{
    // One pipe line: the tick on the axis only; the points given from the far end still keep the text
    // on the side of the second point.
    DimensionLook look;
    look.dle = 1.25, look.tad = 1, look.tick = true, look.se1 = look.se2 = true, look.sd2 = true;
    DimensionPoints p = between({0, 0, 0}, {0, -1.5, 0}, {0, -8.5, 0});
    const AcGePoint3d text(0, -8.5, 0);
    p.textAt = &text;
    auto g = linearDimensionGraphics(p, look, L"DN");
    ASSERT_EQ(g.arrows.size(), 1u);
    expectPoint(g.arrows[0].tip, 0, 0);
    ASSERT_EQ(g.lines.size(), 1u);
    EXPECT_NEAR(std::max(g.lines[0].first.y, g.lines[0].second.y), 1.25, 1e-12);
    EXPECT_LT(std::min(g.lines[0].first.y, g.lines[0].second.y), -8.5);
    // Drawn downwards, the text still reads upwards.
    EXPECT_NEAR(g.textAngle, M_PI / 2, 1e-12);
    // Both halves suppressed with the text inside: no dimension line at all.
    look.sd1 = true;
    auto none = linearDimensionGraphics(between({0, 0, 0}, {100, 0, 0}, {50, 10, 0}), look, L"x");
    EXPECT_TRUE(none.lines.empty());
    EXPECT_TRUE(none.arrows.empty());
}

TEST(DimensionGraphics, TextReadsFromTheLeftInTheTurnedUcs)
{
    DimensionLook look;
    auto leftwards = linearDimensionGraphics(between({100, 0, 0}, {0, 0, 0}, {50, 5, 0}), look, L"1");
    EXPECT_NEAR(leftwards.textAngle, 0.0, 1e-12);
    // A UCS turned by 90 degrees (its X axis along the world's Y): a horizontal dimension reads downwards
    // in the world, which is from the left in that UCS.
    DimensionPoints p = between({0, 0, 0}, {100, 0, 0}, {50, 5, 0});
    p.horizontalRotation = -M_PI / 2;
    auto turned = linearDimensionGraphics(p, look, L"1");
    EXPECT_NEAR(std::fabs(turned.textAngle), M_PI, 1e-12);
}

TEST(DimensionGraphics, MeasurementAsTheStyleWritesIt)
{
    EXPECT_EQ(formatMeasurement(1500.0, 0.001, 0.0, 3, L'.', 8, L""), L"1.5");
    EXPECT_EQ(formatMeasurement(1500.0, 0.001, 0.0, 3, L',', 0, L""), L"1,500");
    EXPECT_EQ(formatMeasurement(12.0, 1.0, 5.0, 0, L'.', 0, L"<> mm"), L"10 mm");
    EXPECT_EQ(formatMeasurement(0.25, 1.0, 0.0, 2, L'.', 4, L"DN"), L".25DN");
    EXPECT_EQ(formatMeasurement(-0.0001, 1.0, 0.0, 2, L'.', 0, L""), L"0.00");
    EXPECT_EQ(shownDimensionText(L"", L"25"), L"25");
    EXPECT_EQ(shownDimensionText(L"2x <>", L"25"), L"2x 25");
    EXPECT_EQ(shownDimensionText(L"2x DN25", L"25"), L"2x DN25");
}
