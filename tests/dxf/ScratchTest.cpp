#include <gtest/gtest.h>
#include <fstream>
#include "sim/dxf/DxfWriter.h"
#include "sim/dxf/DxfReader.h"
#include "sim/dxf/Template.h"
#include "sim/dxf/DxfError.h"
TEST(Scratch, Dump)
{
    AcDbDatabase db(true);
    sim::dxf::completeNewDrawing(db);
    sim::dxf::TextTagWriter w;
    sim::dxf::writeDxf(db, w);
    std::ofstream("/tmp/dxfscratch/new.dxf") << w.contents();
    AcDbDatabase db2(false);
    try { sim::dxf::readDxf(db2, w.contents()); } catch (const sim::dxf::DxfError& e) { FAIL() << e.what(); }
    sim::dxf::TextTagWriter w2;
    sim::dxf::writeDxf(db2, w2);
    std::ofstream("/tmp/dxfscratch/new2.dxf") << w2.contents();
    EXPECT_EQ(w.contents(), w2.contents());
}
