#include "backend/engine/EngineOscillator.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <utility>

#include "backend/engine/MidiEngine.h"

namespace Backend::Oscillators
{
using MidiEngine::MessageType;
using MidiEngine::OrvMidiMessage;
using MidiEngine::Slice;
using std::numbers::pi;

namespace
{
constexpr double PULSE_PERIOD = 2;
constexpr double RANDOM_PERIOD = 1;

/// The height of the wave; for a saw the number of its values.
double rangeOf(const Oscillator& settings)
{
    const std::int64_t width = std::abs(std::int64_t{settings.max} - settings.min);
    return static_cast<double>(settings.type.kind == OscillatorType::Kind::saw ? width + 1 : width);
}

double periodOf(OscillatorType::Kind kind, double range)
{
    switch (kind) {
        case OscillatorType::Kind::saw:
            return range;
        case OscillatorType::Kind::pulse:
            return PULSE_PERIOD;
        case OscillatorType::Kind::random:
            return RANDOM_PERIOD;
        default:
            return 2 * pi;
    }
}

/// Limits a phase to the numbers that 64 bits can count. There a double has no fraction any more.
double countable(double phase)
{
    constexpr double FAR = 0x1p62;
    return std::clamp(phase, -FAR, FAR);
}

/// Whether a phase of period 2 is in the second half of its cycle.
bool isInSecondHalf(double phase) { return static_cast<std::int64_t>(countable(phase)) % 2 != 0; }

/// The position of a phase in a cycle of `units`, from 0 up to, but not including, `units`.
std::int64_t unitsIntoCycle(double phase, std::int64_t units)
{
    const std::int64_t rest = floorOf(countable(phase) + 0.5) % units;
    return rest < 0 ? rest + units : rest;
}
}  // namespace

EngineOscillator::EngineOscillator(const Oscillator& oscillator)
    : kind(oscillator.type.kind),
      flows(kind != Kind::pulse && kind != Kind::random),
      inverted(oscillator.max < oscillator.min),
      playing(oscillator.playing),
      range(rangeOf(oscillator)),
      base(std::min(oscillator.min, oscillator.max)),
      sine(range, base),
      period(periodOf(kind, range)),
      mirror(std::int64_t{oscillator.min} + oscillator.max),
      detail(std::max<std::int64_t>(std::abs(std::int64_t{oscillator.detail}), 1)),
      id(oscillator.id),
      settings(oscillator.asPlayed()),
      stopValue(oscillator.stopValue),
      hasMessage(oscillator.midiMessage.isValid()),
      message(oscillator.midiMessage, oscillator.output, oscillator.channel, oscillator.zone, {})
{
    setSpeed(oscillator.speed);
}

void EngineOscillator::setSpeed(std::int32_t speed)
{
    settings.speed = speed;
    perPulse = speed == 0 ? 0 : period / speed;
}

void EngineOscillator::continueFrom(const EngineOscillator& other)
{
    phase = other.phase;
    changesLeft = other.changesLeft;
    shows = other.shows;
    lastValue = other.lastValue;
}

OrvMidiMessage EngineOscillator::makeEvent(std::int64_t value) const
{
    OrvMidiMessage event = message;
    if (event.isPitchBend()) {
        event.setD1(static_cast<int>(value & 127));
        event.setD2(static_cast<int>(value >> 7 & 127));
    } else if (event.isControllerChange()) {
        event.setD2(static_cast<int>(value));
    } else {
        event.setD1(static_cast<int>(value));
    }
    return event;
}

void EngineOscillator::step(Slice& slice, MidiEngine::MidiEngine& engine, std::int32_t pulses)
{
    const double oldPhase = std::exchange(phase, phase + perPulse * pulses);
    std::int64_t value = kind == Kind::sin ? sine.valueAt(phase) : valueAt(phase, oldPhase, slice, engine);
    if (inverted) value = mirror - value;
    if (value == lastValue) return;
    if (flows) {
        if (--changesLeft > 0) return;
        changesLeft = detail;
        shows = !shows;
    }
    if (hasMessage) {
        OrvMidiMessage event = makeEvent(value);
        engine.playMidi(slice, event);
    }
    lastValue = value;
    if (shows) engine.showOscValue(slice, id, static_cast<std::int32_t>(value));
}

/// An inverted wave is limited to the range of its message, because a file may have limits outside it.
std::int64_t EngineOscillator::randomValue(std::int32_t draw) const
{
    const std::int64_t value = floorOf(draw * (range / MidiEngine::RandomSource::HIGHEST) + base + 0.5);
    const std::int64_t highest = message.isPitchBend() ? 16383 : 127;
    return inverted ? std::clamp(value, mirror - highest, mirror) : value;
}

std::int64_t EngineOscillator::valueAt(double newPhase, double oldPhase, Slice& slice, MidiEngine::MidiEngine& engine)
{
    switch (kind) {
        case Kind::tri:
            return floorOf((std::asin(std::sin(newPhase)) + pi / 2) / pi * range + base + 0.5);
        case Kind::saw:
            return static_cast<std::int64_t>(base) + unitsIntoCycle(newPhase, static_cast<std::int64_t>(range));
        case Kind::pulse:
            return static_cast<std::int64_t>(base) + (isInSecondHalf(newPhase) ? static_cast<std::int64_t>(range) : 0);
        default:
            if (isInSecondHalf(newPhase) == isInSecondHalf(oldPhase)) return inverted ? mirror - lastValue : lastValue;
            return randomValue(engine.drawRandom(slice));
    }
}
}  // namespace Backend::Oscillators
