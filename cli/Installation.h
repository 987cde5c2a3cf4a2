// The installation as the system finds it through the registry: the machine file of the registry
// folder names the installation's folders, as the real installer's keys would.
#pragma once
#include <filesystem>
#include <memory>
#include <string>

#include "sim/win32/Registry.h"

namespace togu::cli {

struct Installation {
    std::filesystem::path installDir;  ///< the shipped support files (LIN, BLOKY, Materialy, ...)
    std::filesystem::path registryDir; ///< the .reg files and the user's data folder
    /// The user's data folder: user catalogues are written here, line type files are copied here.
    std::filesystem::path dataDir() const { return registryDir / "data"; }
};

/// Makes the registry folder ready: writes the machine file with "InstallPath" and "DataPath" under
/// Software\Togvarnik\Togovy Utility\ and "CommonInstallPath" and "CommonDataPath" under
/// Software\Togvarnik\, and copies the line type files into the user's data folder, where
/// CommonDataPath finds them. Empty on success, else what failed.
std::string prepareInstallation(const Installation& inst);

/// The platform's registry on the folder's files, current while it lives; null with the reason in
/// error when a file is damaged.
std::unique_ptr<sim::win32::Registry> openRegistry(const Installation& inst, std::string& error);

} // namespace togu::cli
