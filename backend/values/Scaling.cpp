#include "backend/values/Scaling.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
using Limits = std::numeric_limits<std::int32_t>;

std::int32_t saturate(double value)
{
    return static_cast<std::int32_t>(std::clamp<double>(value, Limits::min(), Limits::max()));
}

struct Range {
    double low, high;
};

/// Maps from `in`, whose end is not below its start, to `out`; a negative value is mapped like the positive one and
/// negated.
std::int32_t scale(double value, Range in, Range out)
{
    const double clamped = std::clamp(std::abs(value), in.low, in.high);
    const double width = in.high > in.low ? in.high - in.low : 1.0;
    const double scaled = (out.high - out.low) * (clamped - in.low) / width + out.low;
    return saturate((value < 0 ? -scaled : scaled) + 0.5);
}
}  // namespace

std::int32_t scaleRange(std::int32_t inFrom, std::int32_t inTo, std::int32_t value, std::int32_t outFrom,
                        std::int32_t outTo)
{
    const double from = inFrom;
    const double to = inTo;
    const double start = outFrom;
    const double end = outTo;
    if (inFrom > inTo) return scale(from - value + to, {to, from}, {start, end});
    if (outFrom <= outTo) return scale(value, {from, to}, {start, end});
    // A falling output is mirrored, so that halves are rounded downwards.
    return saturate(end + start - scale(value, {from, to}, {end, start}));
}

std::int32_t scaleLogarithmic(std::int32_t knob, std::int32_t low, std::int32_t high)
{
    if (knob <= 0) return high;  // rounding could give a little less
    const float lowest = std::log(static_cast<float>(low));
    const float range = std::log(static_cast<float>(high)) - lowest;
    const float scaled = std::exp(range * (127.0F - static_cast<float>(knob)) / 127.0F + lowest);
    if (scaled >= static_cast<float>(high)) return high;
    if (scaled > static_cast<float>(low)) return static_cast<std::int32_t>(scaled);
    return low;
}

std::int32_t logarithmicKnob(std::int32_t value, std::int32_t low, std::int32_t high)
{
    constexpr std::int32_t END = 127;
    const double lowest = std::log(low);
    const double range = std::log(high) - lowest;
    return static_cast<std::int32_t>(std::floor(END - (std::log(std::max(value, 1)) - lowest) / range * END + 0.5));
}
