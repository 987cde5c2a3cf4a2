// Dictionaries and xrecords: the drawing store's layout round trip, replacement of a key, keys
// without regard to case, removal, iteration, extension dictionaries and extended data.
#include "DbFixture.h"

class Dictionaries : public DbFixture {
protected:
    /// Stores a chain under key in the dictionary "TOGUTILS" of the named objects dictionary.
    AcDbObjectId store(const ACHAR* key, resbuf* chain)
    {
        AcDbDictionary* nod = nullptr;
        EXPECT_EQ(db.getNamedObjectsDictionary(nod, AcDb::kForWrite), Acad::eOk);
        AcDbDictionary* mine = nullptr;
        AcDbObjectId mineId;
        if (nod->getAt(L"TOGUTILS", mineId) == Acad::eOk) {
            EXPECT_EQ(acdbOpenObject(mine, mineId, AcDb::kForWrite), Acad::eOk);
        } else {
            mine = new AcDbDictionary;
            EXPECT_EQ(nod->setAt(L"TOGUTILS", mine, mineId), Acad::eOk);
        }
        nod->close();
        auto* xrec = new AcDbXrecord;
        AcDbObjectId id;
        EXPECT_EQ(mine->setAt(key, xrec, id), Acad::eOk);
        mine->close();
        EXPECT_EQ(xrec->setFromRbChain(*chain), Acad::eOk);
        acutRelRb(chain);
        xrec->close();
        return id;
    }

    resbuf* load(const ACHAR* key)
    {
        AcDbDictionaryPointer nod(db.namedObjectsDictionaryId());
        AcDbObjectId mineId, id;
        if (nod->getAt(L"togutils", mineId) != Acad::eOk)
            return nullptr;
        AcDbDictionaryPointer mine(mineId);
        if (mine->getAt(key, id) != Acad::eOk)
            return nullptr;
        AcDbObjectPointer<AcDbXrecord> xrec(id);
        resbuf* rb = nullptr;
        EXPECT_EQ(xrec->rbChain(rb), Acad::eOk);
        return rb;
    }
};

TEST_F(Dictionaries, XrecordChainRoundTripsAsACopy)
{
    ads_point pt = {1.5, 2.5, 3.5};
    store(L"DlgKacena_ZBOD", acutBuildList(10, pt, 1, L"Kóta ±0,000", 90, 42, 40, 2.25, 70, 2, 0));
    resbuf* rb = load(L"dlgkacena_zbod");
    ASSERT_NE(rb, nullptr);
    EXPECT_EQ(rb->restype, 10);
    EXPECT_DOUBLE_EQ(rb->resval.rpoint[2], 3.5);
    resbuf* s = rb->rbnext;
    EXPECT_STREQ(s->resval.rstring, L"Kóta ±0,000");
    EXPECT_EQ(s->rbnext->resval.rlong, 42);
    EXPECT_DOUBLE_EQ(s->rbnext->rbnext->resval.rreal, 2.25);
    EXPECT_EQ(s->rbnext->rbnext->rbnext->resval.rint, 2);
    // The caller's copy is its own: changing it leaves the stored chain.
    s->resval.rstring[0] = L'X';
    acutRelRb(rb);
    rb = load(L"DlgKacena_ZBOD");
    EXPECT_STREQ(rb->rbnext->resval.rstring, L"Kóta ±0,000");
    acutRelRb(rb);
    EXPECT_EQ(load(L"nothing"), nullptr);
}

TEST_F(Dictionaries, SecondWriteOfAKeyReplacesAndErasesTheFirst)
{
    AcDbObjectId first = store(L"PREDPONA", acutBuildList(1, L"AB", 0));
    AcDbObjectId second = store(L"predpona", acutBuildList(1, L"CD", 0));
    EXPECT_NE(first, second);
    EXPECT_TRUE(first.isErased());
    resbuf* rb = load(L"PREDPONA");
    EXPECT_STREQ(rb->resval.rstring, L"CD");
    acutRelRb(rb);
    AcDbDictionaryPointer nod(db.namedObjectsDictionaryId());
    AcDbObjectId mineId;
    nod->getAt(L"TOGUTILS", mineId);
    AcDbDictionaryPointer mine(mineId);
    EXPECT_EQ(mine->numEntries(), 1u);
    AcString key;
    mine->nameAt(second, key);
    EXPECT_EQ(key, L"PREDPONA"); // the first spelling stays
}

TEST_F(Dictionaries, RemoveIterateAndRename)
{
    AcDbObjectId b = store(L"B", acutBuildList(90, 2, 0));
    store(L"a", acutBuildList(90, 1, 0));
    store(L"C", acutBuildList(90, 3, 0));
    AcDbDictionaryPointer nod(db.namedObjectsDictionaryId());
    AcDbObjectId mineId;
    nod->getAt(L"TOGUTILS", mineId);
    nod.close();
    AcDbDictionaryPointer mine(mineId, AcDb::kForWrite);
    auto keys = [&](AcRx::DictIterType type) {
        std::wstring all;
        AcDbDictionaryIterator* it = mine->newIterator(type);
        for (; !it->done(); it->next())
            all += it->name();
        delete it;
        return all;
    };
    EXPECT_EQ(keys(AcRx::kDictCollated), L"BaC");
    EXPECT_EQ(keys(AcRx::kDictSorted), L"aBC");
    EXPECT_EQ(mine->setName(L"a", L"c"), Acad::eDuplicateKey);
    EXPECT_EQ(mine->setName(L"a", L"A"), Acad::eOk);
    AcDbObjectId removed;
    ASSERT_EQ(mine->remove(L"b", removed), Acad::eOk);
    EXPECT_EQ(removed, b);
    EXPECT_FALSE(removed.isErased());
    EXPECT_EQ(mine->remove(L"b"), Acad::eKeyNotFound);
    EXPECT_EQ(keys(AcRx::kDictCollated), L"AC");
    AcDbObjectPointer<AcDbXrecord> loose(removed);
    EXPECT_TRUE(loose->ownerId().isNull());
}

TEST_F(Dictionaries, WritesNeedTheDictionaryOpenForWrite)
{
    AcDbDictionary* nod = nullptr;
    ASSERT_EQ(db.getNamedObjectsDictionary(nod, AcDb::kForRead), Acad::eOk);
    auto* x = new AcDbXrecord;
    AcDbObjectId id;
    EXPECT_EQ(nod->setAt(L"X", x, id), Acad::eNotOpenForWrite);
    EXPECT_EQ(x->database(), nullptr);
    delete x;
    EXPECT_EQ(nod->remove(L"ACAD_GROUP"), Acad::eNotOpenForWrite);
    nod->close();
    AcDbDictionary loose;
    auto* y = new AcDbXrecord;
    EXPECT_EQ(loose.setAt(L"Y", y, id), Acad::eNoDatabase);
    delete y;
}

TEST_F(Dictionaries, ExtensionDictionaryAndExtendedData)
{
    AcDbObjectId id = addLine(0, 0, 1, 0);
    AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
    ASSERT_EQ(line->createExtensionDictionary(), Acad::eOk);
    EXPECT_EQ(line->createExtensionDictionary(), Acad::eAlreadyInDb);
    AcDbObjectId ext = line->extensionDictionary();
    {
        AcDbDictionaryPointer dict(ext);
        EXPECT_EQ(dict->ownerId(), id);
    }

    resbuf* xd = acutBuildList(AcDb::kDxfRegAppName, L"TOGU", AcDb::kDxfXdAsciiString, L"jedna",
                               AcDb::kDxfXdInteger16, 7, AcDb::kDxfRegAppName, L"JINA", AcDb::kDxfXdReal, 1.5, 0);
    ASSERT_EQ(line->setXData(xd), Acad::eOk);
    acutRelRb(xd);
    resbuf* mine = line->xData(L"togu");
    ASSERT_NE(mine, nullptr);
    EXPECT_STREQ(mine->resval.rstring, L"TOGU");
    EXPECT_STREQ(mine->rbnext->resval.rstring, L"jedna");
    EXPECT_EQ(mine->rbnext->rbnext->resval.rint, 7);
    EXPECT_EQ(mine->rbnext->rbnext->rbnext, nullptr);
    acutRelRb(mine);
    // An application named without values loses its data; the others keep theirs.
    resbuf* clear = acutBuildList(AcDb::kDxfRegAppName, L"TOGU", 0);
    ASSERT_EQ(line->setXData(clear), Acad::eOk);
    acutRelRb(clear);
    EXPECT_EQ(line->xData(L"TOGU"), nullptr);
    resbuf* all = line->xData();
    ASSERT_NE(all, nullptr);
    EXPECT_STREQ(all->resval.rstring, L"JINA");
    acutRelRb(all);
    resbuf* bad = acutBuildList(1000, L"bez aplikace", 0);
    EXPECT_EQ(line->setXData(bad), Acad::eInvalidResBuf);
    acutRelRb(bad);
}
