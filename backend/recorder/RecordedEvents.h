#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <span>
#include <vector>

#include "backend/values/MidiMessage.h"
#include "platform/Export.h"

/// The format of a record: events of a track of a Standard MIDI File (SMF 1.0), each with a delta time in ticks of five
/// milliseconds and a channel message with its status, or a system message as an F7 escape. A record may be cut between
/// any two events.
namespace Backend::RetroRecord
{
constexpr int MILLISECONDS_PER_TICK = 5;
constexpr int LONGEST_SILENCE = 7000;  ///< milliseconds; a longer one is recorded as this
constexpr int TICKS_PER_QUARTER = 96;  ///< with the default tempo of a MIDI file a tick is 5.2 milliseconds

/// No event has more bytes.
constexpr int LONGEST_EVENT = 10;

/// False for a system reset, and for what a MIDI file cannot contain: no status, or a data byte above 127.
ORV_API bool canBeRecorded(const MidiEngine::MidiMessage& message);

/// Appends an event, `milliseconds` (0 to LONGEST_SILENCE) after the last one; returns its number of bytes.
ORV_API int writeEvent(std::ofstream& out, int milliseconds, const MidiEngine::MidiMessage& message);

/// How many of some bytes are whole events.
struct WholeEvents {
    std::size_t size = 0;    ///< up to the first damaged event, or to the end
    bool anyPlayed = false;  ///< whether there is any event but all sound off
};
ORV_API WholeEvents findWholeEvents(std::span<const std::uint8_t> bytes);

/// The beginning of a MIDI file of format 0: events are appended, then it is finished.
ORV_API std::vector<std::uint8_t> beginMidiFile();
ORV_API void finishMidiFile(std::vector<std::uint8_t>& file);
}  // namespace Backend::RetroRecord
