// The prefix dialog: its resource, the state rules of its controls and the values read on OK.
#include "CTgDlgPredpony.h"

#include <afxcmn.h>

namespace {

const DLGITEMRES kPrvky[] = {
    {CTgDlgPredpony::IDC_ZPRAVA, WC_STATICW, L"Ve výkresu je jiná předpona, než je nastavená", SS_LEFT},
    {CTgDlgPredpony::IDC_POUZIT, WC_STATICW, L"Použít:", SS_LEFT},
    {CTgDlgPredpony::IDC_VYKRES, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {CTgDlgPredpony::IDC_GLOBALNI, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {CTgDlgPredpony::IDC_POUZIT_VYKRES, WC_BUTTONW, L"Předponu nastavenou ve výkresu", BS_AUTORADIOBUTTON | WS_GROUP},
    {CTgDlgPredpony::IDC_POUZIT_GLOBALNI, WC_BUTTONW, L"Globálně nastavenou předponu", BS_AUTORADIOBUTTON},
    {CTgDlgPredpony::IDC_NASTAVIT_VE_VYKRESU, WC_BUTTONW, L"Přenastavit předponu v dwg", BS_AUTOCHECKBOX | WS_GROUP},
    {CTgDlgPredpony::IDC_PREJMENOVAT, WC_BUTTONW, L"Přenastavit názvy hladin", BS_AUTOCHECKBOX},
    {CTgDlgPredpony::IDC_SLOUCIT, WC_BUTTONW, L"Sjednotit i další hladiny", BS_AUTO3STATE},
    {CTgDlgPredpony::IDC_CIZI, WC_TREEVIEWW, L"", TVS_CHECKBOXES | TVS_LINESATROOT},
    {CTgDlgPredpony::IDC_NEPTAT_SE, WC_BUTTONW, L"Příště se neptat", BS_AUTOCHECKBOX},
    {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON | WS_GROUP},
    {IDCANCEL, WC_BUTTONW, L"Zrušit", BS_PUSHBUTTON},
    {CTgDlgPredpony::IDC_NAPOVEDA, WC_BUTTONW, L"?", BS_PUSHBUTTON},
};

const DLGRESOURCE kZdroj = {CTgDlgPredpony::IDD, L"Nastavení předpon hladin", 260, 190, kPrvky,
                            static_cast<int>(sizeof(kPrvky) / sizeof(kPrvky[0]))};

} // namespace

CTgDlgPredpony::CTgDlgPredpony(CTogPredpony& predpony, const ACHAR* navrh, CWnd* pRodic)
    : CTgAcDialog(IDD, pRodic, L"Nastavení předpony"), m_neptatSe(predpony.neptatSe),
      m_pouzitGlobalni(predpony.pouzitGlobalni), m_nastavitVeVykresu(predpony.nastavitVeVykresu),
      m_prejmenovatHladiny(predpony.prejmenovatHladiny), m_sloucitDalsi(predpony.sloucitDalsi),
      m_predpony(predpony), m_rezimNastaveni(navrh != nullptr),
      m_edVykresu(JePredpona, JePismenoCislice, NaVelkePismeno, nullptr, nullptr, true, 3),
      m_edGlobalni(JePredpona, JePismenoCislice, NaVelkePismeno, nullptr, nullptr, false, 3)
{
    AfxRegisterDlgResource(&kZdroj);
    m_vykresu = predpony.PredponaVykresu();
    m_globalni = navrh ? AcString(navrh) : predpony.globalni;

    PridejTooltip(IDC_VYKRES, L"Předpona nastavená v aktuálním výkrese");
    PridejTooltip(IDC_GLOBALNI, L"Globální předpona nastavená v utilitách");
    PridejTooltip(IDC_POUZIT_VYKRES, L"Nastavit globální předponu podle předpony v aktuálním výkresu");
    PridejTooltip(IDC_POUZIT_GLOBALNI, L"Nastavit předponu ve výkresu podle globální předpony");
    PridejTooltip(IDC_NASTAVIT_VE_VYKRESU, L"Přenastavit předponu v aktuálním výkrese");
    PridejTooltip(IDC_PREJMENOVAT, L"Vyměnit předponu v názvech hladin v aktuálním výkrese");
    PridejTooltip(IDC_SLOUCIT, L"Vyměnit i další nalezené předpony v názvech hladin");
    PridejTooltip(IDC_CIZI, L"Seznam předpon nalezených v aktuálním výkrese");
    PridejTooltip(IDC_NEPTAT_SE, L"Příště se neptat a použít vždy toto nastavení");
    PridejTooltip(IDOK, L"Ukončí dialog a provede nastavené volby");
    PridejTooltip(IDCANCEL, L"Použije předponu z výkresu a nic nemění, nepřejmenovává a neslučuje");
}

void CTgDlgPredpony::DoDataExchange(CDataExchange* pDX)
{
    CTgAcDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_VYKRES, m_edVykresu);
    DDX_Control(pDX, IDC_GLOBALNI, m_edGlobalni);
    DDX_Control(pDX, IDC_CIZI, m_strom);
}

BOOL CTgDlgPredpony::OnInitDialog()
{
    CTgAcDialog::OnInitDialog();
    if (m_rezimNastaveni) {
        SetDlgItemText(IDC_ZPRAVA, L"Nastavte co s předponami v aktuálním výkrese:");
        m_neptatSe = false;
        if (CWnd* neptat = GetDlgItem(IDC_NEPTAT_SE))
            neptat->ShowWindow(SW_HIDE);
    }
    m_edVykresu.SetWindowText(m_vykresu);
    m_edGlobalni.SetWindowText(m_globalni);
    CheckRadioButton(IDC_POUZIT_VYKRES, IDC_POUZIT_GLOBALNI, m_pouzitGlobalni ? IDC_POUZIT_GLOBALNI : IDC_POUZIT_VYKRES);
    CheckDlgButton(IDC_NASTAVIT_VE_VYKRESU, m_nastavitVeVykresu ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(IDC_PREJMENOVAT, m_prejmenovatHladiny ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(IDC_SLOUCIT, m_sloucitDalsi ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(IDC_NEPTAT_SE, m_neptatSe ? BST_CHECKED : BST_UNCHECKED);

    // The search works on a copy: the object takes the set over only on OK.
    CTogPredpony hledani(m_predpony);
    hledani.NajdiCiziPredpony(m_vykresu, m_globalni);
    m_cizi = hledani.cizi;
    for (const AcString& predpona : m_cizi)
        m_strom.SetCheck(m_strom.InsertItem(predpona), m_sloucitDalsi ? TRUE : FALSE);
    if (m_cizi.empty()) {
        GetDlgItem(IDC_PREJMENOVAT)->EnableWindow(FALSE);
        GetDlgItem(IDC_SLOUCIT)->EnableWindow(FALSE);
    }
    PodleVykresu();
    return TRUE;
}

void CTgDlgPredpony::PodleVykresu()
{
    const bool prazdne = m_edVykresu.TextBezMezer().IsEmpty();
    if (prazdne)
        CheckRadioButton(IDC_POUZIT_VYKRES, IDC_POUZIT_GLOBALNI, IDC_POUZIT_GLOBALNI);
    if (CWnd* vykres = GetDlgItem(IDC_POUZIT_VYKRES))
        vykres->EnableWindow(prazdne ? FALSE : TRUE);
}

void CTgDlgPredpony::PodleStromu()
{
    int zaskrtnute = 0, vsechny = 0;
    for (HTREEITEM h = m_strom.GetRootItem(); h; h = m_strom.GetNextSiblingItem(h), ++vsechny)
        if (m_strom.GetCheck(h))
            ++zaskrtnute;
    const UINT stav = zaskrtnute == 0 ? BST_UNCHECKED : zaskrtnute == vsechny ? BST_CHECKED : BST_INDETERMINATE;
    CheckDlgButton(IDC_SLOUCIT, stav);
}

BOOL CTgDlgPredpony::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const int id = LOWORD(wParam);
    const int kod = HIWORD(wParam);
    if (id == IDC_VYKRES && kod == EN_CHANGE) {
        PodleVykresu();
        return TRUE;
    }
    if (id == IDC_SLOUCIT && kod == BN_CLICKED) {
        // The third state only mirrors single items: a click from set goes to clear.
        if (IsDlgButtonChecked(IDC_SLOUCIT) == BST_INDETERMINATE)
            CheckDlgButton(IDC_SLOUCIT, BST_UNCHECKED);
        const BOOL vse = IsDlgButtonChecked(IDC_SLOUCIT) == BST_CHECKED;
        for (HTREEITEM h = m_strom.GetRootItem(); h; h = m_strom.GetNextSiblingItem(h))
            m_strom.SetCheck(h, vse);
        return TRUE;
    }
    if (id == IDC_NAPOVEDA && kod == BN_CLICKED)
        return TRUE; // the "?" button has no action
    return CTgAcDialog::OnCommand(wParam, lParam);
}

BOOL CTgDlgPredpony::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const auto* hlavicka = reinterpret_cast<const NMHDR*>(lParam);
    if (hlavicka && hlavicka->idFrom == static_cast<UINT_PTR>(IDC_CIZI) && hlavicka->code == TVN_ITEMCHANGED) {
        const auto* zmena = reinterpret_cast<const NMTVITEMCHANGE*>(lParam);
        if ((zmena->uStateNew ^ zmena->uStateOld) & TVIS_STATEIMAGEMASK)
            PodleStromu();
        return TRUE;
    }
    return CTgAcDialog::OnNotify(wParam, lParam, pResult);
}

void CTgDlgPredpony::OnOK()
{
    // A wrong field shows its balloon and keeps the dialog open.
    for (CCheckedEdit* pole : {&m_edGlobalni, &m_edVykresu})
        if (!pole->JePlatny() && !pole->Zkontroluj())
            return;
    m_vykresu = m_edVykresu.TextBezMezer();
    m_globalni = m_edGlobalni.TextBezMezer();
    m_pouzitGlobalni = IsDlgButtonChecked(IDC_POUZIT_GLOBALNI) == BST_CHECKED;
    m_nastavitVeVykresu = IsDlgButtonChecked(IDC_NASTAVIT_VE_VYKRESU) == BST_CHECKED;
    m_prejmenovatHladiny = IsDlgButtonChecked(IDC_PREJMENOVAT) == BST_CHECKED;
    // Any state but clear counts as set.
    m_sloucitDalsi = IsDlgButtonChecked(IDC_SLOUCIT) != BST_UNCHECKED;
    m_neptatSe = !m_rezimNastaveni && IsDlgButtonChecked(IDC_NEPTAT_SE) == BST_CHECKED;
    CTgAcDialog::OnOK();
}
