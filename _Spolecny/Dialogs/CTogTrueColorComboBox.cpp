// The colour combo box that shows any colour.
#include "CTogTrueColorComboBox.h"

void CTogTrueColorComboBox::ZobrazBarvu(const AcCmColor& barva)
{
    int i = FindItemByColor(barva);
    if (i < 0) {
        AddItemToMRU(barva);
        i = FindItemByColor(barva);
    }
    SetCurSel(i);
}
