// CDialogEx: MFC's extended dialog, the base of the system's dialogs. It adds nothing the model needs
// over CDialog.
#pragma once
#include "afxwin.h"
#include "afxcmn.h"

class CDialogEx : public CDialog {
public:
    explicit CDialogEx(UINT nIDTemplate, CWnd* pParent = nullptr) : CDialog(nIDTemplate, pParent) {}
};
