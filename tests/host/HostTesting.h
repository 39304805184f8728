#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/common/InputError.h"
#include "host/midi/ShortMessage.h"
#include "tests/stage/TemporaryFolder.h"

namespace Host::Testing
{
using ::TemporaryFolder;
using Bytes = std::vector<std::uint8_t>;

/// The line that the user gets, "" if nothing is wrong.
inline std::string complaintOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const InputError& error) {
        return error.what();
    }
    return "";
}

inline ShortMessage shortMessage(int status, int d1, int d2)
{
    return {{static_cast<std::uint8_t>(status), static_cast<std::uint8_t>(d1), static_cast<std::uint8_t>(d2)}, 3};
}
inline ShortMessage on(int note, int channel = 0) { return shortMessage(0x90 | channel, note, 100); }
inline ShortMessage off(int note, int channel = 0) { return shortMessage(0x80 | channel, note, 64); }
inline ShortMessage controller(int number, int value) { return shortMessage(0xB0, number, value); }

inline Bytes operator+(Bytes left, const Bytes& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

/// A big-endian number of `size` bytes.
inline Bytes number(std::size_t value, int size)
{
    Bytes bytes;
    while (size-- > 0) bytes.push_back(static_cast<std::uint8_t>(value >> 8 * size));
    return bytes;
}

inline Bytes chunk(const std::string& kind, const Bytes& content)
{
    return Bytes(kind.begin(), kind.end()) + number(content.size(), 4) + content;
}

/// A MIDI file of the given tracks, each the bytes of its events.
inline Bytes midiFile(unsigned format, unsigned division, const std::vector<Bytes>& tracks)
{
    Bytes file = chunk("MThd", number(format, 2) + number(tracks.size(), 2) + number(division, 2));
    for (const Bytes& events : tracks) file = file + chunk("MTrk", events);
    return file;
}

const Bytes END_OF_TRACK{0x00, 0xFF, 0x2F, 0x00};
}  // namespace Host::Testing
