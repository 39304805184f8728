#include "host/midifile/MidiFileReader.h"

#include <gtest/gtest.h>

#include "tests/host/HostTesting.h"

namespace Host
{
namespace
{
using Testing::Bytes;
using Testing::complaintOf;
using Testing::midiFile;
using Events = std::vector<MidiFileEvent>;

using Testing::operator+;
const Bytes& END = Testing::END_OF_TRACK;

Events read(const Bytes& bytes) { return readMidiFile(bytes, "song.mid"); }
std::string complaintAbout(const Bytes& bytes)
{
    return complaintOf([&] { read(bytes); });
}

/// A file of one track: its first event is byte 22.
Bytes oneTrack(const Bytes& events) { return midiFile(0, 480, {events}); }

std::int32_t pulseOf(std::uint32_t division, const Bytes& delta)
{
    return read(midiFile(0, division, {delta + Bytes{0x90, 60, 100} + END})).at(0).time;
}

TEST(MidiFileReader, CountsIn480PulsesAQuarterRoundedHalfUp)
{
    EXPECT_EQ(pulseOf(480, {0x60}), 96);
    EXPECT_EQ(pulseOf(96, {0x01}), 5);
    EXPECT_EQ(pulseOf(960, {0x03}), 2);  // a half goes up
    EXPECT_EQ(pulseOf(1920, {0x01}), 0);
    EXPECT_EQ(pulseOf(32767, {0xFF, 0xFF, 0xFF, 0x7F}), 3932280);  // 268435455 x 480 has more than 32 bits
    Bytes twentyLongest;
    for (int count = 0; count < 20; ++count) twentyLongest = twentyLongest + Bytes{0xFF, 0xFF, 0xFF, 0x7F, 0xC0, 1};
    EXPECT_EQ(read(midiFile(0, 32767, {twentyLongest})).back().time, 78645600);  // and so have the ticks
}

TEST(MidiFileReader, HonoursTheRunningStatusUntilSysexOrMeta)
{
    const Bytes running{0, 0x93, 60, 100, 10, 60, 0, 10, 0xC5, 7, 0, 8, 0, 0xE0, 0x00, 0x40};
    EXPECT_EQ(read(oneTrack(running + END)),
              (Events{{0, 0x93, 60, 100}, {10, 0x93, 60, 0}, {20, 0xC5, 7, 0}, {20, 0xC5, 8, 0}, {20, 0xE0, 0, 0x40}}));

    const std::string reason = "data byte 3C without a running status";
    EXPECT_EQ(complaintAbout(oneTrack({0, 60, 100})), "song.mid: byte 23: " + reason);
    EXPECT_EQ(complaintAbout(oneTrack({0, 0x90, 60, 100, 0, 0xFF, 0x01, 0, 0, 60, 0})), "song.mid: byte 31: " + reason);
    EXPECT_EQ(complaintAbout(oneTrack({0, 0x90, 60, 100, 0, 0xF0, 1, 0xF7, 0, 60, 0})), "song.mid: byte 31: " + reason);
}

TEST(MidiFileReader, MergesTracksByTimeThenTrackThenFileOrder)
{
    const Bytes tempo{0, 0xFF, 0x51, 3, 7, 0xA1, 0x20};
    const Bytes first{5, 0x90, 1, 1, 0, 0x90, 2, 1, 5, 0x90, 3, 1};
    const Bytes second{0, 0x91, 4, 1, 5, 0xF7, 2, 0x91, 9, 0, 0x91, 5, 1, 5, 0x91, 6, 1};
    EXPECT_EQ(
        read(midiFile(1, 480, {tempo + END, first + END, second + END})),
        (Events{
            {0, 0x91, 4, 1}, {5, 0x90, 1, 1}, {5, 0x90, 2, 1}, {5, 0x91, 5, 1}, {10, 0x90, 3, 1}, {10, 0x91, 6, 1}}));
    EXPECT_EQ(read(midiFile(1, 4800, {Bytes{4, 0x90, 60, 100}, Bytes{3, 0x80, 60, 0}})),
              (Events{{0, 0x80, 60, 0}, {0, 0x90, 60, 100}}))
        << "also within a pulse";
}

TEST(MidiFileReader, SkipsOtherChunksAndReadsTracksThatTheHeaderDoesNotCount)
{
    const Bytes note{0, 0x90, 60, 100};
    const Events note1{{0, 0x90, 60, 100}};
    Bytes file = midiFile(0, 480, {});
    file[11] = 1;
    EXPECT_EQ(read(file + Testing::chunk("XFIH", {1, 2, 3}) + Testing::chunk("MTrk", note + END)), note1);
    EXPECT_EQ(read(oneTrack(note + END) + Bytes{0, 0, 0}), note1) << "padding";
    for (const int count : {0, 1}) {  // fewer than there are
        Bytes more = midiFile(1, 480, {note + END, END, note + END});
        more[11] = static_cast<std::uint8_t>(count);
        EXPECT_EQ(read(more + Bytes{'M', 'T', 'r', 'k', 0, 0, 0, 9, 0}), (Events{note1[0], note1[0]})) << count;
    }
    EXPECT_EQ(read(oneTrack(note + END + note)), note1) << "after the end of track";
    EXPECT_EQ(read(oneTrack(note)), note1) << "no end of track";
    EXPECT_EQ(read(oneTrack({})), Events{});
}

TEST(MidiFileReader, RefusesWhatItCannotPlayNamingTheByte)
{
    const auto headed = [](const Bytes& header) { return Testing::chunk("MThd", header); };
    const struct {
        Bytes file;
        std::string complaint;
    } ROWS[] = {
        {{}, "0: not a Standard MIDI File"},
        {{'R', 'I', 'F', 'F', 0, 0, 0, 0}, "0: not a Standard MIDI File"},
        {headed({0, 1, 0, 1}), "12: the data ends in the middle of an event or header"},
        {headed({0, 2, 0, 1, 1, 0xE0}), "8: format 2 is not supported, only 0 and 1"},
        {headed({0, 1, 0, 1, 0xE7, 40}), "12: SMPTE time is not supported, only ticks per quarter note"},
        {headed({0, 1, 0, 1, 0, 0}), "12: 0 ticks per quarter note"},
        {headed({0, 1, 0, 0, 1, 0xE0}), "14: the file has 0 of its 1 tracks"},
        {headed({0, 0, 0, 2, 1, 0xE0}), "10: a file of format 0 cannot have 2 tracks"},
        {headed({0, 1, 0xFF, 0xFF, 1, 0xE0}), "14: the file has 0 of its 65535 tracks"},
        {headed({0, 1, 0, 1, 1, 0xE0}) + Bytes{'M', 'T', 'r', 'k', 0xFF, 0xFF, 0xFF, 0xFF, 0},
         "22: a track of 4294967295 bytes has only 1"},
        {oneTrack({0x80, 0x80, 0x80, 0x80, 0x00, 0x90, 60, 100}),
         "26: a variable-length number has more than four bytes"},
        {oneTrack({0, 0x90, 60, 0x80}), "25: 80 where a data byte is due"},
        {oneTrack({0, 0x90, 60}), "25: the data ends in the middle of an event or header"},
        {oneTrack({0, 0xF8}), "23: status F8 cannot stand in a track"},
        {oneTrack({0, 0xFF, 0x01, 5, 'a'}), "26: a meta event of 5 bytes has only 1"},
        {oneTrack({0, 0xF0, 0x82, 0x00, 1}), "26: a system exclusive event of 256 bytes has only 1"},
        {midiFile(0, 1, {{0xFF, 0xFF, 0xFF, 0x7F, 0x90, 60, 100}}), "26: later than pulse 2000000000"},
    };
    for (const auto& row : ROWS) EXPECT_EQ(complaintAbout(row.file), "song.mid: byte " + row.complaint);
}

TEST(MidiFileReader, RefusesAFileCutShortAnywhere)
{
    const Bytes whole = midiFile(1, 96,
                                 {{0, 0xFF, 0x03, 1, 'a', 1, 0x90, 60, 100, 2, 60, 0, 0, 0xFF, 0x2F, 0},
                                  {0, 0xF0, 2, 1, 0xF7, 0x81, 0x00, 0xC1, 5, 0, 0xFF, 0x2F, 0}});
    EXPECT_EQ(read(whole).size(), 3u);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_NE(complaintAbout({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)}), "") << size;
}
}  // namespace
}  // namespace Host
