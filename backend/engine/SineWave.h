#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace Backend::Oscillators
{
/// The largest integer that is not above `number`, whose magnitude must be well below 2^63.
inline std::int64_t floorOf(double number)
{
    const auto whole = static_cast<std::int64_t>(number);
    return whole - (number < static_cast<double>(whole) ? 1 : 0);
}

/// Computes the values of a sine wave: exactly those of the formula (`exactValue`), but faster. An approximation is
/// computed first; the library's sine is called only where the approximation is so close to a step between two values
/// that its error could change the result.
class SineWave
{
public:
    /// `range` from 0 to 2^32, `base` of 32 bits; both integers.
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
    // The approximate and the exact height differ by at most half the range times the error of the approximation, below
    // 3e-8 of the range, and by ten roundings of 2^-53 of at most twice the range and the base. If the height is at
    // least 4e-8 of these away from the half at which rounding changes, both are rounded to the same value.
    static constexpr double NEAR_ENOUGH = 4e-8;
    static constexpr double FARTHEST = 0x1p30;
    static constexpr double ROUNDS_OFF = 0x1.8p52;  // a sum this large has no fraction, and its last bit counts ones

    /// Within 5.8e-8 of the sine. Half turns are subtracted until at most a quarter turn is left on either side, with
    /// pi as the sum of two numbers, the first of 24 bits, so that its product with less than 2^29 half turns is exact.
    /// The rest, below 1.571, goes into the sine's series up to its 11th power, whose error is below the next term,
    /// 1.571^13 / 13!.
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
        // After an odd number of half turns the sign is inverted.
        const std::uint64_t sign = std::bit_cast<std::uint64_t>(shifted) << 63;
        return std::bit_cast<double>(std::bit_cast<std::uint64_t>(rest * (series * square + 1)) ^ sign);
    }

    double range;
    double base;
    double half;
    double clear;  // the distance from the step at which the approximation suffices
    std::int64_t lowest;
};
}  // namespace Backend::Oscillators
