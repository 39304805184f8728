#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "backend/engine/NoteCounters.h"
#include "backend/engine/PressMemory.h"

namespace Backend::MidiEngine
{
/// Remembers to which outputs and channels each route sent a pedal that went down, so that the pedal goes up there too,
/// whatever was changed in between. Of a fixed size. Guarded by the engine lock.
class PedalMemory
{
public:
    PedalMemory() { entries.reserve(CAPACITY); }

    /// Whether one more event can be remembered, even if it goes everywhere.
    bool hasRoom() const { return CAPACITY - entries.size() >= TARGETS; }

    /// A pedal of that route went down at an output and channel. `route` as `PressMemory::keyOf` gives it.
    void press(PressMemory::Key route, int output, int channel)
    {
        const Entry entry{route, static_cast<std::uint16_t>(output * NoteCounters::CHANNELS + channel)};
        const auto place = std::ranges::lower_bound(entries, entry);
        if (place == entries.end() || *place != entry) entries.insert(place, entry);
    }

    /// Calls `pedalUp(output, channel)` for each place at which the route has a pedal down, the lowest first, and
    /// forgets them.
    template <class PedalUp>
    void release(PressMemory::Key route, PedalUp&& pedalUp)
    {
        const auto from = std::ranges::lower_bound(entries, route, {}, &Entry::first);
        auto until = from;
        for (; until != entries.end() && until->first == route; ++until)
            pedalUp(until->second / NoteCounters::CHANNELS, until->second % NoteCounters::CHANNELS);
        entries.erase(from, until);
    }

    template <class IsGone>
    void forgetOutputs(IsGone&& isGone)
    {
        std::erase_if(entries, [&](const Entry& entry) { return isGone(entry.second / NoteCounters::CHANNELS); });
    }

    void clear() { entries.clear(); }

private:
    static constexpr std::size_t TARGETS = std::size_t{NoteCounters::OUTPUTS} * NoteCounters::CHANNELS;
    static constexpr std::size_t CAPACITY = 2 * TARGETS;

    using Entry = std::pair<PressMemory::Key, std::uint16_t>;  // route; output and channel

    std::vector<Entry> entries;  // sorted
};
}  // namespace Backend::MidiEngine
