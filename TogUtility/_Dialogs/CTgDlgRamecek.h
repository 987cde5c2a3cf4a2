// CTgDlgRamecek: the sheet format calculator, the dialog of `ram`. It asks for the size of a sheet
// frame and tells at once how many A4 sheets it counts, on which plotter roll it fits and with how
// much waste, or that it goes on an office printer. Its seven values live in the drawing and in the
// registry (group DlgRamecek).
#pragma once
#include <afxcmn.h>

#include "CTgAcDialog.h"
#include "FormatVykresu.h"

class CTgDlgRamecek : public CTgAcDialog {
public:
    enum { IDD = 200 };
    enum : int {
        IDC_VYSKA = 111,
        IDC_SPIN_VYSKA = 207,
        IDC_SIRKA = 259,
        IDC_SPIN_SIRKA = 209,
        IDC_A4_VYSKA = 230,
        IDC_ROLE_VYSKA = 233,
        IDC_ODPAD_VYSKA = 234,
        IDC_A4_SIRKA = 231,
        IDC_ROLE_SIRKA = 235,
        IDC_ODPAD_SIRKA = 236,
        IDC_PRESAH = 208,
        IDC_SPIN_PRESAH = 241,
        IDC_ROZTEC = 232,
        IDC_SPIN_ROZTEC = 262,
        IDC_6MM = 255,
        IDC_NETISK = 227,
        IDC_DVOJITY = 226,
        IDC_POPIS = 136,
        IDC_FORMATY = 126,
        IDC_FORMAT_PRVNI = 211, ///< the radio buttons 211 to 218 follow the table of formats
        IDC_FORMAT_POSLEDNI = 218,
        IDC_NA_SIRKU = 228,
        IDC_NA_VYSKU = 229,
        IDC_OKNO_TISKU = 250,
    };
    static constexpr const ACHAR* kSkupina = L"DlgRamecek";

    explicit CTgDlgRamecek(CWnd* pRodic = nullptr);

    /// The normal run: loads the stored values, control 227 usable.
    INT_PTR DoModal() override;
    /// The run for an existing frame: the caller has filled the sizes, the switches and the two small
    /// values; nothing is loaded and control 227 stays disabled.
    INT_PTR SpustProEditaci();

    /// Reads the seven values: the drawing first, then the registry, else the defaults.
    void NactiHodnoty();
    /// Writes the seven values into the drawing and into the registry; a failed store prints a line
    /// and the rest goes on.
    void UlozHodnoty();

    int m_sirka = 420; ///< W, mm
    int m_vyska = 0;   ///< H, mm
    double m_a4Sirka = 0.0;
    double m_a4Vyska = 0.0;
    int m_dvojity = 0;
    int m_popis = 1;
    int m_format = -1; ///< index of the standard format, -1 none
    int m_netisk = 0;
    int m_presah = 6; ///< length of a folding mark, mm
    int m_roztec = 6; ///< spacing of the inner frame, mm
    int m_netiskPovolen = 0;

    /// The user's last choice of the label; the larger formats take it back.
    static bool s_posledniPopis;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) override;
    void OnOK() override;

    /// The texts, the label check and, with sync on, the sketch, the format and the 914 rule.
    void Obnov();
    void ZmenaVysky();
    void ZmenaSirky();
    void VyberFormat(int index);
    /// Exchanges an integer edit; saving checks the limits, tells the user and marks the exchange
    /// failed.
    void VymenCislo(CDataExchange* pDX, int id, int& hodnota, int od, int po);

    FormatVykresu::Misto m_mistoVysky{0, false};
    FormatVykresu::Misto m_mistoSirky{0, false};
    int m_synchronizace = 0;
    bool m_chybaDat = false;
    CSpinButtonCtrl m_spinVyska;
    CSpinButtonCtrl m_spinSirka;
    CSpinButtonCtrl m_spinPresah;
    CSpinButtonCtrl m_spinRoztec;
};
