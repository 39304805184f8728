#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

#include "backend/values/Note.h"
#include "platform/Export.h"

namespace Backend::MidiEngine
{
/// The status byte without its channel (MIDI 1.0 Detailed Specification, tables I to VI; 0xF5 is an unofficial but
/// common extension).
enum class MessageType : std::uint32_t {
    none = 0,
    noteOff = 0x80,
    noteOn = 0x90,
    keyPressure = 0xA0,
    controllerChange = 0xB0,
    programChange = 0xC0,
    channelPressure = 0xD0,
    pitchBend = 0xE0,
    systemExclusive = 0xF0,
    songPosition = 0xF2,
    songSelect = 0xF3,
    unofficialBusSelect = 0xF5,
    tuneRequest = 0xF6,
    endOfSysex = 0xF7,
    timingTick = 0xF8,
    startSong = 0xFA,
    continueSong = 0xFB,
    stopSong = 0xFC,
    activeSensing = 0xFE,
    systemReset = 0xFF
};

/// A status below 0xF0 without its channel bits; a status from 0xF0 is returned unchanged.
constexpr MessageType fixStatus(std::uint32_t status)
{
    return static_cast<MessageType>(status < 0xF0 ? status & 0xF0 : status);
}

/// Limits a channel to 0 to 15.
constexpr int clampChannel(int channel) { return channel < 1 ? 0 : channel >= 15 ? 15 : channel; }

/// A MIDI message as a plain value. Bad values are stored as they are; `isValid` reports them.
class ORV_API MidiMessage
{
public:
    constexpr MidiMessage() = default;

    /// `type` may have channel bits, which are removed. `channel` is limited to 0 to 15.
    constexpr explicit MidiMessage(MessageType type, int data1 = 0, int data2 = 0, int onChannel = 0)
        : status(fixStatus(static_cast<std::uint32_t>(type))),
          d1(static_cast<std::uint8_t>(data1)),
          d2(static_cast<std::uint8_t>(data2)),
          channel(static_cast<std::int8_t>(clampChannel(onChannel)))
    {
    }

    /// The inverse of `getWparam`; the channel is not limited.
    constexpr explicit MidiMessage(std::uint32_t packed)
        : status(fixStatus(packed & 0xFF)),
          d1(static_cast<std::uint8_t>(packed >> 8)),
          d2(static_cast<std::uint8_t>(packed >> 16)),
          channel(static_cast<std::int8_t>(packed >> 24))
    {
    }

    /// The inverse of `toXmlString`; an unknown name gives status 0.
    explicit MidiMessage(std::string_view text);
    static MidiMessage fromXmlString(std::string_view text) { return MidiMessage(text); }

    /// A note-on with velocity 0, or an empty message for no note.
    constexpr explicit MidiMessage(Note note)
    {
        if (note.isNote()) *this = note;
    }
    constexpr MidiMessage& operator=(Note note) { return *this = MidiMessage(MessageType::noteOn, note.getNumber()); }

    constexpr MessageType getStatus() const { return status; }
    constexpr void setMessageType(MessageType type) { status = fixStatus(static_cast<std::uint32_t>(type)); }
    /// Status 0xF0 and above.
    constexpr bool isSystem() const { return status >= MessageType::systemExclusive; }
    /// The status byte ORed with the channel; a system message has none.
    constexpr std::uint32_t getStatusWithChannel() const
    {
        return isSystem() ? getStatusByte() : getStatusByte() | static_cast<std::uint8_t>(channel);
    }
    constexpr std::uint8_t getD1() const { return d1; }
    constexpr void setD1(int value) { d1 = static_cast<std::uint8_t>(value); }
    constexpr std::uint8_t getD2() const { return d2; }
    constexpr void setD2(int value) { d2 = static_cast<std::uint8_t>(value); }
    constexpr std::int8_t getChannel() const { return channel; }
    constexpr void setChannel(int value) { channel = static_cast<std::int8_t>(value); }
    constexpr void setToNoteOn() { status = MessageType::noteOn; }
    constexpr void setToNoteOff() { status = MessageType::noteOff; }

    constexpr bool isNote() const { return isNoteOn() || isNoteOff(); }
    /// Compares the status only: also true for a note-on with velocity 0.
    constexpr bool isNoteOn() const { return status == MessageType::noteOn; }
    constexpr bool isNoteOff() const { return status == MessageType::noteOff; }
    constexpr bool isControllerChange() const { return status == MessageType::controllerChange; }
    constexpr bool isProgramChange() const { return status == MessageType::programChange; }
    constexpr bool isChannelPressure() const { return status == MessageType::channelPressure; }
    constexpr bool isPitchBend() const { return status == MessageType::pitchBend; }
    constexpr bool isSongSelect() const { return status == MessageType::songSelect; }
    constexpr bool isUnofficialBusSelect() const { return status == MessageType::unofficialBusSelect; }
    constexpr bool isTimingTick() const { return status == MessageType::timingTick; }
    constexpr bool isSystemReset() const { return status == MessageType::systemReset; }
    constexpr bool isBankMsb() const { return isControllerChange() && d1 == 0; }
    constexpr bool isBankLsb() const { return isControllerChange() && d1 == 0x20; }
    constexpr bool isAllSoundOff() const { return isControllerChange() && d1 == 0x78; }
    bool isValid() const;
    bool hasParameters() const;

    /// The number of data bytes, 0 to 2. A system exclusive counts as 2, because its body is not stored.
    int getMessageSize() const;

    /// Packed into one 32-bit word for other threads: status, d1, d2, channel from the low byte up.
    constexpr std::uint32_t getWparam() const
    {
        return getStatusByte() | std::uint32_t{d1} << 8 | std::uint32_t{d2} << 16 |
               static_cast<std::uint32_t>(static_cast<std::uint8_t>(channel)) << 24;
    }

    /// Status with channel, d1, d2 from the low byte up. A channel outside 0 to 15 counts as 0.
    std::uint32_t getMidiOutShortMsg() const;

    /// Writes the status with its channel and `getMessageSize` data bytes; returns how many bytes that were.
    int writeBytes(std::ofstream& out) const;

    /// "Note On", ..., "Unknown".
    std::string getEventName() const { return getEventNameStatic(status); }
    static std::string getEventNameStatic(MessageType type);

    /// "Note 60 (C4)", "Control Change 7: Channel Volume", or the name of the event.
    std::string getEventNameWithCcAndNoteDetail() const;

    /// "Note On,60": the name, for notes and controllers with their number. A stored message identifies a kind of
    /// event: d2 and the channel are not part of it.
    std::string toXmlString() const;

    bool operator==(const MidiMessage&) const = default;

    // Sorted by status, then by d1 as a signed byte. `<=` is deliberately stricter: for one status and d1 it is true
    // only for equal messages.
    bool operator<(const MidiMessage& other) const;
    bool operator>=(const MidiMessage& other) const { return !(*this < other); }
    bool operator<=(const MidiMessage& other) const;

private:
    constexpr std::uint32_t getStatusByte() const { return static_cast<std::uint32_t>(status) & 0xFF; }

    MessageType status = MessageType::none;
    std::uint8_t d1 = 0;
    std::uint8_t d2 = 0;
    std::int8_t channel = 0;
};
}  // namespace Backend::MidiEngine
