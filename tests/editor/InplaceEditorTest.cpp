// The in-place text editor on the command line: the next line is the new text; Enter keeps the old
// one, Escape cancels; a text that isn't open for write is refused.
#include "AcEdInplaceTextEditor.h"
#include "dbmtext.h"
#include "editor/EditorFixture.h"

TEST_F(EditorTest, InplaceEditorTakesTheNextLineKeepsOnEnterAndEscape)
{
    script("Nový text\n\n^C\n");
    AcDbText text(AcGePoint3d(), L"starý");
    AcDbObjectIdArray added;
    EXPECT_EQ(AcEdInplaceTextEditor::invoke(&text, nullptr, added), Acad::eOk);
    EXPECT_STREQ(text.textStringConst(), L"Nový text");
    EXPECT_NE(transcript().find(L"<starý>"), std::wstring::npos);
    EXPECT_EQ(AcEdInplaceTextEditor::invoke(&text, nullptr, added), Acad::eOk);
    EXPECT_STREQ(text.textStringConst(), L"Nový text");
    EXPECT_EQ(AcEdInplaceTextEditor::invoke(&text, nullptr, added), Acad::eOk);
    EXPECT_STREQ(text.textStringConst(), L"Nový text");
    EXPECT_EQ(added.length(), 0);
}

TEST_F(EditorTest, InplaceEditorEditsMTextContentsWithCodesAndNeedsWrite)
{
    script("{\\fArial;A}\\PB\n");
    AcDbMText mtext;
    mtext.setContents(L"X");
    EXPECT_EQ(AcEdInplaceTextEditor::invoke(&mtext, nullptr), Acad::eOk);
    AcString s;
    mtext.contents(s);
    EXPECT_STREQ(s.kwszPtr(), L"{\\fArial;A}\\PB");

    AcDbObjectId id = add(new AcDbMText());
    AcDbObjectPointer<AcDbMText> cteni(id, AcDb::kForRead);
    EXPECT_EQ(AcEdInplaceTextEditor::invoke(cteni.object(), nullptr), Acad::eNotOpenForWrite);
}
