#include <gtest/gtest.h>

#include "tests/sections/JoystickStage.h"

using namespace Backend;
using namespace Backend::Joystick;

TEST(JoystickSection, ReadsBackWhatItWritesOfWhatIsBound)
{
    JoystickStage stage;
    stage.load(
        "<Button joystick='1' button='0'><Function keepSending='true'><Up><ResetOrv/></Up></Function></Button>"
        "<Button joystick='0' button='35'><Function><Down><Nonsense/></Down></Function></Button>"
        "<Axis joystick='1' axis='X'><Function midiEvent='Controller Change,7'/></Axis>"
        "<Axis joystick='0' axis='V'><Function midiEvent='Pitch Bend' output='1' channel='2' zone='3' min='16383' "
        "max='0' offset='-5'/><Other/><Function midiEvent='?'/></Axis>"
        "<Axis joystick='0' axis='Y'/>"
        "<Axis axis='X'><Function midiEvent='Pitch Bend'/></Axis><Axis joystick='2' axis='X'/>"
        "<Axis joystick='0' axis='Q'/><Button joystick='0' button='36'/><Button button='1'/>text<!-- c -->");
    const std::string text =
        "<Joystick merge=\"false\">\n"
        "\t<Axis joystick=\"0\" axis=\"V\">\n"
        "\t\t<Function midiEvent=\"Pitch Bend\" output=\"1\" channel=\"2\" zone=\"3\" min=\"16383\" max=\"0\" "
        "offset=\"-5\"/>\n"
        "\t\t<Function midiEvent=\"Unknown\" output=\"-1\" channel=\"-1\" zone=\"-1\" min=\"0\" max=\"127\" "
        "offset=\"0\"/>\n"
        "\t</Axis>\n"
        "\t<Axis joystick=\"1\" axis=\"X\">\n"
        "\t\t<Function midiEvent=\"Controller Change,7\" output=\"-1\" channel=\"-1\" zone=\"-1\" min=\"0\" "
        "max=\"127\" offset=\"0\"/>\n"
        "\t</Axis>\n"
        "\t<Button joystick=\"1\" button=\"0\">\n"
        "\t\t\t<Function keepSending=\"true\">\n\t\t\t\t<Up>\n\t\t\t\t\t<ResetOrv/>\n\t\t\t\t</Up>\n"
        "\t\t\t</Function>\n"
        "\t</Button>\n"
        "\t<DisabledInputs></DisabledInputs>\n"
        "</Joystick>\n";
    EXPECT_EQ(stage.written(), text);
    EXPECT_EQ(stage.joysticks().getConfiguration().buttons.size(), 72u) << "all there are, and no other";
    EXPECT_EQ(stage.joysticks().getConfiguration().axes.size(), 12u);
    stage.load("");
    EXPECT_EQ(stage.written(), "<Joystick merge=\"false\">\n\t<DisabledInputs></DisabledInputs>\n</Joystick>\n");
    stage.joysticks().loadSection(XmlDocument(text, XmlDocument::Source::text).getRoot());
    EXPECT_EQ(stage.written(), text);
    stage.joysticks().loadSection(XmlDocument("<Layers/>", XmlDocument::Source::text).getRoot());
    EXPECT_EQ(stage.written(), text) << "another section's";
}

TEST(JoystickSection, MergesInPlaceOfWhatItNames)
{
    JoystickStage stage;
    stage.load(controllerAxis(0, "X", 1) + noteButton(0, 1, "C4") + noteButton(0, 2, "D4"));
    stage.load(noteButton(0, 2, "E4") + "<Axis joystick='0' axis='X'/>", "merge='true'");
    stage.down(0, 1), stage.down(0, 2), stage.axis(0, "X", 0);
    EXPECT_EQ(stage.played(), "C4 on, E4 on");
    stage.joysticks().setDefaults();
    stage.down(0, 1), stage.down(0, 2);
    EXPECT_EQ(stage.played(), "");
}

TEST(JoystickSection, SaysWhichJoysticksAreDisabled)
{
    JoystickStage stage;
    const auto disabled = [&](const std::string& content) {
        stage.load(content);
        return (stage.joysticks().isDisabled(0) ? "0" : "") + std::string(stage.joysticks().isDisabled(1) ? "1" : "");
    };
    EXPECT_EQ(disabled("<DisabledInputs>1</DisabledInputs>"), "1");
    EXPECT_EQ(disabled(""), "1") << "not received otherwise";
    EXPECT_EQ(disabled("<DisabledInputs> 0 ,x,, 1,2,-1</DisabledInputs>"), "01");
    EXPECT_EQ(stage.written(), "<Joystick merge=\"false\">\n\t<DisabledInputs>0,1</DisabledInputs>\n</Joystick>\n");
    EXPECT_EQ(disabled("<DisabledInputs/>"), "");

    stage.load(noteButton(0, 0, "C4"));
    stage.down(0, 0);
    stage.load("<DisabledInputs>0</DisabledInputs>" + noteButton(0, 0, "D4"));
    EXPECT_EQ(stage.played(), "C4 on, C4 off") << "by what it was pressed with";
}

TEST(JoystickSection, MayBeReplacedByTheButtonItHolds)
{
    JoystickStage stage;
    const auto press = [&] {
        stage.down(0, 0), stage.up(0, 0);
        return stage.played();
    };
    stage.load(noteButton(0, 0, "C4"));
    stage.joysticks().savePreset("One");
    stage.load(
        "<Button joystick='0' button='0'><Function><Down><LoadJoystickInputPreset preset='One'/></Down>"
        "</Function></Button>");
    EXPECT_EQ(press(), "C4 off");
    EXPECT_EQ(press(), "C4 on, C4 off");
}

TEST(JoystickSection, IsEmptiedByAProgramThatLacksIt)
{
    JoystickStage stage;
    const auto loadProgram = [&](const std::string& sections) {
        stage.folders.write("a.prg", "<ProgramFile><Program name='a'>" + sections + "</Program></ProgramFile>");
        stage.commands().postLoadProgram((stage.folders / "a.prg").string());
        stage.rest();
        stage.played();
        stage.down(0, 0);
        return stage.played();
    };
    EXPECT_EQ(loadProgram("<Joystick>" + noteButton(0, 0, "C4") + "</Joystick>"), "C4 on");
    EXPECT_EQ(loadProgram("<Layers/>"), "");
}
