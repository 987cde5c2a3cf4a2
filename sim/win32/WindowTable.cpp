// Window bookkeeping for the Win32 window calls: which windows exist, which are enabled and visible,
// which is active and which has the focus; and the registered window classes.
#include "sim/win32/WindowTable.h"

#include <map>
#include <set>

#include "acadwnd.h"
#include "sim/win32/Locale.h"

namespace sim::win32 {

namespace {

struct Window {
    std::wstring title;
    HWND owner = nullptr;
    bool enabled = true;
    bool visible = true;
};

constexpr std::uintptr_t kMain = 0x10000, kDocument = 0x10010;

struct Table {
    std::map<std::uintptr_t, Window> windows;
    std::uintptr_t next = kDocument;
    HWND active = nullptr;
    HWND focus = nullptr;
    std::set<std::wstring> classes; // folded names
    ATOM nextAtom = 0xC000;
    int beeps = 0;

    Table() { reset(); }
    void reset()
    {
        windows.clear();
        windows[kMain] = Window{L"AutoCAD", nullptr};
        windows[kDocument] = Window{L"Drawing", handle(kMain)};
        next = kDocument;
        active = handle(kMain);
        focus = handle(kDocument);
        classes.clear();
        beeps = 0;
    }
    static HWND handle(std::uintptr_t id) { return reinterpret_cast<HWND>(id); }
    Window* find(HWND h)
    {
        auto it = windows.find(reinterpret_cast<std::uintptr_t>(h));
        return it == windows.end() ? nullptr : &it->second;
    }
};

Table& table()
{
    static Table t;
    return t;
}

std::wstring className(LPCWSTR name)
{
    if (IS_INTRESOURCE(name))
        return L"#" + std::to_wstring(reinterpret_cast<ULONG_PTR>(name));
    return upperInvariant(name);
}

} // namespace

HWND mainWindow() { return reinterpret_cast<HWND>(kMain); }

HWND documentWindow()
{
    HWND h = reinterpret_cast<HWND>(kDocument);
    return table().find(h) ? h : nullptr;
}

void setDocumentWindowOpen(bool open)
{
    Table& t = table();
    if (open && !documentWindow())
        t.windows[kDocument] = Window{L"Drawing", mainWindow()};
    else if (!open)
        destroyWindow(reinterpret_cast<HWND>(kDocument));
}

HWND createWindow(std::wstring title, HWND owner)
{
    Table& t = table();
    t.next += 0x10;
    HWND h = Table::handle(t.next);
    t.windows[t.next] = Window{std::move(title), owner ? owner : mainWindow()};
    t.active = h;
    t.focus = h;
    return h;
}

bool destroyWindow(HWND window)
{
    Table& t = table();
    Window* w = t.find(window);
    if (!w || window == mainWindow())
        return false;
    HWND owner = w->owner && t.find(w->owner) ? w->owner : mainWindow();
    t.windows.erase(reinterpret_cast<std::uintptr_t>(window));
    if (t.active == window)
        t.active = owner;
    if (t.focus == window)
        t.focus = owner;
    return true;
}

std::wstring windowTitle(HWND window)
{
    Window* w = table().find(window);
    return w ? w->title : std::wstring();
}

void resetWindows() { table().reset(); }

int beepCount() { return table().beeps; }

} // namespace sim::win32

using sim::win32::table;

HWND adsw_acadMainWnd() { return sim::win32::mainWindow(); }
HWND adsw_acadDocWnd() { return sim::win32::documentWindow(); }

HWND WINAPI GetActiveWindow() { return table().find(table().active) ? table().active : sim::win32::mainWindow(); }

HWND WINAPI SetActiveWindow(HWND hWnd)
{
    if (!table().find(hWnd))
        return nullptr;
    HWND previous = GetActiveWindow();
    table().active = hWnd;
    return previous;
}

BOOL WINAPI IsWindow(HWND hWnd) { return table().find(hWnd) ? TRUE : FALSE; }

BOOL WINAPI EnableWindow(HWND hWnd, BOOL bEnable)
{
    auto* w = table().find(hWnd);
    if (!w)
        return FALSE;
    bool wasDisabled = !w->enabled;
    w->enabled = bEnable != FALSE;
    return wasDisabled ? TRUE : FALSE;
}

BOOL WINAPI IsWindowEnabled(HWND hWnd)
{
    auto* w = table().find(hWnd);
    return w && w->enabled ? TRUE : FALSE;
}

BOOL WINAPI ShowWindow(HWND hWnd, int nCmdShow)
{
    auto* w = table().find(hWnd);
    if (!w)
        return FALSE;
    bool wasVisible = w->visible;
    w->visible = nCmdShow != SW_HIDE;
    return wasVisible ? TRUE : FALSE;
}

BOOL WINAPI IsWindowVisible(HWND hWnd)
{
    auto* w = table().find(hWnd);
    return w && w->visible ? TRUE : FALSE;
}

HWND WINAPI SetFocus(HWND hWnd)
{
    if (!table().find(hWnd)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    HWND previous = GetFocus();
    table().focus = hWnd;
    return previous;
}

HWND WINAPI GetFocus() { return table().find(table().focus) ? table().focus : nullptr; }

BOOL WINAPI DestroyWindow(HWND hWnd)
{
    if (sim::win32::destroyWindow(hWnd))
        return TRUE;
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
}

ATOM WINAPI RegisterClassW(const WNDCLASSW* lpWndClass)
{
    if (!lpWndClass || !lpWndClass->lpszClassName) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (!table().classes.insert(sim::win32::className(lpWndClass->lpszClassName)).second) {
        SetLastError(ERROR_CLASS_ALREADY_EXISTS);
        return 0;
    }
    return table().nextAtom++;
}

BOOL WINAPI UnregisterClassW(LPCWSTR lpClassName, HINSTANCE)
{
    if (lpClassName && table().classes.erase(sim::win32::className(lpClassName)) > 0)
        return TRUE;
    SetLastError(ERROR_CLASS_DOES_NOT_EXIST);
    return FALSE;
}

BOOL WINAPI MessageBeep(UINT)
{
    ++table().beeps;
    return TRUE;
}
