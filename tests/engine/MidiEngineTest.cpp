#include "backend/engine/MidiEngine.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <thread>

#include "backend/core/EngineRecorder.h"
#include "backend/messages/GuiMessages.h"
#include "backend/sections/controls/DefaultControls.h"
#include "tests/stage/Allocations.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;
using TheEngine = Backend::MidiEngine::MidiEngine;

namespace
{
OrvMidiMessage noteOn(int note, int output, int channel, std::int32_t ppq = -1)
{
    return {MessageType::noteOn, note, 100, channel, output, -1, -1, ppq};
}

OrvMidiMessage noteOff(int note, int output, int channel, std::int32_t ppq = -1)
{
    return {MessageType::noteOff, note, 64, channel, output, -1, -1, ppq};
}

/// The engine alone, its slices under the test's hand.
struct Engine {
    RecordingPlayer player;
    TheEngine engine{player};

    Engine()
    {
        engine.setMidiOutputPorts(MidiOutputPorts(3));
        engine.setDefaultMidiOutput(0);
    }

    /// The notes played by one slice, as their numbers.
    std::vector<int> notes(std::int32_t start, std::int32_t end)
    {
        player.events.clear();
        engine.playTimeSlice(start, end);
        std::vector<int> numbers;
        for (const auto& event : player.events) numbers.push_back(event.getD1());
        return numbers;
    }
    void add(const OrvMidiMessage& event) { engine.appendTimedEvent(event); }
};

using Notes = std::vector<int>;
}  // namespace

TEST(TimeSlice, AnUntimedEventPlaysAtTheFirstPulseOfTheNextSlice)
{
    Engine stage;
    stage.add(noteOn(60, 0, 0));
    EXPECT_EQ(stage.notes(100, 110), Notes{});
    EXPECT_EQ(stage.notes(110, 111), Notes{60});
    EXPECT_EQ(stage.player.events.front().getPpq(), 110);
}

TEST(TimeSlice, PlaysTimedEventsInPulseOrderAndThoseOfOnePulseInOrderOfArrival)
{
    Engine stage;
    stage.add(noteOn(3, 0, 0, 105));
    stage.add(noteOn(1, 0, 0, 102));
    stage.add(noteOn(4, 0, 0, 105));
    stage.add(noteOn(9, 0, 0, 110));
    EXPECT_EQ(stage.notes(100, 110), (Notes{1, 3, 4})) << "the slice's end belongs to the next";
    EXPECT_EQ(stage.notes(110, 120), Notes{9});
}

TEST(TimeSlice, OfMaximumLengthPlaysNothingAndLosesNothing)
{
    Engine stage;
    stage.add(noteOn(60, 0, 0, 5998));
    stage.add(noteOn(61, 0, 0, 1000));
    EXPECT_EQ(stage.notes(1000, 6000), Notes{});
    EXPECT_EQ(stage.notes(1000, 5999), (Notes{61, 60}));
}

TEST(TimeSlice, OfNoLengthDrainsAndPlaysNothing)
{
    Engine stage;
    stage.add(noteOn(60, 0, 0));
    EXPECT_EQ(stage.notes(100, 100), Notes{});
    EXPECT_EQ(stage.notes(100, 101), Notes{60});
}

TEST(TimeSlice, ABackwardClockLetsOffWhatItWouldLeaveBehind)
{
    Engine stage;
    // 1000 to 1009, nothing before 500; then 490 to 499, everything older.
    for (const std::int32_t ppq : {1010, 1009, 700, 500, 499, 489, 10}) stage.add(noteOn(ppq % 128, 0, 0, ppq));
    EXPECT_EQ(stage.notes(1000, 500), (Notes{700 % 128, 500 % 128, 1009 % 128, 489 % 128, 10, 499 % 128}));
    EXPECT_EQ(stage.notes(1010, 1011), Notes{1010 % 128});
}

TEST(TimeSlice, EndsWithTheLastPulseThatCanBeCounted)
{
    constexpr std::int32_t LAST = std::numeric_limits<std::int32_t>::max();
    Engine stage;
    stage.add(noteOn(60, 0, 0, LAST));
    EXPECT_EQ(stage.notes(LAST - 2, LAST), Notes{});
    EXPECT_EQ(stage.notes(LAST, std::numeric_limits<std::int32_t>::min()), Notes{60});
    EXPECT_EQ(TheEngine::milliseconds2Ppq(1e12, 250), LAST);
    EXPECT_EQ(TheEngine::milliseconds2Ppq(-1e12, 250), 0);
}

TEST(TimeSlice, KeepsWhatIsOlderThanItselfForABackwardClock)
{
    Engine stage;
    stage.add(noteOn(60, 0, 0, 50));
    EXPECT_EQ(stage.notes(100, 110), Notes{});
    EXPECT_EQ(stage.notes(110, 100), Notes{60});
}

TEST(TimeSlice, TurnsMillisecondsIntoPulses)
{
    EXPECT_EQ(TheEngine::milliseconds2Ppq(1000.0, 120), 50000960);
    EXPECT_EQ(TheEngine::milliseconds2Ppq(0.0, 250), 50000000);
    EXPECT_EQ(TheEngine::milliseconds2Ppq(0.53, 120), 50000001) << "rounded to the nearest";
}

TEST(TimeSlice, AllocatesNothingInTheSteadyState)
{
    Engine stage;
    const auto window = std::make_shared<MessageQueue>(1024);
    stage.engine.setGuiWindowHandle(WindowHandle(window));
    const PrivateFolders folders;
    RetroRecord::RetroRecordManager recorder([] { return 0u; }, RetroRecord::Restore::no);
    recorder.start(true, 100000, (folders / "record").string());
    recorder.setOutputs(MidiOutputPorts(4));
    EngineRecorder engineRecorder(recorder);
    stage.engine.setEventRecorder(&engineRecorder);
    std::vector<Layers::Layer> layers(7);
    MessageQueue controls(1024);
    Controls::ControlUpdates updates(controls);
    updates.setFollowed(Controls::defaultControls());
    stage.engine.setControlUpdates(&updates);
    layers[0].mono = true;
    layers[1].minVelocity = 30;
    layers[2].toggle.mode = NoteToggle::Mode::type2;
    for (std::size_t type = 0; type < 4; ++type) {
        layers[3 + type].arpeggio = {static_cast<ArpeggioManagement::ArpeggioSetting::Type>(type), 2, 1};
        layers[3 + type].sequenceSetting.setSequenceText("0,7|12,-");
    }
    stage.engine.setLayerList(layers);
    stage.player.events.reserve(200000);
    std::uint64_t counted = 0;
    std::int32_t ppq = 1000;
    for (int round = 0; round < 400; ++round) {
        for (int i = 0; i < 32; ++i)
            stage.add(i % 2 == 0 ? noteOn(round % 100, -1, i / 2 % 16 - 1) : noteOff(round % 100, -1, i / 2 % 16 - 1));
        for (const MessageType type : {MessageType::noteOn, MessageType::noteOff})
            stage.add({type, round % 100, 99, -1, -1, 1, -1, -1});
        stage.add({MessageType::controllerChange, 7, round % 100, -1, -1, 1, -1, -1});
        stage.add(noteOn(5, 1, 0, ppq + 40));
        const auto before = allocationsOfThisThread();
        for (int slice = 0; slice < 8; ++slice, ppq += 4) stage.engine.playTimeSlice(ppq, ppq + 4);
        if (round >= 200) counted += allocationsOfThisThread() - before;
        while (window->handleNext([](Message&) {})) {}
        while (!recorder.getWorker().rest().resting) std::this_thread::yield();
        while (controls.handleNext([](Message&) {})) {}
    }
    stage.engine.setEventRecorder(nullptr);
    EXPECT_EQ(counted, 0u);
    EXPECT_EQ(controls.handledCount(), 400u);
    EXPECT_GT(stage.player.events.size(), 6000u);
}

TEST(DirectPath, FillsInTheDefaultsAndDropsWhatHasNoPort)
{
    Stage stage;
    stage.play(noteOn(60, 1, -1));
    stage.play(noteOn(62, -1, 4));
    stage.play({MessageType::pitchBend, 1, 2, 3, 2, -1, -1, -1});
    EXPECT_EQ(stage.played(), "C4 on on output 1, D4 on channel 4, Pitch Bend 1 2 on output 2 channel 3");

    stage.play(noteOn(60, 3, 0));
    stage.play(noteOn(60, 127, 0));
    OrvMidiMessage strange = noteOn(60, 0, 0);
    strange.setChannel(16);
    stage.play(strange);
    strange = noteOn(60, -2, 0);
    stage.play(strange);
    stage.setOutputEnabled(2, false);
    stage.play({MessageType::controllerChange, 7, 9, 0, 2, -1, -1, -1});
    EXPECT_EQ(stage.played(), "");
}

TEST(DirectPath, ADefaultOutputThatNoPortCanHaveIsNone)
{
    Engine stage;
    stage.engine.setDefaultMidiOutput(256);  // not output 0, to which its low byte would lead
    stage.add(noteOn(60, -1, 0, 10));
    EXPECT_EQ(stage.notes(10, 11), Notes{});
}

TEST(DirectPath, AnEventForTheLayersIsSilentWithoutLayers)
{
    Stage stage;
    stage.setLayers({});
    stage.play(noteOn(60, -1, -1));
    EXPECT_EQ(stage.played(), "");
}

TEST(NoteCounting, SendsEveryNoteOnAndEveryNoteOff)
{
    Stage stage;
    for (int i = 0; i < 2; ++i) stage.play(noteOn(60, 0, 0));
    for (int i = 0; i < 3; ++i) stage.play(noteOff(60, 0, 0));
    EXPECT_EQ(stage.played(), "C4 on, C4 on, C4 off, C4 off, C4 off");
}

TEST(NoteCounting, AResetEndsEachSoundingNoteOnceFromTheLowestUp)
{
    Stage stage;
    for (const auto& event :
         {noteOn(64, 2, 1), noteOn(60, 0, 3), noteOn(60, 0, 3), noteOn(62, 0, 0), noteOn(70, 1, 5), noteOff(70, 1, 5)})
        stage.play(event);
    stage.played();
    stage.playWhile([&] { stage.engine().sendReset(); });
    ASSERT_FALSE(stage.player.events.empty());
    EXPECT_EQ(stage.player.events.front().getD2(), 100);
    EXPECT_EQ(stage.takePlayed(), "D4 off, C4 off channel 3, E4 off on output 2 channel 1");
    stage.playWhile([&] { stage.engine().sendReset(); });
    EXPECT_EQ(stage.takePlayed(), "");
}

TEST(Reset, RunsBeforeTheNotesThatWereQueuedBeforeIt)
{
    Stage stage;
    stage.play(noteOn(60, 0, 0));
    stage.played();
    stage.play(noteOn(64, 0, 0));
    stage.commands().postResetOrv();
    stage.rest();
    EXPECT_EQ(stage.takePlayed().substr(0, 7), "C4 off,") << "served by a slice of no length";
    EXPECT_EQ(stage.played(), "E4 on");
}

TEST(Reset, AHardOneGoesToTheDefaultOutputAlone)
{
    Stage stage;
    stage.commands().postChangeDefaultMidiOutput({SelectType::Kind::specific, 1});
    stage.commands().postResetOrv();
    stage.rest();
    ASSERT_EQ(stage.player.events.size(), 33u);
    for (const auto& event : stage.player.events) EXPECT_EQ(event.getOutput(), 1);
    const auto text = stage.takePlayed();
    EXPECT_TRUE(
        text.starts_with("Controller Change 120 0 on output 1, Controller Change 121 0 on output 1, "
                         "Controller Change 120 0 on output 1 channel 1,"))
        << text;
    EXPECT_TRUE(text.ends_with("System Reset 0 0 on output 1")) << text;
}

TEST(Reset, PutsTheTempoSourceBackWhenTheLastOfSeveralIsDone)
{
    Stage stage;
    stage.commands().postSetTempoSource(2, false);
    stage.rest();
    stage.player.requests.clear();
    std::atomic<int> waiting{2};
    const auto reset = [&] {
        stage.engine().sendReset();
        --waiting;
    };
    std::thread one(reset);
    std::thread two(reset);
    while (!stage.orv->isResetWaiting()) std::this_thread::yield();
    EXPECT_EQ(stage.player.tempoSource, -1);
    stage.engine().postSetTempoSource(1);
    while (waiting > 0) {
        stage.slice(1);
        std::this_thread::yield();
    }
    one.join();
    two.join();
    stage.rest();
    EXPECT_EQ(stage.player.tempoSource, 1) << "what was chosen meanwhile holds";
}

TEST(Reset, OnThePlayingThreadRunsAtOnce)
{
    Stage stage;
    stage.play(noteOn(60, 0, 0));
    stage.played();
    stage.engine().sendReset();
    EXPECT_EQ(stage.takePlayed(), "C4 off");
}

TEST(Reset, BeforeTheFirstSliceRunsOnAnyThread)
{
    Engine stage;
    stage.player.thread = 0;
    EXPECT_TRUE(stage.engine.isMidiPlayerThread());
    stage.engine.setDefaultMidiOutput(-1);
    stage.engine.sendHardReset();
    ASSERT_EQ(stage.player.events.size(), 33u) << "also without a default output";
    EXPECT_EQ(stage.player.events.back().getOutput(), -1);
    stage.engine.playTimeSlice(0, 1);
    EXPECT_FALSE(stage.engine.isMidiPlayerThread());
}

TEST(Window, SeesEveryEventThatIsPlayedAndNoneAfterItIsGone)
{
    Stage stage;
    const auto window = std::make_shared<MessageQueue>(16);
    stage.orv->setGuiWindowHandle(WindowHandle(window));
    stage.play(noteOn(60, 1, 2));
    stage.played();
    std::string seen;
    while (window->handleNext([&](Message& message) {
        if (message.number != GuiMessage::MIDI_OUTPUT_EVENT) return;
        const OrvMidiMessage event(message.wparam, message.lparam);
        seen += event.getEventName() + " " + std::to_string(event.getD1()) + " " + std::to_string(event.getOutput());
    })) {}
    EXPECT_EQ(seen, "Note On 60 1");
    stage.commands().postRemoveGuiWindowHandle();
    stage.play(noteOff(60, 1, 2));
    stage.played();
    EXPECT_TRUE(window->isDrained());
}
