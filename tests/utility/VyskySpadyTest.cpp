// Levels and slopes: the clean-number rule, the depth of a manhole and the slope between two.
#include "VykresUtility.h"
#include "_Utility/CisteCislo.h"
#include "_Utility/VyskySpady.h"

using namespace vykres;

TEST(CisteCislo, CarkyATeckyDajiJedinouDesetinnouTecku)
{
    EXPECT_EQ(CisteCislo(L"1 234,56"), L"1.23456");
    EXPECT_EQ(CisteCislo(L"12,5"), L"12.5");
    EXPECT_EQ(CisteCislo(L"245.30"), L"245.30");
    EXPECT_EQ(CisteCislo(L"1,,2"), L"1.2");
    EXPECT_EQ(CisteCislo(L""), L"");
    // The steps on their own: the first only replaces, the second only drops.
    EXPECT_EQ(OddelovaceNaTecky(L"a b,c."), L"a.b.c.");
    EXPECT_EQ(JenPrvniTecka(L"..1.2"), L".12");
    // Blanks inside MText codes are treated as any other.
    EXPECT_EQ(CisteCislo(L"{\\H2;1 2,5}"), L"{\\H2;1.25}");
}

class VyskySpadyTest : public SystemNaPlatforme {
protected:
    /// A manhole: a circle of radius 1 about its position, with the three attributes.
    AcDbObjectId Sachta(AcGePoint3d kde, const ACHAR* poklop, const ACHAR* dno, const ACHAR* nazev = L"S1")
    {
        AcDbObjectId blok;
        if (AcDbBlockTablePointer(Db(), AcDb::kForRead)->getAt(L"SACHTA", blok) != Acad::eOk)
            blok = Blok(L"SACHTA", {new AcDbCircle(AcGePoint3d(), AcGeVector3d::kZAxis, 1.0)});
        return Reference(blok, kde, 0.0, {{L"poklop", poklop}, {L"DNO", dno}, {L"OZNS", nazev}});
    }
};

TEST_F(VyskySpadyTest, HloubkaJeRozdilPoklopuADna)
{
    Spust("1,0\n");
    Sachta(AcGePoint3d(), L"245.30", L"243.10", L"Š7");
    HloubkaSachty();
    EXPECT_NE(Zaznam().find(L"Šachta Š7 - hloubka: 2.20 m  (Poklop: 245.30, Dno: 243.10)"), std::wstring::npos)
        << sim::toUtf8(Zaznam());
}

TEST_F(VyskySpadyTest, ChybejiciAtributJeVyjimka)
{
    Spust("1,0\n");
    AcDbObjectId blok = Blok(L"JINY", {new AcDbCircle(AcGePoint3d(), AcGeVector3d::kZAxis, 1.0)});
    Reference(blok, AcGePoint3d(), 0.0, {{L"POKLOP", L"245.30"}});
    try {
        HloubkaSachty();
        FAIL();
    } catch (const std::exception& e) {
        EXPECT_NE(std::string(e.what()).find("Nelze získat hodnotu atributu DNO"), std::string::npos);
    }
}

TEST_F(VyskySpadyTest, SpadAKoncePoKanaluVMilimetrech)
{
    // Millimetres: two manholes 10000 apart are 10 m apart.
    Spust("1,0\n10001,0\n\n"      // the slope
          "1,0\n10001,0\n10\nyes\n" // the end from a slope
          "1,0\n10001,0\n10\nno\n"); // the start
    Db()->setInsunits(AcDb::kUnitsMillimeters);
    Sachta(AcGePoint3d(0, 0, 0), L"101.00", L"100.00");
    Sachta(AcGePoint3d(10000, 0, 0), L"101.00", L"99.90");
    SpadMeziSachtami();
    SpadMeziSachtami();
    SpadMeziSachtami();
    // The computed end and the computed start agree with the heights of the blocks.
    const std::wstring radek = L"Počátek 100.00 [m], konec 99.90 [m], vzdálenost 10.000 [m], spád [‰] 10.00";
    int pocet = 0;
    for (size_t i = Zaznam().find(radek); i != std::wstring::npos; i = Zaznam().find(radek, i + 1))
        ++pocet;
    EXPECT_EQ(pocet, 3) << sim::toUtf8(Zaznam());
}

TEST_F(VyskySpadyTest, TextMistoBlokuProjdeFiltremANeotevreSe)
{
    Spust("0,0\n1,0\n\n");
    Model(new AcDbText(AcGePoint3d(), L"100,00", AcDbObjectId::kNull, 1.0));
    Model(new AcDbLine(AcGePoint3d(1, -1, 0), AcGePoint3d(1, 1, 0)));
    EXPECT_THROW(SpadMeziSachtami(), std::exception);
}

TEST_F(VyskySpadyTest, CistiVyskyPrepiseTextyAMTexty)
{
    Spust("all\n\n");
    AcDbObjectId text = Model(new AcDbText(AcGePoint3d(), L"1 234,56", AcDbObjectId::kNull, 1.0));
    auto* m = new AcDbMText;
    m->setContents(L"{\\H2;245,3}");
    AcDbObjectId mtext = Model(m);
    Model(new AcDbLine(AcGePoint3d(), AcGePoint3d(1, 1, 0)));
    CistiVysky();
    AcDbObjectPointer<AcDbText> t(text);
    EXPECT_STREQ(t->textStringConst(), L"1.23456");
    AcDbObjectPointer<AcDbMText> mt(mtext);
    AcString obsah;
    mt->contents(obsah);
    EXPECT_STREQ(obsah.kwszPtr(), L"{\\H2;245.3}");
    EXPECT_NE(Zaznam().find(L"Úprava dokončena pro 2 objekt(ů)."), std::wstring::npos);
}
