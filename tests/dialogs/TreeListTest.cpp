// The grid: columns and their limits, rows with the dialog's cells, the in-place edit's steps in their
// order, and the dialog runner's table and its cell, edit and dblclick lines.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "CTgAcDialog.h"
#include "CTreeListCtrl.h"
#include "sim/core/Session.h"
#include "sim/win32/WindowTable.h"

namespace {

const DLGITEMRES kPrvky[] = {
    {CTreeListCtrl::kIdMista, WC_STATICW, L"", SS_LEFT},
    {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON},
    {IDCANCEL, WC_BUTTONW, L"Zrušit", BS_PUSHBUTTON},
};
const DLGRESOURCE kZdroj = {7002, L"Zkouška tabulky", 200, 100, kPrvky, 3};

struct Trubka {
    std::wstring dn;
    double prumer;
};

// A dialog with a grid of two columns: the DN in the grid's own cells, the diameter a callback cell of
// a decimal column, kept in the dialog's objects.
class DlgTabulky : public CTgAcDialog {
public:
    DlgTabulky() : CTgAcDialog(7002, nullptr, L"")
    {
        AfxRegisterDlgResource(&kZdroj);
        trubky = {{L"DN 20", 25}, {L"DN 15", 20}, {L"DN 25", 32}};
    }
    std::vector<Trubka> trubky;
    std::vector<std::wstring> zaznam; ///< what the dialog heard, in order
    bool odmitnoutHodnotu = false;
    LRESULT vysledekKonce = 0;
    CTreeListCtrl grid;

    static int CALLBACK Porovnej(LPARAM a, LPARAM b, LPARAM)
    {
        return reinterpret_cast<Trubka*>(a)->prumer < reinterpret_cast<Trubka*>(b)->prumer ? -1 : 1;
    }

    void Zaloz()
    {
        grid.Create(CTreeListCtrl::kStyl, this);
        grid.SendMessage(TVM_SETEXTENDEDSTYLE, 0, 0x400F0000);
        wchar_t dn[] = L"DN", od[] = L"OD";
        TVCOLUMNW s1{0x90000007, 0, 80, dn, 256};
        TVCOLUMNW s2{0x9000000D, 0, 1, od, 256};
        grid.SendMessage(TVM_INSERTCOLUMN, 0, reinterpret_cast<LPARAM>(&s1));
        grid.SendMessage(TVM_INSERTCOLUMN, 1, reinterpret_cast<LPARAM>(&s2));
        grid.SendMessage(TVM_SETCOLUMNAUTOEDIT, TVAE_PARAM(1, TVAE_EDIT, 5), 0);
        grid.SendMessage(TVM_SETCOLUMNVALUECHECK, 1, -252);
        grid.SendMessage(TVM_SETCOLUMNAUTOEDIT, TVAE_PARAM(0, TVAE_CBLIST, 0x8D, L';'),
                         reinterpret_cast<LPARAM>(L"DN 15;DN 20;DN 25;DN 32"));
        for (Trubka& t : trubky) {
            TVINSERTSTRUCTW v{};
            v.hParent = TVI_ROOT;
            v.item.mask = TVIF_TEXT | TVIF_PARAM;
            v.item.pszText = const_cast<LPWSTR>(t.dn.c_str());
            v.item.lParam = reinterpret_cast<LPARAM>(&t);
            auto h = reinterpret_cast<HTREEITEM>(grid.SendMessage(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&v)));
            TVITEMW b{};
            b.mask = 0x8001;
            b.hItem = h;
            b.pszText = LPSTR_TEXTCALLBACKW;
            b.cchTextMax = 256;
            b.cChildren = 1;
            grid.SendMessage(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&b));
        }
        TVSORTCB r{TVI_ROOT, Porovnej, 0};
        grid.SendMessage(TVM_SORTCHILDRENCB, 0, reinterpret_cast<LPARAM>(&r));
    }
    HTREEITEM Radek(int n)
    {
        auto h = reinterpret_cast<HTREEITEM>(grid.SendMessage(TVM_GETNEXTITEM, TVGN_ROOT, 0));
        while (h && n--)
            h = reinterpret_cast<HTREEITEM>(grid.SendMessage(TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(h)));
        return h;
    }

protected:
    BOOL OnInitDialog() override
    {
        CTgAcDialog::OnInitDialog();
        Zaloz();
        return TRUE;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == TVN_CHECKCELLVALUE) {
            const auto* info = reinterpret_cast<const NMTVDISPINFOW*>(lParam);
            zaznam.push_back(L"kontrola " + std::wstring(info->item.pszText));
            return odmitnoutHodnotu ? 1 : 0;
        }
        return CTgAcDialog::WindowProc(message, wParam, lParam);
    }
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        auto* hlavicka = reinterpret_cast<NMHDR*>(lParam);
        if (hlavicka->idFrom != CTreeListCtrl::kId)
            return CTgAcDialog::OnNotify(wParam, lParam, pResult);
        auto* info = reinterpret_cast<NMTVDISPINFOW*>(lParam);
        auto* t = reinterpret_cast<Trubka*>(info->item.lParam);
        switch (hlavicka->code) {
        case TVN_GETDISPINFOW:
            std::swprintf(info->item.pszText, static_cast<size_t>(info->item.cchTextMax), L"%.1f", t->prumer);
            break;
        case TVN_ENDLABELEDITW:
            zaznam.push_back(L"konec " + std::to_wstring(info->item.cChildren));
            *pResult = vysledekKonce;
            break;
        case TVN_SETDISPINFOW:
            zaznam.push_back(L"převzít " + std::wstring(info->item.pszText));
            t->prumer = std::wcstod(info->item.pszText, nullptr);
            break;
        case TVN_SELCHANGEDW: zaznam.push_back(L"výběr"); break;
        case NM_DBLCLK: zaznam.push_back(L"dvojklik"); break;
        default: break;
        }
        return TRUE;
    }
};

bool Obsahuje(const std::wstring& text, const std::wstring& cast) { return text.find(cast) != std::wstring::npos; }

std::wstring Bunka(CTreeListCtrl& grid, HTREEITEM h, int sloupec)
{
    wchar_t buf[64] = L"";
    TVITEMW p{};
    p.mask = TVIF_TEXT | TVIF_SUBITEM;
    p.hItem = h;
    p.pszText = buf;
    p.cchTextMax = 64;
    p.cChildren = sloupec;
    grid.SendMessage(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&p));
    return buf;
}

} // namespace

TEST(TreeList, SloupceMimoRozsahNicNemeniASkrytySiPamatujeSirku)
{
    sim::win32::resetWindows();
    DlgTabulky dlg;
    dlg.Zaloz();
    CTreeListCtrl& g = dlg.grid;
    ASSERT_EQ(g.Sloupce().size(), 2u);
    EXPECT_EQ(g.Sloupce()[0].sirka, 80);
    EXPECT_TRUE(g.Sloupce()[1].vaha);
    wchar_t x[] = L"X";
    TVCOLUMNW zmena{TVCF_TEXT, 0, 0, x, 256};
    EXPECT_EQ(g.SendMessage(TVM_SETCOLUMN, 5, reinterpret_cast<LPARAM>(&zmena)), 0);
    EXPECT_EQ(g.SendMessage(TVM_SETCOLUMNAUTOEDIT, TVAE_PARAM(5, TVAE_EDIT, 5), 0), 0);
    EXPECT_EQ(g.SendMessage(TVM_SETCOLUMNVALUECHECK, 5, -254), 0);
    EXPECT_EQ(g.SendMessage(TVM_SETCOLUMNAUTOEDIT, TVAE_PARAM(0, 6, 0), 0), 0) << "column 0 takes no mode 6";
    EXPECT_EQ(g.Sloupce()[0].nadpis, L"DN");
    // Hidden and shown again: the width it had; a column without a width comes back with 100.
    TVCOLUMNW skryj{TVCF_FIXED, TVCFMT_HIDDEN, 0, nullptr, 0};
    TVCOLUMNW ukaz{TVCF_FIXED | TVCF_WIDTH, 0, static_cast<int>(TVCW_RESTORE), nullptr, 0};
    g.SendMessage(TVM_SETCOLUMN, 0, reinterpret_cast<LPARAM>(&skryj));
    EXPECT_TRUE(g.Sloupce()[0].skryty);
    EXPECT_EQ(g.Sloupce()[0].sirka, 0);
    g.SendMessage(TVM_SETCOLUMN, 0, reinterpret_cast<LPARAM>(&ukaz));
    EXPECT_FALSE(g.Sloupce()[0].skryty);
    EXPECT_EQ(g.Sloupce()[0].sirka, 80);
    TVCOLUMNW nula{TVCF_WIDTH, 0, 0, nullptr, 0};
    g.SendMessage(TVM_SETCOLUMN, 0, reinterpret_cast<LPARAM>(&nula));
    g.SendMessage(TVM_SETCOLUMN, 0, reinterpret_cast<LPARAM>(&skryj));
    g.SendMessage(TVM_SETCOLUMN, 0, reinterpret_cast<LPARAM>(&ukaz));
    EXPECT_EQ(g.Sloupce()[0].sirka, 100);
    // Weights are cut to 1..255.
    TVCOLUMNW tezka{0x9000000D, 0, 900, x, 256};
    g.SendMessage(TVM_INSERTCOLUMN, 9, reinterpret_cast<LPARAM>(&tezka));
    EXPECT_EQ(g.Sloupce()[2].sirka, 255);
    // The drop-down's list and the value check: 0xFFFF is no maximum.
    EXPECT_EQ(g.Sloupce()[0].hodnoty.size(), 4u);
    EXPECT_EQ(g.Sloupce()[1].druhy, 4);
    EXPECT_EQ(g.Sloupce()[1].maxDelka, -1);
}

TEST(TreeList, RadkyNesouTextyDialoguARadiSePodleNej)
{
    sim::win32::resetWindows();
    DlgTabulky dlg;
    dlg.Zaloz();
    CTreeListCtrl& g = dlg.grid;
    EXPECT_EQ(g.SendMessage(TVM_GETCOUNT), 3);
    // Sorted by the diameter through the dialog's compare function; the callback cell asks the dialog.
    EXPECT_EQ(Bunka(g, dlg.Radek(0), 0), L"DN 15");
    EXPECT_EQ(Bunka(g, dlg.Radek(0), 1), L"20.0");
    EXPECT_EQ(Bunka(g, dlg.Radek(2), -1), L"DN 25") << "-1 names the first column too";
    EXPECT_EQ(g.SendMessage(TVM_GETITEMPARAM, 0, reinterpret_cast<LPARAM>(dlg.Radek(1))),
              reinterpret_cast<LPARAM>(&dlg.trubky[0]));
    EXPECT_EQ(g.SendMessage(TVM_GETITEMPARAM, 0, 12345), 0) << "an unknown item";
    EXPECT_EQ(g.SendMessage(TVM_GETNEXTITEM, TVGN_ROWBEFORE, reinterpret_cast<LPARAM>(dlg.Radek(1))),
              reinterpret_cast<LRESULT>(dlg.Radek(0)));
    // Selecting a cell tells the dialog once; the column is kept with cell selection on.
    g.SendMessage(TVM_SELECTCHILD, 1, reinterpret_cast<LPARAM>(dlg.Radek(2)));
    g.SendMessage(TVM_SELECTCHILD, 1, reinterpret_cast<LPARAM>(dlg.Radek(2)));
    EXPECT_EQ(dlg.zaznam, std::vector<std::wstring>{L"výběr"});
    EXPECT_EQ(g.SendMessage(TVM_GETNEXTITEM, TVGN_CARETCOLUMN, 0), 1);
    g.SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(dlg.Radek(2)));
    EXPECT_EQ(g.SendMessage(TVM_GETNEXTITEM, TVGN_CARET, 0), 0) << "the selected row went";
    g.SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    EXPECT_EQ(g.SendMessage(TVM_GETCOUNT), 0);
}

TEST(TreeList, UpravaBunkyProchaziKrokyVDanemPoradi)
{
    sim::win32::resetWindows();
    DlgTabulky dlg;
    dlg.Zaloz();
    CTreeListCtrl& g = dlg.grid;
    const auto h = reinterpret_cast<LPARAM>(dlg.Radek(0));
    auto* editor = CWnd::FromHandle(reinterpret_cast<HWND>(g.SendMessage(TVM_EDITLABELW, 1, h)));
    ASSERT_NE(editor, nullptr);
    CString text;
    editor->GetWindowText(text);
    EXPECT_EQ(text, L"20.0") << "the editor starts with the dialog's text";
    dlg.zaznam.clear();

    // A text that is no decimal number: the edit stays open and the dialog hears nothing.
    editor->SetWindowText(L"2x");
    EXPECT_EQ(g.SendMessage(TVM_ENDEDITLABELNOW, FALSE, 0), FALSE);
    EXPECT_TRUE(dlg.zaznam.empty());
    // The dialog refuses a value that the field took.
    dlg.odmitnoutHodnotu = true;
    editor->SetWindowText(L"21.5");
    EXPECT_EQ(g.SendMessage(TVM_ENDEDITLABELNOW, FALSE, 0), FALSE);
    EXPECT_EQ(dlg.zaznam, std::vector<std::wstring>{L"kontrola 21.5"});
    dlg.odmitnoutHodnotu = false;
    dlg.zaznam.clear();
    // Taken: the dialog's check, the end of the edit (column 1), then the callback cell's text.
    EXPECT_EQ(g.SendMessage(TVM_ENDEDITLABELNOW, FALSE, 0), TRUE);
    EXPECT_EQ(dlg.zaznam, (std::vector<std::wstring>{L"kontrola 21.5", L"konec 1", L"převzít 21.5"}));
    EXPECT_DOUBLE_EQ(dlg.trubky[1].prumer, 21.5);

    // The end of the edit answered nonzero drops the value.
    dlg.vysledekKonce = 1;
    editor = CWnd::FromHandle(reinterpret_cast<HWND>(g.SendMessage(TVM_EDITLABELW, 1, h)));
    editor->SetWindowText(L"30");
    EXPECT_EQ(g.SendMessage(TVM_ENDEDITLABELNOW, FALSE, 0), TRUE);
    EXPECT_DOUBLE_EQ(dlg.trubky[1].prumer, 21.5);
    dlg.vysledekKonce = 0;

    // The drop-down list of the first column takes its entries only; its own cell stores the text.
    CWnd* seznam = CWnd::FromHandle(reinterpret_cast<HWND>(g.SendMessage(TVM_EDITLABELW, 0, h)));
    ASSERT_NE(seznam, nullptr);
    seznam->SetWindowText(L"DN 99");
    EXPECT_EQ(g.SendMessage(TVM_ENDEDITLABELNOW, FALSE, 0), FALSE);
    seznam->SetWindowText(L"DN 32");
    EXPECT_EQ(g.SendMessage(TVM_ENDEDITLABELNOW, FALSE, 0), TRUE);
    EXPECT_EQ(Bunka(g, dlg.Radek(0), 0), L"DN 32");
    // A column without a mode can't be edited.
    g.SendMessage(TVM_SETCOLUMNAUTOEDIT, TVAE_PARAM(1, TVAE_NONE, 0), 0);
    EXPECT_EQ(g.SendMessage(TVM_EDITLABELW, 1, h), 0);
}

TEST(TreeList, SkriptVybiraUpravujeAVidiTabulku)
{
    sim::win32::resetWindows();
    DlgTabulky dlg;
    sim::Session s(std::make_unique<sim::ScriptInput>("cell 4100 1 1\nedit 4100 1 1 1,2x\nedit 4100 2 1 40,5\n"
                                                      "edit 4100 0 0 DN 99\ndblclick 4100 2\nok\n"));
    EXPECT_EQ(dlg.DoModal(), IDOK);
    const std::wstring t = s.transcript();
    EXPECT_TRUE(Obsahuje(t, L"4100 tabulka: DN | OD\n    0  DN 15 | 20.0\n    1  DN 20 | 25.0\n    2  DN 25 | 32.0\n"))
        << sim::toUtf8(t);
    EXPECT_TRUE(Obsahuje(t, L"    1 >DN 20 | [25.0]\n")) << "the selected cell";
    // The key check refuses the x; the comma becomes a point.
    EXPECT_TRUE(Obsahuje(t, L"Znak 'x' odmítnut."));
    EXPECT_DOUBLE_EQ(dlg.trubky[0].prumer, 1.2);
    EXPECT_DOUBLE_EQ(dlg.trubky[2].prumer, 40.5);
    EXPECT_TRUE(Obsahuje(t, L"Hodnota buňky nepřijata."));
    EXPECT_EQ(dlg.zaznam.back(), L"dvojklik");
}
