// CDragAndDropListBoxMulti: a list of multiple selection whose selected items the user drags into a
// partner CDragAndDropListBox of the same dialog. The items stay here: the drag copies them.
#pragma once
#include <vector>

#include "CDragAndDropListBox.h"

class CDragAndDropListBoxMulti : public CListBox {
public:
    /// The partner list of the dialog; null when the dialog has no such control.
    CDragAndDropListBox* Partner() const;
    /// Copies the saved items into the partner at the place (-1: at its end), in their order here;
    /// selects the last one there, clears the selection here and tells the parent.
    void VlozDoPartnera(int cil);

    std::vector<int> m_ulozenyVyber;
    int m_cil = -1;
    bool m_tahne = false;
    int m_intervalRolovani = 0;
    int m_idPartnera = 0;

protected:
    void OnLButtonDown(UINT nFlags, CPoint point) override;
    void OnMouseMove(UINT nFlags, CPoint point) override;
    void OnLButtonUp(UINT nFlags, CPoint point) override;
    void OnTimer(UINT_PTR nIDEvent) override;

private:
    /// The point of this list's client area in the partner's.
    CPoint UPartnera(CPoint bod) const;
};
