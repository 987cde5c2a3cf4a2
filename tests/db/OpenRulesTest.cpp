// The host's rules for opening objects: readers and writers, erased objects, locked layers, class
// checks, and changes to objects not open for write.
#include "DbFixture.h"

using OpenRules = DbFixture;

TEST_F(OpenRules, ReadersShareAndWritersAreAlone)
{
    AcDbObjectId id = addLine(0, 0, 10, 0);
    AcDbObject *r1 = nullptr, *r2 = nullptr, *w = nullptr;
    ASSERT_EQ(acdbOpenObject(r1, id, AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(acdbOpenObject(r2, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(acdbOpenObject(w, id, AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(w, nullptr);
    EXPECT_EQ(r1->upgradeOpen(), Acad::eHadMultipleReaders);
    r2->close();
    // The last reader may become the writer; then nobody else gets in.
    ASSERT_EQ(r1->upgradeOpen(), Acad::eOk);
    EXPECT_TRUE(r1->isWriteEnabled());
    EXPECT_EQ(acdbOpenObject(r2, id, AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_EQ(acdbOpenObject(w, id, AcDb::kForWrite), Acad::eWasOpenForWrite);
    r1->close();
    ASSERT_EQ(acdbOpenObject(w, id, AcDb::kForWrite), Acad::eOk);
    w->close();
}

TEST_F(OpenRules, ChangesNeedWriteAccess)
{
    AcDbObjectId id = addLine(0, 0, 10, 0);
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(line->setEndPoint(AcGePoint3d(5, 5, 0)), Acad::eNotOpenForWrite);
    EXPECT_EQ(line->erase(), Acad::eNotOpenForWrite);
    EXPECT_EQ(line->endPoint(), AcGePoint3d(10, 0, 0));
    line->close();
    // After close, a kept pointer changes nothing either.
    EXPECT_EQ(line->setLayer(db.layerZero()), Acad::eNotOpenForWrite);
}

TEST_F(OpenRules, ErasedObjectsOpenOnlyWhenAskedFor)
{
    AcDbObjectId id = addLine(0, 0, 10, 0);
    AcDbObject* obj = nullptr;
    ASSERT_EQ(acdbOpenObject(obj, id, AcDb::kForWrite), Acad::eOk);
    ASSERT_EQ(obj->erase(), Acad::eOk);
    obj->close();
    EXPECT_TRUE(id.isErased());
    EXPECT_TRUE(id.isValid());
    EXPECT_EQ(acdbOpenObject(obj, id, AcDb::kForRead), Acad::eWasErased);
    ASSERT_EQ(acdbOpenObject(obj, id, AcDb::kForWrite, true), Acad::eOk);
    ASSERT_EQ(obj->erase(false), Acad::eOk);
    obj->close();
    EXPECT_FALSE(id.isErased());
    EXPECT_EQ(modelEntities().size(), 1u);
}

TEST_F(OpenRules, EntityOnLockedLayerOpensForReadOnly)
{
    AcDbObjectId layer = addLayer(L"zamčená", true);
    auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    ASSERT_EQ(line->setLayer(layer), Acad::eOk);
    AcDbObjectId id = addToModel(line);

    AcDbEntity* ent = nullptr;
    EXPECT_EQ(acdbOpenAcDbEntity(ent, id, AcDb::kForWrite), Acad::eOnLockedLayer);
    ASSERT_EQ(acdbOpenAcDbEntity(ent, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(ent->upgradeOpen(), Acad::eOnLockedLayer);
    ent->close();

    AcDbTransactionManager* tm = db.transactionManager();
    tm->startTransaction();
    AcDbObject* obj = nullptr;
    EXPECT_EQ(tm->getObject(obj, id, AcDb::kForWrite), Acad::eOnLockedLayer);
    tm->endTransaction();

    AcDbLayerTableRecordPointer rec(layer, AcDb::kForWrite);
    rec->setIsLocked(false);
    rec.close();
    ASSERT_EQ(acdbOpenAcDbEntity(ent, id, AcDb::kForWrite), Acad::eOk);
    ent->close();
}

TEST_F(OpenRules, ClassCheckedOpenLeavesTheObjectClosed)
{
    AcDbObjectId id = addLine(0, 0, 10, 0);
    AcDbCircle* circle = nullptr;
    EXPECT_EQ(acdbOpenObject(circle, id, AcDb::kForWrite), Acad::eNotThatKindOfClass);
    EXPECT_EQ(circle, nullptr);
    AcDbCurve* curve = nullptr;
    ASSERT_EQ(acdbOpenObject(curve, id, AcDb::kForWrite), Acad::eOk);
    curve->close();
    AcDbEntity* ent = nullptr;
    EXPECT_EQ(acdbOpenAcDbEntity(ent, db.layerZero(), AcDb::kForRead), Acad::eNotAnEntity);

    AcDbObjectPointer<AcDbCircle> p(id, AcDb::kForRead);
    EXPECT_EQ(p.openStatus(), Acad::eNotThatKindOfClass);
    AcDbObject* obj = nullptr;
    EXPECT_EQ(acdbOpenObject(obj, AcDbObjectId::kNull, AcDb::kForRead), Acad::eNullObjectId);
    EXPECT_EQ(acdbOpenObject(obj, AcDbObjectId(&db, AcDbHandle(0xFFFFFF)), AcDb::kForRead), Acad::eUnknownHandle);
}

TEST_F(OpenRules, SmartPointerClosesAndDeletesWhatIsNotInTheDatabase)
{
    AcDbObjectId id = addLine(0, 0, 10, 0);
    {
        AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
        ASSERT_EQ(line.openStatus(), Acad::eOk);
        line->setEndPoint(AcGePoint3d(20, 0, 0));
    }
    AcDbObjectPointer<AcDbLine> again(id, AcDb::kForWrite);
    ASSERT_EQ(again.openStatus(), Acad::eOk);
    EXPECT_EQ(again->endPoint(), AcGePoint3d(20, 0, 0));

    AcDbObjectPointer<AcDbCircle> fresh;
    fresh.create();
    EXPECT_EQ(fresh.openStatus(), Acad::eOk);
    EXPECT_TRUE(fresh->isWriteEnabled());
    // Going out of scope deletes it: the sanitizer build would catch a leak.
}

TEST_F(OpenRules, AdsNamesRoundTrip)
{
    AcDbObjectId id = addLine(0, 0, 1, 1);
    ads_name name;
    ASSERT_EQ(acdbGetAdsName(name, id), Acad::eOk);
    AcDbObjectId back;
    ASSERT_EQ(acdbGetObjectId(back, name), Acad::eOk);
    EXPECT_EQ(back, id);
    ads_name bogus = {0x7FFFFF, reinterpret_cast<Adesk::LongPtr>(&db)};
    EXPECT_NE(acdbGetObjectId(back, bogus), Acad::eOk);
    EXPECT_TRUE(back.isNull());
}

// Deleting an object of the database instead of closing it is a mistake the platform survives: the
// object leaves the database, its id no longer opens, and the rest of the drawing goes on working.
TEST_F(OpenRules, ObjectDeletedWhileInTheDatabaseLeavesIt)
{
    AcDbObjectId gone = addLine(0, 0, 10, 0);
    AcDbObjectId kept = addLine(0, 0, 20, 0);
    AcDbObject* obj = nullptr;
    ASSERT_EQ(acdbOpenObject(obj, gone, AcDb::kForWrite), Acad::eOk);
    testing::internal::CaptureStderr();
    delete obj;
    EXPECT_NE(testing::internal::GetCapturedStderr().find("deleted instead of closed"), std::string::npos);
    EXPECT_NE(acdbOpenObject(obj, gone, AcDb::kForRead), Acad::eOk);
    AcDbObjectPointer<AcDbLine> line(kept, AcDb::kForWrite);
    ASSERT_EQ(line.openStatus(), Acad::eOk);
    EXPECT_EQ(line->setEndPoint(AcGePoint3d(30, 0, 0)), Acad::eOk);
}
