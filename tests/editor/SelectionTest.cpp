// Picks by point and by handle, selection modes and filters, nested picks inside block references,
// and the selection-set calls.
#include "EditorFixture.h"

#include "dbdim.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "mleader.h"
#include "sim/db/UnknownObject.h"

namespace {

std::wstring handleText(AcDbObjectId id)
{
    ACHAR buf[20];
    id.handle().getIntoAsciiBuffer(buf, 20);
    return L"#" + std::wstring(buf);
}

resbuf* typeFilter(const ACHAR* a, const ACHAR* b)
{
    return acutBuildList(-4, L"<or", RTDXF0, a, RTDXF0, b, -4, L"or>", 0);
}

std::vector<AcDbObjectId> members(const ads_name ss)
{
    std::vector<AcDbObjectId> ids;
    Adesk::Int32 n = 0;
    acedSSLength(ss, &n);
    for (Adesk::Int32 i = 0; i < n; ++i) {
        ads_name e;
        acedSSName(ss, i, e);
        AcDbObjectId id;
        acdbGetObjectId(id, e);
        ids.push_back(id);
    }
    return ids;
}

} // namespace

class SelectionTest : public EditorTest {
protected:
    /// A block "PIPE" holding a line from (0,0) to (10,0) and a polyline segment above it, inserted at
    /// (100,100) turned a quarter turn, with an attribute "DN" at (200,200).
    AcDbObjectId makeReference()
    {
        AcDbBlockTablePointer table(&db, AcDb::kForWrite);
        auto* block = new AcDbBlockTableRecord;
        block->setName(L"PIPE");
        EXPECT_EQ(table->add(blockId, block), Acad::eOk);
        auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
        EXPECT_EQ(block->appendAcDbEntity(innerLine, line), Acad::eOk);
        line->close();
        auto* pl = new AcDbPolyline;
        pl->addVertexAt(0, AcGePoint2d(0, 5));
        pl->addVertexAt(1, AcGePoint2d(10, 5));
        pl->addVertexAt(2, AcGePoint2d(10, 8));
        EXPECT_EQ(block->appendAcDbEntity(innerPline, pl), Acad::eOk);
        pl->close();
        block->close();
        table.close();
        auto* ref = new AcDbBlockReference(AcGePoint3d(100, 100, 0), blockId);
        ref->setRotation(M_PI / 2);
        AcDbObjectId refId = add(ref);
        AcDbObjectPointer<AcDbBlockReference> open(refId, AcDb::kForWrite);
        auto* att = new AcDbAttribute(AcGePoint3d(200, 200, 0), L"DN100", L"DN");
        att->setHeight(2.5);
        EXPECT_EQ(open->appendAttribute(attribute, att), Acad::eOk);
        att->close();
        return refId;
    }

    AcDbObjectId blockId, innerLine, innerPline, attribute;
};

TEST_F(SelectionTest, PickByPointTakesTheNearestAndOnTieTheLastDrawn)
{
    AcDbObjectId a = addLine(0, 0, 100, 0);
    AcDbObjectId b = addLine(0, 0.5, 100, 0.5);
    AcDbObjectId c = addLine(0, 0, 100, 0); // drawn over a
    script("50,0.4\n50,0\n60,60\n");
    ads_name e;
    ads_point p;
    ASSERT_EQ(acedEntSel(L"Pick: ", e, p), RTNORM);
    EXPECT_EQ(idOf(e), b);
    EXPECT_EQ(asPnt3d(p), AcGePoint3d(50, 0.4, 0));
    ASSERT_EQ(acedEntSel(L"Pick: ", e, p), RTNORM);
    EXPECT_EQ(idOf(e), c) << "of equally near entities the one on top";
    EXPECT_EQ(acedEntSel(L"Pick: ", e, p), RTERROR) << "a pick on empty space";
    (void)a;
}

TEST_F(SelectionTest, PickByPointFindsDimensionsAndMultileaders)
{
    AcDbObjectId kota = add(new AcDbAlignedDimension(AcGePoint3d(0, 0, 0), AcGePoint3d(100, 0, 0), AcGePoint3d(50, 20, 0)));
    auto* odkaz = new AcDbMLeader;
    int cara = 0;
    ASSERT_EQ(odkaz->setTextLocation(AcGePoint3d(250, 50, 0)), Acad::eOk);
    ASSERT_EQ(odkaz->addLeaderLine(AcGePoint3d(200, 0, 0), cara), Acad::eOk);
    AcDbObjectId ml = add(odkaz);
    script("50,20\n0,10\n225,25\n");
    ads_name e;
    ads_point p;
    ASSERT_EQ(acedEntSel(nullptr, e, p), RTNORM);
    EXPECT_EQ(idOf(e), kota) << "on the dimension line";
    ASSERT_EQ(acedEntSel(nullptr, e, p), RTNORM);
    EXPECT_EQ(idOf(e), kota) << "on an extension line";
    ASSERT_EQ(acedEntSel(nullptr, e, p), RTNORM);
    EXPECT_EQ(idOf(e), ml) << "on the leader line";
}

TEST_F(SelectionTest, PickByHandleAndHiddenLayers)
{
    AcDbObjectId line = addLine(0, 0, 10, 0);
    {
        AcDbLayerTablePointer layers(&db, AcDb::kForWrite);
        auto* off = new AcDbLayerTableRecord;
        off->setName(L"vypnutá");
        off->setIsOff(true);
        ASSERT_EQ(layers->add(off), Acad::eOk);
        off->close();
        AcDbEntityPointer e(line, AcDb::kForWrite);
        ASSERT_EQ(e->setLayer(L"vypnutá"), Acad::eOk);
    }
    script(("5,0\n" + sim::toUtf8(handleText(line)) + "\n#FFFF\n").c_str());
    ads_name e;
    ads_point p;
    EXPECT_EQ(acedEntSel(nullptr, e, p), RTERROR) << "an entity on a layer that is off is not seen";
    ASSERT_EQ(acedEntSel(nullptr, e, p), RTNORM) << "but its handle names it";
    EXPECT_EQ(idOf(e), line);
    EXPECT_EQ(acedEntSel(nullptr, e, p), RTERROR) << "a handle of nothing";
}

TEST_F(SelectionTest, FilterWithOrAndRepeatedSelection)
{
    AcDbObjectId line = addLine(0, 0, 10, 0);
    AcDbObjectId circle = add(new AcDbCircle(AcGePoint3d(50, 0, 0), AcGeVector3d::kZAxis, 5));
    AcDbObjectId text = add(new AcDbText(AcGePoint3d(100, 0, 0), L"abc", AcDbObjectId::kNull, 2.5));
    script("5,0\n55,0\n101,1\n5,0\n\n");
    resbuf* filter = typeFilter(L"TEXT", L"line");
    ads_name ss;
    ASSERT_EQ(acedSSGet(nullptr, nullptr, nullptr, filter, ss), RTNORM);
    acutRelRb(filter);
    EXPECT_EQ(members(ss), (std::vector<AcDbObjectId>{line, text})) << "the circle fails the filter, the line comes once";
    EXPECT_NE(transcript().find(L"1 was filtered out."), std::wstring::npos);
    acedSSFree(ss);
    Adesk::Int32 n = 0;
    EXPECT_EQ(acedSSLength(ss, &n), RTERROR) << "a freed set is gone";
    (void)circle;
}

TEST_F(SelectionTest, EmptySelectionIsAnErrorAndEscapeCancels)
{
    addLine(0, 0, 10, 0);
    script("500,500\n\n^C\n");
    ads_name ss;
    EXPECT_EQ(acedSSGet(nullptr, nullptr, nullptr, nullptr, ss), RTERROR);
    EXPECT_EQ(acedSSGet(nullptr, nullptr, nullptr, nullptr, ss), RTCAN);
}

TEST_F(SelectionTest, SingleModeTakesOneAnswerAndPointModeAsksNothing)
{
    AcDbObjectId line = addLine(0, 0, 10, 0);
    AcDbObjectId other = addLine(0, 20, 10, 20);
    script("5,0\n");
    ads_name ss;
    ASSERT_EQ(acedSSGet(L":S", nullptr, nullptr, nullptr, ss), RTNORM);
    EXPECT_EQ(members(ss), std::vector<AcDbObjectId>{line});
    acedSSFree(ss);
    ads_point at = {5, 20, 0};
    resbuf* lines = acutBuildList(RTDXF0, L"LINE", 0);
    ASSERT_EQ(acedSSGet(nullptr, at, nullptr, lines, ss), RTNORM);
    EXPECT_EQ(members(ss), std::vector<AcDbObjectId>{other});
    acedSSFree(ss);
    ads_point nowhere = {5, 10, 0};
    EXPECT_EQ(acedSSGet(nullptr, nowhere, nullptr, lines, ss), RTERROR);
    acutRelRb(lines);
}

TEST_F(SelectionTest, WindowCrossingAllAndHandles)
{
    AcDbObjectId inside = addLine(1, 1, 5, 5);
    AcDbObjectId crossing = addLine(5, 5, 50, 5);
    AcDbObjectId outside = addLine(100, 100, 110, 100);
    std::string handles = sim::toUtf8(handleText(outside) + L" " + handleText(inside));
    script(("w 0,0 10,10\n\nc 0,0 10,10\n\nall\n\n" + handles + "\n\n").c_str());
    ads_name ss;
    ASSERT_EQ(acedSSGet(nullptr, nullptr, nullptr, nullptr, ss), RTNORM);
    EXPECT_EQ(members(ss), std::vector<AcDbObjectId>{inside});
    ASSERT_EQ(acedSSGet(nullptr, nullptr, nullptr, nullptr, ss), RTNORM);
    EXPECT_EQ(members(ss), (std::vector<AcDbObjectId>{inside, crossing}));
    ASSERT_EQ(acedSSGet(nullptr, nullptr, nullptr, nullptr, ss), RTNORM);
    EXPECT_EQ(members(ss).size(), 3u);
    ASSERT_EQ(acedSSGet(nullptr, nullptr, nullptr, nullptr, ss), RTNORM);
    EXPECT_EQ(members(ss), (std::vector<AcDbObjectId>{outside, inside}));
}

TEST_F(SelectionTest, NestedPickGivesTheInnermostEntityAndItsContainers)
{
    AcDbObjectId ref = makeReference();
    // The block is turned a quarter turn at (100,100): its line runs from (100,100) to (100,110).
    script("100,105\n");
    ads_name ss;
    resbuf* inserts = acutBuildList(RTDXF0, L"INSERT", 0);
    ASSERT_EQ(acedSSGet(L"_:N:S", nullptr, nullptr, inserts, ss), RTNORM);
    acutRelRb(inserts);
    ads_name top;
    acedSSName(ss, 0, top);
    EXPECT_EQ(idOf(top), ref) << "acedSSName gives the entity of the space";
    resbuf* chain = nullptr;
    ASSERT_EQ(acedSSNameX(&chain, ss, 0), RTNORM);
    ASSERT_NE(chain, nullptr);
    EXPECT_EQ(chain->restype, RTSHORT);
    EXPECT_EQ(chain->resval.rint, 1) << "selected by a pick";
    resbuf* rb = chain->rbnext;
    ASSERT_EQ(rb->restype, RTENAME);
    EXPECT_EQ(idOf(rb->resval.rlname), innerLine);
    rb = rb->rbnext;
    EXPECT_EQ(rb->restype, RTLONG);
    while (rb && rb->restype != RTLE)
        rb = rb->rbnext;
    ASSERT_NE(rb, nullptr);
    rb = rb->rbnext;
    ASSERT_NE(rb, nullptr);
    EXPECT_EQ(rb->restype, RTENAME);
    EXPECT_EQ(idOf(rb->resval.rlname), ref) << "the container, outermost last";
    EXPECT_EQ(rb->rbnext, nullptr);
    acutRelRb(chain);
    acedSSFree(ss);
}

TEST_F(SelectionTest, NestedPicksOfAPolylineSegmentAndOfAnAttribute)
{
    makeReference();
    // The polyline's second segment, (10,5)-(10,8) in the block, lies from (95,110) to (92,110).
    ads_point onSegment = {93.5, 110, 0};
    ads_name ss;
    ASSERT_EQ(acedSSGet(L"_:n", onSegment, nullptr, nullptr, ss), RTNORM);
    resbuf* chain = nullptr;
    ASSERT_EQ(acedSSNameX(&chain, ss, 0), RTNORM);
    EXPECT_EQ(idOf(chain->rbnext->resval.rlname), innerPline);
    EXPECT_EQ(chain->rbnext->rbnext->resval.rlong, 2) << "the gs marker is the segment index + 1";
    acutRelRb(chain);
    acedSSFree(ss);

    ads_point onAttribute = {201, 201, 0};
    ASSERT_EQ(acedSSGet(L"_:n", onAttribute, nullptr, nullptr, ss), RTNORM);
    ASSERT_EQ(acedSSNameX(&chain, ss, 0), RTNORM);
    EXPECT_EQ(idOf(chain->rbnext->resval.rlname), attribute);
    acutRelRb(chain);
    acedSSFree(ss);

    script("100,105\n");
    ads_name e;
    ads_point p;
    ads_matrix xform;
    resbuf* refs = nullptr;
    ASSERT_EQ(acedNEntSelP(nullptr, e, p, 0, xform, &refs), RTNORM);
    EXPECT_EQ(idOf(e), innerLine);
    ASSERT_NE(refs, nullptr);
    EXPECT_NEAR(xform[0][3], 100.0, 1e-9);
    EXPECT_NEAR(xform[1][0], 1.0, 1e-9) << "the block's X axis runs along world Y";
    acutRelRb(refs);
}

TEST_F(SelectionTest, ImpliedSelectionAndTheCallsOnSets)
{
    AcDbObjectId a = addLine(0, 0, 10, 0);
    AcDbObjectId b = addLine(0, 10, 10, 10);
    ads_name ea, eb, ss, none;
    acdbGetAdsName(ea, a);
    acdbGetAdsName(eb, b);
    EXPECT_EQ(acedSSGet(L"_I", nullptr, nullptr, nullptr, none), RTERROR) << "nothing selected before";
    ASSERT_EQ(acedSSAdd(ea, nullptr, ss), RTNORM);
    ASSERT_EQ(acedSSAdd(eb, ss, ss), RTNORM);
    EXPECT_EQ(acedSSMemb(eb, ss), RTNORM);
    ASSERT_EQ(acedSSSetFirst(ss, nullptr), RTNORM);
    ads_name implied;
    resbuf* lines = acutBuildList(RTDXF0, L"LINE", 0);
    ASSERT_EQ(acedSSGet(L"_I", nullptr, nullptr, lines, implied), RTNORM);
    acutRelRb(lines);
    EXPECT_EQ(members(implied), (std::vector<AcDbObjectId>{a, b}));
    resbuf *gripped = nullptr, *picked = nullptr;
    acedSSGetFirst(&gripped, &picked);
    ASSERT_NE(picked, nullptr);
    EXPECT_EQ(picked->restype, RTPICKS);
    EXPECT_EQ(members(picked->resval.rlname).size(), 2u);
    acutRelRb(gripped);
    acutRelRb(picked);
    sim::editor::endCommand();
    EXPECT_EQ(acedSSGet(L"_I", nullptr, nullptr, nullptr, none), RTERROR) << "the pickfirst set ends with the command";
    ASSERT_EQ(acedSSDel(ea, ss), RTNORM);
    EXPECT_EQ(acedSSDel(ea, ss), RTERROR);
    EXPECT_EQ(members(ss), std::vector<AcDbObjectId>{b});
}

namespace {
// Moves along the UCS X axis only: the drag function of a level mark.
int followX(ads_point pt, ads_matrix mt)
{
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            mt[i][j] = i == j ? 1.0 : 0.0;
    mt[0][3] = pt[0];
    return RTNORM;
}
} // namespace

TEST_F(SelectionTest, DragMovesTheSetToTheAnsweredPoint)
{
    AcDbObjectId line = addLine(0, 0, 10, 0);
    ads_name e, ss;
    acdbGetAdsName(e, line);
    acedSSAdd(e, nullptr, ss);
    script("7,100\n\n");
    ads_point end;
    ASSERT_EQ(acedDragGen(ss, L"Place: ", 0, followX, end), RTNORM);
    EXPECT_EQ(asPnt3d(end), AcGePoint3d(7, 100, 0));
    {
        AcDbObjectPointer<AcDbLine> moved(line);
        EXPECT_EQ(moved->startPoint(), AcGePoint3d(7, 0, 0));
    }
    EXPECT_EQ(acedDragGen(ss, L"Place: ", 0, followX, end), RTNONE);
    acedSSFree(ss);
}

TEST_F(SelectionTest, TextsAndKeptEntitiesArePickedInsideTheirBoxes)
{
    AcDbObjectId text = add(new AcDbText(AcGePoint3d(0, 0, 0), L"DN 100", AcDbObjectId::kNull, 10.0, M_PI / 2));
    auto* m = new AcDbMText;
    m->setLocation(AcGePoint3d(100, 100, 0));
    m->setTextHeight(10.0);
    m->setContents(L"první\\Pdruhý řádek");
    AcDbObjectId mtext = add(m);
    ads_point inText = {-5, 30, 0}; // the text runs upwards from the origin
    ads_point inSecondLine = {130, 78, 0};
    ads_point beside = {30, 5, 0};
    ads_name ss;
    ASSERT_EQ(acedSSGet(nullptr, inText, nullptr, nullptr, ss), RTNORM);
    EXPECT_EQ(members(ss), std::vector<AcDbObjectId>{text});
    acedSSFree(ss);
    ASSERT_EQ(acedSSGet(nullptr, inSecondLine, nullptr, nullptr, ss), RTNORM);
    EXPECT_EQ(members(ss), std::vector<AcDbObjectId>{mtext});
    acedSSFree(ss);
    EXPECT_EQ(acedSSGet(nullptr, beside, nullptr, nullptr, ss), RTERROR);

    // A multileader kept as read from a file: the box of its points, and its record name for filters.
    sim::db::RawTags tags = {{10, "200"}, {20, "0"}, {30, "0"}, {12, "240"}, {22, "20"}, {32, "0"}};
    AcDbObjectId leader = add(new sim::db::UnknownEntity(L"MULTILEADER", tags));
    ads_point onLeader = {220, 10, 0};
    resbuf* leaders = acutBuildList(RTDXF0, L"MULTILEADER", 0);
    ASSERT_EQ(acedSSGet(nullptr, onLeader, nullptr, leaders, ss), RTNORM);
    acutRelRb(leaders);
    EXPECT_EQ(members(ss), std::vector<AcDbObjectId>{leader});
}

TEST_F(SelectionTest, AllWithALayerFilterAndKeywordsAtTheSelectionPrompt)
{
    AcDbObjectId onZero = addLine(0, 0, 10, 0);
    {
        AcDbLayerTablePointer layers(&db, AcDb::kForWrite);
        auto* l = new AcDbLayerTableRecord;
        l->setName(L"ZT_voda");
        layers->add(l);
        l->close();
    }
    AcDbObjectId onWater = addLine(0, 10, 10, 10);
    {
        AcDbEntityPointer e(onWater, AcDb::kForWrite);
        e->setLayer(L"ZT_voda");
    }
    resbuf* water = acutBuildList(8, L"zt_*", 0);
    ads_name ss;
    ASSERT_EQ(acedSSGet(L"_X", nullptr, nullptr, water, ss), RTNORM);
    acutRelRb(water);
    EXPECT_EQ(members(ss), std::vector<AcDbObjectId>{onWater});
    acedSSFree(ss);

    script("5,0\nn\n");
    const ACHAR* prompts[] = {L"\nVyber (přidej): ", L"\nVyber (odeber): "};
    acedInitGet(0, L"N");
    EXPECT_EQ(acedSSGet(L":$", prompts, nullptr, nullptr, ss), RTKWORD);
    ACHAR kw[4];
    acedGetInput(kw, 4);
    EXPECT_STREQ(kw, L"N");
    EXPECT_NE(transcript().find(L"Vyber (přidej): 5,0"), std::wstring::npos);
    (void)onZero;
}
