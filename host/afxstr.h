// CString: MFC's wide string, the subset the system's dialogs call.
#pragma once
#include <string>
#include "windows.h"

class CString {
public:
    CString() = default;
    CString(LPCWSTR s) : m_s(s ? s : L"") {}
    CString(const CString&) = default;
    CString& operator=(const CString&) = default;
    CString& operator=(LPCWSTR s)
    {
        m_s = s ? s : L"";
        return *this;
    }

    operator LPCWSTR() const { return m_s.c_str(); }
    LPCWSTR GetString() const { return m_s.c_str(); }
    int GetLength() const { return static_cast<int>(m_s.size()); }
    bool IsEmpty() const { return m_s.empty(); }
    void Empty() { m_s.clear(); }
    WCHAR GetAt(int i) const { return m_s.at(static_cast<size_t>(i)); }
    int Compare(LPCWSTR s) const { return m_s.compare(s ? s : L""); }

    /// Blanks (space, tab, line ends) off the right / left / both ends.
    CString& TrimRight();
    CString& TrimLeft();
    CString& Trim() { return TrimRight().TrimLeft(); }
    /// printf-style formatting with wide formats (%ls for strings); replaces the content.
    void Format(LPCWSTR pszFormat, ...);

    CString& operator+=(LPCWSTR s)
    {
        m_s += s ? s : L"";
        return *this;
    }
    CString& operator+=(WCHAR c)
    {
        m_s += c;
        return *this;
    }
    friend CString operator+(const CString& a, LPCWSTR b)
    {
        CString r(a);
        r += b;
        return r;
    }
    bool operator==(LPCWSTR s) const { return m_s == (s ? s : L""); }
    bool operator==(const CString& s) const { return m_s == s.m_s; }
    bool operator!=(LPCWSTR s) const { return !(*this == s); }

private:
    std::wstring m_s;
};
