#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/midifile/TrackWriter.h"

namespace Host
{
/// Writes the events of a performance's outputs as a Standard MIDI File (SMF 1.0, format 1, 480 ticks per quarter
/// note): a tempo track, then one track per output under the output's name. Tempo and events come in rising order of
/// their pulse. One thread; everything is kept in memory until `bytes`.
class MidiFileWriter
{
public:
    /// The outputs by index, at most 65534. The tempo is 120 until `tempo` sets another.
    explicit MidiFileWriter(const std::vector<std::string>& outputNames);

    /// `bpm` quarter notes per minute from `pulse` on. Below 4 the slowest tempo that a file can hold is written.
    void tempo(std::int32_t pulse, int bpm);

    /// A MIDI message as the player got it, status with its channel. A system message is written as an F7 escape with
    /// as many data bytes as it has (F0 counts two). Left out: an output that does not exist (-1 for none), a status
    /// below 80, a message with a data byte above 127.
    void event(std::int32_t pulse, int output, std::uint8_t status, std::uint8_t d1, std::uint8_t d2);

    /// The whole file; every track ends at `endPulse`, or at its last event if that is later.
    std::vector<std::uint8_t> bytes(std::int32_t endPulse) const;

private:
    TrackWriter tempoTrack;
    std::vector<TrackWriter> outputs;
};
}  // namespace Host
