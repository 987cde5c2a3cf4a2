// The platform's private record of a database object (AcDbImpObject): identity, owner, open state,
// erased flag, extended data, extension dictionary, persistent reactors, and what the drawing file
// holds that the database does not model.
#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>
#include "dbmain.h"
#include "sim/db/Chain.h"
#include "sim/db/OnDemandVector.h"
#include "sim/db/RawTag.h"

class AcDbImpObject {
public:
    // The record is made for every object: its members are ordered by size, and what few objects
    // hold takes storage only when they do.

    // Identity: set when the object is added to a database, never copied.
    AcDbDatabase* db = nullptr;
    AcDbHandle handle;
    /// The database a new object is meant for, until it is added to one; for a detached object, the
    /// database it was in: it keeps its id, which names nothing any more.
    AcDbDatabase* intended = nullptr;

    // Persistent state that a transaction's snapshot keeps besides the object's copy.
    AcDbObjectId owner;
    AcDbObjectId extDict;
    sim::db::OnDemandVector<AcDbObjectId> reactors;

    // Persistent state copied with the object.
    /// Extended data by application, in order; each chain holds the values after the 1001 group.
    sim::db::OnDemandVector<std::pair<std::wstring, sim::db::Chain>> xdata;
    /// Groups of the drawing file that the database does not model, kept for writing back; the DXF
    /// module fills and reads them.
    sim::db::OnDemandVector<sim::db::RawTag> preservedTags;
    /// Where the DXF module puts preservedTags back; its own convention (0 = nowhere in particular).
    int preservedPlace = 0;

    // Open state.
    /// Readers at once; the database allows 256.
    std::uint16_t readers = 0;
    /// The strongest hold of the transactions that got it: 0 none, 1 read, 2 write.
    std::uint8_t txnMode : 2 = 0;
    bool writer : 1 = false;
    bool isNew : 1 = false;
    bool erased : 1 = false;
    /// Set when an abort took the object out of its database; it is kept only so that pointers to it
    /// stay harmless.
    bool detached : 1 = false;

    /// Copies what is copied with the object (xdata, preserved tags), nothing of identity or state.
    void copyDataFrom(const AcDbImpObject& o)
    {
        xdata = o.xdata;
        preservedTags = o.preservedTags;
        preservedPlace = o.preservedPlace;
    }

    /// The record of an object (never null).
    static AcDbImpObject* of(const AcDbObject* obj) { return obj->mpImpObject; }
};

namespace sim::db {
/// The platform's record of an object, for the modules that read and write drawing files.
inline AcDbImpObject* impOf(const AcDbObject* obj) { return AcDbImpObject::of(obj); }
} // namespace sim::db
