#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/Export.h"

namespace Backend::MidiEngine
{
/// A note number; a negative one is no note. Middle C is 60, "C4".
class ORV_API Note
{
public:
    constexpr Note() = default;
    constexpr explicit Note(int noteNumber) : number(static_cast<std::int16_t>(noteNumber)) {}

    /// From its text: "C4", "c#4", "Bb" (octave 4), a decimal number, or "" for no note. Never fails.
    explicit Note(std::string_view text);
    static Note fromXmlString(std::string_view text) { return Note(text); }

    /// Moves `base` by `interval` steps (up if positive, down if negative) in the major scale on `key`, a pitch class 0
    /// to 11. A pitch outside the scale counts as the degree above it. The result is not limited.
    Note(int interval, Note base, Note key);

    constexpr int getNumber() const { return number; }
    constexpr bool isNote() const { return number >= 0; }

    /// The name with its octave, empty for no note.
    std::string toXmlString() const;

    bool operator==(const Note&) const = default;

private:
    std::int16_t number = -1;
};

/// Transposes a number into 0 to 127 by as few octaves as possible.
constexpr int foldNote(std::int64_t number)
{
    if (number < 0) return static_cast<int>(number + (-number - 1) / 12 * 12 + 12);
    if (number > 127) return static_cast<int>(number - (number - 128) / 12 * 12 - 12);
    return static_cast<int>(number);
}

enum class Octave { without, with };

/// "C#" or "C#4" for a note number; empty for a negative one.
ORV_API std::string getNoteName(int noteNumber, Octave octave);

/// The number of a note's text, not limited; 255 for an empty text (which is -1 as a signed byte).
ORV_API int parseNote(std::string_view text);
}  // namespace Backend::MidiEngine

template <>
struct std::hash<Backend::MidiEngine::Note> {
    std::size_t operator()(const Backend::MidiEngine::Note& note) const noexcept
    {
        return static_cast<std::size_t>(note.getNumber());
    }
};
