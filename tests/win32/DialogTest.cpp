// Message boxes, task dialogs and file dialogs answered by script lines.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "commctrl.h"
#include "commdlg.h"
#include "sim/core/Session.h"
#include "windows.h"

using sim::Session;
using sim::ScriptInput;

namespace {

int box(const char* script, UINT type, std::wstring* transcript = nullptr)
{
    Session s(std::make_unique<ScriptInput>(script));
    int r = MessageBoxW(nullptr, L"Nalezena hladina se starým názvem, převést?", L"Togovy Utility pro AutoCad", type);
    if (transcript)
        *transcript = s.transcript();
    return r;
}

// The question of a locked layer as the system builds it: custom buttons Ano, Ne, Ano všem (ids 2, 4,
// 16), a tick, no cancel.
struct ZeptejSe {
    HRESULT hr = E_FAIL;
    int button = -1;
    BOOL tick = -1;
    std::wstring transcript;
    bool waiting = false;
};

ZeptejSe askLocked(const char* script, bool withTick = true)
{
    const TASKDIALOG_BUTTON buttons[] = {{2, L"Ano"}, {4, L"Ne"}, {16, L"Ano všem"}};
    TASKDIALOGCONFIG c{};
    c.cbSize = sizeof(c);
    c.pszWindowTitle = L"Togovy Utility pro AutoCad";
    c.pszMainIcon = TD_WARNING_ICON;
    c.pszMainInstruction = L"Hladina VZT je zamčená, ODEMKNOUT?";
    c.pszContent = L"Do zamčených hladin nelze vykreslovat entity řezu a řez samotný";
    c.cButtons = 3;
    c.pButtons = buttons;
    if (withTick)
        c.pszVerificationText = L"Již více nezobrazovat";
    Session s(std::make_unique<ScriptInput>(script));
    ZeptejSe r;
    r.hr = TaskDialogIndirect(&c, &r.button, nullptr, &r.tick);
    r.transcript = s.transcript();
    r.waiting = s.waitingPrompt().has_value();
    return r;
}

} // namespace

TEST(MessageBox, AnswersByWordOrButtonText)
{
    EXPECT_EQ(box("yes", MB_YESNOCANCEL | MB_ICONQUESTION), IDYES);
    EXPECT_EQ(box("Ano", MB_YESNOCANCEL), IDYES);
    EXPECT_EQ(box("NE", MB_YESNOCANCEL), IDNO);
    EXPECT_EQ(box("zrušit", MB_YESNOCANCEL), IDCANCEL);
    EXPECT_EQ(box("  Storno ", MB_YESNOCANCEL), IDCANCEL);
    EXPECT_EQ(box("ok", MB_OKCANCEL), IDOK);
    EXPECT_EQ(box("pokračovat", MB_CANCELTRYCONTINUE), IDCONTINUE);
    // Enter presses the default button.
    EXPECT_EQ(box("\n", MB_YESNO), IDYES);
    EXPECT_EQ(box("\n", MB_YESNO | MB_DEFBUTTON2), IDNO);
    EXPECT_EQ(box("\n", MB_OKCANCEL | MB_DEFBUTTON2), IDCANCEL);
    EXPECT_EQ(box("\n", MB_ABORTRETRYIGNORE | MB_DEFBUTTON3), IDIGNORE);
}

TEST(MessageBox, WrongAnswerAsksAgainAndTheTranscriptShowsTheBox)
{
    std::wstring t;
    EXPECT_EQ(box("ok\nano", MB_YESNO | MB_ICONQUESTION, &t), IDYES) << "ok is no button of a Yes/No box";
    EXPECT_EQ(t, L"[Togovy Utility pro AutoCad] Nalezena hladina se starým názvem, převést?\n"
                 L"[Ano/Ne] <Ano>: ok\n"
                 L"Neplatná odpověď.\n"
                 L"[Ano/Ne] <Ano>: ano\n");
}

TEST(MessageBox, EscapeOrTheEndOfInputAnswersAsClosingTheBox)
{
    EXPECT_EQ(box("^C", MB_YESNOCANCEL), IDCANCEL);
    EXPECT_EQ(box("nevím", MB_YESNOCANCEL), IDCANCEL);
    EXPECT_EQ(box("", MB_OK), IDOK);
    EXPECT_EQ(box("^c", MB_OK), IDOK);
    EXPECT_EQ(box("^C", MB_YESNO), IDNO);
    EXPECT_EQ(box("", MB_ABORTRETRYIGNORE), IDABORT);
    EXPECT_EQ(MessageBoxW(nullptr, L"bez sezení", nullptr, MB_YESNOCANCEL), IDCANCEL);
}

TEST(TaskDialog, CustomButtonsByTextAndTheTick)
{
    ZeptejSe r = askLocked("ano všem");
    EXPECT_EQ(r.hr, S_OK);
    EXPECT_EQ(r.button, 16);
    EXPECT_EQ(r.tick, FALSE);
    EXPECT_EQ(r.transcript, L"[Togovy Utility pro AutoCad] Hladina VZT je zamčená, ODEMKNOUT?\n"
                            L"Do zamčených hladin nelze vykreslovat entity řezu a řez samotný\n"
                            L"[ ] Již více nezobrazovat\n"
                            L"[Ano/Ne/Ano všem] <Ano> (+tick = Již více nezobrazovat): ano všem\n");

    r = askLocked("Ne +tick");
    EXPECT_EQ(r.button, 4);
    EXPECT_EQ(r.tick, TRUE);
    r = askLocked("yes");
    EXPECT_EQ(r.button, 2) << "yes finds the custom button Ano";
    r = askLocked("+tick");
    EXPECT_EQ(r.button, 2) << "Enter with a tick presses the default button";
    EXPECT_EQ(r.tick, TRUE);
    r = askLocked("ano +tick\nano", false);
    EXPECT_EQ(r.button, 2) << "no verification box: a tick is a wrong answer";
    EXPECT_NE(r.transcript.find(L"Neplatná odpověď."), std::wstring::npos);
}

TEST(TaskDialog, WrongAnswersAndTheEndOfInput)
{
    ZeptejSe r = askLocked("možná\nzrušit\nne");
    EXPECT_EQ(r.button, 4);
    EXPECT_EQ(r.hr, S_OK);

    // Without a way to cancel, the dialog can't give a button: the call fails instead of saying "Ano".
    r = askLocked("možná");
    EXPECT_EQ(r.hr, E_ABORT);
    EXPECT_EQ(r.button, 0);
    EXPECT_TRUE(r.waiting);
    r = askLocked("^C");
    EXPECT_EQ(r.hr, E_ABORT);

    // Yes, No, Cancel of the common buttons: the end of input is Cancel.
    Session s(std::make_unique<ScriptInput>(""));
    int button = -1;
    EXPECT_EQ(TaskDialog(nullptr, nullptr, L"Togovy Utility pro AutoCad", L"Vymazat před načtením všechny materiály?",
                  L"Pozor", TDCBF_YES_BUTTON | TDCBF_NO_BUTTON | TDCBF_CANCEL_BUTTON, TD_WARNING_ICON, &button),
        S_OK);
    EXPECT_EQ(button, IDCANCEL);
    EXPECT_NE(s.transcript().find(L"[Ano/Ne/Storno] <Ano>: "), std::wstring::npos);

    TASKDIALOGCONFIG bad{};
    EXPECT_EQ(TaskDialogIndirect(&bad, &button, nullptr, nullptr), E_INVALIDARG);
}

TEST(TaskDialog, CallbackCanKeepTheDialogOpen)
{
    struct Log {
        std::vector<std::pair<UINT, WPARAM>> calls;
    } log;
    TASKDIALOGCONFIG c{};
    c.cbSize = sizeof(c);
    c.dwCommonButtons = TDCBF_OK_BUTTON | TDCBF_CANCEL_BUTTON;
    c.pszMainInstruction = L"Pokračovat?";
    c.lpCallbackData = reinterpret_cast<LONG_PTR>(&log);
    c.pfCallback = [](HWND hwnd, UINT msg, WPARAM w, LPARAM, LONG_PTR data) -> HRESULT {
        EXPECT_TRUE(IsWindow(hwnd));
        auto* l = reinterpret_cast<Log*>(data);
        l->calls.emplace_back(msg, w);
        // The first OK is refused.
        bool firstOk = msg == TDN_BUTTON_CLICKED && w == IDOK &&
                       std::count(l->calls.begin(), l->calls.end(), std::pair<UINT, WPARAM>(TDN_BUTTON_CLICKED, IDOK)) == 1;
        return firstOk ? S_FALSE : S_OK;
    };
    Session s(std::make_unique<ScriptInput>("ok\nok"));
    int button = 0;
    EXPECT_EQ(TaskDialogIndirect(&c, &button, nullptr, nullptr), S_OK);
    EXPECT_EQ(button, IDOK);
    std::vector<std::pair<UINT, WPARAM>> expected = {
        {TDN_CREATED, 0}, {TDN_BUTTON_CLICKED, IDOK}, {TDN_BUTTON_CLICKED, IDOK}, {TDN_DESTROYED, 0}};
    EXPECT_EQ(log.calls, expected);
}

class FileDialog : public ::testing::Test {
protected:
    void SetUp() override
    {
        dir = std::filesystem::temp_directory_path() / ("togu-ofn-" + std::to_string(::getpid()));
        std::filesystem::create_directories(dir / "Materialy");
        std::ofstream(dir / "Materialy" / "Potrubi_std_2026.tgp") << "x";
        folder = sim::fromUtf8((dir / "Materialy").string());
    }
    void TearDown() override { std::filesystem::remove_all(dir); }

    OPENFILENAMEW ofn(DWORD flags)
    {
        OPENFILENAMEW o{};
        o.lStructSize = sizeof(o);
        o.lpstrFilter = L"Katalogy potrubí\0*.tgp\0Všechny soubory\0*.*\0";
        o.nFilterIndex = 1;
        o.lpstrFile = file;
        o.nMaxFile = MAX_PATH;
        o.lpstrInitialDir = folder.c_str();
        o.lpstrTitle = L"Vyhledej soubor pro načtení";
        o.lpstrDefExt = L"tgp";
        o.Flags = flags;
        file[0] = 0;
        return o;
    }

    std::filesystem::path dir;
    std::wstring folder;
    WCHAR file[MAX_PATH];
};

TEST_F(FileDialog, ThePathComesFromTheAnswerLine)
{
    Session s(std::make_unique<ScriptInput>("chybi\nPotrubi_std_2026"));
    OPENFILENAMEW o = ofn(OFN_FILEMUSTEXIST | OFN_HIDEREADONLY);
    ASSERT_TRUE(GetOpenFileNameW(&o));
    std::wstring expected = folder + L"/Potrubi_std_2026.tgp";
    EXPECT_EQ(std::wstring(file), expected);
    EXPECT_EQ(std::wstring(file + o.nFileOffset), L"Potrubi_std_2026.tgp");
    EXPECT_EQ(std::wstring(file + o.nFileExtension), L"tgp");
    EXPECT_NE(s.transcript().find(L"[Vyhledej soubor pro načtení] Katalogy potrubí (*.tgp)\nSložka: " + folder),
        std::wstring::npos);
    EXPECT_NE(s.transcript().find(L"Soubor " + folder + L"/chybi.tgp neexistuje."), std::wstring::npos)
        << "a missing file is asked again";
}

TEST_F(FileDialog, EmptyAnswerOrEscapeCancels)
{
    for (const char* script : {"", "\n", "^C"}) {
        Session s(std::make_unique<ScriptInput>(script));
        OPENFILENAMEW o = ofn(0);
        EXPECT_FALSE(GetOpenFileNameW(&o)) << script;
        EXPECT_EQ(CommDlgExtendedError(), 0u);
    }
}

TEST_F(FileDialog, SaveAsksBeforeReplacingAndChecksTheBuffer)
{
    Session s(std::make_unique<ScriptInput>("Potrubi_std_2026.tgp\nne\nnovy.tgp"));
    OPENFILENAMEW o = ofn(OFN_OVERWRITEPROMPT);
    ASSERT_TRUE(GetSaveFileNameW(&o));
    EXPECT_EQ(std::wstring(file), folder + L"/novy.tgp");
    EXPECT_NE(s.transcript().find(L"Potrubi_std_2026.tgp již existuje.\nChcete jej nahradit?"), std::wstring::npos);

    Session s2(std::make_unique<ScriptInput>("/a/very/long/name.tgp"));
    o = ofn(0);
    o.nMaxFile = 8;
    EXPECT_FALSE(GetSaveFileNameW(&o));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(FNERR_BUFFERTOOSMALL));
    EXPECT_EQ(file[0], static_cast<WCHAR>(22));
}
