#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/devices/MidiDevices.h"

namespace Host::Testing
{
/// Devices that the test plugs in and unplugs, with the messages that each received.
struct FakeDevices final : MidiDevices {
    std::vector<MidiDevice> devices;
    bool changed = false;
    std::map<std::string, Arrived> openSources;  // by the device's name, while it is open
    std::map<std::string, std::vector<ShortMessage>> received;
    std::atomic<std::size_t> sent{0};

    struct Source final : MidiSource {
        Source(FakeDevices& fakeDevices, std::string ofName) : devices(fakeDevices), name(std::move(ofName)) {}
        ~Source() override { devices.openSources.erase(name); }
        FakeDevices& devices;
        std::string name;
    };
    struct Sink final : MidiSink {
        Sink(FakeDevices& fakeDevices, const std::string& ofName)
            : devices(fakeDevices), received(fakeDevices.received[ofName])
        {
        }
        void send(const ShortMessage& message) override
        {
            received.push_back(message);
            devices.sent.fetch_add(1);
        }
        FakeDevices& devices;
        std::vector<ShortMessage>& received;
    };

    std::string name() const override { return "fake"; }
    std::string description() const override { return "fake devices"; }
    bool isAvailable() const override { return true; }
    bool hasVirtualPorts() const override { return true; }
    bool haveChanged() override { return std::exchange(changed, false); }
    std::vector<MidiDevice> findSources() override { return devices; }
    std::vector<MidiDevice> findSinks() override { return devices; }
    std::unique_ptr<MidiSource> openSource(const MidiDevice& device, Arrived arrived) override
    {
        openSources[device.name] = std::move(arrived);
        return std::make_unique<Source>(*this, device.name);
    }
    std::unique_ptr<MidiSink> openSink(const MidiDevice& device) override
    {
        return std::make_unique<Sink>(*this, device.name);
    }
};
}  // namespace Host::Testing
