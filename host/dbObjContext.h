// AcDbObjectContext: one context an object can be shown in (an annotation scale is one), and the
// name of the collection of annotation scales.
#pragma once
#include "AcString.h"
#include "adesk.h"
#include "rxobject.h"

/// The name of the collection of annotation scales in a database's object context manager.
extern const ACHAR* acdbAnnotationScaleCollectionName;
#define ACDB_ANNOTATIONSCALES_COLLECTION acdbAnnotationScaleCollectionName

class AcDbObjectContext : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectContext);
    ~AcDbObjectContext() override = default;

    virtual Acad::ErrorStatus getName(AcString& name) const = 0;
    virtual Acad::ErrorStatus setName(const AcString& name) = 0;
    /// What tells contexts of a collection apart (the platform: the handle of the scale's object,
    /// 0 for a context not yet in a database).
    virtual Adesk::LongPtr uniqueIdentifier() const = 0;
    virtual const AcString collectionName() const = 0;
};
