// The objects of a database by handle, owned: a flat table over the dense run of handles that a
// drawing has (one pointer per handle, no node per object), and an ordered map for the few
// handles far above that run, so that a file with a stray huge handle costs no huge table.
#pragma once
#include <cstddef>
#include <iterator>
#include <map>
#include <vector>

#include "adesk.h"

class AcDbObject;

namespace sim::db {

class HandleIndex {
public:
    HandleIndex() = default;
    HandleIndex(const HandleIndex&) = delete;
    HandleIndex& operator=(const HandleIndex&) = delete;
    ~HandleIndex() { clear(); }

    /// The object under the handle; null when none.
    AcDbObject* find(Adesk::UInt64 h) const
    {
        if (h < m_dense.size())
            return m_dense[h];
        if (m_sparse.empty())
            return nullptr;
        auto it = m_sparse.find(h);
        return it == m_sparse.end() ? nullptr : it->second;
    }
    bool contains(Adesk::UInt64 h) const { return find(h) != nullptr; }
    /// Takes the object under a handle that is free and not 0.
    void insert(Adesk::UInt64 h, AcDbObject* obj);
    /// Room for handles below the count, within the bound the flat table keeps to.
    void reserve(size_t count)
    {
        if (denseMayHold(count))
            m_dense.reserve(count);
    }
    /// Gives up the object under the handle without deleting it; null when none.
    AcDbObject* release(Adesk::UInt64 h);
    /// Deletes every object.
    void clear();

    bool empty() const { return m_count == 0; }
    size_t size() const { return m_count; }
    /// The highest handle in use; 0 when there is none.
    Adesk::UInt64 top() const;

    /// Calls fn(handle, object) in the order of the handles. fn may add and remove objects: one
    /// added while the walk goes on may or may not be visited, as with a std::map.
    template <class Fn>
    void forEach(Fn&& fn) const
    {
        for (size_t h = 0; h < m_dense.size(); ++h)
            if (AcDbObject* obj = m_dense[h])
                fn(static_cast<Adesk::UInt64>(h), obj);
        // By key rather than by iterator: fn may change the map.
        Adesk::UInt64 after = m_dense.size() ? m_dense.size() - 1 : 0;
        bool first = m_dense.empty();
        for (;;) {
            auto it = first ? m_sparse.lower_bound(after) : m_sparse.upper_bound(after);
            if (it == m_sparse.end())
                return;
            first = false;
            after = it->first;
            fn(it->first, it->second);
        }
    }

private:
    /// Whether the flat table may grow to hold the handle: while it stays within a few times the
    /// number of objects.
    bool denseMayHold(Adesk::UInt64 h) const { return h < 2 * static_cast<Adesk::UInt64>(m_count) + 65536; }

    std::vector<AcDbObject*> m_dense;
    std::map<Adesk::UInt64, AcDbObject*> m_sparse;
    size_t m_count = 0;
};

} // namespace sim::db
