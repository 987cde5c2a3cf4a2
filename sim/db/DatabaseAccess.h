// What the platform's other modules (drawing files, editor, console, tests) may do with a database
// beyond the host's API: walk every object, create objects under given handles and link them to their
// owners, keep what a drawing file holds that the database does not model, and plug in the file format.
#pragma once
#include <functional>
#include <map>
#include <string>
#include <vector>
#include "dbmain.h"
#include "dbsymtb.h"
#include "sim/db/RawTag.h"

namespace sim::db {

enum TableKind {
    kBlockTable,
    kLayerTable,
    kTextStyleTable,
    kLinetypeTable,
    kViewTable,
    kUCSTable,
    kViewportTable,
    kRegAppTable,
    kDimStyleTable,
    kTableCount
};

/// What a drawing file holds beyond the objects the database models; the DXF module keeps it here.
struct DatabaseExtras {
    /// Header variables the database has no getter for, in file order.
    RawTags header;
    /// The CLASSES section.
    RawTags classes;
    /// Other sections by name (THUMBNAILIMAGE, ACDSDATA, ...).
    std::map<std::string, RawTags> sections;
};
DatabaseExtras& extras(AcDbDatabase* db);

/// Calls fn for every object of the database, erased ones included, in handle order, without
/// opening them. fn must not add or remove objects.
void forEachObject(AcDbDatabase* db, const std::function<void(AcDbObject*)>& fn);
/// The object of a handle without opening it, or null.
AcDbObject* objectAt(AcDbDatabase* db, AcDbHandle handle);

/// Adds a new object under a given handle (null: the next free one), closed, with the owner given
/// (which may name an object not yet added). eHandleExists when the handle is taken. A symbol table
/// becomes the database's table of its kind, and a dictionary without an owner its named objects
/// dictionary, when the database has none yet. The handle seed stays above every handle.
Acad::ErrorStatus addObject(AcDbDatabase* db, AcDbObject* obj, AcDbHandle handle, AcDbObjectId ownerId, AcDbObjectId& id);
/// Room for objects under handles below the count, so that a file read does not grow the index
/// step by step; a hint only.
void reserveHandles(AcDbDatabase* db, size_t count);
/// Appends a child to its owner's list without opening either: a record to its table, an entity to
/// its block table record (a block begin or end to its slot), an attribute or sequence end to a block
/// reference, a vertex or sequence end to a 2D polyline, an entry under name to a dictionary.
/// eWrongObjectType when the owner holds no such children.
Acad::ErrorStatus link(AcDbObject* owner, AcDbObjectId child, const std::wstring& name = std::wstring());

/// CANNOSCALE as the drawing file keeps it: the name of the current annotation scale, whether or
/// not the scale list holds it yet.
std::wstring cannoscaleName(const AcDbDatabase* db);
void setCannoscaleName(AcDbDatabase* db, const std::wstring& name);

/// Gives a multileader of the database what it names as null (its style, line type and text style)
/// from the database's current multileader style, as the host does on adding one. No change for
/// another object or one that names them all.
void completeMLeader(AcDbObject* obj);

AcDbObjectId tableId(AcDbDatabase* db, TableKind kind);
void setTableId(AcDbDatabase* db, TableKind kind, AcDbObjectId id);
void setNamedObjectsDictionaryId(AcDbDatabase* db, AcDbObjectId id);

/// The DIM variables of a dimension style by DXF group code (the arrow blocks under 342-344).
std::map<int, AcDbDimStyleTableRecord::Value>& dimStyleValues(AcDbDimStyleTableRecord* rec);

/// The DXF record name of an object ("LINE", "INSERT", ...), also for objects kept as raw tags.
std::wstring dxfName(const AcDbObject* obj);

/// Reads and writes drawing files. The DXF module installs one; until then file operations answer
/// eNotImplementedYet.
class FileFormat {
public:
    virtual ~FileFormat() = default;
    /// Fills an empty database (built without the default drawing) from a file.
    virtual Acad::ErrorStatus read(AcDbDatabase& db, const std::wstring& path) = 0;
    virtual Acad::ErrorStatus write(AcDbDatabase& db, const std::wstring& path) = 0;
    /// As write; a file already there is kept as the .bak of its name only with keepBackup.
    virtual Acad::ErrorStatus writeFile(AcDbDatabase& db, const std::wstring& path, bool keepBackup)
    {
        (void)keepBackup;
        return write(db, path);
    }
    /// Completes a new default drawing with what the format's new drawings hold beyond it
    /// (layouts, styles, dictionaries, scales): the template of a new drawing.
    virtual void completeDefaultDrawing(AcDbDatabase&) {}
};
/// Not owned; null removes it.
void setFileFormat(FileFormat* format);
FileFormat* fileFormat();

/// Sets the file name a database answers to (getFilename, findFile beside it).
void setFileName(AcDbDatabase* db, const std::wstring& path);

/// The folders findFile searches after the name as given and the database's folder.
void setSupportPaths(std::vector<std::wstring> folders);
const std::vector<std::wstring>& supportPaths();

/// A path of the system's (with "\" separators) as the platform's file functions take it.
std::wstring normalizePath(std::wstring path);

} // namespace sim::db
