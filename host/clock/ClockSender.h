#pragma once

#include <array>
#include <cstdint>

#include "host/midi/StatusByte.h"
#include "host/ports/Port.h"

namespace Host
{
/// Sends a MIDI clock (MIDI 1.0 Detailed Specification, "System Real Time Messages"): 24 ticks per quarter note,
/// whether or not a song runs, and start, continue, stop and song position. The first tick of a song is the tick
/// nearest to its start: if that was sent just before the start, it is sent again after it.
///
/// All operations belong to the thread that plays the slices.
class ClockSender
{
public:
    /// The port to send to from now on, null for none; it carries a clock (`OutputPort::carryClock`). `position` as in
    /// `passPulse`: the ticks before it are not sent. The port before gets a stop.
    void setPort(OutputPort* clockPort, double position);
    OutputPort* getPort() const { return port; }

    // Each is sent at the first pulse at or after `time` (seconds, as in `passPulse`), in the order of the calls.

    void start(double time) { add({StatusByte::START, 0, time}); }
    void continueSong(double time) { add({StatusByte::CONTINUE, 0, time}); }
    void stop(double time) { add({StatusByte::STOP, 0, time}); }

    /// 0 to 16383 sixteenths from the song's beginning.
    void setSongPosition(double time, int sixteenths) { add({StatusByte::SONG_POSITION, sixteenths, time}); }

    /// Called for each pulse before its notes are played. `position` is the position of the pulse in the clock that is
    /// sent, in pulses: a tick falls on each multiple of 20. Messages get that stamp. If the position goes back, no
    /// tick is sent until it passes the last one; if it skips ticks, they are sent one per pulse. True if anything was
    /// sent.
    bool passPulse(double position, double time, std::uint32_t stamp);

    /// The number of the song's first tick, counted from position 0, and the number of songs that were started.
    std::int64_t getSongStart() const { return songStart; }
    int getSongs() const { return songs; }

    /// Sends a stop; no pulse follows.
    void end();

private:
    static constexpr std::size_t MOST_WAITING = 16;

    struct Command {
        std::uint8_t status = 0;
        int sixteenths = 0;
        double time = 0;
    };

    void add(const Command& command);
    void send(const Command& command, double position);
    void sendTick();

    OutputPort* port = nullptr;
    std::array<Command, MOST_WAITING> waiting{};
    std::size_t waitingCount = 0;
    std::int64_t ticks = 0;  // the number of the next one
    std::int64_t songStart = 0;
    int songs = 0;
    std::uint32_t stamp = 0;
};
}  // namespace Host
