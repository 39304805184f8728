#include "host/alsa/AlsaSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <map>
#include <thread>
#include <utility>

namespace Host
{
namespace
{
/// Devices that the test plugs in and unplugs, with the messages that each received.
struct Bench {
    std::vector<MidiDevice> sources;
    std::vector<MidiDevice> sinks;
    bool changed = false;
    std::map<std::string, MidiDevices::Arrived> openSources;  // by the device's name, while it is open
    std::map<std::string, std::vector<ShortMessage>> received;
    std::atomic<std::size_t> sent{0};

    void plug(const MidiDevice& device)
    {
        sources.push_back(device);
        sinks.push_back(device);
        changed = true;
    }
    void unplug(const std::string& name)
    {
        const auto isIt = [&](const MidiDevice& device) { return device.name == name; };
        std::erase_if(sources, isIt);
        std::erase_if(sinks, isIt);
        changed = true;
    }
};

struct FakeSource final : MidiSource {
    FakeSource(Bench& onBench, std::string ofName) : bench(onBench), name(std::move(ofName)) {}
    ~FakeSource() override { bench.openSources.erase(name); }
    Bench& bench;
    std::string name;
};

struct FakeSink final : MidiSink {
    FakeSink(Bench& onBench, const std::string& name) : bench(onBench), received(bench.received[name]) {}
    void send(const ShortMessage& message) override
    {
        received.push_back(message);
        bench.sent.fetch_add(1);
    }
    Bench& bench;
    std::vector<ShortMessage>& received;
};

struct FakeDevices final : MidiDevices {
    explicit FakeDevices(Bench& onBench) : bench(onBench) {}
    bool isAvailable() const override { return true; }
    bool haveChanged() override { return std::exchange(bench.changed, false); }
    std::vector<MidiDevice> findSources() override { return bench.sources; }
    std::vector<MidiDevice> findSinks() override { return bench.sinks; }
    std::unique_ptr<MidiSource> openSource(const MidiDevice& device, Arrived arrived) override
    {
        bench.openSources[device.name] = std::move(arrived);
        return std::make_unique<FakeSource>(bench, device.name);
    }
    std::unique_ptr<MidiSink> openSink(const MidiDevice& device) override
    {
        return std::make_unique<FakeSink>(bench, device.name);
    }
    Bench& bench;
};

const ShortMessage ON{{0x90, 60, 100}, 3};
const ShortMessage OFF{{0x80, 60, 64}, 3};  // with the release velocity of `noteOff`

struct Rig {
    Bench bench;
    Ports ports;
    std::unique_ptr<AlsaSystem> system;

    explicit Rig(const MidiDevice& device)
    {
        bench.plug(device);
        system = std::make_unique<AlsaSystem>(std::make_unique<FakeDevices>(bench), ports);
    }
    OutputPort& output(const std::string& name)
    {
        return **std::ranges::find(ports.outputs(), name, [](const auto& port) { return port->name; });
    }
    /// Plays and waits until the sender has sent it.
    void play(const std::string& name, const ShortMessage& message)
    {
        const std::size_t before = bench.sent;
        output(name).play(message, 0);
        system->deliver();
        while (bench.sent == before) std::this_thread::yield();
    }
};
}  // namespace

TEST(AlsaSystem, UpdatesThePortsToDevicesThatArePluggedInAndUnplugged)
{
    Rig rig({"24:0", "Piano"});
    EXPECT_FALSE(rig.system->refresh());
    rig.bench.plug({"28:0", "Organ"});
    EXPECT_TRUE(rig.system->refresh());
    EXPECT_TRUE(rig.bench.openSources.contains("Organ"));
    rig.bench.unplug("Piano");
    EXPECT_TRUE(rig.system->refresh());
    EXPECT_FALSE(rig.bench.openSources.contains("Piano"));
    EXPECT_FALSE(rig.output("Piano").found);
    EXPECT_EQ(rig.ports.inputs().size(), 3u);

    std::vector<int> inputs;
    rig.system->listen([&](const auto& event) { inputs.push_back(event.getInput()); });
    rig.bench.plug({"32:0", "Piano"});
    rig.system->refresh();
    rig.bench.openSources["Piano"](ON);
    rig.bench.openSources["Organ"](ON);
    EXPECT_EQ(inputs, (std::vector<int>{1, 2})) << "each with its old number";
}

TEST(AlsaSystem, SendsTheMissingNoteOffsToADeviceThatIsPluggedInAgain)
{
    Rig rig({"24:0", "Piano"});
    rig.play("Piano", ON);
    rig.bench.unplug("Piano");
    rig.system->refresh();
    rig.output("Piano").play({{0x90, 62, 100}, 3}, 0);  // while there is no device
    rig.bench.plug({"24:0", "Piano"});
    rig.system->refresh();
    EXPECT_EQ(rig.bench.received["Piano"], (std::vector<ShortMessage>{ON, OFF}));
    rig.play("Piano", ON);
    rig.system->close();
    EXPECT_EQ(rig.bench.received["Piano"], (std::vector<ShortMessage>{ON, OFF, ON, OFF}));
}

TEST(AlsaSystem, ADisabledDeviceStaysClosedWhenItIsPluggedInAgain)
{
    Rig rig({"24:0", "Piano"});
    rig.system->enableInput(1, false);
    rig.bench.unplug("Piano");
    rig.system->refresh();
    rig.bench.plug({"24:0", "Piano"});
    rig.system->refresh();
    EXPECT_FALSE(rig.bench.openSources.contains("Piano"));
    rig.system->enableInput(1, true);
    EXPECT_TRUE(rig.bench.openSources.contains("Piano"));
}
}  // namespace Host
