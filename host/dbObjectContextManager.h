// AcDbObjectContextManager: a database's collections of object contexts by name.
#pragma once
#include <memory>
#include "dbObjectContextCollection.h"

class AcDbObjectContextManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectContextManager);
    explicit AcDbObjectContextManager(AcDbDatabase* pDb);
    ~AcDbObjectContextManager() override;

    /// The collection of the name (ACDB_ANNOTATIONSCALES_COLLECTION); owned by the manager, null
    /// for an unknown name.
    AcDbObjectContextCollection* contextCollection(const AcString& collectionName) const;

private:
    std::unique_ptr<AcDbObjectContextCollection> m_scales;
};
