// The standard lists of annotation scales, scales on annotative entities, and the removal of the
// scales the drawing can let go.
#include <set>

#include "CTogAnno.h"
#include "CTogException.h"
#include "StandardniObjekty.h"

namespace {

std::set<std::wstring> NazvyMeritek(AcDbDatabase* db)
{
    std::set<std::wstring> nazvy;
    AcDbObjectContextCollection* kolekce =
        db->objectContextManager()->contextCollection(ACDB_ANNOTATIONSCALES_COLLECTION);
    std::unique_ptr<AcDbObjectContextCollectionIterator> it(kolekce->newIterator());
    for (it->start(); !it->done(); it->next()) {
        AcDbObjectContext* kontext = nullptr;
        if (it->getContext(kontext) != Acad::eOk)
            continue;
        AcString nazev;
        kontext->getName(nazev);
        nazvy.insert(nazev.kwszPtr());
        delete kontext;
    }
    return nazvy;
}

double JednotkyVykresu(AcDbDatabase* db, const wchar_t* nazev)
{
    std::unique_ptr<AcDbObjectContext> kontext(
        db->objectContextManager()->contextCollection(ACDB_ANNOTATIONSCALES_COLLECTION)->getContext(nazev));
    double jednotky = -1.0;
    if (auto* meritko = AcDbAnnotationScale::cast(kontext.get()))
        meritko->getDrawingUnits(jednotky);
    return jednotky;
}

/// A text in model space, left open for write.
AcDbText* PridejText(AcDbDatabase* db, AcDbObjectId& id)
{
    auto* text = new AcDbText(AcGePoint3d(0, 0, 0), L"popis", AcDbObjectId::kNull, 2.0, 0.0);
    AcDbBlockTableRecord* model = nullptr;
    if (acdbOpenObject(model, db->currentSpaceId(), AcDb::kForWrite) != Acad::eOk)
        return nullptr;
    Acad::ErrorStatus es = model->appendAcDbEntity(id, text);
    model->close();
    if (es != Acad::eOk) {
        delete text;
        return nullptr;
    }
    return text;
}

} // namespace

using Meritka = StandardniObjekty;

TEST_F(Meritka, ListsForMillimetresAndMetres)
{
    Start();
    CTogAnno::PridejMeritka(AcDb::kUnitsMillimeters);
    std::set<std::wstring> nazvy = NazvyMeritek(Db());
    for (const wchar_t* n : {L"1:5", L"1:10", L"1:20", L"1:25", L"1:50", L"1:75", L"1:100", L"1:150", L"1:200"})
        EXPECT_EQ(nazvy.count(n), 1u) << sim::toUtf8(n);
    EXPECT_DOUBLE_EQ(JednotkyVykresu(Db(), L"1:75"), 75.0);
    // Twice: the scales are there already, nothing is added and nothing fails.
    CTogAnno::PridejMeritka(AcDb::kUnitsMillimeters);
    EXPECT_EQ(NazvyMeritek(Db()), nazvy);

    CTogAnno::PridejMeritka(AcDb::kUnitsMeters);
    nazvy = NazvyMeritek(Db());
    for (const wchar_t* n : {L"1:100m", L"1:150m", L"1:200m", L"1:250m", L"1:500m", L"1:1000m", L"1:2000m"})
        EXPECT_EQ(nazvy.count(n), 1u) << sim::toUtf8(n);
    EXPECT_DOUBLE_EQ(JednotkyVykresu(Db(), L"1:1000m"), 1.0);
    EXPECT_DOUBLE_EQ(JednotkyVykresu(Db(), L"1:150m"), 0.15);
}

TEST_F(Meritka, ScaleOnAnEntityIsAddedOnce)
{
    Start();
    CTogAnno::PridejMeritka(AcDb::kUnitsMillimeters);
    AcDbObjectId id;
    AcDbText* text = PridejText(Db(), id);
    ASSERT_NE(text, nullptr);

    std::unique_ptr<AcDbObjectContext> kontext(
        Db()->objectContextManager()->contextCollection(ACDB_ANNOTATIONSCALES_COLLECTION)->getContext(L"1:50"));
    auto* meritko = AcDbAnnotationScale::cast(kontext.get());
    ASSERT_NE(meritko, nullptr);
    EXPECT_TRUE(CTogAnno::PridejMeritko(text, meritko));
    EXPECT_FALSE(CTogAnno::PridejMeritko(text, meritko));
    auto* pe = AcDbAnnotativeObjectPE::cast(text->queryX(AcDbAnnotativeObjectPE::desc()));
    ASSERT_NE(pe, nullptr);
    EXPECT_TRUE(pe->annotative(text));
    text->close();

    // An entity open only for read is refused and stays open for its caller to close.
    AcDbEntityPointer jenCteni(id);
    ASSERT_EQ(jenCteni.openStatus(), Acad::eOk);
    EXPECT_THROW(CTogAnno::PridejMeritko(jenCteni, meritko), CTogException);
    EXPECT_TRUE(jenCteni->isReadEnabled());
}

TEST_F(Meritka, RemovalKeepsTheUsedAndTheCurrentScale)
{
    Start();
    CTogAnno::PridejMeritka(AcDb::kUnitsMillimeters);
    AcDbObjectId id;
    AcDbText* text = PridejText(Db(), id);
    ASSERT_NE(text, nullptr);
    AcDbObjectContextCollection* kolekce =
        Db()->objectContextManager()->contextCollection(ACDB_ANNOTATIONSCALES_COLLECTION);
    std::unique_ptr<AcDbObjectContext> padesat(kolekce->getContext(L"1:50"));
    EXPECT_TRUE(CTogAnno::PridejMeritko(text, AcDbAnnotationScale::cast(padesat.get())));
    text->close();
    std::unique_ptr<AcDbObjectContext> dvacet(kolekce->getContext(L"1:20"));
    ASSERT_EQ(Db()->setCannoscale(AcDbAnnotationScale::cast(dvacet.get())), Acad::eOk);

    CTogAnno::SmazMeritka(Db());
    std::set<std::wstring> nazvy = NazvyMeritek(Db());
    EXPECT_EQ(nazvy.count(L"1:50"), 1u);
    EXPECT_EQ(nazvy.count(L"1:20"), 1u);
    EXPECT_EQ(nazvy.count(L"1:10"), 0u);
    EXPECT_EQ(nazvy.count(L"1:200"), 0u);
    EXPECT_THROW(CTogAnno::SmazMeritka(nullptr), CTogException);
}
