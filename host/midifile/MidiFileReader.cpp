#include "host/midifile/MidiFileReader.h"

#include <algorithm>
#include <utility>

#include "host/common/LastPulse.h"
#include "host/common/WholeFile.h"
#include "host/midifile/TrackReader.h"
#include "platform/Path.h"

namespace Host
{
namespace
{
constexpr std::uint32_t FILE_HEADER = 0x4D546864;   // "MThd"
constexpr std::uint32_t TRACK_HEADER = 0x4D54726B;  // "MTrk"
constexpr std::int64_t PULSES_PER_QUARTER = 480;

struct Header {
    std::uint32_t format;  // 0 or 1
    std::uint32_t tracks;
    std::int64_t division;  // ticks per quarter note, 1 to 32767
};

Header readHeader(ByteCursor& file)
{
    if (file.left() < 4 || ByteCursor(file).bigEndian(4) != FILE_HEADER) file.refuse("not a Standard MIDI File");
    file.bigEndian(4);
    const std::uint32_t size = file.bigEndian(4);
    ByteCursor chunk = file.take(size, "the header");
    const std::uint32_t format = chunk.bigEndian(2);
    if (format > 1) file.refuse(8, "format " + std::to_string(format) + " is not supported, only 0 and 1");
    const std::uint32_t tracks = chunk.bigEndian(2);
    if (format == 0 && tracks > 1)
        file.refuse(10, "a file of format 0 cannot have " + std::to_string(tracks) + " tracks");
    const std::uint32_t division = chunk.bigEndian(2);
    if (division >= 0x8000) file.refuse(12, "SMPTE time is not supported, only ticks per quarter note");
    if (division == 0) file.refuse(12, "0 ticks per quarter note");
    return {format, tracks, division};
}

/// Whether a chunk begins here that is all there. Where it need not be one, bytes after the last track are padding.
bool hasWholeChunk(ByteCursor file)
{
    if (file.left() < 8) return false;
    file.bigEndian(4);
    return file.bigEndian(4) <= file.left();
}

/// Some writers count fewer tracks in the header of format 1 than they write, or none.
std::vector<TrackReader> findTracks(ByteCursor& file, const Header& header)
{
    const std::size_t least = std::max(header.tracks, 1u);
    std::vector<TrackReader> tracks;
    while (tracks.size() < least || (header.format == 1 && hasWholeChunk(file))) {
        if (file.atEnd())
            file.refuse("the file has " + std::to_string(tracks.size()) + " of its " + std::to_string(least) +
                        " tracks");
        const std::uint32_t kind = file.bigEndian(4);
        const std::uint32_t size = file.bigEndian(4);
        const ByteCursor chunk = file.take(size, kind == TRACK_HEADER ? "a track" : "a chunk");
        if (kind == TRACK_HEADER) tracks.emplace_back(chunk);
    }
    return tracks;
}

MidiFileEvent eventOf(const TrackReader& track, std::int64_t division)
{
    const std::int64_t pulses = (2 * PULSES_PER_QUARTER * track.ticks() + division) / (2 * division);
    if (pulses > LAST_PULSE) track.refuse("later than pulse " + std::to_string(LAST_PULSE));
    return {static_cast<std::int32_t>(pulses), track.status(), track.d1(), track.d2()};
}

/// The order of a heap of tracks by their next message. All tracks are in one vector, so addresses give their order.
bool soundsLater(const TrackReader* a, const TrackReader* b)
{
    return std::pair(a->ticks(), a) > std::pair(b->ticks(), b);
}

std::vector<MidiFileEvent> merge(std::vector<TrackReader>& tracks, std::int64_t division)
{
    std::vector<TrackReader*> waiting;
    const auto wait = [&](TrackReader& track) {
        waiting.push_back(&track);
        std::push_heap(waiting.begin(), waiting.end(), soundsLater);
    };
    for (TrackReader& track : tracks)
        if (track.next()) wait(track);

    std::vector<MidiFileEvent> events;
    while (!waiting.empty()) {
        std::pop_heap(waiting.begin(), waiting.end(), soundsLater);
        TrackReader& track = *waiting.back();
        waiting.pop_back();
        bool continues = true;
        while (continues && (waiting.empty() || soundsLater(waiting.front(), &track))) {
            events.push_back(eventOf(track, division));
            continues = track.next();
        }
        if (continues) wait(track);
    }
    return events;
}
}  // namespace

std::vector<MidiFileEvent> readMidiFile(std::span<const std::uint8_t> bytes, const std::string& name)
{
    ByteCursor file(bytes, name);
    const Header header = readHeader(file);
    std::vector<TrackReader> tracks = findTracks(file, header);
    return merge(tracks, header.division);
}

std::vector<MidiFileEvent> readMidiFile(const std::filesystem::path& path)
{
    return readMidiFile(readWholeFile(path), textOf(path));
}
}  // namespace Host
