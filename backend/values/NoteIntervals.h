#pragma once

#include <cstdint>
#include <string>

// The note lengths that have a name, from "1/64 Triplet" (index 1) to "16 Whole" (index 22). Lengths are in pulses, 480
// to the quarter note.

inline constexpr std::int32_t NOTE_INTERVALS = 22;

/// "1/8 Dotted" for 360; the plain number for a length without a name.
std::string noteIntervalName(std::int32_t ppq);

/// 1 to 22, or 0 for a length without a name.
std::int32_t noteIntervalIndex(std::int32_t ppq);

/// The index of the first named length that is not shorter, 22 beyond the longest.
std::int32_t nearestNoteIntervalIndex(std::int32_t ppq);

/// The pulses of an index, a quarter note for one outside 1 to 22.
std::int32_t noteIntervalFromIndex(std::int32_t index);
