// Drawing files on disk.
#include "sim/dxf/DxfFile.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
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
        if (!fs::is_regular_file(toPath(dxfPath(path)), ec)) {
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
    void completeDefaultDrawing(AcDbDatabase& db) override { completeNewDrawing(db); }
};

} // namespace

std::wstring dxfPath(const std::wstring& path)
{
    if (endsWithNoCase(path, L".dwg"))
        return path.substr(0, path.size() - 4) + L".dxf";
    return path;
}

std::string readDrawingFile(AcDbDatabase& db, const std::wstring& path)
{
    fs::path file = toPath(dxfPath(path));
    std::ifstream in(file, std::ios::binary);
    if (!in)
        return "cannot read " + file.string();
    std::string text;
    std::error_code ec;
    auto size = fs::file_size(file, ec);
    if (!ec)
        text.reserve(static_cast<size_t>(size));
    text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    if (in.bad())
        return "cannot read " + file.string();
    try {
        readDxf(db, text);
    } catch (const DxfError& e) {
        return file.string() + ", " + e.what();
    } catch (const std::exception& e) {
        return file.string() + ": " + e.what();
    }
    sim::db::setFileName(&db, path);
    return std::string();
}

std::string writeDrawingFile(AcDbDatabase& db, const std::wstring& path, bool keepBackup)
{
    fs::path file = toPath(dxfPath(path));
    fs::path temp = file;
    temp += ".tmp~";
    std::FILE* f = std::fopen(temp.c_str(), "wb");
    if (!f)
        return "cannot write " + file.string();
    bool ok = true;
    {
        TextTagWriter w(f);
        try {
            writeDxf(db, w);
        } catch (const std::exception&) {
            ok = false;
        }
        ok = w.flush() && ok;
    }
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
        return "cannot write " + file.string();
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
