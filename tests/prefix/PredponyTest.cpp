// The layer prefix on the platform: a drawing takes the global prefix silently, a drawing with another
// prefix asks, and the answers rename and merge layers.
#include <gtest/gtest.h>

#include <string>

#include "CTogBaseNastav.h"
#include "CTogXRecord.h"
#include "stores/SystemSRegistrem.h"
#include "walker/VykresProTest.h"

namespace {

class Predpony : public SystemSRegistrem {
protected:
    void Priprav(std::string_view skript, const ACHAR* predponaVykresu, const ACHAR* globalni = L"CD")
    {
        // The first run asks whether to open the settings dialog: no.
        Spust("ne\n" + std::string(skript));
        ASSERT_NE(Nacti(), nullptr);
        db = m_vykres->database();
        g_pNastaveni->Predpony().globalni = globalni;
        if (predponaVykresu) {
            ASSERT_TRUE(CTogXRecord::UlozDoX(L"PREDPONA", predponaVykresu, L"TOGVARNIK"));
        }
    }

    AcDbObjectId Hladina(const ACHAR* nazev)
    {
        AcDbLayerTablePointer tabulka(db, AcDb::kForRead);
        AcDbObjectId id;
        return tabulka->getAt(nazev, id) == Acad::eOk ? id : AcDbObjectId::kNull;
    }

    /// The exact name of the layer of an entity.
    std::wstring HladinaEntity(AcDbObjectId id)
    {
        AcDbEntityPointer e(id, AcDb::kForRead);
        AcDbLayerTableRecordPointer h(e->layerId(), AcDb::kForRead);
        AcString jmeno;
        h->getName(jmeno);
        return jmeno.kwszPtr();
    }

    AcString UlozenaPredpona()
    {
        AcString p;
        CTogXRecord::NactiZX(L"PREDPONA", p, L"TOGVARNIK");
        return p;
    }

    AcDbDatabase* db = nullptr;
};

} // namespace

TEST_F(Predpony, NovyVykresPrevezmeGlobalniPredponuBezPtani)
{
    Priprav("", nullptr);
    EXPECT_EQ(g_pNastaveni->Predpony().NazevSPredponou(L"kóty"), L"CD_kóty");
    EXPECT_EQ(UlozenaPredpona(), L"CD");
    EXPECT_EQ(Zaznam().find(L"Nastavení předpon hladin"), std::wstring::npos) << "nothing is asked";
}

TEST_F(Predpony, GlobalniPredponaSeVsemiVolbamiPrejmenujeASlouci)
{
    Priprav("check 3015 on\ncheck 3016 on\nclick 3014\nok\n", L"AB");
    vykres::Hladina(db, L"AB_kóty");
    vykres::Hladina(db, L"CD_kóty");
    vykres::Hladina(db, L"AB_osy");
    vykres::Hladina(db, L"XY_terén");
    vykres::Hladina(db, L"QQ_KOTY");   // not exactly a catalogue name: no foreign prefix
    vykres::Hladina(db, L"_netisk");   // "_" at the start: no foreign prefix
    auto* usecka = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
    usecka->setLayer(L"AB_kóty");
    const AcDbObjectId idUsecky = vykres::Pridej(db, ACDB_MODEL_SPACE, usecka);

    EXPECT_EQ(g_pNastaveni->Predpony().NazevSPredponou(L"kóty"), L"CD_kóty");
    const std::wstring& z = Zaznam();
    EXPECT_NE(z.find(L"3020 strom: [ ] XY | tip"), std::wstring::npos) << sim::toUtf8(z);
    EXPECT_NE(z.find(L"3020 strom: [x] XY"), std::wstring::npos) << "3016 checks all items" << sim::toUtf8(z);
    // The entities of AB_kóty went to the existing CD_kóty; AB_kóty is gone, AB_osy renamed.
    EXPECT_EQ(HladinaEntity(idUsecky), L"CD_kóty");
    EXPECT_TRUE(Hladina(L"AB_kóty").isNull());
    EXPECT_FALSE(Hladina(L"CD_osy").isNull());
    EXPECT_FALSE(Hladina(L"CD_terén").isNull());
    EXPECT_FALSE(Hladina(L"QQ_KOTY").isNull());
    EXPECT_FALSE(Hladina(L"_netisk").isNull());
    EXPECT_NE(z.find(L"Bylo převedeno 1 hladin, bude sloučeno 1 hladin"), std::wstring::npos);
    EXPECT_NE(z.find(L"Převedeno 1 entit"), std::wstring::npos);
    EXPECT_EQ(UlozenaPredpona(), L"CD");
    // The two prefixes agree now: the next request asks nothing.
    const size_t delka = z.size();
    EXPECT_EQ(g_pNastaveni->Predpony().NazevSPredponou(L"osy"), L"CD_osy");
    EXPECT_EQ(Zaznam().find(L"Nastavení předpon hladin", delka), std::wstring::npos);
}

TEST_F(Predpony, ZruseniNicNemeniAPouzijePredponuVykresu)
{
    Priprav("cancel\n", L"AB");
    vykres::Hladina(db, L"AB_kóty");
    EXPECT_EQ(g_pNastaveni->Predpony().NazevSPredponou(L"kóty"), L"AB_kóty");
    EXPECT_FALSE(Hladina(L"AB_kóty").isNull());
    EXPECT_EQ(UlozenaPredpona(), L"AB");
}

TEST_F(Predpony, PristeSeNeptatPouzijeVolbyBezDialogu)
{
    Priprav("check 3019 on\nok\n", L"AB");
    vykres::Hladina(db, L"AB_kóty");
    auto& p = g_pNastaveni->Predpony();
    EXPECT_EQ(p.NazevSPredponou(L"kóty"), L"CD_kóty");
    EXPECT_TRUE(p.neptatSe);
    // Another drawing prefix later: the stored choices apply without the dialog.
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"PREDPONA", L"EF", L"TOGVARNIK"));
    vykres::Hladina(db, L"EF_osy");
    const size_t delka = Zaznam().size();
    EXPECT_EQ(p.NazevSPredponou(L"osy"), L"CD_osy");
    EXPECT_EQ(Zaznam().find(L"[Nastavení předpon hladin]", delka), std::wstring::npos);
    EXPECT_FALSE(Hladina(L"CD_osy").isNull());
    EXPECT_FALSE(m_session->waitingPrompt().has_value());
}

TEST_F(Predpony, PrazdnaPredponaVykresuVynutiGlobalni)
{
    // Settings mode: the proposal fills the global field, "Příště se neptat" is hidden.
    Priprav("set 3010\nclick 3013\nok\n", L"AB");
    AcString vysledek;
    EXPECT_TRUE(DialogPredpony(g_pNastaveni->Predpony(), L"GH", &vysledek));
    EXPECT_EQ(vysledek, L"GH");
    const std::wstring& z = Zaznam();
    EXPECT_NE(z.find(L"3019 [ ] Příště se neptat [skryto]"), std::wstring::npos) << sim::toUtf8(z);
    EXPECT_NE(z.find(L"3013 ( ) Předponu nastavenou ve výkresu [zakázáno]"), std::wstring::npos);
    EXPECT_NE(z.find(L"Prvek 3013 je zakázaný."), std::wstring::npos);
    EXPECT_NE(z.find(L"Nastavte co s předponami v aktuálním výkrese:"), std::wstring::npos);
    EXPECT_EQ(UlozenaPredpona(), L"GH");
}
