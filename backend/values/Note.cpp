#include "backend/values/Note.h"

#include <array>
#include <cctype>
#include <cstdint>

#include "backend/xml/Text.h"

namespace Backend::MidiEngine
{
namespace
{
constexpr std::array<std::string_view, 12> NOTE_NAMES{"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};

constexpr std::array<int, 7> PITCH_CLASS_OF_LETTER{9, 11, 0, 2, 4, 5, 7};  // A to G

// The degree of each pitch above the tonic; a pitch between two degrees counts as the upper one.
constexpr std::array<int, 12> DEGREE{0, 1, 1, 2, 2, 3, 4, 4, 5, 5, 6, 6};

// Semitones of an interval of one scale tone (first row) to an octave (last row), from each degree of the major scale.
constexpr int STEPS[7][7] = {{2, 2, 1, 2, 2, 2, 1},  //
                             {4, 3, 3, 4, 4, 3, 3},  //
                             {5, 5, 5, 6, 5, 5, 5},  //
                             {7, 7, 7, 7, 7, 7, 6},  //
                             {9, 9, 8, 9, 9, 8, 8},  //
                             {11, 10, 10, 11, 10, 10, 10}, {12, 12, 12, 12, 12, 12, 12}};

int diatonic(int interval, int base, int key)
{
    if (interval == 0) return base;
    const int degree = DEGREE[static_cast<unsigned>(((base - key) % 12 + 12) % 12)];
    const int steps = (interval > 0 ? interval : -interval) - 1;
    if (interval > 0) return base + 12 * (steps / 7) + STEPS[steps % 7][degree];
    // Downwards the scale is its mirror image about the second degree.
    return base - 12 * (steps / 7) - STEPS[steps % 7][(9 - degree) % 7];
}
}  // namespace

// The low byte as a signed number: an empty text gives no note.
Note::Note(std::string_view text) : number(static_cast<std::int8_t>(parseNote(text))) {}

Note::Note(int interval, Note base, Note key)
    : number(static_cast<std::int16_t>(diatonic(interval, base.number, key.number)))
{
}

std::string Note::toXmlString() const { return getNoteName(number, Octave::with); }

std::string getNoteName(int noteNumber, Octave octave)
{
    if (noteNumber < 0) return {};
    std::string name{NOTE_NAMES[static_cast<unsigned>(noteNumber % 12)]};
    if (octave == Octave::with) name += std::to_string(noteNumber / 12 - 1);
    return name;
}

int parseNote(std::string_view text)
{
    if (text.empty()) return 255;
    if (text.front() >= '0' && text.front() <= '9') return Text::parseInteger(text).value_or(60) & 0xFF;

    const int letter = std::toupper(static_cast<unsigned char>(text.front())) - 'A';
    const int pitchClass = letter >= 0 && letter < 7 ? PITCH_CLASS_OF_LETTER[static_cast<unsigned>(letter)] : 0;
    text.remove_prefix(1);

    int accidental = 0;
    if (text.starts_with('#')) accidental = 1;
    if (text.starts_with('b')) accidental = -1;
    if (accidental != 0) text.remove_prefix(1);

    // Unsigned, so that an octave out of range wraps; callers that need a note use the low byte.
    const auto octave = static_cast<std::uint32_t>(text.empty() ? 4 : Text::parseInteger(text).value_or(4));
    return static_cast<int>(static_cast<std::uint32_t>(pitchClass + accidental) + 12 * (octave + 1));
}
}  // namespace Backend::MidiEngine
