#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "backend/engine/PressMemory.h"
#include "backend/model/MidiEventConfigurationMap.h"
#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
/// What the events of MIDI inputs are translated by: the entries of the moment and, while held notes are kept, the
/// entries that each held note or pedal met when it went down, by which it is released. Guarded by the engine lock.
class InputTranslations
{
public:
    using Map = MidiInput::MidiEventConfigurationMap;
    using Shared = std::shared_ptr<const Map>;

    /// The most maps that are kept at a time, that of the moment included. What was held longer than that is released
    /// by the entries of the moment.
    static constexpr std::size_t MOST = 64;
    using Room = std::array<Shared, MOST>;

    InputTranslations();

    const Map& now() const { return *places[current].map; }
    /// From now on events are translated by that map, which is not null. `gone`, which is empty, gets the maps that
    /// nothing needs any more, to be freed outside the lock.
    void set(Shared map, Room& gone);

    // The next two record nothing for any event but a note-on or a pedal that goes down.

    /// The event is translated by the map of the moment.
    void press(const OrvMidiMessage& received) { press(received, current); }
    /// The event is translated by that map, which may be one that is still to be set.
    void press(const OrvMidiMessage& received, const Shared& map, Room& gone);

    /// Whether it is a note-off, or a pedal that goes up, of a press.
    bool knows(const OrvMidiMessage& received) const
    {
        return received.isRelease() && presses.hasOpen(keyOf(received));
    }
    /// For a note-off, or a pedal that goes up: calls `visit(const Shared&)` for the map of each press of it, the
    /// latest first, until it returns false. True if there is a press and it never did.
    template <class Visit>
    bool allPresses(const OrvMidiMessage& received, Visit&& visit) const
    {
        return received.isRelease() &&
               presses.allOpen(keyOf(received), [&](const PressMemory::Run& run, PressMemory::Index) {
                   return visit(places[run.outcome.value].map);
               });
    }
    /// Forgets a press, and all those that met other entries than the latest one, as `PressMemory::release` does. Calls
    /// `visit(const Shared&)` for each; never if nothing is known.
    template <class Visit>
    void release(const OrvMidiMessage& received, Visit&& visit)
    {
        if (!knows(received)) return;
        presses.release(keyOf(received), [&](const PressMemory::Run& run, PressMemory::Index) {
            --places[run.outcome.value].presses;
            visit(places[run.outcome.value].map);
        });
    }
    void forgetPresses();

private:
    static constexpr std::size_t CAPACITY = 4096;

    static PressMemory::Key keyOf(const OrvMidiMessage& event);
    void press(const OrvMidiMessage& received, std::size_t place);
    /// The place of a map, which is a new one if need be. `gone` gets the map that was there.
    std::size_t placeOf(const Shared& map, Shared& gone);

    struct Place {
        Shared map;
        std::uint32_t presses = 0;  // open ones
        std::uint64_t age = 0;      // the older, the lower
    };

    std::array<Place, MOST> places;
    std::size_t current = 0;
    std::uint64_t lastAge = 0;
    PressMemory presses{CAPACITY};  // the outcome is the place of the map
};
}  // namespace Backend::MidiEngine
