// The predefined arrows and the blocks that draw them: one drawing unit long, tip at the origin,
// on layer 0 in the colour and weight ByBlock.
#include "sim/db/ArrowBlocks.h"

#include <vector>

#include "dbobjptr.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "sim/db/Names.h"

namespace sim::db {

namespace {

struct Vertex {
    double x, y, bulge;
};
struct Outline {
    std::vector<Vertex> vertices;
    bool closed = false;
    double width = 0.0;
};
struct Arrow {
    const wchar_t* name;
    std::vector<Outline> outlines;
};

// A circle as a closed polyline of two half circles; a width makes it a donut.
Outline circle(double radius, double width = 0.0) { return {{{-radius, 0, 1}, {radius, 0, 1}}, true, width}; }

const std::vector<Arrow>& arrows()
{
    static const std::vector<Arrow> list = {
        {L"_ClosedBlank", {{{{0, 0, 0}, {-1, 1.0 / 6, 0}, {-1, -1.0 / 6, 0}}, true}}},
        {L"_Closed", {{{{0, 0, 0}, {-1, 1.0 / 6, 0}, {-1, -1.0 / 6, 0}}, true}, {{{-1, 0, 0}, {0, 0, 0}}}}},
        {L"_Dot", {circle(0.25, 0.5)}},
        {L"_ArchTick", {{{{-0.5, -0.5, 0}, {0.5, 0.5, 0}}, false, 0.15}}},
        {L"_Oblique", {{{{-0.5, -0.5, 0}, {0.5, 0.5, 0}}}}},
        {L"_Open", {{{{-1, 1.0 / 6, 0}, {0, 0, 0}, {-1, -1.0 / 6, 0}}}, {{{-1, 0, 0}, {0, 0, 0}}}}},
        {L"_Origin", {circle(0.5)}},
        {L"_Origin2", {circle(0.5), circle(0.25)}},
        {L"_Open90", {{{{-0.5, 0.5, 0}, {0, 0, 0}, {-0.5, -0.5, 0}}}}},
        {L"_Open30", {{{{-1, 0.26795, 0}, {0, 0, 0}, {-1, -0.26795, 0}}}}},
        {L"_DotSmall", {circle(0.0625, 0.125)}},
        {L"_DotBlank", {circle(0.5)}},
        {L"_Small", {circle(0.25)}},
        {L"_BoxBlank", {{{{-0.5, -0.5, 0}, {0.5, -0.5, 0}, {0.5, 0.5, 0}, {-0.5, 0.5, 0}}, true}}},
        {L"_BoxFilled", {{{{-0.5, 0, 0}, {0.5, 0, 0}}, false, 1.0}}},
        {L"_DatumBlank", {{{{0, 0.5, 0}, {-1, 0, 0}, {0, -0.5, 0}}, true}}},
        {L"_DatumFilled", {{{{-1, 0, 0}, {0, 0, 0}}, false, 1.0}}},
        {L"_Integral", {{{{-0.44, -0.44, -0.4142}, {0, 0, 0.4142}, {0.44, 0.44, 0}}}}},
        {L"_None", {}},
    };
    return list;
}

const Arrow* findArrow(std::wstring_view name)
{
    if (!name.empty() && name.front() == L'_')
        name.remove_prefix(1);
    for (const Arrow& a : arrows())
        if (sameName(std::wstring_view(a.name).substr(1), name))
            return &a;
    return nullptr;
}

bool addOutline(AcDbBlockTableRecord& block, const Outline& o, AcDbDatabase& db)
{
    AcDbObjectPointer<AcDbPolyline> pl;
    pl.create();
    for (unsigned i = 0; i < o.vertices.size(); ++i)
        pl->addVertexAt(i, AcGePoint2d(o.vertices[i].x, o.vertices[i].y), o.vertices[i].bulge);
    pl->setClosed(o.closed);
    if (o.width != 0.0)
        pl->setConstantWidth(o.width);
    pl->setLayer(db.layerZero());
    pl->setColorIndex(0);
    pl->setLineWeight(AcDb::kLnWtByBlock);
    return block.appendAcDbEntity(pl) == Acad::eOk;
}

} // namespace

std::wstring predefinedArrowName(std::wstring_view name)
{
    const Arrow* a = findArrow(name);
    return a ? a->name : L"";
}

AcDbObjectId arrowBlock(AcDbDatabase* db, std::wstring_view name)
{
    if (!db || name.empty())
        return AcDbObjectId::kNull;
    const std::wstring asked(name);
    AcDbObjectId id;
    {
        AcDbBlockTablePointer table(db);
        if (table.openStatus() != Acad::eOk)
            return AcDbObjectId::kNull;
        if (table->getAt(asked.c_str(), id) == Acad::eOk)
            return id;
    }
    const Arrow* arrow = findArrow(name);
    if (!arrow)
        return AcDbObjectId::kNull;
    AcDbBlockTablePointer table(db, AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk)
        return AcDbObjectId::kNull;
    // The host's own name may stand in the table already when the caller spelled it otherwise.
    if (table->getAt(arrow->name, id) == Acad::eOk)
        return id;
    AcDbBlockTableRecordPointer block;
    block.create();
    block->setName(arrow->name);
    if (table->add(id, block) != Acad::eOk)
        return AcDbObjectId::kNull;
    table.close();
    for (const Outline& o : arrow->outlines)
        if (!addOutline(*block, o, *db))
            break;
    return id;
}

} // namespace sim::db
