// CTgDlgGetDN: asks for a range of DN rows (from, to) for a generated series of profiles.
#pragma once
#include "CTgAcDialog.h"

class CTgDlgGetDN : public CTgAcDialog {
public:
    enum { IDD = 611 };
    enum : int { IDC_OD = 11057, IDC_DO = 11045 };

    explicit CTgDlgGetDN(CWnd* pRodic = nullptr);

    int m_od = 0;  ///< DN row
    int m_do = 27; ///< DN row, not below m_od after OK

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
};
