#include "host/devices/DeviceSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <utility>

#include "tests/host/FakeDevices.h"
#include "tests/host/HostTesting.h"

namespace Host
{
namespace
{
using Testing::off;
using Testing::on;
using Messages = std::vector<ShortMessage>;
using Testing::FakeDevices;

/// A system with a piano.
struct Rig {
    Ports ports;
    FakeDevices& devices = *new FakeDevices;
    std::unique_ptr<DeviceSystem> system;

    Rig()
    {
        devices.devices.push_back({"24:0", "Piano"});
        system = std::make_unique<DeviceSystem>(std::unique_ptr<MidiDevices>(&devices), ports, nullptr);
    }
    /// Whether that changed the ports.
    bool plug(const MidiDevice& device)
    {
        devices.devices.push_back(device);
        devices.changed = true;
        return system->refresh();
    }
    bool unplug(const std::string& name)
    {
        std::erase_if(devices.devices, [&](const MidiDevice& device) { return device.name == name; });
        devices.changed = true;
        return system->refresh();
    }
    bool isOpen(const std::string& name) const { return devices.openSources.contains(name); }
    OutputPort& piano() { return *ports.outputs()[1]; }
    /// Plays and waits until the sender has sent it.
    void play(const ShortMessage& message)
    {
        const std::size_t before = devices.sent;
        piano().play(message, 0);
        system->deliver();
        while (devices.sent == before) std::this_thread::yield();
    }
};
}  // namespace

TEST(DeviceSystem, UpdatesThePortsToDevicesThatArePluggedInAndUnplugged)
{
    Rig rig;
    EXPECT_EQ(rig.piano().name, "Piano");
    EXPECT_FALSE(rig.system->refresh());
    EXPECT_TRUE(rig.plug({"28:0", "Organ"}));
    EXPECT_TRUE(rig.isOpen("Organ"));
    EXPECT_TRUE(rig.unplug("Piano"));
    EXPECT_FALSE(rig.isOpen("Piano"));
    EXPECT_FALSE(rig.piano().found);
    EXPECT_EQ(rig.ports.inputs().size(), 3u);

    struct : InputReceiver {
        bool play(const Event& event) override { return event.getD1() >= 60; }
        void defer(int) override {}
        void post(const Event& event) override { posted.push_back(event.getInput()); }
        void postLost(int) override {}
        std::vector<int> posted;
    } receiver;
    rig.system->listen(receiver);
    rig.plug({"32:0", "Piano"});
    rig.devices.openSources["Piano"](on(59));
    rig.devices.openSources["Organ"](on(59));
    rig.devices.openSources["Organ"](on(60));  // is played at once, so it is not posted
    EXPECT_EQ(receiver.posted, (std::vector<int>{1, 2})) << "each with its old number";
}

TEST(DeviceSystem, SendsTheMissingNoteOffsToADeviceThatIsPluggedInAgain)
{
    Rig rig;
    rig.play(on(60));
    rig.unplug("Piano");
    rig.piano().play(on(62), 0);  // while there is no device
    rig.plug({"24:0", "Piano"});
    EXPECT_EQ(rig.devices.received["Piano"], (Messages{on(60), off(60)}));
    rig.play(on(60));
    rig.system->close();
    EXPECT_EQ(rig.devices.received["Piano"], (Messages{on(60), off(60), on(60), off(60)}));
}

TEST(DeviceSystem, ADisabledDeviceStaysClosedWhenItIsPluggedInAgain)
{
    Rig rig;
    rig.system->enableInput(1, false);
    rig.unplug("Piano");
    rig.plug({"24:0", "Piano"});
    EXPECT_FALSE(rig.isOpen("Piano"));
    rig.system->enableInput(1, true);
    EXPECT_TRUE(rig.isOpen("Piano"));
}
}  // namespace Host
