// AcDbLayout and AcDbPlotSettings: the tabs of a drawing. The layout manager is in LayoutManager.cpp.
#include <cwchar>

#include "dblayout.h"
#include "sim/db/DefineMembers.h"

SIM_DB_DEFINE_MEMBERS(AcDbPlotSettings, AcDbObject, L"PLOTSETTINGS")
SIM_DB_DEFINE_MEMBERS(AcDbLayout, AcDbPlotSettings, L"LAYOUT")

Acad::ErrorStatus AcDbLayout::setBlockTableRecordId(const AcDbObjectId& id)
{
    SIM_DB_ASSERT_WRITE();
    m_block = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::getLayoutName(const ACHAR*& layoutName) const
{
    layoutName = m_name.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::getLayoutName(ACHAR*& layoutName) const
{
    layoutName = new ACHAR[m_name.size() + 1];
    std::wmemcpy(layoutName, m_name.c_str(), m_name.size() + 1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::setLayoutName(const ACHAR* layoutName)
{
    SIM_DB_ASSERT_WRITE();
    if (!layoutName || !*layoutName)
        return Acad::eInvalidInput;
    m_name = layoutName;
    return Acad::eOk;
}
