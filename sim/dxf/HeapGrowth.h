// While a large drawing is read, the heap grows in large steps and what it grows by may be backed
// by huge pages: on fresh memory the page faults cost more than building the objects does.
#pragma once
#include <cstddef>

namespace sim::dxf {

class HeapGrowth {
public:
    /// Takes effect for a text of at least kMinText bytes; otherwise does nothing.
    explicit HeapGrowth(size_t textSize);
    /// Puts the heap's growth step back as it was.
    ~HeapGrowth();
    HeapGrowth(const HeapGrowth&) = delete;
    HeapGrowth& operator=(const HeapGrowth&) = delete;

    /// Lets the memory the heap got since the last call be backed by huge pages. Costs no system
    /// call while the heap has not grown; call it after each object.
    void poll()
    {
        if (m_active)
            check();
    }

    static constexpr size_t kMinText = 8u << 20;

private:
    void check();
    bool m_active = false;
    char* m_marked = nullptr;
};

} // namespace sim::dxf
