// Drawing files on disk: a save keeps the old file as .bak and leaves no temporary file, a .dwg
// name stands for its .dxf, a damaged file stays as it was, and an external reference is found
// beside its drawing, read, changed and saved back over itself.
#include "DxfFixture.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "dbapserv.h"
#include "dbents.h"
#include "sim/core/Session.h"

using namespace dxftest;
namespace fs = std::filesystem;

namespace {

std::string readFile(const fs::path& p)
{
    std::ifstream in(p, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

int lineOf(const std::string& text, const std::string& piece)
{
    size_t at = text.find(piece);
    return 1 + static_cast<int>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

} // namespace

class FilesOnDisk : public DxfTest {};

TEST_F(FilesOnDisk, ASaveKeepsTheOldFileAndAFailureChangesNothing)
{
    fs::path dir = fs::temp_directory_path() / ("togu_dxf_files_" + std::to_string(::getpid()));
    fs::create_directories(dir);
    fs::path file = dir / "vykres.dxf";

    AcDbDatabase db;
    ASSERT_EQ(sim::dxf::writeDrawingFile(db, sim::fromUtf8(file.string())), "");
    std::string firstText = readFile(file);
    append(db, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(5, 5, 0)));
    // Saving again keeps the old file as the backup; no temporary file stays.
    ASSERT_EQ(sim::dxf::writeDrawingFile(db, sim::fromUtf8(file.string())), "");
    EXPECT_EQ(readFile(dir / "vykres.bak"), firstText);
    EXPECT_NE(readFile(file), firstText);
    for (const auto& entry : fs::directory_iterator(dir))
        EXPECT_NE(entry.path().extension(), ".tmp~");

    // A .dwg name stands for the .dxf of the same name, with either separator.
    AcDbDatabase side(false, true);
    std::wstring dwg = sim::fromUtf8(dir.string()) + L"\\vykres.dwg";
    ASSERT_EQ(side.readDwgFile(dwg.c_str()), Acad::eOk);
    const ACHAR* name = nullptr;
    side.getFilename(name);
    EXPECT_EQ(std::wstring(name), sim::db::normalizePath(dwg));

    // A damaged file: the message names the line, the file stays as it was.
    std::string text = readFile(file);
    text.insert(text.find("  0\nENDSEC\n", text.find("  2\nENTITIES\n")), " 62\nred\n");
    std::ofstream(dir / "damaged.dxf", std::ios::binary) << text;
    AcDbDatabase target(false, true);
    std::string error = sim::dxf::readDrawingFile(target, sim::fromUtf8((dir / "damaged.dxf").string()));
    EXPECT_EQ(error.rfind("cannot open " + (dir / "damaged.dxf").string() + ", line " +
                              std::to_string(lineOf(text, " 62\nred\n") + 1) + ": ",
                          0),
              0u)
        << error;
    EXPECT_EQ(readFile(dir / "damaged.dxf"), text);
    EXPECT_NE(target.readDwgFile((dir / "damaged.dxf").wstring().c_str()), Acad::eOk);

    // A folder that does not exist: an error, and nothing written; a file that does not exist. Each
    // message says once what failed.
    EXPECT_EQ(sim::dxf::writeDrawingFile(db, sim::fromUtf8((dir / "none" / "x.dxf").string())),
              "cannot save " + (dir / "none" / "x.dxf").string() + ": No such file or directory");
    AcDbDatabase missing(false, true);
    EXPECT_EQ(sim::dxf::readDrawingFile(missing, sim::fromUtf8((dir / "x.dxf").string())),
              "cannot open " + (dir / "x.dxf").string() + ": no such file");
    fs::remove_all(dir);
}

TEST_F(FilesOnDisk, AnExternalReferenceIsFoundReadChangedAndSavedBack)
{
    // As the xref command does: find the reference's file from the drawing, read it into a side
    // database, grey its layers, save it over itself keeping the old file.
    fs::path dir = fs::temp_directory_path() / ("togu_dxf_xref_" + std::to_string(::getpid()));
    fs::create_directories(dir / "podklady");
    {
        AcDbDatabase arch;
        AcCmColor red;
        red.setColorIndex(1);
        AcDbLayerTableRecordPointer(L"0", &arch, AcDb::kForWrite)->setColor(red);
        ASSERT_EQ(sim::dxf::writeDrawingFile(arch, sim::fromUtf8((dir / "podklady" / "arch.dxf").string())), "");
    }
    AcDbDatabase host;
    ASSERT_EQ(host.saveAs(sim::fromUtf8((dir / "vykres.dwg").string()).c_str()), Acad::eOk);
    EXPECT_TRUE(fs::exists(dir / "vykres.dxf"));

    ACHAR found[1024];
    ASSERT_EQ(acdbHostApplicationServices()->findFile(found, 1024, L"podklady\\arch.dwg", &host), Acad::eOk);
    AcDbDatabase side(false, true);
    ASSERT_EQ(side.readDwgFile(found), Acad::eOk);
    side.closeInput(true);
    {
        AcCmColor grey;
        grey.setColorIndex(8);
        AcDbLayerTableRecordPointer(L"0", &side, AcDb::kForWrite)->setColor(grey);
        side.setLtscale(1.0);
    }
    std::string before = readFile(dir / "podklady" / "arch.dxf");
    ASSERT_EQ(side.saveAs(found), Acad::eOk);
    EXPECT_EQ(readFile(dir / "podklady" / "arch.bak"), before);
    AcDbDatabase again(false, true);
    ASSERT_EQ(again.readDwgFile(found), Acad::eOk);
    EXPECT_EQ(AcDbLayerTableRecordPointer(L"0", &again)->color().colorIndex(), 8);
    fs::remove_all(dir);
}
