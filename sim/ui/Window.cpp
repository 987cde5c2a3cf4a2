// CWnd of the model: state accessors, the message dispatch and the default behaviour of the control
// classes (an edit inserts typed characters over its selection and tells its parent of the change).
#include <algorithm>
#include <cstdarg>
#include <cwchar>
#include <cwctype>
#include <map>

#include "acadwnd.h"
#include "sim/ui/ControlState.h"

using sim::ui::Kind;

namespace sim::ui {

namespace {

std::map<HWND, CWnd*>& handles()
{
    static std::map<HWND, CWnd*> m;
    return m;
}

CWnd* g_focus = nullptr;

std::wstring upper(std::wstring s)
{
    for (auto& c : s)
        c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
    return s;
}

} // namespace

Kind kindOf(const std::wstring& className, DWORD style)
{
    const std::wstring c = upper(className);
    if (c == L"BUTTON") {
        switch (style & BS_TYPEMASK) {
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX: return Kind::CheckBox;
        case BS_3STATE:
        case BS_AUTO3STATE: return Kind::ThreeState;
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON: return Kind::Radio;
        case BS_GROUPBOX: return Kind::GroupBox;
        default: return Kind::PushButton;
        }
    }
    if (c == L"EDIT")
        return Kind::Edit;
    if (c == L"STATIC")
        return Kind::Label;
    if (c == L"SYSTREEVIEW32")
        return Kind::Tree;
    if (c == L"LISTBOX" || c == L"COMBOBOX")
        return Kind::List;
    if (c == L"SYSLISTVIEW32")
        return Kind::ListView;
    if (c == L"TREELIST")
        return Kind::Grid;
    if (c == L"SYSLINK")
        return Kind::Link;
    if (c == L"MSCTLS_UPDOWN32")
        return Kind::Spin;
    return Kind::Other;
}

HWND newControlHandle()
{
    // Above the window table's range, so IsWindow never mistakes a control for a window.
    static std::uintptr_t next = 0x40000000;
    next += 0x10;
    return reinterpret_cast<HWND>(next);
}

void mapHandle(HWND hWnd, CWnd* pWnd)
{
    if (!hWnd)
        return;
    if (pWnd)
        handles()[hWnd] = pWnd;
    else
        handles().erase(hWnd);
}

CWnd*& focusSlot() { return g_focus; }

} // namespace sim::ui

AFX_CTLSTATE* AFX_DLGSTATE::find(int id) const
{
    for (const auto& c : controls)
        if (c->id == id)
            return c.get();
    return nullptr;
}

namespace {

// A window made outside a dialog keeps a state of its own.
struct OwnState {
    std::map<const CWnd*, std::unique_ptr<AFX_CTLSTATE>> states;
};
OwnState& own()
{
    static OwnState o;
    return o;
}

AFX_CTLSTATE& st(const CWnd* w)
{
    if (!w->m_pCtl) {
        auto s = std::make_unique<AFX_CTLSTATE>();
        s->kind = Kind::Other;
        s->bound = const_cast<CWnd*>(w);
        const_cast<CWnd*>(w)->m_pCtl = s.get();
        own().states[w] = std::move(s);
    }
    return *w->m_pCtl;
}

bool isEditLike(const AFX_CTLSTATE& s) { return s.kind == Kind::Edit || s.kind == Kind::Other; }

UINT editLimit(const AFX_CTLSTATE& s) { return s.limit ? s.limit : 30000; }

// Tells the parent (or, outside a dialog, the control itself) that the text of an edit changed.
void notifyChange(CWnd* w)
{
    AFX_CTLSTATE& s = st(w);
    const WPARAM wp = MAKEWPARAM(s.id, EN_CHANGE);
    if (s.parent)
        s.parent->SendMessage(WM_COMMAND, wp, reinterpret_cast<LPARAM>(w->m_hWnd));
    else
        w->WindowProc(WM_COMMAND, wp, 0);
}

void replaceSelection(CWnd* w, const std::wstring& text)
{
    AFX_CTLSTATE& s = st(w);
    int a = std::clamp(std::min(s.selStart, s.selEnd), 0, static_cast<int>(s.text.size()));
    int b = std::clamp(std::max(s.selStart, s.selEnd), 0, static_cast<int>(s.text.size()));
    s.text.replace(static_cast<size_t>(a), static_cast<size_t>(b - a), text);
    s.selStart = s.selEnd = a + static_cast<int>(text.size());
    notifyChange(w);
}

} // namespace

CWnd::CWnd() = default;

CWnd::~CWnd()
{
    if (sim::ui::g_focus == this)
        sim::ui::g_focus = nullptr;
    auto it = sim::ui::handles().find(m_hWnd);
    if (it != sim::ui::handles().end() && it->second == this)
        sim::ui::handles().erase(it);
    if (m_pCtl && m_pCtl->bound == this)
        m_pCtl->bound = nullptr;
    own().states.erase(this);
}

CWnd* CWnd::FromHandle(HWND hWnd)
{
    auto it = sim::ui::handles().find(hWnd);
    return it == sim::ui::handles().end() ? nullptr : it->second;
}

int CWnd::GetDlgCtrlID() const { return m_pCtl ? m_pCtl->id : 0; }
CWnd* CWnd::GetParent() const { return m_pCtl ? m_pCtl->parent : nullptr; }
DWORD CWnd::GetStyle() const { return m_pCtl ? m_pCtl->style : 0; }

void CWnd::SetWindowText(LPCWSTR lpszString)
{
    AFX_CTLSTATE& s = st(this);
    s.text = lpszString ? lpszString : L"";
    s.selStart = s.selEnd = 0;
    // As WM_SETTEXT does, an edit reports the change.
    if (isEditLike(s))
        notifyChange(this);
}

void CWnd::GetWindowText(CString& rString) const { rString = st(this).text.c_str(); }

int CWnd::GetWindowText(LPWSTR lpszStringBuf, int nMaxCount) const
{
    if (!lpszStringBuf || nMaxCount <= 0)
        return 0;
    const std::wstring& t = st(this).text;
    int n = std::min(static_cast<int>(t.size()), nMaxCount - 1);
    std::wmemcpy(lpszStringBuf, t.c_str(), static_cast<size_t>(n));
    lpszStringBuf[n] = L'\0';
    return n;
}

int CWnd::GetWindowTextLength() const { return static_cast<int>(st(this).text.size()); }

BOOL CWnd::EnableWindow(BOOL bEnable)
{
    AFX_CTLSTATE& s = st(this);
    BOOL wasDisabled = s.enabled ? FALSE : TRUE;
    s.enabled = bEnable != FALSE;
    if (m_hWnd && ::IsWindow(m_hWnd))
        ::EnableWindow(m_hWnd, bEnable);
    return wasDisabled;
}

BOOL CWnd::IsWindowEnabled() const
{
    if (m_hWnd && ::IsWindow(m_hWnd))
        return ::IsWindowEnabled(m_hWnd);
    return st(this).enabled ? TRUE : FALSE;
}

BOOL CWnd::ShowWindow(int nCmdShow)
{
    AFX_CTLSTATE& s = st(this);
    BOOL wasVisible = s.visible ? TRUE : FALSE;
    s.visible = nCmdShow != SW_HIDE;
    if (m_hWnd && ::IsWindow(m_hWnd))
        wasVisible = ::ShowWindow(m_hWnd, nCmdShow);
    return wasVisible;
}

BOOL CWnd::IsWindowVisible() const
{
    if (m_hWnd && ::IsWindow(m_hWnd))
        return ::IsWindowVisible(m_hWnd);
    return st(this).visible ? TRUE : FALSE;
}

CWnd* CWnd::SetFocus()
{
    CWnd* old = sim::ui::g_focus;
    if (old == this)
        return old;
    sim::ui::g_focus = this;
    if (old) {
        old->SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(m_hWnd));
        if (old->m_pCtl && old->m_pCtl->kind == Kind::Edit && old->m_pCtl->parent)
            old->m_pCtl->parent->SendMessage(WM_COMMAND, MAKEWPARAM(old->m_pCtl->id, EN_KILLFOCUS),
                reinterpret_cast<LPARAM>(old->m_hWnd));
    }
    SendMessage(WM_SETFOCUS, reinterpret_cast<WPARAM>(old ? old->m_hWnd : nullptr));
    return old;
}

CWnd* CWnd::GetFocus() { return sim::ui::g_focus; }

void CWnd::Invalidate(BOOL) { ++st(this).invalidations; }

BOOL CWnd::GetWindowRect(LPRECT lpRect) const { return GetClientRect(lpRect); }

BOOL CWnd::GetClientRect(LPRECT lpRect) const
{
    if (!lpRect)
        return FALSE;
    *lpRect = RECT{0, 0, 0, 0};
    if (auto* d = dynamic_cast<const CDialog*>(this); d && d->m_pDlg && d->m_pDlg->resource) {
        // Dialog units to pixels at the usual 96 dpi font: 1.5 and 1.625 pixels per unit.
        lpRect->right = d->m_pDlg->resource->cx * 3 / 2;
        lpRect->bottom = d->m_pDlg->resource->cy * 13 / 8;
    } else if (m_pCtl && m_pCtl->kind == Kind::List) {
        // Every item shows, with a free row below the last.
        lpRect->right = 150;
        lpRect->bottom = sim::ui::kItemHeight * std::max(10, static_cast<int>(m_pCtl->items.size()) + 1);
    } else if (m_pCtl && m_pCtl->parent) {
        lpRect->right = 100;
        lpRect->bottom = 20;
    }
    return TRUE;
}

namespace {

// Where a control's client area begins on the screen: the dialog at the origin, its controls one
// below the other in the order of the resource.
POINT origin(const CWnd* w)
{
    const auto* d = w->m_pCtl ? dynamic_cast<const CDialog*>(w->m_pCtl->parent) : nullptr;
    if (!d || !d->m_pDlg)
        return POINT{0, 0};
    const auto& all = d->m_pDlg->controls;
    for (size_t i = 0; i < all.size(); ++i)
        if (all[i].get() == w->m_pCtl)
            return POINT{0, static_cast<LONG>((i + 1) * sim::ui::kControlPitch)};
    return POINT{0, 0};
}

CWnd* g_capture = nullptr;

} // namespace

void CWnd::ClientToScreen(LPPOINT lpPoint) const
{
    if (!lpPoint)
        return;
    const POINT o = origin(this);
    lpPoint->x += o.x;
    lpPoint->y += o.y;
}

void CWnd::ScreenToClient(LPRECT) const {}

void CWnd::ScreenToClient(LPPOINT lpPoint) const
{
    if (!lpPoint)
        return;
    const POINT o = origin(this);
    lpPoint->x -= o.x;
    lpPoint->y -= o.y;
}

CWnd* CWnd::SetCapture() { return std::exchange(g_capture, this); }
CWnd* CWnd::GetCapture() { return g_capture; }
BOOL CWnd::ReleaseCapture()
{
    g_capture = nullptr;
    return TRUE;
}

UINT_PTR CWnd::SetTimer(UINT_PTR nIDEvent, UINT, void*) { return nIDEvent; }
BOOL CWnd::KillTimer(UINT_PTR) { return TRUE; }

HICON CWnd::SetIcon(HICON hIcon, BOOL) { return hIcon; }

BOOL CWnd::Create(LPCWSTR lpszClassName, LPCWSTR lpszWindowName, DWORD dwStyle, const RECT&, CWnd* pParentWnd, UINT nID)
{
    if (m_hWnd)
        return FALSE;
    auto* dlg = dynamic_cast<CDialog*>(pParentWnd);
    AFX_CTLSTATE* s;
    if (dlg && dlg->m_pDlg) {
        dlg->m_pDlg->controls.push_back(std::make_unique<AFX_CTLSTATE>());
        s = dlg->m_pDlg->controls.back().get();
        // The run forgets the binding when the dialog ends, as for members bound by DDX_Control.
        dlg->m_pDlg->boundMembers.push_back(this);
        if (m_pCtl && m_pCtl != s)
            own().states.erase(this);
    } else {
        s = &st(this);
    }
    s->id = static_cast<int>(nID);
    s->className = lpszClassName ? lpszClassName : L"";
    s->style = dwStyle;
    s->kind = sim::ui::kindOf(s->className, dwStyle);
    s->text = lpszWindowName ? lpszWindowName : L"";
    s->enabled = !(dwStyle & WS_DISABLED);
    s->visible = (dwStyle & WS_VISIBLE) != 0;
    s->readOnly = s->kind == Kind::Edit && (dwStyle & ES_READONLY);
    s->parent = pParentWnd;
    s->bound = this;
    s->hwnd = sim::ui::newControlHandle();
    m_pCtl = s;
    m_hWnd = s->hwnd;
    sim::ui::mapHandle(m_hWnd, this);
    return TRUE;
}
void CWnd::EnableDynamicLayout(BOOL) {}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) { return WindowProc(message, wParam, lParam); }

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT r = 0;
    switch (message) {
    case WM_COMMAND: {
        CWnd* child = FromHandle(reinterpret_cast<HWND>(lParam));
        if (child && child != this && child->OnChildNotify(message, wParam, lParam, &r))
            return r;
        if (!child && !GetParent() && m_pCtl && LOWORD(wParam) == static_cast<WORD>(m_pCtl->id) &&
            OnChildNotify(message, wParam, lParam, &r))
            return r; // a control outside a dialog hears its own notifications
        return OnCommand(wParam, lParam);
    }
    case WM_NOTIFY: {
        const auto* hdr = reinterpret_cast<const NMHDR*>(lParam);
        CWnd* child = hdr ? FromHandle(hdr->hwndFrom) : nullptr;
        if (child && child != this && child->OnChildNotify(message, wParam, lParam, &r))
            return r;
        OnNotify(wParam, lParam, &r);
        return r;
    }
    case WM_CHAR: OnChar(static_cast<UINT>(wParam), 1, 0); return 0;
    case WM_KEYDOWN: OnKeyDown(static_cast<UINT>(wParam), 1, 0); return 0;
    case WM_SETFOCUS: OnSetFocus(FromHandle(reinterpret_cast<HWND>(wParam))); return 0;
    case WM_KILLFOCUS: OnKillFocus(FromHandle(reinterpret_cast<HWND>(wParam))); return 0;
    case WM_PAINT: OnPaint(); return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE: {
        const CPoint bod(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        const UINT klavesy = static_cast<UINT>(wParam);
        if (message == WM_LBUTTONDOWN)
            OnLButtonDown(klavesy, bod);
        else if (message == WM_LBUTTONUP)
            OnLButtonUp(klavesy, bod);
        else if (message == WM_LBUTTONDBLCLK)
            OnLButtonDblClk(klavesy, bod);
        else
            OnMouseMove(klavesy, bod);
        return 0;
    }
    case WM_TIMER: OnTimer(static_cast<UINT_PTR>(wParam)); return 0;
    case WM_VSCROLL: {
        // A control of another class (a spin button) comes as a temporary CScrollBar of its handle,
        // as MFC hands out temporary objects for handles.
        CWnd* from = FromHandle(reinterpret_cast<HWND>(lParam));
        CScrollBar temporary;
        CScrollBar* bar = dynamic_cast<CScrollBar*>(from);
        if (!bar && from) {
            temporary.m_hWnd = from->m_hWnd;
            temporary.m_pCtl = from->m_pCtl;
            bar = &temporary;
        }
        OnVScroll(LOWORD(wParam), HIWORD(wParam), bar);
        temporary.m_hWnd = nullptr;
        temporary.m_pCtl = nullptr;
        return 0;
    }
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
        return reinterpret_cast<LRESULT>(CtlColor(reinterpret_cast<CDC*>(wParam),
            message == WM_CTLCOLOREDIT ? CTLCOLOR_EDIT : CTLCOLOR_STATIC));
    default: return 0;
    }
}

BOOL CWnd::OnCommand(WPARAM, LPARAM) { return FALSE; }
BOOL CWnd::OnNotify(WPARAM, LPARAM, LRESULT*) { return FALSE; }
BOOL CWnd::OnChildNotify(UINT, WPARAM, LPARAM, LRESULT*) { return FALSE; }
HBRUSH CWnd::CtlColor(CDC*, UINT) { return nullptr; }
void CWnd::OnVScroll(UINT, UINT, CScrollBar*) {}

void CWnd::OnChar(UINT nChar, UINT, UINT)
{
    AFX_CTLSTATE& s = st(this);
    if (!isEditLike(s) || s.readOnly)
        return;
    if (nChar == VK_BACK) {
        if (s.selStart == s.selEnd && s.selStart > 0)
            --s.selStart;
        if (s.selStart != s.selEnd)
            replaceSelection(this, L"");
        return;
    }
    if (nChar < 0x20)
        return;
    const int selected = std::abs(s.selEnd - s.selStart);
    if (s.text.size() - static_cast<size_t>(selected) + 1 > editLimit(s)) {
        ::MessageBeep(0);
        return;
    }
    ++s.acceptedChars;
    replaceSelection(this, std::wstring(1, static_cast<wchar_t>(nChar)));
}

void CWnd::OnKeyDown(UINT nChar, UINT, UINT)
{
    AFX_CTLSTATE& s = st(this);
    if (!isEditLike(s) || s.readOnly || nChar != VK_DELETE)
        return;
    if (s.selStart == s.selEnd && s.selEnd < static_cast<int>(s.text.size()))
        ++s.selEnd;
    if (s.selStart != s.selEnd)
        replaceSelection(this, L"");
}

void CWnd::OnSetFocus(CWnd*) {}
void CWnd::OnKillFocus(CWnd*) {}
void CWnd::OnPaint() {}
void CWnd::OnLButtonUp(UINT, CPoint) {}
void CWnd::OnMouseMove(UINT, CPoint) {}
void CWnd::OnTimer(UINT_PTR) {}

// A list box selects the item under the button; a double click tells the parent too.
void CWnd::OnLButtonDown(UINT, CPoint point)
{
    auto* list = dynamic_cast<CListBox*>(this);
    if (!list || !m_pCtl || m_pCtl->items.empty())
        return;
    BOOL mimo = FALSE;
    const int i = static_cast<int>(list->ItemFromPoint(point, mimo));
    if (mimo)
        return;
    if (m_pCtl->style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL))
        list->SetSel(i, list->GetSel(i) ? FALSE : TRUE);
    else
        list->SetCurSel(i);
    if (m_pCtl->parent)
        m_pCtl->parent->SendMessage(WM_COMMAND, MAKEWPARAM(m_pCtl->id, LBN_SELCHANGE), reinterpret_cast<LPARAM>(m_hWnd));
}

void CWnd::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    OnLButtonDown(nFlags, point);
    if (m_pCtl && m_pCtl->parent && m_pCtl->kind == Kind::List)
        m_pCtl->parent->SendMessage(WM_COMMAND, MAKEWPARAM(m_pCtl->id, LBN_DBLCLK), reinterpret_cast<LPARAM>(m_hWnd));
}

CPaintDC::~CPaintDC()
{
    if (!m_pWnd)
        return;
    AFX_CTLSTATE& s = st(m_pWnd);
    s.painted.clear();
    for (const auto& t : m_texts)
        s.painted.emplace_back(t.GetString());
}

// ---------------------------------------------------------------------------------------------
// Controls of a dialog by id

CWnd* CWnd::GetDlgItem(int nID) const
{
    const auto* d = dynamic_cast<const CDialog*>(this);
    if (!d || !d->m_pDlg)
        return nullptr;
    AFX_CTLSTATE* s = d->m_pDlg->find(nID);
    if (!s)
        return nullptr;
    if (s->bound)
        return s->bound;
    std::unique_ptr<CWnd> w;
    switch (s->kind) {
    case Kind::PushButton:
    case Kind::CheckBox:
    case Kind::ThreeState:
    case Kind::Radio:
    case Kind::GroupBox: w = std::make_unique<CButton>(); break;
    case Kind::Edit: w = std::make_unique<CEdit>(); break;
    case Kind::Tree: w = std::make_unique<CTreeCtrl>(); break;
    case Kind::ListView: w = std::make_unique<CListCtrl>(); break;
    case Kind::List:
        if (s->className == L"ComboBox" || s->className == L"COMBOBOX")
            w = std::make_unique<CComboBox>();
        else
            w = std::make_unique<CListBox>();
        break;
    case Kind::Spin: w = std::make_unique<CSpinButtonCtrl>(); break;
    case Kind::Label: w = std::make_unique<CStatic>(); break;
    default: w = std::make_unique<CWnd>(); break;
    }
    w->m_pCtl = s;
    w->m_hWnd = s->hwnd;
    s->bound = w.get();
    sim::ui::mapHandle(s->hwnd, w.get());
    CWnd* result = w.get();
    d->m_pDlg->wrappers[nID] = std::move(w);
    return result;
}

void CWnd::SetDlgItemText(int nID, LPCWSTR lpszString)
{
    if (CWnd* w = GetDlgItem(nID))
        w->SetWindowText(lpszString);
}

int CWnd::GetDlgItemText(int nID, CString& rString) const
{
    rString.Empty();
    if (CWnd* w = GetDlgItem(nID))
        w->GetWindowText(rString);
    return rString.GetLength();
}

void CWnd::CheckDlgButton(int nIDButton, UINT nCheck)
{
    if (CWnd* w = GetDlgItem(nIDButton))
        w->m_pCtl->check = static_cast<int>(nCheck);
}

UINT CWnd::IsDlgButtonChecked(int nIDButton) const
{
    CWnd* w = GetDlgItem(nIDButton);
    return w ? static_cast<UINT>(w->m_pCtl->check) : 0;
}

void CWnd::CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton)
{
    for (int id = nIDFirstButton; id <= nIDLastButton; ++id)
        if (CWnd* w = GetDlgItem(id))
            w->m_pCtl->check = id == nIDCheckButton ? BST_CHECKED : BST_UNCHECKED;
}

int CWnd::GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton)
{
    for (int id = nIDFirstButton; id <= nIDLastButton; ++id)
        if (IsDlgButtonChecked(id) == BST_CHECKED)
            return id;
    return 0;
}

// ---------------------------------------------------------------------------------------------

CString& CString::TrimRight()
{
    while (!m_s.empty() && std::iswspace(static_cast<wint_t>(m_s.back())))
        m_s.pop_back();
    return *this;
}

CString& CString::TrimLeft()
{
    size_t i = 0;
    while (i < m_s.size() && std::iswspace(static_cast<wint_t>(m_s[i])))
        ++i;
    m_s.erase(0, i);
    return *this;
}

void CString::Format(LPCWSTR pszFormat, ...)
{
    std::vector<wchar_t> buf(256);
    for (;;) {
        va_list args;
        va_start(args, pszFormat);
        int n = std::vswprintf(buf.data(), buf.size(), pszFormat ? pszFormat : L"", args);
        va_end(args);
        if (n >= 0 && static_cast<size_t>(n) < buf.size()) {
            m_s.assign(buf.data(), static_cast<size_t>(n));
            return;
        }
        if (buf.size() > (1u << 20)) {
            m_s.clear();
            return;
        }
        buf.resize(buf.size() * 4);
    }
}

DWORD WINAPI GetSysColor(int nIndex)
{
    switch (nIndex) {
    case COLOR_WINDOW: return RGB(255, 255, 255);
    case COLOR_WINDOWTEXT: return RGB(0, 0, 0);
    case COLOR_HOTLIGHT: return RGB(0, 102, 204);
    default: return RGB(240, 240, 240);
    }
}

int WINAPI GetClassNameW(HWND hWnd, LPWSTR lpClassName, int nMaxCount)
{
    if (!lpClassName || nMaxCount <= 0)
        return 0;
    CWnd* w = CWnd::FromHandle(hWnd);
    std::wstring name;
    if (dynamic_cast<CDialog*>(w))
        name = L"#32770";
    else if (w && w->m_pCtl)
        name = w->m_pCtl->className;
    else if (!::IsWindow(hWnd))
        return 0;
    const size_t n = name.copy(lpClassName, static_cast<size_t>(nMaxCount - 1));
    lpClassName[n] = L'\0';
    return static_cast<int>(n);
}

CWnd* AfxGetMainWnd()
{
    // The host's frame as an object the dialogs can own; its handle is the main window.
    static CWnd frame;
    frame.m_hWnd = adsw_acadMainWnd();
    return &frame;
}
