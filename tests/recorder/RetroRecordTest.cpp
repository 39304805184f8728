#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>

#include "backend/messages/GuiMessages.h"
#include "backend/recorder/RecordFileNames.h"
#include "backend/recorder/RetroRecordManager.h"
#include "tests/recorder/RecordReading.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;
using namespace Backend::RetroRecord;

namespace
{
using Takes = std::map<std::string, std::string>;

/// A stage whose record is saved into its folder, under the stem "t".
struct RecordStage : Stage {
    void note(int number, int output, std::uint32_t silence = 0)
    {
        player.milliseconds += silence;
        play(noteOn(number).output(output).channel(0));
        playSlices();
    }
    /// The saved files as `readRecord` reads them, by name, which are removed then.
    Takes saved()
    {
        SaveReport report;
        orv->saveRetroRecordFor((folders / "t").string(), [&](const SaveReport& result) { report = result; });
        rest();
        EXPECT_FALSE(report.empty());
        Takes takes;
        for (const auto& entry : std::filesystem::directory_iterator(folders / ""))
            if (entry.path().extension() == ".mid") takes[textOf(entry.path().filename())] = "";
        for (auto& [name, text] : takes) {
            text = readRecord(folders.read(name));
            std::filesystem::remove(folders / name);
        }
        for (const auto& [file, error] : report)
            EXPECT_TRUE(file.empty() || takes.contains(textOf(pathOf(file).filename()))) << file;
        return takes;
    }
    /// The fills that the window received since the last call: "0, 1".
    std::string fills()
    {
        return received([](Message& message) {
            return message.number == GuiMessage::RETRO_RECORD_FILL ? std::to_string(message.wparam) : "";
        });
    }
};
}  // namespace

TEST(RetroRecord, KeepsWhatIsPlayedForEachOutputAndNotifiesTheWindow)
{
    RecordStage stage;
    EXPECT_EQ(stage.saved(), Takes{});
    stage.note(60, 0, 1000);
    stage.note(61, 1, 20000);
    stage.note(62, 0, 500);
    stage.play(event(MessageType::timingTick).output(1).channel(5));
    stage.play(event(MessageType::systemReset).output(1).channel(5));
    stage.playSlices();
    EXPECT_EQ(stage.saved(),
              (Takes{{"t_Out 1.mid", "200:90.3C.64 1400:90.3E.64"}, {"t_Out 2.mid", "1400:90.3D.64 100:F7.F8"}}));
    EXPECT_EQ(stage.saved(), Takes{}) << "saving empties it";
}

TEST(RetroRecord, RecordsAlsoWhatThruKeepsFromThePlayer)
{
    RecordStage stage;
    stage.setThru(false);
    stage.press("C4");
    EXPECT_EQ(stage.played(), "");
    EXPECT_EQ(stage.saved(), (Takes{{"t_Out 1.mid", "0:90.3C.64"}}));
}

TEST(RetroRecord, CanBeSwitchedOffAndMadeSmaller)
{
    RecordStage stage;
    stage.note(60, 0);
    stage.commands().postEnableRetroRecord(false);
    stage.note(61, 0);
    stage.commands().postEnableRetroRecord(true);
    stage.note(62, 0);
    EXPECT_EQ(stage.saved(), (Takes{{"t_Out 1.mid", "0:90.3C.64 0:90.3E.64"}}));
    stage.commands().postSetRetroRecordBufferSize(1000);
    for (int i = 0; i < 500; ++i) stage.play(noteOn(i % 128).output(0).channel(0));
    stage.playSlices();
    EXPECT_EQ(stage.saved()["t_Out 1.mid"].size(), 11 * (9 * 23 + 500 % 23) - 1)
        << "a file takes a tenth of the size, 23 events";
}

TEST(RetroRecord, ReportsHowFullTheFullestIs)
{
    RecordStage stage;
    stage.commands().postSetRetroRecordBufferSize(1000);
    stage.orv->getRetroRecordManager().setFillListener(stage.window.handle());
    EXPECT_EQ(stage.fills(), "") << "a window starts with 0";
    stage.note(60, 0);
    EXPECT_EQ(stage.fills(), "1") << "empty means empty";
    for (int i = 0; i < 30; ++i) stage.note(60, 1);
    const std::string fills = stage.fills();
    EXPECT_TRUE(fills.starts_with("2, 3, ") && fills.ends_with("10, 11, 12, 13")) << fills << ": 23 events are a tenth";
    stage.note(60, 0);
    EXPECT_EQ(stage.fills(), "");
    for (int i = 0; i < 500; ++i) stage.note(60, 1);
    EXPECT_NE(stage.fills().find("99, 100, 91, 92"), std::string::npos) << "the oldest tenth went";
    stage.saved();
    EXPECT_EQ(stage.fills(), "0");
    stage.orv->getRetroRecordManager().setFillListener({});
    stage.note(60, 0);
    EXPECT_EQ(stage.fills(), "");
}

TEST(RetroRecord, OfAnOutputGoesOnWhenTheListChanges)
{
    RecordStage stage;
    stage.note(60, 0);
    stage.note(61, 1);
    stage.player.milliseconds += 100;
    stage.commands().sendSetMidiOutputPorts(stage.outputs({"New", "Out 1"}));
    stage.rest();
    stage.note(62, 0, 100);
    stage.note(63, 1, 100);
    EXPECT_EQ(stage.saved(), (Takes{{"t_New.mid", "20:90.3E.64"}, {"t_Out 1.mid", "0:90.3C.64 60:90.3F.64"}}));
    auto ports = stage.outputs({"New", "Out 1"});
    ports[1].enabled = false;
    stage.commands().sendSetMidiOutputPorts(ports);
    stage.note(60, 1);
    EXPECT_EQ(stage.saved(), Takes{});
}

TEST(RetroRecord, NamesFilesSoThatTheyCanBeWritten)
{
    MidiOutputPorts ports;
    for (const auto& name :
         {std::string("system:midi/1"), std::string("Piano"), std::string("Piano"), std::string("Piano_2"),
          std::string("a\nb"), std::string(), std::string(400, 'x'), std::string(119, 'x') + "\xC3\xA9"})
        ports.push_back({{.name = name}});
    EXPECT_EQ(fileNamesOf(ports), (std::vector<std::string>{"system_midi_1", "Piano", "Piano_2", "Piano_2_2", "a_b", "",
                                                            std::string(120, 'x'), std::string(119, 'x')}));
}

TEST(RetroRecord, LosesNothingThatIsPlayedWhileItIsSaved)
{
    RecordStage stage;
    for (int round = 0; round < 20; ++round) {
        stage.orv->saveRetroRecord((stage.folders / "t").string());
        for (int note = 0; note < 100; ++note)
            stage.commands().postPlayMidi(noteOn(note, round + 1).output(0).channel(0));
        stage.slice(1);
    }
    stage.rest();
    stage.playSlices();
    std::ptrdiff_t events = 0;
    for (const auto& [name, text] : stage.saved()) events += std::ranges::count(text, ':');
    EXPECT_EQ(events, 2000);
    EXPECT_EQ(stage.player.events.size(), 2000u);
}
