#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "backend/values/OrvMidiMessage.h"

namespace Host
{
/// A MIDI message of one to three bytes as it is transmitted (MIDI 1.0 Detailed Specification, table I): the status
/// byte with its channel, then as many data bytes as the status requires, each 0 to 127. System exclusive messages are
/// not represented.
struct ShortMessage {
    std::array<std::uint8_t, 3> bytes{};
    std::uint8_t size = 0;

    /// A note-on with a velocity above 0.
    bool startsNote() const { return kind() == 0x90 && bytes[2] > 0; }

    /// A note-off, or a note-on with velocity 0.
    bool endsNote() const { return kind() == 0x80 || (kind() == 0x90 && bytes[2] == 0); }

    bool isController() const { return kind() == 0xB0; }

    /// The status without its channel, 0x80 to 0xF0; 0xF0 for every system message.
    int kind() const { return bytes[0] & 0xF0; }
    int channel() const { return bytes[0] & 0x0F; }

    bool operator==(const ShortMessage&) const = default;
};

/// The message to send to a port for an event of the player. Nothing if it must not be sent: a data byte above 127, an
/// undefined status, or a system exclusive, whose body the event does not hold.
std::optional<ShortMessage> toShortMessage(const Backend::MidiEngine::OrvMidiMessage& event);

/// Parses received bytes. Nothing for system exclusive and for anything but exactly one complete message. Running
/// status is not supported: neither JACK nor RtMidi delivers it.
std::optional<ShortMessage> readShortMessage(std::span<const std::uint8_t> bytes);

/// Timing clock and active sensing, which are not passed on to the backend.
bool staysInHost(const ShortMessage& message);

/// A message of a MIDI clock: timing clock (a tick), start, continue, stop, song position.
bool isClockMessage(const ShortMessage& message);

/// The event to post for a message that arrived at input port `input`.
Backend::MidiEngine::OrvMidiMessage toInputEvent(const ShortMessage& message, int input);
}  // namespace Host
