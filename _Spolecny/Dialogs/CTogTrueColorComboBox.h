// CTogTrueColorComboBox: the host's colour list with one more operation, the selection of any colour.
#pragma once
#include "acuiComboBox.h"

class CTogTrueColorComboBox : public CAcUiTrueColorComboBox {
public:
    /// Selects the colour's item; a colour the list lacks joins the recent colours first. False when
    /// there is still no item for it.
    bool NastavBarvu(const AcCmColor& barva);
};
