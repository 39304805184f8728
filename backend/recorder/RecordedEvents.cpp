#include "backend/recorder/RecordedEvents.h"

#include <algorithm>
#include <array>

namespace Backend::RetroRecord
{
using MidiEngine::MessageType;
using MidiEngine::MidiMessage;
using Bytes = std::span<const std::uint8_t>;

namespace
{
constexpr std::uint8_t FIRST_STATUS = 0x80;
constexpr std::uint8_t FIRST_SYSTEM_STATUS = 0xF0;
constexpr std::uint8_t ESCAPE = 0xF7;
constexpr std::uint32_t LONGEST_DELTA = LONGEST_SILENCE / MILLISECONDS_PER_TICK;
constexpr std::size_t LONGEST_SYSTEM_MESSAGE = 3;
constexpr std::size_t TRACK_LENGTH = 18;  // its position in the file
constexpr std::size_t TRACK = 22;

bool isSystem(const MidiMessage& message)
{
    return static_cast<std::uint32_t>(message.getStatus()) >= FIRST_SYSTEM_STATUS;
}

bool isData(std::uint8_t byte) { return byte < FIRST_STATUS; }

/// Reads the events at the front of the bytes, one after another.
class EventReader
{
public:
    explicit EventReader(Bytes allBytes) : bytes(allBytes) {}

    /// False if the rest does not begin with a whole event.
    bool next() { return takeDelta() && takeMessage(); }

    std::size_t left() const { return bytes.size(); }
    bool isAllSoundOff() const { return message.isAllSoundOff(); }

private:
    bool take(std::uint8_t& byte)
    {
        if (bytes.empty()) return false;
        byte = bytes.front();
        bytes = bytes.subspan(1);
        return true;
    }

    /// Reads a variable-length quantity: seven bits in each byte, the highest bit set in all but the last.
    bool takeDelta()
    {
        std::uint32_t delta = 0;
        std::uint8_t byte = FIRST_STATUS;
        for (int count = 0; count < 4 && byte >= FIRST_STATUS; ++count) {
            if (!take(byte)) return false;
            delta = delta << 7 | (byte & 0x7Fu);
        }
        return byte < FIRST_STATUS && delta <= LONGEST_DELTA;
    }

    bool takeMessage()
    {
        std::uint8_t status = 0;
        if (!take(status) || status < FIRST_STATUS) return false;
        if (status == ESCAPE) return takeEscape();
        if (status >= FIRST_SYSTEM_STATUS) return false;
        std::array<std::uint8_t, 2> data{};
        const int size = MidiMessage(static_cast<MessageType>(status)).getMessageSize();
        for (int i = 0; i < size; ++i)
            if (!take(data[static_cast<std::size_t>(i)]) || !isData(data[static_cast<std::size_t>(i)])) return false;
        message = MidiMessage(static_cast<MessageType>(status), data[0], data[1]);
        return true;
    }

    bool takeEscape()
    {
        std::uint8_t size = 0;
        if (!take(size) || size == 0 || size > LONGEST_SYSTEM_MESSAGE || size > bytes.size()) return false;
        const Bytes content = bytes.first(size);
        bytes = bytes.subspan(size);
        message = MidiMessage(static_cast<MessageType>(content[0]));
        return content[0] >= FIRST_SYSTEM_STATUS && std::ranges::all_of(content.subspan(1), isData);
    }

    Bytes bytes;
    MidiMessage message;
};

void putBigEndian(std::vector<std::uint8_t>& file, std::size_t at, std::size_t value, int size)
{
    while (size-- > 0) file[at++] = static_cast<std::uint8_t>(value >> 8 * size);
}
}  // namespace

bool canBeRecorded(const MidiMessage& message)
{
    const int size = message.getMessageSize();
    return static_cast<std::uint32_t>(message.getStatus()) >= FIRST_STATUS && !message.isSystemReset() &&
           (size < 1 || isData(message.getD1())) && (size < 2 || isData(message.getD2()));
}

int writeEvent(std::ofstream& out, int milliseconds, const MidiMessage& message)
{
    const auto ticks = static_cast<unsigned>(milliseconds / MILLISECONDS_PER_TICK);
    int size = 1;
    if (ticks >= FIRST_STATUS) {
        out.put(static_cast<char>(ticks >> 7 | FIRST_STATUS));
        ++size;
    }
    out.put(static_cast<char>(ticks & 0x7F));
    if (!isSystem(message)) return size + message.writeBytes(out);

    out.put(static_cast<char>(ESCAPE)).put(static_cast<char>(1 + message.getMessageSize()));
    return size + 2 + message.writeBytes(out);
}

WholeEvents findWholeEvents(Bytes bytes)
{
    WholeEvents whole;
    EventReader reader(bytes);
    while (reader.next()) {
        whole.size = bytes.size() - reader.left();
        whole.anyPlayed = whole.anyPlayed || !reader.isAllSoundOff();
    }
    return whole;
}

std::vector<std::uint8_t> beginMidiFile()
{
    return {'M', 'T', 'h',
            'd', 0,   0,
            0,   6,   0,
            0,   0,                       // format 0
            1,   0,   TICKS_PER_QUARTER,  // one track
            'M', 'T', 'r',
            'k', 0,   0,
            0,   0};
}

/// Appends all sound off and the end of the track, both directly after the last event.
void finishMidiFile(std::vector<std::uint8_t>& file)
{
    file.insert(file.end(), {0, 0xB0, 120, 0, 0, 0xFF, 0x2F, 0});
    putBigEndian(file, TRACK_LENGTH, file.size() - TRACK, 4);
}
}  // namespace Backend::RetroRecord
