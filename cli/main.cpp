// togu: runs the system's commands on a drawing, from a script or at the keyboard.
#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

#include "cli/Batch.h"
#include "cli/Console.h"
#include "cli/Options.h"
#include "cli/Paths.h"
#include "tools/katalog/KatalogCsv.h"

int main(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    std::string error;
    auto options = togu::cli::parseOptions(args, error);
    if (!options) {
        std::cerr << "togu: " << error << "\n" << togu::cli::usage();
        return 2;
    }
    if (options->help) {
        std::cout << togu::cli::usage();
        return 0;
    }
    if (options->batch)
        return togu::cli::runBatch(*options, togu::cli::executablePath(argc > 0 ? argv[0] : nullptr), std::cout,
                                   std::cerr);
    if (options->catalogueExport || options->catalogueImport) {
        std::string chyba = options->catalogueExport
                                ? togu::katalog::ExportujKatalog(options->catalogueExport->first,
                                                                 options->catalogueExport->second)
                                : togu::katalog::ImportujKatalog(options->catalogueImport->first,
                                                                 options->catalogueImport->second);
        if (!chyba.empty())
            std::cerr << "togu: " << chyba << "\n";
        return chyba.empty() ? 0 : 1;
    }
    return togu::cli::run(*options, togu::cli::executablePath(argc > 0 ? argv[0] : nullptr), std::cin,
                          isatty(STDIN_FILENO) != 0, std::cout, std::cerr);
}
