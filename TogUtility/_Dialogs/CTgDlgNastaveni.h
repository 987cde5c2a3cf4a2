// CTgDlgNastaveni: the settings dialog. The layer prefix (global and of the drawing), the global
// switches, the conversion of old names, the annotation scales, the pipe catalogue and the current
// material, and the removal of the system's values from the drawing.
#pragma once
#include <cstdint>

#include "CCheckedEdit.h"
#include "CTgAcDialog.h"
#include "CTogPredpony.h"

class CTgDlgNastaveni : public CTgAcDialog {
public:
    enum { IDD = 350 };
    enum : int {
        IDC_PREDPONA = 110,
        IDC_PREDPONA_DWG = 111,
        IDC_PREDPONY = 136,
        IDC_VICE_OBJEKTU = 114,
        IDC_UCHOPENI = 119,
        IDC_MTEXT = 53,
        IDC_PRENASTAVIT_HLADINY = 135,
        IDC_ATRIBUTY = 133,
        IDC_JEDNORADKOVE = 134,
        IDC_BYLAYER_BARVA = 129,
        IDC_BYLAYER_TYP = 130,
        IDC_BYLAYER_TLOUSTKA = 137,
        IDC_PREVED_STYLY = 115,
        IDC_PREVED_LT = 121,
        IDC_PREVED_HLADINY = 54,
        IDC_PREVEST = 131,
        IDC_JEDNOTKY = 124,
        IDC_MERITKA = 125,
        IDC_MAZAT_MERITKA = 132,
        IDC_MATERIALY = 128,
        IDC_MATERIAL = 151,
        IDC_VYBER_MATERIAL = 126,
        IDC_SMAZAT_Z_DWG = 144,
        IDC_SKUPINY_UCHOPENI = 117,
    };
    /// The group of the registry where the dialog keeps its own values.
    static constexpr const ACHAR* kSkupina = L"Nastaveni_dlg";

    /// Reads the dialog's own values (the conversion boxes and MAZAT_MERITKA; 1 when not stored).
    CTgDlgNastaveni(CTogPredpony* predpony, const ACHAR* globalni, std::uint32_t prepinace, CWnd* pRodic = nullptr);
    /// Stores the dialog's own values as last shown, after OK and Cancel alike; never throws.
    ~CTgDlgNastaveni() override;

    // The working values; on OK the caller takes the prefix and the switches.
    CString m_globalni;
    std::uint32_t m_prepinace;
    int m_prevedStyly = 1;
    int m_prevedHladiny = 1;
    int m_prevedLT = 1;
    int m_mazatMeritka = 1;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;
    /// The dialog's own values are taken as shown; the prefix and the switches stay.
    void OnCancel() override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

    /// The controls into the working values.
    void PrevezmiHodnoty();
    /// OK only while the prefix is valid; an invalid one shows its balloon.
    void KontrolujPredponu();
    void OnPredpony();
    void OnPrevest();
    void OnMeritka();
    void OnMaterialy();
    void OnVyberMaterial();
    void OnSmazatZDwg();
    /// The name of the current material in 151.
    void ZobrazMaterial();

    CTogPredpony* m_predpony;
    CCheckedEdit m_edPredpona;
};
