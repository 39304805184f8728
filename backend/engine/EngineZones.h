#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "backend/engine/PressMemory.h"
#include "backend/model/Zone.h"
#include "backend/values/OrvMidiMessage.h"

namespace Backend::Zones
{
/// The zones as the engine plays them: the first stage of every note that names one. A note off becomes the note that
/// its note on became, whatever happened to the zone in between. Time slice only.
class EngineZones
{
public:
    /// Replaces all transpositions. Open presses keep their notes; what was released long ago is forgotten.
    void set(std::span<const Zone> zones);

    /// Replaces the transposition of a zone that exists.
    void setTranspose(const Zone& zone);

    /// What a note of a zone becomes, `press` being its place in `presses`.
    int soundingNote(const MidiEngine::OrvMidiMessage& event, MidiEngine::PressMemory& presses, std::size_t press);

private:
    static constexpr int ZONES = 128;
    static constexpr int NOTES = 256;  // as many as a data byte has

    struct Record {
        bool exists = false;
        std::int8_t transpose = 0;
        std::array<std::int16_t, NOTES> last{};  // what a note became last, -1 if it never sounded
    };

    std::array<Record, ZONES> records{};
};
}  // namespace Backend::Zones
