// MFC's common controls, the subset the system's dialogs call: the tree with check boxes and the
// tooltip control, with the common-control notifications and values of commctrl.h.
#pragma once
#include "afxwin.h"
#include "commctrl.h"

typedef struct tagNMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
} NMHDR, *LPNMHDR;

#define NM_FIRST (0U - 0U)
#define NM_CLICK (NM_FIRST - 2)
#define NM_RETURN (NM_FIRST - 4)
#define TVN_FIRST (0U - 400U)
#define TVN_SELCHANGEDW (TVN_FIRST - 51)
#define TVN_SELCHANGED TVN_SELCHANGEDW
#define TVN_ITEMCHANGEDW (TVN_FIRST - 19)
#define TVN_ITEMCHANGED TVN_ITEMCHANGEDW

struct _TREEITEM;
typedef struct _TREEITEM* HTREEITEM;
#define TVI_ROOT ((HTREEITEM)(ULONG_PTR)-0x10000)
#define TVI_FIRST ((HTREEITEM)(ULONG_PTR)-0x0FFFF)
#define TVI_LAST ((HTREEITEM)(ULONG_PTR)-0x0FFFE)

#define TVS_HASBUTTONS 0x0001
#define TVS_HASLINES 0x0002
#define TVS_LINESATROOT 0x0004
#define TVS_CHECKBOXES 0x0100
#define TVIS_SELECTED 0x0002
#define TVIS_STATEIMAGEMASK 0xF000
#define TVIF_STATE 0x0008
#define INDEXTOSTATEIMAGEMASK(i) ((i) << 12)
#define TVGN_ROOT 0x0000
#define TVGN_NEXT 0x0001
#define TVGN_CHILD 0x0004
#define TVGN_CARET 0x0009

/// TVN_ITEMCHANGED: an item's state changed; a check box shows in the state image (1 clear, 2 set).
typedef struct tagTVITEMCHANGE {
    NMHDR hdr;
    UINT uChanged;
    HTREEITEM hItem;
    UINT uStateNew;
    UINT uStateOld;
    LPARAM lParam;
} NMTVITEMCHANGE;

#define TTS_ALWAYSTIP 0x01
#define TTS_NOPREFIX 0x02
#define TTS_BALLOON 0x40
#define TTI_NONE 0
#define TTI_INFO 1
#define TTI_WARNING 2
#define TTI_ERROR 3
#define TTI_INFO_LARGE 4
#define TTI_WARNING_LARGE 5
#define TTI_ERROR_LARGE 6

/// A tree of items; with TVS_CHECKBOXES each item has a check box. Items are kept in the order of
/// insertion under their parent.
class CTreeCtrl : public CWnd {
public:
    HTREEITEM InsertItem(LPCWSTR lpszItem, HTREEITEM hParent = TVI_ROOT, HTREEITEM hInsertAfter = TVI_LAST);
    BOOL DeleteAllItems();
    UINT GetCount() const;
    HTREEITEM GetRootItem() const;
    HTREEITEM GetChildItem(HTREEITEM hItem) const;
    HTREEITEM GetNextSiblingItem(HTREEITEM hItem) const;
    HTREEITEM GetNextItem(HTREEITEM hItem, UINT nCode) const;
    HTREEITEM GetSelectedItem() const;
    BOOL SelectItem(HTREEITEM hItem);
    CString GetItemText(HTREEITEM hItem) const;
    BOOL GetCheck(HTREEITEM hItem) const;
    BOOL SetCheck(HTREEITEM hItem, BOOL fCheck = TRUE);
    DWORD_PTR GetItemData(HTREEITEM hItem) const;
    BOOL SetItemData(HTREEITEM hItem, DWORD_PTR dwData);
};

/// Tooltips of a dialog's controls. The model keeps the text on the tool's control, where the platform
/// shows it.
class CToolTipCtrl : public CWnd {
public:
    BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);
    int SetMaxTipWidth(int iWidth);
    BOOL AddTool(CWnd* pWnd, LPCWSTR lpszText);
    void Activate(BOOL bActivate);
    void RelayEvent(LPMSG) {}
    int m_maxWidth = -1;
    BOOL m_active = FALSE;
    CWnd* m_pTool = nullptr;
    CString m_text;
};

// The link control (SysLink): NM_CLICK and NM_RETURN carry the link's address.
#define MAX_LINKID_TEXT 48
#define L_MAX_URL_LENGTH (2048 + 32 + 4)
typedef struct tagLITEM {
    UINT mask;
    int iLink;
    UINT state;
    UINT stateMask;
    WCHAR szID[MAX_LINKID_TEXT];
    WCHAR szUrl[L_MAX_URL_LENGTH];
} LITEM, *PLITEM;
typedef struct tagNMLINK {
    NMHDR hdr;
    LITEM item;
} NMLINK, *PNMLINK;

// The up-down control (spin button): a position in a range; a click on an arrow moves the position
// by one and sends WM_VSCROLL with SB_THUMBPOSITION and the new position to the parent, then
// SB_ENDSCROLL.
#define UPDOWN_CLASSW L"msctls_updown32"
#define UDS_ARROWKEYS 0x0020

class CSpinButtonCtrl : public CWnd {
public:
    void SetRange32(int nLower, int nUpper);
    void GetRange32(int& lower, int& upper) const;
    /// Clamped to the range; gives the old position.
    int SetPos32(int nPos);
    int GetPos32(LPBOOL lpbError = nullptr) const;
};
