// CTreeListCtrl: a tree view with columns, the grid of the material dialogs. A row carries its
// dialog's object as a param and, per column, a text or the callback mark: the control asks the dialog
// for such a cell's text whenever it needs it. Columns have headings, widths, edit modes and value
// checks; a cell is edited in place by an edit field checked as typed, or a drop-down. The dialogs speak
// to it by the messages of the "TreeList" window class (treelist.h) and hear its notifications.
#pragma once
#include <afxcmn.h>

#include <memory>
#include <vector>

#include "CCheckedEdit.h"
#include "treelist.h"

class CTreeListCtrl : public CTreeCtrl {
public:
    static constexpr UINT kId = 4100;          ///< the control's id among the dialog's
    static constexpr int kIdMista = 11049;     ///< the dialog's placeholder, whose rectangle it takes
    static constexpr DWORD kStyl = 0x50801029; ///< child, visible, border, buttons, edit labels, ...

    CTreeListCtrl();
    ~CTreeListCtrl() override;

    /// Creates the control as the child 4100 of the dialog, in the placeholder's rectangle. Registers
    /// the window class "TreeList" at the first creation; throws CTogException when it can't.
    BOOL Create(DWORD dwStyle, CWnd* pDialog);
    using CTreeCtrl::Create;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    struct Sloupec {
        CString nadpis;
        int sirka = 0;
        bool vaha = false;   ///< sirka is a weight in the free width, not pixels
        int zapamatovana = 0; ///< the width while hidden
        bool skryty = false;
        int rezim = TVAE_NONE;
        int volby = 0;
        std::vector<CString> hodnoty; ///< of a drop-down
        int druhy = 0;                ///< kind flags of the value check
        int maxDelka = -1;
    };
    struct Bunka {
        CString text;
        bool zpetne = false; ///< the callback mark: the dialog gives the text
    };
    struct Radek {
        LPARAM param = 0;
        std::vector<Bunka> bunky;
    };

    const std::vector<Sloupec>& Sloupce() const { return m_sloupce; }

private:
    Radek* NajdiRadek(HTREEITEM h) const;
    HTREEITEM Polozka(const Radek* r) const { return reinterpret_cast<HTREEITEM>(const_cast<Radek*>(r)); }
    int Poradi(const Radek* r) const;
    Bunka& BunkaRadku(Radek& r, int sloupec);
    /// A notification to the dialog; gives its result.
    LRESULT Oznam(NMHDR& hlavicka);
    /// The record of a cell for a notification: the column -1 for the first one.
    TVITEMW ZaznamBunky(Radek& r, int sloupec, LPWSTR text, int delka);
    /// The cell's text: its own, or the dialog's for the callback mark.
    CString TextBunky(Radek& r, int sloupec);
    /// Selects the row and the column; tells the dialog when something moved.
    BOOL Vyber(Radek* r, int sloupec);
    /// Starts an in-place edit; gives the editor's window, null for a cell that can't be edited.
    HWND ZacniUpravu(Radek* r, int sloupec);
    /// Ends the edit; with `prevzit` the value is checked and taken. False while the edit stays open.
    BOOL UkonciUpravu(bool prevzit);
    void NastavKontroly(const Sloupec& s);

    LRESULT VlozSloupec(int index, const TVCOLUMNW* sloupec);
    LRESULT ZmenSloupec(int index, const TVCOLUMNW* sloupec);
    LRESULT CtiSloupec(int index, TVCOLUMNW* sloupec) const;
    LRESULT NastavUpravu(WPARAM wParam, LPARAM lParam);
    LRESULT VlozRadek(const TVINSERTSTRUCTW* vklad);
    LRESULT ZmenRadek(const TVITEMW* polozka);
    LRESULT CtiRadek(TVITEMW* polozka);
    LRESULT SmazRadek(HTREEITEM h);
    LRESULT DalsiRadek(WPARAM kod, HTREEITEM h) const;
    LRESULT Serad(const TVSORTCB* razeni);

    std::vector<Sloupec> m_sloupce;
    std::vector<std::unique_ptr<Radek>> m_radky;
    DWORD m_rozsirenyStyl = 0;
    Radek* m_vybrany = nullptr;
    int m_vybranySloupec = -1;

    // The in-place edit: the one shared edit field, the drop-down, and the cell under edit.
    CCheckedEdit m_pole;
    CWnd m_seznam;
    Radek* m_upravovany = nullptr;
    int m_upravovanySloupec = -1;
};
