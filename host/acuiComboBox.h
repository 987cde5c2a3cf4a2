// The host's colour list of its dialogs (CAcUiTrueColorComboBox): ByLayer, ByBlock, the seven standard
// colours and the recently used colours of the session, each item with its colour.
#pragma once
#include "afxwin.h"
#include "dbcolor.h"

class CAcUiTrueColorComboBox : public CWnd {
public:
    /// Fills the list anew: ByLayer, ByBlock, the colours 1 to 7, then the recent colours.
    void AddItems();
    /// Adds the colour to the session's recent colours (the list shows it after AddItems).
    void AddColorToMRU(const AcCmColor& color);
    /// The item of the colour, -1 when the list has none.
    int FindItemByColor(const AcCmColor& color);
    int GetCount() const;
    int GetCurSel() const;
    /// -1 clears the selection; gives CB_ERR for an index beyond the list.
    int SetCurSel(int nSelect);
    /// The colour of the selected item; false with nothing selected.
    bool GetCurrentItemColor(AcCmColor& color) const;
};

#define CB_ERR (-1)
