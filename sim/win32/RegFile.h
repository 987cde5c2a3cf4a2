// The registry's files in the "Windows Registry Editor Version 5.00" format: reading them into a store
// and writing a store out.
#pragma once
#include <stdexcept>
#include <string>
#include <string_view>

#include "sim/win32/RegStore.h"

namespace sim::win32 {

/// A .reg file that can't be read: what() names the file and the line (UTF-8).
class RegFileError : public std::runtime_error {
public:
    RegFileError(std::wstring file, int line, std::wstring reason);
    const std::wstring& file() const { return m_file; }
    /// 1-based; 0 when the fault is in the file as a whole.
    int line() const { return m_line; }
    const std::wstring& reason() const { return m_reason; }
    std::wstring message() const;

private:
    std::wstring m_file;
    int m_line;
    std::wstring m_reason;
};

/// Reads a .reg file's bytes: UTF-8 with or without byte order mark, or UTF-16LE with its mark. A file
/// of blanks only is an empty store. fileName serves the error messages only.
/// Throws RegFileError on the first line that can't be read.
RegStore parseRegFile(std::string_view bytes, std::wstring_view fileName);

/// The file's text for a store, UTF-8 without byte order mark, LF line ends. Keys with no values are
/// written only when no subkey stands for them.
std::string formatRegFile(const RegStore& store);

/// True for the names of the registry's roots (HKEY_LOCAL_MACHINE, ...), in any case.
bool isRegistryRoot(std::wstring_view name);

} // namespace sim::win32
