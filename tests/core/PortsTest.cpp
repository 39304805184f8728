#include <gtest/gtest.h>

#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;

namespace
{
struct PortRow {
    const char* name;
    bool enabled;
};

MidiOutputPorts portsOf(const std::vector<PortRow>& rows)
{
    MidiOutputPorts ports;
    for (const auto& row : rows) ports.push_back({{.name = row.name, .enabled = row.enabled}});
    return ports;
}
}  // namespace

TEST(MidiPort, ShowsItsStateBehindItsName)
{
    EXPECT_EQ((MidiInputPort{{.name = "Keys"}}).getDisplayName(), "Keys");
    EXPECT_EQ(
        (MidiInputPort{{.couldNotOpen = true, .name = "Keys", .enabled = false, .found = false}}).getDisplayName(),
        "Keys (Not Enabled) (Not Found) (Couldn't Open)");
}

TEST(DefaultOutput, IsSettledByEveryNewListOfOutputs)
{
    struct Row {
        const char* why;
        int before;
        std::vector<PortRow> ports;
        int after;
    };
    const std::vector<Row> rows{
        {"the system's synthesizer on a first run",
         -1,
         {{"A", true}, {"B", true}, {"Microsoft GS Wavetable Synth", true}},
         2},
        {"not if it is disabled", -1, {{"A", false}, {"B", true}, {"Microsoft GS Wavetable SW Synth", false}}, 1},
        {"only under its exact name", -1, {{"A", true}, {"microsoft gs wavetable synth", true}}, 0},
        {"none enabled", -1, {{"A", false}}, -1},
        {"one that may come back is kept", 7, {{"A", true}, {"B", true}, {"C", true}}, 7},
        {"an enabled one is kept", 1, {{"A", true}, {"B", true}}, 1},
        {"a disabled one gives way to the first enabled",
         1,
         {{"A", true}, {"B", false}, {"Microsoft GS Wavetable Synth", true}},
         0},
        {"no port at all", -1, {}, -1}};
    for (const auto& row : rows) {
        Stage stage;
        auto& settings = stage.orv->getRegistrySettings();
        settings.setDefaultMidiOutput(row.before);
        stage.commands().sendSetMidiOutputPorts(portsOf(row.ports));
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
    const auto select = [&](SelectType::Kind kind, int value = 0) {
        stage.commands().postChangeDefaultMidiOutput({kind, value});
        stage.rest();
        return stage.orv->getRegistrySettings().getDefaultMidiOutput();
    };
    EXPECT_EQ(select(SelectType::Kind::up), 3) << "past one disabled and one not open";
    EXPECT_EQ(select(SelectType::Kind::up), 3) << "nothing further up";
    EXPECT_EQ(select(SelectType::Kind::specific, 1), 3);
    EXPECT_EQ(select(SelectType::Kind::specific, 2), 3);
    EXPECT_EQ(select(SelectType::Kind::specific, 9), 3);
    EXPECT_EQ(select(SelectType::Kind::specific, -1), 3);
    EXPECT_EQ(select(SelectType::Kind::down), 0);
    EXPECT_EQ(select(SelectType::Kind::down), 0);
}

TEST(DefaultOutput, ANoteOffFollowsItsNoteOnToTheFormerDefault)
{
    Stage stage;
    stage.press("C4");
    stage.played();
    stage.commands().postChangeDefaultMidiOutput({SelectType::Kind::up});
    stage.press("C4", 100, 0, 1);
    stage.release("C4");
    stage.release("C4", 0, 1);
    stage.release("C4");
    EXPECT_EQ(stage.played(), "C4 on on output 1, C4 off, C4 off on output 1, C4 off")
        << "each input to the output of its own press";
}

TEST(Outputs, ADisabledOneIsForgottenWithItsCountsAndMemories)
{
    Stage stage;
    stage.press("C4");
    stage.press("E4");
    stage.played();
    stage.setOutputEnabled(0, false);
    stage.release("C4");
    EXPECT_EQ(stage.played(), "C4 off on output 1") << "to the new default, the former being gone";
    stage.setOutputEnabled(1, true);
    stage.playWhile([&] { stage.engine().sendReset(); });
    EXPECT_EQ(stage.takePlayed(), "") << "nothing is counted there any more";
}

TEST(Outputs, TheUsersChoiceGoesToTheHostWhoseListDecides)
{
    Stage stage;
    stage.commands().postEnableMidiOutput(4, true);
    stage.commands().postEnableMidiOutput(1, false);
    stage.commands().postEnableMidiOutput(-1, false);
    stage.rest();
    EXPECT_EQ(stage.player.requests, (std::vector<std::string>{"output 1 off"})) << "no other is in the list";
    EXPECT_EQ(stage.orv->getRegistrySettings().getEnabledMidiOutputs(), (std::vector<bool>{false, false}));
    EXPECT_TRUE(stage.orv->getMidiOutputPorts()[1].enabled);
}

TEST(Inputs, OnlyAnEnabledOneIsProcessed)
{
    Stage stage;
    stage.commands().postEnableMidiInput(1, false);
    stage.commands().postEnableMidiInput(9, true);
    stage.press("C4", 100, 0, 1);
    stage.press("D4", 100, 5, 2);
    stage.press("E4", 100, 0, 3);
    stage.press("F4", 100, 0, -1);
    EXPECT_EQ(stage.played(), "D4 on");
    EXPECT_EQ(stage.player.requests, std::vector<std::string>{"input 1 off"});
}

TEST(Inputs, GiveTheirNoteOffsBeforeTheyGoSilent)
{
    Stage stage;
    stage.press("G4", 90, 1);
    stage.press("E4", 90, 1);
    stage.press("C4", 90, 0, 1);
    stage.press("D4", 90, 0);
    stage.press("A4", 90, 0);
    stage.release("A4");
    stage.played();
    stage.commands().postEnableMidiInput(0, false);
    EXPECT_EQ(stage.played(), "D4 off, E4 off, G4 off") << "lowest channel and note first";
    stage.release("G4", 1);
    EXPECT_EQ(stage.played(), "") << "the late release is nobody's";

    auto inputs = stage.inputs({"In 1", "In 2", "In 3"});
    inputs[1].found = false;
    stage.commands().postSetMidiInputPorts(inputs);
    EXPECT_EQ(stage.played(), "C4 off") << "the device went";
    stage.press("B4", 90, 2, 2);
    stage.commands().postSetMidiInputPorts(stage.inputs({"In 1"}));
    EXPECT_EQ(stage.played(), "B4 on, B4 off") << "the port went";
}

TEST(Inputs, AKeyPressedTwiceIsReleasedTwice)
{
    Stage stage;
    stage.press("C4");
    stage.press("C4");
    stage.played();
    stage.commands().postEnableMidiInput(0, false);
    EXPECT_EQ(stage.played(), "C4 off") << "the layer's note stack held the first one back";
}

TEST(Inputs, ANoteOnOfVelocityZeroIsANoteOff)
{
    Stage stage;
    stage.press("C4", 90);
    stage.press("C4", 0);
    stage.rest();
    stage.playSlices();
    ASSERT_EQ(stage.player.events.size(), 2u);
    EXPECT_EQ(stage.player.events[1].getStatus(), MessageType::noteOff);
    EXPECT_EQ(stage.player.events[1].getD2(), 100);
    stage.played();
    stage.play({MessageType::noteOn, 60, 0, 0, 0, -1, -1, -1});
    EXPECT_EQ(stage.played(), "C4 on") << "an event of the backend's own stays as it is";
}

TEST(Thru, OffKeepsInputFromThePlayerButNeverANoteOff)
{
    Stage stage;
    stage.press("C4");
    stage.played();
    stage.setThru(false);
    stage.press("E4");
    stage.release("E4");
    stage.release("C4");
    stage.midi(0, MessageType::controllerChange, 7, 100, 0);
    stage.play({MessageType::noteOn, 67, 100, 0, 0, -1, -1, -1});
    EXPECT_EQ(stage.played(), "C4 off, G4 on") << "what the player holds is released, what it never got is not";
}

TEST(Thru, WhatItKeptBackStillCounts)
{
    Stage stage;
    stage.setThru(false);
    stage.press("C4");
    EXPECT_EQ(stage.played(), "");
    stage.playWhile([&] { stage.engine().sendReset(); });
    EXPECT_EQ(stage.takePlayed(), "C4 off");
}
