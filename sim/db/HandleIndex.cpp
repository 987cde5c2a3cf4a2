// The objects of a database by handle.
#include "sim/db/HandleIndex.h"

#include "dbmain.h"

namespace sim::db {

void HandleIndex::insert(Adesk::UInt64 h, AcDbObject* obj)
{
    ++m_count;
    if (h >= m_dense.size() && denseMayHold(h)) {
        // vector grows its capacity geometrically, so a run of rising handles costs little.
        m_dense.resize(static_cast<size_t>(h) + 1, nullptr);
        // Handles of the map that the table now covers move into it.
        while (!m_sparse.empty() && m_sparse.begin()->first < m_dense.size()) {
            m_dense[static_cast<size_t>(m_sparse.begin()->first)] = m_sparse.begin()->second;
            m_sparse.erase(m_sparse.begin());
        }
    }
    if (h < m_dense.size())
        m_dense[static_cast<size_t>(h)] = obj;
    else
        m_sparse.emplace(h, obj);
}

AcDbObject* HandleIndex::release(Adesk::UInt64 h)
{
    AcDbObject* obj = nullptr;
    if (h < m_dense.size()) {
        obj = m_dense[static_cast<size_t>(h)];
        m_dense[static_cast<size_t>(h)] = nullptr;
    } else if (auto it = m_sparse.find(h); it != m_sparse.end()) {
        obj = it->second;
        m_sparse.erase(it);
    }
    if (obj)
        --m_count;
    return obj;
}

void HandleIndex::clear()
{
    // Taken out first: an object's destructor must not find the index half cleared.
    std::vector<AcDbObject*> dense;
    dense.swap(m_dense);
    std::map<Adesk::UInt64, AcDbObject*> sparse;
    sparse.swap(m_sparse);
    m_count = 0;
    for (AcDbObject* obj : dense)
        delete obj;
    for (auto& [h, obj] : sparse)
        delete obj;
}

Adesk::UInt64 HandleIndex::top() const
{
    if (!m_sparse.empty())
        return m_sparse.rbegin()->first;
    for (size_t h = m_dense.size(); h-- > 0;)
        if (m_dense[h])
            return h;
    return 0;
}

} // namespace sim::db
