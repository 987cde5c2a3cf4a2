// The drawing database's core: AcDbObject and AcDbEntity, the database itself (AcDbDatabase), the
// open/close calls by id (acdbOpenObject and its sisters) and the bridge to ADS entity names.
#pragma once
#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>
#include "acadstrc.h"
#include "acdb.h"
#include "acutads.h"
#include "AcString.h"
#include "adesk.h"
#include "dbcolor.h"
#include "dbhandle.h"
#include "dbid.h"
#include "gemat3d.h"
#include "gepnt3d.h"
#include "gevec3d.h"
#include "rxobject.h"

#ifndef AC_ACARRAY_H
#define AC_ACARRAY_H
/// The host's growable array, the part of its interface the system uses.
template <class T>
class AcArray {
public:
    AcArray() = default;
    AcArray(int initPhysicalLength, int /*initGrowLength*/ = 8) { m_v.reserve(initPhysicalLength > 0 ? static_cast<size_t>(initPhysicalLength) : 0); }
    AcArray(std::initializer_list<T> items) : m_v(items) {}

    int length() const { return static_cast<int>(m_v.size()); }
    int logicalLength() const { return length(); }
    bool isEmpty() const { return m_v.empty(); }
    const T& at(int i) const { return m_v.at(static_cast<size_t>(i)); }
    T& at(int i) { return m_v.at(static_cast<size_t>(i)); }
    const T& operator[](int i) const { return m_v[static_cast<size_t>(i)]; }
    T& operator[](int i) { return m_v[static_cast<size_t>(i)]; }
    const T& first() const { return m_v.front(); }
    const T& last() const { return m_v.back(); }
    /// Appends and gives the index of the new element.
    int append(const T& value)
    {
        m_v.push_back(value);
        return length() - 1;
    }
    AcArray& append(const AcArray& other)
    {
        m_v.insert(m_v.end(), other.m_v.begin(), other.m_v.end());
        return *this;
    }
    AcArray& insertAt(int index, const T& value)
    {
        m_v.insert(m_v.begin() + index, value);
        return *this;
    }
    AcArray& removeAt(int index)
    {
        m_v.erase(m_v.begin() + index);
        return *this;
    }
    bool remove(const T& value)
    {
        for (auto it = m_v.begin(); it != m_v.end(); ++it)
            if (*it == value) {
                m_v.erase(it);
                return true;
            }
        return false;
    }
    AcArray& removeLast()
    {
        m_v.pop_back();
        return *this;
    }
    AcArray& removeAll()
    {
        m_v.clear();
        return *this;
    }
    AcArray& setLogicalLength(int n)
    {
        m_v.resize(static_cast<size_t>(n));
        return *this;
    }
    bool contains(const T& value, int start = 0) const { return find(value, start) >= 0; }
    int find(const T& value, int start = 0) const
    {
        for (int i = start; i < length(); ++i)
            if (m_v[static_cast<size_t>(i)] == value)
                return i;
        return -1;
    }
    T* asArrayPtr() { return m_v.data(); }
    const T* asArrayPtr() const { return m_v.data(); }
    typename std::vector<T>::iterator begin() { return m_v.begin(); }
    typename std::vector<T>::iterator end() { return m_v.end(); }
    typename std::vector<T>::const_iterator begin() const { return m_v.begin(); }
    typename std::vector<T>::const_iterator end() const { return m_v.end(); }

private:
    std::vector<T> m_v;
};
#endif

typedef AcArray<AcDbObjectId> AcDbObjectIdArray;
typedef AcArray<void*> AcDbVoidPtrArray;
typedef AcArray<AcGePoint3d> AcGePoint3dArray;
typedef AcArray<double> AcGeDoubleArray;

class AcDbDatabase;
class AcDbDictionary;
class AcDbSymbolTable;
class AcDbBlockTable;
class AcDbLayerTable;
class AcDbTextStyleTable;
class AcDbLinetypeTable;
class AcDbViewTable;
class AcDbUCSTable;
class AcDbViewportTable;
class AcDbRegAppTable;
class AcDbDimStyleTable;
class AcDbTransactionManager;
class AcDbObjectContextManager;
class AcDbAnnotationScale;
class AcDbEntity;
class AcDbObject;
struct SecurityParams;

/// The platform's private record of an object: its identity, open state and what it keeps for the
/// drawing file. Defined by the platform.
class AcDbImpObject;
/// The platform's private record of a database. Defined by the platform.
class AcDbImpDatabase;

/// Declares the run-time class members and the copy protocol (clone, copyFrom) of a database class.
#define ACDB_DECLARE_MEMBERS(CLASS_NAME)                                                        \
    ACRX_DECLARE_MEMBERS(CLASS_NAME)                                                            \
    AcRxObject* clone() const override;                                                         \
    Acad::ErrorStatus copyFrom(const AcRxObject* pSrc) override;

/// An object of a drawing. A new object is made with new and handed to the database (by a
/// container's add, setAt or appendAcDbEntity, or addAcDbObject), which then owns it; the one who
/// made it deletes it only if it was never handed over. Objects in a database are opened by id and
/// closed by whoever opened them.
class AcDbObject : public AcRxObject {
public:
    static AcRxClass* desc();
    AcRxClass* isA() const override;
    static AcDbObject* cast(const AcRxObject* inPtr)
    {
        return (inPtr == nullptr || !inPtr->isKindOf(AcDbObject::desc())) ? nullptr
                                                                         : const_cast<AcDbObject*>(static_cast<const AcDbObject*>(inPtr));
    }
    /// A copy that is in no database (for entities: one that can be appended anywhere). The caller
    /// owns it.
    virtual AcRxObject* clone() const;
    /// Takes over the state of an object of the same class; eWrongObjectType otherwise.
    virtual Acad::ErrorStatus copyFrom(const AcRxObject* pSrc);

    ~AcDbObject() override;

    AcDbObjectId objectId() const;
    AcDbObjectId ownerId() const;
    virtual Acad::ErrorStatus setOwnerId(AcDbObjectId objId);
    void getAcDbHandle(AcDbHandle& handle) const;
    /// The database the object is in, or null for a new object.
    AcDbDatabase* database() const;
    /// The database the object is in, else the one it is meant for, else the working database.
    AcDbDatabase* databaseToUse() const;
    /// The database a new object is meant for (setDatabaseDefaults sets it), or null.
    AcDbDatabase* intendedDatabase() const;
    Acad::ErrorStatus setIntendedDatabase(AcDbDatabase* pDb);

    /// Ends this opener's access. A no-op for an object held by a transaction (the transaction
    /// closes it) and for a new object that is in no database.
    Acad::ErrorStatus close();
    /// From read to write: eWasOpenForWrite when already writable, eHadMultipleReaders when others
    /// read it too, eOnLockedLayer for an entity on a locked layer.
    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();
    /// Erases (or with false brings back) the object. Needs it open for write.
    Acad::ErrorStatus erase(Adesk::Boolean erasing = true);

    bool isErased() const;
    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    /// Called before a change: the first change in a transaction keeps the object's state for undo.
    void assertWriteEnabled(Adesk::Boolean autoUndo = true, Adesk::Boolean recordModified = true);
    bool isNotifyEnabled() const;
    /// True for an object not yet closed since it was added to its database.
    bool isNewObject() const;
    bool isTransactionResident() const;
    bool isDBRO() const { return database() != nullptr; }

    /// The extended data of one application (1001 name, then its values), or of all when appName
    /// is null; null when there is none. The caller frees the chain with acutRelRb.
    virtual resbuf* xData(const ACHAR* appName = nullptr) const;
    /// Replaces the data of each application named (1001) in the chain; an application with no
    /// values after its name loses its data. The chain is copied.
    virtual Acad::ErrorStatus setXData(const resbuf* xdata);

    AcDbObjectId extensionDictionary() const;
    /// eAlreadyInDb when there is one; the object must be open for write and in a database.
    Acad::ErrorStatus createExtensionDictionary();
    /// Erases the extension dictionary when it is empty; eNotApplicable while it holds entries.
    Acad::ErrorStatus releaseExtensionDictionary();

    void addPersistentReactor(AcDbObjectId objId);
    Acad::ErrorStatus removePersistentReactor(AcDbObjectId objId);
    bool hasPersistentReactor(AcDbObjectId objId) const;

protected:
    AcDbObject();
    /// Copies the object's data and its extended data, not its identity or open state.
    AcDbObject(const AcDbObject& other);
    AcDbObject& operator=(const AcDbObject& other);

private:
    friend class AcDbImpObject;
    friend class AcDbImpDatabase;
    AcDbImpObject* mpImpObject;
};

class AcDbFullSubentPath;

/// An object with geometry that lives in a block table record (model space, a layout, a block).
class AcDbEntity : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbEntity);
    AcDbEntity() = default;

    /// The block table record that owns the entity.
    AcDbObjectId blockId() const;

    AcCmColor color() const { return m_color; }
    virtual Acad::ErrorStatus setColor(const AcCmColor& color, Adesk::Boolean doSubents = true);
    /// 256 by layer, 0 by block.
    Adesk::UInt16 colorIndex() const { return m_color.colorIndex(); }
    virtual Acad::ErrorStatus setColorIndex(Adesk::UInt16 color, Adesk::Boolean doSubents = true);
    AcCmEntityColor entityColor() const { return m_color.entityColor(); }

    /// The layer's name; the caller frees it with acutDelString (delete[]). Null when it has none.
    ACHAR* layer() const;
    AcDbObjectId layerId() const { return m_layerId; }
    /// By name in the entity's database (else the working one): eKeyNotFound when there is none.
    virtual Acad::ErrorStatus setLayer(const ACHAR* newVal, Adesk::Boolean doSubents = true, bool allowHiddenLayer = false);
    virtual Acad::ErrorStatus setLayer(AcDbObjectId newVal, Adesk::Boolean doSubents = true, bool allowHiddenLayer = false);

    /// The line type's name; the caller frees it with acutDelString (delete[]).
    ACHAR* linetype() const;
    AcDbObjectId linetypeId() const { return m_linetypeId; }
    virtual Acad::ErrorStatus setLinetype(const ACHAR* newVal, Adesk::Boolean doSubents = true);
    virtual Acad::ErrorStatus setLinetype(AcDbObjectId newVal, Adesk::Boolean doSubents = true);

    double linetypeScale() const { return m_linetypeScale; }
    virtual Acad::ErrorStatus setLinetypeScale(double newval, Adesk::Boolean doSubents = true);
    AcDb::Visibility visibility() const { return m_visibility; }
    virtual Acad::ErrorStatus setVisibility(AcDb::Visibility newVal, Adesk::Boolean doSubents = true);
    AcDb::LineWeight lineWeight() const { return m_lineWeight; }
    virtual Acad::ErrorStatus setLineWeight(AcDb::LineWeight newVal, Adesk::Boolean doSubents = true);

    /// Current layer, colour, line type, its scale and the line weight of the database (the entity's,
    /// else the working one).
    void setDatabaseDefaults(bool doSubents = false);
    void setDatabaseDefaults(AcDbDatabase* pDb, bool doSubents = false);

    /// Moves, rotates, scales or mirrors the entity; eNotApplicable for a class that cannot.
    virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform);
    /// A transformed clone; the caller owns it.
    virtual Acad::ErrorStatus getTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& pEnt) const;

    /// The paths of the parts of a kind under a graphics marker (the marker of a pick, from
    /// acedSSNameX). The caller frees subentPaths with delete[]. eNotApplicable for a class without
    /// such parts.
    virtual Acad::ErrorStatus getSubentPathsAtGsMarker(AcDb::SubentType type, Adesk::GsMarker gsMark,
                                                       const AcGePoint3d& pickPoint, const AcGeMatrix3d& viewXform,
                                                       int& numPaths, AcDbFullSubentPath*& subentPaths,
                                                       int numInserts = 0,
                                                       AcDbObjectId* entAndInsertStack = nullptr) const;
    /// The part as a new entity in the entity's own coordinates, which the caller owns; null when
    /// there is no such part.
    virtual AcDbEntity* subentPtr(const AcDbFullSubentPath& id) const;

private:
    friend class AcDbImpDatabase;
    AcCmColor m_color;
    AcDbObjectId m_layerId;
    AcDbObjectId m_linetypeId;
    double m_linetypeScale = 1.0;
    AcDb::Visibility m_visibility = AcDb::kVisible;
    AcDb::LineWeight m_lineWeight = AcDb::kLnWtByLayer;
};

/// Walks a list of object ids: the attributes of a block reference, the vertices of a polyline.
/// The caller deletes it.
class AcDbObjectIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectIterator);
    explicit AcDbObjectIterator(std::vector<AcDbObjectId> ids = {}) : m_ids(std::move(ids)) {}

    bool done() const { return m_pos < 0 || m_pos >= static_cast<int>(m_ids.size()); }
    void start(bool atEnd = false);
    /// Moves on, passing over erased objects unless told otherwise.
    void step(bool backwards = false, bool skipErased = true);
    void setPosition(AcDbObjectId pObj);
    AcDbObjectId objectId() const { return done() ? AcDbObjectId::kNull : m_ids[static_cast<size_t>(m_pos)]; }
    /// Only for objects in no database; null otherwise: open objectId() instead.
    AcDbEntity* entity() { return nullptr; }

private:
    std::vector<AcDbObjectId> m_ids;
    int m_pos = 0;
};

/// A drawing: its objects by handle, its symbol tables, its named objects dictionary and its header
/// values. It owns every object that was added to it.
class AcDbDatabase : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabase);
    /// With buildDefaultDrawing the database holds what every drawing needs (layer 0, the standard
    /// line types, styles, model and paper space, the named objects dictionary); without it it is
    /// empty, for reading a file into.
    AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    /// Adds an object that has no owner container (the owner is set by the caller). The object is
    /// left open for write.
    Acad::ErrorStatus addAcDbObject(AcDbObject* pObj);
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& objId, AcDbObject* pObj);
    /// The id of a handle of this database; eUnknownHandle when there is no such object.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& retId, bool createIfNotFound, const AcDbHandle& objHandle,
                                      Adesk::UInt32 xRefId = 0);

    Acad::ErrorStatus getBlockTable(AcDbSymbolTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLayerTable(AcDbSymbolTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getTextStyleTable(AcDbSymbolTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLinetypeTable(AcDbSymbolTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getViewTable(AcDbSymbolTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getUCSTable(AcDbSymbolTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getViewportTable(AcDbSymbolTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getRegAppTable(AcDbSymbolTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getDimStyleTable(AcDbSymbolTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);

    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLinetypeTable(AcDbLinetypeTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getViewTable(AcDbViewTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getUCSTable(AcDbUCSTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getViewportTable(AcDbViewportTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getRegAppTable(AcDbRegAppTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getDimStyleTable(AcDbDimStyleTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);

    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead) { return getBlockTable(pTable, mode); }
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead) { return getLayerTable(pTable, mode); }
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead) { return getTextStyleTable(pTable, mode); }
    Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead) { return getLinetypeTable(pTable, mode); }
    Acad::ErrorStatus getSymbolTable(AcDbViewTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead) { return getViewTable(pTable, mode); }
    Acad::ErrorStatus getSymbolTable(AcDbUCSTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead) { return getUCSTable(pTable, mode); }
    Acad::ErrorStatus getSymbolTable(AcDbViewportTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead) { return getViewportTable(pTable, mode); }
    Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead) { return getRegAppTable(pTable, mode); }
    Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead) { return getDimStyleTable(pTable, mode); }

    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId textStyleTableId() const;
    AcDbObjectId linetypeTableId() const;
    AcDbObjectId viewTableId() const;
    AcDbObjectId UCSTableId() const;
    AcDbObjectId viewportTableId() const;
    AcDbObjectId regAppTableId() const;
    AcDbObjectId dimStyleTableId() const;

    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& pDict, AcDb::OpenMode mode = AcDb::kForRead);
    AcDbObjectId namedObjectsDictionaryId() const;
    /// Entries of the named objects dictionary (null id when missing).
    AcDbObjectId groupDictionaryId() const;
    AcDbObjectId layoutDictionaryId() const;
    AcDbObjectId mLeaderStyleDictionaryId() const;
    AcDbObjectId tableStyleDictionaryId() const;

    AcDbTransactionManager* transactionManager() const;

    /// Reads a drawing file into this database, which must be empty (built without the default
    /// drawing). The platform reads the DXF of the same name.
    Acad::ErrorStatus readDwgFile(const ACHAR* fileName, int shmode = 0x20, bool bAllowCPConversion = false,
                                  const wchar_t* wszPassword = nullptr);
    /// Writes the drawing to a file (the platform writes DXF) and takes it as its file name.
    Acad::ErrorStatus saveAs(const ACHAR* fileName, const SecurityParams* pSecParams = nullptr);
    /// As saveAs, in the version given: the platform writes AC1032 (AutoCAD 2018) only and answers
    /// eInvalidDwgVersion for any other, writing nothing. With bBakAndRename a file already there
    /// is kept as the .bak of the same name.
    Acad::ErrorStatus saveAs(const ACHAR* fileName, const bool bBakAndRename,
                             const AcDb::AcDbDwgVersion dwgVer = AcDb::kDHL_CURRENT,
                             const SecurityParams* pSecParams = nullptr);
    Acad::ErrorStatus closeInput(bool bCloseFile = false);
    /// The file the database was read from or saved to; eNotApplicable when it has none.
    Acad::ErrorStatus getFilename(const ACHAR*& pOutput) const;
    /// Copies the model space of pDb into a new block definition of this database named
    /// pBlockName, with the layers, line types, styles and blocks its entities use (a name this
    /// database has keeps this database's record). eDuplicateRecordName when the block exists.
    Acad::ErrorStatus insert(AcDbObjectId& blockId, const ACHAR* pBlockName, AcDbDatabase* pDb,
                             bool preserveSourceDatabase = true);

    // Header values.
    AcDb::UnitsValue insunits() const;
    Acad::ErrorStatus setInsunits(const AcDb::UnitsValue units);
    double ltscale() const;
    Acad::ErrorStatus setLtscale(double scale);
    bool msltscale() const;
    Acad::ErrorStatus setMsltscale(bool val);
    bool psltscale() const;
    Acad::ErrorStatus setPsltscale(bool val);
    double celtscale() const;
    Acad::ErrorStatus setCeltscale(double scale);
    AcDbObjectId clayer() const;
    Acad::ErrorStatus setClayer(AcDbObjectId objId);
    AcDbObjectId textstyle() const;
    Acad::ErrorStatus setTextstyle(AcDbObjectId objId);
    double textsize() const;
    Acad::ErrorStatus setTextsize(double size);
    AcDbObjectId dimstyle() const;
    Acad::ErrorStatus setDimstyle(AcDbObjectId styleId);
    AcDbObjectId celtype() const;
    Acad::ErrorStatus setCeltype(AcDbObjectId objId);
    AcCmColor cecolor() const;
    Acad::ErrorStatus setCecolor(const AcCmColor& color);
    AcDb::LineWeight celweight() const;
    Acad::ErrorStatus setCelweight(AcDb::LineWeight weight);
    AcDbObjectId cmleaderstyle() const;
    Acad::ErrorStatus setCmleaderstyle(AcDbObjectId objId);
    /// 1 (true) while model space is the active layout, 0 in a paper layout. Setting it makes model
    /// space, or the paper layout last active, the active layout.
    bool tilemode() const;
    Acad::ErrorStatus setTilemode(bool mode);
    /// The current annotation scale (CANNOSCALE): a new copy the caller deletes; null when the
    /// drawing's scale list lacks it.
    AcDbAnnotationScale* cannoscale() const;
    /// eKeyNotFound for a scale the drawing's scale list lacks (by name, case ignored).
    Acad::ErrorStatus setCannoscale(AcDbAnnotationScale* val);
    /// The database's collections of object contexts (its annotation scales); owned by the database.
    AcDbObjectContextManager* objectContextManager() const;
    /// The model space UCS.
    AcGePoint3d ucsorg() const;
    AcGeVector3d ucsxdir() const;
    AcGeVector3d ucsydir() const;
    AcDbObjectId ucsname() const;
    Acad::ErrorStatus setUcsname(AcDbObjectId ucsRecId);
    Acad::ErrorStatus setUcs(const AcGePoint3d& ucsOrigin, const AcGeVector3d& ucsXDir, const AcGeVector3d& ucsYDir);
    /// The paper space UCS.
    AcGePoint3d pucsorg() const;
    AcGeVector3d pucsxdir() const;
    AcGeVector3d pucsydir() const;
    AcDbObjectId pucsname() const;
    Acad::ErrorStatus setPucsname(AcDbObjectId ucsRecId);
    Acad::ErrorStatus setPucs(const AcGePoint3d& ucsOrigin, const AcGeVector3d& ucsXDir, const AcGeVector3d& ucsYDir);
    /// The drawing's identity, "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}"; the caller frees it (delete[]).
    Acad::ErrorStatus getFingerprintGuid(ACHAR*& guidString) const;
    Acad::ErrorStatus setFingerprintGuid(const ACHAR* pNewGuid);
    /// The next handle to be given; always above every handle of the database.
    AcDbHandle handseed() const;
    Acad::ErrorStatus setHandseed(const AcDbHandle& handle);

    AcDbObjectId continuousLinetype() const;
    AcDbObjectId byLayerLinetype() const;
    AcDbObjectId byBlockLinetype() const;
    AcDbObjectId layerZero() const;
    /// Model space when TILEMODE is on, else paper space.
    AcDbObjectId currentSpaceId() const;

private:
    friend class AcDbImpDatabase;
    AcDbImpDatabase* mpImpDb;
};

/// Opens an object by id. eWasErased for an erased object unless openErased; eWasOpenForWrite or
/// eWasOpenForRead when the open conflicts with another; eOnLockedLayer for an entity on a locked
/// layer opened for write. Whoever opens closes.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false);
/// As acdbOpenAcDbObject, for entities: eNotAnEntity for another object.
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& pEnt, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false);
inline Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false)
{
    return acdbOpenAcDbObject(pObj, id, mode, openErased);
}
/// Opens only an object of pClass (or derived): eNotThatKindOfClass otherwise, without opening it.
Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcRxClass* pClass, AcDb::OpenMode mode, bool openErased);
/// The class-checked form: eNotThatKindOfClass and a null pointer for an object of another class.
template <class T_OBJECT>
inline Acad::ErrorStatus acdbOpenObject(T_OBJECT*& pObj, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false)
{
    AcDbObject* p = nullptr;
    Acad::ErrorStatus es = acdbOpenObject(p, id, T_OBJECT::desc(), mode, openErased);
    pObj = es == Acad::eOk ? static_cast<T_OBJECT*>(p) : nullptr;
    return es;
}

/// The ADS name of an object: its handle in [0], its database in [1].
Acad::ErrorStatus acdbGetAdsName(ads_name& objName, AcDbObjectId objId);
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& objId, const ads_name objName);

/// The factor that takes lengths in one drawing unit to another; eInvalidInput for kUnitsUndefined
/// or an unknown unit.
Acad::ErrorStatus acdbGetUnitsConversion(AcDb::UnitsValue from, AcDb::UnitsValue to, double& conversionFactor);

/// Loads line types from a .lin file (found as findFile finds it) into a database (null: the working
/// one). ltname names one line type or, with "*" and "?", several. eDuplicateRecordName (95) when the
/// database has it already, eFileNotFound for a file that is nowhere, eKeyNotFound when the file has
/// no such line type or a text style or shape file it needs is not in the database.
Acad::ErrorStatus acdbLoadLineTypeFile(const ACHAR* ltname, const ACHAR* fname, AcDbDatabase* pDb);

/// Frees a string the database handed out (layer(), getName(ACHAR*&), ...) and sets it to null.
void acutDelString(ACHAR*& pString);
