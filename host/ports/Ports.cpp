#include "host/ports/Ports.h"

#include <algorithm>

namespace Host
{
namespace
{
std::string twinName(const std::string& name, int twin) { return twin == 1 ? name : name + " " + std::to_string(twin); }

bool isControl(char byte) { return static_cast<unsigned char>(byte) < ' ' || byte == 0x7F; }

/// With a name that fits on one line.
MidiDevice cleaned(MidiDevice device)
{
    std::ranges::replace_if(device.name, isControl, ' ');
    if (device.name.empty()) device.name = "Unnamed";
    return device;
}

template <class PortType>
PortType* named(const PortTable<PortType>& ports, const std::string& name)
{
    const auto port = std::ranges::find(ports, name, [](const auto& each) -> const std::string& { return each->name; });
    return port == ports.end() ? nullptr : port->get();
}

template <class PortType>
PortType* add(PortTable<PortType>& ports, const std::string& name, std::set<std::string>& leftOut)
{
    int twin = 1;
    while (named(ports, twinName(name, twin)) != nullptr) ++twin;
    PortType* port = ports.add(std::make_unique<PortType>(twinName(name, twin)));
    if (port == nullptr) leftOut.insert(name);
    return port;
}

/// Assigns ports to the devices that a scan found.
template <class PortType>
class Assignment
{
public:
    Assignment(PortTable<PortType>& allPorts, const std::vector<MidiDevice>& found, std::set<std::string>& left)
        : ports(allPorts), leftOut(left)
    {
        for (const MidiDevice& device : found) devices.push_back(cleaned(device));
    }

    void run(const Ports::PortChange& removed, const Ports::PortChange& added)
    {
        for (std::size_t index = 0; index < ports.size(); ++index)
            if (Port& port = *ports[index]; port.found && !isThere(port)) {
                removed(index);
                port.found = false;
            }
        std::erase_if(devices, [&](const MidiDevice& device) { return isAssigned(device); });
        assignWhere([](const Port& port, const MidiDevice& device) { return port.device == device; });
        assignWhere([](const Port& port, const MidiDevice& device) { return port.name == device.name; });
        for (const MidiDevice& device : devices) assign(twinFor(device.name), device);
        for (std::size_t index = 0; index < ports.size(); ++index)
            if (std::ranges::find(newlyFound, ports[index].get()) != newlyFound.end()) added(index);
    }

private:
    bool isThere(const Port& port) const
    {
        return std::ranges::find(devices, port.device.address, &MidiDevice::address) != devices.end();
    }

    bool isAssigned(const MidiDevice& device) const
    {
        return std::ranges::any_of(
            ports, [&](const auto& port) { return port->found && port->device.address == device.address; });
    }

    template <class Fits>
    void assignWhere(Fits fits)
    {
        std::erase_if(devices, [&](const MidiDevice& device) {
            const auto port =
                std::ranges::find_if(ports, [&](const auto& each) { return !each->found && fits(*each, device); });
            if (port != ports.end()) assign(port->get(), device);
            return port != ports.end();
        });
    }

    PortType* twinFor(const std::string& name)
    {
        for (int twin = 1;; ++twin) {
            PortType* port = named(ports, twinName(name, twin));
            if (port == nullptr) return add(ports, name, leftOut);
            if (!port->found) return port;
        }
    }

    void assign(PortType* port, const MidiDevice& device)
    {
        if (port == nullptr) return;
        port->device = device;
        port->found = true;
        newlyFound.push_back(port);
    }

    PortTable<PortType>& ports;
    std::vector<MidiDevice> devices;  // without a port so far
    std::set<std::string>& leftOut;
    std::vector<PortType*> newlyFound;
};

template <class Record, class PortType>
std::vector<Record> records(const PortTable<PortType>& ports)
{
    std::vector<Record> list;
    for (const auto& port : ports) {
        Record record;
        record.name = port->name;
        record.found = port->found;
        record.couldNotOpen = port->couldNotOpen;
        record.enabled = port->enabled;
        list.push_back(record);
    }
    return list;
}
}  // namespace

InputPort* Ports::addInput(const std::string& name) { return add(inputPorts, name, leftOutNames); }

OutputPort* Ports::addOutput(const std::string& name) { return add(outputPorts, name, leftOutNames); }

void Ports::assignInputs(const std::vector<MidiDevice>& devices, const PortChange& removed, const PortChange& added)
{
    Assignment(inputPorts, devices, leftOutNames).run(removed, added);
}

void Ports::assignOutputs(const std::vector<MidiDevice>& devices, const PortChange& removed, const PortChange& added)
{
    Assignment(outputPorts, devices, leftOutNames).run(removed, added);
}

Backend::MidiEngine::MidiInputPorts Ports::inputList() const
{
    return records<Backend::MidiEngine::MidiInputPort>(inputPorts);
}

Backend::MidiEngine::MidiOutputPorts Ports::outputList() const
{
    return records<Backend::MidiEngine::MidiOutputPort>(outputPorts);
}
}  // namespace Host
