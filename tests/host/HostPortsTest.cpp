#include <gtest/gtest.h>

#include "host/alsa/AlsaMidi.h"
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
