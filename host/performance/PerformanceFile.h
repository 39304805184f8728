#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "host/midifile/MidiFileReader.h"
#include "host/performance/PerformanceCommand.h"

namespace Host
{
/// The commands of a performance file, sorted by time, those of equal time in file order. UTF-8 text, with or without
/// a byte order mark, lines ended by LF or CR LF:
///
///     <time> <command> [arguments]
///
/// `<time>` is in pulses from the start, 480 per quarter note, 0 to LAST_PULSE. File names in it are relative
/// to `folder`. Throws InputError ("demo.perf:12: ...", in which `name` stands before the colon) at the first line that
/// is not valid.
std::vector<TimedCommand> parsePerformance(std::string_view text, const std::string& name,
                                           const std::filesystem::path& folder = {});

/// The channel messages of a MIDI file as they arrive at the first input port.
std::vector<TimedCommand> fromMidiFile(const std::vector<MidiFileEvent>& events);

/// All inputs as one, sorted by time; where times are equal, in the order of the inputs.
std::vector<TimedCommand> mergeByTime(std::vector<std::vector<TimedCommand>> inputs);

/// Reads a performance (.perf) or MIDI file (.mid, .midi), by its ending in upper or lower case. Throws InputError if
/// it cannot be read or is not valid.
std::vector<TimedCommand> readInput(const std::filesystem::path& path);
}  // namespace Host
