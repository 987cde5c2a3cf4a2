// What the drawing-file module reads and sets of a database past the host's checks: record names
// and pointers as the file gives them, the raw lists of what objects own (erased ones included),
// and a database emptied again after a read that failed.
#pragma once
#include <string>
#include <utility>
#include <vector>

#include "dbdict.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbsymtb.h"

class AcDbDimension;

namespace sim::db {

/// The object an id names, without opening it; null when there is none.
AcDbObject* objectOf(AcDbObjectId id);

/// The name as the file spells it: no check of characters, duplicates or renamability.
void setRecordName(AcDbSymbolTableRecord* rec, const std::wstring& name);
const std::wstring& recordName(const AcDbSymbolTableRecord* rec);

// Pointers set without checking that they name a live record of the right table.
void setLayerId(AcDbEntity* ent, AcDbObjectId id);
void setLinetypeId(AcDbEntity* ent, AcDbObjectId id);
void setTextStyleId(AcDbText* text, AcDbObjectId id);
void setTextStyleId(AcDbMText* text, AcDbObjectId id);
void setBlockId(AcDbBlockReference* ref, AcDbObjectId id);
/// The block of a dimension's graphics.
void setDimensionBlock(AcDbDimension* dim, AcDbObjectId id);
void setLinetypeId(AcDbLayerTableRecord* layer, AcDbObjectId id);
/// The text's string as the file gives it, to be filled in place.
std::wstring& textString(AcDbText* text);
/// Room for the vertices a file announces, so that reading them does not grow the list step by step.
void reserveVertices(AcDbPolyline* pline, unsigned count);

// What an object owns, in order, erased objects included.
const std::vector<AcDbObjectId>& recordIds(const AcDbSymbolTable* table);
const std::vector<AcDbObjectId>& entityIds(const AcDbBlockTableRecord* btr);
AcDbObjectId blockBeginId(const AcDbBlockTableRecord* btr);
AcDbObjectId blockEndId(const AcDbBlockTableRecord* btr);
const std::vector<AcDbObjectId>& attributeIds(const AcDbBlockReference* ref);
AcDbObjectId seqEndId(const AcDbBlockReference* ref);
const std::vector<AcDbObjectId>& vertexIds(const AcDb2dPolyline* pline);
AcDbObjectId seqEndId(const AcDb2dPolyline* pline);
/// The vertices of a 2D or 3D polyline; null for any other object.
const std::vector<AcDbObjectId>* polylineVertexIds(const AcDbObject* obj);
AcDbObjectId polylineSeqEndId(const AcDbObject* obj);
const std::vector<std::pair<std::wstring, AcDbObjectId>>& dictionaryEntries(const AcDbDictionary* dict);

/// Takes every object out of the database and forgets its tables, header and file extras, so that
/// it is as a database built without the default drawing. Its file name stays. Only for a database
/// that nobody holds objects of (a read that failed half way).
void clearDatabase(AcDbDatabase* db);

} // namespace sim::db
