// The in-place text editor on the command line: it shows the text it edits and takes the new text
// from the next input line, as typed; Enter keeps the text and Escape cancels the edit.
#include "AcEdInplaceTextEditor.h"

#include "dbents.h"
#include "dbmtext.h"
#include "sim/editor/Prompting.h"

using namespace sim::editor;

namespace {

/// The edited text, or nothing when the old text stays.
std::optional<std::wstring> editedText(const std::wstring& old)
{
    auto line = askLine(L"Edit text <" + old + L">: ");
    if (!line || line->empty())
        return std::nullopt;
    return line;
}

} // namespace

Acad::ErrorStatus AcEdInplaceTextEditor::invoke(AcDbMText* pMText, const AcEdInplaceTextEditorSettings*)
{
    if (!pMText)
        return Acad::eNullObjectPointer;
    if (!pMText->isWriteEnabled())
        return Acad::eNotOpenForWrite;
    AcString old;
    pMText->contents(old);
    if (auto text = editedText(old.kwszPtr()))
        pMText->setContents(text->c_str());
    return Acad::eOk;
}

Acad::ErrorStatus AcEdInplaceTextEditor::invoke(AcDbText* pText, const AcEdInplaceTextEditorSettings*,
                                                AcDbObjectIdArray& appendedEntities)
{
    appendedEntities.removeAll();
    if (!pText)
        return Acad::eNullObjectPointer;
    if (!pText->isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (auto text = editedText(pText->textStringConst()))
        return pText->setTextString(text->c_str());
    return Acad::eOk;
}
