// The reordering list: drag and drop of one item, delete by dragging out or by the Delete key.
#include "CDragAndDropListBox.h"

#include <cstdlib>

namespace {

bool VKlientu(const CWnd& okno, CPoint bod)
{
    RECT r{};
    okno.GetClientRect(&r);
    return bod.x >= r.left && bod.x < r.right && bod.y >= r.top && bod.y < r.bottom;
}

} // namespace

void CDragAndDropListBox::Oznam()
{
    if (CWnd* rodic = GetParent())
        rodic->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), LBN_SELCHANGE), reinterpret_cast<LPARAM>(m_hWnd));
}

void CDragAndDropListBox::PresunPolozku(int s, int t)
{
    const int pocet = GetCount();
    if (s >= 0 && s < pocet && s != t) {
        CString text;
        GetText(s, text);
        const DWORD_PTR data = GetItemData(s);
        const int horni = GetTopIndex();
        if (t >= 0 && s < t) {
            InsertString(t, text);
            SetItemData(t, data);
            DeleteString(static_cast<UINT>(s));
            SetCurSel(t - 1);
        } else {
            DeleteString(static_cast<UINT>(s));
            const int kam = InsertString(t, text);
            SetItemData(kam, data);
            SetCurSel(kam);
        }
        SetTopIndex(horni);
    }
    Oznam();
}

int CDragAndDropListBox::CilZBodu(CPoint bod) const
{
    BOOL mimo = FALSE;
    const int i = static_cast<int>(ItemFromPoint(bod, mimo));
    return mimo ? -1 : i;
}

void CDragAndDropListBox::SledujTah(CPoint bod)
{
    RECT r{};
    GetClientRect(&r);
    const int vyska = GetItemHeight(0);
    if (bod.y >= r.bottom || bod.y < r.top) {
        // Outside above or below: scroll, the faster the further away.
        const bool dolu = bod.y >= r.bottom;
        const int vzdalenost = dolu ? bod.y - r.bottom : r.top - bod.y;
        m_intervalRolovani = 250 / (vzdalenost / vyska + 1);
        KillTimer(dolu ? kCasovacNahoru : kCasovacDolu);
        SetTimer(dolu ? kCasovacDolu : kCasovacNahoru, static_cast<UINT>(m_intervalRolovani), nullptr);
        return;
    }
    UkonciTah();
    m_cil = CilZBodu(bod);
}

void CDragAndDropListBox::UkonciTah()
{
    KillTimer(kCasovacDolu);
    KillTimer(kCasovacNahoru);
    m_intervalRolovani = 0;
}

void CDragAndDropListBox::Roluj(UINT_PTR casovac)
{
    const int horni = GetTopIndex();
    if (casovac == kCasovacDolu && horni + 1 < GetCount()) {
        SetTopIndex(horni + 1);
        m_cil = m_cil < 0 ? -1 : m_cil + 1 < GetCount() ? m_cil + 1 : -1;
    } else if (casovac == kCasovacNahoru && horni > 0) {
        SetTopIndex(horni - 1);
        m_cil = m_cil > 0 ? m_cil - 1 : 0;
    }
}

void CDragAndDropListBox::OnLButtonDown(UINT nFlags, CPoint point)
{
    CListBox::OnLButtonDown(nFlags, point);
    BOOL mimo = FALSE;
    const int i = static_cast<int>(ItemFromPoint(point, mimo));
    if (mimo)
        return;
    m_zdroj = i;
    m_cil = -1;
    SetCurSel(i);
}

void CDragAndDropListBox::OnMouseMove(UINT nFlags, CPoint point)
{
    if (!(nFlags & MK_LBUTTON) || m_zdroj < 0)
        return;
    if (!m_tahne) {
        SetCapture();
        m_tahne = true;
    }
    SledujTah(point);
}

void CDragAndDropListBox::OnLButtonUp(UINT, CPoint point)
{
    if (m_tahne) {
        UkonciTah();
        ReleaseCapture();
        m_tahne = false;
        if (!VKlientu(*this, point)) {
            if (m_mozeMazat && m_zdroj >= 0) {
                DeleteString(static_cast<UINT>(m_zdroj));
                Oznam();
            }
        } else {
            PresunPolozku(m_zdroj, CilZBodu(point));
        }
    }
    m_zdroj = -1;
    m_cil = -1;
}

void CDragAndDropListBox::OnKeyDown(UINT nChar, UINT, UINT)
{
    if (nChar != VK_DELETE)
        return;
    const int vybrana = GetCurSel();
    if (vybrana == LB_ERR)
        return;
    DeleteString(static_cast<UINT>(vybrana));
    const int pocet = GetCount();
    if (pocet > 0)
        SetCurSel(vybrana < pocet ? vybrana : pocet - 1);
    Oznam();
}

void CDragAndDropListBox::OnTimer(UINT_PTR nIDEvent) { Roluj(nIDEvent); }
