#pragma once

#include <cstdint>

#include "backend/values/Cell.h"
#include "backend/values/MidiMessage.h"
#include "platform/Export.h"

namespace Backend::MidiEngine
{
/// The kinds of items in the engine's queue: MIDI events, resets, markers behind what an event of an input made, and
/// new lists that are taken over without a reset.
enum class MidiEngineMessageType : std::uint8_t {
    midiEvent = 0,
    reset = 1,
    hardReset = 2,
    inputMarker = 3,
    replacement = 4
};

/// An event: a MIDI message with its input, output, zone, channel and pulse. A plain value that is copied without
/// allocating.
class ORV_API OrvMidiMessage
{
public:
    static constexpr std::int8_t DEFAULT_CHANNEL = -1;  ///< no channel of its own; the layers set it
    static constexpr std::int8_t DEFAULT_INPUT = -1;    ///< made by the backend
    static constexpr std::int8_t DEFAULT_OUTPUT = -1;   ///< to the layers, or to the default output
    static constexpr std::int8_t DEFAULT_ZONE = -1;     ///< in no zone

    static constexpr std::int32_t UNTIMED = -1;  ///< played in the next slice

    /// An event by the names of its parts: `OrvMidiMessage({.type = MessageType::noteOn, .d1 = 60, .d2 = 100})`.
    struct Fields {
        MessageType type = MessageType::noteOff;
        int d1 = 0;                     ///< 0 to 127
        int d2 = 0;                     ///< 0 to 127
        int channel = DEFAULT_CHANNEL;  ///< 0 to 15, above that 15; below 0 the default channel
        int output = DEFAULT_OUTPUT;    ///< index of a port, 0 to 127
        int zone = DEFAULT_ZONE;        ///< 0 to 127
        int input = DEFAULT_INPUT;      ///< index of a port, 0 to 127
        std::int32_t pulse = UNTIMED;   ///< pulses, from 0
    };

    constexpr OrvMidiMessage() = default;
    constexpr OrvMidiMessage(const Fields& fields)
        : zone(static_cast<std::int8_t>(fields.zone)),
          output(static_cast<std::int8_t>(fields.output)),
          input(static_cast<std::int8_t>(fields.input)),
          defaultChannel(fields.channel < 0),
          midiMessage(fields.type, fields.d1, fields.d2, fields.channel),
          ppq(fields.pulse)
    {
    }

    /// The inverse of `getWparam` and `getLparam`. Everything that these do not contain has its default.
    constexpr OrvMidiMessage(std::uint32_t wparam, std::int32_t lparam)
        : zone(static_cast<std::int8_t>(static_cast<std::uint32_t>(lparam) >> 24)),
          output(static_cast<std::int8_t>(lparam)),
          input(static_cast<std::int8_t>(static_cast<std::uint32_t>(lparam) >> 16)),
          defaultChannel((lparam & 0xFF00) != 0),
          midiMessage(wparam)
    {
    }

    constexpr explicit OrvMidiMessage(std::uint32_t wparam) : midiMessage(wparam) {}

    /// `channel` replaces that of the message; below 0 it is the default channel.
    constexpr OrvMidiMessage(const MidiMessage& message, int toOutput, int channel, int inZone, const Cell& control)
        : zone(static_cast<std::int8_t>(inZone)),
          output(static_cast<std::int8_t>(toOutput)),
          midiMessage(message),
          fromControl(control)
    {
        setChannel(channel);
    }

    static OrvMidiMessage createAllSoundOffCC(int output, int channel);
    static OrvMidiMessage createAllControllersOffCC(int output, int channel);
    static OrvMidiMessage createSystemReset(int output);
    static OrvMidiMessage createOrvReset();
    static OrvMidiMessage createOrvHardReset();
    static OrvMidiMessage createReplacement();
    /// Its output is none at all, so that it costs the events nothing on their way.
    static OrvMidiMessage createInputMarker(int input);

    constexpr const MidiMessage& getMidiMessage() const { return midiMessage; }
    constexpr void setMidiMessage(const MidiMessage& message) { midiMessage = message; }
    constexpr MessageType getStatus() const { return midiMessage.getStatus(); }
    constexpr void setStatus(MessageType type) { midiMessage.setMessageType(type); }
    constexpr std::uint32_t getStatusWithChannel() const { return midiMessage.getStatusWithChannel(); }
    constexpr std::uint8_t getD1() const { return midiMessage.getD1(); }
    constexpr void setD1(int value) { midiMessage.setD1(value); }
    constexpr std::uint8_t getD2() const { return midiMessage.getD2(); }
    constexpr void setD2(int value) { midiMessage.setD2(value); }
    constexpr std::int8_t getChannel() const { return midiMessage.getChannel(); }

    /// Sets the channel; below 0 the event has the default channel, and 0 is stored.
    constexpr void setChannel(int channel)
    {
        defaultChannel = channel < 0;
        midiMessage.setChannel(channel < 0 ? 0 : channel);
    }
    constexpr void setDefaultChannel(bool isDefault) { defaultChannel = isDefault; }
    constexpr bool isDefaultChannel() const { return defaultChannel != 0; }
    constexpr std::int8_t getOutput() const { return output; }
    constexpr void setOutput(int port) { output = static_cast<std::int8_t>(port); }
    constexpr bool isDefaultOutput() const { return output == DEFAULT_OUTPUT; }
    /// Where the event comes from and goes to, as it names it: zone, output, input and default-channel flag from the
    /// low byte up.
    constexpr std::uint32_t getRoute() const
    {
        return byte(zone) | byte(output) << 8 | byte(input) << 16 | byte(defaultChannel) << 24;
    }
    constexpr std::int8_t getZone() const { return zone; }
    constexpr void setZone(int number) { zone = static_cast<std::int8_t>(number); }
    constexpr std::int8_t getInput() const { return input; }
    constexpr const Cell& getFromControl() const { return fromControl; }
    /// The layer that sends a note, from 1; 0 if no layer does, or one beyond the last number.
    constexpr std::uint8_t getLayer() const { return layer; }
    /// The note that came to that layer.
    constexpr std::uint8_t getLayerNote() const { return layerNote; }
    constexpr void setLayer(std::uint8_t number, std::uint8_t note)
    {
        layer = number;
        layerNote = note;
    }
    constexpr std::int32_t getPpq() const { return ppq; }
    constexpr void setPpq(std::int32_t pulse) { ppq = pulse; }
    constexpr bool isTimedEvent() const { return ppq >= 0; }
    constexpr MidiEngineMessageType getMidiEngineMessageType() const { return midiEngineMessageType; }
    constexpr bool isOrvReset() const { return midiEngineMessageType == MidiEngineMessageType::reset; }
    constexpr bool isOrvHardReset() const { return midiEngineMessageType == MidiEngineMessageType::hardReset; }
    constexpr bool isReplacement() const { return midiEngineMessageType == MidiEngineMessageType::replacement; }
    constexpr bool isInputMarker() const { return midiEngineMessageType == MidiEngineMessageType::inputMarker; }

    bool hasParameters() const { return midiMessage.hasParameters(); }
    constexpr bool isNote() const { return midiMessage.isNote(); }
    constexpr bool isNoteOn() const { return midiMessage.isNoteOn(); }
    constexpr bool isNoteOff() const { return midiMessage.isNoteOff(); }
    constexpr bool isControllerChange() const { return midiMessage.isControllerChange(); }
    /// The sustain, sostenuto or soft pedal: controllers 64, 66 and 67 of the MIDI standard.
    constexpr bool isPedal() const { return isControllerChange() && (getD1() == 64 || getD1() == 66 || getD1() == 67); }
    /// A note-on, also with velocity 0, or a pedal that goes down.
    constexpr bool isPress() const { return isNoteOn() || (isPedal() && getD2() > 0); }
    /// What ends a press: a note-off, or a pedal that goes up.
    constexpr bool isRelease() const { return isNoteOff() || (isPedal() && getD2() == 0); }
    constexpr bool isProgramChange() const { return midiMessage.isProgramChange(); }
    constexpr bool isChannelPressure() const { return midiMessage.isChannelPressure(); }
    constexpr bool isPitchBend() const { return midiMessage.isPitchBend(); }
    constexpr bool isSongSelect() const { return midiMessage.isSongSelect(); }
    constexpr bool isUnofficialBusSelect() const { return midiMessage.isUnofficialBusSelect(); }
    constexpr bool isTimingTick() const { return midiMessage.isTimingTick(); }
    constexpr void setToNoteOn() { midiMessage.setToNoteOn(); }
    constexpr void setToNoteOff() { midiMessage.setToNoteOff(); }
    std::string getEventName() const { return midiMessage.getEventName(); }
    std::uint32_t getMidiOutShortMsg() const { return midiMessage.getMidiOutShortMsg(); }

    constexpr std::uint32_t getWparam() const { return midiMessage.getWparam(); }

    /// Output, default-channel flag, input and zone from the low byte up.
    constexpr std::int32_t getLparam() const
    {
        return static_cast<std::int32_t>(byte(output) | (isDefaultChannel() ? 0x100u : 0u) | byte(input) << 16 |
                                         byte(zone) << 24);
    }

    /// Whether the two packed words contain the whole event: not if it has a pulse, or was sent by a control in a cell
    /// within 0 to 15 each way.
    constexpr bool fitsParameters() const
    {
        const auto small = [](std::int32_t index) { return static_cast<std::uint32_t>(index) <= 15; };
        return !isTimedEvent() && !(small(fromControl.row) && small(fromControl.col));
    }

private:
    constexpr explicit OrvMidiMessage(MidiEngineMessageType type) : midiEngineMessageType(type) {}
    static constexpr std::uint32_t byte(std::int8_t value) { return static_cast<std::uint8_t>(value); }

    std::int8_t zone = DEFAULT_ZONE;
    std::int8_t output = DEFAULT_OUTPUT;
    std::int8_t input = DEFAULT_INPUT;
    std::int8_t defaultChannel = 1;  // 0 or 1; a byte, so that the compiler reads the route as one word
    MidiMessage midiMessage;
    Cell fromControl;
    MidiEngineMessageType midiEngineMessageType = MidiEngineMessageType::midiEvent;
    std::uint8_t layer = 0;
    std::uint8_t layerNote = 0;
    std::int32_t ppq = UNTIMED;
};
}  // namespace Backend::MidiEngine
