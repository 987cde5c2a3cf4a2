// Selection filters: the chain of DXF groups that acedSSGet takes (entity type, layer, block name,
// colour, line type, space), with the logical groupings "<or" ... "or>", "<and", "<xor", "<not".
// Names are compared as the host's wildcard match does it ("*TEXT", "TEXT,MTEXT", "~0").
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct resbuf;

namespace sim::editor {

/// What a filter can ask of an entity.
struct EntityFacts {
    std::wstring type;      ///< DXF name: "LINE", "INSERT", ...
    std::wstring layer;
    std::wstring blockName; ///< of a block reference
    int color = 256;        ///< 256 by layer, 0 by block
    std::wstring linetype;
    bool paperSpace = false;
};

/// The host's wildcard match, case ignored: "*" any run, "?" one character, "#" a digit, "@" a letter,
/// "." neither, "[abc]" / "[~abc]" sets, "`" quotes the next character, "," separates alternatives,
/// a leading "~" negates.
bool wildcardMatch(std::wstring_view text, std::wstring_view pattern);

class SelectionFilter {
public:
    /// Nothing for a chain that is not well formed (an unknown or unbalanced operator, a group of a
    /// kind the filter cannot test). A null chain accepts everything.
    static std::optional<SelectionFilter> parse(const resbuf* chain);
    bool accepts(const EntityFacts& e) const;

    struct Node {
        enum Kind { And, Or, Xor, Not, Test } kind = And;
        int code = 0;
        std::wstring text;
        int number = 0;
        std::vector<Node> kids;
    };

private:
    Node m_root;
};

} // namespace sim::editor
