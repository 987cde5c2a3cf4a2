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

} // namespace sim::editor
