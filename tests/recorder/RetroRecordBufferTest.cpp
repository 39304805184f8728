#include <algorithm>

#include "backend/recorder/RecordedEvents.h"
#include "tests/recorder/Recorder.h"
#include "tests/stage/FileFault.h"
#include "tests/stage/Victim.h"

using namespace Backend::RetroRecord;
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiMessage;
namespace fs = std::filesystem;

namespace
{
std::uintmax_t bytesIn(const fs::path& folder)
{
    std::uintmax_t bytes = 0;
    for (const auto& entry : fs::directory_iterator(folder)) bytes += entry.file_size();
    return bytes;
}
}  // namespace

TEST_F(Record, CountsTimeInFiveMillisecondsAndCutsSilence)
{
    const struct {
        std::uint32_t start, time;
        std::string ticks;
    } ROWS[] = {{1000, 1000, "0"},       {1000, 1004, "0"},    {1000, 1634, "126"},
                {1000, 1640, "128"},     {1000, 7999, "1399"}, {1000, 21000, "1400"},
                {1000, 2147484649, "0"}, {0xFFFFFFFE, 8, "2"}, {0x7FFFFFFF, 0x80000009, "2"},
                {1000, 995, "0"}};
    for (const auto& row : ROWS) {
        const TemporaryFolder fresh;
        Recorder recorder(fresh, Restore::no);
        recorder.buffer.start(row.start);
        recorder.buffer.addEvent(MidiMessage(MessageType::startSong), row.time);
        EXPECT_EQ(recorder.saved(), row.ticks + ":F7.FA") << row.start << " to " << row.time;
    }
    Recorder recorder(folder, Restore::no);
    for (const std::uint32_t time : {2000u, 1990u, 2000u})
        recorder.buffer.addEvent(MidiMessage(MessageType::startSong), time);
    EXPECT_EQ(recorder.saved(), "200:F7.FA 1400:F7.FA 2:F7.FA") << "a clock that goes back costs seven seconds, once";
}

TEST_F(Record, HoldsEveryMessageThatAMidiFileCan)
{
    Recorder recorder(folder, Restore::no);
    std::string all;
    for (const std::string event : {"8F.3C.01", "90.7F.00", "A2.3C.01", "B9.07.7F", "C9.05", "D1.05", "E3.01.40",
                                    "F7.F0.01.02", "F7.F2.01.02", "F7.F3.01", "F7.F4", "F7.F5.01", "F7.F7", "F7.F8"}) {
        unsigned status = 0, d1 = 99, d2 = 99;  // data that the message does not have
        std::sscanf(event.c_str() + (event.starts_with("F7.") ? 3 : 0), "%x.%x.%x", &status, &d1, &d2);
        recorder.play(MidiMessage(MessageType{status}, static_cast<int>(d1), static_cast<int>(d2), status & 15));
        all += (all.empty() ? "0:" : " 0:") + event;
    }
    const int NONE[][3] = {{0xFF, 0, 0}, {0, 0, 0}, {0x70, 1, 1}, {0x90, 128, 1}, {0x90, 1, 128}, {0xF3, 255, 0}};
    for (const auto& [status, d1, d2] : NONE) recorder.play(MidiMessage(static_cast<MessageType>(status), d1, d2));
    EXPECT_EQ(recorder.saved(), all);
}

TEST_F(Record, SavingEmptiesItAndNeverReplacesATake)
{
    Recorder recorder(folder, Restore::no);
    EXPECT_EQ(recorder.saved(), "") << "nothing was played";
    recorder.play(MidiMessage(MessageType::controllerChange, 120, 0, 5));
    EXPECT_EQ(recorder.saved(), "") << "all sound off is no music";
    for (const int note : {60, 62, 64}) {
        recorder.note(note, 50);
        recorder.saved();
        recorder.now += 500;
        recorder.buffer.start(recorder.now);
    }
    EXPECT_EQ(folder.contents("takes"), "t_Out.mid t_Out_0.mid t_Out_1.mid");
    EXPECT_EQ(recorder.take("t_Out_1.mid"), "10:90.40.64");
    for (int number = 0; number <= 500; ++number) folder.write("takes/t_Out_" + std::to_string(number) + ".mid", "");
    recorder.note(1);
    recorder.saved();
    EXPECT_EQ(recorder.take("t_Out_500.mid"), "0:90.01.64") << "the last name there is";
}

TEST_F(Record, RollsOverAndDropsTheOldest)
{
    constexpr int SMALL = 100;
    Recorder recorder(folder, Restore::no, SMALL);
    constexpr int EVENTS_PER_FILE = (SMALL - LONGEST_EVENT) / 4 + 1;
    for (int note = 0; note < EVENTS_PER_FILE * 10; ++note) recorder.note(note % 128);
    EXPECT_EQ(std::ranges::count(folder.contents("chain"), '_'), 10) << folder.contents("chain");
    for (int note = 0; note < EVENTS_PER_FILE; ++note) recorder.note(note);
    recorder.buffer.flush();
    EXPECT_EQ(std::ranges::count(folder.contents("chain"), '_'), 10);
    EXPECT_LE(bytesIn(folder / "chain"), 10u * SMALL);
    const std::string saved = recorder.saved();
    EXPECT_EQ(std::ranges::count(saved, ':'), EVENTS_PER_FILE * 10);
    EXPECT_TRUE(saved.starts_with("0:90.17.64")) << saved.substr(0, 20);

    recorder.buffer.setFileSize(40);
    for (int note = 0; note < 200; ++note) recorder.note(note % 128);
    recorder.buffer.flush();
    EXPECT_LE(bytesIn(folder / "chain"), 10u * 40);
}

TEST_F(Record, OfAnEarlierRunGoesOn)
{
    {
        Recorder recorder(folder, Restore::yes, 100);
        for (int note = 0; note < 40; ++note) recorder.note(note);
    }
    folder.write("chain/10_Out.tmp", "old");
    folder.write("chain/1_Outer.tmp", "another's");
    Recorder recorder(folder, Restore::yes, 100);
    EXPECT_FALSE(fs::exists(folder / "chain/10_Out.tmp"));
    recorder.note(127, 30);
    Recorder other(folder, Restore::yes);
    other.note(1);
    EXPECT_EQ(other.saved(), "0:90.01.64") << "another player at the same time has files of its own";
    const std::string saved = recorder.saved();
    EXPECT_EQ(std::ranges::count(saved, ':'), 41);
    EXPECT_TRUE(saved.starts_with("0:90.00.64") && saved.ends_with("0:90.27.64 6:90.7F.64")) << saved;
    EXPECT_EQ(folder.read("chain/1_Outer.tmp"), "another's");
}

TEST_F(Record, OfAnyOutputOutlivesARestart)
{
    const std::string names[] = {"Out", "~", "~7", "~~7"};
    const auto forEach = [&](const auto& visit) {
        RecordChain::removeOrphans(folder / "chain");
        for (const std::string& name : names) {
            RetroRecordBuffer buffer(folder / "chain", name, Restore::yes, 10000);
            buffer.start(0);
            visit(buffer);
        }
    };
    forEach([](auto& buffer) { buffer.addEvent(MidiMessage(MessageType::noteOn, 60, 100), 0); });
    forEach([&](auto& buffer) {
        EXPECT_NE(buffer.save((folder / "t").string(), [] { return 0; }).file, "") << buffer.getOutputName();
    });
}

TEST_F(Record, ThatIsNotForALaterRunGoesWithItsOwner)
{
    folder.write("chain/3_~123.tmp", "of a run that was killed");
    folder.write("chain/~123.lock", "");
    {
        Recorder recorder(folder, Restore::no);
        recorder.note(1);
        recorder.buffer.flush();
        RecordChain::removeOrphans(folder / "chain");
        EXPECT_EQ(recorder.saved(), "0:90.01.64");
    }
    EXPECT_EQ(folder.contents("chain"), "");
}

TEST_F(Record, WhatIsDamagedIsLeftOutAndTheRestKept)
{
    const std::string good("\0\x90\x3C\x64", 4);
    const struct {
        std::string damaged, kept;
    } ROWS[] = {{good + "\x01\x90\x3C", "0:90.3C.64 "},
                {good + "\x8B", "0:90.3C.64 "},
                {good + std::string("\0\x3C\x64", 3) + good, "0:90.3C.64 "},
                {good + std::string("\0\x90\x3C\xE4", 4) + good, "0:90.3C.64 "},
                {good + std::string("\0\xFF\x2F\0", 4) + good, "0:90.3C.64 "},
                {good + std::string("\0\xF0\x01\xF7", 4) + good, "0:90.3C.64 "},
                {std::string("\0\xF7\x04\xF2\1\1\1", 7) + good, ""},
                {std::string("\0\xF7\0", 3) + good, ""},
                {std::string("\x8A\x79\x90\x3C\x64", 5), ""},
                {std::string("\x80\x80\x80\x80\0\x90\x3C\x64", 8), ""},
                {std::string(5000, '\0'), ""},
                {std::string("\x8A\x78\xF7\2\xF3\1", 6), "1400:F7.F3.01 "}};
    for (const auto& row : ROWS) {
        const TemporaryFolder fresh;
        fresh.write("chain/1_Out.tmp", row.damaged);
        fresh.write("chain/0_Out.tmp", row.damaged);
        Recorder recorder(fresh, Restore::yes);
        recorder.note(1);
        EXPECT_EQ(recorder.saved(), row.kept + row.kept + "0:90.01.64") << testing::PrintToString(row.damaged);
    }
    fs::create_directories(folder / "chain/0_Out.tmp");
    Recorder recorder(folder, Restore::yes);
    recorder.note(1);
    EXPECT_TRUE(recorder.save().error) << "a folder in its place";
}

TEST_F(Record, ASaveThatMeetsAFullDiskLosesNothing)
{
    for (int call = 0;; ++call) {
        const TemporaryFolder fresh;
        Recorder recorder(fresh, Restore::yes);
        recorder.note(60);
        SavedRecord saved;
        bool happened = false;
        {
            const FileFault fault(FileFault::Kind::fullDisk, call);
            saved = recorder.save();
            happened = fault.hasHappened();
        }
        EXPECT_EQ(fresh.contents("takes"), saved.error ? "" : "t_Out.mid") << "call " << call;
        recorder.note(62);
        const std::string again = recorder.saved();
        EXPECT_EQ(again, saved.error ? "0:90.3C.64 0:90.3E.64" : "0:90.3E.64") << "call " << call;
        if (!happened) break;
        ASSERT_LT(call, 50);
    }
    Recorder recorder(folder, Restore::no);
    recorder.note(60);
    const auto now = [] { return 0u; };
    EXPECT_EQ(recorder.buffer.save((folder / "none/t").string(), now).error, std::errc::no_such_file_or_directory);
    EXPECT_EQ(recorder.saved(), "0:90.3C.64");
}

TEST_F(Record, IsInATakeOrStillThereWhereverTheProcessIsKilled)
{
    for (int call = 0;; ++call) {
        const TemporaryFolder fresh;
        const auto save = [](const fs::path& there, int at) {
            Recorder recorder(there, Restore::yes);
            recorder.note(60);
            const FileFault fault(FileFault::Kind::death, at);
            recorder.save();
        };
        if (!isKilledIn(call, fresh, save)) break;
        Recorder recorder(fresh, Restore::yes);
        recorder.note(62);
        const std::string later = recorder.saved();
        EXPECT_TRUE(recorder.take("t_Out.mid") == "0:90.3C.64" || later == "0:90.3C.64 0:90.3E.64")
            << "killed in call " << call << ": " << later;
    }
}
