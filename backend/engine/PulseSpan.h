#pragma once

#include <cstdint>
#include <limits>

namespace Backend::Layers
{
/// The pulses between `from` and `until`, both excluded; empty by default.
struct PulseSpan {
    std::int32_t from = std::numeric_limits<std::int32_t>::max();
    std::int32_t until = std::numeric_limits<std::int32_t>::min();

    bool contains(std::int32_t ppq) const { return ppq < until && ppq > from; }
};
}  // namespace Backend::Layers
