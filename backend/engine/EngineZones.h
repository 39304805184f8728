#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "backend/model/Zone.h"
#include "backend/values/OrvMidiMessage.h"

namespace Backend::Zones
{
/// The zones as the engine plays them: the first stage of every note that names one. Time slice only.
class EngineZones
{
public:
    /// Replaces all transpositions.
    void set(std::span<const Zone> zones);

    /// Replaces the transposition of a zone that exists.
    void setTranspose(const Zone& zone);

    /// What a note on becomes in its zone: without a record of the zone, itself.
    int press(const MidiEngine::OrvMidiMessage& noteOn);

    /// What a note off becomes that has no press on its route: the note that the zone made last of the played one;
    /// itself if it never sounded there.
    int getLastSounding(const MidiEngine::OrvMidiMessage& noteOff) const;

private:
    static constexpr int ZONES = 128;
    static constexpr int NOTES = 256;  // as many as a data byte has
    static constexpr int NEVER = -1;

    struct Record {
        bool exists = false;
        std::int8_t transpose = 0;
        std::array<std::int16_t, NOTES> last{};  // what a note became last
    };

    std::array<Record, ZONES> records{};
};
}  // namespace Backend::Zones
