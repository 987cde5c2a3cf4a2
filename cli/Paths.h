// Where the console finds the installation data and keeps the registry when not told.
#pragma once
#include <filesystem>
#include <string>

namespace togu::cli {

/// The shipped data folder: a "data" folder next to the executable (or in ../share/togu) when
/// there is one, else the source tree's data folder the build was made from.
std::filesystem::path defaultInstallDir(const std::filesystem::path& executable);

/// The user's folder for the registry: $XDG_CONFIG_HOME/togu, else ~/.config/togu, else a
/// folder in the temporary directory.
std::filesystem::path defaultRegistryDir();

/// The running program's own path (argv0 when the system cannot tell).
std::filesystem::path executablePath(const char* argv0);

/// A folder path as the system expects registry path values: absolute, with backslashes, ending
/// in a backslash. The platform's file functions turn the backslashes back.
std::wstring registryPath(const std::filesystem::path& dir);

} // namespace togu::cli
