// The togu console: prepares the installation and the registry, opens the drawing, loads the system
// into the platform through its entry point and runs the command line on a script or the keyboard.
#pragma once
#include <filesystem>
#include <iosfwd>

#include "cli/Options.h"

namespace togu::cli {

/// Runs the console with parsed options. Without a script, in is read as typed at a terminal when
/// inIsTerminal, else as a script (lines piped in). The transcript goes to out as it is made,
/// messages about the run to err. Gives the exit status: 0, or 1 when the run failed (an unknown
/// command, a prompt left waiting at the end of the script, a file that could not be read or written).
int run(const Options& options, const std::filesystem::path& executable, std::istream& in, bool inIsTerminal,
        std::ostream& out, std::ostream& err);

} // namespace togu::cli
