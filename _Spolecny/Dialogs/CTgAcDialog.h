// CTgAcDialog: the base of the system's dialogs. Balloon tooltips per control, a painted heading, a
// minimum size, text links, and the way out of a modal dialog to pick in the drawing and back.
#pragma once
#include <afxdialogex.h>

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "adesk.h"

class CTgAcDialog : public CDialogEx {
public:
    /// nadpis: the heading, may be empty; idIkony 0 for none; idVlastniKresby: the owner-drawn
    /// control, 0 for none.
    CTgAcDialog(UINT idd, CWnd* pRodic, const ACHAR* nadpis, UINT idIkony = 0, int idVlastniKresby = 0);
    ~CTgAcDialog() override;

    /// A balloon tooltip for the control; a second one for the same id is ignored. Called in the
    /// constructors of the dialogs.
    void PridejTooltip(int idPrvku, const ACHAR* text);
    /// Steps out of the modal dialog to the drawing: hides and disables this dialog and the further
    /// windows, enables the host's main window. Does nothing outside a modal dialog.
    void PrejdiDoEditoru(const std::vector<HWND>& dalsiOkna = {});
    /// Back from the drawing: shows and enables again what PrejdiDoEditoru hid. Throws CTogException
    /// when nothing was saved. Call it on every path after PrejdiDoEditoru.
    void VratSeZEditoru();

    struct Tooltip {
        CString text;
        std::unique_ptr<CToolTipCtrl> ovladac;
        int maxSirka = 200;
    };

protected:
    BOOL OnInitDialog() override;
    void OnPaint() override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    /// Tooltips hear each message of the dialog.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    UINT m_idd;
    std::map<int, Tooltip> m_tooltipy;
    CFont m_tucnePismo;
    CFont m_pismoNadpisu;
    CString m_nadpis;
    HICON m_ikona = nullptr;
    int m_minSirka = 0;
    int m_minVyska = 0;
    int m_idVlastniKresby;
    UINT m_idIkony;
    double m_meritkoDpi = 1.0;
    std::vector<std::pair<HWND, bool>> m_ulozenaOkna; ///< window and whether it was enabled
};
