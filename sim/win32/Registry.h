// The registry of the platform: a read-only machine file (HKEY_LOCAL_MACHINE and defaults for
// HKEY_CURRENT_USER) and a user file (HKEY_CURRENT_USER), both in one folder, behind the Reg* calls.
#pragma once
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/win32/RegFile.h"
#include "sim/win32/RegStore.h"
#include "windows.h"

namespace sim::win32 {

/// A text value (REG_SZ) for the machine file: the key's whole path with its root
/// (L"HKEY_LOCAL_MACHINE\\Software\\Togvarnik"), the value's name and its text.
struct MachineValue {
    std::wstring key;
    std::wstring name;
    std::wstring value;
};

/// The registry the Reg* calls work on. Key paths here carry their root as the first part
/// ("HKEY_CURRENT_USER\\Software\\..."); any case. Reads of HKEY_CURRENT_USER look in the user file,
/// then in the machine file's HKEY_CURRENT_USER keys (defaults); reads of other roots look in the
/// machine file. Only HKEY_CURRENT_USER is written, and every write saves the user file at once
/// (to a temporary name, renamed into place).
class Registry {
public:
    static constexpr const char* kMachineFile = "machine.reg";
    static constexpr const char* kUserFile = "user.reg";

    /// An empty registry kept in memory only; it is the current one while it lives.
    Registry();
    /// The registry kept in dir (machine.reg and user.reg; a missing file is an empty store, a missing
    /// folder is made at the first write). It is the current one while it lives.
    /// Throws RegFileError for a damaged or unreadable file; nothing changes then.
    static std::unique_ptr<Registry> open(const std::filesystem::path& dir);
    ~Registry();
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;

    /// The registry made last that still lives, else an empty one of the process kept in memory.
    static Registry& current();

    /// Reads both files again. Throws RegFileError for a damaged file and keeps what it held.
    void reload();

    /// The folder of the files; nothing for a registry kept in memory.
    const std::optional<std::filesystem::path>& folder() const { return m_folder; }
    const RegStore& machine() const { return m_machine; }
    const RegStore& user() const { return m_user; }

    /// True for paths under HKEY_CURRENT_USER, the one root that takes writes.
    static bool writable(std::wstring_view keyPath);
    /// A root alone always exists.
    bool keyExists(std::wstring_view keyPath) const;
    std::optional<RegValue> value(std::wstring_view keyPath, std::wstring_view name) const;

    // The writes answer as the Win32 calls do: ERROR_SUCCESS, ERROR_ACCESS_DENIED for a root other
    // than HKEY_CURRENT_USER, ERROR_WRITE_FAULT when the user file can't be saved (the registry then
    // stays as it was), ERROR_FILE_NOT_FOUND for a value to delete that isn't in the user file.
    LONG createKey(std::wstring_view keyPath, bool& created);
    LONG setValue(std::wstring_view keyPath, std::wstring_view name, RegValue value);
    LONG deleteValue(std::wstring_view keyPath, std::wstring_view name);

private:
    struct Detached {};
    explicit Registry(Detached);
    LONG commit(RegStore changed);

    std::optional<std::filesystem::path> m_folder;
    RegStore m_machine;
    RegStore m_user;
    Registry* m_previous = nullptr;
    bool m_stacked = false;
};

/// Writes dir/machine.reg with these values set, keeping what else it holds, to a temporary name
/// renamed into place; the folder is made where missing. A Registry open on dir sees the change
/// after reload(). Throws RegFileError when the file there is damaged (it is left as it was), a key
/// has no registry root, or the file can't be written.
void writeMachineFile(const std::filesystem::path& dir, const std::vector<MachineValue>& values);

/// Writes bytes to a temporary name beside target and renames it into place. False when either
/// step fails; no temporary file is left.
bool writeFileAtomically(const std::filesystem::path& target, std::string_view bytes);

} // namespace sim::win32
