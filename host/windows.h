// The Win32 subset the system calls: base types and handles, the registry, message boxes, window
// bookkeeping, modules and the shell. Shapes and values follow the Windows SDK (winnt.h, winuser.h,
// winreg.h, shellapi.h), 64-bit. Includes the C runtime's Microsoft extensions (wincrt.h).
#pragma once
#include <cstdint>
#include "wincrt.h"

#define WINAPI
#define CALLBACK
#define APIENTRY
#define CONST const
#define FAR
#define NEAR

// Base types. LONG and DWORD are 32 bits as on Windows; print them with %d and %u here.
typedef int BOOL;
typedef unsigned char BYTE;
typedef unsigned short WORD;
typedef std::uint32_t DWORD;
typedef std::int32_t LONG;
typedef std::uint32_t ULONG;
typedef short SHORT;
typedef unsigned short USHORT;
typedef int INT;
typedef unsigned int UINT;
typedef float FLOAT;
typedef char CHAR;
typedef std::int64_t LONGLONG;
typedef std::uint64_t ULONGLONG;
typedef std::uint64_t DWORD64;
typedef std::intptr_t INT_PTR;
typedef std::uintptr_t UINT_PTR;
typedef std::intptr_t LONG_PTR;
typedef std::uintptr_t ULONG_PTR;
typedef ULONG_PTR DWORD_PTR;
typedef ULONG_PTR SIZE_T;
typedef UINT_PTR WPARAM;
typedef LONG_PTR LPARAM;
typedef LONG_PTR LRESULT;
typedef LONG HRESULT;
typedef LONG LSTATUS;
typedef WORD ATOM;
typedef DWORD LCID;
typedef WORD LANGID;
typedef DWORD COLORREF;
typedef void VOID;
typedef void* PVOID;
typedef void* LPVOID;
typedef const void* LPCVOID;
typedef BOOL* LPBOOL;
typedef BYTE* LPBYTE;
typedef BYTE* PBYTE;
typedef WORD* LPWORD;
typedef DWORD* LPDWORD;
typedef DWORD* PDWORD;
typedef LONG* LPLONG;
typedef int* LPINT;
typedef CHAR* LPSTR;
typedef const CHAR* LPCSTR;

// Wide text. WCHAR is the compiler's wchar_t so that L"" literals pass; every character the system
// handles lies in the 16-bit range.
typedef wchar_t WCHAR;
typedef WCHAR* LPWSTR;
typedef WCHAR* PWSTR;
typedef const WCHAR* LPCWSTR;
typedef const WCHAR* PCWSTR;
#ifndef UNICODE
#define UNICODE
#endif
typedef WCHAR TCHAR;
typedef LPWSTR LPTSTR;
typedef LPCWSTR LPCTSTR;
#define TEXT(quote) L##quote

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif
#define MAX_PATH 260

// Handles: distinct pointer types, as the SDK's DECLARE_HANDLE makes them.
#define DECLARE_HANDLE(name)                                                                        \
    struct name##__ {                                                                               \
        int unused;                                                                                 \
    };                                                                                              \
    typedef struct name##__* name
typedef void* HANDLE;
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HKEY);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HPEN);
DECLARE_HANDLE(HBITMAP);
typedef HINSTANCE HMODULE;
typedef HICON HCURSOR;
typedef HANDLE HGDIOBJ;
typedef HANDLE HGLOBAL;
typedef HKEY* PHKEY;
typedef INT_PTR(FAR WINAPI* FARPROC)();

// Word and colour packing.
#define LOWORD(l) ((WORD)(((DWORD_PTR)(l)) & 0xffff))
#define HIWORD(l) ((WORD)((((DWORD_PTR)(l)) >> 16) & 0xffff))
#define LOBYTE(w) ((BYTE)(((DWORD_PTR)(w)) & 0xff))
#define HIBYTE(w) ((BYTE)((((DWORD_PTR)(w)) >> 8) & 0xff))
#define MAKEWORD(a, b) ((WORD)(((BYTE)(((DWORD_PTR)(a)) & 0xff)) | ((WORD)((BYTE)(((DWORD_PTR)(b)) & 0xff))) << 8))
#define MAKELONG(a, b) ((LONG)(((WORD)(((DWORD_PTR)(a)) & 0xffff)) | ((DWORD)((WORD)(((DWORD_PTR)(b)) & 0xffff))) << 16))
#define MAKEWPARAM(l, h) ((WPARAM)(DWORD)MAKELONG(l, h))
#define MAKELPARAM(l, h) ((LPARAM)(DWORD)MAKELONG(l, h))
#define MAKELRESULT(l, h) ((LRESULT)(DWORD)MAKELONG(l, h))
// From windowsx.h: signed coordinates of a mouse message.
#define GET_X_LPARAM(lp) ((int)(short)LOWORD(lp))
#define GET_Y_LPARAM(lp) ((int)(short)HIWORD(lp))
#define RGB(r, g, b) ((COLORREF)(((BYTE)(r) | ((WORD)((BYTE)(g)) << 8)) | (((DWORD)(BYTE)(b)) << 16)))
#define GetRValue(rgb) (LOBYTE(rgb))
#define GetGValue(rgb) (LOBYTE(((WORD)(rgb)) >> 8))
#define GetBValue(rgb) (LOBYTE((rgb) >> 16))

#define IS_INTRESOURCE(r) ((((ULONG_PTR)(r)) >> 16) == 0)
#define MAKEINTRESOURCEW(i) ((LPWSTR)((ULONG_PTR)((WORD)(i))))
#define MAKEINTRESOURCE MAKEINTRESOURCEW
#define MAKEINTATOM(i) ((LPWSTR)((ULONG_PTR)((WORD)(i))))

// COM status values.
#define S_OK ((HRESULT)0L)
#define S_FALSE ((HRESULT)1L)
#define E_ABORT ((HRESULT)0x80004004L)
#define E_FAIL ((HRESULT)0x80004005L)
#define E_INVALIDARG ((HRESULT)0x80070057L)
#define E_OUTOFMEMORY ((HRESULT)0x8007000EL)
#define SUCCEEDED(hr) (((HRESULT)(hr)) >= 0)
#define FAILED(hr) (((HRESULT)(hr)) < 0)

struct POINT {
    LONG x;
    LONG y;
};
typedef POINT* LPPOINT;
struct SIZE {
    LONG cx;
    LONG cy;
};
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
typedef RECT* LPRECT;
typedef const RECT* LPCRECT;

typedef struct tagMSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
} MSG, *PMSG, *LPMSG;

struct SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
};
typedef SECURITY_ATTRIBUTES* LPSECURITY_ATTRIBUTES;

// System error codes (winerror.h), the ones the platform answers with.
#define ERROR_SUCCESS 0L
#define NO_ERROR 0L
#define ERROR_FILE_NOT_FOUND 2L
#define ERROR_PATH_NOT_FOUND 3L
#define ERROR_ACCESS_DENIED 5L
#define ERROR_INVALID_HANDLE 6L
#define ERROR_NOT_ENOUGH_MEMORY 8L
#define ERROR_WRITE_FAULT 29L
#define ERROR_INVALID_PARAMETER 87L
#define ERROR_MOD_NOT_FOUND 126L
#define ERROR_PROC_NOT_FOUND 127L
#define ERROR_ALREADY_EXISTS 183L
#define ERROR_MORE_DATA 234L
#define ERROR_CLASS_ALREADY_EXISTS 1410L
#define ERROR_CLASS_DOES_NOT_EXIST 1411L
#define ERROR_INVALID_WINDOW_HANDLE 1400L

DWORD WINAPI GetLastError();
void WINAPI SetLastError(DWORD dwErrCode);

// ---------------------------------------------------------------------------------------------
// Registry (winreg.h). The platform keeps HKEY_LOCAL_MACHINE (and other machine roots) in a read-only
// machine file and HKEY_CURRENT_USER in a user file; a write to a machine root answers
// ERROR_ACCESS_DENIED. Key and value names ignore case.
//
// Sizes are in bytes, and string data (REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ) counts sizeof(WCHAR)
// bytes per character, the terminating zero included. A WCHAR buffer is thus passed with its
// sizeof() exactly as on Windows, and holds the same number of characters there and here.

#define HKEY_CLASSES_ROOT ((HKEY)(ULONG_PTR)((LONG)0x80000000))
#define HKEY_CURRENT_USER ((HKEY)(ULONG_PTR)((LONG)0x80000001))
#define HKEY_LOCAL_MACHINE ((HKEY)(ULONG_PTR)((LONG)0x80000002))
#define HKEY_USERS ((HKEY)(ULONG_PTR)((LONG)0x80000003))
#define HKEY_CURRENT_CONFIG ((HKEY)(ULONG_PTR)((LONG)0x80000005))

typedef DWORD ACCESS_MASK;
typedef ACCESS_MASK REGSAM;
#define READ_CONTROL 0x00020000L
#define SYNCHRONIZE 0x00100000L
#define STANDARD_RIGHTS_READ READ_CONTROL
#define STANDARD_RIGHTS_WRITE READ_CONTROL
#define STANDARD_RIGHTS_ALL 0x001F0000L
#define STANDARD_RIGHTS_REQUIRED 0x000F0000L
#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_CREATE_SUB_KEY 0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_NOTIFY 0x0010
#define KEY_CREATE_LINK 0x0020
#define KEY_WOW64_64KEY 0x0100
#define KEY_WOW64_32KEY 0x0200
#define KEY_READ ((STANDARD_RIGHTS_READ | KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS | KEY_NOTIFY) & (~SYNCHRONIZE))
#define KEY_WRITE ((STANDARD_RIGHTS_WRITE | KEY_SET_VALUE | KEY_CREATE_SUB_KEY) & (~SYNCHRONIZE))
#define KEY_EXECUTE ((KEY_READ) & (~SYNCHRONIZE))
#define KEY_ALL_ACCESS                                                                              \
    ((STANDARD_RIGHTS_ALL | KEY_QUERY_VALUE | KEY_SET_VALUE | KEY_CREATE_SUB_KEY |                 \
      KEY_ENUMERATE_SUB_KEYS | KEY_NOTIFY | KEY_CREATE_LINK) & (~SYNCHRONIZE))

#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_DWORD_LITTLE_ENDIAN 4
#define REG_DWORD_BIG_ENDIAN 5
#define REG_LINK 6
#define REG_MULTI_SZ 7
#define REG_QWORD 11
#define REG_QWORD_LITTLE_ENDIAN 11

#define REG_OPTION_NON_VOLATILE 0x00000000L
#define REG_OPTION_VOLATILE 0x00000001L
#define REG_CREATED_NEW_KEY 0x00000001L
#define REG_OPENED_EXISTING_KEY 0x00000002L

/// Opens an existing key. A null or empty lpSubKey opens hKey again; a trailing backslash is
/// ignored. ERROR_FILE_NOT_FOUND when the key is missing (*phkResult is then null); write rights on
/// a machine root give ERROR_ACCESS_DENIED. Close the key with RegCloseKey.
LSTATUS WINAPI RegOpenKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD ulOptions, REGSAM samDesired, PHKEY phkResult);
/// Creates the key and any missing keys above it, or opens it if it exists (lpdwDisposition tells
/// which). Under a machine root only an existing key opened without write rights succeeds.
LSTATUS WINAPI RegCreateKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD Reserved, LPWSTR lpClass, DWORD dwOptions,
    REGSAM samDesired, const LPSECURITY_ATTRIBUTES lpSecurityAttributes, PHKEY phkResult,
    LPDWORD lpdwDisposition);
/// Reads a value (null or empty name: the key's default value). With lpData null only the type and
/// size come back. A buffer smaller than the data gives ERROR_MORE_DATA with the size needed in
/// *lpcbData and leaves the buffer alone. A missing value gives ERROR_FILE_NOT_FOUND.
LSTATUS WINAPI RegQueryValueExW(HKEY hKey, LPCWSTR lpValueName, LPDWORD lpReserved, LPDWORD lpType, LPBYTE lpData,
    LPDWORD lpcbData);
/// Stores a value; the user's file is saved at once. A failed save leaves the value as it was and
/// answers ERROR_WRITE_FAULT.
LSTATUS WINAPI RegSetValueExW(HKEY hKey, LPCWSTR lpValueName, DWORD Reserved, DWORD dwType, const BYTE* lpData,
    DWORD cbData);
LSTATUS WINAPI RegDeleteValueW(HKEY hKey, LPCWSTR lpValueName);
LSTATUS WINAPI RegCloseKey(HKEY hKey);

// ---------------------------------------------------------------------------------------------
// Message boxes (winuser.h). The platform shows the box in the transcript and takes the answer from
// the next input line: a button's text, or ok, cancel, yes, no (also ano, ne, storno, zrušit),
// without regard to case; an empty line presses the default button. Running out of input or ^C
// answers as Escape: IDCANCEL where the box has a Cancel button, IDOK for an OK box, IDNO for Yes/No
// and IDABORT for Abort/Retry/Ignore.

#define MB_OK 0x00000000L
#define MB_OKCANCEL 0x00000001L
#define MB_ABORTRETRYIGNORE 0x00000002L
#define MB_YESNOCANCEL 0x00000003L
#define MB_YESNO 0x00000004L
#define MB_RETRYCANCEL 0x00000005L
#define MB_CANCELTRYCONTINUE 0x00000006L
#define MB_ICONHAND 0x00000010L
#define MB_ICONQUESTION 0x00000020L
#define MB_ICONEXCLAMATION 0x00000030L
#define MB_ICONASTERISK 0x00000040L
#define MB_ICONWARNING MB_ICONEXCLAMATION
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_ICONSTOP MB_ICONHAND
#define MB_DEFBUTTON1 0x00000000L
#define MB_DEFBUTTON2 0x00000100L
#define MB_DEFBUTTON3 0x00000200L
#define MB_DEFBUTTON4 0x00000300L
#define MB_APPLMODAL 0x00000000L
#define MB_SYSTEMMODAL 0x00001000L
#define MB_TASKMODAL 0x00002000L
#define MB_SETFOREGROUND 0x00010000L
#define MB_TOPMOST 0x00040000L
#define MB_TYPEMASK 0x0000000FL
#define MB_ICONMASK 0x000000F0L
#define MB_DEFMASK 0x00000F00L

#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDCLOSE 8
#define IDHELP 9
#define IDTRYAGAIN 10
#define IDCONTINUE 11

/// A null caption shows "Chyba", as Windows does. Gives the id of the pressed button.
int WINAPI MessageBoxW(HWND hWnd, LPCWSTR lpText, LPCWSTR lpCaption, UINT uType);
/// Shows nothing; the platform counts the beeps (sim::win32::beepCount).
BOOL WINAPI MessageBeep(UINT uType);

// ---------------------------------------------------------------------------------------------
// Windows and window classes. The platform keeps a table of window handles with their enabled and
// visible states; the host's main window is one of them and starts enabled and visible.

#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_NORMAL 1
#define SW_SHOWMINIMIZED 2
#define SW_SHOWMAXIMIZED 3
#define SW_MAXIMIZE 3
#define SW_SHOWNOACTIVATE 4
#define SW_SHOW 5
#define SW_MINIMIZE 6
#define SW_SHOWMINNOACTIVE 7
#define SW_SHOWNA 8
#define SW_RESTORE 9

#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_NOTIFY 0x004E
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_CHAR 0x0102
#define WM_COMMAND 0x0111
#define WM_MOUSEMOVE 0x0200
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_LBUTTONDBLCLK 0x0203
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_RBUTTONDBLCLK 0x0206
#define WM_USER 0x0400
#define WM_APP 0x8000

#define VK_BACK 0x08
#define VK_TAB 0x09
#define VK_RETURN 0x0D
#define VK_ESCAPE 0x1B
#define VK_DELETE 0x2E

#define CS_DBLCLKS 0x0008

typedef LRESULT(CALLBACK* WNDPROC)(HWND, UINT, WPARAM, LPARAM);
typedef struct tagWNDCLASSW {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
} WNDCLASSW, *PWNDCLASSW, *LPWNDCLASSW;

/// The active window: the last window made by the platform that still exists, else the host's
/// main window.
HWND WINAPI GetActiveWindow();
HWND WINAPI SetActiveWindow(HWND hWnd);
BOOL WINAPI IsWindow(HWND hWnd);
/// Gives nonzero when the window was disabled before the call.
BOOL WINAPI EnableWindow(HWND hWnd, BOOL bEnable);
BOOL WINAPI IsWindowEnabled(HWND hWnd);
/// SW_HIDE hides, any other command shows. Gives nonzero when the window was visible before.
BOOL WINAPI ShowWindow(HWND hWnd, int nCmdShow);
BOOL WINAPI IsWindowVisible(HWND hWnd);
/// Gives the window that had the focus, or null when hWnd is no window (the focus then stays).
HWND WINAPI SetFocus(HWND hWnd);
HWND WINAPI GetFocus();
BOOL WINAPI DestroyWindow(HWND hWnd);
/// Gives a nonzero atom; 0 with ERROR_CLASS_ALREADY_EXISTS for a name already registered.
ATOM WINAPI RegisterClassW(const WNDCLASSW* lpWndClass);
/// FALSE with ERROR_CLASS_DOES_NOT_EXIST when no class of the name is registered.
BOOL WINAPI UnregisterClassW(LPCWSTR lpClassName, HINSTANCE hInstance);

// ---------------------------------------------------------------------------------------------
// Modules. Only the process's own module is loaded here: other libraries (UxTheme.dll, ...) are not
// found, so callers take their fallbacks.

/// Null gives the process's module; a named module gives null with ERROR_MOD_NOT_FOUND.
HMODULE WINAPI GetModuleHandleW(LPCWSTR lpModuleName);
/// Always null with ERROR_MOD_NOT_FOUND.
HMODULE WINAPI LoadLibraryW(LPCWSTR lpLibFileName);
FARPROC WINAPI GetProcAddress(HMODULE hModule, LPCSTR lpProcName);
BOOL WINAPI FreeLibrary(HMODULE hLibModule);

/// Milliseconds since the process started.
DWORD WINAPI GetTickCount();

// ---------------------------------------------------------------------------------------------
// Shell (shellapi.h).

/// Prints what it would open ("[ShellExecute] verb file parameters") and gives 42, which means
/// success (above 32). A null file gives 2 (file not found).
HINSTANCE WINAPI ShellExecuteW(HWND hwnd, LPCWSTR lpOperation, LPCWSTR lpFile, LPCWSTR lpParameters,
    LPCWSTR lpDirectory, INT nShowCmd);

// ---------------------------------------------------------------------------------------------
// Files and folders (fileapi.h). Paths take "\\" or "/" as separators.

#define INVALID_FILE_ATTRIBUTES ((DWORD)-1)
#define FILE_ATTRIBUTE_READONLY 0x00000001
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010
#define FILE_ATTRIBUTE_NORMAL 0x00000080

/// FILE_ATTRIBUTE_DIRECTORY for a folder, FILE_ATTRIBUTE_NORMAL (or READONLY) for a file;
/// INVALID_FILE_ATTRIBUTES with ERROR_FILE_NOT_FOUND or ERROR_PATH_NOT_FOUND when there is none.
DWORD WINAPI GetFileAttributesW(LPCWSTR lpFileName);
/// Makes one folder; its parent must exist (else FALSE with ERROR_PATH_NOT_FOUND). FALSE with
/// ERROR_ALREADY_EXISTS when the name is taken. The security attributes are ignored.
BOOL WINAPI CreateDirectoryW(LPCWSTR lpPathName, LPSECURITY_ATTRIBUTES lpSecurityAttributes);
