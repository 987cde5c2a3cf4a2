// A file that cannot be read gives one error with its line and leaves the database empty, as it
// was; a cut anywhere is refused without a crash.
#include "DxfFixture.h"

#include <algorithm>

#include "dbents.h"

using namespace dxftest;

namespace {

/// The error of reading the text into a new database, which must then be empty again.
std::string failure(const std::string& text, int* line = nullptr)
{
    AcDbDatabase db(false, true);
    try {
        sim::dxf::readDxf(db, text);
    } catch (const sim::dxf::DxfError& e) {
        if (line)
            *line = e.line();
        int objects = 0;
        sim::db::forEachObject(&db, [&](AcDbObject*) { ++objects; });
        EXPECT_EQ(objects, 0) << "half loaded after: " << e.what();
        return e.what();
    }
    return std::string();
}

/// The number of the line where a piece of text begins.
int lineOf(const std::string& text, const std::string& piece)
{
    size_t at = text.find(piece);
    return 1 + static_cast<int>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

std::string drawing()
{
    AcDbDatabase db;
    auto* l = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0));
    AcDbBlockTableRecordPointer(ACDB_MODEL_SPACE, &db, AcDb::kForWrite)->appendAcDbEntity(l);
    l->close();
    return write(db);
}

} // namespace

class DamagedFile : public DxfTest {};

TEST_F(DamagedFile, EachFaultNamesItsLine)
{
    const std::string good = drawing();
    int line = 0;

    std::string badNumber = good;
    size_t at = badNumber.find(" 10\n0.0\n", badNumber.find("\nLINE\n"));
    badNumber.replace(at, 8, " 10\n0,5\n");
    EXPECT_NE(failure(badNumber, &line).find("is not a number"), std::string::npos);
    EXPECT_EQ(line, lineOf(badNumber, " 10\n0,5\n") + 1);

    std::string badCode = good;
    badCode.replace(badCode.find(" 10\n"), 4, "1x0\n");
    EXPECT_NE(failure(badCode, &line).find("is not a group code"), std::string::npos);
    EXPECT_EQ(line, lineOf(badCode, "1x0\n"));

    std::string unclosed = good;
    size_t entities = unclosed.find("  2\nENTITIES\n");
    unclosed.erase(unclosed.find("  0\nENDSEC\n", entities), 11);
    EXPECT_NE(failure(unclosed, &line).find("ENTITIES section that begins on line"), std::string::npos);
    EXPECT_EQ(line, lineOf(unclosed, "  2\nOBJECTS\n") - 2); // the 0 SECTION that comes instead

    std::string twice = good;
    size_t lineRec = twice.find("  0\nLINE\n");
    std::string copy = twice.substr(lineRec, twice.find("  0\n", lineRec + 4) - lineRec);
    twice.insert(lineRec, copy);
    EXPECT_NE(failure(twice, &line).find("is used twice"), std::string::npos);
    EXPECT_EQ(line, lineOf(twice, "  0\nLINE\n") + static_cast<int>(std::count(copy.begin(), copy.end(), '\n')));

    EXPECT_NE(failure(good.substr(0, good.size() - 8)).find("without its EOF"), std::string::npos);
    EXPECT_NE(failure("AutoCAD Binary DXF\r\n\x1a").find("binary"), std::string::npos);
    EXPECT_NE(failure("  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1009\n  0\nENDSEC\n  0\nEOF\n").find("AC1009"),
              std::string::npos);
}

TEST_F(DamagedFile, ACutAnywhereIsRefusedWithoutACrash)
{
    // Cut at every point of the file's first lines and its last ones; every cut is an error.
    const std::string good = drawing();
    for (size_t n = 1; n < good.size() - 4; n += (n < 2000 || n > good.size() - 2000) ? 7 : 997) {
        std::string cut = good.substr(0, n);
        if (cut.size() >= 5 && cut.compare(cut.size() - 5, 5, "\nEOF\n") == 0)
            continue;
        EXPECT_FALSE(failure(cut).empty()) << "a cut at " << n << " was read";
    }
}

TEST_F(DamagedFile, ScrambledBytesNeverCrashAndWhatReadsWritesAgain)
{
    const std::string good = drawing();
    unsigned seed = 12345;
    auto next = [&] { return seed = seed * 1103515245u + 12345u; };
    const char junk[] = {'0', '5', '\n', ' ', 'A', '{', '}', '-', '.', '\r', '\x80'};
    for (int round = 0; round < 300; ++round) {
        std::string text = good;
        for (int k = 0; k < 1 + round % 4; ++k)
            text[next() % text.size()] = junk[next() % sizeof junk];
        AcDbDatabase db(false, true);
        try {
            sim::dxf::readDxf(db, text);
        } catch (const sim::dxf::DxfError&) {
            continue;
        }
        std::string out = write(db);
        EXPECT_EQ(write(*read(out)), out) << "round " << round;
    }
}

TEST_F(DamagedFile, CodesBeyondTheirEnumerationsKeepTheDefaults)
{
    // Found by fuzzing: an alignment of 65 was cast into the host's enumeration before any check.
    AcDbDatabase db;
    auto* t = new AcDbText(AcGePoint3d(1, 2, 0), L"T", AcDbObjectId::kNull, 2.5, 0.0);
    AcDbObjectId id = append(db, t);
    std::string text = write(db);
    auto insertAfter = [&text](const std::string& marker, size_t from, const std::string& groups) {
        size_t at = text.find(marker, from);
        ASSERT_NE(at, std::string::npos) << marker;
        text.insert(at + marker.size(), groups);
    };
    size_t record = text.find("\nTEXT\n");
    insertAfter("\nAcDbEntity\n", record, "370\n1000\n");
    insertAfter("\nAcDbText\n", record, " 72\n65\n");
    insertAfter("\nAcDbText\n", text.find("\nAcDbText\n", record) + 1, " 73\n-7\n");
    size_t units = text.find("$INSUNITS\n 70\n");
    ASSERT_NE(units, std::string::npos);
    size_t value = units + std::string("$INSUNITS\n 70\n").size();
    text.replace(value, text.find('\n', value) - value, "999");

    auto back = read(text);
    auto* r = same<AcDbText>(*back, id);
    ASSERT_NE(r, nullptr);
    EXPECT_EQ(r->horizontalMode(), AcDb::kTextLeft);
    EXPECT_EQ(r->verticalMode(), AcDb::kTextBase);
    EXPECT_EQ(r->lineWeight(), AcDb::kLnWtByLayer);
    EXPECT_EQ(back->insunits(), db.insunits());
}
