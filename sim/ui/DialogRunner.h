// The modal dialog runner: a dialog's controls built from its resource, and script lines that act as the
// user would (ok, cancel, a button's text, click <id>, set <id> <text>, check <id> [<item>] on|off,
// select <id> <item>..., cell/edit/dblclick on a grid's or list's rows and cells), each sending the messages that the user's action sends on Windows.
#pragma once
#include <string>
#include <string_view>

#include "afxwin.h"

namespace sim::ui {

/// The prompt a running dialog shows for its next line.
inline constexpr const wchar_t* kDialogPrompt = L"Dialog [ok/cancel/click <id>/set <id> <text>/check <id> on|off/select <id> <n>]: ";

/// Carries out one script line on a running dialog. Gives false, having printed why, for a line that is
/// no action or names a control that isn't there or can't take it.
bool act(CDialog& dlg, std::wstring_view line);

/// The resource registered under the id, or null.
const DLGRESOURCE* findDlgResource(UINT id);

} // namespace sim::ui
