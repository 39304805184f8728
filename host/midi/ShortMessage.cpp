#include "host/midi/ShortMessage.h"

#include <algorithm>

#include "host/midi/StatusByte.h"

namespace Host
{
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
bool isDataByte(std::uint8_t byte) { return byte < 0x80; }

// The event model has no MIDI time code quarter frame.
std::size_t dataBytes(std::uint8_t status)
{
    if (status == StatusByte::TIME_CODE) return 1;
    return static_cast<std::size_t>(
        Backend::MidiEngine::MidiMessage(static_cast<MessageType>(status)).getMessageSize());
}
}  // namespace

std::optional<ShortMessage> toShortMessage(const OrvMidiMessage& event)
{
    const auto& midi = event.getMidiMessage();
    if (!midi.isValid() || midi.getStatus() == MessageType::systemExclusive) return std::nullopt;
    const std::uint32_t packed = midi.getMidiOutShortMsg();
    ShortMessage message;
    message.size = static_cast<std::uint8_t>(1 + midi.getMessageSize());
    for (unsigned int index = 0; index < message.size; ++index)
        message.bytes[index] = static_cast<std::uint8_t>(packed >> 8 * index);
    if (!std::all_of(message.bytes.begin() + 1, message.bytes.begin() + message.size, isDataByte)) return std::nullopt;
    return message;
}

std::optional<ShortMessage> readShortMessage(std::span<const std::uint8_t> bytes)
{
    if (bytes.empty() || isDataByte(bytes[0]) || bytes[0] == StatusByte::SYSTEM_EXCLUSIVE ||
        bytes[0] == StatusByte::END_OF_EXCLUSIVE)
        return std::nullopt;
    if (bytes.size() != 1 + dataBytes(bytes[0])) return std::nullopt;
    if (!std::all_of(bytes.begin() + 1, bytes.end(), isDataByte)) return std::nullopt;
    ShortMessage message;
    message.size = static_cast<std::uint8_t>(bytes.size());
    std::ranges::copy(bytes, message.bytes.begin());
    return message;
}

bool staysInHost(const ShortMessage& message)
{
    return message.bytes[0] == StatusByte::TICK || message.bytes[0] == StatusByte::ACTIVE_SENSING;
}

bool isClockMessage(const ShortMessage& message)
{
    const std::uint8_t status = message.bytes[0];
    return status == StatusByte::TICK || status == StatusByte::SONG_POSITION ||
           (status >= StatusByte::START && status <= StatusByte::STOP);
}

OrvMidiMessage toInputEvent(const ShortMessage& message, int input)
{
    const bool isSystem = message.bytes[0] >= StatusByte::SYSTEM_EXCLUSIVE;
    return OrvMidiMessage({.type = static_cast<MessageType>(message.bytes[0]),
                           .d1 = message.bytes[1],
                           .d2 = message.bytes[2],
                           .channel = isSystem ? 0 : message.channel(),
                           .input = input});
}
}  // namespace Host
