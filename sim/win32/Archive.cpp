// CArchive: values little-endian through a buffer, and MFC's counted strings. A loading archive checks
// every value and every string length against what is left of the file before it reads or allocates.
#include <afx.h>

#include <algorithm>
#include <cstring>

CArchive::CArchive(CFile* pFile, UINT nMode, int nBufSize, void*)
    : m_nMode(nMode), m_pFile(pFile), m_buf(static_cast<size_t>(nBufSize < 128 ? 128 : nBufSize))
{
}

CArchive::~CArchive()
{
    if (!m_pFile)
        return;
    if (IsStoring() && !(m_nMode & bNoFlushOnDelete)) {
        try {
            Flush();
        } catch (CException* e) {
            e->Delete();
        }
    }
    m_pFile = nullptr;
}

void CArchive::FillBuffer(UINT nBytesNeeded)
{
    if (m_nCur > 0) {
        std::memmove(m_buf.data(), m_buf.data() + m_nCur, m_nMax - m_nCur);
        m_nMax -= m_nCur;
        m_nCur = 0;
    }
    while (m_nMax < nBytesNeeded && m_nMax < m_buf.size()) {
        UINT n = m_pFile->Read(m_buf.data() + m_nMax, static_cast<UINT>(m_buf.size() - m_nMax));
        if (n == 0)
            break;
        m_nMax += n;
    }
}

UINT CArchive::Read(void* lpBuf, UINT nMax)
{
    if (!m_pFile || IsStoring())
        AfxThrowArchiveException(CArchiveException::writeOnly);
    BYTE* out = static_cast<BYTE*>(lpBuf);
    UINT done = 0;
    while (done < nMax) {
        if (m_nCur == m_nMax) {
            FillBuffer(1);
            if (m_nCur == m_nMax)
                break;
        }
        size_t n = std::min<size_t>(nMax - done, m_nMax - m_nCur);
        std::memcpy(out + done, m_buf.data() + m_nCur, n);
        m_nCur += n;
        done += static_cast<UINT>(n);
    }
    return done;
}

void CArchive::ReadExact(void* p, UINT n)
{
    if (Read(p, n) != n)
        AfxThrowArchiveException(CArchiveException::endOfFile, m_pFile ? m_pFile->GetFilePath().GetString() : nullptr);
}

ULONGLONG CArchive::GetBytesLeft() const
{
    if (!m_pFile || IsStoring())
        return 0;
    ULONGLONG length = m_pFile->GetLength();
    ULONGLONG position = m_pFile->GetPosition();
    return (m_nMax - m_nCur) + (length > position ? length - position : 0);
}

void CArchive::Write(const void* lpBuf, UINT nMax)
{
    if (!m_pFile || IsLoading())
        AfxThrowArchiveException(CArchiveException::readOnly);
    const BYTE* in = static_cast<const BYTE*>(lpBuf);
    while (nMax > 0) {
        if (m_nCur == m_buf.size())
            Flush();
        size_t n = std::min<size_t>(nMax, m_buf.size() - m_nCur);
        std::memcpy(m_buf.data() + m_nCur, in, n);
        m_nCur += n;
        in += n;
        nMax -= static_cast<UINT>(n);
    }
}

void CArchive::Flush()
{
    if (!m_pFile || IsLoading())
        return;
    if (m_nCur > 0) {
        size_t n = m_nCur;
        m_nCur = 0;
        m_pFile->Write(m_buf.data(), static_cast<UINT>(n));
    }
    m_pFile->Flush();
}

void CArchive::Close()
{
    if (!m_pFile)
        return;
    if (IsStoring())
        Flush();
    m_pFile = nullptr;
}

void CArchive::Abort()
{
    m_pFile = nullptr;
    m_nCur = m_nMax = 0;
}

namespace {

template <class T> void writeLe(CArchive& ar, T value)
{
    BYTE bytes[sizeof(T)];
    std::memcpy(bytes, &value, sizeof(T)); // the platforms we run on are little-endian
    ar.Write(bytes, sizeof(T));
}

} // namespace

#define TOGU_ARCHIVE_VALUE(T)                                                                       \
    CArchive& CArchive::operator<<(T v)                                                             \
    {                                                                                               \
        writeLe(*this, v);                                                                          \
        return *this;                                                                               \
    }                                                                                               \
    CArchive& CArchive::operator>>(T& v)                                                            \
    {                                                                                               \
        ReadExact(&v, sizeof(T));                                                                   \
        return *this;                                                                               \
    }
TOGU_ARCHIVE_VALUE(BYTE)
TOGU_ARCHIVE_VALUE(WORD)
TOGU_ARCHIVE_VALUE(LONG)
TOGU_ARCHIVE_VALUE(DWORD)
TOGU_ARCHIVE_VALUE(float)
TOGU_ARCHIVE_VALUE(double)
TOGU_ARCHIVE_VALUE(LONGLONG)
TOGU_ARCHIVE_VALUE(ULONGLONG)
#undef TOGU_ARCHIVE_VALUE

CArchive& CArchive::operator>>(short& s)
{
    WORD w = 0;
    *this >> w;
    s = static_cast<short>(w);
    return *this;
}

CArchive& CArchive::operator>>(char& c)
{
    BYTE b = 0;
    *this >> b;
    c = static_cast<char>(b);
    return *this;
}

CArchive& CArchive::operator>>(bool& b)
{
    BYTE v = 0;
    *this >> v;
    b = v != 0;
    return *this;
}

void AfxWriteStringLength(CArchive& ar, UINT_PTR nLength, BOOL bUnicode)
{
    if (bUnicode) {
        ar << static_cast<BYTE>(0xff);
        ar << static_cast<WORD>(0xfffe);
    }
    if (nLength < 0xff) {
        ar << static_cast<BYTE>(nLength);
    } else if (nLength < 0xfffe) {
        ar << static_cast<BYTE>(0xff);
        ar << static_cast<WORD>(nLength);
    } else if (nLength < 0xffffffff) {
        ar << static_cast<BYTE>(0xff);
        ar << static_cast<WORD>(0xffff);
        ar << static_cast<DWORD>(nLength);
    } else {
        ar << static_cast<BYTE>(0xff);
        ar << static_cast<WORD>(0xffff);
        ar << static_cast<DWORD>(0xffffffff);
        ar << static_cast<ULONGLONG>(nLength);
    }
}

UINT_PTR AfxReadStringLength(CArchive& ar, int& nCharSize)
{
    nCharSize = 1;
    BYTE b = 0;
    ar >> b;
    if (b < 0xff)
        return b;
    WORD w = 0;
    ar >> w;
    if (w == 0xfffe) {
        nCharSize = 2;
        ar >> b;
        if (b < 0xff)
            return b;
        ar >> w;
    }
    if (w < 0xffff)
        return w;
    DWORD dw = 0;
    ar >> dw;
    if (dw < 0xffffffff)
        return dw;
    ULONGLONG qw = 0;
    ar >> qw;
    return static_cast<UINT_PTR>(qw);
}

CArchive& operator<<(CArchive& ar, const CString& str)
{
    const UINT_PTR n = static_cast<UINT_PTR>(str.GetLength());
    AfxWriteStringLength(ar, n, TRUE);
    std::vector<BYTE> bytes(n * 2);
    for (UINT_PTR i = 0; i < n; ++i) {
        auto unit = static_cast<unsigned>(str.GetAt(static_cast<int>(i))) & 0xffffu;
        bytes[2 * i] = static_cast<BYTE>(unit & 0xff);
        bytes[2 * i + 1] = static_cast<BYTE>(unit >> 8);
    }
    if (!bytes.empty())
        ar.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    return ar;
}

CArchive& operator>>(CArchive& ar, CString& str)
{
    int charSize = 1;
    UINT_PTR n = AfxReadStringLength(ar, charSize);
    // A length beyond the rest of the file is a damaged file, not a request for memory.
    if (n > ar.GetBytesLeft() / static_cast<UINT_PTR>(charSize))
        AfxThrowArchiveException(CArchiveException::endOfFile);
    std::vector<BYTE> bytes(n * static_cast<UINT_PTR>(charSize));
    if (!bytes.empty() && ar.Read(bytes.data(), static_cast<UINT>(bytes.size())) != bytes.size())
        AfxThrowArchiveException(CArchiveException::endOfFile);
    std::wstring text;
    text.reserve(n);
    for (UINT_PTR i = 0; i < n; ++i) {
        // Single-byte text is taken as Latin-1: the code page of the system that wrote it is unknown.
        unsigned unit = charSize == 2 ? bytes[2 * i] | (bytes[2 * i + 1] << 8) : bytes[i];
        text += static_cast<wchar_t>(unit);
    }
    str = text.c_str();
    return ar;
}
