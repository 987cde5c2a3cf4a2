// The DN range dialog: two drop-downs of the DN table.
#include "StdAfx.h"
#include "CTgDlgGetDN.h"

#include "TabulkyMaterialu.h"

namespace {

const DLGITEMRES kPrvky[] = {
    {-1, WC_STATICW, L"od DN", SS_LEFT},
    {CTgDlgGetDN::IDC_OD, WC_COMBOBOXW, L"", WS_TABSTOP},
    {-1, WC_STATICW, L"do DN", SS_LEFT},
    {CTgDlgGetDN::IDC_DO, WC_COMBOBOXW, L"", WS_TABSTOP},
    {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON | WS_GROUP},
    {IDCANCEL, WC_BUTTONW, L"Zrušit", BS_PUSHBUTTON},
};
const DLGRESOURCE kZdroj = {CTgDlgGetDN::IDD, L"Vyber rozsah DN", 160, 80, kPrvky,
                            static_cast<int>(sizeof(kPrvky) / sizeof(kPrvky[0]))};

} // namespace

CTgDlgGetDN::CTgDlgGetDN(CWnd* pRodic) : CTgAcDialog(IDD, pRodic, L"") { AfxRegisterDlgResource(&kZdroj); }

BOOL CTgDlgGetDN::OnInitDialog()
{
    CTgAcDialog::OnInitDialog();
    for (int id : {IDC_OD, IDC_DO}) {
        auto* seznam = static_cast<CComboBox*>(GetDlgItem(id));
        for (const RadekDN& r : kTabulkaDN)
            seznam->AddString(r.popis);
        seznam->SetCurSel(id == IDC_OD ? m_od : m_do);
    }
    return TRUE;
}

void CTgDlgGetDN::OnOK()
{
    const int od = static_cast<CComboBox*>(GetDlgItem(IDC_OD))->GetCurSel();
    const int po = static_cast<CComboBox*>(GetDlgItem(IDC_DO))->GetCurSel();
    if (od > po) {
        MessageBoxW(m_hWnd, L"DN 'od' musí být menší nebo rovno DN 'do'", L"Togovy Utility pro AutoCad", MB_ICONINFORMATION);
        return;
    }
    m_od = od;
    m_do = po;
    CTgAcDialog::OnOK();
}
