// Text and property commands: the readable-angle and clean-format rules, and the commands on
// drawings: ra/rak, ca, tv, ed, mat.
#include <cmath>
#include <numbers>

#include "CTogRegistry.h"
#include "VykresUtility.h"
#include "_Utility/CistyFormat.h"
#include "_Utility/CitelnyUhel.h"
#include "_Utility/TextovePrikazy.h"
#include "stores/SystemSRegistrem.h"

using namespace vykres;

namespace {

constexpr double kStupen = std::numbers::pi / 180.0;

/// The angle in degrees within [0, 360).
double Stupne(double a)
{
    double s = std::fmod(a / kStupen, 360.0);
    return s < 0 ? s + 360.0 : s;
}

} // namespace

TEST(CitelnyUhel, PreklapiJenMeziSto_aDvesteOsmdesatiStupniOdOsyUcs)
{
    EXPECT_DOUBLE_EQ(CitelnyUhel(0.0, 0.0), 0.0);
    EXPECT_DOUBLE_EQ(CitelnyUhel(1.7453292519943295, 0.0), 1.7453292519943295) << "100 degrees exactly stays";
    EXPECT_NEAR(Stupne(CitelnyUhel(101 * kStupen, 0.0)), 281.0, 1e-9);
    EXPECT_NEAR(Stupne(CitelnyUhel(279 * kStupen, 0.0)), 99.0, 1e-9);
    EXPECT_NEAR(Stupne(CitelnyUhel(281 * kStupen, 0.0)), 281.0, 1e-9);
    // Perpendicular to lines at 0 and 180 degrees: 90 stays, 270 turns over to 90.
    EXPECT_NEAR(Stupne(CitelnyUhel(90 * kStupen, 0.0)), 90.0, 1e-9);
    EXPECT_NEAR(Stupne(CitelnyUhel(270 * kStupen, 0.0)), 90.0, 1e-9);
    // Measured from a UCS turned by 30 degrees.
    EXPECT_NEAR(Stupne(CitelnyUhel(30 * kStupen, 30 * kStupen)), 30.0, 1e-9);
    EXPECT_NEAR(Stupne(CitelnyUhel(131 * kStupen, 30 * kStupen)), 311.0, 1e-9);
    EXPECT_NEAR(Stupne(CitelnyUhel(10 * kStupen, 30 * kStupen)), 10.0, 1e-9) << "r below 0 comes round to 340";
}

TEST(CistyFormat, OdstraniPismoVyskuBarvuSklonAZavorky)
{
    EXPECT_EQ(CistyFormat(L"{\\fArial|b1|i0;\\H2.5x;Nadpis}\\PDalší řádek"), L"Nadpis\\PDalší řádek");
    EXPECT_EQ(CistyFormat(L"\\C1;červená a \\c256;zpět"), L"červená a zpět");
    EXPECT_EQ(CistyFormat(L"\\Q15;šikmo\\PA"), L"šikmo\\PA");
    EXPECT_EQ(CistyFormat(L"text \\C1 bez středníku"), L"text ");
    // Other codes and the escaped backslash and braces stay as pairs.
    EXPECT_EQ(CistyFormat(L"\\Lpodtržené\\l \\\\ \\{"), L"\\Lpodtržené\\l \\\\ \\{");
    EXPECT_EQ(CistyFormat(L"konec\\"), L"konec\\");
    EXPECT_EQ(CistyFormat(L""), L"");
}

class TextovePrikazyTest : public SystemSRegistrem {
protected:
    void SetUp() override { CTogRegistry::UlozNastaveno(1); }
    void SpustSeSystemem(const std::string& skript)
    {
        Spust(skript);
        ASSERT_NE(Nacti(), nullptr);
    }
};

TEST_F(TextovePrikazyTest, RaNaCaruPodStoJednimStupnemCteZdolaNeboZprava)
{
    SpustSeSystemem("0.5,0.2\n100,0\n");
    AcDbObjectId text = Model(new AcDbText(AcGePoint3d(), L"DN100", AcDbObjectId::kNull, 1.0));
    AcGePoint3d a(100, 0, 0), b(100 + 50 * std::cos(101 * kStupen), 50 * std::sin(101 * kStupen), 0);
    Model(new AcDbLine(a, b));
    NatocPodle(false);
    AcDbObjectPointer<AcDbText> t(text);
    EXPECT_NEAR(Stupne(t->rotation()), 281.0, 1e-9) << sim::toUtf8(Zaznam());
}

TEST_F(TextovePrikazyTest, RakPodleCaryVOtocenemBlokuOtociBlokSAtributy)
{
    // The source: a line along the block's X axis, in a reference turned by 20 degrees.
    SpustSeSystemem("50,1\n" + std::to_string(5 * std::cos(20 * kStupen)) + "," +
                    std::to_string(5 * std::sin(20 * kStupen)) + "\n");
    AcDbObjectId blokCary = Blok(L"CARA", {new AcDbLine(AcGePoint3d(), AcGePoint3d(10, 0, 0))});
    Reference(blokCary, AcGePoint3d(), 20 * kStupen);
    // The target: a block with an attribute 2 units to the right of its position.
    AcDbObjectId blok = Blok(L"S", {new AcDbCircle(AcGePoint3d(), AcGeVector3d::kZAxis, 1.0)});
    AcDbObjectId ref = Reference(blok, AcGePoint3d(50, 0, 0), 0.0, {{L"DNO", L"1"}});
    {
        AcDbObjectPointer<AcDbBlockReference> r(ref);
        std::unique_ptr<AcDbObjectIterator> it(r->attributeIterator());
        AcDbObjectPointer<AcDbAttribute> att(it->objectId(), AcDb::kForWrite);
        att->setPosition(AcGePoint3d(52, 0, 0));
    }
    NatocPodle(true);
    // 20 + 90 degrees lies in the band that reads upside down: the block turns on to 290.
    AcDbObjectPointer<AcDbBlockReference> r(ref);
    EXPECT_NEAR(Stupne(r->rotation()), 290.0, 1e-6) << sim::toUtf8(Zaznam());
    std::unique_ptr<AcDbObjectIterator> it(r->attributeIterator());
    AcDbObjectPointer<AcDbAttribute> att(it->objectId());
    EXPECT_NEAR(Stupne(att->rotation()), 290.0, 1e-6);
    EXPECT_NEAR(att->position().x, 50 + 2 * std::cos(290 * kStupen), 1e-6);
    EXPECT_NEAR(att->position().y, 2 * std::sin(290 * kStupen), 1e-6);
}

TEST_F(TextovePrikazyTest, CaSCarouJakoVzoremNechaStylTextu)
{
    SpustSeSystemem("0,0\n#0\n");
    AcDbObjectId hladina = Hladina(Db(), L"VODA");
    auto* vzor = new AcDbLine(AcGePoint3d(), AcGePoint3d(10, 0, 0));
    vzor->setLayer(hladina);
    vzor->setColorIndex(3);
    vzor->setLinetypeScale(2.5);
    vzor->setLineWeight(AcDb::kLnWt050);
    Model(vzor);
    auto* text = new AcDbText(AcGePoint3d(0, 20, 0), L"A", AcDbObjectId::kNull, 1.0);
    text->setWidthFactor(0.7);
    AcDbObjectId idTextu = Model(text);
    AcDbObjectId styl;
    {
        AcDbObjectPointer<AcDbText> t(idTextu);
        styl = t->textStyle();
    }
    // The text is selected before the command.
    ads_name ent, sada;
    acdbGetAdsName(ent, idTextu);
    acedSSAdd(ent, nullptr, sada);
    acedSSSetFirst(sada, nullptr);
    acedSSFree(sada);
    KopirujVzhled();
    AcDbObjectPointer<AcDbText> t(idTextu);
    EXPECT_EQ(t->layerId(), hladina);
    EXPECT_EQ(t->colorIndex(), 3);
    EXPECT_DOUBLE_EQ(t->linetypeScale(), 2.5);
    EXPECT_EQ(t->lineWeight(), AcDb::kLnWt050);
    EXPECT_EQ(t->textStyle(), styl);
    EXPECT_DOUBLE_EQ(t->widthFactor(), 0.7);
    EXPECT_NE(Zaznam().find(L"Změněno 1 entit"), std::wstring::npos);
}

TEST_F(TextovePrikazyTest, TvVelkaPismenaSDiakritikou)
{
    SpustSeSystemem("0.5,0.2\n");
    AcDbObjectId text = Model(new AcDbText(AcGePoint3d(), L"žluťoučký kůň", AcDbObjectId::kNull, 1.0));
    TextNaVelka();
    AcDbObjectPointer<AcDbText> t(text);
    EXPECT_STREQ(t->textStringConst(), L"ŽLUŤOUČKÝ KŮŇ");
}

TEST_F(TextovePrikazyTest, EdPrepiseAtributVBloku)
{
    SpustSeSystemem("0.3,0.3\nŠ12\n");
    AcDbObjectId blok = Blok(L"S", {new AcDbCircle(AcGePoint3d(), AcGeVector3d::kZAxis, 50.0)});
    AcDbObjectId ref = Reference(blok, AcGePoint3d(), 0.0, {{L"OZNS", L"Š1"}});
    EditujText();
    AcDbObjectPointer<AcDbBlockReference> r(ref);
    std::unique_ptr<AcDbObjectIterator> it(r->attributeIterator());
    AcDbObjectPointer<AcDbAttribute> att(it->objectId());
    EXPECT_STREQ(att->textStringConst(), L"Š12") << sim::toUtf8(Zaznam());
}

TEST_F(TextovePrikazyTest, MatNahradiDefiniciTextemSeZnackou)
{
    SpustSeSystemem("all\n\n");
    AcDbObjectId hladina = Hladina(Db(), L"POPIS");
    auto* def = new AcDbAttributeDefinition(AcGePoint3d(5, 6, 0), L"výchozí", L"DNO", L"Dno?");
    def->setLayer(hladina);
    def->setHeight(2.5);
    def->setRotation(0.5);
    AcDbObjectId idDef = Model(def);
    AtributyNaTexty();
    AcDbObjectPointer<AcDbAttributeDefinition> smazana(idDef, AcDb::kForRead, true);
    ASSERT_EQ(smazana.openStatus(), Acad::eOk);
    EXPECT_TRUE(smazana->isErased());
    AcDbBlockTableRecordPointer model(ACDB_MODEL_SPACE, Db());
    AcDbBlockTableRecordIterator* it = nullptr;
    model->newIterator(it);
    int texty = 0;
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getEntityId(id);
        AcDbObjectPointer<AcDbText> t(id);
        if (t.openStatus() != Acad::eOk || t->isA() != AcDbText::desc())
            continue;
        ++texty;
        EXPECT_STREQ(t->textStringConst(), L"DNO");
        EXPECT_EQ(t->layerId(), hladina);
        EXPECT_DOUBLE_EQ(t->position().x, 5.0);
        EXPECT_DOUBLE_EQ(t->height(), 2.5);
        EXPECT_DOUBLE_EQ(t->rotation(), 0.5);
        EXPECT_EQ(t->colorIndex(), 256);
    }
    delete it;
    EXPECT_EQ(texty, 1);
}

TEST_F(TextovePrikazyTest, MtcfCistiMTextIMultiodkaz)
{
    SpustSeSystemem("all\n\n");
    auto* m = new AcDbMText;
    m->setContents(L"{\\fArial|b1;\\H2x;Šachta} Š1\\Pdno");
    AcDbObjectId idMTextu = Model(m);
    auto* ml = new AcDbMLeader;
    AcDbMText obsah;
    obsah.setContents(L"\\C1;DN 100");
    ml->setContentType(AcMLeaderStyle::kMTextContent);
    ml->setMText(&obsah);
    AcDbObjectId idOdkazu = Model(ml);
    OdstranFormatovani();
    AcDbObjectPointer<AcDbMText> mt(idMTextu);
    AcString s;
    mt->contents(s);
    EXPECT_STREQ(s.kwszPtr(), L"Šachta Š1\\Pdno") << sim::toUtf8(Zaznam());
    AcDbObjectPointer<AcDbMLeader> odkaz(idOdkazu);
    std::unique_ptr<AcDbMText> text(odkaz->mtext());
    ASSERT_NE(text, nullptr);
    text->contents(s);
    EXPECT_STREQ(s.kwszPtr(), L"DN 100");
}

TEST_F(TextovePrikazyTest, EdNaMTextBereDalsiRadek)
{
    SpustSeSystemem("l\nNový\\Pobsah\n");
    auto* m = new AcDbMText;
    m->setContents(L"starý");
    AcDbObjectId id = Model(m);
    EditujText();
    AcDbObjectPointer<AcDbMText> mt(id);
    AcString s;
    mt->contents(s);
    EXPECT_STREQ(s.kwszPtr(), L"Nový\\Pobsah") << sim::toUtf8(Zaznam());
}
