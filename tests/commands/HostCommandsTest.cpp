// The host's own commands as scripts drive them: the table's lookup, and the drawings they build.
#include "editor/EditorFixture.h"

#include <cmath>

#include "dbpl.h"
#include "sim/commands/HostCommands.h"

using sim::commands::HostCommands;

namespace {

/// The entities of model space, in drawing order.
std::vector<AcDbObjectId> modelSpace(AcDbDatabase& db)
{
    std::vector<AcDbObjectId> ids;
    AcDbBlockTableRecordPointer space(ACDB_MODEL_SPACE, &db);
    AcDbBlockTableRecordIterator* it = nullptr;
    space->newIterator(it);
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getEntityId(id);
        ids.push_back(id);
    }
    delete it;
    return ids;
}

} // namespace

class HostCommandsTest : public EditorTest {
protected:
    /// Runs a command by name on the script's answers.
    void run(const wchar_t* name, const char* answers)
    {
        script(answers);
        auto cmd = HostCommands::find(name);
        ASSERT_TRUE(cmd) << "no command " << sim::toUtf8(name);
        cmd();
        sim::editor::endCommand();
    }
};

TEST_F(HostCommandsTest, NamesAreFoundAsTheCommandLineTypesThem)
{
    for (const wchar_t* name : {L"LINE", L"_line", L"._Line", L"_.PLINE", L"_-LAYER", L"-layer", L"layer", L"_SETVAR", L"osmode"})
        EXPECT_TRUE(HostCommands::find(name)) << sim::toUtf8(name);
    for (const wchar_t* name : {L"", L"_", L"LINES", L"NOSUCHCOMMAND"})
        EXPECT_FALSE(HostCommands::find(name)) << sim::toUtf8(name);
    bool called = false;
    HostCommands::add(L"_QSAVE", [&] { called = true; });
    HostCommands::find(L"qsave")();
    EXPECT_TRUE(called) << "other modules add their commands to the same table";
}

TEST_F(HostCommandsTest, LineDrawsSegmentsWithUndoAndClose)
{
    run(L"_LINE", "0,0\n10,0\n20,0\nu\n10,10\nc\n");
    auto ids = modelSpace(db);
    ASSERT_EQ(ids.size(), 3u) << "the undone segment is gone";
    AcDbObjectPointer<AcDbLine> last(ids.back());
    ASSERT_EQ(last.openStatus(), Acad::eOk);
    EXPECT_EQ(last->startPoint(), AcGePoint3d(10, 10, 0));
    EXPECT_EQ(last->endPoint(), AcGePoint3d(0, 0, 0)) << "Close returns to the first point";
    EXPECT_EQ(last->layerId(), db.clayer());
}

TEST_F(HostCommandsTest, LineInARotatedUcsLandsInTheWorld)
{
    AcGeMatrix3d ucs;
    ucs.setCoordSystem(AcGePoint3d(100, 0, 0), AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    acedSetCurrentUCS(ucs);
    run(L"LINE", "0,0\n10,0\n\n");
    auto ids = modelSpace(db);
    ASSERT_EQ(ids.size(), 1u);
    AcDbObjectPointer<AcDbLine> line(ids[0]);
    EXPECT_TRUE(line->endPoint().isEqualTo(AcGePoint3d(100, 10, 0)));
}

TEST_F(HostCommandsTest, PlineWithWidthArcAndClose)
{
    run(L"_PLINE", "0,0\nw\n1\n\n10,0\na\n10,10\nl\n0,10\nc\n");
    auto ids = modelSpace(db);
    ASSERT_EQ(ids.size(), 1u);
    AcDbObjectPointer<AcDbPolyline> pl(ids[0]);
    ASSERT_EQ(pl.openStatus(), Acad::eOk);
    ASSERT_EQ(pl->numVerts(), 4u);
    EXPECT_TRUE(pl->isClosed());
    double bulge = 0, w0 = 0, w1 = 0;
    pl->getBulgeAt(1, bulge);
    EXPECT_NEAR(bulge, 1.0, 1e-9) << "a tangent half circle from heading east up to (10,10)";
    pl->getBulgeAt(2, bulge);
    EXPECT_DOUBLE_EQ(bulge, 0.0);
    pl->getWidthsAt(0, w0, w1);
    EXPECT_DOUBLE_EQ(w0, 1.0);
    EXPECT_DOUBLE_EQ(w1, 1.0);
}

TEST_F(HostCommandsTest, CircleByRadiusDiameterAndPoints)
{
    run(L"_CIRCLE", "5,5\n2\n");
    run(L"_CIRCLE", "0,0\nd\n10\n");
    run(L"_CIRCLE", "2p\n0,0\n4,0\n");
    run(L"_CIRCLE", "3p\n1,0\n0,1\n-1,0\n");
    auto ids = modelSpace(db);
    ASSERT_EQ(ids.size(), 4u);
    double radii[] = {2, 5, 2, 1};
    AcGePoint3d centres[] = {{5, 5, 0}, {0, 0, 0}, {2, 0, 0}, {0, 0, 0}};
    for (int i = 0; i < 4; ++i) {
        AcDbObjectPointer<AcDbCircle> c(ids[static_cast<size_t>(i)]);
        ASSERT_EQ(c.openStatus(), Acad::eOk);
        EXPECT_NEAR(c->radius(), radii[i], 1e-9);
        EXPECT_TRUE(c->center().isEqualTo(centres[i]));
    }
}

TEST_F(HostCommandsTest, TextLinesWithHeightRotationAndJustification)
{
    run(L"_TEXT", "0,0\n5\n90\nPrvní řádek\nDruhý\n\n");
    run(L"_TEXT", "j\nmc\n50,50\n\n0\nStřed\n\n");
    auto ids = modelSpace(db);
    ASSERT_EQ(ids.size(), 3u);
    AcDbObjectPointer<AcDbText> first(ids[0]), second(ids[1]), centred(ids[2]);
    EXPECT_STREQ(first->textStringConst(), L"První řádek");
    EXPECT_DOUBLE_EQ(first->height(), 5.0);
    EXPECT_NEAR(first->rotation(), M_PI / 2, 1e-12);
    EXPECT_TRUE(second->position().isEqualTo(AcGePoint3d(5.0 * 5 / 3, 0, 0))) << "the next line sits below the first";
    EXPECT_EQ(centred->horizontalMode(), AcDb::kTextCenter);
    EXPECT_EQ(centred->verticalMode(), AcDb::kTextVertMid);
    EXPECT_TRUE(centred->alignmentPoint().isEqualTo(AcGePoint3d(50, 50, 0)));
    EXPECT_DOUBLE_EQ(centred->height(), 5.0) << "Enter takes the last height";
}

TEST_F(HostCommandsTest, LayerMakeFreezeColourAndSet)
{
    run(L"_-LAYER", "m\nZT_kóty\nc\n3\nZT_kóty\nn\nA,B\nf\nB\nf\nZT_kóty\nlo\na\n\n");
    AcDbLayerTableRecordPointer made(L"zt_kóty", &db);
    ASSERT_EQ(made.openStatus(), Acad::eOk);
    EXPECT_EQ(db.clayer(), made->objectId()) << "Make sets the layer current";
    EXPECT_EQ(made->color().colorIndex(), 3);
    EXPECT_FALSE(made->isFrozen()) << "the current layer cannot be frozen";
    EXPECT_NE(transcript().find(L"It is the CURRENT layer."), std::wstring::npos);
    AcDbLayerTableRecordPointer a(L"A", &db), b(L"B", &db);
    ASSERT_EQ(b.openStatus(), Acad::eOk);
    EXPECT_TRUE(b->isFrozen());
    EXPECT_TRUE(a->isLocked());
    made.close();
    run(L"LAYER", "s\n0\n\n");
    EXPECT_EQ(db.clayer(), db.layerZero());
}

TEST_F(HostCommandsTest, UcsNamedSaveRestoreAndWorld)
{
    run(L"_UCS", "100,50\n100,60\n\n");
    EXPECT_TRUE(db.ucsxdir().isEqualTo(AcGeVector3d::kYAxis));
    EXPECT_EQ(db.ucsorg(), AcGePoint3d(100, 50, 0));
    run(L"_UCS", "na\ns\nOsa\n");
    run(L"_UCS", "w\n");
    EXPECT_TRUE(db.ucsxdir().isEqualTo(AcGeVector3d::kXAxis));
    run(L"_UCS", "na\nr\nosa\n");
    EXPECT_TRUE(db.ucsxdir().isEqualTo(AcGeVector3d::kYAxis));
    resbuf name{};
    acedGetVar(L"UCSNAME", &name);
    EXPECT_STREQ(name.resval.rstring, L"Osa");
    acutDelString(name.resval.rstring);
    run(L"_UCS", "z\n-90\n");
    EXPECT_TRUE(db.ucsxdir().isEqualTo(AcGeVector3d::kXAxis));
    acedGetVar(L"UCSNAME", &name);
    EXPECT_STREQ(name.resval.rstring, L"") << "a changed UCS has no name";
    acutDelString(name.resval.rstring);
    run(L"_UCS", "p\n");
    EXPECT_TRUE(db.ucsxdir().isEqualTo(AcGeVector3d::kYAxis));
}

TEST_F(HostCommandsTest, SetvarAndVariableNamesAsCommands)
{
    run(L"_SETVAR", "pickbox\n7\n");
    run(L"OSMODE", "512\n");
    run(L"PICKBOX", "99\n");
    resbuf rb{};
    acedGetVar(L"PICKBOX", &rb);
    EXPECT_EQ(rb.resval.rint, 7) << "an invalid value leaves the old one";
    acedGetVar(L"OSMODE", &rb);
    EXPECT_EQ(rb.resval.rint, 512);
    EXPECT_NE(transcript().find(L"*Invalid value*"), std::wstring::npos);
    run(L"UCSORG", "");
    EXPECT_NE(transcript().find(L"(read only)"), std::wstring::npos);
}

TEST_F(HostCommandsTest, PickfirstServesTheNextCommandOnly)
{
    AcDbObjectId a = addLine(0, 0, 10, 0);
    AcDbObjectId b = addLine(0, 10, 10, 10);
    run(L"_PICKFIRST", "5,0\n\n");
    ads_name ss;
    ASSERT_EQ(acedSSGet(L"_I", nullptr, nullptr, nullptr, ss), RTNORM) << "the next command finds it";
    acedSSFree(ss);
    sim::editor::endCommand();
    EXPECT_EQ(acedSSGet(L"_I", nullptr, nullptr, nullptr, ss), RTERROR);
    run(L"_PICKFIRST", "5,10\n\n");
    run(L"_ERASE", "");
    EXPECT_FALSE(a.isErased());
    EXPECT_TRUE(b.isErased()) << "ERASE takes the pickfirst set without asking";
}

TEST_F(HostCommandsTest, EscapeInsideACommandKeepsWhatWasDrawn)
{
    run(L"_LINE", "0,0\n10,0\n^C\n");
    EXPECT_EQ(modelSpace(db).size(), 1u);
    run(L"_PLINE", "0,0\n10,0\n");
    EXPECT_EQ(modelSpace(db).size(), 2u) << "input that runs out ends the polyline where it stands";
    EXPECT_TRUE(session->waitingPrompt());
}

TEST_F(HostCommandsTest, ZoomSetsTheViewThatPicksAreMeasuredIn)
{
    AcDbObjectId line = addLine(0, 0, 100, 0);
    run(L"_ZOOM", "0,-45\n10,45\n");
    resbuf size{}, centre{};
    acedGetVar(L"VIEWSIZE", &size);
    acedGetVar(L"VIEWCTR", &centre);
    EXPECT_DOUBLE_EQ(size.resval.rreal, 90.0);
    EXPECT_TRUE(asPnt3d(centre.resval.rpoint).isEqualTo(AcGePoint3d(5, 0, 0)));
    ads_point near = {50, 0.2, 0}; // the pick box is 3 pixels of 0.1 units
    ads_name ss;
    ASSERT_EQ(acedSSGet(nullptr, near, nullptr, nullptr, ss), RTNORM);
    acedSSFree(ss);
    run(L"ZOOM", "10x\n");
    acedGetVar(L"VIEWSIZE", &size);
    EXPECT_DOUBLE_EQ(size.resval.rreal, 9.0);
    EXPECT_EQ(acedSSGet(nullptr, near, nullptr, nullptr, ss), RTERROR) << "zoomed in, the pick box covers less";
    run(L"ZOOM", "e\n");
    acedGetVar(L"VIEWSIZE", &size);
    EXPECT_GT(size.resval.rreal, 100.0 * 9 / 16);
    (void)line;
}
