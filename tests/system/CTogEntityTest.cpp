// CTogEntity on the platform: attributes in the definition's order with the given texts and modes,
// constants left out, ByBlock attributes on the reference's layer; the name counter of new blocks;
// dynamic properties that the block lacks passed over, a static block refused.
#include <memory>
#include <string>
#include <vector>

#include "CTogEntity.h"
#include "CTogException.h"
#include "SystemNaPlatforme.h"
#include "arxHeaders.h"
#include "dbdynblk.h"
#include "sim/db/DynamicBlock.h"

namespace {

AcDbDatabase* Db() { return acdbHostApplicationServices()->workingDatabase(); }

AcDbAttributeDefinition* Definice(const wchar_t* tag, const wchar_t* text, bool konstantni = false)
{
    auto* d = new AcDbAttributeDefinition(AcGePoint3d(1, 2, 0), text, tag, L"?", AcDbObjectId::kNull);
    d->setConstant(konstantni);
    return d;
}

/// A block of the entities; closed.
AcDbObjectId Blok(const wchar_t* nazev, std::vector<AcDbEntity*> entity)
{
    AcDbBlockTablePointer tabulka(Db(), AcDb::kForWrite);
    AcDbObjectPointer<AcDbBlockTableRecord> blok;
    blok.create();
    blok->setName(nazev);
    AcDbObjectId id;
    EXPECT_EQ(tabulka->add(id, blok.object()), Acad::eOk);
    for (AcDbEntity* e : entity) {
        EXPECT_EQ(blok->appendAcDbEntity(e), Acad::eOk);
        e->close();
    }
    return id;
}

struct Vlozeny {
    AcDbObjectId id;
    std::vector<std::pair<std::wstring, std::wstring>> atributy;
};

Vlozeny Vloz(const PopisBloku& popis)
{
    Vlozeny v;
    AcDbBlockTableRecordPointer prostor(ACDB_MODEL_SPACE, Db(), AcDb::kForWrite);
    AcDbBlockReference* ref = nullptr;
    CTogEntity::VlozBlok(v.id, ref, popis, prostor, false, false);
    EXPECT_EQ(ref, nullptr);
    AcDbObjectPointer<AcDbBlockReference> otevrena(v.id, AcDb::kForRead);
    std::unique_ptr<AcDbObjectIterator> it(otevrena->attributeIterator());
    for (; !it->done(); it->step()) {
        AcDbObjectPointer<AcDbAttribute> a(it->objectId(), AcDb::kForRead);
        v.atributy.emplace_back(a->tagConst(), a->textStringConst());
        EXPECT_TRUE(a->color().isByBlock());
        EXPECT_EQ(a->layerId(), otevrena->layerId());
    }
    return v;
}

class Entity : public SystemNaPlatforme {};

} // namespace

TEST_F(Entity, AtributyPodleDefinice)
{
    Spust();
    PopisBloku popis;
    popis.blok = Blok(L"ZNACKA", {Definice(L"A", L"a"), Definice(L"K", L"k", true), Definice(L"B", L"b")});
    popis.hladina = Db()->clayer();
    popis.pozice.set(10, 20, 0);
    popis.atributy[L"B"].text = L"x";
    popis.atributy[L"B"].horizontalni = AcDb::kTextCenter;
    popis.atributy[L"b"].text = L"tag is compared exactly";
    Vlozeny v = Vloz(popis);
    using Par = std::pair<std::wstring, std::wstring>;
    EXPECT_EQ(v.atributy, (std::vector<Par>{{L"A", L"a"}, {L"B", L"x"}}));

    AcDbObjectPointer<AcDbBlockReference> ref(v.id, AcDb::kForWrite);
    AcDbAttribute* b = nullptr;
    ASSERT_TRUE(CTogEntity::NajdiAtribut(ref, b, L"b"));
    AcDbObjectPointer<AcDbAttribute> drzeny;
    drzeny.acquire(b);
    EXPECT_TRUE(drzeny->isWriteEnabled());
    EXPECT_EQ(drzeny->horizontalMode(), AcDb::kTextCenter);
    EXPECT_TRUE(drzeny->position().isEqualTo(AcGePoint3d(11, 22, 0)));
    AcDbAttribute* zadny = nullptr;
    EXPECT_FALSE(CTogEntity::NajdiAtribut(ref, zadny, L"K"));

    // On a locked layer the attribute opens for read only: a reader still finds it.
    drzeny.close();
    auto zamkni = [](bool zamcena) {
        AcDbLayerTableRecordPointer vrstva(Db()->clayer(), AcDb::kForWrite);
        vrstva->setIsLocked(zamcena);
    };
    zamkni(true);
    EXPECT_FALSE(CTogEntity::NajdiAtribut(ref, b, L"b"));
    ASSERT_TRUE(CTogEntity::NajdiAtribut(ref, b, L"b", AcDb::kForRead));
    drzeny.acquire(b);
    EXPECT_FALSE(drzeny->isWriteEnabled());
    EXPECT_EQ(std::wstring(drzeny->textStringConst()), L"x");
    drzeny.close();
    zamkni(false);

    popis.blok = Blok(L"PRAZDNY", {new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0))});
    ref.close();
    drzeny.close();
    EXPECT_TRUE(Vloz(popis).atributy.empty());
}

TEST_F(Entity, NovyBlokHledaVolneJmeno)
{
    Spust();
    Blok(L"togu_ramecek_0", {});
    NazevBloku nazev{L"TOGU_RAMECEK", 0};
    AcDbObjectId id;
    AcDbBlockTableRecord* zaznam = nullptr;
    CTogEntity::NovyBlok(id, zaznam, nazev);
    ASSERT_NE(zaznam, nullptr);
    EXPECT_TRUE(zaznam->isWriteEnabled());
    zaznam->close();
    EXPECT_EQ(nazev.citac, 1u);
    EXPECT_EQ(nazev.Nazev(), AcString(L"TOGU_RAMECEK_1"));
    CTogEntity::NovyBlok(id, zaznam, nazev);
    zaznam->close();
    EXPECT_EQ(nazev.Nazev(), AcString(L"TOGU_RAMECEK_2"));
    nazev.citac = 0xFFFFFFFEu;
    Blok(L"TOGU_RAMECEK_fffffffe", {});
    CTogEntity::NovyBlok(id, zaznam, nazev);
    zaznam->close();
    EXPECT_EQ(nazev.Nazev(), AcString(L"TOGU_RAMECEK_3")) << "past the end the counter starts at 1";
}

TEST_F(Entity, DynamickeVlastnosti)
{
    Spust();
    PopisBloku popis;
    popis.blok = Blok(L"STATICKY", {new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0))});
    popis.hladina = Db()->clayer();
    AcDbObjectId id = Vloz(popis).id;
    AcDbObjectPointer<AcDbBlockReference> ref(id, AcDb::kForWrite);
    CTogEntity::NastavDynVlastnosti(ref, popis); // nothing asked, nothing checked
    popis.dynVlastnosti[L"DELKA"] = CTogDynProp::Realne(4.0);
    EXPECT_THROW(CTogEntity::NastavDynVlastnosti(ref, popis), CTogException);
    ref.close();

    // A dynamic block with one length that stretches its line.
    auto* cara = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0));
    sim::db::DynamicAction protazeni;
    protazeni.kind = sim::db::DynamicAction::kStretch;
    protazeni.property = L"Delka";
    protazeni.x = 1.0;
    protazeni.minX = 1.5;
    protazeni.maxX = 2.5;
    protazeni.minY = -1;
    protazeni.maxY = 1;
    std::unique_ptr<resbuf, int (*)(resbuf*)> akce(sim::db::dynamicActionsXData({protazeni}), acutRelRb);
    AcDbObjectId blok = Blok(L"DYNAMICKY", {cara});
    {
        AcDbBlockTableRecordPointer b(blok, AcDb::kForWrite);
        sim::db::DynamicProperty delka{L"Delka", {}, {}};
        delka.value.real = 2.0;
        std::unique_ptr<resbuf, int (*)(resbuf*)> data(sim::db::dynamicPropertiesXData({delka}, true), acutRelRb);
        b->setXData(data.get());
        AcDbBlockTableRecordIterator* surovy = nullptr;
        b->newIterator(surovy);
        std::unique_ptr<AcDbBlockTableRecordIterator> it(surovy);
        AcDbEntity* e = nullptr;
        it->getEntity(e, AcDb::kForWrite);
        e->setXData(akce.get());
        e->close();
    }
    popis.blok = blok;
    popis.dynVlastnosti[L"CHYBI"] = CTogDynProp::Text(L"passed over");
    id = Vloz(popis).id;
    ref.open(id, AcDb::kForWrite);
    CTogEntity::NastavDynVlastnosti(ref, popis); // names are upper-cased to find "Delka"
    AcDbDynBlockReference dyn(ref.object());
    AcDbDynBlockReferencePropertyArray vlastnosti;
    dyn.getBlockProperties(vlastnosti);
    ASSERT_EQ(vlastnosti.length(), 1);
    double hodnota = 0;
    vlastnosti[0].value().getValue(hodnota);
    EXPECT_EQ(hodnota, 4.0);
    EXPECT_EQ(dyn.dynamicBlockTableRecord(), blok);
    AcDbBlockTableRecordPointer ukazany(ref->blockTableRecord(), AcDb::kForRead);
    AcDbBlockTableRecordIterator* surovy = nullptr;
    ukazany->newIterator(surovy);
    std::unique_ptr<AcDbBlockTableRecordIterator> it(surovy);
    AcDbEntity* e = nullptr;
    ASSERT_EQ(it->getEntity(e), Acad::eOk);
    AcDbObjectPointer<AcDbLine> protazena;
    AcDbLine* l = AcDbLine::cast(e);
    protazena.acquire(l);
    EXPECT_TRUE(protazena->endPoint().isEqualTo(AcGePoint3d(4, 0, 0)));

    popis.dynVlastnosti[L"DELKA"].druh = 7;
    EXPECT_THROW(CTogEntity::NastavDynVlastnosti(ref, popis), CTogException);
}
