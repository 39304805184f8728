#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "backend/model/MidiPort.h"
#include "host/ports/Port.h"
#include "host/ports/PortTable.h"

namespace Host
{
/// All ports of the host by number. A port stays in its list when its device is unplugged, and so keeps its number. The
/// control thread adds ports and assigns devices to them; any thread may read the lists.
class Ports
{
public:
    static constexpr std::size_t MOST = PortTable<InputPort>::MOST;

    /// Adds a port with the next number. If the name is in use, the port gets a numbered name ("Piano 2"). Null, with
    /// the name counted in `leftOut`, if there are `MOST` ports already.
    InputPort* addInput(const std::string& name);
    OutputPort* addOutput(const std::string& name);

    const PortTable<InputPort>& inputs() const { return inputPorts; }
    const PortTable<OutputPort>& outputs() const { return outputPorts; }

    /// Assigns a port to each device that a scan found, until the device is gone: the port that the device had earlier
    /// in this run, else a free port with exactly its name, else the first free port with a numbered name ("Piano 2"),
    /// else a new port. First, `removed` is called with the number of each port whose device is gone, which is not
    /// found from then on; at the end, `added` is called for each port that got a device.
    using PortChange = std::function<void(std::size_t index)>;
    void assignInputs(const std::vector<MidiDevice>& devices, const PortChange& removed, const PortChange& added);
    void assignOutputs(const std::vector<MidiDevice>& devices, const PortChange& removed, const PortChange& added);

    /// How many devices have no port because there are `MOST` ports.
    std::size_t leftOut() const { return leftOutNames.size(); }

    /// The lists in the form of the backend. Control thread.
    Backend::MidiEngine::MidiInputPorts inputList() const;
    Backend::MidiEngine::MidiOutputPorts outputList() const;

private:
    PortTable<InputPort> inputPorts;
    PortTable<OutputPort> outputPorts;
    std::set<std::string> leftOutNames;
};
}  // namespace Host
