#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "backend/values/OrvMidiMessage.h"

namespace Host
{
/// One MIDI message of one to three bytes as it travels over a wire (MIDI 1.0 Detailed Specification, table I): the
/// status with its channel, then as many data bytes as it takes, each 0 to 127. System exclusive is none.
struct ShortMessage {
    std::array<std::uint8_t, 3> bytes{};
    std::uint8_t size = 0;

    /// A receiver begins to sound: a note on with velocity above 0.
    bool startsNote() const { return kind() == 0x90 && bytes[2] > 0; }

    /// A receiver ends a note: a note off, or a note on with velocity 0.
    bool endsNote() const { return kind() == 0x80 || (kind() == 0x90 && bytes[2] == 0); }

    bool isController() const { return kind() == 0xB0; }

    /// Status without its channel; a system message is below none of these.
    int kind() const { return bytes[0] & 0xF0; }
    int channel() const { return bytes[0] & 0x0F; }

    bool operator==(const ShortMessage&) const = default;
};

/// What goes to a port for an event of the player; nothing for what no port can be sent: a data byte above 127, a
/// status that is none, a system exclusive, which has no body here.
std::optional<ShortMessage> toShortMessage(const Backend::MidiEngine::OrvMidiMessage& event);

/// The message in the bytes that came from a wire; nothing for system exclusive or what is no whole message. Running
/// status is not understood: neither JACK nor RtMidi delivers it.
std::optional<ShortMessage> readShortMessage(std::span<const std::uint8_t> bytes);

/// Timing ticks and active sensing are for the host alone.
bool staysInHost(const ShortMessage& message);

/// A MIDI clock speaks: tick, start, continue, stop, song position.
bool isOfClock(const ShortMessage& message);

/// The event to post for a message that arrived at input port `input`.
Backend::MidiEngine::OrvMidiMessage toInputEvent(const ShortMessage& message, int input);
}  // namespace Host
