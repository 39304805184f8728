#pragma once

#include <cstdint>

#include "host/midifile/ByteCursor.h"

namespace Host
{
/// Reads the channel messages of one track chunk of a Standard MIDI File. Sysex and meta events are skipped and end the
/// running status, as the SMF standard says. The track ends with its end-of-track event, or with its chunk if it has
/// none.
class TrackReader
{
public:
    explicit TrackReader(ByteCursor chunk) : bytes(chunk) {}

    /// Moves to the next channel message; false after the last. Throws InputError where the bytes are not MIDI.
    bool next();

    /// The time of the message in ticks of the file, limited to a value far above LAST_PULSE.
    std::int64_t ticks() const { return time; }
    std::uint8_t status() const { return runningStatus; }
    std::uint8_t d1() const { return first; }
    std::uint8_t d2() const { return second; }

    [[noreturn]] void refuse(const std::string& reason) const { bytes.refuse(eventStart, reason); }

private:
    void channelMessage(std::uint8_t leadingByte);
    void skip(std::uint8_t leadingByte);
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
