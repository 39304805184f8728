#pragma once

#include <cstdint>
#include <iosfwd>

#include "backend/model/OscillatorType.h"
#include "backend/values/MidiMessage.h"
#include "backend/values/TimeIntervalType.h"
#include "platform/Export.h"

class XmlElement;

namespace Backend::Oscillators
{
/// An oscillator's index in its list, -1 for one that stands in none.
using OscId = std::int32_t;

/// A stream of events made from a wave: a controller, a pitch bend, or any message whose first data byte follows the
/// running value. A plain value; where in its wave an oscillator is, only the engine knows.
struct ORV_API Oscillator {
    static constexpr const char* SECTION = "Oscillators";
    static constexpr const char* ELEMENT = "Oscillator";
    static constexpr std::int32_t FASTEST = 40;
    static constexpr std::int32_t SLOWEST = 30720;

    OscId id = -1;
    bool selected = false;  ///< the target of functions that say "selected"; not saved
    OscillatorType type{};
    std::int32_t speed = 480;               ///< pulses per cycle, 40 to 30720; a file's is as it is until it is changed
    std::int32_t min = 0;                   ///< the value at the bottom of the wave
    std::int32_t max = 127;                 ///< the value at its top; below `min` the wave is upside down
    TimeIntervalType speedMode{};           ///< how the speed is shown and stepped
    std::int32_t stopValue = -1;            ///< sent on start and stop, below 0 for none
    std::int32_t detail = 10;               ///< every how many changes of value one is sent, 1 to 30; 0 counts as 1
    MidiEngine::MidiMessage midiMessage{};  ///< the message that carries the value; without one nothing is sent
    std::int8_t output = -1;                ///< -1 for through the layers, or the default output
    std::int8_t channel = -1;               ///< -1 for the layers' channel
    std::int8_t zone = -1;
    bool playing = false;  ///< not saved

    /// From an `Oscillator` element; what is absent is as above. Values are not checked.
    static Oscillator fromXml(const XmlElement& element, OscId id);
    /// The element, on one line after `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    bool operator==(const Oscillator&) const = default;
};
}  // namespace Backend::Oscillators
