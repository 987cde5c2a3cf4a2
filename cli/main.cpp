// togu: runs the system's commands on a drawing, from a script or at the keyboard.
#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

#include "cli/Console.h"
#include "cli/Options.h"
#include "cli/Paths.h"

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
    return togu::cli::run(*options, togu::cli::executablePath(argc > 0 ? argv[0] : nullptr), std::cin,
                          isatty(STDIN_FILENO) != 0, std::cout, std::cerr);
}
