// The entity information dialog: its resource and the filling of its fields.
#include "StdAfx.h"
#include "CTgDlgPropInfo.h"

namespace {

constexpr DWORD kJenCteni = ES_AUTOHSCROLL | ES_READONLY;

const DLGITEMRES kPrvky[] = {
    {CTgDlgPropInfo::IDC_NADPIS_ENTITY, WC_STATICW, L"Entita:", SS_LEFT},
    {CTgDlgPropInfo::IDC_TRIDA, WC_EDITW, L"", kJenCteni},
    {CTgDlgPropInfo::IDC_HLADINA, WC_EDITW, L"", kJenCteni},
    {CTgDlgPropInfo::IDC_BARVA, WC_COMBOBOXW, L"", CBS_DROPDOWNLIST},
    {CTgDlgPropInfo::IDC_BARVA_HLADINY, WC_COMBOBOXW, L"", CBS_DROPDOWNLIST},
    {CTgDlgPropInfo::IDC_TYP_CARY, WC_EDITW, L"", kJenCteni},
    {CTgDlgPropInfo::IDC_TYP_CARY_HLADINY, WC_EDITW, L"", kJenCteni},
    {CTgDlgPropInfo::IDC_TLOUSTKA, WC_EDITW, L"", kJenCteni},
    {CTgDlgPropInfo::IDC_TLOUSTKA_HLADINY, WC_EDITW, L"", kJenCteni},
    {CTgDlgPropInfo::IDC_MERITKO, WC_EDITW, L"", kJenCteni},
    {CTgDlgPropInfo::IDC_NADPIS_BLOKU, WC_STATICW, L"Blok / XRef:", SS_LEFT},
    {CTgDlgPropInfo::IDC_BLOK, WC_EDITW, L"", kJenCteni},
    {CTgDlgPropInfo::IDC_HLADINA_REFERENCE, WC_EDITW, L"", kJenCteni},
    {CTgDlgPropInfo::IDC_BARVA_REFERENCE, WC_COMBOBOXW, L"", CBS_DROPDOWNLIST},
    {CTgDlgPropInfo::IDC_BARVA_HLADINY_REFERENCE, WC_COMBOBOXW, L"", CBS_DROPDOWNLIST},
    {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON},
};

const DLGRESOURCE kZdroj = {CTgDlgPropInfo::IDD, L"Informace o vybrané entitě", 250, 222, kPrvky,
                            static_cast<int>(sizeof(kPrvky) / sizeof(kPrvky[0]))};

} // namespace

CTgDlgPropInfo::CTgDlgPropInfo(const InfoOEntite& info, CWnd* pRodic)
    : CTgAcDialog(IDD, pRodic, L""), m_info(info)
{
    AfxRegisterDlgResource(&kZdroj);
}

void CTgDlgPropInfo::DoDataExchange(CDataExchange* pDX)
{
    CTgAcDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_BARVA, m_barva);
    DDX_Control(pDX, IDC_BARVA_HLADINY, m_barvaHladiny);
    DDX_Control(pDX, IDC_BARVA_REFERENCE, m_barvaReference);
    DDX_Control(pDX, IDC_BARVA_HLADINY_REFERENCE, m_barvaHladinyReference);
}

BOOL CTgDlgPropInfo::OnInitDialog()
{
    CTgAcDialog::OnInitDialog();
    if (!GetDlgItem(IDC_NADPIS_ENTITY) || !GetDlgItem(IDC_NADPIS_BLOKU)) {
        acutPrintf(L"\nNeznámá chyba při inicializaci dialogu!!!");
        EndDialog(IDCANCEL);
        return FALSE;
    }
    SetDlgItemText(IDC_TRIDA, m_info.trida.kwszPtr());
    SetDlgItemText(IDC_HLADINA, m_info.hladina.kwszPtr());
    SetDlgItemText(IDC_TYP_CARY, m_info.typCary.kwszPtr());
    SetDlgItemText(IDC_TYP_CARY_HLADINY, m_info.typCaryHladiny.kwszPtr());
    SetDlgItemText(IDC_TLOUSTKA, m_info.tloustka.kwszPtr());
    SetDlgItemText(IDC_TLOUSTKA_HLADINY, m_info.tloustkaHladiny.kwszPtr());
    SetDlgItemText(IDC_MERITKO, m_info.meritkoTypuCary.kwszPtr());
    m_barva.ZobrazBarvu(m_info.barva);
    m_barvaHladiny.ZobrazBarvu(m_info.barvaHladiny);
    if (m_info.vBloku) {
        SetDlgItemText(IDC_BLOK, m_info.blok.kwszPtr());
        SetDlgItemText(IDC_HLADINA_REFERENCE, m_info.hladinaReference.kwszPtr());
        m_barvaReference.ZobrazBarvu(m_info.barvaReference);
        m_barvaHladinyReference.ZobrazBarvu(m_info.barvaHladinyReference);
    } else {
        // Without a block the section goes; the platform's dialogs have no geometry, so the window
        // keeps its size there.
        for (int id = IDC_NADPIS_BLOKU; id <= IDC_BARVA_HLADINY_REFERENCE; ++id)
            if (CWnd* prvek = GetDlgItem(id))
                prvek->ShowWindow(SW_HIDE);
    }
    return TRUE;
}
