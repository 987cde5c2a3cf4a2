// TaskDialogIndirect answered by a script line: custom and common buttons, the verification box, and
// the callback's main notifications.
#include <string>
#include <vector>

#include "commctrl.h"
#include "sim/win32/ButtonPrompt.h"
#include "sim/win32/WindowTable.h"

using sim::win32::Button;

namespace {

// A text of the configuration: a string, or a resource id that the platform has no strings for.
std::wstring text(PCWSTR p)
{
    if (!p)
        return {};
    if (IS_INTRESOURCE(p))
        return L"#" + std::to_wstring(reinterpret_cast<ULONG_PTR>(p));
    return p;
}

} // namespace

HRESULT WINAPI TaskDialogIndirect(const TASKDIALOGCONFIG* pTaskConfig, int* pnButton, int* pnRadioButton,
    BOOL* pfVerificationFlagChecked)
{
    if (pnButton)
        *pnButton = 0;
    if (!pTaskConfig || pTaskConfig->cbSize != sizeof(TASKDIALOGCONFIG))
        return E_INVALIDARG;
    const TASKDIALOGCONFIG& c = *pTaskConfig;

    std::vector<Button> buttons;
    for (UINT i = 0; c.pButtons && i < c.cButtons; ++i) {
        std::wstring label = text(c.pButtons[i].pszButtonText);
        // A command link's text holds its note after the first line break.
        if (c.dwFlags & (TDF_USE_COMMAND_LINKS | TDF_USE_COMMAND_LINKS_NO_ICON))
            label = label.substr(0, label.find(L'\n'));
        buttons.push_back({label, c.pButtons[i].nButtonID});
    }
    const std::pair<int, int> common[] = {{TDCBF_OK_BUTTON, IDOK}, {TDCBF_YES_BUTTON, IDYES}, {TDCBF_NO_BUTTON, IDNO},
        {TDCBF_RETRY_BUTTON, IDRETRY}, {TDCBF_CANCEL_BUTTON, IDCANCEL}, {TDCBF_CLOSE_BUTTON, IDCLOSE}};
    for (auto [flag, id] : common)
        if (c.dwCommonButtons & flag)
            buttons.push_back({sim::win32::standardButtonText(id), id});
    if (buttons.empty())
        buttons.push_back({sim::win32::standardButtonText(IDOK), IDOK});
    size_t defaultIndex = 0;
    for (size_t i = 0; i < buttons.size(); ++i)
        if (buttons[i].id == c.nDefaultButton) {
            defaultIndex = i;
            break;
        }
    const bool cancellable = (c.dwFlags & TDF_ALLOW_DIALOG_CANCELLATION) || (c.dwCommonButtons & TDCBF_CANCEL_BUTTON);

    std::wstring title = c.pszWindowTitle ? text(c.pszWindowTitle) : L"acad.exe";
    std::wstring block = L"[" + title + L"] " + text(c.pszMainInstruction);
    if (c.pszContent)
        block += L"\n" + text(c.pszContent);
    if (c.pszExpandedInformation)
        block += L"\nPodrobnosti: " + text(c.pszExpandedInformation);
    if (c.pszFooter)
        block += L"\n" + text(c.pszFooter);
    bool tick = (c.dwFlags & TDF_VERIFICATION_FLAG_CHECKED) != 0;
    std::optional<std::wstring> tickLabel;
    if (c.pszVerificationText) {
        tickLabel = text(c.pszVerificationText);
        block += (tick ? L"\n[x] " : L"\n[ ] ") + *tickLabel;
    }
    sim::win32::showBlock(block);

    HWND window = nullptr;
    if (c.pfCallback) {
        window = sim::win32::createWindow(title, c.hwndParent);
        c.pfCallback(window, TDN_CREATED, 0, 0, c.lpCallbackData);
    }
    sim::win32::ButtonAnswer answer;
    for (;;) {
        answer = sim::win32::askButton(buttons, defaultIndex, tickLabel);
        // The callback may keep the dialog open by answering S_FALSE.
        if (!answer.id || !c.pfCallback ||
            c.pfCallback(window, TDN_BUTTON_CLICKED, static_cast<WPARAM>(*answer.id), 0, c.lpCallbackData) != S_FALSE)
            break;
    }
    if (window) {
        c.pfCallback(window, TDN_DESTROYED, 0, 0, c.lpCallbackData);
        sim::win32::destroyWindow(window);
    }
    if (answer.tick)
        tick = *answer.tick;

    int radio = 0;
    if (c.pRadioButtons && c.cRadioButtons > 0 && !(c.dwFlags & TDF_NO_DEFAULT_RADIO_BUTTON)) {
        radio = c.pRadioButtons[0].nButtonID;
        for (UINT i = 0; i < c.cRadioButtons; ++i)
            if (c.pRadioButtons[i].nButtonID == c.nDefaultRadioButton)
                radio = c.nDefaultRadioButton;
    }
    if (pnRadioButton)
        *pnRadioButton = radio;
    if (pfVerificationFlagChecked)
        *pfVerificationFlagChecked = tick ? TRUE : FALSE;

    if (!answer.id) {
        if (!cancellable)
            return E_ABORT;
        answer.id = IDCANCEL;
    }
    if (pnButton)
        *pnButton = *answer.id;
    return S_OK;
}

HRESULT WINAPI TaskDialog(HWND hwndOwner, HINSTANCE hInstance, PCWSTR pszWindowTitle, PCWSTR pszMainInstruction,
    PCWSTR pszContent, TASKDIALOG_COMMON_BUTTON_FLAGS dwCommonButtons, PCWSTR pszIcon, int* pnButton)
{
    TASKDIALOGCONFIG c{};
    c.cbSize = sizeof(c);
    c.hwndParent = hwndOwner;
    c.hInstance = hInstance;
    c.dwCommonButtons = dwCommonButtons;
    c.pszWindowTitle = pszWindowTitle;
    c.pszMainIcon = pszIcon;
    c.pszMainInstruction = pszMainInstruction;
    c.pszContent = pszContent;
    return TaskDialogIndirect(&c, pnButton, nullptr, nullptr);
}
