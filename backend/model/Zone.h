#pragma once

#include <cstdint>

#include "backend/values/Note.h"

namespace Backend::Zones
{
/// The number of a zone, 0 to 127; shown from 1.
using ZoneId = std::int8_t;

/// A zone: a number that an input source puts on its events, with a transposition before the layers. It exists as long
/// as an input plays notes in it.
struct Zone {
    ZoneId id = 0;
    std::int8_t transpose = 0;    ///< semitones
    MidiEngine::Note lowNote{};   ///< lowest note that an input plays in it; not stored
    MidiEngine::Note highNote{};  ///< highest such note; not stored
    bool selected = false;        ///< functions with "selected" act on it; not stored
    std::uint8_t sources = 0;     ///< the inputs that play in it, of `FunctionManagement::NoteSource`; not stored

    bool operator==(const Zone&) const = default;
};
}  // namespace Backend::Zones
