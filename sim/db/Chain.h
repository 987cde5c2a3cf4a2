// An owned, copyable chain of result buffers: deep copies on copy, freed with acutRelRb.
#pragma once
#include "acutads.h"
#include "sim/core/ResBuf.h"

namespace sim::db {

class Chain {
public:
    Chain() = default;
    /// Takes over the chain.
    explicit Chain(resbuf* owned) : m_rb(owned) {}
    Chain(const Chain& o) : m_rb(copyChain(o.m_rb)) {}
    Chain(Chain&& o) noexcept : m_rb(o.m_rb) { o.m_rb = nullptr; }
    Chain& operator=(const Chain& o)
    {
        if (this != &o) {
            resbuf* c = copyChain(o.m_rb);
            acutRelRb(m_rb);
            m_rb = c;
        }
        return *this;
    }
    Chain& operator=(Chain&& o) noexcept
    {
        if (this != &o) {
            acutRelRb(m_rb);
            m_rb = o.m_rb;
            o.m_rb = nullptr;
        }
        return *this;
    }
    ~Chain() { acutRelRb(m_rb); }

    const resbuf* get() const { return m_rb; }
    bool empty() const { return m_rb == nullptr; }
    /// A copy the caller frees.
    resbuf* copy() const { return copyChain(m_rb); }

private:
    resbuf* m_rb = nullptr;
};

} // namespace sim::db
