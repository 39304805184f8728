#pragma once

#include <cstdint>

#include "backend/values/Note.h"

namespace Backend::FunctionManagement
{
/// The inputs that can play notes, a bit each.
namespace NoteSource
{
inline constexpr std::uint8_t KEYS = 1;
inline constexpr std::uint8_t MIDI_INPUTS = 2;
inline constexpr std::uint8_t JOYSTICKS = 4;
}  // namespace NoteSource

/// The lowest and the highest note that a function or translation plays in a zone.
struct FunctionNoteSpan {
    static constexpr std::int16_t NO_ZONE = 255;

    std::int16_t zone = NO_ZONE;
    MidiEngine::Note lowNote{};  ///< none if it plays no note
    MidiEngine::Note highNote{};
    std::uint8_t flag = 0;
    std::uint8_t sources = 0;  ///< of `NoteSource`

    /// Whether it plays notes.
    bool isPlayed() const { return lowNote.isNote() && highNote.isNote(); }

    bool operator==(const FunctionNoteSpan&) const = default;
};
}  // namespace Backend::FunctionManagement
