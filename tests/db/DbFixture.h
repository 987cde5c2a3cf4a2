// A fresh default drawing as the working database, and small helpers to put objects into it.
#pragma once
#include <gtest/gtest.h>

#include "arxHeaders.h"

class DbFixture : public ::testing::Test {
protected:
    void SetUp() override { acdbHostApplicationServices()->setWorkingDatabase(&db); }
    void TearDown() override { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }

    /// Appends an entity to model space and closes it.
    AcDbObjectId addToModel(AcDbEntity* ent)
    {
        AcDbBlockTableRecordPointer ms(ACDB_MODEL_SPACE, &db, AcDb::kForWrite);
        EXPECT_EQ(ms.openStatus(), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(ms->appendAcDbEntity(id, ent), Acad::eOk);
        ent->close();
        return id;
    }

    AcDbObjectId addLine(double x1, double y1, double x2, double y2)
    {
        return addToModel(new AcDbLine(AcGePoint3d(x1, y1, 0), AcGePoint3d(x2, y2, 0)));
    }

    /// Adds a layer and closes it.
    AcDbObjectId addLayer(const ACHAR* name, bool locked = false)
    {
        AcDbLayerTablePointer table(&db, AcDb::kForWrite);
        auto* rec = new AcDbLayerTableRecord;
        EXPECT_EQ(rec->setName(name), Acad::eOk);
        rec->setIsLocked(locked);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, rec), Acad::eOk);
        rec->close();
        return id;
    }

    /// The ids of model space's entities, erased ones passed over.
    std::vector<AcDbObjectId> modelEntities()
    {
        std::vector<AcDbObjectId> ids;
        AcDbBlockTableRecordPointer ms(ACDB_MODEL_SPACE, &db, AcDb::kForRead);
        AcDbBlockTableRecordIterator* it = nullptr;
        ms->newIterator(it);
        for (; !it->done(); it->step()) {
            AcDbObjectId id;
            it->getEntityId(id);
            ids.push_back(id);
        }
        delete it;
        return ids;
    }

    AcDbDatabase db;
};
