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
constexpr double SAME_PLACE = 0.001;      // seconds
constexpr double FARTHEST_STAMP = 1;      // seconds
constexpr double ALMOST_THE_SAME = 1e-6;  // sixteenths
}  // namespace

void Conductor::hear(int input, const ShortMessage& message, std::uint32_t stamp)
{
    if (isOfClock(message) && input == player.getClockSource()) heard.push(message, stamp);
}

void Conductor::heed(double now, std::uint32_t stamp, double stampsPerSecond)
{
    chooseSource(now);
    heard.drain([&](const StampedMessage& next) {
        const double away = static_cast<std::int32_t>(next.stamp - stamp) / stampsPerSecond;
        if (leftSource < 0) heed(next.message, now + std::clamp(away, -FARTHEST_STAMP, FARTHEST_STAMP));
        return true;
    });
}

void Conductor::forgetHeard()
{
    heard.drain([](const StampedMessage&) { return true; });
}

/// A reset puts the source inside for a slice; that is not to be heard.
void Conductor::chooseSource(double now)
{
    const int wanted = player.getClockSource();
    const bool mayBeReset = source >= 0 && wanted != source && player.getTempoSource() < 0;
    if (mayBeReset && leftSource < 0) leftSource = now;
    if (mayBeReset && now - leftSource < LONGEST_RESET) return;
    leftSource = -1;
    if (wanted == source) return;
    source = wanted;
    leads = false;
    starting = 0;
    follower.listenAfresh(player.getTempo());
}

// --- the clock that leads

void Conductor::heed(const ShortMessage& message, double time)
{
    const std::uint8_t status = message.bytes[0];
    if (status == StatusByte::TICK) takeTick(time);
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
        if (!hasTransport) clockOut.setSongPosition(time, sixteenths);
    }
}

/// The song starts with the tick behind the start.
void Conductor::takeTick(double time)
{
    follower.tick(time);
    if (follower.isHeard(time)) player.hearTempo(follower.getTempo());
    const std::uint8_t begins = std::exchange(starting, std::uint8_t{0});
    if (hasTransport || begins == 0) return;
    songOf = &follower;
    songStart = follower.getSongStart();
    songNumber = clockOut.getSongs() + 1;
    if (begins == StatusByte::START) clockOut.start(time);
    if (begins == StatusByte::CONTINUE) clockOut.continueSong(time);
}

// --- a transport

void Conductor::heed(double now, const Transport& newTransport)
{
    const double expected = transport.seconds + now - transportTime;
    const bool goesOn =
        transport.rolling && newTransport.rolling && std::abs(newTransport.seconds - expected) < SAME_PLACE;
    if (transport.rolling && !goesOn) stopSong(now);
    hasTransport = true;
    transport = newTransport;
    transportTime = now;
    if (transport.bpm > 0) {
        if (transport.rolling) transportFollower.followSong(now, transport.beats, transport.bpm);
        if (!follower.isHeard(now)) player.hearTempo(transport.bpm);
    }
    if (transport.rolling && !goesOn) roll(now);
}

/// The song goes on at its next sixteenth: others can start nowhere else.
void Conductor::roll(double now)
{
    const double bpm = transport.bpm > 0 ? transport.bpm : tempoAt(now);
    const double beats = transport.bpm > 0 ? transport.beats : transport.seconds * bpm / SECONDS_PER_MINUTE;
    const double place = std::max(beats, 0.0) * SIXTEENTHS_PER_BEAT;
    const double next = std::ceil(place - ALMOST_THE_SAME);
    if (transport.bpm > 0) songOf = &transportFollower;
    songNumber = clockOut.getSongs() + 1;
    songStart = static_cast<std::int64_t>(next) * ClockFollower::TICKS_PER_SIXTEENTH;
    if (next <= 0) {
        clockOut.start(now);
        return;
    }
    if (next <= HIGHEST_POSITION) clockOut.setSongPosition(now, static_cast<int>(next));
    clockOut.continueSong(now + std::max(next - place, 0.0) / SIXTEENTHS_PER_BEAT * SECONDS_PER_MINUTE / bpm);
}

void Conductor::stopSong(double time)
{
    songOf = nullptr;
    clockOut.stop(time);
}

// --- the beat

double Conductor::passPulse(double time, std::uint32_t stamp)
{
    if (pulse == 0 && source < 0 && !hasTransport) clockOut.start(time);
    const double bpm = tempoAt(time);
    if (clockOut.passPulse(static_cast<double>(pulse) + ahead, time, stamp)) player.notePlayed();
    ++pulse;
    return bpm;
}

double Conductor::tempoAt(double time)
{
    const int tempo = player.getTempo();
    if (follower.isHeard(time)) {
        leads = true;
        programTempo = tempo;
        return follow(follower, time);
    }
    leads = leads && tempo == programTempo;
    if (!leads && transport.bpm > 0 && transport.rolling) return follow(transportFollower, time);
    followed = nullptr;
    if (leads) return follower.getTempo();
    return transport.bpm > 0 ? transport.bpm : tempo;
}

double Conductor::follow(ClockFollower& clock, double time)
{
    const double bpm = clock.passPulse(pulse, time);
    const bool isNew = &clock != followed || clock.getPhases() != phases || clockOut.getSongs() != songs;
    followed = &clock;
    phases = clock.getPhases();
    songs = clockOut.getSongs();
    constexpr double TICK_OF_PULSES = ClockFollower::PULSES_PER_TICK;
    if (isNew && songOf == &clock && songs >= songNumber)
        shift = clock.pulseOf(songStart) - TICK_OF_PULSES * static_cast<double>(clockOut.getSongStart());
    else if (isNew)
        shift = std::round((clock.getError() - ahead) / TICK_OF_PULSES) * TICK_OF_PULSES;
    ahead = clock.getError() - shift;
    return bpm;
}
}  // namespace Host
