// The grid's rows, columns and in-place edit, reached through the window class's messages. The model
// runs on the host's one thread, so the control's data needs no lock of its own.
#include "CTreeListCtrl.h"

#include <algorithm>
#include <cwchar>

#include "CTogException.h"

namespace {

// The text of a cell copied into a caller's buffer.
void Zkopiruj(const CString& text, LPWSTR cil, int delka)
{
    if (!cil || cil == LPSTR_TEXTCALLBACKW || delka <= 0)
        return;
    const int n = std::min(text.GetLength(), delka - 1);
    std::wmemcpy(cil, text.GetString(), static_cast<size_t>(n));
    cil[n] = L'\0';
}

} // namespace

CTreeListCtrl::CTreeListCtrl() : m_pole(nullptr, nullptr, nullptr, nullptr, nullptr, false, -1) {}

CTreeListCtrl::~CTreeListCtrl() = default;

BOOL CTreeListCtrl::Create(DWORD dwStyle, CWnd* pDialog)
{
    // The class stays registered until the application unloads; a later creation finds it there.
    WNDCLASSW trida{};
    trida.style = CS_DBLCLKS; // the arrow cursor is the class's default
    trida.hInstance = GetModuleHandleW(nullptr);
    trida.lpszClassName = L"TreeList";
    if (!RegisterClassW(&trida) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
        throw CTogException("Nepodařilo se zaregistovat třídu TreeList", __LINE__, __FILE__);
    RECT misto{};
    if (CWnd* zastupce = pDialog ? pDialog->GetDlgItem(kIdMista) : nullptr) {
        zastupce->GetWindowRect(&misto);
        pDialog->ScreenToClient(&misto);
    }
    if (!CWnd::Create(L"TreeList", L"", dwStyle, misto, pDialog, kId))
        return FALSE;
    m_pole.Create(L"Edit", L"", ES_AUTOHSCROLL, misto, this, 1);
    m_seznam.Create(L"ComboBox", L"", 0, misto, this, 2);
    return TRUE;
}

CTreeListCtrl::Radek* CTreeListCtrl::NajdiRadek(HTREEITEM h) const
{
    for (const auto& r : m_radky)
        if (Polozka(r.get()) == h)
            return r.get();
    return nullptr;
}

int CTreeListCtrl::Poradi(const Radek* r) const
{
    for (size_t i = 0; i < m_radky.size(); ++i)
        if (m_radky[i].get() == r)
            return static_cast<int>(i);
    return -1;
}

CTreeListCtrl::Bunka& CTreeListCtrl::BunkaRadku(Radek& r, int sloupec)
{
    if (r.bunky.size() <= static_cast<size_t>(sloupec))
        r.bunky.resize(static_cast<size_t>(sloupec) + 1);
    return r.bunky[static_cast<size_t>(sloupec)];
}

LRESULT CTreeListCtrl::Oznam(NMHDR& hlavicka)
{
    hlavicka.hwndFrom = m_hWnd;
    hlavicka.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
    CWnd* dialog = GetParent();
    return dialog ? dialog->SendMessage(WM_NOTIFY, hlavicka.idFrom, reinterpret_cast<LPARAM>(&hlavicka)) : 0;
}

TVITEMW CTreeListCtrl::ZaznamBunky(Radek& r, int sloupec, LPWSTR text, int delka)
{
    TVITEMW z{};
    z.mask = TVIF_TEXT | TVIF_PARAM | TVIF_SUBITEM;
    z.hItem = Polozka(&r);
    z.pszText = text;
    z.cchTextMax = delka;
    z.cChildren = sloupec == 0 ? -1 : sloupec;
    z.lParam = r.param;
    return z;
}

CString CTreeListCtrl::TextBunky(Radek& r, int sloupec)
{
    const Bunka& b = BunkaRadku(r, sloupec);
    if (!b.zpetne)
        return b.text;
    wchar_t text[256] = L"";
    NMTVDISPINFOW info{};
    info.hdr.code = TVN_GETDISPINFOW;
    info.item = ZaznamBunky(r, sloupec, text, 256);
    Oznam(info.hdr);
    text[255] = L'\0';
    return CString(text);
}

BOOL CTreeListCtrl::Vyber(Radek* r, int sloupec)
{
    const int novySloupec = r && (m_rozsirenyStyl & TVS_EX_SUBSELECT) ? sloupec : -1;
    if (r == m_vybrany && novySloupec == m_vybranySloupec)
        return TRUE;
    NMTREEVIEWW zmena{};
    zmena.hdr.code = TVN_SELCHANGEDW;
    if (m_vybrany)
        zmena.itemOld = ZaznamBunky(*m_vybrany, std::max(m_vybranySloupec, 0), nullptr, 0);
    if (r)
        zmena.itemNew = ZaznamBunky(*r, std::max(novySloupec, 0), nullptr, 0);
    m_vybrany = r;
    m_vybranySloupec = novySloupec;
    Oznam(zmena.hdr);
    return TRUE;
}

void CTreeListCtrl::NastavKontroly(const Sloupec& s)
{
    struct Druh {
        int priznak;
        FceKontroly klavesova;
        FceKontroly konecna;
        FceFiltru filtr;
        const ACHAR* bublina;
    };
    static const Druh kDruhy[] = {
        {2, JeCastCeleho, JeCele, nullptr, L"Zadejte celé číslo"},
        {4, JeCastDesetinneho, JeDesetinne, CarkaNaTecku, L"Zadejte desetinné číslo"},
        {8, JePismenoCislice, JePismenoCislice, nullptr, L"Zadejte číslice nebo písmena"},
        {16, nullptr, JeEmail, nullptr, L"Zadejte platný email"},
        {64, JeNazevSouboru, JeNazevSouboru, nullptr, L"Zadejte název bez '<>*:\\?'(platný název souboru Windows)"},
    };
    m_pole.m_klavesova = nullptr;
    m_pole.m_konecna = nullptr;
    m_pole.m_filtr = nullptr;
    m_pole.m_textBubliny = L"";
    for (const Druh& d : kDruhy)
        if (s.druhy & d.priznak) {
            m_pole.m_klavesova = d.klavesova;
            m_pole.m_konecna = d.konecna;
            m_pole.m_filtr = d.filtr;
            m_pole.m_textBubliny = d.bublina;
            break;
        }
    m_pole.m_titulekBubliny = L"Chybný vstup";
    m_pole.m_povolitPrazdne = (s.druhy & 32) != 0;
    m_pole.m_maxDelka = s.maxDelka;
    if (s.maxDelka >= 0) {
        CString text;
        text.Format(L"%ls\nmax. %i znaků", m_pole.m_textBubliny.GetString(), s.maxDelka);
        m_pole.m_textBubliny = text;
    }
    m_pole.m_platny = true;
}

HWND CTreeListCtrl::ZacniUpravu(Radek* r, int sloupec)
{
    if (!r || sloupec < 0 || sloupec >= static_cast<int>(m_sloupce.size()))
        return nullptr;
    const Sloupec& s = m_sloupce[static_cast<size_t>(sloupec)];
    if (s.rezim == TVAE_NONE || s.skryty)
        return nullptr;
    // 1. The cell is selected; an editor still open goes without taking its value.
    Vyber(r, sloupec);
    if (m_upravovany)
        UkonciUpravu(false);
    // 2. The editor of the column's mode. 3. It starts with the cell's text.
    const CString text = TextBunky(*r, sloupec);
    CWnd* editor = &m_seznam;
    if (s.rezim == TVAE_EDIT) {
        NastavKontroly(s);
        editor = &m_pole;
    }
    editor->SetWindowText(text);
    editor->ShowWindow(SW_SHOW);
    m_upravovany = r;
    m_upravovanySloupec = sloupec;
    return editor->m_hWnd;
}

BOOL CTreeListCtrl::UkonciUpravu(bool prevzit)
{
    if (!m_upravovany)
        return TRUE;
    Radek& r = *m_upravovany;
    const int sloupec = m_upravovanySloupec;
    const Sloupec& s = m_sloupce[static_cast<size_t>(sloupec)];
    const bool pole = s.rezim == TVAE_EDIT;
    CWnd* editor = pole ? static_cast<CWnd*>(&m_pole) : &m_seznam;
    if (!prevzit) {
        editor->ShowWindow(SW_HIDE);
        m_upravovany = nullptr;
        return TRUE;
    }
    // 1. The editor's text.
    CString text;
    editor->GetWindowText(text);
    if (pole)
        text.TrimRight();
    std::vector<wchar_t> buf(text.GetString(), text.GetString() + text.GetLength() + 1);
    NMTVDISPINFOW info{};
    info.item = ZaznamBunky(r, sloupec, buf.data(), static_cast<int>(buf.size()));
    if (pole) {
        // 2. The field's own check: an invalid text keeps the edit open and shows the balloon.
        m_pole.Zkontroluj();
        if (!m_pole.JePlatny())
            return FALSE;
        // 3. The dialog may refuse a value that passed the field's check.
        info.hdr = NMHDR{m_hWnd, static_cast<UINT_PTR>(GetDlgCtrlID()), 0};
        CWnd* dialog = GetParent();
        if (dialog && dialog->SendMessage(TVN_CHECKCELLVALUE, reinterpret_cast<WPARAM>(m_pole.m_hWnd),
                                          reinterpret_cast<LPARAM>(&info)) != 0)
            return FALSE;
    } else if (s.rezim == TVAE_CBLIST &&
               std::none_of(s.hodnoty.begin(), s.hodnoty.end(), [&](const CString& h) { return h == text; })) {
        return FALSE; // a drop-down list takes only its entries
    }
    // 4. The editor goes; the dialog may still drop the value.
    editor->ShowWindow(SW_HIDE);
    m_upravovany = nullptr;
    info.hdr.code = TVN_ENDLABELEDITW;
    if (Oznam(info.hdr) != 0)
        return TRUE;
    // 5. The dialog's cell takes the text through the dialog, the control's own cell directly.
    Bunka& b = BunkaRadku(r, sloupec);
    if (b.zpetne) {
        info.item = ZaznamBunky(r, sloupec, buf.data(), static_cast<int>(buf.size()));
        info.hdr.code = TVN_SETDISPINFOW;
        Oznam(info.hdr);
    } else if (b.text != text) {
        b.text = text;
    }
    return TRUE;
}

LRESULT CTreeListCtrl::VlozSloupec(int index, const TVCOLUMNW* sloupec)
{
    if (!sloupec || index < 0)
        return -1;
    index = std::min(index, static_cast<int>(m_sloupce.size()));
    Sloupec s;
    if (sloupec->mask & TVCF_TEXT)
        s.nadpis = sloupec->pszText;
    if (sloupec->mask & TVCF_VWIDTH) {
        s.vaha = true;
        s.sirka = std::clamp(sloupec->cx, 1, 255);
    } else if (sloupec->mask & TVCF_WIDTH) {
        s.sirka = sloupec->cx;
    }
    m_sloupce.insert(m_sloupce.begin() + index, s);
    for (auto& r : m_radky)
        if (r->bunky.size() > static_cast<size_t>(index))
            r->bunky.insert(r->bunky.begin() + index, Bunka{});
    return index;
}

LRESULT CTreeListCtrl::ZmenSloupec(int index, const TVCOLUMNW* sloupec)
{
    if (!sloupec || index < 0 || index >= static_cast<int>(m_sloupce.size()))
        return 0;
    Sloupec& s = m_sloupce[static_cast<size_t>(index)];
    if (sloupec->mask & TVCF_TEXT)
        s.nadpis = sloupec->pszText;
    if (sloupec->mask & TVCF_FIXED) {
        if ((sloupec->fmt & TVCFMT_HIDDEN) && !s.skryty) {
            s.zapamatovana = s.sirka ? s.sirka : 100;
            s.sirka = 0;
            s.skryty = true;
        } else if (!(sloupec->fmt & TVCFMT_HIDDEN)) {
            s.skryty = false;
        }
    }
    if (sloupec->mask & TVCF_WIDTH) {
        if (sloupec->cx == static_cast<int>(TVCW_RESTORE)) {
            s.sirka = s.zapamatovana ? s.zapamatovana : 100;
            s.skryty = false;
        } else {
            s.sirka = sloupec->cx;
        }
    }
    return 1;
}

LRESULT CTreeListCtrl::CtiSloupec(int index, TVCOLUMNW* sloupec) const
{
    if (!sloupec || index < 0 || index >= static_cast<int>(m_sloupce.size()))
        return 0;
    const Sloupec& s = m_sloupce[static_cast<size_t>(index)];
    sloupec->fmt = s.skryty ? TVCFMT_HIDDEN : 0;
    sloupec->cx = s.sirka;
    if (sloupec->mask & TVCF_TEXT)
        Zkopiruj(s.nadpis, sloupec->pszText, sloupec->cchTextMax);
    return 1;
}

LRESULT CTreeListCtrl::NastavUpravu(WPARAM wParam, LPARAM lParam)
{
    const int sloupec = static_cast<int>((wParam >> 11) & 0x3F);
    const int rezim = static_cast<int>((wParam >> 8) & 7);
    if (sloupec >= static_cast<int>(m_sloupce.size()) || (sloupec == 0 && rezim >= 6))
        return 0;
    Sloupec& s = m_sloupce[static_cast<size_t>(sloupec)];
    s.rezim = rezim;
    s.volby = static_cast<int>(wParam & 0xFF);
    s.hodnoty.clear();
    const auto oddelovac = static_cast<wchar_t>((wParam >> 17) & 0xFF);
    size_t nejvic = (wParam >> 25) & 0x7F;
    if (nejvic == 0)
        nejvic = 1024;
    if (const auto* seznam = reinterpret_cast<const wchar_t*>(lParam)) {
        std::wstring hodnota;
        for (const wchar_t* z = seznam;; ++z) {
            if (*z == L'\0' || (oddelovac && *z == oddelovac)) {
                if (s.hodnoty.size() < nejvic)
                    s.hodnoty.emplace_back(hodnota.c_str());
                hodnota.clear();
                if (*z == L'\0')
                    break;
            } else {
                hodnota += *z;
            }
        }
    }
    return 1;
}

LRESULT CTreeListCtrl::VlozRadek(const TVINSERTSTRUCTW* vklad)
{
    if (!vklad)
        return 0;
    auto r = std::make_unique<Radek>();
    if (vklad->item.mask & TVIF_PARAM)
        r->param = vklad->item.lParam;
    Bunka& b = BunkaRadku(*r, 0);
    if (vklad->item.mask & TVIF_TEXT) {
        b.zpetne = vklad->item.pszText == LPSTR_TEXTCALLBACKW;
        if (!b.zpetne)
            b.text = vklad->item.pszText;
    }
    Radek* novy = r.get();
    if (vklad->hInsertAfter == TVI_FIRST)
        m_radky.insert(m_radky.begin(), std::move(r));
    else
        m_radky.push_back(std::move(r));
    return reinterpret_cast<LRESULT>(Polozka(novy));
}

LRESULT CTreeListCtrl::ZmenRadek(const TVITEMW* polozka)
{
    Radek* r = polozka ? NajdiRadek(polozka->hItem) : nullptr;
    if (!r)
        return FALSE;
    if (polozka->mask & TVIF_PARAM)
        r->param = polozka->lParam;
    if (polozka->mask & TVIF_TEXT) {
        const int sloupec = (polozka->mask & TVIF_SUBITEM) ? std::max(polozka->cChildren, 0) : 0;
        if (sloupec >= static_cast<int>(std::max<size_t>(m_sloupce.size(), 1)))
            return FALSE;
        Bunka& b = BunkaRadku(*r, sloupec);
        b.zpetne = polozka->pszText == LPSTR_TEXTCALLBACKW;
        b.text = b.zpetne ? CString() : CString(polozka->pszText);
    }
    return TRUE;
}

LRESULT CTreeListCtrl::CtiRadek(TVITEMW* polozka)
{
    Radek* r = polozka ? NajdiRadek(polozka->hItem) : nullptr;
    if (!r)
        return FALSE;
    if (polozka->mask & TVIF_PARAM)
        polozka->lParam = r->param;
    if (polozka->mask & TVIF_TEXT) {
        const int sloupec = (polozka->mask & TVIF_SUBITEM) ? std::max(polozka->cChildren, 0) : 0;
        Zkopiruj(TextBunky(*r, sloupec), polozka->pszText, polozka->cchTextMax);
    }
    return TRUE;
}

LRESULT CTreeListCtrl::SmazRadek(HTREEITEM h)
{
    if (h == TVI_ROOT) {
        UkonciUpravu(false);
        m_radky.clear();
        m_vybrany = nullptr;
        m_vybranySloupec = -1;
        return TRUE;
    }
    Radek* r = NajdiRadek(h);
    if (!r)
        return FALSE;
    if (m_upravovany == r)
        UkonciUpravu(false);
    if (m_vybrany == r) {
        m_vybrany = nullptr;
        m_vybranySloupec = -1;
    }
    m_radky.erase(m_radky.begin() + Poradi(r));
    return TRUE;
}

LRESULT CTreeListCtrl::DalsiRadek(WPARAM kod, HTREEITEM h) const
{
    auto vysledek = [this](int i) {
        return i >= 0 && i < static_cast<int>(m_radky.size()) ? reinterpret_cast<LRESULT>(Polozka(m_radky[static_cast<size_t>(i)].get()))
                                                                : 0;
    };
    switch (kod) {
    case TVGN_ROOT: return vysledek(0);
    case TVGN_NEXT: {
        const Radek* r = NajdiRadek(h);
        return r ? vysledek(Poradi(r) + 1) : 0;
    }
    case TVGN_PREVIOUS:
    case TVGN_ROWBEFORE: {
        const Radek* r = NajdiRadek(h);
        return r ? vysledek(Poradi(r) - 1) : 0;
    }
    case TVGN_CARET: return reinterpret_cast<LRESULT>(m_vybrany ? Polozka(m_vybrany) : nullptr);
    case TVGN_CARETCOLUMN: return m_vybrany ? m_vybranySloupec : -1;
    default: return 0;
    }
}

LRESULT CTreeListCtrl::Serad(const TVSORTCB* razeni)
{
    if (!razeni || !razeni->lpfnCompare)
        return FALSE;
    std::stable_sort(m_radky.begin(), m_radky.end(), [razeni](const auto& a, const auto& b) {
        return razeni->lpfnCompare(a->param, b->param, razeni->lParam) < 0;
    });
    return TRUE;
}

LRESULT CTreeListCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* h = reinterpret_cast<HTREEITEM>(lParam);
    switch (message) {
    case TVM_SETEXTENDEDSTYLE: {
        const DWORD stary = m_rozsirenyStyl;
        const auto maska = wParam ? static_cast<DWORD>(wParam) : ~DWORD{0};
        m_rozsirenyStyl = (m_rozsirenyStyl & ~maska) | (static_cast<DWORD>(lParam) & maska);
        return stary;
    }
    case TVM_INSERTCOLUMN: return VlozSloupec(static_cast<int>(wParam), reinterpret_cast<const TVCOLUMNW*>(lParam));
    case TVM_SETCOLUMN: return ZmenSloupec(static_cast<int>(wParam), reinterpret_cast<const TVCOLUMNW*>(lParam));
    case TVM_GETCOLUMN: return CtiSloupec(static_cast<int>(wParam), reinterpret_cast<TVCOLUMNW*>(lParam));
    case TVM_GETCOLUMNCOUNT: return static_cast<LRESULT>(m_sloupce.size());
    case TVM_SETCOLUMNAUTOEDIT: return NastavUpravu(wParam, lParam);
    case TVM_SETCOLUMNVALUECHECK: {
        if (static_cast<size_t>(wParam) >= m_sloupce.size())
            return 0;
        Sloupec& s = m_sloupce[wParam];
        const auto hodnota = static_cast<unsigned long>(lParam);
        s.druhy = static_cast<int>(hodnota & 0xFF);
        const int delka = static_cast<int>((hodnota >> 8) & 0xFFFF);
        s.maxDelka = delka == 0xFFFF ? -1 : delka;
        return 1;
    }
    case TVM_INSERTITEMW: return VlozRadek(reinterpret_cast<const TVINSERTSTRUCTW*>(lParam));
    case TVM_SETITEMW: return ZmenRadek(reinterpret_cast<const TVITEMW*>(lParam));
    case TVM_GETITEMW: return CtiRadek(reinterpret_cast<TVITEMW*>(lParam));
    case TVM_DELETEITEM: return SmazRadek(h);
    case TVM_GETCOUNT: return static_cast<LRESULT>(m_radky.size());
    case TVM_GETNEXTITEM: return DalsiRadek(wParam, h);
    case TVM_GETITEMPARAM: {
        const Radek* r = NajdiRadek(h);
        return r ? r->param : 0;
    }
    case TVM_SELECTCHILD: {
        Radek* r = NajdiRadek(h);
        return r || !h ? Vyber(r, static_cast<int>(wParam)) : FALSE;
    }
    case TVM_SORTCHILDRENCB: return Serad(reinterpret_cast<const TVSORTCB*>(lParam));
    case TVM_EDITLABELW: return reinterpret_cast<LRESULT>(ZacniUpravu(NajdiRadek(h), static_cast<int>(wParam)));
    case TVM_ENDEDITLABELNOW: return UkonciUpravu(wParam == FALSE);
    case WM_LBUTTONDBLCLK: {
        if (!m_vybrany)
            return 0;
        NMHDR dvojklik{};
        dvojklik.code = NM_DBLCLK;
        Oznam(dvojklik);
        return 0;
    }
    default: return CTreeCtrl::WindowProc(message, wParam, lParam);
    }
}
