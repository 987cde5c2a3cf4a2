// A selection set as the editor keeps it: the selected entities in order, each with how it was
// selected (the data acedSSNameX hands out).
#pragma once
#include <vector>

#include "dbid.h"
#include "gepnt3d.h"

namespace sim::editor {

/// How an entity came into a set (the method codes of acedSSNameX).
enum class SelectMethod { Other = 0, Pick = 1, Window = 2, Crossing = 3 };

struct Selected {
    AcDbObjectId entity;                    ///< the top-level entity
    SelectMethod method = SelectMethod::Other;
    AcGePoint3d pickPoint;                  ///< WCS, for picks
    int gsMarker = 0;                       ///< polyline segment index + 1, else 0
    AcDbObjectId innermost;                 ///< a nested pick's innermost entity, else entity
    std::vector<AcDbObjectId> containers;   ///< a nested pick's containers, innermost first
};

class SelectionSet {
public:
    const std::vector<Selected>& items() const { return m_items; }
    bool empty() const { return m_items.empty(); }
    size_t size() const { return m_items.size(); }
    bool contains(const AcDbObjectId& id) const;
    /// Adds the entity unless it is there already; true when it was added.
    bool add(const Selected& s);
    /// True when the entity was there.
    bool remove(const AcDbObjectId& id);

private:
    std::vector<Selected> m_items;
};

} // namespace sim::editor
