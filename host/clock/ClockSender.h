#pragma once

#include <array>
#include <cstdint>

#include "host/midi/StatusByte.h"
#include "host/ports/Port.h"

namespace Host
{
/// The MIDI clock that the host sends (MIDI 1.0 Detailed Specification, "System Real Time Messages"): 24 ticks to the
/// quarter note, each at the pulse where it falls, whether or not a song runs, and start, continue, stop and song
/// position. The tick nearest to a start is the song's first: if it was just sent, another follows the start at once.
///
/// Notes never wait for it: where a port is that slow that a quarter of its ring is taken, ticks are left out. All
/// operations are the thread's that plays the slices.
class ClockOut
{
public:
    /// Where it goes to, null for nowhere. Before the first pulse.
    void setPort(OutputPort* clockPort) { port = clockPort; }

    // Each at the first pulse at or behind `time`, in seconds as `passPulse` has them, and behind those before it

    void start(double time) { add({StatusByte::START, 0, time}); }
    void continueSong(double time) { add({StatusByte::CONTINUE, 0, time}); }
    void stop(double time) { add({StatusByte::STOP, 0, time}); }

    /// 0 to 16383 sixteenths from the song's beginning.
    void setSongPosition(double time, int sixteenths) { add({StatusByte::SONG_POSITION, sixteenths, time}); }

    /// A pulse is played, at that place of the clock that is sent, where ticks fall near what divides by 20. What is
    /// sent with it has that stamp, and comes before the pulse's notes. A place farther back than the last tick waits,
    /// one that left ticks out has them one for each pulse. True if anything was sent.
    bool passPulse(double place, double time, std::uint32_t stamp);

    /// The number of the first tick of the song, that of place 0 being 0, and how often there was one.
    std::int64_t getSongStart() const { return songStart; }
    int getSongs() const { return songs; }

    /// No pulse follows: stops whatever song runs. Once.
    void end();

private:
    static constexpr std::size_t MOST_WAITING = 16;

    struct Command {
        std::uint8_t status = 0;
        int sixteenths = 0;
        double time = 0;
    };

    void add(const Command& command);
    void send(const Command& command, double place);
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
