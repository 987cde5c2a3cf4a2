// The colour list of the model: its items carry their colour as item data (AcCmEntityColor's packed
// value); the recent colours are the session's, shared by every list.
#include <algorithm>
#include <string>
#include <vector>

#include "acuiComboBox.h"
#include "sim/ui/ControlState.h"

namespace {

std::vector<Adesk::UInt32>& recent()
{
    static std::vector<Adesk::UInt32> colours;
    return colours;
}

AFX_CTLSTATE& st(const CWnd* w)
{
    (void)w->GetWindowTextLength();
    return *w->m_pCtl;
}

std::wstring name(const AcCmColor& c)
{
    if (c.isByLayer())
        return L"DleHlad";
    if (c.isByBlock())
        return L"DleBlok";
    if (c.isByACI()) {
        static const wchar_t* const standard[] = {L"", L"Červená", L"Žlutá", L"Zelená", L"Azurová", L"Modrá", L"Purpurová", L"Bílá"};
        const int i = c.colorIndex();
        return i >= 1 && i <= 7 ? standard[i] : L"Barva " + std::to_wstring(i);
    }
    return L"RGB:" + std::to_wstring(c.red()) + L"," + std::to_wstring(c.green()) + L"," + std::to_wstring(c.blue());
}

void add(AFX_CTLSTATE& s, const AcCmColor& c)
{
    sim::ui::Item item;
    item.text = name(c);
    item.data = c.color();
    s.items.push_back(item);
}

} // namespace

void CAcUiTrueColorComboBox::AddItems()
{
    AFX_CTLSTATE& s = st(this);
    s.items.clear();
    s.selectedItem = -1;
    add(s, AcCmColor(AcCmEntityColor::kByLayer));
    add(s, AcCmColor(AcCmEntityColor::kByBlock));
    for (Adesk::UInt16 i = 1; i <= 7; ++i) {
        AcCmColor c;
        c.setColorIndex(i);
        add(s, c);
    }
    for (Adesk::UInt32 packed : recent()) {
        if (std::any_of(s.items.begin(), s.items.end(), [&](const sim::ui::Item& it) { return it.data == packed; }))
            continue;
        AcCmColor c;
        c.setColor(packed);
        add(s, c);
    }
}

void CAcUiTrueColorComboBox::AddColorToMRU(const AcCmColor& color)
{
    auto& r = recent();
    r.erase(std::remove(r.begin(), r.end(), color.color()), r.end());
    r.insert(r.begin(), color.color());
}

int CAcUiTrueColorComboBox::FindItemByColor(const AcCmColor& color)
{
    const AFX_CTLSTATE& s = st(this);
    for (size_t i = 0; i < s.items.size(); ++i)
        if (s.items[i].data == color.color())
            return static_cast<int>(i);
    return -1;
}

int CAcUiTrueColorComboBox::GetCount() const { return static_cast<int>(st(this).items.size()); }

int CAcUiTrueColorComboBox::GetCurSel() const
{
    const AFX_CTLSTATE& s = st(this);
    return s.selectedItem >= 0 && s.selectedItem < static_cast<int>(s.items.size()) ? s.selectedItem : CB_ERR;
}

int CAcUiTrueColorComboBox::SetCurSel(int nSelect)
{
    AFX_CTLSTATE& s = st(this);
    if (nSelect >= static_cast<int>(s.items.size()))
        return CB_ERR;
    s.selectedItem = nSelect < 0 ? -1 : nSelect;
    return s.selectedItem;
}

bool CAcUiTrueColorComboBox::GetCurrentItemColor(AcCmColor& color) const
{
    const int i = GetCurSel();
    if (i == CB_ERR)
        return false;
    color.setColor(static_cast<Adesk::UInt32>(st(this).items[static_cast<size_t>(i)].data));
    return true;
}
