// CDragAndDropListBox: a list whose items the user reorders by dragging them, drags out to delete
// (when allowed) and deletes with the Delete key. Item text and data move together.
#pragma once
#include <afxwin.h>

class CDragAndDropListBox : public CListBox {
public:
    /// Timers of the scroll while the pointer is below or above the list.
    static constexpr UINT_PTR kCasovacDolu = 100, kCasovacNahoru = 101;

    /// Moves item s to place t (-1: past the last item) with its text and data and selects it; the
    /// parent hears LBN_SELCHANGE whether anything moved or not.
    void PresunPolozku(int s, int t);
    /// The place a point of the client area stands for: the item under it, -1 past the last item.
    int CilZBodu(CPoint bod) const;
    /// Shows the place of a drop (the line above the target) and scrolls while the point is outside:
    /// used for its own drags and for those of a partner list.
    void SledujTah(CPoint bod);
    /// Ends what SledujTah started: the mark and the scroll.
    void UkonciTah();
    /// Tells the parent that the selection changed.
    void Oznam();

    bool m_mozeMazat = false;       ///< a drag out of the list deletes the item
    int m_zdroj = -1;               ///< the dragged item
    int m_cil = -1;                 ///< the place of the drop
    bool m_tahne = false;
    int m_intervalRolovani = 0;     ///< milliseconds between two scroll steps, 0 while not scrolling

protected:
    void OnLButtonDown(UINT nFlags, CPoint point) override;
    void OnMouseMove(UINT nFlags, CPoint point) override;
    void OnLButtonUp(UINT nFlags, CPoint point) override;
    void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) override;
    void OnTimer(UINT_PTR nIDEvent) override;

public:
    /// A timer tick, also relayed from a partner list.
    void Roluj(UINT_PTR casovac);
};
