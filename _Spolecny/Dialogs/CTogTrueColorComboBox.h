// CTogTrueColorComboBox: the host's colour combo box that shows any colour, also one its list lacks.
#pragma once
#include "acuiComboBox.h"

class CTogTrueColorComboBox : public CAcUiTrueColorComboBox {
public:
    /// Selects the colour; one that the list lacks goes to the most-recently-used part first.
    void ZobrazBarvu(const AcCmColor& barva);
};
