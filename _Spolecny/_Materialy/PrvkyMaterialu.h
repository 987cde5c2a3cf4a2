// What the picker and the editor share: the controls of their resources (filters, the list of
// materials, the tree-list's placeholder, the material's values), the display of a material's values
// and the help file.
#pragma once
#include <vector>

#include <afxwin.h>

class CTogMaterial;

/// The shared controls, the values disabled (the editor enables them while it edits).
const std::vector<DLGITEMRES>& PrvkyMaterialu();
/// Fills the drop-downs of the PN and SDr tables.
void NaplnTabulkyMaterialu(CWnd& dialog);
/// The material's values in the controls; null clears them.
void ZobrazHodnotyMaterialu(CWnd& dialog, const CTogMaterial* material);
/// Opens the catalogue's help file at the context (4 the picker, 5 the editor).
void OtevriNapovedu(HWND vlastnik, int kontext);
