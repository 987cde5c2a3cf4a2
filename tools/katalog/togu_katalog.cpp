// togu_katalog IN.csv OUT.tgp: the build's generator of the standard pipe catalogue from its text.
#include <iostream>

#include "tools/katalog/KatalogCsv.h"

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: togu_katalog IN.csv OUT.tgp\n";
        return 2;
    }
    std::string chyba = togu::katalog::ImportujKatalog(argv[1], argv[2]);
    if (!chyba.empty()) {
        std::cerr << "togu_katalog: " << chyba << "\n";
        return 1;
    }
    return 0;
}
