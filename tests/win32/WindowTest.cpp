// Window bookkeeping as the system's step into the drawing and back uses it, window classes, modules
// and the shell.
#include <gtest/gtest.h>

#include "acadwnd.h"
#include "sim/core/Session.h"
#include "sim/win32/WindowTable.h"
#include "windows.h"

TEST(Windows, DialogStepsAsideAndComesBack)
{
    sim::win32::resetWindows();
    HWND main = adsw_acadMainWnd();
    ASSERT_TRUE(IsWindow(main));
    EXPECT_EQ(GetActiveWindow(), main);

    // A modal dialog disables the main window; to pick in the drawing it hides itself and enables it.
    HWND dialog = sim::win32::createWindow(L"Nastavení", main);
    EnableWindow(main, FALSE);
    EXPECT_EQ(GetActiveWindow(), dialog);
    EXPECT_FALSE(IsWindowEnabled(main));

    EXPECT_FALSE(EnableWindow(dialog, FALSE)) << "it was enabled";
    EXPECT_TRUE(ShowWindow(dialog, SW_HIDE)) << "it was visible";
    EXPECT_TRUE(EnableWindow(main, TRUE)) << "it was disabled";
    EXPECT_EQ(SetFocus(main), dialog);

    EnableWindow(main, FALSE);
    EXPECT_FALSE(ShowWindow(dialog, SW_SHOW));
    EnableWindow(dialog, TRUE);
    EXPECT_EQ(SetFocus(dialog), main);
    EXPECT_TRUE(IsWindowVisible(dialog));

    EXPECT_TRUE(DestroyWindow(dialog));
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(GetActiveWindow(), main);
    EXPECT_EQ(SetFocus(dialog), nullptr);
    EXPECT_FALSE(EnableWindow(dialog, TRUE));
    EXPECT_FALSE(DestroyWindow(main)) << "the host's window stays";
    sim::win32::resetWindows();
}

TEST(Windows, DocumentWindowComesAndGoes)
{
    sim::win32::resetWindows();
    ASSERT_NE(adsw_acadDocWnd(), nullptr);
    sim::win32::setDocumentWindowOpen(false);
    EXPECT_EQ(adsw_acadDocWnd(), nullptr);
    sim::win32::setDocumentWindowOpen(true);
    EXPECT_TRUE(IsWindow(adsw_acadDocWnd()));
}

TEST(Windows, ClassesModulesAndShell)
{
    sim::win32::resetWindows();
    HINSTANCE self = GetModuleHandleW(nullptr);
    ASSERT_NE(self, nullptr);
    EXPECT_FALSE(UnregisterClassW(L"TreeList", self));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLASS_DOES_NOT_EXIST));
    WNDCLASSW wc{};
    wc.lpszClassName = L"TreeList";
    wc.hInstance = self;
    EXPECT_NE(RegisterClassW(&wc), 0);
    EXPECT_EQ(RegisterClassW(&wc), 0);
    EXPECT_TRUE(UnregisterClassW(L"treelist", self));

    EXPECT_EQ(LoadLibraryW(L"UxTheme.dll"), nullptr);
    EXPECT_EQ(GetModuleHandleW(L"UxTheme.dll"), nullptr);

    sim::Session s(nullptr);
    HINSTANCE r = ShellExecuteW(nullptr, L"open", L"https://www.togvarnik.cz", nullptr, nullptr, SW_SHOWNORMAL);
    EXPECT_GT(reinterpret_cast<INT_PTR>(r), 32);
    EXPECT_EQ(s.transcript(), L"[ShellExecute] open https://www.togvarnik.cz\n");
    EXPECT_LE(reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, L"open", nullptr, nullptr, nullptr, 0)), 32);

    int before = sim::win32::beepCount();
    MessageBeep(MB_ICONERROR);
    EXPECT_EQ(sim::win32::beepCount(), before + 1);
}
