// AcString: the host's wide string class, the subset the system calls.
#pragma once
#include <string>
#include "adesk.h"

class AcString {
public:
    AcString() = default;
    AcString(const ACHAR* s) : m_s(s ? s : L"") {}
    AcString(const AcString&) = default;
    AcString& operator=(const AcString&) = default;
    AcString& operator=(const ACHAR* s)
    {
        m_s = s ? s : L"";
        return *this;
    }

    const ACHAR* kwszPtr() const { return m_s.c_str(); }
    const ACHAR* constPtr() const { return m_s.c_str(); }
    operator const ACHAR*() const { return m_s.c_str(); }
    /// Length in characters.
    unsigned length() const { return static_cast<unsigned>(m_s.size()); }
    bool isEmpty() const { return m_s.empty(); }
    ACHAR getAt(int i) const { return m_s.at(static_cast<size_t>(i)); }
    AcString& setEmpty()
    {
        m_s.clear();
        return *this;
    }

    /// A writable buffer of at least nMinLength characters plus the terminator. The string takes its
    /// length back from the terminator at releaseBuffer.
    ACHAR* getBuffer(int nMinLength = 0)
    {
        if (nMinLength > 0 && m_s.size() < static_cast<size_t>(nMinLength))
            m_s.resize(static_cast<size_t>(nMinLength), L'\0');
        return m_s.data();
    }
    void releaseBuffer(int nNewLength = -1)
    {
        if (nNewLength < 0)
            m_s.resize(std::char_traits<wchar_t>::length(m_s.c_str()));
        else
            m_s.resize(static_cast<size_t>(nNewLength));
    }

    int find(ACHAR ch) const
    {
        auto p = m_s.find(ch);
        return p == std::wstring::npos ? -1 : static_cast<int>(p);
    }
    int find(const ACHAR* s) const
    {
        auto p = m_s.find(s ? s : L"");
        return p == std::wstring::npos ? -1 : static_cast<int>(p);
    }
    AcString mid(int nStart, int nNumChars = -1) const
    {
        if (nStart < 0 || static_cast<size_t>(nStart) >= m_s.size())
            return AcString();
        return AcString(m_s.substr(static_cast<size_t>(nStart),
            nNumChars < 0 ? std::wstring::npos : static_cast<size_t>(nNumChars)).c_str());
    }
    AcString substr(int nStart, int nNumChars = -1) const { return mid(nStart, nNumChars); }
    AcString substr(int nNumChars) const { return mid(0, nNumChars); }
    int compare(const ACHAR* s) const { return m_s.compare(s ? s : L""); }
    int compareNoCase(const ACHAR* s) const;

    AcString& operator+=(const ACHAR* s)
    {
        m_s += (s ? s : L"");
        return *this;
    }
    AcString& operator+=(ACHAR ch)
    {
        m_s += ch;
        return *this;
    }
    AcString& operator+=(const AcString& s)
    {
        m_s += s.m_s;
        return *this;
    }
    AcString operator+(const AcString& s) const
    {
        AcString r(*this);
        r += s;
        return r;
    }
    AcString operator+(const ACHAR* s) const
    {
        AcString r(*this);
        r += s;
        return r;
    }
    bool operator==(const AcString& s) const { return m_s == s.m_s; }
    bool operator==(const ACHAR* s) const { return m_s == (s ? s : L""); }
    bool operator<(const AcString& s) const { return m_s < s.m_s; }

private:
    std::wstring m_s;
};
