// Growth of the heap in large steps of huge pages while a large drawing is read.
#include "sim/dxf/HeapGrowth.h"

#if defined(__linux__) && defined(__GLIBC__)
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>
#define SIM_DXF_HEAP_GROWTH 1
#endif

#include <cstdint>

namespace sim::dxf {

#ifdef SIM_DXF_HEAP_GROWTH

namespace {

// The heap's growth step while reading (the C library's default is 128 KiB): large enough that
// each step holds whole huge pages.
constexpr int kGrowthStep = 32 << 20;
constexpr int kDefaultGrowthStep = 128 << 10;
constexpr std::uintptr_t kPage = 4096;

char* pageUp(void* p) { return reinterpret_cast<char*>((reinterpret_cast<std::uintptr_t>(p) + kPage - 1) & ~(kPage - 1)); }

} // namespace

HeapGrowth::HeapGrowth(size_t textSize)
{
    if (textSize < kMinText)
        return;
    m_marked = pageUp(::sbrk(0));
    m_active = ::mallopt(M_TOP_PAD, kGrowthStep) == 1;
}

HeapGrowth::~HeapGrowth()
{
    if (m_active)
        ::mallopt(M_TOP_PAD, kDefaultGrowthStep);
}

void HeapGrowth::check()
{
    // sbrk(0) reads the break the C library keeps; it makes no system call.
    char* top = pageUp(::sbrk(0));
    if (top <= m_marked) {
        m_marked = top; // trimmed: what grows again is fresh
        return;
    }
    // Only memory above what was marked before: the pages already touched keep their size.
    ::madvise(m_marked, static_cast<size_t>(top - m_marked), MADV_HUGEPAGE);
    m_marked = top;
}

#else

HeapGrowth::HeapGrowth(size_t) {}
HeapGrowth::~HeapGrowth() = default;
void HeapGrowth::check() {}

#endif

} // namespace sim::dxf
