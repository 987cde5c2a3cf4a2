// The platform's windows: a table of handles with their enabled and visible states, the host's main
// and drawing windows among them, for the Win32 window calls and the platform's own dialogs.
#pragma once
#include <string>

#include "windows.h"

namespace sim::win32 {

/// The host's main window (adsw_acadMainWnd).
HWND mainWindow();
/// The drawing window (adsw_acadDocWnd), or null while none is open.
HWND documentWindow();
/// Opens or closes the drawing window; the console keeps it open while a drawing is.
void setDocumentWindowOpen(bool open);

/// A new window, enabled and visible, owned by owner (null: the main window). It becomes the active
/// window and takes the focus. Destroy it with DestroyWindow or destroyWindow.
HWND createWindow(std::wstring title, HWND owner = nullptr);
/// The window goes; if it was active, its owner becomes active (and takes the focus if it had it).
bool destroyWindow(HWND window);
/// The title a window was made with; empty for no window.
std::wstring windowTitle(HWND window);

/// Back to the start: the main and the drawing window, both enabled and visible, no other window,
/// no registered class. For tests.
void resetWindows();

/// How many times MessageBeep was called.
int beepCount();

} // namespace sim::win32
