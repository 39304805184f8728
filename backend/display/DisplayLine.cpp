#include "backend/display/DisplayLine.h"

#include <cstdint>
#include <string_view>

#include "backend/values/ControllerNames.h"
#include "backend/values/Note.h"
#include "backend/values/ProgramNames.h"

namespace Backend::Display
{
using MidiEngine::MessageType;
using MidiEngine::MidiMessage;

namespace
{
constexpr std::string_view LINE_END = "\r\n";

std::string signedNumber(std::uint8_t byte) { return std::to_string(static_cast<std::int8_t>(byte)); }

std::string named(std::uint8_t byte, const std::string& name) { return signedNumber(byte) + " (" + name + ")"; }

/// Both bytes as one number; 8192 is the centre of a pitch bend.
std::string value(const MidiMessage& message) { return std::to_string(message.getD2() * 128u + message.getD1()); }

bool hasChannel(MessageType type) { return type <= MessageType::systemExclusive; }

bool isEvent(MessageType type)
{
    const auto status = static_cast<std::uint32_t>(type);
    return status >= 0x80 && status <= 0xFF && status != 0xF1 && status != 0xF4;
}

/// The columns after the name of the event.
std::string data(const MidiMessage& message)
{
    const std::uint8_t d1 = message.getD1();
    const std::string d2 = "\t" + signedNumber(message.getD2());
    switch (message.getStatus()) {
        case MessageType::noteOff:
        case MessageType::noteOn:
            return "\t" + named(d1, getNoteName(d1, MidiEngine::Octave::with)) + d2;
        case MessageType::keyPressure:
            return "\t" + signedNumber(d1) + d2;
        case MessageType::controllerChange:
            return "\t" + named(d1, MidiEngine::getControllerName(d1)) + d2;
        case MessageType::programChange:
            return "\t" + named(d1, MidiEngine::getProgramName(d1));
        case MessageType::channelPressure:
        case MessageType::songSelect:
        case MessageType::unofficialBusSelect:
            return "\t" + signedNumber(d1);
        case MessageType::pitchBend:
        case MessageType::songPosition:
            return "\t" + value(message);
        default:
            return "";
    }
}
}  // namespace

std::string formatLine(const std::string& prefix, const MidiMessage& message)
{
    const MessageType type = message.getStatus();
    std::string line;
    if (isEvent(type)) {
        const std::string channel = hasChannel(type) ? std::to_string(message.getChannel() + 1) : "";
        line = prefix + "\t" + channel + "\t" + message.getEventName() + data(message);
    } else {
        line = "-";
    }
    return line += LINE_END;
}
}  // namespace Backend::Display
