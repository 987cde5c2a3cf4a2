// AcDbDimStyleTableRecord: DIM variables kept by DXF group code, with the host's defaults for the
// ones never set.
#include "dbsymtb.h"
#include "sim/db/ArrowBlocks.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/DefineMembers.h"
#include "sim/db/ImpDatabase.h"

namespace {
// DXF group codes of the DIM variables.
enum : int {
    kPost = 3, kScale = 40, kAsz = 41, kExo = 42, kExe = 44, kRnd = 45, kDle = 46, kFxl = 49,
    kTih = 73, kToh = 74, kSe1 = 75, kSe2 = 76, kTad = 77, kZin = 78,
    kTxt = 140, kLfac = 144, kTvp = 145, kGap = 147,
    kTofl = 172, kSah = 173, kTix = 174, kSoxd = 175, kClrd = 176, kClre = 177, kClrt = 178,
    kDec = 271, kLunit = 277, kDsep = 278, kTmove = 279, kJust = 280, kSd1 = 281, kSd2 = 282,
    kUpt = 288, kAtfit = 289, kFxlon = 290, kTxsty = 340, kBlk = 342,
};

AcCmColor byBlock()
{
    AcCmColor c;
    c.setByBlock();
    return c;
}
} // namespace

const AcDbDimStyleTableRecord::Value* AcDbDimStyleTableRecord::value(int dxfCode) const
{
    auto it = m_values.find(dxfCode);
    return it == m_values.end() ? nullptr : &it->second;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setValue(int dxfCode, Value v)
{
    SIM_DB_ASSERT_WRITE();
    m_values[dxfCode] = std::move(v);
    return Acad::eOk;
}

#define SIM_DB_DIM_REAL(NAME, SETTER, CODE, DEFAULT)                                               \
    double AcDbDimStyleTableRecord::NAME() const                                                   \
    {                                                                                              \
        const Value* v = value(CODE);                                                              \
        return v && std::holds_alternative<double>(*v) ? std::get<double>(*v) : DEFAULT;           \
    }                                                                                              \
    Acad::ErrorStatus AcDbDimStyleTableRecord::SETTER(double val) { return setValue(CODE, val); }

#define SIM_DB_DIM_INT(NAME, SETTER, TYPE, CODE, DEFAULT)                                          \
    TYPE AcDbDimStyleTableRecord::NAME() const                                                     \
    {                                                                                              \
        const Value* v = value(CODE);                                                              \
        return static_cast<TYPE>(v && std::holds_alternative<int>(*v) ? std::get<int>(*v) : DEFAULT); \
    }                                                                                              \
    Acad::ErrorStatus AcDbDimStyleTableRecord::SETTER(TYPE val) { return setValue(CODE, static_cast<int>(val)); }

#define SIM_DB_DIM_COLOR(NAME, SETTER, CODE)                                                       \
    AcCmColor AcDbDimStyleTableRecord::NAME() const                                                \
    {                                                                                              \
        const Value* v = value(CODE);                                                              \
        return v && std::holds_alternative<AcCmColor>(*v) ? std::get<AcCmColor>(*v) : byBlock();   \
    }                                                                                              \
    Acad::ErrorStatus AcDbDimStyleTableRecord::SETTER(const AcCmColor& val) { return setValue(CODE, val); }

SIM_DB_DIM_COLOR(dimclrd, setDimclrd, kClrd)
SIM_DB_DIM_COLOR(dimclre, setDimclre, kClre)
SIM_DB_DIM_COLOR(dimclrt, setDimclrt, kClrt)
SIM_DB_DIM_INT(dimfxlenOn, setDimfxlenOn, bool, kFxlon, 0)
SIM_DB_DIM_REAL(dimfxlen, setDimfxlen, kFxl, 1.0)
SIM_DB_DIM_REAL(dimasz, setDimasz, kAsz, 0.18)
SIM_DB_DIM_REAL(dimscale, setDimscale, kScale, 1.0)
SIM_DB_DIM_REAL(dimdle, setDimdle, kDle, 0.0)
SIM_DB_DIM_REAL(dimexo, setDimexo, kExo, 0.0625)
SIM_DB_DIM_REAL(dimexe, setDimexe, kExe, 0.18)
SIM_DB_DIM_REAL(dimgap, setDimgap, kGap, 0.09)
SIM_DB_DIM_INT(dimdsep, setDimdsep, ACHAR, kDsep, L'.')
SIM_DB_DIM_INT(dimlunit, setDimlunit, int, kLunit, 2)
SIM_DB_DIM_INT(dimsah, setDimsah, bool, kSah, 0)
SIM_DB_DIM_INT(dimsoxd, setDimsoxd, bool, kSoxd, 0)
SIM_DB_DIM_INT(dimtofl, setDimtofl, bool, kTofl, 0)
SIM_DB_DIM_INT(dimtih, setDimtih, bool, kTih, 1)
SIM_DB_DIM_INT(dimtoh, setDimtoh, bool, kToh, 1)
SIM_DB_DIM_INT(dimtix, setDimtix, bool, kTix, 0)
SIM_DB_DIM_REAL(dimtxt, setDimtxt, kTxt, 0.18)
SIM_DB_DIM_REAL(dimlfac, setDimlfac, kLfac, 1.0)
SIM_DB_DIM_REAL(dimrnd, setDimrnd, kRnd, 0.0)
SIM_DB_DIM_INT(dimdec, setDimdec, int, kDec, 4)
SIM_DB_DIM_INT(dimsd1, setDimsd1, bool, kSd1, 0)
SIM_DB_DIM_INT(dimsd2, setDimsd2, bool, kSd2, 0)
SIM_DB_DIM_INT(dimse1, setDimse1, bool, kSe1, 0)
SIM_DB_DIM_INT(dimse2, setDimse2, bool, kSe2, 0)
SIM_DB_DIM_INT(dimatfit, setDimatfit, int, kAtfit, 3)
SIM_DB_DIM_INT(dimtad, setDimtad, int, kTad, 0)
SIM_DB_DIM_REAL(dimtvp, setDimtvp, kTvp, 0.0)
SIM_DB_DIM_INT(dimtmove, setDimtmove, int, kTmove, 0)
SIM_DB_DIM_INT(dimupt, setDimupt, bool, kUpt, 0)
SIM_DB_DIM_INT(dimjust, setDimjust, int, kJust, 0)
SIM_DB_DIM_INT(dimzin, setDimzin, int, kZin, 0)

AcDbObjectId AcDbDimStyleTableRecord::dimtxsty() const
{
    const Value* v = value(kTxsty);
    return v && std::holds_alternative<AcDbObjectId>(*v) ? std::get<AcDbObjectId>(*v) : AcDbObjectId::kNull;
}
Acad::ErrorStatus AcDbDimStyleTableRecord::setDimtxsty(AcDbObjectId val) { return setValue(kTxsty, val); }

const ACHAR* AcDbDimStyleTableRecord::dimpost() const
{
    const Value* v = value(kPost);
    return v && std::holds_alternative<std::wstring>(*v) ? std::get<std::wstring>(*v).c_str() : L"";
}
Acad::ErrorStatus AcDbDimStyleTableRecord::setDimpost(const ACHAR* val) { return setValue(kPost, std::wstring(val ? val : L"")); }

AcDbObjectId AcDbDimStyleTableRecord::dimblk() const
{
    const Value* v = value(kBlk);
    return v && std::holds_alternative<AcDbObjectId>(*v) ? std::get<AcDbObjectId>(*v) : AcDbObjectId::kNull;
}

const ACHAR* AcDbDimStyleTableRecord::dimblkName() const
{
    if (auto* rec = AcDbSymbolTableRecord::cast(AcDbImpDatabase::lookup(dimblk()))) {
        const ACHAR* n = nullptr;
        rec->getName(n);
        return n;
    }
    return L"";
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setDimblk(const ACHAR* val)
{
    SIM_DB_ASSERT_WRITE();
    if (!val || !*val) {
        m_values.erase(kBlk);
        return Acad::eOk;
    }
    // The style keeps the block; a predefined arrow's block is made when the drawing has none.
    AcDbObjectId id = sim::db::arrowBlock(databaseToUse(), val);
    if (id.isNull())
        return Acad::eKeyNotFound;
    m_values[kBlk] = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setDimblk(AcDbObjectId val)
{
    SIM_DB_ASSERT_WRITE();
    if (val.isNull())
        m_values.erase(kBlk);
    else
        m_values[kBlk] = val;
    return Acad::eOk;
}
