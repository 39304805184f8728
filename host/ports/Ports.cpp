#include "host/ports/Ports.h"

#include <algorithm>

namespace Host
{
namespace
{
template <class List>
std::string numberedName(const List& ports, const std::string& name)
{
    const auto isTaken = [&](const std::string& wanted) {
        return std::ranges::any_of(ports, [&](const auto& port) { return port->name == wanted; });
    };
    std::string numbered = name;
    for (int twin = 2; isTaken(numbered); ++twin) numbered = name + " " + std::to_string(twin);
    return numbered;
}

template <class PortType>
PortType* add(std::vector<std::unique_ptr<PortType>>& ports, const std::string& name, std::size_t& tooMany)
{
    if (ports.size() == Ports::MOST) {
        ++tooMany;
        return nullptr;
    }
    ports.push_back(std::make_unique<PortType>(numberedName(ports, name)));
    return ports.back().get();
}

template <class Record, class PortType>
std::vector<Record> records(const std::vector<std::unique_ptr<PortType>>& ports)
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

InputPort* Ports::addInput(const std::string& name) { return add(inputPorts, name, tooMany); }

OutputPort* Ports::addOutput(const std::string& name) { return add(outputPorts, name, tooMany); }

Backend::MidiEngine::MidiInputPorts Ports::inputList() const
{
    return records<Backend::MidiEngine::MidiInputPort>(inputPorts);
}

Backend::MidiEngine::MidiOutputPorts Ports::outputList() const
{
    return records<Backend::MidiEngine::MidiOutputPort>(outputPorts);
}
}  // namespace Host
