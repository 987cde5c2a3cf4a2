// MessageBoxW answered by a script line.
#include <string>
#include <vector>

#include "sim/win32/ButtonPrompt.h"
#include "windows.h"

using sim::win32::Button;

int WINAPI MessageBoxW(HWND, LPCWSTR lpText, LPCWSTR lpCaption, UINT uType)
{
    std::vector<int> ids;
    int escape; // what Escape or closing the box answers
    switch (uType & MB_TYPEMASK) {
    case MB_OKCANCEL: ids = {IDOK, IDCANCEL}; escape = IDCANCEL; break;
    case MB_ABORTRETRYIGNORE: ids = {IDABORT, IDRETRY, IDIGNORE}; escape = IDABORT; break;
    case MB_YESNOCANCEL: ids = {IDYES, IDNO, IDCANCEL}; escape = IDCANCEL; break;
    // Windows offers no way out of a Yes/No box but its buttons; No is the refusal.
    case MB_YESNO: ids = {IDYES, IDNO}; escape = IDNO; break;
    case MB_RETRYCANCEL: ids = {IDRETRY, IDCANCEL}; escape = IDCANCEL; break;
    case MB_CANCELTRYCONTINUE: ids = {IDCANCEL, IDTRYAGAIN, IDCONTINUE}; escape = IDCANCEL; break;
    default: ids = {IDOK}; escape = IDOK; break;
    }
    std::vector<Button> buttons;
    for (int id : ids)
        buttons.push_back({sim::win32::standardButtonText(id), id});
    size_t defaultIndex = (uType & MB_DEFMASK) >> 8;

    std::wstring caption = lpCaption ? lpCaption : L"Chyba";
    sim::win32::showBlock(L"[" + caption + L"] " + (lpText ? lpText : L""));
    return sim::win32::askButton(buttons, defaultIndex).id.value_or(escape);
}
