// CTgDlgPredpony: the dialog that asks what to do when the drawing's layer prefix differs from the
// global one (or, from the settings dialog, sets both). It works on its own copy of the choices; the
// caller (DialogPredpony) takes them over on OK.
#pragma once
#include <set>

#include "AcString.h"
#include "CCheckedEdit.h"
#include "CTgAcDialog.h"
#include "CTogPredpony.h"

class CTgDlgPredpony : public CTgAcDialog {
public:
    enum { IDD = 3000 };
    enum : int {
        IDC_VYKRES = 3010,
        IDC_GLOBALNI = 3012,
        IDC_POUZIT_VYKRES = 3013,
        IDC_POUZIT_GLOBALNI = 3014,
        IDC_PREJMENOVAT = 3015,
        IDC_SLOUCIT = 3016,
        IDC_NASTAVIT_VE_VYKRESU = 3018,
        IDC_NEPTAT_SE = 3019,
        IDC_CIZI = 3020,
        IDC_POUZIT = 3021,
        IDC_ZPRAVA = 3022,
        IDC_NAPOVEDA = 4000,
    };

    /// navrh: the proposed global prefix of the settings dialog (settings mode), null when a layer
    /// request asks. Reads the drawing prefix through the object (which stores the global prefix into a
    /// drawing that has none).
    CTgDlgPredpony(CTogPredpony& predpony, const ACHAR* navrh, CWnd* pRodic = nullptr);

    // The values, filled from the object at the start and from the controls on OK.
    AcString m_vykresu;
    AcString m_globalni;
    bool m_neptatSe;
    bool m_pouzitGlobalni;
    bool m_nastavitVeVykresu;
    bool m_prejmenovatHladiny;
    bool m_sloucitDalsi;
    std::set<AcString> m_cizi; ///< the foreign prefixes found at the start

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    /// 3014 set and 3013 disabled while the drawing field is empty.
    void PodleVykresu();
    /// 3016 shows set when all items are checked, clear when none, the third state otherwise.
    void PodleStromu();

    CTogPredpony& m_predpony;
    bool m_rezimNastaveni;
    CCheckedEdit m_edVykresu;
    CCheckedEdit m_edGlobalni;
    CTreeCtrl m_strom;
};
