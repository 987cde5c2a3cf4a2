// Writes the level mark block file: make_level_mark data/BLOKY/tg_kacena.dwg (DXF text under the name
// the system asks for).
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "tools/LevelMarkBlock.h"
#include "tools/LevelMarkFile.h"

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: make_level_mark OUT.dwg\n";
        return 2;
    }
    std::string text = togu::tools::levelMarkFileText();
    std::filesystem::path out(argv[1]), temp(out);
    temp += ".tmp~";
    {
        std::ofstream f(temp, std::ios::binary);
        f << text;
        if (!f.flush()) {
            std::cerr << "make_level_mark: cannot write " << temp << "\n";
            return 1;
        }
    }
    std::error_code ec;
    std::filesystem::rename(temp, out, ec);
    if (ec) {
        std::cerr << "make_level_mark: " << ec.message() << "\n";
        return 1;
    }
    return 0;
}
