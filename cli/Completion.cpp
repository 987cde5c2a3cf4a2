// Tab completion of command names.
#include "cli/Completion.h"

#include <algorithm>
#include <cctype>

namespace togu::cli {

namespace {

char fold(char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); }

} // namespace

Completion completeCommand(const std::string& typed, const std::vector<std::string>& names)
{
    std::string start = typed.substr(std::min(typed.find_first_not_of("_."), typed.size()));
    Completion result;
    for (const auto& name : names)
        if (name.size() >= start.size() &&
            std::equal(start.begin(), start.end(), name.begin(), [](char a, char b) { return fold(a) == fold(b); }) &&
            std::find(result.candidates.begin(), result.candidates.end(), name) == result.candidates.end())
            result.candidates.push_back(name);
    if (result.candidates.empty())
        return result;
    if (result.candidates.size() == 1) {
        result.insert = result.candidates.front().substr(start.size()) + " ";
        result.candidates.clear();
        return result;
    }
    std::sort(result.candidates.begin(), result.candidates.end());
    // The common start of all fitting names, in the case of the first.
    size_t common = result.candidates.front().size();
    for (const auto& c : result.candidates) {
        size_t n = 0;
        while (n < common && n < c.size() && fold(c[n]) == fold(result.candidates.front()[n]))
            ++n;
        common = n;
    }
    result.insert = result.candidates.front().substr(start.size(), common - start.size());
    return result;
}

} // namespace togu::cli
