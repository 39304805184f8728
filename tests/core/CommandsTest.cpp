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

using Host = OrvMessageManager;

/// The command of that number stores a value in the setting of the row, and what `send` posts for a host the default.
template <const auto& row, auto send>
void expectStored(CommandStage& stage, unsigned number, int value, Window window)
{
    for (const int each : {value, static_cast<int>(row.standard)}) {
        if (each == value)
            stage.post(number, static_cast<unsigned>(each));
        else
            (stage.orv->getOrvMessageManager().*send)(row.standard);
        stage.rest();
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
    expectStored<Settings::DOCK_TO_BOTTOM_EDGE, &Host::postSetDockToBottomEdge>(stage, 33229, 1, isNotified);
    expectStored<Settings::DISPLAY_HEIGHT, &Host::postSetDisplayHeight>(stage, 33231, 77, isNot);
    expectStored<Settings::DISPLAY_NUMBERS, &Host::postSetDisplayNumbers>(stage, 33232, 1, isNot);
    expectStored<Settings::LARGE_DISPLAY_FONT, &Host::postSetLargeDisplayFont>(stage, 33233, 1, isNotified);
    expectStored<Settings::DISPLAY_MIDI_INPUT_EVENTS, &Host::postSetDisplayMidiInputEvents>(stage, 33234, 1, isNot);
    expectStored<Settings::DISPLAY_MIDI_OUTPUT_EVENTS, &Host::postSetDisplayMidiOutputEvents>(stage, 33235, 0, isNot);
    expectStored<Settings::ALWAYS_ON_TOP, &Host::postSetAlwaysOnTop>(stage, 33236, 1, isNotified);
    expectStored<Settings::USE_SKIN_BORDER, &Host::postSetUseSkinBorder>(stage, 33260, 0, isNotified);
    expectStored<Settings::RETRO_RECORD_BUFFER_SIZE, &Host::postSetRetroRecordBufferSize>(stage, 33262, 1000,
                                                                                          isNotified);
    expectStored<Settings::RETRO_RECORD_ENABLED, &Host::postEnableRetroRecord>(stage, 33263, 0, isNotified);
    expectStored<Settings::MOUSE_SENSITIVITY, &Host::postSetMouseSensitivity>(stage, 33268, 3, isNotified);
    expectStored<Settings::LITE_VELOCITY, &Host::postSetLiteVelocity>(stage, 33269, 64, isNot);
    expectStored<Settings::LITE_CHANNEL, &Host::postSetLiteChannel>(stage, 33270, 9, isNot);
    expectStored<Settings::LITE_STACK_NOTES, &Host::postSetLiteStackNotes>(stage, 33271, 0, isNot);
    expectStored<Settings::CLICK_ZONE_CHANNEL_TRANSPOSE, &Host::postSetClickZoneChannelTranspose>(stage, 33272, 1,
                                                                                                  isNotified);
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
