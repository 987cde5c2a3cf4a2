// CListBox of the model: items with data, single or multiple selection, sorting by the list's locale
// (Czech or code points), and the layout that maps a point to an item.
#include <algorithm>
#include <clocale>

#include "sim/ui/ControlState.h"
#include "wincrt.h"

using sim::ui::Item;

namespace {

constexpr LCID kCestina = 0x0405;
constexpr LCID kAnglictina = 0x0409;

AFX_CTLSTATE& st(const CListBox* w)
{
    (void)w->GetWindowTextLength(); // makes the state of a list made outside a dialog
    return *w->m_pCtl;
}

bool multiple(const AFX_CTLSTATE& s) { return (s.style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0; }

bool valid(const AFX_CTLSTATE& s, int i) { return i >= 0 && i < static_cast<int>(s.items.size()); }

int compare(LCID locale, const std::wstring& a, const std::wstring& b)
{
    static _locale_t cesky = _create_locale(LC_ALL, "cs-CZ");
    if (locale == kCestina && cesky)
        return _wcsicoll_l(a.c_str(), b.c_str(), cesky);
    return _wcsicmp(a.c_str(), b.c_str());
}

} // namespace

int CListBox::GetCount() const { return static_cast<int>(st(this).items.size()); }

int CListBox::AddString(LPCWSTR lpszItem)
{
    AFX_CTLSTATE& s = st(this);
    int at = static_cast<int>(s.items.size());
    if (s.style & LBS_SORT) {
        const std::wstring text = lpszItem ? lpszItem : L"";
        at = 0;
        while (at < static_cast<int>(s.items.size()) && compare(s.locale, s.items[static_cast<size_t>(at)].text, text) <= 0)
            ++at;
    }
    return InsertString(at, lpszItem);
}

int CListBox::InsertString(int nIndex, LPCWSTR lpszItem)
{
    AFX_CTLSTATE& s = st(this);
    const int n = static_cast<int>(s.items.size());
    if (nIndex < 0)
        nIndex = n;
    if (nIndex > n)
        return LB_ERR;
    Item item;
    item.text = lpszItem ? lpszItem : L"";
    s.items.insert(s.items.begin() + nIndex, item);
    if (s.selectedItem >= nIndex)
        ++s.selectedItem;
    return nIndex;
}

int CListBox::DeleteString(UINT nIndex)
{
    AFX_CTLSTATE& s = st(this);
    const int i = static_cast<int>(nIndex);
    if (!valid(s, i))
        return LB_ERR;
    s.items.erase(s.items.begin() + i);
    if (s.selectedItem == i)
        s.selectedItem = -1;
    else if (s.selectedItem > i)
        --s.selectedItem;
    s.topIndex = std::clamp(s.topIndex, 0, std::max(0, static_cast<int>(s.items.size()) - 1));
    return static_cast<int>(s.items.size());
}

void CListBox::ResetContent()
{
    AFX_CTLSTATE& s = st(this);
    s.items.clear();
    s.selectedItem = -1;
    s.topIndex = 0;
}

int CListBox::GetText(int nIndex, CString& rString) const
{
    const AFX_CTLSTATE& s = st(this);
    if (!valid(s, nIndex))
        return LB_ERR;
    rString = s.items[static_cast<size_t>(nIndex)].text.c_str();
    return rString.GetLength();
}

int CListBox::GetTextLen(int nIndex) const
{
    const AFX_CTLSTATE& s = st(this);
    return valid(s, nIndex) ? static_cast<int>(s.items[static_cast<size_t>(nIndex)].text.size()) : LB_ERR;
}

int CListBox::FindStringExact(int nIndexStart, LPCWSTR lpszFind) const
{
    const AFX_CTLSTATE& s = st(this);
    const int n = static_cast<int>(s.items.size());
    for (int k = 1; k <= n; ++k) {
        const int i = (nIndexStart + k + n) % n;
        if (_wcsicmp(s.items[static_cast<size_t>(i)].text.c_str(), lpszFind ? lpszFind : L"") == 0)
            return i;
    }
    return LB_ERR;
}

int CListBox::GetCurSel() const
{
    const AFX_CTLSTATE& s = st(this);
    return valid(s, s.selectedItem) ? s.selectedItem : LB_ERR;
}

int CListBox::SetCurSel(int nSelect)
{
    AFX_CTLSTATE& s = st(this);
    if (multiple(s))
        return LB_ERR;
    s.selectedItem = valid(s, nSelect) ? nSelect : -1;
    return nSelect < 0 || valid(s, nSelect) ? s.selectedItem : LB_ERR;
}

int CListBox::GetSel(int nIndex) const
{
    const AFX_CTLSTATE& s = st(this);
    if (!valid(s, nIndex))
        return LB_ERR;
    return multiple(s) ? (s.items[static_cast<size_t>(nIndex)].selected ? 1 : 0) : (s.selectedItem == nIndex ? 1 : 0);
}

int CListBox::SetSel(int nIndex, BOOL bSelect)
{
    AFX_CTLSTATE& s = st(this);
    if (!multiple(s))
        return LB_ERR;
    if (nIndex == -1) {
        for (Item& it : s.items)
            it.selected = bSelect != FALSE;
        return 0;
    }
    if (!valid(s, nIndex))
        return LB_ERR;
    s.items[static_cast<size_t>(nIndex)].selected = bSelect != FALSE;
    s.selectedItem = nIndex;
    return 0;
}

int CListBox::GetSelCount() const
{
    const AFX_CTLSTATE& s = st(this);
    if (!multiple(s))
        return LB_ERR;
    return static_cast<int>(std::count_if(s.items.begin(), s.items.end(), [](const Item& it) { return it.selected; }));
}

int CListBox::GetSelItems(int nMaxItems, LPINT rgIndex) const
{
    const AFX_CTLSTATE& s = st(this);
    if (!multiple(s) || !rgIndex)
        return LB_ERR;
    int n = 0;
    for (size_t i = 0; i < s.items.size() && n < nMaxItems; ++i)
        if (s.items[i].selected)
            rgIndex[n++] = static_cast<int>(i);
    return n;
}

DWORD_PTR CListBox::GetItemData(int nIndex) const
{
    const AFX_CTLSTATE& s = st(this);
    return valid(s, nIndex) ? s.items[static_cast<size_t>(nIndex)].data : static_cast<DWORD_PTR>(LB_ERR);
}

int CListBox::SetItemData(int nIndex, DWORD_PTR dwItemData)
{
    AFX_CTLSTATE& s = st(this);
    if (!valid(s, nIndex))
        return LB_ERR;
    s.items[static_cast<size_t>(nIndex)].data = dwItemData;
    return 0;
}

int CListBox::GetTopIndex() const { return st(this).topIndex; }

int CListBox::SetTopIndex(int nIndex)
{
    AFX_CTLSTATE& s = st(this);
    if (nIndex < 0 || (nIndex > 0 && !valid(s, nIndex)))
        return LB_ERR;
    s.topIndex = nIndex;
    return 0;
}

int CListBox::GetItemHeight(int) const { return sim::ui::kItemHeight; }

UINT CListBox::ItemFromPoint(CPoint pt, BOOL& bOutside) const
{
    const AFX_CTLSTATE& s = st(this);
    RECT r{};
    GetClientRect(&r);
    const int n = static_cast<int>(s.items.size());
    const int radek = pt.y < 0 ? -1 : static_cast<int>(pt.y) / sim::ui::kItemHeight;
    const int i = s.topIndex + radek;
    bOutside = pt.x < r.left || pt.x >= r.right || pt.y < r.top || pt.y >= r.bottom || radek < 0 || i >= n;
    return static_cast<UINT>(std::clamp(i, 0, std::max(0, n - 1)));
}

LCID CListBox::GetLocale() const { return st(this).locale; }

LCID CListBox::SetLocale(LCID nNewLocale)
{
    AFX_CTLSTATE& s = st(this);
    if (nNewLocale != kCestina && nNewLocale != kAnglictina)
        return static_cast<LCID>(LB_ERR);
    return std::exchange(s.locale, nNewLocale);
}
