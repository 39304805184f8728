#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "backend/model/Zone.h"
#include "backend/values/OrvMidiMessage.h"

namespace Backend::Zones
{
/// The zones of the engine: the first stage of the signal path of every note that has a zone. Applies the transposition
/// of its zone. Time slice only.
class EngineZones
{
public:
    /// Replaces the transpositions of all zones.
    void set(std::span<const Zone> zones);

    /// Replaces the transposition of one zone; ignored if there is no such zone.
    void setTranspose(const Zone& zone);

    /// The sounding note for a note-on: transposed by its zone, unchanged if there is no such zone.
    int press(const MidiEngine::OrvMidiMessage& noteOn);

    /// The sounding note for a note-off without a press on its route: the last one that the zone made of this note, or
    /// the note itself if there was none.
    int getLastSounding(const MidiEngine::OrvMidiMessage& noteOff) const;

private:
    static constexpr int ZONES = 128;
    static constexpr int NOTES = 256;  // the number of values of a data byte
    static constexpr int NEVER = -1;

    struct Record {
        bool exists = false;
        std::int8_t transpose = 0;
        std::array<std::int16_t, NOTES> last{};  // the last sounding note, by the played note
    };

    std::array<Record, ZONES> records{};
};
}  // namespace Backend::Zones
