#include <gtest/gtest.h>

#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/model/Screen.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;

namespace
{
/// A stage whose commands come as bare messages, in two parameters, from a host that knows their numbers.
struct CommandStage : Stage {
    std::shared_ptr<MessageQueue> window = std::make_shared<MessageQueue>(64);

    CommandStage() { orv->setGuiWindowHandle(WindowHandle(window)); }

    void post(unsigned number, std::uint32_t wparam = 0, std::int32_t lparam = 0)
    {
        orv->getMessageManagerMaster().postMessage(number, wparam, lparam);
        rest();
    }
    void postEvent(unsigned number, const OrvMidiMessage& event) { post(number, event.getWparam(), event.getLparam()); }

    /// What the window was told, "number:first parameter" each.
    std::string told()
    {
        std::string text;
        while (window->handleNext([&](Message& message) {
            text += std::to_string(message.number) + ":" + std::to_string(message.wparam) + " ";
        })) {}
        return text;
    }
};
}  // namespace

TEST(Commands, WithASettingStoreItUnderTheirNumberAndTellTheWindowThatShowsIt)
{
    constexpr auto NOTHING = 0u;
    using Settings = const RegistrySettings&;
    const struct {
        unsigned number;
        std::vector<unsigned> values;
        unsigned notice;
        unsigned (*stored)(Settings);
    } ROWS[] = {
        {33229, {1, 0}, GuiMessage::DOCK_TO_BOTTOM_EDGE, [](Settings s) { return unsigned{s.getDockToBottomEdge()}; }},
        {33231, {77}, NOTHING, [](Settings s) { return static_cast<unsigned>(s.getDisplayHeight()); }},
        {33232, {1, 0}, NOTHING, [](Settings s) { return unsigned{s.getDisplayNumbers()}; }},
        {33233, {1, 0}, GuiMessage::LARGE_DISPLAY_FONT, [](Settings s) { return unsigned{s.getLargeDisplayFont()}; }},
        {33234, {1, 0}, NOTHING, [](Settings s) { return unsigned{s.getDisplayMidiInputEvents()}; }},
        {33235, {1, 0}, NOTHING, [](Settings s) { return unsigned{s.getDisplayMidiOutputEvents()}; }},
        {33236, {1, 0}, GuiMessage::ALWAYS_ON_TOP, [](Settings s) { return unsigned{s.getAlwaysOnTop()}; }},
        {33260, {1, 0}, GuiMessage::USE_SKIN_BORDER, [](Settings s) { return unsigned{s.getUseSkinBorder()}; }},
        {33262,
         {1000, 5000},
         GuiMessage::RETRO_RECORD_BUFFER_SIZE,
         [](Settings s) { return static_cast<unsigned>(s.getRetroRecordBufferSize()); }},
        {33263,
         {0, 1},
         GuiMessage::RETRO_RECORD_ENABLED,
         [](Settings s) { return unsigned{s.isRetroRecordEnabled()}; }},
        {33268,
         {3},
         GuiMessage::MOUSE_SENSITIVITY,
         [](Settings s) { return static_cast<unsigned>(s.getMouseSensitivity()); }},
        {33269, {64}, NOTHING, [](Settings s) { return static_cast<unsigned>(s.getLiteVelocity()); }},
        {33270, {9}, NOTHING, [](Settings s) { return static_cast<unsigned>(s.getLiteChannel()); }},
        {33271, {1, 0}, NOTHING, [](Settings s) { return unsigned{s.getLiteStackNotes()}; }},
        {33272, {1, 0}, GuiMessage::CLICK_ZONE_CHANNEL_TRANSPOSE, [](Settings s) {
             return unsigned{s.getClickZoneChannelTranspose()};
         }}};
    CommandStage stage;
    for (const auto& [number, values, notice, stored] : ROWS)
        for (const unsigned value : values) {
            stage.post(number, value);
            EXPECT_EQ(stored(stage.orv->getRegistrySettings()), value) << number;
            const std::string expected =
                notice == NOTHING ? "" : std::to_string(notice) + ":" + std::to_string(value) + " ";
            EXPECT_EQ(stage.told(), expected) << number;
        }
}

TEST(Commands, OfThePortsTheTempoAndTheScreenActUnderTheirNumber)
{
    CommandStage stage;
    stage.post(33249, 1, 0);
    stage.post(33250, 2, 0);
    stage.post(33267, 2, 1);
    EXPECT_EQ(stage.player.wishes, (std::vector<std::string>{"input 1 off", "output 2 off", "source 2"}));
    EXPECT_FALSE(stage.orv->getRegistrySettings().getEnabledMidiInputs().at(1));
    EXPECT_FALSE(stage.orv->getRegistrySettings().getEnabledMidiOutputs().at(2));
    EXPECT_EQ(stage.orv->getTempoSource(), 2);
    stage.told();
    stage.post(33261);
    EXPECT_EQ(stage.told(), "33261:" + std::to_string(static_cast<unsigned>(Screen::system)) + " ");

    stage.postEvent(33248, {MessageType::noteOn, 60, 100, 3, 1, -1, -1, -1});
    stage.postEvent(33251, {MessageType::noteOn, 62, 100, 3, -1, -1, 0, -1});
    stage.postEvent(33251, {MessageType::noteOn, 64, 100, 3, -1, -1, 1, -1});
    EXPECT_EQ(stage.played(), "C4 on on output 1 channel 3, D4 on") << "input 1 is off";
    stage.told();
    stage.post(33253);
    EXPECT_NE(stage.told().find(std::to_string(GuiMessage::ORV_RESET) + ":"), std::string::npos);
    EXPECT_EQ(stage.heard().substr(0, 6), "D4 off");
    stage.post(33228);
    stage.post(33236, 1);
    EXPECT_EQ(stage.told(), "");
}

TEST(Commands, CarryPortsAndEventsWholeWithAndWithoutWaiting)
{
    Stage stage;
    stage.commands().postSetMidiInputPorts(stage.inputs({"Only"}));
    stage.press("C4", 100, 0, 1);
    EXPECT_EQ(stage.played(), "");
    stage.commands().sendSetMidiInputPorts(stage.inputs({"In 1", "In 2"}));
    // Too much for two parameters: a pulse at which it is due.
    stage.commands().postProcessMidiInputEvent({MessageType::noteOn, 62, 100, 0, -1, -1, 1, stage.pulse + 3});
    EXPECT_EQ(stage.played(), "");
    EXPECT_EQ(stage.played(), "D4 on");

    stage.commands().postSetMidiOutputPorts(stage.outputs({"Out 1"}));
    stage.play({MessageType::noteOn, 60, 100, 0, 1, -1, -1, -1});
    EXPECT_EQ(stage.played(), "");
    stage.commands().sendSetMidiOutputPorts(stage.outputs({"Out 1", "Out 2"}));
    stage.play({MessageType::noteOn, 60, 100, 0, 1, -1, -1, -1});
    EXPECT_EQ(stage.played(), "C4 on on output 1");
}

TEST(EngineCommands, ReachTheEngine)
{
    Stage stage;
    auto& engine = stage.engine();
    const OrvMidiMessage direct(MessageType::noteOn, 60, 100, 2, -1, -1, -1, -1);
    const OrvMidiMessage zoned(MessageType::noteOn, 60, 100, -1, -1, 4, -1, -1);
    const auto controller = [](int value) {
        return "Controller Change 1 " + std::to_string(value) + " on output 1 channel 5";
    };
    Layers::Layer layer;
    layer.channel = 3;
    const Oscillators::Oscillator oscillator{.id = 0,
                                             .type = {Oscillators::OscillatorType::Kind::saw},
                                             .speed = 1280,
                                             .stopValue = 99,
                                             .detail = 1,
                                             .midiMessage = MidiMessage(MessageType::controllerChange, 1),
                                             .output = 1,
                                             .channel = 5};
    struct Row {
        std::function<void()> command;
        std::string played;
    };
    const std::vector<Row> rows{
        {[&] { engine.postPlayMidi(direct); }, "C4 on channel 2"},
        {[&] {
             engine.postPlayMidi({MessageType::noteOn, 62, 1, 0, 0, -1, -1, stage.pulse + 1});
         },
         "D4 on"},
        {[&] {
             engine.postSetDefaultMidiOutput(1);
             engine.postPlayMidi(direct);
         },
         "C4 on on output 1 channel 2"},
        {[&] {
             engine.postSetMidiOutputPorts(stage.outputs({"Out 1"}));
             engine.postPlayMidi(direct);
         },
         ""},
        {[&] {
             engine.postSetMidiOutputPorts(stage.outputs({"Out 1", "Out 2"}));
             engine.postSetLayerList({layer, layer});
             engine.postPlayMidi(zoned);
         },
         "D4 off, C4 off channel 2, C4 on on output 1 channel 3, C4 on on output 1 channel 3"},
        {[&] {
             engine.postSetZoneMap({{.id = 4, .transpose = 12}});
             engine.postPlayMidi(zoned);
         },
         "C5 on on output 1 channel 3, C5 on on output 1 channel 3"},
        {[&] {
             engine.postSetZone({.id = 4, .transpose = -12});
             engine.postPlayMidi(zoned);
         },
         "C3 on on output 1 channel 3, C3 on on output 1 channel 3"},
        {[&] { engine.sendReset(); },
         "C3 off on output 1 channel 3, C4 off on output 1 channel 3, C5 off on output 1 channel 3"},
        {[&] { engine.postSetOscList({oscillator}); }, ""},
        {[&] { engine.postSetOscPlaying(0, true); }, controller(0) + ", " + controller(99)},
        {[&] { engine.postSetOscSpeed(0, 128); }, controller(1) + ", " + controller(2)},
        {[&] { engine.postSetOscPlaying(0, false); }, controller(99)},
        {[&] {
             engine.postSetMidiThru(false);
             engine.postPlayMidi({MessageType::noteOn, 70, 100, -1, -1, -1, 0, -1});
         },
         ""}};
    for (std::size_t row = 0; row < rows.size(); ++row) {
        rows[row].command();
        EXPECT_EQ(stage.played(), rows[row].played) << "row " << row;
    }
    engine.postSetTempo(77);
    engine.postSetTempoSource(2);
    engine.postEnableMidiInput(1, false);
    engine.postEnableMidiOutput(2, true);
    stage.rest();
    ASSERT_GE(stage.player.wishes.size(), 4u);
    EXPECT_EQ((std::vector<std::string>(stage.player.wishes.end() - 4, stage.player.wishes.end())),
              (std::vector<std::string>{"tempo 77", "source 2", "input 1 off", "output 2 on"}));
}
