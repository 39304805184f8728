#pragma once

#include <atomic>
#include <cstdint>

#include "host/clock/ClockFollower.h"
#include "host/clock/ClockSender.h"
#include "host/clock/Transport.h"
#include "host/midi/MidiRing.h"
#include "host/player/Player.h"

namespace Host
{
/// Determines the tempo of each pulse and sends a MIDI clock (docs/behaviour/clock.md). The tempo comes from, in order:
/// - the external MIDI clock at the input `Player::getClockSource`, also after it has stopped, until the program gets
///   another tempo;
/// - an external transport, if it has a tempo;
/// - the program.
/// An external tempo is reported to the player, which makes it the tempo of the program.
///
/// Start, continue, stop and song position of the external clock are forwarded to the clock that is sent. If there is
/// an external transport, that starts and stops it instead. With neither, a song starts with the first pulse
/// that is sent.
class TempoController
{
public:
    explicit TempoController(Player& songPlayer) : player(songPlayer) {}

    /// The port that a MIDI clock is sent to from the next `process` on, null for none; it carries a clock. Any thread.
    void setClockOut(OutputPort* port) { clockOut.store(port); }
    bool sendsClock() const { return clockOut.load(std::memory_order_relaxed) != nullptr; }

    /// A message arrived at an input. Messages of the external clock are queued for `process`, others ignored. Never
    /// waits. One thread at a time.
    void receive(int input, const ShortMessage& message, std::uint32_t stamp);

    // The thread that plays the slices. Times are in seconds and never decrease.

    /// Processes the messages received since the last call. `stamp` is the current time in the unit of the messages'
    /// stamps, of which a second has `stampsPerSecond`.
    void process(double now, std::uint32_t stamp, double stampsPerSecond);

    /// Discards the received messages, whose stamps are those of a clock that is gone.
    void discardReceived();

    /// Follows an external transport, which has this state now.
    void processTransport(double now, const Transport& newTransport);

    /// There is no external transport, or it is not followed any more.
    void leaveTransport(double now);

    /// A pulse is played at that time; messages of the clock that is sent with it get that stamp. Returns the tempo at
    /// which the next pulse follows, in beats per minute.
    double passPulse(double time, std::uint32_t stamp);

    /// Stops the clock that is sent. No pulse follows, and no thread plays slices.
    void end() { sender.end(); }

private:
    void selectSource(double now);
    void selectClockOut(double now);
    void processMessage(const ShortMessage& message, double time);
    void processTick(double time);
    void startSong(double now);
    void stopSong(double time);
    double tempoAt(double time);
    double follow(ClockFollower& clock, double time);

    Player& player;
    MidiRing received;
    std::atomic<OutputPort*> clockOut{nullptr};
    ClockSender sender;
    std::int64_t pulse = 0;

    // The position of the clock that is sent is `lead` pulses ahead of the pulse counter: the phase error that the
    // pulses have still to correct, less `shift`, a constant that makes the ticks of the song that is sent those of the
    // follower
    const ClockFollower* followed = nullptr;    // at the last pulse
    const ClockFollower* songSource = nullptr;  // whose song is sent
    std::int64_t songStart = 0;                 // the first tick of that song, by the count of its source
    int songNumber = 0;                         // by the count of the sender
    std::int64_t alignments = 0;                // of the follower at the last pulse
    int songs = 0;                              // of the sender at the last pulse
    double shift = 0;
    double lead = 0;

    // The external clock
    ClockFollower follower;
    int source = -1;            // its input
    double sourceLeftAt = -1;   // when the player's source changed to none, perhaps only for a reset; -1 for not at all
    bool setsTempo = false;     // it was active, and the program got no other tempo after it stopped
    int programTempo = 0;       // when it was last active
    std::uint8_t starting = 0;  // start or continue, until the next tick

    bool hasTransport = false;
    Transport transport;
    double transportTime = 0;
    ClockFollower transportFollower;
};
}  // namespace Host
