// Drawing files on disk.
#include "sim/dxf/DxfFile.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <filesystem>
#include <system_error>

#include "sim/core/Session.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/dxf/DxfError.h"
#include "sim/dxf/DxfReader.h"
#include "sim/dxf/DxfWriter.h"
#include "sim/dxf/TagWriter.h"
#include "sim/dxf/Template.h"

namespace fs = std::filesystem;

namespace sim::dxf {

namespace {

std::string g_lastError;

fs::path toPath(const std::wstring& path) { return fs::path(sim::toUtf8(sim::db::normalizePath(path))); }

bool endsWithNoCase(const std::wstring& s, const wchar_t* suffix)
{
    size_t n = std::wcslen(suffix);
    return s.size() >= n && AcString(s.substr(s.size() - n).c_str()).compareNoCase(suffix) == 0;
}

class DxfFileFormat : public sim::db::FileFormat {
public:
    Acad::ErrorStatus read(AcDbDatabase& db, const std::wstring& path) override
    {
        std::error_code ec;
        if (!fs::is_regular_file(toPath(readablePath(path)), ec)) {
            g_lastError = "cannot find " + sim::toUtf8(path);
            return Acad::eFileNotFound;
        }
        g_lastError = readDrawingFile(db, path);
        return g_lastError.empty() ? Acad::eOk : Acad::eDxfReadAborted;
    }
    Acad::ErrorStatus write(AcDbDatabase& db, const std::wstring& path) override
    {
        g_lastError = writeDrawingFile(db, path);
        return g_lastError.empty() ? Acad::eOk : Acad::eFileAccessErr;
    }
    Acad::ErrorStatus writeFile(AcDbDatabase& db, const std::wstring& path, bool keepBackup) override
    {
        g_lastError = writeDrawingFile(db, path, keepBackup);
        return g_lastError.empty() ? Acad::eOk : Acad::eFileAccessErr;
    }
    void completeDefaultDrawing(AcDbDatabase& db) override { completeNewDrawing(db); }
};

} // namespace

std::wstring dxfPath(const std::wstring& path)
{
    if (endsWithNoCase(path, L".dwg"))
        return path.substr(0, path.size() - 4) + L".dxf";
    return path;
}

std::wstring readablePath(const std::wstring& path)
{
    std::error_code ec;
    return fs::is_regular_file(toPath(path), ec) ? path : dxfPath(path);
}

bool readFileText(const std::string& path, std::string& text)
{
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f)
        return false;
    std::error_code ec;
    auto size = fs::file_size(path, ec);
    text.resize(ec ? 0 : static_cast<size_t>(size));
    size_t got = text.empty() ? 0 : std::fread(text.data(), 1, text.size(), f);
    text.resize(got);
    // A file that grows while it is read is read to its end.
    char buf[65536];
    for (size_t n; (n = std::fread(buf, 1, sizeof buf, f)) > 0;)
        text.append(buf, n);
    bool ok = !std::ferror(f);
    std::fclose(f);
    return ok;
}

namespace {

/// A file mapped into memory to be read once from start to end; what has been read is given back
/// to the system as the reading goes on, so that a large drawing is not held twice.
class MappedFile {
public:
    explicit MappedFile(const std::string& path)
    {
#ifdef _WIN32
        (void)path; // Read as a whole instead.
#else
        int fd = ::open(path.c_str(), O_RDONLY);
        if (fd < 0)
            return;
        struct stat st {};
        if (::fstat(fd, &st) == 0 && st.st_size > 0) {
            void* p = ::mmap(nullptr, static_cast<size_t>(st.st_size), PROT_READ, MAP_PRIVATE, fd, 0);
            if (p != MAP_FAILED) {
                m_data = static_cast<const char*>(p);
                m_size = static_cast<size_t>(st.st_size);
                ::madvise(p, m_size, MADV_SEQUENTIAL);
            }
        }
        ::close(fd);
#endif
    }
    ~MappedFile()
    {
#ifndef _WIN32
        if (m_data)
            ::munmap(const_cast<char*>(m_data), m_size);
#endif
    }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    bool ok() const { return m_data != nullptr; }
    std::string_view text() const { return std::string_view(m_data, m_size); }
    /// The pages before the offset leave memory; read again, they come back from the file.
    void release(size_t upTo)
    {
#ifdef _WIN32
        (void)upTo;
#else
        size_t page = static_cast<size_t>(::sysconf(_SC_PAGESIZE));
        size_t end = upTo / page * page;
        if (end > m_released) {
            ::madvise(const_cast<char*>(m_data) + m_released, end - m_released, MADV_DONTNEED);
            m_released = end;
        }
#endif
    }

private:
    const char* m_data = nullptr;
    size_t m_size = 0;
    size_t m_released = 0;
};

} // namespace

std::string readDrawingFile(AcDbDatabase& db, const std::wstring& path, std::vector<std::string>* repairs)
{
    fs::path file = toPath(readablePath(path));
    MappedFile mapped(file.string());
    std::string text;
    const std::string failed = "cannot open " + file.string();
    if (!mapped.ok() && !readFileText(file.string(), text)) {
        std::error_code ec;
        return failed + (fs::exists(file, ec) ? ": the file cannot be read" : ": no such file");
    }
    try {
        if (mapped.ok())
            readDxf(db, mapped.text(), [&](size_t upTo) { mapped.release(upTo); }, repairs);
        else
            readDxf(db, text, {}, repairs);
    } catch (const DxfError& e) {
        return failed + ", " + e.what();
    } catch (const std::exception& e) {
        return failed + ": " + e.what();
    }
    sim::db::setFileName(&db, path);
    return std::string();
}

std::string writeDrawingFile(AcDbDatabase& db, const std::wstring& path, bool keepBackup)
{
    fs::path file = toPath(dxfPath(path));
    fs::path temp = file;
    temp += ".tmp~";
    const std::string failed = "cannot save " + file.string();
    std::FILE* f = std::fopen(temp.string().c_str(), "wb");
    if (!f)
        return failed + ": " + std::strerror(errno);
    bool ok = true;
    std::string why;
    WriteReport report;
    {
        TextTagWriter w(f);
        try {
            report = writeDxf(db, w);
        } catch (const std::exception& e) {
            ok = false;
            why = std::string(": ") + e.what();
        }
        ok = w.flush() && ok;
    }
    // Objects of a class no codec knows are not in the file: say so rather than lose them quietly.
    if (auto* session = sim::Session::currentOrNull(); session && !report.skippedClasses.empty())
        session->print(L"\n" + std::to_wstring(report.skippedClasses.size()) + L" object(s) of class " +
                       report.skippedClasses.front() + L" and others could not be written to " +
                       sim::fromUtf8(file.string()) + L".\n");
    ok = std::fclose(f) == 0 && ok;
    std::error_code ec;
    // The old file is copied to the backup, so that a failure below still leaves it in place.
    if (ok && keepBackup && fs::exists(file, ec)) {
        fs::path bak = file;
        bak.replace_extension(".bak");
        ok = fs::copy_file(file, bak, fs::copy_options::overwrite_existing, ec) && !ec;
    }
    if (ok) {
        fs::rename(temp, file, ec);
        ok = !ec;
    }
    if (!ok) {
        fs::remove(temp, ec);
        return failed + why;
    }
    return std::string();
}

void installFileFormat()
{
    static DxfFileFormat format;
    sim::db::setFileFormat(&format);
}

const std::string& lastFileError() { return g_lastError; }

} // namespace sim::dxf
