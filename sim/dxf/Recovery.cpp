// Recovery of damaged drawings: the sections put in their order.
#include "sim/dxf/Recovery.h"

#include <vector>

namespace sim::dxf {

namespace {

std::string_view trimmed(std::string_view s)
{
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
        s.remove_suffix(1);
    return s;
}

struct Section {
    std::string_view name;
    size_t begin, end; ///< from its "0 SECTION" line to after its "0 ENDSEC" pair
};

} // namespace

std::optional<std::string> tablesInTheirPlace(std::string_view text)
{
    // The groups as pairs of lines: a code line, then its value.
    std::vector<Section> sections;
    size_t pos = 0;
    bool open = false;
    std::string_view code, value;
    auto nextLine = [&](std::string_view& line) {
        if (pos >= text.size())
            return false;
        size_t eol = text.find('\n', pos);
        size_t end = eol == std::string_view::npos ? text.size() : eol;
        line = trimmed(text.substr(pos, end - pos));
        pos = eol == std::string_view::npos ? text.size() : eol + 1;
        return true;
    };
    for (;;) {
        size_t at = pos;
        if (!nextLine(code) || !nextLine(value))
            break;
        if (code != "0")
            continue;
        if (value == "SECTION") {
            std::string_view nameCode, name;
            if (open || !nextLine(nameCode) || !nextLine(name) || nameCode != "2")
                return std::nullopt;
            sections.push_back({name, at, 0});
            open = true;
        } else if (value == "ENDSEC") {
            if (!open)
                return std::nullopt;
            sections.back().end = pos;
            open = false;
        }
    }
    if (open)
        return std::nullopt;
    size_t tables = sections.size(), firstUser = sections.size();
    for (size_t i = 0; i < sections.size(); ++i) {
        const auto& n = sections[i].name;
        if (n == "TABLES" && tables == sections.size())
            tables = i;
        else if ((n == "BLOCKS" || n == "ENTITIES" || n == "OBJECTS") && firstUser == sections.size())
            firstUser = i;
    }
    if (tables == sections.size() || firstUser > tables)
        return std::nullopt;
    const Section& t = sections[tables];
    size_t before = sections[firstUser].begin;
    std::string out;
    out.reserve(text.size());
    out.append(text.substr(0, before));
    out.append(text.substr(t.begin, t.end - t.begin));
    out.append(text.substr(before, t.begin - before));
    out.append(text.substr(t.end));
    return out;
}

} // namespace sim::dxf
