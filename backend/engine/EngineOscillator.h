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
/// An oscillator as the engine plays it: the settings, worked out beforehand, and where in its wave it is. All its
/// arithmetic is in double precision, in the order in which it is written, so that the same pulses give the same values
/// on every machine. Any settings play: whatever a file holds stays a number.
/// See docs/decisions/0008.
class EngineOscillator
{
public:
    explicit EngineOscillator(const Oscillator& settings);

    bool isPlaying() const { return playing; }
    /// A wave that is stopped goes on from the same phase when it plays again.
    void setPlaying(bool on) { playing = on; }
    /// Pulses per cycle from now on. At 0 the wave does not move, below 0 it runs backwards.
    void setSpeed(std::int32_t speed);

    std::int32_t getStopValue() const { return stopValue; }
    /// Whether there is a message to carry the values.
    bool hasEvent() const { return hasMessage; }
    /// The event that carries a value.
    MidiEngine::OrvMidiMessage makeEvent(std::int64_t value) const;

    /// Moves on by so many pulses, below 0 where the clock went back, and plays the value if it changed. Of the
    /// changes of a wave that flows only every `detail`-th is played, and every other one of these is shown.
    void step(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, std::int32_t pulses);

private:
    using Kind = OscillatorType::Kind;

    std::int64_t randomValue(std::int32_t draw) const;
    std::int64_t valueAt(double newPhase, double oldPhase, MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine);

    Kind kind;
    bool flows;     // sin, tri and saw, whose changes are thinned out
    bool inverted;  // the wave is mirrored within its range
    bool playing;
    double range;  // the width of the wave; for a saw the number of its values
    double base;   // its lowest value
    SineWave sine;
    double period;
    double perPulse = 0;  // of phase
    double phase = 0;
    std::int64_t mirror;  // the lowest and the highest value together
    std::int64_t detail;
    std::int64_t changesLeft = detail;  // until one is played
    bool shows = true;                  // what is played; turned over each time where values are thinned out
    std::int64_t lastValue = -1;
    OscId id;
    std::int32_t stopValue;
    bool hasMessage;
    MidiEngine::OrvMidiMessage message;
};
}  // namespace Backend::Oscillators
