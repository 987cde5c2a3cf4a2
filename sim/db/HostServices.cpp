// AcDbHostApplicationServices: the working database and the search for files: as given, beside the
// drawing, then in the platform's support folders.
#include <filesystem>
#include <system_error>

#include "acdocman.h"
#include "dbapserv.h"
#include "sim/core/Session.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/ImpDatabase.h"

ACRX_DEFINE_MEMBERS(AcDbHostApplicationServices, AcRxObject, nullptr)

namespace {
AcDbDatabase* g_working = nullptr;

bool isFile(const std::wstring& path)
{
    std::error_code ec;
    if (path.empty())
        return false;
    if (std::filesystem::is_regular_file(std::filesystem::path(sim::toUtf8(path)), ec))
        return true;
    // The platform keeps a drawing named .dwg as the .dxf of the same name.
    size_t n = path.size();
    if (n > 4 && AcString(path.substr(n - 4).c_str()).compareNoCase(L".dwg") == 0)
        return std::filesystem::is_regular_file(std::filesystem::path(sim::toUtf8(path.substr(0, n - 4) + L".dxf")), ec);
    return false;
}
} // namespace

AcDbDatabase* AcDbHostApplicationServices::workingDatabase() const
{
    // A database set as working serves until it is deleted; then the current document's.
    if (g_working && AcDbImpDatabase::of(g_working))
        return g_working;
    AcApDocument* doc = acDocManagerPtr()->curDocument();
    return doc ? doc->database() : nullptr;
}

void AcDbHostApplicationServices::setWorkingDatabase(AcDbDatabase* pDatabase) { g_working = pDatabase; }

Acad::ErrorStatus AcDbHostApplicationServices::findFile(ACHAR* pcFullPathOut, int nBufferLength, const ACHAR* pcFilename,
                                                        AcDbDatabase* pDb, FindFileHint)
{
    if (!pcFilename || !*pcFilename || !pcFullPathOut || nBufferLength <= 0)
        return Acad::eInvalidInput;
    std::wstring name = sim::db::normalizePath(pcFilename);
    std::vector<std::wstring> candidates{name};
    std::filesystem::path leaf = std::filesystem::path(sim::toUtf8(name)).filename();
    if (!pDb)
        pDb = workingDatabase();
    const ACHAR* own = nullptr;
    if (pDb && pDb->getFilename(own) == Acad::eOk && own && *own) {
        std::filesystem::path folder = std::filesystem::path(sim::toUtf8(own)).parent_path();
        // A relative path counts from the drawing's folder first ("podklady/arch.dwg"), then its leaf.
        std::filesystem::path given(sim::toUtf8(name));
        if (given.is_relative() && given.has_parent_path())
            candidates.push_back(sim::fromUtf8((folder / given).lexically_normal().generic_string()));
        candidates.push_back(sim::fromUtf8((folder / leaf).generic_string()));
    }
    for (const std::wstring& folder : sim::db::supportPaths())
        candidates.push_back(sim::fromUtf8((std::filesystem::path(sim::toUtf8(folder)) / leaf).generic_string()));
    for (const std::wstring& c : candidates) {
        if (!isFile(c))
            continue;
        if (c.size() + 1 > static_cast<size_t>(nBufferLength))
            return Acad::eBufferTooSmall;
        std::wmemcpy(pcFullPathOut, c.c_str(), c.size() + 1);
        return Acad::eOk;
    }
    return Acad::eFileNotFound;
}

AcDbHostApplicationServices* acdbHostApplicationServices()
{
    static AcDbHostApplicationServices services;
    return &services;
}

AcDbTransactionManager* acdbTransactionManagerPtr()
{
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    return db ? db->transactionManager() : nullptr;
}
