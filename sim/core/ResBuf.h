// What the platform knows about result buffers beyond the host's own calls.
#pragma once
#include "acutads.h"

namespace sim {

enum class RbKind { Real, Point, Short, Long, Int64, String, Name, Binary, None };

/// The kind of value a buffer of this type code carries: ADS result types and DXF group codes.
RbKind rbKind(int typeCode);

/// A deep copy of a chain (strings and binary chunks copied); the caller frees it with acutRelRb.
resbuf* copyChain(const resbuf* rb);

} // namespace sim
