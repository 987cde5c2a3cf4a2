// The running platform's conversation with its user: where input lines come from (a script or the
// keyboard) and the transcript that everything shown goes to, as the host's command line shows it.
#pragma once
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

struct InputLine {
    std::wstring text;
    int number = 0; ///< 1-based line number in the script, 0 for the keyboard
};

/// A source of answers, one line each.
class InputSource {
public:
    virtual ~InputSource() = default;
    /// The next line, or nothing when the input has run out.
    virtual std::optional<InputLine> read() = 0;
    /// Keyboard input: the user sees prompts as they come and types the answers himself.
    virtual bool interactive() const { return false; }
    /// A line editor shows the prompt itself: before each read it is given the text of the line so
    /// far, the prompt at its end, instead of the transcript's echo showing it.
    virtual bool showsPrompt() const { return false; }
    virtual void setPrompt(std::wstring_view /*lineSoFar*/) {}
};

/// Lines of a script held in memory (UTF-8 text, CR LF or LF).
class ScriptInput : public InputSource {
public:
    explicit ScriptInput(std::string_view utf8Text);
    std::optional<InputLine> read() override;

private:
    std::vector<std::wstring> m_lines;
    size_t m_next = 0;
};

/// Lines typed at a terminal.
class StreamInput : public InputSource {
public:
    explicit StreamInput(std::istream& in) : m_in(in) {}
    std::optional<InputLine> read() override;
    bool interactive() const override { return true; }

private:
    std::istream& m_in;
};

/// The one conversation of the running platform. Host calls reach it through Session::current().
class Session {
public:
    /// echo, when given, receives everything that enters the transcript as it happens (UTF-8).
    explicit Session(std::unique_ptr<InputSource> input, std::ostream* echo = nullptr);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// The session in force; throws std::logic_error when there is none.
    static Session& current();
    static Session* currentOrNull();

    /// Shows text as acutPrintf does: verbatim.
    void print(std::wstring_view text);
    /// Shows a prompt and takes one answer. A prompt starts on a fresh line: a leading "\n" adds no
    /// empty line when the transcript stands at the start of one. The answer is shown after the
    /// prompt, and the line ends. Nothing when the input has run out: the prompt is then left
    /// waiting, which the session remembers (see waitingPrompt).
    std::optional<std::wstring> ask(std::wstring_view prompt);
    /// Takes the next line without a prompt (the console's "Command:" loop uses ask instead).
    std::optional<InputLine> readLine();

    const std::wstring& transcript() const { return m_transcript; }
    /// The number of the last line read from a script, 0 before the first.
    int lineNumber() const { return m_lineNumber; }
    bool interactive() const;
    /// The prompt that was left without an answer when the input ran out, if any.
    const std::optional<std::wstring>& waitingPrompt() const { return m_waiting; }

    /// A failure of the run that the console reports and that makes its exit status non-zero
    /// (an unknown command, an unreadable file). The first one is kept.
    void fail(std::wstring message);
    const std::optional<std::wstring>& failure() const { return m_failure; }

private:
    void write(std::wstring_view text);

    std::unique_ptr<InputSource> m_input;
    std::ostream* m_echo;
    std::wstring m_transcript;
    bool m_atLineStart = true;
    int m_lineNumber = 0;
    std::optional<std::wstring> m_waiting;
    std::optional<std::wstring> m_failure;
    Session* m_previous;
};

/// UTF-8 <-> wide text, used wherever the platform meets files and terminals.
std::wstring fromUtf8(std::string_view s);
std::string toUtf8(std::wstring_view s);

} // namespace sim
