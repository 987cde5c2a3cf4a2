// GetFileAttributesW and CreateDirectoryW on the real file system; the system's "\" paths work as "/".
#include <filesystem>
#include <system_error>

#include "sim/core/Session.h"
#include "windows.h"

namespace {

std::filesystem::path toFsPath(LPCWSTR path)
{
    std::wstring p = path;
    for (wchar_t& c : p)
        if (c == L'\\')
            c = L'/';
    return std::filesystem::path(sim::toUtf8(p));
}

bool parentExists(const std::filesystem::path& path)
{
    std::filesystem::path parent = path.parent_path();
    std::error_code ec;
    return parent.empty() || std::filesystem::is_directory(parent, ec);
}

} // namespace

DWORD WINAPI GetFileAttributesW(LPCWSTR lpFileName)
{
    if (!lpFileName || !*lpFileName) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return INVALID_FILE_ATTRIBUTES;
    }
    std::filesystem::path path = toFsPath(lpFileName);
    std::error_code ec;
    std::filesystem::file_status status = std::filesystem::status(path, ec);
    if (ec || !std::filesystem::exists(status)) {
        SetLastError(parentExists(path.lexically_normal()) ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND);
        return INVALID_FILE_ATTRIBUTES;
    }
    if (std::filesystem::is_directory(status))
        return FILE_ATTRIBUTE_DIRECTORY;
    using std::filesystem::perms;
    bool writable = (status.permissions() & perms::owner_write) != perms::none;
    return writable ? FILE_ATTRIBUTE_NORMAL : FILE_ATTRIBUTE_READONLY;
}

BOOL WINAPI CreateDirectoryW(LPCWSTR lpPathName, LPSECURITY_ATTRIBUTES)
{
    if (!lpPathName || !*lpPathName) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return FALSE;
    }
    // A trailing separator names the same folder.
    std::filesystem::path path = toFsPath(lpPathName).lexically_normal();
    if (!path.has_filename() && path.has_parent_path())
        path = path.parent_path();
    std::error_code ec;
    if (std::filesystem::exists(path, ec)) {
        SetLastError(ERROR_ALREADY_EXISTS);
        return FALSE;
    }
    if (!parentExists(path)) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return FALSE;
    }
    if (!std::filesystem::create_directory(path, ec) || ec) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    return TRUE;
}
