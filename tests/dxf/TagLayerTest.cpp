// The tag layer: splitting DXF text into groups, converting numbers, the damaged inputs it refuses
// with their line, the writer's text, and the text codecs of old files.
#include <gtest/gtest.h>

#include "sim/dxf/DxfError.h"
#include "sim/dxf/TagReader.h"
#include "sim/dxf/TagWriter.h"
#include "sim/dxf/TextCodec.h"

using namespace sim::dxf;

namespace {

std::vector<Tag> all(std::string_view text)
{
    TagReader r(text);
    std::vector<Tag> out;
    while (r.peek())
        out.push_back(r.take());
    return out;
}

/// The line of the error the text gives, or -1 when it reads.
int errorLine(std::string_view text)
{
    try {
        all(text);
    } catch (const DxfError& e) {
        return e.line();
    }
    return -1;
}

} // namespace

TEST(TagReader, SplitsGroupsAndConvertsNumbersByCode)
{
    auto tags = all("  0\nLINE\n  5\n1F\n 10\n1.5\n 70\n     7\n100\nAcDbLine\n  1\n  text with spaces  \n");
    ASSERT_EQ(tags.size(), 6u);
    EXPECT_EQ(tags[0].code, 0);
    EXPECT_EQ(tags[0].value, "LINE");
    EXPECT_EQ(tags[1].handle().value(), 0x1Fu);
    EXPECT_DOUBLE_EQ(tags[2].real, 1.5);
    EXPECT_EQ(tags[3].integer, 7);
    EXPECT_EQ(tags[4].value, "AcDbLine");
    // A string keeps its spaces; only the line end goes.
    EXPECT_EQ(tags[5].value, "  text with spaces  ");
    EXPECT_EQ(tags[5].line, 11);
}

TEST(TagReader, AcceptsCrLfBomAndAMissingLastLineEnd)
{
    auto tags = all("\xEF\xBB\xBF  0\r\nSECTION\r\n  2\r\nHEADER\r\n  0\r\nEOF");
    ASSERT_EQ(tags.size(), 3u);
    EXPECT_EQ(tags[1].value, "HEADER");
    EXPECT_EQ(tags[2].value, "EOF");
}

TEST(TagReader, NumbersInTheirLimits)
{
    auto tags = all(" 40\n-1.25e-3\n 90\n-2147483648\n160\n9007199254740993\n 40\n+2\n");
    EXPECT_DOUBLE_EQ(tags[0].real, -1.25e-3);
    EXPECT_EQ(tags[1].integer, -2147483648LL);
    EXPECT_EQ(tags[2].integer, 9007199254740993LL); // beyond a double's precision
    EXPECT_DOUBLE_EQ(tags[3].real, 2.0);
}

TEST(TagReader, DamagedInputGivesTheLine)
{
    EXPECT_EQ(errorLine("  0\nLINE\n 10\nabc\n"), 4);           // a value that is no number
    EXPECT_EQ(errorLine("  0\nLINE\n 70\n1.5\n"), 4);           // a real where a whole number goes
    EXPECT_EQ(errorLine("  0\nLINE\nxyz\n1\n"), 3);             // a code that is no number
    EXPECT_EQ(errorLine("  0\nLINE\n5000\n1\n"), 3);            // no such group code
    EXPECT_EQ(errorLine("  0\nLINE\n  5\nZZ\n"), 4);            // a handle that isn't hexadecimal
    EXPECT_EQ(errorLine("  0\nLINE\n 10\n"), 4);                // cut short after a code
    EXPECT_EQ(errorLine("  0\nLINE\n 10\n1.0\n"), -1);
}

TEST(TagWriter, WritesCodesRightAlignedAndRealsThatReadBack)
{
    TextTagWriter w;
    w.write(0, "LINE");
    w.handle(5, AcDbHandle(0x2AF));
    w.real(10, 1.0);
    w.real(20, 0.1);
    w.real(30, -0.0);
    w.integer(1071, -5);
    w.text(1, L"a\nb");
    EXPECT_EQ(w.contents(), "  0\nLINE\n  5\n2AF\n 10\n1.0\n 20\n0.1\n 30\n0.0\n1071\n-5\n  1\na^Jb\n");
    for (double v : {0.1, 1.0 / 3.0, 1e-300, 123456789.123456789, -2.5e17}) {
        auto tags = all(" 40\n" + formatReal(v) + "\n");
        EXPECT_EQ(tags[0].real, v) << formatReal(v);
    }
}

TEST(TagWriter, RefusesAValueOfAnotherTypeThanItsGroupCarries)
{
    TagRecorder w;
    EXPECT_THROW(w.text(5, L"_OBLIQUE"), std::logic_error) << "5 carries a handle";
    EXPECT_THROW(w.real(70, 1.0), std::logic_error);
    EXPECT_THROW(w.integer(40, 1), std::logic_error);
    EXPECT_THROW(w.handle(1, AcDbHandle(1)), std::logic_error);
    EXPECT_THROW(w.integer(2000, 1), std::logic_error) << "no such code";
    EXPECT_TRUE(w.tags.empty());
    w.handle(342, AcDbHandle(0x3B));
    w.integer(290, 1);
    EXPECT_EQ(w.tags.size(), 2u);
}

TEST(TextCodec, OldCodePagesAndEscapes)
{
    // "Žluťoučký kůň" in Windows-1250.
    std::string cp1250 = "\x8Elu\x9Dou\xE8k\xFD k\xF9\xF2";
    EXPECT_EQ(decodeCodePage(cp1250, "ANSI_1250"), "Žluťoučký kůň");
    EXPECT_EQ(decodeCodePage("\xE9\x80", "ANSI_1252"), "é€");
    EXPECT_EQ(decodeUnicodeEscapes("k\\U+016F\\U+0148 \\P\\U+zz"), "kůň \\P\\U+zz");
    EXPECT_EQ(decodeCarets("a^Jb^ c^Id"), "a\nb^c\td");
    EXPECT_EQ(encodeCarets("a\nb\tc"), "a^Jb^Ic");
    EXPECT_TRUE(isValidUtf8("kůň"));
    EXPECT_FALSE(isValidUtf8(cp1250));
}
