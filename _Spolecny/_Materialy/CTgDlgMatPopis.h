// CTgDlgMatPopis: the user's label format of a material: text before and after the number, and
// whether the number is the outer or the inner diameter.
#pragma once
#include "CCheckedEdit.h"
#include "CTgAcDialog.h"

class CTgDlgMatPopis : public CTgAcDialog {
public:
    enum { IDD = 610 };
    enum : int { IDC_PREFIX = 11061, IDC_SUFFIX = 11062, IDC_VNEJSI = 11015, IDC_VNITRNI = 11016 };

    CTgDlgMatPopis(const ACHAR* prefix, const ACHAR* suffix, bool vnitrni, CWnd* pRodic = nullptr);

    CString m_prefix;
    CString m_suffix;
    bool m_vnitrni;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;

    CCheckedEdit m_edPrefix;
    CCheckedEdit m_edSuffix;
};
