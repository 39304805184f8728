#pragma once

#include <array>
#include <cstdint>

namespace Backend::MidiEngine
{
/// The outputs and channels to which the present event was sent. A new event increments a number instead of clearing.
class SentPairs
{
public:
    void begin() { ++event; }

    /// False if the pair was added before. Output 0 to 127, channel 0 to 15.
    bool add(int output, int channel)
    {
        std::uint64_t& last = pairs[static_cast<unsigned>(output) * 16 + static_cast<unsigned>(channel)];
        if (last == event) return false;
        last = event;
        latest = event;
        return true;
    }

    bool contains(int output, int channel) const
    {
        return pairs[static_cast<unsigned>(output) * 16 + static_cast<unsigned>(channel)] == event;
    }
    /// Calls `visit(output, channel)` for each pair, the lowest first.
    template <class Visit>
    void forEach(Visit&& visit) const
    {
        for (int pair = 0; pair < static_cast<int>(pairs.size()); ++pair)
            if (contains(pair / 16, pair % 16)) visit(pair / 16, pair % 16);
    }

    /// Whether the present event was sent at all.
    bool hasAny() const { return latest == event; }

private:
    std::uint64_t event = 0;
    std::uint64_t latest = 0;
    std::array<std::uint64_t, 128 * 16> pairs{};
};
}  // namespace Backend::MidiEngine
