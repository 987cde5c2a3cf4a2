// Moving the selected entities to a standard layer.
#include "CTogSet.h"
#include "PresunDoHladiny.h"
#include "StandardniObjekty.h"

namespace {

AcDbObjectId PridejUsecku(AcDbDatabase* db, const wchar_t* hladina)
{
    auto* usecka = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
    usecka->setDatabaseDefaults(db);
    usecka->setLayer(hladina);
    usecka->setColorIndex(1);
    usecka->setLineWeight(AcDb::kLnWt050);
    AcDbBlockTableRecord* model = nullptr;
    EXPECT_EQ(acdbOpenObject(model, db->currentSpaceId(), AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(model->appendAcDbEntity(id, usecka), Acad::eOk);
    usecka->close();
    model->close();
    return id;
}

void Vyber(std::initializer_list<AcDbObjectId> ids)
{
    ads_name sada{0, 0};
    bool prvni = true;
    for (AcDbObjectId id : ids) {
        ads_name jmeno;
        acdbGetAdsName(jmeno, id);
        acedSSAdd(jmeno, prvni ? nullptr : sada, sada);
        prvni = false;
    }
    acedSSSetFirst(sada, nullptr);
    acedSSFree(sada);
}

} // namespace

using Presun = StandardniObjekty;

TEST_F(Presun, SelectedEntitiesGoToTheLayerByLayerAsTheSwitchesSay)
{
    Start();
    AcString nazev = L"kóty";
    AcDbObjectId hladina = ZiskejHladinu(nazev, false);
    PridejHladinu(L"zamcena", 7, true);
    AcDbObjectId volna = PridejUsecku(Db(), L"0");
    AcDbObjectId zamcena = PridejUsecku(Db(), L"zamcena");
    Vyber({volna, zamcena});

    EXPECT_EQ(PresunDoHladiny(hladina), 2);
    EXPECT_NE(Zaznam().find(L"Vybráno 2 entit, změněno 1 entit, 1 entit nebylo možné otevřít."), std::wstring::npos);
    auto* usecka = Otevri<AcDbEntity>(volna);
    ASSERT_NE(usecka, nullptr);
    EXPECT_EQ(usecka->layerId(), hladina);
    // The default switches: colour and weight ByLayer, the line type as it was.
    EXPECT_EQ(usecka->colorIndex(), 256);
    EXPECT_EQ(usecka->lineWeight(), AcDb::kLnWtByLayer);
    usecka->close();
    auto* nezmenena = Otevri<AcDbEntity>(zamcena);
    ASSERT_NE(nezmenena, nullptr);
    EXPECT_NE(nezmenena->layerId(), hladina);
    nezmenena->close();
}

TEST_F(Presun, NothingSelectedChangesNothing)
{
    Start("\n");
    AcString nazev = L"kóty";
    AcDbObjectId hladina = ZiskejHladinu(nazev, false);
    EXPECT_EQ(PresunDoHladiny(hladina), 0);
    EXPECT_NE(Zaznam().find(L"Nic nebylo vybráno....."), std::wstring::npos);
}
