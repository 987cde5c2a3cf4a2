// The settings dialog: its resource, tooltips, the opening values, the prefix check and the buttons.
#include "StdAfx.h"
#include "_Dialogs/CTgDlgNastaveni.h"

#include <utility>

#include "CTogAnno.h"
#include "CTogBaseNastav.h"
#include "CTogSezMaterialu.h"
#include "CTogException.h"
#include "CTogRegistry.h"
#include "CTogXRecord.h"
#include "OkrajPrikazu.h"
#include "PrevodStandardu.h"

namespace {

constexpr const ACHAR* kTitulek = L"Togovy Utility pro AutoCad";
constexpr const ACHAR* kChybaPredpony = L"Předpona musí mít minimálně 2 znaky, maximálně 3\nsestávající z písmen a čísel!!";
constexpr const ACHAR* kTitulekChybyPredpony = L"Neodpovídající formát předpony";
constexpr int kStatic = -1;

using D = CTgDlgNastaveni;
const DLGITEMRES kPrvky[] = {
    {kStatic, WC_STATICW, L"Předpona pro hladiny - globální:", SS_LEFT},
    {D::IDC_PREDPONA, WC_EDITW, L"", ES_AUTOHSCROLL | ES_UPPERCASE | WS_TABSTOP},
    {kStatic, WC_STATICW, L"(v aktuálním výkrese)", SS_LEFT},
    {D::IDC_PREDPONA_DWG, WC_EDITW, L"", ES_READONLY},
    {D::IDC_PREDPONY, WC_BUTTONW, L"...", BS_PUSHBUTTON},
    {kStatic, WC_BUTTONW, L"Chování příkazů", BS_GROUPBOX},
    {D::IDC_VICE_OBJEKTU, WC_BUTTONW, L"Vícenásobný výběr", BS_AUTOCHECKBOX | WS_GROUP},
    {D::IDC_UCHOPENI, WC_BUTTONW, L"Přednastavovat uchopení", BS_AUTOCHECKBOX},
    {D::IDC_SKUPINY_UCHOPENI, WC_BUTTONW, L"Uchopení...", BS_PUSHBUTTON | WS_DISABLED},
    {D::IDC_MTEXT, WC_BUTTONW, L"Text jako MTEXT", BS_AUTOCHECKBOX},
    {D::IDC_PRENASTAVIT_HLADINY, WC_BUTTONW, L"Přenastavovat hladiny", BS_AUTOCHECKBOX | WS_DISABLED},
    {D::IDC_ATRIBUTY, WC_BUTTONW, L"Editovat atributy na ploše", BS_AUTOCHECKBOX},
    {D::IDC_JEDNORADKOVE, WC_BUTTONW, L".....i jednořádkové atributy", BS_AUTOCHECKBOX},
    {kStatic, WC_BUTTONW, L"Nastavovat BYLAYER", BS_GROUPBOX},
    {D::IDC_BYLAYER_BARVA, WC_BUTTONW, L"Pro barvu entity", BS_AUTOCHECKBOX | WS_GROUP},
    {D::IDC_BYLAYER_TYP, WC_BUTTONW, L"Pro typ čáry", BS_AUTOCHECKBOX},
    {D::IDC_BYLAYER_TLOUSTKA, WC_BUTTONW, L"Pro tloušťku čáry", BS_AUTOCHECKBOX},
    {kStatic, WC_BUTTONW, L"Převést staré názvy", BS_GROUPBOX},
    {D::IDC_PREVED_STYLY, WC_BUTTONW, L"Styly kót, textů a odkazů", BS_AUTOCHECKBOX | WS_GROUP},
    {D::IDC_PREVED_HLADINY, WC_BUTTONW, L"Názvy hladin", BS_AUTOCHECKBOX},
    {D::IDC_PREVED_LT, WC_BUTTONW, L"Typy čar", BS_AUTOCHECKBOX},
    {D::IDC_PREVEST, WC_BUTTONW, L"Převést", BS_PUSHBUTTON},
    {D::IDC_JEDNOTKY, WC_STATICW, L"Jednotky: ", SS_LEFT},
    {D::IDC_MERITKA, WC_BUTTONW, L"Přidej měřítka", BS_PUSHBUTTON},
    {D::IDC_MAZAT_MERITKA, WC_BUTTONW, L"Vymazat stará měřítka", BS_AUTOCHECKBOX},
    {D::IDC_MATERIALY, WC_BUTTONW, L"Materiály...", BS_PUSHBUTTON},
    {kStatic, WC_STATICW, L"Defaultní materiál:", SS_LEFT},
    {D::IDC_MATERIAL, WC_EDITW, L"", ES_READONLY},
    {D::IDC_VYBER_MATERIAL, WC_BUTTONW, L"Vyber....", BS_PUSHBUTTON},
    {D::IDC_SMAZAT_Z_DWG, WC_BUTTONW, L"Odstranit nastavení z DWG", BS_PUSHBUTTON},
    {kStatic, WC_BUTTONW, L"Nastavení fontů", BS_GROUPBOX | WS_DISABLED},
    {351, WC_COMBOBOXW, L"", WS_DISABLED},
    {353, WC_COMBOBOXW, L"", WS_DISABLED},
    {103, WC_EDITW, L"", WS_DISABLED},
    {258, L"msctls_updown32", L"", WS_DISABLED},
    {252, WC_EDITW, L"", WS_DISABLED},
    {205, L"msctls_updown32", L"", WS_DISABLED},
    {IDOK, WC_BUTTONW, L"OK", BS_DEFPUSHBUTTON | WS_GROUP},
    {IDCANCEL, WC_BUTTONW, L"Cancel", BS_PUSHBUTTON},
};
const DLGRESOURCE kZdroj = {D::IDD, kTitulek, 330, 300, kPrvky, static_cast<int>(sizeof(kPrvky) / sizeof(kPrvky[0]))};

/// The check boxes of the switches and their bits.
const std::pair<int, std::uint32_t> kPrepinace[] = {
    {D::IDC_VICE_OBJEKTU, kVicenasobnyVyber},      {D::IDC_UCHOPENI, kPrednastavovatUchopeni},
    {D::IDC_MTEXT, kTextJakoMText},                {D::IDC_PRENASTAVIT_HLADINY, kPrenastavovatHladiny},
    {D::IDC_ATRIBUTY, kAtributyNaPlose},           {D::IDC_JEDNORADKOVE, kIJednoradkoveAtributy},
    {D::IDC_BYLAYER_BARVA, kByLayerBarva},         {D::IDC_BYLAYER_TYP, kByLayerTypCary},
    {D::IDC_BYLAYER_TLOUSTKA, kByLayerTloustka},
};

struct HodnotaDialogu {
    const ACHAR* nazev;
    int CTgDlgNastaveni::*clen;
    int idPrvku;
};
const HodnotaDialogu kHodnoty[] = {
    {L"PREVED_STYLY", &CTgDlgNastaveni::m_prevedStyly, D::IDC_PREVED_STYLY},
    {L"PREVED_HLADINY", &CTgDlgNastaveni::m_prevedHladiny, D::IDC_PREVED_HLADINY},
    {L"PREVED_LT", &CTgDlgNastaveni::m_prevedLT, D::IDC_PREVED_LT},
    {L"MAZAT_MERITKA", &CTgDlgNastaveni::m_mazatMeritka, D::IDC_MAZAT_MERITKA},
};

int JednotkyVykresu() { return acdbHostApplicationServices()->workingDatabase()->insunits(); }

bool MeritkaLzeZalozit(int jednotky) { return jednotky == 4 || jednotky == 6; }

} // namespace

CTgDlgNastaveni::CTgDlgNastaveni(CTogPredpony* predpony, const ACHAR* globalni, std::uint32_t prepinace, CWnd* pRodic)
    : CTgAcDialog(IDD, pRodic, L""), m_globalni(globalni), m_prepinace(prepinace), m_predpony(predpony),
      m_edPredpona(JePredpona, JePismenoCislice, NaVelkePismeno, kChybaPredpony, kTitulekChybyPredpony, false, 3)
{
    AfxRegisterDlgResource(&kZdroj);
    for (const HodnotaDialogu& h : kHodnoty) {
        Adesk::Int32 hodnota = 0;
        if (CTogRegistry::NactiHodnotu(h.nazev, kSkupina, hodnota))
            this->*h.clen = hodnota;
    }
    PridejTooltip(IDC_PREDPONA, L"Zadej předponu pro standardní hladiny (dvě až tři písmena) - název hladinu bude např. SO_zt-VODA_SV");
    PridejTooltip(IDC_VICE_OBJEKTU, L"U příkazů jako RA, apod., vybírat pouze jeden objekt nebo více...");
    PridejTooltip(IDC_UCHOPENI, L"Nastavovat předdefinované uchopení pro jednotlivé příkazy");
    PridejTooltip(IDC_MTEXT, L"Standardní popisy tvořit jako MTEXT (pokud není zatrženo, bude vytvořen řádkový text (DTEXT)");
    PridejTooltip(IDC_SKUPINY_UCHOPENI, L"Nastavit skupiny uchopení pro přednastavené ikony utilit...");
    PridejTooltip(IDC_MERITKA, L"Přidat aktuální sadu měřítek do výkresu, v závislosti na nastavených jednotkách (m nebo mm)...");
    PridejTooltip(IDC_PRENASTAVIT_HLADINY, L"Nastavovat u systémových hladin Utilit čáru, tloušťu a barvu na defaultní hodnoty");
    PridejTooltip(IDC_PREVEST, L"Převést názvy stylů typů čar a hladin ze starých utilit");
    PridejTooltip(IDC_PREVED_STYLY, L"Převést názvy kótovacích stylů, textových stylů a stylů odkazu ze starých utilit");
    PridejTooltip(IDC_PREVED_LT, L"Převést názvy typů čar (včetně typů čar pro sítě) ze starých utilit");
    PridejTooltip(IDC_PREVED_HLADINY, L"Převést názvy hladin (včetně nastavené předpony) ze starých utilit");
    PridejTooltip(IDC_MAZAT_MERITKA, L"Před přidáním standardních měřítek vymazat všechna stará, nepoužívaná měřítka z výkresu");
    PridejTooltip(IDC_ATRIBUTY, L"Editovat víceřádkové atributy na ploše autocadu (jako text)");
    PridejTooltip(IDC_JEDNORADKOVE, L"Editovat i jednořádkové atributy na ploše autocadu (jako text)");
    PridejTooltip(IDC_PREDPONY, L"Dialog pro nastavení a sjednocení předpony pro aktuální výkres");
    PridejTooltip(IDC_MATERIALY, L"Dialog pro správu materiálů a profilů potrubí");
    PridejTooltip(IDC_BYLAYER_BARVA, L"Nastavovat při změně hladiny nebo příkazu LT1, SS, SSA  barvu entity na 'ByLayer'?");
    PridejTooltip(IDC_BYLAYER_TYP, L"Nastavovat při změně hladiny nebo příkazu LT1, SS, SSA  typ čáry entity na 'ByLayer'?");
    PridejTooltip(IDC_BYLAYER_TLOUSTKA, L"Nastavovat při změně hladiny nebo příkazu LT1, SS, SSA  tloušťku čáry entity na 'ByLayer'?");
}

CTgDlgNastaveni::~CTgDlgNastaveni()
{
    for (const HodnotaDialogu& h : kHodnoty) {
        try {
            CTogRegistry::UlozHodnotu(h.nazev, kSkupina, static_cast<Adesk::Int32>(this->*h.clen));
        } catch (const std::exception&) {
            // a value that can't be stored keeps its default next time
        }
    }
}

void CTgDlgNastaveni::DoDataExchange(CDataExchange* pDX)
{
    CTgAcDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_PREDPONA, m_edPredpona);
}

BOOL CTgDlgNastaveni::OnInitDialog()
{
    CTgAcDialog::OnInitDialog();
    m_edPredpona.SetWindowText(m_globalni);
    SetDlgItemText(IDC_PREDPONA_DWG, m_predpony->PredponaVykresu().kwszPtr());
    for (const auto& [id, bit] : kPrepinace)
        CheckDlgButton(id, (m_prepinace & bit) ? BST_CHECKED : BST_UNCHECKED);
    for (const HodnotaDialogu& h : kHodnoty)
        CheckDlgButton(h.idPrvku, this->*h.clen ? BST_CHECKED : BST_UNCHECKED);

    const int jednotky = JednotkyVykresu();
    CString popis = L"Jednotky: ";
    popis += jednotky == 4 ? L"milimetry" : jednotky == 6 ? L"metry" : L"jiné";
    SetDlgItemText(IDC_JEDNOTKY, popis);
    GetDlgItem(IDC_MERITKA)->EnableWindow(MeritkaLzeZalozit(jednotky));
    GetDlgItem(IDC_MAZAT_MERITKA)->EnableWindow(MeritkaLzeZalozit(jednotky));
    ZobrazMaterial();
    return TRUE;
}

void CTgDlgNastaveni::ZobrazMaterial()
{
    ProvedPrikaz([this] {
        CTogMaterial* material = g_pNastaveni->AktualniMaterial();
        SetDlgItemText(IDC_MATERIAL, material ? material->Nazev.GetString() : L"");
    });
}

void CTgDlgNastaveni::PrevezmiHodnoty()
{
    m_globalni = m_edPredpona.TextBezMezer();
    for (const auto& [id, bit] : kPrepinace) {
        if (IsDlgButtonChecked(id) == BST_CHECKED)
            m_prepinace |= bit;
        else
            m_prepinace &= ~bit;
    }
    for (const HodnotaDialogu& h : kHodnoty)
        this->*h.clen = IsDlgButtonChecked(h.idPrvku) == BST_CHECKED ? 1 : 0;
}

void CTgDlgNastaveni::KontrolujPredponu()
{
    const bool platna = m_edPredpona.Zkontroluj();
    GetDlgItem(IDOK)->EnableWindow(platna);
    if (!platna)
        m_edPredpona.ZobrazBublinu();
}

void CTgDlgNastaveni::OnOK()
{
    if (!m_edPredpona.JePlatny())
        return;
    PrevezmiHodnoty();
    bool ulozeno = false;
    ProvedPrikaz([this, &ulozeno] {
        m_predpony->globalni = m_globalni.GetString();
        CTogRegistry::UlozRetezec(CTogRegistry::kKlicSpolecny, CTogPredpony::kNazevHodnoty, m_globalni);
        CString vykresu;
        GetDlgItemText(IDC_PREDPONA_DWG, vykresu);
        CTogXRecord::UlozDoX(CTogPredpony::kNazevHodnoty, vykresu, CTogPredpony::kSkupinaVykresu);
        // The material shown becomes the user's default, for drawings that have none.
        if (CTogMaterial* material = g_pNastaveni->AktualniMaterial())
            g_pNastaveni->UlozVychoziMaterial(*material);
        ulozeno = true;
    });
    if (ulozeno)
        CTgAcDialog::OnOK();
}

void CTgDlgNastaveni::OnCancel()
{
    for (const HodnotaDialogu& h : kHodnoty)
        this->*h.clen = IsDlgButtonChecked(h.idPrvku) == BST_CHECKED ? 1 : 0;
    CTgAcDialog::OnCancel();
}

BOOL CTgDlgNastaveni::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const int id = LOWORD(wParam);
    const int kod = HIWORD(wParam);
    if (id == IDC_PREDPONA && kod == EN_CHANGE) {
        KontrolujPredponu();
        return TRUE;
    }
    if (kod != BN_CLICKED)
        return CTgAcDialog::OnCommand(wParam, lParam);
    switch (id) {
    case IDC_PREDPONY: OnPredpony(); return TRUE;
    case IDC_PREVEST: OnPrevest(); return TRUE;
    case IDC_MERITKA: OnMeritka(); return TRUE;
    case IDC_MATERIALY: OnMaterialy(); return TRUE;
    case IDC_VYBER_MATERIAL: OnVyberMaterial(); return TRUE;
    case IDC_SMAZAT_Z_DWG: OnSmazatZDwg(); return TRUE;
    default: return CTgAcDialog::OnCommand(wParam, lParam);
    }
}

void CTgDlgNastaveni::OnPredpony()
{
    PrevezmiHodnoty();
    ProvedPrikaz([this] {
        AcString globalni;
        if (!DialogPredpony(*m_predpony, m_globalni, &globalni))
            return;
        m_globalni = globalni.kwszPtr();
        m_edPredpona.SetWindowText(m_globalni);
        SetDlgItemText(IDC_PREDPONA_DWG, m_predpony->vykresu.kwszPtr());
    });
}

void CTgDlgNastaveni::OnPrevest()
{
    PrevezmiHodnoty();
    // The conversion of old names takes this mask: styles 1, layers 2, line types 4.
    const int maska = (m_prevedStyly ? 1 : 0) | (m_prevedHladiny ? 2 : 0) | (m_prevedLT ? 4 : 0);
    bool hotovo = false;
    ProvedPrikaz([maska, &hotovo] {
        PrevedStandardy(maska);
        hotovo = true;
    });
    if (hotovo)
        MessageBoxW(m_hWnd,
                    L"Vše bylo převedeno\ndoporučujeme otevřít a zavřít výkres\nu některých bloků je nutné\npoužít "
                    L"příkaz 'SYNCHRONIZOVAT'",
                    kTitulek, MB_OK | MB_ICONINFORMATION);
}

void CTgDlgNastaveni::OnMeritka()
{
    m_mazatMeritka = IsDlgButtonChecked(IDC_MAZAT_MERITKA) == BST_CHECKED ? 1 : 0;
    const int jednotky = JednotkyVykresu();
    if (!MeritkaLzeZalozit(jednotky)) {
        MessageBoxW(m_hWnd, L"Měřítka lze založit pouze pro milimetry nebo metry\nnastavte jednotky výkresu příkazem JEDNOTKY",
                    kTitulek, MB_ICONINFORMATION);
        return;
    }
    bool hotovo = false;
    ProvedPrikaz([this, jednotky, &hotovo] {
        if (m_mazatMeritka)
            CTogAnno::SmazMeritka(acdbHostApplicationServices()->workingDatabase());
        CTogAnno::PridejMeritka(jednotky);
        hotovo = true;
    });
    if (hotovo)
        MessageBoxW(m_hWnd, L"Měřítka byla úspěšně přidána", kTitulek, MB_ICONINFORMATION);
}

void CTgDlgNastaveni::OnMaterialy()
{
    ProvedPrikaz([this] {
        g_pNastaveni->EditujMaterialy(this);
        ZobrazMaterial();
    });
}

void CTgDlgNastaveni::OnVyberMaterial()
{
    ProvedPrikaz([this] {
        g_pNastaveni->VyberMaterial();
        ZobrazMaterial();
    });
}

void CTgDlgNastaveni::OnSmazatZDwg()
{
    ProvedPrikaz([] {
        CTogXRecord::SmazZaznam(CTogXRecord::kSlovnik);
        CTogXRecord::SmazZaznam(CTogPredpony::kSkupinaVykresu);
    });
}
