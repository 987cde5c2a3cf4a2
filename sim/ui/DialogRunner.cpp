// CDialog of the model and its modal run: the controls from the registered resource, data exchange,
// the dialog shown in the transcript and driven by script lines until it ends.
#include "sim/ui/DialogRunner.h"

#include <algorithm>
#include <cwctype>
#include <map>
#include <sstream>

#include "acadwnd.h"
#include "afxcmn.h"
#include "sim/core/Session.h"
#include "sim/ui/ControlState.h"
#include "sim/ui/DialogView.h"
#include "sim/win32/WindowTable.h"
#include "treelist.h"

namespace sim::ui {

CWnd*& focusSlot();

namespace {

std::map<UINT, const DLGRESOURCE*>& resources()
{
    static std::map<UINT, const DLGRESOURCE*> r;
    return r;
}

std::wstring upper(std::wstring_view s)
{
    std::wstring r(s);
    for (auto& c : r)
        c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
    return r;
}

std::wstring trim(std::wstring_view s)
{
    size_t b = 0, e = s.size();
    while (b < e && std::iswspace(static_cast<wint_t>(s[b])))
        ++b;
    while (e > b && std::iswspace(static_cast<wint_t>(s[e - 1])))
        --e;
    return std::wstring(s.substr(b, e - b));
}

// A button's caption as the user reads it: without the '&' of its access key.
std::wstring caption(const std::wstring& text)
{
    std::wstring r;
    for (wchar_t c : text)
        if (c != L'&')
            r += c;
    return r;
}

void say(const std::wstring& text)
{
    if (Session* s = Session::currentOrNull())
        s->print(L"  " + text + L"\n");
}

std::optional<int> number(const std::wstring& word)
{
    if (word.empty() || word.size() > 9)
        return std::nullopt;
    for (wchar_t c : word)
        if (!std::iswdigit(static_cast<wint_t>(c)))
            return std::nullopt;
    return std::stoi(word);
}

// A control that the user can reach: there, enabled and visible.
AFX_CTLSTATE* reachable(CDialog& dlg, int id)
{
    AFX_CTLSTATE* c = dlg.m_pDlg->find(id);
    if (!c) {
        say(L"Prvek " + std::to_wstring(id) + L" v dialogu není.");
        return nullptr;
    }
    if (!c->visible) {
        say(L"Prvek " + std::to_wstring(id) + L" je skrytý.");
        return nullptr;
    }
    if (!c->enabled) {
        say(L"Prvek " + std::to_wstring(id) + L" je zakázaný.");
        return nullptr;
    }
    return c;
}

// The radio buttons of c's group: from the last WS_GROUP at or before it to the next one.
std::vector<AFX_CTLSTATE*> radioGroup(CDialog& dlg, AFX_CTLSTATE* c)
{
    auto& all = dlg.m_pDlg->controls;
    size_t at = 0;
    while (at < all.size() && all[at].get() != c)
        ++at;
    size_t first = at;
    while (first > 0 && !(all[first]->style & WS_GROUP))
        --first;
    std::vector<AFX_CTLSTATE*> group;
    for (size_t i = first; i < all.size(); ++i) {
        if (i > first && (all[i]->style & WS_GROUP))
            break;
        if (all[i]->kind == Kind::Radio)
            group.push_back(all[i].get());
    }
    return group;
}

void sendClicked(CDialog& dlg, AFX_CTLSTATE* c)
{
    dlg.SendMessage(WM_COMMAND, MAKEWPARAM(c->id, BN_CLICKED), reinterpret_cast<LPARAM>(c->hwnd));
}

void click(CDialog& dlg, AFX_CTLSTATE* c)
{
    CWnd* w = dlg.GetDlgItem(c->id);
    const DWORD type = c->style & BS_TYPEMASK;
    switch (c->kind) {
    case Kind::CheckBox:
        if (type == BS_AUTOCHECKBOX)
            c->check = c->check == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED;
        break;
    case Kind::ThreeState:
        if (type == BS_AUTO3STATE)
            c->check = (c->check + 1) % 3;
        break;
    case Kind::Radio:
        if (type == BS_AUTORADIOBUTTON)
            for (AFX_CTLSTATE* r : radioGroup(dlg, c))
                r->check = r == c ? BST_CHECKED : BST_UNCHECKED;
        break;
    default: break;
    }
    if (c->kind == Kind::Link) {
        // The address of the link's <a href="...">.
        NMLINK nm{};
        nm.hdr = NMHDR{c->hwnd, static_cast<UINT_PTR>(c->id), NM_CLICK};
        size_t at = c->text.find(L"href=\"");
        std::wstring url = at == std::wstring::npos ? L"" : c->text.substr(at + 6, c->text.find(L'"', at + 6) - at - 6);
        url = url.substr(0, L_MAX_URL_LENGTH - 1);
        std::copy(url.begin(), url.end(), nm.item.szUrl);
        dlg.SendMessage(WM_NOTIFY, static_cast<WPARAM>(c->id), reinterpret_cast<LPARAM>(&nm));
        return;
    }
    // A click takes the focus, so that a field being edited loses it first.
    if (c->kind != Kind::Label && c->kind != Kind::GroupBox)
        w->SetFocus();
    if (c->kind != Kind::Edit && c->kind != Kind::Tree && c->kind != Kind::List)
        sendClicked(dlg, c);
}

// Types the text key by key into the edit, then leaves it.
bool typeInto(CDialog& dlg, AFX_CTLSTATE* c, const std::wstring& text)
{
    if (c->kind != Kind::Edit) {
        say(L"Prvek " + std::to_wstring(c->id) + L" není pole.");
        return false;
    }
    if (c->readOnly) {
        say(L"Pole " + std::to_wstring(c->id) + L" je jen pro čtení.");
        return false;
    }
    auto* edit = static_cast<CEdit*>(dlg.GetDlgItem(c->id));
    edit->SetFocus();
    edit->SetSel(0, -1);
    if (text.empty())
        edit->SendMessage(WM_KEYDOWN, VK_DELETE);
    for (wchar_t ch : text) {
        const int before = c->acceptedChars;
        edit->SendMessage(WM_CHAR, ch, 1);
        if (c->acceptedChars == before)
            say(L"Znak '" + std::wstring(1, ch) + L"' odmítnut.");
    }
    // Leaving the field: the focus goes back to the dialog.
    dlg.SetFocus();
    return true;
}

bool setCheck(CDialog& dlg, AFX_CTLSTATE* c, const std::wstring& item, const std::wstring& state)
{
    const std::wstring s = upper(state);
    int want;
    if (s == L"ON" || s == L"1")
        want = BST_CHECKED;
    else if (s == L"OFF" || s == L"0")
        want = BST_UNCHECKED;
    else if (s == L"2" || s == L"MIXED")
        want = BST_INDETERMINATE;
    else {
        say(L"Stav zaškrtnutí je on nebo off.");
        return false;
    }
    if (c->kind == Kind::Tree || c->kind == Kind::List) {
        int index = -1;
        if (auto n = number(item); n && *n < static_cast<int>(c->items.size()))
            index = *n;
        for (size_t i = 0; index < 0 && i < c->items.size(); ++i)
            if (c->items[i].text == item)
                index = static_cast<int>(i);
        if (index < 0) {
            say(L"Položka '" + item + L"' v prvku " + std::to_wstring(c->id) + L" není.");
            return false;
        }
        Item& it = c->items[static_cast<size_t>(index)];
        const bool old = it.checked;
        it.checked = want != BST_UNCHECKED;
        NMTVITEMCHANGE nm{};
        nm.hdr.hwndFrom = c->hwnd;
        nm.hdr.idFrom = static_cast<UINT_PTR>(c->id);
        nm.hdr.code = TVN_ITEMCHANGED;
        nm.uChanged = TVIF_STATE;
        nm.hItem = reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(index + 1));
        nm.uStateNew = INDEXTOSTATEIMAGEMASK(it.checked ? 2 : 1);
        nm.uStateOld = INDEXTOSTATEIMAGEMASK(old ? 2 : 1);
        dlg.SendMessage(WM_NOTIFY, static_cast<WPARAM>(c->id), reinterpret_cast<LPARAM>(&nm));
        return true;
    }
    if (!item.empty()) {
        say(L"Prvek " + std::to_wstring(c->id) + L" nemá položky.");
        return false;
    }
    if (c->kind == Kind::Radio) {
        if (want == BST_CHECKED)
            click(dlg, c);
        else
            c->check = BST_UNCHECKED;
        return true;
    }
    if (c->kind != Kind::CheckBox && c->kind != Kind::ThreeState) {
        say(L"Prvek " + std::to_wstring(c->id) + L" není zaškrtávací.");
        return false;
    }
    if (want == BST_INDETERMINATE && c->kind != Kind::ThreeState) {
        say(L"Prvek " + std::to_wstring(c->id) + L" nemá třetí stav.");
        return false;
    }
    dlg.GetDlgItem(c->id)->SetFocus();
    if (c->check != want) {
        c->check = want;
        sendClicked(dlg, c);
    }
    return true;
}

// The grid's row of that number, or null.
HTREEITEM gridRow(CWnd* grid, int n)
{
    auto h = reinterpret_cast<HTREEITEM>(grid->SendMessage(TVM_GETNEXTITEM, TVGN_ROOT, 0));
    for (; h && n > 0; --n)
        h = reinterpret_cast<HTREEITEM>(grid->SendMessage(TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(h)));
    return n == 0 ? h : nullptr;
}

// The row (and for a grid the column) named by the words from `at`; false, having said why, when
// they name none.
bool rowAndColumn(CDialog& dlg, AFX_CTLSTATE* c, const std::vector<std::wstring>& words, size_t at, bool withColumn,
                  int& row, int& column)
{
    auto r = at < words.size() ? number(words[at]) : std::nullopt;
    auto k = withColumn && at + 1 < words.size() ? number(words[at + 1]) : std::optional<int>(0);
    if (!r || !k) {
        say(withColumn ? L"Chybí číslo řádku a sloupce." : L"Chybí číslo řádku.");
        return false;
    }
    row = *r;
    column = *k;
    const int rows = c->kind == Kind::Grid ? static_cast<int>(dlg.GetDlgItem(c->id)->SendMessage(TVM_GETCOUNT))
                                           : static_cast<int>(c->items.size());
    if (row >= rows) {
        say(L"Řádek " + std::to_wstring(row) + L" v prvku " + std::to_wstring(c->id) + L" není.");
        return false;
    }
    return true;
}

// Clicks a cell of the grid or a row of a list view.
bool clickCell(CDialog& dlg, AFX_CTLSTATE* c, int row, int column)
{
    CWnd* w = dlg.GetDlgItem(c->id);
    if (c->kind == Kind::ListView)
        return static_cast<CListCtrl*>(w)->SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    w->SetFocus();
    w->SendMessage(TVM_SELECTCHILD, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(gridRow(w, row)));
    return true;
}

// Edits a cell in place: starts the editor, types the text key by key (a drop-down takes it as the
// chosen entry) and ends the edit taking the value. A value the field or the dialog refuses leaves
// the editor open; the line then ends it as Escape would.
bool editCell(CDialog& dlg, AFX_CTLSTATE* c, int row, int column, const std::wstring& text)
{
    CWnd* grid = dlg.GetDlgItem(c->id);
    grid->SetFocus();
    HTREEITEM h = gridRow(grid, row);
    auto hEditor = reinterpret_cast<HWND>(
        grid->SendMessage(TVM_EDITLABELW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(h)));
    CWnd* editor = CWnd::FromHandle(hEditor);
    if (!editor) {
        say(L"Buňku " + std::to_wstring(row) + L" " + std::to_wstring(column) + L" nelze upravit.");
        return false;
    }
    AFX_CTLSTATE* e = editor->m_pCtl;
    if (e && e->kind == Kind::Edit) {
        auto* edit = static_cast<CEdit*>(editor);
        edit->SetSel(0, -1);
        edit->SendMessage(WM_KEYDOWN, VK_DELETE);
        for (wchar_t ch : text) {
            const int before = e->acceptedChars;
            edit->SendMessage(WM_CHAR, ch, 1);
            if (e->acceptedChars == before)
                say(L"Znak '" + std::wstring(1, ch) + L"' odmítnut.");
        }
    } else {
        editor->SetWindowText(text.c_str());
    }
    if (!grid->SendMessage(TVM_ENDEDITLABELNOW, FALSE, 0)) {
        say(L"Hodnota buňky nepřijata.");
        grid->SendMessage(TVM_ENDEDITLABELNOW, TRUE, 0);
        return false;
    }
    return true;
}

// A double click on a row of a list view or a grid.
bool doubleClick(CDialog& dlg, AFX_CTLSTATE* c, int row)
{
    clickCell(dlg, c, row, 0);
    if (!dlg.m_pDlg || dlg.m_pDlg->ended)
        return true;
    CWnd* w = dlg.GetDlgItem(c->id);
    if (c->kind == Kind::Grid) {
        w->SendMessage(WM_LBUTTONDBLCLK, 0, 0);
        return true;
    }
    NMITEMACTIVATE nm{};
    nm.hdr = NMHDR{c->hwnd, static_cast<UINT_PTR>(c->id), NM_DBLCLK};
    nm.iItem = row;
    dlg.SendMessage(WM_NOTIFY, static_cast<WPARAM>(c->id), reinterpret_cast<LPARAM>(&nm));
    return true;
}

bool select(CDialog& dlg, AFX_CTLSTATE* c, const std::vector<std::wstring>& picks)
{
    if (c->kind == Kind::ListView || c->kind == Kind::Grid) {
        int row = 0, column = 0;
        for (size_t i = 0; i < picks.size(); ++i)
            if (!rowAndColumn(dlg, c, picks, i, false, row, column) || !clickCell(dlg, c, row, 0))
                return false;
        return true;
    }
    if (c->kind != Kind::Tree && c->kind != Kind::List) {
        say(L"Prvek " + std::to_wstring(c->id) + L" nemá položky.");
        return false;
    }
    const bool multiple = c->kind == Kind::List && (c->style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL));
    for (const auto& p : picks) {
        auto n = number(p);
        if (!n || *n >= static_cast<int>(c->items.size())) {
            say(L"Položka " + p + L" v prvku " + std::to_wstring(c->id) + L" není.");
            return false;
        }
    }
    if (multiple) {
        // The picks become the whole selection, in one change.
        for (Item& it : c->items)
            it.selected = false;
        for (const auto& p : picks) {
            c->items[static_cast<size_t>(*number(p))].selected = true;
            c->selectedItem = *number(p);
        }
        dlg.SendMessage(WM_COMMAND, MAKEWPARAM(c->id, LBN_SELCHANGE), reinterpret_cast<LPARAM>(c->hwnd));
        return true;
    }
    for (const auto& p : picks) {
        auto n = number(p);
        c->selectedItem = *n;
        if (c->kind == Kind::Tree) {
            NMHDR nm{c->hwnd, static_cast<UINT_PTR>(c->id), TVN_SELCHANGED};
            dlg.SendMessage(WM_NOTIFY, static_cast<WPARAM>(c->id), reinterpret_cast<LPARAM>(&nm));
        } else {
            dlg.SendMessage(WM_COMMAND, MAKEWPARAM(c->id, LBN_SELCHANGE), reinterpret_cast<LPARAM>(c->hwnd));
        }
    }
    return true;
}

// The centre of an item's row, or the top of it for a drop in the gap above it, in the list's client
// coordinates; "end" is the free row below the last item.
std::optional<CPoint> itemPoint(AFX_CTLSTATE* c, const std::wstring& word, bool gap)
{
    const int top = c->topIndex;
    if (upper(word) == L"END")
        return CPoint(20, (static_cast<int>(c->items.size()) - top) * kItemHeight + kItemHeight / 2);
    auto n = number(word);
    if (!n || *n >= static_cast<int>(c->items.size()))
        return std::nullopt;
    return CPoint(20, (*n - top) * kItemHeight + (gap ? 2 : kItemHeight / 2));
}

LPARAM pointParam(const CPoint& p) { return MAKELPARAM(static_cast<short>(p.x), static_cast<short>(p.y)); }

// drag <id> <item> <id> <item|end|out>: the left button pressed on an item, moved to the place and
// released there (out: beside every control). dblclick <id> <item>. key <id> delete.
bool mouseOrKey(CDialog& dlg, const std::wstring& verb, std::wistringstream& in)
{
    std::vector<std::wstring> words;
    for (std::wstring w; in >> w;)
        words.push_back(w);
    const size_t wanted = verb == L"DRAG" ? 4 : 2;
    auto id = words.empty() ? std::nullopt : number(words[0]);
    if (words.size() != wanted || !id) {
        say(verb == L"DRAG" ? L"Tah je: drag <prvek> <položka> <prvek> <položka|end|out>."
                            : verb == L"KEY" ? L"Klávesa je: key <prvek> delete." : L"Dvojklik je: dblclick <prvek> <položka>.");
        return false;
    }
    AFX_CTLSTATE* c = reachable(dlg, *id);
    if (!c)
        return false;
    CWnd* w = dlg.GetDlgItem(c->id);
    if (verb == L"KEY") {
        if (upper(words[1]) != L"DELETE") {
            say(L"Klávesa je: key <prvek> delete.");
            return false;
        }
        w->SetFocus();
        w->SendMessage(WM_KEYDOWN, VK_DELETE);
        return true;
    }
    auto from = itemPoint(c, words[1], false);
    if (!from || upper(words[1]) == L"END") {
        say(L"Položka " + words[1] + L" v prvku " + words[0] + L" není.");
        return false;
    }
    if (verb == L"DBLCLICK") {
        w->SetFocus();
        w->SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, pointParam(*from));
        return true;
    }
    CPoint to(-500, -500);
    if (upper(words[3]) != L"OUT") {
        auto targetId = number(words[2]);
        AFX_CTLSTATE* t = targetId ? reachable(dlg, *targetId) : nullptr;
        if (!t)
            return false;
        auto at = itemPoint(t, words[3], true);
        if (!at) {
            say(L"Položka " + words[3] + L" v prvku " + words[2] + L" není.");
            return false;
        }
        to = *at;
        dlg.GetDlgItem(t->id)->ClientToScreen(&to);
        w->ScreenToClient(&to);
    } else {
        w->ScreenToClient(&to);
    }
    w->SetFocus();
    w->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, pointParam(*from));
    w->SendMessage(WM_MOUSEMOVE, MK_LBUTTON, pointParam(to));
    // Whoever holds the mouse hears the release.
    CWnd* capture = CWnd::GetCapture();
    (capture ? capture : w)->SendMessage(WM_LBUTTONUP, 0, pointParam(to));
    return true;
}

// spin <id> up|down: a click on an arrow of an up-down control. As the real control does, it asks the
// parent first (UDN_DELTAPOS, which may change the step or refuse it), moves the position within the
// range (up towards the upper end) and tells the parent with WM_VSCROLL; at the end of the range it
// sends nothing.
bool spin(CDialog& dlg, std::wistringstream& in)
{
    std::wstring idText, direction;
    in >> idText >> direction;
    auto id = number(idText);
    direction = upper(direction);
    if (!id || (direction != L"UP" && direction != L"DOWN")) {
        say(L"Krok je: spin <prvek> up|down.");
        return false;
    }
    AFX_CTLSTATE* c = reachable(dlg, *id);
    if (!c)
        return false;
    if (c->kind != Kind::Spin) {
        say(L"Prvek " + idText + L" není číselník.");
        return false;
    }
    int krok = direction == L"UP" ? 1 : -1;
    if (c->spinLower > c->spinUpper)
        krok = -krok;
    NMUPDOWN nm{};
    nm.hdr = NMHDR{c->hwnd, static_cast<UINT_PTR>(c->id), UDN_DELTAPOS};
    nm.iPos = c->spinPos;
    nm.iDelta = krok;
    if (dlg.SendMessage(WM_NOTIFY, static_cast<WPARAM>(c->id), reinterpret_cast<LPARAM>(&nm)) != 0)
        return true;
    const int pos = std::clamp(nm.iPos + nm.iDelta, std::min(c->spinLower, c->spinUpper), std::max(c->spinLower, c->spinUpper));
    if (pos == c->spinPos)
        return true;
    c->spinPos = pos;
    const LPARAM od = reinterpret_cast<LPARAM>(c->hwnd);
    dlg.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, static_cast<WORD>(pos)), od);
    dlg.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_ENDSCROLL, static_cast<WORD>(pos)), od);
    return true;
}

void endAsCancel(CDialog& dlg)
{
    dlg.SendMessage(WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    if (dlg.m_pDlg && !dlg.m_pDlg->ended)
        dlg.EndDialog(IDCANCEL);
}

} // namespace

const DLGRESOURCE* findDlgResource(UINT id)
{
    auto it = resources().find(id);
    return it == resources().end() ? nullptr : it->second;
}

bool act(CDialog& dlg, std::wstring_view lineView)
{
    if (!dlg.m_pDlg)
        return false;
    const std::wstring line = trim(lineView);
    std::wistringstream in(line);
    std::wstring verb;
    in >> verb;
    verb = upper(verb);

    if (verb == L"OK" && line.size() == 2) {
        if (AFX_CTLSTATE* c = dlg.m_pDlg->find(IDOK); c && !c->enabled) {
            say(L"Tlačítko OK je zakázané.");
            return false;
        }
        if (CWnd* ok = dlg.GetDlgItem(IDOK))
            ok->SetFocus();
        dlg.SendMessage(WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
        return true;
    }
    if (line == L"^C" || ((verb == L"CANCEL" || verb == L"STORNO" || verb == L"ZRUŠIT") && line.size() == verb.size())) {
        dlg.SendMessage(WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
        return true;
    }
    // A double click goes to a table's row (grid or list view), else to a list's item by the mouse.
    bool tableClick = false;
    if (verb == L"DBLCLICK") {
        const auto at = in.tellg();
        std::wstring idText;
        in >> idText;
        const auto id = number(idText);
        const AFX_CTLSTATE* c = id ? reachable(dlg, *id) : nullptr;
        tableClick = c && (c->kind == Kind::Grid || c->kind == Kind::ListView);
        in.clear();
        in.seekg(at);
    }
    if (verb == L"DRAG" || verb == L"KEY" || (verb == L"DBLCLICK" && !tableClick))
        return mouseOrKey(dlg, verb, in);
    if (verb == L"SPIN")
        return spin(dlg, in);
    if (verb == L"CLICK" || verb == L"SET" || verb == L"CHECK" || verb == L"SELECT" || verb == L"CELL" ||
        verb == L"EDIT" || verb == L"DBLCLICK") {
        std::wstring idText;
        in >> idText;
        auto id = number(idText);
        if (!id) {
            say(L"Chybí číslo prvku.");
            return false;
        }
        AFX_CTLSTATE* c = reachable(dlg, *id);
        if (!c)
            return false;
        if (verb == L"CLICK") {
            click(dlg, c);
            return true;
        }
        if (verb == L"SET") {
            // The text is the rest of the line after one blank, kept as typed.
            std::wstring rest(lineView);
            size_t at = upper(rest).find(idText, upper(rest).find(L"SET") + 3);
            std::wstring text = at == std::wstring::npos ? L"" : rest.substr(at + idText.size());
            if (!text.empty() && text.front() == L' ')
                text.erase(0, 1);
            return typeInto(dlg, c, text);
        }
        std::vector<std::wstring> words;
        for (std::wstring w; in >> w;)
            words.push_back(w);
        if (verb == L"CELL" || verb == L"EDIT" || verb == L"DBLCLICK") {
            const bool grid = c->kind == Kind::Grid;
            if (!grid && c->kind != Kind::ListView) {
                say(L"Prvek " + std::to_wstring(c->id) + L" není tabulka.");
                return false;
            }
            if (verb == L"EDIT" && !grid) {
                say(L"Prvek " + std::to_wstring(c->id) + L" nemá upravitelné buňky.");
                return false;
            }
            int row = 0, column = 0;
            if (!rowAndColumn(dlg, c, words, 0, verb != L"DBLCLICK" && grid, row, column))
                return false;
            if (verb == L"DBLCLICK")
                return doubleClick(dlg, c, row);
            if (verb == L"CELL")
                return clickCell(dlg, c, row, column);
            // The text is the rest of the line after the row and the column, kept as typed.
            std::wistringstream again(line);
            std::wstring skip;
            for (int i = 0; i < 4; ++i)
                again >> skip;
            std::wstring text;
            std::getline(again, text);
            if (!text.empty() && text.front() == L' ')
                text.erase(0, 1);
            return editCell(dlg, c, row, column, text);
        }
        if (verb == L"SELECT")
            return select(dlg, c, words);
        if (words.empty()) {
            say(L"Chybí on nebo off.");
            return false;
        }
        std::wstring item;
        for (size_t i = 0; i + 1 < words.size(); ++i)
            item += (i ? L" " : L"") + words[i];
        return setCheck(dlg, c, item, words.back());
    }
    // A push button by its caption; yes and no for dialogs with such buttons.
    const std::wstring wanted = upper(line);
    for (const auto& c : dlg.m_pDlg->controls)
        if (c->kind == Kind::PushButton && upper(caption(c->text)) == wanted) {
            if (!reachable(dlg, c->id))
                return false;
            click(dlg, c.get());
            return true;
        }
    const std::pair<const wchar_t*, int> words[] = {{L"YES", IDYES}, {L"ANO", IDYES}, {L"NO", IDNO}, {L"NE", IDNO}};
    for (auto [w, id] : words)
        if (wanted == w)
            if (AFX_CTLSTATE* c = reachable(dlg, id)) {
                click(dlg, c);
                return true;
            }
    say(L"Neznámý pokyn dialogu: " + line);
    return false;
}

} // namespace sim::ui

using namespace sim::ui;
using sim::Session;

void AfxRegisterDlgResource(const DLGRESOURCE* pResource)
{
    if (pResource)
        resources()[pResource->nIDTemplate] = pResource;
}

void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    auto* dlg = pDX ? dynamic_cast<CDialog*>(pDX->m_pDlgWnd) : nullptr;
    if (!dlg || !dlg->m_pDlg)
        return;
    AFX_CTLSTATE* c = dlg->m_pDlg->find(nIDC);
    if (!c || rControl.m_pCtl == c)
        return;
    // What the member was given before it became a control (a limit, a tooltip) is kept.
    if (rControl.m_pCtl) {
        if (rControl.m_pCtl->limit)
            c->limit = rControl.m_pCtl->limit;
    }
    rControl.m_pCtl = c;
    rControl.m_hWnd = c->hwnd;
    c->bound = &rControl;
    mapHandle(c->hwnd, &rControl);
    dlg->m_pDlg->boundMembers.push_back(&rControl);
}

void DDX_Text(CDataExchange* pDX, int nIDC, CString& value)
{
    if (!pDX || !pDX->m_pDlgWnd)
        return;
    if (pDX->m_bSaveAndValidate)
        pDX->m_pDlgWnd->GetDlgItemText(nIDC, value);
    else
        pDX->m_pDlgWnd->SetDlgItemText(nIDC, value);
}

void DDX_Check(CDataExchange* pDX, int nIDC, int& value)
{
    if (!pDX || !pDX->m_pDlgWnd)
        return;
    if (pDX->m_bSaveAndValidate)
        value = static_cast<int>(pDX->m_pDlgWnd->IsDlgButtonChecked(nIDC));
    else
        pDX->m_pDlgWnd->CheckDlgButton(nIDC, static_cast<UINT>(value));
}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : m_nIDTemplate(nIDTemplate), m_pParentWnd(pParentWnd) {}

CDialog::~CDialog() = default;

void CDialog::EndDialog(int nResult)
{
    if (!m_pDlg)
        return;
    m_pDlg->ended = true;
    m_pDlg->result = nResult;
}

BOOL CDialog::UpdateData(BOOL bSaveAndValidate)
{
    CDataExchange dx(this, bSaveAndValidate);
    DoDataExchange(&dx);
    return TRUE;
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK()
{
    if (!UpdateData(TRUE))
        return;
    EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

void CDialog::DoDataExchange(CDataExchange*) {}

BOOL CDialog::OnCommand(WPARAM wParam, LPARAM)
{
    if (HIWORD(wParam) != BN_CLICKED)
        return FALSE;
    if (LOWORD(wParam) == IDOK) {
        OnOK();
        return TRUE;
    }
    if (LOWORD(wParam) == IDCANCEL) {
        OnCancel();
        return TRUE;
    }
    return FALSE;
}

namespace {

std::vector<std::wstring> painted(CDialog& dlg)
{
    dlg.SendMessage(WM_PAINT);
    return dlg.m_pCtl ? dlg.m_pCtl->painted : std::vector<std::wstring>{};
}

void printLines(const std::vector<std::wstring>& lines)
{
    if (Session* s = Session::currentOrNull())
        for (const auto& l : lines)
            s->print(l + L"\n");
}

// The run's bookkeeping, undone on every way out, exceptions included.
struct Run {
    CDialog& dlg;
    HWND owner;
    bool ownerWasEnabled;
    CWnd* focusBefore;
    AFX_DLGSTATE state;

    Run(CDialog& d, const DLGRESOURCE* res) : dlg(d)
    {
        owner = dlg.m_pParentWnd && ::IsWindow(dlg.m_pParentWnd->m_hWnd) ? dlg.m_pParentWnd->m_hWnd
                                                                           : sim::win32::mainWindow();
        focusBefore = focusSlot();
        state.resource = res;
        for (int i = 0; i < res->nItems; ++i) {
            const DLGITEMRES& r = res->pItems[i];
            auto c = std::make_unique<AFX_CTLSTATE>();
            c->id = r.nID;
            c->className = r.lpszClass ? r.lpszClass : L"";
            c->style = r.dwStyle;
            c->kind = kindOf(c->className, r.dwStyle);
            c->hwnd = newControlHandle();
            c->text = r.lpszText ? r.lpszText : L"";
            c->enabled = !(r.dwStyle & WS_DISABLED);
            c->readOnly = c->kind == Kind::Edit && (r.dwStyle & ES_READONLY);
            c->parent = &dlg;
            state.controls.push_back(std::move(c));
        }
        dlg.m_pDlg = &state;
        dlg.m_hWnd = sim::win32::createWindow(res->lpszCaption ? res->lpszCaption : L"", owner);
        mapHandle(dlg.m_hWnd, &dlg);
        // A modal dialog disables its owner for as long as it runs.
        ownerWasEnabled = !::EnableWindow(owner, FALSE);
    }

    ~Run()
    {
        ::EnableWindow(owner, ownerWasEnabled ? TRUE : FALSE);
        for (CWnd* m : state.boundMembers) {
            mapHandle(m->m_hWnd, nullptr);
            m->m_pCtl = nullptr;
            m->m_hWnd = nullptr;
        }
        for (auto& [id, w] : state.wrappers) {
            mapHandle(w->m_hWnd, nullptr);
            w->m_pCtl = nullptr;
        }
        state.wrappers.clear();
        mapHandle(dlg.m_hWnd, nullptr);
        sim::win32::destroyWindow(dlg.m_hWnd);
        dlg.m_hWnd = nullptr;
        dlg.m_pDlg = nullptr;
        focusSlot() = focusBefore;
    }
};

} // namespace

INT_PTR CDialog::DoModal()
{
    const DLGRESOURCE* res = findDlgResource(m_nIDTemplate);
    Session* session = Session::currentOrNull();
    if (!res) {
        if (session)
            session->print(L"\nDialog " + std::to_wstring(m_nIDTemplate) + L" nemá zdroj.\n");
        return -1;
    }
    Run run(*this, res);
    focusSlot() = this;
    OnInitDialog();
    if (m_pDlg->ended)
        return m_pDlg->result;

    std::vector<std::wstring> header{L"[" + sim::win32::windowTitle(m_hWnd) + L"]"};
    for (const auto& t : painted(*this))
        header.push_back(L"  " + t);
    if (session) {
        const std::wstring& tr = session->transcript();
        if (!tr.empty() && tr.back() != L'\n')
            session->print(L"\n");
    }
    printLines(header);
    printLines(describeControls(*this, true));
    std::vector<std::wstring> shown = describeControls(*this, false);

    while (!m_pDlg->ended) {
        std::optional<std::wstring> line = session ? session->ask(kDialogPrompt) : std::nullopt;
        if (!line) {
            // Out of input: the prompt stays waiting and the dialog goes as by Escape.
            endAsCancel(*this);
            break;
        }
        act(*this, *line);
        if (m_pDlg->ended)
            break;
        // What the action changed.
        std::vector<std::wstring> now = describeControls(*this, false);
        std::vector<std::wstring> changed;
        for (size_t i = 0; i < now.size(); ++i)
            if (i >= shown.size() || now[i] != shown[i])
                changed.push_back(now[i]);
        printLines(changed);
        shown = std::move(now);
    }
    const int result = m_pDlg->result;
    std::vector<std::wstring> closing{L"[" + sim::win32::windowTitle(m_hWnd) + L"] ukončen: " +
                                      (result == IDOK ? L"OK" : result == IDCANCEL ? L"Storno" : std::to_wstring(result))};
    if (result == IDOK)
        for (auto& l : describeControls(*this, false))
            closing.push_back(l);
    printLines(closing);
    return result;
}
