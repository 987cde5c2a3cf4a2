// HtmlHelpW on the platform: no viewer, the request is shown in the transcript.
#include <htmlhelp.h>

#include <string>

#include "sim/win32/ButtonPrompt.h"

HWND WINAPI HtmlHelpW(HWND, LPCWSTR pszFile, UINT uCommand, DWORD_PTR dwData)
{
    if (uCommand == HH_CLOSE_ALL)
        return nullptr;
    std::wstring text = L"[Nápověda] ";
    text += pszFile ? pszFile : L"";
    if (uCommand == HH_HELP_CONTEXT)
        text += L", kontext " + std::to_wstring(dwData);
    else if (uCommand == HH_DISPLAY_TOPIC && dwData)
        text += std::wstring(L", téma ") + reinterpret_cast<LPCWSTR>(dwData);
    else if (uCommand == HH_DISPLAY_TOC)
        text += L", obsah";
    else if (uCommand == HH_DISPLAY_INDEX)
        text += L", rejstřík";
    sim::win32::showBlock(text);
    return nullptr;
}
