#include <gtest/gtest.h>

#include "host/ports/PortMemory.h"
#include "host/ports/Ports.h"
#include "host/run/PortList.h"
#include "tests/host/HostTesting.h"

namespace Host
{
TEST(HostPorts, EqualNamesAreNumbered)
{
    Ports ports;
    for (const char* name : {"Piano", "Piano", "Piano 3", "Piano", "Piano 2"}) ports.addOutput(name);
    ports.addInput("Piano");
    std::vector<std::string> names;
    for (const auto& port : ports.outputList()) names.push_back(port.name);
    EXPECT_EQ(names, (std::vector<std::string>{"Piano", "Piano 2", "Piano 3", "Piano 4", "Piano 2 2"}));
    EXPECT_EQ(ports.inputList()[0].name, "Piano") << "the other way is a list of its own";
}

TEST(HostPorts, ThereAreAtMost127PortsEachWay)
{
    Ports ports;
    for (std::size_t count = 0; count < Ports::MOST; ++count) EXPECT_NE(ports.addInput("Keys"), nullptr);
    EXPECT_EQ(ports.addInput("Keys"), nullptr);
    EXPECT_EQ(ports.inputList().size(), Ports::MOST);
    EXPECT_EQ(ports.leftOut(), 1u);
}

namespace
{
/// Assigns devices, each as {address, name}, and lists the changes and the inputs: "-0 Keys-|Pads|", where - is absent.
struct Inputs {
    Ports ports;
    std::string log;

    std::string assign(const std::vector<MidiDevice>& devices)
    {
        log.clear();
        const auto note = [this](const char* what) {
            return [this, what](std::size_t index) { log += what + std::to_string(index) + " "; };
        };
        ports.assignInputs(devices, note("-"), note("+"));
        std::string names;
        for (const auto& port : ports.inputs()) names += port->name + (port->found ? "|" : "-|");
        return log + names;
    }
};
}  // namespace

TEST(HostPorts, KeepTheirNumbersWhileDevicesAreUnpluggedAndPluggedIn)
{
    Inputs inputs;
    EXPECT_EQ(inputs.assign({{"a:1", "Keys"}, {"b:1", "Pads"}}), "+0 +1 Keys|Pads|");
    EXPECT_EQ(inputs.assign({{"b:1", "Pads"}, {"c:1", "Wheel"}}), "-0 +2 Keys-|Pads|Wheel|");
    EXPECT_EQ(inputs.assign({{"b:1", "Pads"}, {"c:1", "Wheel"}}), "Keys-|Pads|Wheel|") << "no change";
    EXPECT_EQ(inputs.assign({{"b:1", "Pads"}, {"d:9", "Keys"}}), "-2 +0 Keys|Pads|Wheel-|") << "at another socket";
}

TEST(HostPorts, OfEqualNamesGoToTheSameDeviceAndAnExactNameComesFirst)
{
    Inputs inputs;
    inputs.assign({{"a:1", "Keys"}, {"b:1", "Keys"}});
    EXPECT_EQ(inputs.assign({}), "-0 -1 Keys-|Keys 2-|");
    EXPECT_EQ(inputs.assign({{"b:1", "Keys"}}), "+1 Keys-|Keys 2|");
    EXPECT_EQ(inputs.assign({{"b:1", "Keys"}, {"x:1", "Keys"}}), "+0 Keys|Keys 2|");
    EXPECT_EQ(inputs.assign({{"b:1", "Keys"}, {"x:1", "Keys"}, {"y:1", "Keys"}}), "+2 Keys|Keys 2|Keys 3|");
    inputs.assign({});
    EXPECT_EQ(inputs.assign({{"d:1", "Keys"}, {"e:1", "Keys"}, {"f:1", "Keys 2"}}), "+0 +1 +2 Keys|Keys 2|Keys 3|");
    EXPECT_EQ(inputs.ports.inputs()[1]->device.address, "f:1");
}

TEST(PortMemory, RestoresTheNumbersOfTheRunBefore)
{
    const Testing::TemporaryFolder folder;
    const auto unexpected = [](const std::string& line) { ADD_FAILURE() << line; };
    {
        Ports ports;
        PortMemory memory(folder.string(), unexpected);
        memory.restore(ports, "Synthesizer");
        EXPECT_EQ(ports.outputs().size(), 1u);
        for (const char* name : {"Piano", "Piano", "Größe"}) ports.addOutput(name);
        ports.addInput("Keys");
        memory.save(ports);
        EXPECT_EQ(folder.read("Midi Outputs.txt"), "Synthesizer\nPiano\nPiano 2\nGröße\n");
        ports.addInput("Pads");
        memory.save(ports);
        EXPECT_EQ(folder.read("Midi Inputs.txt"), "Keys\nPads\n");
    }
    folder.write("Midi Inputs.txt", "Pads\r\n\nKeys\nPads\n\xFF\nWheel");
    folder.write("Midi Outputs.txt", "Piano\nSynthesizer\n");
    Ports ports;
    PortMemory(folder.string(), unexpected).restore(ports, "Synthesizer");
    EXPECT_EQ(describePorts(ports.inputList(), ports.outputList()),
              "Inputs\n   0  Pads (Not Found)\n   1  Keys (Not Found)\n   2  Wheel (Not Found)\n"
              "Outputs\n   0  Synthesizer (Not Found)\n   1  Piano (Not Found)\n");
}

TEST(PortMemory, DoesNotOverwriteAFileThatItCannotRead)
{
    const Testing::TemporaryFolder folder;
    std::filesystem::create_directory(folder / "Midi Inputs.txt");
    std::vector<std::string> lines;
    PortMemory memory(folder.string(), [&](const std::string& line) { lines.push_back(line); });
    Ports ports;
    memory.restore(ports, "Synthesizer");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find("Midi Inputs.txt: "), std::string::npos);
    ports.addInput("Keys");
    memory.save(ports);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "Midi Inputs.txt"));
    EXPECT_EQ(lines.size(), 1u);
}

TEST(HostPorts, AreShownWithTheirState)
{
    Ports ports;
    ports.addOutput("Orvane Synthesizer")->couldNotOpen = true;
    ports.addOutput("Organ")->enabled = false;
    EXPECT_EQ(describePorts(ports.inputList(), ports.outputList()),
              "Inputs\n  none\nOutputs\n   0  Orvane Synthesizer (Couldn't Open)\n   1  Organ (Not Enabled)\n");
}

TEST(HostPorts, AnOutputIsNamedByItsNameOrItsNumber)
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
}  // namespace Host
