// MFC's window and dialog classes as a toolkit-free model: a window is its state (text, check, enabled,
// visible, items, tooltip) plus the virtual handlers that messages reach. The platform builds a dialog's
// controls from its resource, runs it modally from script lines and sends the messages a user's actions
// would send; a Windows build binds the same classes to real controls through MFC.
//
// Where MFC reaches a handler through a message map (OnChar, OnKillFocus, OnPaint, CtlColor, ...), the
// model declares it virtual and dispatches it from WindowProc, so a class overrides it as it would
// map it.
#pragma once
#include <utility>
#include <vector>
#include "afxstr.h"
#include "windows.h"

// Window and control styles (winuser.h).
#define WS_TABSTOP 0x00010000L
#define WS_GROUP 0x00020000L
#define WS_DISABLED 0x08000000L
#define WS_VISIBLE 0x10000000L
#define BS_PUSHBUTTON 0x00000000L
#define BS_DEFPUSHBUTTON 0x00000001L
#define BS_CHECKBOX 0x00000002L
#define BS_AUTOCHECKBOX 0x00000003L
#define BS_RADIOBUTTON 0x00000004L
#define BS_3STATE 0x00000005L
#define BS_AUTO3STATE 0x00000006L
#define BS_GROUPBOX 0x00000007L
#define BS_AUTORADIOBUTTON 0x00000009L
#define BS_OWNERDRAW 0x0000000BL
#define BS_TYPEMASK 0x0000000FL
#define ES_UPPERCASE 0x0008L
#define ES_AUTOHSCROLL 0x0080L
#define ES_READONLY 0x0800L
#define SS_LEFT 0x00000000L

// Button check states.
#define BST_UNCHECKED 0x0000
#define BST_CHECKED 0x0001
#define BST_INDETERMINATE 0x0002

// Notification codes carried in the high word of WM_COMMAND's wParam.
#define BN_CLICKED 0
#define EN_SETFOCUS 0x0100
#define EN_KILLFOCUS 0x0200
#define EN_CHANGE 0x0300
#define LBN_SELCHANGE 1
#define LBN_DBLCLK 2
#define CBN_SELCHANGE 1

// List boxes.
#define LBS_NOTIFY 0x0001L
#define LBS_SORT 0x0002L
#define LBS_MULTIPLESEL 0x0008L
#define LBS_EXTENDEDSEL 0x0800L
#define LB_ERR (-1)

// Mouse messages carry the keys held in wParam and the point, in client coordinates, in lParam.
#define MK_LBUTTON 0x0001
#define WM_TIMER 0x0113

#define WM_INITDIALOG 0x0110
#define WM_VSCROLL 0x0115
#define WM_CTLCOLOREDIT 0x0133
#define WM_CTLCOLORSTATIC 0x0138
#define CTLCOLOR_EDIT 1
#define CTLCOLOR_STATIC 6
#define TRANSPARENT 1
#define OPAQUE 2
#define COLOR_WINDOW 5
#define COLOR_WINDOWTEXT 8
#define COLOR_HOTLIGHT 26

// Scroll codes of WM_VSCROLL (low word of wParam; the high word is the position).
#define SB_LINEUP 0
#define SB_LINEDOWN 1
#define SB_THUMBPOSITION 4
#define SB_ENDSCROLL 8

// The window classes of dialog controls.
#define WC_BUTTONW L"Button"
#define WC_EDITW L"Edit"
#define WC_STATICW L"Static"
#define WC_LISTBOXW L"ListBox"
#define WC_COMBOBOXW L"ComboBox"
#define CBS_DROPDOWNLIST 0x0003L
#define WC_TREEVIEWW L"SysTreeView32"
#define WC_LINK L"SysLink"

/// Default colours of the system palette; the platform has one fixed look.
DWORD WINAPI GetSysColor(int nIndex);
/// The window class of a control ("Button", "Edit", ...), "#32770" for a dialog; 0 for no window.
int WINAPI GetClassNameW(HWND hWnd, LPWSTR lpClassName, int nMaxCount);

// ---------------------------------------------------------------------------------------------
// Dialog resources. A Windows build takes a dialog's controls from the resource script (.rc); here the
// system gives the same DIALOGEX statement as data and registers it under its id before the dialog
// runs. Registering an id again replaces the entry.

struct DLGITEMRES {
    int nID;
    LPCWSTR lpszClass; ///< WC_BUTTONW, WC_EDITW, ...
    LPCWSTR lpszText;  ///< caption; may be null
    DWORD dwStyle;     ///< BS_..., ES_..., WS_DISABLED, WS_GROUP, ...
};

struct DLGRESOURCE {
    UINT nIDTemplate;
    LPCWSTR lpszCaption;
    int cx, cy; ///< size in dialog units
    const DLGITEMRES* pItems;
    int nItems;
};

/// Keeps the pointer: the resource must live as long as the program (static data).
void AfxRegisterDlgResource(const DLGRESOURCE* pResource);

// ---------------------------------------------------------------------------------------------
// Painting. A device context here remembers its colours and the texts drawn on it; the platform shows
// the texts a dialog paints (its heading) in the transcript.

class CWnd;

/// A point of a window's client area or of the screen.
class CPoint : public POINT {
public:
    CPoint() : POINT{0, 0} {}
    CPoint(int x_, int y_) : POINT{x_, y_} {}
    bool operator==(const CPoint& o) const { return x == o.x && y == o.y; }
};

class CGdiObject {
public:
    virtual ~CGdiObject() = default;
    HGDIOBJ m_hObject = nullptr;
};

class CBrush : public CGdiObject {
public:
    CBrush() = default;
    explicit CBrush(COLORREF crColor) { CreateSolidBrush(crColor); }
    BOOL CreateSolidBrush(COLORREF crColor)
    {
        m_color = crColor;
        m_hObject = this;
        return TRUE;
    }
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
    COLORREF m_color = 0;
};

class CFont : public CGdiObject {
public:
    /// Height in tenths of a point.
    BOOL CreatePointFont(int nPointSize, LPCWSTR lpszFaceName)
    {
        m_nPointSize = nPointSize;
        m_face = lpszFaceName;
        m_hObject = this;
        return TRUE;
    }
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }
    int m_nPointSize = 0;
    int m_nWeight = 400;
    CString m_face;
};

class CDC {
public:
    virtual ~CDC() = default;
    COLORREF SetTextColor(COLORREF c) { return std::exchange(m_text, c); }
    COLORREF SetBkColor(COLORREF c) { return std::exchange(m_back, c); }
    COLORREF GetTextColor() const { return m_text; }
    COLORREF GetBkColor() const { return m_back; }
    int SetBkMode(int nBkMode) { return std::exchange(m_bkMode, nBkMode); }
    CGdiObject* SelectObject(CGdiObject* p) { return std::exchange(m_selected, p); }
    BOOL MoveTo(int, int) { return TRUE; }
    BOOL LineTo(int, int) { return TRUE; }
    BOOL TextOut(int, int, LPCWSTR lpszString)
    {
        m_texts.push_back(lpszString ? lpszString : L"");
        return TRUE;
    }
    HDC m_hDC = nullptr;
    std::vector<CString> m_texts; ///< what TextOut drew, in order
private:
    COLORREF m_text = RGB(0, 0, 0);
    COLORREF m_back = RGB(255, 255, 255);
    int m_bkMode = OPAQUE;
    CGdiObject* m_selected = nullptr;
};

/// Painting of a window in OnPaint; what it draws becomes the window's painted texts.
class CPaintDC : public CDC {
public:
    explicit CPaintDC(CWnd* pWnd) : m_pWnd(pWnd) {}
    ~CPaintDC() override;
    CWnd* m_pWnd;
};

// ---------------------------------------------------------------------------------------------
// Windows

struct AFX_CTLSTATE; // the model's state of one window (platform)
struct AFX_DLGSTATE; // the model's state of a running dialog (platform)

class CWnd {
public:
    CWnd();
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    HWND m_hWnd = nullptr;
    HWND GetSafeHwnd() const { return m_hWnd; }
    /// The model object of a handle, or null.
    static CWnd* FromHandle(HWND hWnd);

    int GetDlgCtrlID() const;
    CWnd* GetParent() const;
    DWORD GetStyle() const;

    void SetWindowText(LPCWSTR lpszString);
    void GetWindowText(CString& rString) const;
    /// Copies at most nMaxCount - 1 characters and the terminator; gives the number copied.
    int GetWindowText(LPWSTR lpszStringBuf, int nMaxCount) const;
    int GetWindowTextLength() const;

    /// Gives nonzero when the window was disabled before.
    BOOL EnableWindow(BOOL bEnable = TRUE);
    BOOL IsWindowEnabled() const;
    /// Gives nonzero when the window was visible before.
    BOOL ShowWindow(int nCmdShow);
    BOOL IsWindowVisible() const;
    /// Moves the focus here; the window that had it hears OnKillFocus first. Gives that window.
    CWnd* SetFocus();
    static CWnd* GetFocus();
    void Invalidate(BOOL bErase = TRUE);
    BOOL GetWindowRect(LPRECT lpRect) const;
    BOOL GetClientRect(LPRECT lpRect) const;
    /// Client coordinates of this window from screen ones (the model's windows stand at the origin).
    void ScreenToClient(LPRECT lpRect) const;
    HICON SetIcon(HICON hIcon, BOOL bBigIcon);
    void EnableDynamicLayout(BOOL bEnable = TRUE);

    /// Makes this object a child window of the class under the parent, with the id. Inside a running
    /// dialog the child joins its controls, after those of the resource.
    virtual BOOL Create(LPCWSTR lpszClassName, LPCWSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                        CWnd* pParentWnd, UINT nID);
    // The mouse. The model lays a dialog's controls one below the other on the screen; a window that
    // captures the mouse hears it until it releases it. The model's timers never tick: a list shows
    // all its items, so there is nothing to scroll.
    void ClientToScreen(LPPOINT lpPoint) const;
    void ScreenToClient(LPPOINT lpPoint) const;
    CWnd* SetCapture();
    static CWnd* GetCapture();
    static BOOL ReleaseCapture();
    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, void* lpfnTimer);
    BOOL KillTimer(UINT_PTR nIDEvent);

    /// Delivers the message to WindowProc at once.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    // Controls of a dialog by id. A missing id gives null (GetDlgItem) or does nothing.
    CWnd* GetDlgItem(int nID) const;
    void SetDlgItemText(int nID, LPCWSTR lpszString);
    int GetDlgItemText(int nID, CString& rString) const;
    void CheckDlgButton(int nIDButton, UINT nCheck);
    UINT IsDlgButtonChecked(int nIDButton) const;
    /// Checks nIDCheckButton and clears the other buttons from nIDFirstButton to nIDLastButton.
    void CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton);
    /// The checked button of the range, 0 when none.
    int GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton);

    /// The model's state; the platform's alone.
    AFX_CTLSTATE* m_pCtl = nullptr;

    /// The message dispatch: WM_COMMAND to the control's OnChildNotify, then OnCommand; WM_NOTIFY to
    /// OnNotify; WM_CHAR, WM_KEYDOWN, WM_SETFOCUS, WM_KILLFOCUS, WM_PAINT and WM_CTLCOLOR... to their
    /// handlers. Anything else gives 0.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

protected:
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// A notification the parent reflects back to its control first (ON_CONTROL_REFLECT_EX); TRUE
    /// keeps it from the parent.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// The colours of a control (reflected WM_CTLCOLOR); null leaves the defaults.
    virtual HBRUSH CtlColor(CDC* pDC, UINT nCtlColor);

    // Message handlers. The defaults do what the control's window class does: an edit inserts a
    // typed character over its selection, deletes the selection on VK_DELETE and VK_BACK.
    virtual void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    virtual void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    virtual void OnSetFocus(CWnd* pOldWnd);
    virtual void OnKillFocus(CWnd* pNewWnd);
    virtual void OnPaint();
    virtual void OnLButtonDown(UINT nFlags, CPoint point);
    virtual void OnLButtonUp(UINT nFlags, CPoint point);
    virtual void OnLButtonDblClk(UINT nFlags, CPoint point);
    virtual void OnMouseMove(UINT nFlags, CPoint point);
    virtual void OnTimer(UINT_PTR nIDEvent);
    /// WM_VSCROLL from a vertical scroll bar or spin button of this window (pScrollBar is that control).
    virtual void OnVScroll(UINT nSBCode, UINT nPos, class CScrollBar* pScrollBar);

    friend class CDialog;
    friend struct AFX_DLGSTATE;
};

class CStatic : public CWnd {};

class CScrollBar : public CWnd {};

class CButton : public CWnd {
public:
    int GetCheck() const;
    void SetCheck(int nCheck);
    UINT GetButtonStyle() const;
};

class CEdit : public CWnd {
public:
    /// nEndChar -1 selects to the end; (0, -1) selects all, (-1, ...) removes the selection.
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
    void GetSel(int& nStartChar, int& nEndChar) const;
    void ReplaceSel(LPCWSTR lpszNewText, BOOL bCanUndo = FALSE);
    void SetLimitText(UINT nMax);
    UINT GetLimitText() const;
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
    /// The balloon shows in the transcript; ttiIcon is a TTI_ value.
    BOOL ShowBalloonTip(LPCWSTR lpszTitle, LPCWSTR lpszText, INT ttiIcon = 0);
    BOOL HideBalloonTip();
};

/// A drop-down list of texts (ComboBox); CBN_SELCHANGE tells the parent of a choice made by the user.
class CComboBox : public CWnd {
public:
    /// Adds at the end; gives the index.
    int AddString(LPCWSTR lpszString);
    void ResetContent();
    int GetCount() const;
    /// -1 for none.
    int GetCurSel() const;
    /// -1 clears the choice; gives CB_ERR (-1) for an index out of range.
    int SetCurSel(int nSelect);
    void GetLBText(int nIndex, CString& rString) const;
};

/// A list of texts with item data. With LBS_SORT added texts take their place by the list's locale;
/// with LBS_MULTIPLESEL or LBS_EXTENDEDSEL each item has a selection of its own. The model shows every
/// item: an item is GetItemHeight pixels high, the first at the top of the client area.
class CListBox : public CWnd {
public:
    int GetCount() const;
    int AddString(LPCWSTR lpszItem);
    /// nIndex -1 appends. Gives the index, LB_ERR beyond the end.
    int InsertString(int nIndex, LPCWSTR lpszItem);
    /// Gives the number of items left, LB_ERR for a wrong index.
    int DeleteString(UINT nIndex);
    void ResetContent();
    int GetText(int nIndex, CString& rString) const;
    int GetTextLen(int nIndex) const;
    int FindStringExact(int nIndexStart, LPCWSTR lpszFind) const;
    /// Single selection: the selected item or LB_ERR. Multiple selection: the item with the caret.
    int GetCurSel() const;
    int SetCurSel(int nSelect);
    int GetSel(int nIndex) const;
    int SetSel(int nIndex, BOOL bSelect = TRUE);
    int GetSelCount() const;
    int GetSelItems(int nMaxItems, LPINT rgIndex) const;
    DWORD_PTR GetItemData(int nIndex) const;
    int SetItemData(int nIndex, DWORD_PTR dwItemData);
    int GetTopIndex() const;
    int SetTopIndex(int nIndex);
    int GetItemHeight(int nIndex) const;
    /// The nearest item to the point; bOutside when the point is past the items or outside the list.
    UINT ItemFromPoint(CPoint pt, BOOL& bOutside) const;
    LCID GetLocale() const;
    /// Gives the old locale, LB_ERR when the locale isn't known.
    LCID SetLocale(LCID nNewLocale);
};

// ---------------------------------------------------------------------------------------------
// Dialogs

class CDataExchange {
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate) : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd) {}
    BOOL m_bSaveAndValidate;
    CWnd* m_pDlgWnd;
};

/// Binds the member control to the dialog's control of that id (the first exchange only).
void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);
void DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
void DDX_Check(CDataExchange* pDX, int nIDC, int& value);

class CDialog : public CWnd {
public:
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    ~CDialog() override;

    /// Runs the dialog modally: the platform builds its controls from the registered resource, calls
    /// OnInitDialog, shows it and takes script lines until it ends. Gives the value of EndDialog, or
    /// -1 when the resource is not registered.
    virtual INT_PTR DoModal();
    /// Ends a running dialog with the result; the dialog closes once the current handler returns.
    void EndDialog(int nResult);
    /// DoDataExchange under the direction given.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
    virtual BOOL OnInitDialog();

    UINT m_nIDHelp = 0;
    LPCWSTR m_lpszTemplateName = nullptr;
    UINT m_nIDTemplate;
    CWnd* m_pParentWnd;
    AFX_DLGSTATE* m_pDlg = nullptr; ///< the platform's state while the dialog runs

protected:
    /// UpdateData(TRUE), then EndDialog(IDOK).
    virtual void OnOK();
    /// EndDialog(IDCANCEL).
    virtual void OnCancel();
    virtual void DoDataExchange(CDataExchange* pDX);
    /// IDOK and IDCANCEL clicks go to OnOK and OnCancel.
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
};

/// The application's main window: the host's frame.
CWnd* AfxGetMainWnd();
