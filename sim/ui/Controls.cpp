// The control classes of the model: buttons, edits with their balloon tips, the tree with check boxes
// and the tooltip control.
#include <algorithm>

#include "sim/core/Session.h"
#include "sim/ui/ControlState.h"
#include "sim/ui/DialogView.h"

namespace {

AFX_CTLSTATE& st(const CWnd* w)
{
    // Every accessor of CWnd makes a state on demand; GetWindowTextLength is the cheapest of them.
    (void)w->GetWindowTextLength();
    return *w->m_pCtl;
}

// HTREEITEM is the item's index + 1.
int indexOf(HTREEITEM h) { return static_cast<int>(reinterpret_cast<std::intptr_t>(h)) - 1; }
HTREEITEM handleOf(int i) { return i < 0 ? nullptr : reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(i + 1)); }

bool validItem(const AFX_CTLSTATE& s, HTREEITEM h)
{
    int i = indexOf(h);
    return i >= 0 && i < static_cast<int>(s.items.size());
}

} // namespace

int CButton::GetCheck() const { return st(this).check; }
void CButton::SetCheck(int nCheck) { st(this).check = nCheck; }
UINT CButton::GetButtonStyle() const { return static_cast<UINT>(st(this).style & BS_TYPEMASK); }

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL)
{
    AFX_CTLSTATE& s = st(this);
    const int n = static_cast<int>(s.text.size());
    if (nStartChar < 0) {
        s.selStart = s.selEnd = std::clamp(s.selEnd, 0, n);
        return;
    }
    s.selStart = std::min(nStartChar, n);
    s.selEnd = nEndChar < 0 ? n : std::min(nEndChar, n);
}

void CEdit::GetSel(int& nStartChar, int& nEndChar) const
{
    const AFX_CTLSTATE& s = st(this);
    nStartChar = std::min(s.selStart, s.selEnd);
    nEndChar = std::max(s.selStart, s.selEnd);
}

void CEdit::ReplaceSel(LPCWSTR lpszNewText, BOOL)
{
    AFX_CTLSTATE& s = st(this);
    int a = 0, b = 0;
    GetSel(a, b);
    s.text.replace(static_cast<size_t>(a), static_cast<size_t>(b - a), lpszNewText ? lpszNewText : L"");
    s.selStart = s.selEnd = a + static_cast<int>(lpszNewText ? wcslen(lpszNewText) : 0);
    // ReplaceSel reports the change as typing does.
    const WPARAM wp = MAKEWPARAM(s.id, EN_CHANGE);
    if (s.parent)
        s.parent->SendMessage(WM_COMMAND, wp, reinterpret_cast<LPARAM>(m_hWnd));
    else
        SendMessage(WM_COMMAND, wp, 0);
}

void CEdit::SetLimitText(UINT nMax) { st(this).limit = nMax; }
UINT CEdit::GetLimitText() const { return st(this).limit ? st(this).limit : 30000; }

BOOL CEdit::SetReadOnly(BOOL bReadOnly)
{
    st(this).readOnly = bReadOnly != FALSE;
    return TRUE;
}

BOOL CEdit::ShowBalloonTip(LPCWSTR lpszTitle, LPCWSTR lpszText, INT ttiIcon)
{
    sim::ui::showBalloon(st(this).id, lpszTitle ? lpszTitle : L"", lpszText ? lpszText : L"", ttiIcon);
    return TRUE;
}

BOOL CEdit::HideBalloonTip() { return TRUE; }

// ---------------------------------------------------------------------------------------------

int CComboBox::AddString(LPCWSTR lpszString)
{
    AFX_CTLSTATE& s = st(this);
    sim::ui::Item item;
    item.text = lpszString ? lpszString : L"";
    s.items.push_back(item);
    return static_cast<int>(s.items.size()) - 1;
}

void CComboBox::ResetContent()
{
    AFX_CTLSTATE& s = st(this);
    s.items.clear();
    s.selectedItem = -1;
}

int CComboBox::GetCount() const { return static_cast<int>(st(this).items.size()); }
int CComboBox::GetCurSel() const { return st(this).selectedItem; }

int CComboBox::SetCurSel(int nSelect)
{
    AFX_CTLSTATE& s = st(this);
    if (nSelect < -1 || nSelect >= static_cast<int>(s.items.size())) {
        s.selectedItem = -1;
        return -1;
    }
    s.selectedItem = nSelect;
    return nSelect;
}

void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    const AFX_CTLSTATE& s = st(this);
    rString = nIndex >= 0 && nIndex < static_cast<int>(s.items.size()) ? s.items[static_cast<size_t>(nIndex)].text.c_str()
                                                                      : L"";
}

// ---------------------------------------------------------------------------------------------

HTREEITEM CTreeCtrl::InsertItem(LPCWSTR lpszItem, HTREEITEM hParent, HTREEITEM)
{
    AFX_CTLSTATE& s = st(this);
    sim::ui::Item item;
    item.text = lpszItem ? lpszItem : L"";
    item.parent = hParent == TVI_ROOT || !validItem(s, hParent) ? -1 : indexOf(hParent);
    s.items.push_back(item);
    return handleOf(static_cast<int>(s.items.size()) - 1);
}

BOOL CTreeCtrl::DeleteAllItems()
{
    AFX_CTLSTATE& s = st(this);
    s.items.clear();
    s.selectedItem = -1;
    return TRUE;
}

UINT CTreeCtrl::GetCount() const { return static_cast<UINT>(st(this).items.size()); }

HTREEITEM CTreeCtrl::GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_CHILD); }
HTREEITEM CTreeCtrl::GetNextSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXT); }

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM hItem, UINT nCode) const
{
    const AFX_CTLSTATE& s = st(this);
    const int n = static_cast<int>(s.items.size());
    int parent = -1, from = 0;
    switch (nCode) {
    case TVGN_ROOT: break;
    case TVGN_CHILD:
        if (hItem != TVI_ROOT && hItem) {
            if (!validItem(s, hItem))
                return nullptr;
            parent = indexOf(hItem);
            from = parent + 1;
        }
        break;
    case TVGN_NEXT:
        if (!validItem(s, hItem))
            return nullptr;
        parent = s.items[static_cast<size_t>(indexOf(hItem))].parent;
        from = indexOf(hItem) + 1;
        break;
    case TVGN_CARET: return GetSelectedItem();
    default: return nullptr;
    }
    for (int i = from; i < n; ++i)
        if (s.items[static_cast<size_t>(i)].parent == parent)
            return handleOf(i);
    return nullptr;
}

HTREEITEM CTreeCtrl::GetSelectedItem() const { return handleOf(st(this).selectedItem); }

BOOL CTreeCtrl::SelectItem(HTREEITEM hItem)
{
    AFX_CTLSTATE& s = st(this);
    if (hItem && !validItem(s, hItem))
        return FALSE;
    s.selectedItem = hItem ? indexOf(hItem) : -1;
    return TRUE;
}

CString CTreeCtrl::GetItemText(HTREEITEM hItem) const
{
    const AFX_CTLSTATE& s = st(this);
    return validItem(s, hItem) ? CString(s.items[static_cast<size_t>(indexOf(hItem))].text.c_str()) : CString();
}

BOOL CTreeCtrl::GetCheck(HTREEITEM hItem) const
{
    const AFX_CTLSTATE& s = st(this);
    return validItem(s, hItem) && s.items[static_cast<size_t>(indexOf(hItem))].checked ? TRUE : FALSE;
}

BOOL CTreeCtrl::SetCheck(HTREEITEM hItem, BOOL fCheck)
{
    AFX_CTLSTATE& s = st(this);
    if (!validItem(s, hItem))
        return FALSE;
    s.items[static_cast<size_t>(indexOf(hItem))].checked = fCheck != FALSE;
    return TRUE;
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const
{
    const AFX_CTLSTATE& s = st(this);
    return validItem(s, hItem) ? s.items[static_cast<size_t>(indexOf(hItem))].data : 0;
}

BOOL CTreeCtrl::SetItemData(HTREEITEM hItem, DWORD_PTR dwData)
{
    AFX_CTLSTATE& s = st(this);
    if (!validItem(s, hItem))
        return FALSE;
    s.items[static_cast<size_t>(indexOf(hItem))].data = dwData;
    return TRUE;
}

// ---------------------------------------------------------------------------------------------

namespace {

bool validRow(const AFX_CTLSTATE& s, int n) { return n >= 0 && n < static_cast<int>(s.items.size()); }

// Tells the list's parent that the selection of a row changed.
void notifySelection(CWnd* list, AFX_CTLSTATE& s, int row, bool selected)
{
    if (!s.parent || !validRow(s, row))
        return;
    NMLISTVIEW nm{};
    nm.hdr = NMHDR{s.hwnd, static_cast<UINT_PTR>(s.id), LVN_ITEMCHANGED};
    nm.iItem = row;
    nm.uChanged = LVIF_STATE;
    nm.uNewState = selected ? LVIS_SELECTED | LVIS_FOCUSED : 0;
    nm.uOldState = selected ? 0 : LVIS_SELECTED | LVIS_FOCUSED;
    nm.lParam = static_cast<LPARAM>(s.items[static_cast<size_t>(row)].data);
    (void)list;
    s.parent->SendMessage(WM_NOTIFY, static_cast<WPARAM>(s.id), reinterpret_cast<LPARAM>(&nm));
}

} // namespace

int CListCtrl::InsertColumn(int nCol, LPCWSTR lpszColumnHeading, int, int, int)
{
    AFX_CTLSTATE& s = st(this);
    const int at = std::clamp(nCol, 0, static_cast<int>(s.columns.size()));
    s.columns.insert(s.columns.begin() + at, lpszColumnHeading ? lpszColumnHeading : L"");
    return at;
}

int CListCtrl::InsertItem(int nItem, LPCWSTR lpszItem)
{
    AFX_CTLSTATE& s = st(this);
    const int at = std::clamp(nItem, 0, static_cast<int>(s.items.size()));
    sim::ui::Item item;
    item.text = lpszItem ? lpszItem : L"";
    s.items.insert(s.items.begin() + at, item);
    if (s.selectedItem >= at)
        ++s.selectedItem;
    return at;
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCWSTR lpszText)
{
    AFX_CTLSTATE& s = st(this);
    if (!validRow(s, nItem) || nSubItem < 0)
        return FALSE;
    auto& it = s.items[static_cast<size_t>(nItem)];
    if (nSubItem == 0) {
        it.text = lpszText ? lpszText : L"";
        return TRUE;
    }
    if (it.cells.size() < static_cast<size_t>(nSubItem))
        it.cells.resize(static_cast<size_t>(nSubItem));
    it.cells[static_cast<size_t>(nSubItem - 1)] = lpszText ? lpszText : L"";
    return TRUE;
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const
{
    const AFX_CTLSTATE& s = st(this);
    if (!validRow(s, nItem) || nSubItem < 0)
        return CString();
    const auto& it = s.items[static_cast<size_t>(nItem)];
    if (nSubItem == 0)
        return CString(it.text.c_str());
    return static_cast<size_t>(nSubItem) <= it.cells.size() ? CString(it.cells[static_cast<size_t>(nSubItem - 1)].c_str())
                                                            : CString();
}

BOOL CListCtrl::SetItemData(int nItem, DWORD_PTR dwData)
{
    AFX_CTLSTATE& s = st(this);
    if (!validRow(s, nItem))
        return FALSE;
    s.items[static_cast<size_t>(nItem)].data = dwData;
    return TRUE;
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const
{
    const AFX_CTLSTATE& s = st(this);
    return validRow(s, nItem) ? s.items[static_cast<size_t>(nItem)].data : 0;
}

int CListCtrl::GetItemCount() const { return static_cast<int>(st(this).items.size()); }

BOOL CListCtrl::DeleteItem(int nItem)
{
    AFX_CTLSTATE& s = st(this);
    if (!validRow(s, nItem))
        return FALSE;
    s.items.erase(s.items.begin() + nItem);
    if (s.selectedItem == nItem)
        s.selectedItem = -1;
    else if (s.selectedItem > nItem)
        --s.selectedItem;
    return TRUE;
}

BOOL CListCtrl::DeleteAllItems()
{
    AFX_CTLSTATE& s = st(this);
    s.items.clear();
    s.selectedItem = -1;
    return TRUE;
}

int CListCtrl::GetNextItem(int nItem, int nFlags) const
{
    const AFX_CTLSTATE& s = st(this);
    if (nFlags & LVNI_SELECTED)
        return s.selectedItem > nItem ? s.selectedItem : -1;
    return nItem + 1 < static_cast<int>(s.items.size()) ? nItem + 1 : -1;
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask)
{
    AFX_CTLSTATE& s = st(this);
    if (!validRow(s, nItem) || !(nMask & LVIS_SELECTED))
        return validRow(s, nItem);
    const bool select = (nState & LVIS_SELECTED) != 0;
    if (select && s.selectedItem != nItem) {
        const int old = s.selectedItem;
        s.selectedItem = nItem;
        notifySelection(this, s, old, false);
        notifySelection(this, s, nItem, true);
    } else if (!select && s.selectedItem == nItem) {
        s.selectedItem = -1;
        notifySelection(this, s, nItem, false);
    }
    return TRUE;
}

BOOL CListCtrl::SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData)
{
    AFX_CTLSTATE& s = st(this);
    if (!pfnCompare)
        return FALSE;
    const DWORD_PTR selected = validRow(s, s.selectedItem) ? s.items[static_cast<size_t>(s.selectedItem)].data : 0;
    const bool hadSelection = validRow(s, s.selectedItem);
    std::stable_sort(s.items.begin(), s.items.end(), [&](const sim::ui::Item& a, const sim::ui::Item& b) {
        return pfnCompare(static_cast<LPARAM>(a.data), static_cast<LPARAM>(b.data), static_cast<LPARAM>(dwData)) < 0;
    });
    if (hadSelection)
        for (size_t i = 0; i < s.items.size(); ++i)
            if (s.items[i].data == selected)
                s.selectedItem = static_cast<int>(i);
    return TRUE;
}

DWORD CListCtrl::SetExtendedStyle(DWORD) { return 0; }
BOOL CListCtrl::EnsureVisible(int nItem, BOOL) { return validRow(st(this), nItem); }

// ---------------------------------------------------------------------------------------------

BOOL CToolTipCtrl::Create(CWnd*, DWORD) { return TRUE; }

int CToolTipCtrl::SetMaxTipWidth(int iWidth) { return std::exchange(m_maxWidth, iWidth); }

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCWSTR lpszText)
{
    if (!pWnd)
        return FALSE;
    m_pTool = pWnd;
    m_text = lpszText;
    st(pWnd).tooltip = lpszText ? lpszText : L"";
    return TRUE;
}

void CToolTipCtrl::Activate(BOOL bActivate) { m_active = bActivate; }
