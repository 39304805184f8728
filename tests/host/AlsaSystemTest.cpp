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
/// Devices that are plugged in and pulled out by the test; what each hears is written down.
struct Table {
    std::vector<MidiDevice> sources;
    std::vector<MidiDevice> sinks;
    bool changed = false;
    std::map<std::string, MidiDevices::Arrived> heardFrom;  // by the device's name, while it is open
    std::map<std::string, std::vector<ShortMessage>> heard;
    std::atomic<std::size_t> sent{0};

    void plug(const MidiDevice& device)
    {
        sources.push_back(device);
        sinks.push_back(device);
        changed = true;
    }
    void pull(const std::string& name)
    {
        const auto isIt = [&](const MidiDevice& device) { return device.name == name; };
        std::erase_if(sources, isIt);
        std::erase_if(sinks, isIt);
        changed = true;
    }
};

struct FakeSource final : MidiSource {
    FakeSource(Table& onTable, std::string ofName) : table(onTable), name(std::move(ofName)) {}
    ~FakeSource() override { table.heardFrom.erase(name); }
    Table& table;
    std::string name;
};

struct FakeSink final : MidiSink {
    FakeSink(Table& onTable, const std::string& name) : table(onTable), heard(table.heard[name]) {}
    void send(const ShortMessage& message) override
    {
        heard.push_back(message);
        table.sent.fetch_add(1);
    }
    Table& table;
    std::vector<ShortMessage>& heard;
};

struct FakeDevices final : MidiDevices {
    explicit FakeDevices(Table& onTable) : table(onTable) {}
    bool isPossible() const override { return true; }
    bool haveChanged() override { return std::exchange(table.changed, false); }
    std::vector<MidiDevice> findSources() override { return table.sources; }
    std::vector<MidiDevice> findSinks() override { return table.sinks; }
    std::unique_ptr<MidiSource> openSource(const MidiDevice& device, Arrived arrived) override
    {
        table.heardFrom[device.name] = std::move(arrived);
        return std::make_unique<FakeSource>(table, device.name);
    }
    std::unique_ptr<MidiSink> openSink(const MidiDevice& device) override
    {
        return std::make_unique<FakeSink>(table, device.name);
    }
    Table& table;
};

const ShortMessage ON{{0x90, 60, 100}, 3};
const ShortMessage OFF{{0x80, 60, 64}, 3};  // as the ledger gives it

struct Rig {
    Table table;
    Ports ports;
    std::unique_ptr<AlsaSystem> system;

    explicit Rig(const MidiDevice& device)
    {
        table.plug(device);
        system = std::make_unique<AlsaSystem>(std::make_unique<FakeDevices>(table), ports);
    }
    OutputPort& output(const std::string& name)
    {
        return **std::ranges::find(ports.outputs(), name, [](const auto& port) { return port->name; });
    }
    /// Plays and waits until the sender has sent it.
    void play(const std::string& name, const ShortMessage& message)
    {
        const std::size_t before = table.sent;
        output(name).play(message, 0);
        system->deliver();
        while (table.sent == before) std::this_thread::yield();
    }
};
}  // namespace

TEST(AlsaSystem, FollowsDevicesThatComeAndGo)
{
    Rig rig({"24:0", "Piano"});
    EXPECT_FALSE(rig.system->refresh());
    rig.table.plug({"28:0", "Organ"});
    EXPECT_TRUE(rig.system->refresh());
    EXPECT_TRUE(rig.table.heardFrom.contains("Organ"));
    rig.table.pull("Piano");
    EXPECT_TRUE(rig.system->refresh());
    EXPECT_FALSE(rig.table.heardFrom.contains("Piano"));
    EXPECT_FALSE(rig.output("Piano").found);
    EXPECT_EQ(rig.ports.inputs().size(), 3u);

    std::vector<int> inputs;
    rig.system->listen([&](const auto& event) { inputs.push_back(event.getInput()); });
    rig.table.plug({"32:0", "Piano"});
    rig.system->refresh();
    rig.table.heardFrom["Piano"](ON);
    rig.table.heardFrom["Organ"](ON);
    EXPECT_EQ(inputs, (std::vector<int>{1, 2})) << "each by its old number";
}

TEST(AlsaSystem, EndsOnADeviceThatComesBackWhatSoundedThereWhenItWent)
{
    Rig rig({"24:0", "Piano"});
    rig.play("Piano", ON);
    rig.table.pull("Piano");
    rig.system->refresh();
    rig.output("Piano").play({{0x90, 62, 100}, 3}, 0);  // to nobody
    rig.table.plug({"24:0", "Piano"});
    rig.system->refresh();
    EXPECT_EQ(rig.table.heard["Piano"], (std::vector<ShortMessage>{ON, OFF}));
    rig.play("Piano", ON);
    rig.system->close();
    EXPECT_EQ(rig.table.heard["Piano"], (std::vector<ShortMessage>{ON, OFF, ON, OFF}));
}

TEST(AlsaSystem, ADeviceThatComesBackDisabledStaysClosedUntilItIsEnabled)
{
    Rig rig({"24:0", "Piano"});
    rig.system->enableInput(1, false);
    rig.table.pull("Piano");
    rig.system->refresh();
    rig.table.plug({"24:0", "Piano"});
    rig.system->refresh();
    EXPECT_FALSE(rig.table.heardFrom.contains("Piano"));
    rig.system->enableInput(1, true);
    EXPECT_TRUE(rig.table.heardFrom.contains("Piano"));
}
}  // namespace Host
