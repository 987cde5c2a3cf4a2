// The small Win32 calls: the last error, modules, the tick count and ShellExecuteW.
#include <chrono>
#include <string>

#include "sim/win32/ButtonPrompt.h"
#include "windows.h"

namespace {
thread_local DWORD g_lastError = ERROR_SUCCESS;
const auto g_start = std::chrono::steady_clock::now();
// Any address that is no real module serves as the process's module handle.
char g_module;
} // namespace

DWORD WINAPI GetLastError() { return g_lastError; }
void WINAPI SetLastError(DWORD dwErrCode) { g_lastError = dwErrCode; }

HMODULE WINAPI GetModuleHandleW(LPCWSTR lpModuleName)
{
    if (!lpModuleName)
        return reinterpret_cast<HMODULE>(&g_module);
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

HMODULE WINAPI LoadLibraryW(LPCWSTR)
{
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

FARPROC WINAPI GetProcAddress(HMODULE, LPCSTR)
{
    SetLastError(ERROR_PROC_NOT_FOUND);
    return nullptr;
}

BOOL WINAPI FreeLibrary(HMODULE hLibModule) { return hLibModule == reinterpret_cast<HMODULE>(&g_module); }

DWORD WINAPI GetTickCount()
{
    auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - g_start);
    return static_cast<DWORD>(ms.count());
}

HINSTANCE WINAPI ShellExecuteW(HWND, LPCWSTR lpOperation, LPCWSTR lpFile, LPCWSTR lpParameters, LPCWSTR, INT)
{
    if (!lpFile || !*lpFile)
        return reinterpret_cast<HINSTANCE>(static_cast<ULONG_PTR>(ERROR_FILE_NOT_FOUND));
    std::wstring line = L"[ShellExecute] ";
    line += lpOperation && *lpOperation ? lpOperation : L"open";
    line += L' ';
    line += lpFile;
    if (lpParameters && *lpParameters)
        line += std::wstring(L" ") + lpParameters;
    sim::win32::showBlock(line);
    return reinterpret_cast<HINSTANCE>(static_cast<ULONG_PTR>(42));
}
