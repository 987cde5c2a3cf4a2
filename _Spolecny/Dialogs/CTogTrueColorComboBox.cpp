// The colour list: the selection of any colour.
#include "CTogTrueColorComboBox.h"

bool CTogTrueColorComboBox::NastavBarvu(const AcCmColor& barva)
{
    int polozka = FindItemByColor(barva);
    if (polozka < 0) {
        AddColorToMRU(barva);
        AddItems();
        polozka = FindItemByColor(barva);
    }
    if (polozka < 0)
        return false;
    SetCurSel(polozka);
    return true;
}
