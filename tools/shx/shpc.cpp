// shpc: compiles a shape definition file (.shp) into a compiled shape file (.shx).
//   shpc data/LIN/src/TG_IS.shp data/LIN/TG_IS.shx
// The output is written only when the whole source compiles; a fault is reported as file:line.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "ShapeCompiler.h"

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: shpc <source.shp> <target.shx>\n";
        return 2;
    }
    const std::string source = argv[1];
    const std::string target = argv[2];

    std::ifstream in(source, std::ios::binary);
    if (!in) {
        std::cerr << source << ": cannot be read\n";
        return 1;
    }
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());

    std::vector<std::uint8_t> bytes;
    try {
        bytes = shx::compileShp(text);
    } catch (const shx::ShapeError& e) {
        std::cerr << source << ':' << e.line() << ": " << e.what() << '\n';
        return 1;
    }

    // Written beside the target and renamed into place, so a failed write leaves the old file whole.
    const std::string temporary = target + ".tmp";
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!out.flush()) {
            std::cerr << temporary << ": cannot be written\n";
            std::remove(temporary.c_str());
            return 1;
        }
    }
    if (std::rename(temporary.c_str(), target.c_str()) != 0) {
        std::cerr << target << ": cannot be replaced\n";
        std::remove(temporary.c_str());
        return 1;
    }
    std::cout << target << ": " << bytes.size() << " bytes\n";
    return 0;
}
