// The Reg* calls on the registry kept in machine.reg and user.reg: value types, sizes, the machine
// file read-only and tried for defaults, saves that leave no temporary file, damaged files.
#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "sim/core/Session.h"
#include "sim/win32/Registry.h"
#include "windows.h"

using namespace sim::win32;
namespace fs = std::filesystem;

namespace {

class RegistryFiles : public ::testing::Test {
protected:
    void SetUp() override
    {
        dir = fs::temp_directory_path() /
              ("togu-reg-" + std::to_string(::getpid()) + "-" +
                  ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dir);
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }

    void write(const char* name, const std::string& text) { std::ofstream(dir / name, std::ios::binary) << text; }
    std::string read(const char* name)
    {
        std::ifstream in(dir / name, std::ios::binary);
        std::stringstream s;
        s << in.rdbuf();
        return s.str();
    }
    std::vector<std::string> files()
    {
        std::vector<std::string> names;
        for (const auto& e : fs::directory_iterator(dir))
            names.push_back(e.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    fs::path dir;
};

const wchar_t* const kGroup = L"Software\\Togvarnik\\Togovy Utility\\Nastaveni";

HKEY createUserKey(const wchar_t* path)
{
    HKEY key = nullptr;
    DWORD disposition = 0;
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                  &key, &disposition),
        ERROR_SUCCESS);
    return key;
}

// Reads a string as the system does: KEY_READ, into a buffer of 500 characters sized with sizeof.
LSTATUS readString(HKEY root, const wchar_t* path, const wchar_t* name, std::wstring& out, DWORD& type)
{
    HKEY key = nullptr;
    LSTATUS status = RegOpenKeyExW(root, path, 0, KEY_READ, &key);
    if (status != ERROR_SUCCESS)
        return status;
    WCHAR buffer[500];
    DWORD size = sizeof(buffer);
    status = RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<LPBYTE>(buffer), &size);
    if (status == ERROR_SUCCESS)
        out.assign(buffer, size / sizeof(WCHAR) - 1);
    RegCloseKey(key);
    return status;
}

} // namespace

TEST_F(RegistryFiles, ValuesKeepTheirTypesAcrossASave)
{
    {
        auto reg = Registry::open(dir);
        HKEY key = createUserKey(kGroup);
        const BYTE flag = 1;
        const WORD word = 0x0108;
        const DWORD integer = 344;
        const double real = 1.5e-3;
        const std::wstring text = L"Vodovodní přípojka";
        ASSERT_EQ(RegSetValueExW(key, L"NASTAVENO", 0, REG_BINARY, &flag, 1), ERROR_SUCCESS);
        ASSERT_EQ(RegSetValueExW(key, L"Glob_prepinace", 0, REG_BINARY, reinterpret_cast<const BYTE*>(&word), 2), ERROR_SUCCESS);
        ASSERT_EQ(RegSetValueExW(key, L"CurMatPop", 0, REG_BINARY, reinterpret_cast<const BYTE*>(&integer), 4), ERROR_SUCCESS);
        ASSERT_EQ(RegSetValueExW(key, L"CurMatDrsnost", 0, REG_BINARY, reinterpret_cast<const BYTE*>(&real), 8), ERROR_SUCCESS);
        ASSERT_EQ(RegSetValueExW(key, L"Pocet", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&integer), 4), ERROR_SUCCESS);
        ASSERT_EQ(RegSetValueExW(key, L"CurMat", 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                      static_cast<DWORD>((text.size() + 1) * sizeof(WCHAR))),
            ERROR_SUCCESS);
        RegCloseKey(key);
    }
    EXPECT_EQ(files(), std::vector<std::string>{"user.reg"}) << "no temporary file is left";

    auto reg = Registry::open(dir);
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"SOFTWARE\\togvarnik\\Togovy Utility\\nastaveni\\", 0, KEY_READ, &key),
        ERROR_SUCCESS);
    struct Expected {
        const wchar_t* name;
        DWORD type;
        DWORD size;
    } expected[] = {{L"nastaveno", REG_BINARY, 1}, {L"Glob_prepinace", REG_BINARY, 2}, {L"CurMatPop", REG_BINARY, 4},
        {L"CurMatDrsnost", REG_BINARY, 8}, {L"Pocet", REG_DWORD, 4}, {L"CurMat", REG_SZ, static_cast<DWORD>(19 * sizeof(WCHAR))}};
    for (const auto& e : expected) {
        DWORD type = 0, size = 0;
        ASSERT_EQ(RegQueryValueExW(key, e.name, nullptr, &type, nullptr, &size), ERROR_SUCCESS) << e.name;
        EXPECT_EQ(type, e.type) << e.name;
        EXPECT_EQ(size, e.size) << e.name;
    }
    double real = 0;
    DWORD size = 8;
    ASSERT_EQ(RegQueryValueExW(key, L"CurMatDrsnost", nullptr, nullptr, reinterpret_cast<LPBYTE>(&real), &size), ERROR_SUCCESS);
    EXPECT_EQ(real, 1.5e-3);
    WORD word = 0;
    size = 2;
    ASSERT_EQ(RegQueryValueExW(key, L"Glob_prepinace", nullptr, nullptr, reinterpret_cast<LPBYTE>(&word), &size), ERROR_SUCCESS);
    EXPECT_EQ(word, 0x0108);
    RegCloseKey(key);

    std::wstring text;
    DWORD type = 0;
    ASSERT_EQ(readString(HKEY_CURRENT_USER, kGroup, L"CurMat", text, type), ERROR_SUCCESS);
    EXPECT_EQ(text, L"Vodovodní přípojka");
    EXPECT_NE(read("user.reg").find("\"Pocet\"=dword:00000158"), std::string::npos);
}

TEST_F(RegistryFiles, MachineFileIsReadOnlyAndHoldsDefaults)
{
    write("machine.reg", "Windows Registry Editor Version 5.00\n\n"
                         "[HKEY_LOCAL_MACHINE\\Software\\Togvarnik\\Togovy Utility]\n"
                         "\"InstallPath\"=\"/opt/togu\\\\\"\n\n"
                         "[HKEY_CURRENT_USER\\Software\\Togvarnik\\Common]\n"
                         "\"PREDPONA\"=\"XX\"\n");
    auto reg = Registry::open(dir);
    std::wstring text;
    DWORD type = 0;
    ASSERT_EQ(readString(HKEY_LOCAL_MACHINE, L"Software\\Togvarnik\\Togovy Utility\\", L"InstallPath", text, type), ERROR_SUCCESS);
    EXPECT_EQ(text, L"/opt/togu\\");
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(readString(HKEY_CURRENT_USER, L"Software\\Togvarnik\\Togovy Utility\\", L"InstallPath", text, type),
        ERROR_FILE_NOT_FOUND);

    // The machine's keys take no writes, neither by a new key nor through a handle.
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Togvarnik", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
        ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Togvarnik", 0, KEY_WRITE, &key), ERROR_ACCESS_DENIED);
    const BYTE one = 1;
    EXPECT_EQ(RegSetValueExW(HKEY_LOCAL_MACHINE, L"X", 0, REG_BINARY, &one, 1), ERROR_ACCESS_DENIED);
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Togvarnik", 0, KEY_READ, &key), ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExW(key, L"X", 0, REG_BINARY, &one, 1), ERROR_ACCESS_DENIED);
    RegCloseKey(key);

    // A default of the machine file serves until the user's own value hides it.
    ASSERT_EQ(readString(HKEY_CURRENT_USER, L"Software\\Togvarnik\\Common", L"PREDPONA", text, type), ERROR_SUCCESS);
    EXPECT_EQ(text, L"XX");
    key = createUserKey(L"Software\\Togvarnik\\Common");
    const std::wstring ab = L"AB";
    ASSERT_EQ(RegSetValueExW(key, L"PREDPONA", 0, REG_SZ, reinterpret_cast<const BYTE*>(ab.c_str()), 3 * sizeof(WCHAR)), ERROR_SUCCESS);
    RegCloseKey(key);
    ASSERT_EQ(readString(HKEY_CURRENT_USER, L"Software\\Togvarnik\\Common", L"PREDPONA", text, type), ERROR_SUCCESS);
    EXPECT_EQ(text, L"AB");
    EXPECT_EQ(read("machine.reg").find("AB"), std::string::npos);
}

TEST_F(RegistryFiles, StringSizesCountTheCallersCharacters)
{
    auto reg = Registry::open(dir);
    HKEY key = createUserKey(L"Software\\Togvarnik\\Common");
    for (size_t length : {499u, 500u}) {
        std::wstring text(length, L'ř');
        ASSERT_EQ(RegSetValueExW(key, L"Dlouhy", 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                      static_cast<DWORD>((length + 1) * sizeof(WCHAR))),
            ERROR_SUCCESS);
        std::wstring back;
        DWORD type = 0;
        LSTATUS status = readString(HKEY_CURRENT_USER, L"Software\\Togvarnik\\Common", L"Dlouhy", back, type);
        if (length == 499) {
            EXPECT_EQ(status, ERROR_SUCCESS);
            EXPECT_EQ(back, text);
        } else {
            EXPECT_EQ(status, ERROR_MORE_DATA) << "a string of over 499 characters isn't read";
        }
    }
    // A too small buffer is left alone and told the size needed.
    DWORD integer = 7, small = 0xDEADBEEF, size = 2;
    ASSERT_EQ(RegSetValueExW(key, L"Cislo", 0, REG_BINARY, reinterpret_cast<const BYTE*>(&integer), 4), ERROR_SUCCESS);
    EXPECT_EQ(RegQueryValueExW(key, L"Cislo", nullptr, nullptr, reinterpret_cast<LPBYTE>(&small), &size), ERROR_MORE_DATA);
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(small, 0xDEADBEEF);
    EXPECT_EQ(RegQueryValueExW(key, L"Chybi", nullptr, nullptr, nullptr, &size), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteValueW(key, L"CISLO"), ERROR_SUCCESS);
    EXPECT_EQ(RegQueryValueExW(key, L"Cislo", nullptr, nullptr, nullptr, &size), ERROR_FILE_NOT_FOUND);
    RegCloseKey(key);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
}

TEST_F(RegistryFiles, DamagedFileIsReportedAndChangesNothing)
{
    write("user.reg", "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\A]\n\"X\"=\"1\"\n");
    auto reg = Registry::open(dir);
    const std::string good = read("user.reg");

    write("user.reg", "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Software\\A]\n\"X\"=dword:xyz\n");
    try {
        Registry::open(dir);
        ADD_FAILURE() << "a damaged file was accepted";
    } catch (const RegFileError& e) {
        EXPECT_EQ(e.line(), 4);
        EXPECT_NE(e.message().find(L"user.reg, řádek 4"), std::wstring::npos) << sim::toUtf8(e.message());
    }
    EXPECT_EQ(&Registry::current(), reg.get()) << "the registry in force stays";
    EXPECT_THROW(reg->reload(), RegFileError);
    ASSERT_TRUE(reg->value(L"HKEY_CURRENT_USER\\Software\\A", L"X"));
    EXPECT_EQ(*reg->value(L"HKEY_CURRENT_USER\\Software\\A", L"X"), regString(L"1"));

    // A save that can't happen (a folder stands where the file goes) leaves the value as it was, no
    // temporary file, and fails the run.
    write("user.reg", good);
    reg->reload();
    fs::remove(dir / "user.reg");
    fs::create_directories(dir / "user.reg" / "blocked");
    sim::Session session(nullptr);
    const BYTE one = 1;
    HKEY key = createUserKey(L"Software\\A");
    EXPECT_EQ(RegSetValueExW(key, L"X", 0, REG_BINARY, &one, 1), ERROR_WRITE_FAULT);
    RegCloseKey(key);
    EXPECT_EQ(*reg->value(L"HKEY_CURRENT_USER\\Software\\A", L"X"), regString(L"1"));
    EXPECT_TRUE(session.failure());
    EXPECT_EQ(files(), std::vector<std::string>{"user.reg"});
}

TEST_F(RegistryFiles, MachineFileIsWrittenWithInstallPaths)
{
    write("machine.reg", "Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE\\Software\\Jine]\n\"A\"=\"b\"\n");
    writeMachineFile(dir, {{L"HKEY_LOCAL_MACHINE\\Software\\Togvarnik", L"CommonDataPath", L"/data\\"},
                              {L"HKEY_LOCAL_MACHINE\\Software\\Togvarnik\\Togovy Utility", L"InstallPath", L"/data\\"}});
    EXPECT_EQ(files(), std::vector<std::string>{"machine.reg"});
    auto reg = Registry::open(dir);
    EXPECT_EQ(reg->value(L"HKEY_LOCAL_MACHINE\\Software\\Jine", L"A"), regString(L"b")) << "other values stay";
    std::wstring text;
    DWORD type = 0;
    ASSERT_EQ(readString(HKEY_LOCAL_MACHINE, L"Software\\Togvarnik\\", L"CommonDataPath", text, type), ERROR_SUCCESS);
    EXPECT_EQ(text, L"/data\\");
    EXPECT_THROW(writeMachineFile(dir, {{L"Software\\Togvarnik", L"X", L"y"}}), RegFileError);
}

TEST(Registry, WithoutFilesTheRegistryLivesInMemory)
{
    Registry reg;
    HKEY key = createUserKey(L"Software\\Pamet");
    const BYTE one = 1;
    EXPECT_EQ(RegSetValueExW(key, nullptr, 0, REG_BINARY, &one, 1), ERROR_SUCCESS);
    BYTE back = 0;
    DWORD size = 1;
    EXPECT_EQ(RegQueryValueExW(key, L"", nullptr, nullptr, &back, &size), ERROR_SUCCESS);
    EXPECT_EQ(back, 1);
    RegCloseKey(key);
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Chybi", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key, nullptr);
}
