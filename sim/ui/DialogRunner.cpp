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

bool select(CDialog& dlg, AFX_CTLSTATE* c, const std::vector<std::wstring>& picks)
{
    if (c->kind != Kind::Tree && c->kind != Kind::List) {
        say(L"Prvek " + std::to_wstring(c->id) + L" nemá položky.");
        return false;
    }
    for (const auto& p : picks) {
        auto n = number(p);
        if (!n || *n >= static_cast<int>(c->items.size())) {
            say(L"Položka " + p + L" v prvku " + std::to_wstring(c->id) + L" není.");
            return false;
        }
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

// A click on an arrow of a spin button: the position moves by one within the range (up towards the
// upper end) and the parent hears WM_VSCROLL, as from the real control.
bool spin(CDialog& dlg, AFX_CTLSTATE* c, const std::vector<std::wstring>& words)
{
    if (c->kind != Kind::Spin) {
        say(L"Prvek " + std::to_wstring(c->id) + L" nejsou šipky.");
        return false;
    }
    const std::wstring smer = words.empty() ? L"" : upper(words[0]);
    if (smer != L"UP" && smer != L"DOWN") {
        say(L"Šipky se posouvají up nebo down.");
        return false;
    }
    int krok = smer == L"UP" ? 1 : -1;
    if (c->spinLower > c->spinUpper)
        krok = -krok;
    const int pos = std::clamp(c->spinPos + krok, std::min(c->spinLower, c->spinUpper), std::max(c->spinLower, c->spinUpper));
    if (pos == c->spinPos)
        return true; // at the end of the range the control sends nothing
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
    if (verb == L"CLICK" || verb == L"SET" || verb == L"CHECK" || verb == L"SELECT" || verb == L"SPIN") {
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
        if (verb == L"SELECT")
            return select(dlg, c, words);
        if (verb == L"SPIN")
            return spin(dlg, c, words);
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
