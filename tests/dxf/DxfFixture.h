// What the tests of the DXF module share: a new drawing from the template, entities appended to
// model space, a drawing written to DXF text and read back, and one record's groups.
#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "dbobjptr.h"
#include "dbsymtb.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/FileAccess.h"
#include "sim/dxf/DxfError.h"
#include "sim/dxf/DxfFile.h"
#include "sim/dxf/DxfReader.h"
#include "sim/dxf/DxfWriter.h"
#include "sim/dxf/TagReader.h"
#include "sim/dxf/TagWriter.h"

/// The module serves the database's file calls (and completes new drawings) during each test.
class DxfTest : public ::testing::Test {
protected:
    void SetUp() override { sim::dxf::installFileFormat(); }
    void TearDown() override { sim::db::setFileFormat(nullptr); }
};

namespace dxftest {

/// Appends an entity to the model space of db; gives its id.
inline AcDbObjectId append(AcDbDatabase& db, AcDbEntity* e)
{
    AcDbBlockTableRecordPointer space(ACDB_MODEL_SPACE, &db, AcDb::kForWrite);
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, e), Acad::eOk);
    e->close();
    return id;
}

inline std::string write(AcDbDatabase& db)
{
    sim::dxf::TextTagWriter w;
    sim::dxf::writeDxf(db, w);
    return w.contents();
}

/// A new database read from the text; fails the test on a read error.
inline std::unique_ptr<AcDbDatabase> read(const std::string& text)
{
    auto db = std::make_unique<AcDbDatabase>(false, true);
    try {
        sim::dxf::readDxf(*db, text);
    } catch (const sim::dxf::DxfError& e) {
        ADD_FAILURE() << e.what();
    }
    return db;
}

/// The object of a handle in another database (the same object after a round trip).
template <class T>
T* same(AcDbDatabase& db, AcDbObjectId id)
{
    return T::cast(sim::db::objectOf(AcDbObjectId(&db, id.handle())));
}

/// The groups of the record that begins with 0 type and has the handle, from DXF text.
inline std::string hex(AcDbHandle h);

/// Where two texts part: the lines around the first difference, for a failure message.
inline std::string difference(const std::string& a, const std::string& b)
{
    size_t i = 0;
    while (i < a.size() && i < b.size() && a[i] == b[i])
        ++i;
    if (i == a.size() && i == b.size())
        return "no difference";
    size_t from = i > 120 ? i - 120 : 0;
    return "first:\n" + a.substr(from, 240) + "\n---- second:\n" + b.substr(from, 240);
}
inline sim::db::RawTags record(const std::string& text, AcDbHandle handle)
{
    sim::dxf::TagReader r(text);
    sim::db::RawTags current, found;
    auto finish = [&] {
        for (const auto& t : current)
            if ((t.code == 5 || t.code == 105) && t.value == hex(handle))
                found = current;
        current.clear();
    };
    while (r.peek()) {
        sim::dxf::Tag tag = r.take();
        if (tag.code == 0)
            finish();
        current.push_back({tag.code, std::string(tag.value)});
    }
    finish();
    return found;
}

inline std::string hex(AcDbHandle h)
{
    ACHAR buf[17];
    h.getIntoAsciiBuffer(buf);
    std::string s;
    for (const ACHAR* p = buf; *p; ++p)
        s += static_cast<char>(*p);
    return s;
}
} // namespace dxftest
