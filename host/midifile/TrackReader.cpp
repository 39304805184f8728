#include "host/midifile/TrackReader.h"

#include <algorithm>

#include "host/midifile/DataBytes.h"

namespace Host
{
namespace
{
constexpr std::int64_t NEVER = std::int64_t{1} << 40;
constexpr std::uint8_t SYSEX = 0xF0;
constexpr std::uint8_t ESCAPE = 0xF7;
constexpr std::uint8_t META = 0xFF;
constexpr std::uint8_t END_OF_TRACK = 0x2F;

std::string hexadecimal(std::uint8_t byte)
{
    constexpr char DIGITS[] = "0123456789ABCDEF";
    return {DIGITS[byte >> 4], DIGITS[byte & 0x0F]};
}
}  // namespace

bool TrackReader::next()
{
    while (!ended && !bytes.atEnd()) {
        time = std::min(time + bytes.variableLength(), NEVER);
        eventStart = bytes.position();
        const std::uint8_t leadingByte = bytes.byte();
        if (leadingByte < SYSEX) {
            channelMessage(leadingByte);
            return true;
        }
        skip(leadingByte);
    }
    return false;
}

void TrackReader::channelMessage(std::uint8_t leadingByte)
{
    const bool running = leadingByte < 0x80;
    if (running && runningStatus == 0) refuse("data byte " + hexadecimal(leadingByte) + " without a running status");
    if (!running) runningStatus = leadingByte;
    first = running ? leadingByte : dataByte();
    second = channelDataBytes(runningStatus) == 2 ? dataByte() : std::uint8_t{0};
}

void TrackReader::skip(std::uint8_t leadingByte)
{
    if (leadingByte != SYSEX && leadingByte != ESCAPE && leadingByte != META)
        refuse("status " + hexadecimal(leadingByte) + " cannot stand in a track");
    runningStatus = 0;
    ended = leadingByte == META && bytes.byte() == END_OF_TRACK;
    bytes.take(bytes.variableLength(), leadingByte == META ? "a meta event" : "a system exclusive event");
}

std::uint8_t TrackReader::dataByte()
{
    const std::uint8_t value = bytes.byte();
    if (value > 0x7F) bytes.refuse(bytes.position() - 1, hexadecimal(value) + " where a data byte is due");
    return value;
}
}  // namespace Host
