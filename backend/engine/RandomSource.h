#pragma once

#include <cstdint>

namespace Backend::MidiEngine
{
/// Random numbers from 0 to 32767, evenly distributed; the same seed gives the same numbers (xorshift32 with 13, 17 and
/// 5, the upper 15 bits).
class RandomSource
{
public:
    static constexpr std::int32_t HIGHEST = 32767;

    /// The generator cannot leave 0, so a seed of 0 counts as 1.
    constexpr explicit RandomSource(std::uint32_t seed = 1) : state(seed == 0 ? 1 : seed) {}

    constexpr std::int32_t draw()
    {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return static_cast<std::int32_t>(state >> 17);
    }

private:
    std::uint32_t state;
};
}  // namespace Backend::MidiEngine
