// Keyword lists of prompts and the host's matching of typed answers against them.
#include "sim/editor/Keywords.h"

namespace sim::editor {

wchar_t upperChar(wchar_t c)
{
    if (c >= L'a' && c <= L'z')
        return static_cast<wchar_t>(c - 32);
    if (c < 0xE0)
        return c;
    if (c <= 0xFE)
        return c == 0xF7 ? c : static_cast<wchar_t>(c - 0x20);
    // Latin Extended-A pairs capital and small letter; which of the two is even changes twice.
    bool smallIsOdd = (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177);
    bool smallIsEven = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    if ((smallIsOdd && c % 2 == 1) || (smallIsEven && c % 2 == 0))
        return static_cast<wchar_t>(c - 1);
    return c;
}

std::wstring upperCase(std::wstring_view s)
{
    std::wstring r(s);
    for (auto& c : r)
        c = upperChar(c);
    return r;
}

namespace {

bool isSmallLetter(wchar_t c) { return upperChar(c) != c; }

bool startsWithNoCase(std::wstring_view s, std::wstring_view prefix)
{
    return prefix.size() <= s.size() && upperCase(s.substr(0, prefix.size())) == upperCase(prefix);
}

std::vector<std::wstring_view> splitBlanks(std::wstring_view s)
{
    std::vector<std::wstring_view> out;
    size_t i = 0;
    while (i < s.size()) {
        while (i < s.size() && (s[i] == L' ' || s[i] == L'\t'))
            ++i;
        size_t start = i;
        while (i < s.size() && s[i] != L' ' && s[i] != L'\t')
            ++i;
        if (i > start)
            out.push_back(s.substr(start, i - start));
    }
    return out;
}

} // namespace

Keyword Keyword::fromText(std::wstring_view text)
{
    Keyword k;
    size_t comma = text.find(L',');
    if (comma != std::wstring_view::npos) {
        k.local = std::wstring(text.substr(0, comma));
        k.abbreviation = std::wstring(text.substr(comma + 1));
        k.minPrefix = startsWithNoCase(k.local, k.abbreviation) ? k.abbreviation.size() : k.local.size();
    } else {
        k.local = std::wstring(text);
        size_t start = 0;
        while (start < text.size() && isSmallLetter(text[start]))
            ++start;
        size_t end = start;
        while (end < text.size() && !isSmallLetter(text[end]))
            ++end;
        k.abbreviation = std::wstring(text.substr(start, end - start));
        k.minPrefix = k.abbreviation.empty() ? text.size() : end;
    }
    if (k.abbreviation.empty() && k.minPrefix == 0)
        k.minPrefix = k.local.size();
    k.global = k.local;
    return k;
}

bool Keyword::matches(std::wstring_view answer) const
{
    if (answer.empty())
        return false;
    std::wstring a = upperCase(answer);
    if (a == upperCase(local))
        return true;
    if (!abbreviation.empty() && a == upperCase(abbreviation))
        return true;
    return answer.size() >= minPrefix && startsWithNoCase(local, answer);
}

KeywordList KeywordList::parse(std::wstring_view kwl)
{
    KeywordList list;
    bool global = false;
    size_t g = 0;
    for (auto word : splitBlanks(kwl)) {
        if (word == L"_") {
            global = true;
            list.m_hasGlobal = true;
            continue;
        }
        if (!global) {
            list.m_locals.push_back(Keyword::fromText(word));
            list.m_globals.push_back(list.m_locals.back());
        } else if (g < list.m_locals.size()) {
            list.m_globals[g] = Keyword::fromText(word);
            list.m_locals[g].global = list.m_globals[g].local;
            ++g;
        }
    }
    return list;
}

std::optional<std::wstring> KeywordList::match(std::wstring_view answer) const
{
    if (!answer.empty() && answer.front() == L'_') {
        answer.remove_prefix(1);
        for (const auto& k : m_globals)
            if (k.matches(answer))
                return k.local;
        return std::nullopt;
    }
    for (const auto& k : m_locals)
        if (k.matches(answer))
            return m_hasGlobal ? k.global : k.local;
    return std::nullopt;
}

} // namespace sim::editor
