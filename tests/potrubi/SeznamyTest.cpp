// The drag-and-drop lists in a small dialog run by the platform: reordering, dragging out, the Delete
// key and the transfer of a multiple selection into the partner list.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "CDragAndDropListBox.h"
#include "CDragAndDropListBoxMulti.h"
#include "CTgAcDialog.h"
#include "sim/core/Session.h"
#include "sim/win32/WindowTable.h"

namespace {

const DLGITEMRES kPrvky[] = {
    {201, WC_LISTBOXW, L"", LBS_NOTIFY | LBS_EXTENDEDSEL},
    {202, WC_LISTBOXW, L"", LBS_NOTIFY},
    {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON},
    {IDCANCEL, WC_BUTTONW, L"Zrušit", BS_PUSHBUTTON},
};
const DLGRESOURCE kZdroj = {7101, L"Seznamy", 200, 100, kPrvky, 4};

class DlgSeznamu : public CTgAcDialog {
public:
    explicit DlgSeznamu(bool mozeMazat) : CTgAcDialog(7101, nullptr, nullptr), m_mozeMazat(mozeMazat)
    {
        AfxRegisterDlgResource(&kZdroj);
    }
    CDragAndDropListBoxMulti zdroj;
    CDragAndDropListBox cil;
    std::vector<std::wstring> konecCile;
    int oznameni = 0;

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        DDX_Control(pDX, 201, zdroj);
        DDX_Control(pDX, 202, cil);
    }
    BOOL OnInitDialog() override
    {
        CTgAcDialog::OnInitDialog();
        zdroj.m_idPartnera = 202;
        cil.m_mozeMazat = m_mozeMazat;
        for (const wchar_t* t : {L"A", L"B", L"C", L"D", L"E"})
            zdroj.SetItemData(zdroj.AddString(t), static_cast<DWORD_PTR>(t[0]));
        for (const wchar_t* t : {L"1", L"2", L"3", L"4"})
            cil.SetItemData(cil.AddString(t), static_cast<DWORD_PTR>(t[0]));
        return TRUE;
    }
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        if (LOWORD(wParam) == 202 && HIWORD(wParam) == LBN_SELCHANGE)
            ++oznameni;
        return CTgAcDialog::OnCommand(wParam, lParam);
    }
    void OnOK() override
    {
        for (int i = 0; i < cil.GetCount(); ++i) {
            CString t;
            cil.GetText(i, t);
            // The data travels with the text.
            EXPECT_EQ(cil.GetItemData(i), static_cast<DWORD_PTR>(t.GetString()[0]));
            konecCile.emplace_back(t.GetString());
        }
        CTgAcDialog::OnOK();
    }
    bool m_mozeMazat;
};

std::vector<std::wstring> Spust(DlgSeznamu& dlg, const char* skript)
{
    sim::win32::resetWindows();
    sim::Session s(std::make_unique<sim::ScriptInput>(skript));
    EXPECT_EQ(dlg.DoModal(), IDOK) << sim::toUtf8(s.transcript());
    return dlg.konecCile;
}

using Seznam = std::vector<std::wstring>;

} // namespace

TEST(CDragAndDropListBox, ReorderDownUpAndToTheEnd)
{
    DlgSeznamu dlg(true);
    EXPECT_EQ(Spust(dlg, "drag 202 0 202 2\nok\n"), (Seznam{L"2", L"1", L"3", L"4"}));
    DlgSeznamu dlg2(true);
    EXPECT_EQ(Spust(dlg2, "drag 202 3 202 0\ndrag 202 1 202 end\nok\n"), (Seznam{L"4", L"2", L"3", L"1"}));
}

TEST(CDragAndDropListBox, DropOnItsOwnPlaceChangesNothingButTellsTheParent)
{
    DlgSeznamu dlg(true);
    EXPECT_EQ(Spust(dlg, "drag 202 1 202 1\nok\n"), (Seznam{L"1", L"2", L"3", L"4"}));
    EXPECT_GE(dlg.oznameni, 1);
}

TEST(CDragAndDropListBox, DragOutDeletesOnlyWhenAllowed)
{
    DlgSeznamu dlg(true);
    EXPECT_EQ(Spust(dlg, "drag 202 1 202 out\nok\n"), (Seznam{L"1", L"3", L"4"}));
    DlgSeznamu dlg2(false);
    EXPECT_EQ(Spust(dlg2, "drag 202 1 202 out\nok\n"), (Seznam{L"1", L"2", L"3", L"4"}));
}

TEST(CDragAndDropListBox, DeleteKeySelectsTheSamePlaceOrTheNewLast)
{
    DlgSeznamu dlg(true);
    EXPECT_EQ(Spust(dlg, "select 202 3\nkey 202 delete\nkey 202 delete\nok\n"), (Seznam{L"1", L"2"}));
    DlgSeznamu dlg2(true);
    EXPECT_EQ(Spust(dlg2, "select 202 1\nkey 202 delete\nkey 202 delete\nok\n"), (Seznam{L"1", L"4"}));
}

TEST(CDragAndDropListBoxMulti, SelectionArrivesInItsOrderAndStaysInTheSource)
{
    DlgSeznamu dlg(true);
    EXPECT_EQ(Spust(dlg, "select 201 0 2 4\ndrag 201 2 202 2\nok\n"),
              (Seznam{L"1", L"2", L"A", L"C", L"E", L"3", L"4"}));
    // One unselected item dragged alone; a drop beside the partner changes nothing.
    DlgSeznamu dlg2(true);
    EXPECT_EQ(Spust(dlg2, "drag 201 1 202 end\ndrag 201 3 202 out\nok\n"), (Seznam{L"1", L"2", L"3", L"4", L"B"}));
}
