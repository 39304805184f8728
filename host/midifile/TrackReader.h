#pragma once

#include <cstdint>

#include "host/midifile/ByteCursor.h"

namespace Host
{
/// One track chunk of a Standard MIDI File, read one channel message at a time. Sysex and meta events are passed over
/// and end the running status, as the SMF standard has it. The track ends with its end-of-track event or, where a
/// recorder was cut short before it wrote one, with its chunk.
class TrackReader
{
public:
    explicit TrackReader(ByteCursor chunk) : bytes(chunk) {}

    /// Moves to the next channel message; false when there is none left. Throws InputError on what is no MIDI.
    bool next();

    /// The message's time in ticks of the file, saturated far above what a player can reach.
    std::int64_t ticks() const { return time; }
    std::uint8_t status() const { return runningStatus; }
    std::uint8_t d1() const { return first; }
    std::uint8_t d2() const { return second; }

    [[noreturn]] void refuse(const std::string& reason) const { bytes.refuse(eventStart, reason); }

private:
    void channelMessage(std::uint8_t leadingByte);
    void passOver(std::uint8_t leadingByte);
    std::uint8_t dataByte();

    ByteCursor bytes;
    std::size_t eventStart = 0;
    std::int64_t time = 0;
    std::uint8_t runningStatus = 0;
    std::uint8_t first = 0;
    std::uint8_t second = 0;
    bool ended = false;
};
}  // namespace Host
