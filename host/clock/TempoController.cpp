#include "host/clock/TempoController.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/midi/StatusByte.h"

namespace Host
{
namespace
{
constexpr double SECONDS_PER_MINUTE = 60;
constexpr double SIXTEENTHS_PER_BEAT = 4;
constexpr double HIGHEST_POSITION = 16383;
constexpr double LONGEST_RESET = 0.25;    // seconds
constexpr double SAME_POSITION = 0.001;   // seconds
constexpr double FARTHEST_STAMP = 1;      // seconds
constexpr double ALMOST_THE_SAME = 1e-6;  // sixteenths
}  // namespace

void TempoController::receive(int input, const ShortMessage& message, std::uint32_t stamp)
{
    if (isClockMessage(message) && input == player.getClockSource()) received.push(message, stamp);
}

void TempoController::process(double now, std::uint32_t stamp, double stampsPerSecond)
{
    selectSource(now);
    selectClockOut(now);
    received.drain([&](const StampedMessage& next) {
        const double away = static_cast<std::int32_t>(next.stamp - stamp) / stampsPerSecond;
        if (sourceLeftAt < 0) processMessage(next.message, now + std::clamp(away, -FARTHEST_STAMP, FARTHEST_STAMP));
        return true;
    });
}

void TempoController::discardReceived()
{
    received.drain([](const StampedMessage&) { return true; });
}

/// A reset sets the source to none for a slice, which has no effect here.
void TempoController::selectSource(double now)
{
    const int wanted = player.getClockSource();
    const bool mayBeReset = source >= 0 && wanted != source && player.getTempoSource() < 0;
    if (mayBeReset && sourceLeftAt < 0) sourceLeftAt = now;
    if (mayBeReset && now - sourceLeftAt < LONGEST_RESET) return;
    sourceLeftAt = -1;
    if (wanted == source) return;
    source = wanted;
    setsTempo = false;
    starting = 0;
    follower.reset(player.getTempo());
}

/// A port that is chosen while the clock runs gets the start of the song at once.
void TempoController::selectClockOut(double now)
{
    OutputPort* const wanted = clockOut.load();
    if (wanted == sender.getPort()) return;
    sender.setPort(wanted, static_cast<double>(pulse) + lead);
    player.markPlayed();  // the stop
    if (pulse == 0) return;
    if (hasTransport && transport.rolling)
        startSong(now);
    else if (!hasTransport && source < 0)
        sender.start(now);
}

// --- the external clock

void TempoController::processMessage(const ShortMessage& message, double time)
{
    const std::uint8_t status = message.bytes[0];
    if (status == StatusByte::TICK) processTick(time);
    if (status == StatusByte::START) follower.start();
    if (status == StatusByte::CONTINUE) follower.continueSong();
    if (status == StatusByte::START || status == StatusByte::CONTINUE) starting = status;
    if (status == StatusByte::STOP) {
        follower.stop();
        starting = 0;
        if (!hasTransport) stopSong(time);
    }
    if (status == StatusByte::SONG_POSITION) {
        const int sixteenths = message.bytes[1] | message.bytes[2] << 7;
        follower.setSongPosition(sixteenths);
        if (!hasTransport) sender.setSongPosition(time, sixteenths);
    }
}

/// The song starts with the first tick after the start message.
void TempoController::processTick(double time)
{
    follower.tick(time);
    if (follower.isActive(time)) player.reportExternalTempo(follower.getTempo());
    const std::uint8_t begins = std::exchange(starting, std::uint8_t{0});
    if (hasTransport || begins == 0) return;
    songSource = &follower;
    songStart = follower.getSongStart();
    songNumber = sender.getSongs() + 1;
    if (begins == StatusByte::START) sender.start(time);
    if (begins == StatusByte::CONTINUE) sender.continueSong(time);
}

// --- the external transport

void TempoController::processTransport(double now, const Transport& newTransport)
{
    const double expected = transport.seconds + now - transportTime;
    const bool continues =
        transport.rolling && newTransport.rolling && std::abs(newTransport.seconds - expected) < SAME_POSITION;
    const bool endsOwnSong = !hasTransport && pulse > 0;
    if ((transport.rolling || endsOwnSong) && !continues) stopSong(now);
    hasTransport = true;
    transport = newTransport;
    transportTime = now;
    if (transport.bpm > 0) {
        if (transport.rolling) transportFollower.setSong(now, transport.beats, transport.bpm);
        if (!follower.isActive(now)) player.reportExternalTempo(transport.bpm);
    }
    if (transport.rolling && !continues) startSong(now);
}

void TempoController::leaveTransport(double now)
{
    if (!hasTransport) return;
    if (transport.rolling) stopSong(now);
    hasTransport = false;
    transport = {};
    if (source < 0) sender.start(now);
}

/// The song continues at its next sixteenth, the resolution of a song position.
void TempoController::startSong(double now)
{
    const double bpm = transport.bpm > 0 ? transport.bpm : tempoAt(now);
    const double beats = transport.bpm > 0 ? transport.beats : transport.seconds * bpm / SECONDS_PER_MINUTE;
    const double position = std::max(beats, 0.0) * SIXTEENTHS_PER_BEAT;
    const double next = std::ceil(position - ALMOST_THE_SAME);
    if (transport.bpm > 0) songSource = &transportFollower;
    songNumber = sender.getSongs() + 1;
    songStart = static_cast<std::int64_t>(next) * ClockFollower::TICKS_PER_SIXTEENTH;
    if (next <= 0) {
        sender.start(now);
        return;
    }
    if (next <= HIGHEST_POSITION) sender.setSongPosition(now, static_cast<int>(next));
    sender.continueSong(now + std::max(next - position, 0.0) / SIXTEENTHS_PER_BEAT * SECONDS_PER_MINUTE / bpm);
}

void TempoController::stopSong(double time)
{
    songSource = nullptr;
    sender.stop(time);
}

// --- the tempo of each pulse

double TempoController::passPulse(double time, std::uint32_t stamp)
{
    if (pulse == 0 && source < 0 && !hasTransport) sender.start(time);
    const double bpm = tempoAt(time);
    if (sender.passPulse(static_cast<double>(pulse) + lead, time, stamp)) player.markPlayed();
    ++pulse;
    return bpm;
}

double TempoController::tempoAt(double time)
{
    const int tempo = player.getTempo();
    if (follower.isActive(time)) {
        setsTempo = true;
        programTempo = tempo;
        return follow(follower, time);
    }
    setsTempo = setsTempo && tempo == programTempo;
    if (!setsTempo && transport.bpm > 0 && transport.rolling) return follow(transportFollower, time);
    followed = nullptr;
    if (setsTempo) return follower.getTempo();
    return transport.bpm > 0 ? transport.bpm : tempo;
}

double TempoController::follow(ClockFollower& clock, double time)
{
    const double bpm = clock.passPulse(pulse, time);
    const bool isNew = &clock != followed || clock.getAlignments() != alignments || sender.getSongs() != songs;
    followed = &clock;
    alignments = clock.getAlignments();
    songs = sender.getSongs();
    constexpr double PULSES_PER_TICK = ClockFollower::PULSES_PER_TICK;
    if (isNew && songSource == &clock && songs >= songNumber)
        shift = clock.pulseOf(songStart) - PULSES_PER_TICK * static_cast<double>(sender.getSongStart());
    else if (isNew)
        shift = std::round((clock.getError() - lead) / PULSES_PER_TICK) * PULSES_PER_TICK;
    lead = clock.getError() - shift;
    return bpm;
}
}  // namespace Host
