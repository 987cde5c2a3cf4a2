// AcDbLayoutManager: the layouts of a database (its ACAD_LAYOUT dictionary) by name, and the active
// one, which each database keeps for itself: model space while TILEMODE is 1, else the paper layout
// last made active.
#include <algorithm>
#include <vector>

#include "acaplmgr.h"
#include "dbapserv.h"
#include "dbdict.h"
#include "dblayout.h"
#include "dblaymgr.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/FileAccess.h"
#include "sim/db/ImpDatabase.h"
#include "sim/db/Names.h"

ACRX_DEFINE_MEMBERS(AcDbLayoutManager, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcApLayoutManager, AcDbLayoutManager, nullptr)

namespace {

AcDbDatabase* dbOr(const AcDbDatabase* pDb)
{
    return pDb ? const_cast<AcDbDatabase*>(pDb) : acdbHostApplicationServices()->workingDatabase();
}

const AcDbLayout* layoutOf(AcDbObjectId id)
{
    auto* layout = AcDbLayout::cast(sim::db::objectOf(id));
    return layout && !layout->isErased() ? layout : nullptr;
}

/// The layouts of the database in the order of their tabs.
std::vector<AcDbObjectId> layouts(const AcDbDatabase* db)
{
    std::vector<AcDbObjectId> ids;
    if (!db)
        return ids;
    auto* dict = AcDbDictionary::cast(sim::db::objectOf(db->layoutDictionaryId()));
    if (!dict)
        return ids;
    for (const auto& [key, id] : sim::db::dictionaryEntries(dict))
        if (layoutOf(id))
            ids.push_back(id);
    std::stable_sort(ids.begin(), ids.end(),
                     [](AcDbObjectId a, AcDbObjectId b) { return layoutOf(a)->getTabOrder() < layoutOf(b)->getTabOrder(); });
    return ids;
}

bool isModel(const AcDbLayout* layout)
{
    auto* btr = AcDbBlockTableRecord::cast(sim::db::objectOf(layout->getBlockTableRecordId()));
    return btr && sim::db::sameName(sim::db::recordName(btr), ACDB_MODEL_SPACE);
}

std::wstring nameOf(AcDbObjectId id)
{
    const ACHAR* name = nullptr;
    layoutOf(id)->getLayoutName(name);
    return name ? name : L"";
}

/// The paper layout that TILEMODE 0 shows: the one last active, else the first by tab order.
AcDbObjectId paperLayout(const AcDbDatabase* db)
{
    AcDbImpDatabase* imp = AcDbImpDatabase::of(db);
    if (!imp)
        return AcDbObjectId::kNull;
    if (const AcDbLayout* l = layoutOf(imp->activePaperLayout); l && !isModel(l))
        return imp->activePaperLayout;
    for (AcDbObjectId id : layouts(db))
        if (!isModel(layoutOf(id)))
            return id;
    return AcDbObjectId::kNull;
}

} // namespace

Acad::ErrorStatus AcDbLayoutManager::setCurrentLayout(const ACHAR* newname, AcDbDatabase* pDb)
{
    AcDbObjectId id = findLayoutNamed(newname, pDb);
    return id.isNull() ? Acad::eKeyNotFound : setCurrentLayoutId(id);
}

Acad::ErrorStatus AcDbLayoutManager::setCurrentLayoutId(AcDbObjectId layoutId)
{
    const AcDbLayout* layout = layoutOf(layoutId);
    AcDbImpDatabase* imp = AcDbImpDatabase::of(layoutId.database());
    if (!layout || !imp)
        return Acad::eKeyNotFound;
    if (!isModel(layout))
        imp->activePaperLayout = layoutId;
    return layoutId.database()->setTilemode(isModel(layout));
}

Acad::ErrorStatus AcDbLayoutManager::getActiveLayoutName(AcString& sName, bool allowModel, const AcDbDatabase* pDb)
{
    AcDbDatabase* db = dbOr(pDb);
    if (!db)
        return Acad::eNoDatabase;
    if (db->tilemode() && allowModel) {
        for (AcDbObjectId id : layouts(db))
            if (isModel(layoutOf(id))) {
                sName = nameOf(id).c_str();
                return Acad::eOk;
            }
        sName = L"Model";
        return Acad::eOk;
    }
    AcDbObjectId paper = paperLayout(db);
    if (paper.isNull())
        return Acad::eKeyNotFound;
    sName = nameOf(paper).c_str();
    return Acad::eOk;
}

AcDbObjectId AcDbLayoutManager::getActiveLayoutBTRId(const AcDbDatabase* pDb)
{
    AcDbDatabase* db = dbOr(pDb);
    if (!db)
        return AcDbObjectId::kNull;
    if (!db->tilemode())
        if (AcDbObjectId paper = paperLayout(db); !paper.isNull())
            return layoutOf(paper)->getBlockTableRecordId();
    return db->currentSpaceId();
}

AcDbObjectId AcDbLayoutManager::findLayoutNamed(const ACHAR* name, const AcDbDatabase* pDb)
{
    if (!name)
        return AcDbObjectId::kNull;
    for (AcDbObjectId id : layouts(dbOr(pDb)))
        if (sim::db::sameName(nameOf(id), name))
            return id;
    return AcDbObjectId::kNull;
}

bool AcDbLayoutManager::layoutExists(const ACHAR* name, const AcDbDatabase* pDb) { return !findLayoutNamed(name, pDb).isNull(); }

int AcDbLayoutManager::countLayouts(AcDbDatabase* pDb) { return static_cast<int>(layouts(dbOr(pDb)).size()); }

AcDbLayoutManager* acdbLayoutManager()
{
    static AcApLayoutManager manager;
    return &manager;
}

AcDbLayoutManager* AcDbHostApplicationServices::layoutManager() const { return acdbLayoutManager(); }
