// Line types loaded from the shipped .lin files: plain patterns, texts that need their style, shapes
// that need their shape file's style, and the statuses the system's loader relies on (0 and 95).
#include "SourceDir.h"
#include "DbFixture.h"

namespace {
const std::wstring kLin = std::filesystem::path(toguSourceDir() + "/data/LIN/").wstring();
}

class LinetypeFiles : public DbFixture {
protected:
    Acad::ErrorStatus load(const ACHAR* name, const std::wstring& file)
    {
        return acdbLoadLineTypeFile(name, (kLin + file).c_str(), &db);
    }

    AcDbObjectId addStyle(const ACHAR* name, const ACHAR* file, bool shapes)
    {
        AcDbTextStyleTablePointer table(&db, AcDb::kForWrite);
        auto* rec = new AcDbTextStyleTableRecord;
        if (name)
            rec->setName(name);
        rec->setFileName(file);
        rec->setIsShapeFile(shapes);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, rec), Acad::eOk);
        rec->close();
        return id;
    }
};

TEST_F(LinetypeFiles, PlainPatternLoadsOnceThenAnswers95)
{
    ASSERT_EQ(load(L"sv", L"TG_zakladni_cary.lin"), Acad::eOk);
    AcDbLinetypeTableRecordPointer sv(L"SV", &db);
    ASSERT_EQ(sv.openStatus(), Acad::eOk);
    AcString name;
    sv->getName(name);
    EXPECT_EQ(name, L"SV");
    const ACHAR* comments = nullptr;
    sv->comments(comments);
    EXPECT_STREQ(comments, L"Studená voda a osy ____ . ____ . ____");
    ASSERT_EQ(sv->numDashes(), 4);
    EXPECT_DOUBLE_EQ(sv->dashLengthAt(0), 12.0);
    EXPECT_DOUBLE_EQ(sv->dashLengthAt(1), -2.0);
    EXPECT_DOUBLE_EQ(sv->patternLength(), 16.0);
    sv.close();
    EXPECT_EQ(load(L"SV", L"TG_zakladni_cary.lin"), Acad::eDuplicateRecordName);
    EXPECT_EQ(load(L"NEEXISTUJE", L"TG_zakladni_cary.lin"), Acad::eKeyNotFound);
    EXPECT_EQ(load(L"SV", L"nikde.lin"), Acad::eFileNotFound);
}

TEST_F(LinetypeFiles, TextNeedsItsStyle)
{
    EXPECT_EQ(load(L"CIRKULACE", L"TG_zakladni_cary.lin"), Acad::eKeyNotFound);
    AcDbLinetypeTablePointer table(&db);
    EXPECT_FALSE(table->has(L"CIRKULACE"));
    table.close();
    AcDbObjectId style = addStyle(L"TG_TXT_MALY", L"arialn.ttf", false);
    ASSERT_EQ(load(L"CIRKULACE", L"TG_zakladni_cary.lin"), Acad::eOk);
    AcDbLinetypeTableRecordPointer lt(L"cirkulace", &db);
    ASSERT_EQ(lt->numDashes(), 3);
    const ACHAR* text = nullptr;
    lt->textAt(1, text);
    EXPECT_STREQ(text, L"C");
    EXPECT_EQ(lt->shapeStyleAt(1), style);
    EXPECT_DOUBLE_EQ(lt->shapeScaleAt(1), 2.0);
    EXPECT_DOUBLE_EQ(lt->shapeOffsetAt(1).x, -0.7);
    EXPECT_DOUBLE_EQ(lt->shapeOffsetAt(1).y, -1.0);
    EXPECT_TRUE(lt->shapeStyleAt(0).isNull());
}

TEST_F(LinetypeFiles, ShapesNeedTheirShapeFileStyle)
{
    EXPECT_EQ(load(L"_VODOVOD", L"TG_IS.lin"), Acad::eKeyNotFound);
    // A nameless style that loads the shape file, its folder as the system writes it.
    AcDbObjectId shx = addStyle(nullptr, L"C:\\Program Files\\Togu\\LIN\\TG_IS.shx", true);
    ASSERT_EQ(load(L"_VODOVOD", L"TG_IS.lin"), Acad::eOk);
    ASSERT_EQ(load(L"_KANAL*", L"TG_IS.lin"), Acad::eOk);
    AcDbLinetypeTableRecordPointer lt(L"_vodovod", &db);
    ASSERT_EQ(lt->numDashes(), 3);
    EXPECT_EQ(lt->shapeStyleAt(1), shx);
    EXPECT_EQ(lt->shapeNumberAt(1), 1);
    EXPECT_DOUBLE_EQ(lt->shapeScaleAt(1), 0.25);
    lt.close();
    AcDbLinetypeTableRecordPointer kanal(L"_KANALIZACE", &db);
    ASSERT_EQ(kanal.openStatus(), Acad::eOk);
    EXPECT_EQ(kanal->shapeNumberAt(1), 2);
}
