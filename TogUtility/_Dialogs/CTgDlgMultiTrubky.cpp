// The multi-pipe dialog: its resource, the lists and their buttons, the pick of layers from the
// drawing and the spinner of the spacing.
#include "StdAfx.h"
#include "_Dialogs/CTgDlgMultiTrubky.h"

#include <cwchar>

#include "CTogException.h"
#include "CTogSet.h"
#include "dbobjptr.h"

namespace {

constexpr LCID kCeskeTrideni = 0x0405;

const DLGITEMRES kPrvky[] = {
    {CTgDlgMultiTrubky::IDC_VYKRES, WC_BUTTONW, L"Výkres", BS_AUTORADIOBUTTON | WS_GROUP},
    {CTgDlgMultiTrubky::IDC_STANDARDNI, WC_BUTTONW, L"Standardní", BS_AUTORADIOBUTTON},
    {CTgDlgMultiTrubky::IDC_ZDROJ, WC_LISTBOXW, L"Zdrojové hladiny", LBS_NOTIFY | LBS_SORT | LBS_EXTENDEDSEL | WS_GROUP},
    {CTgDlgMultiTrubky::IDC_PRIDAT, WC_BUTTONW, L">", BS_PUSHBUTTON},
    {CTgDlgMultiTrubky::IDC_ODEBRAT, WC_BUTTONW, L"<", BS_PUSHBUTTON},
    {CTgDlgMultiTrubky::IDC_CIL, WC_LISTBOXW, L"Hladiny pro multitrubky", LBS_NOTIFY},
    {CTgDlgMultiTrubky::IDC_NAHORU, WC_BUTTONW, L"UP", BS_PUSHBUTTON},
    {CTgDlgMultiTrubky::IDC_DOLU, WC_BUTTONW, L"DW", BS_PUSHBUTTON},
    {CTgDlgMultiTrubky::IDC_OBRATIT, WC_BUTTONW, L"PR", BS_PUSHBUTTON},
    {CTgDlgMultiTrubky::IDC_VYMAZAT, WC_BUTTONW, L"Vymazat vše", BS_PUSHBUTTON},
    {CTgDlgMultiTrubky::IDC_Z_VYKRESU, WC_BUTTONW, L"Vybrat z výkresu", BS_PUSHBUTTON},
    {CTgDlgMultiTrubky::IDC_ROZTEC, WC_EDITW, L"", ES_AUTOHSCROLL | WS_TABSTOP},
    {CTgDlgMultiTrubky::IDC_CISELNIK, UPDOWN_CLASSW, L"", 0},
    {CTgDlgMultiTrubky::IDC_MM, WC_STATICW, L"mm", SS_LEFT},
    {CTgDlgMultiTrubky::IDC_HORNI, WC_BUTTONW, L"Horní trubka", BS_AUTORADIOBUTTON | WS_GROUP},
    {CTgDlgMultiTrubky::IDC_STRED, WC_BUTTONW, L"Střed", BS_AUTORADIOBUTTON},
    {CTgDlgMultiTrubky::IDC_SPODNI, WC_BUTTONW, L"Spodní trubka", BS_AUTORADIOBUTTON},
    {IDOK, WC_BUTTONW, L"Kreslit..", BS_DEFPUSHBUTTON | WS_GROUP},
    {IDCANCEL, WC_BUTTONW, L"Cancel", BS_PUSHBUTTON},
};

const DLGRESOURCE kZdroj = {CTgDlgMultiTrubky::IDD, L"Multičáry", 330, 220, kPrvky,
                            static_cast<int>(sizeof(kPrvky) / sizeof(kPrvky[0]))};

} // namespace

CTgDlgMultiTrubky::CTgDlgMultiTrubky(std::vector<AcString>* hladiny, const CString& roztec, int typVedeni,
                                     CWnd* pRodic)
    : CTgAcDialog(IDD, pRodic, L"Multitrubky"), m_roztec(roztec), m_typVedeni(typVedeni), m_hladiny(hladiny),
      m_edRoztec(JeCele, JeCastCeleho, nullptr, L"Zadejte celé číslo", nullptr, false)
{
    AfxRegisterDlgResource(&kZdroj);
    SeznamStdHladin(kSkupinaPotrubi, m_standardni);
    PridejTooltip(IDC_VYKRES, L"Zobrazit seznam hladin z výkresu");
    PridejTooltip(IDC_STANDARDNI, L"Zobrazit seznam standarních hladin utilit (pro trubky)");
    PridejTooltip(IDC_ZDROJ, L"Hladiny, ze kterých se vybírá; přetáhněte je do seznamu vpravo");
    PridejTooltip(IDC_CIL, L"Hladiny trubek v pořadí shora dolů (při kreslení zleva doprava)");
    PridejTooltip(IDC_PRIDAT, L"Přidat vybrané hladiny do seznamu");
    PridejTooltip(IDC_ODEBRAT, L"Odebrat vybranou hladinu ze seznamu");
    PridejTooltip(IDC_NAHORU, L"Posunout vybranou hladinu nahoru");
    PridejTooltip(IDC_DOLU, L"Posunout vybranou hladinu dolů");
    PridejTooltip(IDC_OBRATIT, L"Obrátit pořadí hladin");
    PridejTooltip(IDC_Z_VYKRESU, L"Naplnit seznam hladin vybráním entit z výkresu");
    PridejTooltip(IDC_VYMAZAT, L"Vypráznit seznam hladin");
    PridejTooltip(IDC_ROZTEC, L"Rozteč mezi jednotlivými trubkami v milimetrech v případě jiných jednotek (JEDNOTKY) se "
                              L"přepočítá, např. 100 mm pro <m> bdue 0.1 a pro <cm> 10");
    PridejTooltip(IDC_CISELNIK, L"Rozteč po 10 mm, od 30 do 1000 mm");
    PridejTooltip(IDC_HORNI, L"Vodicí trubka bude nahoře (při kreslení zleva doprava)");
    PridejTooltip(IDC_STRED, L"Vodicí trubka bude uprostřed (při kreslení zleva doprava)");
    PridejTooltip(IDC_SPODNI, L"Vodicí trubka bude dole (při kreslení zleva doprava)");
    PridejTooltip(IDOK, L"Uložit nastavení a kreslit");
    PridejTooltip(IDCANCEL, L"Zavřít bez změny seznamu hladin");
}

void CTgDlgMultiTrubky::DoDataExchange(CDataExchange* pDX)
{
    CTgAcDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_ZDROJ, m_zdroj);
    DDX_Control(pDX, IDC_CIL, m_cil);
    DDX_Control(pDX, IDC_ROZTEC, m_edRoztec);
    DDX_Control(pDX, IDC_CISELNIK, m_ciselnik);
}

BOOL CTgDlgMultiTrubky::OnInitDialog()
{
    CTgAcDialog::OnInitDialog();
    m_zdroj.m_idPartnera = IDC_CIL;
    m_cil.m_mozeMazat = true;
    if (m_zdroj.SetLocale(kCeskeTrideni) == static_cast<LCID>(LB_ERR))
        acutPrintf(L"\nNepodařilo se nastavit národní třídění");
    CheckRadioButton(IDC_VYKRES, IDC_STANDARDNI, IDC_STANDARDNI);
    NaplnZdroj(false);
    for (const AcString& hladina : *m_hladiny)
        m_cil.AddString(hladina.kwszPtr());
    m_edRoztec.SetWindowText(m_roztec);
    m_ciselnik.SetRange32(3, 100);
    m_ciselnik.SetPos32(_wtoi(m_roztec) / 10);
    const int radio = m_typVedeni == 0 ? IDC_HORNI : m_typVedeni == 1 ? IDC_STRED : IDC_SPODNI;
    CheckRadioButton(IDC_HORNI, IDC_SPODNI, radio);
    return TRUE;
}

void CTgDlgMultiTrubky::NaplnZdroj(bool zVykresu)
{
    if (zVykresu && m_vykresu.empty())
        NactiHladinyVykresu();
    m_zdroj.ResetContent();
    for (const AcString& nazev : zVykresu ? m_vykresu : m_standardni)
        m_zdroj.AddString(nazev.kwszPtr());
}

void CTgDlgMultiTrubky::NactiHladinyVykresu()
{
    AcDbLayerTablePointer tabulka(acdbHostApplicationServices()->workingDatabase(), AcDb::kForRead);
    if (tabulka.openStatus() != Acad::eOk)
        throw CTogException("Nelze otevřít LayerStyle table for reading", __LINE__, __FILE__, tabulka.openStatus());
    AcDbLayerTableIterator* pIterator = nullptr;
    if (tabulka->newIterator(pIterator) != Acad::eOk || !pIterator)
        return;
    std::unique_ptr<AcDbLayerTableIterator> iterator(pIterator);
    for (; !iterator->done(); iterator->step()) {
        AcDbLayerTableRecord* pZaznam = nullptr;
        if (iterator->getRecord(pZaznam, AcDb::kForRead) != Acad::eOk || !pZaznam)
            continue; // a record that can't be read is passed over
        AcDbLayerTableRecordPointer zaznam;
        zaznam.acquire(pZaznam);
        if (zaznam->isDependent())
            continue;
        const ACHAR* nazev = nullptr;
        if (zaznam->getName(nazev) == Acad::eOk && nazev)
            m_vykresu.insert(AcString(nazev));
    }
}

void CTgDlgMultiTrubky::Pridej()
{
    const int pocet = m_zdroj.GetSelCount();
    if (pocet <= 0)
        return;
    std::vector<int> vyber(static_cast<size_t>(pocet));
    m_zdroj.GetSelItems(pocet, vyber.data());
    for (int i : vyber) {
        CString text;
        m_zdroj.GetText(i, text);
        m_cil.AddString(text);
    }
}

void CTgDlgMultiTrubky::Odeber()
{
    const int vybrana = m_cil.GetCurSel();
    if (vybrana == LB_ERR)
        return;
    m_cil.DeleteString(static_cast<UINT>(vybrana));
    const int pocet = m_cil.GetCount();
    if (pocet > 0)
        m_cil.SetCurSel(vybrana < pocet ? vybrana : pocet - 1);
}

void CTgDlgMultiTrubky::Posun(int smer)
{
    const int vybrana = m_cil.GetCurSel();
    const int pocet = m_cil.GetCount();
    if (vybrana == LB_ERR || pocet < 2 || vybrana + smer < 0 || vybrana + smer >= pocet)
        return;
    m_cil.PresunPolozku(vybrana, smer < 0 ? vybrana - 1 : (vybrana + 2 < pocet ? vybrana + 2 : -1));
}

void CTgDlgMultiTrubky::Obrat()
{
    const int pocet = m_cil.GetCount();
    if (pocet < 2)
        return;
    const int vybrana = m_cil.GetCurSel();
    std::vector<CString> texty(static_cast<size_t>(pocet));
    for (int i = 0; i < pocet; ++i)
        m_cil.GetText(i, texty[static_cast<size_t>(i)]);
    m_cil.ResetContent();
    for (auto it = texty.rbegin(); it != texty.rend(); ++it)
        m_cil.AddString(*it);
    if (vybrana != LB_ERR)
        m_cil.SetCurSel(pocet - vybrana - 1);
}

void CTgDlgMultiTrubky::VyberZVykresu()
{
    PrejdiDoEditoru();
    struct Navrat {
        CTgDlgMultiTrubky& dialog;
        ~Navrat() { dialog.VratSeZEditoru(); }
    } navrat{*this};

    resbuf* filtr = acutBuildList(-4, L"<or", RTDXF0, L"LWPOLYLINE", RTDXF0, L"LINE", RTDXF0, L"INSERT", -4, L"or>", 0);
    acutPrintf(L"\nVyber úsečky, polyline, nebo bloky: ");
    ads_name mnozina;
    const int rc = acedSSGet(nullptr, nullptr, nullptr, filtr, mnozina);
    acutRelRb(filtr);
    if (rc != RTNORM)
        return;
    Adesk::Int32 pocet = 0;
    acedSSLength(mnozina, &pocet);
    if (pocet > 0)
        m_cil.ResetContent();
    for (Adesk::Int32 i = 0; i < pocet; ++i) {
        ads_name jmeno;
        AcDbObjectId id;
        AcDbEntityPointer entita;
        if (acedSSName(mnozina, i, jmeno) != RTNORM || acdbGetObjectId(id, jmeno) != Acad::eOk ||
            entita.open(id, AcDb::kForRead) != Acad::eOk) {
            acutPrintf(L"\nNepodařilo se otevřít entitu ke čtení");
            continue;
        }
        ACHAR* hladina = entita->layer();
        m_cil.AddString(hladina);
        acutDelString(hladina);
    }
    acedSSFree(mnozina);
}

void CTgDlgMultiTrubky::Krok(NMUPDOWN& krok)
{
    // After typing the steps go on from the typed value, a value between two steps counting as the
    // step above it.
    CString text;
    m_edRoztec.GetWindowText(text);
    const int napsano = _wtoi(text);
    int pozice = napsano / 10;
    if (napsano > pozice * 10)
        ++pozice;
    if (pozice != krok.iPos) {
        krok.iDelta += pozice - krok.iPos;
    }
    int nova = krok.iPos + krok.iDelta;
    nova = nova < 3 ? 3 : nova > 100 ? 100 : nova;
    krok.iDelta = nova - krok.iPos;
    text.Format(L"%i", nova * 10);
    m_edRoztec.SetWindowText(text);
}

BOOL CTgDlgMultiTrubky::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    auto* hlavicka = reinterpret_cast<NMHDR*>(lParam);
    if (hlavicka && hlavicka->idFrom == IDC_CISELNIK && hlavicka->code == UDN_DELTAPOS) {
        Krok(*reinterpret_cast<NMUPDOWN*>(lParam));
        *pResult = 0;
        return TRUE;
    }
    return CTgAcDialog::OnNotify(wParam, lParam, pResult);
}

BOOL CTgDlgMultiTrubky::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const int id = LOWORD(wParam);
    const int kod = HIWORD(wParam);
    if (id == IDC_ZDROJ && kod == LBN_DBLCLK) {
        const int i = m_zdroj.GetCurSel();
        CString text;
        if (i != LB_ERR && m_zdroj.GetText(i, text) != LB_ERR)
            m_cil.AddString(text);
        return TRUE;
    }
    if (kod != BN_CLICKED)
        return CTgAcDialog::OnCommand(wParam, lParam);
    switch (id) {
    case IDC_VYKRES: NaplnZdroj(true); return TRUE;
    case IDC_STANDARDNI: NaplnZdroj(false); return TRUE;
    case IDC_PRIDAT: Pridej(); return TRUE;
    case IDC_ODEBRAT: Odeber(); return TRUE;
    case IDC_NAHORU: Posun(-1); return TRUE;
    case IDC_DOLU: Posun(1); return TRUE;
    case IDC_OBRATIT: Obrat(); return TRUE;
    case IDC_VYMAZAT: m_cil.ResetContent(); return TRUE;
    case IDC_Z_VYKRESU: VyberZVykresu(); return TRUE;
    default: return CTgAcDialog::OnCommand(wParam, lParam);
    }
}

void CTgDlgMultiTrubky::OnOK()
{
    if (m_cil.GetCount() < 2) {
        MessageBoxW(m_hWnd, L"Je nutné vybrat minimálně dvě trubky", L"Togovy Utility pro AutoCad", MB_OK | MB_ICONWARNING);
        return;
    }
    if (!m_edRoztec.JePlatny())
        return;
    m_hladiny->clear();
    for (int i = 0; i < m_cil.GetCount(); ++i) {
        CString text;
        m_cil.GetText(i, text);
        m_hladiny->emplace_back(text.GetString());
    }
    m_edRoztec.GetWindowText(m_roztec);
    m_typVedeni = GetCheckedRadioButton(IDC_HORNI, IDC_SPODNI) - IDC_HORNI;
    if (m_typVedeni < 0)
        m_typVedeni = 2;
    EndDialog(IDOK);
}
