#include "backend/files/RegistrySettings.h"
#include "backend/messages/MessageManagerMaster.h"
#include "tests/stage/Stage.h"

using namespace Backend;

namespace
{
/// A stage whose commands come as bare messages, in two parameters, from a host that knows their numbers.
struct CommandStage : Stage {
    CommandStage() { openWindow(); }

    void post(unsigned number, std::uint32_t wparam = 0, std::int32_t lparam = 0)
    {
        orv->getMessageManagerMaster().postMessage(number, wparam, lparam);
        rest();
    }
    void postEvent(unsigned number, const MidiEngine::OrvMidiMessage& event)
    {
        post(number, event.getWparam(), event.getLparam());
    }
};

enum class Window { isNotified, isNot };

/// The command of that number stores a value, and then the default, in the setting of the row.
template <const auto& row>
void expectStored(CommandStage& stage, unsigned number, int value, Window window)
{
    for (const int each : {value, static_cast<int>(row.standard)}) {
        stage.post(number, static_cast<unsigned>(each));
        EXPECT_EQ(static_cast<int>(stage.orv->getRegistrySettings().get<row>()), each) << row.name;
        const std::string notice = std::to_string(number) + " " + std::to_string(each) + " 0";
        EXPECT_EQ(stage.received(), window == Window::isNotified ? notice : "") << row.name;
    }
}
}  // namespace

TEST(Commands, WithASettingStoreItUnderTheirNumberAndNotifyTheWindowThatShowsIt)
{
    using enum Window;
    CommandStage stage;
    expectStored<Settings::DOCK_TO_BOTTOM_EDGE>(stage, 33229, 1, isNotified);
    expectStored<Settings::DISPLAY_HEIGHT>(stage, 33231, 77, isNot);
    expectStored<Settings::DISPLAY_NUMBERS>(stage, 33232, 1, isNot);
    expectStored<Settings::LARGE_DISPLAY_FONT>(stage, 33233, 1, isNotified);
    expectStored<Settings::DISPLAY_MIDI_INPUT_EVENTS>(stage, 33234, 1, isNot);
    expectStored<Settings::DISPLAY_MIDI_OUTPUT_EVENTS>(stage, 33235, 0, isNot);
    expectStored<Settings::ALWAYS_ON_TOP>(stage, 33236, 1, isNotified);
    expectStored<Settings::USE_SKIN_BORDER>(stage, 33260, 0, isNotified);
    expectStored<Settings::RETRO_RECORD_BUFFER_SIZE>(stage, 33262, 1000, isNotified);
    expectStored<Settings::RETRO_RECORD_ENABLED>(stage, 33263, 0, isNotified);
    expectStored<Settings::MOUSE_SENSITIVITY>(stage, 33268, 3, isNotified);
    expectStored<Settings::LITE_VELOCITY>(stage, 33269, 64, isNot);
    expectStored<Settings::LITE_CHANNEL>(stage, 33270, 9, isNot);
    expectStored<Settings::LITE_STACK_NOTES>(stage, 33271, 0, isNot);
    expectStored<Settings::CLICK_ZONE_CHANNEL_TRANSPOSE>(stage, 33272, 1, isNotified);
    for (const unsigned size : {999u, 200000001u}) stage.post(33262, size);
    EXPECT_EQ(stage.orv->getRegistrySettings().getRetroRecordBufferSize(), 100000) << "out of range";
    EXPECT_EQ(stage.received(), "");
}

TEST(Commands, OfThePortsTheTempoAndTheScreenActUnderTheirNumber)
{
    CommandStage stage;
    stage.post(33249, 1, 0);
    stage.post(33250, 2, 0);
    stage.post(33267, 2, 1);
    EXPECT_EQ(stage.player.takeRequests(), "input 1 off, output 2 off, source 2");
    EXPECT_FALSE(stage.orv->getRegistrySettings().getEnabledMidiInputs().at(1));
    EXPECT_FALSE(stage.orv->getRegistrySettings().getEnabledMidiOutputs().at(2));
    EXPECT_EQ(stage.orv->getTempoSource(), 2);
    stage.received();
    stage.post(33261);
    EXPECT_EQ(stage.received(), "33261 " + std::to_string(static_cast<unsigned>(Screen::system)) + " 2");

    stage.postEvent(33248, noteOn(60).output(1).channel(3));
    stage.postEvent(33251, noteOn(62).channel(3).input(0));
    stage.postEvent(33251, noteOn(64).channel(3).input(1));
    EXPECT_EQ(stage.played(), "C4 on on output 1 channel 3, D4 on") << "input 1 is off";
    stage.received();
    stage.post(33253);
    EXPECT_NE(stage.received().find(std::to_string(GuiMessage::ORV_RESET)), std::string::npos);
    EXPECT_EQ(stage.takePlayed().substr(0, 6), "D4 off");
    stage.post(33228);
    stage.post(33236, 1);
    EXPECT_EQ(stage.received(), "") << "there is no window any more";
}
