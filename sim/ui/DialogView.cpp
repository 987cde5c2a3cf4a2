// The transcript's view of a dialog: a line per control with its state.
#include "sim/ui/DialogView.h"

#include <algorithm>
#include <cstdio>

#include "sim/core/Session.h"
#include "sim/ui/ControlState.h"
#include "treelist.h"

namespace sim::ui {

namespace {

std::wstring rgb(COLORREF c)
{
    wchar_t buf[40];
    std::swprintf(buf, 40, L"RGB(%u,%u,%u)", GetRValue(c), GetGValue(c), GetBValue(c));
    return buf;
}

// The colours the control paints with, when they aren't black on white.
std::wstring colours(CWnd* w, UINT message)
{
    CDC dc;
    w->SendMessage(message, reinterpret_cast<WPARAM>(&dc), reinterpret_cast<LPARAM>(w->m_hWnd));
    if (dc.GetTextColor() == RGB(0, 0, 0) && dc.GetBkColor() == RGB(255, 255, 255))
        return {};
    return L" {" + rgb(dc.GetTextColor()) + L" na " + rgb(dc.GetBkColor()) + L"}";
}

// A table under its headings: one line per row, its number, ">" before the selected one.
std::wstring table(const std::vector<std::wstring>& headings, const std::vector<std::vector<std::wstring>>& rows,
                   int selectedRow)
{
    std::wstring t;
    for (size_t i = 0; i < headings.size(); ++i)
        t += (i ? L" | " : L" ") + headings[i];
    if (rows.empty())
        t += L" (prázdná)";
    for (size_t r = 0; r < rows.size(); ++r) {
        t += L"\n    " + std::to_wstring(r) + (static_cast<int>(r) == selectedRow ? L" >" : L"  ");
        for (size_t i = 0; i < rows[r].size(); ++i)
            t += (i ? L" | " : L"") + rows[r][i];
    }
    return t;
}

// The grid read through its messages, as any client of the window class reads it. Hidden columns are
// left out; the selected cell stands in brackets.
std::wstring grid(CWnd* w)
{
    const int columns = static_cast<int>(w->SendMessage(TVM_GETCOLUMNCOUNT));
    std::vector<int> shown;
    std::vector<std::wstring> headings;
    for (int c = 0; c < columns; ++c) {
        wchar_t buf[256] = L"";
        TVCOLUMNW col{TVCF_TEXT | TVCF_FMT, 0, 0, buf, 256};
        if (!w->SendMessage(TVM_GETCOLUMN, static_cast<WPARAM>(c), reinterpret_cast<LPARAM>(&col)) ||
            (col.fmt & TVCFMT_HIDDEN))
            continue;
        shown.push_back(c);
        headings.emplace_back(buf);
    }
    auto selected = reinterpret_cast<HTREEITEM>(w->SendMessage(TVM_GETNEXTITEM, TVGN_CARET, 0));
    const int selectedColumn = static_cast<int>(w->SendMessage(TVM_GETNEXTITEM, TVGN_CARETCOLUMN, 0));
    std::vector<std::vector<std::wstring>> rows;
    int selectedRow = -1;
    for (auto h = reinterpret_cast<HTREEITEM>(w->SendMessage(TVM_GETNEXTITEM, TVGN_ROOT, 0)); h;
         h = reinterpret_cast<HTREEITEM>(w->SendMessage(TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(h)))) {
        if (h == selected)
            selectedRow = static_cast<int>(rows.size());
        std::vector<std::wstring> row;
        for (int c : shown) {
            wchar_t buf[256] = L"";
            TVITEMW item{};
            item.mask = TVIF_TEXT | TVIF_SUBITEM;
            item.hItem = h;
            item.pszText = buf;
            item.cchTextMax = 256;
            item.cChildren = c;
            w->SendMessage(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
            std::wstring text = item.pszText ? item.pszText : L"";
            row.push_back(h == selected && c == selectedColumn ? L"[" + text + L"]" : text);
        }
        rows.push_back(std::move(row));
    }
    return table(headings, rows, selectedRow);
}

// One control's line; labels and group boxes often share the id -1, so the state is given, not the id.
std::wstring describe(CDialog& dlg, AFX_CTLSTATE* c, bool withTip)
{
    const int id = c->id;
    CWnd* w = c->bound ? c->bound : dlg.GetDlgItem(id);
    std::wstring line = L"  " + std::to_wstring(id) + L" ";
    const wchar_t* box3[] = {L"[ ] ", L"[x] ", L"[-] "};
    switch (c->kind) {
    case Kind::Edit:
        line += L"pole [" + c->text + L"]";
        if (c->readOnly)
            line += L" (jen pro čtení)";
        line += colours(w, WM_CTLCOLOREDIT);
        break;
    case Kind::CheckBox:
    case Kind::ThreeState: line += box3[c->check >= 0 && c->check <= 2 ? c->check : 0] + c->text; break;
    case Kind::Radio: line += (c->check == BST_CHECKED ? L"(o) " : L"( ) ") + c->text; break;
    case Kind::PushButton: line += L"<" + c->text + L">"; break;
    case Kind::GroupBox: line += L"-- " + c->text + L" --"; break;
    case Kind::Link: line += L"odkaz: " + c->text; break;
    case Kind::Grid: line += L"tabulka:" + grid(w); break;
    case Kind::ListView: {
        std::vector<std::vector<std::wstring>> rows;
        for (const Item& it : c->items) {
            std::vector<std::wstring> row{it.text};
            row.insert(row.end(), it.cells.begin(), it.cells.end());
            row.resize(std::max(row.size(), c->columns.size()));
            rows.push_back(std::move(row));
        }
        line += L"seznam:" + table(c->columns, rows, c->selectedItem);
        break;
    }
    case Kind::Spin: line += L"číselník " + std::to_wstring(c->spinPos); break;
    case Kind::Tree:
    case Kind::List: {
        line += c->kind == Kind::Tree ? L"strom:" : L"seznam:";
        if (c->items.empty())
            line += L" (prázdný)";
        for (size_t i = 0; i < c->items.size(); ++i) {
            const Item& it = c->items[i];
            line += i ? L"; " : L" ";
            if (c->kind == Kind::Tree && (c->style & TVS_CHECKBOXES))
                line += it.checked ? L"[x] " : L"[ ] ";
            const bool multiple = c->kind == Kind::List && (c->style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL));
            if (multiple ? it.selected : static_cast<int>(i) == c->selectedItem)
                line += L">";
            line += it.text;
        }
        break;
    }
    default: line += L"\"" + c->text + L"\""; break;
    }
    if (!c->enabled)
        line += L" [zakázáno]";
    if (!c->visible)
        line += L" [skryto]";
    if (withTip && !c->tooltip.empty())
        line += L" | tip: " + c->tooltip;
    return line;
}

} // namespace

std::wstring describeControl(CDialog& dlg, int id, bool withTip)
{
    AFX_CTLSTATE* c = dlg.m_pDlg ? dlg.m_pDlg->find(id) : nullptr;
    return c ? describe(dlg, c, withTip) : std::wstring();
}

std::vector<std::wstring> describeControls(CDialog& dlg, bool withTips)
{
    std::vector<std::wstring> lines;
    if (!dlg.m_pDlg)
        return lines;
    for (size_t i = 0; i < dlg.m_pDlg->controls.size(); ++i)
        lines.push_back(describe(dlg, dlg.m_pDlg->controls[i].get(), withTips));
    return lines;
}

void showBalloon(int id, const std::wstring& title, const std::wstring& text, int icon)
{
    Session* s = Session::currentOrNull();
    if (!s)
        return;
    std::wstring line = L"  Bublina u " + std::to_wstring(id) + (icon >= 3 ? L" (chyba)" : L"") + L": " + title;
    if (!text.empty())
        line += L" - " + text;
    s->print(line + L"\n");
}

} // namespace sim::ui
