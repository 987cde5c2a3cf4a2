// Block definitions and references: attributes made from their definitions and carried by the
// reference's transform, the attribute list, erasing with the reference, and a side database inserted
// as a block.
#include <cmath>

#include "DbFixture.h"

class Blocks : public DbFixture {
protected:
    /// A block with a base point (1, 1), a line, an attribute definition and a constant one.
    AcDbObjectId makeBlock(const ACHAR* name, AcDbDatabase& target)
    {
        AcDbBlockTablePointer table(&target, AcDb::kForWrite);
        auto* btr = new AcDbBlockTableRecord;
        btr->setName(name);
        btr->setOrigin(AcGePoint3d(1, 1, 0));
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, btr), Acad::eOk);
        table.close();
        auto* def = new AcDbAttributeDefinition(AcGePoint3d(2, 1, 0), L"0.000", L"VYSKA", L"Výška");
        def->setHeight(2.5);
        EXPECT_EQ(btr->appendAcDbEntity(def), Acad::eOk);
        def->close();
        auto* konst = new AcDbAttributeDefinition(AcGePoint3d(0, 0, 0), L"K", L"KONST", L"");
        konst->setConstant(true);
        btr->appendAcDbEntity(konst);
        konst->close();
        auto* line = new AcDbLine(AcGePoint3d(1, 1, 0), AcGePoint3d(3, 1, 0));
        btr->appendAcDbEntity(line);
        line->close();
        btr->close();
        return id;
    }

    /// Inserts the block into model space with its attributes, as the system's block insertion does.
    AcDbObjectId insert(AcDbObjectId block, const ACHAR* text)
    {
        AcDbBlockTableRecordPointer ms(ACDB_MODEL_SPACE, &db, AcDb::kForWrite);
        auto* ref = new AcDbBlockReference(AcGePoint3d(100, 50, 0), block);
        ref->setRotation(M_PI / 2);
        ref->setScaleFactors(AcGeScale3d(2, 2, 2));
        AcDbObjectId refId;
        EXPECT_EQ(ms->appendAcDbEntity(refId, ref), Acad::eOk);
        AcDbBlockTableRecordPointer btr(block);
        AcDbBlockTableRecordIterator* it = nullptr;
        btr->newIterator(it);
        for (; !it->done(); it->step()) {
            AcDbEntity* ent = nullptr;
            it->getEntity(ent, AcDb::kForRead);
            if (auto* def = AcDbAttributeDefinition::cast(ent); def && !def->isConstant()) {
                auto* attr = new AcDbAttribute;
                EXPECT_EQ(attr->setAttributeFromBlock(def, ref->blockTransform()), Acad::eOk);
                attr->setTextString(text);
                EXPECT_EQ(ref->appendAttribute(attr), Acad::eOk);
                attr->close();
            }
            ent->close();
        }
        delete it;
        ref->close();
        return refId;
    }

    std::vector<AcDbObjectId> attributesOf(AcDbObjectId refId)
    {
        AcDbObjectPointer<AcDbBlockReference> ref(refId);
        std::vector<AcDbObjectId> ids;
        AcDbObjectIterator* it = ref->attributeIterator();
        for (; !it->done(); it->step())
            ids.push_back(it->objectId());
        delete it;
        return ids;
    }
};

TEST_F(Blocks, AttributesComeFromTheirDefinitionsThroughTheBlockTransform)
{
    AcDbObjectId block = makeBlock(L"ZNACKA", db);
    AcDbObjectId refId = insert(block, L"+1.250");
    auto attrs = attributesOf(refId);
    ASSERT_EQ(attrs.size(), 1u); // the constant definition gets none
    AcDbObjectPointer<AcDbAttribute> attr(attrs[0]);
    EXPECT_STREQ(attr->tagConst(), L"VYSKA");
    EXPECT_STREQ(attr->textStringConst(), L"+1.250");
    // (2, 1) less the base point (1, 1), doubled, turned a quarter, moved to (100, 50).
    EXPECT_TRUE(attr->position().isEqualTo(AcGePoint3d(100, 52, 0), AcGeTol()));
    EXPECT_NEAR(attr->height(), 5.0, 1e-12);
    EXPECT_NEAR(attr->rotation(), M_PI / 2, 1e-12);
    EXPECT_EQ(attr->ownerId(), refId);
    attr.close();

    AcDbBlockTableRecordPointer btr(block);
    EXPECT_TRUE(btr->hasAttributeDefinitions());
    AcDbObjectIdArray refs;
    btr->getBlockReferenceIds(refs);
    ASSERT_EQ(refs.length(), 1);
    EXPECT_EQ(refs[0], refId);
}

TEST_F(Blocks, MovingTheReferenceMovesItsAttributesAndErasingErasesThem)
{
    AcDbObjectId refId = insert(makeBlock(L"ZNACKA", db), L"x");
    AcDbObjectId attrId = attributesOf(refId).at(0);
    {
        AcDbObjectPointer<AcDbBlockReference> ref(refId, AcDb::kForWrite);
        ASSERT_EQ(ref->transformBy(AcGeMatrix3d::translation(AcGeVector3d(10, 0, 0))), Acad::eOk);
        EXPECT_TRUE(ref->position().isEqualTo(AcGePoint3d(110, 50, 0)));
    }
    {
        AcDbObjectPointer<AcDbAttribute> attr(attrId);
        EXPECT_TRUE(attr->position().isEqualTo(AcGePoint3d(110, 52, 0), AcGeTol()));
    }
    {
        AcDbObjectPointer<AcDbBlockReference> ref(refId, AcDb::kForWrite);
        ref->erase();
    }
    EXPECT_TRUE(attrId.isErased());
}

TEST_F(Blocks, BlockTransformRoundTrips)
{
    AcDbObjectId block = makeBlock(L"B", db);
    AcDbBlockReference ref(AcGePoint3d(5, 6, 7), block);
    ref.setRotation(0.3);
    ref.setScaleFactors(AcGeScale3d(2, 3, 4));
    AcGeMatrix3d m = ref.blockTransform();
    AcDbBlockReference other(AcGePoint3d(), block);
    ASSERT_EQ(other.setBlockTransform(m), Acad::eOk);
    EXPECT_TRUE(other.position().isEqualTo(ref.position(), AcGeTol()));
    EXPECT_NEAR(other.rotation(), 0.3, 1e-12);
    EXPECT_NEAR(other.scaleFactors().sy, 3.0, 1e-12);
    EXPECT_EQ(ref.setScaleFactors(AcGeScale3d(0, 1, 1)), Acad::eInvalidInput);
}

TEST_F(Blocks, MultiLineAttribute)
{
    AcDbObjectId attrId = attributesOf(insert(makeBlock(L"B", db), L"řádek")).at(0);
    AcDbObjectPointer<AcDbAttribute> attr(attrId, AcDb::kForWrite);
    EXPECT_FALSE(attr->isMTextAttribute());
    ASSERT_EQ(attr->convertIntoMTextAttribute(), Acad::eOk);
    EXPECT_TRUE(attr->isMTextAttribute());
    AcDbMText* m = attr->getMTextAttribute();
    ACHAR* contents = m->contents();
    EXPECT_STREQ(contents, L"řádek");
    acutDelString(contents);
    m->setContents(L"{\\fArial|b0;první}\\Pdruhý");
    ASSERT_EQ(attr->setMTextAttribute(m), Acad::eOk);
    delete m;
    EXPECT_STREQ(attr->textStringConst(), L"první\r\ndruhý");
}

TEST_F(Blocks, SideDatabaseInsertedAsBlock)
{
    AcDbDatabase side;
    {
        AcDbLayerTablePointer layers(&side, AcDb::kForWrite);
        auto* rec = new AcDbLayerTableRecord;
        rec->setName(L"kóty");
        AcCmColor red;
        red.setColorIndex(1);
        rec->setColor(red);
        layers->add(rec);
        rec->close();
    }
    AcDbObjectId inner = makeBlock(L"VNITRNI", side);
    {
        AcDbBlockTableRecordPointer ms(ACDB_MODEL_SPACE, &side, AcDb::kForWrite);
        auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
        line->setDatabaseDefaults(&side);
        line->setLayer(L"kóty");
        ms->appendAcDbEntity(line);
        line->close();
        auto* ref = new AcDbBlockReference(AcGePoint3d(5, 5, 0), inner);
        ms->appendAcDbEntity(ref);
        ref->close();
        // An anonymous block of a dimension's kind.
        auto* dim = new AcDbBlockReference(AcGePoint3d(0, 0, 0), makeBlock(L"*D", side));
        ms->appendAcDbEntity(dim);
        dim->close();
    }
    addLayer(L"KÓTY"); // this drawing's layer of that name wins

    AcDbObjectId blockId;
    ASSERT_EQ(db.insert(blockId, L"tg_kacena", &side), Acad::eOk);
    EXPECT_EQ(db.insert(blockId, L"TG_KACENA", &side), Acad::eDuplicateRecordName);
    AcDbBlockTableRecordPointer btr(L"TG_kacena", &db);
    ASSERT_EQ(btr.openStatus(), Acad::eOk);
    AcDbBlockTableRecordIterator* it = nullptr;
    btr->newIterator(it);
    std::vector<AcDbObjectId> ids;
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getEntityId(id);
        ids.push_back(id);
    }
    delete it;
    ASSERT_EQ(ids.size(), 3u);
    AcDbObjectPointer<AcDbLine> line(ids[0]);
    ASSERT_EQ(line.openStatus(), Acad::eOk);
    EXPECT_EQ(line->layerId().database(), &db);
    ACHAR* layer = line->layer();
    EXPECT_STREQ(layer, L"KÓTY");
    acutDelString(layer);
    AcDbObjectPointer<AcDbBlockReference> ref(ids[1]);
    AcDbBlockTableRecordPointer copied(ref->blockTableRecord());
    AcString name;
    copied->getName(name);
    EXPECT_EQ(name, L"VNITRNI");
    EXPECT_EQ(copied->objectId().database(), &db);
    EXPECT_TRUE(copied->hasAttributeDefinitions());

    AcDbObjectPointer<AcDbBlockReference> dim(ids[2]);
    AcDbBlockTableRecordPointer dimBlock(dim->blockTableRecord());
    dimBlock->getName(name);
    EXPECT_EQ(std::wstring(name.kwszPtr()).substr(0, 2), L"*D");
    EXPECT_TRUE(dimBlock->isAnonymous());
}
