// The key press and check steps of the validated edits and their notifications to the parent.
#include "CCheckedEdit.h"

#include <afxcmn.h>

#include <cerrno>
#include <cwchar>

namespace {
const COLORREF kPozadiChyby = RGB(255, 255, 160);
const COLORREF kTextChyby = RGB(255, 0, 0);
} // namespace

CCheckedEdit::CCheckedEdit(FceKontroly konecna, FceKontroly klavesova, FceFiltru filtr, const ACHAR* textBubliny,
                           const ACHAR* titulekBubliny, bool povolitPrazdne, int maxDelka)
    : m_povolitPrazdne(povolitPrazdne), m_textBubliny(textBubliny ? textBubliny : L""),
      m_titulekBubliny(titulekBubliny ? titulekBubliny : L"Chybný vstup"), m_klavesova(klavesova),
      m_konecna(konecna), m_filtr(filtr), m_maxDelka(maxDelka)
{
    m_stetecChyba.CreateSolidBrush(kPozadiChyby);
    m_stetecOk.CreateSolidBrush(RGB(255, 255, 255));
}

CString CCheckedEdit::TextBezMezer() const
{
    CString text;
    GetWindowText(text);
    return text.TrimRight();
}

bool CCheckedEdit::JePlatny()
{
    if (!m_platny)
        ZobrazBublinu();
    return m_platny;
}

void CCheckedEdit::ZobrazBublinu() { ShowBalloonTip(m_titulekBubliny, m_textBubliny, TTI_ERROR_LARGE); }

bool CCheckedEdit::Zkontroluj()
{
    bool platny = true;
    if (m_konecna) {
        CString text = TextBezMezer();
        m_posledniText = text;
        if (text.IsEmpty())
            platny = m_povolitPrazdne;
        else if (m_maxDelka >= 0 && text.GetLength() > m_maxDelka)
            platny = false;
        else
            platny = m_konecna(text);
    }
    if (platny != m_platny) {
        m_platny = platny;
        Invalidate();
    }
    return m_platny;
}

void CCheckedEdit::Odmitni()
{
    MessageBeep(MB_ICONERROR);
    ZobrazBublinu();
}

void CCheckedEdit::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    // Control keys (backspace, Enter, ...) are the edit's own.
    if (nChar < 0x20) {
        CEdit::OnChar(nChar, nRepCnt, nFlags);
        return;
    }
    ACHAR znak = static_cast<ACHAR>(nChar);
    if (m_filtr)
        znak = m_filtr(znak);
    if (!m_klavesova && m_maxDelka < 0) {
        CEdit::OnChar(znak, nRepCnt, nFlags);
        return;
    }
    CString text;
    GetWindowText(text);
    // The length counts the whole text: a full field refuses a key even over a selection.
    if (m_maxDelka >= 0 && text.GetLength() >= m_maxDelka) {
        Odmitni();
        return;
    }
    if (!m_klavesova) {
        CEdit::OnChar(znak, nRepCnt, nFlags);
        return;
    }
    int od = 0, po = 0;
    GetSel(od, po);
    std::wstring novy(text.GetString());
    novy.replace(static_cast<size_t>(od), static_cast<size_t>(po - od), 1, znak);
    if (m_klavesova(novy.c_str()))
        CEdit::OnChar(znak, nRepCnt, nFlags);
    else
        Odmitni();
}

void CCheckedEdit::OnKillFocus(CWnd* pNewWnd)
{
    CEdit::OnKillFocus(pNewWnd);
    CWnd* rodic = GetParent();
    if (!rodic)
        return;
    CString text = TextBezMezer();
    if (rodic->SendMessage(WM_TG_KONTROLA_EDITU, reinterpret_cast<WPARAM>(m_hWnd),
                           reinterpret_cast<LPARAM>(text.GetString())) == 0) {
        m_ticho = true;
        SetWindowText(text);
    }
}

BOOL CCheckedEdit::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE) {
        if (m_ticho)
            m_ticho = false;
        else
            Zkontroluj();
    }
    // The parent hears the change too.
    return CEdit::OnChildNotify(message, wParam, lParam, pResult);
}

HBRUSH CCheckedEdit::CtlColor(CDC* pDC, UINT)
{
    Zkontroluj();
    if (m_platny) {
        pDC->SetTextColor(GetSysColor(COLOR_WINDOWTEXT));
        pDC->SetBkColor(RGB(255, 255, 255));
        return m_stetecOk;
    }
    pDC->SetTextColor(kTextChyby);
    pDC->SetBkColor(kPozadiChyby);
    return m_stetecChyba;
}

// ---------------------------------------------------------------------------------------------------

CDoubleEdit::CDoubleEdit(double prazdna, const ACHAR* textBubliny, const ACHAR* titulekBubliny)
    : CCheckedEdit(JeDesetinne, JeCastDesetinneho, CarkaNaTecku, textBubliny, titulekBubliny, false, -1),
      m_prazdna(prazdna)
{
}

bool CDoubleEdit::Hodnota(double& hodnota)
{
    if (!m_platny)
        return false;
    CString text;
    GetWindowText(text);
    if (text.IsEmpty()) {
        hodnota = m_prazdna;
        return true;
    }
    const wchar_t* zacatek = text.GetString();
    wchar_t* konec = nullptr;
    errno = 0;
    const double cislo = std::wcstod(zacatek, &konec);
    if (konec == zacatek || errno == ERANGE)
        return false;
    hodnota = cislo;
    return true;
}

void CDoubleEdit::OznamHodnotu()
{
    double hodnota = 0.0;
    if (!Hodnota(hodnota)) {
        SetWindowText(L"");
        return;
    }
    if (CWnd* rodic = GetParent())
        rodic->SendMessage(WM_TG_KONTROLA_EDITU, reinterpret_cast<WPARAM>(m_hWnd), reinterpret_cast<LPARAM>(&hodnota));
}

void CDoubleEdit::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (nChar == VK_RETURN) {
        OznamHodnotu();
        return;
    }
    CCheckedEdit::OnChar(nChar, nRepCnt, nFlags);
}

void CDoubleEdit::OnKillFocus(CWnd* pNewWnd)
{
    CEdit::OnKillFocus(pNewWnd);
    OznamHodnotu();
}
