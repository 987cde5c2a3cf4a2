// Where the source tree is, for tests that read the shipped data. ctest passes it in
// TOGU_SOURCE_DIR; a test program started by hand looks upward from the working folder.
#pragma once
#include <cstdlib>
#include <filesystem>
#include <string>

inline std::string toguSourceDir()
{
    if (const char* dir = std::getenv("TOGU_SOURCE_DIR"))
        return dir;
    for (auto p = std::filesystem::current_path(); ; p = p.parent_path()) {
        if (std::filesystem::exists(p / "data" / "demo.scr"))
            return p.string();
        if (p == p.parent_path())
            return ".";
    }
}
