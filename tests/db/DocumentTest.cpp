// Documents, the working database, file calls through the platform's file format, and the search
// for support files.
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "DbFixture.h"
#include "sim/core/Session.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/Documents.h"

namespace {

/// A file format that records its calls and makes a drawing of one layer.
class FakeFormat : public sim::db::FileFormat {
public:
    Acad::ErrorStatus read(AcDbDatabase& db, const std::wstring& path) override
    {
        lastPath = path;
        if (path.find(L"missing") != std::wstring::npos)
            return Acad::eFileNotFound;
        AcDbObjectId table, nod;
        sim::db::addObject(&db, new AcDbLayerTable, AcDbHandle(2), AcDbObjectId::kNull, table);
        sim::db::addObject(&db, new AcDbDictionary, AcDbHandle(0xC), AcDbObjectId::kNull, nod);
        auto* layer = new AcDbLayerTableRecord;
        layer->setName(L"0");
        AcDbObjectId id;
        sim::db::addObject(&db, layer, AcDbHandle(0x10), table, id);
        sim::db::link(sim::db::objectAt(&db, AcDbHandle(2)), id);
        return Acad::eOk;
    }
    Acad::ErrorStatus write(AcDbDatabase&, const std::wstring& path) override
    {
        lastPath = path;
        return Acad::eOk;
    }
    std::wstring lastPath;
};

struct FormatGuard {
    explicit FormatGuard(sim::db::FileFormat* f) { sim::db::setFileFormat(f); }
    ~FormatGuard() { sim::db::setFileFormat(nullptr); }
};

} // namespace

TEST(Documents, OpenMakesCurrentAndCloseFallsBack)
{
    AcApDocument* first = sim::db::openDocument();
    EXPECT_EQ(acDocManager->curDocument(), first);
    EXPECT_EQ(curDoc(), first);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), first->database());
    EXPECT_EQ(actrTransactionManager, first->database()->transactionManager());
    EXPECT_STREQ(first->fileName(), L"Drawing1.dwg");
    AcApDocument* second = sim::db::openDocument(nullptr, L"C:\\Projekty\\Stavba\\vykres.dxf");
    EXPECT_EQ(acDocManager->documentCount(), 2);
    EXPECT_STREQ(second->fileName(), L"C:/Projekty/Stavba/vykres.dxf");
    EXPECT_STREQ(second->docTitle(), L"vykres.dxf");
    EXPECT_EQ(acDocManager->document(second->database()), second);
    ASSERT_EQ(acDocManager->lockDocument(second), Acad::eOk);
    EXPECT_EQ(second->lockMode(), AcAp::kWrite);
    acDocManager->unlockDocument(second);
    EXPECT_EQ(second->lockMode(), AcAp::kNotLocked);
    sim::db::closeDocument(second);
    EXPECT_EQ(curDoc(), first);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), first->database());
    sim::db::closeAllDocuments();
    EXPECT_EQ(curDoc(), nullptr);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST(Documents, ADeletedWorkingDatabaseIsForgotten)
{
    AcApDocument* doc = sim::db::openDocument();
    {
        AcDbDatabase side;
        acdbHostApplicationServices()->setWorkingDatabase(&side);
        EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), &side);
    }
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), doc->database());
    sim::db::closeAllDocuments();
}

TEST(Files, WithoutAFileFormatReadAndSaveFailClearly)
{
    AcDbDatabase empty(false, true);
    EXPECT_EQ(empty.readDwgFile(L"C:\\x.dwg"), Acad::eNotImplementedYet);
    EXPECT_EQ(empty.saveAs(L"x.dxf"), Acad::eNotImplementedYet);
    const ACHAR* name = nullptr;
    EXPECT_EQ(empty.getFilename(name), Acad::eNotApplicable);
}

TEST(Files, ReadGoesThroughTheFileFormat)
{
    FakeFormat format;
    FormatGuard guard(&format);
    AcDbDatabase side(false, true);
    EXPECT_EQ(side.readDwgFile(L"BLOKY\\missing.dwg"), Acad::eFileNotFound);
    ASSERT_EQ(side.readDwgFile(L"D:\\Togu\\BLOKY\\tg_kacena.dwg"), Acad::eOk);
    EXPECT_EQ(format.lastPath, L"D:/Togu/BLOKY/tg_kacena.dwg");
    const ACHAR* name = nullptr;
    ASSERT_EQ(side.getFilename(name), Acad::eOk);
    EXPECT_STREQ(name, L"D:/Togu/BLOKY/tg_kacena.dwg");
    EXPECT_EQ(side.layerTableId().handle().value(), 2u);
    EXPECT_FALSE(side.layerZero().isNull());
    EXPECT_GT(side.handseed().value(), 0x10u);
    // A database with objects of its own is not read into.
    EXPECT_EQ(side.readDwgFile(L"D:\\Togu\\BLOKY\\tg_kacena.dwg"), Acad::eNotApplicable);
    AcDbDatabase full;
    EXPECT_EQ(full.readDwgFile(L"x.dwg"), Acad::eNotApplicable);
    ASSERT_EQ(full.saveAs(L"C:\\out\\a.dxf"), Acad::eOk);
    full.getFilename(name);
    EXPECT_STREQ(name, L"C:/out/a.dxf");
}

TEST(Files, FindFileLooksAsGivenBesideTheDrawingThenInSupportFolders)
{
    namespace fs = std::filesystem;
    fs::path root = fs::temp_directory_path() / ("togu_db_find_" + std::to_string(::getpid()));
    fs::create_directories(root / "support");
    fs::create_directories(root / "drawing");
    std::ofstream(root / "support" / "TG_IS.shx") << "x";
    std::ofstream(root / "drawing" / "xref.dwg") << "x";

    AcDbDatabase db;
    sim::db::setFileName(&db, sim::fromUtf8((root / "drawing" / "main.dxf").string()));
    sim::db::setSupportPaths({sim::fromUtf8((root / "support").string())});
    ACHAR out[512];
    auto* services = acdbHostApplicationServices();
    ASSERT_EQ(services->findFile(out, 512, L"TG_IS.shx", &db), Acad::eOk);
    EXPECT_EQ(fs::path(sim::toUtf8(out)), root / "support" / "TG_IS.shx");
    ASSERT_EQ(services->findFile(out, 512, L"C:\\elsewhere\\xref.dwg", &db), Acad::eOk);
    EXPECT_EQ(fs::path(sim::toUtf8(out)), root / "drawing" / "xref.dwg");
    std::wstring given = sim::fromUtf8((root / "support" / "TG_IS.shx").string());
    ASSERT_EQ(services->findFile(out, 512, given.c_str(), &db), Acad::eOk);
    EXPECT_EQ(services->findFile(out, 512, L"nikde.lin", &db), Acad::eFileNotFound);
    EXPECT_EQ(services->findFile(out, 3, L"TG_IS.shx", &db), Acad::eBufferTooSmall);
    sim::db::setSupportPaths({});
    fs::remove_all(root);
}
