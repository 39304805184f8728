#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace Backend::Oscillators
{
/// The largest whole number that is not above one well within 64 bits.
inline std::int64_t floorOf(double number)
{
    const auto whole = static_cast<std::int64_t>(number);
    return whole - (number < static_cast<double>(whole) ? 1 : 0);
}

/// The values of a sine of some width upon some base: exactly those of the formula (`exactValue`), for less. A near
/// sine is taken first, and only where its value comes so close to a step that the two could differ is the library's
/// sine called.
class SineWave
{
public:
    /// `range` from 0 up to 2^32, `base` of 32 bits; both whole.
    SineWave(double waveRange, double waveBase)
        : range(waveRange),
          base(waveBase),
          half(range / 2),
          clear(0.5 - NEAR_ENOUGH * (range + std::abs(base) + 1)),
          lowest(static_cast<std::int64_t>(base))
    {
    }

    std::int64_t valueAt(double phase) const
    {
        if (!(std::abs(phase) < FARTHEST)) return exactValue(phase);
        const double height = nearSine(phase) * half + half;
        const double nearest = height + ROUNDS_OFF - ROUNDS_OFF;
        if (!(std::abs(height - nearest) < clear)) return exactValue(phase);
        return lowest + static_cast<std::int64_t>(nearest);
    }

    std::int64_t exactValue(double phase) const { return floorOf((std::sin(phase) + 1) * 0.5 * range + base + 0.5); }

private:
    // The near height and the exact one differ by at most half the range times the error of the near sine, which is
    // below 3e-8 of the range, and by ten roundings of 2^-53 of nothing larger than twice the range and the base. From
    // 4e-8 of these on, away from the half where the rounding turns, both round to the same.
    static constexpr double NEAR_ENOUGH = 4e-8;
    static constexpr double FARTHEST = 0x1p30;
    static constexpr double ROUNDS_OFF = 0x1.8p52;  // a sum this large has no fraction, and its last bit counts ones

    /// Within 5.8e-8 of the sine. Half turns are taken off until a quarter turn is left on either side: pi in two
    /// parts, the first of 24 bits, so that its product with less than 2^29 half turns is exact. What is left, below
    /// 1.571, goes into the sine's series up to its 11th power, whose error is below the next term, 1.571^13 / 13!.
    static double nearSine(double phase)
    {
        constexpr double PI_FIRST = 0x1.921fb4p+1;
        constexpr double PI_REST = 0x1.4442d18469899p-23;  // pi - PI_FIRST
        const double shifted = phase * (1 / std::numbers::pi) + ROUNDS_OFF;
        const double halfTurns = shifted - ROUNDS_OFF;
        const double rest = phase - halfTurns * PI_FIRST - halfTurns * PI_REST;
        const double square = rest * rest;
        double series = -1.0 / 39916800;
        series = series * square + 1.0 / 362880;
        series = series * square - 1.0 / 5040;
        series = series * square + 1.0 / 120;
        series = series * square - 1.0 / 6;
        // An odd number of half turns turns it over.
        const std::uint64_t sign = std::bit_cast<std::uint64_t>(shifted) << 63;
        return std::bit_cast<double>(std::bit_cast<std::uint64_t>(rest * (series * square + 1)) ^ sign);
    }

    double range;
    double base;
    double half;
    double clear;  // of the nearest value, to be sure of it
    std::int64_t lowest;
};
}  // namespace Backend::Oscillators
