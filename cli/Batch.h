// Batch runs: one script over many drawings, each drawing in a process of its own.
#pragma once
#include <filesystem>
#include <ostream>

#include "cli/Options.h"

namespace togu::cli {

/// Runs options.batch over options.batchFiles, options.jobs at a time, each by a togu process of
/// its own that saves to the output (in options.outDir, else over the file) and writes its
/// transcript to a .log beside it. Prints a line per drawing as it ends and a summary; gives 1 when
/// any drawing failed (its file untouched, its output unwritten), 2 when the run cannot start.
int runBatch(const Options& options, const std::filesystem::path& executable, std::ostream& out,
             std::ostream& err);

} // namespace togu::cli
