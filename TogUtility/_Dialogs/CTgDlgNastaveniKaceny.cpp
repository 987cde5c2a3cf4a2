// The level mark settings dialog: its resource, the quick choices, the recheck that keeps them in
// step, the availability of the absolute height and the pick of the base point.
#include "StdAfx.h"
#include "_Dialogs/CTgDlgNastaveniKaceny.h"

#include <cmath>
#include <cwchar>

#include "acedads.h"

namespace {

using D = CTgDlgNastaveniKaceny;

const DLGITEMRES kPrvky[] = {
    {D::IDC_RELATIVNI, WC_BUTTONW, L"Relativní kóta", BS_AUTORADIOBUTTON | WS_GROUP},
    {D::IDC_ABSOLUTNI, WC_BUTTONW, L"Absolutní kóty", BS_AUTORADIOBUTTON},
    {D::IDC_DESMIST, WC_COMBOBOXW, L"", WS_TABSTOP | WS_GROUP},
    {D::IDC_ZNAMENKO, WC_BUTTONW, L"Znaménko", BS_AUTOCHECKBOX},
    {D::IDC_MILIMETRY, WC_BUTTONW, L"Milimetry", BS_AUTORADIOBUTTON | WS_GROUP},
    {D::IDC_METRY, WC_BUTTONW, L"Metry", BS_AUTORADIOBUTTON},
    {D::IDC_JINE, WC_BUTTONW, L"Jiné", BS_AUTORADIOBUTTON},
    {D::IDC_PREPOCET, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {D::IDC_ZBOD_X, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {D::IDC_ZBOD_Y, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {D::IDC_PICK, WC_BUTTONW, L"Pick...", BS_PUSHBUTTON},
    {D::IDC_VYSKA, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {D::IDC_UCS, WC_STATICW, L"", SS_LEFT},
    {D::IDC_ZADAVAT, WC_BUTTONW, L"Zadávat", BS_AUTOCHECKBOX},
    {D::IDC_POPISPOD, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {D::IDC_VICERADKOVY, WC_BUTTONW, L"Víceřádkový", BS_AUTOCHECKBOX},
    {D::IDC_PRIDAT_ABSOLUTNI, WC_BUTTONW, L"Přidat absolutní výšku, +-0,00 =", BS_AUTOCHECKBOX},
    {D::IDC_NULA_ABSOLUTNI, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {D::IDC_MNM, WC_STATICW, L"m n.m.", SS_LEFT},
    {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON | WS_GROUP},
    {IDCANCEL, WC_BUTTONW, L"Zrušit", BS_PUSHBUTTON},
};

const DLGRESOURCE kZdroj = {D::IDD, L"Togovy Utility pro AutoCad", 250, 230, kPrvky,
                            static_cast<int>(sizeof(kPrvky) / sizeof(kPrvky[0]))};

bool Blizko(double a, double b) { return std::fabs(a - b) < 0.0001; }

} // namespace

CTgDlgNastaveniKaceny::CTgDlgNastaveniKaceny(CWnd* pRodic) : CTgAcDialog(IDD, pRodic, L"Nastavení výškové kóty")
{
    AfxRegisterDlgResource(&kZdroj);
    PridejTooltip(IDC_RELATIVNI, L"Nastaví parametry pro relativní stavařskou kačenu (+/-0.000)");
    PridejTooltip(IDC_ABSOLUTNI, L"Nastaví parametry pro absulutní kačenu (256.25)");
    PridejTooltip(IDC_DESMIST, L"Počet desetinných míst");
    PridejTooltip(IDC_ZNAMENKO, L"Přidat znaméno i ke kladným (+) nebo nulovým (±) hodnotám?");
    PridejTooltip(IDC_MILIMETRY, L"Výkres v milimetrech, výšková kóta v metrech (přepočet x 0.001)");
    PridejTooltip(IDC_METRY, L"Výkres v metrech, výšková kóta v metrech (bez přepočtu)");
    PridejTooltip(IDC_JINE, L"Přepočet uživatelsky zadanou hodnotou");
    PridejTooltip(IDC_PREPOCET, L"Měřítko pro přepočet jednotek výkresu a výškové kóty");
    PridejTooltip(IDC_ZBOD_X, L"Bod na základní rovině a odpovídající referenční výška, ukládá se pro pojenované UCS samostatně");
    PridejTooltip(IDC_PICK, L"Zadejte bod na rovině 0,000 přímo v Autocadu...");
    PridejTooltip(IDC_ZADAVAT, L"Vyžadovat při vkládání kačeny zadání doplňkového textu pod čarou?");
    PridejTooltip(IDC_POPISPOD, L"Zadejte doplňkový popis, který se bude psát pod čáru (třeba 1.NP...)");
    PridejTooltip(IDC_VICERADKOVY, L"Jednořádkový či víceřádkový doplňkový text pod čarou");
    PridejTooltip(IDC_PRIDAT_ABSOLUTNI, L"Přidat pod odkazovou čáru i absolutní hodnotu?");
    PridejTooltip(IDC_NULA_ABSOLUTNI, L"Zadej absolutni hodnotu odpovidajici +/-0,00");
    PridejTooltip(IDOK, L"Uložit hodnoty a vrátit se k zadávání výškové kóty");
    PridejTooltip(IDCANCEL, L"Neukládat hodnoty a vrátit se k zadávání výškové kóty");
}

void CTgDlgNastaveniKaceny::DoDataExchange(CDataExchange* pDX)
{
    CTgAcDialog::DoDataExchange(pDX);
    SetWindowText(L"Togovy Utility pro AutoCad");
    DDX_Control(pDX, IDC_PREPOCET, m_edPrepocet);
    DDX_Control(pDX, IDC_ZBOD_X, m_edX);
    DDX_Control(pDX, IDC_ZBOD_Y, m_edY);
    DDX_Control(pDX, IDC_VYSKA, m_edVyska);
    DDX_Control(pDX, IDC_NULA_ABSOLUTNI, m_edNula);
    DDX_Control(pDX, IDC_DESMIST, m_desMist);
}

void CTgDlgNastaveniKaceny::NastavCislo(CDoubleEdit& pole, double hodnota)
{
    if (hodnota == kPrazdne) {
        pole.SetWindowText(L"");
        return;
    }
    wchar_t text[64];
    std::swprintf(text, sizeof(text) / sizeof(text[0]), L"%.3f", hodnota);
    pole.SetWindowText(text);
}

bool CTgDlgNastaveniKaceny::CtiCislo(CDoubleEdit& pole, double& hodnota)
{
    if (pole.TextBezMezer().IsEmpty()) {
        hodnota = kPrazdne;
        return true;
    }
    return pole.Hodnota(hodnota);
}

BOOL CTgDlgNastaveniKaceny::OnInitDialog()
{
    CTgAcDialog::OnInitDialog();
    for (const wchar_t* polozka : {L"0", L"0.0", L"0.00", L"0.000", L"0.0000"})
        m_desMist.AddString(polozka);
    m_desMist.SetCurSel(m_desetinnaMista);
    CheckDlgButton(IDC_ZNAMENKO, m_znamenko ? BST_CHECKED : BST_UNCHECKED);
    wchar_t prepocet[64];
    std::swprintf(prepocet, sizeof(prepocet) / sizeof(prepocet[0]), L"%g", m_prepocet);
    m_edPrepocet.SetWindowText(prepocet);
    NastavCislo(m_edX, m_zbodX);
    NastavCislo(m_edY, m_zbodY);
    NastavCislo(m_edVyska, m_vyska);
    NastavCislo(m_edNula, m_nulaAbsolutni);
    SetDlgItemText(IDC_POPISPOD, m_popisPod);
    CheckDlgButton(IDC_ZADAVAT, m_ptatSe ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(IDC_VICERADKOVY, m_viceradkovy ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(IDC_PRIDAT_ABSOLUTNI, m_pridatAbsolutni ? BST_CHECKED : BST_UNCHECKED);
    AcString ucs = L"UCS: ";
    ucs += m_ucs.isEmpty() ? AcString(L"***Nepojmenovaný***") : m_ucs;
    SetDlgItemText(IDC_UCS, ucs);

    Prekontroluj();
    JednotkyPodlePrepoctu();
    // An absolute setting keeps the absolute height unavailable from the start.
    Dostupnost(IsDlgButtonChecked(IDC_ABSOLUTNI) != BST_CHECKED);
    return TRUE;
}

void CTgDlgNastaveniKaceny::RychlaVolba(bool relativni)
{
    m_kontrolaZapnuta = false;
    m_edPrepocet.SetWindowText(relativni ? L"0.001" : L"1");
    CheckDlgButton(IDC_ZNAMENKO, relativni ? BST_CHECKED : BST_UNCHECKED);
    m_desMist.SetCurSel(relativni ? 3 : 2);
    CheckRadioButton(IDC_MILIMETRY, IDC_JINE, relativni ? IDC_MILIMETRY : IDC_METRY);
    Dostupnost(relativni);
}

void CTgDlgNastaveniKaceny::Prekontroluj()
{
    if (!m_kontrolaZapnuta) {
        m_kontrolaZapnuta = true;
        return;
    }
    double v = 0.0;
    if (!m_edPrepocet.Hodnota(v))
        return;
    const bool znamenko = IsDlgButtonChecked(IDC_ZNAMENKO) == BST_CHECKED;
    const int mista = m_desMist.GetCurSel();
    if (Blizko(1.0, v) && mista == 2 && !znamenko) {
        CheckRadioButton(IDC_RELATIVNI, IDC_ABSOLUTNI, IDC_ABSOLUTNI);
        Dostupnost(false);
    } else if (Blizko(0.001, v) && mista == 3 && znamenko) {
        CheckRadioButton(IDC_RELATIVNI, IDC_ABSOLUTNI, IDC_RELATIVNI);
        Dostupnost(true);
    } else {
        CheckDlgButton(IDC_RELATIVNI, BST_UNCHECKED);
        CheckDlgButton(IDC_ABSOLUTNI, BST_UNCHECKED);
    }
}

void CTgDlgNastaveniKaceny::Dostupnost(bool relativni)
{
    if (CWnd* pridat = GetDlgItem(IDC_PRIDAT_ABSOLUTNI))
        pridat->EnableWindow(relativni);
    const bool absolutni = m_pridatAbsolutni && relativni;
    for (int id : {int(IDC_NULA_ABSOLUTNI), int(IDC_MNM)})
        if (CWnd* w = GetDlgItem(id))
            w->ShowWindow(absolutni ? SW_SHOW : SW_HIDE);
    // In absolute mode the text under the line is the computed height.
    for (int id : {int(IDC_ZADAVAT), int(IDC_POPISPOD)})
        if (CWnd* w = GetDlgItem(id))
            w->EnableWindow(!absolutni);
    if (CWnd* popis = GetDlgItem(IDC_POPISPOD))
        popis->ShowWindow(m_ptatSe ? SW_HIDE : SW_SHOW);
}

void CTgDlgNastaveniKaceny::JednotkyPodlePrepoctu()
{
    double v = 0.0;
    if (!m_edPrepocet.Hodnota(v))
        return;
    CheckRadioButton(IDC_MILIMETRY, IDC_JINE, Blizko(1.0, v) ? IDC_METRY : Blizko(0.001, v) ? IDC_MILIMETRY : IDC_JINE);
}

void CTgDlgNastaveniKaceny::VyberBod()
{
    PrejdiDoEditoru();
    ads_point bod;
    int vysledek = RTERROR;
    try {
        vysledek = acedGetPoint(nullptr, L"\nZadej bod: ", bod);
    } catch (...) {
        VratSeZEditoru();
        throw;
    }
    VratSeZEditoru();
    if (vysledek != RTNORM) {
        OnCancel();
        return;
    }
    wchar_t text[64];
    std::swprintf(text, sizeof(text) / sizeof(text[0]), L"%f", bod[X]);
    m_edX.SetWindowText(text);
    std::swprintf(text, sizeof(text) / sizeof(text[0]), L"%f", bod[Y]);
    m_edY.SetWindowText(text);
    m_edVyska.SetFocus();
    m_edVyska.SetSel(0, -1);
}

BOOL CTgDlgNastaveniKaceny::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const int id = LOWORD(wParam);
    const int kod = HIWORD(wParam);
    if (kod == BN_CLICKED) {
        switch (id) {
        case IDC_RELATIVNI: RychlaVolba(true); return TRUE;
        case IDC_ABSOLUTNI: RychlaVolba(false); return TRUE;
        case IDC_MILIMETRY:
        case IDC_METRY:
            m_edPrepocet.SetWindowText(id == IDC_MILIMETRY ? L"0.001" : L"1");
            Prekontroluj();
            return TRUE;
        case IDC_JINE:
            m_edPrepocet.SetFocus();
            Prekontroluj();
            return TRUE;
        case IDC_ZNAMENKO: Prekontroluj(); return TRUE;
        case IDC_PRIDAT_ABSOLUTNI:
            m_pridatAbsolutni = IsDlgButtonChecked(IDC_PRIDAT_ABSOLUTNI) == BST_CHECKED;
            Dostupnost(true);
            return TRUE;
        case IDC_ZADAVAT:
            m_ptatSe = IsDlgButtonChecked(IDC_ZADAVAT) == BST_CHECKED;
            if (CWnd* popis = GetDlgItem(IDC_POPISPOD))
                popis->ShowWindow(m_ptatSe ? SW_HIDE : SW_SHOW);
            return TRUE;
        case IDC_PICK: VyberBod(); return TRUE;
        default: break;
        }
    } else if (kod == EN_CHANGE && id == IDC_PREPOCET) {
        double v = 0.0;
        if (m_edPrepocet.Hodnota(v)) {
            JednotkyPodlePrepoctu();
            Prekontroluj();
        }
        return TRUE;
    } else if (kod == CBN_SELCHANGE && id == IDC_DESMIST) {
        Prekontroluj();
        return TRUE;
    }
    return CTgAcDialog::OnCommand(wParam, lParam);
}

void CTgDlgNastaveniKaceny::OnOK()
{
    for (CDoubleEdit* pole : {&m_edPrepocet, &m_edX, &m_edY, &m_edVyska, &m_edNula})
        if (!pole->JePlatny() && !pole->Zkontroluj())
            return;
    double prepocet = 0.0, x = 0.0, y = 0.0, vyska = 0.0, nula = 0.0;
    if (!m_edPrepocet.Hodnota(prepocet) || !CtiCislo(m_edX, x) || !CtiCislo(m_edY, y) || !CtiCislo(m_edVyska, vyska) ||
        !CtiCislo(m_edNula, nula))
        return;
    m_prepocet = prepocet;
    m_zbodX = x;
    m_zbodY = y;
    m_vyska = vyska;
    m_nulaAbsolutni = nula;
    m_znamenko = IsDlgButtonChecked(IDC_ZNAMENKO) == BST_CHECKED;
    m_desetinnaMista = m_desMist.GetCurSel() < 0 ? m_desetinnaMista : m_desMist.GetCurSel();
    CString popis;
    GetDlgItemText(IDC_POPISPOD, popis);
    m_popisPod = static_cast<LPCWSTR>(popis);
    m_ptatSe = IsDlgButtonChecked(IDC_ZADAVAT) == BST_CHECKED;
    m_viceradkovy = IsDlgButtonChecked(IDC_VICERADKOVY) == BST_CHECKED;
    m_pridatAbsolutni = IsDlgButtonChecked(IDC_PRIDAT_ABSOLUTNI) == BST_CHECKED;
    CTgAcDialog::OnOK();
}
