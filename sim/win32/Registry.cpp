// The registry of the platform kept in two .reg files, and the current registry of the process.
#include "sim/win32/Registry.h"

#include <unistd.h>

#include <fstream>
#include <sstream>
#include <system_error>

#include "sim/core/Session.h"

namespace sim::win32 {

namespace fs = std::filesystem;

namespace {

Registry* g_top = nullptr;

std::wstring displayName(const fs::path& p) { return fromUtf8(p.string()); }

std::wstring rootOf(std::wstring_view keyPath)
{
    std::wstring norm = normalizeKeyPath(keyPath);
    return foldName(norm.substr(0, norm.find(L'\\')));
}

bool isRootOnly(std::wstring_view keyPath) { return normalizeKeyPath(keyPath).find(L'\\') == std::wstring::npos; }

/// The store a file holds; a missing file is an empty store.
RegStore loadFile(const fs::path& file)
{
    std::error_code ec;
    if (!fs::exists(file, ec))
        return {};
    std::ifstream in(file, std::ios::binary);
    if (!in)
        throw RegFileError(displayName(file), 0, L"soubor nelze otevřít pro čtení");
    std::ostringstream bytes;
    bytes << in.rdbuf();
    if (in.bad())
        throw RegFileError(displayName(file), 0, L"soubor nelze přečíst");
    return parseRegFile(bytes.str(), displayName(file));
}

} // namespace

bool writeFileAtomically(const fs::path& target, std::string_view bytes)
{
    std::error_code ec;
    if (target.has_parent_path())
        fs::create_directories(target.parent_path(), ec);
    fs::path temp = target;
    // Appended piecewise: GCC 12 at -O3 warns falsely (-Wrestrict) on "." + std::string.
    temp += ".";
    temp += std::to_string(::getpid());
    temp += ".tmp";
    {
        std::ofstream out(temp, std::ios::binary | std::ios::trunc);
        if (out) {
            out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
            out.flush();
        }
        if (!out) {
            out.close();
            fs::remove(temp, ec);
            return false;
        }
    }
    fs::rename(temp, target, ec);
    if (ec) {
        fs::remove(temp, ec);
        return false;
    }
    return true;
}

Registry::Registry() : m_previous(g_top), m_stacked(true) { g_top = this; }

Registry::Registry(Detached) {}

std::unique_ptr<Registry> Registry::open(const fs::path& dir)
{
    RegStore machine = loadFile(dir / kMachineFile);
    RegStore user = loadFile(dir / kUserFile);
    auto reg = std::make_unique<Registry>();
    reg->m_folder = dir;
    reg->m_machine = std::move(machine);
    reg->m_user = std::move(user);
    return reg;
}

Registry::~Registry()
{
    if (!m_stacked)
        return;
    // Usually the last made goes first; one that goes out of turn is taken out of the chain.
    for (Registry** link = &g_top; *link; link = &(*link)->m_previous) {
        if (*link == this) {
            *link = m_previous;
            break;
        }
    }
}

Registry& Registry::current()
{
    if (g_top)
        return *g_top;
    static Registry detached{Detached{}};
    return detached;
}

void Registry::reload()
{
    if (!m_folder)
        return;
    RegStore machine = loadFile(*m_folder / kMachineFile);
    RegStore user = loadFile(*m_folder / kUserFile);
    m_machine = std::move(machine);
    m_user = std::move(user);
}

bool Registry::writable(std::wstring_view keyPath) { return rootOf(keyPath) == L"HKEY_CURRENT_USER"; }

bool Registry::keyExists(std::wstring_view keyPath) const
{
    if (isRootOnly(keyPath))
        return isRegistryRoot(normalizeKeyPath(keyPath));
    if (writable(keyPath) && m_user.find(keyPath))
        return true;
    return m_machine.find(keyPath) != nullptr;
}

std::optional<RegValue> Registry::value(std::wstring_view keyPath, std::wstring_view name) const
{
    if (writable(keyPath))
        if (const RegNamedValue* v = m_user.value(keyPath, name))
            return v->value;
    if (const RegNamedValue* v = m_machine.value(keyPath, name))
        return v->value;
    return std::nullopt;
}

LONG Registry::commit(RegStore changed)
{
    if (m_folder) {
        fs::path file = *m_folder / kUserFile;
        if (!writeFileAtomically(file, formatRegFile(changed))) {
            if (Session* s = Session::currentOrNull())
                s->fail(L"Registr nelze uložit do souboru " + displayName(file));
            return ERROR_WRITE_FAULT;
        }
    }
    m_user = std::move(changed);
    return ERROR_SUCCESS;
}

LONG Registry::createKey(std::wstring_view keyPath, bool& created)
{
    created = false;
    if (!writable(keyPath))
        return ERROR_ACCESS_DENIED;
    if (keyExists(keyPath))
        return ERROR_SUCCESS;
    RegStore changed = m_user;
    changed.create(keyPath);
    LONG status = commit(std::move(changed));
    created = status == ERROR_SUCCESS;
    return status;
}

LONG Registry::setValue(std::wstring_view keyPath, std::wstring_view name, RegValue value)
{
    if (!writable(keyPath))
        return ERROR_ACCESS_DENIED;
    RegStore changed = m_user;
    changed.setValue(keyPath, name, std::move(value));
    return commit(std::move(changed));
}

LONG Registry::deleteValue(std::wstring_view keyPath, std::wstring_view name)
{
    if (!writable(keyPath))
        return ERROR_ACCESS_DENIED;
    if (!m_user.value(keyPath, name))
        return ERROR_FILE_NOT_FOUND;
    RegStore changed = m_user;
    changed.removeValue(keyPath, name);
    return commit(std::move(changed));
}

void writeMachineFile(const fs::path& dir, const std::vector<MachineValue>& values)
{
    fs::path file = dir / Registry::kMachineFile;
    RegStore store = loadFile(file);
    for (const MachineValue& v : values) {
        if (!isRegistryRoot(rootOf(v.key)))
            throw RegFileError(displayName(file), 0, L"klíč \"" + v.key + L"\" nezačíná kořenem registru");
        store.setValue(v.key, v.name, regString(v.value));
    }
    if (!writeFileAtomically(file, formatRegFile(store)))
        throw RegFileError(displayName(file), 0, L"soubor nelze zapsat");
}

} // namespace sim::win32
