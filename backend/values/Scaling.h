#pragma once

#include <cstdint>

/// Maps `value` linearly from one range to another and rounds to the nearest, halves upwards (downwards where the
/// output falls). A value outside the input range counts as its nearer end, and either range may run downwards. Ranges
/// are meant to start at 0 or above: a negative value is mapped like its positive twin and then gets its sign back. An
/// input range without width counts as its start, and a result that does not fit 32 bits stops at their end.
std::int32_t scaleRange(std::int32_t inFrom, std::int32_t inTo, std::int32_t value, std::int32_t outFrom,
                        std::int32_t outTo);

/// Maps a knob, 0 to 127, to a logarithmic scale that falls from `high` at 0 to `low` at 127. `low` and `high` are from
/// 1 up, `low` not above `high`; otherwise the result is one of the two.
std::int32_t scaleLogarithmic(std::int32_t knob, std::int32_t low, std::int32_t high);
