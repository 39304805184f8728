#include "host/midi/ShortMessage.h"

#include <algorithm>

namespace Host
{
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
constexpr std::uint8_t SYSTEM_EXCLUSIVE = 0xF0;
constexpr std::uint8_t TIME_CODE = 0xF1;
constexpr std::uint8_t END_OF_EXCLUSIVE = 0xF7;
constexpr std::uint8_t TIMING_TICK = 0xF8;
constexpr std::uint8_t SONG_POSITION = 0xF2;
constexpr std::uint8_t START = 0xFA;
constexpr std::uint8_t STOP = 0xFC;
constexpr std::uint8_t ACTIVE_SENSING = 0xFE;

bool isDataByte(std::uint8_t byte) { return byte < 0x80; }

// The event model knows no time code quarter frame; a wire does.
std::size_t dataBytes(std::uint8_t status)
{
    if (status == TIME_CODE) return 1;
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
    if (bytes.empty() || isDataByte(bytes[0]) || bytes[0] == SYSTEM_EXCLUSIVE || bytes[0] == END_OF_EXCLUSIVE)
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
    return message.bytes[0] == TIMING_TICK || message.bytes[0] == ACTIVE_SENSING;
}

bool isOfClock(const ShortMessage& message)
{
    const std::uint8_t status = message.bytes[0];
    return status == TIMING_TICK || status == SONG_POSITION || (status >= START && status <= STOP);
}

OrvMidiMessage toInputEvent(const ShortMessage& message, int input)
{
    const bool isSystem = message.bytes[0] >= SYSTEM_EXCLUSIVE;
    return {static_cast<MessageType>(message.bytes[0]),
            message.bytes[1],
            message.bytes[2],
            isSystem ? 0 : message.channel(),
            OrvMidiMessage::DEFAULT_OUTPUT,
            OrvMidiMessage::DEFAULT_ZONE,
            input,
            -1};
}
}  // namespace Host
