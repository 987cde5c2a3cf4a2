// The platform's conversation: script or keyboard input, and the transcript.
#include "sim/core/Session.h"

#include <istream>
#include <ostream>
#include <stdexcept>

namespace sim {

namespace {
Session* g_current = nullptr;
}

std::wstring fromUtf8(std::string_view s)
{
    std::wstring out;
    out.reserve(s.size());
    for (size_t i = 0; i < s.size();) {
        unsigned char c = static_cast<unsigned char>(s[i]);
        char32_t cp = 0xFFFD;
        size_t len = 1;
        if (c < 0x80) {
            cp = c;
        } else if ((c >> 5) == 0x6 && i + 1 < s.size()) {
            cp = ((c & 0x1Fu) << 6) | (static_cast<unsigned char>(s[i + 1]) & 0x3Fu);
            len = 2;
        } else if ((c >> 4) == 0xE && i + 2 < s.size()) {
            cp = ((c & 0x0Fu) << 12) | ((static_cast<unsigned char>(s[i + 1]) & 0x3Fu) << 6) |
                 (static_cast<unsigned char>(s[i + 2]) & 0x3Fu);
            len = 3;
        } else if ((c >> 3) == 0x1E && i + 3 < s.size()) {
            cp = ((c & 0x07u) << 18) | ((static_cast<unsigned char>(s[i + 1]) & 0x3Fu) << 12) |
                 ((static_cast<unsigned char>(s[i + 2]) & 0x3Fu) << 6) |
                 (static_cast<unsigned char>(s[i + 3]) & 0x3Fu);
            len = 4;
        }
        if (sizeof(wchar_t) == 2 && cp >= 0x10000 && cp <= 0x10FFFF) {
            // A 16-bit wchar_t holds a character beyond the basic plane as a surrogate pair.
            cp -= 0x10000;
            out.push_back(static_cast<wchar_t>(0xD800 + (cp >> 10)));
            out.push_back(static_cast<wchar_t>(0xDC00 + (cp & 0x3FF)));
        } else {
            out.push_back(static_cast<wchar_t>(cp));
        }
        i += len;
    }
    return out;
}

std::string toUtf8(std::wstring_view s)
{
    std::string out;
    out.reserve(s.size());
    for (size_t i = 0; i < s.size(); ++i) {
        auto cp = static_cast<char32_t>(s[i]);
        // A surrogate pair (16-bit wchar_t) is one character of four bytes, not two of three.
        if (cp >= 0xD800 && cp < 0xDC00 && i + 1 < s.size()) {
            auto low = static_cast<char32_t>(s[i + 1]);
            if (low >= 0xDC00 && low < 0xE000) {
                cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
                ++i;
            }
        }
        if (cp < 0x80) {
            out.push_back(static_cast<char>(cp));
        } else if (cp < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else if (cp < 0x10000) {
            out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        }
    }
    return out;
}

ScriptInput::ScriptInput(std::string_view utf8Text)
{
    if (utf8Text.substr(0, 3) == "\xEF\xBB\xBF")
        utf8Text.remove_prefix(3);
    size_t start = 0;
    while (start < utf8Text.size()) {
        size_t end = utf8Text.find('\n', start);
        std::string_view line = utf8Text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        m_lines.push_back(fromUtf8(line));
        if (end == std::string_view::npos)
            break;
        start = end + 1;
    }
}

std::optional<InputLine> ScriptInput::read()
{
    if (m_next >= m_lines.size())
        return std::nullopt;
    InputLine l{m_lines[m_next], static_cast<int>(m_next + 1)};
    ++m_next;
    return l;
}

std::optional<InputLine> StreamInput::read()
{
    std::string line;
    if (!std::getline(m_in, line))
        return std::nullopt;
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return InputLine{fromUtf8(line), 0};
}

Session::Session(std::unique_ptr<InputSource> input, std::ostream* echo)
    : m_input(std::move(input)), m_echo(echo), m_previous(g_current)
{
    g_current = this;
}

Session::~Session() { g_current = m_previous; }

Session& Session::current()
{
    if (!g_current)
        throw std::logic_error("no platform session is running");
    return *g_current;
}

Session* Session::currentOrNull() { return g_current; }

bool Session::interactive() const { return m_input && m_input->interactive(); }

void Session::write(std::wstring_view text)
{
    if (text.empty())
        return;
    m_transcript.append(text);
    m_atLineStart = text.back() == L'\n';
    if (m_echo) {
        *m_echo << toUtf8(text);
        m_echo->flush();
    }
}

void Session::print(std::wstring_view text) { write(text); }

std::optional<InputLine> Session::readLine()
{
    if (!m_input)
        return std::nullopt;
    auto line = m_input->read();
    if (line && line->number > 0)
        m_lineNumber = line->number;
    return line;
}

std::optional<std::wstring> Session::ask(std::wstring_view prompt)
{
    if (m_atLineStart && !prompt.empty() && prompt.front() == L'\n')
        prompt.remove_prefix(1);
    else if (!m_atLineStart && (prompt.empty() || prompt.front() != L'\n'))
        write(L"\n");
    if (m_input && m_input->showsPrompt()) {
        m_transcript.append(prompt);
        m_atLineStart = false;
        m_input->setPrompt(std::wstring_view(m_transcript).substr(m_transcript.rfind(L'\n') + 1));
    } else {
        write(prompt);
    }
    auto line = readLine();
    if (!line) {
        m_waiting = std::wstring(prompt);
        write(L"\n");
        return std::nullopt;
    }
    if (interactive()) {
        // The terminal already shows what was typed; keep it in the transcript only.
        m_transcript.append(line->text).append(L"\n");
        m_atLineStart = true;
    } else {
        write(line->text);
        write(L"\n");
    }
    return line->text;
}

void Session::fail(std::wstring message)
{
    if (!m_failure)
        m_failure = std::move(message);
}

} // namespace sim
