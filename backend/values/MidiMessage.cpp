#include "backend/values/MidiMessage.h"

#include <algorithm>
#include <array>

#include "backend/values/ControllerNames.h"
#include "backend/xml/Text.h"

namespace Backend::MidiEngine
{
namespace
{
struct EventType {
    MessageType type;
    std::string_view name;
    int size;  // data bytes
};

constexpr std::array<EventType, 19> EVENT_TYPES{{
    {MessageType::noteOff, "Note Off", 2},
    {MessageType::noteOn, "Note On", 2},
    {MessageType::keyPressure, "Key Pressure", 2},
    {MessageType::controllerChange, "Controller Change", 2},
    {MessageType::programChange, "Program Change", 1},
    {MessageType::channelPressure, "Channel Pressure", 1},
    {MessageType::pitchBend, "Pitch Bend", 2},
    {MessageType::systemExclusive, "System Exclusive", 2},
    {MessageType::songPosition, "Song Position", 2},
    {MessageType::songSelect, "Song Select", 1},
    {MessageType::unofficialBusSelect, "Unofficial Bus Select", 1},
    {MessageType::tuneRequest, "Tune Request", 0},
    {MessageType::endOfSysex, "End Of Sysex", 0},
    {MessageType::timingTick, "Timing Tick", 0},
    {MessageType::startSong, "Start Song", 0},
    {MessageType::continueSong, "Continue Song", 0},
    {MessageType::stopSong, "Stop Song", 0},
    {MessageType::activeSensing, "Active Sensing", 0},
    {MessageType::systemReset, "System Reset", 0},
}};

const EventType* findEventType(MessageType type)
{
    const auto row = std::ranges::find(EVENT_TYPES, type, &EventType::type);
    return row == EVENT_TYPES.end() ? nullptr : &*row;
}
}  // namespace

MidiMessage::MidiMessage(std::string_view text)
{
    const auto comma = text.find(',');
    const auto row = std::ranges::find(EVENT_TYPES, text.substr(0, comma), &EventType::name);
    if (row != EVENT_TYPES.end()) status = row->type;
    if (comma == std::string_view::npos) return;
    setD1(Text::parseInteger(Text::trim(text.substr(comma + 1))).value_or(0));
}

bool MidiMessage::isValid() const { return findEventType(status) != nullptr; }

bool MidiMessage::hasParameters() const { return getMessageSize() > 0; }

int MidiMessage::getMessageSize() const
{
    const EventType* row = findEventType(status);
    return row == nullptr ? 0 : row->size;
}

std::uint32_t MidiMessage::getMidiOutShortMsg() const
{
    const bool hasChannel = channel >= 0 && channel <= 15;
    return (hasChannel ? getStatusWithChannel() : getStatusByte()) | std::uint32_t{d1} << 8 | std::uint32_t{d2} << 16;
}

int MidiMessage::writeBytes(std::ofstream& out) const
{
    const std::array<char, 3> bytes{static_cast<char>(getStatusWithChannel()), static_cast<char>(d1),
                                    static_cast<char>(d2)};
    const int count = 1 + getMessageSize();
    out.write(bytes.data(), count);
    return count;
}

std::string MidiMessage::getEventNameStatic(MessageType type)
{
    const EventType* row = findEventType(type);
    return std::string(row == nullptr ? "Unknown" : row->name);
}

std::string MidiMessage::getEventNameWithCcAndNoteDetail() const
{
    const auto number = std::to_string(d1);
    if (isNote()) return "Note " + number + " (" + getNoteName(d1, Octave::with) + ")";
    if (isControllerChange()) return "Control Change " + number + ": " + getControllerName(d1);
    return getEventName();
}

std::string MidiMessage::toXmlString() const
{
    if (isNote() || isControllerChange()) return getEventName() + "," + std::to_string(d1);
    return getEventName();
}

bool MidiMessage::operator<(const MidiMessage& other) const
{
    if (status != other.status) return status < other.status;
    return static_cast<std::int8_t>(d1) < static_cast<std::int8_t>(other.d1);
}

bool MidiMessage::operator<=(const MidiMessage& other) const { return *this == other || *this < other; }
}  // namespace Backend::MidiEngine
