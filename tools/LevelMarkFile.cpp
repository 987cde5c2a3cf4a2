// The level mark block file: a new drawing with a fixed fingerprint, so that the file is reproducible.
#include "tools/LevelMarkFile.h"

#include "dbmain.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/dxf/DxfFile.h"
#include "sim/dxf/DxfWriter.h"
#include "sim/dxf/TagWriter.h"
#include "tools/LevelMarkBlock.h"

namespace togu::tools {

std::string levelMarkFileText()
{
    sim::dxf::installFileFormat();
    std::string text;
    {
        AcDbDatabase db;
        db.setFingerprintGuid(L"{6B1A7C2E-4D35-4F0B-9E21-7A5C3D8B1F40}");
        drawLevelMarkBlock(db);
        sim::dxf::TextTagWriter w;
        sim::dxf::writeDxf(db, w);
        text = w.contents();
    }
    sim::db::setFileFormat(nullptr);
    return text;
}

} // namespace togu::tools
