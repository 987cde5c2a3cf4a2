// The source list: its selection dragged into the partner list.
#include "CDragAndDropListBoxMulti.h"

CDragAndDropListBox* CDragAndDropListBoxMulti::Partner() const
{
    CWnd* rodic = GetParent();
    return rodic ? dynamic_cast<CDragAndDropListBox*>(rodic->GetDlgItem(m_idPartnera)) : nullptr;
}

CPoint CDragAndDropListBoxMulti::UPartnera(CPoint bod) const
{
    ClientToScreen(&bod);
    if (CDragAndDropListBox* partner = Partner())
        partner->ScreenToClient(&bod);
    return bod;
}

void CDragAndDropListBoxMulti::VlozDoPartnera(int cil)
{
    CDragAndDropListBox* partner = Partner();
    if (!partner)
        return;
    // From the last to the first, each at the same place: they arrive in their order, and the last
    // one inserted, the first of them, is selected.
    const int kam = cil < 0 ? partner->GetCount() : cil;
    bool vlozeno = false;
    for (auto it = m_ulozenyVyber.rbegin(); it != m_ulozenyVyber.rend(); ++it) {
        CString text;
        if (GetText(*it, text) == LB_ERR)
            continue;
        partner->SetItemData(partner->InsertString(kam, text), GetItemData(*it));
        vlozeno = true;
    }
    if (vlozeno)
        partner->SetCurSel(kam);
    SetSel(-1, FALSE);
    if (CWnd* rodic = GetParent())
        rodic->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), LBN_SELCHANGE), reinterpret_cast<LPARAM>(m_hWnd));
}

void CDragAndDropListBoxMulti::OnLButtonDown(UINT nFlags, CPoint point)
{
    BOOL mimo = FALSE;
    const int i = static_cast<int>(ItemFromPoint(point, mimo));
    if (mimo)
        return;
    m_ulozenyVyber.clear();
    if (GetSelCount() > 0 && GetSel(i) > 0) {
        std::vector<int> vyber(static_cast<size_t>(GetSelCount()));
        GetSelItems(static_cast<int>(vyber.size()), vyber.data());
        m_ulozenyVyber = vyber;
    } else {
        CListBox::OnLButtonDown(nFlags, point);
        m_ulozenyVyber.push_back(i);
    }
}

void CDragAndDropListBoxMulti::OnMouseMove(UINT nFlags, CPoint point)
{
    if (!(nFlags & MK_LBUTTON) || m_ulozenyVyber.empty())
        return;
    // The list box changed the selection under the button: the saved one comes back.
    SetSel(-1, FALSE);
    for (int i : m_ulozenyVyber)
        SetSel(i, TRUE);
    if (!m_tahne) {
        SetCapture();
        m_tahne = true;
    }
    if (CDragAndDropListBox* partner = Partner()) {
        partner->SledujTah(UPartnera(point));
        m_cil = partner->m_cil;
    }
}

void CDragAndDropListBoxMulti::OnLButtonUp(UINT, CPoint point)
{
    if (!m_tahne)
        return;
    ReleaseCapture();
    m_tahne = false;
    CDragAndDropListBox* partner = Partner();
    if (!partner)
        return;
    partner->UkonciTah();
    const CPoint uPartnera = UPartnera(point);
    RECT r{};
    partner->GetClientRect(&r);
    if (uPartnera.x >= r.left && uPartnera.x < r.right && uPartnera.y >= r.top && uPartnera.y < r.bottom)
        VlozDoPartnera(partner->CilZBodu(uPartnera));
    m_ulozenyVyber.clear();
    m_cil = -1;
}

void CDragAndDropListBoxMulti::OnTimer(UINT_PTR nIDEvent)
{
    if (CDragAndDropListBox* partner = Partner())
        partner->Roluj(nIDEvent);
}
