// The whole-drawing walker: which records each bit of the mask visits, the counting of the totals,
// the transaction it holds, and what a failure inside a walk leaves behind.
#include <functional>
#include <stdexcept>

#include "CTogCmd.h"
#include "CTogException.h"
#include "VykresProTest.h"
#include "system/SystemNaPlatforme.h"

namespace {

AcDbDatabase* Pracovni() { return acdbHostApplicationServices()->workingDatabase(); }

// An operation whose answer for each entity the test decides; it remembers what it was given.
class Operace : public CTogCmd::ProjdiDwgFce {
public:
    Operace(AcDbDatabase* db, std::function<Adesk::Int32(AcDbObjectId, AcTransaction*)> f)
        : ProjdiDwgFce(db), m_f(std::move(f)) {}
    Adesk::Int32 Zpracuj(AcDbObjectId id) override
    {
        navstivene.push_back(id);
        return m_f(id, m_pTransakce);
    }
    AcTransaction* Transakce() const { return m_pTransakce; }
    std::vector<AcDbObjectId> navstivene;

private:
    std::function<Adesk::Int32(AcDbObjectId, AcTransaction*)> m_f;
};

Adesk::Int32 Jedna(AcDbObjectId, AcTransaction*) { return 1; }

std::wstring Souhrn(int zmeneno, int nezmeneno, int otevreno)
{
    return L"\nZměněno " + std::to_wstring(zmeneno) + L" entit, nešlo změnit " + std::to_wstring(nezmeneno) +
           L" entit (celkem otevřeno " + std::to_wstring(otevreno) + L" entit)";
}

} // namespace

using ProjdiDwg = SystemNaPlatforme;

TEST_F(ProjdiDwg, EmptyDrawingReportsZeros)
{
    Spust();
    Operace operace(Pracovni(), Jedna);
    EXPECT_EQ(operace.ProjdiDwg(7, true, 1), 0);
    EXPECT_EQ(Zaznam(), L"\n" + Souhrn(0, 0, 0));
    EXPECT_EQ(Pracovni()->transactionManager()->numActiveTransactions(), 0);
}

TEST_F(ProjdiDwg, EachBitVisitsItsRecords)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    AcDbObjectId model = vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 0});
    AcDbObjectId papir = vykres::Usecka(db, ACDB_PAPER_SPACE, {0, 0, 0}, {2, 0, 0});
    AcDbObjectId blok = vykres::Usecka(db, L"KRIZ", {0, 0, 0}, {3, 0, 0});

    auto navstivene = [db](int maska) {
        Operace operace(db, Jedna);
        operace.ProjdiDwg(maska, false, 1);
        return operace.navstivene;
    };
    EXPECT_EQ(navstivene(1), std::vector<AcDbObjectId>{model});
    EXPECT_EQ(navstivene(2), std::vector<AcDbObjectId>{papir});
    EXPECT_EQ(navstivene(4), std::vector<AcDbObjectId>{blok});
    EXPECT_EQ(navstivene(7).size(), 3u);
    EXPECT_TRUE(navstivene(0).empty());
    EXPECT_EQ(Zaznam().find(L"Změněno"), std::wstring::npos) << "no report asked for";
}

TEST_F(ProjdiDwg, ActiveLayoutFollowsTheTab)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    AcDbObjectId model = vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 0});
    AcDbObjectId papir = vykres::Usecka(db, ACDB_PAPER_SPACE, {0, 0, 0}, {2, 0, 0});
    AcDbLayoutManager* layouty = acdbHostApplicationServices()->layoutManager();
    AcString nazev;
    if (layouty->getActiveLayoutName(nazev, true, db) == Acad::eNotImplementedYet)
        GTEST_SKIP() << "the platform's layout manager is not there yet";
    auto navstivene = [db](int maska) {
        Operace operace(db, Jedna);
        operace.ProjdiDwg(maska, false, 1);
        return operace.navstivene;
    };
    // On the model tab the active layout is model space; a record fitting two bits is visited once.
    EXPECT_EQ(navstivene(8), std::vector<AcDbObjectId>{model});
    EXPECT_EQ(navstivene(9), std::vector<AcDbObjectId>{model});
    ASSERT_EQ(db->setTilemode(false), Acad::eOk);
    EXPECT_EQ(navstivene(8), std::vector<AcDbObjectId>{papir});
}

TEST_F(ProjdiDwg, TwoPassesCountEveryEntityTwice)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 0});
    vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {0, 1, 0});
    vykres::Usecka(db, L"BLOK", {0, 0, 0}, {3, 0, 0});
    Operace operace(db, Jedna);
    EXPECT_EQ(operace.ProjdiDwg(7, true, 2), 6);
    EXPECT_NE(Zaznam().find(Souhrn(6, 0, 6)), std::wstring::npos) << sim::toUtf8(Zaznam());
}

TEST_F(ProjdiDwg, FailingOperationCountsEveryEntityAsNotChanged)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    for (int i = 0; i < 3; ++i)
        vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1.0 + i, 0, 0});
    vykres::Usecka(db, ACDB_PAPER_SPACE, {0, 0, 0}, {1, 1, 0});
    Operace operace(db, [](AcDbObjectId, AcTransaction*) { return -1; });
    EXPECT_EQ(operace.ProjdiDwg(7, true, 1), 0);
    EXPECT_NE(Zaznam().find(Souhrn(0, 4, 4)), std::wstring::npos) << sim::toUtf8(Zaznam());
}

TEST_F(ProjdiDwg, ActiveLayoutOnlyInTheWorkingDatabase)
{
    Spust();
    AcDbDatabase jina(true, true);
    vykres::Usecka(&jina, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 0});
    Operace operace(&jina, Jedna);
    EXPECT_EQ(operace.ProjdiDwg(8, true, 1), 0);
    EXPECT_TRUE(operace.navstivene.empty());
    EXPECT_NE(Zaznam().find(Souhrn(0, 0, 0)), std::wstring::npos);
    // Its model space is there for bit 1.
    EXPECT_EQ(operace.ProjdiDwg(1, false, 1), 1);
}

TEST_F(ProjdiDwg, ErasedEntitiesAreSkippedAndChangesCommit)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    AcDbObjectId a = vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 0});
    AcDbObjectId b = vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {2, 0, 0});
    {
        AcDbObjectPointer<AcDbLine> smazana(b, AcDb::kForWrite);
        smazana->erase();
    }
    Operace operace(db, [](AcDbObjectId id, AcTransaction* t) {
        AcDbObject* o = nullptr;
        if (t->getObject(o, id, AcDb::kForWrite) != Acad::eOk)
            return -1;
        AcDbEntity::cast(o)->setColorIndex(3);
        return 1;
    });
    EXPECT_EQ(operace.ProjdiDwg(1, false, 1), 1);
    EXPECT_EQ(operace.navstivene, std::vector<AcDbObjectId>{a});
    EXPECT_EQ(operace.Transakce(), nullptr);
    AcDbObjectPointer<AcDbLine> usecka(a, AcDb::kForRead);
    EXPECT_EQ(usecka->colorIndex(), 3);
}

TEST_F(ProjdiDwg, HoldTakenBeforeTheWalkKeepsTheTransactionOpen)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 0});
    Operace operace(db, Jedna);
    operace.Drz();
    operace.ProjdiDwg(7, false, 1);
    EXPECT_NE(operace.Transakce(), nullptr);
    EXPECT_EQ(db->transactionManager()->numActiveTransactions(), 1);
    operace.Uvolni();
    EXPECT_EQ(db->transactionManager()->numActiveTransactions(), 0);
}

TEST_F(ProjdiDwg, FailureInsideAbortsShowsTheBoxAndRethrows)
{
    Spust("\n");
    AcDbDatabase* db = Pracovni();
    AcDbObjectId a = vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 0});
    vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {2, 0, 0});
    int volani = 0;
    Operace operace(db, [&volani](AcDbObjectId id, AcTransaction* t) -> Adesk::Int32 {
        if (++volani == 2)
            throw CTogException("Nelze otevřít hladinu", 5, "Test.cpp");
        AcDbObject* o = nullptr;
        t->getObject(o, id, AcDb::kForWrite);
        AcDbEntity::cast(o)->setColorIndex(1);
        return 1;
    });
    EXPECT_THROW(operace.ProjdiDwg(1, true, 1), CTogException);
    EXPECT_EQ(operace.Transakce(), nullptr);
    EXPECT_EQ(db->transactionManager()->numActiveTransactions(), 0);
    AcDbObjectPointer<AcDbLine> usecka(a, AcDb::kForRead);
    EXPECT_EQ(usecka->colorIndex(), 256) << "the change of the first entity is undone";
    EXPECT_NE(Zaznam().find(L"Program vyvolal výjimku"), std::wstring::npos) << sim::toUtf8(Zaznam());
    EXPECT_NE(Zaznam().find(L"\nChyba při procházení výkresu....doporučujeme restaurovat výkres!!!!"), std::wstring::npos);
    EXPECT_EQ(Zaznam().find(L"Změněno"), std::wstring::npos);
}

TEST_F(ProjdiDwg, UnexpectedFailureGivesZeroAfterTheMessage)
{
    Spust("\n");
    AcDbDatabase* db = Pracovni();
    vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 0});
    Operace operace(db, [](AcDbObjectId, AcTransaction*) -> Adesk::Int32 { throw std::runtime_error("x"); });
    EXPECT_EQ(operace.ProjdiDwg(1, true, 1), 0);
    EXPECT_EQ(db->transactionManager()->numActiveTransactions(), 0);
    EXPECT_NE(Zaznam().find(L"[Togovy Utility pro AutoCad] \nNeočekávaná chyba při procházení výkresu"), std::wstring::npos)
        << sim::toUtf8(Zaznam());
    EXPECT_NE(Zaznam().find(L"\nChyba při procházení výkresu....doporučujeme restaurovat výkres!!!!"), std::wstring::npos);
    EXPECT_FALSE(m_session->waitingPrompt().has_value());
}

TEST_F(ProjdiDwg, WalkerLeftHoldingAbortsWhenItGoes)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    AcDbObjectId a = vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 0});
    {
        Operace operace(db, [](AcDbObjectId id, AcTransaction* t) {
            AcDbObject* o = nullptr;
            t->getObject(o, id, AcDb::kForWrite);
            AcDbEntity::cast(o)->setColorIndex(5);
            return 1;
        });
        operace.Drz();
        EXPECT_EQ(operace.ProjdiDwg(1, false, 1), 1);
    }
    EXPECT_EQ(db->transactionManager()->numActiveTransactions(), 0);
    EXPECT_EQ(AcDbObjectPointer<AcDbLine>(a, AcDb::kForRead)->colorIndex(), 256);
}
