// What the tests of annotation share: a new drawing from the template (with its scale list and
// layouts), its collection of annotation scales, entities in model space, and a DXF round trip.
#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "dbAnnotationScale.h"
#include "dbAnnotativeObjectPE.h"
#include "dbObjectContextInterface.h"
#include "dbObjectContextManager.h"
#include "dbobjptr.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/FileAccess.h"
#include "sim/dxf/DxfError.h"
#include "sim/dxf/DxfFile.h"
#include "sim/dxf/DxfReader.h"
#include "sim/dxf/DxfWriter.h"
#include "sim/dxf/TagWriter.h"

class AnnotationTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        sim::dxf::installFileFormat();
        db = std::make_unique<AcDbDatabase>(true);
    }
    void TearDown() override
    {
        db.reset();
        back.reset();
        sim::db::setFileFormat(nullptr);
    }

    AcDbObjectContextCollection* scales(AcDbDatabase& d)
    {
        return d.objectContextManager()->contextCollection(ACDB_ANNOTATIONSCALES_COLLECTION);
    }
    AcDbObjectContextCollection* scales() { return scales(*db); }

    std::unique_ptr<AcDbAnnotationScale> scale(const wchar_t* name, AcDbDatabase* d = nullptr)
    {
        return std::unique_ptr<AcDbAnnotationScale>(
            AcDbAnnotationScale::cast(scales(d ? *d : *db)->getContext(AcString(name))));
    }

    AcDbObjectId append(AcDbEntity* e)
    {
        AcDbBlockTableRecordPointer space(ACDB_MODEL_SPACE, db.get(), AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, e), Acad::eOk);
        e->close();
        return id;
    }

    static std::string write(AcDbDatabase& d)
    {
        sim::dxf::TextTagWriter w;
        sim::dxf::writeDxf(d, w);
        return w.contents();
    }

    /// Writes the drawing, reads it into `back` and checks that `back` writes the same text.
    void roundTrip()
    {
        first = write(*db);
        back = std::make_unique<AcDbDatabase>(false, true);
        try {
            sim::dxf::readDxf(*back, first);
        } catch (const sim::dxf::DxfError& e) {
            FAIL() << e.what();
        }
        EXPECT_TRUE(write(*back) == first) << "a second write differs";
    }

    /// The same object in the database read back.
    template <class T>
    T* same(AcDbObjectId id)
    {
        return T::cast(sim::db::objectOf(AcDbObjectId(back.get(), id.handle())));
    }

    static AcDbAnnotativeObjectPE* annotativePE(const AcDbObject* obj)
    {
        return AcDbAnnotativeObjectPE::cast(obj->queryX(AcDbAnnotativeObjectPE::desc()));
    }
    static AcDbObjectContextInterface* contexts(const AcDbObject* obj)
    {
        return AcDbObjectContextInterface::cast(obj->queryX(AcDbObjectContextInterface::desc()));
    }

    std::unique_ptr<AcDbDatabase> db, back;
    std::string first;
};
