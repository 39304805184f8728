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

    /// What the window received, "number:first parameter" each.
    std::string received()
    {
        std::string text;
        while (window->handleNext([&](Message& message) {
            text += std::to_string(message.number) + ":" + std::to_string(message.wparam) + " ";
        })) {}
        return text;
    }
};
}  // namespace

TEST(Commands, WithASettingStoreItUnderTheirNumberAndNotifyTheWindowThatShowsIt)
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
            EXPECT_EQ(stage.received(), expected) << number;
        }
    for (const unsigned size : {999u, 200000001u}) stage.post(33262, size);
    EXPECT_EQ(stage.orv->getRegistrySettings().getRetroRecordBufferSize(), 5000) << "out of range";
    EXPECT_EQ(stage.received(), "");
}

TEST(Commands, OfThePortsTheTempoAndTheScreenActUnderTheirNumber)
{
    CommandStage stage;
    stage.post(33249, 1, 0);
    stage.post(33250, 2, 0);
    stage.post(33267, 2, 1);
    EXPECT_EQ(stage.player.requests, (std::vector<std::string>{"input 1 off", "output 2 off", "source 2"}));
    EXPECT_FALSE(stage.orv->getRegistrySettings().getEnabledMidiInputs().at(1));
    EXPECT_FALSE(stage.orv->getRegistrySettings().getEnabledMidiOutputs().at(2));
    EXPECT_EQ(stage.orv->getTempoSource(), 2);
    stage.received();
    stage.post(33261);
    EXPECT_EQ(stage.received(), "33261:" + std::to_string(static_cast<unsigned>(Screen::system)) + " ");

    stage.postEvent(33248, noteOn(60).output(1).channel(3));
    stage.postEvent(33251, noteOn(62).channel(3).input(0));
    stage.postEvent(33251, noteOn(64).channel(3).input(1));
    EXPECT_EQ(stage.played(), "C4 on on output 1 channel 3, D4 on") << "input 1 is off";
    stage.received();
    stage.post(33253);
    EXPECT_NE(stage.received().find(std::to_string(GuiMessage::ORV_RESET) + ":"), std::string::npos);
    EXPECT_EQ(stage.takePlayed().substr(0, 6), "D4 off");
    stage.post(33228);
    stage.post(33236, 1);
    EXPECT_EQ(stage.received(), "");
}
