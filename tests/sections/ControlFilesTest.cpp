#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "api/OrvFactory.h"
#include "backend/sections/controls/DefaultControls.h"
#include "backend/xml/XmlDocument.h"
#include "tests/sections/ControlStage.h"

using namespace Backend;
using namespace Backend::Controls;

namespace
{
void load(ControlStage& stage, const std::string& text)
{
    stage.controls().loadSection(XmlDocument(text, XmlDocument::Source::text).getRoot());
}

std::string written(ControlStage& stage, const std::vector<Cell>& cells = {})
{
    std::ostringstream out;
    stage.controls().writeSection(out, 0, cells);
    return out.str();
}

std::string fileOf(const std::string& name)
{
    std::ifstream file(ORVANE_CONTENT "/Default/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
}  // namespace

TEST(ControlSection, WritesWhatItReadsWithDefaultsForTheRest)
{
    ControlStage stage({fader({9, 9}, cc(9))});
    load(stage, R"(<Controls><Other/><Control/>
        <Control cell="1,2" type=" knob " name="a&lt;&quot;" value="-5" min="9" max="-9" release="3" autoSend="true"
            size="2"><Function midiEvent="Note On,60" output="1" channel="2" zone="3"/><Other/><Function/></Control>
        <Control cell="0,15" type="slider"/><Control cell="0,15" value="200"/></Controls>)");
    const std::string knob =
        "\t<Control cell=\"1,2\" type=\"knob\" name=\"a&lt;&quot;\" value=\"-5\" min=\"9\" max=\"-9\" release=\"3\" "
        "autoSend=\"true\" size=\"2\">\n"
        "\t\t<Function midiEvent=\"Note On,60\" output=\"1\" channel=\"2\" zone=\"3\"/>\n"
        "\t\t<Function midiEvent=\"Unknown\" output=\"-1\" channel=\"-1\" zone=\"-1\"/>\n\t</Control>\n";
    const std::string common = "min=\"0\" max=\"127\" release=\"-1\" autoSend=\"false\" size=\"1\">\n\t</Control>\n";
    EXPECT_EQ(written(stage),
              "<Controls merge=\"false\">\n"
              "\t<Control cell=\"-1,-1\" type=\"\" name=\"\" value=\"0\" " +
                  common + "\t<Control cell=\"0,15\" type=\"\" name=\"\" value=\"127\" " + common + knob +
                  "</Controls>\n");
    EXPECT_EQ(written(stage, {{1, 2}, {4, 4}}), "<Controls merge=\"true\">\n" + knob + "</Controls>\n");

    load(stage, R"(<Controls merge="true"><Control cell="5,5"/></Controls>)");
    EXPECT_EQ(stage.controls().getControls().size(), 4u);
    load(stage, written(stage));
    EXPECT_EQ(stage.controls().getControls().size(), 4u);
}

TEST(ControlSection, OfTheFactoryIsWhatTheDefaultsSay)
{
    const std::string preset = fileOf("Control Presets/000 - Default.pst");
    EXPECT_EQ(preset, "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\n" + defaultControlsXml(0));
    EXPECT_NE(fileOf("Banks/Default Bank.bnk").find(defaultControlsXml(1)), std::string::npos);
    ControlStage stage({});
    load(stage, defaultControlsXml(0));
    EXPECT_EQ(written(stage), defaultControlsXml(0));
    EXPECT_EQ(stage.controls().getControls().size(), 13u);
    EXPECT_EQ(stage.controls().getControls().findElement({2, 3})->release, 64);
}

TEST(AutoSend, OfTheFirstProgramWaitsForThePortsAndComesOnce)
{
    PrivateFolders folders;
    folders.write("data/Brinlow Software/Orvane 3/Banks/Default Bank.bnk",
                  R"(<Bank><Program name="One"><Layers><Layer/></Layers><Controls>
                  <Control cell="0,0" type="edit" value="9" autoSend="true"><Function midiEvent="Program Change"/></Control>
                  <Control cell="0,1" type="edit" value="9"><Function midiEvent="Controller Change,1"/></Control>
                  </Controls></Program></Bank>)");
    RecordingPlayer player;
    const std::unique_ptr<OrvIF> orv(OrvFactory::createOrv("AutoSend", player, false));
    orv->start();
    auto& commands = orv->getOrvMessageManager();
    commands.sendInitialize();
    commands.sendSetMidiOutputPorts({{{.name = "Out 1"}}});
    commands.sendEndInitialize();
    while (!orv->isAtRest()) {}
    for (int pulse = 1; pulse < 5; ++pulse) orv->playTimeSlice(pulse, pulse + 1);
    commands.sendEnd();
    orv->stop();
    ASSERT_EQ(player.events.size(), 1u);
    EXPECT_EQ(player.events[0].getMidiMessage(), MidiMessage(MessageType::programChange, 9));
}
