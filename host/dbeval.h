// AcDbEvalVariant: the value of a dynamic block property (a real, a short, a long or a text), and
// the data types that name its kind.
#pragma once
#include <string>

#include "AcString.h"
#include "acadstrc.h"
#include "adesk.h"
#include "dbmain.h"

namespace AcDb {
/// Kinds of values as the drawing file stores them.
enum DwgDataType {
    kDwgNull = 0,
    kDwgReal = 1,
    kDwgInt32 = 2,
    kDwgInt16 = 3,
    kDwgInt8 = 4,
    kDwgText = 5,
};
} // namespace AcDb

class AcDbEvalVariant {
public:
    AcDbEvalVariant() = default;
    AcDbEvalVariant(double dVal) : m_type(AcDb::kDwgReal), m_real(dVal) {}
    AcDbEvalVariant(short iVal) : m_type(AcDb::kDwgInt16), m_int(iVal) {}
    AcDbEvalVariant(Adesk::Int32 lVal) : m_type(AcDb::kDwgInt32), m_int(lVal) {}
    AcDbEvalVariant(const ACHAR* szVal) : m_type(AcDb::kDwgText), m_text(szVal ? szVal : L"") {}

    AcDb::DwgDataType getType() const { return m_type; }
    /// eInvalidInput when the value is of another kind.
    Acad::ErrorStatus getValue(double& value) const
    {
        if (m_type != AcDb::kDwgReal)
            return Acad::eInvalidInput;
        value = m_real;
        return Acad::eOk;
    }
    Acad::ErrorStatus getValue(short& value) const
    {
        if (m_type != AcDb::kDwgInt16 && m_type != AcDb::kDwgInt8)
            return Acad::eInvalidInput;
        value = static_cast<short>(m_int);
        return Acad::eOk;
    }
    Acad::ErrorStatus getValue(Adesk::Int32& value) const
    {
        if (m_type != AcDb::kDwgInt32)
            return Acad::eInvalidInput;
        value = m_int;
        return Acad::eOk;
    }
    Acad::ErrorStatus getValue(AcString& value) const
    {
        if (m_type != AcDb::kDwgText)
            return Acad::eInvalidInput;
        value = m_text.c_str();
        return Acad::eOk;
    }
    bool operator==(const AcDbEvalVariant& other) const
    {
        return m_type == other.m_type && m_real == other.m_real && m_int == other.m_int && m_text == other.m_text;
    }
    bool operator!=(const AcDbEvalVariant& other) const { return !(*this == other); }

private:
    AcDb::DwgDataType m_type = AcDb::kDwgNull;
    double m_real = 0.0;
    Adesk::Int32 m_int = 0;
    std::wstring m_text;
};

typedef AcArray<AcDbEvalVariant> AcDbEvalVariantArray;
