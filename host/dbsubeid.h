// Sub-entities: the id of a part of an entity (an edge, a face, a vertex) and its full path from
// the outermost block reference down to the entity.
#pragma once
#include "adesk.h"
#include "dbid.h"
#include "dbmain.h"

class AcDbSubentId {
public:
    AcDbSubentId() = default;
    AcDbSubentId(AcDb::SubentType type, Adesk::GsMarker index) : m_type(type), m_index(index) {}
    AcDb::SubentType type() const { return m_type; }
    void setType(AcDb::SubentType type) { m_type = type; }
    Adesk::GsMarker index() const { return m_index; }
    void setIndex(Adesk::GsMarker index) { m_index = index; }
    bool operator==(const AcDbSubentId& o) const { return m_type == o.m_type && m_index == o.m_index; }

private:
    AcDb::SubentType m_type = AcDb::kNullSubentType;
    Adesk::GsMarker m_index = 0;
};

class AcDbFullSubentPath {
public:
    AcDbFullSubentPath() = default;
    AcDbFullSubentPath(AcDbObjectId entityId, AcDb::SubentType type, Adesk::GsMarker index)
        : m_subent(type, index)
    {
        m_ids.append(entityId);
    }
    AcDbFullSubentPath(const AcDbObjectIdArray& objectIds, AcDbSubentId subent) : m_ids(objectIds), m_subent(subent) {}

    /// The ids from the outermost container to the entity itself.
    void objectIds(AcDbObjectIdArray& objectIds) const { objectIds = m_ids; }
    const AcDbSubentId& subentId() const { return m_subent; }

private:
    AcDbObjectIdArray m_ids;
    AcDbSubentId m_subent;
};
