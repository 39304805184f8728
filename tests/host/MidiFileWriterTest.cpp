#include "host/midifile/MidiFileWriter.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "host/midifile/MidiFileReader.h"
#include "tests/host/HostTesting.h"

namespace Host
{
namespace
{
using Backend::MidiEngine::MessageType;
using Testing::Bytes;
using Testing::operator+;
using Testing::END_OF_TRACK;

bool contains(const Bytes& file, const Bytes& part)
{
    return std::search(file.begin(), file.end(), part.begin(), part.end()) != file.end();
}

TEST(MidiFileWriter, WritesATempoTrackAndATrackPerOutput)
{
    MidiFileWriter writer({"Out 1"});
    writer.tempo(480, 90);
    writer.event(0, 0, 0x92, 60, 100);
    writer.event(480, 0, 0xC2, 5, 0);

    const Bytes tempos{0,    0xFF, 0x51, 3,    0x07, 0xA1, 0x20, 0x83, 0x60, 0xFF,
                       0x51, 3,    0x0A, 0x2C, 0x2B, 0x83, 0x60, 0xFF, 0x2F, 0};
    const Bytes output{0,  0xFF, 0x03, 5,    'O',  'u', 't',  ' ',  '1',  0,    0x92,
                       60, 100,  0x83, 0x60, 0xC2, 5,   0x83, 0x60, 0xFF, 0x2F, 0};
    EXPECT_EQ(writer.bytes(960), Testing::midiFile(1, 480, {tempos, output}));
}

TEST(MidiFileWriter, KeepsEveryTempoWithinWhatAFileCanHold)
{
    const struct {
        int bpm;
        Bytes microseconds;
    } ROWS[] = {{1000, {0x00, 0xEA, 0x60}}, {4, {0xE4, 0xE1, 0xC0}}, {3, {0xFF, 0xFF, 0xFF}}, {-5, {0xFF, 0xFF, 0xFF}}};
    for (const auto& row : ROWS) {
        MidiFileWriter writer({});
        writer.tempo(0, row.bpm);
        EXPECT_TRUE(contains(writer.bytes(0), Bytes{0, 0xFF, 0x51, 3} + row.microseconds)) << row.bpm;
    }
}

TEST(MidiFileWriter, IsReadBackAsItWasPlayed)
{
    MidiFileWriter writer({"Out 1", "Ausgang für alle"});
    const std::vector<MidiFileEvent> played{
        {0, 0x90, 60, 100},        {0, 0xBF, 7, 127},        {127, 0xD1, 9, 0},     {128, 0x80, 60, 0},
        {16384, 0xE0, 1, 2},       {2097152, 0xC0, 3, 0},    {2097152, 0xA0, 4, 5}, {0x0FFFFFFF, 0x90, 60, 1},
        {0x1FFFFFFF, 0x90, 61, 1}, {2000000000, 0x90, 62, 1}};
    for (const MidiFileEvent& event : played) writer.event(event.time, 1, event.status, event.d1, event.d2);
    EXPECT_EQ(readMidiFile(writer.bytes(INT32_MAX), "out.mid"), played) << "also after a time too long for a file";
}

TEST(MidiFileWriter, WritesTheBytesThatAPortGetsWhateverTheStatusAndChannel)
{
    for (int status = 0x80; status <= 0xFF; status += status < 0xF0 ? 0x10 : 1)
        for (int channel = 0; channel < 16; ++channel) {
            const Backend::MidiEngine::OrvMidiMessage event(
                {.type = static_cast<MessageType>(status), .d1 = 1, .d2 = 2, .channel = channel, .output = 0});
            auto live = toShortMessage(event);
            if (status == 0xF0) live = ShortMessage{{0xF0, 1, 2}, 3};  // which a file can hold without a body
            if (!live) continue;
            MidiFileWriter writer({"A"});
            writer.event(0, 0, static_cast<std::uint8_t>(event.getStatusWithChannel()), event.getD1(), event.getD2());
            const Bytes escape = status < 0xF0 ? Bytes{} : Bytes{0xF7, live->size};
            const Bytes bytes(live->bytes.begin(), live->bytes.begin() + live->size);
            EXPECT_TRUE(contains(writer.bytes(0), Testing::chunk("MTrk", Bytes{0, 0xFF, 0x03, 1, 'A', 0} + escape +
                                                                             bytes + END_OF_TRACK)))
                << status << " " << channel;
        }
}

TEST(MidiFileWriter, LeavesOutWhatNoPortWouldGet)
{
    MidiFileWriter writer({"Out 1", "Out 2"});
    const Bytes silent = writer.bytes(0);
    writer.event(0, -1, 0x90, 60, 100);
    writer.event(0, 2, 0x90, 60, 100);
    writer.event(0, 0, 0x90, 128, 100);
    writer.event(0, 0, 0x90, 60, 255);
    writer.event(0, 0, 0xF2, 1, 128);
    writer.event(0, 0, 0x7F, 1, 1);
    EXPECT_EQ(writer.bytes(0), silent);

    writer.event(0, 0, 0xC0, 5, 200);  // a second byte that the message does not have
    EXPECT_EQ(readMidiFile(writer.bytes(0), "out.mid"), (std::vector<MidiFileEvent>{{0, 0xC0, 5, 0}}));
}
}  // namespace
}  // namespace Host
