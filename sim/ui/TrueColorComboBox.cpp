// The host's colour combo box: its list of colours and their names; the control shows the name of
// the selected colour.
#include "acuiComboBox.h"

#include <cwchar>

#include "sim/ui/ControlState.h"

namespace {

AcString NazevBarvy(const AcCmColor& c)
{
    if (c.isByLayer())
        return L"DleHlad";
    if (c.isByBlock())
        return L"DleBlok";
    static const wchar_t* const kStandardni[] = {L"Červená", L"Žlutá", L"Zelená", L"Azurová", L"Modrá", L"Purpurová", L"Bílá"};
    wchar_t text[40];
    if (c.isByACI()) {
        int i = c.colorIndex();
        if (i >= 1 && i <= 7)
            return kStandardni[i - 1];
        std::swprintf(text, 40, L"Barva %d", i);
        return text;
    }
    std::swprintf(text, 40, L"RGB:%u,%u,%u", c.red(), c.green(), c.blue());
    return text;
}

} // namespace

CAcUiTrueColorComboBox::CAcUiTrueColorComboBox()
{
    m_barvy.emplace_back(AcCmEntityColor::kByLayer);
    m_barvy.emplace_back(AcCmEntityColor::kByBlock);
    for (Adesk::UInt16 i = 1; i <= 7; ++i) {
        AcCmColor c;
        c.setColorIndex(i);
        m_barvy.push_back(c);
    }
    m_standardnich = static_cast<int>(m_barvy.size());
}

int CAcUiTrueColorComboBox::SetCurSel(int nSelect)
{
    m_vyber = nSelect >= 0 && nSelect < GetCount() ? nSelect : -1;
    Zobraz();
    return m_vyber;
}

int CAcUiTrueColorComboBox::FindItemByColor(const AcCmColor& color) const
{
    for (int i = 0; i < GetCount(); ++i)
        if (m_barvy[static_cast<size_t>(i)] == color)
            return i;
    return -1;
}

int CAcUiTrueColorComboBox::AddItemToMRU(const AcCmColor& color)
{
    int i = FindItemByColor(color);
    if (i >= 0)
        return i;
    m_barvy.insert(m_barvy.begin() + m_standardnich, color);
    if (m_vyber >= m_standardnich)
        ++m_vyber;
    Zobraz();
    return m_standardnich;
}

AcCmColor CAcUiTrueColorComboBox::GetItemColor(int index) const
{
    return index >= 0 && index < GetCount() ? m_barvy[static_cast<size_t>(index)] : AcCmColor();
}

AcString CAcUiTrueColorComboBox::GetItemText(int index) const
{
    return index >= 0 && index < GetCount() ? NazevBarvy(m_barvy[static_cast<size_t>(index)]) : AcString();
}

void CAcUiTrueColorComboBox::Zobraz()
{
    if (!m_pCtl)
        return;
    m_pCtl->items.clear();
    for (int i = 0; i < GetCount(); ++i)
        m_pCtl->items.push_back(sim::ui::Item{GetItemText(i).kwszPtr()});
    m_pCtl->selectedItem = m_vyber;
    m_pCtl->text = GetItemText(m_vyber).kwszPtr();
}
