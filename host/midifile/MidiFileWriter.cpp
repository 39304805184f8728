#include "host/midifile/MidiFileWriter.h"

#include <algorithm>
#include <span>

#include "host/midifile/DataBytes.h"

namespace Host
{
namespace
{
constexpr int DEFAULT_TEMPO = 120;
constexpr std::uint32_t FORMAT = 1;
constexpr std::uint32_t DIVISION = 480;
constexpr std::uint8_t TRACK_NAME = 0x03;
constexpr std::uint8_t SET_TEMPO = 0x51;
}  // namespace

MidiFileWriter::MidiFileWriter(const std::vector<std::string>& outputNames)
{
    tempo(0, DEFAULT_TEMPO);
    for (const std::string& name : outputNames) outputs.emplace_back().meta(0, TRACK_NAME, name);
}

void MidiFileWriter::tempo(std::int32_t pulse, int bpm)
{
    constexpr int MICROSECONDS_PER_MINUTE = 60'000'000;
    bpm = std::max(bpm, 1);
    const int perQuarter = (MICROSECONDS_PER_MINUTE + bpm / 2) / bpm;
    const std::uint32_t stored = static_cast<std::uint32_t>(std::clamp(perQuarter, 1, 0xFFFFFF));
    const char content[] = {static_cast<char>(stored >> 16), static_cast<char>(stored >> 8), static_cast<char>(stored)};
    tempoTrack.meta(pulse, SET_TEMPO, {content, 3});
}

void MidiFileWriter::event(std::int32_t pulse, int output, std::uint8_t status, std::uint8_t d1, std::uint8_t d2)
{
    if (output < 0 || output >= static_cast<int>(outputs.size()) || status < 0x80) return;
    const std::uint8_t message[] = {status, d1, d2};
    const std::span<const std::uint8_t> bytes(message, 1 + dataBytes(status));
    if (std::ranges::any_of(bytes.subspan(1), [](std::uint8_t data) { return data > 127; })) return;
    TrackWriter& track = outputs[static_cast<std::size_t>(output)];
    if (status < 0xF0)
        track.message(pulse, bytes);
    else
        track.escape(pulse, bytes);
}

std::vector<std::uint8_t> MidiFileWriter::bytes(std::int32_t endPulse) const
{
    std::vector<std::uint8_t> file{'M', 'T', 'h', 'd'};
    appendBigEndian(file, 6, 4);
    appendBigEndian(file, FORMAT, 2);
    appendBigEndian(file, static_cast<std::uint32_t>(1 + outputs.size()), 2);
    appendBigEndian(file, DIVISION, 2);
    tempoTrack.appendTo(file, endPulse);
    for (const TrackWriter& track : outputs) track.appendTo(file, endPulse);
    return file;
}
}  // namespace Host
