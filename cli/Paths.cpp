// Where the console finds the installation data and keeps the registry.
#include "cli/Paths.h"

#include <cstdlib>
#include <system_error>

#include "sim/core/Session.h"

#ifndef TOGU_DATA_DIR
#define TOGU_DATA_DIR "data"
#endif

namespace fs = std::filesystem;

namespace togu::cli {

fs::path executablePath(const char* argv0)
{
    std::error_code ec;
    fs::path self = fs::read_symlink("/proc/self/exe", ec);
    if (!ec && !self.empty())
        return self;
    return fs::absolute(argv0 ? argv0 : "togu", ec);
}

fs::path defaultInstallDir(const fs::path& executable)
{
    std::error_code ec;
    fs::path dir = executable.parent_path();
    for (const fs::path& candidate : {dir / "data", dir / ".." / "share" / "togu"})
        if (fs::is_directory(candidate, ec))
            return fs::weakly_canonical(candidate, ec);
    return fs::path(TOGU_DATA_DIR);
}

fs::path defaultRegistryDir()
{
    if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg)
        return fs::path(xdg) / "togu";
    if (const char* home = std::getenv("HOME"); home && *home)
        return fs::path(home) / ".config" / "togu";
    std::error_code ec;
    return fs::temp_directory_path(ec) / "togu";
}

std::wstring registryPath(const fs::path& dir)
{
    std::error_code ec;
    fs::path abs = fs::absolute(dir, ec).lexically_normal();
    std::wstring text = sim::fromUtf8(abs.generic_string());
    for (auto& c : text)
        if (c == L'/')
            c = L'\\';
    if (text.empty() || text.back() != L'\\')
        text += L'\\';
    return text;
}

} // namespace togu::cli
