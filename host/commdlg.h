// The common file dialogs (commdlg.h): OPENFILENAMEW, GetOpenFileNameW and GetSaveFileNameW, with the
// Windows SDK's names and values.
#pragma once
#include "windows.h"

typedef UINT_PTR(CALLBACK* LPOFNHOOKPROC)(HWND, UINT, WPARAM, LPARAM);

typedef struct tagOFNW {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    LPCWSTR lpstrFilter;
    LPWSTR lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;
    LPWSTR lpstrFile;
    DWORD nMaxFile;
    LPWSTR lpstrFileTitle;
    DWORD nMaxFileTitle;
    LPCWSTR lpstrInitialDir;
    LPCWSTR lpstrTitle;
    DWORD Flags;
    WORD nFileOffset;
    WORD nFileExtension;
    LPCWSTR lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
} OPENFILENAMEW, *LPOPENFILENAMEW;
typedef OPENFILENAMEW OPENFILENAME;
typedef LPOPENFILENAMEW LPOPENFILENAME;

#define OFN_READONLY 0x00000001
#define OFN_OVERWRITEPROMPT 0x00000002
#define OFN_HIDEREADONLY 0x00000004
#define OFN_NOCHANGEDIR 0x00000008
#define OFN_SHOWHELP 0x00000010
#define OFN_ENABLEHOOK 0x00000020
#define OFN_NOVALIDATE 0x00000100
#define OFN_ALLOWMULTISELECT 0x00000200
#define OFN_EXTENSIONDIFFERENT 0x00000400
#define OFN_PATHMUSTEXIST 0x00000800
#define OFN_FILEMUSTEXIST 0x00001000
#define OFN_CREATEPROMPT 0x00002000
#define OFN_NOREADONLYRETURN 0x00008000
#define OFN_NOTESTFILECREATE 0x00010000
#define OFN_EXPLORER 0x00080000
#define OFN_NODEREFERENCELINKS 0x00100000
#define OFN_LONGNAMES 0x00200000
#define OFN_ENABLESIZING 0x00800000
#define OFN_DONTADDTORECENT 0x02000000
#define OFN_FORCESHOWHIDDEN 0x10000000

#define CDERR_STRUCTSIZE 0x0001
#define CDERR_INITIALIZATION 0x0002
#define FNERR_SUBCLASSFAILURE 0x3001
#define FNERR_INVALIDFILENAME 0x3002
#define FNERR_BUFFERTOOSMALL 0x3003

/// Shows the dialog in the transcript (title, the chosen filter, the folder) and takes the path from
/// the next input line. A relative name is joined to lpstrInitialDir; lpstrDefExt is added to a name
/// without extension. An empty line, ^C or the end of input cancels: FALSE with
/// CommDlgExtendedError() 0. A path longer than nMaxFile gives FALSE with FNERR_BUFFERTOOSMALL.
/// OFN_FILEMUSTEXIST asks again for a file that doesn't exist; OFN_OVERWRITEPROMPT asks before an
/// existing file is chosen for saving.
BOOL WINAPI GetOpenFileNameW(LPOPENFILENAMEW lpofn);
BOOL WINAPI GetSaveFileNameW(LPOPENFILENAMEW lpofn);
/// The error of the last file dialog, 0 when it was cancelled or succeeded.
DWORD WINAPI CommDlgExtendedError();
