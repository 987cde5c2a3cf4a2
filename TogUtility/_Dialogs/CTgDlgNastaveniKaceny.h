// CTgDlgNastaveniKaceny: the settings of the level mark. It stores nothing itself: the command fills
// its members before the run and takes them back on OK. Two quick choices (relative and absolute
// mark) set a group of values at once, and the dialog keeps them in step with the single values.
#pragma once
#include <afxwin.h>

#include "AcString.h"
#include "CCheckedEdit.h"
#include "CTgAcDialog.h"

class CTgDlgNastaveniKaceny : public CTgAcDialog {
public:
    enum { IDD = 300 };
    enum : int {
        IDC_ZNAMENKO = 301,
        IDC_DESMIST = 302,
        IDC_ZADAVAT = 303,
        IDC_MILIMETRY = 304,
        IDC_METRY = 305,
        IDC_JINE = 307,
        IDC_ZBOD_Y = 308,
        IDC_ZBOD_X = 309,
        IDC_PICK = 310,
        IDC_RELATIVNI = 311,
        IDC_ABSOLUTNI = 313,
        IDC_PREPOCET = 314,
        IDC_VICERADKOVY = 315,
        IDC_POPISPOD = 316,
        IDC_VYSKA = 104,
        IDC_PRIDAT_ABSOLUTNI = 148,
        IDC_NULA_ABSOLUTNI = 149,
        IDC_MNM = 150,
        IDC_UCS = 356,
    };
    /// The value that stands for an empty number field.
    static constexpr double kPrazdne = -1000.0;

    explicit CTgDlgNastaveniKaceny(CWnd* pRodic = nullptr);

    // The values, exchanged with the command's state.
    bool m_znamenko = true;
    int m_desetinnaMista = 3;
    double m_prepocet = 0.001;
    double m_vyska = 0.0; ///< reference height in level units
    double m_zbodX = 0.0;
    double m_zbodY = 0.0;
    AcString m_popisPod;
    bool m_ptatSe = false;
    bool m_viceradkovy = false;
    bool m_pridatAbsolutni = false;
    double m_nulaAbsolutni = 0.0;
    AcString m_ucs;
    /// Off for the one check that follows a quick choice, so that the choice's own changes don't
    /// undo it.
    bool m_kontrolaZapnuta = true;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

    void RychlaVolba(bool relativni);
    void Prekontroluj();
    void Dostupnost(bool relativni);
    /// The units radio from the factor field.
    void JednotkyPodlePrepoctu();
    void VyberBod();

    bool CtiCislo(CDoubleEdit& pole, double& hodnota);
    void NastavCislo(CDoubleEdit& pole, double hodnota);

    CDoubleEdit m_edPrepocet{kPrazdne, L"Musíte zadat desetinné číslo!!", L"Chybný vstup"};
    CDoubleEdit m_edX{kPrazdne, L"Musíte zadat desetinné číslo!!", L"Chybný vstup"};
    CDoubleEdit m_edY{kPrazdne, L"Musíte zadat desetinné číslo!!", L"Chybný vstup"};
    CDoubleEdit m_edVyska{kPrazdne, L"Musíte zadat desetinné číslo!!", L"Chybný vstup"};
    CDoubleEdit m_edNula{kPrazdne, L"Musíte zadat desetinné číslo!!", L"Chybný vstup"};
    CComboBox m_desMist;
};
