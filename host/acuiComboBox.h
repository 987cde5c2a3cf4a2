// The host's colour combo box (acui): the standard colours, by layer and by block, and a part of
// most-recently-used colours, each item showing a colour's name.
#pragma once
#include <vector>
#include "AcString.h"
#include "afxwin.h"
#include "dbcolor.h"

#ifndef CBS_DROPDOWNLIST
#define CBS_DROPDOWNLIST 0x0003L
#endif

class CAcUiTrueColorComboBox : public CWnd {
public:
    /// The list starts with DleHlad, DleBlok and the seven standard colours.
    CAcUiTrueColorComboBox();

    int GetCount() const { return static_cast<int>(m_barvy.size()); }
    /// -1 when nothing is selected.
    int GetCurSel() const { return m_vyber; }
    /// CB_ERR (-1) for an index out of the list, which clears the selection.
    int SetCurSel(int nSelect);
    /// The index of the item of exactly that colour, -1 when there is none.
    int FindItemByColor(const AcCmColor& color) const;
    /// Adds the colour to the most-recently-used part (after the standard items) unless it is there;
    /// gives its index.
    int AddItemToMRU(const AcCmColor& color);
    /// The colour of an item; by layer for an index out of the list.
    AcCmColor GetItemColor(int index) const;
    /// The text of an item ("DleHlad", "Červená", "Barva 8", "RGB:10,20,30"); empty out of the list.
    AcString GetItemText(int index) const;

private:
    /// Shows the selected item's name in the control.
    void Zobraz();

    std::vector<AcCmColor> m_barvy;
    int m_standardnich = 0;
    int m_vyber = -1;
};
