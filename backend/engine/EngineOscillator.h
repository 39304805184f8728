#pragma once

#include <cstdint>

#include "backend/engine/SineWave.h"
#include "backend/engine/Slice.h"
#include "backend/model/Oscillator.h"
#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
class MidiEngine;
}

namespace Backend::Oscillators
{
/// An oscillator as the engine plays it: what was computed from its settings, and its phase. Values are computed in
/// double precision, in the order in which the formulas are written, so that the same pulses give the same values on
/// every machine. Any settings of a file can be played. Time slice only, except the constructor. See
/// docs/behaviour/oscillators.md and docs/decisions/0008.
class EngineOscillator
{
public:
    explicit EngineOscillator(const Oscillator& oscillator);

    bool isPlaying() const { return playing; }
    /// A stopped wave continues from the same phase when it is started again.
    void setPlaying(bool on) { playing = on; }
    /// Pulses per cycle. With 0 the wave does not move, below 0 it runs backwards.
    void setSpeed(std::int32_t speed);

    /// Whether both have equal settings, but for their number, their selection, and whether they play.
    bool isLike(const EngineOscillator& other) const { return settings == other.settings; }
    /// Takes over the phase of one with equal settings, and its last value.
    void continueFrom(const EngineOscillator& other);
    /// Advances the phase by `pulses` without playing.
    void skip(std::int32_t pulses) { phase += perPulse * pulses; }

    OscId getId() const { return id; }
    std::int32_t getStopValue() const { return stopValue; }
    /// Whether there is a message that carries the values.
    bool hasEvent() const { return hasMessage; }
    /// The event that carries `value`.
    MidiEngine::OrvMidiMessage makeEvent(std::int64_t value) const;

    /// Advances the phase by `pulses`, which is negative if the clock went back, and plays the value if it has changed.
    /// Of sine, triangle and saw only every `detail`-th change is played, and every second one of these is shown.
    void step(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, std::int32_t pulses);

private:
    using Kind = OscillatorType::Kind;

    std::int64_t randomValue(std::int32_t draw) const;
    std::int64_t valueAt(double newPhase, double oldPhase, MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine);

    Kind kind;
    bool flows;     // sin, tri and saw, of whose values only some are played
    bool inverted;  // the maximum is below the minimum
    bool playing;
    double range;  // the height of the wave; for a saw the number of its values
    double base;   // the lowest value
    SineWave sine;
    double period;
    double perPulse = 0;  // phase per pulse
    double phase = 0;
    std::int64_t mirror;  // the sum of the lowest and the highest value
    std::int64_t detail;
    std::int64_t changesLeft = detail;  // until a value is played
    bool shows = true;                  // whether the next value is shown; alternates where values are left out
    std::int64_t lastValue = -1;
    OscId id;
    Oscillator settings;
    std::int32_t stopValue;
    bool hasMessage;
    MidiEngine::OrvMidiMessage message;
};
}  // namespace Backend::Oscillators
