// Selection sets: ordered, each entity once.
#include "sim/editor/SelectionSet.h"

#include <algorithm>

namespace sim::editor {

bool SelectionSet::contains(const AcDbObjectId& id) const
{
    return std::any_of(m_items.begin(), m_items.end(), [&](const Selected& s) { return s.entity == id; });
}

bool SelectionSet::add(const Selected& s)
{
    if (s.entity.isNull() || contains(s.entity))
        return false;
    m_items.push_back(s);
    return true;
}

bool SelectionSet::remove(const AcDbObjectId& id)
{
    auto it = std::find_if(m_items.begin(), m_items.end(), [&](const Selected& s) { return s.entity == id; });
    if (it == m_items.end())
        return false;
    m_items.erase(it);
    return true;
}

} // namespace sim::editor
