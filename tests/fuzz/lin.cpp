// The .lin files: the platform's loader of line types (from a file, as the host loads them) and the
// conversion's reader of line type names.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>

#include "CTogException.h"
#include "CTogFunkce.h"
#include "FuzzSession.h"
#include "PrevodStandardu.h"
#include "dbapserv.h"
#include "dbmain.h"
#include "sim/core/Session.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::session();
    // The loader reads a file by its name: one file of this process, removed at its end.
    static const struct File {
        std::string path = "/tmp/togu-fuzz-" + std::to_string(getpid()) + ".lin";
        ~File() { std::remove(path.c_str()); }
    } file;
    const std::string& path = file.path;
    {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    AcDbDatabase db(true, true);
    std::wstring wide(path.begin(), path.end());
    acdbLoadLineTypeFile(L"*", wide.c_str(), &db);

    MapaNazvu names;
    NactiLinZTextu(names, CTogFunkce::ZUtf8(std::string_view(reinterpret_cast<const char*>(data), size)));
    return 0;
}
