// Recovery: the TABLES section put before the sections that name its records.
#include <gtest/gtest.h>

#include "sim/dxf/Recovery.h"

using sim::dxf::tablesInTheirPlace;

namespace {
std::string section(const std::string& name, const std::string& body = "")
{
    return "  0\r\nSECTION\r\n  2\r\n" + name + "\r\n" + body + "  0\r\nENDSEC\r\n";
}
} // namespace

TEST(Recovery, TablesAfterTheBlocksComeBeforeThemWithEveryByteKept)
{
    const std::string header = section("HEADER", "  9\r\n$ACADVER\r\n  1\r\nAC1032\r\n");
    const std::string tables = section("TABLES", "  0\r\nTABLE\r\n  2\r\nLAYER\r\n  0\r\nENDTAB\r\n");
    const std::string blocks = section("BLOCKS"), entities = section("ENTITIES");
    const std::string eof = "  0\r\nEOF\r\n";
    auto fixed = tablesInTheirPlace(header + blocks + entities + tables + eof);
    ASSERT_TRUE(fixed);
    EXPECT_EQ(*fixed, header + tables + blocks + entities + eof);
    EXPECT_EQ(tablesInTheirPlace(header + entities + tables + eof), header + tables + entities + eof);
}

TEST(Recovery, TablesInTheirPlaceOrSectionsThatCannotBeToldApartAreLeftAlone)
{
    EXPECT_FALSE(tablesInTheirPlace(section("TABLES") + section("BLOCKS") + "  0\nEOF\n"));
    EXPECT_FALSE(tablesInTheirPlace(section("BLOCKS") + "  0\nEOF\n"));
    // A section that never ends, or a section inside a section.
    EXPECT_FALSE(tablesInTheirPlace(section("BLOCKS") + "  0\nSECTION\n  2\nTABLES\n"));
    EXPECT_FALSE(tablesInTheirPlace("  0\nSECTION\n  2\nBLOCKS\n" + section("TABLES") + "  0\nENDSEC\n"));
    EXPECT_FALSE(tablesInTheirPlace(""));
}
