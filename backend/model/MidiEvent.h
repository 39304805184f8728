#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

#include "backend/values/MidiMessage.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"

class XmlElement;

namespace Backend::MidiInput
{
/// A kind of incoming event, for which there can be an entry with translations: notes and controllers by their number,
/// other events by their status. The second data byte, and the channel in the message, are not compared.
struct ORV_API MidiEvent {
    static constexpr std::int8_t ALL = -1;

    std::int8_t input = ALL;    ///< an input port, or all inputs
    std::int8_t channel = ALL;  ///< 0 to 15, or all channels
    MidiEngine::MidiMessage message{};

    /// Of exactly the input and channel of an event.
    static constexpr MidiEvent of(const MidiEngine::OrvMidiMessage& event)
    {
        return {event.getInput(), event.getChannel(), event.getMidiMessage()};
    }
    /// From the attributes "input", "channel" and "midiEvent" of an element.
    static MidiEvent fromXml(const XmlElement& element);
    /// The attributes of its element, each preceded by a blank.
    std::string toXmlAttributes() const;

    /// Whether the first data byte is compared.
    constexpr bool hasNumber() const { return message.isNote() || message.isControllerChange(); }

    /// Input, channel, status and number from the high byte down.
    constexpr std::uint32_t getPacked() const
    {
        const auto byte = [](std::int8_t value) { return std::uint32_t{static_cast<std::uint8_t>(value)}; };
        const std::uint32_t status = static_cast<std::uint32_t>(message.getStatus()) & 0xFF;
        return byte(input) << 24 | byte(channel) << 16 | status << 8 | (hasNumber() ? message.getD1() : 0u);
    }

    /// The inverse of `getPacked`; what is not compared is 0.
    static MidiEvent fromPacked(std::uint32_t packed);

    /// Whether the messages are of the same kind; inputs and channels are not compared.
    bool isSameKind(const MidiEvent& other) const;

    bool operator==(const MidiEvent& other) const { return getPacked() == other.getPacked(); }
    std::strong_ordering operator<=>(const MidiEvent& other) const { return getPacked() <=> other.getPacked(); }
};

/// The event of a number of version 2, none for an unknown number. Inputs and channels count from 1.
ORV_API std::optional<MidiEvent> midiEventFromVersion2(int number, int input, int channel);
}  // namespace Backend::MidiInput
