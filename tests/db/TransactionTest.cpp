// Transactions: objects got through them close at the end; an abort restores what was changed, added
// or erased since the start (also through direct opens); an inner end hands its record to the outer.
#include "DbFixture.h"
#include "sim/db/Transactions.h"

class Transactions : public DbFixture {
protected:
    AcDbTransactionManager* tm = db.transactionManager();

    AcGePoint3d endOf(AcDbObjectId id)
    {
        AcDbObjectPointer<AcDbLine> line(id);
        EXPECT_EQ(line.openStatus(), Acad::eOk);
        return line->endPoint();
    }

    void moveEnd(AcDbObjectId id, double x)
    {
        AcDbObject* obj = nullptr;
        ASSERT_EQ(tm->getObject(obj, id, AcDb::kForWrite), Acad::eOk);
        ASSERT_EQ(AcDbLine::cast(obj)->setEndPoint(AcGePoint3d(x, 0, 0)), Acad::eOk);
    }
};

TEST_F(Transactions, EndClosesWhatTheTransactionOpened)
{
    AcDbObjectId id = addLine(0, 0, 10, 0);
    tm->startTransaction();
    EXPECT_EQ(tm->numActiveTransactions(), 1);
    AcDbObject* viaRead = nullptr;
    ASSERT_EQ(tm->getObject(viaRead, id, AcDb::kForRead), Acad::eOk);
    moveEnd(id, 20);
    // A direct opener gets in beside the transaction's write hold, as code that mixes both needs.
    AcDbObject* direct = nullptr;
    EXPECT_EQ(acdbOpenObject(direct, id, AcDb::kForRead), Acad::eOk);
    direct->close();
    viaRead->close(); // harmless on an object of a transaction
    ASSERT_EQ(tm->endTransaction(), Acad::eOk);
    EXPECT_EQ(tm->numActiveTransactions(), 0);
    EXPECT_EQ(tm->endTransaction(), Acad::eNoActiveTransactions);
    ASSERT_EQ(acdbOpenObject(direct, id, AcDb::kForWrite), Acad::eOk);
    direct->close();
    EXPECT_EQ(endOf(id), AcGePoint3d(20, 0, 0));
}

TEST_F(Transactions, DirectWriterBlocksTheTransaction)
{
    AcDbObjectId id = addLine(0, 0, 10, 0);
    AcDbObject* direct = nullptr;
    ASSERT_EQ(acdbOpenObject(direct, id, AcDb::kForWrite), Acad::eOk);
    tm->startTransaction();
    AcDbObject* obj = nullptr;
    EXPECT_EQ(tm->getObject(obj, id, AcDb::kForRead), Acad::eWasOpenForWrite);
    tm->endTransaction();
    direct->close();
    ASSERT_EQ(acdbOpenObject(direct, id, AcDb::kForRead), Acad::eOk);
    tm->startTransaction();
    EXPECT_EQ(tm->getObject(obj, id, AcDb::kForWrite), Acad::eWasOpenForRead);
    tm->abortTransaction();
    direct->close();
}

TEST_F(Transactions, AbortRestoresChangedAddedAndErasedObjects)
{
    AcDbObjectId kept = addLine(0, 0, 10, 0);
    AcDbObjectId doomed = addLine(0, 0, 5, 0);
    AcDbObjectId layer = addLayer(L"Trubky");
    db.setLtscale(1.0);

    tm->startTransaction();
    moveEnd(kept, 99);
    AcDbObject* obj = nullptr;
    ASSERT_EQ(tm->getObject(obj, doomed, AcDb::kForWrite), Acad::eOk);
    ASSERT_EQ(obj->erase(), Acad::eOk);
    AcDbObjectId added = addLine(1, 1, 2, 2);
    // A direct open inside the transaction is covered too.
    {
        AcDbLayerTableRecordPointer rec(layer, AcDb::kForWrite);
        ASSERT_EQ(rec->setName(L"Přejmenovaná"), Acad::eOk);
        rec->setIsLocked(true);
    }
    AcDbObjectId newLayer = addLayer(L"Nová");
    db.setLtscale(50.0);
    ASSERT_EQ(tm->abortTransaction(), Acad::eOk);

    EXPECT_EQ(endOf(kept), AcGePoint3d(10, 0, 0));
    EXPECT_FALSE(doomed.isErased());
    EXPECT_FALSE(added.isValid());
    EXPECT_FALSE(newLayer.isValid());
    EXPECT_EQ(modelEntities(), (std::vector<AcDbObjectId>{kept, doomed}));
    AcDbLayerTableRecordPointer rec(layer);
    AcString name;
    rec->getName(name);
    EXPECT_EQ(name, L"Trubky");
    EXPECT_FALSE(rec->isLocked());
    rec.close();
    AcDbLayerTablePointer table(&db);
    EXPECT_FALSE(table->has(L"Nová"));
    table.close();
    EXPECT_EQ(db.ltscale(), 1.0);
    // Everything opens again.
    AcDbObject* again = nullptr;
    ASSERT_EQ(acdbOpenObject(again, kept, AcDb::kForWrite), Acad::eOk);
    again->close();
}

TEST_F(Transactions, NestedAbortUndoesOnlyTheInnerOne)
{
    AcDbObjectId id = addLine(0, 0, 10, 0);
    tm->startTransaction();
    moveEnd(id, 20);
    tm->startTransaction();
    EXPECT_EQ(tm->numActiveTransactions(), 2);
    moveEnd(id, 30);
    AcDbObjectId inner = addLine(5, 5, 6, 6);
    ASSERT_EQ(tm->abortTransaction(), Acad::eOk);
    EXPECT_FALSE(inner.isValid());
    ASSERT_EQ(tm->endTransaction(), Acad::eOk);
    EXPECT_EQ(endOf(id), AcGePoint3d(20, 0, 0));
}

TEST_F(Transactions, EndedInnerChangesAreUndoneByTheOuterAbort)
{
    AcDbObjectId id = addLine(0, 0, 10, 0);
    tm->startTransaction();
    AcDbObjectId outerAdded = addLine(7, 7, 8, 8);
    tm->startTransaction();
    moveEnd(id, 30);
    AcDbObjectId innerAdded = addLine(5, 5, 6, 6);
    {
        AcDbObjectPointer<AcDbLine> line(outerAdded, AcDb::kForWrite);
        line->erase();
    }
    ASSERT_EQ(tm->endTransaction(), Acad::eOk);
    EXPECT_EQ(endOf(id), AcGePoint3d(30, 0, 0));
    ASSERT_EQ(tm->abortTransaction(), Acad::eOk);
    EXPECT_EQ(endOf(id), AcGePoint3d(10, 0, 0));
    EXPECT_FALSE(innerAdded.isValid());
    EXPECT_FALSE(outerAdded.isValid());
    EXPECT_EQ(modelEntities(), std::vector<AcDbObjectId>{id});
}

TEST_F(Transactions, ObjectOpenBeforeTheStartIsRestoredToo)
{
    AcDbObjectId id = addLine(0, 0, 10, 0);
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForWrite), Acad::eOk);
    tm->startTransaction();
    line->setEndPoint(AcGePoint3d(40, 0, 0));
    tm->abortTransaction();
    EXPECT_EQ(line->endPoint(), AcGePoint3d(10, 0, 0));
    line->close();
}

TEST_F(Transactions, NewObjectsHandedToTheTransactionCloseWithIt)
{
    tm->startTransaction();
    AcDbBlockTableRecord* ms = nullptr;
    AcDbObject* obj = nullptr;
    ASSERT_EQ(tm->getObject(obj, db.currentSpaceId(), AcDb::kForWrite), Acad::eOk);
    ms = AcDbBlockTableRecord::cast(obj);
    auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(3, 4, 0));
    AcDbObjectId id;
    ASSERT_EQ(ms->appendAcDbEntity(id, line), Acad::eOk);
    ASSERT_EQ(tm->addNewlyCreatedDBRObject(line), Acad::eOk);
    ASSERT_EQ(tm->endTransaction(), Acad::eOk);
    AcDbObject* again = nullptr;
    ASSERT_EQ(acdbOpenObject(again, id, AcDb::kForWrite), Acad::eOk);
    again->close();
    ASSERT_EQ(acdbOpenObject(again, db.currentSpaceId(), AcDb::kForWrite), Acad::eOk);
    again->close();
}

TEST_F(Transactions, ManagerOfTheWorkingDatabase)
{
    EXPECT_EQ(acdbTransactionManager, db.transactionManager());
    AcTransaction* t = tm->startTransaction();
    EXPECT_EQ(tm->topTransaction(), t);
    AcTransaction* inner = tm->startTransaction();
    AcDbObject* obj = nullptr;
    EXPECT_EQ(t->getObject(obj, db.layerZero(), AcDb::kForRead), Acad::eNotTopTransaction);
    EXPECT_EQ(inner->getObject(obj, db.layerZero(), AcDb::kForRead), Acad::eOk);
    tm->endTransaction();
    tm->endTransaction();
    EXPECT_EQ(tm->topTransaction(), nullptr);
    EXPECT_EQ(tm->getObject(obj, db.layerZero(), AcDb::kForRead), Acad::eNoActiveTransactions);
}

// Undo copies are taken at the first change, so a command that opens everything for write and changes
// little keeps copies of what it changed only; appending to a block record takes no copy of its list.
TEST_F(Transactions, UndoCopyIsTakenAtTheFirstChange)
{
    AcDbObjectId kept = addLine(0, 0, 10, 0);
    AcDbObjectId moved = addLine(0, 0, 10, 0);
    AcDbObjectId model;
    {
        AcDbBlockTableRecordPointer ms(ACDB_MODEL_SPACE, &db, AcDb::kForRead);
        model = ms->objectId();
    }
    tm->startTransaction();
    auto* top = static_cast<sim::db::Transaction*>(tm->topTransaction());
    AcDbObject* obj = nullptr;
    ASSERT_EQ(tm->getObject(obj, kept, AcDb::kForWrite), Acad::eOk);
    ASSERT_EQ(tm->getObject(obj, model, AcDb::kForWrite), Acad::eOk);
    EXPECT_TRUE(top->snapshots.empty());
    moveEnd(moved, 30);
    moveEnd(moved, 40);
    EXPECT_EQ(top->snapshots.size(), 1u);

    auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0));
    AcDbObjectId added;
    ASSERT_EQ(AcDbBlockTableRecord::cast(obj)->appendAcDbEntity(added, line), Acad::eOk);
    tm->addNewlyCreatedDBRObject(line);
    EXPECT_EQ(top->snapshots.count(obj), 0u);
    ASSERT_EQ(tm->abortTransaction(), Acad::eOk);

    EXPECT_EQ(endOf(moved), AcGePoint3d(10, 0, 0));
    AcDbBlockTableRecordPointer record(model, AcDb::kForRead);
    AcDbBlockTableRecordIterator* it = nullptr;
    ASSERT_EQ(record->newIterator(it), Acad::eOk);
    std::vector<AcDbObjectId> ids;
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getEntityId(id);
        ids.push_back(id);
    }
    delete it;
    EXPECT_EQ(ids, (std::vector<AcDbObjectId>{kept, moved}));
}
