// The sheet format calculator: its resource, the step spins, the refresh of the roll texts and the
// stored values.
#include "CTgDlgRamecek.h"

#include <cwchar>
#include <cwctype>

#include "CTogException.h"
#include "CTogRegistry.h"
#include "CTogXRecord.h"
#include "acutads.h"

namespace {

constexpr const ACHAR* kTitulek = L"Togovy Utility pro AutoCad";

using D = CTgDlgRamecek;

const DLGITEMRES kPrvky[] = {
    {1001, WC_STATICW, L"Výška:", SS_LEFT},
    {D::IDC_VYSKA, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {D::IDC_SPIN_VYSKA, UPDOWN_CLASSW, L"", UDS_ARROWKEYS},
    {D::IDC_A4_VYSKA, WC_STATICW, L"", SS_LEFT},
    {D::IDC_ROLE_VYSKA, WC_STATICW, L"", SS_LEFT},
    {D::IDC_ODPAD_VYSKA, WC_STATICW, L"", SS_LEFT},
    {1002, WC_STATICW, L"Šířka:", SS_LEFT},
    {D::IDC_SIRKA, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {D::IDC_SPIN_SIRKA, UPDOWN_CLASSW, L"", UDS_ARROWKEYS},
    {D::IDC_A4_SIRKA, WC_STATICW, L"", SS_LEFT},
    {D::IDC_ROLE_SIRKA, WC_STATICW, L"", SS_LEFT},
    {D::IDC_ODPAD_SIRKA, WC_STATICW, L"", SS_LEFT},
    {D::IDC_NA_SIRKU, WC_STATICW, L"[na šířku]", SS_LEFT},
    {D::IDC_NA_VYSKU, WC_STATICW, L"[na výšku]", SS_LEFT},
    {D::IDC_FORMATY, WC_BUTTONW, L"Standardní formáty", BS_GROUPBOX},
    {211, WC_BUTTONW, FormatVykresu::kFormaty[0].popis, BS_AUTORADIOBUTTON | WS_GROUP},
    {212, WC_BUTTONW, FormatVykresu::kFormaty[1].popis, BS_AUTORADIOBUTTON},
    {213, WC_BUTTONW, FormatVykresu::kFormaty[2].popis, BS_AUTORADIOBUTTON},
    {214, WC_BUTTONW, FormatVykresu::kFormaty[3].popis, BS_AUTORADIOBUTTON},
    {215, WC_BUTTONW, FormatVykresu::kFormaty[4].popis, BS_AUTORADIOBUTTON},
    {216, WC_BUTTONW, FormatVykresu::kFormaty[5].popis, BS_AUTORADIOBUTTON},
    {217, WC_BUTTONW, FormatVykresu::kFormaty[6].popis, BS_AUTORADIOBUTTON},
    {218, WC_BUTTONW, FormatVykresu::kFormaty[7].popis, BS_AUTORADIOBUTTON},
    {1003, WC_STATICW, L"Přesah značky:", SS_LEFT | WS_GROUP},
    {D::IDC_PRESAH, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {D::IDC_SPIN_PRESAH, UPDOWN_CLASSW, L"", UDS_ARROWKEYS},
    {1004, WC_STATICW, L"Rozteč rámečků:", SS_LEFT},
    {D::IDC_ROZTEC, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {D::IDC_SPIN_ROZTEC, UPDOWN_CLASSW, L"", UDS_ARROWKEYS},
    {D::IDC_6MM, WC_BUTTONW, L"6 mm", BS_PUSHBUTTON},
    {D::IDC_NETISK, WC_BUTTONW, L"Netisknout", BS_AUTOCHECKBOX},
    {D::IDC_DVOJITY, WC_BUTTONW, L"Dvojitý rámeček", BS_AUTOCHECKBOX},
    {D::IDC_POPIS, WC_BUTTONW, L"Popis rámečku", BS_AUTOCHECKBOX},
    {D::IDC_OKNO_TISKU, WC_BUTTONW, L"Nastav okno tisku", BS_PUSHBUTTON | WS_DISABLED},
    {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON | WS_GROUP},
    {IDCANCEL, WC_BUTTONW, L"Zrušit", BS_PUSHBUTTON},
};

const DLGRESOURCE kZdroj = {D::IDD, kTitulek, 300, 220, kPrvky, static_cast<int>(sizeof(kPrvky) / sizeof(kPrvky[0]))};

struct UlozenaHodnota {
    const ACHAR* nazev;
    int D::*clen;
    int vychozi;
};
// In the order they are stored.
const UlozenaHodnota kHodnoty[] = {
    {L"Presah", &D::m_presah, 12}, {L"RoztecRamecku", &D::m_roztec, 6}, {L"Horiz", &D::m_sirka, 420},
    {L"Vert", &D::m_vyska, 297},   {L"Netisk", &D::m_netisk, 0},        {L"Dvojity", &D::m_dvojity, 1},
    {L"Popis", &D::m_popis, 1},
};

// The whole number an edit begins with, 0 for none (as _wtoi reads it).
int CisloZTextu(const CString& text) { return static_cast<int>(std::wcstol(text, nullptr, 10)); }

// The edit holds exactly a whole number.
bool JeCislo(const CString& text, int& hodnota)
{
    const wchar_t* s = text;
    while (std::iswspace(static_cast<wint_t>(*s)))
        ++s;
    wchar_t* konec = nullptr;
    const long v = std::wcstol(s, &konec, 10);
    if (konec == s)
        return false;
    while (std::iswspace(static_cast<wint_t>(*konec)))
        ++konec;
    if (*konec || v < -2147483647L || v > 2147483647L)
        return false;
    hodnota = static_cast<int>(v);
    return true;
}

CString CisloJakoText(int hodnota)
{
    CString t;
    t.Format(L"%i", hodnota);
    return t;
}

} // namespace

bool CTgDlgRamecek::s_posledniPopis = true;

CTgDlgRamecek::CTgDlgRamecek(CWnd* pRodic) : CTgAcDialog(IDD, pRodic, L"Nastav rozměry výkresového rámečku")
{
    AfxRegisterDlgResource(&kZdroj);
    PridejTooltip(IDC_VYSKA, L"Svislý vnější rozměr rámečku");
    PridejTooltip(IDC_SIRKA, L"Vodorovný vnější rozměr rámečku");
    PridejTooltip(IDC_PRESAH, L"Délka značky pro skládání formátu (od vnějšího rámečku)");
    PridejTooltip(IDC_ROZTEC, L"Rozteč vnitřního a vnějšího rámečku");
    PridejTooltip(IDC_6MM, L"Nastaví rozteč rámečků na 6 mm a přesah čárky na 6 mm, ideální pro tiskárnu");
    PridejTooltip(IDC_NETISK, L"Umístí rámeček do netisknutelné hladiny");
    PridejTooltip(IDC_DVOJITY, L"Nakreslí vnitřní a vnější rámeček\n(pokud není zvoleno, kreslí pouze vnější)");
    PridejTooltip(IDC_POPIS, L"Umístí popis s rozměrem rámečku a počtem formátů do spodního pravého rohu rámečku");
    PridejTooltip(IDC_FORMATY, L"Standardních formáty");
    PridejTooltip(IDOK, L"Ukočit dialog a nakreslit rámeček");
    PridejTooltip(IDCANCEL, L"Ukočit dialog bez kreslení");
}

INT_PTR CTgDlgRamecek::DoModal()
{
    m_netiskPovolen = 1;
    NactiHodnoty();
    return CTgAcDialog::DoModal();
}

INT_PTR CTgDlgRamecek::SpustProEditaci()
{
    m_netiskPovolen = 0;
    return CTgAcDialog::DoModal();
}

void CTgDlgRamecek::NactiHodnoty()
{
    for (const UlozenaHodnota& h : kHodnoty) {
        Adesk::Int32 v = 0;
        if (CTogXRecord::NactiZX(h.nazev, v, kSkupina) || CTogRegistry::NactiHodnotu(h.nazev, kSkupina, v))
            this->*h.clen = static_cast<int>(v);
        else
            this->*h.clen = h.vychozi;
    }
}

void CTgDlgRamecek::UlozHodnoty()
{
    for (const UlozenaHodnota& h : kHodnoty) {
        const Adesk::Int32 v = this->*h.clen;
        if (!CTogXRecord::UlozDoX(h.nazev, v, kSkupina))
            acutPrintf(L"\nERROR - nelze uložit hodnotu %ls do výkresu (XRecord)", h.nazev);
        bool ulozeno = false;
        try {
            ulozeno = CTogRegistry::UlozHodnotu(h.nazev, kSkupina, v);
        } catch (const CTogException&) {
        }
        if (!ulozeno)
            acutPrintf(L"\nERROR - nelze uložit hodnotu %ls do registrů", h.nazev);
    }
}

BOOL CTgDlgRamecek::OnInitDialog()
{
    s_posledniPopis = m_popis != 0;
    CTgAcDialog::OnInitDialog();
    m_synchronizace = 1;
    Obnov();
    return TRUE;
}

void CTgDlgRamecek::VymenCislo(CDataExchange* pDX, int id, int& hodnota, int od, int po)
{
    if (!pDX->m_bSaveAndValidate) {
        SetDlgItemText(id, CisloJakoText(hodnota));
        return;
    }
    if (m_chybaDat)
        return;
    CString text;
    GetDlgItemText(id, text);
    int v = 0;
    if (!JeCislo(text, v) || v < od || v > po) {
        CString zprava;
        zprava.Format(L"Zadejte celé číslo od %d do %d.", od, po);
        MessageBoxW(m_hWnd, zprava, kTitulek, MB_OK | MB_ICONEXCLAMATION);
        if (CWnd* pole = GetDlgItem(id))
            pole->SetFocus();
        m_chybaDat = true;
        return;
    }
    hodnota = v;
}

void CTgDlgRamecek::DoDataExchange(CDataExchange* pDX)
{
    CTgAcDialog::DoDataExchange(pDX);
    SetWindowText(kTitulek);
    DDX_Control(pDX, IDC_SPIN_VYSKA, m_spinVyska);
    DDX_Control(pDX, IDC_SPIN_SIRKA, m_spinSirka);
    DDX_Control(pDX, IDC_SPIN_PRESAH, m_spinPresah);
    DDX_Control(pDX, IDC_SPIN_ROZTEC, m_spinRoztec);
    VymenCislo(pDX, IDC_VYSKA, m_vyska, 297, 4200);
    VymenCislo(pDX, IDC_SIRKA, m_sirka, 210, 4200);

    m_spinSirka.SetRange32(0, 13);
    m_spinVyska.SetRange32(0, 6);
    m_spinPresah.SetRange32(0, 25);
    m_spinRoztec.SetRange32(3, 20);
    m_mistoVysky = FormatVykresu::MistoVysky(m_vyska);
    m_mistoSirky = FormatVykresu::MistoSirky(m_sirka);
    m_spinVyska.SetPos32(m_mistoVysky.index);
    m_spinSirka.SetPos32(m_mistoSirky.index);
    Obnov();

    DDX_Check(pDX, IDC_NETISK, m_netisk);
    DDX_Check(pDX, IDC_DVOJITY, m_dvojity);
    VymenCislo(pDX, IDC_PRESAH, m_presah, 0, 25);
    VymenCislo(pDX, IDC_ROZTEC, m_roztec, 3, 20);
    if (CWnd* netisk = GetDlgItem(IDC_NETISK))
        netisk->EnableWindow(m_netiskPovolen ? TRUE : FALSE);
}

void CTgDlgRamecek::Obnov()
{
    if (m_synchronizace) {
        const bool naVysku = m_sirka <= m_vyska;
        if (CWnd* w = GetDlgItem(IDC_NA_VYSKU))
            w->ShowWindow(naVysku ? SW_SHOW : SW_HIDE);
        if (CWnd* w = GetDlgItem(IDC_NA_SIRKU))
            w->ShowWindow(naVysku ? SW_HIDE : SW_SHOW);
        m_format = FormatVykresu::IndexFormatu(m_sirka, m_vyska);
        if (m_format >= 0)
            CheckRadioButton(IDC_FORMAT_PRVNI, IDC_FORMAT_POSLEDNI, IDC_FORMAT_PRVNI + m_format);
        else
            for (int id = IDC_FORMAT_PRVNI; id <= IDC_FORMAT_POSLEDNI; ++id)
                CheckDlgButton(id, BST_UNCHECKED);
        if (FormatVykresu::OmezVysku(m_sirka, m_vyska)) {
            // Writing the edit refreshes again with the new height.
            SetDlgItemText(IDC_VYSKA, CisloJakoText(m_vyska));
            MessageBoxW(m_hWnd, L"Jeden z rozměrů musí být max. 914 (šířka plotru). Jinak se to nedá vytisknout",
                        L"Togovy Utility - příliš velký formát", MB_OK | MB_ICONINFORMATION);
        }
    }
    CheckDlgButton(IDC_POPIS, m_popis ? BST_CHECKED : BST_UNCHECKED);
    const FormatVykresu::TextyTisku t = FormatVykresu::Tisk(m_sirka, m_vyska);
    SetDlgItemText(IDC_ROLE_VYSKA, t.vyska.c_str());
    SetDlgItemText(IDC_ODPAD_VYSKA, t.odpadVysky.c_str());
    SetDlgItemText(IDC_ROLE_SIRKA, t.sirka.c_str());
    SetDlgItemText(IDC_ODPAD_SIRKA, t.odpadSirky.c_str());
}

void CTgDlgRamecek::ZmenaVysky()
{
    CString text;
    GetDlgItemText(IDC_VYSKA, text);
    m_vyska = CisloZTextu(text);
    m_a4Vyska = m_vyska / 297.0;
    m_mistoVysky = FormatVykresu::MistoVysky(m_vyska);
    m_spinVyska.SetPos32(m_mistoVysky.index);
    SetDlgItemText(IDC_A4_VYSKA, FormatVykresu::TextA4(m_a4Vyska).c_str());
    Obnov();
}

void CTgDlgRamecek::ZmenaSirky()
{
    CString text;
    GetDlgItemText(IDC_SIRKA, text);
    m_sirka = CisloZTextu(text);
    m_a4Sirka = m_sirka / 210.0;
    m_mistoSirky = FormatVykresu::MistoSirky(m_sirka);
    m_spinSirka.SetPos32(m_mistoSirky.index);
    SetDlgItemText(IDC_A4_SIRKA, FormatVykresu::TextA4(m_a4Sirka).c_str());
    Obnov();
}

void CTgDlgRamecek::VyberFormat(int index)
{
    const FormatVykresu::Format& f = FormatVykresu::kFormaty[static_cast<std::size_t>(index)];
    m_sirka = f.sirka;
    m_vyska = f.vyska;
    // The small formats go without a label; the larger take the user's last choice back.
    m_popis = index <= 1 ? 0 : (s_posledniPopis ? 1 : 0);
    m_synchronizace = 0;
    SetDlgItemText(IDC_VYSKA, CisloJakoText(m_vyska));
    SetDlgItemText(IDC_SIRKA, CisloJakoText(m_sirka));
    m_synchronizace = 1;
    Obnov();
}

BOOL CTgDlgRamecek::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const int id = LOWORD(wParam);
    const int kod = HIWORD(wParam);
    if (kod == EN_CHANGE && id == IDC_VYSKA) {
        ZmenaVysky();
        return TRUE;
    }
    if (kod == EN_CHANGE && id == IDC_SIRKA) {
        ZmenaSirky();
        return TRUE;
    }
    // The small values' spins follow their fields, as a spin follows its buddy.
    if (kod == EN_CHANGE && (id == IDC_PRESAH || id == IDC_ROZTEC)) {
        CString text;
        GetDlgItemText(id, text);
        (id == IDC_PRESAH ? m_spinPresah : m_spinRoztec).SetPos32(CisloZTextu(text));
        return TRUE;
    }
    if (kod == BN_CLICKED) {
        if (id >= IDC_FORMAT_PRVNI && id <= IDC_FORMAT_POSLEDNI) {
            VyberFormat(id - IDC_FORMAT_PRVNI);
            return TRUE;
        }
        if (id == IDC_POPIS) {
            m_popis = IsDlgButtonChecked(IDC_POPIS) == BST_CHECKED ? 1 : 0;
            s_posledniPopis = m_popis != 0;
            return TRUE;
        }
        if (id == IDC_6MM) {
            // The caption and the tip promise 6 mm for both.
            m_presah = 6;
            m_roztec = 6;
            SetDlgItemText(IDC_PRESAH, CisloJakoText(m_presah));
            SetDlgItemText(IDC_ROZTEC, CisloJakoText(m_roztec));
            return TRUE;
        }
    }
    return CTgAcDialog::OnCommand(wParam, lParam);
}

void CTgDlgRamecek::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    if (nSBCode == SB_ENDSCROLL || !pScrollBar)
        return;
    const int p = static_cast<int>(nPos);
    switch (pScrollBar->GetDlgCtrlID()) {
    case IDC_SPIN_VYSKA: SetDlgItemText(IDC_VYSKA, CisloJakoText(FormatVykresu::KrokVysky(p, m_mistoVysky))); break;
    case IDC_SPIN_SIRKA: SetDlgItemText(IDC_SIRKA, CisloJakoText(FormatVykresu::KrokSirky(p, m_mistoSirky))); break;
    // The small values count by one, as the spin's buddy.
    case IDC_SPIN_PRESAH: SetDlgItemText(IDC_PRESAH, CisloJakoText(p)); break;
    case IDC_SPIN_ROZTEC: SetDlgItemText(IDC_ROZTEC, CisloJakoText(p)); break;
    default: break;
    }
}

void CTgDlgRamecek::OnOK()
{
    m_chybaDat = false;
    UpdateData(TRUE);
    if (m_chybaDat)
        return; // a value out of its limits keeps the dialog open
    UlozHodnoty();
    EndDialog(IDOK);
}
