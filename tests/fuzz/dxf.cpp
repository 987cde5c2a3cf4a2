// The DXF reader: any bytes are read or refused with DxfError, and a refusal leaves the database empty.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "FuzzSession.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/dxf/DxfError.h"
#include "sim/dxf/DxfFile.h"
#include "sim/dxf/DxfReader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::session();
    static bool installed = (sim::dxf::installFileFormat(), true);
    (void)installed;
    AcDbDatabase db(false, true);
    try {
        sim::dxf::readDxf(db, std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const sim::dxf::DxfError&) {
        int objects = 0;
        sim::db::forEachObject(&db, [&](AcDbObject*) { ++objects; });
        if (objects != 0)
            std::abort(); // a refused file must leave nothing behind
    }
    return 0;
}
