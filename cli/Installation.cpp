// The installation as the system finds it through the registry.
#include "cli/Installation.h"

#include <system_error>

#include "cli/Paths.h"

namespace fs = std::filesystem;

namespace togu::cli {

namespace {

constexpr const wchar_t* kMakerKey = L"HKEY_LOCAL_MACHINE\\Software\\Togvarnik";
constexpr const wchar_t* kProductKey = L"HKEY_LOCAL_MACHINE\\Software\\Togvarnik\\Togovy Utility";

/// The support files that CommonDataPath must hold: the line type files.
constexpr const char* kCommonDataFolders[] = {"LIN"};

} // namespace

std::string prepareInstallation(const Installation& inst)
{
    std::error_code ec;
    fs::create_directories(inst.dataDir(), ec);
    if (ec)
        return "cannot make the data folder " + inst.dataDir().string() + ": " + ec.message();
    // Copied at every start, so that a newer installation reaches the user's folder.
    for (const char* folder : kCommonDataFolders) {
        fs::path from = inst.installDir / folder;
        if (!fs::is_directory(from, ec))
            continue;
        fs::copy(from, inst.dataDir() / folder,
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing, ec);
        if (ec)
            return "cannot copy " + from.string() + " to " + inst.dataDir().string() + ": " + ec.message();
    }
    std::wstring install = registryPath(inst.installDir);
    std::wstring data = registryPath(inst.dataDir());
    try {
        sim::win32::writeMachineFile(inst.registryDir, {
                                                           {kProductKey, L"InstallPath", install},
                                                           {kProductKey, L"DataPath", data},
                                                           {kMakerKey, L"CommonInstallPath", install},
                                                           {kMakerKey, L"CommonDataPath", data},
                                                       });
    } catch (const std::exception& e) {
        return std::string("cannot write the registry's machine file: ") + e.what();
    }
    return {};
}

std::unique_ptr<sim::win32::Registry> openRegistry(const Installation& inst, std::string& error)
{
    try {
        return sim::win32::Registry::open(inst.registryDir);
    } catch (const std::exception& e) {
        error = std::string("cannot read the registry: ") + e.what();
        return nullptr;
    }
}

} // namespace togu::cli
