// CTgDlgMultiTrubky: the settings of a run of mut. Which layers form the bundle and in which order (the
// top pipe first, as drawn from left to right), the spacing in millimetres, and which pipe follows the
// picked points.
#pragma once
#include <set>
#include <vector>

#include <afxcmn.h>

#include "AcString.h"
#include "CCheckedEdit.h"
#include "CDragAndDropListBox.h"
#include "CDragAndDropListBoxMulti.h"
#include "CTgAcDialog.h"

class CTgDlgMultiTrubky : public CTgAcDialog {
public:
    enum { IDD = 2100 };
    enum : int {
        IDC_ZDROJ = 2101,
        IDC_CIL = 2103,
        IDC_VYKRES = 2104,
        IDC_STANDARDNI = 2105,
        IDC_ODEBRAT = 2106,
        IDC_Z_VYKRESU = 2107,
        IDC_ROZTEC = 2108,
        IDC_NAHORU = 2109,
        IDC_DOLU = 2110,
        IDC_OBRATIT = 2111,
        IDC_VYMAZAT = 2112,
        IDC_HORNI = 2113,
        IDC_STRED = 2114,
        IDC_SPODNI = 2115,
        IDC_PRIDAT = 2116,
        IDC_MM = 2117,
        IDC_CISELNIK = 2118,
    };

    /// hladiny: the bundle, edited in place and replaced on OK only. roztec: whole millimetres.
    CTgDlgMultiTrubky(std::vector<AcString>* hladiny, const CString& roztec, int typVedeni, CWnd* pRodic = nullptr);

    CString m_roztec;
    int m_typVedeni;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    /// The left list from the standard pipe layers or the layers of the drawing.
    void NaplnZdroj(bool zVykresu);
    /// The layers of the drawing, without those of external references.
    void NactiHladinyVykresu();
    void Pridej();
    void Odeber();
    void Posun(int smer);
    void Obrat();
    void VyberZVykresu();
    /// A step of the spinner: the text follows the position, or the typed value.
    void Krok(NMUPDOWN& krok);

    std::vector<AcString>* m_hladiny;
    std::set<AcString> m_standardni;
    std::set<AcString> m_vykresu;
    CDragAndDropListBoxMulti m_zdroj;
    CDragAndDropListBox m_cil;
    CCheckedEdit m_edRoztec;
    CSpinButtonCtrl m_ciselnik;
};
