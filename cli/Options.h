// The console's command line: togu [drawing.dxf] [-s script] [-o out.dxf] [--svg out.svg]
// [--install DIR] [--registry DIR], or one of the catalogue conversions alone.
#pragma once
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace togu::cli {

struct Options {
    std::optional<std::string> drawing; ///< the drawing to open; none gives a new one
    std::optional<std::string> script;  ///< the script to run; none gives the keyboard
    std::optional<std::string> output;  ///< where to save the drawing at the end
    std::optional<std::string> svg;     ///< where to draw it as a picture at the end
    std::optional<std::string> install; ///< the installation folder; none gives the shipped data
    std::optional<std::string> registry; ///< the folder of the .reg files; none gives the user's
    bool help = false;
    bool recover = false; ///< --recover: read a damaged drawing as the host's RECOVER does
    /// --batch SCRIPT [--out-dir DIR] [-j N] FILES...: the script run over each of the files.
    std::optional<std::string> batch;
    std::optional<std::string> outDir; ///< where a batch run saves; none saves each file in place
    int jobs = 1;                      ///< how many drawings of a batch run at a time
    std::vector<std::string> batchFiles;
    /// --catalogue-export FILE.tgp OUT.csv and --catalogue-import IN.csv OUT.tgp: from and to.
    std::optional<std::pair<std::string, std::string>> catalogueExport;
    std::optional<std::pair<std::string, std::string>> catalogueImport;
};

/// Reads the arguments (without the program name). Nothing, with the reason in error, for an
/// unknown option, an option without its value, a second drawing or an option given twice.
std::optional<Options> parseOptions(const std::vector<std::string>& args, std::string& error);

/// The usage text, one option a line.
std::string usage();

} // namespace togu::cli
