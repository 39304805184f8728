#include "api/OrvFactory.h"
#include "backend/files/GuiStart.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/MessageManagerMaster.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;

TEST(Orv, PostsBeforeTheStartWaitAndThoseOfManyThreadsKeepTheirOrder)
{
    const PrivateFolders folders;
    RecordingPlayer player;
    const std::unique_ptr<OrvIF> orv(OrvFactory::createOrv("Test", player, true));
    auto& commands = orv->getOrvMessageManager();
    std::vector<std::thread> hands;
    for (int hand = 0; hand < 3; ++hand)
        hands.emplace_back([&, hand] {
            for (int note = 0; note < 100; ++note) commands.postPlayMidi(noteOn(note, 1).output(0).channel(hand));
        });
    for (auto& hand : hands) hand.join();
    orv->start();
    commands.sendInitialize();
    commands.sendSetMidiOutputPorts({{{.name = "Out"}}});
    commands.sendEndInitialize();
    while (!orv->isAtRest()) std::this_thread::yield();
    orv->playTimeSlice(100, 101);
    orv->playTimeSlice(101, 102);

    ASSERT_EQ(player.events.size(), 300u);
    std::array<int, 3> next{};
    for (const auto& event : player.events) EXPECT_EQ(event.getD1(), next[static_cast<unsigned>(event.getChannel())]++);
    commands.sendEnd();
    orv->stop();
}

TEST(Orv, MakesTheWindowThatItWasGivenWithWhatItKnowsAndLaterSendsItAll)
{
    static GuiStart start;
    static char made;
    OrvFactory::setGuiFactory([](OrvIF&, GuiStart known) {
        start = std::move(known);
        return reinterpret_cast<Gui::OrvGuiIF*>(&made);  // it is not used
    });
    Stage stage;
    OrvFactory::setGuiFactory(nullptr);
    stage.commands().postSetScreenState({.system = false, .zones = true});
    stage.commands().postChangeTempo({false, 99}, false);
    EXPECT_EQ(static_cast<void*>(stage.commands().sendCreateOrvGui(true)), &made);
    EXPECT_TRUE(start.isVstPlugin);
    EXPECT_EQ(start.program.tempo, 99);
    EXPECT_EQ(start.outputs, stage.orv->getMidiOutputPorts());
    EXPECT_EQ(start.screens, (ScreenState{.system = false, .zones = true}));
    EXPECT_EQ(Stage().commands().sendCreateOrvGui(false), nullptr) << "a backend that has none";

    stage.openWindow();
    stage.commands().postRefreshGui();
    using namespace GuiMessage;
    EXPECT_EQ(stage.received(TestWindow::number), TestWindow::numbers({SETTINGS,          MIDI_INPUT_PORTS,
                                                                       MIDI_OUTPUT_PORTS, BANK,
                                                                       PROGRAM,           SET_LIST,
                                                                       PROGRAM_EDITED,    OSCILLATORS,
                                                                       PRESETS,           JOYSTICK_BUTTONS,
                                                                       JOYSTICK_AXES,     JOYSTICK_ENABLED,
                                                                       JOYSTICK_DEVICE,   JOYSTICK_ENABLED,
                                                                       JOYSTICK_DEVICE,   PRESETS,
                                                                       COMPUTER_INPUT,    COMPUTER_INPUT_CHANGED,
                                                                       PRESETS,           MIDI_INPUT,
                                                                       PRESETS,           CONTROLS,
                                                                       PRESETS,           LAYERS,
                                                                       PRESETS,           ZONES,
                                                                       SECTION_PRESET,    SECTION_PRESET,
                                                                       SECTION_PRESET,    SECTION_PRESET,
                                                                       SECTION_PRESET,    SECTION_PRESET}))
        << "all sections, with their presets";
}

TEST(Orv, EndsWhileSlicesRunAndCommandsPour)
{
    for (int round = 0; round < 20; ++round) {
        Stage stage;
        std::atomic<bool> pouring{true};
        std::thread hand([&] {
            while (pouring) {
                stage.commands().postProcessMidiInputEvent(noteOn(60).channel(0).input(0));
                std::this_thread::yield();
            }
        });
        stage.playWhile([&] {
            stage.commands().postEnableMidiInput(0, false);
            stage.engine().sendReset();
            stage.commands().sendEnd();
            stage.orv->stop();
        });
        pouring = false;
        hand.join();
        stage.commands().sendEndInitialize();  // returns, although nothing executes it
    }
}

TEST(Orv, AnUnknownMessageIsIgnored)
{
    Stage stage;
    auto& master = stage.orv->getMessageManagerMaster();
    for (const unsigned number : {1u, 33217u, 33218u, 33275u, 40000u}) master.postMessage(number, 1, 2);
    for (const unsigned number : {33257u, 33264u}) master.post({.number = number});  // a row without its payload
    stage.press("C4");
    EXPECT_EQ(stage.played(), "C4 on");
}

TEST(Orv, AnEventFromAControlOrWithAPulseArrivesWhole)
{
    Stage stage;
    stage.play({MidiMessage(MessageType::controllerChange, 7, 9), 0, 1, -1, {2, 3}});
    stage.play(noteOn(60).output(0).channel(0).pulse(stage.pulse + 5));
    stage.arrive(noteOn(62).channel(0).input(1).pulse(stage.pulse + 5));
    stage.playSlices(2);
    ASSERT_EQ(stage.player.events.size(), 1u);
    EXPECT_EQ(stage.player.events[0].getFromControl(), (Cell{2, 3}));
    stage.playSlices(4);
    ASSERT_EQ(stage.player.events.size(), 3u);
    for (const std::size_t timed : {1u, 2u}) EXPECT_EQ(stage.player.events[timed].getPpq(), stage.pulse - 1);
}

TEST(Tempo, IsTakenWithinItsLimitsAndReachesTheHost)
{
    Stage stage;
    for (const auto& [change, tempo] : {std::pair<RelativeFixedValue, int>{{true, 0}, 120},
                                        {{false, 250}, 250},
                                        {{false, 251}, 250},
                                        {{true, -5}, 245},
                                        {{true, 10}, 245},
                                        {{true, 2147483647}, 245},
                                        {{false, 20}, 20},
                                        {{false, 19}, 20}}) {
        if (change.value != 0) stage.commands().postChangeTempo(change, false);
        stage.rest();
        EXPECT_EQ(stage.orv->getTempo(), tempo) << change.toXmlString();
    }
    EXPECT_EQ(stage.player.takeRequests(), "tempo 250, tempo 245, tempo 20");
}

TEST(Tempo, ComesFromTheClockInsideOrFromAnInput)
{
    Stage stage;
    for (const auto& [source, current] : {std::pair{2, 2}, {3, 2}, {-2, 2}, {-1, -1}}) {
        stage.commands().postSetTempoSource(source, false);
        stage.rest();
        EXPECT_EQ(stage.orv->getTempoSource(), current) << source;
    }
    EXPECT_EQ(stage.player.takeRequests(), "source 2, source -1") << "there are three inputs";
}

TEST(Gui, ReceivesChangesWhenAskedTo)
{
    Stage stage;
    auto& commands = stage.commands();
    const auto received = [&] { return stage.received(TestWindow::number); };
    stage.openWindow();
    commands.postChangeTempo({false, 90}, true);
    commands.postChangeTempo({false, 91}, false);
    commands.postChangeTempo({false, 900}, true);
    commands.postSetTempoSource(1, true);
    commands.postChangeMidiThru({OnOffToggle::State::toggle}, true);
    commands.postChangeMidiThru({OnOffToggle::State::toggle}, false);
    commands.postChangeDefaultMidiOutput({SelectType::Kind::up});
    commands.postEnableMidiInput(1, false);
    commands.postEnableMidiOutput(1, false);
    using namespace GuiMessage;
    EXPECT_EQ(received(), TestWindow::numbers(
                              {PROGRAM, PROGRAM, Settings::MIDI_THRU.number, DEFAULT_MIDI_OUTPUT, MIDI_INPUT_PORTS}));
    EXPECT_TRUE(stage.orv->getRegistrySettings().getMidiThru()) << "toggled twice";

    auto ports = stage.outputs({"Out 1", "Out 2"});
    ports[1].enabled = false;
    commands.sendSetMidiOutputPorts(ports);
    EXPECT_EQ(received(), TestWindow::numbers({DEFAULT_MIDI_OUTPUT, MIDI_OUTPUT_PORTS}));
    commands.postResetOrv();
    EXPECT_TRUE(received().ends_with(std::to_string(ORV_RESET)));
}
