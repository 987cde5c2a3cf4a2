// AcDbObjectContextCollection: the contexts of one kind that a database offers (its annotation
// scales), and its iterator.
#pragma once
#include <vector>
#include "dbObjContext.h"

class AcDbDatabase;
class AcDbObject;
class AcDbObjectContextCollectionIterator;

/// The annotation scales of a database, kept as its scale list (the dictionary ACAD_SCALELIST of
/// the named objects dictionary). Owned by the database's context manager.
class AcDbObjectContextCollection : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectContextCollection);
    AcDbObjectContextCollection(AcDbDatabase* pDb, const AcString& name) : m_db(pDb), m_name(name) {}
    ~AcDbObjectContextCollection() override = default;

    virtual AcString name() const { return m_name; }
    AcDbDatabase* database() const { return m_db; }
    /// The current context (CANNOSCALE); a new copy the caller deletes, null when there is none.
    virtual AcDbObjectContext* currentContext(const AcDbObject* pRequestingObject) const;
    /// eKeyNotFound when the collection has no such context.
    virtual Acad::ErrorStatus setCurrentContext(const AcDbObjectContext* pContext);
    /// Adds a copy of the context under its name: eDuplicateKey when the name is taken (names
    /// compare without regard to case), eInvalidInput for an empty name or a context of another
    /// kind.
    virtual Acad::ErrorStatus addContext(const AcDbObjectContext* pContext);
    /// eKeyNotFound for an unknown name; eInvalidContext for the current context;
    /// eNotApplicable while an object carries it.
    virtual Acad::ErrorStatus removeContext(const AcString& contextName);
    virtual Acad::ErrorStatus lockContext(const AcDbObjectContext* pContext);
    virtual Acad::ErrorStatus unlockContext();
    virtual bool locked() const { return false; }
    /// The context of the name: a new copy the caller deletes; null when there is none.
    virtual AcDbObjectContext* getContext(const AcString& contextName) const;
    virtual bool hasContext(const AcString& contextName) const;
    /// A new iterator the caller deletes.
    virtual AcDbObjectContextCollectionIterator* newIterator() const;

private:
    AcDbDatabase* m_db;
    AcString m_name;
};

/// Walks a collection's contexts in the order of the scale list. The caller deletes it.
class AcDbObjectContextCollectionIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectContextCollectionIterator);
    explicit AcDbObjectContextCollectionIterator(const AcDbObjectContextCollection* pCollection);
    ~AcDbObjectContextCollectionIterator() override = default;

    virtual Acad::ErrorStatus start();
    virtual bool next();
    virtual bool done() const;
    /// A new copy of the context at the iterator the caller deletes.
    virtual Acad::ErrorStatus getContext(AcDbObjectContext*& pObjectContext) const;

private:
    const AcDbObjectContextCollection* m_collection;
    /// The names at start, so that a removal during the walk does not upset it.
    std::vector<AcString> m_names;
    size_t m_pos = 0;
};
