// The transcript's view of a dialog: a line per control with its state.
#include "sim/ui/DialogView.h"

#include <cstdio>

#include "sim/core/Session.h"
#include "sim/ui/ControlState.h"

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

} // namespace

std::wstring describeControl(CDialog& dlg, int id, bool withTip)
{
    AFX_CTLSTATE* c = dlg.m_pDlg ? dlg.m_pDlg->find(id) : nullptr;
    if (!c)
        return {};
    CWnd* w = dlg.GetDlgItem(id);
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
    case Kind::Spin:
        line += L"šipky " + std::to_wstring(c->spinPos) + L" (" + std::to_wstring(c->spinLower) + L".." +
                std::to_wstring(c->spinUpper) + L")";
        break;
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
            if (static_cast<int>(i) == c->selectedItem)
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

std::vector<std::wstring> describeControls(CDialog& dlg, bool withTips)
{
    std::vector<std::wstring> lines;
    if (!dlg.m_pDlg)
        return lines;
    for (const auto& c : dlg.m_pDlg->controls)
        lines.push_back(describeControl(dlg, c->id, withTips));
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
