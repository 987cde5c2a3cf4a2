// The block of a dimension's graphics: what linearDimensionGraphics lays out, as entities of an
// anonymous "*D" block on layer 0 in the colour and weight ByBlock, as the host makes it.
#include <memory>
#include <string>

#include "dbAnnotationScale.h"
#include "dbAnnotativeObjectPE.h"
#include "dbdim.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "gescl3d.h"
#include "sim/db/ArrowBlocks.h"
#include "sim/db/DimensionGraphics.h"
#include "sim/db/FileAccess.h"
#include "sim/db/ImpDatabase.h"

namespace {

using sim::db::DimensionLook;

bool isAnnotative(AcDbObject* obj)
{
    auto* pe = AcDbAnnotativeObjectPE::cast(obj->queryX(AcDbAnnotativeObjectPE::desc()));
    return pe && pe->annotative(obj);
}

// Drawing units per paper unit: the current annotation scale of an annotative dimension, else DIMSCALE.
double scaleOf(AcDbDimension* dim, const AcDbDimStyleTableRecord* style, AcDbDatabase* db)
{
    if (isAnnotative(dim)) {
        std::unique_ptr<AcDbAnnotationScale> current(db->cannoscale());
        double paper = 1.0, drawing = 1.0;
        if (current && current->getPaperUnits(paper) == Acad::eOk && current->getDrawingUnits(drawing) == Acad::eOk &&
            paper > 0.0 && drawing > 0.0)
            return drawing / paper;
        return 1.0;
    }
    const double s = style ? style->dimscale() : 1.0;
    return s > 0.0 ? s : 1.0;
}

DimensionLook lookOf(const AcDbDimStyleTableRecord* style)
{
    DimensionLook look;
    if (!style)
        return look;
    look.asz = style->dimasz();
    look.exo = style->dimexo();
    look.exe = style->dimexe();
    look.dle = style->dimdle();
    look.gap = std::fabs(style->dimgap());
    look.txt = style->dimtxt();
    look.tad = style->dimtad();
    look.se1 = style->dimse1();
    look.se2 = style->dimse2();
    look.sd1 = style->dimsd1();
    look.sd2 = style->dimsd2();
    const std::wstring arrow = style->dimblkName() ? style->dimblkName() : L"";
    const std::wstring name = sim::db::predefinedArrowName(arrow);
    look.tick = name == L"_Oblique" || name == L"_ArchTick" || name == L"_Integral" || name == L"_None";
    return look;
}

// Layer 0, colour and weight ByBlock: the dimension's own properties show through.
void byBlock(AcDbEntity& e, AcDbDatabase* db)
{
    e.setLayer(db->layerZero());
    e.setColorIndex(0);
    e.setLineWeight(AcDb::kLnWtByBlock);
}

} // namespace

Acad::ErrorStatus AcDbDimension::recomputeDimBlock(bool)
{
    auto* aligned = AcDbAlignedDimension::cast(this);
    AcDbDatabase* db = database();
    if (!aligned || !db)
        return Acad::eNotApplicable;
    auto* style = AcDbDimStyleTableRecord::cast(sim::db::objectOf(m_style));

    DimensionLook look = lookOf(style);
    look.scale = scaleOf(this, style, db);
    const AcDbObjectId textStyle = dimtxsty();
    if (auto* ts = AcDbTextStyleTableRecord::cast(sim::db::objectOf(textStyle)))
        look.widthFactor = ts->xScale() > 0.0 ? ts->xScale() : 1.0;

    sim::db::DimensionPoints points;
    points.x1 = aligned->xLine1Point();
    points.x2 = aligned->xLine2Point();
    points.dimLine = aligned->dimLinePoint();
    points.along = points.x2 - points.x1;
    if (auto* rotated = AcDbRotatedDimension::cast(this))
        points.along = AcGeVector3d(std::cos(rotated->rotation()), std::sin(rotated->rotation()), 0.0);
    const AcGePoint3d textAt = m_textPosition;
    if (m_userTextPosition)
        points.textAt = &textAt;
    points.horizontalRotation = m_horizontalRotation;

    const std::wstring measured =
        style ? sim::db::formatMeasurement(measureValue(), style->dimlfac(), style->dimrnd(), style->dimdec(),
                                           style->dimdsep(), style->dimzin(), style->dimpost() ? style->dimpost() : L"")
              : sim::db::formatMeasurement(measureValue(), 1.0, 0.0, 4, L'.', 0, L"");
    const std::wstring shown = sim::db::shownDimensionText(m_text, measured);
    const sim::db::DimensionGraphics g = sim::db::linearDimensionGraphics(points, look, shown);

    // The block: the dimension's own, emptied, or a new anonymous one.
    AcDbBlockTableRecordPointer block;
    if (!m_block.isNull()) {
        if (block.open(m_block, AcDb::kForWrite) != Acad::eOk)
            return block.openStatus();
        AcDbBlockTableRecordIterator* it = nullptr;
        if (block->newIterator(it) == Acad::eOk) {
            for (std::unique_ptr<AcDbBlockTableRecordIterator> own(it); !it->done(); it->step()) {
                AcDbEntityPointer old;
                AcDbObjectId id;
                if (it->getEntityId(id) == Acad::eOk && old.open(id, AcDb::kForWrite) == Acad::eOk)
                    old->erase();
            }
        }
    } else {
        AcDbBlockTablePointer table(db, AcDb::kForWrite);
        if (table.openStatus() != Acad::eOk)
            return table.openStatus();
        block.create();
        block->setName(L"*D");
        AcDbObjectId id;
        if (Acad::ErrorStatus es = table->add(id, block); es != Acad::eOk)
            return es;
        m_block = id;
    }

    for (const auto& [from, to] : g.lines) {
        AcDbObjectPointer<AcDbLine> line;
        line.create();
        line->setStartPoint(from);
        line->setEndPoint(to);
        byBlock(*line, db);
        block->appendAcDbEntity(line);
    }
    const AcDbObjectId arrowId =
        style && !style->dimblk().isNull() ? style->dimblk() : AcDbObjectId::kNull;
    for (const sim::db::DimensionArrow& a : g.arrows) {
        if (!arrowId.isNull()) {
            AcDbObjectPointer<AcDbBlockReference> ref;
            ref.create();
            ref->setBlockTableRecord(arrowId);
            ref->setPosition(a.tip);
            ref->setScaleFactors(AcGeScale3d(g.arrowSize));
            ref->setRotation(a.angle);
            byBlock(*ref, db);
            block->appendAcDbEntity(ref);
        } else {
            // The default arrow, closed and filled: a tapering polyline from its back to its tip.
            const AcGeVector3d d(std::cos(a.angle), std::sin(a.angle), 0.0);
            const AcGePoint3d back = a.tip - d * g.arrowSize;
            AcDbObjectPointer<AcDbPolyline> solid;
            solid.create();
            solid->addVertexAt(0, AcGePoint2d(back.x, back.y));
            solid->addVertexAt(1, AcGePoint2d(a.tip.x, a.tip.y));
            solid->setWidthsAt(0, g.arrowSize / 3.0, 0.0);
            solid->setElevation(a.tip.z);
            byBlock(*solid, db);
            block->appendAcDbEntity(solid);
        }
    }
    if (!shown.empty()) {
        AcDbObjectPointer<AcDbMText> text;
        text.create();
        text->setLocation(g.textPoint);
        text->setTextHeight(g.textHeight);
        text->setAttachment(g.textAbove ? AcDbMText::kBottomCenter : AcDbMText::kMiddleCenter);
        text->setRotation(g.textAngle);
        if (!textStyle.isNull())
            text->setTextStyle(textStyle);
        text->setContents(shown.c_str());
        byBlock(*text, db);
        block->appendAcDbEntity(text);
    }
    return Acad::eOk;
}
