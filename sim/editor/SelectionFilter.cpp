// Selection filters and the host's wildcard match.
#include "sim/editor/SelectionFilter.h"

#include "acutads.h"
#include "sim/editor/Keywords.h"

namespace sim::editor {

namespace {

bool isLetter(wchar_t c) { return upperChar(c) != c || (c >= L'A' && c <= L'Z') || (c >= 0xC0 && c <= 0x17F); }
bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// One alternative (no "," in it), both sides already in upper case.
bool matchOne(std::wstring_view t, std::wstring_view p)
{
    size_t ti = 0, pi = 0;
    size_t starP = std::wstring_view::npos, starT = 0;
    while (ti < t.size()) {
        bool advanced = false;
        if (pi < p.size()) {
            wchar_t pc = p[pi];
            if (pc == L'*') {
                starP = ++pi;
                starT = ti;
                continue;
            }
            size_t plen = 1;
            bool ok = false;
            wchar_t c = t[ti];
            if (pc == L'`' && pi + 1 < p.size()) {
                ok = c == p[pi + 1];
                plen = 2;
            } else if (pc == L'?') {
                ok = true;
            } else if (pc == L'#') {
                ok = isDigit(c);
            } else if (pc == L'@') {
                ok = isLetter(c);
            } else if (pc == L'.') {
                ok = !isDigit(c) && !isLetter(c);
            } else if (pc == L'[') {
                size_t close = p.find(L']', pi + 1);
                if (close != std::wstring_view::npos) {
                    std::wstring_view set = p.substr(pi + 1, close - pi - 1);
                    bool negate = !set.empty() && set.front() == L'~';
                    if (negate)
                        set.remove_prefix(1);
                    bool in = false;
                    for (size_t k = 0; k < set.size(); ++k) {
                        if (k + 2 < set.size() && set[k + 1] == L'-') {
                            in = in || (c >= set[k] && c <= set[k + 2]);
                            k += 2;
                        } else {
                            in = in || c == set[k];
                        }
                    }
                    ok = in != negate;
                    plen = close - pi + 1;
                } else {
                    ok = c == pc;
                }
            } else {
                ok = c == pc;
            }
            if (ok) {
                ti += 1;
                pi += plen;
                advanced = true;
            }
        }
        if (!advanced) {
            if (starP == std::wstring_view::npos)
                return false;
            pi = starP;
            ti = ++starT;
        }
    }
    while (pi < p.size() && p[pi] == L'*')
        ++pi;
    return pi == p.size();
}

using Node = SelectionFilter::Node;

bool evaluate(const Node& n, const EntityFacts& e)
{
    switch (n.kind) {
    case Node::And:
        for (const auto& k : n.kids)
            if (!evaluate(k, e))
                return false;
        return true;
    case Node::Or:
        for (const auto& k : n.kids)
            if (evaluate(k, e))
                return true;
        return false;
    case Node::Xor: {
        int hits = 0;
        for (const auto& k : n.kids)
            hits += evaluate(k, e) ? 1 : 0;
        return hits == 1;
    }
    case Node::Not:
        return !evaluate(n.kids.front(), e);
    case Node::Test:
        switch (n.code) {
        case 0: return wildcardMatch(e.type, n.text);
        case 8: return wildcardMatch(e.layer, n.text);
        case 2: return wildcardMatch(e.blockName, n.text);
        case 6: return wildcardMatch(e.linetype, n.text);
        case 62: return e.color == n.number;
        case 67: return (e.paperSpace ? 1 : 0) == n.number;
        default: return false;
        }
    }
    return false;
}

/// Reads items up to the closing operator `close` (empty at the top level).
bool parseItems(const resbuf*& rb, std::wstring_view close, std::vector<Node>& out)
{
    while (rb) {
        if (rb->restype == -4) {
            std::wstring op = upperCase(rb->resval.rstring ? rb->resval.rstring : L"");
            rb = rb->rbnext;
            if (!close.empty() && op == close)
                return true;
            Node n;
            std::wstring end;
            if (op == L"<AND") {
                n.kind = Node::And;
                end = L"AND>";
            } else if (op == L"<OR") {
                n.kind = Node::Or;
                end = L"OR>";
            } else if (op == L"<XOR") {
                n.kind = Node::Xor;
                end = L"XOR>";
            } else if (op == L"<NOT") {
                n.kind = Node::Not;
                end = L"NOT>";
            } else {
                return false; // relational operators and stray closers are not supported
            }
            if (!parseItems(rb, end, n.kids))
                return false;
            if (n.kind == Node::Not ? n.kids.size() != 1 : n.kids.empty())
                return false;
            out.push_back(std::move(n));
            continue;
        }
        Node t;
        t.kind = Node::Test;
        t.code = rb->restype;
        switch (t.code) {
        case 0: case 2: case 6: case 8:
            t.text = rb->resval.rstring ? rb->resval.rstring : L"";
            break;
        case 62: case 67:
            t.number = rb->resval.rint;
            break;
        default:
            return false;
        }
        out.push_back(std::move(t));
        rb = rb->rbnext;
    }
    return close.empty();
}

} // namespace

bool wildcardMatch(std::wstring_view text, std::wstring_view pattern)
{
    std::wstring t = upperCase(text), p = upperCase(pattern);
    bool negate = !p.empty() && p.front() == L'~';
    std::wstring_view rest = p;
    if (negate)
        rest.remove_prefix(1);
    // Split at commas that are not quoted by "`".
    bool any = false;
    size_t start = 0;
    for (size_t i = 0; i <= rest.size(); ++i) {
        if (i < rest.size() && rest[i] == L'`') {
            ++i;
            continue;
        }
        if (i == rest.size() || rest[i] == L',') {
            if (matchOne(t, rest.substr(start, i - start)))
                any = true;
            start = i + 1;
        }
    }
    return any != negate;
}

std::optional<SelectionFilter> SelectionFilter::parse(const resbuf* chain)
{
    SelectionFilter f;
    f.m_root.kind = Node::And;
    const resbuf* rb = chain;
    if (!parseItems(rb, L"", f.m_root.kids))
        return std::nullopt;
    return f;
}

bool SelectionFilter::accepts(const EntityFacts& e) const { return evaluate(m_root, e); }

} // namespace sim::editor
