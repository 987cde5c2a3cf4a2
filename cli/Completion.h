// Tab completion of command names at the keyboard.
#pragma once
#include <string>
#include <vector>

namespace togu::cli {

struct Completion {
    std::string insert;                  ///< what to add after the typed text
    std::vector<std::string> candidates; ///< the names that fit, when more than one does
};

/// Completes the typed start of a command name among names, without regard to ASCII case. A leading
/// "_" or "." (the global name, the built-in command) stays as typed. One fitting name is completed
/// whole with a space after it; several give their longest common start and are listed.
Completion completeCommand(const std::string& typed, const std::vector<std::string>& names);

} // namespace togu::cli
