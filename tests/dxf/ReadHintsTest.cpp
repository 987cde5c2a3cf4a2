// Counts a file announces (a polyline's vertex count, the handle seed) only size storage ahead:
// a count that lies, is absurd or is missing changes nothing that is read.
#include "DxfFixture.h"

#include "dbents.h"
#include "dbpl.h"

using namespace dxftest;

namespace {

/// The text of a drawing with one polyline of four vertices.
std::string polylineDrawing(AcDbHandle& handle)
{
    AcDbDatabase db;
    auto* pl = new AcDbPolyline;
    for (unsigned i = 0; i < 4; ++i)
        pl->addVertexAt(i, AcGePoint2d(i * 10.0, i % 2 * 5.0), i == 1 ? 0.5 : 0.0);
    handle = append(db, pl).handle();
    return write(db);
}

/// The text with the value of the first group `code` after `from` replaced.
std::string withValue(std::string text, size_t from, const std::string& code, const std::string& value)
{
    size_t at = text.find(code + "\n", from);
    EXPECT_NE(at, std::string::npos);
    size_t start = at + code.size() + 1;
    return text.replace(start, text.find('\n', start) - start, value);
}

} // namespace

TEST(ReadHints, PolylineVertexCountThatLiesReadsEveryVertex)
{
    AcDbHandle h;
    std::string text = polylineDrawing(h);
    size_t lw = text.find("LWPOLYLINE\n", text.find("ENTITIES\n"));
    ASSERT_NE(lw, std::string::npos);
    for (const char* count : {"1", "0", "-7", "2147483647", "4"}) {
        auto db = read(withValue(text, lw, " 90", count));
        ASSERT_TRUE(db) << count;
        AcDbPolyline* pl = AcDbPolyline::cast(sim::db::objectAt(db.get(), h));
        ASSERT_TRUE(pl) << count;
        ASSERT_EQ(pl->numVerts(), 4u) << count;
        double bulge = 0;
        pl->getBulgeAt(1, bulge);
        EXPECT_EQ(bulge, 0.5) << count;
        AcGePoint2d p;
        pl->getPointAt(3, p);
        EXPECT_EQ(p, AcGePoint2d(30.0, 5.0)) << count;
    }
}

TEST(ReadHints, HugeHandleSeedIsKeptWithoutSizingForIt)
{
    AcDbHandle h;
    std::string text = polylineDrawing(h);
    size_t seed = text.find("$HANDSEED\n");
    ASSERT_NE(seed, std::string::npos);
    auto db = read(withValue(text, seed, "  5", "7FFFFFFFFFFF"));
    ASSERT_TRUE(db);
    EXPECT_GE(db->handseed().value(), 0x7FFFFFFFFFFFu);
    EXPECT_TRUE(AcDbPolyline::cast(sim::db::objectAt(db.get(), h)));
    // New objects still get handles, above the seed.
    auto* l = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    EXPECT_GE(append(*db, l).handle().value(), 0x7FFFFFFFFFFFu);
}
