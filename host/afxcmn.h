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
#define NM_DBLCLK (NM_FIRST - 3)
#define TVN_GETDISPINFOW (TVN_FIRST - 52)
#define TVN_SETDISPINFOW (TVN_FIRST - 53)
#define TVN_ENDLABELEDITW (TVN_FIRST - 60)
#define LVN_FIRST (0U - 100U)
#define LVN_ITEMCHANGED (LVN_FIRST - 1)

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
#define TVGN_PREVIOUS 0x0002
#define TVIF_TEXT 0x0001
#define TVIF_PARAM 0x0004
#define TVS_EDITLABELS 0x0008
#define TVS_SHOWSELALWAYS 0x0020
#define TVS_FULLROWSELECT 0x1000
#define LPSTR_TEXTCALLBACKW ((LPWSTR)-1L)

// Tree view messages (commctrl.h).
#define TV_FIRST 0x1100
#define TVM_DELETEITEM (TV_FIRST + 1)
#define TVM_GETCOUNT (TV_FIRST + 5)
#define TVM_GETNEXTITEM (TV_FIRST + 10)
#define TVM_SORTCHILDRENCB (TV_FIRST + 21)
#define TVM_ENDEDITLABELNOW (TV_FIRST + 22)
#define TVM_SETEXTENDEDSTYLE (TV_FIRST + 44)
#define TVM_INSERTITEMW (TV_FIRST + 50)
#define TVM_GETITEMW (TV_FIRST + 62)
#define TVM_SETITEMW (TV_FIRST + 63)
#define TVM_EDITLABELW (TV_FIRST + 65)

typedef struct tagTVITEMW {
    UINT mask;
    HTREEITEM hItem;
    UINT state;
    UINT stateMask;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
    int iSelectedImage;
    int cChildren;
    LPARAM lParam;
} TVITEMW, *LPTVITEMW;

typedef struct tagTVINSERTSTRUCTW {
    HTREEITEM hParent;
    HTREEITEM hInsertAfter;
    TVITEMW item;
} TVINSERTSTRUCTW;

typedef int(CALLBACK* PFNTVCOMPARE)(LPARAM lParam1, LPARAM lParam2, LPARAM lParamSort);
typedef struct tagTVSORTCB {
    HTREEITEM hParent;
    PFNTVCOMPARE lpfnCompare;
    LPARAM lParam;
} TVSORTCB;

typedef struct tagNMTREEVIEWW {
    NMHDR hdr;
    UINT action;
    TVITEMW itemOld;
    TVITEMW itemNew;
    POINT ptDrag;
} NMTREEVIEWW;

typedef struct tagTVDISPINFOW {
    NMHDR hdr;
    TVITEMW item;
} NMTVDISPINFOW;

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

// List view in report mode (SysListView32): rows of texts under column headings.
#define LVCFMT_LEFT 0x0000
#define LVNI_ALL 0x0000
#define LVNI_SELECTED 0x0002
#define LVIS_FOCUSED 0x0001
#define LVIS_SELECTED 0x0002
#define LVIF_STATE 0x0008
#define LVS_REPORT 0x0001
#define LVS_SINGLESEL 0x0004
#define LVS_SHOWSELALWAYS 0x0008
#define LVS_EX_FULLROWSELECT 0x00000020
#define LVS_EX_GRIDLINES 0x00000001
#define LVSCW_AUTOSIZE_USEHEADER -2

/// LVN_ITEMCHANGED: an item's state changed (its selection).
typedef struct tagNMLISTVIEW {
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
} NMLISTVIEW, *LPNMLISTVIEW;

/// NM_DBLCLK of a list view: the item under the pointer, -1 for none.
typedef struct tagNMITEMACTIVATE {
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
    UINT uKeyFlags;
} NMITEMACTIVATE;

typedef int(CALLBACK* PFNLVCOMPARE)(LPARAM lParam1, LPARAM lParam2, LPARAM lParamSort);

class CListCtrl : public CWnd {
public:
    int InsertColumn(int nCol, LPCWSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1, int nSubItem = -1);
    /// Inserts at nItem (or at the end when past it); gives the index.
    int InsertItem(int nItem, LPCWSTR lpszItem);
    BOOL SetItemText(int nItem, int nSubItem, LPCWSTR lpszText);
    CString GetItemText(int nItem, int nSubItem) const;
    BOOL SetItemData(int nItem, DWORD_PTR dwData);
    DWORD_PTR GetItemData(int nItem) const;
    int GetItemCount() const;
    BOOL DeleteItem(int nItem);
    BOOL DeleteAllItems();
    /// LVNI_SELECTED from nItem + 1 on: the selected item, -1 for none.
    int GetNextItem(int nItem, int nFlags) const;
    /// LVIS_SELECTED in both masks selects the item (the list is single-selection) and tells the
    /// parent with LVN_ITEMCHANGED; a clear state deselects it.
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    /// Sorts by the items' data with the compare function.
    BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData);
    DWORD SetExtendedStyle(DWORD dwNewStyle);
    BOOL EnsureVisible(int nItem, BOOL bPartialOK);
};

/// Tooltips of a dialog's controls. The model keeps the text on the tool's control, where the platform
/// shows it.
class CToolTipCtrl : public CWnd {
public:
    using CWnd::Create;
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

// The up-down control (spinner): UDN_DELTAPOS asks the parent before the position changes; the parent
// may change iDelta, or answer nonzero to refuse the step. The position then becomes iPos + iDelta
// within the range.
#define UPDOWN_CLASSW L"msctls_updown32"
#define UDN_FIRST (0U - 721U)
#define UDN_DELTAPOS (UDN_FIRST - 1)
typedef struct _NM_UPDOWN {
    NMHDR hdr;
    int iPos;
    int iDelta;
} NMUPDOWN, *LPNMUPDOWN;
#define UDS_ARROWKEYS 0x0020

class CSpinButtonCtrl : public CWnd {
public:
    void SetRange32(int nLower, int nUpper);
    void GetRange32(int& nLower, int& nUpper) const;
    /// Gives the old position; the position stays within the range.
    int SetPos32(int nPos);
    int GetPos32(LPBOOL lpbError = nullptr) const;
};
