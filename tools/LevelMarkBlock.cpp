// The level mark block. In block coordinates the mark's tip is the origin: the triangle above the
// level line, the shelf with the level above it and the note under it to the right, and a leader
// that runs from the tip back to the levelled point along -X (the command drags the mark away from
// the point it levels). The actions of each entity bring it to the other cases, in this order: the
// mark mirrored about its tip (ZRC_HORIZ), below the line (ZRC_VERT for the lines, ZRC_TEXTU for the
// texts), the leader's end moved to its length (DL_ODKAZU), all of it mirrored about the tip when
// the leader runs the other way (ZRC_HORIZ_ODKAZU). The leader shows only "S odkazem".
#include "tools/LevelMarkBlock.h"

#include <cmath>
#include <memory>
#include <vector>

#include "dbents.h"
#include "dbobjptr.h"
#include "dbpl.h"
#include "sim/db/DynamicBlock.h"

namespace togu::tools {

namespace {

using sim::db::DynamicAction;
using sim::db::DynamicProperty;
using sim::db::DynamicValue;

constexpr double kHalfBase = kTriangleHeight / 1.7320508075688772; // an equilateral triangle
constexpr double kGap = 0.75;                                      // text to shelf
constexpr double kQuarterTurn = 1.5707963267948966;
const wchar_t* const kWithLeader = L"S odkazem";
const wchar_t* const kWithoutLeader = L"Bez odkazu";

DynamicAction flip(const wchar_t* property, double x, double angle)
{
    DynamicAction a;
    a.kind = DynamicAction::kFlip;
    a.property = property;
    a.x = x;
    a.angle = angle;
    return a;
}

/// The actions of a part of the mark: a line (ZRC_VERT) or a text (ZRC_TEXTU).
std::vector<DynamicAction> markActions(bool text)
{
    return {flip(L"ZRC_HORIZ", 0.0, kQuarterTurn), flip(text ? L"ZRC_TEXTU" : L"ZRC_VERT", 0.0, 0.0),
            flip(L"ZRC_HORIZ_ODKAZU", 0.0, kQuarterTurn)};
}

std::vector<DynamicAction> leaderActions()
{
    DynamicAction visible;
    visible.kind = DynamicAction::kVisible;
    visible.property = L"ODKAZ";
    visible.value = kWithLeader;
    DynamicAction end;
    end.kind = DynamicAction::kStretch;
    end.property = L"DL_ODKAZU";
    end.x = -1.0;
    end.minX = -kLeaderLength - 0.5;
    end.maxX = -kLeaderLength + 0.5;
    end.minY = -0.5;
    end.maxY = 0.5;
    return {visible, end, flip(L"ZRC_HORIZ_ODKAZU", 0.0, kQuarterTurn)};
}

DynamicValue textValue(const wchar_t* v)
{
    DynamicValue d;
    d.kind = DynamicValue::kText;
    d.text = v;
    return d;
}

DynamicValue shortValue(short v)
{
    DynamicValue d;
    d.kind = DynamicValue::kShort;
    d.integer = v;
    return d;
}

std::vector<DynamicProperty> properties()
{
    std::vector<DynamicProperty> props;
    DynamicProperty leader{L"ODKAZ", textValue(kWithLeader), {textValue(kWithLeader), textValue(kWithoutLeader)}};
    props.push_back(leader);
    DynamicProperty length{L"DL_ODKAZU", DynamicValue(), {}};
    length.value.real = kLeaderLength;
    props.push_back(length);
    for (const wchar_t* name : {L"ZRC_VERT", L"ZRC_TEXTU", L"ZRC_HORIZ_ODKAZU", L"ZRC_HORIZ"})
        props.push_back({name, shortValue(0), {shortValue(0), shortValue(1)}});
    return props;
}

/// Appends the entity on layer 0, ByBlock, with its actions.
void add(AcDbBlockTableRecord& space, AcDbEntity* e, const std::vector<DynamicAction>& actions)
{
    std::unique_ptr<AcDbEntity> held(e);
    AcCmColor byBlock;
    byBlock.setColorMethod(AcCmEntityColor::kByBlock);
    e->setColor(byBlock);
    e->setLayer(L"0");
    e->setLinetype(space.database()->byBlockLinetype());
    e->setLineWeight(AcDb::kLnWtByBlock);
    if (space.appendAcDbEntity(e) != Acad::eOk)
        return;
    held.release();
    std::unique_ptr<resbuf, int (*)(resbuf*)> data(sim::db::dynamicActionsXData(actions), acutRelRb);
    e->setXData(data.get());
    e->close();
}

AcDbAttributeDefinition* attribute(const wchar_t* tag, const wchar_t* prompt, const AcGePoint3d& at, double height,
                                   AcDb::TextVertMode vert, AcDbDatabase& db)
{
    auto* def = new AcDbAttributeDefinition(at, L"", tag, prompt, db.textstyle());
    def->setHeight(height);
    def->setHorizontalMode(AcDb::kTextLeft);
    def->setVerticalMode(vert);
    def->setAlignmentPoint(at);
    return def;
}

} // namespace

void drawLevelMarkBlock(AcDbDatabase& db)
{
    AcDbBlockTableRecordPointer space(ACDB_MODEL_SPACE, &db, AcDb::kForWrite);
    const double h = kTriangleHeight;

    add(*space, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(-kLeaderLength, 0, 0)), leaderActions());

    auto* triangle = new AcDbPolyline;
    triangle->addVertexAt(0, AcGePoint2d(0, 0));
    triangle->addVertexAt(1, AcGePoint2d(-kHalfBase, h));
    triangle->addVertexAt(2, AcGePoint2d(kHalfBase, h));
    triangle->setClosed(true);
    add(*space, triangle, markActions(false));
    add(*space, new AcDbLine(AcGePoint3d(-kHalfBase, h, 0), AcGePoint3d(-kHalfBase + kShelfLength, h, 0)),
        markActions(false));

    add(*space, attribute(L"VYSKA", L"Výška", AcGePoint3d(-kHalfBase, h + kGap, 0), kLevelTextHeight, AcDb::kTextBottom, db),
        markActions(true));
    add(*space,
        attribute(L"POPIS", L"Popis pod čarou", AcGePoint3d(kHalfBase + kGap, h - kGap, 0), kNoteTextHeight,
                  AcDb::kTextTop, db),
        markActions(true));

    std::unique_ptr<resbuf, int (*)(resbuf*)> data(sim::db::dynamicPropertiesXData(properties(), true), acutRelRb);
    space->setXData(data.get());
}

} // namespace togu::tools
