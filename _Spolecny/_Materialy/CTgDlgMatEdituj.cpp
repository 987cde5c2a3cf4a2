// The material editor: its resource, the edit states of the left pane, the profile pane and its
// cells, loading catalogue files, and the commit of the working copy.
#include "StdAfx.h"
#include "CTgDlgMatEdituj.h"

#include <afx.h>
#include <commdlg.h>

#include <cwchar>
#include <vector>

#include "CTgDlgGetDN.h"
#include "CTgDlgMatPopis.h"
#include "CTogException.h"
#include "CTogRegistry.h"
#include "OkrajPrikazu.h"
#include "PrvkyMaterialu.h"
#include "TabulkyMaterialu.h"

namespace {

constexpr const ACHAR* kTitulek = L"Togovy Utility pro AutoCad";

using D = CTgDlgMatEdituj;

const std::vector<DLGITEMRES>& Prvky()
{
    static const std::vector<DLGITEMRES> prvky = [] {
        std::vector<DLGITEMRES> p = PrvkyMaterialu();
        const DLGITEMRES dalsi[] = {
            {D::IDC_NOVY, WC_BUTTONW, L"+", BS_PUSHBUTTON},
            {D::IDC_KOPIE, WC_BUTTONW, L"%", BS_PUSHBUTTON},
            {D::IDC_UPRAVIT, WC_BUTTONW, L"...", BS_PUSHBUTTON},
            {D::IDC_SMAZAT, WC_BUTTONW, L"X", BS_PUSHBUTTON},
            {D::IDC_ULOZ, WC_BUTTONW, L"Ulož..", BS_PUSHBUTTON | WS_DISABLED},
            {D::IDC_ZRUS, WC_BUTTONW, L"Zruš..", BS_PUSHBUTTON | WS_DISABLED},
            {D::IDC_PRIDEJ_PROFIL, WC_BUTTONW, L"+", BS_PUSHBUTTON},
            {D::IDC_SMAZ_PROFIL, WC_BUTTONW, L"X", BS_PUSHBUTTON},
            {D::IDC_SMAZ_PROFILY, WC_BUTTONW, L"Vymazat vše", BS_PUSHBUTTON},
            {D::IDC_GENERUJ, WC_BUTTONW, L"Generovat...", BS_PUSHBUTTON},
            {-1, WC_STATICW, L"Kód URS montáž:", SS_LEFT},
            {D::IDC_URS_MONTAZ, WC_EDITW, L"", ES_AUTOHSCROLL},
            {-1, WC_STATICW, L"Kód URS materiál:", SS_LEFT},
            {D::IDC_URS_MATERIAL, WC_EDITW, L"", ES_AUTOHSCROLL},
            {D::IDC_NACTI_SOUBOR, WC_BUTTONW, L"Načíst ze souboru...", BS_PUSHBUTTON},
            {D::IDC_NACTI_STANDARD, WC_BUTTONW, L"Načíst standardní...", BS_PUSHBUTTON},
            {D::IDC_NAPOVEDA, WC_BUTTONW, L"?", BS_PUSHBUTTON},
            {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON | WS_GROUP},
            {IDCANCEL, WC_BUTTONW, L"Zrušit", BS_PUSHBUTTON},
        };
        p.insert(p.end(), std::begin(dalsi), std::end(dalsi));
        return p;
    }();
    return prvky;
}

const DLGRESOURCE& Zdroj()
{
    static const DLGRESOURCE zdroj = {D::IDD, L"Editace materiálů", 560, 320, Prvky().data(),
                                      static_cast<int>(Prvky().size())};
    return zdroj;
}

/// The values of a material that the editor's left pane edits (enabled in states 1 to 3).
const int kPrvkyDetailu[] = {11084, 11086, 11070, 11051, 11073, 11074, 11075, 11010, 11011, 11012, 11035, 11036,
                             11037, 11038, 11039, 11087, 11088, 11078, 11080, 11076, 11077, 11079};
/// What only state 0 uses: the list, the filters, the buttons of both panes, the loads and OK.
const int kPrvkyProhlizeni[] = {11063, 11030, 11031, 11032, 11020, 11021, 11022, 11023, 11024, 11025,
                                11066, 11065, 11067, 11064, 11068, 11069, 11071, 11085, 11058, 11056, IDOK};
const int kSkupiny[] = {D::IDC_SK_ZTI, D::IDC_SK_SITE};

/// The DN rows whose neighbours bound the diameters: rows 2 to 26.
bool MaMeze(int dn) { return dn >= 2 && dn <= 26; }
double Predchozi(int dn) { return kTabulkaDN[dn - 1].dn; }
double Nasledujici(int dn) { return kTabulkaDN[dn + 1].dn; }

CString DnSeznam()
{
    CString seznam;
    for (int i = 0; i < kPocetDN; ++i) {
        if (i)
            seznam += L";";
        seznam += kTabulkaDN[i].popis;
    }
    return seznam;
}

int SloupecZaznamu(int cChildren) { return cChildren < 0 ? 0 : cChildren; }

} // namespace

CTgDlgMatEdituj::CTgDlgMatEdituj(CTogSezMaterialu* seznam, std::uint64_t filtr, CTogMaterial* vybrany, CWnd* pRodic)
    : CTgDlgMatVyber(&m_pracovni, filtr, nullptr, false, pRodic, IDD), m_skutecny(seznam),
      m_edNazev(nullptr, nullptr, nullptr, L"Maximální délka je omezena na 20 znaků", L"Příliš dlouhý název", true, 20),
      m_edPopis(nullptr, nullptr, nullptr, L"Maximální délka je omezena na 20 znaků", L"Příliš dlouhý název", true, 20),
      m_edVyrobce(nullptr, nullptr, nullptr, L"Maximální délka je omezena na 25 znaků", L"Příliš dlouhý výrobce", true, 25),
      m_edDrsnost(0.01, L"Zadej desetinné číslo od 0.01 do 3.01", L"Zadání mimo rozsah"),
      m_edUrsMontaz(nullptr, nullptr, nullptr, nullptr, nullptr, true, 10),
      m_edUrsMaterial(nullptr, nullptr, nullptr, nullptr, nullptr, true, 10)
{
    AfxRegisterDlgResource(&Zdroj());
    m_pracovni = *seznam;
    if (vybrany)
        m_material = m_pracovni.NajdiMaterial(vybrany->Nazev);
    PridejTooltip(IDC_URS_MONTAZ, L"Kód položky v ceníku URS pro montáž (volitelně)");
    PridejTooltip(IDC_URS_MATERIAL, L"Kód položky v ceníku URS pro materiál (volitelně)");
}

CTgDlgMatEdituj::~CTgDlgMatEdituj() { m_pracovni.VymazOdkazy(); }

void CTgDlgMatEdituj::DoDataExchange(CDataExchange* pDX)
{
    CTgDlgMatVyber::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_NAZEV, m_edNazev);
    DDX_Control(pDX, IDC_POPIS, m_edPopis);
    DDX_Control(pDX, IDC_VYROBCE, m_edVyrobce);
    DDX_Control(pDX, IDC_DRSNOST, m_edDrsnost);
    DDX_Control(pDX, IDC_URS_MONTAZ, m_edUrsMontaz);
    DDX_Control(pDX, IDC_URS_MATERIAL, m_edUrsMaterial);
}

BOOL CTgDlgMatEdituj::OnInitDialog()
{
    CTgDlgMatVyber::OnInitDialog();
    m_strom.EnableWindow(TRUE);
    NastavStav(kZadny);
    return TRUE;
}

void CTgDlgMatEdituj::NaplnStrom()
{
    m_strom.SendMessage(TVM_SETEXTENDEDSTYLE, 0, 0x400F0000);
    const wchar_t* nadpisy[] = {L"Profil", L"OD", L"Stěna", L"ID", L"DN", L"Sirka"};
    for (int i = 0; i < 6; ++i) {
        wchar_t text[32];
        std::wcsncpy(text, nadpisy[i], 32);
        TVCOLUMNW s{i == 0 ? 0x90000007u : 0x9000000Du, 0, i == 0 ? 80 : 1, text, 256};
        m_strom.SendMessage(TVM_INSERTCOLUMN, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&s));
    }
    for (int s : {kOD, kStena, kID}) {
        m_strom.SendMessage(TVM_SETCOLUMNAUTOEDIT, TVAE_PARAM(s, TVAE_EDIT, 5), 0);
        m_strom.SendMessage(TVM_SETCOLUMNVALUECHECK, static_cast<WPARAM>(s), -252);
    }
    const CString dn = DnSeznam();
    m_strom.SendMessage(TVM_SETCOLUMNAUTOEDIT, TVAE_PARAM(kDN, TVAE_CBLIST, 0x8D, L';', 0),
                        reinterpret_cast<LPARAM>(dn.GetString()));
    m_strom.SendMessage(TVM_SETCOLUMNVALUECHECK, kSirka, -254);
}

void CTgDlgMatEdituj::PodleTvaru(const CTogMaterial* material)
{
    const bool kruh = !material || material->Tvar == kTvarKruh;
    m_strom.SendMessage(TVM_SETCOLUMNAUTOEDIT, TVAE_PARAM(kSirka, kruh ? TVAE_NONE : TVAE_EDIT, 5), 0);
    wchar_t nadpis[8];
    std::wcsncpy(nadpis, kruh ? L"ID" : L"Výška", 8);
    TVCOLUMNW s{TVCF_TEXT, 0, 0, nadpis, 8};
    m_strom.SendMessage(TVM_SETCOLUMN, kID, reinterpret_cast<LPARAM>(&s));
}

CString CTgDlgMatEdituj::TextProfilu(const CTogProfil& p, int sloupec) const
{
    CString text;
    switch (sloupec) {
    case kProfil: text = p.Popisek; break;
    case kOD: text.Format(L"%.0f", static_cast<double>(p.Vnejsi())); break;
    case kStena: text.Format(L"%.2f", static_cast<double>(p.Stena)); break;
    case kID: text.Format(L"%.1f", static_cast<double>(p.Vnitrni)); break;
    case kDN: text = PlatneDN(p.DnIndex) ? kTabulkaDN[p.DnIndex].popis : L""; break;
    case kSirka:
        text.Format(L"%i", p.Material->Tvar != kTvarKruh ? p.Sirka : static_cast<int>(p.Vnitrni));
        break;
    default: break;
    }
    return text;
}

void CTgDlgMatEdituj::ZobrazDetaily(const CTogMaterial* material)
{
    CTgDlgMatVyber::ZobrazDetaily(material);
    PodleTvaru(material);
    if (material)
        m_parametry = material->Parametry();
}

void CTgDlgMatEdituj::VybranMaterial(CTogMaterial* material)
{
    UlozUrs();
    CTgDlgMatVyber::VybranMaterial(material);
}

void CTgDlgMatEdituj::UlozUrs()
{
    if (!m_profil)
        return;
    CString montaz, material;
    m_edUrsMontaz.GetWindowText(montaz);
    m_edUrsMaterial.GetWindowText(material);
    if (montaz != m_profil->UrsMontaz || material != m_profil->UrsMaterial) {
        m_profil->NastavUrsMontaz(montaz);
        m_profil->NastavUrsMaterial(material);
        m_profil->ZrusUlozeno();
    }
}

void CTgDlgMatEdituj::VybranProfil(CTogProfil* stary, CTogProfil* novy)
{
    if (stary && stary == m_profil)
        UlozUrs();
    m_profil = novy;
    m_edUrsMontaz.SetWindowText(novy ? novy->UrsMontaz : L"");
    m_edUrsMaterial.SetWindowText(novy ? novy->UrsMaterial : L"");
}

void CTgDlgMatEdituj::NastavStav(int stav)
{
    m_stav = stav;
    const bool upravy = stav != kZadny;
    for (int id : kPrvkyDetailu)
        if (CWnd* w = GetDlgItem(id))
            w->EnableWindow(upravy);
    for (int id : kPrvkyProhlizeni)
        if (CWnd* w = GetDlgItem(id))
            w->EnableWindow(!upravy);
    GetDlgItem(IDC_ULOZ)->EnableWindow(upravy);
    GetDlgItem(IDC_ZRUS)->EnableWindow(upravy);
    m_strom.EnableWindow(!upravy);
}

void CTgDlgMatEdituj::OnNovy()
{
    const int popis = m_material ? m_material->TypPopisu : kPopisDxT;
    m_upravovany = nullptr;
    ZobrazHodnotyMaterialu(*this, nullptr);
    m_parametry = ParametryMaterialu{};
    m_parametry.TypPopisu = popis;
    SetDlgItemText(IDC_DRSNOST, L"0.01");
    CheckRadioButton(IDC_POPIS_DN, IDC_POPIS_JINY, IDC_POPIS_DN + popis);
    CheckRadioButton(IDC_KRUH, IDC_OBDELNIK, IDC_KRUH);
    CheckDlgButton(IDC_SK_ZTI, BST_CHECKED);
    CheckDlgButton(IDC_SK_SITE, BST_CHECKED);
    for (int id : kPrvkyPouziti)
        CheckDlgButton(id, BST_CHECKED);
    m_predchoziPopis = popis;
    NastavStav(kNovy);
    m_edNazev.SetFocus();
}

void CTgDlgMatEdituj::OnKopieNeboUprava(int stav)
{
    if (!m_material)
        return;
    m_upravovany = m_material;
    ZobrazDetaily(m_material);
    m_predchoziPopis = m_material->TypPopisu;
    NastavStav(stav);
    m_edNazev.SetFocus();
}

void CTgDlgMatEdituj::OnSmazat()
{
    if (!m_material)
        return;
    const int radek = m_seznamMaterialu.GetNextItem(-1, LVNI_SELECTED);
    UlozUrs();
    if (!m_pracovni.VymazMaterial(m_material->Nazev))
        return; // a material in use stays, without a word
    m_profil = nullptr;
    m_seznamMaterialu.DeleteItem(radek);
    m_material = nullptr;
    const int pocet = m_seznamMaterialu.GetItemCount();
    VyberRadek(pocet ? reinterpret_cast<CTogMaterial*>(m_seznamMaterialu.GetItemData(std::min(radek, pocet - 1)))
                     : nullptr);
}

bool CTgDlgMatEdituj::PrevezmiDetaily()
{
    double drsnost = 0;
    if (!m_edDrsnost.Hodnota(drsnost) || drsnost < 0.01 || drsnost > 3.0) {
        m_edDrsnost.ZobrazBublinu();
        return false;
    }
    m_parametry.Nazev = m_edNazev.TextBezMezer();
    m_parametry.Popis = m_edPopis.TextBezMezer();
    if (m_parametry.Popis.IsEmpty())
        m_parametry.Popis = m_parametry.Nazev;
    m_parametry.Vyrobce = m_edVyrobce.TextBezMezer();
    GetDlgItemText(IDC_PODROBNY_POPIS, m_parametry.PodrobnyPopis);
    m_parametry.PnIndex = static_cast<CComboBox*>(GetDlgItem(IDC_PN))->GetCurSel();
    m_parametry.SdrIndex = static_cast<CComboBox*>(GetDlgItem(IDC_SDR))->GetCurSel();
    m_parametry.Drsnost = drsnost;
    m_parametry.TypPopisu = std::max(GetCheckedRadioButton(IDC_POPIS_DN, IDC_POPIS_JINY) - IDC_POPIS_DN, 0);
    m_parametry.Tvar = std::max(GetCheckedRadioButton(IDC_KRUH, IDC_OBDELNIK) - IDC_KRUH, 0);
    m_parametry.Skupina = (IsDlgButtonChecked(IDC_SK_ZTI) ? kSkupinaZTI : 0) | (IsDlgButtonChecked(IDC_SK_SITE) ? kSkupinaSite : 0);
    m_parametry.Pouziti = 0;
    for (int bit = 0; bit < 5; ++bit)
        if (IsDlgButtonChecked(kPrvkyPouziti[bit]))
            m_parametry.Pouziti |= 1 << bit;
    return true;
}

bool CTgDlgMatEdituj::UlozDetaily()
{
    if (!PrevezmiDetaily())
        return false;
    if (m_parametry.Nazev.IsEmpty()) {
        MessageBoxW(m_hWnd, L"Název nesmí být prázdný", kTitulek, MB_ICONINFORMATION);
        return false;
    }
    CTogMaterial* material = nullptr;
    if (m_stav == kNovy || m_stav == kKopie) {
        if (m_pracovni.NajdiMaterial(m_parametry.Nazev)) {
            MessageBoxW(m_hWnd,
                        L"Tento název již existuje u jiného materiálu, možná jen není zobrazen\n(přepněte filtry)",
                        kTitulek, MB_ICONINFORMATION);
            return false;
        }
        // The values are applied before the material joins the list, so that a refused value
        // leaves the list as it was.
        auto novy = std::make_unique<CTogMaterial>(&m_pracovni, m_parametry.Nazev, kSkupinyVse, kPouzitiVse);
        novy->NastavParametry(m_parametry);
        if (m_stav == kKopie && m_upravovany)
            novy->KopirujProfily(*m_upravovany);
        material = m_pracovni.Vloz(std::move(novy));
        m_pracovni.Ulozeno = false;
    } else {
        if (m_parametry.Nazev.GetLength() > 20)
            throw CTogException("Příliš dlouhý název", __LINE__, __FILE__);
        material = m_upravovany;
        if (!material)
            return false;
        if (material->Nazev != m_parametry.Nazev && !m_pracovni.Prejmenuj(m_parametry.Nazev, material)) {
            MessageBoxW(m_hWnd, L"Tento název již existuje u jiného materiálu", kTitulek, MB_ICONINFORMATION);
            return false;
        }
        m_pracovni.Ulozeno = false;
        material->NastavParametry(m_parametry);
    }
    NastavStav(kZadny);
    m_material = material;
    ObnovSeznam();
    return true;
}

void CTgDlgMatEdituj::OnZrus()
{
    NastavStav(kZadny);
    ZobrazDetaily(m_material);
}

void CTgDlgMatEdituj::OnJinyPopis()
{
    CTgDlgMatPopis popis(m_parametry.Prefix, m_parametry.Suffix, m_parametry.VnitrniPrumer, this);
    if (popis.DoModal() != IDOK) {
        CheckRadioButton(IDC_POPIS_DN, IDC_POPIS_JINY, IDC_POPIS_DN + m_predchoziPopis);
        return;
    }
    m_parametry.TypPopisu = kPopisJiny;
    m_parametry.Prefix = popis.m_prefix;
    m_parametry.Suffix = popis.m_suffix;
    m_parametry.VnitrniPrumer = popis.m_vnitrni;
    m_predchoziPopis = kPopisJiny;
}

void CTgDlgMatEdituj::AsponJeden(int id, const int* skupina, int pocet)
{
    if (IsDlgButtonChecked(id) == BST_CHECKED)
        return;
    for (int i = 0; i < pocet; ++i)
        if (IsDlgButtonChecked(skupina[i]) == BST_CHECKED)
            return;
    CheckDlgButton(id, BST_CHECKED);
    m_edNazev.ShowBalloonTip(L"Pro něco ten materiál určen být musí", L"Označte alesoň jednu možnost", TTI_ERROR);
}

void CTgDlgMatEdituj::VyberProfil(const CTogProfil* profil)
{
    if (HTREEITEM h = RadekProfilu(profil))
        m_strom.SendMessage(TVM_SELECTCHILD, 0, reinterpret_cast<LPARAM>(h));
}

void CTgDlgMatEdituj::OnPridejProfil()
{
    if (!m_material)
        return;
    const bool vybrany = m_profil != nullptr;
    int start = vybrany ? m_profil->DnIndex : 0;
    int dn = m_material->PrvniVolneDN(start);
    if (dn < 0) {
        if (!vybrany) {
            MessageBoxW(m_hWnd, L"Nelze přidat již další DN !!", kTitulek, MB_ICONINFORMATION);
            return;
        }
        if (MessageBoxW(m_hWnd, L"Nelze přidat již další DN, přidat od začátku?", kTitulek, MB_YESNO | MB_ICONQUESTION) != IDYES)
            return;
        start = 0;
        dn = m_material->PrvniVolneDN(start);
        if (dn < 0)
            return;
    }
    UlozUrs();
    CTogProfil* novy = nullptr;
    if (!m_material->PridejProfil(dn, &novy))
        return;
    NaplnProfily();
    VyberProfil(novy);
    m_strom.SetFocus();
}

void CTgDlgMatEdituj::OnSmazProfil()
{
    if (!m_material || !m_profil)
        return;
    if (!m_profil->Odkazy.empty()) {
        MessageBoxW(m_hWnd, L"Profil je používán, nelze jej vymazat", kTitulek, MB_ICONINFORMATION);
        return;
    }
    UlozUrs();
    const int dn = m_profil->DnIndex;
    m_profil = nullptr;
    m_material->VymazProfil(dn);
    m_material->ZrusUlozeno();
    NaplnProfily();
    // The next line, or the last one.
    CTogProfil* dalsi = nullptr;
    for (const auto& [index, p] : m_material->Profily) {
        dalsi = p.get();
        if (index > dn)
            break;
    }
    if (dalsi)
        VyberProfil(dalsi);
}

void CTgDlgMatEdituj::OnSmazProfily()
{
    if (!m_material)
        return;
    if (MessageBoxW(m_hWnd, L"Opravdu vymazat všechny profily?\ntento krok je nevratný", kTitulek, MB_YESNO | MB_ICONQUESTION) !=
        IDYES)
        return;
    m_profil = nullptr;
    m_material->VymazProfily();
    NaplnProfily();
}

void CTgDlgMatEdituj::OnGeneruj()
{
    if (!m_material)
        throw CTogException("Chyba při načítání položky materiálu", __LINE__, __FILE__);
    CTgDlgGetDN rozsah(this);
    if (rozsah.DoModal() != IDOK)
        return;
    UlozUrs();
    m_profil = nullptr;
    m_material->GenerujRadu(rozsah.m_od, rozsah.m_do);
    NaplnProfily();
}

void CTgDlgMatEdituj::VymazNepouzite()
{
    UlozUrs();
    m_profil = nullptr;
    m_material = nullptr;
    std::vector<std::wstring> nazvy;
    for (const auto& [nazev, m] : m_pracovni.Materialy)
        nazvy.push_back(nazev);
    for (const auto& nazev : nazvy)
        m_pracovni.VymazMaterial(nazev.c_str());
    m_seznamMaterialu.DeleteAllItems();
}

void CTgDlgMatEdituj::PoNacteni()
{
    m_pracovni.Ulozeno = false;
    m_filtr = kFiltrVse;
    NastavFiltr();
    ObnovSeznam();
}

void CTgDlgMatEdituj::OnNactiSoubor()
{
    wchar_t soubor[1024] = L"";
    const AcString adresar =
        CTogRegistry::CestaKAdresari(CTogRegistry::kKlicVyrobce, L"Materialy", TypCesty::CommonData, false, false);
    OPENFILENAMEW ofn{};
    ofn.lStructSize = sizeof(ofn);
    ofn.hwndOwner = m_hWnd;
    ofn.lpstrFilter = L"Katalogy potrubí\0*.tgp\0";
    ofn.lpstrFile = soubor;
    ofn.nMaxFile = 1024;
    ofn.lpstrInitialDir = adresar.kwszPtr();
    ofn.lpstrTitle = L"Vyhledej soubor pro načtení";
    ofn.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
    if (!GetOpenFileNameW(&ofn))
        return;

    TASKDIALOGCONFIG td{};
    td.cbSize = sizeof(td);
    td.hwndParent = m_hWnd;
    td.pszWindowTitle = kTitulek;
    td.pszMainIcon = TD_WARNING_ICON;
    td.pszMainInstruction = L"Vymazat před načtením všechny materiály? (používané materiály vymazat nelze)";
    td.pszContent = L"Pozor, tento krok je nevratný. \nNE - načtené materiály budou přidány\n a v případě výskytu "
                    L"identických názvů budete vyzváni k přepsání";
    td.dwCommonButtons = TDCBF_YES_BUTTON | TDCBF_NO_BUTTON | TDCBF_CANCEL_BUTTON;
    int tlacitko = 0;
    if (FAILED(TaskDialogIndirect(&td, &tlacitko, nullptr, nullptr)) || tlacitko == IDCANCEL)
        return;
    CFile f;
    if (!f.Open(soubor, CFile::modeRead | CFile::typeBinary)) {
        CString text = L"Nelze otevřít soubor\n";
        text += soubor;
        MessageBoxW(m_hWnd, text, L"Neočekávaná výjimka", MB_ICONERROR);
        return;
    }
    if (tlacitko == IDYES)
        VymazNepouzite();
    try {
        CArchive ar(&f, CArchive::load);
        m_pracovni.Serialize(ar);
    } catch (CException* e) {
        e->Delete();
        MessageBoxW(m_hWnd, L"Chyba při čtení ze souboru", L"Neočekávaná výjimka", MB_ICONERROR);
    } catch (const CTogException& e) {
        ZobrazVyjimku(e, m_hWnd);
    }
    PoNacteni();
}

void CTgDlgMatEdituj::OnNactiStandard()
{
    const TASKDIALOG_BUTTON tlacitka[] = {{101, L"Vymazat stávající"}, {102, L"Přidat materiály"}, {103, L"Zrušit načítání"}};
    TASKDIALOGCONFIG td{};
    td.cbSize = sizeof(td);
    td.hwndParent = m_hWnd;
    td.pszWindowTitle = kTitulek;
    td.pszMainIcon = TD_WARNING_ICON;
    td.pszMainInstruction = L"Vymazat stávající materiály?";
    td.pszContent = L"Vymazat před načtením všechny materiály (používané materiály vymazat nelze)?\nPozor, tento krok je "
                    L"nevratný.\n(V případě výskytu identických názvů budete vyzváni k přepsání)";
    td.cButtons = 3;
    td.pButtons = tlacitka;
    int tlacitko = 0;
    if (FAILED(TaskDialogIndirect(&td, &tlacitko, nullptr, nullptr)) || tlacitko == 103 || tlacitko == IDCANCEL)
        return;
    if (tlacitko == 101)
        VymazNepouzite();
    m_pracovni.Nacti(true);
    PoNacteni();
}

CString CTgDlgMatEdituj::ZkontrolujBunku(CTogProfil& p, int sloupec, double v)
{
    const int i = p.DnIndex;
    const bool meze = MaMeze(i);
    const double od = p.Vnejsi();
    switch (sloupec) {
    case kOD: {
        double w = p.Stena;
        const double c = v - 2 * w;
        if (meze && (c <= 0.9 * Predchozi(i) || c >= 1.1 * Nasledujici(i))) {
            const double mez = c <= Predchozi(i) ? Predchozi(i) : Nasledujici(i);
            w = (v - mez) * 0.5;
        }
        p.Stena = static_cast<float>(w);
        p.Vnitrni = static_cast<float>(v - 2 * w);
        break;
    }
    case kStena: {
        double vnejsi = od;
        if (vnejsi - 2 * v <= 0)
            return L"OD - 2x stěna je menší než 0, trubka nemá díru";
        if (meze && vnejsi - 2 * v <= Predchozi(i))
            vnejsi = Predchozi(i) + 2 * v;
        else if (meze && vnejsi - 2 * v >= Nasledujici(i))
            vnejsi = Nasledujici(i) + 2 * v;
        p.Stena = static_cast<float>(v);
        p.Vnitrni = static_cast<float>(vnejsi - 2 * v);
        break;
    }
    case kID:
        if (meze && (v <= 0.9 * Predchozi(i) || v >= 1.1 * Nasledujici(i)))
            return L"Zadaný průměr neodpovídá zadanému DN, nejprve změňte DN";
        p.Vnitrni = static_cast<float>(v);
        p.Stena = static_cast<float>((od - v) * 0.5);
        break;
    case kSirka: p.Sirka = static_cast<int>(v); break;
    default: return L"";
    }
    p.AktualizujPopis();
    return L"";
}

void CTgDlgMatEdituj::PrevezmiBunku(CTogProfil& p, int sloupec, double v)
{
    const double od = p.Vnejsi();
    switch (sloupec) {
    case kOD: p.Vnitrni = static_cast<float>(static_cast<int>(v) - 2.0 * p.Stena); break;
    case kStena:
        p.Stena = static_cast<float>(v);
        p.Vnitrni = static_cast<float>(od - 2 * v);
        break;
    case kID:
        p.Vnitrni = static_cast<float>(v);
        p.Stena = static_cast<float>((od - v) * 0.5);
        break;
    case kSirka: p.Sirka = static_cast<int>(v); break;
    default: return;
    }
    p.AktualizujPopis();
}

LRESULT CTgDlgMatEdituj::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == TVN_CHECKCELLVALUE) {
        // The check when a cell is left: a refused value keeps the cell open with a balloon.
        const auto* info = reinterpret_cast<const NMTVDISPINFOW*>(lParam);
        auto* profil = reinterpret_cast<CTogProfil*>(info->item.lParam);
        if (!profil)
            return 1;
        CString chyba;
        ProvedPrikaz([&] { chyba = ZkontrolujBunku(*profil, SloupecZaznamu(info->item.cChildren),
                                                   std::wcstod(info->item.pszText, nullptr)); });
        if (chyba.IsEmpty())
            return 0;
        if (auto* pole = dynamic_cast<CEdit*>(CWnd::FromHandle(reinterpret_cast<HWND>(wParam))))
            pole->ShowBalloonTip(L"Chybný vstup", chyba, TTI_ERROR);
        return 1;
    }
    if (message == WM_TG_KONTROLA_EDITU && reinterpret_cast<HWND>(wParam) == m_edNazev.m_hWnd) {
        // A description left empty takes the name.
        if (m_edPopis.TextBezMezer().IsEmpty())
            m_edPopis.SetWindowText(reinterpret_cast<const ACHAR*>(lParam));
        return 0;
    }
    return CTgDlgMatVyber::WindowProc(message, wParam, lParam);
}

BOOL CTgDlgMatEdituj::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    auto* hlavicka = reinterpret_cast<NMHDR*>(lParam);
    if (hlavicka->idFrom == CTreeListCtrl::kId) {
        auto* info = reinterpret_cast<NMTVDISPINFOW*>(lParam);
        auto* profil = reinterpret_cast<CTogProfil*>(info->item.lParam);
        const int sloupec = SloupecZaznamu(info->item.cChildren);
        if (hlavicka->code == TVN_ENDLABELEDITW && sloupec == kDN && profil) {
            // The drop-down has no field of its own to check: a taken row is refused here.
            const int radek = IndexDN(info->item.pszText);
            CTogProfil* jiny = profil->Material->Profil(radek);
            if (radek < 0 || (jiny && jiny != profil)) {
                MessageBoxW(m_hWnd, L"DN již existuje, zadejte jiné DN", kTitulek, MB_ICONINFORMATION);
                *pResult = 1;
            }
            return TRUE;
        }
        if (hlavicka->code == TVN_SETDISPINFOW && profil) {
            ProvedPrikaz([&] {
                if (sloupec == kDN) {
                    profil->ZmenDN(IndexDN(info->item.pszText), true);
                    NaplnProfily();
                    VyberProfil(profil);
                } else {
                    PrevezmiBunku(*profil, sloupec, std::wcstod(info->item.pszText, nullptr));
                }
            });
            return TRUE;
        }
        if (hlavicka->code == NM_DBLCLK)
            return TRUE; // the editor chooses nothing by a double click
    }
    if (hlavicka->idFrom == static_cast<UINT_PTR>(IDC_SEZNAM) && hlavicka->code == NM_DBLCLK)
        return TRUE;
    return CTgDlgMatVyber::OnNotify(wParam, lParam, pResult);
}

BOOL CTgDlgMatEdituj::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const int id = LOWORD(wParam);
    if (HIWORD(wParam) != BN_CLICKED)
        return CTgDlgMatVyber::OnCommand(wParam, lParam);
    bool obslouzeno = true;
    ProvedPrikaz([&] {
        switch (id) {
        case IDC_NOVY: OnNovy(); break;
        case IDC_KOPIE: OnKopieNeboUprava(kKopie); break;
        case IDC_UPRAVIT: OnKopieNeboUprava(kUprava); break;
        case IDC_SMAZAT: OnSmazat(); break;
        case IDC_ULOZ: UlozDetaily(); break;
        case IDC_ZRUS: OnZrus(); break;
        case IDC_PRIDEJ_PROFIL: OnPridejProfil(); break;
        case IDC_SMAZ_PROFIL: OnSmazProfil(); break;
        case IDC_SMAZ_PROFILY: OnSmazProfily(); break;
        case IDC_GENERUJ: OnGeneruj(); break;
        case IDC_NACTI_SOUBOR: OnNactiSoubor(); break;
        case IDC_NACTI_STANDARD: OnNactiStandard(); break;
        case IDC_POPIS_JINY: OnJinyPopis(); break;
        case IDC_POPIS_DN:
        case IDC_POPIS_DXT: m_predchoziPopis = id - IDC_POPIS_DN; break;
        case IDC_SK_ZTI:
        case IDC_SK_SITE: AsponJeden(id, kSkupiny, 2); break;
        default:
            if (std::find(std::begin(kPrvkyPouziti), std::end(kPrvkyPouziti), id) != std::end(kPrvkyPouziti))
                AsponJeden(id, kPrvkyPouziti, 5);
            else
                obslouzeno = false;
        }
    });
    return obslouzeno ? TRUE : CTgDlgMatVyber::OnCommand(wParam, lParam);
}

void CTgDlgMatEdituj::OnOK()
{
    // Enter while the details are edited saves them.
    if (m_stav != kZadny) {
        ProvedPrikaz([this] { UlozDetaily(); });
        return;
    }
    ProvedPrikaz([this] {
        UlozUrs();
        if (!m_pracovni.Ulozeno)
            m_pracovni.Uloz();
        const CString vybrany = m_material ? m_material->Nazev : CString();
        *m_skutecny = m_pracovni;
        m_material = vybrany.IsEmpty() ? nullptr : m_skutecny->NajdiMaterial(vybrany);
        m_profil = nullptr;
        m_pracovni.VymazOdkazy();
        m_skutecny->ZnovuZamerOdkazy();
        EndDialog(IDOK);
    });
}

void CTgDlgMatEdituj::OnCancel()
{
    // Esc while the details are edited drops them.
    if (m_stav != kZadny) {
        OnZrus();
        return;
    }
    ProvedPrikaz([this] { UlozUrs(); });
    if (!m_pracovni.Ulozeno) {
        const int odpoved =
            MessageBoxW(m_hWnd, L"Uložit provedené změny do souboru?", kTitulek, MB_YESNOCANCEL | MB_ICONQUESTION);
        if (odpoved == IDCANCEL)
            return;
        if (odpoved == IDYES)
            ProvedPrikaz([this] { m_pracovni.Uloz(); });
    }
    m_pracovni.VymazOdkazy();
    m_material = nullptr;
    m_profil = nullptr;
    EndDialog(IDCANCEL);
}
