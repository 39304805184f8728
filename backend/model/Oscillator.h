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
/// The index of an oscillator in its list, -1 if it is in none.
using OscId = std::int32_t;

/// The settings of an oscillator, a wave that is sent as controllers, pitch bend, or any message whose first data byte
/// gets the value. A plain value. See docs/behaviour/oscillators.md.
struct ORV_API Oscillator {
    static constexpr const char* SECTION = "Oscillators";
    static constexpr const char* ELEMENT = "Oscillator";
    static constexpr std::int32_t FASTEST = 40;
    static constexpr std::int32_t SLOWEST = 30720;

    OscId id = -1;
    bool selected = false;  ///< functions with "selected" act on it; not stored
    OscillatorType type{};
    std::int32_t speed = 480;               ///< pulses per cycle, 40 to 30720; a file may have any
    std::int32_t min = 0;                   ///< the value at the bottom of the wave
    std::int32_t max = 127;                 ///< the value at the top; below `min` the wave is inverted
    TimeIntervalType speedMode{};           ///< how the speed is shown and stepped
    std::int32_t stopValue = -1;            ///< sent at start and stop, negative for none
    std::int32_t detail = 10;               ///< of how many changes of the value one is sent, 1 to 30; 0 counts as 1
    MidiEngine::MidiMessage midiMessage{};  ///< carries the value; without it nothing is sent
    std::int8_t output = -1;                ///< -1 for the layers, or the default output
    std::int8_t channel = -1;               ///< -1 for the channel of the layers
    std::int8_t zone = -1;
    bool playing = false;  ///< not stored

    /// From an `Oscillator` element; absent attributes have the defaults above. Values are not checked.
    static Oscillator fromXml(const XmlElement& element, OscId id);
    /// Writes the element on one line, indented by `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    /// A copy without number, selection, and how the speed is shown, of an oscillator that stands: two are played alike
    /// if these are equal.
    Oscillator asPlayed() const;

    bool operator==(const Oscillator&) const = default;
};
}  // namespace Backend::Oscillators
