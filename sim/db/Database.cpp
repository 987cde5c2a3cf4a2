// AcDbDatabase: its tables and dictionaries, adding objects, its header values, and the file calls
// that go to the platform's file format.
#include <algorithm>
#include <cmath>
#include <cwchar>

#include "dbapserv.h"
#include "dblayout.h"
#include "sim/db/FileAccess.h"
#include "sim/db/ImpDatabase.h"
#include "sim/db/Scale.h"
#include "sim/db/Transactions.h"

using sim::db::TableKind;

namespace {

template <class T>
Acad::ErrorStatus openTable(AcDbImpDatabase* db, TableKind kind, T*& out, AcDb::OpenMode mode)
{
    out = nullptr;
    AcDbObject* obj = nullptr;
    if (db->tables[kind].isNull())
        return Acad::eNullObjectId;
    Acad::ErrorStatus es = db->open(obj, db->tables[kind], mode, false);
    if (es != Acad::eOk)
        return es;
    out = T::cast(obj);
    if (!out) {
        obj->close();
        return Acad::eWrongObjectType;
    }
    return Acad::eOk;
}

/// A record of one of the database's tables by name, without opening anything.
AcDbObjectId recordByName(const AcDbImpDatabase* db, TableKind kind, const ACHAR* name)
{
    auto* table = AcDbSymbolTable::cast(db->find(db->tables[kind].handle()));
    AcDbObjectId id;
    if (!table || table->getAt(name, id) != Acad::eOk)
        return AcDbObjectId::kNull;
    return id;
}

/// eOk when id names a record of the class in this database.
Acad::ErrorStatus checkRecord(const AcDbDatabase* self, AcDbObjectId id, AcRxClass* cls)
{
    if (id.isNull())
        return Acad::eNullObjectId;
    if (id.database() != self)
        return Acad::eWrongDatabase;
    AcDbObject* obj = AcDbImpDatabase::lookup(id);
    if (!obj)
        return Acad::eUnknownHandle;
    if (!obj->isKindOf(cls))
        return Acad::eWrongObjectType;
    return obj->isErased() ? Acad::eWasErased : Acad::eOk;
}

} // namespace

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool) : mpImpDb(new AcDbImpDatabase(this))
{
    if (buildDefaultDrawing)
        mpImpDb->buildDefaultDrawing();
}

AcDbDatabase::~AcDbDatabase() { delete mpImpDb; }

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObject* pObj)
{
    AcDbObjectId id;
    return addAcDbObject(id, pObj);
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& objId, AcDbObject* pObj)
{
    return mpImpDb->addObject(pObj, AcDbObjectId::kNull, objId);
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& retId, bool createIfNotFound, const AcDbHandle& objHandle,
                                                Adesk::UInt32)
{
    retId = AcDbObjectId::kNull;
    if (objHandle.isNull())
        return Acad::eNullHandle;
    if (!mpImpDb->find(objHandle) && !createIfNotFound)
        return Acad::eUnknownHandle;
    retId = AcDbObjectId(this, objHandle);
    return Acad::eOk;
}

#define SIM_DB_TABLE_GETTERS(NAME, CLASS, KIND)                                                    \
    Acad::ErrorStatus AcDbDatabase::get##NAME(AcDbSymbolTable*& pTable, AcDb::OpenMode mode)       \
    {                                                                                              \
        return openTable(mpImpDb, sim::db::KIND, pTable, mode);                                    \
    }                                                                                              \
    Acad::ErrorStatus AcDbDatabase::get##NAME(CLASS*& pTable, AcDb::OpenMode mode)                 \
    {                                                                                              \
        return openTable(mpImpDb, sim::db::KIND, pTable, mode);                                    \
    }

SIM_DB_TABLE_GETTERS(BlockTable, AcDbBlockTable, kBlockTable)
SIM_DB_TABLE_GETTERS(LayerTable, AcDbLayerTable, kLayerTable)
SIM_DB_TABLE_GETTERS(TextStyleTable, AcDbTextStyleTable, kTextStyleTable)
SIM_DB_TABLE_GETTERS(LinetypeTable, AcDbLinetypeTable, kLinetypeTable)
SIM_DB_TABLE_GETTERS(ViewTable, AcDbViewTable, kViewTable)
SIM_DB_TABLE_GETTERS(UCSTable, AcDbUCSTable, kUCSTable)
SIM_DB_TABLE_GETTERS(ViewportTable, AcDbViewportTable, kViewportTable)
SIM_DB_TABLE_GETTERS(RegAppTable, AcDbRegAppTable, kRegAppTable)
SIM_DB_TABLE_GETTERS(DimStyleTable, AcDbDimStyleTable, kDimStyleTable)

AcDbObjectId AcDbDatabase::blockTableId() const { return mpImpDb->tables[sim::db::kBlockTable]; }
AcDbObjectId AcDbDatabase::layerTableId() const { return mpImpDb->tables[sim::db::kLayerTable]; }
AcDbObjectId AcDbDatabase::textStyleTableId() const { return mpImpDb->tables[sim::db::kTextStyleTable]; }
AcDbObjectId AcDbDatabase::linetypeTableId() const { return mpImpDb->tables[sim::db::kLinetypeTable]; }
AcDbObjectId AcDbDatabase::viewTableId() const { return mpImpDb->tables[sim::db::kViewTable]; }
AcDbObjectId AcDbDatabase::UCSTableId() const { return mpImpDb->tables[sim::db::kUCSTable]; }
AcDbObjectId AcDbDatabase::viewportTableId() const { return mpImpDb->tables[sim::db::kViewportTable]; }
AcDbObjectId AcDbDatabase::regAppTableId() const { return mpImpDb->tables[sim::db::kRegAppTable]; }
AcDbObjectId AcDbDatabase::dimStyleTableId() const { return mpImpDb->tables[sim::db::kDimStyleTable]; }

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& pDict, AcDb::OpenMode mode)
{
    pDict = nullptr;
    AcDbObject* obj = nullptr;
    Acad::ErrorStatus es = mpImpDb->open(obj, mpImpDb->namedObjects, mode, false);
    if (es != Acad::eOk)
        return es;
    pDict = AcDbDictionary::cast(obj);
    if (!pDict) {
        obj->close();
        return Acad::eWrongObjectType;
    }
    return Acad::eOk;
}

AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const { return mpImpDb->namedObjects; }

namespace {
AcDbObjectId namedEntry(const AcDbImpDatabase* db, const ACHAR* key)
{
    auto* nod = AcDbDictionary::cast(db->find(db->namedObjects.handle()));
    AcDbObjectId id;
    if (!nod || nod->getAt(key, id) != Acad::eOk)
        return AcDbObjectId::kNull;
    return id;
}
} // namespace

AcDbObjectId AcDbDatabase::groupDictionaryId() const { return namedEntry(mpImpDb, L"ACAD_GROUP"); }
AcDbObjectId AcDbDatabase::layoutDictionaryId() const { return namedEntry(mpImpDb, L"ACAD_LAYOUT"); }
AcDbObjectId AcDbDatabase::mLeaderStyleDictionaryId() const { return namedEntry(mpImpDb, L"ACAD_MLEADERSTYLE"); }
AcDbObjectId AcDbDatabase::tableStyleDictionaryId() const { return namedEntry(mpImpDb, L"ACAD_TABLESTYLE"); }

AcDbTransactionManager* AcDbDatabase::transactionManager() const { return mpImpDb->transactions.get(); }

// --- files ------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbDatabase::readDwgFile(const ACHAR* fileName, int, bool, const wchar_t*)
{
    if (!fileName || !*fileName)
        return Acad::eInvalidInput;
    sim::db::FileFormat* format = sim::db::fileFormat();
    if (!format)
        return Acad::eNotImplementedYet;
    // Reading fills a database that has nothing of its own yet.
    if (!mpImpDb->objects.empty())
        return Acad::eNotApplicable;
    std::wstring path = sim::db::normalizePath(fileName);
    Acad::ErrorStatus es = format->read(*this, path);
    if (es == Acad::eOk)
        mpImpDb->fileName = path;
    return es;
}

Acad::ErrorStatus AcDbDatabase::saveAs(const ACHAR* fileName, const SecurityParams*)
{
    if (!fileName || !*fileName)
        return Acad::eInvalidInput;
    sim::db::FileFormat* format = sim::db::fileFormat();
    if (!format)
        return Acad::eNotImplementedYet;
    std::wstring path = sim::db::normalizePath(fileName);
    Acad::ErrorStatus es = format->write(*this, path);
    if (es == Acad::eOk)
        mpImpDb->fileName = path;
    return es;
}

Acad::ErrorStatus AcDbDatabase::closeInput(bool) { return Acad::eOk; }

Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR*& pOutput) const
{
    pOutput = mpImpDb->fileName.c_str();
    return mpImpDb->fileName.empty() ? Acad::eNotApplicable : Acad::eOk;
}

// --- header -----------------------------------------------------------------------------------

AcDb::UnitsValue AcDbDatabase::insunits() const { return mpImpDb->header.insunits; }
Acad::ErrorStatus AcDbDatabase::setInsunits(const AcDb::UnitsValue units)
{
    if (units < AcDb::kUnitsUndefined || units > AcDb::kUnitsMax)
        return Acad::eInvalidInput;
    mpImpDb->header.insunits = units;
    return Acad::eOk;
}
double AcDbDatabase::ltscale() const { return mpImpDb->header.ltscale; }
Acad::ErrorStatus AcDbDatabase::setLtscale(double scale)
{
    if (!(scale > 0.0))
        return Acad::eInvalidInput;
    mpImpDb->header.ltscale = scale;
    return Acad::eOk;
}
bool AcDbDatabase::msltscale() const { return mpImpDb->header.msltscale; }
Acad::ErrorStatus AcDbDatabase::setMsltscale(bool val)
{
    mpImpDb->header.msltscale = val;
    return Acad::eOk;
}
bool AcDbDatabase::psltscale() const { return mpImpDb->header.psltscale; }
Acad::ErrorStatus AcDbDatabase::setPsltscale(bool val)
{
    mpImpDb->header.psltscale = val;
    return Acad::eOk;
}
double AcDbDatabase::celtscale() const { return mpImpDb->header.celtscale; }
Acad::ErrorStatus AcDbDatabase::setCeltscale(double scale)
{
    if (!(scale > 0.0))
        return Acad::eInvalidInput;
    mpImpDb->header.celtscale = scale;
    return Acad::eOk;
}
AcDbObjectId AcDbDatabase::clayer() const { return mpImpDb->header.clayer; }
Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId objId)
{
    if (Acad::ErrorStatus es = checkRecord(this, objId, AcDbLayerTableRecord::desc()); es != Acad::eOk)
        return es;
    mpImpDb->header.clayer = objId;
    return Acad::eOk;
}
AcDbObjectId AcDbDatabase::textstyle() const { return mpImpDb->header.textstyle; }
Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId objId)
{
    if (Acad::ErrorStatus es = checkRecord(this, objId, AcDbTextStyleTableRecord::desc()); es != Acad::eOk)
        return es;
    mpImpDb->header.textstyle = objId;
    return Acad::eOk;
}
double AcDbDatabase::textsize() const { return mpImpDb->header.textsize; }
Acad::ErrorStatus AcDbDatabase::setTextsize(double size)
{
    if (!(size > 0.0))
        return Acad::eInvalidInput;
    mpImpDb->header.textsize = size;
    return Acad::eOk;
}
AcDbObjectId AcDbDatabase::dimstyle() const { return mpImpDb->header.dimstyle; }
Acad::ErrorStatus AcDbDatabase::setDimstyle(AcDbObjectId styleId)
{
    if (Acad::ErrorStatus es = checkRecord(this, styleId, AcDbDimStyleTableRecord::desc()); es != Acad::eOk)
        return es;
    mpImpDb->header.dimstyle = styleId;
    return Acad::eOk;
}
AcDbObjectId AcDbDatabase::celtype() const { return mpImpDb->header.celtype; }
Acad::ErrorStatus AcDbDatabase::setCeltype(AcDbObjectId objId)
{
    if (Acad::ErrorStatus es = checkRecord(this, objId, AcDbLinetypeTableRecord::desc()); es != Acad::eOk)
        return es;
    mpImpDb->header.celtype = objId;
    return Acad::eOk;
}
AcCmColor AcDbDatabase::cecolor() const { return mpImpDb->header.cecolor; }
Acad::ErrorStatus AcDbDatabase::setCecolor(const AcCmColor& color)
{
    mpImpDb->header.cecolor = color;
    return Acad::eOk;
}
AcDb::LineWeight AcDbDatabase::celweight() const { return mpImpDb->header.celweight; }
Acad::ErrorStatus AcDbDatabase::setCelweight(AcDb::LineWeight weight)
{
    mpImpDb->header.celweight = weight;
    return Acad::eOk;
}
AcDbObjectId AcDbDatabase::cmleaderstyle() const { return mpImpDb->header.cmleaderstyle; }
Acad::ErrorStatus AcDbDatabase::setCmleaderstyle(AcDbObjectId objId)
{
    if (Acad::ErrorStatus es = checkRecord(this, objId, AcDbObject::desc()); es != Acad::eOk)
        return es;
    mpImpDb->header.cmleaderstyle = objId;
    return Acad::eOk;
}
bool AcDbDatabase::tilemode() const { return mpImpDb->header.tilemode; }
Acad::ErrorStatus AcDbDatabase::setTilemode(bool mode)
{
    mpImpDb->header.tilemode = mode;
    return Acad::eOk;
}

AcDbAnnotationScale* AcDbDatabase::cannoscale() const
{
    return sim::db::copyOfScale(sim::db::findScale(this, mpImpDb->header.cannoscale));
}
Acad::ErrorStatus AcDbDatabase::setCannoscale(AcDbAnnotationScale* val)
{
    AcString name;
    if (!val || val->getName(name) != Acad::eOk)
        return Acad::eInvalidInput;
    AcDbObjectId id = sim::db::findScale(this, name.constPtr());
    if (id.isNull())
        return Acad::eKeyNotFound;
    mpImpDb->header.cannoscale = static_cast<sim::db::Scale*>(sim::db::objectOf(id))->name;
    return Acad::eOk;
}
AcDbObjectContextManager* AcDbDatabase::objectContextManager() const { return mpImpDb->contexts.get(); }

AcGePoint3d AcDbDatabase::ucsorg() const { return mpImpDb->header.ucsorg; }
AcGeVector3d AcDbDatabase::ucsxdir() const { return mpImpDb->header.ucsxdir; }
AcGeVector3d AcDbDatabase::ucsydir() const { return mpImpDb->header.ucsydir; }
AcDbObjectId AcDbDatabase::ucsname() const { return mpImpDb->header.ucsname; }
Acad::ErrorStatus AcDbDatabase::setUcsname(AcDbObjectId ucsRecId)
{
    if (!ucsRecId.isNull())
        if (Acad::ErrorStatus es = checkRecord(this, ucsRecId, AcDbUCSTableRecord::desc()); es != Acad::eOk)
            return es;
    mpImpDb->header.ucsname = ucsRecId;
    return Acad::eOk;
}

namespace {
/// The axes of a UCS must be of some length and at right angles.
bool validAxes(const AcGeVector3d& x, const AcGeVector3d& y)
{
    if (x.isZeroLength() || y.isZeroLength())
        return false;
    return std::fabs(x.normal().dotProduct(y.normal())) < 1e-9;
}
} // namespace

Acad::ErrorStatus AcDbDatabase::setUcs(const AcGePoint3d& ucsOrigin, const AcGeVector3d& ucsXDir, const AcGeVector3d& ucsYDir)
{
    if (!validAxes(ucsXDir, ucsYDir))
        return Acad::eInvalidInput;
    mpImpDb->header.ucsorg = ucsOrigin;
    mpImpDb->header.ucsxdir = ucsXDir.normal();
    mpImpDb->header.ucsydir = ucsYDir.normal();
    return Acad::eOk;
}
AcGePoint3d AcDbDatabase::pucsorg() const { return mpImpDb->header.pucsorg; }
AcGeVector3d AcDbDatabase::pucsxdir() const { return mpImpDb->header.pucsxdir; }
AcGeVector3d AcDbDatabase::pucsydir() const { return mpImpDb->header.pucsydir; }
AcDbObjectId AcDbDatabase::pucsname() const { return mpImpDb->header.pucsname; }
Acad::ErrorStatus AcDbDatabase::setPucsname(AcDbObjectId ucsRecId)
{
    if (!ucsRecId.isNull())
        if (Acad::ErrorStatus es = checkRecord(this, ucsRecId, AcDbUCSTableRecord::desc()); es != Acad::eOk)
            return es;
    mpImpDb->header.pucsname = ucsRecId;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbDatabase::setPucs(const AcGePoint3d& ucsOrigin, const AcGeVector3d& ucsXDir, const AcGeVector3d& ucsYDir)
{
    if (!validAxes(ucsXDir, ucsYDir))
        return Acad::eInvalidInput;
    mpImpDb->header.pucsorg = ucsOrigin;
    mpImpDb->header.pucsxdir = ucsXDir.normal();
    mpImpDb->header.pucsydir = ucsYDir.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::getFingerprintGuid(ACHAR*& guidString) const
{
    const std::wstring& g = mpImpDb->header.fingerprint;
    guidString = new ACHAR[g.size() + 1];
    std::wmemcpy(guidString, g.c_str(), g.size() + 1);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbDatabase::setFingerprintGuid(const ACHAR* pNewGuid)
{
    if (!pNewGuid || !*pNewGuid)
        return Acad::eInvalidInput;
    mpImpDb->header.fingerprint = pNewGuid;
    return Acad::eOk;
}

AcDbHandle AcDbDatabase::handseed() const { return AcDbHandle(mpImpDb->seed); }
Acad::ErrorStatus AcDbDatabase::setHandseed(const AcDbHandle& handle)
{
    Adesk::UInt64 top = mpImpDb->objects.top();
    if (handle.value() <= top)
        return Acad::eInvalidInput;
    mpImpDb->seed = handle.value();
    return Acad::eOk;
}

AcDbObjectId AcDbDatabase::continuousLinetype() const { return recordByName(mpImpDb, sim::db::kLinetypeTable, L"Continuous"); }
AcDbObjectId AcDbDatabase::byLayerLinetype() const { return recordByName(mpImpDb, sim::db::kLinetypeTable, L"ByLayer"); }
AcDbObjectId AcDbDatabase::byBlockLinetype() const { return recordByName(mpImpDb, sim::db::kLinetypeTable, L"ByBlock"); }
AcDbObjectId AcDbDatabase::layerZero() const { return recordByName(mpImpDb, sim::db::kLayerTable, L"0"); }
AcDbObjectId AcDbDatabase::currentSpaceId() const
{
    if (!tilemode())
        if (auto* layout = AcDbLayout::cast(sim::db::objectOf(mpImpDb->activePaperLayout)); layout && !layout->isErased())
            return layout->getBlockTableRecordId();
    return recordByName(mpImpDb, sim::db::kBlockTable, tilemode() ? ACDB_MODEL_SPACE : ACDB_PAPER_SPACE);
}
