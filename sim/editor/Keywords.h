// The keyword list of a prompt (acedInitGet) and how a typed answer names one of its keywords, as the
// host's command line matches them: by the capital letters of each keyword, without regard to case.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim::editor {

/// A letter in upper case, also the accented letters of Latin-1 and Latin Extended-A (č -> Č).
wchar_t upperChar(wchar_t c);
std::wstring upperCase(std::wstring_view s);

/// One keyword: its local name as written in the list, the least that must be typed of it, and its
/// global (language-independent) name.
struct Keyword {
    std::wstring local;
    std::wstring global;
    /// The first run of characters that are not small letters ("DveHrany" -> "D", "3P" -> "3P");
    /// empty when the keyword must be typed in full.
    std::wstring abbreviation;
    /// How much of the keyword a typed prefix must cover (the end of the abbreviation in it).
    size_t minPrefix = 0;
    /// A keyword written as it stands in a list ("LType" or "LTYPE,LT").
    static Keyword fromText(std::wstring_view text);
    /// True when answer names this keyword's local form: its abbreviation, or a prefix that covers
    /// the abbreviation, or the whole keyword; case is ignored.
    bool matches(std::wstring_view answer) const;
};

class KeywordList {
public:
    /// Parses an acedInitGet list: keywords separated by blanks, a lone "_" before the global names
    /// (in the order of the local ones). Without global names each keyword is its own global name.
    /// "LType,LT" gives the abbreviation after the comma explicitly.
    static KeywordList parse(std::wstring_view kwl);

    bool empty() const { return m_locals.empty(); }

    /// The keyword an answer names, in the form acedGetInput hands it back: the global name when the
    /// list has global names, else the keyword as written. An answer with a leading "_" is matched
    /// against the global names. The first keyword that matches wins.
    std::optional<std::wstring> match(std::wstring_view answer) const;

private:
    std::vector<Keyword> m_locals;
    std::vector<Keyword> m_globals; ///< parallel to m_locals
    bool m_hasGlobal = false;
};

} // namespace sim::editor
