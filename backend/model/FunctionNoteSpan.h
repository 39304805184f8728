#pragma once

#include <cstdint>

#include "backend/values/Note.h"

namespace Backend::FunctionManagement
{
/// Which notes of which zone a function, or a section of the inputs, plays.
struct FunctionNoteSpan {
    static constexpr std::int16_t NO_ZONE = 255;

    std::int16_t zone = NO_ZONE;
    MidiEngine::Note lowNote{};  ///< none if it plays no note
    MidiEngine::Note highNote{};
    std::uint8_t flag = 0;

    /// Whether it counts: both notes are notes.
    bool isPlayed() const { return lowNote.isNote() && highNote.isNote(); }

    bool operator==(const FunctionNoteSpan&) const = default;
};
}  // namespace Backend::FunctionManagement
