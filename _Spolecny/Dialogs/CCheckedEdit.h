// CCheckedEdit: an edit that checks its text as the user types. It refuses a key that would break the
// pattern (a beep and a balloon), paints a wrong text red on pale yellow, and tells its parent when it
// loses the focus. CDoubleEdit: the same for decimal numbers, with the value read out.
#pragma once
#include <afxwin.h>

#include "KontrolyVstupu.h"

/// The message both edits send their parent: wParam the edit's window, lParam the payload
/// (CCheckedEdit: the right-trimmed text, const ACHAR*; CDoubleEdit: const double*).
constexpr UINT WM_TG_KONTROLA_EDITU = 0x83FC;

class CCheckedEdit : public CEdit {
public:
    /// Null texts give the defaults (no balloon text, the title "Chybný vstup"); maxDelka -1: no limit.
    CCheckedEdit(FceKontroly konecna, FceKontroly klavesova, FceFiltru filtr, const ACHAR* textBubliny,
                 const ACHAR* titulekBubliny, bool povolitPrazdne, int maxDelka = -1);

    /// The valid flag; when it is false the balloon shows first.
    bool JePlatny();
    /// The check of the field: runs the final check on the right-trimmed text and redraws on a change
    /// of state. Gives the valid flag.
    bool Zkontroluj();
    void ZobrazBublinu();
    /// The text of the field without the blanks at its right end.
    CString TextBezMezer() const;

    bool m_platny = true;
    bool m_povolitPrazdne;
    bool m_ticho = false; ///< set while the field changes its own text: that change isn't checked
    CString m_posledniText;
    CString m_textBubliny;
    CString m_titulekBubliny;
    FceKontroly m_klavesova;
    FceKontroly m_konecna;
    FceFiltru m_filtr;
    CBrush m_stetecChyba;
    CBrush m_stetecOk;
    int m_maxDelka;

protected:
    void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags) override;
    void OnKillFocus(CWnd* pNewWnd) override;
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    HBRUSH CtlColor(CDC* pDC, UINT nCtlColor) override;
    /// The refusal of a key: a beep and the balloon.
    void Odmitni();
};

class CDoubleEdit : public CCheckedEdit {
public:
    explicit CDoubleEdit(double prazdna = 0.0, const ACHAR* textBubliny = nullptr, const ACHAR* titulekBubliny = nullptr);

    /// False (and nothing in `hodnota`) while the field is invalid or its text holds no number or one
    /// out of range; an empty field gives the value of an empty field.
    bool Hodnota(double& hodnota);

    double m_prazdna;

protected:
    void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags) override;
    void OnKillFocus(CWnd* pNewWnd) override;
    /// Sends the value to the parent, or clears the field when it holds none.
    void OznamHodnotu();
};
