// Symbol tables: names looked up without regard to case but kept as spelled, duplicate names (95),
// erased records, iteration, anonymous blocks, and the default drawing's records.
#include "DbFixture.h"

using SymbolTables = DbFixture;

TEST_F(SymbolTables, DefaultDrawingHasWhatEveryDrawingNeeds)
{
    EXPECT_FALSE(db.layerZero().isNull());
    EXPECT_EQ(db.clayer(), db.layerZero());
    EXPECT_FALSE(db.continuousLinetype().isNull());
    EXPECT_FALSE(db.byLayerLinetype().isNull());
    EXPECT_FALSE(db.byBlockLinetype().isNull());
    EXPECT_EQ(db.celtype(), db.byLayerLinetype());
    EXPECT_EQ(db.insunits(), AcDb::kUnitsMillimeters);
    AcDbTextStyleTablePointer styles(&db);
    EXPECT_TRUE(styles->has(L"Standard"));
    styles.close();
    AcDbDimStyleTablePointer dims(&db);
    EXPECT_TRUE(dims->has(L"Standard"));
    dims.close();
    AcDbRegAppTablePointer apps(&db);
    EXPECT_TRUE(apps->has(L"ACAD"));
    apps.close();
    AcDbBlockTablePointer blocks(&db);
    EXPECT_TRUE(blocks->has(ACDB_MODEL_SPACE));
    EXPECT_TRUE(blocks->has(ACDB_PAPER_SPACE));
    blocks.close();
    EXPECT_EQ(db.currentSpaceId(), AcDbBlockTableRecordPointer(ACDB_MODEL_SPACE, &db)->objectId());
    for (const ACHAR* key : {L"ACAD_GROUP", L"ACAD_LAYOUT", L"ACAD_MLEADERSTYLE", L"ACAD_TABLESTYLE", L"ACAD_SCALELIST"}) {
        AcDbDictionaryPointer nod(db.namedObjectsDictionaryId());
        EXPECT_TRUE(nod->has(key)) << key;
    }
    ACHAR* guid = nullptr;
    db.getFingerprintGuid(guid);
    EXPECT_EQ(std::wcslen(guid), 38u);
    ACHAR* other = nullptr;
    AcDbDatabase second;
    second.getFingerprintGuid(other);
    EXPECT_STRNE(guid, other);
    acutDelString(guid);
    acutDelString(other);
    // The handle seed stays above every handle.
    AcDbObjectId id = addLine(0, 0, 1, 0);
    EXPECT_GT(db.handseed().value(), id.handle().value());
    EXPECT_EQ(db.setHandseed(id.handle()), Acad::eInvalidInput);
}

TEST_F(SymbolTables, LookupIgnoresCaseAndKeepsSpelling)
{
    AcDbObjectId id = addLayer(L"ZT-voda_SV");
    AcDbLayerTablePointer table(&db);
    AcDbObjectId found;
    ASSERT_EQ(table->getAt(L"zt-VODA_sv", found), Acad::eOk);
    EXPECT_EQ(found, id);
    EXPECT_TRUE(table->has(L"ZT-VODA_SV"));
    EXPECT_TRUE(table->has(id));
    EXPECT_EQ(table->getAt(L"ZT-voda", found), Acad::eKeyNotFound);
    EXPECT_TRUE(found.isNull());
    // Czech letters fold too.
    AcDbLayerTableRecord* rec = nullptr;
    table.close();
    AcDbObjectId kóty = addLayer(L"AB_kóty");
    AcDbLayerTablePointer again(&db);
    ASSERT_EQ(again->getAt(L"ab_KÓTY", rec, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(rec->objectId(), kóty);
    AcString name;
    rec->getName(name);
    EXPECT_EQ(name, L"AB_kóty");
    rec->close();
}

TEST_F(SymbolTables, DuplicateNamesAnswer95)
{
    AcDbObjectId first = addLayer(L"Trubky");
    AcDbObjectId second = addLayer(L"Kóty");

    AcDbLayerTablePointer table(&db, AcDb::kForWrite);
    auto* dup = new AcDbLayerTableRecord;
    dup->setName(L"TRUBKY");
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, dup), Acad::eDuplicateRecordName);
    EXPECT_EQ(static_cast<int>(Acad::eDuplicateRecordName), 95);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(dup->database(), nullptr); // still the caller's
    delete dup;
    table.close();

    // A rename onto a name of the table fails and leaves the name; out of a database it is not checked.
    AcDbLayerTableRecordPointer rec(second, AcDb::kForWrite);
    EXPECT_EQ(rec->setName(L"trubky"), Acad::eDuplicateRecordName);
    AcString name;
    rec->getName(name);
    EXPECT_EQ(name, L"Kóty");
    EXPECT_EQ(rec->setName(L"KÓTY"), Acad::eOk); // its own name in another case
    EXPECT_EQ(rec->setName(L"a/b"), Acad::eInvalidSymbolTableName);
    rec.close();
    AcDbLayerTableRecord loose;
    EXPECT_EQ(loose.setName(L"Trubky"), Acad::eOk);

    // An erased record's name can be taken again.
    AcDbLayerTableRecordPointer gone(first, AcDb::kForWrite);
    gone->erase();
    gone.close();
    AcDbObjectId reborn = addLayer(L"Trubky");
    AcDbLayerTablePointer t2(&db);
    AcDbObjectId found;
    t2->getAt(L"trubky", found);
    EXPECT_EQ(found, reborn);
    t2->getAt(L"trubky", found, true);
    EXPECT_EQ(found, reborn);
}

TEST_F(SymbolTables, IteratorSkipsErasedUnlessAsked)
{
    addLayer(L"A");
    AcDbObjectId b = addLayer(L"B");
    addLayer(L"C");
    {
        AcDbLayerTableRecordPointer rec(b, AcDb::kForWrite);
        rec->erase();
    }
    auto names = [&](bool skipDeleted) {
        std::wstring all;
        AcDbLayerTablePointer table(&db);
        AcDbLayerTableIterator* it = nullptr;
        table->newIterator(it, true, skipDeleted);
        for (; !it->done(); it->step(true, skipDeleted)) {
            AcDbLayerTableRecord* rec = nullptr;
            EXPECT_EQ(it->getRecord(rec, AcDb::kForRead, true), Acad::eOk);
            const ACHAR* n = nullptr;
            rec->getName(n);
            all += n;
            rec->close();
        }
        delete it;
        return all;
    };
    EXPECT_EQ(names(true), L"0AC");
    EXPECT_EQ(names(false), L"0ABC");
}

TEST_F(SymbolTables, RecordsOfTheWrongKindAndAnonymousBlocks)
{
    AcDbBlockTablePointer blocks(&db, AcDb::kForWrite);
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(L"X");
    EXPECT_EQ(static_cast<AcDbSymbolTable*>(blocks.object())->add(layer), Acad::eWrongObjectType);
    delete layer;

    AcDbObjectId u1, u2;
    auto* b1 = new AcDbBlockTableRecord;
    b1->setName(L"*U");
    ASSERT_EQ(blocks->add(u1, b1), Acad::eOk);
    auto* b2 = new AcDbBlockTableRecord;
    b2->setName(L"*U");
    ASSERT_EQ(blocks->add(u2, b2), Acad::eOk);
    AcString n1, n2;
    b1->getName(n1);
    b2->getName(n2);
    EXPECT_EQ(n1, L"*U1");
    EXPECT_EQ(n2, L"*U2");
    EXPECT_TRUE(b1->isAnonymous());
    EXPECT_FALSE(b1->isLayout());
    b1->close();
    b2->close();

    // A shape file style needs no name of its own; other records do.
    AcDbTextStyleTablePointer styles(&db, AcDb::kForWrite);
    auto* shx = new AcDbTextStyleTableRecord;
    shx->setFileName(L"C:\\Togu\\LIN\\TG_IS.shx");
    shx->setIsShapeFile(true);
    EXPECT_EQ(styles->add(shx), Acad::eOk);
    shx->close();
    auto* nameless = new AcDbTextStyleTableRecord;
    EXPECT_EQ(styles->add(nameless), Acad::eInvalidSymbolTableName);
    delete nameless;
}

TEST_F(SymbolTables, EntitiesTakeLayersByNameOrId)
{
    AcDbObjectId layer = addLayer(L"Trubky");
    auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0));
    EXPECT_EQ(line->setLayer(L"trubky"), Acad::eOk);
    EXPECT_EQ(line->layerId(), layer);
    EXPECT_EQ(line->setLayer(L"nic"), Acad::eKeyNotFound);
    EXPECT_EQ(line->setLayer(db.continuousLinetype()), Acad::eWrongObjectType);
    EXPECT_EQ(line->layerId(), layer);
    ACHAR* name = line->layer();
    EXPECT_STREQ(name, L"Trubky");
    acutDelString(name);
    EXPECT_EQ(line->setLinetype(L"CONTINUOUS"), Acad::eOk);
    AcDbObjectId id = addToModel(line);

    // An entity without a layer takes the current one when appended.
    auto* bare = new AcDbCircle(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, 5);
    AcDbObjectId bareId = addToModel(bare);
    AcDbObjectPointer<AcDbCircle> circle(bareId);
    EXPECT_EQ(circle->layerId(), db.layerZero());
    EXPECT_EQ(circle->linetypeId(), db.byLayerLinetype());
    EXPECT_EQ(circle->blockId(), db.currentSpaceId());
    EXPECT_EQ(AcDbObjectId(id).objectClass(), AcDbLine::desc());
}

TEST_F(SymbolTables, DimensionStyleKeepsWhatWasSet)
{
    auto* rec = new AcDbDimStyleTableRecord;
    rec->setName(L"TG_VODA1");
    AcCmColor byBlock;
    byBlock.setColorIndex(0);
    rec->setDimclrt(byBlock);
    rec->setDimgap(0.63);
    rec->setDimdsep(L'.');
    rec->setDimtofl(true);
    rec->setDimblk(L"_DOT");
    rec->setDimpost(L"<> mm");
    EXPECT_TRUE(rec->dimclrt().isByBlock());
    EXPECT_DOUBLE_EQ(rec->dimgap(), 0.63);
    EXPECT_EQ(rec->dimdsep(), L'.');
    EXPECT_TRUE(rec->dimtofl());
    EXPECT_TRUE(rec->dimtih()); // never set: the host's default
    // A predefined arrow gets the host's block; a name without a block is refused.
    EXPECT_STREQ(rec->dimblkName(), L"_Dot");
    AcDbBlockTableRecordPointer dot(L"_Dot", &db);
    ASSERT_EQ(dot.openStatus(), Acad::eOk);
    EXPECT_EQ(rec->dimblk(), dot->objectId());
    EXPECT_EQ(rec->setDimblk(L"NoSuchBlock"), Acad::eKeyNotFound);
    EXPECT_EQ(rec->dimblk(), dot->objectId());
    EXPECT_EQ(rec->setDimblk(L"oblique"), Acad::eOk);
    EXPECT_STREQ(rec->dimblkName(), L"_Oblique");
    EXPECT_EQ(rec->setDimblk(L""), Acad::eOk);
    EXPECT_TRUE(rec->dimblk().isNull());
    EXPECT_STREQ(rec->dimpost(), L"<> mm");
    AcDbDimStyleTablePointer table(&db, AcDb::kForWrite);
    ASSERT_EQ(table->add(rec), Acad::eOk);
    rec->close();
}
