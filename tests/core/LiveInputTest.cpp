#include <map>
#include <thread>

#include "api/DisplayListener.h"
#include "tests/stage/Allocations.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;

namespace
{
/// The direct way first, as a host that plays live; a refused event is posted. True if it was played at once.
bool arriveLive(Stage& stage, const OrvMidiMessage& event)
{
    const bool isPlayed = stage.orv->playMidiInputEvent(event);
    if (!isPlayed) stage.commands().postProcessMidiInputEvent(event);
    return isPlayed;
}

std::string entry(const std::string& event, const std::string& translations)
{
    return "<MidiEvent midiEvent='" + event + "'>" + translations + "</MidiEvent>";
}

std::string translation(const std::string& element, const std::string& condition = "")
{
    return "<Translation" + (condition.empty() ? "" : " condition='" + condition + "'") + "><" + element +
           "/></Translation>";
}

/// D4 becomes two notes, E4 nothing; controller 20 resets at its highest value and is played at any other.
void loadTranslations(Stage& stage)
{
    stage.loadFile("live.prg",
                   "<ProgramFile><Program><MidiInput>" +
                       entry("Note On,62", translation("Unchanged") + translation("MidiNoteOn D1='70' channel='2'")) +
                       entry("Note On,64", translation("DoNothing")) +
                       entry("Controller Change,20",
                             translation("ResetOrv", "D2 eq 127") + translation("Unchanged", "D2 lt 127")) +
                       "</MidiInput><Layers><Layer/></Layers></Program></ProgramFile>");
}
}  // namespace

TEST(LiveInput, PlaysAtOnceWhatNeedsNoFunction)
{
    Stage stage;
    loadTranslations(stage);
    stage.played();
    EXPECT_TRUE(arriveLive(stage, noteOn(60, 90).channel(3).input(1)));
    EXPECT_EQ(stage.takePlayed(), "C4 on") << "without a slice, on the layer's channel";
    EXPECT_TRUE(arriveLive(stage, noteOn(60, 0).channel(3).input(1)));
    EXPECT_EQ(stage.takePlayed(), "C4 off");
    EXPECT_TRUE(arriveLive(stage, noteOn(62, 90).input(1)));
    EXPECT_EQ(stage.takePlayed(), "D4 on, A#4 on channel 2");
    EXPECT_TRUE(arriveLive(stage, noteOn(64, 90).input(1)));
    EXPECT_EQ(stage.takePlayed(), "");
    EXPECT_TRUE(arriveLive(stage, controller(20, 126).input(1)));
    EXPECT_EQ(stage.takePlayed(), "Controller Change 20 126") << "the function's condition is not met";

    const auto before = allocationsOfThisThread();
    for (int i = 0; i < 100; ++i) EXPECT_TRUE(stage.orv->playMidiInputEvent(noteOn(67, 1 + i).input(0)));
    EXPECT_LE(allocationsOfThisThread() - before, 8u) << "the recording player's own list grows";

    EXPECT_FALSE(stage.orv->playMidiInputEvent(noteOn(60, 90).input(3))) << "no such input";
    EXPECT_FALSE(stage.orv->playMidiInputEvent(noteOn(60, 90)));
}

TEST(LiveInput, KeepsItsOrderBehindAnEventThatExecutesAFunction)
{
    Stage stage;
    loadTranslations(stage);
    stage.played();
    arriveLive(stage, noteOn(60, 90).input(0));
    EXPECT_FALSE(arriveLive(stage, controller(20, 127).input(0)));
    EXPECT_FALSE(arriveLive(stage, noteOn(65, 90).input(0))) << "it may not pass the reset";
    EXPECT_TRUE(arriveLive(stage, noteOn(67, 90).input(1))) << "another input does";
    stage.rest();
    EXPECT_FALSE(arriveLive(stage, noteOff(65).input(0))) << "its note-on was not played yet";
    EXPECT_TRUE(stage.played().ends_with("F4 on, F4 off"));
    stage.playSlices(1);
    EXPECT_TRUE(arriveLive(stage, noteOn(69, 90).input(0))) << "all of it has been played";

    stage.orv->deferMidiInputEvent(1);
    EXPECT_FALSE(stage.orv->playMidiInputEvent(noteOn(60, 90).input(1)));
    for (int lost = 0; lost < 2; ++lost) {
        stage.playSlices(3);
        EXPECT_FALSE(stage.orv->playMidiInputEvent(noteOn(60, 90).input(1))) << "two are still to come";
        stage.commands().postMidiInputEventLost(1);
        stage.commands().postMidiInputEventLost(1);
        stage.rest();
    }
    stage.playSlices(3);
    EXPECT_TRUE(stage.orv->playMidiInputEvent(noteOn(60, 90).input(1)));
}

TEST(LiveInput, ThatIsDisabledIsReleasedOnce)
{
    Stage stage;
    stage.takePlayed();
    arriveLive(stage, noteOn(60, 90).input(1));
    stage.arrive(noteOn(62, 90).input(1));
    EXPECT_EQ(stage.played(), "C4 on, D4 on");
    stage.commands().postEnableMidiInput(1, false);
    stage.rest();
    EXPECT_FALSE(arriveLive(stage, noteOff(60).input(1)));
    stage.commands().postEnableMidiInput(1, true);
    stage.rest();
    EXPECT_FALSE(arriveLive(stage, noteOn(60, 90).input(1))) << "what it held is still to be released";
    EXPECT_EQ(stage.played(), "C4 off, D4 off, C4 on");
    stage.playSlices(2);
    EXPECT_TRUE(arriveLive(stage, noteOff(60).input(1)));
    EXPECT_EQ(stage.played(), "C4 off");
}

TEST(LiveInput, PlaysFromAThreadOfItsOwnWhileSlicesRun)
{
    Stage stage;
    loadTranslations(stage);
    std::thread device([&] {
        for (int i = 0; i < 400; ++i) {
            arriveLive(stage, noteOn(65 + i % 5, 90).input(0));
            if (i % 50 == 0) arriveLive(stage, controller(20, 127).input(0));
            arriveLive(stage, noteOff(65 + i % 5).input(0));
        }
    });
    for (int i = 0; i < 400; ++i) {
        stage.commands().postProcessMidiInputEvent(noteOn(72 + i % 5, 90).input(1));
        stage.slice(1);
        stage.commands().postProcessMidiInputEvent(noteOff(72 + i % 5).input(1));
    }
    stage.playWhile([&] { device.join(); });
    stage.rest();
    stage.playSlices(2);
    std::map<int, bool> sounds;
    for (const auto& event : stage.player.events)
        if (event.isNote()) sounds[event.getD1()] = event.isNoteOn();
    EXPECT_EQ(sounds.size(), 10u);
    for (const auto& [note, isOn] : sounds) EXPECT_FALSE(isOn) << note;
}

TEST(LiveInput, IsShownBeforeWhatItPlays)
{
    struct Text final : Display::DisplayListener {
        std::string text;
        void addText(const char* added) override { text += added; }
        void setText(const char* whole) override { text = whole; }
    } shown;
    Stage stage;
    stage.orv->setDisplayListener(&shown);
    stage.commands().postSetDisplayMidiInputEvents(true);
    stage.rest();
    arriveLive(stage, noteOn(60, 90).input(1));
    stage.orv->resendDisplayText();
    stage.rest();
    const auto in = shown.text.find("> In 2");
    EXPECT_LT(in, shown.text.find("Out 1", in)) << shown.text;
    stage.orv->setDisplayListener(nullptr);
    stage.rest();
}
