// CObject, the file exceptions, CFile on the real file system and CMemFile. A file opened with
// modeCreate is written under a temporary name and renamed into place by Close.
#include <afx.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <filesystem>
#include <limits>
#include <new>
#include <string>
#include <system_error>

#include <unistd.h>

#include "sim/core/Session.h"

namespace {

std::filesystem::path fsPath(LPCWSTR path)
{
    std::wstring p = path ? path : L"";
    for (wchar_t& c : p)
        if (c == L'\\')
            c = L'/';
#ifdef _WIN32
    return std::filesystem::path(p);
#else
    return std::filesystem::path(sim::toUtf8(p));
#endif
}

// The path's name as wide text, whatever the system's code page.
std::wstring wideName(const std::filesystem::path& p)
{
#ifdef _WIN32
    return p.wstring();
#else
    return sim::fromUtf8(p.string());
#endif
}

FILE* openFile(const std::filesystem::path& p, const char* mode)
{
#ifdef _WIN32
    return _wfopen(p.c_str(), std::wstring(mode, mode + std::strlen(mode)).c_str());
#else
    return std::fopen(p.c_str(), mode);
#endif
}

FILE* fileOf(HANDLE h) { return static_cast<FILE*>(h); }

int causeOfErrno(int e)
{
    switch (e) {
    case ENOENT:
        return CFileException::fileNotFound;
    case ENOTDIR:
        return CFileException::badPath;
    case EACCES:
    case EPERM:
    case EISDIR:
    case EROFS:
        return CFileException::accessDenied;
    case ENOSPC:
        return CFileException::diskFull;
    case EMFILE:
        return CFileException::tooManyOpenFiles;
    default:
        return CFileException::genericException;
    }
}

BOOL copyMessage(LPWSTR out, UINT max, const wchar_t* text)
{
    if (!out || max == 0)
        return FALSE;
    std::wcsncpy(out, text, max - 1);
    out[max - 1] = L'\0';
    return TRUE;
}

} // namespace

// ---------------------------------------------------------------------------------------------
// CObject and the exceptions

CRuntimeClass* CObject::GetRuntimeClass() const
{
    static CRuntimeClass classCObject{"CObject", sizeof(CObject), 0xffff};
    return &classCObject;
}

void CObject::Serialize(CArchive&) {}

void CObject::Dump(CDumpContext&) const {}

BOOL CException::GetErrorMessage(LPWSTR, UINT, UINT*) const { return FALSE; }

BOOL CFileException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT*) const
{
    const wchar_t* text = L"Chyba souboru";
    switch (m_cause) {
    case fileNotFound:
        text = L"Soubor nenalezen";
        break;
    case badPath:
        text = L"Chybná cesta";
        break;
    case accessDenied:
        text = L"Přístup odepřen";
        break;
    case diskFull:
        text = L"Disk je plný";
        break;
    case endOfFile:
        text = L"Neočekávaný konec souboru";
        break;
    default:
        break;
    }
    return copyMessage(lpszError, nMaxError, text);
}

BOOL CArchiveException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT*) const
{
    return copyMessage(lpszError, nMaxError,
                       m_cause == endOfFile ? L"Neočekávaný konec souboru" : L"Chyba formátu souboru");
}

void AfxThrowFileException(int cause, LONG lOsError, LPCWSTR lpszFileName)
{
    throw new CFileException(cause, lOsError, lpszFileName);
}

void AfxThrowArchiveException(int cause, LPCWSTR lpszArchiveName)
{
    throw new CArchiveException(cause, lpszArchiveName);
}

// ---------------------------------------------------------------------------------------------
// CFile

CFile::CFile() = default;

CFile::CFile(LPCWSTR lpszFileName, UINT nOpenFlags)
{
    CFileException e;
    if (!Open(lpszFileName, nOpenFlags, &e))
        AfxThrowFileException(e.m_cause, e.m_lOsError, lpszFileName);
}

CFile::~CFile()
{
    if (m_hFile)
        Abort();
}

BOOL CFile::Open(LPCWSTR lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    if (m_hFile)
        Abort();
    m_strFileName = lpszFileName;
    m_strTempName.Empty();
    std::filesystem::path path = fsPath(lpszFileName);
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) {
        if (pError)
            *pError = CFileException(CFileException::accessDenied, EISDIR, lpszFileName);
        return FALSE;
    }
    const bool writes = (nOpenFlags & (modeWrite | modeReadWrite)) != 0;
    const char* mode = writes ? "r+b" : "rb";
    std::filesystem::path target = path;
    if (nOpenFlags & modeCreate) {
        std::filesystem::path temp = path;
        temp += ".tmp~" + std::to_string(::getpid()); // two writers of one file don't share it
        if ((nOpenFlags & modeNoTruncate) && std::filesystem::exists(path, ec))
            std::filesystem::copy_file(path, temp, std::filesystem::copy_options::overwrite_existing, ec);
        else
            std::filesystem::remove(temp, ec);
        mode = std::filesystem::exists(temp, ec) ? "r+b" : "w+b";
        target = temp;
        m_strTempName = wideName(temp).c_str();
    }
    errno = 0;
    FILE* f = openFile(target, mode);
    if (!f) {
        if (pError)
            *pError = CFileException(causeOfErrno(errno), errno, lpszFileName);
        m_strTempName.Empty();
        return FALSE;
    }
    m_hFile = f;
    return TRUE;
}

UINT CFile::Read(void* lpBuf, UINT nCount)
{
    if (!m_hFile)
        AfxThrowFileException(CFileException::invalidFile, -1, m_strFileName);
    if (nCount == 0)
        return 0;
    size_t n = std::fread(lpBuf, 1, nCount, fileOf(m_hFile));
    if (n < nCount && std::ferror(fileOf(m_hFile)))
        AfxThrowFileException(CFileException::hardIO, errno, m_strFileName);
    return static_cast<UINT>(n);
}

void CFile::Write(const void* lpBuf, UINT nCount)
{
    if (!m_hFile)
        AfxThrowFileException(CFileException::invalidFile, -1, m_strFileName);
    if (nCount == 0)
        return;
    if (std::fwrite(lpBuf, 1, nCount, fileOf(m_hFile)) != nCount)
        AfxThrowFileException(causeOfErrno(errno), errno, m_strFileName);
}

ULONGLONG CFile::Seek(LONGLONG lOff, UINT nFrom)
{
    if (!m_hFile)
        AfxThrowFileException(CFileException::invalidFile, -1, m_strFileName);
    int whence = nFrom == begin ? SEEK_SET : nFrom == current ? SEEK_CUR : SEEK_END;
    if (std::fseek(fileOf(m_hFile), static_cast<long>(lOff), whence) != 0)
        AfxThrowFileException(CFileException::badSeek, errno, m_strFileName);
    return GetPosition();
}

ULONGLONG CFile::GetPosition() const
{
    if (!m_hFile)
        AfxThrowFileException(CFileException::invalidFile, -1, m_strFileName);
    long p = std::ftell(fileOf(m_hFile));
    return p < 0 ? 0 : static_cast<ULONGLONG>(p);
}

ULONGLONG CFile::GetLength() const
{
    if (!m_hFile)
        AfxThrowFileException(CFileException::invalidFile, -1, m_strFileName);
    FILE* f = fileOf(m_hFile);
    long here = std::ftell(f);
    std::fseek(f, 0, SEEK_END);
    long length = std::ftell(f);
    std::fseek(f, here, SEEK_SET);
    return length < 0 ? 0 : static_cast<ULONGLONG>(length);
}

void CFile::Flush()
{
    if (m_hFile && std::fflush(fileOf(m_hFile)) != 0)
        AfxThrowFileException(causeOfErrno(errno), errno, m_strFileName);
}

void CFile::Close()
{
    if (!m_hFile)
        return;
    FILE* f = fileOf(m_hFile);
    m_hFile = nullptr;
    bool ok = std::fflush(f) == 0;
    int err = errno;
    ok = std::fclose(f) == 0 && ok;
    if (!m_strTempName.IsEmpty()) {
        std::filesystem::path temp = fsPath(m_strTempName);
        m_strTempName.Empty();
        std::error_code ec;
        if (ok)
            std::filesystem::rename(temp, fsPath(m_strFileName), ec);
        if (!ok || ec) {
            std::filesystem::remove(temp, ec);
            AfxThrowFileException(CFileException::accessDenied, err, m_strFileName);
        }
    }
    if (!ok)
        AfxThrowFileException(causeOfErrno(err), err, m_strFileName);
}

void CFile::Abort()
{
    if (m_hFile) {
        std::fclose(fileOf(m_hFile));
        m_hFile = nullptr;
    }
    if (!m_strTempName.IsEmpty()) {
        std::error_code ec;
        std::filesystem::remove(fsPath(m_strTempName), ec);
        m_strTempName.Empty();
    }
}

// ---------------------------------------------------------------------------------------------
// CMemFile

CMemFile::CMemFile(UINT nGrowBytes) : m_nGrowBytes(nGrowBytes == 0 ? 1024 : nGrowBytes), m_owned(true) {}

CMemFile::CMemFile(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes)
    : m_lpBuffer(lpBuffer), m_nBufferSize(nBufferSize), m_nFileSize(nGrowBytes == 0 ? nBufferSize : 0),
      m_nGrowBytes(nGrowBytes), m_owned(false)
{
}

CMemFile::~CMemFile() { Close(); }

UINT CMemFile::Read(void* lpBuf, UINT nCount)
{
    if (m_nPosition >= m_nFileSize || nCount == 0)
        return 0;
    ULONGLONG n = std::min<ULONGLONG>(nCount, m_nFileSize - m_nPosition);
    std::memcpy(lpBuf, m_lpBuffer + m_nPosition, static_cast<size_t>(n));
    m_nPosition += n;
    return static_cast<UINT>(n);
}

void CMemFile::Write(const void* lpBuf, UINT nCount)
{
    if (nCount == 0)
        return;
    ULONGLONG end = m_nPosition + nCount;
    if (end > m_nBufferSize) {
        if (!m_owned || m_nGrowBytes == 0)
            AfxThrowFileException(CFileException::diskFull);
        ULONGLONG size = (end + m_nGrowBytes - 1) / m_nGrowBytes * m_nGrowBytes;
        BYTE* p = static_cast<BYTE*>(std::realloc(m_lpBuffer, static_cast<size_t>(size)));
        if (!p)
            throw std::bad_alloc();
        m_lpBuffer = p;
        m_nBufferSize = size;
    }
    std::memcpy(m_lpBuffer + m_nPosition, lpBuf, nCount);
    m_nPosition = end;
    if (end > m_nFileSize)
        m_nFileSize = end;
}

ULONGLONG CMemFile::Seek(LONGLONG lOff, UINT nFrom)
{
    LONGLONG base = nFrom == begin ? 0 : nFrom == current ? static_cast<LONGLONG>(m_nPosition)
                                                          : static_cast<LONGLONG>(m_nFileSize);
    if (base + lOff < 0)
        AfxThrowFileException(CFileException::badSeek);
    m_nPosition = static_cast<ULONGLONG>(base + lOff);
    return m_nPosition;
}

void CMemFile::Close()
{
    if (m_owned)
        std::free(m_lpBuffer);
    m_lpBuffer = nullptr;
    m_nBufferSize = m_nFileSize = m_nPosition = 0;
}

BYTE* CMemFile::Detach()
{
    BYTE* p = m_lpBuffer;
    m_lpBuffer = nullptr;
    m_nBufferSize = m_nFileSize = m_nPosition = 0;
    return p;
}
