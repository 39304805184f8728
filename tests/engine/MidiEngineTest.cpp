#include <limits>

#include "backend/core/EngineRecorder.h"
#include "backend/model/NoteActivity.h"
#include "backend/model/OscList.h"
#include "tests/engine/EngineStage.h"
#include "tests/stage/Allocations.h"

using namespace Backend;
using namespace Backend::MidiEngine;
using TheEngine = Backend::MidiEngine::MidiEngine;

namespace
{
TestEvent note(int number, std::int32_t ppq = -1) { return noteOn(number).output(0).channel(0).pulse(ppq); }
}  // namespace

TEST(TimeSlice, AnUntimedEventPlaysAtTheFirstPulseOfTheNextSlice)
{
    EngineStage stage;
    stage.add(note(60));
    EXPECT_EQ(stage.slice(100, 100), "") << "a slice of no length finds it and plays nothing";
    EXPECT_EQ(stage.slice(100, 110), "60");
    stage.add(note(61));
    EXPECT_EQ(stage.slice(110, 120), "");
    EXPECT_EQ(stage.slice(120, 121), "61");
    EXPECT_EQ(stage.player.events.front().getPpq(), 120);
}

TEST(TimeSlice, PlaysTimedEventsInPulseOrderAndThoseOfOnePulseInOrderOfArrival)
{
    EngineStage stage;
    for (const auto& [number, ppq] : {std::pair{3, 105}, {1, 102}, {4, 105}, {9, 110}}) stage.add(note(number, ppq));
    EXPECT_EQ(stage.slice(100, 110), "1 3 4") << "the slice's end belongs to the next";
    EXPECT_EQ(stage.slice(110, 120), "9");
}

TEST(TimeSlice, OfMaximumLengthPlaysNothingAndLosesNothing)
{
    EngineStage stage;
    stage.add(note(60, 5998));
    stage.add(note(61, 1000));
    EXPECT_EQ(stage.slice(1000, 6000), "");
    EXPECT_EQ(stage.slice(1000, 5999), "61 60");
}

TEST(TimeSlice, OfABackwardClockPlaysWhatItWouldLeaveBehind)
{
    EngineStage stage;
    // 1000 to 1009, nothing before 500; then 490 to 499, everything older.
    for (const std::int32_t ppq : {1010, 1009, 700, 500, 499, 489, 10}) stage.add(note(ppq % 128, ppq));
    EXPECT_EQ(stage.slice(1000, 500), "60 116 113 105 10 115");
    EXPECT_EQ(stage.slice(1010, 1011), "114");
    stage.add(note(60, 50));
    EXPECT_EQ(stage.slice(1100, 1110), "") << "what is older than a slice waits for a backward clock";
    EXPECT_EQ(stage.slice(1110, 100), "60");
}

TEST(TimeSlice, EndsWithTheLastPulseThatCanBeCounted)
{
    constexpr std::int32_t LAST = std::numeric_limits<std::int32_t>::max();
    EngineStage stage;
    stage.add(note(60, LAST));
    EXPECT_EQ(stage.slice(LAST - 2, LAST), "");
    EXPECT_EQ(stage.slice(LAST, std::numeric_limits<std::int32_t>::min()), "60");
    EXPECT_EQ(TheEngine::milliseconds2Ppq(1e12, 250), LAST);
    EXPECT_EQ(TheEngine::milliseconds2Ppq(-1e12, 250), 0);
    EXPECT_EQ(TheEngine::milliseconds2Ppq(1000.0, 120), 50000960);
    EXPECT_EQ(TheEngine::milliseconds2Ppq(0.0, 250), 50000000);
    EXPECT_EQ(TheEngine::milliseconds2Ppq(0.53, 120), 50000001) << "rounded to the nearest";
}

TEST(TimeSlice, AllocatesNothingInTheSteadyState)
{
    EngineStage stage;
    stage.engine.setGuiWindowHandle(stage.window.handle());
    const PrivateFolders folders;
    RetroRecord::RetroRecordManager recorder([] { return 0u; }, RetroRecord::Restore::no);
    recorder.start(true, 100000, (folders / "record").string());
    recorder.setOutputs(MidiOutputPorts(4));
    EngineRecorder engineRecorder(recorder);
    stage.engine.setEventRecorder(&engineRecorder);
    std::vector<Layers::Layer> layers(7);
    MessageQueue controls(1024);
    Controls::ControlUpdates updates(controls);
    Controls::ControlMap followed;
    followed.put({.functions = {{.midiEvent = MidiMessage(MessageType::controllerChange, 7)}}});
    updates.setFollowed(followed);
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
        const int number = round % 100;
        for (int channel = -1; channel < 15; ++channel) {
            stage.add(noteOn(number).channel(channel));
            stage.add(noteOff(number).channel(channel));
        }
        stage.add(noteOn(number, 99).zone(1));
        stage.add(noteOff(number, 99).zone(1));
        stage.add(controller(7, number).zone(1));
        stage.add(noteOn(5).output(1).channel(0).pulse(ppq + 40));
        const auto before = allocationsOfThisThread();
        for (int slice = 0; slice < 8; ++slice, ppq += 4) stage.engine.playTimeSlice(ppq, ppq + 4);
        if (round >= 200) counted += allocationsOfThisThread() - before;
        stage.window.received();
        while (!recorder.getWorker().rest().resting) std::this_thread::yield();
        while (controls.handleNext([](Message&) {})) {}
    }
    stage.engine.setEventRecorder(nullptr);
    EXPECT_EQ(counted, 0u);
    EXPECT_EQ(controls.handledCount(), 400u);
    EXPECT_GT(stage.player.events.size(), 6000u);
}

TEST(Rest, LastsUntilThereIsSomethingToPlayAndWakesTheClock)
{
    EngineStage stage;
    stage.engine.setMidiInputPorts(MidiInputPorts(1));
    stage.engine.setMidiTranslations(std::make_shared<const MidiInput::MidiEventConfigurationMap>());
    const OrvMidiMessage live = noteOn(61).channel(0).input(0);
    EXPECT_FALSE(stage.engine.tryRest()) << "no slice was played";
    stage.slice(0, 1);
    EXPECT_TRUE(stage.engine.playMidiInputEvent(live));
    EXPECT_TRUE(stage.engine.tryRest());
    stage.add(noteOn(60).channel(0));
    EXPECT_EQ(stage.player.takeRequests(), "wake 1");
    EXPECT_TRUE(stage.engine.playMidiInputEvent(live));
    EXPECT_EQ(stage.player.takeRequests(), "") << "it was woken already";
    EXPECT_FALSE(stage.engine.tryRest()) << "the note is queued";
    stage.slice(1, 20);
    EXPECT_FALSE(stage.engine.tryRest()) << "its pulse is the next one";
    EXPECT_EQ(stage.slice(20, 21), "60");

    Oscillators::OscList oscillators;
    oscillators.readXml(rootOf("<Oscillators><Oscillator midiMessage='Controller Change,1'/></Oscillators>"));
    stage.engine.setOscList(oscillators.getOscillators());
    std::vector<Layers::Layer> layers(1);
    layers[0].arpeggio = {ArpeggioManagement::ArpeggioSetting::Type::up, 2, 1};
    stage.engine.setLayerList(layers);
    stage.slice(21, 22);
    EXPECT_TRUE(stage.engine.tryRest());
    EXPECT_FALSE(stage.engine.playMidiInputEvent(live)) << "the pulse of the last slice is long over";
    stage.engine.setOscPlaying(0, true);
    EXPECT_EQ(stage.player.takeRequests(), "wake 1");
    EXPECT_FALSE(stage.engine.tryRest()) << "an oscillator plays";
    stage.engine.setOscPlaying(0, false);
    stage.add(noteOn(60));
    stage.slice(22, 24);
    stage.slice(24, 30);
    EXPECT_FALSE(stage.engine.tryRest()) << "an arpeggio plays";
}

TEST(DirectPath, DropsWhatHasNoPortAndWhatNoLayerTakes)
{
    EngineStage stage;
    const TestEvent toPort = noteOn(60).channel(0).pulse(10);
    OrvMidiMessage strange = toPort.output(0);
    strange.setChannel(16);
    stage.engine.appendTimedEvent(strange);
    for (const int port : {3, 127, -2}) stage.add(toPort.output(port));
    stage.add(noteOn(60).pulse(10));
    EXPECT_EQ(stage.slice(10, 11), "");
    stage.add(toPort);
    EXPECT_EQ(stage.slice(10, 11), "60") << "the default output";
    stage.engine.setDefaultMidiOutput(256);  // not output 0, to which its low byte would lead
    stage.add(toPort);
    EXPECT_EQ(stage.slice(10, 11), "");
}

TEST(Reset, OnThePlayingThreadRunsAtOnce)
{
    Stage stage;
    stage.play(note(60));
    stage.played();
    stage.engine().sendReset();
    EXPECT_EQ(stage.takePlayed(), "C4 off");
}

TEST(Reset, PutsTheTempoSourceBackWhenTheLastOfSeveralIsDone)
{
    Stage stage;
    stage.commands().postSetTempoSource(2, false);
    stage.rest();
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

TEST(Reset, BeforeTheFirstSliceRunsOnAnyThread)
{
    EngineStage stage;
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
    stage.openWindow();
    stage.play(noteOn(60).output(1).channel(2));
    stage.played();
    EXPECT_EQ(stage.received([](Message& message) -> std::string {
        if (message.number != GuiMessage::MIDI_OUTPUT_EVENT) return "";
        const OrvMidiMessage event(message.wparam, message.lparam);
        return event.getEventName() + " " + std::to_string(event.getD1()) + " " + std::to_string(event.getOutput());
    }),
              "Note On 60 1");
    stage.commands().postRemoveGuiWindowHandle();
    stage.play(noteOff(60).output(1).channel(2));
    stage.played();
    EXPECT_EQ(stage.received(), "");
}

TEST(Window, SeesWhichZonesAndLayersNotesPass)
{
    EngineStage stage;
    NoteActivity activity;
    const auto report = [&] {
        if (!stage.engine.takeNoteActivity(activity)) return std::string("the same");
        std::string text;
        const auto add = [&](const std::string& name, const NoteActivity::Notes& notes) {
            for (std::size_t note = 0; note < notes.size(); ++note)
                if (notes[note]) text += (text.empty() ? "" : ", ") + name + " " + std::to_string(note);
        };
        add("played", activity.played);
        for (std::size_t zone = 0; zone < 4; ++zone) add("zone " + std::to_string(zone), activity.zones[zone]);
        for (std::size_t layer = 0; layer < 3; ++layer) add("layer " + std::to_string(layer), activity.layers[layer]);
        return text;
    };
    const auto after = [&](std::initializer_list<TestEvent> events) {
        for (const TestEvent& event : events) stage.add(event.pulse(0));
        stage.slice(0, 1);
        return report();
    };
    stage.engine.setZoneMap({{.id = 2, .transpose = 12}});
    std::vector<Layers::Layer> layers(3);
    for (std::size_t layer = 0; layer < layers.size(); ++layer) layers[layer].id = static_cast<Layers::LayerId>(layer);
    layers[0].minNote = Note(100);
    layers[1].transpose.value = -5;
    layers[2].mute = true;
    stage.engine.setLayerList(layers);
    report();
    EXPECT_EQ(after({noteOn(40)}), "the same") << "nobody watches";
    stage.engine.watchNotes(true);
    EXPECT_EQ(after({noteOff(40), noteOn(60).zone(2)}), "played 72, zone 2 72, layer 1 72");
    EXPECT_EQ(report(), "the same");
    EXPECT_EQ(after({noteOn(72).input(1)}), "played 72, zone 2 72, layer 1 72");
    EXPECT_EQ(after({noteOff(60).zone(2)}), "played 72, layer 1 72") << "another input holds it";
    EXPECT_EQ(after({noteOff(72).input(1)}), "");
    EXPECT_EQ(after({noteOn(9).channel(3), noteOff(9).channel(3)}), "played 9") << "it was short, without a layer";
    EXPECT_EQ(report(), "");
    after({noteOn(101)});
    stage.engine.sendReset();
    EXPECT_EQ(report(), "");

    layers.resize(1);
    layers[0].minNote = Note(0);
    layers[0].arpeggio = {.beat = 10, .length = 4};
    stage.engine.setLayerList(layers);
    EXPECT_EQ(after({noteOn(64)}), "played 64, layer 0 64");
    stage.slice(1, 9);
    EXPECT_EQ(report(), "played 64") << "the arpeggio is between two notes";
}
