// The material picker: its resource, the filter, the list of materials, the details and the profiles.
#include "StdAfx.h"
#include "CTgDlgMatVyber.h"

#include <clocale>
#include <cwchar>
#include <vector>

#include "CTgDlgMatEdituj.h"
#include "CTogException.h"
#include "CTogFunkce.h"
#include "wincrt.h"
#include "OkrajPrikazu.h"
#include "PrvkyMaterialu.h"
#include "TabulkyMaterialu.h"

namespace {

constexpr const ACHAR* kTitulek = L"Togovy Utility pro AutoCad";

using D = CTgDlgMatVyber;

const std::vector<DLGITEMRES>& Prvky()
{
    static const std::vector<DLGITEMRES> prvky = [] {
        std::vector<DLGITEMRES> p = {
            {D::IDC_NADPIS_MATERIAL, WC_STATICW, L"Vyber materiál potrubí", SS_LEFT},
            {D::IDC_NADPIS_PROFIL, WC_STATICW, L"Vyber profil potrubí", SS_LEFT},
        };
        const auto& spolecne = PrvkyMaterialu();
        p.insert(p.end(), spolecne.begin(), spolecne.end());
        p.push_back({D::IDC_EDITACE, WC_BUTTONW, L"Editace materiálů...", BS_PUSHBUTTON});
        p.push_back({D::IDC_NAPOVEDA, WC_BUTTONW, L"?", BS_PUSHBUTTON});
        p.push_back({IDOK, WC_BUTTONW, L"Vyber", BS_DEFPUSHBUTTON | WS_GROUP});
        p.push_back({IDCANCEL, WC_BUTTONW, L"Zruš", BS_PUSHBUTTON});
        return p;
    }();
    return prvky;
}

const DLGRESOURCE& Zdroj()
{
    static const DLGRESOURCE zdroj = {D::IDD, kTitulek, 520, 300, Prvky().data(), static_cast<int>(Prvky().size())};
    return zdroj;
}

struct RadioFiltru {
    int id;
    int maska;
};
const RadioFiltru kSkupiny[] = {{11030, kSkupinaZTI}, {11031, kSkupinaSite}, {11032, kSkupinyVse}};
const RadioFiltru kPouziti[] = {{11020, kPouzitiKanalizace}, {11021, kPouzitiKanTlakova}, {11022, kPouzitiVoda},
                                {11023, kPouzitiPlyn},       {11024, kPouzitiTeplovody},  {11025, kPouzitiVse}};

template <size_t N> int RadioMasky(const RadioFiltru (&radia)[N], int maska)
{
    for (const RadioFiltru& r : radia)
        if (r.maska == maska)
            return r.id;
    return radia[N - 1].id; // a mask of several bits shows as "Vše"
}

} // namespace

int CALLBACK PorovnejNazvyMaterialu(LPARAM a, LPARAM b, LPARAM)
{
    static const _locale_t cesky = _create_locale(LC_ALL, "cs-CZ");
    return _wcsicoll_l(reinterpret_cast<const CTogMaterial*>(a)->Nazev, reinterpret_cast<const CTogMaterial*>(b)->Nazev,
                       cesky);
}

CTgDlgMatVyber::CTgDlgMatVyber(CTogSezMaterialu* seznam, std::uint64_t filtr, CTogMaterial* vybrany, bool profil,
                               CWnd* pRodic, UINT idd)
    : CTgAcDialog(idd, pRodic, L""), m_material(vybrany), m_seznam(seznam), m_filtr(filtr), m_chciProfil(profil)
{
    if (idd == IDD)
        AfxRegisterDlgResource(&Zdroj());
}

void CTgDlgMatVyber::DoDataExchange(CDataExchange* pDX)
{
    CTgAcDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_SEZNAM, m_seznamMaterialu);
}

BOOL CTgDlgMatVyber::OnInitDialog()
{
    CTgAcDialog::OnInitDialog();
    // The heading of what is wanted; the other one goes.
    if (CWnd* nadpis = GetDlgItem(m_chciProfil ? IDC_NADPIS_MATERIAL : IDC_NADPIS_PROFIL))
        nadpis->ShowWindow(SW_HIDE);
    m_seznamMaterialu.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    m_seznamMaterialu.InsertColumn(0, L"Zkrác. název", LVCFMT_LEFT, 95);
    m_seznamMaterialu.InsertColumn(1, L"Plný název / popis", LVCFMT_LEFT, 170);
    m_seznamMaterialu.InsertColumn(2, L"Výrobce", LVCFMT_LEFT, LVSCW_AUTOSIZE_USEHEADER);
    NaplnTabulkyMaterialu(*this);
    m_strom.Create(CTreeListCtrl::kStyl, this);
    NaplnStrom();
    m_strom.EnableWindow(m_chciProfil);
    NastavFiltr();
    ObnovSeznam();
    return TRUE;
}

void CTgDlgMatVyber::NaplnStrom()
{
    m_strom.SendMessage(TVM_SETEXTENDEDSTYLE, 0, 0x400B0000);
    wchar_t profil[] = L"Profil", dn[] = L"DN";
    TVCOLUMNW s0{0x90000007, 0, 80, profil, 256};
    TVCOLUMNW s1{0x9000000D, 0, 1, dn, 256};
    m_strom.SendMessage(TVM_INSERTCOLUMN, 0, reinterpret_cast<LPARAM>(&s0));
    m_strom.SendMessage(TVM_INSERTCOLUMN, 1, reinterpret_cast<LPARAM>(&s1));
}

void CTgDlgMatVyber::PridejRadekProfilu(CTogProfil* profil)
{
    TVINSERTSTRUCTW vklad{};
    vklad.hParent = TVI_ROOT;
    vklad.hInsertAfter = TVI_LAST;
    vklad.item.mask = TVIF_TEXT | TVIF_PARAM;
    vklad.item.pszText = LPSTR_TEXTCALLBACKW;
    vklad.item.lParam = reinterpret_cast<LPARAM>(profil);
    auto h = reinterpret_cast<HTREEITEM>(m_strom.SendMessage(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&vklad)));
    const int sloupce = static_cast<int>(m_strom.SendMessage(TVM_GETCOLUMNCOUNT));
    for (int s = 1; s < sloupce; ++s) {
        TVITEMW bunka{};
        bunka.mask = TVIF_TEXT | TVIF_SUBITEM;
        bunka.hItem = h;
        bunka.pszText = LPSTR_TEXTCALLBACKW;
        bunka.cchTextMax = 256;
        bunka.cChildren = s;
        m_strom.SendMessage(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&bunka));
    }
}

CString CTgDlgMatVyber::TextProfilu(const CTogProfil& profil, int sloupec) const
{
    if (sloupec == 0)
        return CString(profil.Popisek);
    return PlatneDN(profil.DnIndex) ? CString(kTabulkaDN[profil.DnIndex].popis) : CString();
}

void CTgDlgMatVyber::ZobrazDetaily(const CTogMaterial* material)
{
    ZobrazHodnotyMaterialu(*this, material);
}

void CTgDlgMatVyber::NastavFiltr()
{
    const int skupina = static_cast<int>(m_filtr & 0xFFFFFFFFu);
    const int pouziti = static_cast<int>(m_filtr >> 32);
    CheckRadioButton(IDC_ZTI, IDC_SKUPINY_VSE, RadioMasky(kSkupiny, skupina));
    CheckRadioButton(IDC_KANALIZACE, IDC_POUZITI_VSE, RadioMasky(kPouziti, pouziti));
}

void CTgDlgMatVyber::PrevezmiFiltr()
{
    int skupina = kSkupinyVse, pouziti = kPouzitiVse;
    for (const RadioFiltru& r : kSkupiny)
        if (IsDlgButtonChecked(r.id) == BST_CHECKED)
            skupina = r.maska;
    for (const RadioFiltru& r : kPouziti)
        if (IsDlgButtonChecked(r.id) == BST_CHECKED)
            pouziti = r.maska;
    m_filtr = FiltrMaterialu(skupina, pouziti);
}

void CTgDlgMatVyber::ObnovSeznam()
{
    CTogMaterial* vybrany = m_material;
    m_seznamMaterialu.DeleteAllItems();
    for (const auto& [nazev, material] : m_seznam->Materialy) {
        if (!ProjdeFiltrem(*material, m_filtr))
            continue;
        const int radek = m_seznamMaterialu.InsertItem(m_seznamMaterialu.GetItemCount(), material->Nazev);
        m_seznamMaterialu.SetItemText(radek, 1, material->PodrobnyPopis);
        m_seznamMaterialu.SetItemText(radek, 2, material->Vyrobce);
        m_seznamMaterialu.SetItemData(radek, reinterpret_cast<DWORD_PTR>(material.get()));
    }
    m_seznamMaterialu.SortItems(PorovnejNazvyMaterialu, 0);
    VyberRadek(vybrany);
}

void CTgDlgMatVyber::VyberRadek(const CTogMaterial* material)
{
    int radek = m_seznamMaterialu.GetItemCount() > 0 ? 0 : -1;
    for (int i = 0; i < m_seznamMaterialu.GetItemCount(); ++i)
        if (reinterpret_cast<const CTogMaterial*>(m_seznamMaterialu.GetItemData(i)) == material)
            radek = i;
    const int vybrany = m_seznamMaterialu.GetNextItem(-1, LVNI_SELECTED);
    if (radek < 0 || radek == vybrany) {
        // No notification comes: the panes follow by hand.
        VybranMaterial(radek < 0 ? nullptr : reinterpret_cast<CTogMaterial*>(m_seznamMaterialu.GetItemData(radek)));
        return;
    }
    m_seznamMaterialu.SetItemState(radek, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    m_seznamMaterialu.EnsureVisible(radek, FALSE);
}

void CTgDlgMatVyber::VybranMaterial(CTogMaterial* material)
{
    m_material = material;
    ZobrazDetaily(material);
    NaplnProfily();
}

void CTgDlgMatVyber::NaplnProfily()
{
    m_strom.SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    CTogProfil* predchozi = m_profil;
    m_profil = nullptr;
    if (!m_material) {
        VybranProfil(predchozi, nullptr);
        return;
    }
    for (const auto& [dn, profil] : m_material->Profily)
        PridejRadekProfilu(profil.get());
    const auto prvni = static_cast<LPARAM>(m_strom.SendMessage(TVM_GETNEXTITEM, TVGN_ROOT, 0));
    if (prvni)
        m_strom.SendMessage(TVM_SELECTCHILD, 0, prvni);
    else
        VybranProfil(predchozi, nullptr);
}

HTREEITEM CTgDlgMatVyber::RadekProfilu(const CTogProfil* profil) const
{
    auto& strom = const_cast<CTreeListCtrl&>(m_strom);
    for (auto h = reinterpret_cast<HTREEITEM>(strom.SendMessage(TVM_GETNEXTITEM, TVGN_ROOT, 0)); h;
         h = reinterpret_cast<HTREEITEM>(strom.SendMessage(TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(h))))
        if (strom.SendMessage(TVM_GETITEMPARAM, 0, reinterpret_cast<LPARAM>(h)) == reinterpret_cast<LPARAM>(profil))
            return h;
    return nullptr;
}

void CTgDlgMatVyber::VybranProfil(CTogProfil*, CTogProfil* novy) { m_profil = novy; }

BOOL CTgDlgMatVyber::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const int id = LOWORD(wParam);
    if (HIWORD(wParam) == BN_CLICKED) {
        if ((id >= IDC_ZTI && id <= IDC_SKUPINY_VSE) || (id >= IDC_KANALIZACE && id <= IDC_POUZITI_VSE)) {
            PrevezmiFiltr();
            ProvedPrikaz([this] { ObnovSeznam(); });
            return TRUE;
        }
        if (id == IDC_EDITACE) {
            OnEditace();
            return TRUE;
        }
        if (id == IDC_NAPOVEDA) {
            OtevriNapovedu(m_hWnd, KontextNapovedy());
            return TRUE;
        }
    }
    return CTgAcDialog::OnCommand(wParam, lParam);
}

BOOL CTgDlgMatVyber::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    auto* hlavicka = reinterpret_cast<NMHDR*>(lParam);
    if (hlavicka->idFrom == static_cast<UINT_PTR>(IDC_SEZNAM)) {
        if (hlavicka->code == LVN_ITEMCHANGED) {
            const auto* zmena = reinterpret_cast<const NMLISTVIEW*>(lParam);
            if (zmena->uNewState & LVIS_SELECTED)
                ProvedPrikaz([this, zmena] { VybranMaterial(reinterpret_cast<CTogMaterial*>(zmena->lParam)); });
            return TRUE;
        }
        if (hlavicka->code == NM_DBLCLK) {
            const auto* klik = reinterpret_cast<const NMITEMACTIVATE*>(lParam);
            if (klik->iItem < 0)
                return TRUE;
            if (m_chciProfil) {
                MessageBoxW(m_hWnd, L"Je třeba vybrat profil z vedlejšího seznamu", kTitulek, MB_ICONINFORMATION);
                return TRUE;
            }
            m_material = reinterpret_cast<CTogMaterial*>(m_seznamMaterialu.GetItemData(klik->iItem));
            EndDialog(IDOK);
            return TRUE;
        }
    }
    if (hlavicka->idFrom == CTreeListCtrl::kId) {
        auto* info = reinterpret_cast<NMTVDISPINFOW*>(lParam);
        switch (hlavicka->code) {
        case TVN_GETDISPINFOW:
            ProvedPrikaz([this, info] {
                const auto* profil = reinterpret_cast<const CTogProfil*>(info->item.lParam);
                const CString text = profil ? TextProfilu(*profil, std::max(info->item.cChildren, 0)) : CString();
                CTogFunkce::KopirujRetezec(info->item.pszText, static_cast<size_t>(info->item.cchTextMax), text);
            });
            return TRUE;
        case TVN_SELCHANGEDW: {
            const auto* zmena = reinterpret_cast<const NMTREEVIEWW*>(lParam);
            ProvedPrikaz([this, zmena] {
                VybranProfil(reinterpret_cast<CTogProfil*>(zmena->itemOld.lParam),
                             reinterpret_cast<CTogProfil*>(zmena->itemNew.lParam));
            });
            return TRUE;
        }
        case NM_DBLCLK:
            if (m_profil) {
                m_material = m_profil->Material;
                EndDialog(IDOK);
            }
            return TRUE;
        default: break;
        }
    }
    return CTgAcDialog::OnNotify(wParam, lParam, pResult);
}

void CTgDlgMatVyber::OnOK()
{
    const int radek = m_seznamMaterialu.GetNextItem(-1, LVNI_SELECTED);
    if (radek < 0) {
        MessageBoxW(m_hWnd, L"Není vybrána žádný materiál", kTitulek, MB_ICONINFORMATION);
        return;
    }
    if (m_chciProfil && !m_profil) {
        MessageBoxW(m_hWnd, L"Není vybrána žádný profil", kTitulek, MB_ICONINFORMATION);
        return;
    }
    m_material = reinterpret_cast<CTogMaterial*>(m_seznamMaterialu.GetItemData(radek));
    CTgAcDialog::OnOK();
}

void CTgDlgMatVyber::OnEditace()
{
    try {
        CTgDlgMatEdituj editor(m_seznam, kFiltrVse, m_material, this);
        if (editor.DoModal() != IDOK)
            return;
        m_material = editor.m_material;
    } catch (const CTogException& e) {
        ZobrazVyjimku(e, m_hWnd);
        return;
    } catch (const std::exception&) {
        MessageBoxW(m_hWnd, L"Nelze otevřít dialog editace materiálů - neznámá chyba", kTitulek, MB_ICONERROR);
        return;
    }
    m_filtr = kFiltrVse;
    NastavFiltr();
    ProvedPrikaz([this] { ObnovSeznam(); });
}
