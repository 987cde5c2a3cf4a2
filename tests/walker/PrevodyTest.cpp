// The operations of the conversion commands and of the layer, style and block searches, each run
// through the walker on a small drawing.
#include "CTogBaseNastav.h"
#include "CTogCmd.h"
#include "_Utility/PrevodyVykresu.h"
#include "VykresProTest.h"
#include "system/SystemNaPlatforme.h"

namespace {

AcDbDatabase* Pracovni() { return acdbHostApplicationServices()->workingDatabase(); }

std::wstring Souhrn(int zmeneno, int nezmeneno, int otevreno)
{
    return L"\nZměněno " + std::to_wstring(zmeneno) + L" entit, nešlo změnit " + std::to_wstring(nezmeneno) +
           L" entit (celkem otevřeno " + std::to_wstring(otevreno) + L" entit)";
}

AcDbObjectId MText(AcDbDatabase* db, const ACHAR* zaznam, const ACHAR* obsah, AcDbObjectId hladina = {})
{
    auto* mtext = new AcDbMText;
    mtext->setContents(obsah);
    if (!hladina.isNull())
        mtext->setLayer(hladina);
    return vykres::Pridej(db, zaznam, mtext);
}

AcDbObjectId Text(AcDbDatabase* db, const ACHAR* obsah, AcDbObjectId hladina = {})
{
    auto* text = new AcDbText({0, 0, 0}, obsah);
    if (!hladina.isNull())
        text->setLayer(hladina);
    return vykres::Pridej(db, ACDB_MODEL_SPACE, text);
}

} // namespace

TEST(OpravHacky, RepairsTheSixteenLettersOnly)
{
    std::wstring text = L"\u010D a \u00E8, \u00C8\u00EC\u00F8\u00EF\u008D\u009D\u00F9\u00D9 caf\u00E9 \\P{\\fArial;x}";
    EXPECT_EQ(OpravHacky(text), 9);
    EXPECT_EQ(text, L"\u010D a \u010D, \u010C\u011B\u0159\u010F\u0164\u0165\u016F\u016E caf\u00E9 \\P{\\fArial;x}");
    std::wstring spravny = L"Žluťoučký kůň úpěl ďábelské ódy";
    EXPECT_EQ(OpravHacky(spravny), 0);
    EXPECT_EQ(spravny, L"Žluťoučký kůň úpěl ďábelské ódy");
}

using Prevody = SystemNaPlatforme;

TEST_F(Prevody, KubChangesEveryMTextEverywhere)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    AcDbObjectId model = MText(db, ACDB_MODEL_SPACE, L"\u010Dist\u00E8 caf\u00E9");
    AcDbObjectId papir = MText(db, ACDB_PAPER_SPACE, L"spr\u00E1vn\u011B");
    AcDbObjectId blok = MText(db, L"POPIS", L"\u00D8ez");
    AcDbObjectId text = Text(db, L"\u00E8");
    TogUPrevodnikHacku prevod(db);
    EXPECT_EQ(prevod.ProjdiDwg(7, true, 1), 3);
    EXPECT_NE(Zaznam().find(Souhrn(3, 0, 4)), std::wstring::npos) << sim::toUtf8(Zaznam());
    auto obsah = [](AcDbObjectId id) {
        AcDbObjectPointer<AcDbMText> m(id, AcDb::kForRead);
        AcString s;
        m->contents(s);
        return std::wstring(s.kwszPtr());
    };
    EXPECT_EQ(obsah(model), L"\u010Dist\u010D caf\u00E9");
    EXPECT_EQ(obsah(papir), L"spr\u00E1vn\u011B");
    EXPECT_EQ(obsah(blok), L"\u0158ez");
    AcDbObjectPointer<AcDbText> t(text, AcDb::kForRead);
    EXPECT_STREQ(t->textStringConst(), L"\u00E8") << "single-line text is left alone";
}

TEST_F(Prevody, Z0FlattensTheSupportedKinds)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    AcDbObjectId rovna = vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 0});
    AcDbObjectId sikma = vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 5});
    AcDbObjectId kruh = vykres::Pridej(db, ACDB_MODEL_SPACE, new AcDbCircle({1, 2, 3}, AcGeVector3d::kZAxis, 1));
    auto* pl = new AcDbPolyline(2);
    pl->addVertexAt(0, AcGePoint2d(0, 0));
    pl->addVertexAt(1, AcGePoint2d(5, 0));
    pl->setElevation(7.5);
    AcDbObjectId polylinie = vykres::Pridej(db, ACDB_MODEL_SPACE, pl);
    AcDbObjectId text = vykres::Pridej(db, L"BLOK", new AcDbText({4, 4, -2}, L"A"));
    AcGePoint3d konec;
    {
        TogUPrevodZNaNulu prevod(db);
        EXPECT_EQ(prevod.ProjdiDwg(7, true, 1), 4);
    }
    EXPECT_NE(Zaznam().find(Souhrn(4, 0, 5)), std::wstring::npos) << sim::toUtf8(Zaznam());
    AcDbObjectPointer<AcDbLine> s(sikma, AcDb::kForRead);
    EXPECT_EQ(s->endPoint(), AcGePoint3d(1, 0, 0));
    AcDbObjectPointer<AcDbCircle> k(kruh, AcDb::kForRead);
    EXPECT_EQ(k->center(), AcGePoint3d(1, 2, 0));
    AcDbObjectPointer<AcDbPolyline> p(polylinie, AcDb::kForRead);
    EXPECT_EQ(p->elevation(), 0.0);
    AcDbObjectPointer<AcDbText> t(text, AcDb::kForRead);
    EXPECT_EQ(t->position(), AcGePoint3d(4, 4, 0));
    (void)rovna;
}

TEST_F(Prevody, Z0CountsEntitiesOnLockedLayersAsNotChanged)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    AcDbObjectId zamcena = vykres::Hladina(db, L"ZAMCENA", false, false, true);
    auto* usecka = new AcDbLine({0, 0, 1}, {1, 0, 1});
    usecka->setLayer(zamcena);
    AcDbObjectId id = vykres::Pridej(db, ACDB_MODEL_SPACE, usecka);
    TogUPrevodZNaNulu prevod(db);
    EXPECT_EQ(prevod.ProjdiDwg(7, true, 1), 0);
    EXPECT_NE(Zaznam().find(Souhrn(0, 1, 1)), std::wstring::npos) << sim::toUtf8(Zaznam());
    AcDbObjectPointer<AcDbLine> u(id, AcDb::kForRead);
    EXPECT_EQ(u->startPoint().z, 1.0);
}

TEST_F(Prevody, LineTypeScaleAndTheByLayerSwitches)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    auto* usecka = new AcDbLine({0, 0, 0}, {1, 0, 0});
    usecka->setColorIndex(1);
    usecka->setLineWeight(AcDb::kLnWt050);
    usecka->setLinetype(db->continuousLinetype());
    usecka->setLinetypeScale(1.5);
    AcDbObjectId id = vykres::Pridej(db, ACDB_MODEL_SPACE, usecka);

    auto zkontroluj = [id](double meritko, Adesk::UInt16 barva, AcDb::LineWeight tloustka, AcDbObjectId typ) {
        AcDbObjectPointer<AcDbLine> u(id, AcDb::kForRead);
        EXPECT_DOUBLE_EQ(u->linetypeScale(), meritko);
        EXPECT_EQ(u->colorIndex(), barva);
        EXPECT_EQ(u->lineWeight(), tloustka);
        EXPECT_EQ(u->linetypeId(), typ);
    };
    // No switch: only the scale; twice by 2 is four times.
    TogUZmenMeritkoLT(db, 2.0, 0).ProjdiDwg(7, false, 1);
    TogUZmenMeritkoLT(db, 2.0, 0).ProjdiDwg(7, false, 1);
    zkontroluj(6.0, 1, AcDb::kLnWt050, db->continuousLinetype());
    // The settings' default (colour and line weight).
    TogUZmenLTScaleNaJedna(db, CTogBaseNastav::kVychoziPrepinace).ProjdiDwg(7, false, 1);
    zkontroluj(1.0, 256, AcDb::kLnWtByLayer, db->continuousLinetype());
    TogUZmenMeritkoLT(db, 0.5, kByLayerTypCary).ProjdiDwg(7, false, 1);
    zkontroluj(0.5, 256, AcDb::kLnWtByLayer, db->byLayerLinetype());
}

TEST_F(Prevody, SmazTextyLeavesHiddenLayersAndOtherSpaces)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    AcDbObjectId zmrazena = vykres::Hladina(db, L"ZMRAZENA", false, true);
    AcDbObjectId vypnuta = vykres::Hladina(db, L"VYPNUTA", true);
    AcDbObjectId smazat1 = Text(db, L"šachta Š1");
    AcDbObjectId smazat2 = MText(db, ACDB_MODEL_SPACE, L"{\\fArial;šachta} Š2");
    AcDbObjectId jinak = Text(db, L"Šachta");
    AcDbObjectId skryta = Text(db, L"šachta", zmrazena);
    Text(db, L"nic", vypnuta);
    AcDbObjectId usecka = vykres::Usecka(db, ACDB_MODEL_SPACE, {0, 0, 0}, {1, 0, 0});
    AcDbObjectId vBloku = MText(db, L"BLOK", L"šachta");
    AcDbObjectId naPapire = MText(db, ACDB_PAPER_SPACE, L"šachta");

    SmazTextObsahujici mazani(db, L"šachta");
    EXPECT_EQ(mazani.ProjdiDwg(1, true, 1), 2);
    EXPECT_NE(Zaznam().find(Souhrn(2, 2, 6)), std::wstring::npos) << sim::toUtf8(Zaznam());
    for (AcDbObjectId id : {smazat1, smazat2})
        EXPECT_TRUE(id.isErased());
    for (AcDbObjectId id : {jinak, skryta, usecka, vBloku, naPapire})
        EXPECT_FALSE(id.isErased());

    SmazTextObsahujici prazdny(db, L"");
    EXPECT_EQ(prazdny.ProjdiDwg(1, false, 1), 0);
    EXPECT_FALSE(jinak.isErased());
}

TEST_F(Prevody, ZmenHladinuMovesOnlyThePairedLayers)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    AcDbObjectId stara = vykres::Hladina(db, L"STARA");
    AcDbObjectId nova = vykres::Hladina(db, L"NOVA");
    AcDbObjectId jina = vykres::Hladina(db, L"JINA");
    auto naHladine = [db](AcDbObjectId hladina, const ACHAR* zaznam) {
        auto* u = new AcDbLine({0, 0, 0}, {1, 0, 0});
        u->setLayer(hladina);
        return vykres::Pridej(db, zaznam, u);
    };
    AcDbObjectId a = naHladine(stara, ACDB_MODEL_SPACE);
    AcDbObjectId b = naHladine(stara, L"BLOK");
    AcDbObjectId c = naHladine(jina, ACDB_MODEL_SPACE);
    CTogCmd::ZmenHladinu zmena(db, {{stara, nova}, {jina, AcDbObjectId::kNull}});
    EXPECT_EQ(zmena.ProjdiDwg(7, false, 1), 2);
    auto hladina = [](AcDbObjectId id) { return AcDbObjectPointer<AcDbEntity>(id, AcDb::kForRead)->layerId(); };
    EXPECT_EQ(hladina(a), nova);
    EXPECT_EQ(hladina(b), nova);
    EXPECT_EQ(hladina(c), jina);
}

TEST_F(Prevody, ZmenStyluChangesMTextStyleAndLineTypes)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    AcDbTextStyleTablePointer styly(db, AcDb::kForWrite);
    auto* novy = new AcDbTextStyleTableRecord;
    novy->setName(L"TG_NOVY");
    AcDbObjectId idNoveho;
    ASSERT_EQ(styly->add(idNoveho, novy), Acad::eOk);
    novy->close();
    styly.close();
    auto* m = new AcDbMText;
    m->setContents(L"x");
    m->setTextStyle(db->textstyle());
    AcDbObjectId mtext = vykres::Pridej(db, ACDB_MODEL_SPACE, m);
    auto* u = new AcDbLine({0, 0, 0}, {1, 0, 0});
    u->setLinetype(db->continuousLinetype());
    AcDbObjectId usecka = vykres::Pridej(db, ACDB_MODEL_SPACE, u);

    CTogCmd::ZmenTS_DS_MLS zmena(db);
    zmena.textStyly = {{db->textstyle(), idNoveho}};
    zmena.typyCar = {{db->continuousLinetype(), db->byLayerLinetype()}};
    EXPECT_EQ(zmena.ProjdiDwg(7, false, 1), 2);
    EXPECT_EQ(AcDbObjectPointer<AcDbMText>(mtext, AcDb::kForRead)->textStyle(), idNoveho);
    EXPECT_EQ(AcDbObjectPointer<AcDbLine>(usecka, AcDb::kForRead)->linetypeId(), db->byLayerLinetype());
}

TEST_F(Prevody, SmazTextyLooksIntoMultileadersWithText)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    auto* obsah = new AcDbMText;
    obsah->setContents(L"DN 150 smazat");
    auto* odkaz = new AcDbMLeader;
    if (odkaz->setContentType(AcMLeaderStyle::kMTextContent) == Acad::eNotImplementedYet) {
        delete odkaz;
        delete obsah;
        GTEST_SKIP() << "the platform's multileader is not there yet";
    }
    odkaz->setMText(obsah);
    delete obsah;
    int cara = 0;
    odkaz->addLeaderLine(AcGePoint3d(0, 0, 0), cara);
    AcDbObjectId id = vykres::Pridej(db, ACDB_MODEL_SPACE, odkaz);
    auto* bezTextu = new AcDbMLeader;
    bezTextu->setContentType(AcMLeaderStyle::kNoneContent);
    AcDbObjectId jiny = vykres::Pridej(db, ACDB_MODEL_SPACE, bezTextu);
    SmazTextObsahujici mazani(db, L"smazat");
    EXPECT_EQ(mazani.ProjdiDwg(1, false, 1), 1);
    EXPECT_TRUE(id.isErased());
    EXPECT_FALSE(jiny.isErased());
}

TEST_F(Prevody, ZmenStyluOfDimensionsAndMultileaders)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    AcDbObjectId textovy, kotovy;
    {
        AcDbTextStyleTablePointer styly(db, AcDb::kForWrite);
        auto* novy = new AcDbTextStyleTableRecord;
        novy->setName(L"TG_TEXT");
        ASSERT_EQ(styly->add(textovy, novy), Acad::eOk);
        novy->close();
        AcDbDimStyleTablePointer koty(db, AcDb::kForWrite);
        auto* kota = new AcDbDimStyleTableRecord;
        kota->setName(L"TG_VODA1");
        ASSERT_EQ(koty->add(kotovy, kota), Acad::eOk);
        kota->close();
    }
    auto* kota = new AcDbAlignedDimension({0, 0, 0}, {10, 0, 0}, {5, 5, 0}, nullptr, db->dimstyle());
    AcDbObjectId idKoty = vykres::Pridej(db, ACDB_MODEL_SPACE, kota);
    AcDbObjectId puvodniText = AcDbObjectPointer<AcDbDimension>(idKoty, AcDb::kForRead)->dimtxsty();
    auto* odkaz = new AcDbMLeader;
    if (odkaz->setTextStyleId(db->textstyle()) == Acad::eNotImplementedYet) {
        delete odkaz;
        GTEST_SKIP() << "the platform's multileader is not there yet";
    }
    AcDbObjectId idOdkazu = vykres::Pridej(db, ACDB_MODEL_SPACE, odkaz);
    AcDbObjectId textOdkazu = AcDbObjectPointer<AcDbMLeader>(idOdkazu, AcDb::kForRead)->textStyleId();

    CTogCmd::ZmenTS_DS_MLS zmena(db);
    zmena.textStyly = {{puvodniText, textovy}};
    if (textOdkazu != puvodniText)
        zmena.textStyly.push_back({textOdkazu, textovy});
    zmena.kotaStyly = {{db->dimstyle(), kotovy}};
    EXPECT_EQ(zmena.ProjdiDwg(1, false, 1), 2);
    AcDbObjectPointer<AcDbDimension> k(idKoty, AcDb::kForRead);
    EXPECT_EQ(k->dimensionStyle(), kotovy);
    EXPECT_EQ(k->dimtxsty(), textovy);
    EXPECT_EQ(AcDbObjectPointer<AcDbMLeader>(idOdkazu, AcDb::kForRead)->textStyleId(), textovy);
}

TEST_F(Prevody, NajdiBlokRefsByNamePartOrId)
{
    Spust();
    AcDbDatabase* db = Pracovni();
    vykres::Usecka(db, L"Kacena_TG", {0, 0, 0}, {1, 0, 0});
    vykres::Usecka(db, L"RAMECEK", {0, 0, 0}, {1, 0, 0});
    AcDbObjectId kacena, ramecek;
    {
        AcDbBlockTablePointer bloky(db);
        bloky->getAt(L"Kacena_TG", kacena);
        bloky->getAt(L"RAMECEK", ramecek);
    }
    AcDbObjectId r1 = vykres::Pridej(db, ACDB_MODEL_SPACE, new AcDbBlockReference({0, 0, 0}, kacena));
    AcDbObjectId r2 = vykres::Pridej(db, ACDB_PAPER_SPACE, new AcDbBlockReference({0, 0, 0}, ramecek));

    CTogCmd::CNajdiBlokRefs presne(db, L"kacena_tg", false);
    EXPECT_EQ(presne.ProjdiDwg(7, false, 1), 1);
    EXPECT_EQ(presne.nalezene, std::vector<AcDbObjectId>{r1});
    CTogCmd::CNajdiBlokRefs cast(db, L"ACEN", true);
    cast.ProjdiDwg(7, false, 1);
    EXPECT_EQ(cast.nalezene, std::vector<AcDbObjectId>{r1});
    CTogCmd::CNajdiBlokRefs neni(db, L"ACEN", false);
    EXPECT_EQ(neni.ProjdiDwg(7, false, 1), 0);
    CTogCmd::CNajdiBlokRefs podleId(db, L"", false, ramecek);
    podleId.ProjdiDwg(7, false, 1);
    EXPECT_EQ(podleId.nalezene, std::vector<AcDbObjectId>{r2});
}
