// External references resolved from their drawing files into dependent layers of the host.
#include "sim/db/Xrefs.h"

#include <memory>
#include <string>

#include "dbapserv.h"
#include "dbobjptr.h"
#include "dbsymtb.h"

namespace sim::db {

namespace {

/// Layers of a referenced drawing that the host shares rather than depends on.
bool sharedLayer(const AcString& name)
{
    return name.compareNoCase(L"0") == 0 || name.compareNoCase(L"Defpoints") == 0 || name.find(L'|') >= 0;
}

} // namespace

Acad::ErrorStatus resolveXref(AcDbDatabase* host, AcDbObjectId blockId)
{
    AcString name, path;
    {
        AcDbBlockTableRecordPointer block(blockId, AcDb::kForRead);
        if (block.openStatus() != Acad::eOk)
            return block.openStatus();
        const ACHAR* p = nullptr;
        if (!block->isFromExternalReference() || block->pathName(p) != Acad::eOk || !p || !*p)
            return Acad::eInvalidInput;
        path = p;
        block->getName(name);
    }
    ACHAR found[4096];
    if (Acad::ErrorStatus es = acdbHostApplicationServices()->findFile(found, 4096, path, host); es != Acad::eOk)
        return es;
    auto referenced = std::make_unique<AcDbDatabase>(false, true);
    if (Acad::ErrorStatus es = referenced->readDwgFile(found); es != Acad::eOk)
        return es;
    referenced->closeInput(true);

    AcDbLayerTablePointer from(referenced.get(), AcDb::kForRead);
    AcDbLayerTablePointer to(host, AcDb::kForWrite);
    if (from.openStatus() != Acad::eOk || to.openStatus() != Acad::eOk)
        return from.openStatus() != Acad::eOk ? from.openStatus() : to.openStatus();
    AcDbLayerTableIterator* it = nullptr;
    if (from->newIterator(it) != Acad::eOk || !it)
        return Acad::eOk;
    std::unique_ptr<AcDbLayerTableIterator> iterator(it);
    for (; !iterator->done(); iterator->step()) {
        AcDbLayerTableRecord* layer = nullptr;
        if (iterator->getRecord(layer, AcDb::kForRead) != Acad::eOk)
            continue;
        AcDbLayerTableRecordPointer source;
        source.acquire(layer);
        AcString layerName;
        source->getName(layerName);
        if (sharedLayer(layerName))
            continue;
        AcString dependent = name + L"|" + layerName;
        if (to->has(dependent))
            continue;
        AcDbLayerTableRecordPointer added;
        added.create();
        added->setName(dependent);
        added->setColor(source->color());
        added->setLineWeight(source->lineWeight());
        added->setIsPlottable(source->isPlottable());
        added->setIsOff(source->isOff());
        added->setIsFrozen(source->isFrozen());
        added->setLinetypeObjectId(host->continuousLinetype());
        to->add(added.object());
    }
    return Acad::eOk;
}

void resolveXrefs(AcDbDatabase* host)
{
    std::vector<AcDbObjectId> xrefs;
    {
        AcDbBlockTablePointer blocks(host, AcDb::kForRead);
        AcDbBlockTableIterator* it = nullptr;
        if (blocks.openStatus() != Acad::eOk || blocks->newIterator(it) != Acad::eOk || !it)
            return;
        std::unique_ptr<AcDbBlockTableIterator> iterator(it);
        for (; !iterator->done(); iterator->step()) {
            AcDbObjectId id;
            if (iterator->getRecordId(id) != Acad::eOk)
                continue;
            AcDbBlockTableRecordPointer block(id, AcDb::kForRead);
            if (block.openStatus() == Acad::eOk && block->isFromExternalReference())
                xrefs.push_back(id);
        }
    }
    for (AcDbObjectId id : xrefs)
        resolveXref(host, id);
}

} // namespace sim::db
