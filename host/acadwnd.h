// The host's windows as its SDK hands them to an application: the main frame and the drawing window.
#pragma once
#include "windows.h"

/// The host's main window; always a window.
HWND adsw_acadMainWnd();
/// The window of the active drawing, or null while no drawing window is open.
HWND adsw_acadDocWnd();
