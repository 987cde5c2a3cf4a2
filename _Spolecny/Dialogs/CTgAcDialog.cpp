// The dialog base: tooltips, heading, text links and the step out to the drawing editor.
#include "CTgAcDialog.h"

#include <afxcmn.h>

#include <string>

#include "acadwnd.h"
#include "acdocman.h"
#include "CTogException.h"

CTgAcDialog::CTgAcDialog(UINT idd, CWnd* pRodic, const ACHAR* nadpis, UINT idIkony, int idVlastniKresby)
    : CDialogEx(idd, pRodic), m_idd(idd), m_nadpis(nadpis ? nadpis : L""), m_idVlastniKresby(idVlastniKresby),
      m_idIkony(idIkony)
{
    m_pismoNadpisu.CreatePointFont(130, L"Arial");
    m_tucnePismo.CreatePointFont(static_cast<int>(130 * 0.76), L"Arial");
    m_tucnePismo.m_nWeight = 700;
}

CTgAcDialog::~CTgAcDialog() = default;

void CTgAcDialog::PridejTooltip(int idPrvku, const ACHAR* text)
{
    if (m_tooltipy.count(idPrvku))
        return;
    Tooltip& t = m_tooltipy[idPrvku];
    t.text = text ? text : L"";
}

BOOL CTgAcDialog::OnInitDialog()
{
    CDialogEx::OnInitDialog();
    for (auto& [id, t] : m_tooltipy) {
        CWnd* prvek = GetDlgItem(id);
        if (!prvek)
            continue;
        t.ovladac = std::make_unique<CToolTipCtrl>();
        t.ovladac->Create(this, TTS_ALWAYSTIP | TTS_BALLOON);
        t.ovladac->SetMaxTipWidth(t.maxSirka);
        t.ovladac->AddTool(prvek, t.text);
        t.ovladac->Activate(TRUE);
    }
    EnableDynamicLayout(TRUE);
    if (m_ikona) {
        SetIcon(m_ikona, TRUE);
        SetIcon(m_ikona, FALSE);
    }
    // The size at the start is the smallest the dialog may take.
    RECT r{};
    GetWindowRect(&r);
    m_minSirka = r.right - r.left;
    m_minVyska = r.bottom - r.top;
    return TRUE;
}

void CTgAcDialog::OnPaint()
{
    CPaintDC dc(this);
    if (m_nadpis.IsEmpty())
        return;
    const int x = static_cast<int>(20 * m_meritkoDpi);
    const int y = static_cast<int>(45 * m_meritkoDpi);
    RECT r{};
    GetClientRect(&r);
    dc.MoveTo(x, y);
    dc.LineTo(r.right - x, y);
    dc.SelectObject(&m_pismoNadpisu);
    dc.SetTextColor(GetSysColor(COLOR_HOTLIGHT));
    dc.SetBkMode(TRANSPARENT);
    dc.TextOut(x, y * 4 / 10, m_nadpis);
}

BOOL CTgAcDialog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const auto* hlavicka = reinterpret_cast<const NMHDR*>(lParam);
    wchar_t trida[32] = L"";
    if (hlavicka && (hlavicka->code == NM_CLICK || hlavicka->code == NM_RETURN) &&
        GetClassNameW(hlavicka->hwndFrom, trida, 32) && std::wstring(trida) == L"SysLink") {
        // A text link: open its address.
        const auto* odkaz = reinterpret_cast<const NMLINK*>(lParam);
        if (odkaz->item.szUrl[0]) {
            HINSTANCE vysledek = ShellExecuteW(nullptr, L"open", odkaz->item.szUrl, nullptr, nullptr, SW_SHOWNORMAL);
            if (reinterpret_cast<INT_PTR>(vysledek) < 33)
                MessageBoxW(m_hWnd, L"Nelze otevřít hypertextový odkaz.", L"Togovy Utility pro AutoCad", MB_ICONERROR);
            return TRUE;
        }
    }
    return CDialogEx::OnNotify(wParam, lParam, pResult);
}

LRESULT CTgAcDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    MSG zprava{m_hWnd, message, wParam, lParam, 0, {0, 0}};
    for (auto& [id, t] : m_tooltipy)
        if (t.ovladac)
            t.ovladac->RelayEvent(&zprava);
    return CDialogEx::WindowProc(message, wParam, lParam);
}

void CTgAcDialog::PrejdiDoEditoru(const std::vector<HWND>& dalsiOkna)
{
    HWND hlavni = adsw_acadMainWnd();
    if (::IsWindowEnabled(hlavni))
        return; // outside a modal dialog there is nothing to step out of
    std::vector<HWND> okna{m_hWnd};
    okna.insert(okna.end(), dalsiOkna.begin(), dalsiOkna.end());
    for (HWND okno : okna) {
        const bool povoleno = ::IsWindowEnabled(okno) != FALSE;
        m_ulozenaOkna.emplace_back(okno, povoleno);
        if (povoleno)
            ::EnableWindow(okno, FALSE);
        ::ShowWindow(okno, SW_HIDE);
    }
    acDocManager->disableDocumentActivation();
    ::EnableWindow(hlavni, TRUE);
    ::SetFocus(hlavni);
}

void CTgAcDialog::VratSeZEditoru()
{
    acDocManager->enableDocumentActivation();
    ::EnableWindow(adsw_acadMainWnd(), FALSE);
    if (m_ulozenaOkna.empty())
        throw CTogException("Chyba při přechodu do editoru AutoCADu, nebylo uloženo žádné aktivní okno!", __LINE__,
                            __FILE__);
    HWND posledni = nullptr;
    for (auto it = m_ulozenaOkna.rbegin(); it != m_ulozenaOkna.rend(); ++it) {
        if (!::IsWindow(it->first))
            continue;
        ::ShowWindow(it->first, SW_SHOW);
        ::EnableWindow(it->first, it->second ? TRUE : FALSE);
        posledni = it->first;
    }
    if (posledni)
        ::SetFocus(posledni);
    m_ulozenaOkna.clear();
}
