// AcDbHandle: the persistent 64-bit handle of an object in its drawing.
#pragma once
#include <cstdint>
#include <cwchar>
#include "adesk.h"

class AcDbHandle {
public:
    AcDbHandle() = default;
    AcDbHandle(Adesk::UInt64 value) : m_value(value) {}
    /// From hexadecimal text, as handles are written in drawing files.
    explicit AcDbHandle(const ACHAR* hex) : m_value(hex ? std::wcstoull(hex, nullptr, 16) : 0) {}
    bool isNull() const { return m_value == 0; }
    void setNull() { m_value = 0; }
    Adesk::UInt64 value() const { return m_value; }
    /// Hexadecimal text in capitals, without leading zeros; needs 17 characters.
    void getIntoAsciiBuffer(ACHAR* buf, size_t nBufLen = 17) const
    {
        std::swprintf(buf, nBufLen, L"%llX", static_cast<unsigned long long>(m_value));
    }
    AcDbHandle& operator++()
    {
        ++m_value;
        return *this;
    }
    bool operator==(const AcDbHandle& h) const { return m_value == h.m_value; }
    bool operator!=(const AcDbHandle& h) const { return m_value != h.m_value; }
    bool operator<(const AcDbHandle& h) const { return m_value < h.m_value; }
    bool operator>(const AcDbHandle& h) const { return m_value > h.m_value; }

private:
    Adesk::UInt64 m_value = 0;
};
