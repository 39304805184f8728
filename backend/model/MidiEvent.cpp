#include "backend/model/MidiEvent.h"

#include <array>

#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::MidiInput
{
using MidiEngine::MessageType;
using MidiEngine::MidiMessage;

namespace
{
constexpr std::uint32_t KIND = 0xFFFF;

/// A range of the event numbers of version 2, `first` to `last`; the first data byte counts up with them.
struct Version2Row {
    int first;
    int last;
    MessageType type;
};

constexpr auto VERSION_2 = std::to_array<Version2Row>({{1, 1, MessageType::keyPressure},
                                                       {2, 2, MessageType::programChange},
                                                       {3, 3, MessageType::channelPressure},
                                                       {4, 4, MessageType::pitchBend},
                                                       {10, 137, MessageType::controllerChange},
                                                       {138, 265, MessageType::noteOn},
                                                       {266, 393, MessageType::noteOff}});
}  // namespace

MidiEvent MidiEvent::fromXml(const XmlElement& element)
{
    return {element.getByteAttribute("input", ALL), element.getByteAttribute("channel", ALL),
            MidiMessage::fromXmlString(element.getAttribute("midiEvent"))};
}

std::string MidiEvent::toXmlAttributes() const
{
    return xmlCharAttribute("input", input) + xmlCharAttribute("channel", channel) +
           xmlItemAttribute("midiEvent", message);
}

MidiEvent MidiEvent::fromPacked(std::uint32_t packed)
{
    const std::uint32_t status = packed >> 8 & 0xFF;
    const std::uint32_t number = packed & 0xFF;
    return {static_cast<std::int8_t>(packed >> 24), static_cast<std::int8_t>(packed >> 16),
            MidiMessage(number << 8 | status)};
}

bool MidiEvent::isSameKind(const MidiEvent& other) const { return (getPacked() & KIND) == (other.getPacked() & KIND); }

std::optional<MidiEvent> midiEventFromVersion2(int number, int input, int channel)
{
    for (const auto& [first, last, type] : VERSION_2)
        if (number >= first && number <= last)
            return MidiEvent{static_cast<std::int8_t>(input - 1), static_cast<std::int8_t>(channel - 1),
                             MidiMessage(type, number - first)};
    return std::nullopt;
}
}  // namespace Backend::MidiInput
