// The "Command: " loop: what a line runs, and the two ways a script run fails (an unknown command,
// a prompt left waiting when the script ends).
#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "accmd.h"
#include "sim/app/CommandLine.h"
#include "sim/core/Session.h"

namespace {

int g_runs = 0;
void countRun() { ++g_runs; }
void askTwice()
{
    sim::Session::current().ask(L"\nFirst: ");
    sim::Session::current().ask(L"\nSecond: ");
}

class CommandLine : public ::testing::Test {
protected:
    void SetUp() override
    {
        g_runs = 0;
        acedRegCmds->addCommand(L"CLTEST", L"count", L"pocitej", ACRX_CMD_MODAL, countRun);
        acedRegCmds->addCommand(L"CLTEST", L"ask2", L"ask2", ACRX_CMD_MODAL, askTwice);
    }
    void TearDown() override { acedRegCmds->removeGroup(L"CLTEST"); }
};

TEST_F(CommandLine, RunsCommandsByLocalOrGlobalNameAndIgnoresEmptyLinesAndCancel)
{
    sim::Session session(std::make_unique<sim::ScriptInput>("POCITEJ\n\n^C\n  _count  \nask2\n1\n2\n"));
    EXPECT_TRUE(sim::app::commandLoop());
    EXPECT_EQ(g_runs, 2);
    EXPECT_FALSE(session.failure());
    EXPECT_EQ(session.transcript(), L"Command: POCITEJ\nCommand: \nCommand: ^C\nCommand:   _count  \n"
                                    L"Command: ask2\nFirst: 1\nSecond: 2\nCommand: \n");
}

TEST_F(CommandLine, UnknownCommandStopsTheRun)
{
    sim::Session session(std::make_unique<sim::ScriptInput>("pocitej\ncount\npocitej\n"));
    EXPECT_FALSE(sim::app::commandLoop());
    EXPECT_EQ(g_runs, 1);
    EXPECT_EQ(session.lineNumber(), 2);
    ASSERT_TRUE(session.failure());
    EXPECT_EQ(*session.failure(), L"Unknown command \"COUNT\"");
    EXPECT_NE(session.transcript().find(L"Command: count\nUnknown command \"COUNT\".  Press F1 for help.\n"),
              std::wstring::npos);
}

TEST_F(CommandLine, AtTheKeyboardAnUnknownCommandIsOnlyAMessage)
{
    std::istringstream keys("nesmysl\npocitej\nask2\n");
    sim::Session session(std::make_unique<sim::StreamInput>(keys));
    EXPECT_TRUE(sim::app::commandLoop());
    EXPECT_EQ(g_runs, 1);
    EXPECT_FALSE(session.failure()); // the input ending inside ask2 is the user leaving
}

TEST_F(CommandLine, AtTheKeyboardAnEmptyLineRepeatsTheLastCommandButNeverAnUnknownOne)
{
    std::istringstream keys("\nnesmysl\n\npocitej\n\n  \n");
    sim::Session session(std::make_unique<sim::StreamInput>(keys));
    EXPECT_TRUE(sim::app::commandLoop());
    EXPECT_EQ(g_runs, 3);
    EXPECT_EQ(session.transcript().find(L"Unknown command \"NESMYSL\""),
              session.transcript().rfind(L"Unknown command \"NESMYSL\""));
}

/// Keys typed into a line editor that draws its prompt itself.
class EditorKeys : public sim::InputSource {
public:
    explicit EditorKeys(std::vector<std::wstring> lines) : m_lines(std::move(lines)) {}
    std::optional<sim::InputLine> read() override
    {
        if (m_next == m_lines.size())
            return std::nullopt;
        return sim::InputLine{m_lines[m_next++], 0};
    }
    bool interactive() const override { return true; }
    bool showsPrompt() const override { return true; }
    void setPrompt(std::wstring_view lineSoFar) override { prompts.emplace_back(lineSoFar); }
    std::vector<std::wstring> prompts;

private:
    std::vector<std::wstring> m_lines;
    size_t m_next = 0;
};

TEST_F(CommandLine, ALineEditorDrawsThePromptsAndTheTranscriptKeepsEachOnce)
{
    auto keys = std::make_unique<EditorKeys>(std::vector<std::wstring>{L"ask2", L"1", L"2"});
    EditorKeys& editor = *keys;
    std::ostringstream screen;
    sim::Session session(std::move(keys), &screen);
    session.print(L"Hotovo. ");
    EXPECT_TRUE(sim::app::commandLoop());
    EXPECT_EQ(editor.prompts, (std::vector<std::wstring>{L"Command: ", L"First: ", L"Second: ", L"Command: "}));
    EXPECT_EQ(session.transcript(), L"Hotovo. \nCommand: ask2\nFirst: 1\nSecond: 2\nCommand: \n");
    // The editor drew the prompts and the typing; the echo only starts the prompts' lines.
    EXPECT_EQ(screen.str(), "Hotovo. \n\n");
}

TEST_F(CommandLine, ScriptEndingInsideACommandFails)
{
    sim::Session session(std::make_unique<sim::ScriptInput>("ask2\n1\n"));
    EXPECT_FALSE(sim::app::commandLoop());
    ASSERT_TRUE(session.failure());
    EXPECT_NE(session.failure()->find(L"\"Second:\""), std::wstring::npos);
}

} // namespace
