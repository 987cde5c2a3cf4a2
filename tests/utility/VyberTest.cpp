// The shared picks: one entity with the implied selection first, and the nested picks that reach
// into blocks and cut the segment of a polyline out.
#include <memory>

#include "VnorenyVyber.h"
#include "VykresUtility.h"

using namespace vykres;

class VyberTest : public SystemNaPlatforme {};

TEST_F(VyberTest, JednaEntitaBereNejdrivPredvyberAJinakOpakujeVyzvu)
{
    Spust("10,0\n");
    AcDbObjectId text = Model(new AcDbText(AcGePoint3d(20, 0, 0), L"A", AcDbObjectId::kNull, 2.0));
    AcDbObjectId cara = Model(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(20, -20, 0)));
    (void)cara;
    FiltrTypu filtr{L"TEXT", L"MTEXT"};
    {
        // Selected before the command: taken at once, and the grips go.
        ads_name ent, sada;
        acdbGetAdsName(ent, text);
        acedSSAdd(ent, nullptr, sada);
        acedSSSetFirst(sada, nullptr);
        acedSSFree(sada);
        SadaVyberu vyber;
        ASSERT_TRUE(VyberJednuEntitu(vyber, filtr.Retezec(), L"TEXT nebo MTEXT"));
        EXPECT_EQ(vyber.Id(0), text);
        resbuf *g = nullptr, *p = nullptr;
        acedSSGetFirst(&g, &p);
        EXPECT_EQ(p, nullptr);
    }
    // Nothing selected before: the prompt names the noun; a pick on a line is filtered out and the
    // input ends, which cancels.
    SadaVyberu vyber;
    EXPECT_FALSE(VyberJednuEntitu(vyber, filtr.Retezec(), L"TEXT nebo MTEXT"));
    EXPECT_NE(Zaznam().find(L"Vyber TEXT nebo MTEXT:"), std::wstring::npos);
    EXPECT_FALSE(vyber.Plna());
}

TEST_F(VyberTest, CaraVBlokuPrichaziSTransformaciBloku)
{
    Spust("0,10\n");
    AcDbObjectId blok = Blok(L"B", {new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0))});
    AcDbObjectId ref = Reference(blok, AcGePoint3d(0, 0, 0), M_PI / 2);
    VnorenaEntita v;
    ASSERT_EQ(VyberCaruNeboText(v), 0);
    auto* cara = AcDbLine::cast(v.Entita());
    ASSERT_NE(cara, nullptr);
    EXPECT_EQ(v.kontejner, ref);
    // The line keeps its block coordinates; the transform brings its end to where it is drawn.
    EXPECT_NEAR(cara->endPoint().x, 10.0, 1e-9);
    AcGePoint3d konec = v.doSveta * cara->endPoint();
    EXPECT_NEAR(konec.x, 0.0, 1e-9);
    EXPECT_NEAR(konec.y, 10.0, 1e-9);
}

TEST_F(VyberTest, UsekPolylinieJeNovaCaraAObloukSeOdmitne)
{
    // A polyline: a straight segment along X, then a half circle (bulge 1) up to (10,10).
    Spust("5,0\n15,5\n");
    auto* pl = new AcDbPolyline;
    pl->addVertexAt(0, AcGePoint2d(0, 0));
    pl->addVertexAt(1, AcGePoint2d(10, 0), 1.0);
    pl->addVertexAt(2, AcGePoint2d(10, 10));
    AcDbObjectId id = Model(pl);
    {
        VnorenaEntita v;
        ASSERT_EQ(VyberCaruNeboText(v), 0);
        auto* cara = AcDbLine::cast(v.Entita());
        ASSERT_NE(cara, nullptr);
        EXPECT_EQ(v.vlastnikSegmentu, id);
        EXPECT_TRUE(v.kontejner.isNull());
        EXPECT_NEAR(cara->endPoint().x, 10.0, 1e-9);
        // The polyline itself is closed again: it opens for write.
        AcDbObjectPointer<AcDbPolyline> zapis(id, AcDb::kForWrite);
        EXPECT_EQ(zapis.openStatus(), Acad::eOk);
    }
    // An arc segment is no line: refused, and the input ends.
    VnorenaEntita v;
    EXPECT_EQ(VyberCaruNeboText(v), 3);
    EXPECT_NE(Zaznam().find(L"Nebyla vybrána úsečka"), std::wstring::npos);
}

/// The segment of the marker, as the platform cuts it out of the polyline.
static AcDbEntity* Usek(const AcDbPolyline& pl, int znacka)
{
    int pocet = 0;
    AcDbFullSubentPath* cesty = nullptr;
    EXPECT_EQ(pl.getSubentPathsAtGsMarker(AcDb::kEdgeSubentType, znacka, AcGePoint3d(), AcGeMatrix3d::kIdentity,
                                          pocet, cesty),
              Acad::eOk);
    EXPECT_EQ(pocet, 1);
    AcDbEntity* e = pocet == 1 ? pl.subentPtr(cesty[0]) : nullptr;
    delete[] cesty;
    return e;
}

TEST(UsekPolylinie, ObloukyNaObouStranachTetivyAUzavrenySegment)
{
    AcDbPolyline pl;
    pl.addVertexAt(0, AcGePoint2d(0, 0));
    pl.addVertexAt(1, AcGePoint2d(10, 0), 1.0);
    pl.addVertexAt(2, AcGePoint2d(10, 10), -1.0);
    pl.setClosed(true);
    std::unique_ptr<AcDbEntity> ccw(Usek(pl, 2)), cw(Usek(pl, 3));
    auto* a = AcDbArc::cast(ccw.get());
    ASSERT_NE(a, nullptr);
    EXPECT_NEAR(a->center().x, 10.0, 1e-9);
    EXPECT_NEAR(a->center().y, 5.0, 1e-9);
    EXPECT_NEAR(a->radius(), 5.0, 1e-9);
    AcGePoint3d p;
    a->getPointAtParam(a->startAngle() + a->totalAngle() / 2, p);
    EXPECT_NEAR(p.x, 15.0, 1e-9);
    // The closing segment runs clockwise from (10,10) back to the start, past the lower right.
    auto* b = AcDbArc::cast(cw.get());
    ASSERT_NE(b, nullptr);
    EXPECT_NEAR(b->center().x, 5.0, 1e-9);
    EXPECT_NEAR(b->center().y, 5.0, 1e-9);
    b->getPointAtParam(b->startAngle() + b->totalAngle() / 2, p);
    EXPECT_NEAR(p.x, 10.0, 1e-9);
    EXPECT_NEAR(p.y, 0.0, 1e-9);
    // Beyond the last segment there is nothing.
    int pocet = 0;
    AcDbFullSubentPath* cesty = nullptr;
    EXPECT_NE(pl.getSubentPathsAtGsMarker(AcDb::kEdgeSubentType, 4, AcGePoint3d(), AcGeMatrix3d::kIdentity, pocet, cesty),
              Acad::eOk);
    EXPECT_EQ(cesty, nullptr);
}

TEST_F(VyberTest, JinyDruhSeOdmitneAVyberSeOpakuje)
{
    Spust("30,0\n0,0\n");
    Model(new AcDbCircle(AcGePoint3d(25, 0, 0), AcGeVector3d::kZAxis, 5.0));
    Model(new AcDbText(AcGePoint3d(0, 0, 0), L"A", AcDbObjectId::kNull, 2.0));
    VnorenaEntita v;
    ASSERT_EQ(VyberCaruNeboText(v), 0);
    EXPECT_NE(AcDbText::cast(v.Entita()), nullptr);
    EXPECT_NE(Zaznam().find(L"Musíte vybrat úsečku, polyline, text nebo Mtext!!!"), std::wstring::npos);
}

TEST_F(VyberTest, TextDavaAtributBlokuAEscapeNicNenechaOtevrene)
{
    Spust("0.3,0.3\n^C\n");
    AcDbObjectId blok = Blok(L"S", {new AcDbCircle(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, 50.0)});
    AcDbObjectId ref = Reference(blok, AcGePoint3d(0, 0, 0), 0.0, {{L"DNO", L"243.10"}});
    {
        VnorenaEntita v;
        ASSERT_EQ(VyberText(v), 0);
        auto* att = AcDbAttribute::cast(v.Entita());
        ASSERT_NE(att, nullptr);
        EXPECT_STREQ(att->tagConst(), L"DNO");
        EXPECT_EQ(v.kontejner, ref);
    }
    VnorenaEntita v;
    EXPECT_EQ(VyberText(v), 3);
    EXPECT_EQ(v.Entita(), nullptr);
    AcDbObjectPointer<AcDbBlockReference> zapis(ref, AcDb::kForWrite);
    EXPECT_EQ(zapis.openStatus(), Acad::eOk);
}
