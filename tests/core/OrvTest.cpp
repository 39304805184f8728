#include "api/OrvFactory.h"

#include <gtest/gtest.h>

#include <thread>

#include "backend/files/GuiStart.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/model/Program.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;

namespace
{
std::vector<unsigned> messagesOf(MessageQueue& window)
{
    std::vector<unsigned> numbers;
    while (window.handleNext([&](Message& message) { numbers.push_back(message.number); })) {}
    return numbers;
}
}  // namespace

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
        return reinterpret_cast<Gui::OrvGuiIF*>(&made);  // nobody looks into it
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

    const auto window = std::make_shared<MessageQueue>();
    stage.orv->setGuiWindowHandle(WindowHandle(window));
    stage.commands().postRefreshGui();
    stage.rest();
    using namespace GuiMessage;
    EXPECT_EQ(messagesOf(*window),
              (std::vector<unsigned>{SETTINGS,      MIDI_INPUT_PORTS, MIDI_OUTPUT_PORTS, BANK,
                                     PROGRAM,       OSCILLATORS,      PRESETS,           JOYSTICK_BUTTONS,
                                     JOYSTICK_AXES, PRESETS,          COMPUTER_INPUT,    COMPUTER_INPUT_CHANGED,
                                     PRESETS,       MIDI_INPUT,       PRESETS,           CONTROLS,
                                     PRESETS,       LAYERS,           PRESETS,           ZONES}))
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
        stage.commands().sendEndInitialize();  // returns, although nobody is there to do it
    }
}

TEST(Orv, AnUnknownMessageIsIgnored)
{
    Stage stage;
    for (const unsigned number : {1u, 33217u, 33218u, 33275u, 40000u})
        stage.orv->getMessageManagerMaster().postMessage(number, 1, 2);
    stage.orv->getMessageManagerMaster().post({.number = 33257});  // a row may come without its payload
    stage.orv->getMessageManagerMaster().post({.number = 33264});
    stage.press("C4");
    EXPECT_EQ(stage.played(), "C4 on");
}

TEST(Orv, AnEventFromAControlOrWithAPulseArrivesWhole)
{
    Stage stage;
    stage.play({MidiMessage(MessageType::controllerChange, 7, 9), 0, 1, -1, {2, 3}});
    stage.commands().postPlayMidi(noteOn(60).output(0).channel(0).pulse(stage.pulse + 5));
    stage.commands().postProcessMidiInputEvent(noteOn(62).channel(0).input(1).pulse(stage.pulse + 5));
    stage.rest();
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
    const auto change = [&](bool relative, int value) {
        stage.commands().postChangeTempo({relative, value}, false);
        stage.rest();
        return stage.orv->getTempo();
    };
    EXPECT_EQ(stage.orv->getTempo(), 120);
    EXPECT_EQ(change(false, 250), 250);
    EXPECT_EQ(change(false, 251), 250);
    EXPECT_EQ(change(true, -5), 245);
    EXPECT_EQ(change(true, 10), 245);
    EXPECT_EQ(change(true, 2147483647), 245);
    EXPECT_EQ(change(false, 20), 20);
    EXPECT_EQ(change(false, 19), 20);
    EXPECT_EQ(stage.player.requests, (std::vector<std::string>{"tempo 250", "tempo 245", "tempo 20"}));
}

TEST(Tempo, ComesFromTheClockInsideOrFromAnInput)
{
    Stage stage;
    const auto choose = [&](int source) {
        stage.commands().postSetTempoSource(source, false);
        stage.rest();
        return stage.orv->getTempoSource();
    };
    EXPECT_EQ(choose(2), 2);
    EXPECT_EQ(choose(3), 2) << "there are three inputs";
    EXPECT_EQ(choose(-2), 2);
    EXPECT_EQ(choose(-1), -1);
    EXPECT_EQ(stage.player.requests, (std::vector<std::string>{"source 2", "source -1"}));
}

TEST(Gui, ReceivesChangesWhenAskedTo)
{
    Stage stage;
    const auto window = std::make_shared<MessageQueue>(64);
    stage.orv->setGuiWindowHandle(WindowHandle(window));
    stage.commands().postChangeTempo({false, 90}, true);
    stage.commands().postChangeTempo({false, 91}, false);
    stage.commands().postChangeTempo({false, 900}, true);
    stage.commands().postSetTempoSource(1, true);
    stage.commands().postChangeMidiThru({OnOffToggle::State::toggle}, true);
    stage.commands().postChangeMidiThru({OnOffToggle::State::toggle}, false);
    stage.commands().postChangeDefaultMidiOutput({SelectType::Kind::up});
    stage.commands().postEnableMidiInput(1, false);
    stage.commands().postEnableMidiOutput(1, false);
    stage.rest();
    using namespace GuiMessage;
    EXPECT_EQ(messagesOf(*window),
              (std::vector<unsigned>{PROGRAM, PROGRAM, MIDI_THRU, DEFAULT_MIDI_OUTPUT, MIDI_INPUT_PORTS}));
    EXPECT_TRUE(stage.orv->getRegistrySettings().getMidiThru()) << "toggled twice";

    auto ports = stage.outputs({"Out 1", "Out 2"});
    ports[1].enabled = false;
    stage.commands().sendSetMidiOutputPorts(ports);
    EXPECT_EQ(messagesOf(*window), (std::vector<unsigned>{DEFAULT_MIDI_OUTPUT, MIDI_OUTPUT_PORTS}));
    stage.commands().postResetOrv();
    stage.rest();
    EXPECT_EQ(messagesOf(*window).back(), static_cast<unsigned>(ORV_RESET));
}
