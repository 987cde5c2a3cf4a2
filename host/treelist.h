// The "TreeList" window class: a tree view with columns. Its messages beyond the tree view's, the column
// record and the column's edit settings: the protocol between the control and whoever speaks to it (the
// dialogs that own one, and a client that reads or drives it from outside, as a test tool would).
#pragma once
#include "afxcmn.h"

// Messages to the control.
#define TVM_SETCOLUMN 0x1170
#define TVM_SETCOLUMNAUTOEDIT 0x114C ///< wParam: column << 11 | mode << 8 | options, separator, count
#define TVM_SETCOLUMNVALUECHECK 0x114D ///< wParam column; lParam kind flags | max length << 8
#define TVM_GETITEMPARAM 0x1150
#define TVM_SELECTCHILD 0x117A ///< wParam column, lParam item
#define TVM_INSERTCOLUMN 0x117B
#define TVM_GETCOLUMN 0x117C
#define TVM_GETCOLUMNCOUNT 0x117D

/// The same number goes the other way at the end of an in-place edit: the control asks its dialog
/// whether it takes the value (wParam the editor's window, lParam the NMTVDISPINFOW); nonzero refuses.
#define TVN_CHECKCELLVALUE TVM_SETCOLUMNAUTOEDIT

/// TVITEMW mask: the item names a cell, its column in cChildren (-1 or 0 for the first).
#define TVIF_SUBITEM 0x8000

/// TVM_GETNEXTITEM: the visible row before the given one.
#define TVGN_ROWBEFORE 0x0006
/// TVM_GETNEXTITEM: the column of the selected cell (the result is the column, -1 for none).
#define TVGN_CARETCOLUMN 0x000D

// Extended styles (TVM_SETEXTENDEDSTYLE).
#define TVS_EX_SUBSELECT 0x00040000 ///< a cell is selected, not a whole row

// TVCOLUMNW masks and formats.
#define TVCF_FMT 0x0001
#define TVCF_WIDTH 0x0002
#define TVCF_TEXT 0x0004
#define TVCF_VWIDTH 0x0008 ///< cx is a weight from 1 to 255: the column shares the free width
#define TVCF_MARK 0x10000000
#define TVCF_FIXED 0x20000000 ///< with the format bit TVCFMT_HIDDEN: hide or show the column
#define TVCF_LASTSIZE 0x80000000
#define TVCFMT_HIDDEN 0x20000000
/// The width that brings back the width a hidden column had.
#define TVCW_RESTORE 0x44332211

// Edit modes of a column (TVM_SETCOLUMNAUTOEDIT).
#define TVAE_NONE 0
#define TVAE_EDIT 1
#define TVAE_COMBO 2
#define TVAE_CBLIST 3

/// wParam of TVM_SETCOLUMNAUTOEDIT from its parts.
constexpr WPARAM TVAE_PARAM(int column, int mode, int options, int separator = 0, int count = 0)
{
    return static_cast<WPARAM>(static_cast<unsigned>(column & 0x3F) << 11 | static_cast<unsigned>(mode & 7) << 8 |
                               static_cast<unsigned>(options & 0xFF) | static_cast<unsigned>(separator & 0xFF) << 17 |
                               static_cast<unsigned>(count & 0x7F) << 25);
}

typedef struct tagTVCOLUMNW {
    UINT mask;
    int fmt;
    int cx;
    LPWSTR pszText;
    int cchTextMax;
} TVCOLUMNW;
