#pragma once

#include <cstdint>
#include <limits>

namespace Backend::Layers
{
/// The pulses between two, both left out; by itself none.
struct PulseSpan {
    std::int32_t from = std::numeric_limits<std::int32_t>::max();
    std::int32_t until = std::numeric_limits<std::int32_t>::min();

    bool contains(std::int32_t ppq) const { return ppq < until && ppq > from; }
};
}  // namespace Backend::Layers
