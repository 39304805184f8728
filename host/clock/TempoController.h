#pragma once

#include <cstdint>

#include "host/clock/ClockFollower.h"
#include "host/clock/ClockSender.h"
#include "host/clock/Transport.h"
#include "host/midi/MidiRing.h"
#include "host/player/Player.h"

namespace Host
{
/// Gives the beat: says for each pulse how soon the next one follows, and sends a MIDI clock with them. The tempo is
/// that of the MIDI clock at the input that leads (`Player::getClockSource`), also when it has stopped; else that of a
/// transport, if it has one; else the program's. A tempo that the program is given while the leading clock stands
/// counts more than the one that was heard last. What is heard is told to the player, so that the program has it too.
///
/// Start, continue, stop and song position of the clock that leads are passed on to the clock that is sent. A transport
/// that is followed starts and stops it instead. With neither of them its song begins with the first pulse.
class Conductor
{
public:
    explicit Conductor(Player& songPlayer) : player(songPlayer) {}

    /// Before the first pulse.
    void setClockOut(OutputPort* port) { clockOut.setPort(port); }

    /// A message arrived at an input; those of the clock that leads are kept. Waits for nothing. One thread at a time.
    void hear(int input, const ShortMessage& message, std::uint32_t stamp);

    // The clock's thread. Times are seconds and never go back.

    /// Heeds what was heard. `stamp`, of which there are that many in a second, is now.
    void heed(double now, std::uint32_t stamp, double stampsPerSecond);

    /// What was heard has stamps of a clock that is no more.
    void forgetHeard();

    /// A transport is followed, and stands like this now.
    void heed(double now, const Transport& newTransport);

    /// A pulse is played at that time, and what comes with it has that stamp. Returns the tempo at which the next one
    /// follows.
    double passPulse(double time, std::uint32_t stamp);

    /// No pulse follows, and nobody plays slices.
    void end() { clockOut.end(); }

private:
    void chooseSource(double now);
    void heed(const ShortMessage& message, double time);
    void takeTick(double time);
    void roll(double now);
    void stopSong(double time);
    double tempoAt(double time);
    double follow(ClockFollower& clock, double time);

    Player& player;
    MidiRing heard;
    ClockOut clockOut;
    std::int64_t pulse = 0;

    // The clock that is sent is `shift` pulses behind that of the follower, which goes before the pulses by what they
    // still have to work off; if the song that is sent is the follower's, so that their ticks are the same.
    const ClockFollower* followed = nullptr;  // at the last pulse
    const ClockFollower* songOf = nullptr;    // whose song is sent
    std::int64_t songStart = 0;               // its tick with which that begins
    int songNumber = 0;                       // of the songs that are sent
    std::int64_t phases = 0;
    int songs = 0;
    double shift = 0;
    double ahead = 0;  // of the pulses

    // The clock that leads
    ClockFollower follower;
    int source = -1;
    double leftSource = -1;  // since when the player's source may be another only for a reset, -1 for not at all
    bool leads = false;      // it was heard, and the program got no tempo of its own since it stopped
    int programTempo = 0;    // as it was when it was last heard
    std::uint8_t starting = 0;

    bool hasTransport = false;
    Transport transport;
    double transportTime = 0;
    ClockFollower transportFollower;
};
}  // namespace Host
