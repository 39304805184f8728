#pragma once

#include <cstdint>

namespace Backend::MidiEngine
{
/// Where chance comes from: 0 to 32767, evenly, and for the same seed always in the same order (xorshift32 with 13, 17
/// and 5, of which the upper 15 bits are drawn).
class RandomSource
{
public:
    static constexpr std::int32_t HIGHEST = 32767;

    /// The generator never leaves 0, so a seed of 0 counts as 1.
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
