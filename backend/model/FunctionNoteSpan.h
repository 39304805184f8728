#pragma once

#include <cstdint>

#include "backend/values/Note.h"

namespace Backend::FunctionManagement
{
/// The lowest and the highest note that a function or translation plays in a zone.
struct FunctionNoteSpan {
    static constexpr std::int16_t NO_ZONE = 255;

    std::int16_t zone = NO_ZONE;
    MidiEngine::Note lowNote{};  ///< none if it plays no note
    MidiEngine::Note highNote{};
    std::uint8_t flag = 0;

    /// Whether it plays notes.
    bool isPlayed() const { return lowNote.isNote() && highNote.isNote(); }

    bool operator==(const FunctionNoteSpan&) const = default;
};
}  // namespace Backend::FunctionManagement
