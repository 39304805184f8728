#pragma once

#include <cstdint>

/// Maps `value` linearly from one range to another, rounded to the nearest, halves upwards (downwards if the output
/// falls). A value outside the input range counts as its nearer end; either range may fall. Ranges should start at 0 or
/// above: a negative value is mapped like the positive one and negated. An empty input range counts as its start, and
/// the result is limited to 32 bits.
std::int32_t scaleRange(std::int32_t inFrom, std::int32_t inTo, std::int32_t value, std::int32_t outFrom,
                        std::int32_t outTo);

/// Maps the position of a knob, 0 to 127, to a logarithmic scale that falls from `high` at 0 to `low` at 127. `low`
/// must be at least 1 and not above `high`; otherwise one of the two is returned.
std::int32_t scaleLogarithmic(std::int32_t knob, std::int32_t low, std::int32_t high);

/// The position of the knob that is nearest to a value on that scale; beyond 0 to 127 for one outside `low` to `high`.
/// A value below 1 counts as 1.
std::int32_t logarithmicKnob(std::int32_t value, std::int32_t low, std::int32_t high);
