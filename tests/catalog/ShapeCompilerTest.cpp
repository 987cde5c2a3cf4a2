// The shape compiler of tools/shx: exact bytes of a compiled file, the encodings of signed values,
// the limits of the format on both sides, faults of the source reported with their line, and the
// shipped TG_IS.shx being the compiled form of its source.
#include "SourceDir.h"
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tools/shx/ShapeCompiler.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes B(std::string_view s) { return Bytes(s.begin(), s.end()); }

Bytes Concat(std::initializer_list<Bytes> parts)
{
    Bytes out;
    for (const Bytes& p : parts)
        out.insert(out.end(), p.begin(), p.end());
    return out;
}

/// The line of the fault the source is refused for, or -1 when it compiles.
int FaultLine(const std::string& shp)
{
    try {
        shx::compileShp(shp);
        return -1;
    } catch (const shx::ShapeError& e) {
        return e.line();
    }
}

/// A shape with `n` definition bytes: pen-down codes, then the end code, in lines of 40 values.
std::string ShapeOfSize(int declared, int n, int number = 1)
{
    std::string s = "*" + std::to_string(number) + "," + std::to_string(declared) + ",VELKY\n";
    for (int i = 0; i < n - 1; ++i)
        s += (i % 40 == 39) ? "1\n" : "1,";
    s += "0\n";
    return s;
}

Bytes ReadFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return Bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

} // namespace

TEST(ShapeCompiler, WritesTheExactBytesOfATinyShapeFile)
{
    Bytes shx = shx::compileShp("*5,4,CARKA\n1,020,2,0\n");
    Bytes expected = Concat({
        B(std::string_view("AutoCAD-86 shapes 1.0\r\n\x1a", 24)),
        {0x05, 0x00, 0x05, 0x00, 0x01, 0x00}, // first, last, count
        {0x05, 0x00, 0x0A, 0x00},             // shape 5: name, its 0 and 4 bytes
        B(std::string_view("CARKA\0", 6)),
        {0x01, 0x20, 0x02, 0x00},
        B("EOF"),
    });
    EXPECT_EQ(shx, expected);
}

TEST(ShapeCompiler, IndexesShapesInAscendingOrderWhateverTheSourceOrder)
{
    Bytes shx = shx::compileShp("*0C,2,B\n014,0\n\n*3,3,A\n2,1,0\n");
    Bytes expected = Concat({
        B(std::string_view("AutoCAD-86 shapes 1.0\r\n\x1a", 24)),
        {0x03, 0x00, 0x0C, 0x00, 0x02, 0x00},
        {0x03, 0x00, 0x05, 0x00, 0x0C, 0x00, 0x04, 0x00},
        {'A', 0, 0x02, 0x01, 0x00},
        {'B', 0, 0x14, 0x00},
        B("EOF"),
    });
    EXPECT_EQ(shx, expected);
}

TEST(ShapeCompiler, EncodesEachArgumentByItsKind)
{
    // Displacements and bulges in two's complement; the octant's sign (clockwise) in its high bit;
    // a leading 0 makes a number hexadecimal. Parentheses, blanks, comments and CRLF don't count.
    auto shapes = shx::parseShp(
        "; a comment line\r\n"
        "*1,19,OBLOUK ; trailing comment\r\n"
        "8,(-2,127),8,(-128,0),10,(1,-043),10,(2,043),\r\n"
        "12,( 0 , -5 , -127 ),4,010,0\r\n");
    ASSERT_EQ(shapes.size(), 1u);
    EXPECT_EQ(shapes[0].name, "OBLOUK");
    EXPECT_EQ(shapes[0].bytes, (Bytes{8, 0xFE, 0x7F, 8, 0x80, 0x00, 10, 1, 0xC3, 10, 2, 0x43, 12, 0x00, 0xFB, 0x81,
                                  4, 0x10, 0}));
}

TEST(ShapeCompiler, KnowsAZeroThatIsAnArgumentFromTheEndCode)
{
    // Code 9 runs up to the pair (0,0); code 13 likewise, with a bulge after each other pair.
    auto shapes = shx::parseShp("*1,14,BEH\n9,(1,0),(0,1),(0,0),13,(2,0,-127),(0,0),0\n");
    ASSERT_EQ(shapes.size(), 1u);
    EXPECT_EQ(shapes[0].bytes.size(), 14u);
    EXPECT_EQ(FaultLine("*1,4,BEH\n8,(2,0)\n"), 2) << "the last 0 is an argument, not the end";
    EXPECT_EQ(FaultLine("*1,5,BEH\n8,(2,0),0,1\n"), 2) << "bytes after the end code";
}

TEST(ShapeCompiler, TakesAShapeOf2000BytesAndRefusesOneOf2001)
{
    Bytes shx = shx::compileShp(ShapeOfSize(2000, 2000));
    ASSERT_EQ(shx.size(), 24u + 6 + 4 + 6 + 2000 + 3);
    EXPECT_EQ(shx[32], 2006 & 0xFF); // the index counts the name, its 0 and the 2000 bytes
    EXPECT_EQ(shx[33], 2006 >> 8);
    EXPECT_EQ(shx[shx.size() - 4], 0);

    EXPECT_EQ(FaultLine(ShapeOfSize(2001, 2001)), 1);
}

TEST(ShapeCompiler, NumbersShapesFrom1To255)
{
    EXPECT_EQ(FaultLine("*1,2,A\n1,0\n*255,2,B\n1,0\n*0FF,2,C\n1,0\n"), 5) << "0FF is 255 again";
    Bytes shx = shx::compileShp("*1,2,A\n1,0\n*255,2,B\n1,0\n");
    EXPECT_EQ((Bytes{shx[24], shx[25], shx[26], shx[27]}), (Bytes{1, 0, 255, 0}));

    EXPECT_EQ(FaultLine("*0,4,FONT\n8,2,0,0\n"), 1) << "0 is the header of a font";
    EXPECT_EQ(FaultLine("*256,2,A\n1,0\n"), 1);
    EXPECT_EQ(FaultLine("*-1,2,A\n1,0\n"), 1);
    EXPECT_EQ(FaultLine("*UNIFONT,6,Font\n8,2,0,0,0,0\n"), 1);
}

TEST(ShapeCompiler, KeepsEveryValueWithinItsByte)
{
    EXPECT_EQ(FaultLine("*1,4,A\n8,(127,-128),0\n"), -1);
    EXPECT_EQ(FaultLine("*1,4,A\n8,(128,0),0\n"), 2);
    EXPECT_EQ(FaultLine("*1,4,A\n8,(0,-129),0\n"), 2);
    EXPECT_EQ(FaultLine("*1,5,A\n12,(1,1,-128),0\n"), 2) << "a bulge stops at -127";
    EXPECT_EQ(FaultLine("*1,2,A\n0FF,0\n"), -1);
    EXPECT_EQ(FaultLine("*1,2,A\n256,0\n"), 2);
    EXPECT_EQ(FaultLine("*1,3,A\n10,1,048,0\n"), 2) << "octants are 0 to 7";
    EXPECT_EQ(FaultLine("*1,3,A\n3,0,0\n"), 2) << "a scale factor of 0";
}

TEST(ShapeCompiler, ReportsFaultsOfTheSourceAtTheirLine)
{
    EXPECT_EQ(FaultLine("*1,3,A\n1,0\n"), 1) << "declares 3 bytes, has 2";
    EXPECT_EQ(FaultLine("*1,2,A\n1,0\n\n*1,2,B\n1,0\n"), 4) << "number defined twice";
    EXPECT_EQ(FaultLine("1,0\n*1,2,A\n1,0\n"), 1) << "bytes before a header";
    EXPECT_EQ(FaultLine("*1,2,a\n1,0\n"), 1) << "the host ignores names in small letters";
    EXPECT_EQ(FaultLine("*1,2,\n1,0\n"), 1) << "no name";
    EXPECT_EQ(FaultLine("*1,2\n1,0\n"), 1) << "no name field";
    EXPECT_EQ(FaultLine("*1,2,A\n1,x\n"), 2) << "not a number";
    EXPECT_EQ(FaultLine("*1,2,A\n15,0\n"), 2) << "code 15 doesn't exist";
    EXPECT_EQ(FaultLine("*1,3,A\n1,2,\n\n*2,2,B\n1,0\n"), 2) << "no end code";
    EXPECT_EQ(FaultLine("*1,3,A\n7,2,0\n"), 1) << "subshape 2 not in the file";
    EXPECT_EQ(FaultLine("*1,3,A\n7,2,0\n*2,2,B\n1,0\n"), -1);
    EXPECT_EQ(FaultLine("*1,2,A\n1,0 ;" + std::string(124, 'x') + "\n"), 2) << "a line of 129 characters";
    EXPECT_EQ(FaultLine("*1,2,A\n1,0 ;" + std::string(123, 'x') + "\n"), -1);
    EXPECT_EQ(FaultLine("; nothing but a comment\n"), 0) << "a file without shapes";
}

TEST(ShapeCompiler, ShippedShapeFileIsTheCompiledFormOfItsSource)
{
    const std::string lin = toguSourceDir() + "/data/LIN/";
    Bytes source = ReadFile(lin + "src/TG_IS.shp");
    ASSERT_FALSE(source.empty());
    Bytes shx = shx::compileShp(std::string(source.begin(), source.end()));
    EXPECT_EQ(ReadFile(lin + "TG_IS.shx"), shx) << "rebuild it: shpc data/LIN/src/TG_IS.shp data/LIN/TG_IS.shx";
}
