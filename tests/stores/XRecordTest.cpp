// The drawing store on a new drawing of the platform: kinds and their group codes, keys with and
// without a group, replacing an entry, the kind check on read, erasing, and failures that show the
// exception box and give false.
#include <string>

#include "CTogException.h"
#include "CTogXRecord.h"
#include "dbapserv.h"
#include "dbdict.h"
#include "dbxrecrd.h"
#include "system/SystemNaPlatforme.h"

namespace {

AcDbDatabase* Databaze() { return acdbHostApplicationServices()->workingDatabase(); }

/// The entries of "TOGUTILS"; -1 when the drawing holds no such dictionary.
int PocetZaznamu()
{
    AcDbDictionary* nod = nullptr;
    EXPECT_EQ(Databaze()->getNamedObjectsDictionary(nod, AcDb::kForRead), Acad::eOk);
    AcDbObject* objekt = nullptr;
    Acad::ErrorStatus es = nod->getAt(L"TOGUTILS", objekt, AcDb::kForRead);
    nod->close();
    if (es != Acad::eOk)
        return -1;
    int pocet = static_cast<int>(AcDbDictionary::cast(objekt)->numEntries());
    objekt->close();
    return pocet;
}

std::string Zprava(const std::function<void()>& akce)
{
    try {
        akce();
    } catch (const CTogException& e) {
        return e.what();
    }
    return "(no exception)";
}

} // namespace

using Vykres = SystemNaPlatforme;

TEST_F(Vykres, NewDrawingAnswersFalseSilentlyAndStaysUnchanged)
{
    Spust();
    Adesk::Int32 cislo = 7;
    AcString text = L"beze změny";
    AcGePoint3d bod(1, 2, 3);
    resbuf* chain = nullptr;
    EXPECT_FALSE(CTogXRecord::NactiZX(L"ZNAMENKO", cislo, L"DlgKacena"));
    EXPECT_FALSE(CTogXRecord::NactiZX(L"POPISPOD", text, nullptr));
    EXPECT_FALSE(CTogXRecord::NactiZX(L"ZBOD", bod, nullptr));
    EXPECT_FALSE(CTogXRecord::NactiChain(L"DlgMultiTrubky_SEZNAMHLADIN", chain));
    EXPECT_EQ(chain, nullptr);
    EXPECT_EQ(cislo, 7);
    EXPECT_EQ(text, L"beze změny");
    EXPECT_EQ(PocetZaznamu(), -1);
    EXPECT_EQ(Zaznam(), L"");
}

TEST_F(Vykres, EachKindComesBackAsItWasWritten)
{
    Spust();
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"ZNAMENKO", Adesk::Int32(-70000), L"DlgKacena"));
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"PRIDAT_ABSOLUTNI", true, L"DlgKacena"));
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"POPISPOD", L"Úroveň ±0,000", L"DlgKacena"));
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"PREPOCET", 0.001, L"DlgKacena"));
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"ZBOD", AcGePoint3d(1.5, -2.25, 3), L"DlgKacena"));
    EXPECT_EQ(PocetZaznamu(), 5);

    Adesk::Int32 cislo = 0;
    bool priznak = false;
    AcString text;
    double realne = 0;
    AcGePoint3d bod;
    EXPECT_TRUE(CTogXRecord::NactiZX(L"ZNAMENKO", cislo, L"DlgKacena"));
    EXPECT_TRUE(CTogXRecord::NactiZX(L"PRIDAT_ABSOLUTNI", priznak, L"DlgKacena"));
    EXPECT_TRUE(CTogXRecord::NactiZX(L"POPISPOD", text, L"DlgKacena"));
    EXPECT_TRUE(CTogXRecord::NactiZX(L"PREPOCET", realne, L"DlgKacena"));
    EXPECT_TRUE(CTogXRecord::NactiZX(L"ZBOD", bod, L"DlgKacena"));
    EXPECT_EQ(cislo, -70000);
    EXPECT_TRUE(priznak);
    EXPECT_EQ(text, L"Úroveň ±0,000");
    EXPECT_EQ(realne, 0.001);
    EXPECT_EQ(bod, AcGePoint3d(1.5, -2.25, 3));

    // The group code of the first buffer tells the kind.
    resbuf* chain = nullptr;
    ASSERT_TRUE(CTogXRecord::NactiChain(L"DlgKacena_PRIDAT_ABSOLUTNI", chain));
    EXPECT_EQ(chain->restype, 70);
    EXPECT_EQ(chain->rbnext, nullptr);
    acutRelRb(chain);
    for (auto [klic, kod] : {std::pair{L"DlgKacena_ZNAMENKO", 90}, {L"DlgKacena_POPISPOD", 1},
                             {L"DlgKacena_PREPOCET", 40}, {L"DlgKacena_ZBOD", 10}}) {
        ASSERT_TRUE(CTogXRecord::NactiChain(klic, chain));
        EXPECT_EQ(chain->restype, kod) << sim::toUtf8(klic);
        acutRelRb(chain);
    }
    EXPECT_EQ(Zaznam(), L"");
}

TEST_F(Vykres, AGroupJoinsTheKeyWithAnUnderscore)
{
    Spust();
    EXPECT_EQ(CTogXRecord::Klic(L"ZNAMENKO", L"DlgKacena"), L"DlgKacena_ZNAMENKO");
    EXPECT_EQ(CTogXRecord::Klic(L"ZNAMENKO", nullptr), L"ZNAMENKO");
    // With a null group the whole key reaches the grouped entry, as AutoLISP does.
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"ZNAMENKO", Adesk::Int32(1), L"DlgKacena"));
    Adesk::Int32 cislo = 0;
    EXPECT_TRUE(CTogXRecord::NactiZX(L"DlgKacena_ZNAMENKO", cislo, nullptr));
    EXPECT_EQ(cislo, 1);
    EXPECT_FALSE(CTogXRecord::NactiZX(L"ZNAMENKO", cislo, nullptr));
}

TEST_F(Vykres, ASecondWriteReplacesTheEntry)
{
    Spust();
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"PREDPONA", L"TU", L"TOGVARNIK"));
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"PREDPONA", L"VOD", L"TOGVARNIK"));
    EXPECT_EQ(PocetZaznamu(), 1);
    AcString text;
    EXPECT_TRUE(CTogXRecord::NactiZX(L"PREDPONA", text, L"TOGVARNIK"));
    EXPECT_EQ(text, L"VOD");
    // Even as another kind.
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"PREDPONA", 2.5, L"TOGVARNIK"));
    EXPECT_EQ(PocetZaznamu(), 1);
    double realne = 0;
    EXPECT_TRUE(CTogXRecord::NactiZX(L"PREDPONA", realne, L"TOGVARNIK"));
    EXPECT_EQ(realne, 2.5);
}

TEST_F(Vykres, AChainTheRecordRefusesKeepsTheOlderValue)
{
    Spust();
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"PREDPONA", L"TU", L"TOGVARNIK"));
    // A result type of ADS is no group code of a record's data; a record-structure code neither.
    for (resbuf* spatny : {acutBuildList(RTSTR, L"VOD", 0), acutBuildList(1, L"VOD", RTDXF0, L"XRECORD", 0)}) {
        EXPECT_FALSE(CTogXRecord::UlozChain(L"TOGVARNIK_PREDPONA", spatny));
        acutRelRb(spatny);
    }
    AcString text;
    EXPECT_TRUE(CTogXRecord::NactiZX(L"PREDPONA", text, L"TOGVARNIK"));
    EXPECT_EQ(text, L"TU");
    EXPECT_EQ(PocetZaznamu(), 1);
}

TEST_F(Vykres, ReadingAnotherKindThrows)
{
    Spust();
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"DESMIST", Adesk::Int32(3), L"DlgKacena"));
    AcString text = L"beze změny";
    std::string zprava = Zprava([&] { CTogXRecord::NactiZX(L"DESMIST", text, L"DlgKacena"); });
    EXPECT_EQ(zprava.rfind("Očekávaný typ proměnné XRecord neodpovídá\nZdroj: Line ", 0), 0u) << zprava;
    EXPECT_EQ(text, L"beze změny");
    bool priznak = false;
    EXPECT_NE(Zprava([&] { CTogXRecord::NactiZX(L"DESMIST", priznak, L"DlgKacena"); }), "(no exception)")
        << "an integer is no flag";
    double realne = 0;
    EXPECT_NE(Zprava([&] { CTogXRecord::NactiZX(L"DESMIST", realne, L"DlgKacena"); }), "(no exception)");
}

TEST_F(Vykres, AFlagIsTrueForAnyNonZeroValue)
{
    Spust();
    ASSERT_TRUE(CTogXRecord::UlozChain(L"DlgKacena_PRIDAT_ABSOLUTNI", acutBuildList(70, 2, 0)));
    bool priznak = false;
    EXPECT_TRUE(CTogXRecord::NactiZX(L"PRIDAT_ABSOLUTNI", priznak, L"DlgKacena"));
    EXPECT_TRUE(priznak);
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"PRIDAT_ABSOLUTNI", false, L"DlgKacena"));
    EXPECT_TRUE(CTogXRecord::NactiZX(L"PRIDAT_ABSOLUTNI", priznak, L"DlgKacena"));
    EXPECT_FALSE(priznak);
}

TEST_F(Vykres, AListIsKeptWhole)
{
    Spust();
    ASSERT_TRUE(CTogXRecord::UlozChain(L"DlgMultiTrubky_SEZNAMHLADIN",
                                       acutBuildList(1, L"VODA", 1, L"KANALIZACE", 90, 3, 0)));
    resbuf* chain = nullptr;
    ASSERT_TRUE(CTogXRecord::NactiChain(L"DlgMultiTrubky_SEZNAMHLADIN", chain));
    ASSERT_NE(chain, nullptr);
    EXPECT_EQ(std::wstring(chain->resval.rstring), L"VODA");
    ASSERT_NE(chain->rbnext, nullptr);
    EXPECT_EQ(std::wstring(chain->rbnext->resval.rstring), L"KANALIZACE");
    ASSERT_NE(chain->rbnext->rbnext, nullptr);
    EXPECT_EQ(chain->rbnext->rbnext->resval.rlong, 3);
    acutRelRb(chain);
    EXPECT_FALSE(CTogXRecord::UlozChain(L"prazdny", nullptr));
}

TEST_F(Vykres, ErasingTheDictionaryMakesTheDrawingNewAgain)
{
    Spust();
    ASSERT_TRUE(CTogXRecord::UlozDoX(L"CurMat", L"PP-R", L"Koty"));
    EXPECT_TRUE(CTogXRecord::SmazZaznam(L"TOGUTILS"));
    AcString text;
    EXPECT_FALSE(CTogXRecord::NactiZX(L"CurMat", text, L"Koty"));
    EXPECT_EQ(PocetZaznamu(), -1);
    // An entry that was never there is erased all the same.
    EXPECT_TRUE(CTogXRecord::SmazZaznam(L"TOGVARNIK"));
    AcDbDictionary* nod = nullptr;
    ASSERT_EQ(Databaze()->getNamedObjectsDictionary(nod, AcDb::kForRead), Acad::eOk);
    EXPECT_FALSE(nod->has(L"TOGVARNIK"));
    nod->close();
    // And the store works again afterwards.
    EXPECT_TRUE(CTogXRecord::UlozDoX(L"CurMat", L"PE", L"Koty"));
    EXPECT_TRUE(CTogXRecord::NactiZX(L"CurMat", text, L"Koty"));
    EXPECT_EQ(text, L"PE");
    EXPECT_EQ(Zaznam(), L"");
}

TEST_F(Vykres, AWriteThatFailsShowsTheBoxAndGivesFalse)
{
    Spust("ok\nok\n");
    // Someone else holds the named objects dictionary open for write.
    AcDbDictionary* nod = nullptr;
    ASSERT_EQ(Databaze()->getNamedObjectsDictionary(nod, AcDb::kForWrite), Acad::eOk);
    EXPECT_FALSE(CTogXRecord::UlozDoX(L"ROZTEC", 150.0, L"DlgMultiTrubky"));
    EXPECT_FALSE(CTogXRecord::SmazZaznam(L"TOGUTILS"));
    nod->close();
    EXPECT_NE(Zaznam().find(L"[Program vyvolal výjimku] Nepodařilo se otevřít AcDbDictionary"), std::wstring::npos)
        << sim::toUtf8(Zaznam());
    // The box names the source file as the project tree does, wherever the project was built.
    EXPECT_NE(Zaznam().find(L",\n_Spolecny/CTogXRecord.cpp"), std::wstring::npos) << sim::toUtf8(Zaznam());
    double roztec = 0;
    EXPECT_FALSE(CTogXRecord::NactiZX(L"ROZTEC", roztec, L"DlgMultiTrubky"));
}
