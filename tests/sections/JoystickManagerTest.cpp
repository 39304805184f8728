#include "backend/messages/MessageManagerMaster.h"
#include "tests/sections/JoystickStage.h"

using namespace Backend;
using namespace Backend::Joystick;

TEST(AxisFunction, ScalesTheAxisToItsLimits)
{
    constexpr auto raw = AxisMode::raw;
    constexpr auto finished = AxisMode::finished;
    struct Row {
        std::int32_t min, max, offset;
        AxisMode mode;
        std::int32_t value, scaled;
    };
    for (const auto& [min, max, offset, mode, value, scaled] : {
             Row{0, 127, 0, raw, 0, 0},
             {0, 127, 0, raw, 65535, 127},
             {0, 127, 0, raw, 32768, 64},
             {127, 0, 0, raw, 0, 127},
             {127, 0, 0, raw, 65535, 0},
             {10, 20, 0, raw, -70000, 10},
             {0, 127, -10, raw, 5159, 0},  // 10/127 of the way are cut off at both ends: 5159 to 60376
             {0, 127, -10, raw, 16384, 26},
             {0, 127, -10, raw, 60376, 127},
             {0, 127, -10, raw, 65535, 127},
             {0, 127, -10, AxisMode::position, 16384, 32},  // no matter for the window's grids
             {0, 127, -10, static_cast<AxisMode>(7), 16384, 32},
             {0, 127, 10, raw, 1000, 2},
             {0, 127, 10, raw, 65535, 127},
             {0, 127, -127, raw, 0, 127},  // past the middle the window is turned round
             {0, 127, -9, finished, 100, 100},
             {0, 127, 0, finished, 200, 127},
             {127, 20, 0, finished, 3, 20},
         }) {
        const AxisFunction function{.min = min, .max = max, .offset = offset};
        EXPECT_EQ(function.scaled(value, mode), scaled) << min << " " << max << " " << offset << " " << value;
    }
}

TEST(JoystickAxis, IsMovedByTheGridsOfTheWindow)
{
    JoystickStage stage;
    std::string axes;
    for (int axis = 0; axis < 6; ++axis) axes += controllerAxis(1, std::string(getAxisName(axis)), axis);
    stage.load(axes);
    stage.messages().postXyGrid(1, AxisMode::finished, 11, 12);
    stage.messages().postUvGrid(1, AxisMode::position, 65535, 32768);
    stage.messages().postGuiAxis({1, findAxis("R")}, AxisMode::finished, 15);
    EXPECT_EQ(stage.played(),
              "Controller Change 0 11, Controller Change 1 12, Controller Change 3 127, Controller Change 4 64, "
              "Controller Change 5 15");
    for (unsigned number = 35223; number <= 35228; ++number)  // X, Y, Z, R, U, V, with their own messages
        stage.orv->getMessageManagerMaster().postMessage(number, 2u << 16 | 1u, 7);
    EXPECT_EQ(stage.played(),
              "Controller Change 0 7, Controller Change 1 7, Controller Change 2 7, Controller Change 5 7, "
              "Controller Change 3 7, Controller Change 4 7");
}

TEST(DisabledJoystick, IsIgnoredWhileItsGridStillPlays)
{
    JoystickStage stage;
    stage.load(controllerAxis(0, "X", 1) + noteButton(0, 3, "C4") + noteButton(1, 3, "D4"));
    stage.down(0, 3), stage.down(1, 3);
    EXPECT_EQ(stage.played(), "C4 on, D4 on");
    stage.messages().postEnableJoystick(0, false);
    EXPECT_EQ(stage.played(), "C4 off") << "what it held is released";
    stage.axis(0, "X", 9), stage.up(0, 3), stage.down(0, 3), stage.up(1, 3);
    stage.messages().postGuiAxis({0, 0}, AxisMode::finished, 5);
    stage.rest();
    stage.messages().postGuiButtonDown({0, 3}, false);
    EXPECT_EQ(stage.played(), "D4 off, Controller Change 1 5, C4 on");
    stage.messages().postEnableJoystick(0, true);
    stage.messages().postEnableJoystick(7, false);
    stage.down(0, 3);
    EXPECT_EQ(stage.played(), "C4 on");
}

TEST(DisabledJoystick, IsNamedByTheSection)
{
    JoystickStage stage;
    const auto disabled = [&](const std::string& content) {
        stage.load(content);
        return (stage.section.isDisabled(0) ? "0" : "") + std::string(stage.section.isDisabled(1) ? "1" : "");
    };
    EXPECT_EQ(disabled("<DisabledInputs>1</DisabledInputs>"), "1");
    EXPECT_EQ(disabled(""), "1") << "as it was";
    EXPECT_EQ(disabled("<DisabledInputs> 0 ,x,, 1,2,-1</DisabledInputs>"), "01");
    EXPECT_EQ(stage.written(), "<Joystick merge='false'><DisabledInputs>0,1</DisabledInputs></Joystick>");
    EXPECT_EQ(disabled("<DisabledInputs/>"), "");

    stage.load(noteButton(0, 0, "C4"));
    stage.down(0, 0);
    stage.load("<DisabledInputs>0</DisabledInputs>" + noteButton(0, 0, "D4"));
    EXPECT_EQ(stage.played(), "C4 on, C4 off") << "by what it was pressed with";
}

TEST(JoystickSection, MergesInPlaceOfWhatItNames)
{
    JoystickStage stage;
    stage.load(controllerAxis(0, "X", 1) + noteButton(0, 1, "C4") + noteButton(0, 2, "D4"));
    stage.load(noteButton(0, 2, "E4") + "<Axis joystick='0' axis='X'/>", "merge='true'");
    stage.down(0, 1), stage.down(0, 2), stage.axis(0, "X", 0), stage.up(0, 1), stage.up(0, 2);
    EXPECT_EQ(stage.played(), "C4 on, E4 on, C4 off, E4 off");
}

TEST(JoystickSection, AddsTheZonesThatItsButtonsPlayIn)
{
    JoystickStage stage;
    stage.load(noteButton(0, 1, "C4", " zone='2'") + noteButton(1, 0, "G4", " zone='2'") + noteButton(0, 2, "C4"));
    EXPECT_EQ(stage.zones(), "2 C4-G4");
    stage.messages().postSetButtonConfigurations({JoystickButtonConfiguration({1, 0})}, false);
    stage.rest();
    EXPECT_EQ(stage.zones(), "2 C4-C4");
}

TEST(JoystickWindow, IsNotifiedOfWhatMovesAndWhatIsBound)
{
    JoystickStage stage;
    const auto received = [&] {
        return stage.received([](Message& message) -> std::string {
            if (message.number == GuiMessage::ZONES) return "";
            const std::string number = std::to_string(message.number) + " ";
            if (const auto* buttons = message.payload.get<std::vector<JoystickButtonConfiguration>>())
                return number + std::to_string(buttons->size());
            if (const auto* axes = message.payload.get<std::vector<AxisConfiguration>>())
                return number + std::to_string(axes->size());
            return TestWindow::words(message);
        });
    };
    stage.openWindow();
    stage.load(
        "<Axis joystick='1' axis='R'><Function midiEvent='Pitch Bend' min='16383' max='-1'/>"
        "<Function midiEvent='Channel Pressure'/></Axis>");
    EXPECT_EQ(received(), "35219 72, 35222 12, 35223 0 1, 35227 0 0, 35223 1 1, 35227 1 0")
        << "all there are, on, and none plugged in";
    stage.axis(1, "R", 65535);
    EXPECT_EQ(received(), "35226 " + std::to_string(0xFFFFu << 16 | 5u << 8 | 1u) + " " +
                              std::to_string(static_cast<std::int32_t>(0xFFFF3FFF)))
        << "the first event alone, with its limits";
    stage.down(1, 33), stage.down(1, 33, true), stage.up(1, 33);
    EXPECT_EQ(received(), "35224 8449 0, 35225 8449 0");
    stage.messages().postEnableJoystick(1, false);
    stage.messages().postEnableJoystick(1, true);
    EXPECT_EQ(received(), "35223 1 0, 35223 1 1");
    stage.messages().postSetAxisConfigurations({{.id = {0, 0}}, {.id = {0, 6}}}, true);
    stage.messages().postSetButtonConfigurations({JoystickButtonConfiguration({0, 0})}, true);
    stage.messages().postSetAxisConfigurations({{.id = {1, 5}}}, false);
    EXPECT_EQ(received(), "35222 2, 35219 1");
    EXPECT_EQ(stage.orv->getJoystickConfiguration().axes.size(), 12u);
    EXPECT_TRUE(stage.orv->getJoystickConfiguration().axes.findElement({1, 5})->isEmpty());
}
