// The platform's private record of a database (AcDbImpDatabase): the objects by handle, the handle
// seed, the header values, the ids of the tables, the open-state bookkeeping and the transactions.
// Only the database module includes it.
#pragma once
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>
#include "dbAnnotationScale.h"
#include "dbObjectContextManager.h"
#include "dbdict.h"
#include "dbdim.h"
#include "dbents.h"
#include "dbmain.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/HandleIndex.h"
#include "sim/db/ImpObject.h"

namespace sim::db {
class TransactionManager;
class Transaction;

/// The header values the database models.
struct Header {
    AcDb::UnitsValue insunits = AcDb::kUnitsMillimeters;
    double ltscale = 1.0;
    double celtscale = 1.0;
    double textsize = 2.5;
    bool msltscale = true;
    bool psltscale = true;
    bool tilemode = true;
    AcDbObjectId clayer, textstyle, dimstyle, celtype, cmleaderstyle, ucsname, pucsname;
    AcCmColor cecolor;
    AcDb::LineWeight celweight = AcDb::kLnWtByLayer;
    AcGePoint3d ucsorg, pucsorg;
    AcGeVector3d ucsxdir = AcGeVector3d::kXAxis, ucsydir = AcGeVector3d::kYAxis;
    AcGeVector3d pucsxdir = AcGeVector3d::kXAxis, pucsydir = AcGeVector3d::kYAxis;
    std::wstring fingerprint;
    /// CANNOSCALE: the name of the current annotation scale.
    std::wstring cannoscale = L"1:1";
};
} // namespace sim::db

class AcDbImpDatabase {
public:
    explicit AcDbImpDatabase(AcDbDatabase* self);
    ~AcDbImpDatabase();

    static AcDbImpDatabase* of(const AcDbDatabase* db);
    /// The object an id names, without opening it; null for an id of no live database or no object.
    static AcDbObject* lookup(AcDbObjectId id);
    static AcDbImpObject* imp(const AcDbObject* obj) { return obj->mpImpObject; }
    AcDbObject* find(AcDbHandle h) const;

    /// Puts a new object into the database under the wanted handle (null: the next one) with the
    /// owner given. With leaveOpen it is open for write and new, as after an add of the host.
    /// Adds a vertex to a 2D or 3D polyline of this database, open for write: the vertex takes the
    /// polyline's layer and line type, and the first vertex brings the polyline its sequence end.
    Acad::ErrorStatus appendPolylineVertex(AcDbEntity* polyline, AcDbEntity* vertex, std::vector<AcDbObjectId>& vertices,
                                           AcDbObjectId& seqEnd, AcDbObjectId& id);
    Acad::ErrorStatus addObject(AcDbObject* obj, AcDbObjectId owner, AcDbObjectId& id, AcDbHandle wanted = AcDbHandle(),
                                bool leaveOpen = true);
    /// Opens for a direct caller (acdbOpenObject).
    Acad::ErrorStatus open(AcDbObject*& out, AcDbObjectId id, AcDb::OpenMode mode, bool openErased);
    /// eOnLockedLayer for an entity on a locked layer.
    Acad::ErrorStatus checkLockedLayer(const AcDbObject* obj) const;
    /// Keeps the object's state for the innermost transaction before its first change there.
    void touch(AcDbObject* obj);
    /// Keeps writeOpen in step with the object's open state.
    void noteOpenState(AcDbObject* obj);
    /// Erases or unerases an object and what it owns (attributes, vertices), as the owner's erase does.
    void setErased(AcDbObject* obj, bool erased);

    /// Builds what every drawing needs.
    void buildDefaultDrawing();
    /// Fills a new drawing's scale list (a dictionary of this database).
    void addUsualScales(AcDbObjectId list);

    // Access to the private parts of the host's classes.
    static std::vector<AcDbObjectId>& records(AcDbSymbolTable* t) { return t->m_records; }
    static std::vector<AcDbObjectId>& entities(AcDbBlockTableRecord* r) { return r->m_entities; }
    static AcDbObjectId& blockBegin(AcDbBlockTableRecord* r) { return r->m_blockBegin; }
    static AcDbObjectId& blockEnd(AcDbBlockTableRecord* r) { return r->m_blockEnd; }
    static std::vector<std::pair<std::wstring, AcDbObjectId>>& entries(AcDbDictionary* d) { return d->m_entries; }
    static std::vector<AcDbObjectId>& attributes(AcDbBlockReference* r) { return r->m_attributes; }
    static AcDbObjectId& seqEnd(AcDbBlockReference* r) { return r->m_seqEnd; }
    static std::vector<AcDbObjectId>& vertices(AcDb2dPolyline* p) { return p->m_vertices; }
    static AcDbObjectId& seqEnd(AcDb2dPolyline* p) { return p->m_seqEnd; }
    /// The vertices and the sequence end of a 2D or 3D polyline; null for any other object.
    static std::vector<AcDbObjectId>* polylineVertices(AcDbObject* o)
    {
        if (auto* p2 = AcDb2dPolyline::cast(o))
            return &p2->m_vertices;
        if (auto* p3 = AcDb3dPolyline::cast(o))
            return &p3->m_vertices;
        return nullptr;
    }
    static AcDbObjectId* polylineSeqEnd(AcDbObject* o)
    {
        if (auto* p2 = AcDb2dPolyline::cast(o))
            return &p2->m_seqEnd;
        if (auto* p3 = AcDb3dPolyline::cast(o))
            return &p3->m_seqEnd;
        return nullptr;
    }
    static std::wstring& name(AcDbSymbolTableRecord* r) { return r->m_name; }
    static std::wstring& textString(AcDbText* t) { return t->m_text; }
    static void reserveVertices(AcDbPolyline* p, unsigned n) { p->m_verts.reserve(n); }
    static std::map<int, AcDbDimStyleTableRecord::Value>& dimValues(AcDbDimStyleTableRecord* r) { return r->m_values; }
    static AcDbObjectId& layerId(AcDbEntity* e) { return e->m_layerId; }
    static AcDbObjectId& linetypeId(AcDbEntity* e) { return e->m_linetypeId; }
    static AcDbObjectId& textStyleId(AcDbText* t) { return t->m_style; }
    static AcDbObjectId& textStyleId(AcDbMText* t) { return t->m_style; }
    static AcDbObjectId& blockId(AcDbBlockReference* r) { return r->m_block; }
    static AcDbObjectId& dimensionBlock(AcDbDimension* d) { return d->m_block; }
    static AcDbObjectId& dimensionStyle(AcDbDimension* d) { return d->m_style; }
    static AcDbObjectId& linetypeId(AcDbLayerTableRecord* r) { return r->m_linetype; }
    static AcDbMText*& mtext(AcDbAttribute* a) { return a->m_mtext; }
    static AcDbMText*& mtext(AcDbAttributeDefinition* a) { return a->m_mtext; }
    static void setScaleIdentity(AcDbAnnotationScale& s, Adesk::LongPtr id, AcDbDatabase* db)
    {
        s.m_id = id;
        s.m_db = db;
    }

    AcDbDatabase* self;
    sim::db::HandleIndex objects;
    Adesk::UInt64 seed = 1;
    sim::db::Header header;
    AcDbObjectId tables[sim::db::kTableCount];
    AcDbObjectId namedObjects;
    std::wstring fileName;
    sim::db::DatabaseExtras extras;
    std::unique_ptr<sim::db::TransactionManager> transactions;
    std::unique_ptr<AcDbObjectContextManager> contexts;
    /// The paper layout (LAYOUT object) last made active; null until one is.
    AcDbObjectId activePaperLayout;
    /// Objects that an abort took out; kept until the database goes so their pointers stay harmless.
    std::vector<std::unique_ptr<AcDbObject>> graveyard;
    /// Objects that may be changed now (open for write directly or in a transaction).
    std::set<AcDbObject*> writeOpen;
};
