#pragma once

#include <cstdint>

#include "backend/values/Note.h"

namespace Backend::Zones
{
/// A zone's number, 0 to 127; the screens show one more.
using ZoneId = std::int8_t;

/// A number that an input source puts on its events, with a transposition of its own before the layers. A zone
/// exists because some input plays notes in it.
struct Zone {
    ZoneId id = 0;
    std::int8_t transpose = 0;    ///< semitones
    MidiEngine::Note lowNote{};   ///< lowest note that any input plays in it, none until worked out; not saved
    MidiEngine::Note highNote{};  ///< highest such note; not saved
    bool selected = false;        ///< the target of functions that say "selected"; not saved

    bool operator==(const Zone&) const = default;
};
}  // namespace Backend::Zones
