// Names of symbol table records.
#include "sim/editor/DbNames.h"

namespace sim::editor {

std::wstring recordName(AcDbObjectId id)
{
    if (id.isNull())
        return {};
    AcDbObjectPointer<AcDbSymbolTableRecord> rec(id);
    if (rec.openStatus() != Acad::eOk)
        return {};
    const ACHAR* name = nullptr;
    return rec->getName(name) == Acad::eOk && name ? std::wstring(name) : std::wstring();
}

void adsNameOf(AcDbObjectId id, ads_name out)
{
    ads_name n = {0, 0};
    if (!id.isNull())
        acdbGetAdsName(n, id);
    ads_name_set(n, out);
}

} // namespace sim::editor
