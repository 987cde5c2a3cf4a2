// The Reg* calls of Win32 on the platform's registry: key handles and the byte-level value protocol.
#include <cstring>
#include <map>
#include <optional>
#include <string>

#include "sim/win32/Registry.h"
#include "windows.h"

namespace {

using sim::win32::Registry;
using sim::win32::RegValue;

struct OpenKey {
    std::wstring path; ///< root included
    REGSAM access;
};

std::map<std::uintptr_t, OpenKey>& handles()
{
    static std::map<std::uintptr_t, OpenKey> table;
    return table;
}

std::optional<OpenKey> resolve(HKEY key)
{
    constexpr REGSAM all = KEY_ALL_ACCESS;
    if (key == HKEY_LOCAL_MACHINE)
        return OpenKey{L"HKEY_LOCAL_MACHINE", all};
    if (key == HKEY_CURRENT_USER)
        return OpenKey{L"HKEY_CURRENT_USER", all};
    if (key == HKEY_CLASSES_ROOT)
        return OpenKey{L"HKEY_CLASSES_ROOT", all};
    if (key == HKEY_USERS)
        return OpenKey{L"HKEY_USERS", all};
    if (key == HKEY_CURRENT_CONFIG)
        return OpenKey{L"HKEY_CURRENT_CONFIG", all};
    auto it = handles().find(reinterpret_cast<std::uintptr_t>(key));
    if (it == handles().end())
        return std::nullopt;
    return it->second;
}

HKEY newHandle(std::wstring path, REGSAM access)
{
    static std::uintptr_t next = 0x1000;
    next += 0x10;
    handles()[next] = OpenKey{std::move(path), access};
    return reinterpret_cast<HKEY>(next);
}

std::wstring join(const std::wstring& base, LPCWSTR sub)
{
    std::wstring path = base;
    if (sub && *sub)
        path += L'\\' + std::wstring(sub);
    return sim::win32::normalizeKeyPath(path);
}

bool isStringType(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }

constexpr REGSAM kWriteRights = KEY_SET_VALUE | KEY_CREATE_SUB_KEY | KEY_CREATE_LINK;

} // namespace

LSTATUS WINAPI RegOpenKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD, REGSAM samDesired, PHKEY phkResult)
{
    if (!phkResult)
        return ERROR_INVALID_PARAMETER;
    *phkResult = nullptr;
    auto base = resolve(hKey);
    if (!base)
        return ERROR_INVALID_HANDLE;
    std::wstring path = join(base->path, lpSubKey);
    Registry& reg = Registry::current();
    if (!reg.keyExists(path))
        return ERROR_FILE_NOT_FOUND;
    if ((samDesired & kWriteRights) && !Registry::writable(path))
        return ERROR_ACCESS_DENIED;
    *phkResult = newHandle(path, samDesired);
    return ERROR_SUCCESS;
}

LSTATUS WINAPI RegCreateKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD, LPWSTR, DWORD, REGSAM samDesired,
    const LPSECURITY_ATTRIBUTES, PHKEY phkResult, LPDWORD lpdwDisposition)
{
    if (!phkResult)
        return ERROR_INVALID_PARAMETER;
    *phkResult = nullptr;
    auto base = resolve(hKey);
    if (!base)
        return ERROR_INVALID_HANDLE;
    std::wstring path = join(base->path, lpSubKey);
    Registry& reg = Registry::current();
    bool exists = reg.keyExists(path);
    if (!Registry::writable(path)) {
        // A machine key can only be opened, and only for reading.
        if (!exists || (samDesired & kWriteRights))
            return ERROR_ACCESS_DENIED;
    } else if (!exists) {
        if (!(base->access & KEY_CREATE_SUB_KEY))
            return ERROR_ACCESS_DENIED;
        bool created = false;
        if (LSTATUS status = reg.createKey(path, created); status != ERROR_SUCCESS)
            return status;
    }
    if (lpdwDisposition)
        *lpdwDisposition = exists ? REG_OPENED_EXISTING_KEY : REG_CREATED_NEW_KEY;
    *phkResult = newHandle(path, samDesired);
    return ERROR_SUCCESS;
}

LSTATUS WINAPI RegQueryValueExW(HKEY hKey, LPCWSTR lpValueName, LPDWORD lpReserved, LPDWORD lpType, LPBYTE lpData,
    LPDWORD lpcbData)
{
    auto key = resolve(hKey);
    if (!key)
        return ERROR_INVALID_HANDLE;
    if (lpReserved || (lpData && !lpcbData))
        return ERROR_INVALID_PARAMETER;
    if (!(key->access & KEY_QUERY_VALUE))
        return ERROR_ACCESS_DENIED;
    auto value = Registry::current().value(key->path, lpValueName ? lpValueName : L"");
    if (!value)
        return ERROR_FILE_NOT_FOUND;
    if (lpType)
        *lpType = value->type;
    // Strings travel in the caller's WCHARs, and their sizes count sizeof(WCHAR) bytes a character,
    // so a buffer sized with sizeof() as on Windows is never overrun.
    std::wstring text;
    if (isStringType(value->type))
        text = sim::win32::fromUtf16le(value->data.data(), value->data.size());
    const auto size = isStringType(value->type) ? static_cast<DWORD>(text.size() * sizeof(WCHAR))
                                                : static_cast<DWORD>(value->data.size());
    if (!lpData) {
        if (lpcbData)
            *lpcbData = size;
        return ERROR_SUCCESS;
    }
    if (*lpcbData < size) {
        *lpcbData = size;
        return ERROR_MORE_DATA;
    }
    if (size > 0)
        std::memcpy(lpData, isStringType(value->type) ? static_cast<const void*>(text.data()) : value->data.data(), size);
    *lpcbData = size;
    return ERROR_SUCCESS;
}

LSTATUS WINAPI RegSetValueExW(HKEY hKey, LPCWSTR lpValueName, DWORD, DWORD dwType, const BYTE* lpData, DWORD cbData)
{
    auto key = resolve(hKey);
    if (!key)
        return ERROR_INVALID_HANDLE;
    if (!lpData && cbData > 0)
        return ERROR_INVALID_PARAMETER;
    if (!(key->access & KEY_SET_VALUE))
        return ERROR_ACCESS_DENIED;
    RegValue value{dwType, {}};
    if (isStringType(dwType)) {
        std::wstring text(cbData / sizeof(WCHAR), L'\0');
        if (!text.empty())
            std::memcpy(text.data(), lpData, text.size() * sizeof(WCHAR));
        for (wchar_t& c : text)
            if ((static_cast<std::uint32_t>(c) >> 16) != 0)
                c = 0xFFFD;
        value.data = sim::win32::toUtf16le(text);
    } else if (cbData > 0) {
        value.data.assign(lpData, lpData + cbData);
    }
    return Registry::current().setValue(key->path, lpValueName ? lpValueName : L"", std::move(value));
}

LSTATUS WINAPI RegDeleteValueW(HKEY hKey, LPCWSTR lpValueName)
{
    auto key = resolve(hKey);
    if (!key)
        return ERROR_INVALID_HANDLE;
    if (!(key->access & KEY_SET_VALUE))
        return ERROR_ACCESS_DENIED;
    return Registry::current().deleteValue(key->path, lpValueName ? lpValueName : L"");
}

LSTATUS WINAPI RegCloseKey(HKEY hKey)
{
    if (handles().erase(reinterpret_cast<std::uintptr_t>(hKey)) > 0)
        return ERROR_SUCCESS;
    return resolve(hKey) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}
