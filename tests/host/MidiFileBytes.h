#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Host::Testing
{
using Bytes = std::vector<std::uint8_t>;

inline void appendNumber(Bytes& bytes, std::size_t value, int size)
{
    while (size-- > 0) bytes.push_back(static_cast<std::uint8_t>(value >> 8 * size));
}

inline Bytes chunk(const std::string& kind, const Bytes& content)
{
    Bytes bytes(kind.begin(), kind.end());
    appendNumber(bytes, content.size(), 4);
    bytes.insert(bytes.end(), content.begin(), content.end());
    return bytes;
}

/// A MIDI file of the given tracks, each the bytes of its events.
inline Bytes midiFile(unsigned format, unsigned division, const std::vector<Bytes>& tracks)
{
    Bytes header;
    appendNumber(header, format, 2);
    appendNumber(header, tracks.size(), 2);
    appendNumber(header, division, 2);
    Bytes file = chunk("MThd", header);
    for (const Bytes& events : tracks) {
        const Bytes track = chunk("MTrk", events);
        file.insert(file.end(), track.begin(), track.end());
    }
    return file;
}
}  // namespace Host::Testing
