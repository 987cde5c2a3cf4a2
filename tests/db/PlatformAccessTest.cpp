// What the drawing-file module does with a database: objects under given handles linked to their
// owners, every object in handle order, objects kept as raw groups, and the handle seed.
#include "DbFixture.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/ImpObject.h"
#include "sim/db/UnknownObject.h"

TEST(PlatformAccess, ReaderBuildsADatabaseUnderItsOwnHandles)
{
    AcDbDatabase db(false, true);
    AcDbObjectId blocks, ms, line, nod, layout, dup;
    // Owners may be named before they exist: ids are handles.
    ASSERT_EQ(sim::db::addObject(&db, new AcDbBlockTable, AcDbHandle(0x1), AcDbObjectId::kNull, blocks), Acad::eOk);
    auto* btr = new AcDbBlockTableRecord;
    btr->setName(ACDB_MODEL_SPACE);
    ASSERT_EQ(sim::db::addObject(&db, btr, AcDbHandle(0x1F), blocks, ms), Acad::eOk);
    sim::db::link(sim::db::objectAt(&db, AcDbHandle(0x1)), ms);
    ASSERT_EQ(sim::db::addObject(&db, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)), AcDbHandle(0x2A), ms, line),
              Acad::eOk);
    sim::db::link(btr, line);
    ASSERT_EQ(sim::db::addObject(&db, new AcDbDictionary, AcDbHandle(0xC), AcDbObjectId::kNull, nod), Acad::eOk);
    auto* unknown = new sim::db::UnknownObject(L"LAYOUT", {{100, "AcDbLayout"}, {1, "Model"}});
    ASSERT_EQ(sim::db::addObject(&db, unknown, AcDbHandle(0x22), nod, layout), Acad::eOk);
    sim::db::link(sim::db::objectAt(&db, AcDbHandle(0xC)), layout, L"ACAD_LAYOUT");
    auto* clash = new AcDbLine;
    EXPECT_EQ(sim::db::addObject(&db, clash, AcDbHandle(0x2A), ms, dup), Acad::eHandleExists);
    delete clash; // still the caller's

    EXPECT_EQ(db.blockTableId(), blocks);
    EXPECT_EQ(db.namedObjectsDictionaryId(), nod);
    EXPECT_EQ(db.handseed().value(), 0x2Bu);
    EXPECT_EQ(db.currentSpaceId(), ms);
    AcDbObjectId found;
    {
        AcDbDictionaryPointer dict(nod);
        ASSERT_EQ(dict->getAt(L"acad_layout", found), Acad::eOk);
    }
    EXPECT_EQ(found, layout);
    EXPECT_EQ(sim::db::dxfName(sim::db::objectAt(&db, layout.handle())), L"LAYOUT");
    EXPECT_EQ(sim::db::dxfName(sim::db::objectAt(&db, line.handle())), L"LINE");

    // Objects added by the reader are closed and open normally.
    AcDbObjectPointer<AcDbLine> l(line, AcDb::kForWrite);
    ASSERT_EQ(l.openStatus(), Acad::eOk);
    EXPECT_EQ(l->blockId(), ms);
    l.close();

    std::vector<Adesk::UInt64> handles;
    sim::db::forEachObject(&db, [&](AcDbObject* o) { handles.push_back(o->objectId().handle().value()); });
    EXPECT_EQ(handles, (std::vector<Adesk::UInt64>{0x1, 0xC, 0x1F, 0x22, 0x2A}));

    // New objects continue above the highest handle.
    AcDbObjectId next;
    ASSERT_EQ(db.addAcDbObject(next, new AcDbXrecord), Acad::eOk);
    EXPECT_EQ(next.handle().value(), 0x2Bu);
    AcDbObjectPointer<AcDbXrecord> x(next);
}

TEST(PlatformAccess, PreservedGroupsAndRawObjectsTravelWithClones)
{
    auto* raw = new sim::db::UnknownEntity(L"HATCH", {{100, "AcDbHatch"}, {2, "SOLID"}});
    sim::db::impOf(raw)->preservedTags = {{1001, "ACAD"}};
    std::unique_ptr<AcDbObject> copy(static_cast<AcDbObject*>(raw->clone()));
    auto* c = sim::db::UnknownEntity::cast(copy.get());
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(c->recordName, L"HATCH");
    EXPECT_EQ(c->tags.size(), 2u);
    EXPECT_EQ(sim::db::impOf(c)->preservedTags, (sim::db::RawTags{{1001, "ACAD"}}));
    EXPECT_TRUE(c->objectId().isNull());
    delete raw;
}

TEST(PlatformAccess, AbortBringsBackAReplacedDictionaryEntry)
{
    AcDbDatabase db;
    AcDbObjectId first;
    {
        AcDbDictionaryPointer nod(db.namedObjectsDictionaryId(), AcDb::kForWrite);
        auto* x = new AcDbXrecord;
        ASSERT_EQ(nod->setAt(L"KLIC", x, first), Acad::eOk);
        x->close();
    }
    AcDbTransactionManager* tm = db.transactionManager();
    tm->startTransaction();
    AcDbObjectId second;
    {
        AcDbDictionaryPointer nod(db.namedObjectsDictionaryId(), AcDb::kForWrite);
        auto* x = new AcDbXrecord;
        ASSERT_EQ(nod->setAt(L"klic", x, second), Acad::eOk);
        // A pointer kept past the abort stays harmless; a smart pointer closes it, never deletes it.
        AcDbObjectPointer<AcDbXrecord> held;
        held.acquire(x);
        tm->abortTransaction();
        EXPECT_FALSE(held->isWriteEnabled());
        EXPECT_FALSE(held->objectId().isValid());
    }
    EXPECT_FALSE(first.isErased());
    EXPECT_FALSE(second.isValid());
    AcDbDictionaryPointer nod(db.namedObjectsDictionaryId());
    AcDbObjectId found;
    nod->getAt(L"KLIC", found);
    EXPECT_EQ(found, first);
}
