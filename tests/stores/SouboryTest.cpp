// The platform's GetFileAttributesW and CreateDirectoryW: the system's backslash paths, a trailing
// separator, one level at a time, and the error codes a caller tests.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "sim/core/Session.h"
#include "windows.h"

namespace fs = std::filesystem;

namespace {

std::wstring WindowsCesta(const fs::path& p)
{
    std::wstring w = sim::fromUtf8(p.string());
    for (auto& c : w)
        if (c == L'/')
            c = L'\\';
    return w;
}

} // namespace

TEST(Soubory, FoldersAreMadeOneLevelAtATime)
{
    fs::path koren = fs::temp_directory_path() / ("togu-soubory-" + std::to_string(::getpid()));
    fs::remove_all(koren);
    fs::create_directories(koren);
    std::wstring w = WindowsCesta(koren);

    EXPECT_EQ(GetFileAttributesW(w.c_str()), static_cast<DWORD>(FILE_ATTRIBUTE_DIRECTORY));
    EXPECT_EQ(GetFileAttributesW((w + L"\\Materialy").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));

    EXPECT_TRUE(CreateDirectoryW((w + L"\\Materialy\\").c_str(), nullptr));
    EXPECT_TRUE(fs::is_directory(koren / "Materialy"));
    EXPECT_FALSE(CreateDirectoryW((w + L"\\Materialy").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ALREADY_EXISTS));

    EXPECT_FALSE(CreateDirectoryW((w + L"\\A\\B").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    EXPECT_FALSE(fs::exists(koren / "A"));

    std::ofstream(koren / "soubor.lin") << "*X\n";
    EXPECT_EQ(GetFileAttributesW((w + L"\\soubor.lin").c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_NE(GetFileAttributesW((w + L"\\soubor.lin").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_FALSE(CreateDirectoryW((w + L"\\soubor.lin").c_str(), nullptr)) << "a file takes the name";
    EXPECT_EQ(GetFileAttributesW(L""), INVALID_FILE_ATTRIBUTES);
    fs::remove_all(koren);
}
