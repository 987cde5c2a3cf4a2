// AcDbLayout: a tab of the drawing (model space or a paper layout) with its plot settings, kept in
// the dictionary ACAD_LAYOUT of the named objects dictionary.
#pragma once
#include <string>
#include "dbmain.h"

/// The plot settings of a layout. The platform does not plot; it keeps them as the file has them.
class AcDbPlotSettings : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbPlotSettings);
    AcDbPlotSettings() = default;
};

class AcDbLayout : public AcDbPlotSettings {
public:
    ACDB_DECLARE_MEMBERS(AcDbLayout);
    AcDbLayout() = default;

    /// The block table record of the layout's entities (*Model_Space, *Paper_Space, ...).
    AcDbObjectId getBlockTableRecordId() const { return m_block; }
    virtual Acad::ErrorStatus setBlockTableRecordId(const AcDbObjectId& BlockTableRecordId);
    /// The name; the pointer stays valid while the layout is open and unchanged.
    virtual Acad::ErrorStatus getLayoutName(const ACHAR*& layoutName) const;
    /// A copy the caller frees with acutDelString (delete[]).
    virtual Acad::ErrorStatus getLayoutName(ACHAR*& layoutName) const;
    /// eInvalidInput for an empty name. Renaming does not rename the layout's dictionary entry.
    virtual Acad::ErrorStatus setLayoutName(const ACHAR* layoutName);
    /// 0 for model space, then the paper layouts from 1 in the order of their tabs.
    virtual int getTabOrder() const { return m_tabOrder; }
    virtual void setTabOrder(int newOrder) { m_tabOrder = newOrder; }
    bool modelType() const { return m_tabOrder == 0; }

private:
    friend class AcDbImpDatabase;
    std::wstring m_name;
    int m_tabOrder = 0;
    AcDbObjectId m_block;
};
