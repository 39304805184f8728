// What functions do when they run.

#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/bindings/functions/Functions.h"
#include "backend/files/RegistrySettings.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::FunctionManagement;

namespace
{
struct FunctionStage : Stage {
    FunctionStage() { openWindow(); }

    /// What the window receives when a function runs.
    std::string run(const std::string& element)
    {
        const auto function = createFunctionFromXml(rootOf(element), *orv);
        EXPECT_TRUE(function) << element;
        if (function) function->execute();
        return received([](Message& message) -> std::string {
            std::string text = TestWindow::words(message);
            if (const auto* move = message.payload.get<WindowMove>())
                text += " " + move->x.value.toXmlString() + "," + move->y.value.toXmlString();
            if (const auto* select = message.payload.get<SelectControlType>()) text += " " + select->toXmlString();
            return text;
        });
    }
};
}  // namespace

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
               std::to_string(static_cast<int>(state));
    };
    const auto only = [](unsigned number) { return std::to_string(number) + " 0 0"; };
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
        {R"(<MoveWindow x="+10"/>)", only(GuiMessage::MOVE_WINDOW) + " +10,"},
        {R"(<SetWidgetFocus type="2,3"/>)", only(GuiMessage::SET_WIDGET_FOCUS) + " 2,3"},
    };
    FunctionStage stage;
    for (const auto& [element, received] : rows) EXPECT_EQ(stage.run(element), received) << element;
}

TEST(SystemFunctions, ChangeProgramTempoOutputAndSwitchesAndNotifyTheWindow)
{
    FunctionStage stage;
    const RegistrySettings& settings = stage.orv->getRegistrySettings();
    EXPECT_TRUE(stage.run(R"(<ChangeTempo value="+10"/>)").starts_with(std::to_string(GuiMessage::PROGRAM)));
    EXPECT_EQ(stage.orv->getTempo(), 130);
    EXPECT_EQ(stage.run("<ChangeDefaultMidiOutput/>"), std::to_string(GuiMessage::DEFAULT_MIDI_OUTPUT) + " 1 0");
    EXPECT_EQ(settings.getDefaultMidiOutput(), 1);
    stage.run("<ChangeMidiThru/>");
    EXPECT_FALSE(settings.getMidiThru());
    EXPECT_EQ(stage.run(R"(<ChangeGlobalKeyboard type="on"/>)"),
              std::to_string(Settings::GLOBAL_KEYBOARD.number) + " 1 0");
    EXPECT_TRUE(settings.getGlobalKeyboard());
}
