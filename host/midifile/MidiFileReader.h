#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace Host
{
/// A channel message of a Standard MIDI File.
struct MidiFileEvent {
    std::int32_t time;    ///< pulses from the start, 480 per quarter note, 0 to LAST_PULSE
    std::uint8_t status;  ///< with its channel, 80 to EF
    std::uint8_t d1;      ///< 0 to 127
    std::uint8_t d2;      ///< 0 to 127; 0 for a message of one data byte

    bool operator==(const MidiFileEvent&) const = default;
};

/// The channel messages of all tracks of a Standard MIDI File (SMF 1.0, formats 0 and 1), in the order in which they
/// are played: by time in ticks, then by track, then in the track's order. The time is ticks x 480 / division, rounded
/// half up. Sysex and meta events, tempo included, are left out; unknown chunks are skipped. A file of format 1 may
/// have more tracks than its header counts; bytes after the last whole chunk are ignored.
///
/// Format 2, SMPTE divisions, and a file that is damaged or cut short are refused with an InputError that names the
/// file (`name`) and the byte. Memory stays within a small multiple of the file's size.
std::vector<MidiFileEvent> readMidiFile(std::span<const std::uint8_t> bytes, const std::string& name);

/// The same for a file, which is refused if it is larger than LARGEST_INPUT.
std::vector<MidiFileEvent> readMidiFile(const std::filesystem::path& path);
}  // namespace Host
