// What functions do when they run.

#include <gtest/gtest.h>

#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/bindings/functions/Functions.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/LayerMessageManager.h"
#include "backend/model/Screen.h"
#include "backend/model/WindowMove.h"
#include "backend/sections/layers/LayerManager.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::FunctionManagement;

namespace
{
/// A stage with a window, where the backend is at rest whenever a function runs.
struct FunctionStage : Stage {
    FunctionStage() { orv->setGuiWindowHandle(WindowHandle(window)); }

    void run(const std::string& element)
    {
        const auto function = createFunctionFromXml(XmlDocument(element, XmlDocument::Source::text).getRoot(), *orv);
        ASSERT_TRUE(function) << element;
        function->execute();
        rest();
    }

    /// "number wparam lparam" of each message since the last call.
    std::string received()
    {
        std::string text;
        while (window->handleNext([&](Message& message) {
            text += std::to_string(message.number) + " " + std::to_string(message.wparam) + " " +
                    std::to_string(message.lparam) + "\n";
            if (const auto* move = message.payload.get<WindowMove>())
                text += move->x.value.toXmlString() + "," + move->y.value.toXmlString() + "\n";
            if (const auto* select = message.payload.get<SelectControlType>()) text += select->toXmlString() + "\n";
        })) {}
        return text;
    }

    std::shared_ptr<MessageQueue> window = std::make_shared<MessageQueue>(64);
};
}  // namespace

TEST(MidiFunctions, OnlyANoteOnInAZoneSpansANote)
{
    Stage stage;
    const auto spanOf = [&](const char* element) {
        return createFunctionFromXml(XmlDocument(element, XmlDocument::Source::text).getRoot(), *stage.orv)
            ->getNoteSpan();
    };
    const MidiEngine::Note c4(60);
    EXPECT_EQ(spanOf(R"(<MidiNoteOn zone="0" note="C4"/>)"),
              (FunctionNoteSpan{.zone = 0, .lowNote = c4, .highNote = c4}));
    EXPECT_EQ(spanOf(R"(<MidiNoteOn note="C4"/>)"), FunctionNoteSpan{});
    EXPECT_EQ(spanOf(R"(<MidiNoteOff zone="0" note="C4"/>)"), FunctionNoteSpan{});
}

TEST(MidiFunctions, KeepTheirParametersInAsManyBitsAsTheyHave)
{
    Stage stage;
    Functions::MidiNoteOn note(*stage.orv);
    note.setD1(200);
    note.setChannel(300);
    EXPECT_EQ(note.getD1(), -56);
    EXPECT_EQ(note.getChannel(), 44);

    Functions::MidiPitchBend bend(*stage.orv);
    bend.setD1(16383);
    bend.setD2(5);
    EXPECT_EQ(bend.getD1(), 16383);
    EXPECT_EQ(bend.getD2(), 0);

    Functions::MidiSystemReset reset(*stage.orv);
    reset.setChannel(5);
    reset.setD1(5);
    EXPECT_EQ(reset.getChannel(), -1);
    EXPECT_EQ(reset.getD1(), 0);
}

TEST(ScreenFunctions, AskTheWindow)
{
    const auto screen = [](Screen which, OnOffToggle::State state) {
        return std::to_string(GuiMessage::SHOW_SCREEN) + " " + std::to_string(static_cast<int>(which)) + " " +
               std::to_string(static_cast<int>(state)) + "\n";
    };
    const auto only = [](unsigned number) { return std::to_string(number) + " 0 0\n"; };
    using enum OnOffToggle::State;
    const std::pair<const char*, std::string> rows[] = {
        {R"(<ShowSystem type="on"/>)", screen(Screen::system, on)},
        {R"(<ShowHelp type="off"/>)", screen(Screen::help, off)},
        {"<ShowDisplay/>", screen(Screen::display, toggle)},
        {"<ShowOscillator/>", screen(Screen::oscillators, toggle)},
        {"<ShowJoystick/>", screen(Screen::joystick, toggle)},
        {"<ShowMidiInput/>", screen(Screen::midiInput, toggle)},
        {"<ShowComputerInput/>", screen(Screen::computerInput, toggle)},
        {"<ShowControl/>", screen(Screen::controls, toggle)},
        {R"(<ShowOutput type="on"/>)", screen(Screen::output, on)},
        {R"(<ShowCC type="off"/>)", screen(Screen::cc, off)},
        {"<ShowZone/>", screen(Screen::zones, toggle)},
        {"<ShowLayer/>", screen(Screen::layers, toggle)},
        {"<ShowSaveDialog/>", only(GuiMessage::SHOW_SAVE_DIALOG)},
        {"<ShowProgramMenu/>", only(GuiMessage::SHOW_PROGRAM_MENU)},
        {"<ShowDefaultMidiOutputMenu/>", only(GuiMessage::SHOW_DEFAULT_MIDI_OUTPUT_MENU)},
        {R"(<MoveWindow x="+10"/>)", only(GuiMessage::MOVE_WINDOW) + "+10,\n"},
        {R"(<SetWidgetFocus type="2,3"/>)", only(GuiMessage::SET_WIDGET_FOCUS) + "2,3\n"},
    };
    FunctionStage stage;
    for (const auto& [element, received] : rows) {
        stage.run(element);
        EXPECT_EQ(stage.received(), received) << element;
    }
}

TEST(SystemFunctions, ChangeProgramTempoOutputAndSwitchesAndNotifyTheWindow)
{
    FunctionStage stage;
    stage.run(R"(<ChangeTempo value="+10"/>)");
    EXPECT_EQ(stage.orv->getTempo(), 130);
    EXPECT_TRUE(stage.received().starts_with(std::to_string(GuiMessage::PROGRAM)));

    stage.run("<ChangeDefaultMidiOutput/>");
    EXPECT_EQ(stage.received(), std::to_string(GuiMessage::DEFAULT_MIDI_OUTPUT) + " 1 0\n");
    stage.run(R"(<ChangeDefaultMidiOutput type="0"/>)");
    EXPECT_EQ(stage.received(), std::to_string(GuiMessage::DEFAULT_MIDI_OUTPUT) + " 0 0\n");

    const bool thru = stage.orv->getRegistrySettings().getMidiThru();
    stage.run("<ChangeMidiThru/>");
    EXPECT_EQ(stage.orv->getRegistrySettings().getMidiThru(), !thru);
    stage.run(R"(<ChangeGlobalKeyboard type="on"/>)");
    EXPECT_TRUE(stage.orv->getRegistrySettings().getGlobalKeyboard());
    EXPECT_NE(stage.received().find(std::to_string(GuiMessage::GLOBAL_KEYBOARD) + " 1"), std::string::npos);
}
