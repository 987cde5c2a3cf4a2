// The HTML help viewer's call (htmlhelp.h, hhctrl.ocx): opens a compiled help file at a topic.
#pragma once
#include "windows.h"

#define HH_DISPLAY_TOPIC 0x0000
#define HH_DISPLAY_TOC 0x0001
#define HH_DISPLAY_INDEX 0x0002
#define HH_HELP_CONTEXT 0x000F
#define HH_CLOSE_ALL 0x0012

/// With HH_HELP_CONTEXT, dwData is the context number that the file's map sends to a topic; with
/// HH_DISPLAY_TOPIC, a topic path (LPCWSTR) or 0 for the default topic. Gives the viewer's window,
/// null when nothing was opened. The platform has no viewer: it prints the file and the topic.
HWND WINAPI HtmlHelpW(HWND hwndCaller, LPCWSTR pszFile, UINT uCommand, DWORD_PTR dwData);
