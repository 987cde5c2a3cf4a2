// A drawing, the platform's session with a script, and a fresh editor, for the editor's tests.
#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "acedads.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "sim/core/Session.h"
#include "sim/editor/EditorState.h"

class EditorTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        sim::editor::resetEditor();
        acdbHostApplicationServices()->setWorkingDatabase(&db);
        setView(AcGePoint2d(0, 0), 900.0); // a pick box of 3 drawing units
    }
    void TearDown() override
    {
        session.reset();
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        sim::editor::resetEditor();
    }

    /// The answers of the prompts to come, one per line.
    void script(const char* utf8)
    {
        session.reset();
        session = std::make_unique<sim::Session>(std::make_unique<sim::ScriptInput>(utf8));
    }
    std::wstring transcript() const { return session->transcript(); }

    /// A new entity in model space; its id.
    AcDbObjectId add(AcDbEntity* e)
    {
        AcDbBlockTableRecordPointer space(ACDB_MODEL_SPACE, &db, AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, e), Acad::eOk);
        e->close();
        return id;
    }
    AcDbObjectId addLine(double x0, double y0, double x1, double y1)
    {
        return add(new AcDbLine(AcGePoint3d(x0, y0, 0), AcGePoint3d(x1, y1, 0)));
    }

    /// Shows the drawing with the view's centre and height: one pixel of the 900 of the screen's
    /// height is height / 900 drawing units, and the pick box PICKBOX (3) pixels.
    void setView(const AcGePoint2d& centre, double height)
    {
        AcDbViewportTableRecordPointer active(L"*Active", &db, AcDb::kForWrite);
        ASSERT_EQ(active.openStatus(), Acad::eOk);
        active->setCenterPoint(centre);
        active->setHeight(height);
    }

    static AcDbObjectId idOf(const ads_name name)
    {
        AcDbObjectId id;
        EXPECT_EQ(acdbGetObjectId(id, name), Acad::eOk);
        return id;
    }

    AcDbDatabase db;
    std::unique_ptr<sim::Session> session;
};
