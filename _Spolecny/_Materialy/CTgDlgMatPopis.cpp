// The label format dialog.
#include "StdAfx.h"
#include "CTgDlgMatPopis.h"

namespace {

const DLGITEMRES kPrvky[] = {
    {-1, WC_STATICW, L"Prefix popisu:", SS_LEFT},
    {CTgDlgMatPopis::IDC_PREFIX, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {-1, WC_STATICW, L"Suffix popisu:", SS_LEFT},
    {CTgDlgMatPopis::IDC_SUFFIX, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {CTgDlgMatPopis::IDC_VNEJSI, WC_BUTTONW, L"Vnější průměr", BS_AUTORADIOBUTTON | WS_GROUP},
    {CTgDlgMatPopis::IDC_VNITRNI, WC_BUTTONW, L"Vnitřní průměr", BS_AUTORADIOBUTTON},
    {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON | WS_GROUP},
    {IDCANCEL, WC_BUTTONW, L"Zrušit", BS_PUSHBUTTON},
};
const DLGRESOURCE kZdroj = {CTgDlgMatPopis::IDD, L"Zadej formát popisu", 180, 100, kPrvky,
                            static_cast<int>(sizeof(kPrvky) / sizeof(kPrvky[0]))};

} // namespace

CTgDlgMatPopis::CTgDlgMatPopis(const ACHAR* prefix, const ACHAR* suffix, bool vnitrni, CWnd* pRodic)
    : CTgAcDialog(IDD, pRodic, L""), m_prefix(prefix), m_suffix(suffix), m_vnitrni(vnitrni),
      m_edPrefix(nullptr, nullptr, nullptr, L"Maximální délka je omezena na 6 znaků", nullptr, true, 6),
      m_edSuffix(nullptr, nullptr, nullptr, L"Maximální délka je omezena na 6 znaků", nullptr, true, 6)
{
    AfxRegisterDlgResource(&kZdroj);
}

void CTgDlgMatPopis::DoDataExchange(CDataExchange* pDX)
{
    CTgAcDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_PREFIX, m_edPrefix);
    DDX_Control(pDX, IDC_SUFFIX, m_edSuffix);
}

BOOL CTgDlgMatPopis::OnInitDialog()
{
    CTgAcDialog::OnInitDialog();
    m_edPrefix.SetWindowText(m_prefix);
    m_edSuffix.SetWindowText(m_suffix);
    CheckRadioButton(IDC_VNEJSI, IDC_VNITRNI, m_vnitrni ? IDC_VNITRNI : IDC_VNEJSI);
    return TRUE;
}

void CTgDlgMatPopis::OnOK()
{
    m_edPrefix.GetWindowText(m_prefix);
    m_edSuffix.GetWindowText(m_suffix);
    m_vnitrni = IsDlgButtonChecked(IDC_VNITRNI) == BST_CHECKED;
    CTgAcDialog::OnOK();
}
