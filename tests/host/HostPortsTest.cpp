#include <gtest/gtest.h>

#include "host/alsa/AlsaMidi.h"
#include "host/ports/PortMemory.h"
#include "host/ports/Ports.h"
#include "host/run/PortList.h"
#include "tests/host/HostTesting.h"

namespace Host
{
TEST(HostPorts, TwinsAreNumbered)
{
    Ports ports;
    for (const char* name : {"Piano", "Piano", "Piano 3", "Piano", "Piano 2"}) ports.addOutput(name);
    ports.addInput("Piano");
    std::vector<std::string> names;
    for (const auto& port : ports.outputList()) names.push_back(port.name);
    EXPECT_EQ(names, (std::vector<std::string>{"Piano", "Piano 2", "Piano 3", "Piano 4", "Piano 2 2"}));
    EXPECT_EQ(ports.inputList()[0].name, "Piano") << "the other way is a list of its own";
}

TEST(HostPorts, WhatFindsNoNumberIsLeftOut)
{
    Ports ports;
    for (std::size_t count = 0; count < Ports::MOST; ++count) EXPECT_NE(ports.addInput("Keys"), nullptr);
    EXPECT_EQ(ports.addInput("Keys"), nullptr);
    EXPECT_EQ(ports.inputList().size(), Ports::MOST);
    EXPECT_EQ(ports.leftOut(), 1u);
}

namespace
{
/// Lets devices come and go, each as {address, name}, and tells the inputs by number: "Keys Keys_2-", where - is gone.
struct Cabling {
    Ports ports;
    std::string log;

    std::string settle(const std::vector<MidiDevice>& devices)
    {
        log.clear();
        const auto note = [this](const char* what) {
            return [this, what](std::size_t index) { log += what + std::to_string(index) + " "; };
        };
        ports.settleInputs(devices, note("-"), note("+"));
        std::string names;
        for (const auto& port : ports.inputs()) names += port->name + (port->found ? "|" : "-|");
        return log + names;
    }
};
}  // namespace

TEST(HostPorts, KeepTheirNumbersWhileDevicesComeAndGo)
{
    Cabling cabling;
    EXPECT_EQ(cabling.settle({{"a:1", "Keys"}, {"b:1", "Pads"}}), "+0 +1 Keys|Pads|");
    EXPECT_EQ(cabling.settle({{"b:1", "Pads"}, {"c:1", "Wheel"}}), "-0 +2 Keys-|Pads|Wheel|");
    EXPECT_EQ(cabling.settle({{"b:1", "Pads"}, {"c:1", "Wheel"}}), "Keys-|Pads|Wheel|") << "nothing new";
    EXPECT_EQ(cabling.settle({{"b:1", "Pads"}, {"d:9", "Keys"}}), "-2 +0 Keys|Pads|Wheel-|") << "at another socket";
}

TEST(HostPorts, ATwinComesBackToItsOwnNumber)
{
    Cabling cabling;
    cabling.settle({{"a:1", "Keys"}, {"b:1", "Keys"}});
    EXPECT_EQ(cabling.settle({}), "-0 -1 Keys-|Keys 2-|");
    EXPECT_EQ(cabling.settle({{"b:1", "Keys"}}), "+1 Keys-|Keys 2|");
    EXPECT_EQ(cabling.settle({{"b:1", "Keys"}, {"x:1", "Keys"}}), "+0 Keys|Keys 2|");
    EXPECT_EQ(cabling.settle({{"b:1", "Keys"}, {"x:1", "Keys"}, {"y:1", "Keys"}}), "+2 Keys|Keys 2|Keys 3|");
}

TEST(HostPorts, AnExactNameComesBeforeATwin)
{
    Cabling cabling;
    for (const char* name : {"Keys", "Keys 2"}) cabling.ports.addInput(name)->found = false;
    EXPECT_EQ(cabling.settle({{"a:1", "Keys"}, {"b:1", "Keys"}, {"c:1", "Keys 2"}}), "+0 +1 +2 Keys|Keys 2|Keys 3|");
    EXPECT_EQ(cabling.ports.inputs()[1]->device.address, "c:1");
}

TEST(PortMemory, GivesTheNumbersOfTheRunBefore)
{
    const Testing::TemporaryFolder folder;
    const auto noComplaint = [](const std::string& line) { ADD_FAILURE() << line; };
    {
        Ports ports;
        PortMemory memory(folder.string(), noComplaint);
        memory.recall(ports, "Synthesizer");
        EXPECT_EQ(ports.outputs().size(), 1u);
        for (const char* name : {"Piano", "Piano",
                                 "Gr\xC3\xBC\xC3\x9F"
                                 "e"})
            ports.addOutput(name);
        ports.addInput("Keys");
        memory.keep(ports);
        EXPECT_EQ(folder.read("Midi Outputs.txt"),
                  "Synthesizer\nPiano\nPiano 2\nGr\xC3\xBC\xC3\x9F"
                  "e\n");
        ports.addInput("Pads");
        memory.keep(ports);
        EXPECT_EQ(folder.read("Midi Inputs.txt"), "Keys\nPads\n");
    }
    folder.write("Midi Inputs.txt", "Pads\r\n\nKeys\nPads\n\xFF\nWheel");
    folder.write("Midi Outputs.txt", "Piano\nSynthesizer\n");
    Ports ports;
    PortMemory(folder.string(), noComplaint).recall(ports, "Synthesizer");
    EXPECT_EQ(describePorts(ports.inputList(), ports.outputList()),
              "Inputs\n   0  Pads (Not Found)\n   1  Keys (Not Found)\n   2  Wheel (Not Found)\n"
              "Outputs\n   0  Synthesizer (Not Found)\n   1  Piano (Not Found)\n");
}

TEST(PortMemory, LeavesAFileAloneThatItCannotRead)
{
    const Testing::TemporaryFolder folder;
    std::filesystem::create_directory(folder / "Midi Inputs.txt");
    std::vector<std::string> told;
    PortMemory memory(folder.string(), [&](const std::string& line) { told.push_back(line); });
    Ports ports;
    memory.recall(ports, "Synthesizer");
    ASSERT_EQ(told.size(), 1u);
    EXPECT_NE(told[0].find("Midi Inputs.txt: "), std::string::npos);
    ports.addInput("Keys");
    memory.keep(ports);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "Midi Inputs.txt"));
    EXPECT_EQ(told.size(), 1u);
}

TEST(HostPorts, AreShownWithTheirState)
{
    Ports ports;
    ports.addOutput("Orvane Synthesizer")->couldNotOpen = true;
    ports.addOutput("Organ")->enabled = false;
    EXPECT_EQ(describePorts(ports.inputList(), ports.outputList()),
              "Inputs\n  none\nOutputs\n   0  Orvane Synthesizer (Couldn't Open)\n   1  Organ (Not Enabled)\n");
}

TEST(HostPorts, AnOutputIsMeantByItsNameOrItsNumber)
{
    Ports ports;
    for (const char* name : {"Organ", "0", "Bells 2"}) ports.addOutput(name);
    const auto outputs = ports.outputList();
    EXPECT_EQ(findOutput(outputs, "Bells 2"), 2);
    EXPECT_EQ(findOutput(outputs, "2"), 2);
    EXPECT_EQ(findOutput(outputs, "0"), 1) << "a name comes first";
    for (const char* none : {"3", "-1", "", "Bells", "1x", "99999999999999999999"})
        EXPECT_NE(Testing::complaintOf([&] { findOutput(outputs, none); }), "") << none;
}

TEST(HostPorts, ADeviceOfTheSequencerIsKnownWithoutItsAddress)
{
    EXPECT_EQ(withoutAddress("Keys:Keys MIDI 1 24:0"), "Keys:Keys MIDI 1");
    EXPECT_EQ(withoutAddress("Keys:Keys MIDI 1"), "Keys:Keys MIDI 1");
    EXPECT_EQ(withoutAddress("24:0"), "24:0");
}
}  // namespace Host
