// The console's new drawing: the template is applied once, by the database built with its default
// drawing, and the drawing it leaves is complete.
#include <gtest/gtest.h>

#include "acdocman.h"
#include "cli/DrawingFiles.h"
#include "dbdict.h"
#include "dbobjptr.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/dxf/DxfFile.h"

namespace {

/// The DXF format, counting the new drawings it completes.
class CountingFormat : public sim::db::FileFormat {
public:
    explicit CountingFormat(sim::db::FileFormat& inner) : m_inner(inner) {}
    Acad::ErrorStatus read(AcDbDatabase& db, const std::wstring& path) override { return m_inner.read(db, path); }
    Acad::ErrorStatus write(AcDbDatabase& db, const std::wstring& path) override { return m_inner.write(db, path); }
    void completeDefaultDrawing(AcDbDatabase& db) override
    {
        ++completed;
        m_inner.completeDefaultDrawing(db);
    }
    int completed = 0;

private:
    sim::db::FileFormat& m_inner;
};

} // namespace

TEST(NewDrawing, GetsItsTemplateOnceAndComplete)
{
    sim::dxf::installFileFormat();
    CountingFormat counting(*sim::db::fileFormat());
    sim::db::setFileFormat(&counting);

    ASSERT_EQ(togu::cli::newDrawing(), "");
    EXPECT_EQ(counting.completed, 1);

    AcDbDatabase* db = acDocManagerPtr()->curDocument()->database();
    {
        // Closed before the drawing goes.
        AcDbDictionaryPointer layouts(db->layoutDictionaryId());
        ASSERT_EQ(layouts.openStatus(), Acad::eOk);
        EXPECT_TRUE(layouts->has(L"Layout1"));
    }
    EXPECT_FALSE(db->cmleaderstyle().isNull()) << "the template's multileader style is current";

    togu::cli::closeDrawings();
    sim::db::setFileFormat(nullptr);
}
