// MFC's core classes that the system's files use: the class root CObject, the exceptions of files and
// archives, CFile with CMemFile, and CArchive with the counted string form of AfxWriteStringLength.
// Exceptions are thrown as pointers, as MFC throws them; a handler calls Delete().
#pragma once
#include <vector>
#include "afxstr.h"
#include "windows.h"

class CArchive;
class CDumpContext;

struct CRuntimeClass {
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;
};

/// The root of MFC's classes; here a polymorphic base with a virtual destructor and Serialize.
class CObject {
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;
    virtual void Serialize(CArchive& ar);
    virtual void AssertValid() const {}
    virtual void Dump(CDumpContext& dc) const;

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

class CException : public CObject {
public:
    /// Frees an exception thrown by pointer.
    void Delete() { delete this; }
    /// The text of the failure; FALSE when there is none.
    virtual BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const;
};

class CFileException : public CException {
public:
    enum {
        none = 0,
        genericException = 1,
        fileNotFound = 2,
        badPath = 3,
        tooManyOpenFiles = 4,
        accessDenied = 5,
        invalidFile = 6,
        removeCurrentDir = 7,
        directoryFull = 8,
        badSeek = 9,
        hardIO = 10,
        sharingViolation = 11,
        lockViolation = 12,
        diskFull = 13,
        endOfFile = 14,
    };
    CFileException(int cause = none, LONG lOsError = -1, LPCWSTR lpszArchiveName = nullptr)
        : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszArchiveName)
    {
    }
    BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;
};

class CArchiveException : public CException {
public:
    enum {
        none = 0,
        genericException = 1,
        readOnly = 2,
        endOfFile = 3,
        writeOnly = 4,
        badIndex = 5,
        badClass = 6,
        badSchema = 7,
        bufferFull = 8,
    };
    CArchiveException(int cause = none, LPCWSTR lpszArchiveName = nullptr)
        : m_cause(cause), m_strFileName(lpszArchiveName)
    {
    }
    BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
    int m_cause;
    CString m_strFileName;
};

[[noreturn]] void AfxThrowFileException(int cause, LONG lOsError = -1, LPCWSTR lpszFileName = nullptr);
[[noreturn]] void AfxThrowArchiveException(int cause, LPCWSTR lpszArchiveName = nullptr);

/// A binary file. Read gives fewer bytes at the end of the file; failures throw CFileException*.
/// Where the platform writes a file that it creates (modeCreate), the bytes go to a temporary name
/// that Close renames into place, so a write that fails leaves the old file as it was.
class CFile : public CObject {
public:
    enum OpenFlags : UINT {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeText = 0x4000,
        typeBinary = 0x8000,
    };
    enum SeekPosition { begin = 0, current = 1, end = 2 };

    CFile();
    /// Opens or throws CFileException*.
    CFile(LPCWSTR lpszFileName, UINT nOpenFlags);
    ~CFile() override;
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    /// FALSE with the cause in pError when the file can't be opened.
    virtual BOOL Open(LPCWSTR lpszFileName, UINT nOpenFlags, CFileException* pError = nullptr);
    virtual UINT Read(void* lpBuf, UINT nCount);
    virtual void Write(const void* lpBuf, UINT nCount);
    virtual ULONGLONG Seek(LONGLONG lOff, UINT nFrom);
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    virtual void Flush();
    /// Closes; a file being created is renamed into place. Throws on failure.
    virtual void Close();
    /// Closes without throwing; a file being created is discarded.
    virtual void Abort();
    CString GetFilePath() const { return m_strFileName; }

    HANDLE m_hFile = nullptr;

protected:
    CString m_strFileName;
    CString m_strTempName; ///< where a file being created is written until Close
};

/// A file in memory: growing when written, or over the caller's bytes for reading.
class CMemFile : public CFile {
public:
    explicit CMemFile(UINT nGrowBytes = 1024);
    /// Reads (and writes within) the caller's buffer, which must outlive the file.
    CMemFile(BYTE* lpBuffer, UINT nBufferSize, UINT nGrowBytes = 0);
    ~CMemFile() override;

    UINT Read(void* lpBuf, UINT nCount) override;
    void Write(const void* lpBuf, UINT nCount) override;
    ULONGLONG Seek(LONGLONG lOff, UINT nFrom) override;
    ULONGLONG GetPosition() const override { return m_nPosition; }
    ULONGLONG GetLength() const override { return m_nFileSize; }
    void Flush() override {}
    void Close() override;
    void Abort() override { Close(); }
    /// Hands the bytes to the caller, who frees them with free(); the file is empty afterwards.
    BYTE* Detach();

private:
    BYTE* m_lpBuffer = nullptr;
    ULONGLONG m_nBufferSize = 0;
    ULONGLONG m_nFileSize = 0;
    ULONGLONG m_nPosition = 0;
    UINT m_nGrowBytes;
    bool m_owned;
};

/// Serialization of values to and from a file through a buffer. The operators throw
/// CArchiveException* (endOfFile) when a value does not fit in what is left of the file.
class CArchive {
public:
    enum Mode { store = 0, load = 1, bNoFlushOnDelete = 2, bNoByteSwap = 4 };

    CArchive(CFile* pFile, UINT nMode, int nBufSize = 4096, void* lpBuf = nullptr);
    ~CArchive();
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    BOOL IsLoading() const { return (m_nMode & load) != 0; }
    BOOL IsStoring() const { return (m_nMode & load) == 0; }
    CFile* GetFile() const { return m_pFile; }

    /// Gives the bytes read, fewer at the end of the file.
    UINT Read(void* lpBuf, UINT nMax);
    void Write(const void* lpBuf, UINT nMax);
    void Flush();
    /// Flushes a storing archive and detaches it from the file (the file stays open).
    void Close();
    /// Detaches without flushing and without throwing.
    void Abort();
    /// Bytes that a loading archive can still give: its buffer and the rest of the file.
    ULONGLONG GetBytesLeft() const;

    CArchive& operator<<(BYTE b);
    CArchive& operator<<(WORD w);
    CArchive& operator<<(LONG l); ///< also int, which LONG is here
    CArchive& operator<<(DWORD dw);
    CArchive& operator<<(float f);
    CArchive& operator<<(double d);
    CArchive& operator<<(LONGLONG ll);
    CArchive& operator<<(ULONGLONG ull);
    CArchive& operator<<(short s) { return *this << static_cast<WORD>(s); }
    CArchive& operator<<(char c) { return *this << static_cast<BYTE>(c); }
    CArchive& operator<<(bool b) { return *this << static_cast<BYTE>(b ? 1 : 0); }

    CArchive& operator>>(BYTE& b);
    CArchive& operator>>(WORD& w);
    CArchive& operator>>(LONG& l);
    CArchive& operator>>(DWORD& dw);
    CArchive& operator>>(float& f);
    CArchive& operator>>(double& d);
    CArchive& operator>>(LONGLONG& ll);
    CArchive& operator>>(ULONGLONG& ull);
    CArchive& operator>>(short& s);
    CArchive& operator>>(char& c);
    CArchive& operator>>(bool& b);

    /// Counted string: written in the tagged UTF-16 form; read in either form.
    friend CArchive& operator<<(CArchive& ar, const CString& str);
    friend CArchive& operator>>(CArchive& ar, CString& str);

    UINT m_nMode;

private:
    void FillBuffer(UINT nBytesNeeded);
    void ReadExact(void* p, UINT n);

    CFile* m_pFile;
    std::vector<BYTE> m_buf;
    size_t m_nCur = 0; ///< next byte of the buffer
    size_t m_nMax = 0; ///< bytes held (loading)
};

/// The length of a counted string, one byte below 255, else FF and a WORD below 0xFFFE, else FF FF FF
/// and a DWORD; a Unicode string carries the tag FF FE FF before it.
void AfxWriteStringLength(CArchive& ar, UINT_PTR nLength, BOOL bUnicode);
/// Reads the length of a counted string; nCharSize is 2 after the Unicode tag, else 1.
UINT_PTR AfxReadStringLength(CArchive& ar, int& nCharSize);
