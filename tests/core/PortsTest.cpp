#include <limits>

#include "backend/files/RegistrySettings.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;
using Kind = SelectType::Kind;

TEST(MidiPort, ShowsItsStateBehindItsName)
{
    EXPECT_EQ((MidiInputPort{{.name = "Keys"}}).getDisplayName(), "Keys");
    EXPECT_EQ(
        (MidiInputPort{{.couldNotOpen = true, .name = "Keys", .enabled = false, .found = false}}).getDisplayName(),
        "Keys (Not Enabled) (Not Found) (Couldn't Open)");
}

TEST(DefaultOutput, IsSettledByEveryNewListOfOutputs)
{
    struct Port {
        const char* name;
        bool enabled;
    };
    struct Row {
        const char* why;
        int before;
        std::vector<Port> ports;
        int after;
    };
    const char* const system = "Microsoft GS Wavetable Synth";
    const std::vector<Row> rows{
        {"the system's synthesizer on a first run", -1, {{"A", true}, {"B", true}, {system, true}}, 2},
        {"not if it is disabled", -1, {{"A", false}, {"B", true}, {"Microsoft GS Wavetable SW Synth", false}}, 1},
        {"only under its exact name", -1, {{"A", true}, {"microsoft gs wavetable synth", true}}, 0},
        {"none enabled", -1, {{"A", false}}, -1},
        {"one that may come back is kept", 7, {{"A", true}, {"B", true}, {"C", true}}, 7},
        {"an enabled one is kept", 1, {{"A", true}, {"B", true}}, 1},
        {"a disabled one gives way to the first enabled", 1, {{"A", true}, {"B", false}, {system, true}}, 0},
        {"no port at all", -1, {}, -1}};
    Stage stage;
    for (const auto& row : rows) {
        MidiOutputPorts ports;
        for (const auto& [name, enabled] : row.ports) ports.push_back({{.name = name, .enabled = enabled}});
        auto& settings = stage.orv->getRegistrySettings();
        settings.setDefaultMidiOutput(row.before);
        stage.commands().sendSetMidiOutputPorts(ports);
        EXPECT_EQ(settings.getDefaultMidiOutput(), row.after) << row.why;
    }
}

TEST(DefaultOutput, IsChosenAmongPortsThatAreEnabledAndOpen)
{
    Stage stage;
    auto ports = stage.outputs({"Out 1", "Out 2", "Out 3", "Out 4"});
    ports[1].enabled = false;
    ports[2].couldNotOpen = true;
    stage.commands().sendSetMidiOutputPorts(ports);
    for (const auto& [select, output] : {std::pair<SelectType, int>{{Kind::up}, 3},  // past one disabled, one not open
                                         {{Kind::up}, 3},
                                         {{Kind::specific, 1}, 3},
                                         {{Kind::specific, 2}, 3},
                                         {{Kind::specific, 9}, 3},
                                         {{Kind::specific, -1}, 3},
                                         {{Kind::specific, std::numeric_limits<std::int32_t>::max()}, 3},
                                         {{Kind::specific, std::numeric_limits<std::int32_t>::min()}, 3},
                                         {{Kind::down}, 0},
                                         {{Kind::down}, 0}}) {
        stage.commands().postChangeDefaultMidiOutput(select);
        stage.rest();
        EXPECT_EQ(stage.orv->getRegistrySettings().getDefaultMidiOutput(), output) << select.toXmlString();
    }
}

TEST(Ports, TheUsersChoiceGoesToTheHostWhoseListDecides)
{
    Stage stage;
    stage.commands().postEnableMidiInput(9, true);
    stage.commands().postEnableMidiOutput(4, true);
    stage.commands().postEnableMidiOutput(1, false);
    stage.commands().postEnableMidiOutput(-1, false);
    stage.rest();
    EXPECT_EQ(stage.player.takeRequests(), "output 1 off") << "no other is in the list";
    EXPECT_EQ(stage.orv->getRegistrySettings().getEnabledMidiOutputs(), (std::vector<bool>{false, false}));
    EXPECT_TRUE(stage.orv->getMidiOutputPorts()[1].enabled);
}

TEST(Inputs, ThatGoAreReleased)
{
    Stage stage;
    stage.press("C4", 90, 0, 1);
    stage.press("E4", 90, 1);
    EXPECT_EQ(stage.played(), "C4 on, E4 on");
    auto inputs = stage.inputs({"In 1", "In 2", "In 3"});
    inputs[1].found = false;
    stage.commands().postSetMidiInputPorts(inputs);
    EXPECT_EQ(stage.played(), "C4 off") << "the device went";
    stage.press("B4", 90, 2, 2);
    stage.commands().postSetMidiInputPorts(stage.inputs({"In 1"}));
    EXPECT_EQ(stage.played(), "B4 on, B4 off") << "the port went";
}
