// A drawing file brought in as a block: its dynamic properties (extended data of the source's model
// space and entities) come along with their registered applications, its $INSBASE is the block's
// base point, and a .dwg name finds the .dxf. Saving with a version and a backup choice.
#include "DxfFixture.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "dbents.h"
#include "sim/core/Session.h"
#include "sim/db/DynamicBlock.h"

using namespace dxftest;
namespace fs = std::filesystem;

namespace {

fs::path tempDir(const char* name)
{
    fs::path dir = fs::temp_directory_path() / (std::string(name) + std::to_string(::getpid()));
    fs::remove_all(dir);
    fs::create_directories(dir);
    return dir;
}

std::wstring wide(const fs::path& p) { return sim::fromUtf8(p.string()); }

bool hasRegApp(AcDbDatabase& db, const wchar_t* name)
{
    AcDbRegAppTablePointer table(db.regAppTableId(), AcDb::kForRead);
    return table.openStatus() == Acad::eOk && table->has(name);
}

std::string readFile(const fs::path& p)
{
    std::ifstream in(p, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

} // namespace

class BlockFile : public DxfTest {};

TEST_F(BlockFile, InsertBringsDynamicDataApplicationsAndBasePoint)
{
    fs::path dir = tempDir("togu_blockfile_");
    {
        // The block file: a line with extended data of its own, the dynamic definition on model
        // space, and a base point away from the origin.
        AcDbDatabase src;
        AcDbObjectId lineId = append(src, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0)));
        std::vector<sim::db::DynamicProperty> props(1);
        props[0].name = L"Výška";
        props[0].value.real = 2.5;
        resbuf* def = sim::db::dynamicPropertiesXData(props, true);
        {
            AcDbBlockTableRecordPointer ms(ACDB_MODEL_SPACE, &src, AcDb::kForWrite);
            ASSERT_EQ(ms->setXData(def), Acad::eOk);
        }
        acutRelRb(def);
        resbuf* mine = acutBuildList(AcDb::kDxfRegAppName, L"MYAPP", AcDb::kDxfXdInteger16, 7, 0);
        {
            AcDbObjectPointer<AcDbLine> line(lineId, AcDb::kForWrite);
            ASSERT_EQ(line->setXData(mine), Acad::eOk);
        }
        acutRelRb(mine);
        std::string text = write(src);
        // $INSBASE 5,6,0 as a file from elsewhere would have it.
        size_t at = text.find("$INSBASE");
        ASSERT_NE(at, std::string::npos);
        size_t x = text.find(" 10\n", at) + 4;
        text.replace(x, text.find('\n', x) - x, "5.0");
        size_t y = text.find(" 20\n", at) + 4;
        text.replace(y, text.find('\n', y) - y, "6.0");
        std::ofstream(dir / "znacka.dxf", std::ios::binary) << text;
    }

    AcDbDatabase side(false, true);
    ASSERT_EQ(side.readDwgFile(wide(dir / "znacka.dwg").c_str()), Acad::eOk);
    ASSERT_EQ(side.closeInput(true), Acad::eOk);
    AcDbDatabase db;
    AcDbObjectId blockId;
    ASSERT_EQ(db.insert(blockId, L"ZNACKA", &side), Acad::eOk);

    AcDbBlockTableRecordPointer btr(blockId, AcDb::kForRead);
    ASSERT_EQ(btr.openStatus(), Acad::eOk);
    EXPECT_TRUE(btr->origin().isEqualTo(AcGePoint3d(5, 6, 0)));
    std::vector<sim::db::DynamicProperty> got = sim::db::dynamicProperties(*btr.object());
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got[0].name, L"Výška");
    EXPECT_EQ(got[0].value.real, 2.5);
    EXPECT_TRUE(hasRegApp(db, sim::db::kDynamicBlockApp));
    EXPECT_TRUE(hasRegApp(db, L"MYAPP"));

    AcDbBlockTableRecordIterator* it = nullptr;
    ASSERT_EQ(btr->newIterator(it), Acad::eOk);
    ASSERT_FALSE(it->done());
    AcDbObjectId copyId;
    it->getEntityId(copyId);
    delete it;
    AcDbObjectPointer<AcDbLine> copy(copyId, AcDb::kForRead);
    ASSERT_EQ(copy.openStatus(), Acad::eOk);
    resbuf* x = copy->xData(L"MYAPP");
    ASSERT_TRUE(x && x->rbnext);
    EXPECT_EQ(x->rbnext->resval.rint, 7);
    acutRelRb(x);
    fs::remove_all(dir);
}

TEST_F(BlockFile, SaveAsWithVersionAndBackupChoice)
{
    fs::path dir = tempDir("togu_saveas_");
    fs::path file = dir / "vykres.dxf";
    AcDbDatabase db;
    ASSERT_EQ(db.saveAs(wide(file).c_str(), false), Acad::eOk);
    std::string first = readFile(file);
    EXPECT_EQ(first.find("AC1032"), first.find("$ACADVER") + std::string("$ACADVER\n  1\n").size());

    append(db, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0)));
    // Without the backup the old file is simply replaced.
    ASSERT_EQ(db.saveAs(wide(dir / "vykres.dwg").c_str(), false, AcDb::kDHL_CURRENT), Acad::eOk);
    EXPECT_FALSE(fs::exists(dir / "vykres.bak"));
    std::string second = readFile(file);
    EXPECT_NE(second, first);

    // Another version is refused and nothing is written.
    append(db, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(2, 2, 0)));
    EXPECT_EQ(db.saveAs(wide(file).c_str(), true, AcDb::kDHL_1027), Acad::eInvalidDwgVersion);
    EXPECT_EQ(readFile(file), second);
    EXPECT_FALSE(fs::exists(dir / "vykres.bak"));

    // With it, the old file becomes the .bak.
    ASSERT_EQ(db.saveAs(wide(file).c_str(), true), Acad::eOk);
    EXPECT_EQ(readFile(dir / "vykres.bak"), second);
    const ACHAR* name = nullptr;
    ASSERT_EQ(db.getFilename(name), Acad::eOk);
    EXPECT_EQ(std::wstring(name), sim::db::normalizePath(wide(file)));
    fs::remove_all(dir);
}
