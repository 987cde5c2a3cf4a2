// The model's state behind MFC's window classes: one AFX_CTLSTATE per control (its window class, style,
// text, check, selection, items, tooltip, painted texts) and one AFX_DLGSTATE per running dialog, which
// owns the states of its controls and the wrappers GetDlgItem hands out.
#pragma once
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "afxcmn.h"

namespace sim::ui {

/// Grid: the tree view with columns (window class "TreeList"), read and driven through its messages.
/// ListView: a list view in report mode, rows under column headings.
enum class Kind { Other, PushButton, CheckBox, ThreeState, Radio, GroupBox, Edit, Label, Tree, List, Link, Grid, ListView, Spin };

/// The kind of a control from its window class and style.
Kind kindOf(const std::wstring& className, DWORD style);

struct Item {
    std::wstring text;
    int parent = -1; ///< index of the parent item, -1 at the root
    bool checked = false;
    bool selected = false; ///< in a list of multiple selection
    DWORD_PTR data = 0;
    std::vector<std::wstring> cells; ///< a list view's texts of the columns after the first
};

/// A list item's height in pixels and the screen's gap between two controls of a dialog, which the
/// model lays out one below the other.
constexpr int kItemHeight = 16;
constexpr int kControlPitch = 1000;

/// A pseudo handle for a control: controls are no windows of the window table, only their dialog is.
HWND newControlHandle();
/// Registers which object answers to a handle (null removes it).
void mapHandle(HWND hWnd, CWnd* pWnd);

} // namespace sim::ui

struct AFX_CTLSTATE {
    int id = 0;
    std::wstring className;
    DWORD style = 0;
    sim::ui::Kind kind = sim::ui::Kind::Other;
    HWND hwnd = nullptr;
    std::wstring text;
    int check = BST_UNCHECKED;
    bool enabled = true;
    bool visible = true;
    bool readOnly = false;
    int selStart = 0, selEnd = 0;
    UINT limit = 0; ///< 0: the edit's default
    std::vector<sim::ui::Item> items;
    int selectedItem = -1;
    std::vector<std::wstring> columns; ///< a list view's column headings
    int topIndex = 0;
    int spinPos = 0, spinLower = 0, spinUpper = 100; ///< an up-down control's position and range
    LCID locale = 0x0409;
    std::wstring tooltip;
    std::vector<std::wstring> painted;
    int acceptedChars = 0; ///< characters an edit took, for the runner to see refused keys
    int invalidations = 0;
    CWnd* parent = nullptr; ///< the dialog
    CWnd* bound = nullptr;  ///< the object that answers for the control now
};

struct AFX_DLGSTATE {
    const DLGRESOURCE* resource = nullptr;
    std::vector<std::unique_ptr<AFX_CTLSTATE>> controls; ///< in the order of the resource
    std::map<int, std::unique_ptr<CWnd>> wrappers;       ///< GetDlgItem's objects of unbound controls
    std::vector<CWnd*> boundMembers;                     ///< member controls bound by DDX_Control
    bool ended = false;
    int result = 0;

    AFX_CTLSTATE* find(int id) const;
};
